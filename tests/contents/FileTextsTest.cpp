#include "contents/FileImages.h"
#include "contents/FileSizeText.h"
#include "contents/ListVolume.h"
#include "harness/Print.h"
#include "platform/disc/Disc.h"

#include <gtest/gtest.h>

TEST(FileSizeText, KilobytesWithOneDecimalHalfToEven)
{
    const std::pair<qint64, const char*> sizes[] = {
        {52, "0,1"},
        {256, "0,2"},
        {1023948, "999,9"},
        {1023949, "1 000,0"},
        {10'239'999'900, "9 999 999,9"},
        {10'240'000'000, "10000000,0"},
    };
    for (const auto& [bytes, text] : sizes)
        EXPECT_EQ(FileSizeText(bytes).replace(QChar::Nbsp, ' '), QString(text)) << bytes;
    EXPECT_THROW(FileSizeText(std::numeric_limits<qint64>::max()), DiscError);
}

TEST(ListVolume, CutsDigitsAndNeverRounds)
{
    const std::pair<double, const char*> sums[] = {
        {0, "~1 Мб"},      {999.4, "~1 Мб"},      {999.5, "~9 Мб"},           {1999.9, "~1 Мб"},
        {12345, "~12 Мб"}, {999999.4, "~999 Мб"}, {999999.5, "~999999,5 Мб"}, {1234567, "~1234567 Мб"},
    };
    for (const auto& [kilobytes, text] : sums) EXPECT_EQ(VolumeText(kilobytes), QString(text)) << kilobytes;
}

TEST(FileImage, FirstTextOfTheTableDecides)
{
    const std::pair<const char*, int> names[] = {
        {"SETUP.EXE", 2}, {"a.ini", 5},     {"a.mpeg", 6},    {"a.JPEG", 11}, {"a.html", 12},
        {"a.txt.exe", 2}, {"a.exe.txt", 2}, {"a.gif.wav", 7}, {"exe", 1},
    };
    for (const auto& [name, image] : names) EXPECT_EQ(FileImage(name), image) << name;
}
