#pragma once

#include "platform/disc/UdfSpace.h"

/// A run of a file's bytes.
struct UdfExtent {
    UdfAddress start;
    quint32 length = 0;   ///< bytes, below 1 GiB
    bool recorded = true; ///< false: it reads as zeros
};

/// A file or a directory as its entry describes it (File Entry, Extended File Entry: ECMA-167 4/14.9 and 4/14.17).
class UdfFile {
public:
    enum Type : quint8 { unspecified = 0, directory = 4, virtualTable = 248, metadata = 250, metadataMirror = 251 };

    static constexpr qint64 longestChain = 256;

    /// The newest entry of an ICB, for both ICB strategies 4 and 4096 (4/14.6.2, UDF 2.3.5.1). Each older entry passed
    /// on the way costs one of `links`. Throws DiscError.
    static UdfFile open(const UdfSpace& space, UdfAddress icb, qint64& links);
    static UdfFile open(const UdfSpace& space, UdfAddress icb)
    {
        qint64 links = longestChain;
        return open(space, icb, links);
    }

    quint8 type() const { return m_type; }
    qint64 size() const { return m_size; }
    /// Whether the bytes lie in the entry itself.
    bool isInline() const { return m_allocation == inlineData; }
    /// Where the bytes lie otherwise, in their order. Throws DiscError for more pieces than a medium can hold of it.
    std::vector<UdfExtent> extents(const UdfSpace& space) const;
    /// At most `length` bytes; fewer at the end. `extents` are its own.
    QByteArray read(const UdfSpace& space, const std::vector<UdfExtent>& extents, qint64 offset, qint64 length) const;
    QByteArray readAll(const UdfSpace& space) const { return read(space, extents(space), 0, m_size); }

private:
    /// Form of the allocation descriptors (4/14.6.8).
    enum Allocation : quint8 { shortForm, longForm, extendedForm, inlineData };

    static UdfFile parse(QByteArrayView entry, UdfAddress at);

    UdfAddress m_at;
    quint8 m_type = unspecified;
    quint8 m_allocation = shortForm;
    qint64 m_size = 0;
    QByteArray m_descriptors; ///< allocation descriptors, or the bytes themselves
};
