#include "store/Compaction.h"
#include "harness/ScreenTest.h"

#include <QDir>

namespace {

class Compaction : public ScreenTest {
protected:
    void put(const QString& name, const QByteArray& content)
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
    }
    QByteArray content(const QString& name)
    {
        QFile file(path(name));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("<no file>");
    }
    QString temporaries() { return QDir(folder.path()).entryList({"~*"}, QDir::Files, QDir::Name).join(' '); }
};

}

TEST_F(Compaction, KeepsEveryRowAndWhatAnEarlierOneLeft)
{
    shelf.computer(1, "Debian");
    for (const QString& left : {u"one"_s, u"two"_s}) {
        put("~vinora.db", left.toUtf8());
        CompactDatabases(program);
        EXPECT_EQ(rows("SELECT Название FROM Компьютер"), "Debian\n");
    }
    EXPECT_EQ(temporaries(), "~vinora-1.db ~vinora-2.db");
    EXPECT_EQ(content("~vinora-1.db"), "one");
    EXPECT_EQ(content("~vinora-2.db"), "two");
}

TEST_F(Compaction, ThatFailsTouchesNothingAndLeavesNoCopies)
{
    shelf.computer(1, "Debian");
    engine.ReleaseAll();
    const QByteArray before = content("vinora.db");
    put("vinora_tracks.db", "not a database");
    int error = 0;
    try {
        CompactDatabases(program);
    } catch (const RuntimeError& thrown) {
        error = thrown.number();
    }
    EXPECT_EQ(error, DaoErrorNumber::NotADatabase);
    EXPECT_EQ(temporaries(), "");
    EXPECT_EQ(content("vinora.db"), before);
}
