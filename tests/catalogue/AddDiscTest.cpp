#include "catalogue/Given.h"
#include "catalogue/frmAddCD.h"
#include "harness/ScreenTest.h"

namespace {
const QString Bound = "Вы пытаетесь добавить диск, который уже есть в каталоге! Продолжить?";

class AddDisc : public ScreenTest {
protected:
    template<class Body> void add(const Body& body) { run<frmAddCD>(body, Computer()); }
    FakeDrive& insert(std::shared_ptr<FakeDisc> disc) { return drives.add('D', std::move(disc)); }
    static QString searchBox(int number)
    {
        return QString("Найден свободный диск № %1.\rДа\t- принять этот номер\rНет\t- поиск следующего номера\r"
                       "Отмена\t- отменить поиск")
            .arg(number);
    }
    /// Presses OK, and saves in the editor that the dialog hands over to.
    Script ok(const char* name)
    {
        expectForm("frmAddInCataloguePC");
        co_await click("imgButton_0");
        co_await type("txtName", name);
        co_await click("imgButton_0");
    }
    QString discs()
    {
        return rows("SELECT Номер, Название, ДискID1_d FROM Компьютер ORDER BY Номер, КодКомпьютерныйДиск");
    }
};

TEST_F(AddDisc, OffersTheFirstFreeNumberAndBindsANewDiscOfTheRightKind)
{
    shelf.computer(1, "Есть");
    insert(FakeDisc::data("NEW", 0x1A2B));
    add([&]() -> Script {
        EXPECT_EQ(control<QLineEdit>("txtNumber").selectedText(), "2");
        EXPECT_EQ(items("cmbDrive"), "D:\\\nV:\\\n");
        EXPECT_EQ(shown("lblInserCD"), "Компьютерный диск");
        EXPECT_TRUE(checked("chAutoDetect"));
        EXPECT_FALSE(visible("chQuery_0"));
        EXPECT_EQ(sharedMnemonics() + unnamedStops(), "");
        co_await picture("frmAddCD");
        co_await ok("Новый");
    });
    EXPECT_EQ(discs(), "1 | Есть | Null\n2 | Новый | 1A2B\n");
    EXPECT_TRUE(program.shared.DialogDone);
    EXPECT_EQ(program.shared.LastSavedNumber, 2);
}

class AddDiscAnywhere : public AddDisc, public testing::WithParamInterface<const CatalogueKind*> {};
INSTANTIATE_TEST_SUITE_P(, AddDiscAnywhere, testing::ValuesIn(AllCatalogues()), CodeOfCatalogue);

TEST_P(AddDiscAnywhere, BindsItsOwnKindOfDiscAndHandsItsTitleOverToItsEditor)
{
    const CatalogueKind& kind = *GetParam();
    const bool audio = &kind == &Audio();
    const auto medium = [&](quint32 serial) {
        if (audio) {
            auto disc = FakeDisc::audio({{0, 2, 0}}, {9, 2, 0});
            disc->properties.serial = serial;
            disc->contents.performer = "Оркестр";
            disc->contents.title = "Снег";
            return disc;
        }
        return &kind == &Dvd() ? FakeDisc::dvd("FILM", serial) : FakeDisc::data("DATA", serial);
    };
    const QString filter = "AND Год = \"1\"";
    shelf.audio(7, "Снегири", "");
    program.shared.CatalogueQueryFilter = filter;
    FakeDrive& drive = insert(medium(0));
    const auto script = [&]() -> Script {
        EXPECT_EQ(shown("lblCDsCount0"), kind.addCaption);
        EXPECT_EQ(shown("lblInserCD"), kind.mediumCaption);
        EXPECT_EQ(visible("cmbServer"), audio);
        expectBox(audio ? "Идентификатор диска не обнаружен!" : "Идентификатор не обнаружен!", 48);
        co_await click("imgButton_0");
        drive.medium = medium(0x1A2B);
        expectForm(kind.editor);
        co_await click("imgButton_0");
        EXPECT_EQ(shown("txtName"), audio ? "Оркестр" : &kind == &Dvd() ? "FILM" : "DATA");
        EXPECT_EQ(control<QLineEdit>("txtName").selectedText(), shown("txtName"));
        EXPECT_EQ(audio ? shown("txtAlbum") : "Снег", "Снег") << "and is not completed";
        co_await type("txtName", "Новый");
        co_await key(Qt::Key_Return, Qt::ControlModifier);
    };
    run<frmAddCD>(script, kind);
    EXPECT_EQ(rows("SELECT Номер, Название, ДискID1_d FROM " + kind.table + " WHERE Номер = 1"), "1 | Новый | 1A2B\n");
    EXPECT_EQ(program.shared.CatalogueQueryFilter, audio ? filter : "") << "a query of audio discs stays one";
}

TEST_F(AddDisc, TheLabelOfTheDiscIsOfferedAsItsTitle)
{
    shelf.computer(1, "NEWS of the world");
    insert(FakeDisc::data("NEW", 0x1A2B));
    for (const bool bound : {false, true})
        add([&]() -> Script {
            co_await check("chAutoDetect", bound);
            expectForm("frmAddInCataloguePC");
            co_await click("imgButton_0");
            EXPECT_EQ(shown("txtName"), bound ? "NEW" : "") << "and is not completed";
            EXPECT_EQ(control<QLineEdit>("txtName").selectedText(), shown("txtName"));
            co_await click(bound ? "imgButton_0" : "imgButton_1");
        });
    EXPECT_EQ(discs(), "1 | NEWS of the world | Null\n2 | NEW | 1A2B\n");
}

TEST_F(AddDisc, WrongKindOrNoDiscIsNotBound)
{
    insert(FakeDisc::dvd("MOVIE", 0x77));
    setOption("Drive", "V:\\");
    add([&]() -> Script {
        EXPECT_EQ(shown("cmbDrive"), "V:\\");
        EXPECT_EQ(shown("lblInserCD"), "(нет)");
        EXPECT_FALSE(enabled("chAutoDetect"));
        co_await select("cmbDrive", "D:\\");
        EXPECT_EQ(shown("lblInserCD"), "DVD диск");
        EXPECT_FALSE(enabled("chAutoDetect"));
        EXPECT_FALSE(checked("chAutoDetect"));
        co_await ok("Набранный");
    });
    EXPECT_EQ(discs(), "1 | Набранный | Null\n");
}

TEST_F(AddDisc, ADiscOfUncertainKindWithoutASerialIsAskedAboutOnceAtATime)
{
    const FakeDrive& drive = insert(FakeDisc::data("ODD", 0, 100));
    const auto itIsAComputerDisc = [&]() -> Script {
        co_await check("optPC", true);
        co_await click("imgButton_0");
    };
    expectForm("frmSelectCategory");
    add([&]() -> Script {
        co_await itIsAComputerDisc();
        EXPECT_TRUE(checked("chAutoDetect"));
        expectForm("frmSelectCategory");
        expectBox("Идентификатор не обнаружен!", 48);
        co_await click("imgButton_0");
        co_await itIsAComputerDisc();
        co_await select("cmbDrive", "V:\\");
        expectForm("frmSelectCategory");
        co_await select("cmbDrive", "D:\\");
        co_await itIsAComputerDisc();
        EXPECT_EQ(drive.asked, 3);
    });
}

TEST_F(AddDisc, ADiscThatIsBoundAlreadyIsAskedAbout)
{
    shelf.computer(1, "Привязан").discs(6).bound(6, "1A2B");
    insert(FakeDisc::data("OLD", 0x1A2B));
    expectBox(Bound, 36, Answer::No);
    add([&]() -> Script { co_return; });
    EXPECT_FALSE(program.shared.DialogDone);
    EXPECT_EQ(program.shared.CurrentDiscID, "1A2B");

    expectBox(Bound, 36, Answer::Yes);
    add([&]() -> Script {
        EXPECT_FALSE(enabled("chAutoDetect"));
        co_await ok("Копия");
    });
    EXPECT_EQ(discs(), "1 | Привязан | Null\n2 | Копия | Null\n");
}

TEST_F(AddDisc, TakenNumberIsSharedOrMakesRoomWhenTheDiscIsSaved)
{
    shelf.computer(1, "Первый");
    FakeDrive& drive = insert(FakeDisc::data("NEW", 0x22));
    const QString question = "Диск № 1:\r'Первый' уже существует.\rСместить все номера на 1 начиная с 1-го?";
    expectBox(question, 36, Answer::No);
    add([&]() -> Script {
        co_await type("txtNumber", "01");
        co_await check("chAutoDetect", false);
        co_await ok("Рядом");
    });
    EXPECT_EQ(discs(), "1 | Первый | Null\n1 | Рядом | Null\n");

    add([&]() -> Script {
        co_await type("txtNumber", "1");
        drive.medium.reset();
        expectBox(question, 36, Answer::Yes);
        expectBox("Идентификатор не обнаружен!", 48);
        co_await click("imgButton_0");
        EXPECT_EQ(program.shared.ShiftStart, 0) << "nothing is left of an OK that was refused";
        drive.medium = FakeDisc::data("SECOND", 0x33);
        expectBox(question, 36, Answer::Yes);
        co_await ok("Впереди");
    });
    EXPECT_EQ(discs(), "1 | Впереди | 33\n2 | Первый | Null\n2 | Рядом | Null\n");
}

TEST_F(AddDisc, ShiftThatCannotBeIsToldAtOnce)
{
    shelf.computer(32767, "Последний");
    add([&]() -> Script {
        co_await type("txtNumber", "32767");
        expectBox("Диск № 32767:\r'Последний' уже существует.\rСместить все номера на 1 начиная с 32767-го?", 36);
        expectBox("Номера начиная с 32767-го нельзя сместить: самый большой возможный номер, 32767, уже занят.", 48);
        co_await click("imgButton_0");
        EXPECT_EQ(focus(), "txtNumber");
        EXPECT_EQ(program.shared.ShiftStart, 0);

        for (const char* wrong : {"0", "", "32768"}) {
            expectBox("Указан не верный номер диска. Повторите ввод.", 48);
            co_await type("txtNumber", wrong);
            co_await click("imgButton_0");
        }
    });
}

TEST_F(AddDisc, SearchOffersFreeNumbersOneByOneAndAFullCatalogueNone)
{
    for (const int number : {1, 2, 4}) shelf.computer(number, "x");
    add([&]() -> Script {
        expectBox(searchBox(3), 35, Answer::No);
        expectBox(searchBox(5), 35, Answer::Cancel);
        co_await click("imgButton_2");
        EXPECT_EQ(shown("txtNumber"), "3");

        expectBox(searchBox(3), 35, Answer::No);
        expectBox(searchBox(5), 35, Answer::Yes);
        expectForm("frmAddInCataloguePC");
        co_await click("imgButton_2");
        EXPECT_EQ(shown("lblNumber"), "5");
        co_await key(Qt::Key_Escape);
    });
    EXPECT_FALSE(program.shared.DialogDone);

    program.mainDatabase().Execute(u"DELETE FROM Компьютер WHERE Номер > 1");
    FillNumbers(program, 32767);
    expectBox("Свободных номеров нет!", 48);
    add([&]() -> Script {
        EXPECT_EQ(shown("txtNumber"), "");
        expectBox("Свободных номеров нет!", 48);
        co_await click("imgButton_2");
    });
}

TEST_F(AddDisc, WithoutADriveADiscCanStillBeTypedIn)
{
    drives.none = true;
    expectBox("Устройство для чтения компакт-дисков не найдено!", 48);
    add([&]() -> Script {
        EXPECT_EQ(shown("cmbDrive"), "---");
        EXPECT_FALSE(enabled("cmbDrive"));
        EXPECT_EQ(shown("lblInserCD"), "(нет)");
        co_await ok("Без привода");
    });
    EXPECT_EQ(discs(), "1 | Без привода | Null\n");
}
}
