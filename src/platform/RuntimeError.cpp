#include "platform/RuntimeError.h"

#include "platform/Literals.h"

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

RuntimeError::RuntimeError(int number, const QString& description)
    : m_number(number), m_description(description), m_what(QByteArray::number(number) + ": " + description.toUtf8())
{}

namespace {
QString FolderOf(const QString& path) { return QFileInfo(path).absolutePath(); }

bool FolderIsWritable(const QString& path)
{
    return faccessat(AT_FDCWD, QFile::encodeName(FolderOf(path)).constData(), W_OK, AT_EACCESS) == 0;
}

int NumberOf(int errnoValue, const QString& path)
{
    switch (errnoValue) {
    case ENOENT: return QFileInfo(FolderOf(path)).isDir() ? 53 : 76;
    case ENOTDIR: return 76;
    // The file is refused, or everything in its folder is.
    case EACCES: return FolderIsWritable(path) ? 70 : 75;
    case EPERM:
    case EBUSY:
    case ETXTBSY: return 70;
    case EROFS:
    case EISDIR:
    case EEXIST:
    case ENOTEMPTY: return 75;
    case ENAMETOOLONG:
    case EINVAL:
    case EILSEQ:
    case ELOOP:
    case ENODEV:
    case ENXIO:
    case ESTALE:
    case ENOTCONN:
    case EHOSTDOWN:
    case EHOSTUNREACH: return 52;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return 61;
    case ENOMEM: return 7;
    default: return 57;
    }
}

QString DescriptionOf(int number)
{
    switch (number) {
    case 7: return u"Не хватило памяти для работы с файлом '%1': закройте другие программы."_s;
    case 52: return u"Неверное имя файла '%1', или его папка недоступна."_s;
    case 53: return u"Файл '%1' не найден."_s;
    case 61: return u"На диске нет места для файла '%1': освободите его и повторите."_s;
    case 70: return u"Нет доступа к файлу '%1': проверьте права на него и не занят ли он другой программой."_s;
    case 75: return u"Ошибка доступа к '%1': папка доступна только для чтения или имя занято."_s;
    case 76: return u"Папка файла '%1' не найдена."_s;
    default: return u"Ошибка устройства при работе с файлом '%1'."_s;
    }
}
}

RuntimeError FileError(int errnoValue, const QString& path)
{
    const int number = NumberOf(errnoValue, path);
    return RuntimeError(number, DescriptionOf(number).arg(path));
}
