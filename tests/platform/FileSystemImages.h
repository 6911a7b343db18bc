#pragma once

#include "platform/disc/Disc.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// A line per entry: path, size of a file, "h" when hidden.
class Tree : public QStringList {
public:
    using QStringList::QStringList;
    friend void PrintTo(const Tree& tree, std::ostream* out) { *out << '\n' << tree.join(u'\n').toStdString(); }
};

/// Sectors in memory or in a file.
class TestSource : public SectorSource {
public:
    explicit TestSource(const QByteArray& bytes, quint32 session = 0)
        : bytes(bytes), m_size(bytes.size()), session(session)
    {}
    explicit TestSource(const QString& path, quint32 session = 0) : m_file(path), session(session)
    {
        EXPECT_TRUE(m_file.open(QIODevice::ReadOnly)) << path.toStdString();
        m_size = m_file.size();
    }

    qint64 size() const override { return m_size; }
    quint32 lastSession() const override { return session; }
    QByteArray read(qint64 offset, qint64 length) override
    {
        EXPECT_TRUE(offset >= 0 && length >= 0 && offset + length <= m_size) << offset << " " << length;
        bytesRead += length;
        if (offset < bad && bad < offset + length) throw DiscError(QStringLiteral("bad sector"));
        if (!m_file.isOpen()) return bytes.mid(offset, length);
        m_file.seek(offset);
        return m_file.read(length);
    }

    QByteArray bytes;
    qint64 bad = -1; ///< a byte that cannot be read
    qint64 bytesRead = 0;

private:
    QFile m_file;
    qint64 m_size = 0;
    quint32 session = 0;
};

inline std::unique_ptr<FileSystem> openBytes(const QByteArray& bytes)
{
    return OpenFileSystem(std::make_shared<TestSource>(bytes));
}

/// What a whole file system holds.
inline Tree printTree(FileSystem& system, const QString& folder = QStringLiteral("\\"))
{
    Tree lines;
    for (const DiscEntry& entry : system.list(folder)) {
        const QString tail = entry.folder ? QStringLiteral("\\") : u' ' + QString::number(entry.size);
        lines += folder + entry.name + tail + (entry.hidden ? QStringLiteral(" h") : QString());
        if (entry.folder) lines += printTree(system, folder + entry.name + u'\\');
    }
    return lines;
}

/// The same of a folder on the test's own disk, in the order of a listing; a leading dot is hidden.
inline Tree printDisk(const QString& native, const QString& folder = QStringLiteral("\\"))
{
    Tree lines;
    auto infos = QDir(native).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    std::ranges::sort(infos, [](const QFileInfo& a, const QFileInfo& b) {
        const int order = a.fileName().compare(b.fileName(), Qt::CaseInsensitive);
        return order ? order < 0 : a.fileName() < b.fileName();
    });
    for (const QFileInfo& info : infos) {
        const QString tail = info.isDir() ? QStringLiteral("\\") : u' ' + QString::number(info.size());
        lines += folder + info.fileName() + tail + (info.isHidden() ? QStringLiteral(" h") : QString());
        if (info.isDir()) lines += printDisk(info.filePath(), folder + info.fileName() + u'\\');
    }
    return lines;
}

/// A folder of files, and images made of it with the tools of others.
class ImageTest : public testing::Test {
protected:
    QTemporaryDir temporary;
    QString tree = temporary.filePath(QStringLiteral("tree"));
    QString image = temporary.filePath(QStringLiteral("image.iso"));

    void SetUp() override { QDir().mkpath(tree); }

    void put(const QString& path, const QByteArray& bytes = {})
    {
        QDir().mkpath(QFileInfo(tree + u'/' + path).path());
        QFile file(tree + u'/' + path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
        file.write(bytes);
    }
    void folder(const QString& path) { QDir().mkpath(tree + u'/' + path); }
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
        return run(QStringLiteral("genisoimage"),
                   QStringList{QStringLiteral("-quiet"), QStringLiteral("-input-charset"), QStringLiteral("utf-8"),
                               QStringLiteral("-V"), QStringLiteral("ARCHIVE"), QStringLiteral("-o"), image} +
                       options + QStringList{tree});
    }
    std::unique_ptr<FileSystem> open(quint32 session = 0)
    {
        return OpenFileSystem(std::make_shared<TestSource>(image, session));
    }
};

/// Makes the image or leaves the test where the tool is not installed.
#define MAKE_IMAGE(...)                                                                                                \
    if (!(__VA_ARGS__)) GTEST_SKIP() << "the tool that makes the image is not installed"
