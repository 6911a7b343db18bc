#include "contents/frmTrackList.h"
#include "AudioShelf.h"
#include "store/TrackLists.h"

#include <QDir>

namespace {

class TrackList : public AudioShelf {
protected:
    void list(const QStringList& lines) { ShelfDisc(program, Audio(), request.key).list(2, Id, lines); }
    template<class Body> void browse(const Body& body) { run<frmTrackList>(body, request); }
    QString tracks() const { return trackRows("SELECT Название, Комментарий FROM [80200] ORDER BY Номер"); }
};

}

TEST_F(TrackList, ShowsTheTracksOfOneDiscOfTheSet)
{
    list({"Группа крови | live", "Закрой за мной дверь", "Война", "Спокойная ночь"});
    browse([&]() -> Script {
        EXPECT_EQ(title(), "Треки");
        EXPECT_EQ(shown("lblNumber") + shown("lblName") + shown("lblAlbum"), "7КиноГруппа крови");
        EXPECT_EQ(program.shared.DiscIDSlots, (std::array<QString, 6>{"", Id, "", "", "", ""}));
        EXPECT_EQ(program.shared.CurrentDiscID, Id);
        EXPECT_EQ(focus() + shown("lblTracks"), "DBGridТреков: 4");
        EXPECT_EQ(shown("DBGrid"), "1 | Группа крови         | live\n"
                                   "2 | Закрой за мной дверь | \n"
                                   "3 | Война                | \n"
                                   "4 | Спокойная ночь       | \n");
        EXPECT_EQ(shown("txtTrackName") + shown("txtComment"), "Группа кровиlive");
        co_await picture("frmTrackList");
        co_await keys("в");
        EXPECT_EQ(shown("txtTrackName"), "Война");
        co_await key(Qt::Key_End);
        EXPECT_EQ(shown("txtTrackName"), "Спокойная ночь");
        co_await key(Qt::Key_Home);
        EXPECT_EQ(shown("txtTrackName"), "Группа крови");

        co_await select("cmbCountCD", "1");
        EXPECT_TRUE(program.shared.CurrentDiscID.isEmpty() && visible("lblNoList") && enabled("imgButton_1"));
        EXPECT_EQ(shown("txtTrackName") + shown("txtComment"), "");
        for (const char* name : {"txtTrackName", "cmdMakeChangeComm", "imgButton_4"})
            EXPECT_FALSE(enabled(name)) << name;
    });
}

TEST_F(TrackList, EnterWalksThroughTheNamesAndWraps)
{
    list({"1", "2", "\"3\""});
    request.place = ListPlace{.name = "\"3\""}; // the one that the opener found
    browse([&]() -> Script {
        EXPECT_EQ(current("DBGrid"), "3 | \"3\" | ");
        co_await doubleClick("DBGrid", "2");
        EXPECT_EQ(focus() + control<QLineEdit>("txtTrackName").selectedText(), "txtTrackName2");
        co_await keys("\"Два\" [2]\n");
        EXPECT_EQ(focus() + control<QLineEdit>("txtTrackName").selectedText(), "txtTrackName\"3\"");
        co_await key(Qt::Key_Backspace);
        co_await key(Qt::Key_Return);
        EXPECT_EQ(current("DBGrid") + control<QLineEdit>("txtTrackName").selectedText(), "1 | 1 | 1");
        co_await type("txtTrackName", "Раз");
        co_await click("cmdMakeChange");
        EXPECT_EQ(current("DBGrid"), "2 | 'Два' (2) | ");

        co_await type("txtTrackName", "недописано");
        for (const auto& [typed, kept] : {std::pair{"\"лучшая\"", "'лучшая'"}, {"", ""}}) {
            expectBox("Комментарий к треку ''Два' (2)' успешно изменен.", 64);
            co_await type("txtComment", typed);
            co_await key(Qt::Key_Return);
            EXPECT_EQ(current("DBGrid"), QString("2 | 'Два' (2) | ") + kept);
            EXPECT_EQ(shown("txtTrackName") + shown("txtComment"), QString("недописано") + kept);
        }
    });
    EXPECT_EQ(tracks(), "Раз | Null\n'Два' (2) | Null\nNull | Null\n");
}

TEST_F(TrackList, SavedNamesComeBackByImport)
{
    list({"'Heroes'", "x", "Война"});
    program.tracksDatabase().Execute(u"UPDATE [80200] SET Название = Null WHERE Номер = 2");
    const QString question = "Вы уверены, что хотите сохранить информацию о треках диска № 7 в файл 'cdplayer.ini'?";
    CdPlayerIni().write(Id, {"old", "old", {"1", "2", "3", "4"}});
    browse([&]() -> Script {
        expectBox(question, 36, Answer::No);
        co_await click("imgButton_4");
        EXPECT_EQ(CdPlayerIni().read(Id)->artist, "old");
        expectBox(question, 36, Answer::Yes);
        expectBox("Данные диска № 7 успешно сохранены в файле 'cdplayer.ini'.", 64);
        co_await click("imgButton_4");
        EXPECT_EQ(ini(), "EntryType=1\nartist=Кино\ntitle=Группа крови\nnumtracks=3\n0='Heroes'\n1=\n2=Война\n3=4\n");
        EXPECT_EQ(*CdPlayerIni().read(Id), (CdPlayerEntry{"Кино", "Группа крови", {"'Heroes'", "", "Война"}}));

        QFile::remove(path("config/cdplayer.ini"));
        EXPECT_TRUE(QDir().mkdir(path("config/cdplayer.ini")));
        expectBox(question, 36, Answer::Yes);
        expectBox(CdPlayerIni::NotWritten, 48);
        co_await click("imgButton_4");
    });
}

TEST_F(TrackList, AListThatIsGoneOrForeignOrEmptySaysSo)
{
    program.tracksDatabase().CreateTable({"FOREIGN", {{"Номер", FieldType::Integer}}, {}, {}});
    for (const QString& name : {u"GONE"_s, u"FOREIGN"_s, Id}) {
        if (name == Id) CreateTrackTable(program.tracksDatabase(), program.mainDatabase(), Id);
        ShelfDisc(program, Audio(), request.key).set("ДискID2", name);
        browse([&]() -> Script {
            EXPECT_FALSE(visible("DBGrid") || enabled("txtTrackName") || enabled("cmdMakeChangeComm"));
            EXPECT_EQ(shown("lblNoList"), name == Id
                                              ? "В списке нет треков."
                                              : "Список треков не читается.\nВставьте диск и нажмите «Пересоздать».");
            EXPECT_EQ(focus(), "imgButton_3");
            co_return;
        });
    }
}
