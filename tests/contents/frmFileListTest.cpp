#include "contents/frmFileList.h"
#include "harness/ScreenTest.h"
#include "harness/UdfImage.h"
#include "recognition/DiscIdentity.h"

#include <QApplication>
#include <QDirIterator>
#include <QMouseEvent>

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

/// As a click on the blank below the rows with a hand that is not quite still.
void dragOverBlank(QTreeView& view)
{
    const QPointF below(5, view.viewport()->height() - 5);
    for (const auto& [type, button] : {std::pair{QEvent::MouseButtonPress, Qt::LeftButton},
                                       {QEvent::MouseMove, Qt::NoButton},
                                       {QEvent::MouseButtonRelease, Qt::LeftButton}}) {
        const QPointF at = below + QPointF(type == QEvent::MouseButtonPress ? 0 : 12, 0);
        const bool held = type != QEvent::MouseButtonRelease;
        QMouseEvent event(type, at, view.viewport()->mapToGlobal(at), button, held ? Qt::LeftButton : Qt::NoButton, {});
        QApplication::sendEvent(view.viewport(), &event);
    }
}

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

    std::shared_ptr<FakeDisc> disc = FakeDisc::data("BACKUP", 0x1A2B);
    ListRequest request;
};

}

TEST_F(FileList, ShowsFoldersBesideTheRootAndTheFilesOfTheChosenOne)
{
    listed();
    ShelfDisc(program, Computer(), request.key).list(2, "BEEF", {"\\", "\\second.zip | 1,0"});
    browse([&]() -> Script {
        EXPECT_EQ(title(), "Файлы");
        EXPECT_EQ(shown("lblNumber") + shown("lblName"), "7Debian");
        EXPECT_EQ(items("cmbCountCD"), "1\n2\n");
        EXPECT_EQ(shown("trView"), "...\nDocs\nEmpty\n");
        EXPECT_EQ(focus() + current("trView"), "trView...");
        EXPECT_EQ(shown("lvFiles"), "readme.txt | 12,5\nsetup.exe  | 1 000,0\n");
        EXPECT_EQ(current("lvFiles") + shown("txtCommentFile"), "readme.txt | 12,5Прочти");
        EXPECT_EQ(shown("lblCDSpace_0"), "~1 Мб");
        co_await picture("frmFileList");
        co_await click("lvFiles", "setup.exe");
        EXPECT_EQ(shown("txtCommentFile"), "");
        co_await click("trView", "Docs/Img");
        EXPECT_EQ(shown("lvFiles"), "a.gif | 7,0\n");
        co_await click("trView", "Empty");
        co_await act([&] { dragOverBlank(control<QTreeView>("trView")); });
        EXPECT_TRUE(control<QTreeView>("trView").selectionModel()->hasSelection());
        EXPECT_TRUE(visible("txtNoFiles") && enabled("txtCommentDir"));
        EXPECT_FALSE(visible("lvFiles") || enabled("txtCommentFile"));
        const int width = control<QWidget>("trView").width();
        co_await key(Qt::Key_Right, Qt::AltModifier);
        EXPECT_GT(control<QWidget>("trView").width(), width);
        co_await select("cmbCountCD", "2");
        EXPECT_EQ(program.shared.CurrentDiscID + shown("lvFiles"), "BEEFsecond.zip | 1,0\n");
        co_await click("imgButton_0");
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
        EXPECT_EQ(fileRows("SELECT Комментарий FROM [1A2B] WHERE Путь = \"\\Docs\\\" ORDER BY Имя"),
                  "'Все' (тут)\n" + QString(50, 'x') + "\n");
        co_await click("trView", "...");
        co_await type("txtCommentFile", "");
        expectBox("Комментарий к файлу 'readme.txt' успешно изменен.", 64);
        co_await key(Qt::Key_Return);
        co_await type("txtCommentFile", "not saved");
        co_await click("lvFiles", "setup.exe");
        co_await click("lvFiles", "readme.txt");
        EXPECT_EQ(shown("txtCommentFile"), "");

        co_await type("txtCommentDir", "Корень");
        program.filesDatabase().Execute(u"DELETE FROM [1A2B]");
        expectBox("Необходимо пересоздать структуру диска!", 48);
        co_await type("txtCommentFile", "Файл");
        co_await key(Qt::Key_Return);
        EXPECT_EQ(shown("txtCommentFile"), "Файл");
        EXPECT_EQ(shown("txtCommentDir"), "") << "the folder's box is the one that is emptied";
    });
}

