#pragma once

#include <QByteArrayView>

/// A directory record of ECMA-119 (9.1).
struct IsoRecord {
    enum Flag : quint8 { hiddenFlag = 0x01, folderFlag = 0x02, associatedFlag = 0x04, goesOnFlag = 0x80 };

    quint32 block = 0; ///< first logical block of the data, past an extended attribute record
    quint32 size = 0;  ///< bytes
    quint8 flags = 0;
    bool interleaved = false;
    QByteArrayView identifier;
    QByteArrayView systemUse;

    bool has(Flag flag) const { return flags & flag; }
    /// The entries for the folder itself and for the one that holds it.
    bool isDot() const { return identifier.size() == 1 && (identifier[0] == 0 || identifier[0] == 1); }
};

/// The record that `bytes` are, no more and no less. Throws DiscError.
IsoRecord ParseIsoRecord(QByteArrayView bytes);

/// Steps through the records of a directory, over the blank ends of sectors. `bytes` begin with a sector and must outlive
/// the reader and its records.
class IsoRecordReader {
public:
    explicit IsoRecordReader(QByteArrayView bytes, qsizetype start = 0) : m_bytes(bytes), m_next(start) {}

    /// False after the last one. Throws DiscError for a record that does not fit.
    bool next();
    const IsoRecord& record() const { return m_record; }
    /// Where the record begins in the bytes.
    qsizetype position() const { return m_position; }

private:
    QByteArrayView m_bytes;
    IsoRecord m_record;
    qsizetype m_position = 0, m_next = 0;
};
