#include "catalogue/frmAddInCataloguePC.h"
#include "harness/ScreenTest.h"

namespace {
class Editor : public ScreenTest {
protected:
    template<class Body> void add(int number, const Body& body)
    {
        runFilled<frmAddInCataloguePC>([number](frmAddInCataloguePC& editor) { editor.AddUnder(number); }, body);
    }
    template<class Body> void change(const ShelfDisc& disc, const Body& body)
    {
        runFilled<frmAddInCataloguePC>(
            [&](frmAddInCataloguePC& editor) {
                program.shared.CatalogueQueryFilter = "edit:1";
                editor.Change(*ReadDisc(program.mainDatabase(), Computer(), disc.key()));
                program.shared.CatalogueQueryFilter.clear();
            },
            body);
    }
    /// Opens a set of five discs for a change, sets the count and presses OK.
    Script reduceTo(const char* count)
    {
        co_await type("txtCDs", count);
        co_await click("imgButton_0");
    }
    static QString question(int before, int after)
    {
        return QString("Вы изменили общее число дисков c %1 на %2! Если для удаляемых дисков была создана структура "
                       "файлов, то она будет удалена. Продолжить?")
            .arg(before)
            .arg(after);
    }
};

TEST_F(Editor, AddsADiscWithItsFieldsAndTheBindingThatWasAskedFor)
{
    shelf.computer(1, "Сборник (1) 'А', том 2"); // what the cleaned title would be completed to
    program.shared.AutoDetectTag = "ad:1A2B";
    add(7, [&]() -> Script {
        EXPECT_EQ(shown("lblCDsCount0"), "Добавление Компьютерного диска");
        EXPECT_EQ(shown("lblNumber"), "7");
        EXPECT_EQ(shown("txtYear"), "2003");
        EXPECT_EQ(shown("txtCDs"), "1");
        co_await picture("frmAddInCataloguePC");
        co_await type("txtName", "Сборник [1] \"А\"");
        co_await type("txtDescription", "Шахматы");
        co_await type("txtDescription2", "длинно");
        co_await click("imgButton_0");
    });
    EXPECT_EQ(
        rows("SELECT Номер, Название, Год, Дисков, РасОписание, ДискID1_d, КодОписания FROM Компьютер WHERE Номер = 7")
            .trimmed(),
        "7 | Сборник (1) 'А' | 2003 | 1 | длинно | 1A2B | 24");
    EXPECT_TRUE(program.shared.DialogDone);
    EXPECT_EQ(program.shared.LastSavedNumber, 7);
    EXPECT_EQ(program.shared.AutoDetectTag, "");
}

TEST_F(Editor, EnterMovesOnAndSavesFromTheDescription)
{
    add(1, [&]() -> Script {
        co_await focusOn("txtName");
        co_await keys("Debian\n2001\n");
        EXPECT_EQ(focus(), "udCDs"); // the counter holds the keyboard for its box
        co_await keys("3\nКвест\n");
    });
    EXPECT_EQ(rows("SELECT Название, Год, Дисков, КодОписания FROM Компьютер").trimmed(), "Debian | 2001 | 3 | 9");
}

TEST_F(Editor, NameIsRequiredAndADescriptionHasFiftyCharacters)
{
    add(1, [&]() -> Script {
        expectBox("Введите название диска.\rДанное поле является обязательным для заполнения.", 48);
        co_await click("imgButton_0");
        EXPECT_EQ(focus(), "txtName");

        co_await type("txtName", QString(70, 'n'));
        EXPECT_EQ(shown("txtName").size(), 60);
        expectBox("Описание не должно быть длинее 50 символов!", 48);
        co_await type("txtDescription", QString(51, 'd'));
        co_await click("imgButton_0");
        EXPECT_EQ(focus(), "txtDescription");

        co_await type("txtDescription2", QString(260, 'x'));
        EXPECT_EQ(shown("txtDescription2").size(), 255);
        co_await type("txtYear", "123456");
        EXPECT_EQ(shown("txtYear"), "12345");
        co_await type("txtDescription", QString(50, 'd'));
        co_await click("imgButton_0");
    });
    EXPECT_EQ(rows("SELECT Описание FROM Описание WHERE КодОписания = 24").trimmed(), QString(50, 'd'));
}

TEST_F(Editor, CountsWithTheArrowsAndNeverLeavesOneToSix)
{
    add(1, [&]() -> Script {
        co_await focusOn("txtYear");
        co_await key(Qt::Key_Up);
        EXPECT_EQ(shown("txtYear"), "2004");
        co_await type("txtYear", "0000");
        co_await key(Qt::Key_Down);
        EXPECT_EQ(shown("txtYear"), "0000");

        co_await type("txtCDs", "6");
        co_await key(Qt::Key_Up);
        EXPECT_EQ(shown("txtCDs"), "6");
        co_await key(Qt::Key_Down);
        EXPECT_EQ(shown("txtCDs"), "5");
        co_await keys("x");
        EXPECT_EQ(shown("txtCDs"), "5");
        for (const char* wrong : {"0", "7"}) {
            control<QLineEdit>("txtCDs").setText(wrong);
            EXPECT_EQ(shown("txtCDs"), "1") << wrong;
        }
        co_await type("txtCDs", "4");
        co_await key(Qt::Key_Backspace);
        EXPECT_EQ(shown("txtCDs"), "1");
        co_await keys("3");
        EXPECT_EQ(shown("txtCDs"), "3");
    });
}

TEST_F(Editor, CompletesTitlesAndDescriptionsButNotWhileTheOpenerFills)
{
    const ShelfDisc disc = shelf.computer(1, "Энциклопедия животных").of("Словарь");
    shelf.computer(2, "Эн");
    change(disc, [&]() -> Script {
        EXPECT_EQ(shown("txtName"), "Энциклопедия животных");
        EXPECT_EQ(control<QLineEdit>("txtName").selectedText(), "Энциклопедия животных");
        co_await type("txtName", "энц");
        EXPECT_EQ(shown("txtName"), "Энциклопедия животных");
        EXPECT_EQ(control<QLineEdit>("txtName").selectedText(), "иклопедия животных");
        co_await key(Qt::Key_Backspace);
        EXPECT_EQ(shown("txtName").toLower(), "энц");
        co_await type("txtDescription", "3D-");
        EXPECT_EQ(shown("txtDescription"), "3D-шутер");
    });
}

TEST_F(Editor, PendingShiftMakesRoomBeforeTheNewDiscGoesIn)
{
    shelf.computer(1, "Первый");
    shelf.computer(2, "Второй");
    program.shared.ShiftStart = 1;
    add(1, [&]() -> Script {
        co_await type("txtName", "Новый");
        co_await click("imgButton_0");
    });
    EXPECT_EQ(rows("SELECT Номер, Название FROM Компьютер ORDER BY Номер"), "1 | Новый\n2 | Первый\n3 | Второй\n");
    EXPECT_EQ(program.shared.ShiftStart, 0);
}

TEST_F(Editor, RefusedReductionSavesNothingButTheNewDescription)
{
    const ShelfDisc disc = shelf.computer(1, "Набор").discs(4).list(3, "CCCC", {"\\c"});
    change(disc, [&]() -> Script {
        co_await type("txtDescription", "Совсем новое");
        expectBox(question(4, 2), 52, Answer::No);
        co_await reduceTo("2");
        EXPECT_EQ(rows("SELECT Дисков, ДискID3, КодОписания FROM Компьютер").trimmed(), "4 | CCCC | 1");
        EXPECT_EQ(rows("SELECT Описание FROM Описание WHERE КодОписания = 24").trimmed(), "Совсем новое");
        EXPECT_FALSE(program.shared.DialogDone);

        co_await reduceTo("3"); // the disc that goes has no list
    });
    EXPECT_EQ(rows("SELECT Дисков, ДискID3, КодОписания FROM Компьютер").trimmed(), "3 | CCCC | 24");
}

TEST_F(Editor, ReductionTakesListsButLeavesBindings)
{
    const ShelfDisc disc =
        shelf.computer(1, "Набор").discs(4).list(1, "AAAA", {"\\a"}).list(3, "CCCC", {"\\c"}).bound(3, "CCCC");
    change(disc, [&]() -> Script {
        expectBox(question(4, 1), 52);
        co_await reduceTo("1");
    });
    EXPECT_EQ(rows("SELECT Дисков, ДискID1, ДискID3, ДискID3_d FROM Компьютер").trimmed(), "1 | AAAA | Null | CCCC");
    EXPECT_FALSE(program.filesDatabase().HasTable("CCCC"));
}

TEST_F(Editor, TakingAwayAFifthDiscThatHasAListEndsInTheFaultRoutine)
{
    const ShelfDisc disc = shelf.computer(1, "Набор").discs(6).list(4, "DDDD", {"\\d"}).list(5, "EEEE", {"\\e"});
    change(disc, [&]() -> Script {
        expectBox(question(6, 3), 52);
        expectFault("frmAddInCataloguePC, cmdAdd()");
        co_await reduceTo("3");
    });
    // What was done before the fault is kept.
    EXPECT_EQ(rows("SELECT Дисков, ДискID4, ДискID5 FROM Компьютер").trimmed(), "6 | Null | EEEE");
    EXPECT_TRUE(program.filesDatabase().HasTable("EEEE"));
}
}
