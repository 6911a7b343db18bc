#pragma once

#include <QByteArrayView>
#include <QString>
#include <sys/types.h>

/// Where the device of that number is mounted, by the text of a process's mountinfo (proc(5)); the root of the file
/// system is preferred over a part of it. Native path without a final separator, empty when it is mounted nowhere.
QString MountPoint(QByteArrayView mountInfo, dev_t device);

/// The same by the mounts of this process.
QString MountPointOfDevice(dev_t device);
/// Where an image file is mounted by way of a loop device. `system` is the folder that holds proc and sys.
QString MountPointOfImage(const QString& imagePath, const QString& system = QStringLiteral("/"));
