#include "mainwindow/MainWindowTest.h"
#include "ui/ListBar.h"

TEST_F(MainWindow, OpensTheSearchForWhatTheCommandIsAbout)
{
    const std::pair<const char*, const char*> commands[] = {
        {"ID_DB_Search", "файлов/папок"}, {"ID_QuickPCFind", "файлов/папок"}, {"ID_QuickADFind", "треков"}};
    walk([&]() -> Script {
        for (const auto& [command, list] : commands) {
            expectForm("frmDBFind");
            co_await trigger(command);
            EXPECT_EQ(shown("cmbList"), list) << command;
            co_await key(Qt::Key_Escape);
        }
    });
}

TEST_F(MainWindow, AHitOpensTheListOfItsDisc)
{
    shelf.computer(3, "Debian").list(1, "A1", {"\\Docs\\", "\\Docs\\a.txt | 1", "\\Docs\\b.txt | 1"});
    walk([&]() -> Script {
        expectForm("frmDBFind");
        co_await trigger("ID_DB_Search");
        co_await type("txtSearchText", "b.t");
        co_await key(Qt::Key_Return);
        co_await until([&] { return enabled("txtSearchText"); });
        expectForm("frmFileList");
        co_await key(Qt::Key_Return);
        EXPECT_EQ(current("lvFiles") + ' ' + shown("lblName"), "b.txt | 1 Debian");
        co_await key(Qt::Key_Escape);
        EXPECT_EQ(focus(), "lvFind");
        co_await key(Qt::Key_Escape);
    });
}

TEST_F(MainWindow, AShortcutThatWasMadeStandsInTheListBar)
{
    walk([&]() -> Script {
        control<ListBar>("SSListBar").setFoldedGroups({"g4"});
        expectForm("frmCreateQuery");
        co_await trigger("ID_ToolbarEditAdd");
        co_await type("txtName", "Мой");
        co_await select("cmbQ1_0", "Название");
        co_await type("txtQuery_0", "x");
        co_await key(Qt::Key_Return);
        EXPECT_EQ(control<ListBar>("SSListBar").items("g4"), QStringList("Мой"));
        EXPECT_EQ(control<ListBar>("SSListBar").foldedGroups(), QStringList());
    });
}
