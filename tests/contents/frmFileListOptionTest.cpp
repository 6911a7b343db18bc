#include "contents/frmFileListOption.h"
#include "contents/FileFilter.h"
#include "harness/FileSizeLimit.h"
#include "harness/ScreenTest.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QTest>
#include <QThread>

namespace {

const QString ReadingError = "Ошибка чтения диска! Некоторые файлы не будут добавлены в список.";
const QString SameSerial =
    "Серийный номер этого диска совпадает с уже существующим серийным номером!\r\r"
    "Возможные причины:\r\n"
    "   1. Этот диск уже есть в базе данных\r\n"
    "   2. Диск записан в режиме пакетно записи (UDF)\r\n"
    "   3. Диск имеет одинаковый идентификатор с ранее добавленным диском (пиратская копия)\r\n\r\n"
    "Не смотря на это, есть возможность произвести добавление списка файлов для этого диска. Продолжить?";

/// A disc with something that happens when a folder is asked for.
struct EventfulDisc : FakeDisc {
    std::function<void(const QString& folder)> asked = [](const QString&) {};
    std::function<void(const QString& file)> readFrom = [](const QString&) {};

    QList<DiscEntry> list(const QString& folder) override
    {
        asked(folder);
        return FakeDisc::list(folder);
    }
    QByteArray read(const QString& folder, const QString& name, qint64 offset, qint64 length) override
    {
        readFrom(name);
        return FakeDisc::read(folder, name, offset, length);
    }
};

void clickStop()
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* stop = window->findChild<QPushButton*>("cmdStop")) stop->click();
}

class FileListOption : public ScreenTest {
protected:
    FileListOption()
    {
        disc->properties = FakeDisc::data("BACKUP", 0x1A2B)->properties;
        disc->file("\\readme.TXT", 100).file("\\A\\B\\deep.zip", 2048).file("\\A\\setup.exe", 1'024'000);
        drives.v.medium = disc;
        row = shelf.computer(7, "Debian").discs(2).key();
    }

    template<class Body> void choose(const Body& body) { run<frmFileListOption>(body, DiscOfRow{row, 2}, 7); }
    /// Starts the scan and waits for its end.
    Script scan()
    {
        expectForm("frmFileListCreate");
        co_await click("imgButton_0");
        co_await until([&] { return !runner.top() || windowName() == "frmFileListOption"; });
    }
    /// The scan, with boxes over the progress window.
    Script scanWith(QList<std::pair<QString, Answer>> boxes)
    {
        expectForm("frmFileListCreate");
        for (const auto& [text, answer] : boxes) expectBox(text, answer == Answer::Ok ? 48 : 36, answer);
        co_await click("imgButton_0");
        co_await until([&] { return !runner.top(); });
    }
    QString folders() const { return fileRows("SELECT Путь FROM [1A2B] WHERE Имя = Путь ORDER BY Путь"); }

    std::shared_ptr<EventfulDisc> disc = std::make_shared<EventfulDisc>();
    qint64 row = 0;
};

}

TEST_F(FileListOption, ScansTheDiscAndLinksItsList)
{
    drives.add('D', FakeDisc::audio({{0, 2, 0}, {3, 0, 0}, {5, 0, 0}}, {9, 0, 0}));
    setOption("Drive", "V:\\");
    choose([&]() -> Script {
        EXPECT_EQ(items("cmbDrive"), "D:\\\nV:\\\n");
        EXPECT_EQ(shown("cmbDrive") + shown("lblInserCD"), "V:\\Компьютерный диск");
        co_await scan();
    });
    EXPECT_EQ(fileRows("SELECT Имя, Размер, Комментарий FROM [1A2B] WHERE Путь = \"\\A\\\" ORDER BY Имя"),
              "\\A\\ | 0 | Null\nsetup.exe | 1\u00A0000,0 | Null\n");
    EXPECT_EQ(rows("SELECT ДискID1, ДискID2, ДискID2_d FROM Компьютер"), "Null | 1A2B | Null\n");
    EXPECT_TRUE(program.shared.DialogDone);
    EXPECT_EQ(program.shared.CurrentDiscID + program.shared.DiscIDSlots[1], "1A2B1A2B");
    EXPECT_FALSE(program.shared.DriveWatchPaused);
}

