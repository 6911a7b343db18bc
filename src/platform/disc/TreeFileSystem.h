#pragma once

#include "platform/disc/Disc.h"

#include <QHash>
#include <vector>

/// A file system whose folders are found by path, over one that can list a folder when told its place. It keeps a hostile
/// medium a tree: both ECMA-119 (6.8.2) and ECMA-167 (4/8.6) record a directory in exactly one other, so a folder is
/// shown where it was met first, and nowhere else; no two have the same path, so a walk meets each of them once; and all
/// folders together cannot be larger than the medium.
class TreeFileSystem : public FileSystem {
public:
    QList<DiscEntry> list(const QString& folder) final;
    QByteArray read(const QString& folder, const QString& name, qint64 offset, qint64 length) final;

protected:
    /// A place means something to the file system alone; that of a folder tells it from all other folders.
    struct Node {
        DiscEntry entry;
        quint64 place = 0;
    };

    TreeFileSystem(quint64 root, qint64 mediumSize);

    /// Bytes that the records of one folder take.
    virtual qint64 folderSize(quint64 place) = 0;
    /// In any order, with names as they are recorded.
    virtual std::vector<Node> folder(quint64 place) = 0;
    /// At most `length` bytes of a file; fewer at its end. `offset` and `length` are not negative.
    virtual QByteArray content(quint64 place, qint64 offset, qint64 length) = 0;

private:
    struct Folder {
        quint64 place = 0;
        bool paid = false; ///< its size was taken from what is left of the medium's
        bool listed = false;
    };
    using Key = std::pair<size_t, QString>; ///< number of the folder that holds it, name shown there

    size_t find(const QString& path);
    size_t child(size_t parent, const QString& name);
    const std::vector<Node>& nodes(size_t number);
    void pay(Folder& folder);
    std::vector<Node> claimed(size_t parent, std::vector<Node> found);
    bool claim(size_t parent, Node& node);
    bool freeName(Key& key) const;

    qint64 m_unpaid;
    std::vector<Folder> m_folders; ///< the root first
    QHash<Key, size_t> m_byName, m_byFoldedName;
    QHash<quint64, Key> m_owners; ///< by place
    size_t m_lastListed = 0;
    std::vector<Node> m_lastNodes;
};
