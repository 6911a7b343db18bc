#include "catalogue/frmEditDictionary.h"
#include "harness/ScreenTest.h"

namespace {
class EditDictionary : public ScreenTest {
protected:
    const QString add = "Введите название жанра:", adding = "Добавление нового жанра";
    const QString change = "Измените название жанра:", changing = "Изменение жанра";
    const QString quotation = "В имени жанра не должно быть символа кавычек!";

    EditDictionary() { program.mainDatabase().Execute(u"DELETE FROM Жанр WHERE КодЖанр > 3"); }
};

TEST_F(EditDictionary, AddsWhatIsNewAndGoesThere)
{
    const QString fifty(50, 'x'), question = "Жанр 'БОЕВИК' уже существует. Ввести другой?";
    const auto script = [&]() -> Script {
        EXPECT_EQ(sharedMnemonics(), "");
        EXPECT_EQ(shown("DBGrid"), "(не указано)\nБоевик\nФантастика\n");
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
        EXPECT_EQ(shown("lblCount"), "3");
        expectInput(add, adding, fifty);
        co_await click("imgButton_1");
        EXPECT_EQ(current("DBGrid") + shown("lblCount"), fifty + '4');
        co_await keys("ф");
        EXPECT_EQ(current("DBGrid"), "Фантастика");
    };
    run<frmEditDictionary>(script, Dvd());
}

TEST_F(EditDictionary, RenamesForAllDiscsAndKeepsTheEmptyName)
{
    shelf.dvd(1, "Солярис").of("Фантастика");
    const auto script = [&]() -> Script {
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
    };
    run<frmEditDictionary>(script, Dvd());
    EXPECT_EQ(rows("SELECT Жанр FROM DVD, Жанр WHERE DVD.КодЖанр = Жанр.КодЖанр"), "Аниме\n");
}

TEST_F(EditDictionary, DeletesWhatNoDiscUses)
{
    shelf.audio(1, "Кино").of("Ballad");
    program.mainDatabase().Execute(u"DELETE FROM Стиль WHERE КодСтиля > 3");
    const QString question = "Вы действительно хотите удалить стиль '%1'?";
    const auto script = [&]() -> Script {
        co_await click("DBGrid", "Ballad");
        expectBox(question.arg("Ballad"), 36);
        expectBox("\u0043тиль 'Ballad' не может быть удален, т.к. он используется в одном или более дисках.", 48);
        co_await key(Qt::Key_Delete);
        EXPECT_EQ(current("DBGrid"), "Ballad");
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            co_await click("DBGrid", "Blues");
            expectBox(question.arg("Blues"), 36, answer);
            co_await click("imgButton_2");
        }
        EXPECT_EQ(current("DBGrid"), "Ballad") << "the neighbour of the last one";
        EXPECT_EQ(shown("DBGrid"), "(не указано)\nBallad\n");
    };
    run<frmEditDictionary>(script, Audio());
}
}
