// What the lists of files and of tracks have in common, screens and option dialogs.
#include "AudioShelf.h"
#include "contents/frmFileList.h"
#include "contents/frmFileListOption.h"
#include "contents/frmTrackList.h"
#include "contents/frmTrackListOption.h"

#include <QApplication>

namespace {

struct Words {
    const char *list, *options, *first, *header, *deletion, *recreation, *hint;
};
constexpr Words OfFiles{"frmFileList",
                        "frmFileListOption",
                        "trView",
                        "Список файлов Компьютерного диска",
                        "Вы действительно хотите удалить информация о структуре 2-го диска № 7?",
                        "Текущий список файлов будет удален! Продолжить?",
                        "Удалить список файлов диска"};
constexpr Words OfTracks{"frmTrackList",
                         "frmTrackListOption",
                         "DBGrid",
                         "Треки Аудио диска",
                         "Вы действительно хотите удалить информация о треках диска № 7?",
                         "Текущий список треков будет удален! Продолжить?",
                         "Удалить список треков диска"};

/// Since the drive was asked for it, another disc has come in its place.
struct ExchangedDisc : FakeDisc {
    explicit ExchangedDisc(const FakeDisc& asked) : FakeDisc(asked) {}
    VolumeProperties volume() override { return data({}, 77)->properties; }
};

/// The disc in the drive is disc 2 of number 7, in either catalogue.
class ListScreens : public AudioShelf, public testing::WithParamInterface<bool> {
protected:
    ListScreens()
    {
        data->file("\\readme.txt", 6);
        if (!files) return;
        drives.v.medium = data;
        request.key = shelf.computer(7, "Debian").discs(2).key();
    }

    template<class Body> void browse(const Body& body)
    {
        files ? run<frmFileList>(body, request) : run<frmTrackList>(body, request);
    }
    template<class Body> void choose(const Body& body)
    {
        const DiscOfRow second{request.key, 2};
        files ? run<frmFileListOption>(body, second, 7) : run<frmTrackListOption>(body, second, request);
    }
    /// In the options.
    Script make()
    {
        if (files)
            expectForm("frmFileListCreate");
        else
            co_await check("chTrackWithoutName");
        co_await click("imgButton_0");
        co_await until([&] { return windowName() == words.list; });
    }
    bool listed() const
    {
        return files ? program.filesDatabase().HasTable("1A2B") : program.tracksDatabase().HasTable(Id);
    }

    const bool files = GetParam();
    const Words& words = files ? OfFiles : OfTracks;
    std::shared_ptr<FakeDisc> data = FakeDisc::data("BACKUP", 0x1A2B);
};

}

TEST_P(ListScreens, ListsAreMadeMadeAnewAndDeleted)
{
    browse([&]() -> Script {
        EXPECT_EQ(shown("lblHeader") + focus(), QString(words.header) + "imgButton_1");
        EXPECT_FALSE(visible(words.first) || enabled("imgButton_2") || enabled("imgButton_3"));
        EXPECT_EQ(hint("imgButton_2"), QString(words.hint) + "\nСписка ещё нет: его можно создать");
        EXPECT_EQ(sharedMnemonics(), "");
        co_await picture(QString(words.list) + "-without");
        expectForm(words.options);
        co_await key(Qt::Key_Return);
        co_await key(Qt::Key_Escape);
        EXPECT_TRUE(visible("lblNoList"));

        expectForm(words.options);
        co_await click("imgButton_1");
        EXPECT_EQ(title(), "Параметры сканирования диска № 7 (CD2)");
        EXPECT_EQ(sharedMnemonics(), "");
        co_await picture(words.options);
        co_await make();
        EXPECT_EQ(focus(), words.first);
        EXPECT_FALSE(enabled("imgButton_1") || visible("lblNoList") || program.shared.DialogDone);

        expectBox(words.recreation, 52, Answer::Yes);
        expectForm(words.options);
        co_await click("imgButton_3");
        EXPECT_FALSE(listed());
        co_await make();

        expectBox(words.deletion, 36, Answer::No);
        co_await click("imgButton_2");
        EXPECT_TRUE(listed() && visible(words.first));
        expectBox(words.deletion, 36, Answer::Yes);
        co_await click("imgButton_2");
        EXPECT_FALSE(listed());
        EXPECT_TRUE(visible("lblNoList") && focus() == "imgButton_1");
    });
    EXPECT_EQ(rows(files ? "SELECT ДискID2 FROM Компьютер" : "SELECT ДискID2, Записей2, Время2 FROM Аудио"),
              files ? "Null\n" : "Null | 3 | 08:50\n");
    EXPECT_EQ(program.shared.DiscIDSlots[1], "");
}

TEST_P(ListScreens, RefusalsOfTheOptionsComeInTheirOrder)
{
    const QString insert = QString("Вставьте %1 в устройство для чтения компакт-дисков и повторите операцию.")
                               .arg(files ? "диск" : "Аудио диск");
    const auto unread = FakeDisc::audio({{0, 2, 0}}, {9, 0, 0});
    unread->healthy = 0; // its table of contents cannot be read
    const QString inserted = "В устройстве для чтения компакт дисков вставлен Аудио диск.";
    const auto own = std::make_shared<ExchangedDisc>(files ? *data : *disc);
    const auto nameless = std::make_shared<FakeDisc>(*own);
    nameless->properties.serial = 0;
    auto& d = drives.add('D');
    choose([&]() -> Script {
        if (files) {
            co_await check("chFilesInCore", false);
            co_await check("chScanDir", false);
            expectBox("Выберите область сканирования диска!", 48);
            co_await click("imgButton_0");
            co_await check("chScanDir");
        }
        for (const auto& [medium, kind, told] : {std::tuple{FakeDisc::dvd("FILM", 5), "DVD диск", files ? "" : insert},
                                                 {std::shared_ptr<FakeDisc>(), "(нет)", insert},
                                                 {std::shared_ptr<FakeDisc>(own), "", insert},
                                                 {unread, "Аудио диск", files ? inserted : insert},
                                                 {nameless, "",
                                                  "В устройстве для чтения компакт дисков вставлен диск без "
                                                  "идентификационного номера (возможно, что диск записан в формате "
                                                  "PacketCD, который не поддерживается программой)!"}}) {
            d.medium = medium;
            co_await select("cmbDrive", "D:\\");
            EXPECT_TRUE(!*kind || shown("lblInserCD") == kind) << kind;
            if (!told.isEmpty()) expectBox(told, 48);
            co_await click("imgButton_0");
        }
        d.medium.reset();
        co_await act([&] {
            QEvent back(QEvent::WindowActivate);
            QApplication::sendEvent(&runner.window(), &back);
        });
        EXPECT_EQ(shown("lblInserCD"), "(нет)");
    });
    drives.none = true;
    const QString none = "Устройство для чтения компакт-дисков не найдено!";
    expectBox(none, 48);
    choose([&]() -> Script {
        EXPECT_FALSE(enabled("cmbDrive"));
        expectBox(none, 48);
        co_await click("imgButton_0");
    });
    EXPECT_EQ(program.tracksDatabase().TableNames() + program.filesDatabase().TableNames(),
              (QStringList{"Фильтр1", "Фильтр2"}));
    EXPECT_FALSE(program.shared.DialogDone);
}

INSTANTIATE_TEST_SUITE_P(OfBothKinds, ListScreens, testing::Bool(),
                         [](const auto& files) { return files.param ? "Files" : "Tracks"; });
