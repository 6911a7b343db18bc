#pragma once

#include "platform/DeviceDrive.h"
#include "platform/ImageDrive.h"

#include <QStringList>
#include <vector>

/// Names of the optical devices under a folder like /sys/class/block, in kernel order: "sr0", "sr2", "sr10".
QStringList OpticalDevices(const QString& blockFolder);

class SystemDrives final : public Drives {
public:
    /// Makes the drive of a device that was found. Tests put their own in place of the kernel's.
    using MakeDrive = std::function<std::unique_ptr<Drive>(QChar letter, const QString& device)>;
    SystemDrives(const QString& blockFolder, MakeDrive make);

    /// Devices that were plugged in since take the next free letters; those pulled out stay, empty.
    QList<Drive*> all() override;
    VirtualDrive& virtualDrive() override { return m_virtual; }

private:
    QString m_blockFolder;
    MakeDrive m_make;
    QStringList m_names; ///< of the devices, in the order of their letters
    std::vector<std::unique_ptr<Drive>> m_devices;
    ImageDrive m_virtual{u'V'};
};
