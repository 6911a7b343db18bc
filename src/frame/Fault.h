#pragma once

#include "frame/Program.h"

#include <QLatin1StringView>
#include <exception>
#include <functional>

/// Appends one line on `error` to bugreport.log: date, time, version, description, number, place.
/// Throws FileError when the log cannot be written.
void LogFault(const Program& program, QLatin1StringView place, const RuntimeError& error);

/// LogFault for routines that go on even where the log cannot be written; they are heard on stderr then.
void LogFaultIfPossible(const Program& program, QLatin1StringView place, const RuntimeError& error);

/// A fault that ends its routine and not the program: the line is logged where it can be, and the user is told.
void TellFault(Program& program, QLatin1StringView place, const RuntimeError& error);

/// The last resort for an error that a routine did not expect: timers and painting stop, pending edits are dropped, the
/// group of writes is committed, the line is logged where it can be, the user is told, the process ends. A fault inside of
/// it ends the process without another box. Does not return.
[[noreturn]] void ReportFault(Program& program, QLatin1StringView place, const RuntimeError& error);

/// Ends the process at once. For messages whose answer is the end; errors go to ReportFault.
[[noreturn]] void EndProcess(Program& program, int code);

/// ReportFault on the exception of the catch block in which it is called.
[[noreturn]] void ReportCaught(Program& program, QLatin1StringView place);

/// A routine's frame: one group of writes, the mouse pointer as it was at the end, and what the routine did not catch
/// itself handed to ReportFault under its name, as in "frmDue, cmdDelete()".
void Guarded(Program& program, QLatin1StringView place, const std::function<void()>& routine);

/// The hourglass until the end of the block; boxes and forms that open meanwhile show a normal pointer.
class Hourglass {
public:
    Hourglass();
    ~Hourglass();
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};
