#include "platform/disc/IsoRecord.h"

#include "platform/disc/Fields.h"

static constexpr qsizetype sectorSize = 2048;

IsoRecord ParseIsoRecord(QByteArrayView bytes)
{
    const Fields fields(bytes);
    IsoRecord record;
    record.block = fields.both32(2) + fields.u8(1);
    record.size = fields.both32(10);
    record.flags = fields.u8(25);
    record.interleaved = fields.u8(26) || fields.u8(27);
    const int length = fields.u8(32);
    record.identifier = fields.part(33, length);
    // The system use area begins at an even position (9.1.12); a record may end before.
    const qsizetype systemUse = 33 + length + (length % 2 == 0);
    if (systemUse < bytes.size()) record.systemUse = bytes.sliced(systemUse);
    return record;
}

bool IsoRecordReader::next()
{
    // A length of zero: the next record did not fit into the rest of the sector (6.8.1.1).
    while (m_next < m_bytes.size() && !m_bytes[m_next]) m_next += sectorSize - m_next % sectorSize;
    if (m_next >= m_bytes.size()) return false;

    m_position = m_next;
    const auto length = static_cast<quint8>(m_bytes[m_position]);
    m_record = ParseIsoRecord(Fields(m_bytes).part(m_position, length));
    m_next += length;
    return true;
}