TEST_F(FileListOption, OptionsAndTheEditedFilterGoIntoTheScanAndAreKeptIfThatIsWanted)
{
    choose([&]() -> Script {
        EXPECT_FALSE(enabled("optFilter_0"));
        for (const QString box : {"chLCase", "chFilter", "chScanDirOnly"}) co_await check(box);
        EXPECT_FALSE(enabled("chFilter") || enabled("optFilter_0"));
        co_await check("chScanDir", false);
        EXPECT_FALSE(enabled("chScanDirOnly"));
        co_await check("chScanDir");
        co_await check("chScanDirOnly", false);
        EXPECT_TRUE(enabled("chFilter") && enabled("optFilter_0"));
        co_await key(Qt::Key_Escape);
    });
    setOption("SaveFileListOption", "1");
    choose([&]() -> Script {
        EXPECT_FALSE(checked("chLCase"));
        for (const QString box : {"chHiddenFiles", "chShare", "chFilter"}) co_await check(box);
        co_await click("optFilter_1");
        expectForm("frmEditFilter");
        co_await click("imgButton_2");
        EXPECT_EQ(shown("lvFilter"), "[x] .exe\n[x] .rar\n[x] .zip\n");
        co_await check("lvFilter", ".zip", false);
        co_await click("imgButton_0");
        co_await scan();
    });
    EXPECT_EQ(fileRows("SELECT Имя FROM [1A2B] WHERE Имя <> Путь"), "setup.exe\n");
    EXPECT_EQ(rows("SELECT ДискID2, ДискID2_d FROM Компьютер"), "1A2B | 1A2B\n");
    QStringList kept;
    for (const QString& name : program.settings().keys(u"FileListOption"))
        kept += name + '=' + program.settings().read(u"FileListOption", name);
    kept.sort();
    EXPECT_EQ(kept.join(' '),
              "FilesInCore=1 Filter=1 FilterPar=1 HiddenFiles=1 InfoMP3=0 LCase=0 ScanDir=1 ScanDirOnly=0 Share=1");
    program.settings().write(u"FileListOption", u"ScanDir", u"0"_s);
    std::optional<FileSizeLimit> diskFull;
    choose([&]() -> Script {
        EXPECT_TRUE(checked("chHiddenFiles") && checked("optFilter_1") && enabled("optFilter_1"));
        EXPECT_FALSE(checked("chScanDir") || enabled("chScanDirOnly"));
        diskFull.emplace(0);
        expectBox("Параметры не сохранены: файл '" + path("vinora.ini") + "' недоступен для записи!", 48);
        co_await key(Qt::Key_Escape);
    });
}

TEST_F(FileListOption, ASerialThatAListHasAlreadyIsAskedAbout)
{
    shelf.computer(8, "Original").list(1, "1A2B", {"\\old.txt"});
    choose([&]() -> Script {
        expectBox(SameSerial, 52, Answer::No);
        co_await click("imgButton_0");
    });
    EXPECT_FALSE(program.shared.DialogDone);
    EXPECT_EQ(rows("SELECT ДискID2 FROM Компьютер WHERE Номер = 7"), "Null\n");

    choose([&]() -> Script {
        expectBox(SameSerial, 52, Answer::Yes);
        co_await scan();
    });
    const QString& id = program.shared.CurrentDiscID;
    EXPECT_NE(id, "1A2B");
    EXPECT_EQ(rows("SELECT ДискID2 FROM Компьютер WHERE Номер = 7"), id + "\n");
    EXPECT_EQ(fileRows("SELECT COUNT(*) FROM [" + id + "]"), "6\n");
    EXPECT_EQ(fileRows("SELECT Имя FROM [1A2B]"), "old.txt\n");
}

TEST_F(FileListOption, ManyReadingErrorsMayBeBrokenOffAndTheRestIsKept)
{
    for (int n = 1; n <= 8; ++n) disc->folder(QString("\\%1\\").arg(n)).damaged(n < 8 ? QString("\\%1\\").arg(n) : "");
    const QString question = "Диск читается с ошибками. Продолжить сканирование?";
    const std::pair<QString, Answer> told{ReadingError, Answer::Ok};
    choose([&]() -> Script {
        return scanWith({told, told, told, {question, Answer::Yes}, told, told, told, {question, Answer::No}});
    });
    EXPECT_EQ(folders(), "\\8\\\n\\A\\\n\\A\\B\\\n");
    EXPECT_EQ(rows("SELECT ДискID2 FROM Компьютер"), "1A2B\n");
    QFile log(path("bugreport.log"));
    EXPECT_TRUE(log.open(QIODevice::ReadOnly));
    EXPECT_EQ(log.readAll().count("frmFileListCreate, CreateFileList()\r\n"), 1);
}

TEST_F(FileListOption, AMediumThatLeavesEndsTheWalkAfterOneMessage)
{
    QDir(path("")).mkdir("bugreport.log"); // an error that cannot be logged is told all the same
    disc->folder("\\0\\").folder("\\9\\");
    disc->asked = [&](const QString& folder) {
        if (folder != "\\A\\B\\") return;
        disc->healthy = 0;
        drives.v.medium.reset();
    };
    choose([&]() -> Script { return scanWith({{ReadingError, Answer::Ok}}); });
    EXPECT_EQ(fileRows("SELECT Имя FROM [1A2B] WHERE Путь = \"\\A\\\" ORDER BY Имя"), "\\A\\\nsetup.exe\n");
    EXPECT_EQ(rows("SELECT ДискID2 FROM Компьютер"), "1A2B\n");
}

