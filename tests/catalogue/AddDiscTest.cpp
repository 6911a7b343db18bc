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
    /// In the editor that the dialog has handed over to.
    Script save(const char* name)
    {
        EXPECT_EQ(windowName(), "frmAddInCataloguePC");
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
    program.shared.CatalogueQueryFilter = "AND Год = \"1\"";
    add([&]() -> Script {
        EXPECT_EQ(shown("lblCDsCount0"), "Добавление Компьютерного диска");
        EXPECT_EQ(shown("txtNumber"), "2");
        EXPECT_EQ(control<QLineEdit>("txtNumber").selectedText(), "2");
        EXPECT_EQ(items("cmbDrive"), "D:\\\nV:\\\n");
        EXPECT_EQ(shown("lblInserCD"), "Компьютерный диск");
        EXPECT_TRUE(checked("chAutoDetect"));
        EXPECT_FALSE(visible("chQuery_0"));
        co_await picture("frmAddCD");
        expectForm("frmAddInCataloguePC");
        co_await key(Qt::Key_Return);
        co_await save("Новый");
    });
    EXPECT_EQ(discs(), "1 | Есть | Null\n2 | Новый | 1A2B\n");
    EXPECT_TRUE(program.shared.DialogDone);
    EXPECT_EQ(program.shared.LastSavedNumber, 2);
    EXPECT_EQ(program.shared.CatalogueQueryFilter, "");
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
        expectForm("frmAddInCataloguePC");
        co_await click("imgButton_0");
        co_await save("Набранный");
    });
    EXPECT_EQ(discs(), "1 | Набранный | Null\n");
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
        expectForm("frmAddInCataloguePC");
        co_await click("imgButton_0");
        co_await save("Копия");
    });
    EXPECT_EQ(discs(), "1 | Привязан | Null\n2 | Копия | Null\n");
}

TEST_F(AddDisc, TakenNumberIsSharedOrMakesRoomWhenTheDiscIsSaved)
{
    shelf.computer(1, "Первый");
    shelf.computer(2, "Второй");
    const QString question = "Диск № 1:\r'Первый' уже существует.\rСместить все номера на 1 начиная с 1-го?";
    expectBox(question, 36, Answer::No);
    add([&]() -> Script {
        co_await type("txtNumber", "01");
        expectForm("frmAddInCataloguePC");
        co_await click("imgButton_0");
        EXPECT_EQ(shown("lblNumber"), "1");
        co_await save("Рядом");
    });
    EXPECT_EQ(discs(), "1 | Первый | Null\n1 | Рядом | Null\n2 | Второй | Null\n");

    add([&]() -> Script {
        co_await type("txtNumber", "1");
        expectBox(question, 36, Answer::Yes);
        expectForm("frmAddInCataloguePC");
        co_await click("imgButton_0");
        EXPECT_EQ(rows("SELECT MAX(Номер) FROM Компьютер").trimmed(), "2");
        EXPECT_EQ(program.shared.ShiftStart, 1);
        co_await save("Впереди");
    });
    EXPECT_EQ(discs(), "1 | Впереди | Null\n2 | Первый | Null\n2 | Рядом | Null\n3 | Второй | Null\n");
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

TEST_F(AddDisc, IdentifierIsReadAgainAtOk)
{
    FakeDrive& drive = insert(FakeDisc::data("FIRST", 0x11));
    add([&]() -> Script {
        drive.medium.reset();
        expectBox("Идентификатор не обнаружен!", 48);
        co_await click("imgButton_0");
        drive.medium = FakeDisc::data("SECOND", 0x22);
        expectForm("frmAddInCataloguePC");
        co_await click("imgButton_0");
        co_await save("Второй");
    });
    EXPECT_EQ(discs(), "1 | Второй | 22\n");
}

TEST_F(AddDisc, SearchOffersFreeNumbersOneByOne)
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
}

TEST_F(AddDisc, WithoutADriveADiscCanStillBeTypedIn)
{
    class NoDrives : public Drives {
    public:
        QList<Drive*> all() override { return {}; }
        VirtualDrive& virtualDrive() override { return none; }
        FakeVirtualDrive none{u'V'};
    } none;
    Program bare{.applicationFolder = program.applicationFolder,
                 .version = program.version,
                 .clock = clock,
                 .engine = engine,
                 .drives = none,
                 .dialogs = dialogs,
                 .desktop = desktop,
                 .shared = program.shared,
                 .endProcess = program.endProcess};
    expectBox("Устройство для чтения компакт-дисков не найдено!", 48);
    play(
        [&] {
            frmAddCD dialog(bare, Computer());
            dialog.ShowModal();
        },
        [&]() -> Script {
            EXPECT_EQ(shown("cmbDrive"), "---");
            EXPECT_FALSE(enabled("cmbDrive"));
            EXPECT_EQ(shown("lblInserCD"), "(нет)");
            expectForm("frmAddInCataloguePC");
            co_await click("imgButton_0");
            co_await save("Без привода");
        });
    EXPECT_EQ(discs(), "1 | Без привода | Null\n");
}
}
