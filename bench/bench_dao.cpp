// Figures of the engine on a catalogue of full size: 32,767 discs and a list of 100,000 files.

#include "dao/DBEngine.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

namespace {

constexpr int Discs = 32767, Files = 100'000;

/// Prints the median of some runs in milliseconds: by the clock on the wall, by the processor's, and that per unit.
void measure(const char* what, int runs, int units, const std::function<void()>& action)
{
    std::vector<double> wall, processor;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        const std::clock_t start = std::clock();
        action();
        processor.push_back(1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
        wall.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    const auto median = [](std::vector<double>& times) {
        std::sort(times.begin(), times.end());
        return times[times.size() / 2];
    };
    const double used = median(processor);
    std::printf("%-48s %9.2f ms %9.2f ms", what, median(wall), used);
    if (units > 1) std::printf(" %7.2f us each", used * 1000 / units);
    std::printf("\n");
}

TableDef audio()
{
    QList<FieldDef> fields{{u"КодАудиоДиск"_s, FieldType::Long, 0, true},
                           {u"Номер"_s, FieldType::Integer},
                           {u"Название"_s, FieldType::Text, 60},
                           {u"Альбом"_s, FieldType::Text, 60, false, true},
                           {u"Дисков"_s, FieldType::Integer},
                           {u"КодСтиля"_s, FieldType::Long},
                           {u"ДатаЗаписи"_s, FieldType::Date, 0, false, false, FieldDefault::Today},
                           {u"ДатаИзменения"_s, FieldType::Date, 0, false, false, FieldDefault::Today},
                           {u"Должник"_s, FieldType::Boolean}};
    for (int k = 1; k <= 6; ++k) {
        fields.append({u"Записей%1"_s.arg(k), FieldType::Integer});
        fields.append({u"Время%1"_s.arg(k), FieldType::Text, 5});
        fields.append({u"ДискID%1"_s.arg(k), FieldType::Text, 10, false, true});
        fields.append({u"ДискID%1_d"_s.arg(k), FieldType::Text, 10, false, true});
    }
    return {u"Аудио"_s,
            fields,
            u"КодАудиоДиск"_s,
            {{u"АудиоСтиль"_s, u"Стиль"_s, u"КодСтиля"_s, u"Аудио"_s, u"КодСтиля"_s, true, false}}};
}

void fill(DBEngine& engine, const Database& db)
{
    CommandScope scope(engine);
    db.CreateTable(audio());
    db.CreateTable({u"Стиль"_s,
                    {{u"КодСтиля"_s, FieldType::Long, 0, true}, {u"Стиль"_s, FieldType::Text, 50, false, true}},
                    u"КодСтиля"_s,
                    {}});
    Recordset styles = db.OpenRecordset(u"Стиль");
    for (int i = 0; i < 31; ++i) {
        styles.AddNew();
        styles[u"Стиль"] = u"Стиль %1"_s.arg(i);
        styles.Update();
    }
    Recordset discs = db.OpenRecordset(u"Аудио");
    for (int i = 1; i <= Discs; ++i) {
        discs.AddNew();
        discs[u"Номер"] = i;
        discs[u"Название"] = u"Исполнитель %1"_s.arg((i * 7919) % Discs);
        discs[u"Альбом"] = u"Альбом %1"_s.arg(i);
        discs[u"Дисков"] = 1;
        discs[u"КодСтиля"] = i % 31 + 1;
        discs[u"Записей1"] = 12;
        discs[u"Время1"] = u"45:10";
        discs[u"ДискID1"] = QString::number(i, 16);
        discs[u"ДискID1_d"] = QString::number(i, 16);
        discs.Update();
    }
    scope.end();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const SystemClock clock;
    DBEngine engine(clock);
    const QString path = folder.filePath(u"bench.db"_s);
    engine.CreateDatabase(path);
    const Database db = engine.OpenDatabase(path);
    measure("fill 32,767 discs of 33 fields", 1, Discs, [&] { fill(engine, db); });

    const auto join = u"SELECT * FROM Аудио, Стиль WHERE Аудио.КодСтиля = Стиль.КодСтиля ORDER BY "_s;
    measure("open the join by number", 7, 1, [&] { db.OpenRecordset(join + u"Номер"_s); });
    measure("open the join by title", 7, 1, [&] { db.OpenRecordset(join + u"Название, Номер"_s); });
    Recordset rows = db.OpenRecordset(join + u"Номер"_s);
    measure("read 50 rows in the middle", 7, 50, [&] {
        for (int i = 16000; i < 16050; ++i) rows.row(i);
    });
    measure("walk all rows of the join", 3, Discs, [&] {
        for (int i = 0; i < Discs; ++i) rows.row(i);
    });
    measure("read 1,000 rows here and there", 3, 1000, [&] {
        for (int i = 0; i < 1000; ++i) rows.row((i * 7919) % Discs);
    });

    Recordset whole = db.OpenRecordset(u"Аудио");
    measure("FindFirst by number, a miss", 7, 1,
            [&, n = 40000]() mutable { whole.FindFirst(u"Номер = %1"_s.arg(++n)); });
    measure("FindFirst by title, a miss", 7, 1,
            [&, n = 40000]() mutable { whole.FindFirst(u"Название = \"Исполнитель %1\""_s.arg(++n)); });
    measure("FindFirst in the join, a miss", 7, 1,
            [&, n = 40000]() mutable { rows.FindFirst(u"Номер = %1"_s.arg(++n)); });
    measure("open, FindFirst by number, read", 7, 1, [&, n = 30000]() mutable {
        Recordset discs = db.OpenRecordset(u"Аудио");
        discs.FindFirst(u"Номер = %1"_s.arg(++n));
        if (discs.NoMatch() || discs[u"Номер"].toInt() != n) std::abort();
    });
    measure("shift all numbers but one by Edit and Update", 3, Discs, [&] {
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

    measure("insert 100,000 files by AddNew and Update", 3, Files, [&] {
        if (db.HasTable(u"1A2B3C4D"_s)) db.DropTable(u"1A2B3C4D"_s);
        CommandScope scope(engine);
        db.CreateTable({u"1A2B3C4D"_s,
                        {{u"Имя"_s, FieldType::Text, 255},
                         {u"Путь"_s, FieldType::Text, 255},
                         {u"Размер"_s, FieldType::Text, 11},
                         {u"Комментарий"_s, FieldType::Text, 50}},
                        {},
                        {}});
        Recordset files = db.OpenRecordset(u"1A2B3C4D");
        for (int i = 0; i < Files; ++i) {
            files.AddNew();
            files[u"Имя"] = u"Файл номер %1.txt"_s.arg(i);
            files[u"Путь"] = u"\\Документы\\Папка %1\\"_s.arg(i / 50);
            files[u"Размер"] = u"1 024";
            files.Update();
        }
        scope.end();
    });
    measure("LIKE '*text*' over 100,000 files, no hit", 7, Files, [&, n = 0]() mutable {
        db.OpenRecordset(u"1A2B3C4D").FindFirst(u"Имя LIKE \"*сочинение%1*\""_s.arg(++n));
    });
    measure("the bare scan of them", 7, Files, [&, n = 0]() mutable {
        db.Scalar(u"SELECT Count(*) FROM [1A2B3C4D] WHERE length(Имя) = %1"_s.arg(++n + 1000));
    });
    {
        CommandScope scope(engine);
        for (int i = 0; i < 2000; ++i) {
            const QString list = u"%1A"_s.arg(i);
            db.CreateTable({list,
                            {{u"Имя"_s, FieldType::Text, 255},
                             {u"Путь"_s, FieldType::Text, 255},
                             {u"Размер"_s, FieldType::Text, 11},
                             {u"Комментарий"_s, FieldType::Text, 50}},
                            {},
                            {}});
            db.Execute(u"INSERT INTO [%1] SELECT * FROM [1A2B3C4D] LIMIT 50 OFFSET %2"_s.arg(list).arg(i * 50));
        }
    }
    measure("LIKE '*text*' over 100,000 files in 2,000 lists", 5, Files, [&, n = 0]() mutable {
        const QString criterion = u"Имя LIKE \"*сочинение%1*\""_s.arg(++n);
        for (int i = 0; i < 2000; ++i) db.OpenRecordset(u"%1A"_s.arg(i)).FindFirst(criterion);
    });
    measure("DISTINCT folders of them", 3, 1,
            [&] { db.OpenRecordset(u"SELECT DISTINCT(Путь) FROM [1A2B3C4D] ORDER BY Путь"); });
    return 0;
}
