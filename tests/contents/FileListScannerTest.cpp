#include "contents/FileListScanner.h"

#include "harness/FakeDrives.h"
#include "harness/Print.h"
#include "platform/CodePage1251.h"

#include <gtest/gtest.h>

namespace {

/// Follows a scan and breaks it off when `stopAt` is entered.
struct Watcher : ScanWatcher {
    QString stopAt;
    QStringList entered;
    int errors = 0;

    bool entering(const QString& folder) override
    {
        entered += folder;
        return folder != stopAt;
    }
    void listing(const QString&, qsizetype) override {}
    void file(qsizetype, const QString&) override {}
    void readingError(const RuntimeError&) override { ++errors; }
};

/// One line per row in the order of their making: folder, name ("." for the folder's own row), size, comment.
std::string scan(Disc& disc, const ScanRules& rules, Watcher& watcher)
{
    QString text;
    const auto store = [&](const FileRow& row) {
        text += row.folder + (row.name == row.folder ? u" ."_s : u' ' + row.name) + u' ' + row.size;
        if (!row.comment.isEmpty()) text += u" ("_s + row.comment + u')';
        text += u'\n';
    };
    CreateFileList(disc, rules, store, watcher);
    return text.toStdString();
}

std::string scan(Disc& disc, const ScanRules& rules = {})
{
    Watcher watcher;
    const std::string text = scan(disc, rules, watcher);
    EXPECT_EQ(watcher.errors, 0);
    return text;
}

std::shared_ptr<FakeDisc> shelf()
{
    auto disc = FakeDisc::data(u"SHELF"_s, 1);
    disc->file(u"\\readme.TXT"_s, 100).file(u"\\setup.exe"_s, 1024000).file(u"\\hidden.txt"_s, 1, FakeDisc::Hidden);
    disc->file(u"\\A\\X\\deep.zip"_s, 2048).file(u"\\A\\a.txt"_s, 0).folder(u"\\B\\"_s);
    return disc;
}

/// Throws an error of this number for a folder.
struct FailingDisc : FakeDisc {
    QString where;
    int number = 0;

    QList<DiscEntry> list(const QString& folder) override
    {
        if (folder == where && number == 0) throw std::bad_alloc();
        if (folder == where) throw RuntimeError(number, u"Отказ."_s);
        return FakeDisc::list(folder);
    }
};

}

TEST(FileListScanner, SubfoldersComeFirstAndFromTheLast)
{
    EXPECT_EQ(scan(*shelf()), "\\B\\ . 0\n"
                              "\\A\\X\\ . 0\n"
                              "\\A\\X\\ deep.zip 2,0\n"
                              "\\A\\ . 0\n"
                              "\\A\\ a.txt 0,0\n"
                              "\\ . 0\n"
                              "\\ readme.TXT 0,1\n"
                              "\\ setup.exe 1\u00A0000,0\n");
    EXPECT_EQ(scan(*FakeDisc::data(u"EMPTY"_s, 1)), "\\ . 0\n");
}

TEST(FileListScanner, RulesChooseWhatGetsARow)
{
    const auto disc = shelf();
    EXPECT_EQ(scan(*disc, {.folders = false}), "\\ . 0\n\\ readme.TXT 0,1\n\\ setup.exe 1\u00A0000,0\n");
    EXPECT_EQ(scan(*disc, {.rootFiles = false}),
              "\\B\\ . 0\n\\A\\X\\ . 0\n\\A\\X\\ deep.zip 2,0\n\\A\\ . 0\n\\A\\ a.txt 0,0\n\\ . 0\n");
    EXPECT_EQ(scan(*disc, {.foldersOnly = true}), "\\B\\ . 0\n\\A\\X\\ . 0\n\\A\\ . 0\n\\ . 0\n");
    EXPECT_EQ(scan(*disc, {.folders = false, .hiddenFiles = true, .lowerCase = true}),
              "\\ . 0\n\\ hidden.txt 0,0\n\\ readme.txt 0,1\n\\ setup.exe 1\u00A0000,0\n");
}

TEST(FileListScanner, FoldersWithoutRowsAreVisitedAllTheSame)
{
    Watcher watcher;
    scan(*shelf(), {.folders = false}, watcher);
    EXPECT_EQ(watcher.entered, (QStringList{u"\\"_s, u"\\B\\"_s, u"\\A\\"_s, u"\\A\\X\\"_s}));
}

TEST(FileListScanner, FilterLeavesOutOrTakesAlone)
{
    const auto disc = FakeDisc::data(u"F"_s, 1);
    disc->file(u"\\a.TXT.bak"_s, 0).file(u"\\b.exe"_s, 0).file(u"\\c"_s, 0);
    const auto taken = [&](const QStringList& entries, bool wanted) {
        return scan(*disc, {.filter = FileFilter(entries, wanted)});
    };
    EXPECT_EQ(taken({u".txt"_s, u".EXE"_s}, false), "\\ . 0\n\\ c 0,0\n");
    EXPECT_EQ(taken({u".txt"_s, u".EXE"_s}, true), "\\ . 0\n\\ a.TXT.bak 0,0\n\\ b.exe 0,0\n");
    EXPECT_EQ(taken({}, false), "\\ . 0\n\\ a.TXT.bak 0,0\n\\ b.exe 0,0\n\\ c 0,0\n");
    EXPECT_EQ(taken({}, true), "\\ . 0\n");
    EXPECT_EQ(taken({QString(), u".txt"_s}, true), "\\ . 0\n") << "an empty entry ends the list";
}

