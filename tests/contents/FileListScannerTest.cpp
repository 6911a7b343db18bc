#include "contents/FileListScanner.h"

#include "harness/FakeDrives.h"
#include "harness/FileSystemImages.h"
#include "harness/Print.h"
#include "platform/CodePage1251.h"

#include <QRandomGenerator>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

struct Watcher : ScanWatcher {
    QStringList entered;
    int errors = 0;
    double reached = 0; ///< of the whole walk
    QString last;       ///< file to be asked for

    bool entering(const QString& folder) override
    {
        entered += folder;
        return true;
    }
    void listing(const QString&, qsizetype, const ScanProgress& progress) override
    {
        EXPECT_GE(progress.walked, reached - 1e-9);
        reached = progress.walked + progress.share;
    }
    bool file(qsizetype, const QString& name) override { return name != last; }
    void readingError(const RuntimeError&) override { ++errors; }
};

class FileListScanner : public testing::Test {
protected:
    /// One line per row in the order of their making: folder, name ("." for the folder's own row), size, comment.
    std::string scan(Disc& disc, const ScanRules& rules = {}, const QString& last = {})
    {
        QString text;
        const auto store = [&](const FileRow& row) {
            text += row.folder + (row.name == row.folder ? " ." : ' ' + row.name) + ' ' + row.size;
            if (!row.comment.isEmpty()) text += " (" + row.comment + ')';
            text += '\n';
        };
        watcher = {};
        watcher.last = last;
        CreateFileList(disc, rules, store, watcher);
        return text.toStdString();
    }

    Watcher watcher; ///< of the last scan
};

QByteArray tag(const QByteArray& title, const QByteArray& artist)
{
    return "TAG" + title.leftJustified(30, '\0') + artist.leftJustified(30, '\0') + QByteArray(65, '\0');
}

std::shared_ptr<FakeDisc> shelf()
{
    auto disc = FakeDisc::data("SHELF", 1);
    disc->file("\\readme.TXT", 100).file("\\setup.exe", 1024000).file("\\hidden.txt", 1, FakeDisc::Hidden);
    disc->file("\\A\\X\\deep.zip", 2048).file("\\A\\a.txt", 0).folder("\\B\\");
    return disc;
}

/// Throws an error of this number, or std::bad_alloc for 0, at the folder \A\X\.
struct FailingDisc : FakeDisc {
    int number = 0;

    QList<DiscEntry> list(const QString& folder) override
    {
        if (folder != "\\A\\X\\") return FakeDisc::list(folder);
        if (number == 0) throw std::bad_alloc();
        throw RuntimeError(number, "Отказ.");
    }
};

class DamagedImages : public ImageTest {};

}

TEST_F(FileListScanner, SubfoldersComeFirstAndFromTheLastAndRulesChooseRows)
{
    const auto disc = shelf();
    const std::string folders = "\\B\\ . 0\n\\A\\X\\ . 0\n\\A\\X\\ deep.zip 2,0\n\\A\\ . 0\n\\A\\ a.txt 0,0\n\\ . 0\n";
    EXPECT_EQ(scan(*disc), folders + "\\ readme.TXT 0,1\n\\ setup.exe 1\u00A0000,0\n");
    EXPECT_EQ(scan(*disc, {.rootFiles = false}), folders);
    EXPECT_EQ(scan(*disc, {.foldersOnly = true}), "\\B\\ . 0\n\\A\\X\\ . 0\n\\A\\ . 0\n\\ . 0\n");
    EXPECT_EQ(scan(*disc, {.folders = false, .hiddenFiles = true, .lowerCase = true}),
              "\\ . 0\n\\ hidden.txt 0,0\n\\ readme.txt 0,1\n\\ setup.exe 1\u00A0000,0\n");
    EXPECT_EQ(watcher.entered, (QStringList{"\\", "\\B\\", "\\A\\", "\\A\\X\\"})) << "visited all the same";
    EXPECT_NEAR(watcher.reached, 1, 1e-9);
    EXPECT_EQ(scan(*FakeDisc::data("EMPTY", 1)), "\\ . 0\n");
}

TEST_F(FileListScanner, StoppedAtAFileItKeepsTheRowsSoFarAndThoseOfTheFoldersAbove)
{
    const auto disc = shelf();
    disc->file("\\A\\X\\end.zip", 1).file("\\A\\W\\w", 1);
    EXPECT_EQ(scan(*disc, {}, "end.zip"), "\\B\\ . 0\n\\A\\X\\ . 0\n\\A\\X\\ deep.zip 2,0\n\\A\\ . 0\n\\A\\ a.txt 0,0\n"
                                          "\\ . 0\n\\ readme.TXT 0,1\n\\ setup.exe 1\u00A0000,0\n");
}

TEST(FileFilter, FindsWhatLookingForEachEntryFinds)
{
    QRandomGenerator random(1);
    const auto text = [&](qsizetype longest) {
        QString made(random.bounded(1, longest + 1), u' ');
        for (QChar& c : made) c = QString(".aAжЖЁßẞ")[random.bounded(8)];
        return made;
    };
    int found = 0;
    for (int n = 0; n < 2000; ++n) {
        QStringList entries;
        for (int i = 0; i < 3; ++i) entries += text(n % 3 + 2);
        const QString name = text(12);
        const bool contained = std::ranges::any_of(
            entries, [&](const QString& entry) { return name.toCaseFolded().contains(entry.toCaseFolded()); });
        for (const bool wanted : {false, true})
            EXPECT_EQ(FileFilter(entries, wanted).FindFileInFiltr(name), contained != wanted)
                << qPrintable(entries.join(' ') + name);
        found += contained;
    }
    EXPECT_GT(std::min(found, 2000 - found), 500);
    EXPECT_FALSE(FileFilter({"a", "", "c"}, false).FindFileInFiltr("c")) << "the empty one ends the list";
}

