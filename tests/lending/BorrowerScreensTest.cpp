#include "harness/ScreenTest.h"
#include "lending/Borrowers.h"
#include "lending/PhoneBox.h"
#include "lending/frmDue.h"
#include "lending/frmDueStat.h"
#include "lending/frmEditDue.h"

#include <QCoreApplication>

namespace {
TEST(PhoneBox, EmptiesAndFillsOnlyOnTheWayToAnotherControl)
{
    PhoneBox box;
    const auto after = [&](QEvent::Type type, Qt::FocusReason reason, const QString& text) {
        box.setText(text);
        QFocusEvent event(type, reason);
        QCoreApplication::sendEvent(&box, &event);
        return box.text();
    };
    for (const auto& [reason, moves] : {std::pair{Qt::TabFocusReason, true},
                                        {Qt::MouseFocusReason, true},
                                        {Qt::PopupFocusReason, false},
                                        {Qt::ActiveWindowFocusReason, false}}) {
        EXPECT_EQ(after(QEvent::FocusIn, reason, NoPhone), moves ? QString() : NoPhone) << reason;
        EXPECT_EQ(after(QEvent::FocusOut, reason, {}), moves ? NoPhone : QString()) << reason;
        EXPECT_EQ(after(QEvent::FocusIn, reason, "1-22"), "1-22");
    }
}

class BorrowerScreens : public ScreenTest {
protected:
    /// Rating, days, discs out and the bar.
    QString standing()
    {
        QStringList told;
        for (const char* name : {"lblRating_1", "lblTotalDays_1", "lblDueCount", "prbRating"}) told += shown(name);
        return told.join(' ');
    }
};

TEST_F(BorrowerScreens, RateABorrowerByTheDiscsOnView)
{
    shelf.audio(7, "Кино", "Группа крови").lent("Иванов", "2003-01-01", "2003-02-20", "2003-01-31");
    shelf.computer(3, "Debian").lent("Иванов", "2003-11-01");
    shelf.dvd(2, "Удалён").lent("Иванов", "2003-01-01", "2003-01-15", "2003-01-31");
    program.mainDatabase().Execute(u"DELETE FROM DVD"_s);
    shelf.borrower("Яковлев");
    run<frmDueStat>([&]() -> Script {
        EXPECT_EQ(title(), "Статистика должников (всего: 2)");
        EXPECT_EQ(sharedMnemonics() + unnamedStops(), "");
        const QString audio = "Аудио диск        | 7 | 20\n", computer = "Компьютерный диск | 3 | ?\n",
                      dvd = "DVD диск          | - | нет\n";
        EXPECT_EQ(shown("lvRating"), audio + computer + dvd);
        EXPECT_EQ(standing(), "Плохой 20 1 7");
        co_await picture("frmDueStat");
        co_await clickHeader("lvRating", "№");
        EXPECT_EQ(shown("lvRating"), dvd + computer + audio);
        expectBox("Аудио диск № 7:\r'Кино - Группа крови'", 48);
        co_await doubleClick("lvRating", "7");
        expectBox("Этот диск был удален из каталога.", 48);
        co_await doubleClick("lvRating", "-");

        co_await click("optSorted_1");
        EXPECT_EQ(standing(), "Плохой 20 нет 20");
        co_await check("chDue");
        EXPECT_EQ(standing(), "- - - 0");
        EXPECT_TRUE(visible("txtNoDue"));
        co_await click("optSorted_0");
        EXPECT_EQ(shown("lvRating"), computer);
        EXPECT_EQ(standing(), "- - 1 0");
        EXPECT_FALSE(visible("txtNoDue") || enabled("prbRating"));
        co_await check("chDue", false);
        co_await click("DBGrid", "Яковлев");
        EXPECT_EQ(standing(), "- - - 0");
        EXPECT_EQ(shown("txtNoDue"), "Этот должник дисков ещё не брал.");
    });
}

TEST_F(BorrowerScreens, WithoutBorrowersHaveNothingToChoose)
{
    run<frmDueStat>([&]() -> Script {
        EXPECT_EQ(title() + standing(), "Статистика должников (всего: 0)- - - 0");
        EXPECT_FALSE(enabled("chDue") || enabled("optSorted_0") || enabled("DBGrid"));
        EXPECT_TRUE(visible("txtNoDue"));
        co_return;
    });
}

TEST_F(BorrowerScreens, OpenFromTheListOfDebtorsWhichShowsWhatTheyChanged)
{
    shelf.audio(7, "Кино").lent("Иванов", "2003-10-01");
    shelf.audio(8, "Аквариум").lent("Петрова", "2003-10-01");
    shelf.audio(9, "ДДТ");
    setOption("DblClickDue", "1");
    run<frmDue>([&]() -> Script {
        expectForm("frmDueStat");
        co_await doubleClick("DBGrid", "Петрова");
        EXPECT_EQ(current("DBGrid"), "Петрова | ");
        co_await key(Qt::Key_Escape);
        expectForm("frmAddInDueFromMain");
        co_await key(Qt::Key_Insert);
        co_await type("txtNumber", "9");
        expectBox("Подтвердите добавление должника на диск № 9:\r'ДДТ'", 65, Answer::Ok);
        expectForm("frmAddInDue");
        co_await key(Qt::Key_Return);
        co_await type("txtFIO", "Сидоров");
        co_await key(Qt::Key_Return);
        co_await key(Qt::Key_Escape);
        EXPECT_EQ(shown("lblCDsCount1"), "3");
        EXPECT_EQ(items("txtDueName"), "Иванов\nПетрова\nСидоров\n");
        EXPECT_EQ(shown("txtDueName"), "Сидоров") << "it goes to the new loan";
    });
}

TEST_F(BorrowerScreens, TakeNamesOfFiftyLettersThatNobodyHas)
{
    shelf.borrower("Абрамов");
    shelf.borrower("Яковлев");
    const QString prompt = "Введите имя должника:", caption = "Добавление нового имени", fifty(50, u'Б');
    run<frmEditDue>([&]() -> Script {
        EXPECT_EQ(sharedMnemonics() + unnamedStops(), "");
        expectInput(prompt, caption, fifty + u'Б');
        expectBox("Имя должника не должно быть длинее 50 символов!", 48);
        expectInput(prompt, caption, "яковлев");
        expectBox("Должник с именем 'яковлев' уже существует. Ввести другое?", 36);
        expectInput(prompt, caption, fifty);
        co_await key(Qt::Key_Insert);
        EXPECT_EQ(current("DBGrid"), fifty + " | нет");
        expectInputOffering(fifty, "Измените имя должника:", "Изменение имени должника", "Щукин \"Щука\"");
        co_await key(Qt::Key_F2);
        EXPECT_EQ(current("DBGrid"), "Щукин 'Щука' | нет");
        expectBox("Телефон должника 'Щукин 'Щука'' был успешно изменен.", 64);
        co_await type("txtTelephone", "1-22");
        co_await key(Qt::Key_Return);
        EXPECT_EQ(current("DBGrid"), "Щукин 'Щука' | 1-22");
        co_await picture("frmEditDue");
        expectInput("Измените имя должника:", "Изменение имени должника", "Абрамов");
        expectBox("Должник с именем 'Абрамов' уже существует. Ввести другое?", 36, Answer::No);
        co_await click("imgButton_3");
    });
    EXPECT_EQ(rows("SELECT Имя FROM ИменаДолжников ORDER BY КодИмени"), "Абрамов\nЯковлев\nЩукин 'Щука'\n");
}

TEST_F(BorrowerScreens, ForgetABorrowerWithHisLoansOnceAllAreBack)
{
    shelf.borrower("Абрамов");
    shelf.audio(7, "Кино").lent("Яковлев", "2003-10-01");
    run<frmEditDue>([&]() -> Script {
        const QString question = "Вы действительно хотите удалить должника '%1'?\r"
                                 "Статистическая информация будет также удалена.";
        co_await key(Qt::Key_End);
        expectBox(question.arg("Яковлев"), 36);
        expectBox("Должник 'Яковлев' не может быть удален, т.к. за ним числится один или более долгов.", 48);
        co_await key(Qt::Key_Delete);
        co_await act([&] { program.mainDatabase().Execute(u"UPDATE Должники SET Долг = False"_s); });
        expectBox(question.arg("Яковлев"), 36);
        co_await key(Qt::Key_Delete);
        EXPECT_EQ(rows("SELECT COUNT(*) FROM Должники"), "0\n");
        EXPECT_EQ(current("DBGrid"), "Абрамов | ");
        expectBox(question.arg("Абрамов"), 36);
        co_await key(Qt::Key_Delete);
        EXPECT_TRUE(visible("lblNoNames"));
        EXPECT_FALSE(enabled("imgButton_2") || enabled("txtTelephone"));
        EXPECT_EQ(focus(), "imgButton_1");
    });
}
}
