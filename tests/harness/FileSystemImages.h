#pragma once

#include "platform/disc/ImageFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

/// A line per entry: path, size of a file, "h" when hidden.
class Tree : public QStringList {
public:
    using QStringList::QStringList;
    void add(const QString& path, bool folder, qint64 size, bool hidden)
    {
        append(path + (folder ? "\\" : ' ' + QString::number(size)) + (hidden ? " h" : ""));
    }
    friend void PrintTo(const Tree& tree, std::ostream* out) { *out << '\n' << tree.join(u'\n').toStdString(); }
};

/// Sectors in memory.
class TestSource : public SectorSource {
public:
    explicit TestSource(const QByteArray& bytes, quint32 session = 0) : bytes(bytes), session(session) {}

    qint64 size() const override { return bytes.size(); }
    quint32 lastSession() const override { return session; }
    QByteArray read(qint64 offset, qint64 length) override
    {
        EXPECT_TRUE(offset >= 0 && length >= 0 && offset + length <= size()) << offset << " " << length;
        if (offset < bad && bad < offset + length) throw DiscError("bad sector");
        return bytes.mid(offset, length);
    }

    QByteArray bytes;
    qint64 bad = -1; ///< a byte that cannot be read

private:
    quint32 session = 0;
};

inline std::unique_ptr<FileSystem> openBytes(const QByteArray& bytes, quint32 session = 0)
{
    return OpenFileSystem(std::make_shared<TestSource>(bytes, session));
}

/// What a whole file system holds.
inline Tree printTree(FileSystem& system, const QString& folder = "\\")
{
    Tree lines;
    for (const DiscEntry& entry : system.list(folder)) {
        lines.add(folder + entry.name, entry.folder, entry.size, entry.hidden);
        if (entry.folder) lines += printTree(system, folder + entry.name + u'\\');
    }
    return lines;
}

/// The same of a folder on the test's own disk, in the order of a listing; a leading dot is hidden.
inline Tree printDisk(const QString& native, const QString& folder = "\\")
{
    Tree lines;
    auto infos = QDir(native).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    std::ranges::sort(infos, {}, [](const QFileInfo& info) { return info.fileName().toCaseFolded(); });
    for (const QFileInfo& info : infos) {
        lines.add(folder + info.fileName(), info.isDir(), info.size(), info.isHidden());
        if (info.isDir()) lines += printDisk(info.filePath(), folder + info.fileName() + u'\\');
    }
    return lines;
}

/// A folder of files, and images made of it with the tools of others.
class ImageTest : public testing::Test {
protected:
    QTemporaryDir temporary;
    QString tree = at("tree");
    QString image = at("image.iso");

    void SetUp() override { folder(""); }

    QString at(const QString& name) const { return temporary.filePath(name); }
    void folder(const QString& path) { QDir().mkpath(tree + u'/' + path); }
    void put(const QString& path, const QByteArray& bytes = {})
    {
        folder(QFileInfo(path).path());
        write(tree + u'/' + path, bytes);
    }
    static void write(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
        file.write(bytes);
    }
    static QByteArray contentsOf(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    /// Runs a tool of the machine. False when it is not installed; its failure fails the test.
    static bool run(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(program, arguments);
        if (!process.waitForStarted()) return false;
        process.waitForFinished(120'000);
        EXPECT_EQ(process.exitCode(), 0) << program.toStdString() << ": " << process.readAll().toStdString();
        return true;
    }
    bool genisoimage(const QStringList& options)
    {
        const QStringList always{"-quiet", "-input-charset", "utf-8", "-V", "ARCHIVE", "-o", image};
        return run("genisoimage", always + options + QStringList{tree});
    }
    std::unique_ptr<FileSystem> open() { return OpenFileSystem(std::make_shared<ImageFile>(image)); }
};

/// Makes the image or leaves the test where the tool is not installed.
#define MAKE_IMAGE(...)                                                                                                \
    if (!(__VA_ARGS__)) GTEST_SKIP() << "the tool that makes the image is not installed"
