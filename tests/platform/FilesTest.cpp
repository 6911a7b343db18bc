#include "platform/Files.h"
#include "harness/FileSystemImages.h"
#include "platform/SingleInstance.h"
#include "platform/XdgDesktop.h"

#include <QElapsedTimer>
#include <QThread>
#include <cerrno>
#include <functional>
#include <sys/stat.h>
#include <unistd.h>

namespace {
int ErrorOf(const std::function<void()>& action)
{
    try {
        action();
        return 0;
    } catch (const RuntimeError& error) {
        return error.number();
    }
}

/// The superuser may write everywhere; rights are tested as somebody else.
class AsOrdinaryUser {
public:
    AsOrdinaryUser() : m_was(geteuid()) { EXPECT_EQ(seteuid(m_was == 0 ? 65534 : m_was), 0); }
    ~AsOrdinaryUser() { EXPECT_EQ(seteuid(m_was), 0); }

private:
    uid_t m_was;
};

using Files = ImageTest;
}

TEST_F(Files, ExistsOnlyAsAFileInAReachableFolder)
{
    write(at("vinora.db"), "x");
    EXPECT_TRUE(FileExists(at("vinora.db")));
    EXPECT_FALSE(FileExists(at("missing.db")));
    EXPECT_FALSE(FileExists(tree));
    for (const QString& unreachable : {QString("gone/vinora.db"), QString("vinora.db/vinora.db"), QString(300, u'n')})
        EXPECT_EQ(ErrorOf([&] { FileExists(at(unreachable)); }), 52);
}

TEST_F(Files, ErrorsFollowWhatIsInTheWay)
{
    const std::tuple<int, const char*, int> errors[] = {
        {ENOENT, "a", 53}, {ENOENT, "no/a", 76}, {ENOSPC, "a", 61}, {ENOMEM, "a", 7}, {EIO, "a", 57}};
    for (const auto& [code, name, number] : errors) EXPECT_EQ(FileError(code, at(name)).number(), number) << code;
    EXPECT_TRUE(FileError(EIO, at("a")).description().contains(at("a")));
    EXPECT_EQ(ErrorOf([&] { DeleteFile(at("a")); }), 53);
    EXPECT_EQ(ErrorOf([&] { DeleteFile(tree); }), 75);

    write(at("secret"), "x");
    chmod(qPrintable(at("secret")), 0);
    const auto copyAs = [&](int rights, const QString& from, const QString& to) {
        chmod(qPrintable(temporary.path()), static_cast<mode_t>(rights));
        const AsOrdinaryUser user;
        return ErrorOf([&] { CopyFile(from, to); });
    };
    EXPECT_EQ(copyAs(0777, at("secret"), at("b")), 70);
    EXPECT_EQ(copyAs(0777, "/proc/self/maps", at("secret")), 70);
    EXPECT_EQ(copyAs(0555, "/proc/self/maps", at("b")), 75);
    chmod(qPrintable(temporary.path()), 0700);
    EXPECT_EQ(contentsOf(at("secret")), "x");
}

TEST_F(Files, CopiesWholeOrNotAtAll)
{
    QByteArray content;
    for (int i = 0; i < (3 << 20) + 7; ++i) content.append(char(i * 7));
    write(at("from"), content);
    write(at("to"), "older and to be replaced");
    for (const char* from : {"from", "to"}) {
        CopyFile(at(from), at("to"));
        EXPECT_EQ(contentsOf(at("to")), content);
    }
    const std::tuple<QString, QString, int> failures[] = {{at("missing"), at("to"), 53},
                                                          {tree, at("to"), 75},
                                                          {at("from"), tree, 75},
                                                          {"/dev/null", at("to"), 75},
                                                          {at("from"), at("no/to"), 76}};
    for (const auto& [from, to, number] : failures) EXPECT_EQ(ErrorOf([&] { CopyFile(from, to); }), number);
    EXPECT_EQ(contentsOf(at("to")), content);

    QFile::link(at("to"), at("link"));
    write(at("from"), "short");
    CopyFile(at("from"), at("link"));
    EXPECT_TRUE(QFileInfo(at("link")).isSymLink());
    EXPECT_EQ(contentsOf(at("to")), "short");
    EXPECT_EQ(QDir(temporary.path()).entryList(QDir::Files | QDir::Hidden), QStringList({"from", "link", "to"}));
    DeleteFile(at("link"));
    EXPECT_TRUE(FileExists(at("to")));
}

