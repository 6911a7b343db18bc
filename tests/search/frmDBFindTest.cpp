#include "search/frmDBFind.h"

#include "harness/ScreenTest.h"

#include <QAbstractItemModelTester>

namespace {

class DBFind : public ScreenTest {
protected:
    DBFind()
    {
        shelf.computer(7, "Debian").discs(3).list(1, "A1", {"\\", "\\Readme.txt | 1", "\\Docs\\"});
        shelf.computer(9, "Игры").discs(2).list(2, "B2", {"\\docs.zip | 1", "\\Docs\\", "\\Docs\\Docs.txt | 1 | меня"});
        shelf.audio(7, "Кино", "Ночь").discs(3).list(3, "C3", {"Мама", "мамА мы"});
    }

    Script find(const char* text)
    {
        co_await type("txtSearchText", text);
        co_await click("imgButton_1");
        co_await ended();
    }
    Script ended()
    {
        co_await until([&] { return enabled("txtSearchText"); });
    }
    QString columns()
    {
        const QAbstractItemModel& model = *control<HitList>("lvFind").model();
        QStringList captions;
        for (int i = 0; i < model.columnCount(); ++i) captions += model.headerData(i, Qt::Horizontal).toString();
        return captions.join(' ');
    }
    QString logged()
    {
        QFile log(path("bugreport.log"));
        return log.open(QFile::ReadOnly) ? QString::fromLatin1(log.readAll()) : QString();
    }
};

}

TEST_F(DBFind, ShowsHitsOfFilesAndOpensTheirListAtThem)
{
    run<frmDBFind>([&]() -> Script {
        EXPECT_EQ(title() + ' ' + focus() + ' ' + shown("lblResult"), "Поиск txtSearchText Результат поиска:");
        EXPECT_EQ(shown("optSearchMethod_0") + ", " + shown("optSearchMethod_1"), "в файлах, в папках");
        EXPECT_TRUE(program.shared.OpenedFromSearch);
        EXPECT_EQ(sharedMnemonics(), "");
        EXPECT_EQ(columns(), "Имя файла № Путь");
        co_await picture("frmDBFind-empty");
        co_await find("DOC");
        EXPECT_EQ(shown("lvFind"), "docs.zip | 9 (2) | ...\nDocs.txt | 9 (2) | \\Docs\\\n");
        EXPECT_EQ(shown("lblResult"), "Результат поиска (найдено файлов: 2):");
        EXPECT_EQ(focus() + ": " + shown("txtNoFile"), "lvFind: Диск № 9 (2 из 2): Игры");
        co_await picture("frmDBFind");
        co_await doubleClick("lvFind", "Docs.txt");
        EXPECT_EQ(screens.opened.value(0), "ShowFileList 9 \"Игры\" disc 2 of 2");
        EXPECT_EQ(screens.lastRequest.place->folder + ' ' + screens.lastRequest.place->name, "\\Docs\\ Docs.txt");

        expectBox("Нет таких файлов!", 48);
        co_await find("нет");
        EXPECT_EQ(shown("txtNoFile"), "");

        co_await check("chCommentOnly", true);
        co_await find("МЕНЯ");
        EXPECT_EQ(shown("lvFind"), "Docs.txt | 9 (2) | \\Docs\\\n");
        co_await click("imgButton_2");
        EXPECT_EQ(shown("lvFind") + shown("txtNoFile") + shown("txtSearchText") + shown("lblResult"),
                  "Результат поиска:");
        EXPECT_EQ(focus(), "txtSearchText");
    });
    EXPECT_FALSE(program.shared.OpenedFromSearch);
}

TEST_F(DBFind, FoldersAreOpenedWithoutAFile)
{
    run<frmDBFind>([&]() -> Script {
        const QAbstractItemModelTester tester(control<HitList>("lvFind").model(),
                                              QAbstractItemModelTester::FailureReportingMode::Fatal);
        co_await click("optSearchMethod_1");
        EXPECT_EQ(columns(), "Имя папки № Путь");
        co_await find("");
        EXPECT_EQ(shown("lvFind"), "\\      | 7     | ...\n\\Docs\\ | 7     | \\Docs\\\n\\Docs\\ | 9 (2) | \\Docs\\\n");
        co_await clickHeader("lvFind", "№");
        co_await clickHeader("lvFind", "№");
        co_await until([&] { return !control<HitList>("lvFind").sorting(); });
        EXPECT_TRUE(shown("lvFind").startsWith("\\Docs\\ | 9 (2) | \\Docs\\\n\\"));
        EXPECT_EQ(current("lvFind"), "\\ | 7 | ...");
        co_await key(Qt::Key_End);
        co_await key(Qt::Key_Return);
        EXPECT_EQ(screens.opened.value(0), "ShowFileList 7 \"Debian\" disc 1 of 3");
        EXPECT_EQ(screens.lastRequest.place->folder + '|' + screens.lastRequest.place->name, "\\Docs\\|");
        expectBox("Нет таких папок!", 48);
        co_await find("нет");
        EXPECT_EQ(shown("lblResult"), "Результат поиска:");
        EXPECT_EQ(focus() + control<QLineEdit>("txtSearchText").selectedText(), "txtSearchTextнет");
    });
}

