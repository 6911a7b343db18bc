#include "contents/FileImages.h"
#include "contents/FileSizeText.h"
#include "contents/ListVolume.h"
#include "harness/Print.h"
#include "platform/disc/Disc.h"

#include <QLocale>
#include <gtest/gtest.h>

TEST(FileSizeText, KilobytesWithOneDecimalHalfToEven)
{
    QLocale::setDefault(QLocale(QLocale::Russian, QLocale::Russia));
    const std::pair<qint64, const char*> sizes[] = {
        {0, "0,0"},
        {51, "0,0"},
        {52, "0,1"},
        {100, "0,1"},
        {256, "0,2"},
        {768, "0,8"},
        {1023948, "999,9"},
        {1023949, "1 000,0"},
        {1024000, "1 000,0"},
        {4700372992, "4 590 208,0"},
        {10'239'999'900, "9 999 999,9"},
        {10'240'000'000, "10000000,0"},
    };
    for (const auto& [bytes, text] : sizes)
        EXPECT_EQ(FileSizeText(bytes).replace(QChar::Nbsp, u' '), QString::fromUtf8(text)) << bytes;
    EXPECT_THROW(FileSizeText(std::numeric_limits<qint64>::max()), DiscError);
}

TEST(FileSizeText, IsReadBackInAnyWriting)
{
    const std::pair<QString, double> texts[] = {
        {u"0"_s, 0},
        {u"0,1"_s, 0.1},
        {u"12.5"_s, 12.5},
        {u"1 000,5"_s, 1000.5},
        {u"1\u00A0000,5"_s, 1000.5},
        {u"1\u202F000,5"_s, 1000.5},
        {u"7 Кб"_s, 7},
        {u""_s, 0},
        {u"нет"_s, 0},
    };
    for (const auto& [text, kilobytes] : texts) EXPECT_DOUBLE_EQ(SizeInKilobytes(text), kilobytes) << qPrintable(text);
}

TEST(ListVolume, CutsDigitsAndNeverRounds)
{
    const std::pair<double, const char*> sums[] = {
        {0, "~1 Мб"},
        {1.5, "~1 Мб"},
        {999, "~1 Мб"},
        {999.4, "~1 Мб"},
        {999.5, "~9 Мб"},
        {1000, "~1 Мб"},
        {1999.9, "~1 Мб"},
        {12345, "~12 Мб"},
        {123456, "~123 Мб"},
        {999999.4, "~999 Мб"},
        {999999.5, "~999999,5 Мб"},
        {1234567, "~1234567 Мб"},
        {1234567.8, "~1234567,8 Мб"},
    };
    for (const auto& [kilobytes, text] : sums) EXPECT_EQ(VolumeText(kilobytes), QString::fromUtf8(text)) << kilobytes;
}

TEST(FileImage, FirstTextOfTheTableDecides)
{
    const std::pair<const char*, int> names[] = {
        {"README", 1},  {"SETUP.EXE", 2}, {"a.zip", 3},     {"a.bmp", 4},     {"a.INF", 5},     {"a.ini", 5},
        {"a.mpeg", 6},  {"a.mov", 6},     {"a.mp2", 7},     {"a.rar", 8},     {"a.nfo", 9},     {"a.gif", 10},
        {"a.JPEG", 11}, {"a.html", 12},   {"a.txt.exe", 2}, {"a.exe.txt", 2}, {"a.gif.wav", 7}, {"exe", 1},
    };
    for (const auto& [name, image] : names) EXPECT_EQ(FileImage(QString::fromUtf8(name)), image) << name;
}
