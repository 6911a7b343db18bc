#include "FileSystemImages.h"
#include "UdfImage.h"
#include "platform/Literals.h"

#include <ctime>
#include <random>

namespace {

/// Whatever a medium holds is walked, and the ends of its files are read. The number of entries that were shown; a medium
/// that is refused, at once or on the way, shows fewer.
int walk(FileSystem& system, const QString& folder)
{
    int shown = 0;
    try {
        for (const DiscEntry& entry : system.list(folder)) {
            ++shown;
            if (entry.folder)
                shown += walk(system, folder + entry.name + u'\\');
            else
                system.read(folder, entry.name, entry.size - 128, 128);
        }
    } catch (const RuntimeError&) {
    }
    return shown;
}

int entriesShown(const QByteArray& medium)
{
    try {
        const auto system = openBytes(medium);
        if (!system) return 0;
        system->volume();
        return walk(*system, u"\\"_s);
    } catch (const RuntimeError&) {
        return 0;
    }
}

class DamagedDisc : public ImageTest {
protected:
    std::mt19937 random{20031};

    int below(qsizetype limit) { return static_cast<int>(random() % static_cast<quint32>(limit)); }

    void shelf()
    {
        put(u"read me.txt"_s, "read me");
        put(u"a/b/Деревня и люди.mp3"_s, QByteArray(9000, 'm'));
        put(u"1/2/3/4/5/6/7/8/9/deep"_s, "deep");
        put(QString(200, u'n'), "name");
    }
    static UdfImage::Item volume()
    {
        QList<UdfImage::Item> files;
        for (const auto form : {UdfImage::shortForm, UdfImage::longForm, UdfImage::extendedForm})
            files.append({u"file %1"_s.arg(form), QByteArray(7000, 'x'), form, 3});
        return UdfImage::folder({}, {UdfImage::folder(u"a"_s, files, UdfImage::longForm),
                                     UdfImage::folder(u"b"_s, {}, UdfImage::shortForm), files.first()});
    }
    static QList<QByteArray> volumes()
    {
        QList<QByteArray> all;
        for (const auto kind :
             {UdfImage::plain, UdfImage::sparable, UdfImage::virtualOld, UdfImage::virtualNew, UdfImage::metadata})
            all.append(UdfImage(kind, 512).build(volume()));
        return all;
    }

