#include "harness/ScreenTest.h"
#include "lending/frmDue.h"

namespace {
/// Today is 14.11.2003.
class LoanList : public ScreenTest {
protected:
    template<class Body> void look(const Body& body) { run<frmDue>(body); }
    void threeLoans()
    {
        shelf.audio(7, "Кино", "Группа крови").lent("Иванов", "2003-10-01", {}, "2003-11-12");
        shelf.computer(7, "Debian").lent("Петрова", "2003-09-09");
        shelf.dvd(2, "Солярис").lent("Абрамов", "2003-11-01", {}, "2003-12-01");
        shelf.borrower("Яковлев");
    }
    QString names()
    {
        QStringList found;
        for (const QString& row : shown("DBGrid").split('\n', Qt::SkipEmptyParts))
            found += row.section('|', 0, 0).trimmed();
        return found.join(' ');
    }
    QString detail()
    {
        QStringList told;
        for (const char* name : {"txtDueName", "txtTelephone", "txtDaysDue", "lblDue", "cmbCategory", "txtNumber",
                                 "lblDescriptionCD", "txtName"})
            told += shown(name);
        return told.join(" | ");
    }
    QString counter() { return shown("lblCDsCount0") + " " + shown("lblCDsCount1"); }
};

TEST_F(LoanList, TellsWhoHasWhatSinceWhenAndHowLateHeIs)
{
    threeLoans();
    shelf.computer(1, "Сегодня").lent("Борисов", "2003-11-01", {}, "2003-11-14");
    shelf.computer(5, "Удалён").lent("Гость", "2003-11-02");
    program.mainDatabase().Execute(u"DELETE FROM Компьютер WHERE Номер = 5");
    setOption("tmrDueCatalogue", "1000");
    look([&]() -> Script {
        EXPECT_EQ(shown("DBGrid"), "Абрамов | 2. Солярис             | 01.11.2003 | 01.12.2003 | \n"
                                   "Борисов | 1. Сегодня             | 01.11.2003 | сегодня    | \n"
                                   "Гость   | -                      | 02.11.2003 | без срока  | \n"
                                   "Иванов  | 7. Кино - Группа крови | 01.10.2003 | 12.11.2003 | 2 дня\n"
                                   "Петрова | 7. Debian              | 09.09.2003 | без срока  | \n");
        EXPECT_EQ(counter(), "Должников в списке: 5");
        EXPECT_EQ(sharedMnemonics() + unnamedStops(), "");
        const std::pair<const char*, bool> details[] = {
            {"Абрамов |  | нет |  | DVD диск | 2 | Название | Солярис", false},
            {"Борисов |  | нет | Забрать | Компьютерный диск | 1 | Название | Сегодня", true},
            {"Гость |  | нет |  | Компьютерный диск |  | Название | -", false},
            {"Иванов |  | 2 дня | Забрать | Аудио диск | 7 | Группа/Исполнитель - Альбом | "
             "Кино - Группа крови",
             true},
            {"Петрова |  | нет |  | Компьютерный диск | 7 | Название | Debian", false}};
        for (const auto& [told, marked] : details) {
            EXPECT_EQ(detail(), told);
            EXPECT_EQ(visible("imgDue"), marked);
            co_await advance(100);
            EXPECT_FALSE(visible("imgDue") || visible("lblDue")) << "it blinks";
            co_await key(Qt::Key_Down);
        }
        co_await key(Qt::Key_Up);
        co_await picture("frmDue");
        for (const char* box : {"txtDueName", "txtNumber", "txtTelephone", "DBGrid"}) co_await focusOn(box);
        EXPECT_EQ(counter(), "Должников в списке: 5") << "who only passes through a box filters nothing";
        co_await type("txtDueName", "Гость");
        co_await type("txtNumber", "1");
        co_await focusOn("DBGrid");
        EXPECT_EQ(shown("txtDueName") + shown("txtNumber"), "Иванов7") << "what led nowhere";
        EXPECT_EQ(counter(), "Должников в списке: 5");
    });
}

TEST_F(LoanList, FiltersReplaceEachOtherAndAnEmptyResultLeavesThem)
{
    threeLoans();
    look([&]() -> Script {
        co_await select("cmbCategory", "Аудио диск");
        EXPECT_EQ(names(), "Иванов");
        EXPECT_EQ(title(), "Список должников - Результат запроса");
        EXPECT_EQ(counter(), "Должников удовлетворяющих запросу: 1");
        co_await select("txtDueName", "Петрова");
        EXPECT_EQ(names(), "Петрова");
        co_await type("txtDueName", "ро\"");
        co_await key(Qt::Key_Return);
        EXPECT_EQ(names(), "");
        EXPECT_TRUE(visible("cmbSorted") && enabled("cmbCategory"));
        EXPECT_FALSE(enabled("imgButton_2"));
        co_await type("txtDueName", "ов*");
        co_await key(Qt::Key_Return);
        EXPECT_EQ(names(), "Абрамов Иванов Петрова");
        co_await click("imgButton_5");
        EXPECT_EQ(title(), "Список должников");
        EXPECT_EQ(counter(), "Должников в списке: 3");
        EXPECT_FALSE(enabled("imgButton_5"));
        co_await select("cmbCategory", "DVD диск");
        expectBox("Удалить из списка должника 'Абрамов'?", 36);
        co_await click("imgButton_2");
        EXPECT_EQ(names() + shown("txtDueName"), "") << "nobody was asked for by name";
        co_await select("txtDueName", "Яковлев");
        EXPECT_EQ(names(), "");
        EXPECT_FALSE(enabled("txtTelephone"));
        expectForm("frmDueStat");
        co_await click("imgButton_4");
        EXPECT_EQ(current("DBGrid").section('|', 0, 0).trimmed(), "Яковлев");
        co_await key(Qt::Key_Escape);

        expectForm("frmAddInDueFromMain");
        co_await click("imgButton_1");
        co_await act([&] { program.shared.CatalogueQueryFilter.clear(); }); // as the picker of discs does
        co_await key(Qt::Key_Escape);
        EXPECT_EQ(counter(), "Должников удовлетворяющих запросу: 0");
    });
    EXPECT_EQ(program.shared.CatalogueQueryFilter, "");
}

TEST_F(LoanList, SortOrderIsKeptWhenAsked)
{
    threeLoans();
    for (const char* save : {"0", "1"}) {
        setOption("SaveSortedDueList", save);
        look([&]() -> Script {
            EXPECT_EQ(names(), "Абрамов Иванов Петрова");
            co_await select("cmbSorted", "по дате возврата");
            EXPECT_EQ(names(), "Петрова Иванов Абрамов");
            co_await select("cmbSorted", "по дате добавления");
            co_await check("chSortedDESC");
        });
    }
    look([&]() -> Script {
        EXPECT_EQ(names(), "Абрамов Иванов Петрова");
        EXPECT_EQ(shown("cmbSorted"), "по дате добавления");
        EXPECT_TRUE(checked("chSortedDESC"));
        co_return;
    });
}

TEST_F(LoanList, AReturnAsksAndLeavesTheLoanInTheLedger)
{
    threeLoans();
    look([&]() -> Script {
        co_await key(Qt::Key_Down);
        expectBox("Удалить из списка должника 'Иванов'?", 36, Answer::No);
        co_await key(Qt::Key_Delete);
        expectBox("Удалить из списка должника 'Иванов'?", 36);
        co_await click("imgButton_2");
        EXPECT_EQ(names(), "Абрамов Петрова");
        EXPECT_EQ(shown("txtDueName"), "Петрова") << "it stays where the loan was";
    });
    EXPECT_EQ(rows("SELECT Долг, ДатаВозврата, ДатаВозвратаРеальная FROM Должники WHERE Категория = 'AD'"),
              "0 | 2003-11-12 | 2003-11-14\n");
    EXPECT_EQ(rows("SELECT Должник FROM Аудио"), "0\n");
}

TEST_F(LoanList, ALoanFromElsewhereCanBeFoundAndClosedAndWithoutLoansThereIsNothingToFilter)
{
    const QString odd = "Гость #2 \"*\" [я]";
    shelf.audio(7, "Кино").lent(odd, "2003-10-01");
    program.mainDatabase().Execute(u"UPDATE Должники SET Категория = \"LP\""_s);
    look([&]() -> Script {
        co_await select("txtDueName", odd);
        EXPECT_EQ(names(), odd);
        EXPECT_FALSE(enabled("imgButton_3"));
        expectBox(u"Удалить из списка должника '%1'?"_s.arg(odd), 36);
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_Delete);
        EXPECT_EQ(names(), "");
        co_await click("imgButton_5");
        EXPECT_EQ(focus(), "imgButton_1");
        EXPECT_EQ(detail(), " |  |  |  |  |  | Группа/Исполнитель - Альбом/Название | ");
        EXPECT_EQ(control<DBGrid>("DBGrid").emptyText(), "Все диски на месте: должников нет.");
        EXPECT_FALSE(visible("lblSorted") || visible("chSortedDESC") || visible("TabStrip") || visible("imgDue"));
        EXPECT_FALSE(enabled("txtNumber") || enabled("cmbCategory") || enabled("imgButton_2") ||
                     enabled("imgButton_4"));
    });
    EXPECT_EQ(rows("SELECT Долг, ДатаВозвратаРеальная FROM Должники"), "0 | 2003-11-14\n");
}

