// Figures of the engine on a catalogue of full size: 32,767 discs and a list of 100,000 files.

#include "Bench.h"
#include "store/Schema.h"

#include <cstdlib>

static constexpr int Files = 100'000;

/// The engine's figures have no targets of their own; `units` of work are in each run.
static void measure(const QString& what, int runs, int units, const std::function<void()>& work)
{
    Measure(what, 0, runs, work, units);
}

int main(int argc, char** argv)
{
    Bench bench(argc, argv);
    DBEngine& engine = bench.engine;
    Figure filling;
    filling.take([&] { FillShelf(bench.program, Audio()); });
    filling.print(u"fill 32,767 discs"_s, 0, FullShelf);

    const Database db = bench.program.mainDatabase(), lists = bench.program.filesDatabase();
    const QString join = Audio().join() + u"ORDER BY "_s;
    measure(u"open the join by number"_s, 7, 1, [&] { db.OpenRecordset(join + u"Номер"_s); });
    measure(u"open the join by title"_s, 7, 1, [&] { db.OpenRecordset(join + u"Название, Номер"_s); });
    Recordset rows = db.OpenRecordset(join + u"Номер"_s);
    measure(u"read 50 rows in the middle"_s, 7, 50, [&] {
        for (int i = 16000; i < 16050; ++i) rows.row(i);
    });
    measure(u"walk all rows of the join"_s, 3, FullShelf, [&] {
        for (int i = 0; i < FullShelf; ++i) rows.row(i);
    });
    measure(u"read 1,000 rows here and there"_s, 3, 1000, [&] {
        for (int i = 0; i < 1000; ++i) rows.row((i * 7919) % FullShelf);
    });

    Recordset whole = db.OpenRecordset(u"Аудио");
    measure(u"FindFirst by number, a miss"_s, 7, 1,
            [&, n = 40000]() mutable { whole.FindFirst(u"Номер = %1"_s.arg(++n)); });
    measure(u"FindFirst by title, a miss"_s, 7, 1,
            [&, n = 40000]() mutable { whole.FindFirst(u"Название = \"Исполнитель %1\""_s.arg(++n)); });
    measure(u"FindFirst in the join, a miss"_s, 7, 1,
            [&, n = 40000]() mutable { rows.FindFirst(u"Номер = %1"_s.arg(++n)); });
    measure(u"open, FindFirst by number, read"_s, 7, 1, [&, n = 30000]() mutable {
        Recordset discs = db.OpenRecordset(u"Аудио");
        discs.FindFirst(u"Номер = %1"_s.arg(++n));
        if (discs.NoMatch() || discs[u"Номер"].toInt() != n) std::abort();
    });
    measure(u"shift all numbers but one by Edit and Update"_s, 3, FullShelf, [&] {
        db.Execute(u"UPDATE Аудио SET Номер = КодАудиоДиск - 1");
        CommandScope scope(engine);
        Recordset discs = db.OpenRecordset(u"SELECT * FROM Аудио ORDER BY Номер");
        for (discs.MoveNext(); !discs.AtEOF(); discs.MoveNext()) {
            discs.Edit();
            discs[u"Номер"] = discs[u"Номер"].toInt() + 1;
            discs.Update();
        }
        scope.end();
    });

    measure(u"insert 100,000 files by AddNew and Update"_s, 3, Files, [&] {
        if (lists.HasTable(u"1A2B3C4D"_s)) lists.DropTable(u"1A2B3C4D"_s);
        CommandScope scope(engine);
        lists.CreateTable(FileTable(u"1A2B3C4D"_s));
        Recordset files = lists.OpenRecordset(u"1A2B3C4D");
        for (int i = 0; i < Files; ++i) {
            files.AddNew();
            files[u"Имя"] = u"Файл номер %1.txt"_s.arg(i);
            files[u"Путь"] = u"\\Документы\\Папка %1\\"_s.arg(i / 50);
            files[u"Размер"] = u"1 024";
            files.Update();
        }
        scope.end();
    });
    measure(u"LIKE '*text*' over 100,000 files, no hit"_s, 7, Files, [&, n = 0]() mutable {
        lists.OpenRecordset(u"1A2B3C4D").FindFirst(u"Имя LIKE \"*сочинение%1*\""_s.arg(++n));
    });
    measure(u"the bare scan of them"_s, 7, Files, [&, n = 0]() mutable {
        lists.Scalar(u"SELECT Count(*) FROM [1A2B3C4D] WHERE length(Имя) = %1"_s.arg(++n + 1000));
    });
    {
        CommandScope scope(engine);
        for (int i = 0; i < 2000; ++i) {
            const QString list = u"%1A"_s.arg(i);
            lists.CreateTable(FileTable(list));
            lists.Execute(u"INSERT INTO [%1] SELECT * FROM [1A2B3C4D] LIMIT 50 OFFSET %2"_s.arg(list).arg(i * 50));
        }
    }
    measure(u"LIKE '*text*' over 100,000 files in 2,000 lists"_s, 5, Files, [&, n = 0]() mutable {
        const QString criterion = u"Имя LIKE \"*сочинение%1*\""_s.arg(++n);
        for (int i = 0; i < 2000; ++i) lists.OpenRecordset(u"%1A"_s.arg(i)).FindFirst(criterion);
    });
    measure(u"DISTINCT folders of them"_s, 3, 1,
            [&] { lists.OpenRecordset(u"SELECT DISTINCT(Путь) FROM [1A2B3C4D] ORDER BY Путь"); });
}
