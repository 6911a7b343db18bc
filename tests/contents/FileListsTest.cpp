#include "contents/FileLists.h"
#include "contents/ListVolume.h"
#include "harness/ScreenTest.h"

namespace {

class FileLists : public ScreenTest {
protected:
    Database files() const { return program.filesDatabase(); }
    Database main() const { return program.mainDatabase(); }

    void write(const QString& id, const QList<FileRow>& rows)
    {
        FileListWriter writer(files(), id);
        for (const FileRow& row : rows) writer.add(row);
    }
    /// A list of these folder rows.
    void makeFolders(const QString& id, const QStringList& paths)
    {
        QString name = id;
        ASSERT_TRUE(CreateFileTable(files(), main(), name));
        for (const QString& path : paths) write(id, {{path, path, u"0"_s, {}}});
    }
};

}

TEST_F(FileLists, ATakenNameIsRefusedWithoutAskingAndLeftAlone)
{
    makeFolders("12AB", {"\\"});
    QString id = "12AB";
    EXPECT_FALSE(CreateFileTable(files(), main(), id));
    EXPECT_EQ(fileRows("SELECT Имя FROM [12AB]"), "\\\n");
}

TEST_F(FileLists, AnOrphanOfTheSameNameIsReplacedWithoutAQuestion)
{
    makeFolders("12AB", {"\\"});
    shelf.computer(1, "Debian").set("ДискID1", u"12A"_s);
    QString id = "12AB";
    EXPECT_TRUE(CreateFileTable(files(), main(), id, [] {
        ADD_FAILURE();
        return false;
    }));
    EXPECT_EQ(id, "12AB");
    EXPECT_EQ(fileRows("SELECT Имя FROM [12AB]"), "");
}

