#include "catalogue/Covers.h"

#include "platform/Files.h"
#include "platform/RuntimeError.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <cerrno>
#include <cstdio>

namespace {
constexpr qint64 LargestFile = 64 << 20;
constexpr qint64 MostPixels = 64'000'000;

void Rename(const QString& from, const QString& to)
{
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        throw FileError(errno, to);
}

/// What is written in the head of a picture file. Only formats whose size stands there are taken: others would be
/// unpacked, drawn or handed to rarely used decoders before anything is known of them.
class Picture {
public:
    explicit Picture(const QString& path)
    {
        const QFileInfo file(path); // a pipe would wait for its other end
        if (!file.isFile() || file.size() > LargestFile) return;
        m_reader.setDecideFormatFromContent(true);
        m_reader.setAutoTransform(true);
        m_reader.setFileName(path);
        static const QList<QByteArray> taken{"jpeg", "jpg", "gif", "png", "bmp", "webp"};
        if (!taken.contains(m_reader.format())) return;
        m_size = m_reader.size();
        if (qint64(m_size.width()) * m_size.height() > MostPixels) m_size = {};
    }

    QImage read(const QSize& bound)
    {
        if (m_size.isEmpty()) return {};
        // The bound is that of the upright picture, the scale is that of the stored one.
        const bool lies = m_reader.transformation() & QImageIOHandler::TransformationRotate90;
        const QSize room = lies ? bound.transposed() : bound;
        if (m_size.width() > room.width() || m_size.height() > room.height())
            m_reader.setScaledSize(m_size.scaled(room, Qt::KeepAspectRatio).expandedTo({1, 1}));
        return m_reader.read();
    }
    QString suffix() const
    {
        if (m_size.isEmpty()) return {};
        return m_reader.format() == "jpeg" ? u"jpg"_s : QString::fromLatin1(m_reader.format());
    }

private:
    QImageReader m_reader;
    QSize m_size; ///< as stored; empty for what is not taken
};
}

QString CoverPath(const Program& program, QStringView prefix, int number)
{
    return u"%1/box/%2%3.box"_s.arg(program.applicationFolder, prefix, QString::number(number));
}

bool HasCover(const Program& program, QStringView prefix, int number)
{
    return QFileInfo(CoverPath(program, prefix, number)).isFile();
}

void MoveCover(const Program& program, QStringView prefix, int from, int to)
{
    if (!HasCover(program, prefix, from)) return;
    Rename(CoverPath(program, prefix, from), CoverPath(program, prefix, to));
}

void DeleteCover(const Program& program, QStringView prefix, int number)
{
    if (HasCover(program, prefix, number)) DeleteFile(CoverPath(program, prefix, number));
}

void MakeBoxFolder(const Program& program) { QDir().mkdir(program.applicationFolder + u"/box"_s); }

void StoreCover(const Program& program, QStringView prefix, int number, const QString& picture)
{
    const QString path = CoverPath(program, prefix, number);
    const QString fresh = path + u".new"_s;
    if (FileExists(fresh)) DeleteFile(fresh);
    CopyFile(picture, fresh);
    Rename(fresh, path); // also over one that is write-protected, as a copy from a disc is
}

bool IsPicture(const QString& path)
{
    // Small, because nothing is shown: the decoders scale while they read.
    return !Picture(path).read({256, 256}).isNull();
}

QString PictureSuffix(const QString& path) { return Picture(path).suffix(); }

QImage LoadCover(const QString& path, const QSize& bound) { return Picture(path).read(bound); }