TEST_F(FileList, AListThatCannotBeReadIsToldAndAnEmptyOneSaysSo)
{
    list({"\\", "\\" + QString("d\\").repeated(41)});
    const Database files = program.filesDatabase();
    files.CreateTable({"FOREIGN", {{"Имя", FieldType::Text}, {"Путь", FieldType::Text}}, {}, {}});
    for (const auto& [name, why, next, focused] :
         {std::tuple{"1A2B", "вложена глубже 40 уровней.", "Файлы списка находит поиск.", "imgButton_0"},
          {"FOREIGN", "неизвестное имя «Размер»", "«Пересоздать».", "imgButton_3"},
          {"GONE", "нет таблицы «GONE».", "«Пересоздать».", "imgButton_3"},
          {"no]name", "", "«Пересоздать».", "imgButton_3"}}) {
        ShelfDisc(program, Computer(), request.key).set("ДискID1", QString(name));
        expectBox("ВНИМАНИЕ!\r\rПроизошла ошибка при создании списка файлов! Необходимо повторно произвести "
                  "сканирование диска.",
                  48);
        browse([&]() -> Script {
            EXPECT_FALSE(visible("trView") || enabled("txtCommentDir"));
            EXPECT_TRUE(enabled("imgButton_2"));
            EXPECT_EQ(shown("lblCDSpace_0"), "~0 Мб");
            EXPECT_TRUE(shown("lblNoList").contains(why) && shown("lblNoList").endsWith(next));
            EXPECT_EQ(focus(), focused);
            co_await picture("frmFileList-" + QString(name));
        });
    }
    QFile log(path("bugreport.log"));
    EXPECT_TRUE(log.open(QIODevice::ReadOnly));
    EXPECT_EQ(log.readAll().count("frmFileList, BuildTree()\r\n"), 4);
    files.DropTable("1A2B");
    list({});
    browse([&]() -> Script {
        EXPECT_EQ(shown("trView") + shown("lblCDSpace_0"), "Файлов нет!\n~0 Мб");
        co_return;
    });
}

