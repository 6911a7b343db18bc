// The computer catalogue with as many discs as there are numbers, each figure beside its target. Windows are real ones on
// the offscreen platform, timed to their first paint.

#include "catalogue/Numbering.h"
#include "catalogue/frmAddCD.h"
#include "catalogue/frmAddInCataloguePC.h"
#include "catalogue/frmCataloguePCCD.h"
#include "frame/Text.h"
#include "harness/FakeDrives.h"
#include "platform/XdgDesktop.h"
#include "store/DatabaseSet.h"
#include "store/StartUp.h"
#include "ui/QtDialogs.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>

namespace {

double milliseconds(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

void report(const char* what, QList<double> times, double target)
{
    std::sort(times.begin(), times.end());
    std::printf("%-52s %8.2f ms   (target %g)\n", what, times[times.size() / 2], target);
}

/// A program of its own in a temporary folder.
struct Bench {
    QTemporaryDir folder;
    SystemClock clock;
    DBEngine engine{clock};
    FakeDrives drives;
    QtDialogs dialogs{engine, {}};
    XdgDesktop desktop;
    Program program{.applicationFolder = folder.path(),
                    .version = u"1.0.0"_s,
                    .clock = clock,
                    .engine = engine,
                    .drives = drives,
                    .dialogs = dialogs,
                    .desktop = desktop,
                    .endProcess = [](int code) { std::_Exit(code); }};

    Bench()
    {
        SetFilePaths(program);
        PrepareDatabases(program);
    }

    /// Discs 1 to `count`.
    void fill(int count)
    {
        const CommandScope scope(engine);
        const Database main = program.mainDatabase();
        main.Execute(u"DELETE FROM Компьютер");
        main.Execute(
            u"INSERT INTO Компьютер (Номер, Название, КодОписания, Год, Дисков) VALUES (1, \"x\", 1, \"2003\", 1)");
        for (int have = 1; have < count; have *= 2)
            main.Execute(
                u"INSERT INTO Компьютер (Номер, Название, КодОписания, Год, Дисков) SELECT Номер + ?, Название, "
                "КодОписания, Год, Дисков FROM Компьютер WHERE Номер <= ?",
                {have, count - have});
        Recordset rows = main.OpenRecordset(u"Компьютер");
        for (; !rows.AtEOF(); rows.MoveNext()) {
            const int number = rows[u"Номер"].toInt();
            rows.Edit();
            rows[u"Название"] = u"Сборник программ для дома № %1"_s.arg(number * 7919 % 32768);
            rows[u"КодОписания"] = 1 + number % 23;
            rows[u"Год"] = QString::number(1990 + number % 20);
            rows.Update();
        }
    }
};

/// Runs `then` when a widget has been painted for the first time.
class AfterPaint : public QObject {
public:
    AfterPaint(QWidget* widget, std::function<void()> then) : QObject(widget), m_then(std::move(then))
    {
        widget->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::Paint || m_painted) return false;
        m_painted = true;
        QMetaObject::invokeMethod(
            this, [this] { m_then(); }, Qt::QueuedConnection);
        return false;
    }

private:
    std::function<void()> m_then;
    bool m_painted = false;
};

void press(QWidget* widget, int key, const QString& text = {})
{
    QKeyEvent event(QEvent::KeyPress, key, {}, text);
    QApplication::sendEvent(widget, &event);
    QApplication::processEvents();
}

/// Opening, from the constructor to the first paint of `watched`, and what is done in the window then.
template<class Screen, class Watched, class Then>
double open(const std::function<std::unique_ptr<Screen>()>& make, Watched watched, Then then)
{
    QElapsedTimer timer;
    double elapsed = 0;
    timer.start();
    const std::unique_ptr<Screen> screen = make();
    AfterPaint painted(watched(*screen), [&] {
        elapsed = double(timer.nsecsElapsed()) / 1e6;
        then(*screen);
        screen->Unload();
    });
    screen->ShowModal();
    return elapsed;
}

void browse(Bench& bench)
{
    QList<double> opens, moves, keystrokes;
    for (int i = 0; i < 5; ++i)
        opens += open<frmCataloguePCCD>([&] { return std::make_unique<frmCataloguePCCD>(bench.program); },
                                        [](frmCataloguePCCD& form) { return form.dbGrid->viewport(); },
                                        [&](frmCataloguePCCD& form) {
                                            for (int row = 0; row < 50; ++row)
                                                moves += milliseconds([&] { press(form.dbGrid, Qt::Key_Down); });
                                            for (const QChar letter : u"дома"_s)
                                                keystrokes += milliseconds([&] { press(form.txtName, 0, letter); });
                                        });
    QList<double> editors;
    for (int i = 0; i < 5; ++i)
        editors += open<frmAddInCataloguePC>(
            [&] {
                auto editor = std::make_unique<frmAddInCataloguePC>(bench.program);
                editor->AddUnder(1);
                return editor;
            },
            [](frmAddInCataloguePC& form) { return form.txtName; }, [](frmAddInCataloguePC&) {});
    report("frmCataloguePCCD on 32,767 discs to its first paint", opens, 150);
    report("frmAddInCataloguePC on as many titles", editors, 150);
    report("a row further, painted", moves, 5);
    report("a letter in the filter by name, painted", keystrokes, 100);
}

void addDialog(Bench& bench)
{
    QList<double> opens;
    for (int i = 0; i < 5; ++i)
        opens += open<frmAddCD>([&] { return std::make_unique<frmAddCD>(bench.program, Computer()); },
                                [](frmAddCD& form) { return form.txtNumber; }, [](frmAddCD&) {});
    report("frmAddCD on 32,000 discs without a gap", opens, 150);

    QList<double> searches;
    for (int i = 0; i < 5; ++i)
        searches += milliseconds([&] { FirstFreeNumber(bench.program.mainDatabase(), Computer()); });
    report("the first free number among them", searches, 100);
}

void move(Bench& bench)
{
    QList<double> times;
    for (int i = 0; i < 5; ++i) {
        int start = 1;
        times += milliseconds([&] { MoveNumbers(bench.program, Computer(), start); });
        bench.program.mainDatabase().Execute(u"UPDATE Компьютер SET Номер = Номер - 1");
    }
    report("MoveNumbers from 1 over 32,766 discs", times, 2000);
}

}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QLocale::setDefault(RussianLocale());
    Theme::apply(application, u"light"_s);

    Bench bench;
    bench.fill(32767);
    browse(bench);
    bench.fill(32766);
    move(bench);
    bench.fill(32000);
    addDialog(bench);
}
