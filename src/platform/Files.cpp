#include "platform/Files.h"

#include "platform/Literals.h"
#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
class Descriptor {
public:
    Descriptor(int fd, const QString& path) : m_fd(fd), m_path(path)
    {
        if (fd < 0) throw FileError(errno, path);
    }
    ~Descriptor()
    {
        if (m_fd >= 0) ::close(m_fd);
    }
    Q_DISABLE_COPY_MOVE(Descriptor)

    operator int() const { return m_fd; }
    /// A network folder may tell of a failed write only here.
    void close()
    {
        if (::close(std::exchange(m_fd, -1)) != 0) throw FileError(errno, m_path);
    }

private:
    int m_fd;
    QString m_path;
};

/// A file that is there under its final name only once it is whole.
class PendingFile {
public:
    explicit PendingFile(const QString& target)
        : m_target(target), m_name(QFile::encodeName(target) + ".XXXXXX"), m_fd(mkstemp(m_name.data()), target)
    {}
    ~PendingFile()
    {
        if (!m_done) unlink(m_name.constData());
    }
    Q_DISABLE_COPY_MOVE(PendingFile)

    void write(const char* data, qint64 length)
    {
        while (length > 0) {
            const ssize_t written = ::write(m_fd, data, size_t(length));
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) throw FileError(errno, m_target);
            data += written;
            length -= written;
        }
    }
    void commit(mode_t mode)
    {
        // The mode is a courtesy that some file systems cannot do.
        if (fchmod(m_fd, mode) != 0 && errno != EPERM && errno != ENOTSUP) throw FileError(errno, m_target);
        if (fsync(m_fd) != 0) throw FileError(errno, m_target);
        m_fd.close();
        if (rename(m_name.constData(), QFile::encodeName(m_target).constData()) != 0) throw FileError(errno, m_target);
        m_done = true;
    }

private:
    QString m_target;
    QByteArray m_name;
    Descriptor m_fd;
    bool m_done = false;
};
}

bool FileExists(const QString& path)
{
    if (path.isEmpty()) return false;
    struct stat status;
    if (stat(QFile::encodeName(path).constData(), &status) == 0) return S_ISREG(status.st_mode);
    if (errno == ENOENT && QFileInfo(QFileInfo(path).absolutePath()).isDir()) return false;
    throw RuntimeError(52, u"Неверное имя файла '%1', или его папка недоступна."_s.arg(path));
}

void DeleteFile(const QString& path)
{
    if (unlink(QFile::encodeName(path).constData()) != 0) throw FileError(errno, path);
}

void CopyFile(const QString& from, const QString& to)
{
    const Descriptor source(open(QFile::encodeName(from).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC), from);
    struct stat status;
    if (fstat(source, &status) != 0) throw FileError(errno, from);
    if (!S_ISREG(status.st_mode)) throw FileError(EISDIR, from);

    // A link stays a link, and what may not be written is not replaced either.
    const QFileInfo existing(to);
    if (existing.exists() && !existing.isFile()) throw FileError(EISDIR, to);
    if (existing.exists() && faccessat(AT_FDCWD, QFile::encodeName(to).constData(), W_OK, AT_EACCESS) != 0)
        throw FileError(errno, to);
    PendingFile target(existing.exists() ? existing.canonicalFilePath() : to);

    QByteArray chunk(1 << 20, Qt::Uninitialized);
    for (;;) {
        const ssize_t length = read(source, chunk.data(), size_t(chunk.size()));
        if (length < 0 && errno == EINTR) continue;
        if (length < 0) throw FileError(errno, from);
        if (length == 0) break;
        target.write(chunk.constData(), length);
    }
    target.commit(status.st_mode & 0777);
}

int NewFileError(const QString& folder)
{
    QByteArray name = QFile::encodeName(folder) + "/~vinora.XXXXXX";
    const int file = mkstemp(name.data());
    if (file < 0) return errno;
    ::close(file);
    unlink(name.constData());
    return 0;
}

QString ApplicationFolder(const QString& programFolder)
{
    const QString folder = QDir::cleanPath(programFolder);
    const QDir program(folder);
    if (QFileInfo(folder).isWritable() || program.exists(u"vinora.ini"_s) || program.exists(u"vinora.db"_s))
        return folder;
    const QString own = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/vinora"_s;
    QDir().mkpath(own);
    return own;
}

QString SystemProfileFolder() { return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation); }
