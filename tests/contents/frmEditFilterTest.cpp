#include "contents/frmEditFilter.h"
#include "harness/ScreenTest.h"

namespace {

class EditFilter : public ScreenTest {
protected:
    QString wanted() const { return fileRows("SELECT Файл, Use FROM Фильтр2 ORDER BY Файл"); }
};

}

TEST_F(EditFilter, ShowsEitherTableWithItsCount)
{
    FilterTable(program.filesDatabase(), true).use(".zip", false);
    run<frmEditFilter>([&]() -> Script {
        EXPECT_EQ(title(), "Фильтр файлов");
        EXPECT_EQ(shown("lblInfo"), "Отмеченные файлы не будут включены в создаваемую структуру диска");
        EXPECT_EQ(shown("lvFilter"),
                  "[x] .diz\n[x] .doc\n[x] .htm\n[x] .inf\n[x] .ini\n[x] .log\n[x] .nfo\n[x] .txt\n");
        co_await picture("frmEditFilter");
        co_await click("optFilter_1");
        EXPECT_EQ(shown("lblInfo"), "Только отмеченные файлы будут включены в создаваемую структуру диска");
        EXPECT_EQ(shown("lvFilter"), "[x] .exe\n[x] .rar\n[ ] .zip\n");
        EXPECT_EQ(current("lvFilter"), "[x] .exe");
        co_await clickHeader("lvFilter", "Файлы (3)");
        co_await click("imgButton_0");
    });
}

TEST_F(EditFilter, ATickIsSavedAtOnce)
{
    run<frmEditFilter>([&]() -> Script {
        co_await click("optFilter_1");
        co_await check("lvFilter", ".rar", false);
        EXPECT_EQ(wanted(), ".exe | -1\n.rar | 0\n.zip | -1\n");
        co_await click("cmdDeselect");
        EXPECT_EQ(wanted(), ".exe | 0\n.rar | 0\n.zip | 0\n");
        EXPECT_EQ(shown("lvFilter"), "[ ] .exe\n[ ] .rar\n[ ] .zip\n");
        co_await click("cmdSelect");
        EXPECT_EQ(wanted(), ".exe | -1\n.rar | -1\n.zip | -1\n");
    });
}

TEST_F(EditFilter, AddsWhatIsNotThereYet)
{
    run<frmEditFilter>([&]() -> Script {
        co_await click("optFilter_1");
        expectInput("Введите имя файла:", "Добавление нового файла", ".EXE");
        expectBox("Файл '.EXE' уже существует. Ввести другое?", 36, Answer::Yes);
        expectInput("Введите имя файла:", "Добавление нового файла", "3\" disk");
        co_await click("imgButton_1");
        EXPECT_EQ(current("lvFilter"), "[x] 3\" disk");
        EXPECT_EQ(wanted(), ".exe | -1\n.rar | -1\n.zip | -1\n3\" disk | -1\n");

        expectInput("Введите имя файла:", "Добавление нового файла", ".rar");
        expectBox("Файл '.rar' уже существует. Ввести другое?", 36, Answer::No);
        co_await click("imgButton_1");
        expectInput("Введите имя файла:", "Добавление нового файла", "");
        co_await click("imgButton_1");
        EXPECT_EQ(fileRows("SELECT COUNT(*) FROM Фильтр2"), "4\n");
    });
}

TEST_F(EditFilter, TheFiftyFirstEntryIsRefusedBeforeItsNameIsAsked)
{
    for (int i = 0; i < 47; ++i) FilterTable(program.filesDatabase(), true).add(u"%1"_s.arg(i));
    run<frmEditFilter>([&]() -> Script {
        co_await click("optFilter_1");
        expectBox("Количество файлов не должно превышать 50!", 48);
        co_await click("imgButton_1");
    });
}

TEST_F(EditFilter, ChangesANameByButtonOrDoubleClickAndKeepsItsTick)
{
    FilterTable(program.filesDatabase(), true).use(".zip", false);
    run<frmEditFilter>([&]() -> Script {
        co_await click("optFilter_1");
        expectInputOffering(".zip", "Измените имени файла:", "Изменение имени файла", ".rar");
        expectBox("Файл '.rar' уже существует. Ввести другое?", 36, Answer::Yes);
        expectInputOffering(".zip", "Измените имени файла:", "Изменение имени файла", ".7z");
        co_await doubleClick("lvFilter", ".zip");
        EXPECT_EQ(current("lvFilter"), "[ ] .7z");
        EXPECT_EQ(wanted(), ".7z | 0\n.exe | -1\n.rar | -1\n");
        expectInputOffering(".7z", "Измените имени файла:", "Изменение имени файла", "");
        co_await click("imgButton_3");
    });
}

TEST_F(EditFilter, CommandsFollowWhetherThereIsAnything)
{
    for (const QString name : {".exe", ".zip"}) FilterTable(program.filesDatabase(), true).remove(name);
    run<frmEditFilter>([&]() -> Script {
        co_await click("optFilter_1");
        expectBox("Вы действительно хотите удалить файл '.rar'?", 36, Answer::No);
        co_await click("imgButton_2");
        EXPECT_TRUE(enabled("imgButton_3"));
        expectBox("Вы действительно хотите удалить файл '.rar'?", 36, Answer::Yes);
        co_await click("imgButton_2");
        for (const QString command : {"cmdSelect", "cmdDeselect", "imgButton_2", "imgButton_3"})
            EXPECT_FALSE(enabled(command)) << qPrintable(command);
        EXPECT_EQ(wanted(), "");
        expectInput("Введите имя файла:", "Добавление нового файла", ".iso");
        co_await click("imgButton_1");
        EXPECT_TRUE(enabled("cmdSelect"));
        EXPECT_TRUE(enabled("imgButton_2"));
    });
}
