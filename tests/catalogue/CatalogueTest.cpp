#include "catalogue/frmCataloguePCCD.h"
#include "harness/ScreenTest.h"

#include <QDir>

namespace {
class Catalogue : public ScreenTest {
protected:
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
    QString cover() { return dynamic_cast<PictureBox&>(control<QWidget>("imgBox")).path(); }
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
    run<frmCataloguePCCD>([&]() -> Script {
        EXPECT_EQ(title(), "Каталог Компьютерных дисков");
        EXPECT_EQ(buttons(), "01");
        EXPECT_EQ(counter(), "Дисков в каталоге: 0");
        for (const char* name : {"txtName", "cmbDescription", "cmbSorted", "chSortedDESC", "TabStrip"})
            EXPECT_FALSE(enabled(name)) << name;
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_Delete);
        co_await keys("м");
        co_await key(Qt::Key_Escape);
    });
}

TEST_F(Catalogue, ResultWithoutDiscsLeavesTheFilterToBeChanged)
{
    threeDiscs();
    run<frmCataloguePCCD>([&]() -> Script {
        co_await type("txtName", "нет такого");
        EXPECT_EQ(buttons(), "015");
        EXPECT_EQ(counter(), "Дисков удовлетворяющих запросу: 0");
        EXPECT_FALSE(enabled("cmbSorted"));
        EXPECT_TRUE(control<QLineEdit>("txtNumber").isReadOnly());
        EXPECT_EQ(shown("txtName"), "нет такого");

        co_await type("txtName", "");
        EXPECT_EQ(counter(), "Дисков в каталоге: 3");
        EXPECT_EQ(shown("txtName"), "");
        EXPECT_EQ(buttons(), "012346");
        EXPECT_TRUE(enabled("cmbSorted"));
        EXPECT_FALSE(control<QLineEdit>("txtNumber").isReadOnly());
    });
}

TEST_F(Catalogue, ShowsTheCurrentDiscAndItsFields)
{
    shelf.computer(12, "Debian")
        .of("Квест")
        .year("2003")
        .discs(3)
        .added("2001-02-03")
        .changed("2002-03-04")
        .set("РасОписание", u"longer"_s);
    run<frmCataloguePCCD>([&]() -> Script {
        EXPECT_EQ(shown("DBGrid"), "12 | Debian\n");
        const std::pair<const char*, const char*> boxes[] = {{"txtNumber", "12"},
                                                             {"txtName", "Debian"},
                                                             {"cmbDescription", "Квест"},
                                                             {"txtYear", "2003"},
                                                             {"txtCDs", "3"},
                                                             {"txtDescription2", "longer"},
                                                             {"txtDateAdd", "03-февр.-2001"},
                                                             {"txtDateUpdate", "04-мар.-2002"}};
        for (const auto& [box, text] : boxes) EXPECT_EQ(shown(box), text) << box;
        co_await picture("frmCataloguePCCD");
    });
}

TEST_F(Catalogue, FiltersReplaceEachOther)
{
    threeDiscs();
    run<frmCataloguePCCD>([&]() -> Script {
        co_await type("txtName", "i");
        EXPECT_EQ(numbers(), "1 2");
        EXPECT_EQ(title(), "Каталог Компьютерных дисков - Результат запроса");
        EXPECT_EQ(shown("txtName"), "i"); // what is being typed is not overwritten by the row

        co_await select("cmbDescription", "Квест");
        EXPECT_EQ(numbers(), "2 7");
        EXPECT_EQ(program.shared.CatalogueQueryFilter, "AND Описание = \"Квест\"");

        co_await type("txtName", "[\"x");
        EXPECT_EQ(shown("txtName"), "('x");

        co_await click("imgButton_5");
        EXPECT_EQ(numbers(), "1 2 7");
        EXPECT_EQ(title(), "Каталог Компьютерных дисков");
        EXPECT_FALSE(enabled("imgButton_5"));
        EXPECT_EQ(shown("txtName"), "ALT Linux");

        co_await select("cmbDescription", "Квест");
        co_await select("cmbDescription", "");
        EXPECT_EQ(numbers(), "1 2 7");
    });
    EXPECT_EQ(program.shared.CatalogueQueryFilter, "");
}