TEST_F(FileLists, AMadeUpNameIsDecimalAndFitsItsField)
{
    shelf.computer(1, "Debian").list(1, "12AB", {"\\"});
    for (const quint32 seed : {1, 2, 3}) {
        QRandomGenerator random(seed);
        QString id = "12AB";
        EXPECT_TRUE(CreateFileTable(
            files(), main(), id, [] { return true; }, random));
        bool decimal = false;
        EXPECT_LE(id.toLongLong(&decimal), 1'000'000'007);
        EXPECT_TRUE(decimal && files().HasTable(id)) << qPrintable(id);
    }
}

TEST_F(FileLists, LinkAndDeletionTouchTheirDiscOfTheRowAlone)
{
    const qint64 key = shelf.computer(5, "Debian").discs(3).set("ДискID1", u"A1"_s).set("ДискID2_d", u"B2"_s).key();
    shelf.computer(5, "The same number").set("ДискID2", u"C3"_s);
    makeFolders("D4", {"\\"});

    CreateLinkDiskID(main(), {key, 2}, "D4", false);
    EXPECT_EQ(rows("SELECT ДискID1, ДискID2, ДискID2_d FROM Компьютер"), "A1 | D4 | B2\nNull | C3 | Null\n");
    CreateLinkDiskID(main(), {key, 2}, "D4", true);
    EXPECT_EQ(ListNames(main(), key), (std::array<QString, 6>{"A1", "D4", "", "", "", ""}));
    EXPECT_EQ(rows("SELECT ДискID2_d FROM Компьютер"), "D4\nNull\n");

    DeleteList(files(), main(), {key, 2}, "D4");
    EXPECT_FALSE(files().HasTable("D4"));
    EXPECT_EQ(rows("SELECT ДискID2, ДискID2_d FROM Компьютер"), "Null | D4\nC3 | Null\n")
        << "the binding outlives the list";
    DeleteList(files(), main(), {key, 1}, "A1"); // a list that is gone
    EXPECT_EQ(ListNames(main(), key), (std::array<QString, 6>{}));
}

TEST_F(FileLists, FolderPathsAreDistinctAndOrderedByComponents)
{
    makeFolders("1E5", {"\\B\\", "\\", "\\a\\", "\\A\\ONE\\", "\\A B\\", "\\A\\"});
    write("1E5", {{"x", "\\A\\", "1,0", {}}, {"y", "\\C\\", "1,0", {}}});
    EXPECT_EQ(FolderPaths(files(), "1E5"),
              (QStringList{"\\", "\\A\\", "\\A\\ONE\\", "\\A B\\", "\\B\\", "\\C\\", "\\a\\"}));
    EXPECT_THROW(FolderPaths(files(), "missing"), RuntimeError);
}

TEST_F(FileLists, AFolderIsReadWithoutItsOwnRowByName)
{
    makeFolders("77", {"\\A\\", "\\a\\", "\\A\\SUB\\"});
    write("77", {{"b.txt", "\\A\\", "2,0", {}}, {"-first", "\\A\\", "1,0", "c"}, {"other", "\\a\\", "3,0", {}}});
    EXPECT_TRUE(SetFileComment(files(), "77", "\\A\\", "\\A\\", "Папка"));
    const FolderContents contents = ReadFolder(files(), "77", "\\A\\");
    EXPECT_EQ(contents.comment, "Папка");
    EXPECT_EQ(contents.files, (QList<FileRow>{{"-first", "\\A\\", "1,0", "c"}, {"b.txt", "\\A\\", "2,0", {}}}));
    EXPECT_EQ(ReadFolder(files(), "77", "\\nowhere\\").files.size(), 0);
}

TEST_F(FileLists, CommentsAreKeptPerFileWhateverItsName)
{
    makeFolders("77", {"\\"});
    write("77",
          {{"12\" remix.mp3", "\\", "1,0", {}}, {"12\" REMIX.mp3", "\\", "1,0", {}}, {"it's [x]", "\\", "1,0", {}}});
    for (const QString name : {"12\" remix.mp3", "12\" REMIX.mp3", "it's [x]"}) {
        EXPECT_TRUE(SetFileComment(files(), "77", "\\", name, name)) << qPrintable(name);
        EXPECT_EQ(FileComment(files(), "77", "\\", name), name);
    }
    EXPECT_EQ(FileComment(files(), "77", "\\", "12\" remix.mp3"), "12\" remix.mp3") << "letters differ by case";
    EXPECT_TRUE(SetFileComment(files(), "77", "\\", "it's [x]", ""));
    EXPECT_EQ(fileRows("SELECT Комментарий FROM [77] WHERE Имя = \"it's [x]\""), "Null\n");
    EXPECT_FALSE(SetFileComment(files(), "77", "\\", "missing", "c"));
    EXPECT_EQ(FileComment(files(), "77", "\\", "missing"), "");
}

TEST_F(FileLists, VolumeIsTheSumOfAllSizes)
{
    makeFolders("77", {});
    EXPECT_EQ(ListVolume(files(), "77"), "~0 Мб");
    write("77", {{"\\", "\\", "0", {}}});
    EXPECT_EQ(ListVolume(files(), "77"), "~1 Мб");
    write("77", {{"a", "\\", "12\u00A0000,4", {}}, {"b", "\\", "344.6", {}}});
    EXPECT_EQ(ListVolume(files(), "77"), "~12 Мб");
}

TEST_F(FileLists, FilterTablesGiveTheirTickedEntries)
{
    EXPECT_EQ(FullArrayFileFiltr(files(), FilterTableName(true)), (QStringList{".exe", ".zip", ".rar"}));
    const FilterTable wanted(files(), true);
    wanted.use(".ZIP", false);
    EXPECT_EQ(FullArrayFileFiltr(files(), FilterTableName(true)), (QStringList{".exe", ".rar"}));
    for (int i = 0; i < 48; ++i) wanted.add(u"%1"_s.arg(i));
    EXPECT_EQ(FullArrayFileFiltr(files(), FilterTableName(true)).size(), 50);
    wanted.use(".zip", true);
    EXPECT_THROW(FullArrayFileFiltr(files(), FilterTableName(true)), RuntimeError);
}
