// A search through the lists of all discs, beside grep over a text of the same names.
//
//     bench_search                  2,000 discs of 2,500 files, then 10,000 of 500
//     bench_search 300 3000         300 of 3,000 alone

#include "Bench.h"
#include "dao/TableReader.h"
#include "search/frmDBFind.h"
#include "store/Schema.h"
#include "store/StartUp.h"

#include <QFile>
#include <QHeaderView>
#include <QProcess>
#include <QScrollBar>
#include <QTimer>
#include <sys/resource.h>

namespace {

QString listName(int disc) { return u"%1"_s.arg(disc, 8, 16, QLatin1Char('0')).toUpper(); }

/// `discs` lists of `files` rows: a folder to fifty files, Russian and Latin names, one in five of them a "Документ".
void fill(Program& program, int discs, int files)
{
    const CommandScope scope(program.engine);
    FillShelf(program, Computer(), discs);
    program.mainDatabase().Execute(u"UPDATE Компьютер SET ДискID1 = \"x\"");
    Recordset rows = program.mainDatabase().OpenRecordset(u"SELECT * FROM Компьютер ORDER BY Номер");
    const Database lists = program.filesDatabase();
    static const QStringList words = u"Holiday Документ Фотография report Песня"_s.split(u' ');
    static const QStringList endings = u".txt .jpg .mp3 .doc"_s.split(u' ');
    lists.CreateTable(FileTable(u"model"_s));
    Recordset model = lists.OpenRecordset(u"model");
    const auto add = [&](const QString& name, const QString& folder) {
        model.AddNew();
        model[u"Имя"] = name;
        model[u"Путь"] = folder;
        model[u"Размер"] = u"1 024,5";
        model.Update();
    };
    for (int i = 0; i < files; ++i) {
        const QString folder = u"\\Архив %1\\"_s.arg(i / 50);
        if (i % 50 == 0)
            add(folder, folder);
        else
            add(words[i % 5] + u" %1"_s.arg(i * 7919 % 100000) + endings[i % 4], folder);
    }
    for (int disc = 1; disc <= discs; ++disc, rows.MoveNext()) {
        const QString list = listName(disc);
        rows.Edit();
        rows[u"ДискID1"] = list;
        rows.Update();
        lists.CreateTable(FileTable(list));
        lists.Execute(
            u"INSERT INTO [%1] SELECT Имя & \" %2\", Путь, Размер, Комментарий FROM model"_s.arg(list).arg(disc));
        if (disc % 50 == 0) program.engine.Commit(); // a group stays in memory until its end
    }
    lists.DropTable(u"model"_s);
}

/// Without the lists that were filled.
void beginAnew(Program& program)
{
    const QString lists = program.filesDatabase().path();
    program.engine.Release(lists);
    QFile::remove(lists);
    PrepareDatabases(program);
}

void dump(Program& program, int discs, const QString& path)
{
    QFile text(path);
    if (!text.open(QFile::WriteOnly)) std::exit(EXIT_FAILURE);
    TableReader reader(program.filesDatabase());
    const Selection names({u"Имя"_s});
    reader.reading([&] {
        for (int disc = 1; disc <= discs; ++disc)
            reader.read(listName(disc), names, [&](const TableReader::Row& row) {
                const std::string_view name = row.text(0);
                text.write(name.data(), qsizetype(name.size()));
                text.write("\n");
                return true;
            });
    });
}

qint64 grep(const QString& text, const QString& path)
{
    QProcess grep;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    grep.setProcessEnvironment(environment);
    grep.start(u"grep"_s, {u"-ic"_s, u"--"_s, text, path});
    grep.waitForFinished(-1);
    return grep.readAllStandardOutput().trimmed().toLongLong();
}

/// Processor time of the programs that were run and have ended, milliseconds.
double childrenTime()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto milliseconds = [](const timeval& time) {
        return double(time.tv_sec) * 1e3 + double(time.tv_usec) / 1e3;
    };
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

Hits walk(ListSearch& search, const Database& main, const ListQuery& query)
{
    const std::vector<ListedDisc> discs = ListedDiscs(main, query.catalogue());
    Hits hits(discs);
    search.start(query, discs);
    search.wait();
    search.take(hits);
    return hits;
}

void turnUntil(const std::function<bool()>& done)
{
    while (!done()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// The window: from the button to the first hits in sight, and to the end; its longest pause.
void measureWindow(frmDBFind& form, const QString& text)
{
    Figure first, whole, pauses;
    form.txtSearchText->setText(text);
    for (int run = 0; run < 5; ++run) {
        const Pauses watched;
        QElapsedTimer timer;
        timer.start();
        form.imgButton[1]->click();
        turnUntil([&] { return form.lvFind->hits().size() > 0; });
        form.lvFind->viewport()->repaint();
        first.add(double(timer.nsecsElapsed()) / 1e6);
        turnUntil([&] { return form.txtSearchText->isEnabled(); });
        whole.add(double(timer.nsecsElapsed()) / 1e6);
        pauses.add(watched.longest());
    }
    const QString what = u"\"%1\", %L2 hits: "_s.arg(text).arg(form.lvFind->hits().size());
    first.print(what + u"the first ones in sight"_s, 100);
    whole.print(what + u"the whole search"_s);
    pauses.print(what + u"the window's longest pause"_s, 100);

    Figure scrolls, sorts, sortPauses;
    QScrollBar& bar = *form.lvFind->verticalScrollBar();
    for (int i = 1; i <= 100; ++i)
        scrolls.take([&] {
            bar.setValue(int(qint64(bar.maximum()) * i / 100));
            form.lvFind->viewport()->repaint();
        });
    scrolls.print(what + u"a jump of the scroll bar"_s, 16);
    for (const int column : {0, 1, 2}) {
        const Pauses watched;
        sorts.take([&] {
            emit form.lvFind->horizontalHeader()->sectionClicked(column);
            turnUntil([&] { return !form.lvFind->sorting(); });
        });
        sortPauses.add(watched.longest());
    }
    sorts.print(what + u"sorted by a column"_s);
    sortPauses.print(what + u"the window's longest pause in it"_s, 100);
}

/// A reader, and walks, whose target grep may be. The median of the walk that finds nothing, which reads everything.
double measureWalks(Program& program, int discs, int files, const QString& names, bool besideGrep)
{
    dump(program, discs, names);
    const Database main = program.mainDatabase(), lists = program.filesDatabase();
    const QString shape = u"%L1 x %L2: "_s.arg(discs).arg(files);
    Figure opening;
    for (int run = 0; run < 3; ++run) opening.take([&] { TableReader(lists).reading([] {}); });
    opening.print(shape + u"a reader's connection"_s);
    ListSearch search(lists, [] {});
    double nothing = 0;
    for (const QString& text : {u"сочинение"_s, u"report 23757"_s, u"txt"_s}) {
        std::size_t found = 0;
        qint64 lines = 0;
        Figure greps, walks, processor;
        for (int run = 0; run < 7; ++run) {
            const double before = childrenTime();
            greps.take([&] { lines = grep(text, names); });
            processor.add(childrenTime() - before);
            walks.take([&] { found = walk(search, main, {.text = text}).size(); });
        }
        greps.print(shape + u"grep -ic \"%1\", %L2 lines"_s.arg(text).arg(lines));
        processor.print(shape + u"its processor time"_s);
        walks.print(shape + u"the walk for it, %L1 hits"_s.arg(found), besideGrep ? greps.median() : 0);
        if (found == 0) nothing = walks.median();
    }
    Measure(shape + u"the walk for folders"_s, 0, 3,
            [&] { walk(search, main, {.kind = ListQuery::Folders, .text = u"сочинение"_s}); });
    Measure(shape + u"the walk for a whole name"_s, 0, 3,
            [&] { walk(search, main, {.text = u"сочинение"_s, .wholeWord = true}); });
    return nothing;
}

}

int main(int argc, char** argv)
{
    const bool one = argc > 2;
    const int discs = one ? std::atoi(argv[1]) : 2000, files = one ? std::atoi(argv[2]) : 2500;
    Bench bench(argc, argv);
    Program& program = bench.program;
    const QString names = bench.path(u"names.txt"_s);
    fill(program, discs, files);
    PrintMemory(u"memory before"_s);
    const double large = measureWalks(program, discs, files, names, true);
    {
        frmDBFind form(program);
        QTimer::singleShot(1000, &form, [&form] {
            measureWindow(form, u"report 23757"_s);
            measureWindow(form, u"Документ"_s);
            form.Unload();
        });
        form.ShowModal();
    }
    PrintMemory(u"memory after these hits"_s, 400);
    if (one) return 0;

    beginAnew(program);
    fill(program, 10000, 500);
    Figure small;
    small.add(measureWalks(program, 10000, 500, names, false));
    small.print(u"10,000 x 500 without a hit beside 2,000 x 2,500"_s, 2 * large);
}
