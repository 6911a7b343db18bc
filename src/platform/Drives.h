#pragma once

#include "platform/disc/Disc.h"

#include <QList>
#include <QString>
#include <memory>

/// A place for discs: a device of the machine, or a virtual drive with an image file in it.
class Drive {
public:
    virtual ~Drive() = default;

    virtual QChar letter() const = 0;
    QString root() const { return letter() + QStringLiteral(":\\"); }
    /// Shown to the user beside the letter: the device's or the image's name.
    virtual QString description() const = 0;
    virtual bool isVirtual() const = 0;

    /// What is known without touching the medium: under 1 ms, for the watch that looks every second. It follows the
    /// medium within a second.
    virtual VolumeProperties lastKnown() = 0;
    /// Asked afresh, for commands.
    virtual VolumeProperties volume() = 0;
    /// The medium, or null without one. Held by whoever reads it: ejecting drops the drive's own reference only.
    virtual std::shared_ptr<Disc> disc() = 0;
    /// Where the desktop mounted it, native path without a final separator, or empty.
    virtual QString mountPoint() = 0;
};

class VirtualDrive : public Drive {
public:
    bool isVirtual() const override { return true; }
    /// Puts an image in, in place of what was there. Throws FileError or DiscError and leaves the drive as it was.
    virtual void insert(const QString& imagePath) = 0;
    /// Remembers an image of an earlier run, readable just now or not.
    virtual void restore(const QString& imagePath) = 0;
    virtual void eject() = 0;
    /// Path of the image, empty when the drive is empty. It may name a file that has vanished since: the drive is then
    /// empty for everybody else and full again when the file is back.
    virtual QString imagePath() const = 0;
    /// Of the volume in the image; zeros without one.
    virtual VolumeSize size() = 0;
};

/// All drives of this machine. Devices take letters from D on in kernel order; the virtual drives have fixed letters
/// from V on, so that plugging in a device renames nothing.
class Drives {
public:
    virtual ~Drives() = default;
    /// Devices first, then virtual ones.
    virtual QList<Drive*> all() = 0;
    virtual VirtualDrive& virtualDrive() = 0;

    /// Letters of all drives in order, "DEV".
    QString letters();
    /// The drive of "E:\" or "E:"; null for anything else.
    Drive* find(QStringView root);
};

/// The drives of the running system.
std::unique_ptr<Drives> CreateSystemDrives();
