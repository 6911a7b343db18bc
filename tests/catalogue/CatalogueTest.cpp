#include "catalogue/Catalogues.h"
#include "catalogue/Given.h"
#include "harness/ScreenTest.h"
#include "ui/DBGrid.h"

#include <QComboBox>

namespace {
class Catalogue : public ScreenTest {
protected:
    explicit Catalogue(const CatalogueKind& kind = Computer()) : kind(kind) {}

    /// Opens it, on a disc or, with 0, as ever.
    template<class Body> void browse(const Body& body, qint64 key = 0)
    {
        play([&] { OpenCatalogue(program, kind, nullptr, key); }, body);
    }
    void opensOn(const char* row, qint64 key = 0)
    {
        const auto look = [&]() -> Script {
            EXPECT_EQ(current("DBGrid"), row);
            co_return;
        };
        browse(look, key);
    }
    Script enter(const char* box, const char* text)
    {
        co_await type(box, text);
        co_await key(Qt::Key_Return);
    }
    /// Numbers of the buttons that can be pressed, those of the cover aside.
    QString buttons()
    {
        QString usable;
        for (int button = 0; button <= (kind.list ? 6 : 5); ++button)
            if (enabled(u"imgButton_%1"_s.arg(button))) usable += QString::number(button);
        return usable;
    }
    /// The same, of a catalogue that has lists.
    QString usual(QString buttons) const { return kind.list ? buttons : buttons.remove('6'); }
    /// Numbers of the discs in the grid, in order.
    QString numbers()
    {
        QStringList found;
        for (const QString& row : shown("DBGrid").split('\n', Qt::SkipEmptyParts))
            found += row.section('|', 0, 0).trimmed();
        return found.join(' ');
    }
    QString emptyText() { return control<DBGrid>("DBGrid").emptyText(); }
    QString counter() { return shown("lblCDsCount0") + " " + shown("lblCDsCount1"); }
    void threeDiscs()
    {
        shelf.disc(kind, 2, "Debian").of("Квест").year("2003");
        shelf.disc(kind, 1, "ALT Linux").of("RPG").year("2003").discs(2);
        shelf.disc(kind, 7, "Мандрейк").of("Квест").year("1999");
    }

