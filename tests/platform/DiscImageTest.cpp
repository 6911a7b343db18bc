#include "harness/FileSystemImages.h"
#include "platform/ImageDrive.h"
#include "platform/disc/SheetFolder.h"

#include <QtEndian>
#include <sys/stat.h>
#include <unistd.h>

namespace {
/// Sectors of 2048 bytes as they stand on the disc, or a part of that.
QByteArray rawSectors(const QByteArray& user, int mode, int size)
{
    QByteArray image;
    for (qsizetype at = 0; at < user.size(); at += 2048) {
        QByteArray sector = QByteArray::fromHex("00FFFFFFFFFFFFFFFFFFFF00000000") + char(mode);
        if (mode == 2) sector += QByteArray(8, '\x08');
        sector = (sector + user.mid(at, 2048)).leftJustified(2352, '\xEC');
        image += size == 2336 ? sector.sliced(16) : sector.leftJustified(size, '\x99');
    }
    return image;
}

QByteArray wave(int frames)
{
    const quint32 length = qToLittleEndian(quint32(frames) * 2352);
    return "RIFF" + QByteArray(4, '\0') + "WAVELIST" + QByteArray("\3\0\0\0odd\0fmt \x10\0\0\0\1\0\2\0", 20) +
           QByteArray::fromHex("44AC000010B10200") + QByteArray("\4\0\x10\0data", 8) +
           QByteArray(reinterpret_cast<const char*>(&length), 4) + QByteArray(frames * 2352, '\0');
}

class DiscImage : public ImageTest {
protected:
    /// Bytes of an ISO image with one file.
    QByteArray iso()
    {
        put("readme.txt", "hello");
        return genisoimage({"-J"}) ? contentsOf(image) : QByteArray();
    }
    std::string errorOf(const QString& name)
    {
        try {
            OpenDiscImage(at(name));
            return "opened";
        } catch (const RuntimeError& error) {
            return (QString::number(error.number()) + ' ' + error.description()).toStdString();
        }
    }
};

void expectReadme(Disc& disc)
{
    EXPECT_EQ(disc.volume().label, "ARCHIVE");
    EXPECT_EQ(disc.list("\\"), (QList<DiscEntry>{{"readme.txt", false, false, 5}}));
    EXPECT_EQ(disc.read("\\", "readme.txt", 1, 100), "ello");
}
}

TEST_F(DiscImage, AnImageThatWasNotCopiedToItsEndIsUsableAndTellsHowMuchIsThere)
{
    put("large", QByteArray(2'000'000, 'x'));
    for (const char* udf : {"-J", "-udf"}) {
        MAKE_IMAGE(genisoimage({"-J", udf}));
        const QByteArray whole = contentsOf(image);
        ImageDrive drive(u'V');
        drive.insert(image);
        EXPECT_FALSE(drive.size().cutShort()) << udf << " " << drive.size().claimed << " " << whole.size();
        write(at("cut.iso"), whole.first(whole.size() - 300 * 2048 - 1));
        drive.insert(at("cut.iso"));
        EXPECT_EQ(drive.size().present, whole.size() - 300 * 2048 - 1) << udf;
        EXPECT_GT(drive.size().claimed, drive.size().present) << udf;
        EXPECT_LE(drive.size().claimed, whole.size()) << udf;
        EXPECT_EQ(drive.disc()->list("\\").size(), 1) << udf;
        drive.eject();
        EXPECT_EQ(drive.size(), VolumeSize());
    }
}

