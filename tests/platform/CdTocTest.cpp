#include "platform/CdToc.h"
#include "harness/FakeDrives.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {
class AudioDevice : public testing::Test {
protected:
    FakeDrives drives;
    MMControl device{drives};

    CdToc tocOf(std::initializer_list<Msf> starts, Msf leadOut)
    {
        drives.v.medium = FakeDisc::audio(starts, leadOut);
        device.Open(u"V:\\");
        return ReadToc(device);
    }
};

TEST_F(AudioDevice, HasTracksOnlyWhileAnAudioDiscThatCanBeReadIsOpen)
{
    device.Open(u"---");
    EXPECT_EQ(DeviceStatus(device.mode()), "Device is not open");
    device.Open(u"V:\\");
    EXPECT_EQ(DeviceStatus(device.mode()), "Tray is out");
    EXPECT_EQ(device.Tracks(), 0);
    EXPECT_EQ(ReadToc(device).Tracks(), 0);

    drives.v.medium = FakeDisc::audio({{0, 2, 0}, {3, 0, 0}}, {70, 33, 20});
    drives.v.medium->contents.tracks[0].audio = false; // data in front, as on many game discs
    device.Open(u"V:\\");
    EXPECT_EQ(DeviceStatus(device.mode()), "Device is stopped");
    EXPECT_EQ(device.Tracks(), 2);
    EXPECT_EQ(device.TrackLength(1), (Msf{2, 58, 0}));
    EXPECT_EQ(device.TrackLength(2), (Msf{67, 33, 19}));
    EXPECT_THROW(device.TrackPosition(3), RuntimeError);
    EXPECT_THROW(device.TrackLength(0), RuntimeError);
    device.Close();
    EXPECT_EQ(device.Tracks(), 0);

    drives.v.medium = FakeDisc::data("DATA", 1);
    device.Open(u"V:\\");
    EXPECT_EQ(device.Tracks(), 0) << "data alone";
    drives.v.medium = FakeDisc::audio({{0, 2, 0}}, {3, 0, 0});
    drives.v.medium->healthy = 0;
    device.Open(u"V:\\");
    EXPECT_EQ(device.Tracks(), 0) << "damage";
}

TEST_F(AudioDevice, PlayingTimeCountsFromTheFirstTrackToTheLeadOutAndItsSecondsBy61)
{
    const struct {
        Msf first, leadOut;
        const char* time;
    } cases[] = {{{0, 2, 0}, {2, 7, 0}, "02:03"},
                 {{0, 2, 0}, {3, 2, 11}, "03:58"},
                 {{0, 2, 74}, {1, 2, 0}, "01:60"},
                 {{0, 32, 0}, {0, 33, 0}, "00:01"},
                 {{0, 2, 0}, {100, 2, 0}, "100:22"}};
    for (const auto& [first, leadOut, time] : cases) EXPECT_EQ(PlayingTime(tocOf({first}, leadOut)), time);

    QList<DiscTrack>& tracks = drives.v.medium->contents.tracks;
    while (tracks.size() < 100) tracks += tracks.constLast();
    device.Open(u"V:\\");
    EXPECT_THROW(ReadToc(device), RuntimeError);
}

TEST_F(AudioDevice, ReadsTheImageInTheVirtualDrive)
{
    const QTemporaryDir folder;
    const auto write = [&](const QString& name, const QByteArray& content, qint64 size) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.resize(size));
        return file.fileName();
    };
    const QByteArray cue = "FILE a.bin BINARY\nTRACK 01 AUDIO\nINDEX 01 00:00:00\nTRACK 02 AUDIO\nINDEX 01 03:20:00\n"
                           "TRACK 03 AUDIO\nINDEX 01 07:46:50\n";
    const QByteArray toc =
        "CD_DA\nTRACK AUDIO\nFILE \"a.bin\" 0 03:20:00\nTRACK AUDIO\nFILE \"a.bin\" 03:20:00 04:26:50\n"
        "TRACK AUDIO\nFILE \"a.bin\" 07:46:50 02:44:45\n";
    write("a.bin", {}, 47345 * 2352);
    const auto system = CreateSystemDrives();
    MMControl player(*system);
    for (const QString& image : {write("a.cue", cue, cue.size()), write("a.toc", toc, toc.size())}) {
        system->virtualDrive().insert(image);
        player.Open(u"V:\\");
        const CdToc read = ReadToc(player);
        EXPECT_EQ(read.starts, (QList<Msf>{{0, 2, 0}, {3, 22, 0}, {7, 48, 50}, {10, 33, 20}})) << qPrintable(image);
        EXPECT_EQ(PlayingTime(read), "10:21");
    }
}
}
