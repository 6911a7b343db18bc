#include "contents/frmFileListOption.h"
#include "harness/ScreenTest.h"

#include <QApplication>

namespace {

class FileListOption : public ScreenTest {
protected:
    FileListOption()
    {
        disc->file("\\readme.TXT", 100).file("\\A\\B\\deep.zip", 2048).file("\\A\\setup.exe", 1'024'000);
        drives.v.medium = disc;
        row = shelf.computer(7, "Debian").discs(2).key();
    }

    /// Starts the scan and waits for its end.
    Script scan()
    {
        expectForm("frmFileListCreate");
        co_await click("imgButton_0");
        co_await until([&] { return !runner.top() || windowName() == "frmFileListOption"; });
    }
    template<class Body> void choose(const Body& body) { run<frmFileListOption>(body, DiscOfRow{row, 2}, 7); }
    QString taken() const { return fileRows("SELECT Путь, Имя FROM [1A2B] WHERE Имя <> Путь ORDER BY Путь, Имя"); }

    std::shared_ptr<FakeDisc> disc = FakeDisc::data("BACKUP", 0x1A2B);
    qint64 row = 0;
};

/// Closes the progress window by its frame when the disc is asked for a folder.
struct InterruptedDisc : FakeDisc {
    QString where;
    const Shared* shared = nullptr;
    bool watchPaused = false; ///< then

    QList<DiscEntry> list(const QString& folder) override
    {
        watchPaused = shared->DriveWatchPaused;
        if (folder == where)
            for (QWidget* window : QApplication::topLevelWidgets())
                if (window->objectName() == "frmFileListCreate") window->close();
        return FakeDisc::list(folder);
    }
};

}

TEST_F(FileListOption, ScansTheDiscAndLinksItsList)
{
    drives.add('D', FakeDisc::audio({{0, 2, 0}, {3, 0, 0}, {5, 0, 0}}, {9, 0, 0}));
    setOption("Drive", "V:\\");
    choose([&]() -> Script {
        EXPECT_EQ(title(), "Параметры сканирования диска № 7 (CD2)");
        EXPECT_EQ(items("cmbDrive"), "D:\\\nV:\\\n");
        EXPECT_EQ(shown("cmbDrive"), "V:\\");
        EXPECT_EQ(shown("lblInserCD"), "Компьютерный диск");
        co_await picture("frmFileListOption");
        co_await scan();
    });
    EXPECT_EQ(fileRows("SELECT Путь, Имя, Размер, Комментарий FROM [1A2B] ORDER BY Путь, Имя"),
              "\\ | \\ | 0 | Null\n"
              "\\ | readme.TXT | 0,1 | Null\n"
              "\\A\\ | \\A\\ | 0 | Null\n"
              "\\A\\ | setup.exe | 1\u00A0000,0 | Null\n"
              "\\A\\B\\ | \\A\\B\\ | 0 | Null\n"
              "\\A\\B\\ | deep.zip | 2,0 | Null\n");
    EXPECT_EQ(rows("SELECT ДискID1, ДискID2, ДискID2_d FROM Компьютер"), "Null | 1A2B | Null\n");
    EXPECT_TRUE(program.shared.DialogDone);
    EXPECT_EQ(program.shared.CurrentDiscID, "1A2B");
    EXPECT_EQ(program.shared.DiscIDSlots[1], "1A2B");
    EXPECT_FALSE(program.shared.DriveWatchPaused);
}

TEST_F(FileListOption, OptionsAndTheEditedFilterGoIntoTheScan)
{
    choose([&]() -> Script {
        co_await check("chLCase");
        co_await check("chShare");
        co_await check("chFilter");
        co_await click("optFilter_1");
        expectForm("frmEditFilter");
        co_await click("imgButton_2");
        EXPECT_EQ(shown("lvFilter"), "[x] .exe\n[x] .rar\n[x] .zip\n");
        co_await check("lvFilter", ".rar", false);
        co_await click("imgButton_0");
        co_await scan();
    });
    EXPECT_EQ(taken(), "\\A\\ | setup.exe\n\\A\\B\\ | deep.zip\n");
    EXPECT_EQ(rows("SELECT ДискID2, ДискID2_d FROM Компьютер"), "1A2B | 1A2B\n");
}