TEST_F(Catalogue, StoredQueryIsHonouredAndMarksEveryLaterOpening)
{
    threeDiscs();
    program.shared.CatalogueQueryMode = true;
    program.shared.CatalogueQueryFilter = "AND Год > \"2000\"";
    run<frmCataloguePCCD>([&]() -> Script {
        EXPECT_EQ(numbers(), "1 2");
        EXPECT_EQ(title(), "Каталог Компьютерных дисков - Результат запроса");
        EXPECT_TRUE(enabled("imgButton_5"));
        co_return;
    });
    run<frmCataloguePCCD>([&]() -> Script {
        EXPECT_EQ(numbers(), "1 2 7");
        EXPECT_TRUE(enabled("imgButton_5"));
        co_return;
    });
}

TEST_F(Catalogue, SortOrderBreaksTiesByNumberAndIsKeptWhenAsked)
{
    threeDiscs();
    setOption("SaveSortedCatalogue", "1");
    run<frmCataloguePCCD>([&]() -> Script {
        EXPECT_EQ(shown("cmbSorted"), "по номеру");
        co_await select("cmbSorted", "по году");
        EXPECT_EQ(numbers(), "7 1 2");
        co_await check("chSortedDESC");
        EXPECT_EQ(numbers(), "2 1 7");
    });
    EXPECT_EQ(program.settings().read(u"Sorted", u"PCCDsorted"), "3");
    setOption("SaveSortedCatalogue", "0");
    run<frmCataloguePCCD>([&]() -> Script {
        EXPECT_EQ(shown("cmbSorted"), "по году");
        EXPECT_EQ(numbers(), "2 1 7");
        co_await select("cmbSorted", "по названию");
        EXPECT_EQ(numbers(), "7 2 1");
    });
    EXPECT_EQ(program.settings().read(u"Sorted", u"PCCDsorted"), "3");

    program.settings().write(u"Sorted", u"PCCDsorted", "99");
    run<frmCataloguePCCD>([&]() -> Script {
        EXPECT_EQ(shown("cmbSorted"), "по номеру");
        co_return;
    });
}

TEST_F(Catalogue, JumpsToANumberAndStaysWhenThereIsNone)
{
    threeDiscs();
    run<frmCataloguePCCD>([&]() -> Script {
        co_await type("txtNumber", "007");
        co_await key(Qt::Key_Return);
        EXPECT_EQ(current("DBGrid"), "7 | Мандрейк");
        EXPECT_EQ(shown("txtNumber"), "7");

        expectBox("Диск № 5 не найден.", 48);
        co_await type("txtNumber", "5");
        co_await key(Qt::Key_Return);
        EXPECT_EQ(shown("txtNumber"), "7");
        EXPECT_EQ(control<QLineEdit>("txtNumber").selectedText(), "7");

        for (const char* wrong : {"", "0", "99999"}) {
            expectBox("Указан не верный номер диска. Повторите ввод.", 48);
            co_await type("txtNumber", wrong);
            co_await key(Qt::Key_Return);
        }
        co_await type("txtNumber", "1a2");
        EXPECT_EQ(shown("txtNumber"), "12");
    });
}

