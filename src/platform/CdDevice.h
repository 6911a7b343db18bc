#pragma once

#include <QString>
#include <cstdint>

/// All contact with an optical drive. Failures are -1 with errno set, as the system calls have them.
class CdDevice {
public:
    virtual ~CdDevice() = default;

    /// Opens without waiting for a medium; an open device is opened anew.
    virtual int open() = 0;
    virtual void close() = 0;
    /// `argument` is a number or the address of a structure, as the request wants it.
    virtual int ioctl(unsigned long request, std::intptr_t argument) = 0;
    /// Bytes read, which may be fewer than `length`.
    virtual qint64 read(qint64 offset, char* bytes, qint64 length) = 0;
};

/// A device of the kernel, "/dev/sr0".
class KernelCdDevice final : public CdDevice {
public:
    explicit KernelCdDevice(const QString& path) : m_path(path) {}
    ~KernelCdDevice() override { KernelCdDevice::close(); }
    Q_DISABLE_COPY_MOVE(KernelCdDevice)

    int open() override;
    void close() override;
    int ioctl(unsigned long request, std::intptr_t argument) override;
    qint64 read(qint64 offset, char* bytes, qint64 length) override;

private:
    QString m_path;
    int m_fd = -1;
};
