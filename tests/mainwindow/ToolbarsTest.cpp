#include "mainwindow/MainWindowTest.h"

#include <QMenuBar>
#include <QToolBar>

namespace {
class Toolbar : public MainWindow {
protected:
    Toolbar() { setOption(u"ConfirmExit"_s, u"0"_s); }
    QToolBar& bar(const char* name) { return *runner.window().findChild<QToolBar*>(QString(name)); }
    QString tools(const char* name)
    {
        QStringList ids;
        for (const QAction* tool : bar(name).actions()) ids += tool->objectName();
        return ids.join(u' ');
    }
    /// Toolbars from the top left on, as they are seen.
    QString seen()
    {
        QList<QToolBar*> bars = runner.window().findChildren<QToolBar*>();
        bars.removeIf([](const QToolBar* bar) { return !bar->isVisible(); });
        const auto at = [](const QToolBar* bar) { return std::pair(bar->y(), bar->x()); };
        std::ranges::sort(bars, {}, at);
        QString text;
        int line = bars.isEmpty() ? 0 : bars[0]->y();
        for (const QToolBar* bar : bars) {
            text += text.isEmpty() ? QString() : bar->y() == line ? u" "_s : u" / "_s;
            text += bar->objectName();
            line = bar->y();
        }
        return text;
    }
    Script leave()
    {
        expectEnd();
        co_await closeForm();
    }
};
}

TEST_F(Toolbar, ChosenToolsComeInTheirOrderAndComeBackAtTheNextStart)
{
    walk([&]() -> Script {
        expectForm("frmToolbars");
        co_await trigger("ID_View_Toolbars_Option");
        EXPECT_EQ(sharedMnemonics(), QString());
        EXPECT_EQ(shown("lvTools").section(u'\n', 0, 3),
                  u"[x] Добавить\n[x] Аудио диски\n[x] Компьютерные диски\n[x] DVD диски"_s);
        EXPECT_FALSE(enabled("cmdUp"));
        co_await picture("toolbars");
        co_await check("lvTools", "Аудио диски", false);
        co_await check("lvTools", "Экспорт: HTML-файл", true);
        co_await focusOn("lvTools");
        co_await key(Qt::Key_Home);
        co_await key(Qt::Key_Down, Qt::ControlModifier);
        co_await key(Qt::Key_Down, Qt::ControlModifier);
        co_await select("cmbToolbar", "Устройство");
        co_await check("lvTools", "Извлечь", false);
        co_await select("cmbToolbar", "Каталоги");
        EXPECT_TRUE(checked("lvTools", "Экспорт: HTML-файл"));
        co_await click("imgButton_0");
        EXPECT_EQ(tools("Каталоги"), u"ID_Catalog_PCCD ID_AddCD ID_Catalog_DVD ID_DB_ExportHTML"_s);
        EXPECT_TRUE(visible("ID_DB_DefaultCDDVDROM"));
        co_await leave();
    });
    walk([&]() -> Script {
        EXPECT_EQ(tools("Каталоги"), u"ID_Catalog_PCCD ID_AddCD ID_Catalog_DVD ID_DB_ExportHTML"_s);
        EXPECT_EQ(tools("Устройство"), u"ID_DB_DefaultCDDVDROM ID_Drive_Insert"_s);
        EXPECT_EQ(shown("ID_DB_DefaultCDDVDROM"), u"V:\\"_s);
        expectForm("frmToolbars");
        co_await trigger("ID_View_Toolbars_Option");
        co_await click("cmdReset");
        co_await key(Qt::Key_Escape);
        EXPECT_EQ(tools("Устройство"), u"ID_DB_DefaultCDDVDROM ID_Drive_Insert"_s);
        expectForm("frmToolbars");
        co_await trigger("ID_View_Toolbars_Option");
        co_await click("cmdReset");
        co_await click("imgButton_0");
        EXPECT_EQ(tools("Каталоги"), u"ID_AddCD ID_Catalog_AudioCD ID_Catalog_PCCD ID_Catalog_DVD"_s);
        EXPECT_TRUE(visible("ID_DB_DefaultCDDVDROM"));
    });
}

TEST_F(Toolbar, MovedAndHiddenOnesStandWhereTheyWereLeft)
{
    walk([&]() -> Script {
        auto& window = dynamic_cast<frmMain&>(runner.window());
        EXPECT_EQ(seen(), u"Каталоги Должники База данных Устройство"_s);
        co_await act([&] {
            window.insertToolBar(&bar("Каталоги"), &bar("База данных"));
            window.insertToolBarBreak(&bar("Устройство"));
            window.addToolBar(Qt::LeftToolBarArea, &bar("Каталоги"));
        });
        co_await trigger("ID_View_Toolbars_Due");
        EXPECT_EQ(seen(), u"База данных / Устройство / Каталоги"_s);
        co_await leave();
    });
    walk([&]() -> Script {
        EXPECT_EQ(seen(), u"База данных / Устройство / Каталоги"_s);
        EXPECT_EQ(bar("Каталоги").orientation(), Qt::Vertical);
        EXPECT_FALSE(ticked(u"ID_View_Toolbars_Due"_s));
        co_await trigger("ID_View_Toolbars_Due");
        EXPECT_EQ(seen(), u"База данных Должники / Устройство / Каталоги"_s);
        co_await leave();
    });

    // What is unknown is passed over.
    SaveToolbarLayout(
        path(u"vinora.atb"_s),
        {.toolbars = {{.name = u"Устройство"_s, .visible = false, .tools = {u"?"_s, u"ID_Quit"_s, u"ID_Quit"_s}},
                      {.name = u"?"_s}}});
    walk([&]() -> Script {
        EXPECT_EQ(seen(), u"Каталоги Должники База данных"_s);
        EXPECT_EQ(tools("Устройство"), u"ID_Quit"_s);
        co_await trigger("ID_View_Toolbars_Drive");
        EXPECT_TRUE(bar("Устройство").isVisible());
        EXPECT_EQ(tools("Должники"), u"ID_Due_List ID_Due_DiskHistory ID_Due_Stat ID_Due_Admin"_s);
    });
}

TEST_F(Toolbar, F10GivesTheKeyboardToTheMenuBarAndBack)
{
    walk([&]() -> Script {
        auto& menuBar = *dynamic_cast<frmMain&>(runner.window()).menuBar();
        co_await focusOn("ID_DB_DefaultCDDVDROM");
        co_await key(Qt::Key_F10);
        EXPECT_TRUE(menuBar.hasFocus());
        EXPECT_TRUE(menuBar.activeAction());
        co_await key(Qt::Key_F10);
        EXPECT_EQ(focus(), u"ID_DB_DefaultCDDVDROM"_s);
    });
}
