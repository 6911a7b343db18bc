#include "contents/frmFileList.h"
#include "harness/ScreenTest.h"

#include <QApplication>
#include <QDirIterator>

namespace {

/// Closes the window of the copy when the disc is asked for more than the beginning of a file.
struct InterruptedFile : FakeDisc {
    bool interrupts = true;

    QByteArray read(const QString& folder, const QString& name, qint64 offset, qint64 length) override
    {
        if (offset > 0 && interrupts)
            for (QWidget* window : QApplication::topLevelWidgets())
                if (window->objectName() == "frmCopyFile") window->close();
        return FakeDisc::read(folder, name, offset, length);
    }
};

class FileList : public ScreenTest {
protected:
    FileList()
    {
        qputenv("XDG_CACHE_HOME", QFile::encodeName(path("cache")));
        setOption("Drive", "V:\\");
        drives.v.medium = disc;
        disc->file("\\readme.txt", QByteArray("Привет")).file("\\Docs\\Manual.htm", 2048);
        request.key = shelf.computer(7, "Debian").discs(2).key();
        request.number = 7;
        request.title = "Debian";
        request.discs = 2;
    }

    /// The list of disc 1 under the identifier of the disc in the drive.
    void list(const QStringList& lines) { ShelfDisc(program, Computer(), request.key).list(1, "1A2B", lines); }
    void listed()
    {
        list({"\\", "\\readme.txt | 12,5 | Прочти", "\\setup.exe | 1 000,0", "\\Docs\\", "\\Docs\\manual.htm | 2,0",
              "\\Docs\\Img\\", "\\Docs\\Img\\a.gif | 7,0", "\\Empty\\"});
    }
    /// In the options: starts the scan and waits for its end.
    Script scan()
    {
        expectForm("frmFileListCreate");
        co_await click("imgButton_0");
        co_await until([&] { return windowName() == "frmFileList"; });
    }
    template<class Body> void browse(const Body& body) { run<frmFileList>(body, request); }
    QString comments() const
    {
        return fileRows("SELECT Имя, Комментарий FROM [1A2B] WHERE Комментарий <> \"\" ORDER BY Имя");
    }

    std::shared_ptr<FakeDisc> disc = FakeDisc::data("BACKUP", 0x1A2B);
    ListRequest request;
};

}

TEST_F(FileList, ShowsFoldersBesideTheRootAndTheFilesOfTheChosenOne)
{
    listed();
    browse([&]() -> Script {
        EXPECT_EQ(title(), "Файлы");
        EXPECT_EQ(shown("lblHeader"), "Список файлов Компьютерного диска");
        EXPECT_EQ(shown("lblNumber") + shown("lblName"), "7Debian");
        EXPECT_EQ(items("cmbCountCD"), "1\n2\n");
        EXPECT_EQ(shown("trView"), "...\nDocs\nEmpty\n");
        EXPECT_EQ(current("trView"), "...");
        EXPECT_EQ(shown("lvFiles"), "readme.txt | 12,5\nsetup.exe  | 1 000,0\n");
        EXPECT_EQ(current("lvFiles"), "readme.txt | 12,5");
        EXPECT_EQ(shown("txtCommentFile"), "Прочти");
        EXPECT_EQ(shown("lblCDSpace_0"), "~1 Мб");
        EXPECT_FALSE(enabled("imgButton_1"));
        co_await picture("frmFileList");
        co_await click("lvFiles", "setup.exe");
        EXPECT_EQ(shown("txtCommentFile"), "");
        co_await click("trView", "Docs/Img");
        EXPECT_EQ(shown("lvFiles"), "a.gif | 7,0\n");
        co_await click("trView", "Empty");
        EXPECT_TRUE(visible("txtNoFiles"));
        EXPECT_FALSE(visible("lvFiles"));
        EXPECT_FALSE(enabled("txtCommentFile"));
        EXPECT_TRUE(enabled("txtCommentDir"));
        co_await focusOn("trView");
        co_await key(Qt::Key_Home);
        EXPECT_EQ(shown("lvFiles"), "readme.txt | 12,5\nsetup.exe  | 1 000,0\n");
        const int width = control<QWidget>("trView").width();
        co_await key(Qt::Key_Right, Qt::AltModifier);
        EXPECT_GT(control<QWidget>("trView").width(), width);
        co_await click("imgButton_0");
    });
}

TEST_F(FileList, HeadersSortAndSizesSortAsText)
{
    list({"\\", "\\a | 9,0", "\\b | 10,0", "\\c | 100,0"});
    browse([&]() -> Script {
        co_await clickHeader("lvFiles", "Файлов: 3");
        EXPECT_EQ(shown("lvFiles"), "c | 100,0\nb | 10,0\na | 9,0\n");
        co_await clickHeader("lvFiles", "Размер (Кб)");
        EXPECT_EQ(shown("lvFiles"), "b | 10,0\nc | 100,0\na | 9,0\n");
        co_await clickHeader("lvFiles", "Размер (Кб)");
        EXPECT_EQ(shown("lvFiles"), "a | 9,0\nc | 100,0\nb | 10,0\n");
        co_await clickHeader("lvFiles", "Файлов: 3");
        EXPECT_EQ(shown("lvFiles"), "a | 9,0\nb | 10,0\nc | 100,0\n");
    });
}

