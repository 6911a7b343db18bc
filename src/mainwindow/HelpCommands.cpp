#include "mainwindow/HelpCommands.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

void tell(Program& program, const QString& what)
{
    program.dialogs.MsgBox(u"%1\r%2"_s.arg(what, program.desktop.complaint()).trimmed());
}

/// In the application folder, which is the user's own where the program's cannot be written: what was installed stands
/// beside the program then.
QString found(const QString& path)
{
    return QFileInfo(path).isFile() ? path
                                    : QDir(QCoreApplication::applicationDirPath()).filePath(QFileInfo(path).fileName());
}

void show(Program& program, const QString& wanted, const QString& missing)
{
    const QString path = found(wanted);
    if (!QFileInfo(path).isFile())
        program.dialogs.MsgBox(missing);
    else if (!program.desktop.openFile(path))
        tell(program, u"Не удалось открыть файл '%1'."_s.arg(path));
}

}

void ShowLink(Program& program, const QString& address)
{
    if (!program.desktop.openLink(address)) tell(program, u"Не удалось открыть адрес '%1'."_s.arg(address));
}

void ShowReadme(Program& program)
{
    show(program, program.applicationFolder + u"/readme.txt"_s, u"Файл 'readme.txt' не найден!"_s);
}

void ShowHelp(Program& program) { show(program, program.shared.HelpFilePath, u"Файл справки не найден!"_s); }
