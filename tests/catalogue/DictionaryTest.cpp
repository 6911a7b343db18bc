#include "catalogue/frmEditDictionary.h"
#include "harness/ScreenTest.h"

namespace {
class EditDictionary : public ScreenTest {
protected:
    const QString add = "Введите название жанра:", adding = "Добавление нового жанра";
    const QString change = "Измените название жанра:", changing = "Изменение жанра";
    const QString quotation = "В имени жанра не должно быть символа кавычек!";

    EditDictionary() { program.mainDatabase().Execute(u"DELETE FROM Жанр WHERE КодЖанр > 3"); }

    template<class Body> void edit(const Body& body, const CatalogueKind& kind = Dvd())
    {
        run<frmEditDictionary>(body, kind);
    }
    QString genres() { return rows("SELECT Жанр FROM Жанр ORDER BY Жанр"); }
};

TEST_F(EditDictionary, AddsWhatIsNewAndGoesThere)
{
    const QString fifty(50, 'x'), question = "Жанр 'БОЕВИК' уже существует. Ввести другой?";
    edit([&]() -> Script {
        EXPECT_EQ(title(), "Жанры DVD");
        EXPECT_EQ(sharedMnemonics(), "");
        EXPECT_EQ(shown("DBGrid"), "(не указано)\nБоевик\nФантастика\n");
        EXPECT_EQ(shown("lblCount"), "3");
        co_await picture("frmEditGenre");
        expectInput(add, adding, "БОЕВИК");
        expectBox(question, 36, Answer::Yes);
        expectInput(add, adding, "БОЕВИК");
        expectBox(question, 36, Answer::No);
        co_await key(Qt::Key_Insert);
        expectInput(add, adding, "12\"");
        expectBox(quotation, 48);
        co_await click("imgButton_1");
        expectInput(add, adding, fifty + 'x');
        expectBox("Название жанра не должно быть длинее 50 символов!", 48);
        co_await click("imgButton_1");
        expectInput(add, adding, "");
        co_await click("imgButton_1");
        EXPECT_EQ(genres(), "\nБоевик\nФантастика\n");

        expectInput(add, adding, fifty);
        co_await click("imgButton_1");
        EXPECT_EQ(current("DBGrid"), fifty);
        EXPECT_EQ(shown("lblCount"), "4");
        co_await keys("ф");
        EXPECT_EQ(current("DBGrid"), "Фантастика");
        co_await key(Qt::Key_Escape);
    });
}

TEST_F(EditDictionary, RenamesForAllDiscsAndKeepsTheEmptyName)
{
    shelf.dvd(1, "Солярис").of("Фантастика");
    edit([&]() -> Script {
        co_await focusOn("DBGrid");
        expectBox("Удаление или изменение этого жанра не допустимо!", 48);
        co_await doubleClick("DBGrid", "(не указано)");
        expectBox("Удаление или изменение этого жанра не допустимо!", 48);
        co_await key(Qt::Key_Delete);

        co_await key(Qt::Key_End);
        expectInputOffering("Фантастика", change, changing, "Фантастика");
        expectBox("Жанр 'Фантастика' уже существует. Ввести другой?", 36, Answer::Yes);
        expectInputOffering("Фантастика", change, changing, "а\"б");
        expectBox(quotation, 48);
        co_await click("imgButton_3");
        expectInputOffering("Фантастика", change, changing, "Аниме");
        co_await key(Qt::Key_F2);
        EXPECT_EQ(current("DBGrid"), "Аниме") << "the row stays, wherever it goes";
    });
    EXPECT_EQ(rows("SELECT Жанр FROM DVD, Жанр WHERE DVD.КодЖанр = Жанр.КодЖанр"), "Аниме\n");
}

TEST_F(EditDictionary, DeletesWhatNoDiscUses)
{
    shelf.dvd(1, "Солярис").of("Боевик");
    edit([&]() -> Script {
        co_await click("DBGrid", "Боевик");
        expectBox("Вы действительно хотите удалить жанр 'Боевик'?", 36);
        expectBox("Жанр 'Боевик' не может быть удален, т.к. он используется в одном или более дисках.", 48);
        co_await key(Qt::Key_Delete);
        EXPECT_EQ(current("DBGrid"), "Боевик");
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            co_await click("DBGrid", "Фантастика");
            expectBox("Вы действительно хотите удалить жанр 'Фантастика'?", 36, answer);
            co_await click("imgButton_2");
        }
        EXPECT_EQ(current("DBGrid"), "Боевик") << "the neighbour of the last one";
        EXPECT_EQ(genres(), "\nБоевик\n");
    });
}

TEST_F(EditDictionary, EachSpeaksOfItsOwnNames)
{
    shelf.audio(1, "Кино").of("Rock");
    edit(
        [&]() -> Script {
            EXPECT_EQ(windowName() + title(), "frmEditStyleСтили аудио дисков");
            expectBox("Удаление или изменение этого стиля не допускается!", 48);
            co_await click("imgButton_2");
            expectBox("Удаление или изменение этого стиля не допустимо!", 48);
            co_await click("imgButton_3");
            co_await click("DBGrid", "Rock");
            expectBox("Вы действительно хотите удалить стиль 'Rock'?", 36);
            expectBox("\u0043тиль 'Rock' не может быть удален, т.к. он используется в одном или более дисках.", 48);
            co_await click("imgButton_2");
            co_await picture("frmEditStyle");
        },
        Audio());
    edit(
        [&]() -> Script {
            EXPECT_EQ(windowName() + title(), "frmEditDescriptionОписания компьютерных дисков");
            expectInput("Введите название описания:", "Добавление нового описания", "Квест");
            expectBox("Описание 'Квест' уже существует. Ввести другое?", 36, Answer::No);
            co_await click("imgButton_1");
        },
        Computer());
}
}
