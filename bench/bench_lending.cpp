// A ledger of 20,000 loans by 2,000 borrowers, of which 2,000 are out; one borrower has 500.

#include "Bench.h"
#include "lending/Borrowers.h"
#include "lending/Rating.h"
#include "lending/frmAddInDue.h"
#include "lending/frmDiskHistory.h"
#include "lending/frmDue.h"
#include "lending/frmDueStat.h"
#include "lending/frmEditDue.h"
#include "mainwindow/frmMain.h"

namespace {

constexpr int Repeats = 5;
constexpr int Borrowers = 2000, Loans = 20000, Out = 2000, OfOne = 500;

/// The key of the borrower of many discs.
qint64 fillLedger(Program& program)
{
    const CommandScope scope(program.engine);
    const Database main = program.mainDatabase();
    const QDate today = program.clock.today();
    QList<qint64> borrowers;
    for (int i = 0; i < Borrowers; ++i) borrowers += AddBorrower(main, u"Должник %1"_s.arg(i * 7919 % Borrowers));
    Recordset loans = main.OpenRecordset(u"Должники");
    for (int i = 0; i < Loans; ++i) {
        const bool out = i >= Loans - Out;
        loans.AddNew();
        loans[u"КодИмяДолжника"] = borrowers[i < OfOne ? 0 : i % Borrowers];
        loans[u"КодДиска"] = i % FullShelf + 1;
        loans[u"Категория"] = AllCatalogues()[std::size_t(i % 3)]->code;
        loans[u"ДатаВыдачи"] = today.addDays(-400 + i % 300);
        loans[u"ДатаВозврата"] = i % 5 ? today.addDays(-60 + i % 70) : QDate();
        loans[u"ДатаВозвратаРеальная"] = out ? QDate() : today.addDays(-50 + i % 50);
        loans[u"Долг"] = out;
        loans.Update();
    }
    for (const CatalogueKind* kind : AllCatalogues())
        main.Execute(
            u"UPDATE %1 SET Должник = True WHERE %2 IN "
            "(SELECT КодДиска FROM Должники WHERE Долг = True AND Категория = ?)"_s.arg(kind->table, kind->key),
            {kind->code});
    return borrowers.first();
}

void list(Program& program)
{
    Figure opens, moves, sorts;
    const auto work = [&](QWidget& window) {
        auto& form = static_cast<frmDue&>(window);
        for (int i = 0; i < 50; ++i) moves.take([&] { Press(*form.dbGrid, Qt::Key_Down); });
        for (int i = form.cmbSorted->count(); i-- > 0;) {
            form.cmbSorted->setCurrentIndex(i);
            sorts.take([&] {
                emit form.cmbSorted->activated(i);
                QCoreApplication::processEvents();
            });
        }
    };
    for (int i = 0; i < Repeats; ++i) opens.add(TimeToPaint([&] { frmDue(program).ShowModal(); }, u"DBGrid", work));
    opens.print(u"frmDue on 2,000 open loans of 20,000 to its first paint"_s, 150);
    moves.print(u"  a row further, painted"_s, 10);
    sorts.print(u"  another sort order, painted"_s, 150);
}

void lend(Program& program)
{
    Figure opens, letters;
    const auto type = [&](QWidget& window) {
        auto& form = static_cast<frmAddInDue&>(window);
        for (const QChar letter : u"Должник 12"_s) letters.take([&] { Press(*form.txtFIO, 0, letter); });
    };
    const qint64 disc = FullShelf;
    for (int i = 0; i < Repeats; ++i)
        opens.add(TimeToPaint([&] { ShowAddInDue(program, Audio(), disc); }, u"txtFIO", type));
    opens.print(u"frmAddInDue on 2,000 names to its first paint"_s, 150);
    letters.print(u"  a letter in the name, completed and rated"_s, 50);
}

void statistics(Program& program, qint64 borrower)
{
    Figure opens, moves, sorts;
    const auto work = [&](QWidget& window) {
        auto& form = static_cast<frmDueStat&>(window);
        sorts.take([&] {
            form.optSorted[1]->click();
            QCoreApplication::processEvents();
        });
        form.optSorted[0]->click();
        for (int i = 0; i < 50; ++i) moves.take([&] { Press(*form.dbGrid, Qt::Key_Down); });
    };
    const auto open = [&] {
        frmDueStat form(program);
        form.Load();
        form.GoTo(borrower);
        form.ShowModal();
    };
    for (int i = 0; i < Repeats; ++i) opens.add(TimeToPaint(open, u"lvRating", work));
    opens.print(u"frmDueStat on a borrower with 500 loans to its first paint"_s, 50);
    sorts.print(u"  those of one catalogue, painted"_s, 50);
    moves.print(u"  a borrower further, rated and painted"_s, 50);
}

void names(Program& program)
{
    Figure opens, moves;
    const auto work = [&](QWidget& window) {
        for (int i = 0; i < 50; ++i) moves.take([&] { Press(*static_cast<frmEditDue&>(window).dbGrid, Qt::Key_Down); });
    };
    for (int i = 0; i < Repeats; ++i) opens.add(TimeToPaint([&] { frmEditDue(program).ShowModal(); }, u"DBGrid", work));
    opens.print(u"frmEditDue on 2,000 names to its first paint"_s, 150);
    moves.print(u"  a row further, painted"_s, 10);
}

void history(Program& program)
{
    Figure opens, shows;
    const auto work = [&](QWidget& window) {
        auto& form = static_cast<frmDiskHistory&>(window);
        for (int number = 1; number <= 20; ++number) {
            form.txtNumber->setText(QString::number(number));
            shows.take([&] { Press(*form.txtNumber, Qt::Key_Return); });
        }
    };
    for (int i = 0; i < Repeats; ++i)
        opens.add(TimeToPaint([&] { frmDiskHistory(program).ShowModal(); }, u"txtNumber", work));
    opens.print(u"frmDiskHistory to its first paint"_s, 150);
    shows.print(u"  the history of a disc among 20,000 loans, painted"_s, 50);
}

void dashboard(Program& program)
{
    frmMain window(program);
    window.Load();
    window.show();
    QCoreApplication::processEvents();
    const auto refresh = [&] {
        window.LoadData();
        window.repaint();
        QCoreApplication::processEvents();
    };
    Measure(u"the dashboard's refresh over 98,301 discs and 20,000 loans, painted"_s, 50, 4 * Repeats, refresh);
}

}

int main(int argc, char** argv)
{
    Bench bench(argc, argv);
    for (const CatalogueKind* kind : AllCatalogues()) FillShelf(bench.program, *kind);
    const qint64 borrower = fillLedger(bench.program);
    const Database main = bench.program.mainDatabase();
    const QDate today = bench.program.clock.today();

    list(bench.program);
    lend(bench.program);
    statistics(bench.program, borrower);
    names(bench.program);
    history(bench.program);
    Measure(u"the record of a borrower with 500 loans"_s, 50, Repeats,
            [&] { StandingOf(RecordOf(main, borrower, today)); });
    dashboard(bench.program);
}
