#include "platform/XdgDesktop.h"

#include "platform/Literals.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <memory>
#include <unistd.h>

/// Time in which xdg-open either fails or has handed over. A program that fails later does so in the user's sight.
static constexpr int PatienceMilliseconds = 1000;

bool XdgDesktop::refuse(const QString& complaint)
{
    m_complaint = complaint;
    return false;
}

bool XdgDesktop::open(const QString& what)
{
    const QString program = QStandardPaths::findExecutable(u"xdg-open"_s);
    if (program.isEmpty()) return refuse(u"Не найдена программа xdg-open. Установите пакет xdg-utils."_s);

    auto process = std::make_unique<QProcess>();
    process->setStandardInputFile(QProcess::nullDevice());
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    process->setChildProcessModifier([] { ::setsid(); }); // the end of our terminal is not that of a viewer
    process->start(program, {what});
    if (!process->waitForStarted()) return refuse(u"Программа '%1' не запускается."_s.arg(program));
    process->waitForFinished(PatienceMilliseconds);
    if (process->state() != QProcess::NotRunning) {
        // On a bare desktop it lasts as long as the viewer, which may outlive us, so nobody owns it.
        QObject::connect(process.get(), &QProcess::finished, process.get(), &QObject::deleteLater);
        static_cast<void>(process.release());
        return true;
    }
    if (process->exitStatus() == QProcess::NormalExit && process->exitCode() == 0) return true;
    return refuse(u"Программы для '%1' нет, или она не запускается. Её выбирают в настройках системы."_s.arg(what));
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
