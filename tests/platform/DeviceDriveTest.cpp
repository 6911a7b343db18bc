#include "LayoutText.h"
#include "harness/FileSystemImages.h"
#include "platform/DeviceContents.h"
#include "platform/MountTable.h"
#include "platform/SystemDrives.h"
#include "platform/disc/CdText.h"

#include <QElapsedTimer>
#include <QThread>
#include <atomic>
#include <cerrno>
#include <linux/cdrom.h>
#include <linux/fs.h>
#include <scsi/sg.h>
#include <sys/sysmacros.h>

namespace {
/// What lies in the fake drive; a test changes it under the drive's eyes.
struct Medium {
    QList<std::tuple<int, int, bool>> tracks; ///< number, sector, audio
    int leadOut = 0, lastSession = 0;
    QByteArray data, cdText;
};

struct Bay {
    std::mutex mutex;
    std::optional<Medium> medium;
    bool changed = true, ready = true;
    std::atomic<int> contacts = 0, tableReads = 0;

    void put(std::optional<Medium> next)
    {
        const std::lock_guard lock(mutex);
        medium = std::move(next);
        changed = true;
    }
};

template<class Structure> Structure& at(std::intptr_t address) { return *reinterpret_cast<Structure*>(address); }

class FakeCdDevice : public CdDevice {
public:
    explicit FakeCdDevice(Bay& bay) : m_bay(bay) {}

    int open() override
    {
        const std::lock_guard lock(m_bay.mutex);
        m_size = m_bay.medium ? m_bay.medium->data.size() : 0; // as the kernel does: looked up on opening only
        return 0;
    }
    void close() override {}
    int ioctl(unsigned long request, std::intptr_t argument) override
    {
        ++m_bay.contacts;
        const std::lock_guard lock(m_bay.mutex);
        const auto& medium = m_bay.medium;
        if (request == CDROM_DRIVE_STATUS) return medium ? CDS_DISC_OK : CDS_NO_DISC;
        if (request == CDROM_MEDIA_CHANGED) return std::exchange(m_bay.changed, false);
        if (!medium || !m_bay.ready) return fail(ENOMEDIUM);
        if (request == BLKGETSIZE64) return at<quint64>(argument) = quint64(m_size), 0;
        if (request == CDROMMULTISESSION) {
            at<cdrom_multisession>(argument).xa_flag = medium->lastSession > 0;
            at<cdrom_multisession>(argument).addr.lba = medium->lastSession;
            return 0;
        }
        if (request == SG_IO) return readCdText(*medium, at<sg_io_hdr>(argument));
        if (medium->tracks.isEmpty()) return fail(EIO);
        if (request == CDROMREADTOCHDR) {
            ++m_bay.tableReads;
            at<cdrom_tochdr>(argument) = {__u8(get<0>(medium->tracks.first())), __u8(get<0>(medium->tracks.last()))};
            return 0;
        }
        return request == CDROMREADTOCENTRY ? readEntry(*medium, at<cdrom_tocentry>(argument)) : fail(ENOTTY);
    }
    qint64 read(qint64 offset, char* bytes, qint64 length) override
    {
        ++m_bay.contacts;
        const std::lock_guard lock(m_bay.mutex);
        if (!m_bay.medium) return fail(ENOMEDIUM);
        const QByteArray part = m_bay.medium->data.mid(offset, std::min<qint64>(length, 3000)); // short, as they may be
        std::copy(part.begin(), part.end(), bytes);
        return part.size();
    }

private:
    static int fail(int error) { return errno = error, -1; }
    static int readEntry(const Medium& medium, cdrom_tocentry& entry)
    {
        EXPECT_EQ(entry.cdte_format, CDROM_LBA);
        if (entry.cdte_track == CDROM_LEADOUT) return entry.cdte_addr.lba = medium.leadOut, 0;
        for (const auto& [number, sector, audio] : medium.tracks) {
            if (number != entry.cdte_track) continue;
            entry.cdte_ctrl = audio ? 0 : CDROM_DATA_TRACK;
            entry.cdte_addr.lba = sector;
            return 0;
        }
        return fail(EINVAL);
    }
    static int readCdText(const Medium& medium, sg_io_hdr& request)
    {
        EXPECT_EQ(QByteArray(reinterpret_cast<const char*>(request.cmdp), 3).toHex(), "430005");
        if (medium.cdText.isEmpty()) return request.info = SG_INFO_CHECK, 0;
        std::copy(medium.cdText.begin(), medium.cdText.end(), static_cast<char*>(request.dxferp));
        request.resid = int(request.dxfer_len - medium.cdText.size());
        return 0;
    }

