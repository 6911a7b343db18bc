#include "contents/FileListScanner.h"

#include "harness/FakeDrives.h"
#include "harness/FileSystemImages.h"
#include "harness/Print.h"
#include "harness/UdfImage.h"
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

struct Scanning {
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

class FileListScanner : public testing::Test, protected Scanning {};

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

/// How a disc is written: with options of genisoimage, or as UDF in blocks of that size.
struct Writing {
    const char* name;
    int longest; ///< a name may have so many letters
    QStringList options = {};
    UdfImage::Kind kind = UdfImage::plain;
    int blockSize = 0;

    friend void PrintTo(const Writing& writing, std::ostream* out) { *out << writing.name << ' ' << writing.blockSize; }
};

class DiscOfEveryKind : public ImageTest, protected Scanning, public testing::WithParamInterface<Writing> {
protected:
    /// Null where the tool is not installed.
    std::unique_ptr<Disc> disc(const QString& longName)
    {
        const QByteArray song = QByteArray(5000, 'm') + tag(EncodeCp1251(u"Группа крови"_s), EncodeCp1251(u"Кино"_s));
        const QString quoted = "say \"hi\" it's [x].txt";
        if (const Writing& writing = GetParam(); writing.options.isEmpty()) {
            const auto music = UdfImage::folder("Музыка", {{"Группа крови.MP3", song, UdfImage::shortForm},
                                                           UdfImage::folder("Пусто", {}, UdfImage::longForm)});
            write(image, UdfImage(writing.kind, writing.blockSize)
                             .build(UdfImage::folder({},
                                                     {{"hidden.txt", "x", UdfImage::inlineForm, 1, UdfImage::hidden},
                                                      {quoted, QByteArray(3000, 'q'), UdfImage::longForm, 2},
                                                      music,
                                                      {longName, "n"}},
                                                     UdfImage::shortForm)));
        } else {
            put("Музыка/Группа крови.MP3", song);
            folder("Музыка/Пусто");
            put("hidden.txt", "x");
            put(quoted, QByteArray(3000, 'q'));
            put(longName, "n");
            if (!genisoimage(writing.options + QStringList{"-hidden", "hidden.txt"})) return {};
            if (writing.options.contains("-udf")) hideInUdf("hidden.txt");
        }
        return OpenDiscImage(image);
    }

private:
    /// What the tool does not do.
    void hideInUdf(const QByteArray& name)
    {
        QByteArray bytes = contentsOf(image);
        const qsizetype identifier = bytes.indexOf('\x08' + name) - 38;
        bytes[identifier + 18] = UdfImage::hidden;
        UdfImage::reseal(bytes, {identifier});
        write(image, bytes);
    }
};

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

TEST_P(DiscOfEveryKind, GivesTheSameListByEveryRule)
{
    const QString longName = QString(GetParam().longest - 4, 'n') + ".txt";
    const auto disc = this->disc(longName);
    if (!disc) GTEST_SKIP() << "the tool that makes the image is not installed";
    const std::string empty = "\\Музыка\\Пусто\\ . 0\n", music = "\\Музыка\\ . 0\n",
                      song = "\\Музыка\\ Группа крови.MP3 5,0\n", root = "\\ . 0\n", hidden = "\\ hidden.txt 0,0\n",
                      seen = "\\ " + longName.toStdString() + " 0,0\n\\ say \"hi\" it's [x].txt 2,9\n";
    EXPECT_EQ(scan(*disc), empty + music + song + root + seen);
    EXPECT_EQ(scan(*disc, {.hiddenFiles = true}), empty + music + song + root + hidden + seen);
    EXPECT_EQ(scan(*disc, {.rootFiles = false, .hiddenFiles = true, .lowerCase = true, .tags = true}),
              empty + music + "\\Музыка\\ группа крови.mp3 5,0 (Кино - Группа крови)\n" + root);
    EXPECT_EQ(scan(*disc, {.foldersOnly = true, .hiddenFiles = true}), empty + music + root);
    EXPECT_EQ(scan(*disc, {.folders = false}), root + seen);
    const QStringList entries{".TXT"};
    EXPECT_EQ(scan(*disc, {.hiddenFiles = true, .filter = FileFilter(entries, false)}), empty + music + song + root);
    EXPECT_EQ(scan(*disc, {.hiddenFiles = true, .filter = FileFilter(entries, true)}),
              empty + music + root + hidden + seen);
    EXPECT_EQ(watcher.errors, 0);
}

INSTANTIATE_TEST_SUITE_P(Written, DiscOfEveryKind,
                         testing::Values(Writing{"plain", 200, {"-iso-level", "4", "-input-charset", "iso8859-1"}},
                                         Writing{"Joliet", 103, {"-J", "-joliet-long"}},
                                         Writing{"Rock Ridge", 255, {"-R"}}, Writing{"bridge", 254, {"-udf"}},
                                         Writing{"pressed", 254, {}, UdfImage::plain, 512},
                                         Writing{"pressed", 254, {}, UdfImage::plain, 2048},
                                         Writing{"packets", 254, {}, UdfImage::sparable, 512},
                                         Writing{"packets", 254, {}, UdfImage::sparable, 2048},
                                         Writing{"old table", 254, {}, UdfImage::virtualOld, 512},
                                         Writing{"old table", 254, {}, UdfImage::virtualOld, 2048},
                                         Writing{"new table", 254, {}, UdfImage::virtualNew, 512},
                                         Writing{"new table", 254, {}, UdfImage::virtualNew, 2048},
                                         Writing{"metadata", 254, {}, UdfImage::metadata, 512},
                                         Writing{"metadata", 254, {}, UdfImage::metadata, 2048}));
