#include "catalogue/frmAddInCataloguePC.h"
#include "harness/ScreenTest.h"

namespace {
/// An editor with a field of its own at each place for one.
class OwnFieldsEditor : public frmAddInCatalogue {
public:
    explicit OwnFieldsEditor(Program& program) : frmAddInCatalogue(program, Audio())
    {
        completeTitles(txtAlbum);
        build({.titleCaption = label(u"&Альбом:"_s, txtAlbum),
               .title = txtAlbum,
               .behindYear = row(txtTrack),
               .behindCount = row(txtTime),
               .below = column(txtBelow)});
        moveOnByEnter({txtName, txtAlbum, txtYear, txtTrack, txtCDs, txtTime, txtDictionary});
    }
    QLineEdit* txtAlbum = named("txtAlbum");
    QLineEdit* txtTrack = named("txtTrack");
    QLineEdit* txtTime = named("txtTime");
    QLineEdit* txtBelow = named("txtBelow");

protected:
    void showExtras(const QHash<QString, Value>&) override {}
    QHash<QString, Value> extras() const override { return {{u"Альбом"_s, txtAlbum->text()}}; }
};

class Editor : public ScreenTest {
protected:
    template<class Form = frmAddInCataloguePC, class Body> void add(int number, const Body& body)
    {
        runFilled<Form>([number](frmAddInCatalogue& editor) { editor.AddUnder(number); }, body);
    }
    template<class Body> void change(const ShelfDisc& disc, const Body& body)
    {
        runFilled<frmAddInCataloguePC>(
            [&](frmAddInCataloguePC& editor) {
                program.shared.CatalogueQueryFilter = "edit:1";
                editor.Change(*ReadRecord(program.mainDatabase(), Computer(), disc.key()));
                program.shared.CatalogueQueryFilter.clear();
            },
            body);
    }
    Script save(const char* box, const char* text)
    {
        co_await type(box, text);
        co_await click("imgButton_0");
    }
    static QString question(int before, int after)
    {
        return QString("Вы изменили общее число дисков c %1 на %2! Если для удаляемых дисков была создана структура "
                       "файлов, то она будет удалена. Продолжить?")
            .arg(before)
            .arg(after);
    }
};

TEST_F(Editor, AddsADiscWithItsFieldsAndTheBindingThatWasAskedFor)
{
    shelf.computer(1, "Сборник (1) 'А', том 2"); // what the cleaned title would be completed to
    program.shared.AutoDetectTag = "ad:1A2B";
    add(7, [&]() -> Script {
        EXPECT_EQ(shown("lblCDsCount0"), "Добавление Компьютерного диска");
        EXPECT_EQ(shown("lblNumber"), "7");
        EXPECT_EQ(shown("txtYear"), "2003");
        EXPECT_EQ(sharedMnemonics(), "");
        co_await picture("frmAddInCataloguePC");
        co_await focusOn("txtName");
        co_await keys("Сборник [1] \"А\"\n2001\n");
        EXPECT_EQ(focus(), "udCDs"); // the counter holds the keyboard for its box
        co_await type("txtDescription2", "длинно");
        co_await focusOn("txtDescription");
        co_await keys("Шахматы\n");
    });
    EXPECT_EQ(
        rows("SELECT Номер, Название, Год, Дисков, РасОписание, ДискID1_d, КодОписания FROM Компьютер WHERE Номер = 7")
            .trimmed(),
        "7 | Сборник (1) 'А' | 2001 | 1 | длинно | 1A2B | 24");
    EXPECT_TRUE(program.shared.DialogDone);
    EXPECT_EQ(program.shared.LastSavedNumber, 7);
    EXPECT_EQ(program.shared.AutoDetectTag, "");
}

TEST_F(Editor, FieldsOfACatalogueStandInTheOrderOfEnterAndTab)
{
    shelf.audio(1, "Кино", "Группа [крови]");
    add<OwnFieldsEditor>(2, [&]() -> Script {
        EXPECT_EQ(sharedMnemonics(), "");
        const QStringList order{"txtName", "txtAlbum", "udYear", "txtTrack", "udCDs", "txtTime", "txtStyle"};
        for (const int by : {Qt::Key_Tab, Qt::Key_Return}) {
            co_await focusOn("txtName");
            for (const QString& box : order) {
                EXPECT_EQ(focus(), box);
                if (box != order.last()) co_await key(by);
            }
        }
        co_await type("txtAlbum", "гру");
        EXPECT_EQ(shown("txtAlbum"), "Группа [крови]");
        co_await save("txtName", "Кино");
    });
    EXPECT_EQ(rows("SELECT Альбом FROM Аудио WHERE Номер = 2").trimmed(), "Группа (крови)");
}

TEST_F(Editor, NameIsRequiredAndADescriptionHasFiftyCharacters)
{
    add(1, [&]() -> Script {
        expectBox("Введите название диска.\rДанное поле является обязательным для заполнения.", 48);
        co_await click("imgButton_0");
        EXPECT_EQ(focus(), "txtName");

        co_await type("txtName", QString(70, 'n'));
        EXPECT_EQ(shown("txtName").size(), 60);
        expectBox("Описание не должно быть длинее 50 символов!", 48);
        co_await type("txtDescription", QString(51, 'd'));
        co_await click("imgButton_0");
        EXPECT_EQ(focus(), "txtDescription");

        co_await type("txtDescription2", QString(260, 'x'));
        EXPECT_EQ(shown("txtDescription2").size(), 255);
        co_await type("txtDescription", QString(50, 'd'));
        co_await click("imgButton_0");
    });
    EXPECT_EQ(rows("SELECT Описание FROM Описание WHERE КодОписания = 24").trimmed(), QString(50, 'd'));
}

TEST_F(Editor, CountsWithTheArrowsAndNeverLeavesOneToSix)
{
    add(1, [&]() -> Script {
        co_await focusOn("txtYear");
        co_await key(Qt::Key_Up);
        EXPECT_EQ(shown("txtYear"), "2004");
        co_await type("txtCDs", "6");
        co_await key(Qt::Key_Down);
        co_await keys("x");
        EXPECT_EQ(shown("txtCDs"), "5");
        for (const char* wrong : {"", "0", "7"}) {
            control<QLineEdit>("txtCDs").setText(wrong);
            EXPECT_EQ(shown("txtCDs"), "1") << wrong;
        }
        co_await keys("3");
        EXPECT_EQ(shown("txtCDs"), "3");
    });
}

TEST_F(Editor, CompletesTitlesAndDescriptionsButNotWhileTheOpenerFills)
{
    const ShelfDisc disc = shelf.computer(1, "Эн").of("Словарь");
    shelf.computer(2, "Энциклопедия животных");
    change(disc, [&]() -> Script {
        EXPECT_EQ(control<QLineEdit>("txtName").selectedText(), "Эн");
        co_await type("txtName", "энц");
        EXPECT_EQ(control<QLineEdit>("txtName").selectedText(), "иклопедия животных");
        co_await type("txtDescription", "3D-");
        EXPECT_EQ(shown("txtDescription"), "3D-шутер");
    });
}

TEST_F(Editor, PendingShiftMakesRoomAndWhereItCannotTheUserIsAskedAtEachOk)
{
    shelf.computer(1, "Первый");
    program.shared.ShiftStart = 1;
    add(1, [&]() -> Script { co_await save("txtName", "Новый"); });
    EXPECT_EQ(rows("SELECT Номер, Название FROM Компьютер ORDER BY Номер"), "1 | Новый\n2 | Первый\n");
    EXPECT_EQ(program.shared.ShiftStart, 0);

    shelf.computer(32767, "Последний");
    program.shared.ShiftStart = 1;
    const QString refusal = "Номера начиная с 1-го нельзя сместить: самый большой возможный номер, 32767, уже занят.\r"
                            "Сохранить диск, не смещая номера?";
    add(1, [&]() -> Script {
        expectBox(refusal, 52, Answer::No);
        co_await save("txtName", "Рядом");
        EXPECT_EQ(rows("SELECT COUNT(*) FROM Компьютер").trimmed(), "3");
        expectBox(refusal, 52, Answer::Yes);
        co_await click("imgButton_0");
    });
    EXPECT_EQ(rows("SELECT Название FROM Компьютер WHERE Номер = 1"), "Новый\nРядом\n");
    EXPECT_EQ(program.shared.ShiftStart, 0);
}

TEST_F(Editor, RefusedReductionSavesNothingButTheNewDescription)
{
    const ShelfDisc disc = shelf.computer(1, "Набор").discs(4).list(3, "CCCC", {"\\c"});
    change(disc, [&]() -> Script {
        co_await type("txtDescription", "Совсем новое");
        expectBox(question(4, 2), 52, Answer::No);
        co_await save("txtCDs", "2");
        EXPECT_EQ(rows("SELECT Дисков, ДискID3, КодОписания FROM Компьютер").trimmed(), "4 | CCCC | 1");
        EXPECT_EQ(rows("SELECT Описание FROM Описание WHERE КодОписания = 24").trimmed(), "Совсем новое");
        EXPECT_FALSE(program.shared.DialogDone);

        expectBox(question(4, 2), 52, Answer::Yes);
        co_await click("imgButton_0");
    });
    EXPECT_EQ(rows("SELECT Дисков, ДискID3, КодОписания FROM Компьютер").trimmed(), "2 | Null | 24");
    EXPECT_FALSE(program.filesDatabase().HasTable("CCCC"));
}

TEST_F(Editor, TakingAwayAFifthDiscThatHasAListEndsInTheFaultRoutine)
{
    const ShelfDisc disc = shelf.computer(1, "Набор").discs(6).list(4, "DDDD", {"\\d"}).list(5, "EEEE", {"\\e"});
    change(disc, [&]() -> Script {
        expectBox(question(6, 3), 52);
        expectFault("frmAddInCataloguePC, cmdAdd()");
        co_await save("txtCDs", "3");
    });
    // What was done before the fault is kept.
    EXPECT_EQ(rows("SELECT Дисков, ДискID4, ДискID5 FROM Компьютер").trimmed(), "6 | Null | EEEE");
    EXPECT_TRUE(program.filesDatabase().HasTable("EEEE"));
}
}
