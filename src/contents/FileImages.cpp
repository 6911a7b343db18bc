#include "contents/FileImages.h"

#include <array>

int FileImage(const QString& name)
{
    static constexpr struct {
        QStringView text;
        int image;
    } table[] = {{u".exe", 2},   {u".zip", 3},  {u".bmp", 4},  {u".inf", 5}, {u".ini", 5},  {u".avi", 6},
                 {u".mpg", 6},   {u".mpeg", 6}, {u".mov", 6},  {u".wav", 7}, {u".mp3", 7},  {u".mp2", 7},
                 {u".rar", 8},   {u".txt", 9},  {u".diz", 9},  {u".nfo", 9}, {u".gif", 10}, {u".jpg", 11},
                 {u".jpeg", 11}, {u".htm", 12}, {u".html", 12}};
    const QString lower = name.toLower();
    for (const auto& [text, image] : table)
        if (lower.contains(text)) return image;
    return 1;
}

QString FileImageIcon(int image)
{
    static const std::array<QString, 12> icons{
        u"file"_s,          u"file-program"_s,     u"file-archive"_s,      u"file-picture-bmp"_s,
        u"file-settings"_s, u"file-video"_s,       u"file-audio"_s,        u"file-archive-rar"_s,
        u"file-text"_s,     u"file-picture-gif"_s, u"file-picture-jpeg"_s, u"file-web"_s,
    };
    return icons.at(image - 1);
}