TEST_F(LoanList, AChangedTermShowsAtOnceAndOneGivenUpChangesNothing)
{
    threeLoans();
    look([&]() -> Script {
        co_await key(Qt::Key_End);
        expectForm("frmAddInDue");
        co_await doubleClick("DBGrid", "Петрова");
        EXPECT_EQ(shown("lblDoNewBackDate"), "Ранее установленная дата возврата:\nбессрочный долг");
        EXPECT_FALSE(visible("dtpBackDate"));
        EXPECT_EQ(shown("txtFIO"), "Петрова");
        EXPECT_FALSE(enabled("txtFIO"));
        co_await check("chDueNonStop", false);
        EXPECT_TRUE(enabled("dtpBackDate"));
        co_await click("imgButton_0");
        EXPECT_EQ(current("DBGrid"), "Петрова | 7. Debian | 09.09.2003 | сегодня | ");
        EXPECT_EQ(shown("lblDue"), "Забрать");
        for (const char* day : {"15.11.2003", ""}) {
            expectForm("frmAddInDue");
            co_await key(Qt::Key_F2);
            if (*day)
                co_await type("dtpBackDate", day);
            else
                co_await check("chDueNonStop");
            co_await click("imgButton_0");
            EXPECT_EQ(current("DBGrid").section('|', 3).trimmed(), u"%1 |"_s.arg(*day ? day : "без срока"));
            EXPECT_FALSE(visible("lblDue"));
        }

        co_await key(Qt::Key_Up);
        expectForm("frmAddInDue");
        co_await key(Qt::Key_F2);
        EXPECT_EQ(shown("lblDescription") + ": " + shown("txtName"),
                  "Группа/Исполнитель - Альбом: Кино - Группа крови");
        EXPECT_EQ(shown("lblDoNewBackDate"), "Ранее установленная дата возврата:\n12 ноября 2003 г.");
        co_await picture("frmAddInDue-change");
        co_await key(Qt::Key_Escape);
        EXPECT_FALSE(program.shared.DueDateChange);
        EXPECT_EQ(shown("txtDaysDue"), "2 дня");
    });
    EXPECT_EQ(rows("SELECT ДатаВозврата FROM Должники ORDER BY КодДолжника"), "2003-11-12\nNull\n2003-12-01\n");
    EXPECT_FALSE(program.shared.DialogDone);
}

