#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "platform/SingleInstance.h"
#include "platform/XdgDesktop.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <cerrno>
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
void Put(const QString& path, const QByteArray& content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(content);
}

QByteArray Get(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<no file>");
}

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

class Folder : public testing::Test {
protected:
    QString at(const char* name) const { return folder.filePath(name); }

    QTemporaryDir folder;
};
}

using Files = Folder;
using Instance = Folder;
using DesktopProgram = Folder;

TEST_F(Files, ExistsOnlyAsAFileInAReachableFolder)
{
    Put(at("vinora.db"), "x");
    EXPECT_TRUE(FileExists(at("vinora.db")));
    EXPECT_FALSE(FileExists(at("missing.db")));
    EXPECT_FALSE(FileExists(folder.path()));
    EXPECT_EQ(ErrorOf([&] { FileExists(at("gone/vinora.db")); }), 52);
    EXPECT_EQ(ErrorOf([&] { FileExists(at("vinora.db/vinora.db")); }), 52);
    EXPECT_EQ(ErrorOf([&] { FileExists(at(std::string(300, 'n').c_str())); }), 52);
}

TEST_F(Files, ErrorsFollowWhatIsInTheWay)
{
    EXPECT_EQ(FileError(ENOENT, at("a")).number(), 53);
    EXPECT_EQ(FileError(ENOENT, at("no/a")).number(), 76);
    EXPECT_EQ(FileError(ENOSPC, at("a")).number(), 61);
    EXPECT_EQ(FileError(ENOMEM, at("a")).number(), 7);
    EXPECT_EQ(FileError(EIO, at("a")).number(), 57);
    EXPECT_TRUE(FileError(EIO, at("a")).description().contains(at("a")));

    EXPECT_EQ(ErrorOf([&] { DeleteFile(at("a")); }), 53);
    EXPECT_EQ(ErrorOf([&] { DeleteFile(folder.path()); }), 75);

    Put(at("secret"), "x");
    chmod(qPrintable(at("secret")), 0);
    chmod(qPrintable(folder.path()), 0777);
    {
        AsOrdinaryUser user;
        EXPECT_EQ(ErrorOf([&] { CopyFile(at("secret"), at("b")); }), 70);
        EXPECT_EQ(ErrorOf([&] { CopyFile("/proc/self/maps", at("secret")); }), 70);
    }
    chmod(qPrintable(folder.path()), 0555);
    {
        AsOrdinaryUser user;
        EXPECT_EQ(ErrorOf([&] { CopyFile("/proc/self/maps", at("b")); }), 75);
    }
    chmod(qPrintable(folder.path()), 0700);
    EXPECT_EQ(Get(at("secret")), "x");
}

TEST_F(Files, CopiesWholeOrNotAtAll)
{
    QByteArray content;
    for (int i = 0; i < (3 << 20) + 7; ++i) content.append(char(i * 7));
    Put(at("from"), content);
    Put(at("to"), "older and to be replaced");
    CopyFile(at("from"), at("to"));
    EXPECT_EQ(Get(at("to")), content);
    CopyFile(at("to"), at("to"));
    EXPECT_EQ(Get(at("to")), content);

    EXPECT_EQ(ErrorOf([&] { CopyFile(at("missing"), at("to")); }), 53);
    EXPECT_EQ(ErrorOf([&] { CopyFile(folder.path(), at("to")); }), 75);
    EXPECT_EQ(ErrorOf([&] { CopyFile(at("from"), folder.path()); }), 75);
    EXPECT_EQ(ErrorOf([&] { CopyFile("/dev/null", at("to")); }), 75);
    EXPECT_EQ(ErrorOf([&] { CopyFile(at("from"), at("no/to")); }), 76);
    EXPECT_EQ(Get(at("to")), content);

    QFile::link(at("to"), at("link"));
    Put(at("from"), "short");
    CopyFile(at("from"), at("link"));
    EXPECT_TRUE(QFileInfo(at("link")).isSymLink());
    EXPECT_EQ(Get(at("to")), "short");

    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name),
              QStringList({"from", "link", "to"}));
    DeleteFile(at("link"));
    EXPECT_TRUE(FileExists(at("to")));
}

TEST_F(Files, ApplicationFolderIsTheProgramsOwnUnlessItCannotHoldData)
{
    qputenv("XDG_DATA_HOME", at("home").toUtf8());
    qputenv("XDG_CONFIG_HOME", at("config").toUtf8());
    EXPECT_EQ(SystemProfileFolder(), at("config"));
    EXPECT_EQ(ApplicationFolder(folder.path() + "/"), folder.path());

    EXPECT_EQ(ApplicationFolder(at("not there")), at("home/vinora"));
    EXPECT_TRUE(QFileInfo(at("home/vinora")).isDir());
}

TEST_F(Instance, OneAtATimeAndADeadOneDoesNotCount)
{
    {
        SingleInstance first(folder.path());
        EXPECT_TRUE(first.acquired());
        EXPECT_FALSE(SingleInstance(folder.path()).acquired());
    }
    EXPECT_TRUE(SingleInstance(folder.path()).acquired());

    QProcess dead;
    dead.start("true", QStringList());
    const qint64 pid = dead.processId();
    dead.waitForFinished();
    Put(at("vinora.lock"), QByteArray::number(pid) + "\ntrue\n" + QSysInfo::machineHostName().toUtf8() + "\n");
    EXPECT_TRUE(SingleInstance(folder.path()).acquired());
}

TEST_F(DesktopProgram, IsAskedForFilesFoldersAndLinks)
{
    const QByteArray path = qgetenv("PATH");
    XdgDesktop desktop;
    Put(at("a b.txt"), "x");
    qputenv("PATH", folder.path().toUtf8());
    EXPECT_FALSE(desktop.openFile(at("a b.txt"))) << "no xdg-open";

    Put(at("xdg-open"), "#!/bin/sh\necho \"$1\" >>" + at("asked").toUtf8() + "\n");
    chmod(qPrintable(at("xdg-open")), 0755);
    const auto asked = [&](bool started) {
        if (!started) return QString("refused");
        QElapsedTimer timer;
        for (timer.start(); !QFileInfo(at("asked")).size() && timer.elapsed() < 10000;) QThread::msleep(5);
        const QString answer = Get(at("asked")).trimmed();
        QFile::remove(at("asked"));
        return answer;
    };
    EXPECT_EQ(asked(desktop.openFile(at("a b.txt"))), at("a b.txt"));
    EXPECT_EQ(asked(desktop.openFolderOf(at("gone.txt"))), folder.path());
    EXPECT_EQ(asked(desktop.openLink("http://example.org/ü?q=1")), "http://example.org/%C3%BC?q=1");
    EXPECT_EQ(asked(desktop.openFile(at("gone.txt"))), "refused");
    EXPECT_EQ(asked(desktop.openLink("file:///etc/passwd")), "refused");
    qputenv("PATH", path);
}
