#include "frame/Fault.h"

#include "frame/Version.h"
#include "platform/CodePage1251.h"
#include "ui/Timer.h"

#include <QApplication>
#include <QFile>
#include <QWidget>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace {

QString codeOf(const RuntimeError& error) { return u" (Код: %1)"_s.arg(error.number()); }

/// "1.0.0" as "1.0 b0".
QString versionInLog(const QString& version)
{
    return version.section(u'.', 0, 1) + u" b"_s + version.section(u'.', 2, 2);
}

void append(const QString& path, const QByteArray& line)
{
    std::FILE* file = std::fopen(QFile::encodeName(path).constData(), "ab");
    if (!file) throw FileError(errno, path);
    const bool written = std::fwrite(line.constData(), 1, size_t(line.size()), file) == size_t(line.size());
    const int writeError = errno;
    if (std::fclose(file) != 0) throw FileError(errno, path);
    if (!written) throw FileError(writeError, path);
}

/// Behind the box of a fault no routine may start, and nothing paints: what failed to would fail again.
void freezeWindows()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        window->setUpdatesEnabled(false);
        for (Timer* timer : window->findChildren<Timer*>()) timer->setEnabled(false);
    }
}

/// Keeps what the routine wrote before its fault. When that fails the group is lost, which the log tells as well.
void keepWrites(Program& program)
{
    try {
        program.engine.Commit();
    } catch (const RuntimeError& error) {
        program.engine.Rollback();
        LogFaultIfPossible(program, "vinoraModule, ReportFault()"_L1, error);
    }
}

QString faultText(const RuntimeError& error)
{
    return u"ОШИБКА.\n\n"_s + error.description() + codeOf(error) + u"\n\nОтправьте на адрес "_s + SupportAddress +
           u" файл bugreport.log (расположен в каталоге установленной программы). Файл содержит информацию, которая "
           u"поможет исправить эту ошибку. В сообщении укажите последовательность Ваших действий до возникновения ошибки."_s;
}

class RoutineCount {
public:
    explicit RoutineCount(Program& program) : m_program(program) { ++m_program.routines; }
    ~RoutineCount() { --m_program.routines; }

private:
    Program& m_program;
};

/// What is left of an exception that a routine let pass. Called while it is handled.
RuntimeError currentFault()
{
    try {
        throw;
    } catch (const RuntimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return {7, u"Недостаточно памяти."_s};
    } catch (const std::exception& error) {
        return {51, u"Внутренняя ошибка: "_s + QString::fromUtf8(error.what())};
    }
}

}

void LogFault(const Program& program, QLatin1StringView place, const RuntimeError& error)
{
    // The format promises one line per fault, whatever the description holds.
    const QString description = error.description().simplified();
    const QString line = program.clock.now().toString(u"dd.MM.yyyy hh:mm:ss "_s) + versionInLog(program.version) +
                         u' ' + description + codeOf(error) + u' ' + place + u"\r\n"_s;
    append(program.applicationFolder + u"/bugreport.log"_s, EncodeCp1251(line));
}

void LogFaultIfPossible(const Program& program, QLatin1StringView place, const RuntimeError& error)
{
    try {
        LogFault(program, place, error);
    } catch (const RuntimeError& second) {
        std::fprintf(stderr, "vinora: %s\nvinora: %s\n", error.what(), second.what());
    }
}

void TellFault(Program& program, QLatin1StringView place, const RuntimeError& error)
{
    LogFaultIfPossible(program, place, error);
    program.dialogs.MsgBox(faultText(error), Box::Stop);
}

void ReportFault(Program& program, QLatin1StringView place, const RuntimeError& error)
{
    if (program.faulted) EndProcess(program, EXIT_FAILURE);
    program.faulted = true;
    try {
        freezeWindows();
        while (QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
        keepWrites(program);
        LogFaultIfPossible(program, place, error);
        program.dialogs.MsgBox(faultText(error), Box::Stop);
    } catch (const std::exception& second) {
        std::fprintf(stderr, "vinora: %s\nvinora: %s\n", error.what(), second.what());
    }
    EndProcess(program, EXIT_FAILURE);
}

void EndProcess(Program& program, int code)
{
    program.endProcess(code);
    std::abort();
}

void ReportCaught(Program& program, QLatin1StringView place) { ReportFault(program, place, currentFault()); }

void Guarded(Program& program, QLatin1StringView place, const std::function<void()>& routine)
{
    const RoutineCount count(program);
    CommandScope scope(
        program.engine); // at a fault it is ReportFault that keeps the writes, or tells that they are lost
    try {
        routine();
        scope.end();
    } catch (const std::exception&) {
        ReportCaught(program, place);
    }
}

Hourglass::Hourglass() { QApplication::setOverrideCursor(Qt::WaitCursor); }
Hourglass::~Hourglass() { QApplication::restoreOverrideCursor(); }