    const CatalogueKind& kind;
};

class EveryCatalogue : public Catalogue, public testing::WithParamInterface<const CatalogueKind*> {
protected:
    EveryCatalogue() : Catalogue(*GetParam()) {}
};
INSTANTIATE_TEST_SUITE_P(, EveryCatalogue, testing::ValuesIn(AllCatalogues()), CodeOfCatalogue);

TEST_F(Catalogue, StoredQueryIsHonouredAndMarksEveryLaterOpening)
{
    threeDiscs();
    program.shared.CatalogueQueryMode = true;
    program.shared.CatalogueQueryFilter = "AND Год > \"2000\"";
    for (const char* found : {"1 2", "1 2 7"})
        browse([&]() -> Script {
            EXPECT_EQ(numbers(), found);
            EXPECT_EQ(title(), "Каталог Компьютерных дисков - Результат запроса");
            EXPECT_TRUE(enabled("imgButton_5"));
            co_return;
        });
    program.shared.CatalogueQueryFilter = "AND Нет = 1";
    expectFault("frmCataloguePCCD, cmbSored_Click()");
    browse([&]() -> Script { co_return; });
}

TEST_F(Catalogue, JumpsToANumberAndStaysWhenThereIsNone)
{
    threeDiscs();
    browse([&]() -> Script {
        co_await enter("txtNumber", "007");
        EXPECT_EQ(current("DBGrid"), "7 | Мандрейк");
        EXPECT_EQ(shown("txtNumber"), "7");
        expectBox("Диск № 5 не найден.", 48);
        co_await enter("txtNumber", "5");
        EXPECT_EQ(control<QLineEdit>("txtNumber").selectedText(), "7");
        for (const char* wrong : {"", "0", "99999"}) {
            expectBox("Указан не верный номер диска. Повторите ввод.", 48);
            co_await enter("txtNumber", wrong);
        }
        co_await type("txtNumber", "1a2");
        EXPECT_EQ(shown("txtNumber"), "12");
        co_await key(Qt::Key_Delete, Qt::ControlModifier); // edits the box and deletes no disc
        co_await focusOn("DBGrid");
        EXPECT_EQ(shown("txtNumber"), "7") << "a number that was not gone to";
    });
}

TEST_F(Catalogue, OneLetterAgainAndAgainWalksThroughItsNames)
{
    int number = 0;
    for (const char* name : {"Война", "мир", "Москва", "95", "Магия"}) shelf.computer(++number, name);
    browse([&]() -> Script {
        co_await focusOn("DBGrid");
        QString reached;
        for (const char* letter : {"м", "м", "м", "м", "9", "я", "м"}) {
            co_await keys(letter);
            reached += current("DBGrid").first(1);
        }
        EXPECT_EQ(reached, "2352442");
    });
}

TEST_F(Catalogue, ANewDiscThatSharesItsNumberIsTheOneOnView)
{
    threeDiscs();
    browse([&]() -> Script {
        co_await focusOn("DBGrid");
        expectForm("frmAddCD");
        co_await key(Qt::Key_Insert);
        expectBox("Диск № 2:\r'Debian' уже существует.\rСместить все номера на 1 начиная с 2-го?", 36, Answer::No);
        expectForm("frmAddInCataloguePC");
        co_await enter("txtNumber", "2");
        co_await type("txtName", "Второй второй");
        co_await click("imgButton_0");
        EXPECT_EQ(current("DBGrid"), "2 | Второй второй");
        EXPECT_FALSE(program.shared.DialogDone);
    });
    opensOn("2 | Второй второй", 4);
}

TEST_P(EveryCatalogue, EmptyLeavesOnlyAddingAndClosing)
{
    browse([&]() -> Script {
        EXPECT_EQ(buttons(), "01");
        EXPECT_EQ(counter(), "Дисков в каталоге: 0");
        EXPECT_EQ(emptyText(), "В каталоге пока нет дисков.\nНажмите «Добавить», чтобы внести первый.");
        for (const QString& name : {u"txtName"_s, kind.dictionary.listName, u"cmbSorted"_s, u"TabStrip"_s})
            EXPECT_FALSE(enabled(name)) << qPrintable(name);
        co_await picture(kind.browser + "-empty");
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_Delete);
        co_await key(Qt::Key_Return);
        co_await keys("м");
    });
}

TEST_P(EveryCatalogue, ShowsTheDiscAndItsControlsInTheOrderOfTheKeyboard)
{
    const struct {
        const char *boxes, *texts;
    } own[] = {
        {"txtNumber txtYear txtCDs txtName txtAlbum cmbStyle txtTrecks txtTime cmbCountCD txtDateAdd txtDateUpdate",
         "12 2003 3 Debian Ночь Квест 14 45:10 1 03-февр-2001 04-мар-2002"},
        {"txtNumber txtYear txtCDs txtName cmbDescription txtDateAdd txtDateUpdate txtDescription2",
         "12 2003 3 Debian Квест 03-февр-2001 04-мар-2002 длинно"},
        {"txtNumber txtYear txtCDs txtName cmbGenre txtZone txtTime cmbSoundFormat txtDateAdd txtDateUpdate "
         "txtDescription",
         "12 2003 3 Debian Квест 5 142  03-февр-2001 04-мар-2002 сюжет"}};
    ShelfDisc disc = shelf.disc(kind, 12, "Debian");
    disc.of("Квест").year("2003").discs(3).added("2001-02-03").changed("2002-03-04");
    if (&kind == &Audio()) disc.set("Альбом", u"Ночь"_s).playing(1, 14, "45:10");
    if (&kind == &Computer()) disc.set("РасОписание", u"длинно"_s);
    if (&kind == &Dvd())
        disc.set("Описание", u"сюжет"_s).set("Зона", 5).set("Время", 142).set("ФорматЗвука", u"2,5,"_s);
    const auto& [boxes, texts] = own[CatalogueIndex(kind)];
    browse([&]() -> Script {
        EXPECT_EQ(shown("DBGrid"), "12 | Debian\n");
        QStringList fields, walked;
        for (const QString& box : QString(boxes).split(' ')) fields += shown(box);
        EXPECT_EQ(fields.join(' '), texts);
        EXPECT_EQ(sharedMnemonics() + unnamedStops(), "");
        co_await picture(kind.browser);

        co_await focusOn("imgButton_1");
        do {
            walked += focus();
            co_await key(Qt::Key_Tab);
        } while (!walked.contains(focus()));
        EXPECT_EQ(walked.join(' '), QString("imgButton_1 imgButton_3 imgButton_2 imgButton_4 ") +
                                        (kind.list ? "imgButton_6 " : "") +
                                        "imgButton_0 cmbSorted chSortedDESC DBGrid TabStrip " + boxes);
    });
}

