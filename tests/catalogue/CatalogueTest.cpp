#include "catalogue/frmCataloguePCCD.h"
#include "harness/ScreenTest.h"

namespace {
/// The browser of any catalogue, without fields of its own.
class PlainCatalogue : public frmCatalogue {
public:
    PlainCatalogue(Program& program, const CatalogueKind& kind) : frmCatalogue(program, kind) { build(nullptr); }
};

class Catalogue : public ScreenTest {
protected:
    template<class Body> void browse(const Body& body) { run<frmCataloguePCCD>(body); }
    /// Opens on a disc or, with 0, as ever, and looks where that is.
    void opensOn(const char* row, qint64 key = 0)
    {
        const auto open = [&] {
            frmCataloguePCCD catalogue(program);
            if (key != 0) catalogue.PositionOn(key);
            catalogue.ShowModal();
        };
        play(open, [&]() -> Script {
            EXPECT_EQ(current("DBGrid"), row);
            co_return;
        });
    }
    Script enter(const char* box, const char* text)
    {
        co_await type(box, text);
        co_await key(Qt::Key_Return);
    }
    /// Numbers of the buttons that can be pressed.
    QString buttons()
    {
        QString usable;
        for (const int button : {0, 1, 2, 3, 4, 5, 6, 8, 9})
            if (enabled(u"imgButton_%1"_s.arg(button))) usable += QString::number(button);
        return usable;
    }
    /// Numbers of the discs in the grid, in order.
    QString numbers()
    {
        QStringList found;
        for (const QString& row : shown("DBGrid").split('\n', Qt::SkipEmptyParts))
            found += row.section('|', 0, 0).trimmed();
        return found.join(' ');
    }
    QString counter() { return shown("lblCDsCount0") + " " + shown("lblCDsCount1"); }
    void threeDiscs()
    {
        shelf.computer(2, "Debian").of("Квест").year("2003");
        shelf.computer(1, "ALT Linux").of("RPG").year("2003").discs(2);
        shelf.computer(7, "Мандрейк").of("Квест").year("1999");
    }
};

TEST_F(Catalogue, EmptyOneLeavesOnlyAddingAndClosing)
{
    browse([&]() -> Script {
        EXPECT_EQ(buttons(), "01");
        EXPECT_EQ(counter(), "Дисков в каталоге: 0");
        for (const char* name : {"txtName", "cmbDescription", "cmbSorted", "chSortedDESC", "TabStrip"})
            EXPECT_FALSE(enabled(name)) << name;
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_Delete);
        co_await keys("м");
    });
}

TEST_F(Catalogue, ShowsTheCurrentDiscAndItsFieldsInTheOrderOfTheKeyboard)
{
    ShelfDisc disc = shelf.computer(12, "Debian").of("Квест").year("2003").discs(3);
    disc.added("2001-02-03").changed("2002-03-04").set("РасОписание", u"longer"_s);
    browse([&]() -> Script {
        EXPECT_EQ(shown("DBGrid"), "12 | Debian\n");
        QString fields, walked;
        for (const char* box : {"txtNumber", "txtYear", "txtCDs", "txtName", "cmbDescription", "txtDateAdd",
                                "txtDateUpdate", "txtDescription2"})
            fields += shown(box) + ' ';
        EXPECT_EQ(fields, "12 2003 3 Debian Квест 03-февр.-2001 04-мар.-2002 longer ");
        co_await picture("frmCataloguePCCD");

        co_await focusOn("imgButton_1");
        do {
            walked += focus() + ' ';
            co_await key(Qt::Key_Tab);
        } while (!walked.contains(focus()));
        EXPECT_EQ(walked, "imgButton_1 imgButton_3 imgButton_2 imgButton_4 imgButton_6 imgButton_0 cmbSorted "
                          "chSortedDESC DBGrid TabStrip txtNumber txtYear txtCDs txtName cmbDescription txtDateAdd "
                          "txtDateUpdate txtDescription2 ");
    });
}