    Bay& m_bay;
    qint64 m_size = 0;
};

Medium audio(int leadOut) { return {{{1, 0, true}, {2, 7500, true}}, leadOut, 0, {}, {}}; }

class DeviceDriveTest : public ImageTest {
protected:
    std::unique_ptr<DeviceDrive> drive(std::chrono::milliseconds interval)
    {
        return std::make_unique<DeviceDrive>(
            u'D', "drive", std::make_unique<FakeCdDevice>(bay), [] { return QString(); }, interval);
    }
    template<class Condition> static bool soon(Condition condition)
    {
        QElapsedTimer timer;
        for (timer.start(); timer.elapsed() < 10000; QThread::msleep(1))
            if (condition()) return true;
        return false;
    }
    Bay bay;
};
constexpr std::chrono::hours Never(1);
}

TEST_F(DeviceDriveTest, TheWatchFollowsTheMedium)
{
    const auto drive = this->drive(std::chrono::milliseconds(1));
    EXPECT_FALSE(drive->lastKnown().success);
    bay.put(audio(15000));
    EXPECT_TRUE(soon([&] { return drive->lastKnown().serial == 0x031600; }));
    EXPECT_EQ(drive->lastKnown().label, "Audio CD");
    bay.put(audio(15001));
    EXPECT_TRUE(soon([&] { return drive->lastKnown().serial == 0x031601; }));
    EXPECT_EQ(bay.tableReads, 2) << "once per medium";
    bay.put({});
    EXPECT_TRUE(soon([&] { return drive->lastKnown() == VolumeProperties(); }));
    EXPECT_EQ(drive->disc(), nullptr);
}

TEST_F(DeviceDriveTest, NobodyLooksWhileADiscIsHeld)
{
    bay.put(audio(15000));
    const auto drive = this->drive(std::chrono::milliseconds(1));
    auto disc = drive->disc();
    ASSERT_TRUE(disc);
    QThread::msleep(20); // a look that had begun before
    const int before = bay.contacts;
    QThread::msleep(50);
    EXPECT_EQ(bay.contacts, before);
    disc.reset();
    EXPECT_TRUE(soon([&] { return bay.contacts > before; }));
}

TEST_F(DeviceDriveTest, ADiscTakenOutIsNotMixedUpWithTheNext)
{
    put("readme.txt", QByteArray(2 << 20, 'r'));
    MAKE_IMAGE(genisoimage({"-J"}));
    const Medium medium{{{1, 0, false}}, int(QFileInfo(image).size() / 2048), 0, contentsOf(image), {}};
    bay.put(medium);
    const auto drive = this->drive(Never);
    EXPECT_EQ(drive->volume().label, "ARCHIVE");
    const auto disc = drive->disc();
    EXPECT_EQ(disc->read("\\", "readme.txt", 0, 10000), QByteArray(10000, 'r'));

    Medium other = medium;
    other.data.replace("rrrr", "ssss");
    bay.put(other);
    EXPECT_EQ(drive->volume().label, "ARCHIVE");
    EXPECT_THROW(disc->read("\\", "readme.txt", 1 << 20, 10), DiscError);
    EXPECT_EQ(drive->disc()->read("\\", "readme.txt", 0, 1), "s");
}

TEST_F(DeviceDriveTest, AMediumThatDoesNotReadIsTriedAFewTimesOnly)
{
    bay.put(audio(15000));
    bay.ready = false;
    const auto drive = this->drive(Never);
    for (int i = 0; i < 3; ++i) EXPECT_FALSE(drive->volume().success);
    bay.ready = true;
    drive->volume();
    const int tries = bay.contacts;
    drive->volume();
    EXPECT_EQ(bay.contacts - tries, 2) << "only whether it is there and still the same";
    bay.put(audio(15000));
    EXPECT_TRUE(drive->volume().success);
}

