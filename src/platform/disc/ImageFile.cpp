#include "platform/disc/ImageFile.h"

#include "platform/Literals.h"

#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

// Not blocking matters for a name that turns out to be a pipe.
ImageFile::ImageFile(const QString& path)
    : m_path(path), m_fd(open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC))
{
    if (m_fd < 0) throw FileError(errno, path);
    struct stat status;
    if (fstat(m_fd, &status) == 0 && S_ISREG(status.st_mode)) {
        m_size = status.st_size;
        return;
    }
    close(m_fd);
    throw DiscError(u"'%1' - не файл с образом диска."_s.arg(path));
}

ImageFile::~ImageFile() { close(m_fd); }

QByteArray ImageFile::read(qint64 offset, qint64 length)
{
    if (offset < 0 || length < 0 || offset > m_size - length)
        throw DiscError(u"Образ '%1' короче, чем следует из его содержимого."_s.arg(m_path));
    QByteArray bytes(length, Qt::Uninitialized);
    for (qint64 done = 0; done < length;) {
        const ssize_t count = pread(m_fd, bytes.data() + done, size_t(length - done), offset + done);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) throw DiscError(u"Ошибка чтения образа '%1': файл изменился или недоступен."_s.arg(m_path));
        done += count;
    }
    return bytes;
}
