#include "mainwindow/MainWindowTest.h"

#include <QFile>

TEST_F(MainWindow, OptionsActOnTheWindowAsSoonAsTheyClose)
{
    shelf.computer(1, "Debian").lent("Иванов", "2003-10-01", {}, "2003-11-01");
    drives.add('D', FakeDisc::data("A", 1));
    putIn();
    watch();
    setOption(u"Drive"_s, u"D:\\"_s);
    walk([&]() -> Script {
        EXPECT_TRUE(visible("fraFindDuePC"));
        expectForm("frmOption");
        co_await trigger("ID_DB_Option");
        co_await select("cmbDrive", "V:\\");
        co_await select("tabOption", "Должники");
        co_await check("chCheckDueOnStartup", false);
        co_await click("imgButton_0");
        EXPECT_EQ(shown("ID_DB_DefaultCDDVDROM"), u"V:\\"_s);
        EXPECT_FALSE(visible("fraFindDuePC"));
        co_await advance(1000);
        EXPECT_TRUE(visible("lblNewPC")) << "the watch looks into the other drive";
    });
}

TEST_F(MainWindow, HelpOpensOnTheDesktopOrSaysWhyNot)
{
    walk([&]() -> Script {
        expectBox("Файл 'readme.txt' не найден!", 48);
        co_await trigger("ID_Help_Info");
        expectBox("Файл справки не найден!", 48);
        co_await trigger("ID_Help_Index");
        co_await act([&] {
            for (const QString& name : {u"readme.txt"_s, u"vinora.chm"_s})
                EXPECT_TRUE(QFile(path(name)).open(QFile::WriteOnly));
        });
        co_await trigger("ID_Help_Info");
        co_await key(Qt::Key_F1);
        desktop.obeys = false;
        expectBox(u"Не удалось открыть файл '%1'.\rРабочий стол занят."_s.arg(path("readme.txt")), 48);
        co_await trigger("ID_Help_Info");
        desktop.obeys = true;

        expectForm("frmHelp");
        co_await trigger("ID_Help_About");
        EXPECT_EQ(shown("lblVersion"), u"vinora 1.0 build 0"_s);
        co_await picture("about");
        co_await click("lblURL");
        desktop.obeys = false;
        expectBox("Не удалось открыть адрес 'mailto:support@vinora.example'.\rРабочий стол занят.", 48);
        co_await click("lblEMail");
        co_await click("cmdClose");
    });
    EXPECT_EQ(desktop.opened, QStringList({u"file "_s + path("readme.txt"), u"file "_s + path("vinora.chm"),
                                           u"file "_s + path("readme.txt"), u"link https://vinora.example/"_s,
                                           u"link mailto:support@vinora.example"_s}));
}