TEST_F(DiscImage, DataReadsTheSameWhateverTheSectorsLookLike)
{
    const QByteArray user = iso();
    MAKE_IMAGE(!user.isEmpty());
    const std::pair<const char*, QByteArray> images[] = {
        {"MODE1/2048", user},
        {"MODE1/2352", rawSectors(user, 1, 2352)},
        {"MODE1/2352", rawSectors(user, 2, 2352)}, // the sheet is wrong, the sectors are right
        {"MODE2/2352", rawSectors(user, 2, 2352)},
        {"MODE2/2336", rawSectors(user, 2, 2336)},
        {"MODE1/2448", rawSectors(user, 1, 2448)}};
    for (const auto& [mode, bytes] : images) {
        SCOPED_TRACE(mode);
        write(at("disc.bin"), bytes);
        write(at("disc.cue"), QByteArray("FILE disc.bin BINARY\nTRACK 01 ") + mode + "\nINDEX 01 00:00:00\n");
        expectReadme(*OpenDiscImage(at("disc.cue")));
        expectReadme(*OpenDiscImage(at("disc.bin")));
    }
    const TableOfContents contents = OpenDiscImage(image)->tableOfContents();
    EXPECT_EQ(contents.tracks.size(), 1);
    EXPECT_EQ(contents.leadOut, Msf::fromFrames(150 + int(user.size() / 2048)));
}

TEST_F(DiscImage, TheLastSessionDecidesAndAudioBesideItDoesNotCount)
{
    const QByteArray user = iso();
    MAKE_IMAGE(!user.isEmpty());
    // The second session's sectors begin at 100 + 11400; a writer puts absolute addresses into its descriptors.
    put("second.txt", "session");
    write(at("a.bin"), QByteArray(100 * 2352, '\0'));
    MAKE_IMAGE(genisoimage({"-J", "-C", "0,11500"}));
    write(at("b.bin"), rawSectors(contentsOf(image), 2, 2352));
    write(at("extra.cue"), "FILE a.bin BINARY\nTRACK 01 AUDIO\nINDEX 01 00:00:00\nREM SESSION 02\n"
                           "FILE b.bin BINARY\nTRACK 02 MODE2/2352\nINDEX 01 00:00:00\n");
    const auto disc = OpenDiscImage(at("extra.cue"));
    EXPECT_EQ(disc->volume().fileSystem, "CDFS");
    EXPECT_EQ(disc->read("\\", "second.txt", 0, 100), "session");
    EXPECT_EQ(disc->tableOfContents().tracks.size(), 2);
}

TEST_F(DiscImage, AudioIsItsTracksAndFilesAreFoundWhereverTheSheetThinksTheyAre)
{
    write(at("Track 1.WAV"), wave(300));
    write(at("album.flac"), QByteArray("fLaC\0\0\0\x22", 8) + QByteArray(10, '\0') + QByteArray::fromHex("0AC442F000") +
                                QByteArray::fromHex("02B110") + QByteArray(40, '\0'));
    write(at("album.cue"), "FILE \"C:\\rips\\track 1.wav\" WAVE\nTRACK 01 AUDIO\nINDEX 01 00:00:00\n"
                           "FILE \"other.flac\" WAVE\nTRACK 02 AUDIO\nINDEX 01 00:00:00\n");
    const auto disc = OpenDiscImage(at("album.cue"));
    EXPECT_EQ(disc->volume(), (VolumeProperties{true, "Audio CD", 0x000a00, 221, 0, "CDFS"}));
    EXPECT_EQ(disc->tableOfContents().leadOut, (Msf{0, 10, 0})); // 4 seconds of each
    EXPECT_EQ(disc->list("\\").size(), 2);
    EXPECT_EQ(disc->read("\\", "Track02.cda", 8, 4), "CDDA");
    EXPECT_THROW(disc->list("\\A\\"), RuntimeError);
    EXPECT_THROW(disc->read("\\", "Track03.cda", 0, 1), RuntimeError);
}

TEST_F(DiscImage, WhatIsNoImageIsRefused)
{
    write(at("noise.iso"), QByteArray(1 << 20, 'n'));
    write(at("empty.iso"), "");
    write(at("large.cue"), QByteArray((1 << 20) + 1, ' '));
    mkfifo(qPrintable(at("pipe.bin")), 0600);
    write(at("pipe.cue"), "FILE pipe.bin BINARY\nTRACK 01 MODE1/2048\nINDEX 01 00:00:00\n");
    for (const auto& [name, told] : {std::pair{"noise.iso", "не образ диска"},
                                     {"empty.iso", "не образ диска"},
                                     {"large.cue", "слишком велик"},
                                     {"pipe.cue", "не найден"},
                                     {"pipe.bin", "не файл"},
                                     {"missing.iso", "53"}})
        EXPECT_THAT(errorOf(name), testing::HasSubstr(told));
}

