#include "contents/FileLists.h"
#include "contents/ListVolume.h"
#include "harness/ScreenTest.h"
#include "store/DiscTables.h"

namespace {

class FileLists : public ScreenTest {
protected:
    Database files() const { return program.filesDatabase(); }
    Database main() const { return program.mainDatabase(); }

    void make(QString id, const QList<FileRow>& rows)
    {
        ASSERT_TRUE(CreateFileTable(files(), main(), id));
        FileListWriter writer(files(), id);
        for (const FileRow& row : rows) writer.add(row);
    }
};

}

TEST_F(FileLists, ATakenNameIsRefusedOrAnotherOneMadeUp)
{
    shelf.computer(1, "Debian").list(6, "12AB", {"\\"});
    QString id = "12AB";
    EXPECT_FALSE(CreateFileTable(files(), main(), id)) << "without asking it is left alone";
    for (const quint32 seed : {1, 2, 3}) {
        QRandomGenerator random(seed);
        id = "12AB";
        EXPECT_TRUE(CreateFileTable(
            files(), main(), id, [] { return true; }, random));
        bool decimal = false;
        EXPECT_LE(id.toLongLong(&decimal), 1'000'000'007);
        EXPECT_TRUE(decimal && files().HasTable(id)) << qPrintable(id);
    }
    EXPECT_EQ(fileRows("SELECT Имя FROM [12AB]"), "\\\n");
}

TEST_F(FileLists, LinkAndDeletionTouchTheirDiscOfTheRowAlone)
{
    const qint64 key = shelf.computer(5, "Debian").discs(3).set("ДискID1", u"A1"_s).set("ДискID2_d", u"B2"_s).key();
    shelf.computer(5, "The same number").set("ДискID2", u"C3"_s);
    make("D4", {{"\\", "\\", "0", {}}});

    CreateLinkDiskID(main(), {key, 2}, "D4", false);
    EXPECT_EQ(rows("SELECT ДискID1, ДискID2, ДискID2_d FROM Компьютер"), "A1 | D4 | B2\nNull | C3 | Null\n");
    CreateLinkDiskID(main(), {key, 2}, "D4", true);
    EXPECT_EQ(rows("SELECT ДискID2_d FROM Компьютер"), "D4\nNull\n");

    DeleteList(files(), main(), Computer(), {key, 2}, "D4");
    EXPECT_FALSE(files().HasTable("D4"));
    EXPECT_EQ(rows("SELECT ДискID2, ДискID2_d FROM Компьютер"), "Null | D4\nC3 | Null\n") << "the binding outlives it";
    DeleteList(files(), main(), Computer(), {key, 1}, "A1"); // a list that is gone
    EXPECT_EQ(ListsOfDisc(main(), Computer(), key), (std::array<QString, 6>{}));
}

TEST_F(FileLists, AFolderIsReadByNameAndItsCommentsAreKeptPerFile)
{
    make("77", {{"\\A\\", "\\A\\", "0", {}},
                {"\\a\\", "\\a\\", "0", {}},
                {"other", "\\a\\", "3,0", {}},
                {"b\" REMIX", "\\A\\", "2,0", {}},
                {"b\" remix", "\\A\\", "2,0", {}},
                {"-it's [x]", "\\A\\", "1,0", "c"}});
    for (const QString name : {"\\A\\", "b\" remix", "b\" REMIX"})
        EXPECT_TRUE(SetFileComment(files(), "77", "\\A\\", name, "of " + name)) << qPrintable(name);
    EXPECT_TRUE(SetFileComment(files(), "77", "\\A\\", "-it's [x]", ""));
    EXPECT_FALSE(SetFileComment(files(), "77", "\\A\\", "missing", "c"));
    const FolderContents contents = ReadFolder(files(), "77", "\\A\\");
    EXPECT_EQ(contents.comment, "of \\A\\");
    EXPECT_EQ(contents.files, (QList<FileRow>{{"-it's [x]", "\\A\\", "1,0", {}},
                                              {"b\" REMIX", "\\A\\", "2,0", "of b\" REMIX"},
                                              {"b\" remix", "\\A\\", "2,0", "of b\" remix"}}));
    EXPECT_EQ(FolderPaths(files(), "77"), (QStringList{"\\A\\", "\\a\\"}));
    EXPECT_EQ(fileRows("SELECT Комментарий FROM [77] WHERE Имя = \"-it's [x]\""), "Null\n");
}

TEST_F(FileLists, VolumeIsTheSumOfAllSizesInWhateverWriting)
{
    make("77", {});
    EXPECT_EQ(ListVolume(files(), "77"), "~0 Мб");
    double sum = 0;
    FileListWriter writer(files(), "77");
    for (const auto& [size, kilobytes] : {std::pair{"0", 0.0},
                                          {"12 000,4", 12000.4},
                                          {"1\u00A0000,5", 1000.5},
                                          {"1\u202F000,5", 1000.5},
                                          {"1,000.5", 1000.5},
                                          {"1.000,5", 1000.5},
                                          {"990000.1", 990000.1},
                                          {"7 Кб", 7.0},
                                          {"нет", 0.0},
                                          {",", 0.0}}) {
        writer.add({size, "\\", size, {}});
        EXPECT_EQ(ListVolume(files(), "77"), VolumeText(sum += kilobytes)) << size;
    }
}
