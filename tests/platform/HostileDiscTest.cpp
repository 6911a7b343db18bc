#include "harness/FileSystemImages.h"
#include "harness/UdfImage.h"
#include "platform/disc/RockRidge.h"
#include "platform/disc/TreeFileSystem.h"

#include <QtEndian>
#include <ctime>

namespace {

using Image = UdfImage;
using HostileDisc = ImageTest;

TEST_F(HostileDisc, FolderThatHoldsItselfIsNotShownTwice)
{
    put("outer/inner/file");
    MAKE_IMAGE(genisoimage({"-J"}));
    QByteArray iso = contentsOf(image);
    const auto record = [&](const QByteArray& name) { return iso.lastIndexOf(name) - 33; };
    const qsizetype outer = record(QByteArray("\0o\0u\0t\0e\0r", 10)),
                    inner = record(QByteArray("\0i\0n\0n\0e\0r", 10));
    iso.replace(inner + 2, 16, iso.mid(outer + 2, 16));
    EXPECT_EQ(printTree(*openBytes(iso)), Tree{"\\outer\\"});

    const auto inside = Image::folder("inside", {});
    QByteArray udf = Image(Image::plain, 2048).build(Image::folder({}, {Image::folder("a", {inside}), inside}));
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
    EXPECT_EQ(printTree(*openBytes(udf)), Tree{"\\a\\"});
}

TEST_F(HostileDisc, TableShorterThanItsTrailerIsNone)
{
    QByteArray udf = Image(Image::virtualOld, 2048).build(Image::folder({}, {}));
    const qsizetype entry = udf.size() - 2048, partition = 400; // the table's is the last one
    char* const bytes = udf.data() + entry;
    const qsizetype table = (partition + qFromLittleEndian<quint32>(bytes + 180)) * 2048;
    for (const int length : {56, 176}) qToLittleEndian(quint32(35), bytes + length);
    udf.replace(table, 22, "*UDF Virtual Alloc Tbl");
    Image::reseal(udf, {entry});
    EXPECT_THROW(openBytes(udf), DiscError);
}

/// Folders told by their places alone; each holds a file that is as large as its place.
class Places : public TreeFileSystem {
public:
    using Names = QList<std::pair<QString, quint64>>;
    explicit Places(std::function<Names(quint64)> namesOf) : TreeFileSystem(0, 1 << 20), m_namesOf(std::move(namesOf))
    {}
    VolumeProperties volume() override { return {}; }

protected:
    qint64 folderSize(quint64) override { return 100; }
    std::vector<Node> folder(quint64 place) override
    {
        std::vector<Node> nodes{{{"file", false, false, qint64(place)}, place}};
        for (const auto& [name, child] : m_namesOf(place)) nodes.push_back({{name, true, false, 0}, child});
        return nodes;
    }
    QByteArray content(quint64, qint64, qint64) override { return {}; }

private:
    std::function<Names(quint64)> m_namesOf;
};

TEST(HostileFolder, OfANameThatIsTakenIsToldApartAndShownOnce)
{
    using Names = Places::Names;
    Places honest([](quint64 place) {
        return place ? Names() : Names{{"a_b", 3}, {"a\\b", 4}, {"a_b~2", 5}, {"a_b", 3}, {"b", 0}};
    });
    const Tree expected{"\\a_b\\",     "\\a_b\\file 3",     "\\a_b~2\\", "\\a_b~2\\file 4",
                        "\\a_b~2~2\\", "\\a_b~2~2\\file 5", "\\file 0"};
    for (int time = 0; time < 2; ++time) EXPECT_EQ(printTree(honest), expected);

    // Both folders of a level lead to those of the next one, twice: 4^60 paths.
    Places pairs([](quint64 place) {
        const quint64 next = (place / 10 + 1) * 10;
        return next > 600 ? Names() : Names{{"A", next}, {"A", next + 1}, {"A", next}, {"A", next + 1}};
    });
    EXPECT_EQ(printTree(pairs).size(), 60 * 4 + 1) << "two folders and their files on a level, and the root's file";

    Places crowd([](quint64 place) {
        Names names;
        for (quint64 i = 1; !place && i < 5000; ++i) names.append({"A", i});
        return names;
    });
    EXPECT_EQ(printTree(crowd).size(), 9 * 2 + 1) << "nine of a name";
}

TEST(HostileFolder, FolderOfManyFoldersTakesNoSquareOfTheirNumber)
{
    QList<Image::Item> many;
    for (int i = 0; i < 6000; ++i) many.append(Image::folder(QString::number(i), {}));
    const auto system = openBytes(Image(Image::plain, 2048).build(Image::folder({}, many, Image::shortForm)));
    const std::clock_t start = std::clock();
    EXPECT_EQ(printTree(*system).size(), 6000);
    EXPECT_LT(std::clock() - start, 2 * CLOCKS_PER_SEC);
}

TEST(HostileUdfFile, HasNoMorePiecesThanTheMediumHolds)
{
    const QByteArray honest =
        Image(Image::plain, 2048).build(Image::folder({}, {{"f", QByteArray(40 * 2048, 'x'), Image::shortForm, 20}}));
    const QList<qsizetype> places = Image::descriptors(honest);
    const auto lastOf = [&](int tag) {
        const auto isIt = [&](qsizetype at) { return honest[at] == char(tag) && honest[at + 1] == char(tag >> 8); };
        return *std::find_if(places.crbegin(), places.crend(), isIt);
    };
    const qsizetype entry = lastOf(261), more = lastOf(258), descriptors = 24;
    using Changes = QList<std::pair<qsizetype, quint32>>;
    const auto read = [&](const Changes& changes) {
        QByteArray medium = honest;
        for (const auto& [at, value] : changes) qToLittleEndian(value, medium.data() + at);
        Image::reseal(medium, places);
        return openBytes(medium)->read("\\", "f", 0, 10);
    };
    EXPECT_EQ(read({}), QByteArray(10, 'x'));
    const quint32 itself = qFromLittleEndian<quint32>(honest.constData() + more + 12);
    for (const qsizetype at : {more + descriptors, more + descriptors + 8}) // behind nothing, behind a byte
        EXPECT_THROW(read({{entry + 60, 1u << 30}, {more + descriptors, 1}, {at, 0xC0000800}, {at + 4, itself}}),
                     DiscError);
    Changes crumbs{{entry + 56, 40}};
    for (int i = 0; i < 20; ++i) crumbs += Changes{{entry + 176 + 8 * i, 1}, {more + descriptors + 8 * i, 1}};
    EXPECT_THROW(read(crumbs), DiscError) << "a piece for each byte";
}

TEST(HostileUdfFile, HasAChainOfOlderEntriesInBounds)
{
    const auto volume = [](int files, int olderEntries) {
        QList<Image::Item> all;
        for (int i = 0; i < files; ++i)
            all.append({QString::number(i), "text", Image::inlineForm, 1, 0, {}, olderEntries});
        return openBytes(Image(Image::plain, 512).build(Image::folder({}, all, Image::shortForm)));
    };
    EXPECT_EQ(printTree(*volume(2, 250)), (Tree{"\\0 4", "\\1 4"}));
    EXPECT_THROW(volume(1, 256)->list("\\"), DiscError);
    EXPECT_THROW(volume(30, 250)->list("\\"), DiscError) << "more in a folder than anybody writes";
}

TEST(HostileRockRidge, GoesOnOutsideOfAFolderInBounds)
{
    const auto leadTo = [](char offset) {
        QByteArray entry = QByteArray("CE\x1c\1").leftJustified(28, '\0');
        entry[12] = offset;
        entry[20] = 28;
        return entry;
    };
    QByteArray areas = leadTo(28) + leadTo(56) + QByteArray("NM\x06\1\0x", 6);
    SectorCache medium(std::make_shared<TestSource>(areas.leftJustified(2048, '\0')));
    const auto rules = RockRidge::detect(QByteArray("SP\x07\x01\xbe\xef\0", 7));
    const QByteArray first = leadTo(0);
    IsoRecord record;
    record.systemUse = first;
    qint64 left = 10;
    for (int i = 0; i < 3; ++i) EXPECT_EQ(rules->read(record, medium, 2048, left).name, "x");
    EXPECT_THROW(rules->read(record, medium, 2048, left), DiscError) << "the folder's share is used up";
    left = 1000;
    const QByteArray round = leadTo(28);
    medium = SectorCache(std::make_shared<TestSource>((leadTo(28) + round).leftJustified(2048, '\0')));
    EXPECT_THROW(rules->read(record, medium, 2048, left), DiscError) << "it leads to itself";
}

}
