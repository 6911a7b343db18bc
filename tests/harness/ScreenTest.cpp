#include "harness/ScreenTest.h"

#include "platform/CodePage1251.h"
#include "store/DatabaseSet.h"
#include "store/Reanimator.h"

#include <QApplication>
#include <QFile>

ScreenTest::ScreenTest()
    : program{.applicationFolder = folder.path(),
              .version = u"1.0.0"_s,
              .clock = clock,
              .engine = engine,
              .drives = drives,
              .dialogs = dialogs,
              .desktop = desktop,
              .screens = &screens,
              .endProcess = [this](int code) { runner.endProcess(code); }}
{
    dialogs.setEngine(&engine);
    SetFilePaths(program);
    Reanimator(program, 0);
}

ScreenTest::~ScreenTest()
{
    EXPECT_EQ(program.routines, 0) << "a guarded routine has not ended";
    dialogs.setEngine(nullptr);
}

void ScreenTest::expectFault(const QString& place, Where where)
{
    const auto accepts = [this, place](const QString& shown) {
        QFile log(path(u"bugreport.log"_s));
        const bool written = log.open(QFile::ReadOnly) && DecodeCp1251(log.readAll()).endsWith(place + u"\r\n"_s);
        return written && shown.startsWith(u"box \"ОШИБКА.") && shown.endsWith(u"of type 16");
    };
    dialogs.expect({.kind = ScriptedDialogs::Kind::Box,
                    .text = u"ОШИБКА. … of the fault routine, logged for "_s + place,
                    .type = Box::Stop,
                    .accepts = accepts},
                   where);
    runner.expectEnd();
}

QString ScreenTest::rowsOf(const Database& database, const QString& select)
{
    Recordset rows = database.OpenRecordset(select);
    QString result;
    for (int row = 0; row < rows.RecordCount(); ++row) {
        QStringList cells;
        for (const Value& value : rows.row(row)) {
            const bool midnight = value.moment().isValid() && value.moment().time() == QTime(0, 0);
            cells << (value.isNull() ? u"Null"_s : midnight ? value.date().toString(Qt::ISODate) : value.text());
        }
        result += cells.join(u" | ") + u'\n';
    }
    return result;
}
