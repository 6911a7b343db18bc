#include "harness/FileSystemImages.h"
#include "platform/disc/VolumeSerial.h"

namespace {

class Iso9660 : public ImageTest {
protected:
    void shelf()
    {
        put("readme.txt", "read me");
        put("DATA/Setup.exe", QByteArray(5000, 'x'));
        put("DATA/empty");
        put("DATA/Deep/Деревня и люди.mp3", "song");
        folder("DATA/Nothing");
        put(".profile", "dot");
    }
};

TEST_F(Iso9660, JolietListsWhatWasPutIn)
{
    shelf();
    MAKE_IMAGE(genisoimage({"-J", "-R"}));
    const auto system = open();
    EXPECT_EQ(printTree(*system), printDisk(tree));
    EXPECT_EQ(system->read("\\DATA\\Deep\\", "Деревня и люди.mp3", 1, 100), "ong");
    const quint32 serial = IsoSerial(contentsOf(image).mid(17 * 2048, 2048));
    EXPECT_EQ(system->volume(), (VolumeProperties{true, "ARCHIVE", serial, 110, 0x80005, "CDFS"}));
}

TEST_F(Iso9660, RockRidgeOfBothWritersListsWhatWasPutInWithLongNamesAndDeepFolders)
{
    shelf();
    put(QString(240, u'n'), "longer");
    MAKE_IMAGE(run("xorriso", {"-as", "mkisofs", "-quiet", "-V", "ДИСК 1", "-o", image, tree}));
    EXPECT_EQ(printTree(*open()), printDisk(tree));

    put(QString(83, u'Щ') + ".длинное", "long"); // 255 bytes less two of NM and CE
    put("1/2/3/4/5/6/7/8/9/10/file", "relocated");
    put("1/2/3/4/5/6/7/other/9/end", "relocated too");
    MAKE_IMAGE(genisoimage({"-R", "-hide-rr-moved"}));
    const auto system = open();
    Tree found = printTree(*system);
    EXPECT_TRUE(found.removeOne("\\.rr_moved\\ h"));
    EXPECT_EQ(found, printDisk(tree));
    EXPECT_EQ(system->read("\\1\\2\\3\\4\\5\\6\\7\\8\\9\\10\\", "file", 0, 100), "relocated");
    EXPECT_EQ(system->volume().maximumComponentLength, 221u);
    EXPECT_EQ(system->volume().flags, 0x80001u);
}

TEST_F(Iso9660, PlainNamesLoseVersionAndFinalDotAndAreThoseOfDos)
{
    put("readme", "read me");
    put("data/setup.exe", "setup");
    MAKE_IMAGE(genisoimage({}));
    const auto system = openBytes(contentsOf(image).replace("README.", "\x8f\x90\x88\x82\x85\x92."));
    EXPECT_EQ(printTree(*system), (Tree{"\\DATA\\", "\\DATA\\SETUP.EXE 5", "\\ПРИВЕТ 7"}));
    EXPECT_EQ(system->read("\\data\\", "Setup.exe", 0, 2), "se");
    EXPECT_EQ(system->volume().maximumComponentLength, 110u);

    put("data/much longer than that.text");
    MAKE_IMAGE(genisoimage({"-iso-level", "3"}));
    EXPECT_EQ(open()->volume().maximumComponentLength, 221u);
}

TEST_F(Iso9660, HiddenFilesAreMarked)
{
    put("seen.txt");
    put("unseen.txt");
    MAKE_IMAGE(genisoimage({"-J", "-hidden", "unseen.txt"}));
    // The tool sets the bit in the plain tree only; the same flag byte counts in the other.
    QByteArray bytes = contentsOf(image);
    const qsizetype flags = bytes.indexOf(QByteArray("\0u\0n\0s\0e\0e\0n\0.\0t\0x\0t", 20)) - 33 + 25;
    bytes[flags] = 1;
    EXPECT_EQ(printTree(*openBytes(bytes)), (Tree{"\\seen.txt 0", "\\unseen.txt 0 h"}));
    bytes[flags] = 4; // an associated file is no entry of its own
    EXPECT_EQ(printTree(*openBytes(bytes)), Tree{"\\seen.txt 0"});
}

TEST_F(Iso9660, FileOfSeveralExtentsIsOne)
{
    put("part1.bin", QByteArray(2048, 'a'));
    put("part2.bin", QByteArray(2048, 'b'));
    put("part3.bin", "end");
    put("tiny.bin", "t");
    MAKE_IMAGE(genisoimage({}));
    QByteArray bytes = contentsOf(image);
    const qsizetype first = bytes.indexOf("PART1.BIN") - 33, second = bytes.indexOf("PART2.BIN") - 33;
    bytes[first + 25] = bytes[second + 25] = char(0x80);
    bytes.replace("PART2.BIN", "PART1.BIN").replace("PART3.BIN", "PART1.BIN");

    const auto system = openBytes(bytes);
    EXPECT_EQ(printTree(*system), (Tree{"\\PART1.BIN 4099", "\\TINY.BIN 1"}));
    EXPECT_EQ(system->read("\\", "PART1.BIN", 0, 5000), QByteArray(2048, 'a') + QByteArray(2048, 'b') + "end");
    EXPECT_EQ(system->read("\\", "PART1.BIN", 4095, 3), "ben");
    EXPECT_EQ(system->read("\\", "PART1.BIN", 4099, 3), "");

    for (const qsizetype part : {first, second}) bytes.replace(part + 10, 4, QByteArray::fromHex("00f8ffff"));
    EXPECT_EQ(printTree(*openBytes(bytes)).first(), "\\PART1.BIN 8589930499");

    // The same sectors time and again, more of them than the medium has.
    for (const qsizetype part : {first, second}) {
        bytes.replace(part + 2, 4, QByteArray(4, 0));
        bytes.replace(part + 10, 4, QByteArray::fromHex("00000400"));
    }
    EXPECT_THROW(openBytes(bytes)->read("\\", "PART1.BIN", 0, 1 << 20), DiscError);
}

TEST_F(Iso9660, LastSessionDecides)
{
    put("first.txt", "1");
    MAKE_IMAGE(genisoimage({"-J", "-R"}));
    QByteArray disc = contentsOf(image);
    const int next = static_cast<int>((disc.size() / 2048 + 11400 + 31) / 32 * 32);
    QFile::rename(image, at("first.iso"));
    put("second.txt", "22");
    MAKE_IMAGE(genisoimage({"-J", "-R", "-C", QString("0,%1").arg(next), "-M", at("first.iso")}));
    disc = disc.leftJustified(qsizetype(next) * 2048, '\0') + contentsOf(image);

    EXPECT_EQ(printTree(*openBytes(disc)), Tree{"\\first.txt 1"});
    const auto system = openBytes(disc, next);
    EXPECT_EQ(printTree(*system), (Tree{"\\first.txt 1", "\\second.txt 2"}));
    EXPECT_EQ(system->read("\\", "first.txt", 0, 9), "1");
    EXPECT_EQ(system->read("\\", "second.txt", 0, 9), "22");
}

TEST_F(Iso9660, MissingFolderAndFileHaveTheirNumbers)
{
    put("a/b");
    MAKE_IMAGE(genisoimage({"-J"}));
    const auto system = open();
    const auto number = [&](const QString& folder, const QString& file = {}) {
        try {
            file.isEmpty() ? void(system->list(folder)) : void(system->read(folder, file, 0, 1));
            return 0;
        } catch (const RuntimeError& error) {
            return error.number();
        }
    };
    EXPECT_EQ(number("\\c\\"), 76);
    EXPECT_EQ(number("\\a\\b\\"), 76);
    EXPECT_EQ(number("\\a\\", "c"), 53);
    EXPECT_EQ(number("\\", "a"), 53);
}

TEST(VolumeSerial, HasTheFirstLaneHighestAndLanesWrapWithoutCarry)
{
    QByteArray descriptor(2048, 0);
    descriptor.replace(0, 8, QByteArray::fromHex("0143443030310100"));
    EXPECT_EQ(IsoSerial(descriptor), 0x31744530u);
    descriptor.replace(40, 32, QByteArray("TESTDISC").leftJustified(32, ' '));
    EXPECT_EQ(IsoSerial(descriptor), 0x89C2AB87u);

    for (int i = 0; i < 2048; ++i) descriptor[i] = static_cast<char>(i * i + i / 7);
    EXPECT_EQ(IsoSerial(descriptor), 0x256EB700u);
    EXPECT_EQ(UdfSerial(QByteArrayView(descriptor).first(512)), 0xA51280EEu);
}

}