TEST_F(FileListOption, RefusalsComeInTheirOrder)
{
    auto& d = drives.add('D', FakeDisc::audio({{0, 2, 0}, {3, 0, 0}, {5, 0, 0}}, {9, 0, 0}));
    drives.v.medium.reset();
    choose([&]() -> Script {
        EXPECT_EQ(items("cmbDrive"), "D:\\\nV:\\\n");
        EXPECT_EQ(shown("lblInserCD"), "Аудио диск");
        co_await check("chFilesInCore", false);
        co_await check("chScanDir", false);
        expectBox("Выберите область сканирования диска!", 48);
        co_await click("imgButton_0");
        co_await check("chScanDir");
        expectBox("В устройстве для чтения компакт дисков вставлен Аудио диск.", 48);
        co_await click("imgButton_0");

        co_await select("cmbDrive", "V:\\");
        EXPECT_EQ(shown("lblInserCD"), "(нет)");
        expectBox("Вставьте диск в устройство для чтения компакт-дисков и повторите операцию.", 48);
        co_await click("imgButton_0");

        d.medium = FakeDisc::dvd("FILM", 5);
        co_await select("cmbDrive", "D:\\");
        EXPECT_EQ(shown("lblInserCD"), "DVD диск");
        co_await click("imgButton_0");

        d.medium = FakeDisc::data("NOSERIAL", 0);
        expectBox("В устройстве для чтения компакт дисков вставлен диск без идентификационного номера (возможно, что "
                  "диск записан в формате PacketCD, который не поддерживается программой)!",
                  48);
        co_await click("imgButton_0");
        EXPECT_EQ(windowName(), "frmFileListOption");
    });
    EXPECT_EQ(program.filesDatabase().TableNames(), (QStringList{"Фильтр1", "Фильтр2"}));
    EXPECT_FALSE(program.shared.DialogDone);
}

TEST_F(FileListOption, TicksOpenAndCloseOneAnother)
{
    choose([&]() -> Script {
        const auto open = [&] {
            QString text;
            for (const QString name : {"chScanDirOnly", "chFilter", "optFilter_0", "optFilter_1"})
                text += enabled(name) ? "+" : "-";
            return text;
        };
        EXPECT_EQ(open(), "++--");
        const std::tuple<QString, bool, QString> ticks[] = {{"chFilter", true, "++++"},
                                                            {"chScanDirOnly", true, "+---"},
                                                            {"chScanDirOnly", false, "++++"},
                                                            {"chScanDir", false, "-+++"},
                                                            {"chFilter", false, "-+--"}};
        for (const auto& [box, on, expected] : ticks) {
            co_await check(box, on);
            EXPECT_EQ(open(), expected) << qPrintable(box);
        }
    });
}

TEST_F(FileListOption, OptionsAreKeptOnlyIfThatIsWanted)
{
    const auto change = [&]() -> Script {
        co_await check("chScanDir", false);
        co_await check("chHiddenFiles");
        co_await check("chFilter");
        co_await click("optFilter_1");
        co_await key(Qt::Key_Escape);
    };
    choose(change);
    EXPECT_FALSE(program.settings().has(u"FileListOption", u"HiddenFiles"));

    setOption("SaveFileListOption", "1");
    choose(change);
    QStringList kept;
    for (const QString& name : program.settings().keys(u"FileListOption"))
        kept += name + u'=' + program.settings().read(u"FileListOption", name);
    kept.sort();
    EXPECT_EQ(kept.join(' '),
              "FilesInCore=1 Filter=1 FilterPar=1 HiddenFiles=1 InfoMP3=0 LCase=0 ScanDir=0 ScanDirOnly=0 Share=0");
    choose([&]() -> Script {
        EXPECT_FALSE(checked("chScanDir"));
        EXPECT_FALSE(enabled("chScanDirOnly"));
        EXPECT_TRUE(checked("chHiddenFiles"));
        EXPECT_TRUE(checked("optFilter_1"));
        EXPECT_TRUE(enabled("optFilter_1"));
        co_return;
    });
}

