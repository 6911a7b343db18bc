#include "contents/frmTrackListOption.h"
#include "AudioShelf.h"

namespace {

const QString Absent = "Информация о этом диске отсутствует в файле cdplayer.ini!";

class TrackListOption : public AudioShelf {
protected:
    template<class Body> void choose(const Body& body)
    {
        run<frmTrackListOption>(body, DiscOfRow{request.key, 2}, request);
    }
    QString tracks() const { return trackRows("SELECT Номер, Название, Комментарий FROM [80200]"); }
};

}

TEST_F(TrackListOption, ANamelessListIsMadeLinkedAndKept)
{
    choose([&]() -> Script {
        EXPECT_EQ(shown("lblHeader") + shown("lblInserCD"), "Параметры сканирования трековАудио диск");
        co_await check("chTrackWithoutName");
        co_await check("chTrackSave");
        co_await click("imgButton_0");
    });
    EXPECT_EQ(tracks(), "1 | Запись 1 | Null\n2 | Запись 2 | Null\n3 | Запись 3 | Null\n");
    EXPECT_EQ(link(), "80200 | 3 | 08:50\n"); // 538 seconds; what 61 leaves of them is 50
    EXPECT_EQ(rows("SELECT ДискID1, ДискID2_d FROM Аудио"), "Null | Null\n");
    EXPECT_EQ(program.shared.DiscIDSlots[1], Id);
    EXPECT_TRUE(program.shared.DialogDone);
    EXPECT_EQ(ini(), "EntryType=1\nartist=Кино\ntitle=Группа крови\nnumtracks=3\n0=Запись 1\n1=Запись 2\n2=Запись 3\n");
}

TEST_F(TrackListOption, NamesAreAskedForOneByOneWithTheDiscsOwnTextAtHand)
{
    disc->contents.tracks[1].title = "Война";
    disc->contents.tracks.append({4, false, {8, 0, 0}, "данные", {}});
    choose([&]() -> Script {
        const auto asked = [](int n) { return QString("Введите название %1-го из 3 треков:").arg(n); };
        expectInputOffering("", asked(1), "Название трека", QString("\"А\" [б]") + QString(300, 'x'));
        expectInputOffering("Война", asked(2), "Название трека", "Война");
        expectInputOffering("", asked(3), "Название трека", "");
        co_await check("chTrackSave");
        co_await click("imgButton_0");
    });
    EXPECT_EQ(tracks(), "1 | \"А\" [б]" + QString(248, 'x') + " | Null\n2 | Война | Null\n3 | Null | Null\n");
    EXPECT_EQ(link(), "80200 | 3 | 08:50\n");
    EXPECT_EQ(CdPlayerIni().read(Id)->tracks.mid(1), (QStringList{"Война", ""}));
}

TEST_F(TrackListOption, ImportTakesNamesAndTheirNumberFromTheFile)
{
    choose([&]() -> Script {
        co_await check("chTrackImport");
        expectBox(Absent, 48);
        co_await click("imgButton_0");
        EXPECT_FALSE(program.tracksDatabase().HasTable(Id));
        EXPECT_FALSE(program.shared.DialogDone);

        CdPlayerIni().write(Id, {"Кино", "", {"Первая", "", "Третья", "Четвёртая"}});
        Profile(SystemProfileFolder() + "/cdplayer.ini").removeKey(Id, u"2");
        co_await click("imgButton_0");
    });
    EXPECT_EQ(tracks(), "1 | Первая | Null\n2 | - нет - | Null\n3 | - нет - | Null\n4 | Четвёртая | Null\n");
    EXPECT_EQ(link(), "80200 | 4 | 08:50\n");
}

TEST_F(TrackListOption, AnOwnedListIsRefusedAndAnOrphanReplaced)
{
    shelf.audio(8, "Другой").list(3, Id, {"старый"});
    for (const bool owned : {true, false}) {
        if (!owned) program.mainDatabase().Execute(u"UPDATE Аудио SET ДискID3 = Null");
        choose([&]() -> Script {
            co_await check("chTrackWithoutName");
            if (owned) expectBox("Серийный номер этого диска совпадает с уже существующим серийным номером!", 48);
            co_await click("imgButton_0");
        });
        EXPECT_EQ(program.shared.DialogDone, !owned);
        EXPECT_EQ(trackRows("SELECT COUNT(*) FROM [80200]"), owned ? "1\n" : "3\n");
    }
}

TEST_F(TrackListOption, TicksExcludeEachOtherAndFollowTheDisc)
{
    screens.missing.clear();
    choose([&]() -> Script {
        const auto state = [&] {
            QString text;
            for (const char* name : {"chCDDB", "cmbServer", "chTrackImport", "chTrackWithoutName", "chTrackSave"})
                text += QString(enabled(name) ? "e" : "-") +
                        (*name == 'c' && name[1] == 'h' && checked(name) ? "x " : " ");
            return text;
        };
        EXPECT_EQ(state(), "e - e e e ");
        co_await check("chCDDB");
        EXPECT_EQ(state(), "ex e e e e ");
        co_await check("chTrackImport");
        EXPECT_EQ(state(), "e - ex e - ");
        co_await check("chTrackWithoutName");
        EXPECT_EQ(state(), "- - -x ex e ");
        co_await check("chTrackWithoutName", false);
        EXPECT_EQ(state(), "e - ex e - ");
        co_await check("chTrackImport", false);
        EXPECT_EQ(state(), "e - e e e ");
        drives.v.medium = FakeDisc::data("BACKUP", 5);
        co_await select("cmbDrive", "V:\\");
        EXPECT_EQ(state(), "- - - e - ");
    });
}
