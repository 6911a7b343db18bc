#pragma once

#include "platform/disc/Disc.h"

#include <optional>

/// A file of a medium under its true names.
struct DiscFile {
    QString folder; ///< begins and ends with a backslash
    QString name;
    qint64 size = 0;
};

/// The file that a list calls `name`; lists may hold names in lower case. None when the medium has no such file.
std::optional<DiscFile> FindDiscFile(Disc& disc, const QString& folder, const QString& name);

/// Where the desktop shows a file of a medium mounted at `mountPoint`; empty when it shows no such file. Letters may
/// differ in case, since some file systems are mounted in lower case. A path never leads out of the mount point.
QString MountedPath(const QString& mountPoint, const QString& folder, const QString& name);

/// Names as a disc may hold them, made fit for a file of ours: never a folder, hidden, or longer than 200 bytes.
QString SafeFileName(const QString& name);

/// A private, read-only copy of a file from a medium that the desktop has not mounted. Copies lie in a folder of this
/// process that only the user can enter, each in a folder of its own that is called as on the disc; all of them take 4 GiB
/// at most, or one that is larger alone: the oldest make room for a new one.
class DiscCopy {
public:
    /// `id` tells media apart: the same file of the same medium has the same copy, which is made once.
    /// Throws FileError when it cannot be made, also when there is no room for the whole.
    DiscCopy(std::shared_ptr<Disc> disc, const DiscFile& file, const QString& id);
    /// A copy that is not complete is removed.
    ~DiscCopy();
    DiscCopy(const DiscCopy&) = delete;
    DiscCopy& operator=(const DiscCopy&) = delete;

    /// Native path of the finished copy.
    const QString& path() const { return m_path; }
    qint64 size() const { return m_file.size; }
    qint64 copied() const { return m_copied; }
    bool complete() const { return m_complete; }
    /// Copies a piece of at most 256 KiB. Throws DiscError or FileError.
    void step();

private:
    void finish();

    std::shared_ptr<Disc> m_disc;
    DiscFile m_file;
    QString m_path;
    QByteArray m_partPath;
    int m_part = -1; ///< descriptor
    qint64 m_copied = 0;
    bool m_complete = false;
};

/// Removes the copies of this process: for the end of the program.
void RemoveDiscCopies();
/// Removes what processes that are no more have left behind: for the start.
void RemoveStaleDiscCopies();