TEST_F(Catalogue, EachLetterLeadsToOneControlInEveryCatalogue)
{
    const auto alone = [&]() -> Script {
        EXPECT_EQ(sharedMnemonics(), "") << qPrintable(title());
        co_return;
    };
    for (const CatalogueKind* kind : AllCatalogues()) run<PlainCatalogue>(alone, *kind);
    browse(alone);
}

TEST_F(Catalogue, FiltersReplaceEachOther)
{
    threeDiscs();
    browse([&]() -> Script {
        co_await type("txtName", "i");
        EXPECT_EQ(numbers(), "1 2");
        EXPECT_EQ(title(), "Каталог Компьютерных дисков - Результат запроса");
        EXPECT_EQ(shown("txtName"), "i"); // what is being typed is not overwritten by the row
        co_await focusOn("DBGrid");
        EXPECT_EQ(shown("txtName"), "ALT Linux");

        co_await select("cmbDescription", "Квест");
        EXPECT_EQ(numbers(), "2 7");
        co_await type("txtName", "[\"x");
        EXPECT_EQ(shown("txtName"), "('x");
        EXPECT_EQ(buttons(), "015");
        EXPECT_EQ(counter(), "Дисков удовлетворяющих запросу: 0");
        EXPECT_FALSE(enabled("cmbSorted"));
        EXPECT_TRUE(control<QLineEdit>("txtNumber").isReadOnly());

        co_await click("imgButton_5");
        EXPECT_EQ(counter(), "Дисков в каталоге: 3");
        EXPECT_EQ(title(), "Каталог Компьютерных дисков");
        EXPECT_EQ(buttons(), "0123468");
        EXPECT_TRUE(enabled("cmbSorted"));
        EXPECT_FALSE(control<QLineEdit>("txtNumber").isReadOnly());

        co_await select("cmbDescription", "Квест");
        co_await select("cmbDescription", "");
        EXPECT_EQ(numbers(), "1 2 7");
        co_await select("cmbDescription", "Квест");
        co_await type("txtName", "");
        EXPECT_EQ(numbers(), "1 2 7");
        co_await type("txtName", "x");
    });
    EXPECT_EQ(program.shared.CatalogueQueryFilter, "");
}

TEST_F(Catalogue, StoredQueryIsHonouredAndMarksEveryLaterOpening)
{
    threeDiscs();
    program.shared.CatalogueQueryMode = true;
    program.shared.CatalogueQueryFilter = "AND Год > \"2000\"";
    for (const char* found : {"1 2", "1 2 7"})
        browse([&]() -> Script {
            EXPECT_EQ(numbers(), found);
            EXPECT_EQ(title(), "Каталог Компьютерных дисков - Результат запроса");
            EXPECT_TRUE(enabled("imgButton_5"));
            co_return;
        });
    program.shared.CatalogueQueryFilter = "AND Нет = 1";
    expectFault("frmCataloguePCCD, cmbSored_Click()");
    browse([&]() -> Script { co_return; });
}

TEST_F(Catalogue, SortOrderIsKeptWhenAsked)
{
    threeDiscs();
    setOption("SaveSortedCatalogue", "1");
    browse([&]() -> Script {
        co_await select("cmbSorted", "по году");
        EXPECT_EQ(numbers(), "7 1 2");
        co_await check("chSortedDESC");
    });
    setOption("SaveSortedCatalogue", "0");
    browse([&]() -> Script {
        EXPECT_EQ(numbers(), "2 1 7");
        co_await select("cmbSorted", "по названию");
    });
    EXPECT_EQ(program.settings().read(u"Sorted", u"PCCDsorted"), "3");
    program.settings().write(u"Sorted", u"PCCDsorted", "99");
    browse([&]() -> Script {
        EXPECT_EQ(shown("cmbSorted"), "по номеру");
        co_return;
    });
}