TEST_F(Catalogue, OneLetterAgainAndAgainWalksThroughItsNames)
{
    for (const auto& [number, name] : std::initializer_list<std::pair<int, const char*>>{
             {1, "Война"}, {2, "мир"}, {3, "Москва"}, {4, "95"}, {5, "Магия"}})
        shelf.computer(number, name);
    run<frmCataloguePCCD>([&]() -> Script {
        co_await focusOn("DBGrid");
        for (const char* reached : {"2 | мир", "3 | Москва", "5 | Магия", "2 | мир"}) {
            co_await keys("м");
            EXPECT_EQ(current("DBGrid"), reached);
        }
        co_await keys("9");
        EXPECT_EQ(current("DBGrid"), "4 | 95");
        co_await keys("я");
        EXPECT_EQ(current("DBGrid"), "4 | 95");
        co_await keys("м");
        EXPECT_EQ(current("DBGrid"), "2 | мир");
        co_await key(Qt::Key_End);
        EXPECT_EQ(current("DBGrid"), "5 | Магия");
        co_await key(Qt::Key_Home);
        EXPECT_EQ(current("DBGrid"), "1 | Война");
    });
}

TEST_F(Catalogue, DeletionAsksAndStaysWhereTheDiscWas)
{
    threeDiscs();
    run<frmCataloguePCCD>([&]() -> Script {
        co_await type("txtNumber", "7");
        co_await key(Qt::Key_Return);
        co_await focusOn("DBGrid");
        const QString question =
            "Вы действительно хотите удалить диск № %1?\rСтруктура файлов этого диска будет также удалена.";
        expectBox(question.arg(7), 36, Answer::No);
        co_await key(Qt::Key_Delete);
        EXPECT_EQ(numbers(), "1 2 7");

        expectBox(question.arg(7), 36);
        co_await click("imgButton_2");
        EXPECT_EQ(current("DBGrid"), "2 | Debian");

        co_await key(Qt::Key_Home);
        expectBox(question.arg(1), 36);
        co_await click("imgButton_2");
        EXPECT_EQ(current("DBGrid"), "2 | Debian");
        EXPECT_EQ(counter(), "Дисков в каталоге: 1");

        expectBox(question.arg(2), 36);
        co_await click("imgButton_2");
        EXPECT_EQ(buttons(), "01");
    });
}

TEST_F(Catalogue, ChangeStaysOnTheDiscAndOnTheFilteredListButForgetsTheFilter)
{
    threeDiscs();
    shelf.computer(7, "Того же номера");
    run<frmCataloguePCCD>([&]() -> Script {
        co_await select("cmbDescription", "Квест");
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_End);
        expectForm("frmAddInCataloguePC");
        co_await click("imgButton_3");
        EXPECT_EQ(title(), "Изменение диска");
        EXPECT_EQ(shown("lblNumber"), "7");
        EXPECT_EQ(shown("txtDescription"), "Квест");
        EXPECT_EQ(program.shared.CatalogueQueryFilter, "");
        co_await type("txtName", "Mandrake");
        co_await click("imgButton_0");

        EXPECT_EQ(current("DBGrid"), "7 | Mandrake");
        EXPECT_EQ(counter(), "Дисков в каталоге: 2");
        EXPECT_FALSE(program.shared.DialogDone);
        co_await check("chSortedDESC");
        EXPECT_EQ(counter(), "Дисков в каталоге: 4");
    });
    EXPECT_EQ(rows("SELECT Название FROM Компьютер WHERE Номер = 7"), "Mandrake\nТого же номера\n");
}

TEST_F(Catalogue, LentDiscBlinksItsBorrowerAndCanBeNeitherDeletedNorChanged)
{
    threeDiscs();
    shelf.computer(3, "Отдан").lent("Петрова", "2003-05-09");
    setOption("tmrDueCatalogue", "1000");
    run<frmCataloguePCCD>([&]() -> Script {
        EXPECT_FALSE(visible("lblDue"));
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_Down);
        co_await key(Qt::Key_Down);
        EXPECT_EQ(shown("lblDue"), "Должник\nПетрова");
        EXPECT_EQ(buttons(), "0146");
        EXPECT_TRUE(visible("lblDue"));
        co_await advance(100);
        EXPECT_FALSE(visible("lblDue"));
        EXPECT_FALSE(visible("imgDue"));
        co_await advance(100);
        EXPECT_TRUE(visible("lblDue"));
        co_await key(Qt::Key_Delete);
        co_await doubleClick("DBGrid", "Отдан");

        expectBox("Удалить должника с диска № 3?", 36);
        co_await click("imgButton_4");
        EXPECT_EQ(current("DBGrid"), "3 | Отдан");
        EXPECT_FALSE(visible("lblDue"));
        EXPECT_EQ(buttons(), "012346");

        expectBox("Добавить должника на диск № 3?", 36);
        co_await click("imgButton_4");
        EXPECT_EQ(screens.opened, QStringList("ShowAddInDue PC 4"));
    });
    EXPECT_EQ(rows("SELECT Долг FROM Должники").trimmed(), "0");
}

