#include "contents/DiscFile.h"

#include "harness/FakeDrives.h"
#include "harness/Print.h"

#include <QDir>
#include <QTemporaryDir>
#include <ctime>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class DiscFiles : public testing::Test {
protected:
    void SetUp() override
    {
        qputenv("XDG_CACHE_HOME", QFile::encodeName(home.path()));
        disc->file("\\Docs\\Read Me.txt", QByteArray("Привет")).file("\\big.bin", 1'000'000).file("\\none", 0);
    }
    void write(const QString& path) const
    {
        QDir().mkpath(QFileInfo(path).path());
        ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly));
    }

    QTemporaryDir home;
    std::shared_ptr<FakeDisc> disc = FakeDisc::data("D", 1);
    const DiscFile big{"\\", "big.bin", 1'000'000};
};

}

TEST_F(DiscFiles, AreFoundByNamesInLowerCase)
{
    disc->file("\\Docs\\read me.txt", 7);
    EXPECT_EQ(FindDiscFile(*disc, "\\Docs\\", "read me.txt")->size, 7) << "the exact name goes first";
    EXPECT_EQ(FindDiscFile(*disc, "\\Docs\\", "READ ME.TXT")->folder, "\\Docs\\");
    EXPECT_FALSE(FindDiscFile(*disc, "\\", "docs")) << "a folder is no file";
    EXPECT_THROW(FindDiscFile(*disc, "\\missing\\", "a"), RuntimeError);
}

TEST_F(DiscFiles, OfAMountedDiscStayWithinIt)
{
    const QString mount = home.filePath("media");
    write(mount + "/docs/Read Me.txt");
    write(home.filePath("secret"));
    QFile::link(home.filePath("secret"), mount + "/link");
    EXPECT_EQ(MountedPath(mount, "\\Docs\\", "read me.txt"), mount + "/docs/Read Me.txt");
    for (const auto& [folder, name] :
         {std::pair{"\\", "docs"}, {"\\..\\", "secret"}, {"\\", "../secret"}, {"\\", "link"}})
        EXPECT_EQ(MountedPath(mount, folder, name), QString()) << name;
}

TEST_F(DiscFiles, AreCopiedPiecewiseIntoAPrivateFolder)
{
    DiscCopy copy(disc, big, "ABC");
    int steps = 0;
    for (; !copy.complete(); ++steps) copy.step();
    EXPECT_GT(steps, 1);
    QFile made(copy.path());
    EXPECT_TRUE(made.open(QIODevice::ReadOnly));
    EXPECT_EQ(made.readAll(), QByteArray(1'000'000, '\0'));
    const QFile::Permissions others(0x0077);
    EXPECT_EQ(made.permissions() & (others | QFile::WriteOwner), QFile::Permissions());
    EXPECT_EQ(QFileInfo(QFileInfo(made).path()).permissions() & others, QFile::Permissions());

    EXPECT_TRUE(DiscCopy(disc, big, "ABC").complete()) << "made once";
    EXPECT_FALSE(DiscCopy(disc, big, "DEF").complete()) << "another medium";
    EXPECT_FALSE(DiscCopy(disc, {"\\", "big.bin", 999'999}, "ABC").complete()) << "another one of the same serial";
    EXPECT_TRUE(QFile::setPermissions(copy.path(), QFile::WriteOwner) && QFile::resize(copy.path(), 5));
    EXPECT_FALSE(DiscCopy(disc, big, "ABC").complete()) << "not what was copied";
    EXPECT_TRUE(DiscCopy(disc, {"\\", "none", 0}, "ABC").complete());
    RemoveDiscCopies();
    EXPECT_FALSE(made.exists());
}

TEST_F(DiscFiles, ACopyThatFailsOrIsGivenUpLeavesNothing)
{
    std::optional<DiscCopy> copy(std::in_place, disc, big, "ABC");
    const auto left = [folder = QFileInfo(copy->path()).path()] {
        return QDir(folder).entryList(QDir::Files | QDir::Hidden).size();
    };
    copy->step();
    EXPECT_EQ(left(), 1);
    disc->damaged("\\big.bin");
    EXPECT_THROW(copy->step(), DiscError);
    copy.reset();
    EXPECT_EQ(left(), 0);

    DiscCopy shorter(disc, {"\\Docs\\", "Read Me.txt", 1000}, "ABC");
    shorter.step();
    EXPECT_THROW(shorter.step(), DiscError);
    EXPECT_THROW(DiscCopy(disc, {"\\", "huge", qint64(1) << 60}, "ABC"), RuntimeError) << "no room for it";
}

TEST_F(DiscFiles, TheOldestCopiesMakeRoomForANewOne)
{
    QStringList made;
    for (const QString medium : {"A", "B", "C"}) {
        DiscCopy copy(disc, big, medium);
        while (!copy.complete()) copy.step();
        made += copy.path();
        // As if it held 1.25 GiB, and were some minutes old.
        EXPECT_TRUE(QFile::setPermissions(made.last(), QFile::WriteOwner) && QFile::resize(made.last(), 5LL << 28));
        const timespec time{std::time(nullptr) - 300 + 60 * made.size(), 0};
        const timespec times[]{time, time};
        const QString place = QFileInfo(QFileInfo(made.last()).path()).path();
        utimensat(AT_FDCWD, QFile::encodeName(place).constData(), times, 0);
    }
    const auto left = [&] {
        QString marks;
        for (const QString& path : made) marks += QFile::exists(path) ? '+' : '-';
        return marks;
    };
    EXPECT_EQ(left(), "+++");
    const DiscCopy large(disc, {"\\", "large", 1LL << 30}, "D");
    EXPECT_EQ(left(), "-++");
    RemoveDiscCopies();
}

TEST_F(DiscFiles, CopiesOfEndedProcessesAreRemovedAtTheStart)
{
    const QString parent = QString::number(getppid()), own = QString::number(getpid());
    for (const QString& process : {parent, own, QString("999999999")})
        write(home.filePath("vinora/disc-" + process + "/1/a"));
    RemoveStaleDiscCopies();
    EXPECT_EQ(QDir(home.filePath("vinora")).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
              QStringList("disc-" + parent));
}

TEST(SafeFileName, NeverLeavesItsFolder)
{
    const std::pair<const char*, const char*> names[] = {{"..", "_.."},           {"", "_"},
                                                         {"../../x", "_.._.._x"}, {"-rf", "_-rf"},
                                                         {"a\\b\n", "a_b_"},      {"Привет.txt", "Привет.txt"}};
    for (const auto& [name, safe] : names) EXPECT_EQ(SafeFileName(name), QString(safe));
    const QString longName = SafeFileName(QString(300, u'ж') + ".html");
    EXPECT_LE(longName.toUtf8().size(), 200);
    EXPECT_TRUE(longName.endsWith("ж.html"));
}
