#include "FileSystemImages.h"
#include "platform/Literals.h"
#include "platform/disc/VolumeSerial.h"

#include <gmock/gmock.h>

namespace {

class Iso9660 : public ImageTest {
protected:
    void shelf()
    {
        put(u"readme.txt"_s, "read me");
        put(u"DATA/Setup.exe"_s, QByteArray(5000, 'x'));
        put(u"DATA/empty"_s);
        put(u"DATA/Deep/Деревня и люди.mp3"_s, "song");
        folder(u"DATA/Nothing"_s);
        put(u".profile"_s, "dot");
    }
};

TEST_F(Iso9660, JolietListsWhatWasPutIn)
{
    shelf();
    MAKE_IMAGE(genisoimage({u"-J"_s, u"-R"_s}));
    const auto system = open();
    EXPECT_EQ(printTree(*system), printDisk(tree));
    EXPECT_EQ(system->read(u"\\DATA\\Deep\\"_s, u"Деревня и люди.mp3"_s, 1, 100), "ong");

    const QByteArray descriptor = contentsOf(image).mid(17 * 2048, 2048);
    EXPECT_EQ(system->volume(), (VolumeProperties{.success = true,
                                                  .label = u"ARCHIVE"_s,
                                                  .serial = IsoSerial(descriptor),
                                                  .maximumComponentLength = 110,
                                                  .flags = 0x80005,
                                                  .fileSystem = u"CDFS"_s}));
}

TEST_F(Iso9660, RockRidgeListsWhatWasPutInWithLongNamesAndDeepFolders)
{
    shelf();
    put(QString(83, u'Щ') + u".длинное"_s, "long"); // 255 bytes less two of NM and CE
    put(QString(240, u'n'), "longer");
    put(u"1/2/3/4/5/6/7/8/9/10/file"_s, "relocated");
    put(u"1/2/3/4/5/6/7/other/9/end"_s, "relocated too");
    MAKE_IMAGE(genisoimage({u"-R"_s, u"-hide-rr-moved"_s}));
    const auto system = open();
    Tree expected = printDisk(tree);
    expected.insert(1, u"\\.rr_moved\\ h"_s);
    expected.sort(Qt::CaseInsensitive);
    Tree found = printTree(*system);
    found.sort(Qt::CaseInsensitive);
    EXPECT_EQ(found, expected);
    EXPECT_EQ(system->read(u"\\1\\2\\3\\4\\5\\6\\7\\8\\9\\10\\"_s, u"file"_s, 0, 100), "relocated");
    EXPECT_EQ(system->volume().maximumComponentLength, 221u);
    EXPECT_EQ(system->volume().flags, 0x80001u);
}

TEST_F(Iso9660, RockRidgeOfAnotherWriterAgrees)
{
    shelf();
    put(QString(240, u'n'), "longer");
    MAKE_IMAGE(run(u"xorriso"_s, {u"-as"_s, u"mkisofs"_s, u"-quiet"_s, u"-V"_s, u"ДИСК 1"_s, u"-o"_s, image, tree}));
    const auto system = open();
    EXPECT_EQ(printTree(*system), printDisk(tree));
}

TEST_F(Iso9660, PlainNamesLoseVersionAndFinalDot)
{
    put(u"readme"_s, "read me");
    put(u"data/setup.exe"_s, "setup");
    MAKE_IMAGE(genisoimage({}));
    auto system = open();
    EXPECT_EQ(printTree(*system), (Tree{u"\\DATA\\"_s, u"\\DATA\\SETUP.EXE 5"_s, u"\\README 7"_s}));
    EXPECT_EQ(system->read(u"\\data\\"_s, u"Setup.exe"_s, 0, 2), "se");
    EXPECT_EQ(system->volume().maximumComponentLength, 110u);

    put(u"data/much longer than that.text"_s);
    MAKE_IMAGE(genisoimage({u"-iso-level"_s, u"3"_s}));
    EXPECT_EQ(open()->volume().maximumComponentLength, 221u);
}

TEST_F(Iso9660, PlainNamesOfDosAreRussian)
{
    put(u"aaaaaa.txt"_s, "text");
    MAKE_IMAGE(genisoimage({}));
    QByteArray bytes = contentsOf(image);
    bytes.replace("AAAAAA.TXT", "\x8f\x90\x88\x82\x85\x92.TXT");
    EXPECT_EQ(printTree(*openBytes(bytes)), Tree{u"\\ПРИВЕТ.TXT 4"_s});
}

TEST_F(Iso9660, HiddenFilesAreMarked)
{
    put(u"seen.txt"_s);
    put(u"unseen.txt"_s);
    MAKE_IMAGE(genisoimage({u"-J"_s, u"-hidden"_s, u"unseen.txt"_s}));
    // The tool sets the bit in the plain tree only; the same flag byte counts in the other.
    QByteArray bytes = contentsOf(image);
    const QByteArray name("\0u\0n\0s\0e\0e\0n\0.\0t\0x\0t", 20);
    const qsizetype at = bytes.indexOf(name) - 33;
    ASSERT_GT(at, 0);
    bytes[at + 25] = 1;
    EXPECT_EQ(printTree(*openBytes(bytes)), (Tree{u"\\seen.txt 0"_s, u"\\unseen.txt 0 h"_s}));
    bytes[at + 25] = 4; // an associated file is no entry of its own
    EXPECT_EQ(printTree(*openBytes(bytes)), Tree{u"\\seen.txt 0"_s});
}

TEST_F(Iso9660, FileOfSeveralExtentsIsOne)
{
    put(u"part1.bin"_s, QByteArray(2048, 'a'));
    put(u"part2.bin"_s, QByteArray(2048, 'b'));
    put(u"part3.bin"_s, "end");
    put(u"tiny.bin"_s, "t");
    MAKE_IMAGE(genisoimage({}));
    QByteArray bytes = contentsOf(image);
    const auto record = [&](const char* name) { return bytes.indexOf(name) - 33; };
    const qsizetype first = record("PART1.BIN"), second = record("PART2.BIN");
    bytes[first + 25] = bytes[second + 25] = char(0x80);
    bytes.replace("PART2.BIN", "PART1.BIN").replace("PART3.BIN", "PART1.BIN");

    const auto system = openBytes(bytes);
    EXPECT_EQ(printTree(*system), (Tree{u"\\PART1.BIN 4099"_s, u"\\TINY.BIN 1"_s}));
    EXPECT_EQ(system->read(u"\\"_s, u"PART1.BIN"_s, 0, 5000), QByteArray(2048, 'a') + QByteArray(2048, 'b') + "end");
    EXPECT_EQ(system->read(u"\\"_s, u"PART1.BIN"_s, 4095, 3), "ben");
    EXPECT_EQ(system->read(u"\\"_s, u"PART1.BIN"_s, 4099, 3), "");

    for (const qsizetype part : {first, second}) bytes.replace(part + 10, 4, QByteArray::fromHex("00f8ffff"));
    EXPECT_EQ(printTree(*openBytes(bytes)).first(), u"\\PART1.BIN 8589930499"_s);
}

TEST_F(Iso9660, LastSessionDecides)
{
    put(u"first.txt"_s, "1");
    MAKE_IMAGE(genisoimage({u"-J"_s, u"-R"_s}));
    const QByteArray first = contentsOf(image);
    const int next = static_cast<int>((first.size() / 2048 + 11400 + 31) / 32 * 32);
    const QString both = temporary.filePath(u"both.iso"_s);
    QFile(image).rename(both);

    put(u"second.txt"_s, "22");
    MAKE_IMAGE(genisoimage({u"-J"_s, u"-R"_s, u"-C"_s, u"0,%1"_s.arg(next), u"-M"_s, both}));
    QFile disc(both);
    ASSERT_TRUE(disc.open(QIODevice::ReadWrite));
    disc.seek(qint64(next) * 2048);
    disc.write(contentsOf(image));
    disc.close();
    image = both;
    EXPECT_EQ(printTree(*open()), Tree{u"\\first.txt 1"_s});
    const auto system = open(next);
    EXPECT_EQ(printTree(*system), (Tree{u"\\first.txt 1"_s, u"\\second.txt 2"_s}));
    EXPECT_EQ(system->read(u"\\"_s, u"first.txt"_s, 0, 9), "1");
    EXPECT_EQ(system->read(u"\\"_s, u"second.txt"_s, 0, 9), "22");
}

TEST_F(Iso9660, RescueDiscOfADistributionIsRead)
{
    image = u"/usr/lib/grub-rescue/grub-rescue-cdrom.iso"_s;
    if (!QFile::exists(image)) GTEST_SKIP() << "the package grub-rescue-pc is not installed";
    const auto system = open();
    const Tree found = printTree(*system);
    EXPECT_GT(found.size(), 250);
    EXPECT_THAT(found, testing::Contains(u"\\boot\\grub\\i386-pc\\"_s));
    EXPECT_EQ(system->read(u"\\boot\\grub\\i386-pc\\"_s, u"iso9660.mod"_s, 0, 4), "\x7f"
                                                                                  "ELF");
}

TEST_F(Iso9660, MissingFolderAndFileHaveTheirNumbers)
{
    put(u"a/b"_s);
    MAKE_IMAGE(genisoimage({u"-J"_s}));
    const auto system = open();
    const auto number = [](auto&& routine) {
        try {
            routine();
        } catch (const RuntimeError& error) {
            return error.number();
        }
        return 0;
    };
    EXPECT_EQ(number([&] { system->list(u"\\c\\"_s); }), 76);
    EXPECT_EQ(number([&] { system->list(u"\\a\\b\\"_s); }), 76);
    EXPECT_EQ(number([&] { system->read(u"\\a\\"_s, u"c"_s, 0, 1); }), 53);
    EXPECT_EQ(number([&] { system->read(u"\\"_s, u"a"_s, 0, 1); }), 53);
}

}
