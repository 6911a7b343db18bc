#include "catalogue/Covers.h"

#include "platform/Files.h"

#include <QFileInfo>
#include <QImageReader>
#include <cerrno>
#include <cstdio>

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
    const QString path = CoverPath(program, prefix, from);
    if (std::rename(QFile::encodeName(path).constData(),
                    QFile::encodeName(CoverPath(program, prefix, to)).constData()) != 0)
        throw FileError(errno, path);
}

void DeleteCover(const Program& program, QStringView prefix, int number)
{
    if (HasCover(program, prefix, number)) DeleteFile(CoverPath(program, prefix, number));
}

QPixmap LoadCover(const QString& path, const QSize& bound)
{
    constexpr int LargestSide = 20000;
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.width() > LargestSide || size.height() > LargestSide) return {};
    if (size.width() > bound.width() || size.height() > bound.height())
        reader.setScaledSize(size.scaled(bound, Qt::KeepAspectRatio));
    return QPixmap::fromImage(reader.read());
}