TEST_F(FileListOption, StoppingEndsTheWalkAndKeepsTheList)
{
    bool watchPaused = false;
    std::function<void(QWidget&)> stop;
    disc->file("\\B\\X\\Y\\y", 0).file("\\B\\X\\x", 0).file("\\C\\c", 0);
    disc->asked = [&](const QString& folder) {
        watchPaused = program.shared.DriveWatchPaused;
        if (folder == "\\B\\X\\") stop(*dialogs.innermost());
    };
    const std::function<void(QWidget&)> ways[] = {[&](QWidget&) { clickStop(); },
                                                  [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); },
                                                  [](QWidget& window) { window.close(); }};
    for (const auto& way : ways) {
        stop = way;
        ShelfDisc(program, Computer(), row).set("ДискID2", Value()); // the list is replaced without a word
        choose([&]() -> Script { co_await scan(); });
        EXPECT_EQ(folders(), "\\\n\\B\\\n\\C\\\n") << "way " << &way - ways;
        EXPECT_EQ(rows("SELECT ДискID2 FROM Компьютер"), "1A2B\n");
        EXPECT_TRUE(watchPaused);
    }
}

TEST_F(FileListOption, StoppingWithinAFolderOfMusicReadsNoMoreTags)
{
    for (int n = 1; n <= 9; ++n) disc->file(QString("\\Z\\%1.mp3").arg(n), 1000);
    disc->file("\\root.mp3", 1000);
    QStringList asked;
    QString inSight;
    const auto see = [&] {
        const auto bar = [&](const char* name) {
            const auto& shown = *dialogs.innermost()->findChild<QProgressBar*>(name);
            return QString(" %1/%2").arg(shown.value()).arg(shown.maximum());
        };
        for (const char* line : {"lblDir", "lblFile", "lblCount"})
            inSight += dialogs.innermost()->findChild<QLabel*>(line)->text() + '|';
        inSight += bar("prbFiles") + bar("prbDisc") + '\n';
        QThread::msleep(60); // so that the next one is shown, too
    };
    disc->asked = [&](const QString&) { see(); };
    disc->readFrom = [&](const QString& file) {
        asked += file;
        if (file != "9.mp3") see();
        if (file == "3.mp3") clickStop();
    };
    choose([&]() -> Script {
        co_await check("chFiles");
        co_await scan();
    });
    EXPECT_EQ(inSight, "V:\\||Папок: 0, файлов: 0| 0/1 0/1000\n"
                       "V:\\Z||Папок: 0, файлов: 0| 0/1 0/1000\n"
                       "V:\\Z|1.mp3|Папок: 1, файлов: 0| 1/9 37/1000\n"
                       "V:\\Z|2.mp3|Папок: 1, файлов: 1| 2/9 74/1000\n"
                       "V:\\Z|3.mp3|Папок: 1, файлов: 2| 3/9 111/1000\n");
    EXPECT_EQ(asked.join(' '), "1.mp3 2.mp3 3.mp3");
    EXPECT_EQ(fileRows("SELECT Имя FROM [1A2B]"), "\\Z\\\n1.mp3\n2.mp3\n3.mp3\n\\\n");
    EXPECT_EQ(rows("SELECT ДискID2 FROM Компьютер"), "1A2B\n");
}

TEST_F(FileListOption, AKilledScanLeavesWhatItKeptEachSecond)
{
    disc->file("\\Z\\first.txt", 0);
    const QDir here(path("")), killed(path("killed"));
    here.mkdir("killed");
    disc->asked = [&](const QString& folder) {
        if (folder == "\\A\\") QThread::msleep(1100);
        if (folder != "\\A\\B\\") return;
        for (const QString& name : here.entryList({"*.db*"})) QFile::copy(here.filePath(name), killed.filePath(name));
    };
    choose([&]() -> Script { co_await scan(); });
    const auto left = [&](const char* database, const QString& select) {
        return rowsOf(engine.OpenDatabase(killed.filePath(database)), select);
    };
    EXPECT_EQ(left("vinora_files.db", "SELECT Имя FROM [1A2B] ORDER BY Имя"), "\\Z\\\nfirst.txt\n");
    EXPECT_EQ(left("vinora.db", "SELECT ДискID2 FROM Компьютер"), "Null\n");
}

TEST_F(FileListOption, TooManyFilterEntriesAreAFault)
{
    for (int i = 3; i < 51; ++i) FilterTable(program.filesDatabase(), true).add(QString::number(i));
    expectForm("frmFileListCreate");
    expectFault("frmFileListCreate, FullArrayFileFiltr()");
    choose([&]() -> Script {
        co_await check("chFilter");
        co_await click("optFilter_1");
        co_await click("imgButton_0");
    });
}
