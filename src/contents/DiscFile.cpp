#include "contents/DiscFile.h"

#include "platform/Literals.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QStandardPaths>
#include <QStorageInfo>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr qint64 Piece = 256 * 1024;
constexpr qint64 MaximumCopied = 4LL << 30;

QString copiesRoot() { return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + u"/vinora"_s; }
QString copiesOf(qint64 process) { return copiesRoot() + u"/disc-%1"_s.arg(process); }

void makePrivateFolder(const QString& path)
{
    const QByteArray native = QFile::encodeName(path);
    if (::mkdir(native.constData(), 0700) != 0 && errno != EEXIST) throw FileError(errno, path);
    if (::chmod(native.constData(), 0700) != 0) throw FileError(errno, path);
}

/// Removes the oldest of the copies in a folder until there is room for `size` bytes more within MaximumCopied.
void makeRoom(const QString& folder, qint64 size)
{
    const QFileInfoList copies = QDir(folder).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Time);
    for (const QFileInfo& copy : copies) { // the newest one first
        QDirIterator files(copy.filePath(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) size += files.nextFileInfo().size();
        if (size > MaximumCopied) QDir(copy.filePath()).removeRecursively();
    }
}

/// The entry's own spelling, exact if there is one, else by letters alone; empty when there is none.
QString spelling(const QStringList& entries, const QString& name)
{
    if (entries.contains(name)) return name;
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const QString& entry) {
        return entry.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == entries.end() ? QString() : *found;
}

/// What a file manager calls the folder of a copy: as on the disc, and the root by the disc's label.
QString shownFolder(Disc& disc, const QString& folder)
{
    const QStringList names = folder.split(u'\\', Qt::SkipEmptyParts);
    return SafeFileName(names.isEmpty() ? disc.volume().label : names.last());
}

}

std::optional<DiscFile> FindDiscFile(Disc& disc, const QString& folder, const QString& name)
{
    QStringList names;
    QList<DiscEntry> files = disc.list(folder);
    files.removeIf([](const DiscEntry& entry) { return entry.folder; });
    for (const DiscEntry& file : files) names += file.name;
    const QString found = spelling(names, name);
    if (found.isEmpty()) return {};
    return DiscFile{folder, found, files[names.indexOf(found)].size};
}

QString MountedPath(const QString& mountPoint, const QString& folder, const QString& name)
{
    QString path = mountPoint;
    QStringList components = folder.split(u'\\', Qt::SkipEmptyParts);
    components += name;
    for (const QString& component : components) {
        const QString found = spelling(
            QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot), component);
        if (found.isEmpty()) return {};
        path += u'/' + found;
    }
    const QString inside = QFileInfo(mountPoint).canonicalFilePath() + u'/';
    const QFileInfo file(path);
    return file.isFile() && file.canonicalFilePath().startsWith(inside) ? path : QString();
}

QString SafeFileName(const QString& name)
{
    constexpr int MaximumBytes = 200;
    QString safe = name;
    for (QChar& c : safe)
        if (c == u'/' || c == u'\\' || c < u' ' || c == QChar(0x7F) || c.isSurrogate()) c = u'_';
    if (safe.isEmpty() || safe.startsWith(u'.') || safe.startsWith(u'-')) safe.prepend(u'_');
    // The extension says what opens the file, so a long name is cut before it.
    const qsizetype dot = safe.lastIndexOf(u'.');
    QString extension = dot > 0 && safe.size() - dot <= 16 ? safe.mid(dot) : QString();
    QString base = safe.chopped(extension.size());
    while (base.toUtf8().size() + extension.toUtf8().size() > MaximumBytes) base.chop(1);
    return base + extension;
}

DiscCopy::DiscCopy(std::shared_ptr<Disc> disc, const DiscFile& file, const QString& id)
    : m_disc(std::move(disc)), m_file(file)
{
    const QString key = id + file.folder + u'\\' + file.name + u'\\' + QString::number(file.size);
    const QString process = copiesOf(getpid());
    const QString place = process + u'/' +
                          QString::fromLatin1(
                              QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha256).toHex().left(16));
    const QString folder = place + u'/' + shownFolder(*m_disc, file.folder);
    QDir().mkpath(copiesRoot());
    makePrivateFolder(process);
    m_path = folder + u'/' + SafeFileName(file.name);
    if (const QFileInfo made(m_path); made.exists() && made.size() == file.size) {
        m_copied = file.size;
        m_complete = true;
        return;
    }
    makeRoom(process, file.size);
    makePrivateFolder(place);
    makePrivateFolder(folder);
    if (const QStorageInfo storage(folder); storage.isValid() && storage.bytesAvailable() < file.size)
        throw FileError(ENOSPC, m_path);
    m_partPath = QFile::encodeName(folder + u"/.part"_s);
    ::unlink(m_partPath.constData());
    m_part = ::open(m_partPath.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0400);
    if (m_part < 0) throw FileError(errno, m_path);
    if (file.size == 0) finish();
}

DiscCopy::~DiscCopy()
{
    if (m_part >= 0) ::close(m_part);
    if (!m_complete) ::unlink(m_partPath.constData());
}

void DiscCopy::step()
{
    if (m_complete) return;
    const QByteArray bytes = m_disc->read(m_file.folder, m_file.name, m_copied,
                                          std::min(Piece, m_file.size - m_copied));
    if (bytes.isEmpty()) throw DiscError(u"Файл «%1» на диске обрывается."_s.arg(m_file.name));
    for (qsizetype written = 0; written < bytes.size();) {
        const ssize_t count = ::write(m_part, bytes.constData() + written, size_t(bytes.size() - written));
        if (count < 0 && errno != EINTR) throw FileError(errno, m_path);
        if (count > 0) written += count;
    }
    m_copied += bytes.size();
    if (m_copied >= m_file.size) finish();
}

/// A network folder may tell of a failed write only when the file is closed.
void DiscCopy::finish()
{
    if (::close(std::exchange(m_part, -1)) != 0) throw FileError(errno, m_path);
    if (::rename(m_partPath.constData(), QFile::encodeName(m_path).constData()) != 0) throw FileError(errno, m_path);
    m_complete = true;
}

void RemoveDiscCopies() { QDir(copiesOf(getpid())).removeRecursively(); }

void RemoveStaleDiscCopies()
{
    const QDir root(copiesRoot());
    for (const QString& folder : root.entryList({u"disc-*"_s}, QDir::Dirs | QDir::NoDotAndDotDot)) {
        const qint64 process = folder.mid(5).toLongLong();
        // Numbers come again: what lies under that of this process is of another one.
        if (process > 0 && (process == getpid() || !QFileInfo::exists(u"/proc/%1"_s.arg(process))))
            QDir(root.filePath(folder)).removeRecursively();
    }
}
