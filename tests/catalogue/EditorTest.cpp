#include "catalogue/Catalogues.h"
#include "catalogue/Given.h"
#include "catalogue/frmAddInCatalogue.h"
#include "harness/ScreenTest.h"

namespace {
class Editor : public ScreenTest {
protected:
    explicit Editor(const CatalogueKind& kind = Computer()) : kind(kind) {}

    template<class Body> void add(int number, const Body& body)
    {
        const auto open = [&] {
            const auto editor = MakeEditor(program, kind);
            editor->AddUnder(number);
            editor->ShowModal();
        };
        play(open, body);
    }
    template<class Body> void change(const ShelfDisc& disc, const Body& body)
    {
        const auto open = [&] {
            const auto editor = MakeEditor(program, kind);
            program.shared.CatalogueQueryFilter = "edit:1";
            editor->Change(*ReadRecord(program.mainDatabase(), kind, disc.key()));
            program.shared.CatalogueQueryFilter.clear();
            editor->ShowModal();
        };
        play(open, body);
    }
    Script save(const char* box, const char* text)
    {
        co_await type(box, text);
        co_await click("imgButton_0");
    }
    /// What of the one disc, or of the last one, is stored in these fields.
    QString stored(const QString& fields)
    {
        return rows(u"SELECT %1 FROM %2 ORDER BY %3 DESC"_s.arg(fields, kind.table, kind.key)).section('\n', 0, 0);
    }
    static QString question(int before, int after)
    {
        return QString("Вы изменили общее число дисков c %1 на %2! Если для удаляемых дисков была создана структура "
                       "файлов, то она будет удалена. Продолжить?")
            .arg(before)
            .arg(after);
    }

