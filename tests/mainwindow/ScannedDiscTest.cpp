// A disc's way from the drive to the hit of a search and back to its file.
#include "harness/UdfImage.h"
#include "mainwindow/MainWindowTest.h"

#include <QFile>

namespace {

class ScannedDisc : public MainWindow {
protected:
    ScannedDisc()
    {
        qputenv("XDG_CACHE_HOME", QFile::encodeName(path("cache")));
        setOption("FilesAction", "1");
        setOption("Drive", "W:\\");
        shelf.computer(7, "Архив");
    }
    void insert(const QByteArray& image)
    {
        QFile file(path("disc.iso"));
        EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(image) == image.size());
        file.close();
        drives.add('W', file.fileName());
    }
    Script callItAComputerDisc()
    {
        expectBox("Используйте эту функцию для корректировки принадлежности диска к какой-либо категории при "
                  "невозможности определить ее верно в автоматическом режиме! Продолжить?",
                  36);
        expectForm("frmSelectCategory");
        co_await trigger("ID_Catalog_ChangeCategory");
        co_await check("optPC", true);
        co_await key(Qt::Key_Return);
    }
    /// In the list of the only disc.
    Script scanAndComment(const QStringList& names)
    {
        expectForm("frmFileListOption");
        co_await click("imgButton_1");
        co_await check("chShare");
        expectForm("frmFileListCreate");
        co_await click("imgButton_0");
        co_await until([&] { return windowName() == "frmFileList"; });
        for (const QString& name : names) {
            co_await click("lvFiles", name);
            co_await type("txtCommentFile", "о файле");
            expectBox("Комментарий к файлу '" + name + "' успешно изменен.", 64);
            co_await key(Qt::Key_Return);
        }
    }
    /// In the search: the file is found, its list opened, and the file handed to the desktop.
    Script findAndOpen(const QString& text, const QString& name)
    {
        co_await type("txtSearchText", text);
        co_await key(Qt::Key_Return);
        co_await until([&] { return enabled("txtSearchText"); });
        expectForm("frmFileList");
        co_await key(Qt::Key_Return);
        EXPECT_EQ(current("lvFiles").section(" | ", 0, 0) + shown("txtCommentFile"), name + "о файле");
        desktop.opened.clear();
        co_await key(Qt::Key_Return);
        QFile copy(desktop.opened.value(0).mid(5));
        EXPECT_TRUE(copy.open(QFile::ReadOnly)) << qPrintable(desktop.opened.join(' '));
        EXPECT_EQ(copy.readAll(), name.toUtf8());
        EXPECT_TRUE(copy.fileName().startsWith(path("cache")));
        EXPECT_EQ(copy.permissions() & (QFile::Permissions(0x0077) | QFile::WriteOwner), QFile::Permissions());
        co_await key(Qt::Key_Escape);
    }

    /// The whole way of a disc with the files `quoted` and `longName`, each of which holds its own name.
    Script live(const QString& longName)
    {
        expectForm("frmCataloguePCCD");
        co_await trigger("ID_Catalog_PCCD");
        expectForm("frmFileList");
        co_await click("imgButton_6");
        const QStringList names{quoted, longName};
        co_await scanAndComment(names);
        EXPECT_EQ(rows("SELECT ДискID1_d FROM Компьютер"), program.shared.CurrentDiscID + '\n');
        co_await key(Qt::Key_Escape);
        co_await key(Qt::Key_Escape);
        expectForm("frmDBFind");
        co_await trigger("ID_DB_Search");
        co_await findAndOpen("hi*it's [[]X]", quoted);
        co_await check("chWholeWord");
        co_await findAndOpen(longName.toUpper(), longName);
    }

    const QString quoted = "say \"hi\" it's [x].txt";
};

}

TEST_F(ScannedDisc, OfPacketsThatIsCalledAComputerDiscIsCommentedFoundAndOpened)
{
    const QString longName = QString(250, 'n') + ".txt"; // UDF takes no more
    insert(UdfImage(UdfImage::sparable, 512)
               .build(UdfImage::folder({}, {{quoted, quoted.toUtf8()}, {longName, longName.toUtf8()}},
                                       UdfImage::longForm)));
    walk([&]() -> Script {
        co_await callItAComputerDisc();
        co_await live(longName);
    });
}

TEST_F(ScannedDisc, WithANameAsLongAsItsFieldIsCommentedFoundAndOpened)
{
    const QString longName = QString(251, u'ю') + ".txt";
    const auto disc = FakeDisc::data("ZIMA", 0x1A2B);
    disc->file('\\' + quoted, quoted.toUtf8()).file('\\' + longName, longName.toUtf8());
    drives.add('W', disc);
    walk([&]() -> Script { co_await live(longName); });
}