TEST_F(Files, ApplicationFolderIsTheProgramsOwnUnlessItCannotHoldData)
{
    qputenv("XDG_DATA_HOME", at("home").toUtf8());
    qputenv("XDG_CONFIG_HOME", at("config").toUtf8());
    EXPECT_EQ(SystemProfileFolder(), at("config"));
    EXPECT_EQ(ApplicationFolder(tree + "/"), tree);
    EXPECT_EQ(ApplicationFolder(at("not there")), at("home/vinora"));
    EXPECT_TRUE(QFileInfo(at("home/vinora")).isDir());
}

TEST_F(Files, OneInstanceAtATimeAndADeadOneDoesNotCount)
{
    {
        SingleInstance first(tree);
        EXPECT_TRUE(first.acquired());
        EXPECT_FALSE(SingleInstance(tree).acquired());
    }
    EXPECT_TRUE(SingleInstance(tree).acquired());

    QProcess dead;
    dead.start("true", QStringList());
    const qint64 pid = dead.processId();
    dead.waitForFinished();
    put("vinora.lock", QByteArray::number(pid) + "\ntrue\n" + QSysInfo::machineHostName().toUtf8() + "\n");
    EXPECT_TRUE(SingleInstance(tree).acquired());

    // Where no file can be made the first one is still the first.
    SingleInstance first(at("not there"));
    EXPECT_TRUE(first.acquired());
    EXPECT_FALSE(SingleInstance(at("not there")).acquired());
}

TEST_F(Files, FoldersAndLinksAreOpenedByTheDesktopsProgram)
{
    const QByteArray path = qgetenv("PATH");
    XdgDesktop desktop;
    write(at("a b.txt"), "x");
    qputenv("PATH", temporary.path().toUtf8());
    EXPECT_FALSE(desktop.openFile(at("a b.txt")));
    EXPECT_THAT(desktop.complaint().toStdString(), testing::HasSubstr("xdg-utils"));

    write(at("xdg-open"), "#!/bin/sh\necho \"$1\" >>" + at("asked").toUtf8() + "\n");
    chmod(qPrintable(at("xdg-open")), 0755);
    const auto asked = [&](bool started) {
        if (!started) return QString("refused");
        QElapsedTimer timer;
        for (timer.start(); !QFileInfo(at("asked")).size() && timer.elapsed() < 10000;) QThread::msleep(5);
        const QString answer = contentsOf(at("asked")).trimmed();
        QFile::remove(at("asked"));
        return answer;
    };
    EXPECT_EQ(asked(desktop.openFile(at("a b.txt"))), at("a b.txt"));
    EXPECT_EQ(asked(desktop.openFolderOf(at("gone.txt"))), temporary.path());
    EXPECT_EQ(asked(desktop.openLink("http://example.org/ü?q=1")), "http://example.org/%C3%BC?q=1");
    EXPECT_EQ(asked(desktop.openFile(at("gone.txt"))), "refused");
    EXPECT_EQ(asked(desktop.openLink("file:///etc/passwd")), "refused");

    write(at("xdg-open"), "#!/bin/sh\nexit 3\n"); // no program for what is to be opened
    EXPECT_FALSE(desktop.openFile(at("a b.txt")));
    EXPECT_TRUE(desktop.complaint().contains(at("a b.txt"))) << qPrintable(desktop.complaint());
    qputenv("PATH", path);
}
