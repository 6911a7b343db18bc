#include "platform/ImageDrive.h"

#include "platform/Literals.h"
#include "platform/MountTable.h"

#include <QFile>
#include <QFileInfo>
#include <sys/stat.h>

QString ImageDrive::description() const
{
    return m_path.isEmpty() ? u"виртуальный привод"_s : QFileInfo(m_path).fileName();
}

VolumeProperties ImageDrive::lastKnown()
{
    refresh();
    return m_volume;
}

VolumeProperties ImageDrive::volume()
{
    load(StampOf(m_path)); // the files that a sheet names have stamps of their own
    return m_volume;
}

std::shared_ptr<Disc> ImageDrive::disc()
{
    refresh();
    return m_disc;
}

QString ImageDrive::mountPoint() { return MountPointOfImage(m_path); }

void ImageDrive::insert(const QString& imagePath)
{
    const QString path = QFileInfo(imagePath).absoluteFilePath();
    const auto stamp = StampOf(path);
    std::shared_ptr<Disc> disc = OpenDiscImage(path);
    m_volume = disc->volume();
    m_disc = std::move(disc);
    m_stamp = stamp;
    m_path = path;
}

void ImageDrive::restore(const QString& imagePath)
{
    eject();
    m_path = imagePath;
}

void ImageDrive::eject()
{
    m_path.clear();
    load({});
}

std::optional<ImageDrive::Stamp> ImageDrive::StampOf(const QString& path)
{
    struct stat status;
    if (path.isEmpty() || stat(QFile::encodeName(path).constData(), &status) != 0) return {};
    return Stamp{status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

void ImageDrive::refresh()
{
    const auto stamp = StampOf(m_path);
    if (stamp != m_stamp) load(stamp);
}

/// An image that cannot be read is no medium to the watch; a command that puts one in is told why.
void ImageDrive::load(const std::optional<Stamp>& stamp)
{
    m_stamp = stamp;
    m_disc.reset();
    m_volume = {};
    if (!stamp) return;
    try {
        std::shared_ptr<Disc> disc = OpenDiscImage(m_path);
        m_volume = disc->volume();
        m_disc = std::move(disc);
    } catch (const RuntimeError&) {
    }
}
