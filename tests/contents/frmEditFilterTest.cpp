#include "contents/frmEditFilter.h"
#include "harness/ScreenTest.h"

namespace {

class EditFilter : public ScreenTest {
protected:
    QString wanted() const { return fileRows("SELECT Файл, Use FROM Фильтр2 ORDER BY Файл"); }
};

}

TEST_F(EditFilter, ShowsEitherTableAndSavesATickAtOnce)
{
    run<frmEditFilter>([&]() -> Script {
        EXPECT_EQ(title(), "Фильтр файлов");
        EXPECT_EQ(shown("lblInfo"), "Отмеченные файлы не будут включены в создаваемую структуру диска");
        EXPECT_EQ(shown("lvFilter"),
                  "[x] .diz\n[x] .doc\n[x] .htm\n[x] .inf\n[x] .ini\n[x] .log\n[x] .nfo\n[x] .txt\n");
        co_await picture("frmEditFilter");
        co_await click("optFilter_1");
        EXPECT_EQ(shown("lblInfo"), "Только отмеченные файлы будут включены в создаваемую структуру диска");
        EXPECT_EQ(current("lvFilter"), "[x] .exe");
        co_await clickHeader("lvFilter", "Файлы (3)");
        co_await check("lvFilter", ".rar", false);
        EXPECT_EQ(wanted(), ".exe | -1\n.rar | 0\n.zip | -1\n");
        co_await click("cmdDeselect");
        EXPECT_EQ(wanted(), ".exe | 0\n.rar | 0\n.zip | 0\n");
        EXPECT_EQ(shown("lblHint"), "Ничего не отмечено: в список не войдет ни один файл.");
        co_await click("cmdSelect");
        EXPECT_EQ(wanted(), ".exe | -1\n.rar | -1\n.zip | -1\n");
        EXPECT_EQ(shown("lvFilter"), "[x] .exe\n[x] .rar\n[x] .zip\n");
        co_await click("imgButton_0");
    });
}

TEST_F(EditFilter, AddsUpToFiftyAndChangesWhatIsNotThereYet)
{
    const FilterTable filter(program.filesDatabase(), true);
    filter.use(".zip", false);
    for (int i = 3; i < 49; ++i) filter.add(QString::number(i));
    const QString add = "Введите имя файла:", adding = "Добавление нового файла";
    const QString change = "Измените имени файла:", changing = "Изменение имени файла";
    run<frmEditFilter>([&]() -> Script {
        co_await click("optFilter_1");
        expectInput(add, adding, ".EXE");
        expectBox("Файл '.EXE' уже существует. Ввести другое?", 36, Answer::No);
        co_await click("imgButton_1");
        expectInput(add, adding, ".EXE");
        expectBox("Файл '.EXE' уже существует. Ввести другое?", 36, Answer::Yes);
        expectInput(add, adding, "3\" disk");
        co_await click("imgButton_1");
        EXPECT_EQ(current("lvFilter"), "[x] 3\" disk");
        expectBox("Количество файлов не должно превышать 50!", 48);
        co_await click("imgButton_1");

        expectInputOffering(".zip", change, changing, ".rar");
        expectBox("Файл '.rar' уже существует. Ввести другое?", 36, Answer::Yes);
        expectInputOffering(".zip", change, changing, ".7z");
        co_await doubleClick("lvFilter", ".zip");
        EXPECT_EQ(current("lvFilter"), "[ ] .7z");
        expectInputOffering(".7z", change, changing, "");
        co_await click("imgButton_3");
        EXPECT_TRUE(wanted().startsWith(".7z | 0\n.exe | -1\n.rar | -1\n"));
        EXPECT_TRUE(wanted().contains("3\" disk | -1\n"));
    });
}

TEST_F(EditFilter, CommandsFollowWhetherThereIsAnything)
{
    for (const QString name : {".exe", ".zip"}) FilterTable(program.filesDatabase(), true).remove(name);
    run<frmEditFilter>([&]() -> Script {
        co_await click("optFilter_1");
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            EXPECT_EQ(wanted(), ".rar | -1\n");
            expectBox("Вы действительно хотите удалить файл '.rar'?", 36, answer);
            co_await click("imgButton_2");
        }
        EXPECT_EQ(wanted(), "");
        for (const QString command : {"cmdSelect", "cmdDeselect", "imgButton_2", "imgButton_3"})
            EXPECT_FALSE(enabled(command)) << qPrintable(command);
        expectInput("Введите имя файла:", "Добавление нового файла", ".iso");
        co_await click("imgButton_1");
        EXPECT_TRUE(enabled("cmdSelect") && enabled("imgButton_2"));
    });
}
