#include "mainwindow/HelpCommands.h"

#include <QFileInfo>

namespace {

void tell(Program& program, const QString& what)
{
    program.dialogs.MsgBox(u"%1\r%2"_s.arg(what, program.desktop.complaint()).trimmed());
}

void show(Program& program, const QString& path, const QString& missing)
{
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