TEST_F(DiscImage, SoundCutAnywhereHasALengthOrNone)
{
    const QByteArray sound = wave(2);
    for (qsizetype length = 0; length < 200; ++length) {
        TestSource file(sound.first(length));
        EXPECT_LE(FramesOfSound(file).value_or(0), 2);
    }
    TestSource whole(sound);
    EXPECT_EQ(FramesOfSound(whole), 2);
}

using VirtualDriveTest = DiscImage;

TEST_F(VirtualDriveTest, NoticesWhatHappensToItsImageAndReadsItOnlyThen)
{
    const QByteArray user = iso();
    MAKE_IMAGE(!user.isEmpty());
    ImageDrive drive(u'V');
    EXPECT_EQ(drive.lastKnown(), VolumeProperties());
    EXPECT_EQ(drive.disc(), nullptr);

    drive.insert(image);
    const VolumeProperties first = drive.lastKnown();
    EXPECT_EQ(first.label, "ARCHIVE");
    EXPECT_EQ(drive.description(), "image.iso");
    const auto held = drive.disc();
    EXPECT_EQ(drive.disc(), held) << "nothing changed, nothing is opened again";
    EXPECT_THROW(drive.insert(at("missing.iso")), RuntimeError);
    EXPECT_EQ(drive.imagePath(), image);
    EXPECT_EQ(drive.lastKnown(), first);

    QFile::rename(image, at("elsewhere.iso"));
    EXPECT_EQ(drive.lastKnown(), VolumeProperties());
    EXPECT_EQ(drive.disc(), nullptr);
    EXPECT_EQ(drive.imagePath(), image);
    expectReadme(*held);
    QFile::rename(at("elsewhere.iso"), image);
    EXPECT_EQ(drive.lastKnown(), first);

    const QByteArray label("\0A\0R\0C\0H\0I\0V\0E", 14);
    write(at("new.iso"), QByteArray(user).replace(label, QByteArray(label).replace('A', 'B')));
    ASSERT_EQ(rename(qPrintable(at("new.iso")), qPrintable(image)), 0);
    EXPECT_EQ(drive.lastKnown().label, "BRCHIVE");
    write(image, "no longer an image");
    EXPECT_EQ(drive.lastKnown(), VolumeProperties());

    drive.eject();
    EXPECT_EQ(drive.imagePath(), "");
    write(at("later.iso"), user);
    drive.restore(at("gone.iso"));
    EXPECT_EQ(drive.volume(), VolumeProperties());
    drive.restore(at("later.iso"));
    EXPECT_EQ(drive.lastKnown(), first);
}

TEST_F(VirtualDriveTest, LookingAtAnIdleDriveReadsNothingAndAShrunkImageIsDamage)
{
    put("large.bin", QByteArray(1 << 20, 'x'));
    MAKE_IMAGE(genisoimage({"-J"}));
    ImageDrive drive(u'V');
    drive.insert(image);
    const auto bytesRead = [] {
        QFile io("/proc/self/io"); // rchar: bytes
        return io.open(QIODevice::ReadOnly) ? io.readAll().split('\n').value(0).sliced(7).toLongLong() : 0;
    };
    const qint64 start = bytesRead(), before = bytesRead();
    for (int i = 0; i < 1000; ++i) EXPECT_TRUE(drive.lastKnown().success);
    EXPECT_LE(bytesRead() - before, 2 * (before - start)) << "more than the counting itself";

    const auto disc = drive.disc();
    ASSERT_EQ(truncate(qPrintable(image), 200000), 0);
    EXPECT_THROW(disc->read("\\", "large.bin", 1 << 19, 100000), DiscError);
}
