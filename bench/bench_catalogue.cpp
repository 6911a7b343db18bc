// Every catalogue of the program with as many discs as there are numbers.

#include "Bench.h"
#include "catalogue/Catalogues.h"
#include "catalogue/Covers.h"
#include "catalogue/Numbering.h"
#include "catalogue/frmAddCD.h"
#include "catalogue/frmAddInCatalogue.h"
#include "catalogue/frmCatalogue.h"
#include "catalogue/frmSelectCD.h"

#include <QDir>
#include <QImage>

namespace {

constexpr int Repeats = 5;
/// The first discs are lent and have covers.
constexpr int Marked = 60;

void markDiscs(Program& program, const CatalogueKind& kind)
{
    const CommandScope scope(program.engine);
    const Database main = program.mainDatabase();
    main.Execute(u"INSERT INTO ИменаДолжников (Имя) VALUES ('Иванов')");
    main.Execute(u"UPDATE %1 SET Должник = True WHERE Номер <= ?"_s.arg(kind.table), {Marked});
    main.Execute(
        u"INSERT INTO Должники (КодИмяДолжника, КодДиска, Категория) "
        "SELECT (SELECT Max(КодИмени) FROM ИменаДолжников), %1, ? FROM %2 WHERE Номер <= ?"_s.arg(kind.key, kind.table),
        {kind.code, Marked});
    QImage cover(1200, 1200, QImage::Format_RGB32);
    for (int y = 0; y < cover.height(); ++y)
        for (int x = 0; x < cover.width(); ++x) cover.setPixel(x, y, qRgb(x % 256, y % 256, (x * y) % 256));
    for (int number = 1; number <= Marked; ++number) {
        const QString path = CoverPath(program, kind.coverPrefix, number);
        QDir().mkpath(QFileInfo(path).path());
        cover.save(path, "JPEG");
    }
}

struct BrowserFigures {
    Figure open, move, markedMove, sort, letter, jump, typeAhead;

    void take(frmCatalogue& form)
    {
        const auto enter = [&](int number) {
            form.txtNumber->setText(QString::number(number));
            Press(*form.txtNumber, Qt::Key_Return);
        };
        const auto stepDown = [&] { Press(*form.dbGrid, Qt::Key_Down); };

        form.TabStrip->setCurrentIndex(1);
        for (int i = 1; i < Marked; ++i) markedMove.take(stepDown);
        form.TabStrip->setCurrentIndex(0);
        for (const int number : {20000, 7, 32767, 16384, 3}) jump.take([&] { enter(number); });
        enter(10000);
        for (int i = 0; i < 50; ++i) move.take(stepDown);
        for (const QChar letter : u"СПССШ"_s) typeAhead.take([&] { Press(*form.dbGrid, 0, letter); });
        for (int i = form.cmbSorted->count(); i-- > 0;) {
            form.cmbSorted->setCurrentIndex(i);
            sort.take([&] {
                emit form.cmbSorted->activated(i);
                QCoreApplication::processEvents();
            });
        }
        for (const QChar letter : u"дома"_s) this->letter.take([&] { Press(*form.txtName, 0, letter); });
    }
};

void browse(Program& program, const CatalogueKind& kind)
{
    BrowserFigures figures;
    for (int i = 0; i < Repeats; ++i)
        figures.open.add(TimeToPaint([&] { OpenCatalogue(program, kind); }, u"DBGrid",
                                     [&](QWidget& window) { figures.take(static_cast<frmCatalogue&>(window)); }));
    figures.open.print(kind.browser + u" on 32,767 discs to its first paint"_s, 150);
    figures.move.print(u"  a row further, painted"_s, 5);
    figures.markedMove.print(u"  the same with a cover on view and a loan mark"_s, 10);
    figures.sort.print(u"  another sort order, painted"_s, 150);
    figures.letter.print(u"  a letter in the filter by name, painted"_s, 100);
    figures.jump.print(u"  a jump to a number"_s, 10);
    figures.typeAhead.print(u"  type-ahead to a title"_s, 20);
}

void pick(Program& program, const CatalogueKind& kind)
{
    Figure open, letter;
    for (int i = 0; i < Repeats; ++i)
        open.add(TimeToPaint([&] { PickDisc(program, u"full"_s + kind.code); }, u"DBGrid",
                             [&](QWidget& window) {
                                 QLineEdit& name = *static_cast<frmSelectCD&>(window).txtName;
                                 for (const QChar typed : u"дома"_s) letter.take([&] { Press(name, 0, typed); });
                             }));
    open.print(u"frmSelectCD on 32,767 discs to its first paint"_s, 150);
    letter.print(u"  a letter in the filter by name, painted"_s, 100);
}

void edit(Program& program, const CatalogueKind& kind)
{
    Figure opens;
    for (int i = 0; i < Repeats; ++i)
        opens.add(TimeToPaint(
            [&] {
                const auto editor = MakeEditor(program, kind);
                editor->AddUnder(1);
                editor->ShowModal();
            },
            u"txtName"));
    opens.print(kind.editor + u" on as many titles"_s, 150);
}

void move(Program& program, const CatalogueKind& kind)
{
    const Database main = program.mainDatabase();
    main.Execute(u"DELETE FROM %1 WHERE Номер = 32767"_s.arg(kind.table));
    Figure moves;
    for (int i = 0; i < Repeats; ++i) {
        int start = 1;
        moves.take([&] { MoveNumbers(program, kind, start); });
        main.Execute(u"UPDATE %1 SET Номер = Номер - 1"_s.arg(kind.table));
    }
    moves.print(u"MoveNumbers from 1 over 32,766 discs"_s, 2000);
}

void add(Program& program, const CatalogueKind& kind)
{
    const Database main = program.mainDatabase();
    main.Execute(u"DELETE FROM %1 WHERE Номер > 32000"_s.arg(kind.table));
    Figure opens;
    for (int i = 0; i < Repeats; ++i)
        opens.add(TimeToPaint([&] { frmAddCD(program, kind).ShowModal(); }, u"txtNumber"));
    opens.print(u"frmAddCD on 32,000 discs without a gap"_s, 150);
    Measure(u"the first free number among them"_s, 100, Repeats, [&] { FirstFreeNumber(main, kind); });
}

}

int main(int argc, char** argv)
{
    Bench bench(argc, argv);
    for (const CatalogueKind* kind : AllCatalogues()) {
        FillShelf(bench.program, *kind);
        markDiscs(bench.program, *kind);
        browse(bench.program, *kind);
        pick(bench.program, *kind);
        edit(bench.program, *kind);
        move(bench.program, *kind);
        add(bench.program, *kind);
    }
}