TEST_F(FileListOption, ASerialThatAListHasAlreadyIsAskedAbout)
{
    shelf.computer(8, "Original").list(1, "1A2B", {"\\old.txt"});
    const QString question =
        "Серийный номер этого диска совпадает с уже существующим серийным номером!\r\r"
        "Возможные причины:\r\n"
        "   1. Этот диск уже есть в базе данных\r\n"
        "   2. Диск записан в режиме пакетно записи (UDF)\r\n"
        "   3. Диск имеет одинаковый идентификатор с ранее добавленным диском (пиратская копия)\r\n\r\n"
        "Не смотря на это, есть возможность произвести добавление списка файлов для этого диска. "
        "Продолжить?";
    choose([&]() -> Script {
        expectBox(question, 52, Answer::No);
        co_await click("imgButton_0");
    });
    EXPECT_FALSE(program.shared.DialogDone);
    EXPECT_EQ(rows("SELECT ДискID2 FROM Компьютер WHERE Номер = 7"), "Null\n");

    choose([&]() -> Script {
        expectBox(question, 52, Answer::Yes);
        co_await scan();
    });
    EXPECT_TRUE(program.shared.DialogDone);
    const QString id = program.shared.CurrentDiscID;
    EXPECT_NE(id, "1A2B");
    EXPECT_EQ(rows("SELECT ДискID2 FROM Компьютер WHERE Номер = 7"), id + "\n");
    EXPECT_EQ(fileRows("SELECT COUNT(*) FROM [" + id + "]"), "6\n");
    EXPECT_NE(fileRows("SELECT Имя FROM [1A2B]").indexOf("old.txt"), -1);
}

TEST_F(FileListOption, AnUnreadableFolderIsToldAndTheRestIsKept)
{
    disc->damaged("\\A\\B\\");
    choose([&]() -> Script {
        expectForm("frmFileListCreate");
        expectBox("Ошибка чтения диска! Некоторые файлы не будут добавлены в список.", 48);
        co_await click("imgButton_0");
        co_await until([&] { return !runner.top(); });
    });
    EXPECT_EQ(taken(), "\\ | readme.TXT\n\\A\\ | setup.exe\n");
    EXPECT_EQ(rows("SELECT ДискID2 FROM Компьютер"), "1A2B\n");
}

TEST_F(FileListOption, ClosingTheProgressWindowEndsTheWalkAndKeepsTheList)
{
    auto interrupted = std::make_shared<InterruptedDisc>();
    interrupted->properties = disc->properties;
    interrupted->file("\\A\\a", 0).file("\\B\\X\\Y\\y", 0).file("\\B\\X\\x", 0).file("\\C\\c", 0);
    interrupted->where = "\\B\\X\\";
    interrupted->shared = &program.shared;
    drives.v.medium = interrupted;
    choose([&]() -> Script { co_await scan(); });
    EXPECT_EQ(fileRows("SELECT Путь FROM [1A2B] WHERE Имя = Путь ORDER BY Путь"), "\\\n\\B\\\n\\C\\\n");
    EXPECT_EQ(rows("SELECT ДискID2 FROM Компьютер"), "1A2B\n");
    EXPECT_TRUE(interrupted->watchPaused);
}

TEST_F(FileListOption, TooManyFilterEntriesAreAFault)
{
    for (int i = 0; i < 48; ++i) FilterTable(program.filesDatabase(), true).add(u"%1"_s.arg(i));
    choose([&]() -> Script {
        co_await check("chFilter");
        co_await click("optFilter_1");
        expectForm("frmFileListCreate");
        expectFault("frmFileListCreate, FullArrayFileFiltr()");
        co_await click("imgButton_0");
    });
}
