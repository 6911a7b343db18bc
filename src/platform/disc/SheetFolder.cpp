#include "platform/disc/SheetFolder.h"

#include "platform/Literals.h"
#include "platform/disc/ImageFile.h"

#include <QDir>
#include <QFileInfo>
#include <QtEndian>
#include <algorithm>

namespace {
constexpr int FramesPerSecond = 75;
constexpr int MostChunks = 1000, MostNames = 1000; ///< far beyond any true file; a hostile one ends there

quint32 Little32(const QByteArray& bytes, qsizetype at) { return qFromLittleEndian<quint32>(bytes.constData() + at); }

/// "RIFF" size "WAVE" *( id size bytes ), padded to even: the format chunk tells bytes per second, the data chunk their
/// number. A size that the file does not hold, as streaming programs leave it, means the rest of the file.
std::optional<qint64> FramesOfWave(SectorSource& file)
{
    quint32 bytesPerSecond = 0;
    qint64 at = 12;
    for (int chunks = 0; at + 8 <= file.size() && chunks < MostChunks; ++chunks) {
        const QByteArray head = file.read(at, 8);
        const qint64 length = std::min<qint64>(Little32(head, 4), file.size() - at - 8);
        if (head.startsWith("fmt ") && length >= 16) bytesPerSecond = Little32(file.read(at + 8, 16), 8);
        if (head.startsWith("data")) {
            if (bytesPerSecond == 0) return {};
            return length * FramesPerSecond / bytesPerSecond;
        }
        at += 8 + length + length % 2;
    }
    return {};
}

/// "fLaC", then the STREAMINFO block (RFC 9639, 8.2): 20 bits of rate in hertz from byte 18 on, 36 bits of samples from
/// the low half of byte 21 on.
std::optional<qint64> FramesOfFlac(SectorSource& file)
{
    const QByteArray head = file.read(0, 26);
    const quint32 rate = qFromBigEndian<quint32>(head.constData() + 18) >> 12;
    const qint64 samples = qint64(qFromBigEndian<quint64>(head.constData() + 18) & 0xFFFFFFFFF);
    if ((head[4] & 0x7F) != 0 || rate == 0) return {};
    return samples * FramesPerSecond / rate;
}

QString FindFile(const QDir& folder, const QString& sheetBase, QString name)
{
    name.replace(u'\\', u'/');
    const QString last = name.section(u'/', -1);
    const bool absolute = name.startsWith(u'/') || (name.size() > 1 && name[1] == u':');
    if (!absolute && QFileInfo(folder, name).isFile()) return folder.filePath(name);

    const QString own = sheetBase + u'.' + QFileInfo(last).suffix();
    const QStringList present = folder.entryList(QDir::Files);
    for (const QString& wanted : {last, own})
        for (const QString& file : present)
            if (file.compare(wanted, Qt::CaseInsensitive) == 0) return folder.filePath(file);
    return {};
}
}

std::optional<qint64> FramesOfSound(SectorSource& file)
{
    if (file.size() < 44) return {};
    const QByteArray head = file.read(0, 12);
    if (head.startsWith("RIFF") && head.endsWith("WAVE")) return FramesOfWave(file);
    if (head.startsWith("fLaC")) return FramesOfFlac(file);
    return {};
}

FindSectorFile FilesBeside(const QString& sheetPath)
{
    const QFileInfo sheet(sheetPath);
    return [folder = sheet.absoluteDir(), base = sheet.completeBaseName(), names = 0](const QString& name) mutable {
        if (++names > MostNames) throw DiscError(u"Описание диска называет слишком много файлов."_s);
        std::optional<SectorFile> found;
        const QString path = FindFile(folder, base, name);
        if (path.isEmpty()) return found;
        ImageFile file(path);
        const auto frames = FramesOfSound(file);
        found = SectorFile{path, 0, frames ? *frames * RawSectorSize : file.size(), frames.has_value()};
        return found;
    };
}
