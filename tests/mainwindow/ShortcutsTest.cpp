// What the list bar does with the user's query shortcuts.
#include "mainwindow/MainWindowTest.h"
#include "ui/ListBar.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QFile>

class Shortcuts : public MainWindow {
protected:
    void SetUp() override
    {
        program.queries().write(u"Query", u"Count", u"3"_s);
        add(u"Новинки"_s, {u"And Номер > 1"_s, {}, u"And Название LIKE '*б*'"_s});
        add(u"Группы"_s, {}, u"AD"_s);
        add(u"Все"_s, {u"x"_s});
        shelf.computer(1, "Альбом");
        shelf.computer(2, "Былины");
        shelf.computer(3, "Речь");
    }
    void add(const QString& name, const QStringList& conditions, const QString& category = u"PC"_s)
    {
        const QString number = QString::number(++m_added);
        program.queries().write(number, u"Name", name);
        program.queries().write(name, u"Num", number);
        program.queries().write(name, u"Category", category);
        for (int i = 0; i < conditions.size(); ++i)
            program.queries().write(name, u"Query%1"_s.arg(i + 1), conditions[i]);
    }
    QString file()
    {
        QStringList lines;
        for (int n = 1; n <= 3; ++n) {
            const QString name = program.queries().read(QString::number(n), u"Name");
            lines += u"%1 %2 %3"_s.arg(n).arg(name, program.queries().read(name, u"Num"));
        }
        return lines.join(u", "_s);
    }
    QStringList items() { return control<ListBar>("SSListBar").items(u"g4"_s); }

private:
    int m_added = 0;
};

TEST_F(Shortcuts, AClickShowsWhatSatisfiesAllConditions)
{
    walk([&]() -> Script {
        expectForm("frmCatalogueAudioCD");
        co_await click("Группы");
        EXPECT_EQ(title(), u"Каталог Аудио дисков - Результат запроса"_s);
        co_await key(Qt::Key_Escape);
        expectForm("frmCataloguePCCD");
        co_await click("Новинки");
        EXPECT_EQ(title(), u"Каталог Компьютерных дисков - Результат запроса"_s);
        EXPECT_EQ(shown("lblCDsCount1"), u"1"_s);
        EXPECT_EQ(shown("txtName"), u"Былины"_s);
        co_await key(Qt::Key_Escape);
        expectForm("frmCataloguePCCD");
        co_await click("Все");
        EXPECT_EQ(shown("lblCDsCount1"), u"3"_s) << "a single character is no condition";
        co_await key(Qt::Key_Escape);

        program.queries().removeSection(u"Новинки"_s);
        expectBox("Запрос с именем 'Новинки' ее найден!", 48);
        co_await click("Новинки");
        program.queries().write(u"Все"_s, u"Query1", u"And Название = "_s);
        expectBox("Условие ярлыка 'Все' не читается:\r\nAnd Название =\r\n\r\nИзмените или удалите ярлык.", 48);
        co_await click("Все");
        program.queries().write(u"Все"_s, u"Query1", u"And Альбом = 'x'"_s); // of another catalogue
        expectBox("Условие ярлыка 'Все' не читается:\r\nAnd Альбом = 'x'\r\n\r\nИзмените или удалите ярлык.", 48);
        co_await click("Все");
        program.queries().write(u"Все"_s, u"Category", u"LP"_s);
        expectBox("Каталог 'LP' ярлыка 'Все' неизвестен.", 48);
        co_await click("Все");
    });
}

TEST_F(Shortcuts, TheMenuOfTheGroupChangesAndDeletesByMouseAndByKeyboard)
{
    const QString longOne = u"And Номер IN (0"_s + u", 1"_s.repeated(150) + u')';
    program.queries().write(u"Группы"_s, u"Query3", longOne);
    walk([&]() -> Script {
        expectPopup("ID_ToolbarEdit", "");
        co_await rightClick("Группы");
        EXPECT_TRUE(commandEnabled("ID_ToolbarEditDel"));
        EXPECT_TRUE(commandEnabled("ID_ToolbarEditChange"));
        expectPopup("ID_ToolbarEdit", "");
        co_await rightClick("Запрос");
        EXPECT_FALSE(commandEnabled("ID_ToolbarEditDel"));
        EXPECT_FALSE(commandEnabled("ID_ToolbarEditChange"));
        EXPECT_TRUE(commandEnabled("ID_ToolbarEditAdd"));
        co_await rightClick("Компьютерные диски");

        expectPopup("ID_ToolbarEdit", "ID_ToolbarEditChange");
        expectForm("frmCreateQuery");
        co_await rightClick("Группы");
        EXPECT_TRUE(checked("optCategory_0"));
        co_await type("txtName", "Хор");
        co_await select("cmbQ1_1", "Номер");
        co_await type("txtQuery_1", "5");
        co_await click("imgButton_0");
        EXPECT_EQ(items(), QStringList({u"Новинки"_s, u"Хор"_s, u"Все"_s}));
        EXPECT_EQ(focus(), "Хор");
        EXPECT_EQ(program.queries().read(u"Хор"_s, u"Query3", 1000), longOne);

        expectPopup("ID_ToolbarEdit", "ID_ToolbarEditDel");
        expectBox("Вы дейсвительно хотите удалить ярлык 'Новинки'?", 36, Answer::No);
        co_await rightClick("Новинки");
        EXPECT_EQ(items().size(), 3);
        expectPopup("ID_ToolbarEdit", "ID_ToolbarEditDel");
        expectBox("Вы дейсвительно хотите удалить ярлык 'Новинки'?", 36, Answer::Yes);
        co_await focusOn("Новинки");
        co_await key(Qt::Key_F10, Qt::ShiftModifier);
        EXPECT_EQ(items(), QStringList({u"Хор"_s, u"Все"_s}));
        EXPECT_EQ(focus(), "Хор");
        EXPECT_EQ(file(), u"1 Хор 1, 2 Все 2, 3  "_s);
        co_await picture("shortcuts");

        program.queries().removeSection(u"Query"_s);
        expectPopup("ID_ToolbarEdit", "ID_ToolbarEditDel");
        expectBox("Вы дейсвительно хотите удалить ярлык 'Все'?", 36);
        expectBox("Ошибка удаления ярлыка!", 48);
        co_await rightClick("Все");
        EXPECT_EQ(items().size(), 2);
    });
}
