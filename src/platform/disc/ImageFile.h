#pragma once

#include "platform/disc/Disc.h"

/// A regular file, open for reading as long as the object lives; byte n of the file is byte n of the source. Throws
/// FileError when it cannot be opened and DiscError for what is no regular file or has shrunk since.
class ImageFile final : public SectorSource {
public:
    explicit ImageFile(const QString& path);
    ~ImageFile() override;
    Q_DISABLE_COPY_MOVE(ImageFile)

    qint64 size() const override { return m_size; }
    QByteArray read(qint64 offset, qint64 length) override;

private:
    QString m_path;
    int m_fd;
    qint64 m_size = 0;
};
