#include "contents/DiscFile.h"

#include "harness/FakeDrives.h"
#include "harness/Print.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class DiscFiles : public testing::Test {
protected:
    void SetUp() override
    {
        qputenv("XDG_CACHE_HOME", QFile::encodeName(home.path()));
        disc->file(u"\\Docs\\Read Me.txt"_s, QByteArray("Привет")).file(u"\\big.bin"_s, 1'000'000).file(u"\\none"_s, 0);
    }

    void write(const QString& path, const QByteArray& bytes) const
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QTemporaryDir home;
    std::shared_ptr<FakeDisc> disc = FakeDisc::data(u"D"_s, 1);
};

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}

}

TEST_F(DiscFiles, AreFoundByNamesInLowerCase)
{
    disc->file(u"\\Docs\\read me.txt"_s, 7);
    EXPECT_EQ(FindDiscFile(*disc, u"\\Docs\\"_s, u"read me.txt"_s)->size, 7) << "the exact name goes first";
    EXPECT_EQ(FindDiscFile(*disc, u"\\Docs\\"_s, u"READ ME.TXT"_s)->folder, u"\\Docs\\"_s);
    EXPECT_FALSE(FindDiscFile(*disc, u"\\"_s, u"docs"_s)) << "a folder is no file";
    EXPECT_FALSE(FindDiscFile(*disc, u"\\"_s, u"missing"_s));
    EXPECT_THROW(FindDiscFile(*disc, u"\\missing\\"_s, u"a"_s), RuntimeError);
}

TEST_F(DiscFiles, OfAMountedDiscStayWithinIt)
{
    const QString mount = home.filePath(u"media"_s);
    write(mount + u"/docs/Read Me.txt"_s, "a");
    write(home.filePath(u"secret"_s), "b");
    QFile::link(home.filePath(u"secret"_s), mount + u"/link"_s);
    EXPECT_EQ(MountedPath(mount, u"\\Docs\\"_s, u"read me.txt"_s), mount + u"/docs/Read Me.txt"_s);
    EXPECT_EQ(MountedPath(mount, u"\\"_s, u"docs"_s), QString());
    EXPECT_EQ(MountedPath(mount, u"\\..\\"_s, u"secret"_s), QString());
    EXPECT_EQ(MountedPath(mount, u"\\"_s, u"../secret"_s), QString());
    EXPECT_EQ(MountedPath(mount, u"\\"_s, u"link"_s), QString());
}

TEST_F(DiscFiles, AreCopiedPiecewiseIntoAPrivateFolder)
{
    DiscCopy copy(disc, *FindDiscFile(*disc, u"\\"_s, u"big.bin"_s), u"ABC"_s);
    int steps = 0;
    for (; !copy.complete(); ++steps) copy.step();
    EXPECT_GT(steps, 1);
    EXPECT_EQ(contentOf(copy.path()), QByteArray(1'000'000, '\0'));
    const QFileInfo file(copy.path());
    EXPECT_TRUE(file.path().startsWith(home.path()));
    const QFile::Permissions others(0x0077);
    EXPECT_EQ(file.permissions() & (others | QFile::WriteOwner), QFile::Permissions());
    EXPECT_EQ(QFileInfo(file.path()).permissions() & others, QFile::Permissions());

    const int touched = disc->touched;
    EXPECT_TRUE(DiscCopy(disc, {u"\\"_s, u"big.bin"_s, 1'000'000}, u"ABC"_s).complete()) << "made once";
    EXPECT_FALSE(DiscCopy(disc, {u"\\"_s, u"big.bin"_s, 1'000'000}, u"DEF"_s).complete()) << "another medium";
    EXPECT_EQ(disc->touched, touched);
    EXPECT_TRUE(DiscCopy(disc, {u"\\"_s, u"none"_s, 0}, u"ABC"_s).complete());
    RemoveDiscCopies();
    EXPECT_FALSE(QFile::exists(copy.path()));
}

TEST_F(DiscFiles, ACopyThatFailsOrIsGivenUpLeavesNothing)
{
    QString folder;
    {
        DiscCopy copy(disc, {u"\\"_s, u"big.bin"_s, 1'000'000}, u"ABC"_s);
        folder = QFileInfo(copy.path()).path();
        copy.step();
        disc->damaged(u"\\big.bin"_s);
        EXPECT_THROW(copy.step(), DiscError);
        EXPECT_EQ(QDir(folder).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }
    EXPECT_EQ(QDir(folder).entryList(QDir::Files | QDir::Hidden).size(), 0);
    DiscCopy shorter(disc, {u"\\Docs\\"_s, u"Read Me.txt"_s, 1000}, u"ABC"_s);
    shorter.step();
    EXPECT_THROW(shorter.step(), DiscError);
}

TEST_F(DiscFiles, CopiesOfEndedProcessesAreRemovedAtTheStart)
{
    const QString stale = home.filePath(u"vinora/disc-999999999/1/a"_s), living = home.filePath(u"vinora/disc-1/1/a"_s);
    write(stale, "x");
    write(living, "x");
    RemoveStaleDiscCopies();
    EXPECT_FALSE(QFile::exists(home.filePath(u"vinora/disc-999999999"_s)));
    EXPECT_TRUE(QFile::exists(living));
}

TEST(SafeFileName, NeverLeavesItsFolder)
{
    const std::pair<QString, QString> names[] = {
        {u"a.txt"_s, u"a.txt"_s},
        {u".."_s, u"_.."_s},
        {u"."_s, u"_."_s},
        {u""_s, u"_"_s},
        {u"../../x"_s, u"_.._.._x"_s},
        {u"-rf"_s, u"_-rf"_s},
        {u"a\\b\n"_s, u"a_b_"_s},
        {u"Привет.txt"_s, u"Привет.txt"_s},
    };
    for (const auto& [name, safe] : names) EXPECT_EQ(SafeFileName(name), safe);
    const QString longName = SafeFileName(QString(300, u'ж') + u".html"_s);
    EXPECT_LE(longName.toUtf8().size(), 200);
    EXPECT_TRUE(longName.endsWith(u"ж.html"_s));
}
