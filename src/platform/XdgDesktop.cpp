#include "platform/XdgDesktop.h"

#include "platform/Literals.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace {
bool Open(const QString& what)
{
    const QString program = QStandardPaths::findExecutable(u"xdg-open"_s);
    return !program.isEmpty() && QProcess::startDetached(program, {what});
}
}

bool XdgDesktop::openFile(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() && Open(file.absoluteFilePath());
}

bool XdgDesktop::openFolderOf(const QString& path)
{
    const QFileInfo folder(QFileInfo(path).absolutePath());
    return folder.isDir() && Open(folder.absoluteFilePath());
}

bool XdgDesktop::openLink(const QString& url)
{
    const QUrl link(url, QUrl::StrictMode);
    const bool known = QStringList{u"http"_s, u"https"_s, u"mailto"_s}.contains(link.scheme());
    return link.isValid() && known && Open(QString::fromUtf8(link.toEncoded()));
}