TEST_P(EveryCatalogue, FiltersReplaceEachOther)
{
    threeDiscs();
    const QString& names = kind.dictionary.listName;
    browse([&]() -> Script {
        co_await type("txtName", "i");
        EXPECT_EQ(numbers(), "1 2");
        EXPECT_EQ(title(), kind.title + " - Результат запроса");
        EXPECT_EQ(shown("txtName"), "i"); // what is being typed is not overwritten by the row
        co_await focusOn("DBGrid");
        EXPECT_EQ(shown("txtName"), "ALT Linux");

        co_await select(names, "Квест");
        EXPECT_EQ(numbers(), "2 7");
        co_await type("txtName", "[\"x");
        EXPECT_EQ(shown("txtName"), "('x");
        EXPECT_EQ(buttons(), "015");
        EXPECT_EQ(counter(), "Дисков удовлетворяющих запросу: 0");
        EXPECT_EQ(emptyText(), "Ничего не найдено");
        EXPECT_FALSE(enabled("cmbSorted"));
        EXPECT_TRUE(control<QLineEdit>("txtNumber").isReadOnly());
        co_await picture(kind.browser + "-nothing");

        co_await click("imgButton_5");
        EXPECT_EQ(counter(), "Дисков в каталоге: 3");
        EXPECT_EQ(title(), kind.title);
        EXPECT_EQ(buttons(), usual("012346"));
        EXPECT_TRUE(enabled("cmbSorted"));
        EXPECT_FALSE(control<QLineEdit>("txtNumber").isReadOnly());

        co_await select(names, "Квест");
        co_await select(names, "");
        EXPECT_EQ(numbers(), "1 2 7");
        co_await select(names, "Квест");
        co_await type("txtName", "");
        EXPECT_EQ(numbers(), "1 2 7");
        co_await keys("i");
        EXPECT_EQ(shown("txtName"), "i") << "no title came in between";
        EXPECT_EQ(numbers(), "1 2");
    });
    EXPECT_EQ(program.shared.CatalogueQueryFilter, "");
}

TEST_P(EveryCatalogue, SortOrderIsKeptWhenAsked)
{
    threeDiscs();
    setOption("SaveSortedCatalogue", "1");
    int byYear = 0;
    browse([&]() -> Script {
        co_await select("cmbSorted", "по году");
        byYear = control<QComboBox>("cmbSorted").currentIndex();
        EXPECT_EQ(numbers(), "7 1 2");
        co_await check("chSortedDESC");
    });
    setOption("SaveSortedCatalogue", "0");
    browse([&]() -> Script {
        EXPECT_EQ(numbers(), "2 1 7");
        co_await select("cmbSorted", "по номеру");
    });
    const Profile settings = program.settings();
    EXPECT_EQ(settings.number(u"Sorted", kind.sortedSetting), byYear);
    EXPECT_EQ(settings.number(u"Sorted", kind.sortedSetting + "DESC"), 1);
    settings.write(u"Sorted", kind.sortedSetting, "99");
    browse([&]() -> Script {
        EXPECT_EQ(shown("cmbSorted"), "по номеру");
        co_return;
    });
}