TEST_F(FileListScanner, TagsOfMusicBecomeComments)
{
    const auto disc = FakeDisc::data("MUSIC", 1);
    disc->file("\\1.MP3", "music" + tag(EncodeCp1251(u"Группа крови"_s), EncodeCp1251(u"Кино"_s)));
    disc->file("\\2.mp3", "music" + tag("  [Live] \"One\" ", "A\0rest of the field"_ba));
    disc->file("\\3.mp3", "music" + tag(QByteArray(30, 'x'), QByteArray(30, 'y')));
    disc->file("\\4.mp3", tag("a tag alone", "is no music")).file("\\5.mp3.bak", 1000).file("\\6.wav", 1000);
    disc->file("\\7.mp3", 1000).damaged("\\7.mp3");
    EXPECT_EQ(scan(*disc, {.tags = true}), "\\ . 0\n"
                                           "\\ 1.MP3 0,1 (Кино - Группа крови)\n"
                                           "\\ 2.mp3 0,1 (A - (Live) 'One')\n"
                                           "\\ 3.mp3 0,1 (" +
                                               std::string(30, 'y') + " - " + std::string(17, 'x') +
                                               ")\n"
                                               "\\ 4.mp3 0,1 ( - )\n"
                                               "\\ 5.mp3.bak 1,0 ( - )\n"
                                               "\\ 6.wav 1,0\n"
                                               "\\ 7.mp3 1,0 ( - )\n");
}

TEST_F(FileListScanner, ErrorsAreToldApartByTheirNumber)
{
    const auto outcome = [&](int number) {
        FailingDisc disc;
        disc.file("\\A\\X\\x", 0).folder("\\B\\");
        disc.number = number;
        const std::string rows = scan(disc);
        return rows + (watcher.errors ? "told" : "");
    };
    for (const int reading : {52, 53, 76, 5, -1, -1000})
        EXPECT_EQ(outcome(reading), "\\B\\ . 0\n\\A\\ . 0\n\\ . 0\ntold");
    for (const int memory : {7, 0}) EXPECT_EQ(outcome(memory), "\\B\\ . 0\n\\ . 0\n") << "the folder above is given up";
    for (const int other : {57, 70, 3026}) EXPECT_THROW(outcome(other), RuntimeError) << other;
    for (const int ofTheList : {7, 52}) {
        const auto refuse = [&](const FileRow&) { throw RuntimeError(ofTheList, "Отказ."); };
        watcher = {};
        EXPECT_THROW(CreateFileList(*shelf(), {}, refuse, watcher), RuntimeError) << ofTheList;
    }
}

TEST_F(FileListScanner, TextsTooLongForTheirFieldCountAsReadingErrors)
{
    const auto disc = FakeDisc::data("LONG", 1);
    const QString fits = QString("\\%1\\%1\\%1\\%1\\").arg(QString(60, 'd')); // 245
    disc->folder(fits + "abcdefghi\\").folder(fits + "abcdefghij\\below\\").file(fits + "a", 0);
    disc->file('\\' + QString(256, 'n'), 0).file("\\z", 0);
    const std::string rows = scan(*disc);
    EXPECT_EQ(watcher.errors, 2);
    EXPECT_NE(rows.find("abcdefghi\\ . 0\n" + fits.toStdString() + " . 0\n" + fits.toStdString() + " a 0,0\n"),
              std::string::npos);
    EXPECT_TRUE(rows.ends_with("\\ . 0\n")) << "the rest of its folder is lost";
}

TEST_F(DamagedImages, LoseRowsOnlyWithAMessage)
{
    for (int n = 0; n < 200; ++n)
        put(QString("Папка %1/Папка %2/file %3.mp3").arg(n % 5).arg(n % 20).arg(n), QByteArray(n * 40, 'x'));
    for (const QStringList& kind : {QStringList{"-J"}, QStringList{"-udf", "-J"}}) {
        MAKE_IMAGE(genisoimage(kind));
        QStringList whole;
        int lost = 0;
        for (qint64 size = QFileInfo(image).size(); size > 0; size -= 7 * 2048 + 500) {
            ASSERT_TRUE(QFile::resize(image, size));
            Watcher watcher;
            QStringList rows;
            try {
                const auto disc = OpenDiscImage(image);
                CreateFileList(
                    *disc, {.tags = true}, [&](const FileRow& row) { rows += row.folder + row.name; }, watcher);
            } catch (const RuntimeError&) {
                ++watcher.errors;
            }
            if (whole.isEmpty()) whole = rows;
            for (const QString& row : rows) EXPECT_TRUE(whole.contains(row)) << size << ' ' << qPrintable(row);
            EXPECT_EQ(watcher.errors > 0, rows.size() < whole.size()) << size << " of " << qPrintable(kind.join(' '));
            lost += rows.size() < whole.size();
        }
        EXPECT_EQ(whole.size(), 1 + 5 + 20 + 200);
        EXPECT_GT(lost, 3);
    }
}