TEST(FileListScanner, TagsOfMusicBecomeComments)
{
    const QByteArray tag = "TAG" + EncodeCp1251(u"Группа крови"_s).leftJustified(30, '\0') +
                           EncodeCp1251(u"Кино"_s).leftJustified(30, '\0') + QByteArray(65, '\0');
    const auto disc = FakeDisc::data(u"MUSIC"_s, 1);
    disc->file(u"\\1.MP3"_s, QByteArray(1000, 'x') + tag).file(u"\\2.mp3.bak"_s, 1000).file(u"\\3.wav"_s, 1000);
    EXPECT_EQ(scan(*disc, {.tags = true}), "\\ . 0\n"
                                           "\\ 1.MP3 1,1 (Кино - Группа крови)\n"
                                           "\\ 2.mp3.bak 1,0 ( - )\n"
                                           "\\ 3.wav 1,0\n");
    disc->damaged(u"\\1.MP3"_s);
    EXPECT_NE(scan(*disc, {.tags = true}).find("\\ 1.MP3 1,1 ( - )\n\\ 2."), std::string::npos);
}

TEST(FileListScanner, AnUnreadableFolderIsToldOnceAndTheWalkGoesOn)
{
    const auto disc = shelf();
    disc->damaged(u"\\A\\"_s);
    Watcher watcher;
    EXPECT_EQ(scan(*disc, {.rootFiles = false}, watcher), "\\B\\ . 0\n\\ . 0\n");
    EXPECT_EQ(watcher.errors, 1);

    const auto broken = shelf();
    broken->damaged(u"\\"_s);
    EXPECT_EQ(scan(*broken, {}, watcher), "");
    EXPECT_EQ(watcher.errors, 2);
}

TEST(FileListScanner, ErrorsAreToldApartByTheirNumber)
{
    const auto outcome = [](int number) {
        FailingDisc disc;
        disc.file(u"\\A\\X\\x"_s, 0).folder(u"\\B\\"_s);
        disc.where = u"\\A\\X\\"_s;
        disc.number = number;
        Watcher watcher;
        const std::string rows = scan(disc, {}, watcher);
        return rows + (watcher.errors ? "told" : "");
    };
    for (const int reading : {52, 53, 76, 5, -1, -1000})
        EXPECT_EQ(outcome(reading), "\\B\\ . 0\n\\A\\ . 0\n\\ . 0\ntold");
    for (const int memory : {7, 0}) EXPECT_EQ(outcome(memory), "\\B\\ . 0\n\\ . 0\n") << "the folder above is given up";
    for (const int other : {57, 70, 75, 3026}) EXPECT_THROW(outcome(other), RuntimeError) << other;
}

TEST(FileListScanner, BreakingOffKeepsWhatIsThereAndTheFoldersFurtherUp)
{
    const auto disc = shelf();
    disc->folder(u"\\A\\X\\Y\\"_s).folder(u"\\0\\"_s);
    Watcher watcher;
    watcher.stopAt = u"\\A\\X\\Y\\"_s;
    EXPECT_EQ(scan(*disc, {.rootFiles = false}, watcher), "\\B\\ . 0\n\\A\\ . 0\n\\A\\ a.txt 0,0\n\\ . 0\n");
    EXPECT_FALSE(watcher.entered.contains(u"\\0\\"_s));
    watcher.stopAt = u"\\"_s;
    EXPECT_EQ(scan(*disc, {}, watcher), "");
}

TEST(FileListScanner, TextsTooLongForTheirFieldCountAsReadingErrors)
{
    const auto disc = FakeDisc::data(u"LONG"_s, 1);
    const QString part(60, u'd');
    const QString fits = u"\\%1\\%1\\%1\\%1\\"_s.arg(part); // 245
    disc->file(fits + u"a"_s, 0).folder(fits + u"abcdefghi\\"_s).folder(fits + u"abcdefghij\\"_s);
    disc->folder(fits + u"abcdefghij\\below\\"_s);
    Watcher watcher;
    const std::string rows = scan(*disc, {}, watcher);
    EXPECT_EQ(watcher.errors, 1);
    EXPECT_NE(rows.find("abcdefghi\\ ."), std::string::npos);
    EXPECT_EQ(rows.find("abcdefghij"), std::string::npos);
    EXPECT_NE(rows.find("\\ a 0,0"), std::string::npos) << "its parent goes on";

    const auto names = FakeDisc::data(u"LONG"_s, 1);
    names->file(u'\\' + QString(256, u'n'), 0).file(u"\\z"_s, 0).folder(u"\\D\\"_s);
    EXPECT_EQ(scan(*names, {}, watcher), "\\D\\ . 0\n\\ . 0\n") << "the rest of its folder is lost";
}

TEST(FileListScanner, DepthTakesNoStack)
{
    auto disc = FakeDisc::data(u"DEEP"_s, 1);
    QString path = u"\\"_s;
    for (int i = 0; i < 120; ++i) path += u"d\\"_s;
    disc->file(path + u"end"_s, 0);
    const std::string rows = scan(*disc);
    EXPECT_EQ(std::count(rows.begin(), rows.end(), '\n'), 122);
}
