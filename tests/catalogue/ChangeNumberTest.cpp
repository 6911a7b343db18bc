#include "catalogue/frmChangeNumber.h"
#include "harness/ScreenTest.h"

namespace {
class ChangeNumberScreen : public ScreenTest {
protected:
    ChangeNumberScreen()
    {
        shelf.audio(7, "Кино", "Группа крови");
        shelf.audio(2, "Аквариум");
        shelf.dvd(7, "Солярис");
    }
    Script change(const char* old, const char* number)
    {
        co_await type("txtNumberOld", old);
        co_await key(Qt::Key_Return);
        EXPECT_EQ(focus(), "txtNumberNew");
        co_await keys(number);
        co_await key(Qt::Key_Return);
    }
    QString audio() { return rows("SELECT Номер, Название FROM Аудио ORDER BY КодАудиоДиск"); }
};

TEST_F(ChangeNumberScreen, MovesToAFreeNumberAndSwapsWithOneThatIsTaken)
{
    run<frmChangeNumber>([&]() -> Script {
        EXPECT_EQ(sharedMnemonics(), "");
        const QString move = "Подтвердите изменение диска № 7:\r'Кино - Группа крови' на № 9.";
        expectBox(move, 65, Answer::Cancel);
        co_await change("07", "9");
        EXPECT_EQ(shown("lblNumberOld") + " > " + shown("lblNumberNew"), "Кино - Группа крови > свободен");
        EXPECT_EQ(audio(), "7 | Кино\n2 | Аквариум\n");
        co_await picture("frmChangeNumber");
        expectBox(move, 65);
        expectBox("Диск № 7 был успешно изменен на № 9.", 64);
        co_await click("imgButton_0");
        EXPECT_EQ(focus() + shown("txtNumberOld") + shown("txtNumberNew"), "txtNumberOld") << "ready for the next one";

        const QString swap = "Поменять местами диск № 2:\r'Аквариум' и № 9:\r'Кино - Группа крови'?";
        expectBox(swap, 36, Answer::No);
        co_await change("2", "9");
        EXPECT_EQ(audio(), "9 | Кино\n2 | Аквариум\n");
        expectBox(swap, 36);
        expectBox("Диск № 2 был успешно изменен на № 9.", 64);
        co_await change("2", "9");
        EXPECT_EQ(audio(), "2 | Кино\n9 | Аквариум\n");

        co_await check("optCategory_2");
        expectBox("Поменять местами диск № 7:\r'Солярис' и № 7:\r'Солярис'?", 36);
        expectBox("Диск № 7 был успешно изменен на № 7.", 64);
        co_await change("7", "7");
    });
    EXPECT_EQ(rows("SELECT Номер FROM DVD"), "7\n");
}

TEST_F(ChangeNumberScreen, RefusesWhatIsNoNumberOrNoDisc)
{
    run<frmChangeNumber>([&]() -> Script {
        expectBox("Указан не верный номер диска для изменения. Повторите ввод.", 48);
        co_await change("", "3");
        EXPECT_EQ(focus(), "txtNumberOld");
        expectBox("Указан не верный новый номер диска. Повторите ввод.", 48);
        co_await change("7", "32768");
        EXPECT_EQ(control<QLineEdit>("txtNumberNew").selectedText(), "32768");
        expectBox("Диск № 5 отсутствует в каталоге.", 48);
        co_await change("5x", "3");
        EXPECT_EQ(control<QLineEdit>("txtNumberOld").selectedText(), "5") << "letters are not taken";
    });
    EXPECT_EQ(audio(), "7 | Кино\n2 | Аквариум\n");
}
}
