#pragma once

#include "platform/disc/IsoRecord.h"
#include "platform/disc/SectorCache.h"

#include <QByteArray>
#include <optional>

/// What the Rock Ridge extensions (RRIP 1.12) say of one directory record that matters for a listing.
struct RockRidgeEntry {
    QByteArray name;                  ///< NM; empty without one
    std::optional<quint32> childLink; ///< CL: the block where the folder really is, which this record stands for
    bool relocated = false;           ///< RE: stands here only because the tree was too deep, its name is elsewhere
};

/// The system use entries of a medium (SUSP 1.12).
class RockRidge {
public:
    /// From the system use area of the root's first record; null when the medium does not follow the protocol.
    static std::optional<RockRidge> detect(QByteArrayView rootSystemUse);

    /// Each continuation area costs one of `areas`, which the records of a folder share. Throws DiscError for an entry or
    /// a continuation that does not fit.
    RockRidgeEntry read(const IsoRecord& record, SectorCache& medium, qint64 blockSize, qint64& areas) const;

private:
    explicit RockRidge(int skipped) : m_skipped(skipped) {}

    int m_skipped; ///< bytes before the first entry of every record but the root's own
};