    /// After every sector, and at some places within.
    void cutEverywhere(const QByteArray& medium)
    {
        const int whole = entriesShown(medium);
        EXPECT_GT(whole, 0);
        for (qsizetype length = 0; length < medium.size(); length += 2048) {
            EXPECT_LE(entriesShown(medium.first(length)), whole) << length;
            EXPECT_LE(entriesShown(medium.first(std::min(length + 1 + below(2047), medium.size()))), whole) << length;
        }
    }
};

TEST_F(DamagedDisc, CutAnywhereIsRefusedOrShorter)
{
    for (const QByteArray& medium : volumes()) cutEverywhere(medium);
    shelf();
    MAKE_IMAGE(genisoimage({u"-J"_s, u"-no-pad"_s}));
    cutEverywhere(contentsOf(image));
    MAKE_IMAGE(genisoimage({u"-R"_s, u"-no-pad"_s}));
    cutEverywhere(contentsOf(image));
    MAKE_IMAGE(genisoimage({u"-J"_s, u"-udf"_s}));
    cutEverywhere(contentsOf(image));
}

TEST_F(DamagedDisc, WrongBytesInIsoDescriptorsAndFoldersDoNoHarm)
{
    shelf();
    for (const QString& names : {u"-J"_s, u"-R"_s}) {
        MAKE_IMAGE(genisoimage({names, u"-no-pad"_s}));
        const QByteArray medium = contentsOf(image);
        const qsizetype files = medium.indexOf(QByteArray(100, 'm'));
        ASSERT_GT(files, 16 * 2048);
        for (int i = 0; i < 1000; ++i) {
            QByteArray damaged = medium;
            for (int bytes = 1 + below(8); bytes > 0; --bytes)
                damaged[16 * 2048 + below(files - 16 * 2048)] = static_cast<char>(below(2) ? random() : 255);
            EXPECT_LT(entriesShown(damaged), 5000);
        }
    }
}

TEST_F(DamagedDisc, WrongUdfDescriptorsWithRightSumsDoNoHarm)
{
    for (const QByteArray& medium : volumes()) {
        const QList<qsizetype> places = UdfImage::descriptors(medium);
        for (int i = 0; i < 400; ++i) {
            QByteArray damaged = medium;
            for (int bytes = 1 + below(4); bytes > 0; --bytes) {
                const qsizetype place = places[below(places.size())];
                damaged[std::min(place + below(512), medium.size() - 1)] = static_cast<char>(random() & random());
            }
            UdfImage::reseal(damaged, places);
            EXPECT_LT(entriesShown(damaged), 5000);
        }
    }
}

TEST_F(DamagedDisc, EverySumIsChecked)
{
    const auto some = UdfImage::folder(u"a"_s, {{u"x"_s, "text"}, {u"y"_s, "text"}});
    const QByteArray medium = UdfImage(UdfImage::plain, 2048).build(UdfImage::folder({}, {some}));
    const QList<qsizetype> places = UdfImage::descriptors(medium);
    int noticed = 0;
    for (const qsizetype place : places) {
        QByteArray damaged = medium;
        damaged[place + 17] = static_cast<char>(damaged[place + 17] ^ 0x10); // in a version or a number of no account
        noticed += entriesShown(damaged) < entriesShown(medium);
    }
    EXPECT_EQ(noticed, places.size() - 1); // the descriptor that ends the sequence is not missed
}

TEST_F(DamagedDisc, FolderThatHoldsItselfIsNotShownTwice)
{
    put(u"outer/inner/file"_s);
    MAKE_IMAGE(genisoimage({u"-J"_s}));
    QByteArray iso = contentsOf(image);
    const auto record = [&](const QByteArray& name) { return iso.lastIndexOf(name) - 33; };
    const qsizetype outer = record(QByteArray("\0o\0u\0t\0e\0r", 10)),
                    inner = record(QByteArray("\0i\0n\0n\0e\0r", 10));
    iso.replace(inner + 2, 16, iso.mid(outer + 2, 16));
    EXPECT_EQ(printTree(*openBytes(iso)), Tree{u"\\outer\\"_s});

    using Image = UdfImage;
    const auto inside = Image::folder(u"inside"_s, {});
    QByteArray udf = Image(Image::plain, 2048).build(Image::folder({}, {Image::folder(u"a"_s, {inside}), inside}));
    qsizetype root = -1;
    const QList<qsizetype> places = Image::descriptors(udf);
    for (const qsizetype place : places) {
        if (udf[place] != 1 || udf[place + 1] != 1) continue; // file identifiers
        if (udf[place + 18] & 8)
            root = root < 0 ? place : root; // the root's own comes first
        else if (udf[place + 19] == 7)
            udf.replace(place + 20, 16, udf.mid(root + 20, 16));
    }
    Image::reseal(udf, places);
    EXPECT_EQ(printTree(*openBytes(udf)), Tree{u"\\a\\"_s});
}

TEST_F(DamagedDisc, BadSectorSpoilsOnlyWhatIsNowhereElse)
{
    put(u"a"_s, QByteArray(2048, 'a'));
    put(u"b"_s, QByteArray(2048, 'b'));
    MAKE_IMAGE(genisoimage({u"-udf"_s}));
    const auto source = std::make_shared<TestSource>(contentsOf(image));
    const qint64 logicalVolume = 35 * 2048, anchor = 256 * 2048, file = source->bytes.indexOf(QByteArray(2048, 'b'));
    for (const qint64 bad : {logicalVolume, anchor, file}) {
        source->bad = bad + 5;
        const auto system = OpenFileSystem(source);
        EXPECT_EQ(system->volume().fileSystem, u"UDF"_s) << bad;
        EXPECT_EQ(system->read(u"\\"_s, u"a"_s, 0, 10), QByteArray(10, 'a')) << bad;
    }
    EXPECT_THROW(OpenFileSystem(source)->read(u"\\"_s, u"b"_s, 0, 10), DiscError);
}

TEST_F(DamagedDisc, FolderOfManyFoldersTakesNoSquareOfTheirNumber)
{
    QList<UdfImage::Item> many;
    for (int i = 0; i < 6000; ++i) many.append(UdfImage::folder(QString::number(i), {}));
    const auto system = openBytes(
        UdfImage(UdfImage::plain, 2048).build(UdfImage::folder({}, many, UdfImage::shortForm)));
    const std::clock_t start = std::clock();
    EXPECT_EQ(printTree(*system).size(), 6000);
    EXPECT_LT(std::clock() - start, 2 * CLOCKS_PER_SEC);
}

TEST_F(DamagedDisc, MediumWithoutFileSystemHasNone)
{
    EXPECT_EQ(openBytes({}), nullptr);
    EXPECT_EQ(openBytes(QByteArray(400'000, 0)), nullptr);
}

}
