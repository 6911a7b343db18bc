#include "harness/FileSystemImages.h"
#include "harness/UdfImage.h"

#include <random>

namespace {

using Image = UdfImage;

/// Whatever a medium holds is walked, and the ends of its files are read. The number of entries that were shown; a medium
/// that is refused, at once or on the way, shows fewer.
int walk(FileSystem& system, const QString& folder = "\\")
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
        return walk(*system);
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
        put("read me.txt", "read me");
        put("a/b/Деревня и люди.mp3", QByteArray(9000, 'm'));
        put("1/2/3/4/5/6/7/8/9/deep", "deep");
        put(QString(200, u'n'), "name");
    }
    static QList<QByteArray> volumes()
    {
        QList<Image::Item> files;
        for (const auto form : {Image::shortForm, Image::longForm, Image::extendedForm})
            files.append({QString("file %1").arg(form), QByteArray(7000, 'x'), form, 3});
        const auto root = Image::folder(
            {}, {Image::folder("a", files, Image::longForm), Image::folder("b", {}, Image::shortForm), files.first()});
        QList<QByteArray> all;
        for (const auto kind : {Image::plain, Image::sparable, Image::virtualOld, Image::virtualNew, Image::metadata})
            all.append(Image(kind, 512).build(root));
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
    for (const QStringList& names : {QStringList{"-J", "-no-pad"}, {"-R", "-no-pad"}, {"-J", "-udf"}}) {
        MAKE_IMAGE(genisoimage(names));
        cutEverywhere(contentsOf(image));
    }
}

TEST_F(DamagedDisc, WrongBytesInIsoDescriptorsAndFoldersDoNoHarm)
{
    shelf();
    for (const QString names : {"-J", "-R"}) {
        MAKE_IMAGE(genisoimage({names, "-no-pad"}));
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
        const QList<qsizetype> places = Image::descriptors(medium);
        for (int i = 0; i < 400; ++i) {
            QByteArray damaged = medium;
            for (int bytes = 1 + below(4); bytes > 0; --bytes) {
                const qsizetype place = places[below(places.size())];
                damaged[std::min(place + below(512), medium.size() - 1)] = static_cast<char>(random() & random());
            }
            Image::reseal(damaged, places);
            EXPECT_LT(entriesShown(damaged), 5000);
        }
    }
}

TEST_F(DamagedDisc, EverySumIsChecked)
{
    const auto some = Image::folder("a", {{"x", "text"}, {"y", "text"}});
    const QByteArray medium = Image(Image::plain, 2048).build(Image::folder({}, {some}));
    const QList<qsizetype> places = Image::descriptors(medium);
    int noticed = 0;
    for (const qsizetype place : places) {
        QByteArray damaged = medium;
        damaged[place + 17] = static_cast<char>(damaged[place + 17] ^ 0x10); // in a version or a number of no account
        noticed += entriesShown(damaged) < entriesShown(medium);
    }
    EXPECT_EQ(noticed, places.size() - 1); // the descriptor that ends the sequence is not missed
}

TEST_F(DamagedDisc, BadSectorSpoilsOnlyWhatIsNowhereElse)
{
    put("a", QByteArray(2048, 'a'));
    put("b", QByteArray(2048, 'b'));
    MAKE_IMAGE(genisoimage({"-udf"}));
    const auto source = std::make_shared<TestSource>(contentsOf(image));
    const qint64 logicalVolume = 35 * 2048, anchor = 256 * 2048, file = source->bytes.indexOf(QByteArray(2048, 'b'));
    for (const qint64 bad : {logicalVolume, anchor, file}) {
        source->bad = bad + 5;
        const auto system = OpenFileSystem(source);
        EXPECT_EQ(system->volume().fileSystem, "UDF") << bad;
        EXPECT_EQ(system->read("\\", "a", 0, 10), QByteArray(10, 'a')) << bad;
    }
    EXPECT_THROW(OpenFileSystem(source)->read("\\", "b", 0, 10), DiscError);
}

TEST(MediumWithoutFileSystem, HasNone)
{
    EXPECT_EQ(openBytes({}), nullptr);
    EXPECT_EQ(openBytes(QByteArray(400'000, 0)), nullptr);
}

}