TEST_P(EveryCatalogue, DeletionAsksAndStaysWhereTheDiscWas)
{
    threeDiscs();
    browse([&]() -> Script {
        const QString question = "Вы действительно хотите удалить диск № %1?\r" + kind.deleteQuestionTail;
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_End);
        expectBox(question.arg(7), 36, Answer::No);
        co_await key(Qt::Key_Delete);
        EXPECT_EQ(numbers(), "1 2 7");
        for (const int number : {7, 1}) {
            expectBox(question.arg(number), 36);
            co_await click("imgButton_2");
            EXPECT_EQ(current("DBGrid"), "2 | Debian");
            co_await key(Qt::Key_Home);
        }
    });
}

TEST_P(EveryCatalogue, ChangeStaysOnTheDiscAndOnTheFilteredListButForgetsTheFilter)
{
    threeDiscs();
    shelf.disc(kind, 7, "Того же номера");
    browse([&]() -> Script {
        co_await select(kind.dictionary.listName, "Квест");
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_End);
        expectForm(kind.editor);
        co_await click("imgButton_3");
        EXPECT_EQ(title(), "Изменение диска");
        EXPECT_EQ(shown("lblCDsCount0"), kind.changeCaption);
        EXPECT_EQ(program.shared.CatalogueQueryFilter, "");
        co_await type("txtName", "Mandrake");
        co_await click("imgButton_0");

        EXPECT_EQ(current("DBGrid"), "7 | Mandrake");
        EXPECT_EQ(counter(), "Дисков в каталоге: 2");
        EXPECT_FALSE(program.shared.DialogDone);
        co_await check("chSortedDESC");
        EXPECT_EQ(counter(), "Дисков в каталоге: 4");

        co_await select(kind.dictionary.listName, "RPG");
        expectForm(kind.editor);
        co_await click("imgButton_3");
        co_await click("imgButton_0");
        expectBox("Вы действительно хотите удалить диск № 1?\r" + kind.deleteQuestionTail, 36);
        co_await click("imgButton_2");
        EXPECT_EQ(emptyText(), "Ничего не найдено") << "the catalogue is not empty";
        co_await click("imgButton_5");
        EXPECT_EQ(counter(), "Дисков в каталоге: 3");
    });
}

TEST_P(EveryCatalogue, LentDiscBlinksItsBorrowerAndCanBeNeitherDeletedNorChanged)
{
    shelf.disc(kind, 3, "Отдан").lent("Петрова", "2003-05-09");
    setOption("tmrDueCatalogue", "1000");
    browse([&]() -> Script {
        EXPECT_EQ(shown("lblDue"), "Должник\nПетрова");
        EXPECT_EQ(buttons(), usual("0146"));
        EXPECT_EQ(hint("imgButton_4").section('(', 0, 0).trimmed(), "Принять диск обратно");
        for (const bool lit : {false, true}) {
            co_await advance(100);
            EXPECT_EQ(visible("lblDue"), lit);
            EXPECT_EQ(visible("imgDue"), lit);
        }
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_Delete);
        co_await doubleClick("DBGrid", "Отдан");

        expectBox("Удалить должника с диска № 3?", 36);
        co_await click("imgButton_4");
        EXPECT_FALSE(visible("lblDue"));
        EXPECT_EQ(buttons(), usual("012346"));
        expectBox("Добавить должника на диск № 3?", 36);
        co_await click("imgButton_4");
        EXPECT_EQ(screens.opened, QStringList("ShowAddInDue " + kind.code + " 1"));
    });
}

TEST_F(Catalogue, SteadyMarkDoesNotBlinkAndAMissingLedgerRowHasNoName)
{
    shelf.computer(3, "Отдан").set("Должник", true);
    setOption("tmrDueCatalogue", "1");
    screens.missing << "frmAddInDue";
    browse([&]() -> Script {
        EXPECT_EQ(shown("lblDue").trimmed(), "Должник");
        EXPECT_EQ(buttons(), "016");
        co_await advance(5000);
        EXPECT_TRUE(visible("lblDue"));
    });
}

