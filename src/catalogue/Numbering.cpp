#include "catalogue/Numbering.h"

#include "catalogue/Covers.h"
#include "frame/Fault.h"

#include <utility>

std::optional<int> FirstFreeNumber(const Database& main, const CatalogueKind& kind, int after)
{
    // Candidates are the number behind `after` and those behind a number that is taken: the first free one is among them.
    const int number = main.Scalar(
                               u"SELECT MIN(n) FROM (SELECT ? AS n UNION ALL SELECT Номер + 1 FROM %1 WHERE Номер > ?) "
                               "WHERE n NOT IN (SELECT Номер FROM %1 WHERE Номер IS NOT NULL)"_s.arg(kind.table),
                               {after + 1, after})
                           .toInt();
    return number <= LastNumber ? std::optional(number) : std::nullopt;
}

std::optional<int> NextOffer(const Database& main, const CatalogueKind& kind, int refused)
{
    return refused + 1 == kind.searchEnd ? std::nullopt : FirstFreeNumber(main, kind, refused);
}

bool CanMoveNumbers(const Database& main, const CatalogueKind& kind)
{
    return main.Scalar(u"SELECT MAX(Номер) FROM %1"_s.arg(kind.table)).toInt() < LastNumber;
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
    bool moved = false;
    Guarded(program, "vinoraModule, MoveNumbers()"_L1, [&] {
        const Database main = program.mainDatabase();
        if (!CanMoveNumbers(main, kind)) return;
        const int first = std::exchange(start, 0);
        main.Execute(u"UPDATE %1 SET Номер = Номер + 1 WHERE Номер >= ?"_s.arg(kind.table), {first});
        const int rows = main.Scalar(u"SELECT COUNT(*) FROM %1"_s.arg(kind.table)).toInt();
        // Files come back with no group of writes: they follow numbers that have moved for good.
        program.engine.Commit();
        moveCovers(program, first, rows);
        moved = true;
    });
    return moved;
}
