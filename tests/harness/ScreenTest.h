#pragma once

#include "frame/Screen.h"
#include "harness/FakeDrives.h"
#include "harness/Fakes.h"
#include "harness/FormTest.h"
#include "harness/Shelf.h"

#include <QTemporaryDir>

/// A whole program around the screen under test: an application folder of its own with fresh databases, a clock that
/// stands still, drives, desktop and other screens that only keep account.
class ScreenTest : public FormTest {
protected:
    ScreenTest();
    ~ScreenTest() override;

    /// Opens one screen, with what its constructor takes behind the program, and runs the script in it.
    template<class S, class Body, class... Arguments> void run(const Body& body, Arguments&&... arguments)
    {
        play(
            [&] {
                S screen(program, std::forward<Arguments>(arguments)...);
                static_cast<Screen&>(screen).ShowModal();
            },
            body);
    }
    /// As an opener does: `fill` is called between Form_Load and the showing.
    template<class S, class Fill, class Body> void runFilled(const Fill& fill, const Body& body)
    {
        play(
            [&] {
                S screen(program);
                screen.Load();
                fill(screen);
                static_cast<Screen&>(screen).ShowModal();
            },
            body);
    }

    /// The fault routine must be reached with this place, as in "frmDue, cmdDelete()": log line, box and end.
    void expectFault(const QString& place, Where where = Where::current());
    /// The process must end without a fault.
    void expectEnd() { runner.expectEnd(); }

    /// Section Option of the settings.
    void setOption(const QString& key, const QString& value) { program.settings().write(u"Option", key, value); }
    QString option(const QString& key) const { return program.settings().read(u"Option", key); }
    /// What a SELECT gives, as rows of cells apart by " | "; Null prints as "Null", a date in ISO form.
    QString rows(const QString& select) const { return rowsOf(program.mainDatabase(), select); }
    QString fileRows(const QString& select) const { return rowsOf(program.filesDatabase(), select); }
    QString trackRows(const QString& select) const { return rowsOf(program.tracksDatabase(), select); }
    static QString rowsOf(const Database& database, const QString& select);
    QString path(const QString& name) const { return folder.filePath(name); }

    QTemporaryDir folder;
    FixedClock clock;
    FakeDrives drives;
    FakeDesktop desktop;
    FakeScreens screens;
    DBEngine engine{clock};
    Program program;
    Shelf shelf{program};
};