TEST_F(FileList, CommentsAreSavedByButtonAndByEnter)
{
    listed();
    browse([&]() -> Script {
        co_await click("trView", "Docs");
        co_await type("txtCommentDir", "\"Все\" [тут]");
        expectBox("Комментарий к папке 'Docs' успешно изменен.", 64);
        co_await key(Qt::Key_Return);
        EXPECT_EQ(shown("txtCommentDir"), "'Все' (тут)");
        co_await type("txtCommentFile", QString(60, 'x'));
        expectBox("Комментарий к файлу 'manual.htm' успешно изменен.", 64);
        co_await click("cmdMakeChangeFile");
        EXPECT_EQ(comments(), "\\Docs\\ | 'Все' (тут)\nmanual.htm | " + QString(50, 'x') + "\nreadme.txt | Прочти\n");
        co_await click("trView", "...");
        co_await type("txtCommentFile", "");
        expectBox("Комментарий к файлу 'readme.txt' успешно изменен.", 64);
        co_await key(Qt::Key_Return);
        EXPECT_EQ(fileRows("SELECT Комментарий FROM [1A2B] WHERE Имя = \"readme.txt\""), "Null\n");
    });
}

TEST_F(FileList, ACommentWithoutItsRowAsksForANewList)
{
    listed();
    browse([&]() -> Script {
        co_await type("txtCommentDir", "Корень");
        program.filesDatabase().Execute(u"DELETE FROM [1A2B]");
        expectBox("Необходимо пересоздать структуру диска!", 48);
        co_await type("txtCommentFile", "Файл");
        co_await key(Qt::Key_Return);
        EXPECT_EQ(shown("txtCommentFile"), "Файл");
        EXPECT_EQ(shown("txtCommentDir"), "") << "the folder's box is the one that is emptied";
    });
}

TEST_F(FileList, ADiscWithoutAListOffersToCreateOne)
{
    browse([&]() -> Script {
        for (const QString hidden : {"trView", "lvFiles", "txtNoFiles"})
            EXPECT_FALSE(visible(hidden)) << qPrintable(hidden);
        EXPECT_TRUE(visible("lblNoFiles"));
        EXPECT_EQ(shown("lblCDSpace_0"), "~0 Мб");
        for (const QString off : {"txtCommentDir", "txtCommentFile", "cmdMakeChangeDir", "imgButton_2", "imgButton_3"})
            EXPECT_FALSE(enabled(off)) << qPrintable(off);
        co_await picture("frmFileList-without");

        expectForm("frmFileListOption");
        co_await click("imgButton_1");
        co_await key(Qt::Key_Escape);
        EXPECT_TRUE(visible("lblNoFiles"));

        expectForm("frmFileListOption");
        co_await click("imgButton_1");
        EXPECT_EQ(title(), "Параметры сканирования диска № 7 (CD1)");
        co_await scan();
        EXPECT_EQ(windowName(), "frmFileList");
        EXPECT_EQ(shown("trView"), "...\nDocs\n");
        EXPECT_EQ(shown("lvFiles"), "readme.txt | 0,0\n");
        EXPECT_FALSE(enabled("imgButton_1"));
        EXPECT_TRUE(enabled("imgButton_2"));
        EXPECT_FALSE(program.shared.DialogDone);
    });
}

TEST_F(FileList, DeletesAndRecreatesAfterAQuestion)
{
    listed();
    browse([&]() -> Script {
        const QString question = "Вы действительно хотите удалить информация о структуре 1-го диска № 7?";
        expectBox(question, 36, Answer::No);
        co_await click("imgButton_2");
        EXPECT_TRUE(visible("trView"));

        expectBox("Текущий список файлов будет удален! Продолжить?", 52, Answer::Yes);
        expectForm("frmFileListOption");
        co_await click("imgButton_3");
        EXPECT_FALSE(program.filesDatabase().HasTable("1A2B"));
        co_await scan();
        EXPECT_EQ(shown("trView"), "...\nDocs\n");

        expectBox(question, 36, Answer::Yes);
        co_await click("imgButton_2");
        EXPECT_FALSE(program.filesDatabase().HasTable("1A2B"));
        EXPECT_EQ(rows("SELECT ДискID1 FROM Компьютер"), "Null\n");
        EXPECT_EQ(program.shared.DiscIDSlots[0], "");
        EXPECT_TRUE(visible("lblNoFiles"));
        EXPECT_TRUE(enabled("imgButton_1"));
    });
}

