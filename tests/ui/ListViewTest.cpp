#include "harness/FormTest.h"

#include "ui/ListView.h"

#include <QAbstractItemModelTester>
#include <QVBoxLayout>

namespace {
class ListForm : public Form {
public:
    ListForm() : Form(u"frmList"_s, u"Список"_s)
    {
        (new QVBoxLayout(this))->addWidget(lvFiles);
        lvFiles->setColumns({{u"Имя"_s}, {u"Размер"_s, 10, Qt::AlignRight}});
        lvFiles->setSortable(true);
        connect(lvFiles, &ListView::rowClicked, this, [this](int row) { note(u"click"_s, row); });
        connect(lvFiles, &ListView::rowActivated, this, [this](int row) { note(u"activate"_s, row); });
        connect(lvFiles, &ListView::rowChecked, this, [this](int row, bool on) { note(on ? u"on"_s : u"off"_s, row); });
        connect(lvFiles, &ListView::columnClicked, this, [this](int column) { note(u"column"_s, column); });
    }
    void note(const QString& what, int where) { said << what + QString::number(where); }
    QString takeSaid() { return std::exchange(said, {}).join(u' '); }

    ListView* lvFiles = named("lvFiles");
    QStringList said;
};

class ReportList : public FormTest {
protected:
    ReportList() { form.lvFiles->setRows({{{"б", "10"}}, {{"Ё", "9"}}, {{"z", "10"}}, {{"а", "9"}}}); }
    template<class Body> void open(const Body& body)
    {
        play([&] { form.ShowModal(dialogs); }, body);
    }
    ListForm form;
};
}

TEST_F(ReportList, SortsByCaptionsAsTextAndKeepsTheCurrentRow)
{
    open([&]() -> Script {
        EXPECT_EQ(shown("lvFiles"), "б | 10\nЁ | 9\nz | 10\nа | 9\n");
        co_await click("lvFiles", "Ё");
        co_await clickHeader("lvFiles", "Имя");
        EXPECT_EQ(shown("lvFiles"), "z | 10\nа | 9\nб | 10\nЁ | 9\n");
        EXPECT_EQ(current("lvFiles"), "Ё | 9");
        co_await clickHeader("lvFiles", "Имя");
        EXPECT_EQ(shown("lvFiles"), "Ё | 9\nб | 10\nа | 9\nz | 10\n");
        co_await clickHeader("lvFiles", "Размер");
        EXPECT_EQ(shown("lvFiles"), "б | 10\nz | 10\nЁ | 9\nа | 9\n");
        EXPECT_EQ(form.lvFiles->SortKey(), 1);
        form.lvFiles->addRow({{"в", "100"}});
        EXPECT_EQ(form.lvFiles->text(2), "в");
        EXPECT_EQ(form.takeSaid(), "click1 column0 column0 column1");
    });
}

TEST_F(ReportList, RowsAnswerToMouseAndKeys)
{
    open([&]() -> Script {
        co_await click("lvFiles", "б");
        co_await key(Qt::Key_Down);
        co_await key(Qt::Key_Return);
        EXPECT_EQ(form.takeSaid(), "click0 click1 activate1");
        co_await doubleClick("lvFiles", "z");
        EXPECT_TRUE(form.takeSaid().endsWith("activate2"));
        form.lvFiles->setCurrentRow(3);
        EXPECT_EQ(form.takeSaid(), "");
        EXPECT_EQ(current("lvFiles"), "а | 9");
    });
}

TEST_F(ReportList, TicksAreToldWhenTheUserSetsThem)
{
    form.lvFiles->setCheckable(true);
    open([&]() -> Script {
        co_await check("lvFiles", "z");
        form.lvFiles->setChecked(0, true);
        EXPECT_EQ(form.takeSaid(), "on2");
        EXPECT_EQ(shown("lvFiles"), "[x] б | 10\n[ ] Ё | 9\n[x] z | 10\n[ ] а | 9\n");
        form.lvFiles->checkAll(false);
        EXPECT_FALSE(form.lvFiles->isChecked(2));
        co_return;
    });
}

TEST_F(ReportList, BehavesAsAModelAndOutsideOfItsRows)
{
    const QAbstractItemModelTester tester(form.lvFiles->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    ListView& list = *form.lvFiles;
    list.setSortable(true);
    list.sortBy(0, Qt::DescendingOrder);
    list.addRow({{"г"}, {}, 42});
    EXPECT_EQ(list.findData(42), 1); // behind Ё, which stands beside Е
    list.setText(1, 1, u"5"_s);
    EXPECT_EQ(list.text(1, 1), "5");
    list.removeRow(1);
    list.removeRow(99);
    list.setChecked(-1, true);
    EXPECT_EQ(list.rowCount(), 4);
    EXPECT_EQ(list.find(u"нет"_s), -1);
    EXPECT_TRUE(list.row(-1).texts.isEmpty());
    list.clear();
    EXPECT_EQ(list.rowCount(), 0);
}
