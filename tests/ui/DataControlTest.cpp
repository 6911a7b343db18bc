#include "harness/FormTest.h"

#include "harness/Fakes.h"
#include "ui/DBGrid.h"
#include "ui/DataControl.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <gtest/gtest-spi.h>

namespace {
/// A browser in small: a grid, two boxes, and an account of what the control raises.
class Browser : public Form {
public:
    Browser(const Database& database) : Form(u"frmBrowser"_s, u"Обзор"_s)
    {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(DBGrid);
        layout->addWidget(txtName);
        layout->addWidget(txtDate);
        DBGrid->setColumns(
            {{.field = u"Номер"_s, .caption = u"№"_s, .width = 6}, {.field = u"Название"_s, .caption = u"Группа"_s}});
        DBGrid->setDataControl(dcDatabase);
        dcDatabase->bind(txtName, u"Название"_s);
        dcDatabase->bind(txtDate, u"Дата"_s, [](const Value& value) { return value.date().toString(u"dd.MM.yyyy"_s); });
        dcDatabase->setDatabase(database);
        dcDatabase->setRecordSource(u"SELECT * FROM Диски ORDER BY Номер"_s);
        connect(dcDatabase, &DataControl::Reposition, this, [this] { raised << dcDatabase->position(); });
        connect(DBGrid, &::DBGrid::typed, this, [this](const QString& text) { said << text; });
        connect(DBGrid, &::DBGrid::insertPressed, this, [this] { said << u"Ins"_s; });
        connect(DBGrid, &::DBGrid::deletePressed, this, [this] { said << u"Del"_s; });
        connect(DBGrid, &::DBGrid::rowDoubleClicked, this, [this] { said << u"twice"_s; });
    }

    ::DBGrid* DBGrid = named("DBGrid");
    QLineEdit* txtName = named("txtName");
    QLineEdit* txtDate = named("txtDate");
    DataControl* dcDatabase = new DataControl(this);
    QList<int> raised;
    QStringList said;

protected:
    void Form_Load() override { dcDatabase->Refresh(); }
};

class BoundRows : public FormTest {
protected:
    BoundRows()
    {
        engine.CreateDatabase(path);
        database = engine.OpenDatabase(path);
        database->CreateTable({.name = u"Диски"_s,
                               .fields = {{.name = u"Код"_s, .type = FieldType::Long, .counter = true},
                                          {.name = u"Номер"_s, .type = FieldType::Integer},
                                          {.name = u"Название"_s, .type = FieldType::Text, .size = 60},
                                          {.name = u"Дата"_s, .type = FieldType::Date}},
                               .primaryKey = u"Код"_s,
                               .relations = {}});
    }
    void fill(int count)
    {
        CommandScope scope(engine);
        Recordset rows = database->OpenRecordset(u"Диски");
        for (int i = 1; i <= count; ++i) {
            rows.AddNew();
            rows[u"Номер"] = i;
            rows[u"Название"] = u"Диск %1"_s.arg(i);
            if (i % 2) rows[u"Дата"] = QDate(2003, 1, 1).addDays(i - 1);
            rows.Update();
        }
        scope.end();
    }
    template<class Body> void open(Browser& form, const Body& body)
    {
        play([&] { form.ShowModal(dialogs); }, body);
    }

    QTemporaryDir folder;
    QString path = folder.filePath(u"rows.db"_s);
    FixedClock clock;
    DBEngine engine{clock};
    std::optional<Database> database;
};
}

TEST_F(BoundRows, GridControlAndBoxesGoInStepInBothDirections)
{
    fill(5);
    Browser form(*database);
    open(form, [&]() -> Script {
        EXPECT_EQ(shown("DBGrid"), "1 | Диск 1\n2 | Диск 2\n3 | Диск 3\n4 | Диск 4\n5 | Диск 5\n");
        EXPECT_EQ(current("DBGrid"), "1 | Диск 1");
        EXPECT_EQ(shown("txtDate"), "01.01.2003");
        co_await click("DBGrid", "Диск 4");
        EXPECT_EQ(shown("txtName"), "Диск 4");
        EXPECT_EQ(shown("txtDate"), "");
        co_await key(Qt::Key_Home);
        co_await key(Qt::Key_Down);
        co_await key(Qt::Key_End);
        EXPECT_TRUE(form.dcDatabase->FindFirst(u"Номер = ?"_s, {3}));
        EXPECT_FALSE(form.dcDatabase->FindFirst(u"Номер = 9"_s));
        EXPECT_EQ(current("DBGrid"), "3 | Диск 3");
        form.dcDatabase->MoveTo(99);
        EXPECT_EQ(current("DBGrid"), "5 | Диск 5");
        EXPECT_EQ(form.raised, (QList{0, 3, 0, 1, 4, 2, 4}));
    });
}

TEST_F(BoundRows, KeysOfTheScreenReachIt)
{
    fill(2);
    Browser form(*database);
    open(form, [&]() -> Script {
        co_await focusOn("DBGrid");
        co_await keys("Дq7");
        co_await key(Qt::Key_Insert);
        co_await key(Qt::Key_Delete);
        co_await doubleClick("DBGrid", "Диск 2");
        EXPECT_EQ(form.said.join(u' '), "Д q 7 Ins Del twice");
        EXPECT_EQ(current("DBGrid"), "2 | Диск 2");
        co_await key(Qt::Key_Tab);
        EXPECT_EQ(focus(), "txtName");
    });
}