TEST_F(DBFind, TracksHaveTheirOwnWordsAndNeitherFoldersNorComments)
{
    run<frmDBFind>(
        [&]() -> Script {
            EXPECT_EQ(items("cmbList"), "файлов/папок\nтреков\n");
            EXPECT_EQ(shown("cmbList") + ", " + shown("optSearchMethod_0"), "треков, в треках");
            EXPECT_FALSE(enabled("optSearchMethod_1") || enabled("chCommentOnly"));
            EXPECT_EQ(columns(), "Название трека №");
            co_await find("мама");
            EXPECT_EQ(shown("lvFind"), "Мама    | 7 (3)\nмамА мы | 7 (3)\n");
            EXPECT_EQ(shown("lblResult"), "Результат поиска (найдено треков: 2):");
            EXPECT_EQ(shown("txtNoFile"), "Диск № 7 (3 из 3): Кино - Ночь");
            co_await doubleClick("lvFind", "мамА мы");
            EXPECT_EQ(screens.opened.value(0), "ShowTrackList 7 \"Кино\" disc 3 of 3");
            EXPECT_EQ(screens.lastRequest.place->name + screens.lastRequest.album, "мамА мыНочь");

            co_await select("cmbList", "файлов/папок");
            EXPECT_EQ(columns(), "Название трека №"); // of the hits
            EXPECT_TRUE(enabled("optSearchMethod_1"));
            co_await select("cmbList", "треков");
            expectBox("Нет таких треков!", 48);
            co_await find("нет");
            EXPECT_EQ(shown("lblNoHits"), "Ничего не найдено");
            program.mainDatabase().Execute(u"UPDATE Компьютер SET ДискID1 = NULL, ДискID2 = NULL"_s);
            co_await select("cmbList", "файлов/папок");
            expectBox("Нет таких файлов!", 48);
            co_await find("нет");
            EXPECT_EQ(shown("lblNoHits"), "Ни у одного диска каталога нет списка");
            co_await click("imgButton_2");
            EXPECT_TRUE(shown("lblNoHits").startsWith("Введите текст"));
        },
        "AD");
}

TEST_F(DBFind, AMissingListIsLoggedOnceAndAQuotationMarkIsToldWithoutEndingTheProgram)
{
    shelf.computer(10, "a").list(1, "D1", {"\\qq | 1"}).set("ДискID2", u"FF").set("ДискID3", u"FF");
    run<frmDBFind>([&]() -> Script {
        co_await find("qq");
        EXPECT_EQ(shown("lvFind"), "qq | 10 | ...\n");
        EXPECT_TRUE(logged().endsWith(" frmDBFind, doFile()\r\n")) << qPrintable(logged());
        EXPECT_EQ(logged().count("3078"), 1);
        EXPECT_EQ(shown("lblProgress"), "Просмотрено дисков: 5 из 5, не читается списков: 1");
        expectBox(
            "ОШИБКА.\n\nОшибка в условии поиска: «Имя LIKE \"*3\"*\"». Уберите кавычки из текста поиска. (Код: "
            "3077)\n\nОтправьте на адрес support@vinora.example файл bugreport.log (расположен в каталоге "
            "установленной программы). Файл содержит информацию, которая поможет исправить эту ошибку. В сообщении "
            "укажите последовательность Ваших действий до возникновения ошибки.",
            16);
        co_await find("3\"");
        EXPECT_EQ(logged().count("3077"), 1);
        EXPECT_EQ(focus() + shown("lvFind") + shown("lblProgress"), "txtSearchText");
        EXPECT_TRUE(visible("lblNoHits"));
        co_await find("zip");
        EXPECT_EQ(shown("lvFind"), "docs.zip | 9 (2) | ...\n");

        for (int number = 20; number < 60; ++number)
            shelf.computer(number, "a").set("ДискID1", QString("нет%1").arg(number));
        const qsizetype before = logged().count('\n');
        co_await find("zip");
        EXPECT_EQ(logged().count('\n') - before, 21);
    });
}

TEST_F(DBFind, WhileItRunsItCanBeStoppedByTheButtonOrEscOrClosedAndNothingElseActs)
{
    QStringList lines;
    for (int i = 0; i < 2000; ++i) lines += QString("\\x%1 | 1").arg(i);
    {
        const CommandScope scope(engine);
        ShelfDisc disc = shelf.computer(11, "много").discs(6);
        for (int k = 1; k <= 6; ++k) disc.list(k, QString("E%1").arg(k), lines);
        for (int number = 12; number < 600; ++number) {
            ShelfDisc other = shelf.computer(number, "много");
            for (int k = 1; k <= 6; ++k) other.set(QString("ДискID%1").arg(k), QString("E%1").arg(k));
        }
    }
    run<frmDBFind>([&]() -> Script {
        const auto walked = [&] { return control<QProgressBar>("prbDiscs").value(); };
        for (const bool esc : {true, false}) {
            co_await type("txtSearchText", "x1999");
            co_await click("imgButton_1");
            EXPECT_EQ(shown("imgButton_1"), "Остановить");
            for (const QString input : {"txtSearchText", "cmbList", "chWholeWord", "imgButton_2", "optSearchMethod_0",
                                        "optSearchMethod_1", "chCommentOnly"})
                EXPECT_FALSE(enabled(input)) << qPrintable(input);
            co_await until([&] { return walked() > 0; });
            EXPECT_TRUE(shown("lblProgress").startsWith(QString("Просмотрено дисков: %1 из").arg(walked())));
            co_await key(Qt::Key_Home);
            co_await key(Qt::Key_Return);
            co_await doubleClick("lvFind", "x1999");
            co_await clickHeader("lvFind", "№");
            EXPECT_FALSE(control<HitList>("lvFind").sorting() || !screens.opened.isEmpty());
            EXPECT_EQ(shown("imgButton_1"), "Остановить");
            if (esc)
                co_await key(Qt::Key_Escape);
            else
                co_await click("imgButton_1");
            EXPECT_EQ(windowName() + ' ' + shown("imgButton_1"), "frmDBFind Найти");
            EXPECT_TRUE(shown("lblProgress").endsWith(", поиск остановлен"));
        }
        co_await click("imgButton_1");
        co_await closeForm(); // at once
    });
    EXPECT_FALSE(program.shared.OpenedFromSearch);
}