TEST_F(Catalogue, JumpsToANumberAndStaysWhenThereIsNone)
{
    threeDiscs();
    browse([&]() -> Script {
        co_await enter("txtNumber", "007");
        EXPECT_EQ(current("DBGrid"), "7 | Мандрейк");
        EXPECT_EQ(shown("txtNumber"), "7");
        expectBox("Диск № 5 не найден.", 48);
        co_await enter("txtNumber", "5");
        EXPECT_EQ(control<QLineEdit>("txtNumber").selectedText(), "7");
        for (const char* wrong : {"", "0", "99999"}) {
            expectBox("Указан не верный номер диска. Повторите ввод.", 48);
            co_await enter("txtNumber", wrong);
        }
        co_await type("txtNumber", "1a2");
        EXPECT_EQ(shown("txtNumber"), "12");
        co_await key(Qt::Key_Delete, Qt::ControlModifier); // edits the box and deletes no disc
        co_await focusOn("DBGrid");
        EXPECT_EQ(shown("txtNumber"), "7") << "a number that was not gone to";
    });
}

TEST_F(Catalogue, OneLetterAgainAndAgainWalksThroughItsNames)
{
    int number = 0;
    for (const char* name : {"Война", "мир", "Москва", "95", "Магия"}) shelf.computer(++number, name);
    browse([&]() -> Script {
        co_await focusOn("DBGrid");
        QString reached;
        for (const char* letter : {"м", "м", "м", "м", "9", "я", "м"}) {
            co_await keys(letter);
            reached += current("DBGrid").first(1);
        }
        EXPECT_EQ(reached, "2352442");
    });
}

TEST_F(Catalogue, DeletionAsksAndStaysWhereTheDiscWas)
{
    threeDiscs();
    browse([&]() -> Script {
        const QString question =
            "Вы действительно хотите удалить диск № %1?\rСтруктура файлов этого диска будет также удалена.";
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_End);
        expectBox(question.arg(7), 36, Answer::No);
        co_await key(Qt::Key_Delete);
        EXPECT_EQ(numbers(), "1 2 7");
        for (const int number : {7, 1}) {
            expectBox(question.arg(number), 36);
            co_await click("imgButton_2");
            EXPECT_EQ(current("DBGrid"), "2 | Debian");
            co_await key(Qt::Key_Home);
        }
    });
}

TEST_F(Catalogue, ANewDiscThatSharesItsNumberIsTheOneOnView)
{
    threeDiscs();
    browse([&]() -> Script {
        co_await focusOn("DBGrid");
        expectForm("frmAddCD");
        co_await key(Qt::Key_Insert);
        expectBox("Диск № 2:\r'Debian' уже существует.\rСместить все номера на 1 начиная с 2-го?", 36, Answer::No);
        expectForm("frmAddInCataloguePC");
        co_await enter("txtNumber", "2");
        co_await type("txtName", "Второй второй");
        co_await click("imgButton_0");
        EXPECT_EQ(current("DBGrid"), "2 | Второй второй");
        EXPECT_FALSE(program.shared.DialogDone);
    });
    opensOn("2 | Второй второй", 4);
}

TEST_F(Catalogue, ChangeStaysOnTheDiscAndOnTheFilteredListButForgetsTheFilter)
{
    threeDiscs();
    shelf.computer(7, "Того же номера");
    browse([&]() -> Script {
        co_await select("cmbDescription", "Квест");
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_End);
        expectForm("frmAddInCataloguePC");
        co_await click("imgButton_3");
        EXPECT_EQ(title(), "Изменение диска");
        EXPECT_EQ(program.shared.CatalogueQueryFilter, "");
        co_await type("txtName", "Mandrake");
        co_await click("imgButton_0");

        EXPECT_EQ(current("DBGrid"), "7 | Mandrake");
        EXPECT_EQ(counter(), "Дисков в каталоге: 2");
        EXPECT_FALSE(program.shared.DialogDone);
        co_await check("chSortedDESC");
        EXPECT_EQ(counter(), "Дисков в каталоге: 4");
    });
}