TEST_F(FileList, EachDiscOfTheSetHasItsOwnList)
{
    listed();
    ShelfDisc(program, Computer(), request.key).list(2, "BEEF", {"\\", "\\second.zip | 1,0"});
    request.disc = 2;
    browse([&]() -> Script {
        EXPECT_EQ(shown("lvFiles"), "second.zip | 1,0\n");
        EXPECT_EQ(program.shared.CurrentDiscID, "BEEF");
        co_await select("cmbCountCD", "1");
        EXPECT_EQ(shown("lvFiles"), "readme.txt | 12,5\nsetup.exe  | 1 000,0\n");
        EXPECT_EQ(program.shared.CurrentDiscID, "1A2B");
    });
    request.discs = request.disc = 1;
    browse([&]() -> Script {
        EXPECT_FALSE(enabled("cmbCountCD"));
        co_return;
    });
}

TEST_F(FileList, AListThatCannotBeReadIsToldAndAnEmptyOneSaysSo)
{
    const QString told = "ВНИМАНИЕ!\r\rПроизошла ошибка при создании списка файлов! Необходимо повторно произвести "
                         "сканирование диска.";
    QString deep = "\\";
    for (int i = 0; i < 41; ++i) deep += "d\\";
    list({"\\", deep});
    expectBox(told, 48);
    browse([&]() -> Script {
        EXPECT_FALSE(visible("trView"));
        EXPECT_FALSE(enabled("txtCommentDir"));
        expectBox("Вы действительно хотите удалить информация о структуре 1-го диска № 7?", 36, Answer::Yes);
        co_await click("imgButton_2");
        EXPECT_TRUE(enabled("imgButton_1"));
    });
    ShelfDisc(program, Computer(), request.key).set("ДискID1", u"GONE"_s);
    expectBox(told, 48);
    browse([&]() -> Script { co_return; });

    list({});
    browse([&]() -> Script {
        EXPECT_EQ(shown("trView"), "Файлов нет!\n");
        EXPECT_EQ(shown("lblCDSpace_0"), "~0 Мб");
        co_return;
    });
}

TEST_F(FileList, ADoubleClickGivesTheDesktopTheFileOfTheRightDisc)
{
    listed();
    browse([&]() -> Script {
        co_await click("trView", "Docs");
        co_await doubleClick("lvFiles", "manual.htm");
        EXPECT_EQ(desktop.opened.size(), 1);
        EXPECT_TRUE(desktop.opened.value(0).startsWith("folder of " + path("cache")))
            << qPrintable(desktop.opened.join(' '));
        EXPECT_TRUE(desktop.opened.value(0).endsWith("/Manual.htm"));

        setOption("FilesAction", "1");
        drives.v.mounted = path("mnt");
        QDir().mkpath(path("mnt/Docs"));
        EXPECT_TRUE(QFile(path("mnt/Docs/Manual.htm")).open(QIODevice::WriteOnly));
        co_await key(Qt::Key_Return);
        EXPECT_EQ(desktop.opened.value(1), "file " + path("mnt/Docs/Manual.htm"));

        disc->properties.serial = 5;
        expectBox("Вставьте диск № 7 в устройство для чтения компакт-дисков и повторите операцию.", 48);
        co_await doubleClick("lvFiles", "manual.htm");
        EXPECT_EQ(desktop.opened.size(), 2);
    });
}

TEST_F(FileList, AFileThatCannotBeOpenedIsTold)
{
    list({"\\", "\\gone.txt | 1,0", "\\readme.txt | 1,0"});
    browse([&]() -> Script {
        disc->damaged("\\readme.txt");
        expectBox("Не удалось открыть файл 'readme.txt'.\rОшибка чтения '\\readme.txt'.", 48);
        co_await doubleClick("lvFiles", "readme.txt");
        disc->damaged("\\");
        expectBox("Не удалось открыть файл 'gone.txt'.\rОшибка чтения '\\'.", 48);
        co_await doubleClick("lvFiles", "gone.txt");
    });
}

TEST_F(FileList, ALargeFileIsCopiedInSightAndMayBeStopped)
{
    auto large = std::make_shared<InterruptedFile>();
    large->properties = disc->properties;
    large->file("\\film.avi", 6'000'000);
    drives.v.medium = large;
    list({"\\", "\\film.avi | 5 859,4"});
    browse([&]() -> Script {
        for (const bool stopped : {true, false}) {
            large->interrupts = stopped;
            expectForm("frmCopyFile");
            co_await doubleClick("lvFiles", "film.avi");
            co_await until([&] { return windowName() == "frmFileList"; });
            EXPECT_EQ(desktop.opened.isEmpty(), stopped);
            const QDirIterator copies(path("cache"), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
            EXPECT_EQ(copies.hasNext(), !stopped);
        }
    });
}
