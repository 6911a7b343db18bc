#include "harness/FakeDrives.h"

#include <gtest/gtest.h>

TEST(Drives, AreFoundByLetterDevicesFirst)
{
    FakeDrives drives;
    FakeDrive& e = drives.add(u'E');
    drives.add(u'D');
    EXPECT_EQ(drives.letters(), "EDV");
    EXPECT_EQ(drives.find(u"e:\\"), &e);
    EXPECT_EQ(drives.find(u"E:"), &e);
    EXPECT_EQ(drives.find(u"V:\\"), &drives.virtualDrive());
    for (const char* nothing : {"", "E", ":\\", "C:\\", "E:\\x", "EE:"})
        EXPECT_EQ(drives.find(QString(nothing)), nullptr);
}

TEST(AudioDisc, SerialIsTheOneOtherSystemsShow)
{
    // clang-format off
    const auto disc = FakeDisc::audio(
        {{0, 2, 33}, {4, 32, 65}, {8, 46, 55}, {13, 1, 13}, {18, 10, 3}, {23, 30, 70}, {29, 39, 15}, {34, 24, 33},
         {40, 12, 73}, {43, 22, 53}, {47, 7, 63}, {52, 9, 30}}, {60, 0, 0});
    // clang-format on
    EXPECT_EQ(disc->volume(), (VolumeProperties{true, "Audio CD", 0x137EBFA, 221, 0, "CDFS"}));
    EXPECT_EQ(FakeDisc::audio({{0, 2, 0}, {3, 0, 0}}, {70, 33, 20})->volume().serial, 0x462114u);
}

TEST(AudioDisc, ShowsATrackFilePerTrackThatTellsItsPlace)
{
    TableOfContents contents;
    contents.tracks = {{1, true, {0, 2, 33}, {}, {}}, {2, false, {1, 0, 0}, {}, {}}, {11, true, {5, 6, 7}, {}, {}}};
    contents.leadOut = {6, 8, 10};
    QStringList names;
    for (const DiscEntry& entry : AudioTrackFiles(contents)) names += entry.name;
    EXPECT_EQ(names, QStringList({"Track01.cda", "Track11.cda"}));
    EXPECT_EQ(AudioTrackFile(contents, "track11.cda").toHex(' ').toStdString(),
              "52 49 46 46 24 00 00 00 43 44 44 41 66 6d 74 20 18 00 00 00 01 00 0b 00 " // form, version 1, track 11
              "28 08 06 00 17 59 00 00 2d 12 00 00 "                                     // serial, start, length
              "07 06 05 00 03 02 01 00");
    EXPECT_THROW(AudioTrackFile(contents, "Track02.cda"), RuntimeError);
}
