#include "catalogue/Numbering.h"

#include "catalogue/Covers.h"
#include "frame/Fault.h"

#include <QScopeGuard>

int FirstFreeNumber(const Database& main, const CatalogueKind& kind, int after)
{
    // Candidates are the number behind `after` and those behind a number that is taken: the first free one is among them.
    return main
        .Scalar(u"SELECT MIN(n) FROM (SELECT ? AS n UNION ALL SELECT Номер + 1 FROM %1 WHERE Номер > ?) "
                "WHERE n NOT IN (SELECT Номер FROM %1 WHERE Номер IS NOT NULL)"_s.arg(kind.table),
                {after + 1, after})
        .toInt();
}

bool CanMoveNumbers(const Database& main, const CatalogueKind& kind, int start)
{
    return start > LastNumber || main.Scalar(u"SELECT MAX(Номер) FROM %1"_s.arg(kind.table)).toInt() < LastNumber;
}

QString CannotMoveMessage(int start)
{
    return u"Номера начиная с %1-го нельзя сместить: самый большой возможный номер, %2, уже занят."_s.arg(start).arg(
        LastNumber);
}

static void moveCovers(const Program& program, int start, int rows)
{
    const QString prefix = Dvd().coverPrefix;
    for (int number = rows; number >= start; --number) MoveCover(program, prefix, number, number + 1);
}

bool MoveNumbers(Program& program, const CatalogueKind& kind, int& start)
{
    const auto done = qScopeGuard([&] { start = 0; });
    bool moved = false;
    Guarded(program, "vinoraModule, MoveNumbers()"_L1, [&] {
        const Database main = program.mainDatabase();
        if (!CanMoveNumbers(main, kind, start)) {
            program.dialogs.MsgBox(CannotMoveMessage(start));
            return;
        }
        main.Execute(u"UPDATE %1 SET Номер = Номер + 1 WHERE Номер >= ?"_s.arg(kind.table), {start});
        moveCovers(program, start, main.Scalar(u"SELECT COUNT(*) FROM %1"_s.arg(kind.table)).toInt());
        moved = true;
    });
    return moved;
}
