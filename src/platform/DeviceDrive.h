#pragma once

#include "platform/CdDevice.h"
#include "platform/Drives.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// An optical drive of the machine. A thread of its own looks at it once a second, since a busy drive lets even the
/// opening of its device wait for seconds; whoever calls `lastKnown` gets the thread's last answer. Nobody looks while a
/// disc is held by a reader.
class DeviceDrive final : public Drive {
public:
    using MountPoint = std::function<QString()>;
    DeviceDrive(QChar letter, const QString& description, std::unique_ptr<CdDevice> device, MountPoint mountPoint,
                std::chrono::milliseconds interval = std::chrono::seconds(1));
    ~DeviceDrive() override;

    QChar letter() const override { return m_letter; }
    QString description() const override { return m_description; }
    bool isVirtual() const override { return false; }
    VolumeProperties lastKnown() override;
    VolumeProperties volume() override;
    std::shared_ptr<Disc> disc() override;
    QString mountPoint() override { return m_mountPoint(); }

private:
    class Sectors;
    /// The device, shared with the discs that were read from it and may outlive the drive.
    struct Access {
        /// Held around every contact; recursive, since opening a file system reads through its sectors.
        std::recursive_mutex mutex;
        std::unique_ptr<CdDevice> device;
        bool open = false;
        int medium = 0; ///< counts media, so that a disc taken out is never mixed up with the one in its place

        bool hasMedium();
    };

    void watch();
    void look();
    void learn();
    void publish(std::shared_ptr<Disc> disc, const VolumeProperties& volume);

    QChar m_letter;
    QString m_description;
    MountPoint m_mountPoint;
    std::chrono::milliseconds m_interval;
    std::shared_ptr<Access> m_access;
    int m_attempts = 0; ///< at a medium that does not read; guarded by m_access->mutex

    std::mutex m_mutex; ///< of what follows; never held while the device is asked
    std::condition_variable m_wake;
    bool m_stopping = false;
    VolumeProperties m_volume;
    std::shared_ptr<Disc> m_disc;

    std::thread m_thread;
};
