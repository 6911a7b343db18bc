#include "platform/MountTable.h"

#include "platform/Literals.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <sys/sysmacros.h>

namespace {
/// Blank, tab, line feed and backslash stand as three octal digits.
QByteArray Unescaped(QByteArrayView path)
{
    QByteArray text;
    for (qsizetype i = 0; i < path.size(); ++i) {
        bool octal = false;
        const int code =
            path[i] == '\\'
                ? path.sliced(i + 1).first(std::min<qsizetype>(3, path.size() - i - 1)).toByteArray().toInt(&octal, 8)
                : 0;
        text.append(octal ? char(code) : path[i]);
        if (octal) i += 3;
    }
    return text;
}

QByteArray ReadKernelFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
}

QString MountPoint(QByteArrayView mountInfo, dev_t device)
{
    const QByteArray number = QByteArray::number(major(device)) + ':' + QByteArray::number(minor(device));
    QString part;
    for (const QByteArray& line : mountInfo.toByteArray().split('\n')) {
        const QList<QByteArray> fields = line.split(' '); // identifier, parent, device, root, mount point, ...
        if (fields.size() < 5 || fields[2] != number) continue;
        const QString path = QFile::decodeName(Unescaped(fields[4]));
        if (fields[3] == "/") return path;
        if (part.isEmpty()) part = path;
    }
    return part;
}

static const QString MountInfo = u"proc/self/mountinfo"_s;

QString MountPointOfDevice(dev_t device) { return MountPoint(ReadKernelFile(u'/' + MountInfo), device); }

QString MountPointOfImage(const QString& imagePath, const QString& system)
{
    const QByteArray image = QFile::encodeName(QFileInfo(imagePath).canonicalFilePath());
    if (image.isEmpty()) return {};
    const QDir root(system), blocks(root.filePath(u"sys/class/block"_s));
    for (const QString& loop : blocks.entryList({u"loop*"_s}, QDir::Dirs)) {
        if (ReadKernelFile(blocks.filePath(loop + u"/loop/backing_file"_s)) != image + '\n') continue;
        const QList<QByteArray> number = ReadKernelFile(blocks.filePath(loop + u"/dev"_s)).trimmed().split(':');
        if (number.size() != 2) continue;
        const QString path = MountPoint(ReadKernelFile(root.filePath(MountInfo)),
                                        makedev(number[0].toUInt(), number[1].toUInt()));
        if (!path.isEmpty()) return path;
    }
    return {};
}
