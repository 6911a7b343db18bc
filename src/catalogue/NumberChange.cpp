#include "catalogue/NumberChange.h"

#include "catalogue/Covers.h"

/// No disc has it: a cover lies under it while two change places.
static constexpr int TemporaryNumber = 0;

static void setNumber(const Database& main, const CatalogueKind& kind, qint64 key, int number)
{
    main.Execute(u"UPDATE %1 SET Номер = ? WHERE %2 = ?"_s.arg(kind.table, kind.key), {number, key});
}

void ChangeNumber(const Program& program, const CatalogueKind& kind, const NumberedDisc& disc, int number)
{
    setNumber(program.mainDatabase(), kind, disc.key, number);
    program.engine.Commit();
    MoveCover(program, Dvd().coverPrefix, disc.number, number);
}

static void swapCovers(const Program& program, int one, int other)
{
    const QString prefix = Dvd().coverPrefix;
    if (!HasCover(program, prefix, other)) return MoveCover(program, prefix, one, other);
    if (!HasCover(program, prefix, one)) return MoveCover(program, prefix, other, one);
    MoveCover(program, prefix, one, TemporaryNumber);
    MoveCover(program, prefix, other, one);
    MoveCover(program, prefix, TemporaryNumber, other);
}

void SwapNumbers(const Program& program, const CatalogueKind& kind, const NumberedDisc& one, const NumberedDisc& other)
{
    const Database main = program.mainDatabase();
    setNumber(main, kind, one.key, other.number);
    setNumber(main, kind, other.key, one.number);
    program.engine.Commit();
    swapCovers(program, one.number, other.number);
}
