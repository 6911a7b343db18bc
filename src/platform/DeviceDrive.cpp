#include "platform/DeviceDrive.h"

#include "platform/DeviceContents.h"
#include "platform/Literals.h"
#include "platform/disc/MediumDisc.h"

#include <algorithm>
#include <cerrno>
#include <linux/cdrom.h>
#include <utility>

namespace {
constexpr int MostAttempts = 3; ///< a drive may call a medium ready a moment too early
}

/// The medium's data, dead as soon as the medium has left.
class DeviceDrive::Sectors final : public SectorSource {
public:
    /// `access` is locked by the caller.
    explicit Sectors(std::shared_ptr<Access> access)
        : m_access(std::move(access)), m_medium(m_access->medium), m_size(ReadMediumSize(*m_access->device)),
          m_lastSession(ReadLastSession(*m_access->device))
    {}

    qint64 size() const override { return m_size; }
    quint32 lastSession() const override { return m_lastSession; }

    QByteArray read(qint64 offset, qint64 length) override
    {
        if (offset < 0 || length < 0 || offset > m_size - length)
            throw DiscError(u"Диск короче, чем следует из его содержимого."_s);
        const std::lock_guard lock(m_access->mutex);
        QByteArray bytes(length, Qt::Uninitialized);
        for (qint64 done = 0; done < length;) {
            if (m_medium != m_access->medium) throw DiscError(u"Диск вынут из привода."_s);
            const qint64 count = m_access->device->read(offset + done, bytes.data() + done, length - done);
            if (count < 0 && errno == EINTR) continue;
            if (count <= 0) {
                if (!m_access->hasMedium()) ++m_access->medium;
                throw DiscError(u"Ошибка чтения диска, сектор %1."_s.arg((offset + done) / 2048));
            }
            done += count;
        }
        return bytes;
    }

private:
    std::shared_ptr<Access> m_access;
    int m_medium;
    qint64 m_size;
    quint32 m_lastSession;
};

bool DeviceDrive::Access::hasMedium()
{
    if (!open) open = device->open() == 0;
    if (!open) return false;
    const int status = device->ioctl(CDROM_DRIVE_STATUS, CDSL_CURRENT);
    if (status < 0) { // pulled out, perhaps to come back
        device->close();
        open = false;
    }
    return status == CDS_DISC_OK || status == CDS_NO_INFO;
}

DeviceDrive::DeviceDrive(QChar letter, const QString& description, std::unique_ptr<CdDevice> device,
                         MountPoint mountPoint, std::chrono::milliseconds interval)
    : m_letter(letter), m_description(description), m_mountPoint(std::move(mountPoint)), m_interval(interval),
      m_access(std::make_shared<Access>())
{
    m_access->device = std::move(device);
    m_thread = std::thread([this] { watch(); });
}

DeviceDrive::~DeviceDrive()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_all();
    m_thread.join();
}

VolumeProperties DeviceDrive::lastKnown()
{
    const std::lock_guard lock(m_mutex);
    return m_volume;
}

VolumeProperties DeviceDrive::volume()
{
    look();
    return lastKnown();
}

std::shared_ptr<Disc> DeviceDrive::disc()
{
    look();
    const std::lock_guard lock(m_mutex);
    return m_disc;
}

void DeviceDrive::watch()
{
    std::unique_lock lock(m_mutex);
    while (!m_stopping) {
        const bool held = m_disc.use_count() > 1;
        lock.unlock();
        if (!held) look();
        lock.lock();
        m_wake.wait_for(lock, m_interval, [&] { return m_stopping; });
    }
}

void DeviceDrive::look()
{
    const std::lock_guard lock(m_access->mutex);
    const bool known = lastKnown().success;
    if (!m_access->hasMedium()) {
        if (known) ++m_access->medium;
        m_attempts = 0;
        return publish(nullptr, {});
    }
    const bool changed = m_access->device->ioctl(CDROM_MEDIA_CHANGED, CDSL_CURRENT) > 0;
    if (changed) m_attempts = 0;
    if (!changed && (known || m_attempts >= MostAttempts)) return;
    ++m_attempts;
    learn();
}

/// A descriptor from before the medium came does not know its size, so the device is opened anew.
void DeviceDrive::learn()
{
    ++m_access->medium;
    m_access->open = m_access->device->open() == 0;
    if (!m_access->open) return publish(nullptr, {});
    try {
        const TableOfContents contents = ReadDeviceContents(*m_access->device);
        const bool data = std::any_of(contents.tracks.begin(), contents.tracks.end(),
                                      [](const DiscTrack& t) { return !t.audio; });
        auto disc = std::make_shared<MediumDisc>(contents, data ? std::make_shared<Sectors>(m_access) : nullptr);
        const VolumeProperties volume = disc->volume();
        publish(disc->readable() ? disc : nullptr, volume);
    } catch (const std::exception&) {
        // Nothing may leave the thread: what cannot be read, for want of memory too, is no medium.
        publish(nullptr, {});
    }
}

void DeviceDrive::publish(std::shared_ptr<Disc> disc, const VolumeProperties& volume)
{
    const std::lock_guard lock(m_mutex);
    m_disc = std::move(disc);
    m_volume = volume;
}
