#include "platform/SystemDrives.h"

#include "platform/Literals.h"
#include "platform/MountTable.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <sys/stat.h>

namespace {
constexpr char16_t FirstLetter = u'D', LastLetter = u'U';

/// Maker and model, as the drive tells them.
QString NameOf(const QString& device)
{
    QStringList words;
    for (const auto& part : {u"vendor"_s, u"model"_s}) {
        QFile file(u"/sys/class/block/%1/device/%2"_s.arg(device, part));
        if (file.open(QIODevice::ReadOnly)) words.append(QString::fromLatin1(file.readAll()).simplified());
    }
    const QString name = words.join(u' ').simplified();
    return name.isEmpty() ? device : name;
}

QString MountPointOfNode(const QString& path)
{
    struct stat status;
    return stat(QFile::encodeName(path).constData(), &status) == 0 ? MountPointOfDevice(status.st_rdev) : QString();
}
}

QStringList OpticalDevices(const QString& blockFolder)
{
    QStringList names = QDir(blockFolder).entryList({u"sr*"_s}, QDir::Dirs | QDir::Files);
    const auto number = [](const QString& name) { return name.sliced(2).toInt(); };
    std::stable_sort(names.begin(), names.end(),
                     [&](const QString& a, const QString& b) { return number(a) < number(b); });
    return names;
}

SystemDrives::SystemDrives(const QString& blockFolder, MakeDrive make)
    : m_blockFolder(blockFolder), m_make(std::move(make))
{}

QList<Drive*> SystemDrives::all()
{
    for (const QString& name : OpticalDevices(m_blockFolder)) {
        const auto letter = char16_t(FirstLetter + m_names.size());
        if (m_names.contains(name) || letter > LastLetter) continue;
        m_devices.push_back(m_make(letter, name));
        m_names.append(name);
    }
    QList<Drive*> drives;
    for (const auto& device : m_devices) drives.append(device.get());
    drives.append(&m_virtual);
    return drives;
}

std::unique_ptr<Drives> CreateSystemDrives()
{
    return std::make_unique<SystemDrives>(u"/sys/class/block"_s, [](QChar letter, const QString& device) {
        const QString path = u"/dev/"_s + device;
        return std::make_unique<DeviceDrive>(letter, NameOf(device), std::make_unique<KernelCdDevice>(path),
                                             [path] { return MountPointOfNode(path); });
    });
}