TEST_P(EveryCatalogue, DoubleClickAndEnterOpenTheListWhereWantedAndElseTheEditor)
{
    shelf.disc(kind, 4, "Набор").discs(3);
    setOption("DblClick", "1");
    browse([&]() -> Script {
        co_await focusOn("DBGrid");
        if (kind.list) {
            co_await doubleClick("DBGrid", "Набор");
            co_await key(Qt::Key_Return);
            co_await click("imgButton_6");
            EXPECT_EQ(screens.opened.size(), 3);
            EXPECT_EQ(screens.opened.first(), u"Show%1 4 \"Набор\" disc 1 of 3"_s.arg(kind.list->screen.mid(3)));
            setOption("DblClick", "0");
        }
        expectForm(kind.editor);
        co_await key(Qt::Key_Return);
        co_await key(Qt::Key_Escape);
        expectForm(kind.editor);
        co_await doubleClick("DBGrid", "Набор");
        co_await key(Qt::Key_Escape);
    });
    if (!kind.list) return;
    screens.missing << kind.list->screen;
    setOption("DblClick", "1");
    browse([&]() -> Script { co_await doubleClick("DBGrid", "Набор"); });
}

TEST_P(EveryCatalogue, FindsTheDiscInTheDriveInTheSlotsThatItLooksAt)
{
    threeDiscs();
    ShelfDisc bound = shelf.disc(kind, 30, "Привязан").discs(5).bound(4, "CAFE");
    drives.add('D', FakeDisc::data("X", 0xCAFE));
    setOption("Drive", "D:\\");
    opensOn("1 | ALT Linux");
    EXPECT_EQ(program.shared.CurrentDiscID, "");
    setOption("AutoResp", "1");
    opensOn("30 | Привязан");
    EXPECT_EQ(program.shared.CurrentDiscID, "CAFE");
    opensOn("7 | Мандрейк", 3); // who asks for a disc gets it
    bound.bound(4, "").bound(5, "CAFE");
    opensOn(&kind == &Computer() ? "1 | ALT Linux" : "30 | Привязан");
}

TEST_P(EveryCatalogue, ExternalDatabaseIsOnlyLookedAt)
{
    threeDiscs();
    shelf.disc(kind, 1, "Отдан").lent("Петрова", "2003-05-09");
    program.shared.ExternalDBOpen = true;
    program.shared.CatalogueQueryMode = true;
    setOption("AutoResp", "1");
    browse([&]() -> Script {
        EXPECT_EQ(buttons(), "0");
        for (const char* button : {"imgButton_1", "imgButton_3"})
            EXPECT_TRUE(hint(button).endsWith("\nВнешнюю базу данных можно только просматривать")) << button;
        EXPECT_EQ(title(), kind.title);
        EXPECT_FALSE(enabled("TabStrip"));
        EXPECT_FALSE(visible("lblDue"));
        co_await focusOn("DBGrid");
        for (const int pressed : {Qt::Key_Delete, Qt::Key_Insert, Qt::Key_Return}) co_await key(pressed);
        co_await doubleClick("DBGrid", "Debian");
        co_await type("txtName", "deb");
        EXPECT_EQ(numbers(), "2");
    });
}

// What only audio discs have.

class AudioCatalogue : public Catalogue {
protected:
    AudioCatalogue() : Catalogue(Audio()) {}
    QString playing() { return shown("cmbCountCD") + ": " + shown("txtTrecks") + ", " + shown("txtTime"); }
};

