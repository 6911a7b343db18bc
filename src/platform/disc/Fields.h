#pragma once

#include "platform/Literals.h"
#include "platform/disc/Disc.h"

#include <QByteArrayView>
#include <QtEndian>

/// A descriptor's bytes, read by position. Whatever stands outside of them is damage: DiscError, never a read beyond.
class Fields {
public:
    explicit Fields(QByteArrayView bytes) : m_bytes(bytes) {}

    qsizetype size() const { return m_bytes.size(); }
    QByteArrayView part(qint64 at, qint64 length) const
    {
        if (at < 0 || length < 0 || at > size() || length > size() - at)
            throw DiscError(u"Диск поврежден: структура данных на нем обрывается."_s);
        return m_bytes.sliced(at, length);
    }
    quint8 u8(qint64 at) const { return static_cast<quint8>(part(at, 1).front()); }
    quint16 le16(qint64 at) const { return qFromLittleEndian<quint16>(part(at, 2).data()); }
    quint32 le32(qint64 at) const { return qFromLittleEndian<quint32>(part(at, 4).data()); }
    quint64 le64(qint64 at) const { return qFromLittleEndian<quint64>(part(at, 8).data()); }
    /// A number recorded in both orders, little-endian first (ECMA-119 7.3.3). Writers are known that leave one half
    /// blank.
    quint32 both32(qint64 at) const
    {
        const quint32 little = le32(at);
        return little ? little : qFromBigEndian<quint32>(part(at + 4, 4).data());
    }

private:
    QByteArrayView m_bytes;
};