TEST(DeviceContents, TracksTitlesAndMediaWithoutATable)
{
    Bay bay;
    FakeCdDevice device(bay);
    Medium medium{{{3, 0, true}, {4, 400000, false}}, 500000, 400000, {}, {}};
    QByteArray pack = QByteArray::fromHex("80030000") + QByteArray("Three\0Four\0", 12);
    const quint16 crc = CdTextCrc(pack);
    pack.append(char(crc >> 8)).append(char(crc & 0xFF));
    medium.cdText = QByteArray::fromHex("00140000") + pack + "left over";
    bay.put(medium);
    DiscLayout layout;
    layout.contents = ReadDeviceContents(device);
    EXPECT_EQ(text(layout), "3 audio 00:02:00  - Three\n4 data 88:55:25  - Four\nout 111:08:50\n");
    EXPECT_EQ(ReadLastSession(device), 400000u);

    bay.put(Medium{{}, 0, 0, QByteArray(2048 * 75, '\0'), {}});
    device.open();
    layout.contents = ReadDeviceContents(device);
    EXPECT_EQ(text(layout), "1 data 00:02:00\nout 00:03:00\n");
    EXPECT_EQ(ReadLastSession(device), 0u);
    bay.put(Medium());
    device.open();
    EXPECT_THROW(ReadDeviceContents(device), DiscError);
    bay.put(Medium{{{1, 1 << 30, true}}, 5, 0, {}, {}});
    EXPECT_THROW(ReadDeviceContents(device), DiscError);
}

TEST(SystemDrives, LettersFollowTheKernelAndStay)
{
    QTemporaryDir folder;
    const auto plug = [&](const char* name) { QDir(folder.path()).mkdir(name); };
    for (const char* name : {"sr10", "sr2", "sda", "loop0"}) plug(name);
    QStringList made;
    Bay bay;
    SystemDrives drives(folder.path(), [&](QChar letter, const QString& device) {
        made += device + letter;
        return std::make_unique<DeviceDrive>(
            letter, device, std::make_unique<FakeCdDevice>(bay), [] { return QString(); }, Never);
    });
    EXPECT_EQ(drives.letters(), "DEV");
    Drive* const d = drives.find(u"D:\\");
    plug("sr0");
    QDir(folder.path()).rmdir("sr10");
    EXPECT_EQ(drives.letters(), "DEFV");
    EXPECT_EQ(made, QStringList({"sr2D", "sr10E", "sr0F"}));
    EXPECT_EQ(drives.find(u"D:"), d);
    EXPECT_TRUE(drives.virtualDrive().isVirtual());
    EXPECT_FALSE(CreateSystemDrives()->letters().isEmpty());
}

TEST(MountTable, FindsTheDeviceAndUndoesEscapes)
{
    const QByteArray mounts = "22 1 11:1 /part /mnt/part rw - iso9660 /dev/sr1 ro\n"
                              "36 22 11:0 / /media/user/My\\040Disc\\134x ro,nosuid shared:1 - udf /dev/sr0 ro\n"
                              "37 22 11:1 / /media/whole ro - iso9660 /dev/sr1 ro\n"
                              "broken 11:2\n38 22 11:3 /sub /mnt/\\04 rw - x y rw\n";
    EXPECT_EQ(MountPoint(mounts, makedev(11, 0)), "/media/user/My Disc\\x");
    EXPECT_EQ(MountPoint(mounts, makedev(11, 1)), "/media/whole");
    EXPECT_EQ(MountPoint(mounts, makedev(11, 2)), "");
    EXPECT_EQ(MountPoint(mounts, makedev(11, 3)).left(5), "/mnt/");
}

TEST_F(ImageTest, AMountedImageIsFoundByItsLoopDevice)
{
    write(image, "disc");
    QFile::link(image, at("link.iso"));
    put("sys/class/block/loop0/dev", "7:0\n");
    put("sys/class/block/loop0/loop/backing_file", "/another.iso\n");
    put("sys/class/block/loop1/dev", "7:1\n");
    put("sys/class/block/loop1/loop/backing_file", QFile::encodeName(QFileInfo(image).canonicalFilePath()) + '\n');
    put("proc/self/mountinfo",
        "30 1 7:0 / /mnt ro - udf /dev/loop0 ro\n31 1 7:1 / /media/me/Диск\\0401 ro - udf x ro\n");
    EXPECT_EQ(MountPointOfImage(at("link.iso"), tree), "/media/me/Диск 1");
    write(at("other.iso"), "disc");
    for (const QString& unmounted : {at("other.iso"), at("missing.iso"), QString()})
        EXPECT_EQ(MountPointOfImage(unmounted, tree), "");
}