TEST_F(FileList, AFaultOfTheFileSendsNobodyToDropTheList)
{
    listed();
    engine.ReleaseAll();
    QFile file(path("vinora_files.db"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.resize(2 * file.size() / 3));
    file.close();
    expectFault("frmFileList, cmbCountCD_Click()");
    browse([]() -> Script { co_return; });
    EXPECT_EQ(rows("SELECT ДискID1 FROM Компьютер"), "1A2B\n");
}

TEST_F(FileList, ADoubleClickGivesTheDesktopTheFileOfTheRightDisc)
{
    listed();
    browse([&]() -> Script {
        co_await click("trView", "Docs");
        co_await doubleClick("lvFiles", "manual.htm");
        EXPECT_TRUE(desktop.opened.value(0).startsWith("folder of " + path("cache")));
        EXPECT_TRUE(desktop.opened.value(0).endsWith("/Docs/Manual.htm"));

        setOption("FilesAction", "1");
        drives.v.mounted = path("mnt");
        QDir().mkpath(path("mnt/Docs"));
        EXPECT_TRUE(QFile(path("mnt/Docs/Manual.htm")).open(QIODevice::WriteOnly));
        co_await key(Qt::Key_Return);
        EXPECT_EQ(desktop.opened.value(1), "file " + path("mnt/Docs/Manual.htm"));
        desktop.obeys = false;
        expectBox("Не удалось открыть файл 'manual.htm'.\rРабочий стол занят.", 48);
        co_await key(Qt::Key_Return);

        drives.v.mounted.clear();
        disc->damaged("\\readme.txt");
        co_await click("trView", "...");
        expectBox("Не удалось открыть файл 'readme.txt'.\rОшибка чтения '\\readme.txt'.", 48);
        co_await doubleClick("lvFiles", "readme.txt");
        disc->properties.serial = 5;
        expectBox("Вставьте диск № 7 в устройство для чтения компакт-дисков и повторите операцию.", 48);
        co_await doubleClick("lvFiles", "readme.txt");
        EXPECT_EQ(desktop.opened.size(), 3);
    });
}

TEST_F(FileList, ALargeFileIsCopiedInSightAndMayBeStopped)
{
    auto large = std::make_shared<InterruptedFile>();
    large->properties = disc->properties;
    large->file("\\film.avi", 6'000'000);
    drives.v.medium = large;
    list({"\\", "\\film.avi | 5 859,4"});
    const QString question =
        "Диск не подключён к системе. Чтобы показать файл 'film.avi', его нужно скопировать (5,7 Мб). Продолжить?";
    browse([&]() -> Script {
        expectBox(question, 36, Answer::No);
        co_await doubleClick("lvFiles", "film.avi");
        for (const bool stopped : {true, false}) {
            large->interrupts = stopped;
            expectBox(question, 36, Answer::Yes);
            expectForm("frmCopyFile");
            co_await doubleClick("lvFiles", "film.avi");
            co_await until([&] { return windowName() == "frmFileList"; });
            EXPECT_EQ(desktop.opened.isEmpty(), stopped);
            const QDirIterator copies(path("cache"), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
            EXPECT_EQ(copies.hasNext(), !stopped);
        }
        co_await doubleClick("lvFiles", "film.avi"); // there is a copy now
        EXPECT_EQ(desktop.opened.size(), 2);
    });
}

TEST_F(FileList, OpensAtTheFileOrFolderThatItsOpenerFound)
{
    listed();
    const auto openAt = [&](const ListPlace& place, const QString& control, const QString& folder,
                            const QString& file) {
        request.place = place;
        browse([&]() -> Script {
            EXPECT_EQ(focus(), control);
            EXPECT_EQ(current("trView") + ' ' + current("lvFiles"), folder + ' ' + file);
            const QModelIndex current = this->control<ListView>("lvFiles").currentIndex();
            EXPECT_EQ(current.data(Qt::FontRole).isValid(), control == "lvFiles");
            co_return;
        });
    };
    openAt({"\\Docs\\Img\\", "a.gif"}, "lvFiles", "Img", "a.gif | 7,0");
    openAt({"\\", "setup.exe"}, "lvFiles", "...", "setup.exe | 1 000,0");
    openAt({"\\Docs\\", ""}, "trView", "Docs", "manual.htm | 2,0");
    openAt({"\\Docs\\", "gone"}, "trView", "Docs", "manual.htm | 2,0");
    openAt({"\\gone\\", "a.gif"}, "trView", "...", "readme.txt | 12,5");
}

TEST_F(FileList, FortyLevelsOfFoldersAreShownAndOneMoreIsTold)
{
    for (const int levels : {40, 41}) {
        const QString folder = '\\' + QString("d\\").repeated(levels);
        drives.v.medium = FakeDisc::data("DEEP", quint32(levels));
        drives.v.medium->file(folder + "deep.txt", 1);
        browse([&]() -> Script {
            expectForm("frmFileListOption");
            co_await click("imgButton_1");
            expectForm("frmFileListCreate");
            if (levels > 40)
                expectBox("ВНИМАНИЕ!\r\rПроизошла ошибка при создании списка файлов! Необходимо повторно произвести "
                          "сканирование диска.");
            co_await click("imgButton_0");
            co_await until([&] { return windowName() == "frmFileList"; });
            EXPECT_EQ(fileRows("SELECT COUNT(*) FROM [" + program.shared.CurrentDiscID + "]").toInt(), levels + 2);
            if (levels > 40) {
                EXPECT_TRUE(shown("lblNoList").contains("вложена глубже 40 уровней"));
            } else {
                co_await click("trView", QStringList(levels, "d").join('/'));
                co_await picture("frmFileList-deep");

                EXPECT_EQ(shown("lvFiles"), "deep.txt | 0,0\n");
            }
            expectBox("Вы действительно хотите удалить информация о структуре 1-го диска № 7?", 36, Answer::Yes);
            co_await click("imgButton_2");
        });
    }
}

TEST_F(FileList, ADuplicateIsListedUnderAMadeUpIdentifierAndIsNeverTheDiscInTheDrive)
{
    shelf.computer(8, "Original").list(1, "1A2B", {"\\old.txt"});
    browse([&]() -> Script {
        expectForm("frmFileListOption");
        co_await click("imgButton_1");
        dialogs.expect(
            {.kind = ScriptedDialogs::Kind::Box,
             .type = 52,
             .answer = Answer::Yes,
             .accepts = [](const QString& box) { return box.contains("Серийный номер этого диска совпадает"); }},
            Where::current());
        co_await scan();
        EXPECT_EQ(rows("SELECT ДискID1 FROM Компьютер WHERE Номер = 7"), program.shared.CurrentDiscID + '\n');
        EXPECT_EQ(shown("lvFiles"), "readme.txt | 0,0\n");
        expectBox("Вставьте диск № 7 в устройство для чтения компакт-дисков и повторите операцию.");
        co_await doubleClick("lvFiles", "readme.txt");
    });
    EXPECT_TRUE(desktop.opened.isEmpty());
}

TEST_F(FileList, ADiscThatCannotBeReadInTheMiddleIsListedAndOpenedAsFarAsItGoes)
{
    const auto folderOf = [](const QString& name) {
        return UdfImage::folder(name, {{name + ".txt", "of " + name.toUtf8()}}, UdfImage::longForm);
    };
    QByteArray udf = UdfImage(UdfImage::sparable, 2048)
                         .build(UdfImage::folder({}, {folderOf("A"),
                                                      folderOf("B"),
                                                      folderOf("C"),
                                                      {"film.avi", QByteArray(9000, 'f'), UdfImage::longForm}}));
    udf[udf.indexOf("B.txt")] = 'b'; // its sum is wrong now
    udf.chop(2048);                  // the end of the film
    QFile image(path("damaged.iso"));
    EXPECT_TRUE(image.open(QIODevice::WriteOnly) && image.write(udf) == udf.size());
    image.close();
    drives.add('W', image.fileName());
    setOption("Drive", "W:\\");
    setOption("FilesAction", "1");
    program.skipcd().write(u"CD", SerialToID(drives.find(u"W:")->volume().serial), u"PC"_s);
    browse([&]() -> Script {
        expectForm("frmFileListOption");
        co_await click("imgButton_1");
        expectForm("frmFileListCreate");
        expectBox("Ошибка чтения диска! Некоторые файлы не будут добавлены в список.");
        co_await click("imgButton_0");
        co_await until([&] { return windowName() == "frmFileList"; });
        EXPECT_EQ(shown("trView") + shown("lvFiles"), "...\nA\nC\nfilm.avi | 8,8\n");
        expectBox("Не удалось открыть файл 'film.avi'.\rДиск поврежден: данные, на которые он ссылается, лежат за его "
                  "концом.");
        co_await doubleClick("lvFiles", "film.avi");
        EXPECT_TRUE(desktop.opened.isEmpty());
        co_await click("trView", "C");
        co_await doubleClick("lvFiles", "C.txt");
        QFile copy(desktop.opened.value(0).sliced(5));
        EXPECT_TRUE(copy.open(QIODevice::ReadOnly));
        EXPECT_EQ(copy.readAll(), "of C");
    });
}