    const CatalogueKind& kind;
};

class EveryEditor : public Editor, public testing::WithParamInterface<const CatalogueKind*> {
protected:
    EveryEditor() : Editor(*GetParam()) {}
};
INSTANTIATE_TEST_SUITE_P(, EveryEditor, testing::ValuesIn(AllCatalogues()), CodeOfCatalogue);

TEST_P(EveryEditor, AddsADiscWithItsFieldsAndTheBindingThatWasAskedFor)
{
    shelf.disc(kind, 1, "Сборник (1) 'А', том 2"); // what the cleaned title would be completed to
    program.shared.AutoDetectTag = "ad:1A2B";
    add(7, [&]() -> Script {
        EXPECT_EQ(shown("lblCDsCount0"), kind.addCaption);
        EXPECT_EQ(shown("lblNumber"), "7");
        EXPECT_EQ(shown("txtYear"), "2003");
        co_await picture(kind.editor);
        co_await type("txtYear", "19x987");
        co_await type("txtName", "Сборник [1] \"А\"");
        co_await save(kind.dictionary.boxName.toLatin1().constData(), "Совсем новое");
    });
    EXPECT_EQ(stored("Номер, Название, Год, Дисков, ДискID1_d"), "7 | Сборник (1) 'А' | 1998 | 1 | 1A2B");
    const QString& names = kind.dictionary.table;
    EXPECT_EQ(rows(u"SELECT %1 FROM %1 ORDER BY %2 DESC"_s.arg(names, kind.dictionary.key)).section('\n', 0, 0),
              "Совсем новое");
    EXPECT_TRUE(program.shared.DialogDone);
    EXPECT_EQ(program.shared.LastSavedNumber, 7);
    EXPECT_EQ(program.shared.AutoDetectTag, &kind == &Audio() ? "ad:1A2B" : "");
}

TEST_P(EveryEditor, FieldsStandInTheOrderOfEnterAndTab)
{
    const struct {
        const char *enter, *tab;
    } orders[] = {{"txtName txtAlbum udYear udTrack udCDs udTime txtStyle",
                   "txtName txtAlbum udYear udTrack udCDs udTime cmbCountCD txtStyle cmbDrive imgButton_2"},
                  {"txtName udYear udCDs txtDescription", "txtName udYear udCDs txtDescription txtDescription2"},
                  {"txtName udYear udCDs udTime cmbZone txtGenre",
                   "txtName udYear udCDs udTime cmbZone txtGenre txtDescription lvSoundFormat"}};
    const auto& [enter, tab] = orders[CatalogueIndex(kind)];
    add(2, [&]() -> Script {
        EXPECT_EQ(sharedMnemonics() + unnamedStops(), "");
        co_await type("txtCDs", "2");
        co_await focusOn("txtName");
        for (const QString& control : QString(tab).split(' ')) {
            EXPECT_EQ(focus(), control);
            co_await key(Qt::Key_Tab);
        }
        EXPECT_EQ(focus(), "imgButton_0");
        co_await type("txtName", "Диск");
        for (const QString& control : QString(enter).split(' ')) {
            EXPECT_EQ(focus(), control); // a counter holds the keyboard for its box
            co_await key(Qt::Key_Return);
        }
    });
    EXPECT_EQ(stored("Номер, Название, Дисков"), "2 | Диск | 2");
}

TEST_P(EveryEditor, NameIsRequiredAndADictionaryNameHasFiftyCharacters)
{
    const QByteArray names = kind.dictionary.boxName.toLatin1();
    add(1, [&]() -> Script {
        expectBox(kind.requiredMessage, 48);
        co_await click("imgButton_0");
        EXPECT_EQ(focus(), "txtName");

        co_await type("txtName", QString(70, 'n'));
        EXPECT_EQ(shown("txtName").size(), 60);
        co_await type(names, QString(51, 'z'));
        if (&kind == &Dvd()) {
            EXPECT_EQ(shown(names).size(), 50);
        } else {
            expectBox(kind.dictionary.lengthMessage, 48);
            co_await click("imgButton_0");
            EXPECT_EQ(focus(), names);
            co_await type(names, QString(50, 'z'));
        }
        co_await click("imgButton_0");
    });
    const QString& table = kind.dictionary.table;
    EXPECT_EQ(rows(u"SELECT %1 FROM %1 ORDER BY %2 DESC"_s.arg(table, kind.dictionary.key)).section('\n', 0, 0),
              QString(50, 'z'));
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
TEST_F(Editor, LongDescriptionHasRoomFor255Characters)
{
    add(1, [&]() -> Script {
        co_await type("txtDescription2", QString(260, 'x'));
        co_await save("txtName", "Длинный");
    });
    EXPECT_EQ(stored("РасОписание"), QString(255, 'x'));
}

class AudioEditor : public Editor {
protected:
    AudioEditor() : Editor(Audio()) {}
    QString playing() { return shown("txtTrack") + ", " + shown("txtTime"); }
    const QString info = "Для получения информации о количестве треков и продолжительности воспроизведения диска "
                         "необходимо вставить Аудио диск в устройство для чтения компакт-дисков. Продоложить?";
};

TEST_F(AudioEditor, KeepsTracksAndTimeOfEachDiscAndForgetsThoseOfDiscsThatGo)
{
    const ShelfDisc disc = shelf.audio(1, "Кино", "Ночь").discs(3).playing(1, 9, "41:02").playing(3, 12, "60:00");
    change(disc, [&]() -> Script {
        EXPECT_EQ(shown("txtAlbum"), "Ночь");
        EXPECT_EQ(playing(), "09, 41:02");
        co_await select("cmbCountCD", "2");
        EXPECT_EQ(playing(), "00, 00:00") << "nothing is stored";
        co_await type("txtTrack", "7a8");
        co_await type("txtTime", "33:33");
        co_await select("cmbCountCD", "3");
        EXPECT_EQ(playing(), "12, 60:00");
        co_await type("txtCDs", "2");
        EXPECT_EQ(playing(), "09, 41:02");
        EXPECT_EQ(items("cmbCountCD"), "1\n2\n");
        co_await type("txtTime", "");
        co_await click("imgButton_0");
    });
    EXPECT_EQ(stored("Альбом, Записей1, Время1, Записей2, Время2, Записей3, Время3, Записей6, Время6"),
              "Ночь | 9 | Null | 78 | 33:33 | 0 | 00:00 | 0 | 00:00");
}

TEST_F(AudioEditor, CompletesAlbumsFromTitlesAndAlbums)
{
    shelf.audio(1, "Кино", "Группа [крови]");
    add(2, [&]() -> Script {
        EXPECT_FALSE(enabled("cmbCountCD"));
        co_await type("txtAlbum", "гру");
        EXPECT_EQ(shown("txtAlbum"), "Группа [крови]");
        co_await save("txtName", "Ки");
    });
    EXPECT_EQ(stored("Название, Альбом"), "Кино | Группа (крови)");
}

TEST_F(AudioEditor, TellsTracksAndTimeOfTheDiscInTheDrive)
{
    setOption("Drive", "V:\\");
    drives.add('D');
    add(1, [&]() -> Script {
        EXPECT_EQ(items("cmbDrive"), "D:\\\nV:\\\n");
        EXPECT_EQ(shown("cmbDrive"), "V:\\");
        expectBox(info, 33, Answer::Cancel);
        co_await click("imgButton_2");
        expectBox(info, 33, Answer::Ok);
        expectBox("Вставьте Аудио диск в устройство для чтения компакт-дисков!", 48);
        co_await click("imgButton_2");
        EXPECT_EQ(playing(), "00, 00:00");

        co_await type("txtCDs", "2");
        co_await select("cmbCountCD", "2");
        drives.v.medium = FakeDisc::audio({{0, 2, 0}, {1, 2, 0}}, {2, 7, 0});
        expectBox(info, 33, Answer::Ok);
        co_await click("imgButton_2");
        EXPECT_EQ(playing(), "02, 02:03");

        drives.v.medium = FakeDisc::audio({{0, 2, 0}}, {100, 2, 0});
        expectBox(info, 33, Answer::Ok);
        expectBox("Ошибка определеня времени воспроизведения диска!", 48);
        co_await click("imgButton_2");
        EXPECT_EQ(playing(), "01, 02:03");
        EXPECT_EQ(program.shared.CurrentDiscID, "");
        co_await save("txtName", "Набор");
    });
    EXPECT_EQ(stored("Записей1, Время1, Записей2, Время2"), "0 | 00:00 | 1 | 02:03");

    drives.none = true;
    add(2, [&]() -> Script {
        EXPECT_EQ(shown("cmbDrive"), "---");
        EXPECT_FALSE(enabled("cmbDrive"));
        EXPECT_FALSE(enabled("imgButton_2"));
        co_return;
    });
}

TEST_F(AudioEditor, ReductionDropsTheTrackListsOfTheDiscsThatGo)
{
    const ShelfDisc disc = shelf.audio(1, "Набор").discs(6).list(5, "EEEE", {"Раз"});
    change(disc, [&]() -> Script {
        expectBox("Вы изменили общее число дисков c 6 на 4! Если для удаляемых дисков был создан списко треков, то он "
                  "будет удален. Продолжить?",
                  52);
        co_await save("txtCDs", "4");
    });
    EXPECT_EQ(stored("Дисков, ДискID5"), "4 | Null");
    EXPECT_FALSE(program.tracksDatabase().HasTable("EEEE"));
}

class DvdEditor : public Editor {
protected:
    DvdEditor() : Editor(Dvd()) {}
};

TEST_F(DvdEditor, KeepsZoneTimeSoundAndDescriptionAndShrinksASetWithoutAWord)
{
    const ShelfDisc disc = shelf.dvd(1, "Фильм").discs(3).set("Время", 142).set("Зона", 12);
    change(ShelfDisc(disc).set("ФорматЗвука", u"2,5,"_s), [&]() -> Script {
        EXPECT_EQ(shown("cmbZone"), "12") << "no zone of this world, but the row's";
        EXPECT_EQ(shown("lvSoundFormat").count("[x]"), 2);
        EXPECT_TRUE(checked("lvSoundFormat", "DTS"));
        co_await check("lvSoundFormat", "Dolby Digital 5.1", false);
        co_await check("lvSoundFormat", "Mono");
        co_await focusOn("txtTime");
        co_await key(Qt::Key_Up);
        EXPECT_EQ(shown("txtTime"), "143");
        co_await select("cmbZone", "5");
        co_await type("txtDescription", "Сюжет");
        co_await save("txtCDs", "1");
    });
    EXPECT_EQ(stored("Дисков, Время, Зона, ФорматЗвука, Описание"), "1 | 143 | 5 | 5,8, | Сюжет");
    change(disc, [&]() -> Script {
        co_await select("cmbZone", "");
        co_await save("txtTime", "");
    });
    EXPECT_EQ(stored("Время, Зона, ФорматЗвука"), "Null | Null | 5,8,");
}
}
