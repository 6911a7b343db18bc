#include "platform/Profile.h"
#include "harness/FileSizeLimit.h"
#include "harness/FileSystemImages.h"
#include "platform/CodePage1251.h"

namespace {
class ProfileFile : public ImageTest {
protected:
    const QString path = at("vinora.ini");
    const Profile profile{path};

    void fill(const QString& text) { write(path, EncodeCp1251(text)); }
    QString text() const { return DecodeCp1251(contentsOf(path)); }
};
}

TEST_F(ProfileFile, FindsNamesInAnyCaseAndTakesBlanksAndQuotesOff)
{
    fill("stray=1\r\n[Option]\r\n  Drive =\tE:\\ \r\n;Drive=F:\\\r\nquoted=\" two "
         "\"\r\nsingle='x'\r\nhalf=\"y\r\nempty=\r\n"
         "equals=a=b\r\nDrive=second\r\n[ Запрос ]\nУсловие=новый\n[Option]\r\nhidden=1");
    for (const auto& [name, value] :
         {std::pair{"drive", "E:\\"}, {"quoted", " two "}, {"single", "x"}, {"half", "\"y"}, {"equals", "a=b"}})
        EXPECT_EQ(profile.read(u"OPTION", QString(name)), value);
    EXPECT_EQ(profile.read(u"запрос", u"УСЛОВИЕ"), "новый");
    for (const char* nothing : {"empty", "stray", "hidden", "missing", ";Drive"})
        EXPECT_FALSE(profile.has(u"Option", QString(nothing))) << nothing;
    EXPECT_EQ(profile.keys(u"option"), QStringList({"Drive", "quoted", "single", "half", "empty", "equals", "Drive"}));
    EXPECT_EQ(profile.read(u"Option", u"quoted", 4), " tw") << "the reader's buffer";
    EXPECT_EQ(profile.read(u"Option", u"quoted", 0), "");
}

TEST_F(ProfileFile, WritesInPlaceAndKeepsWhatStandsAround)
{
    fill("; mine\r\n[Option]\r\nDRIVE = D:\\\n;note\r\nother=\"kept \"\r\n\r\n[CD]\r\n1A=PC");
    EXPECT_TRUE(profile.write(u"option", u"Drive", "E:\\"));
    EXPECT_TRUE(profile.write(u"Option", u"Путь", "/дом→"));
    EXPECT_TRUE(profile.write(u"CD", u"2B", "n/a"));
    EXPECT_TRUE(profile.write(u"Новая", u"Ключ", "два\r\n[слова]"));
    EXPECT_EQ(text(), "; mine\r\n[Option]\r\nDRIVE =E:\\\r\n;note\r\nother=\"kept \"\r\nПуть=/дом?\r\n\r\n[CD]\r\n"
                      "1A=PC\r\n2B=n/a\r\n[Новая]\r\nКлюч=два  [слова]\r\n");

    for (int time = 0; time < 2; ++time) EXPECT_TRUE(profile.removeKey(u"OPTION", u"drive"));
    EXPECT_TRUE(profile.removeSection(u"cd"));
    EXPECT_EQ(text(),
              "; mine\r\n[Option]\r\n;note\r\nother=\"kept \"\r\nПуть=/дом?\r\n\r\n[Новая]\r\nКлюч=два  [слова]\r\n");
}

TEST_F(ProfileFile, StartsWithoutAFileAndRefusesNamesThatCouldNotBeReadBack)
{
    EXPECT_FALSE(profile.has(u"Option", u"Drive"));
    EXPECT_FALSE(profile.write(u"Option", u"a=b", "1"));
    EXPECT_FALSE(profile.write(u"Option", u" ", "1"));
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(profile.write(u"[odd] name", u"key", "1"));
    EXPECT_EQ(profile.read(u"[odd] name", u"key"), "1");
}

TEST_F(ProfileFile, TooLargeUnreadableOrOnAFullDiskStaysAsItIs)
{
    const QByteArray large = "[Option]\r\nDrive=E:\\\r\n" + QByteArray(4 << 20, ';');
    fill(QString::fromLatin1(large));
    EXPECT_FALSE(profile.has(u"Option", u"Drive"));
    EXPECT_FALSE(profile.write(u"Option", u"Drive", "F:\\"));
    EXPECT_EQ(QFileInfo(path).size(), large.size());

    for (const QString& unwritable : {tree, at("gone/vinora.ini")})
        EXPECT_FALSE(Profile(unwritable).write(u"Option", u"Drive", "F:\\"));
    fill("[Option]\r\nDrive=E:\\\r\n");
    {
        const FileSizeLimit diskFull(0);
        EXPECT_FALSE(profile.write(u"Option", u"Drive", "F:\\"));
    }
    EXPECT_EQ(profile.read(u"Option", u"Drive"), "E:\\");
    EXPECT_EQ(QDir(temporary.path()).entryList(QDir::Files), QStringList("vinora.ini"));
}

TEST(Val, TakesTheNumberThatTheTextBeginsWith)
{
    const std::pair<const char*, double> numbers[] = {
        {"", 0},    {"1 000,5 kg", 1000}, {" -2.5e1x", -25}, {"+.5", 0.5},    {"1d2", 100}, {"7e", 7}, {"+-3", 0},
        {"nan", 0}, {"inf", 0},           {"1e999", 0},      {"3 4\t5", 345}, {"5-3", 5},   {"x1", 0}, {".", 0}};
    for (auto [text, number] : numbers) EXPECT_EQ(Val(QString(text)), number) << text;
}

TEST(CodePage1251, EveryByteComesBackAndWhatThePageLacksIsAskedFor)
{
    QByteArray bytes;
    for (int i = 0; i < 256; ++i) bytes.append(char(i));
    EXPECT_EQ(EncodeCp1251(DecodeCp1251(bytes)), bytes);
    EXPECT_EQ(DecodeCp1251("\xA8\xE6\xB9\x88"), "Ёж№€");

    const QString text = "a→😀" + QString(QChar(0xD800)) + u'я';
    EXPECT_EQ(EncodeCp1251(text), "a???\xFF");
    EXPECT_EQ(EncodeCp1251(text, [](char32_t c) { return '&' + QByteArray::number(uint(c)) + ';'; }),
              "a&8594;&128512;&55296;\xFF");
    EXPECT_TRUE(FitsCp1251(u"Ёлка № 1"));
    for (const QString lacking : {"ă", "😀"}) EXPECT_FALSE(FitsCp1251(lacking));
}