TEST_F(BoundRows, ABoxBeingEditedIsNotOverwrittenByAMove)
{
    fill(3);
    Browser form(*database);
    open(form, [&]() -> Script {
        co_await type("txtName", "Дис");
        form.dcDatabase->MoveTo(1);
        EXPECT_EQ(shown("txtName"), "Дис");
        EXPECT_EQ(shown("txtDate"), "");
        co_await focusOn("txtDate");
        EXPECT_EQ(shown("txtName"), "Диск 2") << "what was typed led nowhere";
        form.dcDatabase->MoveTo(2);
        EXPECT_EQ(shown("txtName"), "Диск 3");
        co_await type("txtName", "x");
        form.dcDatabase->showRow();
        EXPECT_EQ(shown("txtName"), "Диск 3");
    });
}

TEST_F(BoundRows, RefreshGoesToTheFirstRowOrStaysOnTheSameOne)
{
    fill(4);
    Browser form(*database);
    open(form, [&]() -> Script {
        form.dcDatabase->MoveTo(2);
        database->Execute(u"DELETE FROM Диски WHERE Номер = 1");
        form.dcDatabase->RefreshInPlace();
        EXPECT_EQ(current("DBGrid"), "3 | Диск 3");
        EXPECT_EQ(form.dcDatabase->position(), 1);
        database->Execute(u"DELETE FROM Диски WHERE Номер = 3");
        form.dcDatabase->RefreshInPlace();
        EXPECT_EQ(shown("DBGrid"), "2 | Диск 2\n4 | Диск 4\n");
        EXPECT_EQ(current("DBGrid"), "2 | Диск 2");
        form.dcDatabase->MoveLast();
        form.dcDatabase->Refresh();
        EXPECT_EQ(current("DBGrid"), "2 | Диск 2");
        co_return;
    });
}

TEST_F(BoundRows, ChangedRowsAreReadAgainAndClosingEmptiesAll)
{
    fill(2);
    Browser form(*database);
    open(form, [&]() -> Script {
        const QAbstractItemModelTester tester(form.DBGrid->model(),
                                              QAbstractItemModelTester::FailureReportingMode::Fatal);
        Recordset& rows = form.dcDatabase->recordset();
        rows.Edit();
        rows[u"Название"] = u"Кино"_s;
        rows.Update();
        form.dcDatabase->RefreshInPlace();
        EXPECT_EQ(shown("DBGrid"), "1 | Кино\n2 | Диск 2\n");
        form.dcDatabase->setRecordSource(u"SELECT * FROM Диски WHERE Номер > 5"_s);
        form.dcDatabase->Refresh();
        EXPECT_EQ(shown("DBGrid"), "");
        EXPECT_EQ(shown("txtName"), "");
        EXPECT_FALSE(form.dcDatabase->hasRow());
        EXPECT_TRUE(form.dcDatabase->value(u"Номер").isNull());
        form.dcDatabase->close();
        EXPECT_THROW(form.dcDatabase->recordset(), RuntimeError);
        database.reset();
        EXPECT_NO_THROW(engine.Release(path));
        co_return;
    });
}

TEST_F(BoundRows, AnErrorWhilePaintingComesUpFromTheEventLoop)
{
    fill(2);
    Browser form(*database);
    bool broken = false;
    form.DBGrid->setColumns({{.field = u"Название"_s, .caption = {}, .format = [&](const Value& value) {
                                  if (broken) throw RuntimeError(3051, u"Диск исчез."_s);
                                  return value.text();
                              }}});
    EXPECT_NONFATAL_FAILURE(open(form,
                                 [&]() -> Script {
                                     broken = true;
                                     co_await act([&] { form.dcDatabase->RefreshInPlace(); });
                                     co_await key(Qt::Key_Tab);
                                 }),
                            "An exception left a routine: 3051: Диск исчез.");
}

TEST_F(BoundRows, OnlyTheRowsInViewAreRead)
{
    fill(2000);
    Browser form(*database);
    int read = 0;
    form.DBGrid->setColumns({{.field = u"Номер"_s, .caption = {}, .format = [&](const Value& value) {
                                  ++read;
                                  return value.text();
                              }}});
    open(form, [&]() -> Script {
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_End);
        EXPECT_EQ(current("DBGrid"), "2000");
        EXPECT_EQ(form.DBGrid->verticalScrollBar()->value(), form.DBGrid->verticalScrollBar()->maximum());
        EXPECT_LT(read, 500);
    });
}

TEST_F(BoundRows, TheCurrentRowStaysInViewWhenTheWindowShrinks)
{
    fill(50);
    Browser form(*database);
    open(form, [&]() -> Script {
        QScrollBar& bar = *form.DBGrid->verticalScrollBar();
        co_await act([&] { form.resize(400, 500); });
        form.dcDatabase->MoveTo(9);
        EXPECT_EQ(bar.value(), 0);
        co_await act([&] { form.resize(400, 220); });
        EXPECT_GT(bar.value(), 0);
        bar.setValue(30); // who has gone on from it stays where he looks
        co_await act([&] { form.resize(400, 180); });
        EXPECT_EQ(bar.value(), 30);
    });
}
