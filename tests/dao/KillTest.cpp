#include "Outside.h"
#include "Shelf.h"

#include <QRandomGenerator>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int Rows = 60;

/// Writes for ever: numbers shifted one by one, lists as a scan makes them, saves over several tables. Every group
/// leaves the books balanced; within one they are not.
[[noreturn]] void writeUntilKilled(const QString& path)
{
    const SystemClock clock;
    DBEngine engine(clock);
    const Database db = engine.OpenDatabase(path);
    for (int round = 0;; ++round) {
        CommandScope scope(engine);
        Recordset shifted = db.OpenRecordset(u"SELECT * FROM Shift ORDER BY n");
        for (; !shifted.AtEOF(); shifted.MoveNext()) {
            shifted.Edit();
            shifted[u"n"] = shifted[u"n"].toInt() + 1;
            shifted.Update();
        }
        const QString list = u"%1A"_s.arg(round % 7);
        if (db.HasTable(list)) {
            db.DropTable(list);
            db.Execute(u"DELETE FROM Lists WHERE name = ?", {list});
        } else {
            db.CreateTable({list, {{u"x"_s, FieldType::Text}}, {}, {}});
            Recordset files = db.OpenRecordset(list);
            for (int i = 0; i < Rows; ++i) {
                files.AddNew();
                files[u"x"] = QString(200, u'x');
                files.Update();
            }
            db.Execute(u"INSERT INTO Lists (name) VALUES (?)", {list});
        }
        scope.end();
    }
}

} // namespace

TEST_F(Shelf, AKilledProcessLeavesWholeGroupsAndASoundFile)
{
    {
        const Database db = engine.OpenDatabase(path);
        CommandScope scope(engine);
        db.CreateTable({u"Shift"_s, {{u"n"_s, FieldType::Long}}, {}, {}});
        db.CreateTable({u"Lists"_s, {{u"name"_s, FieldType::Text}}, {}, {}});
        for (int i = 0; i < Rows; ++i) db.Execute(u"INSERT INTO Shift (n) VALUES (?)", {i});
    }
    engine.ReleaseAll();

    int progress = 0, rounds = 0;
    for (; rounds < 50 && !HasFailure(); ++rounds) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) writeUntilKilled(path);
        ::usleep(QRandomGenerator::global()->bounded(8'000, 70'000));
        ::kill(child, SIGKILL);
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);

        {
            const Database db = engine.OpenDatabase(path);
            const int first = db.Scalar(u"SELECT Min(n) FROM Shift").toInt();
            EXPECT_EQ(db.Scalar(u"SELECT Max(n) FROM Shift").toInt(), first + Rows - 1);
            EXPECT_GE(first, progress);
            progress = first;
            QStringList lists;
            for (const QString& name : db.TableNames()) {
                if (!name.endsWith(u'A')) continue;
                lists += name;
                EXPECT_EQ(db.OpenRecordset(name).RecordCount(), Rows);
            }
            lists.sort();
            EXPECT_EQ(all(db, u"SELECT name FROM Lists ORDER BY name"), lists.join(u'|').toStdString());
        }
        engine.ReleaseAll();
        EXPECT_EQ(outside(path, "PRAGMA integrity_check"), u"ok"_s);
    }
    EXPECT_GT(progress, 0) << "no group was ever finished";
}