TEST_F(LoanList, TheTelephoneIsTheBorrowers)
{
    shelf.audio(7, "Кино").lent("Иванов", "2003-10-01");
    shelf.audio(8, "Аквариум").lent("Иванов", "2003-10-01");
    look([&]() -> Script {
        expectBox("Телефон должника 'Иванов' был успешно изменен.", 64);
        co_await type("txtTelephone", "8 (495) 123-45-67");
        co_await key(Qt::Key_Return);
        EXPECT_EQ(rows("SELECT Телефон FROM ИменаДолжников"), "8 (495) 123-45-\n") << "as much as the field holds";
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_Down);
        EXPECT_EQ(shown("txtTelephone"), "8 (495) 123-45-");
        expectBox("Телефон должника 'Иванов' был успешно изменен.", 64);
        co_await type("txtTelephone", "");
        co_await click("cmdMakeChange");
        EXPECT_EQ(shown("txtTelephone"), "нет");
        EXPECT_EQ(current("DBGrid").section('|', 1, 1).trimmed(), "8. Аквариум");
    });
}

TEST_F(LoanList, ANumberLeadsToItsLoanAndAsksForTheCategoryWhereItIsShared)
{
    threeLoans();
    shelf.dvd(7, "На месте");
    shelf.computer(30, "Только отмечен").set("Должник", true);
    const auto enter = [&](const char* number) -> Script {
        co_await type("txtNumber", number);
        co_await key(Qt::Key_Return);
    };
    look([&]() -> Script {
        expectBox("Указан не верный номер диска. Повторите ввод.", 48);
        co_await enter("0");
        for (const char* missing : {"5", "30"}) {
            expectBox(u"Диска № %1 нет в списке должников!"_s.arg(missing), 48);
            co_await enter(missing);
            EXPECT_EQ(control<QLineEdit>("txtNumber").selectedText(), missing);
        }
        expectForm("frmSelectCategory");
        co_await enter("7");
        EXPECT_EQ(shown("lblTrabl"), "Какая категория диска № 7 Вас интересует?");
        EXPECT_FALSE(enabled("optDVD"));
        co_await click("optPC");
        co_await click("imgButton_0");
        EXPECT_EQ(shown("txtDueName"), "Петрова");
        expectForm("frmSelectCategory");
        co_await enter("7");
        co_await key(Qt::Key_Escape);
        EXPECT_EQ(shown("txtDueName"), "Петрова");
        co_await select("cmbCategory", "Аудио диск");
        expectBox("Диска № 30 нет в списке должников!", 48);
        co_await enter("30");
        EXPECT_EQ(names() + shown("txtNumber"), "Иванов30") << "what is not found leaves the filter";
        co_await enter("2");
        EXPECT_EQ(shown("txtDueName"), "Абрамов") << "a filter does not hide it";
        EXPECT_EQ(title(), "Список должников");
    });
}
}