TEST_F(Catalogue, SteadyMarkDoesNotBlinkAndAMissingLedgerRowHasNoName)
{
    shelf.computer(3, "Отдан").set("Должник", true);
    setOption("tmrDueCatalogue", "1");
    screens.missing << "frmAddInDue";
    run<frmCataloguePCCD>([&]() -> Script {
        EXPECT_EQ(shown("lblDue").trimmed(), "Должник");
        EXPECT_EQ(buttons(), "016");
        co_await advance(5000);
        EXPECT_TRUE(visible("lblDue"));
    });
}

TEST_F(Catalogue, ListsOfTheSetGoToTheFileBrowser)
{
    shelf.computer(4, "Набор").discs(3).list(1, "AAAA", {"\\a"}).list(3, "CCCC", {"\\c"});
    setOption("DblClick", "1");
    run<frmCataloguePCCD>([&]() -> Script {
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
    shelf.computer(20, "В пятом слоте").bound(5, "BEEF");
    shelf.computer(30, "В четвёртом").bound(4, "CAFE");
    drives.add('D', FakeDisc::data("X", 0xCAFE));
    setOption("Drive", "D:\\");
    const auto opensOn = [&](const char* row) {
        run<frmCataloguePCCD>([&]() -> Script {
            EXPECT_EQ(current("DBGrid"), row);
            co_return;
        });
    };
    program.shared.CurrentDiscID = "kept";
    opensOn("1 | ALT Linux");
    EXPECT_EQ(program.shared.CurrentDiscID, "kept");
    setOption("AutoResp", "1");
    opensOn("30 | В четвёртом");
    EXPECT_EQ(program.shared.CurrentDiscID, "CAFE");
    play(
        [&] {
            frmCataloguePCCD catalogue(program);
            catalogue.PositionOn(7);
            catalogue.ShowModal();
        },
        [&]() -> Script {
            EXPECT_EQ(current("DBGrid"), "7 | Мандрейк"); // who asks for a number gets it
            co_return;
        });
    program.mainDatabase().Execute(u"UPDATE Компьютер SET ДискID5_d = \"CAFE\", ДискID4_d = Null");
    opensOn("1 | ALT Linux");
}

TEST_F(Catalogue, CoverTabShowsTheCoverOfTheCurrentDisc)
{
    threeDiscs();
    QDir().mkpath(path("box"));
    QPixmap(60, 30).save(path("box/pc_2.box"), "PNG");
    run<frmCataloguePCCD>([&]() -> Script {
        EXPECT_EQ(shown("TabStrip"), "Сведения | Обложка");
        co_await select("TabStrip", "Обложка");
        EXPECT_TRUE(visible("imgBox"));
        EXPECT_FALSE(visible("txtName"));
        EXPECT_EQ(cover(), "");
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_Down);
        EXPECT_EQ(cover(), path("box/pc_2.box"));
        co_await picture("frmCataloguePCCD-cover");
    });
}

TEST_F(Catalogue, ExternalDatabaseIsOnlyLookedAt)
{
    threeDiscs();
    shelf.computer(1, "Отдан").lent("Петрова", "2003-05-09");
    program.shared.ExternalDBOpen = true;
    program.shared.CatalogueQueryMode = true;
    setOption("AutoResp", "1");
    run<frmCataloguePCCD>([&]() -> Script {
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
