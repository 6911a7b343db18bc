#include "catalogue/frmSelectCD.h"
#include "harness/ScreenTest.h"

namespace {
class Picker : public ScreenTest {
protected:
    template<class Body> void pick(const QString& mode, const Body& body)
    {
        play([&] { picked = PickDisc(program, mode); }, body);
        EXPECT_EQ(program.shared.PickedDisc + program.shared.CatalogueQueryFilter, "") << "both are cleared";
    }
    QString choice() const
    {
        return picked ? u"%1:%2 key %3"_s.arg(picked->number).arg(picked->disc).arg(picked->key) : u"none"_s;
    }
    QString list() { return shown("DBGrid").simplified(); }
    QString set() { return items("cmbCountCD").simplified() + (enabled("cmbCountCD") ? "" : " grey"); }

    std::optional<DiscChoice> picked;
};

TEST_F(Picker, GivesTheDiscOfASetAndTellsApartWhoSharesANumber)
{
    shelf.computer(12, "Debian").discs(3);
    shelf.computer(12, "Другой");
    shelf.computer(4, "Словари");
    pick("fullPC", [&]() -> Script {
        EXPECT_EQ(windowName() + ": " + title(), "frmSelectCD: Выбор Компьютерного диска");
        EXPECT_EQ(sharedMnemonics(), "");
        EXPECT_EQ(list(), "4 | Словари 12 | Debian 12 | Другой");
        EXPECT_EQ(shown("lblCDsCount1") + " " + shown("txtNumber"), "3 4");
        EXPECT_EQ(set(), "1 grey");
        EXPECT_FALSE(enabled("imgButton_2"));
        co_await keys("d");
        EXPECT_EQ(set(), "1 2 3");
        co_await select("cmbCountCD", "2");
        co_await picture("frmSelectCD");
        co_await key(Qt::Key_Return);
    });
    EXPECT_EQ(choice(), "12:2 key 1");
    pick("fullPC", [&]() -> Script {
        co_await key(Qt::Key_End);
        co_await doubleClick("DBGrid", "Другой");
    });
    EXPECT_EQ(choice(), "12:1 key 2");
    pick("fullPC", [&]() -> Script { co_await key(Qt::Key_Escape); });
    EXPECT_EQ(choice(), "none");
    program.shared.CatalogueQueryFilter = "fullPC";
    run<frmSelectCD>([&]() -> Script { co_await click("imgButton_0"); });
    EXPECT_EQ(program.shared.PickedDisc, "4:1");
}

TEST_F(Picker, ShowsWhatCanBeLentOrIsOut)
{
    shelf.audio(1, "Кино", "Ночь").lent("Иванов", "2003-10-01");
    shelf.audio(2, "Аквариум", "Треугольник");
    const std::pair<const char*, const char*> modes[] = {
        {"fullAD", "1 | Кино | Ночь 2 | Аквариум | Треугольник"},
        {"addAD", "2 | Аквариум | Треугольник"},
        {"delAD", "1 | Кино | Ночь"},
        {"addDVD", ""},
    };
    for (const auto& [mode, discs] : modes)
        pick(mode, [&, discs = discs]() -> Script {
            EXPECT_EQ(list(), discs);
            EXPECT_EQ(enabled("imgButton_0"), *discs != 0);
            EXPECT_EQ(enabled("txtNumber"), *discs != 0);
            co_await picture("frmSelectCD-" + shown("txtNumber") + title().left(11));
            co_await closeForm();
        });
    for (const char* wrong : {"", "PC", "fullXX", "delpc"}) EXPECT_THROW(PickerModeOf(QString(wrong)), RuntimeError);
}

TEST_F(Picker, NarrowsByNameAmongThoseOfItsModeAndComesBack)
{
    shelf.dvd(1, "Солярис").lent("Иванов", "2003-10-01");
    shelf.dvd(2, "Сталкер");
    shelf.dvd(3, "Зеркало");
    pick("addDVD", [&]() -> Script {
        co_await type("txtName", "С");
        EXPECT_EQ(list(), "2 | Сталкер");
        EXPECT_EQ(title(), "Выбор DVD диска - Результат запроса");
        co_await type("txtName", "\"x[");
        EXPECT_EQ(shown("txtName") + list(), "'x(");
        EXPECT_FALSE(enabled("imgButton_0"));
        EXPECT_EQ(shown("txtNumber") + set(), "1 grey");
        co_await key(Qt::Key_F5);
        EXPECT_EQ(list() + shown("txtName"), "2 | Сталкер 3 | Зеркало");
        EXPECT_EQ(title(), "Выбор DVD диска");
        EXPECT_TRUE(enabled("imgButton_0"));
        EXPECT_FALSE(enabled("imgButton_2"));
        co_await type("txtName", "з");
        co_await type("txtName", "");
        EXPECT_EQ(list(), "2 | Сталкер 3 | Зеркало");

        expectBox("Диск № 1 не найден.", 48);
        co_await type("txtNumber", "1");
        co_await key(Qt::Key_Return);
        EXPECT_EQ(shown("txtNumber"), "2");
        expectBox("Указан не верный номер диска. Повторите ввод.", 48);
        co_await type("txtNumber", "0");
        co_await key(Qt::Key_Return);
        co_await type("txtNumber", "3");
        co_await key(Qt::Key_Return);
        EXPECT_EQ(current("DBGrid"), "3 | Зеркало");
        co_await type("txtNumber", "2");
        co_await click("imgButton_0");
    });
    EXPECT_EQ(choice(), "3:1 key 3") << "a number that was not gone to is no choice";
}
}
