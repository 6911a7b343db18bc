#include "platform/CdDevice.h"

#include <QFile>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <utility>

int KernelCdDevice::open()
{
    close();
    m_fd = ::open(QFile::encodeName(m_path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    return m_fd < 0 ? -1 : 0;
}

void KernelCdDevice::close()
{
    if (m_fd >= 0) ::close(std::exchange(m_fd, -1));
}

int KernelCdDevice::ioctl(unsigned long request, std::intptr_t argument) { return ::ioctl(m_fd, request, argument); }

qint64 KernelCdDevice::read(qint64 offset, char* bytes, qint64 length)
{
    return pread(m_fd, bytes, size_t(length), offset);
}