TEST_F(AudioCatalogue, ShowsTheDiscsOfASetOneByOneAndEveryRowFromItsFirst)
{
    shelf.audio(1, "Кино", "Группа крови").discs(6).playing(1, 11, "47:40").playing(6, 9, "40:01");
    shelf.audio(2, "Ария").playing(1, 8, "41:10");
    browse([&]() -> Script {
        EXPECT_EQ(playing(), "1: 11, 47:40");
        co_await select("cmbCountCD", "6");
        EXPECT_EQ(playing(), "6: 9, 40:01");
        co_await click("imgButton_6");
        EXPECT_EQ(screens.opened, QStringList("ShowTrackList 1 \"Кино\" disc 6 of 6"));
        EXPECT_EQ(screens.lastRequest.album, "Группа крови");
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_Down);
        EXPECT_EQ(playing(), "1: 8, 41:10");
        EXPECT_FALSE(enabled("cmbCountCD"));
        co_await key(Qt::Key_Up);
        EXPECT_EQ(playing(), "1: 11, 47:40");
        co_await type("txtName", "нет такой");
        EXPECT_EQ(playing(), ": , ");
        EXPECT_FALSE(enabled("cmbCountCD"));
    });
}

TEST_F(AudioCatalogue, ADiscInTheDriveIsShownAsItselfAndOneBeyondTheSetAsTheFirst)
{
    shelf.audio(1, "Первый");
    ShelfDisc set = shelf.audio(2, "Набор").discs(3).bound(3, "462114").playing(1, 1, "01:00").playing(3, 3, "03:00");
    drives.v.medium = FakeDisc::audio({{0, 2, 0}, {3, 0, 0}}, {70, 33, 20});
    setOption("Drive", "V:\\");
    setOption("AutoResp", "1");
    const auto shows = [&](const char* expected, qint64 key) {
        const auto look = [&]() -> Script {
            EXPECT_EQ(playing(), expected);
            co_return;
        };
        browse(look, key);
    };
    shows("3: 3, 03:00", 0);
    shows("3: 3, 03:00", set.key());
    set.discs(2);
    shows("1: 1, 01:00", 0);
}

TEST_F(AudioCatalogue, EnterInTheAlbumLooksForAlbums)
{
    shelf.audio(1, "Кино", "Это не любовь");
    shelf.audio(2, "Сплин", "Гранатовый (альбом)");
    browse([&]() -> Script {
        co_await enter("txtAlbum", "[альбом");
        EXPECT_EQ(numbers(), "2");
        EXPECT_EQ(shown("txtAlbum"), "(альбом");
        EXPECT_EQ(title(), "Каталог Аудио дисков - Результат запроса");
        co_await focusOn("DBGrid");
        EXPECT_EQ(shown("txtAlbum"), "Гранатовый (альбом)");
        co_await enter("txtAlbum", "");
        EXPECT_EQ(numbers(), "1 2");
        EXPECT_TRUE(enabled("imgButton_5"));
    });
}

class DvdCatalogue : public Catalogue {
protected:
    DvdCatalogue() : Catalogue(Dvd()) {}
    QString sound() { return control<QComboBox>("cmbSoundFormat").placeholderText(); }
};

TEST_F(DvdCatalogue, ListsTheSoundFormatsOfTheDisc)
{
    shelf.dvd(1, "Фильм").set("ФорматЗвука", u"2,5,"_s);
    shelf.dvd(2, "Из чужих рук").set("ФорматЗвука", u"12,x,"_s);
    shelf.dvd(3, "Немой");
    browse([&]() -> Script {
        EXPECT_EQ(sound(), "Звук (2):");
        EXPECT_EQ(items("cmbSoundFormat"), "Dolby Digital 5.1\nDTS\n");
        co_await select("cmbSoundFormat", "DTS");
        EXPECT_EQ(shown("cmbSoundFormat"), "") << "the caption stays";
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_Down);
        EXPECT_EQ(sound(), "Звук (2):");
        EXPECT_EQ(items("cmbSoundFormat"), "Dolby Digital 2.0\nDolby Digital 5.1\n");
        co_await key(Qt::Key_Down);
        EXPECT_EQ(sound(), "Звук (0):");
        EXPECT_EQ(items("cmbSoundFormat"), "");
    });
}
}