TEST_F(Catalogue, LentDiscBlinksItsBorrowerAndCanBeNeitherDeletedNorChanged)
{
    shelf.computer(3, "Отдан").lent("Петрова", "2003-05-09");
    setOption("tmrDueCatalogue", "1000");
    browse([&]() -> Script {
        EXPECT_EQ(shown("lblDue"), "Должник\nПетрова");
        EXPECT_EQ(buttons(), "01468");
        for (const bool lit : {false, true}) {
            co_await advance(100);
            EXPECT_EQ(visible("lblDue"), lit);
            EXPECT_EQ(visible("imgDue"), lit);
        }
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_Delete);
        co_await doubleClick("DBGrid", "Отдан");

        expectBox("Удалить должника с диска № 3?", 36);
        co_await click("imgButton_4");
        EXPECT_FALSE(visible("lblDue"));
        EXPECT_EQ(buttons(), "0123468");
        expectBox("Добавить должника на диск № 3?", 36);
        co_await click("imgButton_4");
        EXPECT_EQ(screens.opened, QStringList("ShowAddInDue PC 1"));
    });
}

TEST_F(Catalogue, SteadyMarkDoesNotBlinkAndAMissingLedgerRowHasNoName)
{
    shelf.computer(3, "Отдан").set("Должник", true);
    setOption("tmrDueCatalogue", "1");
    screens.missing << "frmAddInDue";
    browse([&]() -> Script {
        EXPECT_EQ(shown("lblDue").trimmed(), "Должник");
        EXPECT_EQ(buttons(), "0168");
        co_await advance(5000);
        EXPECT_TRUE(visible("lblDue"));
    });
}

TEST_F(Catalogue, AListOpensByButtonOrDoubleClick)
{
    shelf.computer(4, "Набор").discs(3);
    setOption("DblClick", "1");
    browse([&]() -> Script {
        co_await click("imgButton_6");
        EXPECT_EQ(screens.opened, QStringList("ShowFileList 4 \"Набор\" disc 1 of 3"));
        co_await doubleClick("DBGrid", "Набор");
        EXPECT_EQ(screens.opened.size(), 2);
        setOption("DblClick", "0");
        expectForm("frmAddInCataloguePC");
        co_await doubleClick("DBGrid", "Набор");
        co_await key(Qt::Key_Escape);
    });
}

TEST_F(Catalogue, FindsTheDiscInTheDriveInItsFirstFourSlots)
{
    threeDiscs();
    shelf.computer(30, "В четвёртом").bound(4, "CAFE");
    drives.add('D', FakeDisc::data("X", 0xCAFE));
    setOption("Drive", "D:\\");
    opensOn("1 | ALT Linux");
    EXPECT_EQ(program.shared.CurrentDiscID, "");
    setOption("AutoResp", "1");
    opensOn("30 | В четвёртом");
    EXPECT_EQ(program.shared.CurrentDiscID, "CAFE");
    opensOn("7 | Мандрейк", 3); // who asks for a disc gets it
    program.mainDatabase().Execute(u"UPDATE Компьютер SET ДискID5_d = \"CAFE\", ДискID4_d = Null");
    opensOn("1 | ALT Linux");
}

TEST_F(Catalogue, ExternalDatabaseIsOnlyLookedAt)
{
    threeDiscs();
    shelf.computer(1, "Отдан").lent("Петрова", "2003-05-09");
    program.shared.ExternalDBOpen = true;
    program.shared.CatalogueQueryMode = true;
    setOption("AutoResp", "1");
    browse([&]() -> Script {
        EXPECT_EQ(buttons(), "0");
        EXPECT_EQ(title(), "Каталог Компьютерных дисков");
        EXPECT_FALSE(enabled("TabStrip"));
        EXPECT_FALSE(visible("lblDue"));
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_Delete);
        co_await key(Qt::Key_Insert);
        co_await doubleClick("DBGrid", "Debian");
        co_await type("txtName", "deb");
        EXPECT_EQ(numbers(), "2");
    });
}
}
