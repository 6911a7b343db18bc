#include "mainwindow/MainWindowTest.h"

TEST_F(MainWindow, OpensTheScreensOfLending)
{
    const std::pair<const char*, const char*> commands[] = {{"ID_Due_DiskHistory", "frmDiskHistory"},
                                                            {"ID_Due_Stat", "frmDueStat"},
                                                            {"ID_Due_EditNames", "frmEditDue"},
                                                            {"ID_Due_Admin", "frmAddInDueFromMain"}};
    const std::pair<const char*, const char*> quick[] = {{"ID_QuickADNewDue", "optCategory_0"},
                                                         {"ID_QuickPCNewDue", "optCategory_1"}};
    shelf.dvd(2, "Солярис").lent("Иванов", "2003-10-01", {}, "2003-10-02");
    walk([&]() -> Script {
        EXPECT_TRUE(visible("fraFindDueDVD"));
        for (const auto& [command, form] : commands) {
            expectForm(form);
            co_await trigger(command);
            co_await key(Qt::Key_Escape);
        }
        for (const auto& [command, category] : quick) {
            expectForm("frmAddInDueFromMain");
            co_await trigger(command);
            EXPECT_TRUE(checked(category)) << command;
            co_await key(Qt::Key_Escape);
        }
        expectForm("frmAddInDueFromMain");
        co_await trigger("ID_QuickDVDNewDue");
        co_await click("optMethod_1");
        expectForm("frmSelectCD");
        co_await click("imgButton_2");
        co_await key(Qt::Key_Return);
        expectBox("Подтвердите удаление должника на Компьютерный диск № 2:\r'Солярис'\rДолжник: Иванов", 33,
                  Answer::Ok);
        expectBox("Операция успешно завершена!", 64);
        co_await key(Qt::Key_Return);
        co_await key(Qt::Key_Escape);
        EXPECT_FALSE(visible("fraFindDueDVD")) << "the signs follow";
    });
}
