#include "catalogue/GivenPicture.h"

#include "platform/Literals.h"
#include "platform/RuntimeError.h"

#include <QBuffer>
#include <QImage>
#include <QMimeData>
#include <QUrl>
#include <cerrno>

static QString localFile(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    return urls.isEmpty() ? QString() : urls.constFirst().toLocalFile();
}

/// As its maker packed it where that can be had: a photograph as PNG would be ten times as large.
static QByteArray bytesOf(const QMimeData& data)
{
    for (const QString& format : {u"image/jpeg"_s, u"image/gif"_s, u"image/webp"_s, u"image/png"_s})
        if (data.hasFormat(format)) return data.data(format);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    qvariant_cast<QImage>(data.imageData()).save(&buffer, "PNG");
    return bytes;
}

bool GivenPicture::isIn(const QMimeData& data) { return data.hasImage() || !localFile(data).isEmpty(); }

GivenPicture::GivenPicture(const QMimeData& data) : m_path(localFile(data))
{
    if (!m_path.isEmpty() || !data.hasImage()) return;
    const QByteArray bytes = bytesOf(data);
    if (bytes.isEmpty()) return;
    if (!m_own.open() || m_own.write(bytes) != bytes.size() || !m_own.flush())
        throw FileError(m_own.error() == QFile::ResourceError ? ENOSPC : EIO, m_own.fileName());
    m_path = m_own.fileName();
}
