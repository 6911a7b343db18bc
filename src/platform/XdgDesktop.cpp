#include "platform/XdgDesktop.h"

#include "platform/Literals.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

bool XdgDesktop::refuse(const QString& complaint)
{
    m_complaint = complaint;
    return false;
}

bool XdgDesktop::open(const QString& what)
{
    const QString program = QStandardPaths::findExecutable(u"xdg-open"_s);
    if (program.isEmpty()) return refuse(u"Не найдена программа xdg-open. Установите пакет xdg-utils."_s);
    return QProcess::startDetached(program, {what}) || refuse(u"Программа '%1' не запускается."_s.arg(program));
}

bool XdgDesktop::openFile(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() ? open(file.absoluteFilePath()) : refuse(u"Файл '%1' не найден."_s.arg(path));
}

bool XdgDesktop::openFolderOf(const QString& path)
{
    const QFileInfo folder(QFileInfo(path).absolutePath());
    return folder.isDir() ? open(folder.absoluteFilePath())
                          : refuse(u"Папка '%1' не найдена."_s.arg(folder.absoluteFilePath()));
}

bool XdgDesktop::openLink(const QString& url)
{
    const QUrl link(url, QUrl::StrictMode);
    const bool known = QStringList{u"http"_s, u"https"_s, u"mailto"_s}.contains(link.scheme());
    if (!link.isValid() || !known) return refuse(u"'%1' не адрес страницы или почты."_s.arg(url));
    return open(QString::fromUtf8(link.toEncoded()));
}
