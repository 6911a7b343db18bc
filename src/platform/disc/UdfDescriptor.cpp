#include "platform/disc/UdfDescriptor.h"

#include "platform/disc/Fields.h"

#include <QStringDecoder>
#include <array>

static constexpr qsizetype tagSize = 16;

/// CRC of ITU-T V.41: x^16 + x^12 + x^5 + 1, from 0 (ECMA-167 1/7.2.6). Every file of a listing has its entry summed up,
/// so four bytes go at a time: table k holds the sums of each byte with k blank ones behind it.
static quint16 Crc(QByteArrayView bytes)
{
    static constexpr auto tables = [] {
        std::array<std::array<quint16, 256>, 4> result{};
        for (int k = 0; k < 4; ++k) {
            for (int i = 0; i < 256; ++i) {
                int value = k ? result[k - 1][i] : i << 8;
                for (int bit = 0; bit < 8; ++bit) value = value & 0x8000 ? value << 1 ^ 0x1021 : value << 1;
                result[k][i] = static_cast<quint16>(value);
            }
        }
        return result;
    }();
    const auto byte = [&](qsizetype at) { return static_cast<quint8>(bytes[at]); };
    quint16 crc = 0;
    qsizetype at = 0;
    for (; at + 4 <= bytes.size(); at += 4) {
        crc = tables[3][crc >> 8 ^ byte(at)] ^ tables[2][(crc & 0xFF) ^ byte(at + 1)] ^ tables[1][byte(at + 2)] ^
              tables[0][byte(at + 3)];
    }
    for (; at < bytes.size(); ++at) crc = static_cast<quint16>(crc << 8 ^ tables[0][crc >> 8 ^ byte(at)]);
    return crc;
}

UdfTag CheckTag(QByteArrayView bytes)
{
    if (bytes.size() < tagSize) return UdfTag::none;
    const Fields fields(bytes);
    quint8 checksum = 0;
    for (int i = 0; i < tagSize; ++i)
        if (i != 4) checksum += fields.u8(i);
    const quint16 bodySize = fields.le16(10);
    if (checksum != fields.u8(4) || bodySize > bytes.size() - tagSize) return UdfTag::none;
    if (Crc(bytes.sliced(tagSize, bodySize)) != fields.le16(8)) return UdfTag::none;
    return static_cast<UdfTag>(fields.le16(0));
}

quint32 TagLocation(QByteArrayView descriptor) { return Fields(descriptor).le32(12); }

QByteArrayView ExpectTag(QByteArrayView bytes, UdfTag tag)
{
    if (CheckTag(bytes) != tag) throw DiscError(u"Диск поврежден: описание файла, папки или тома не читается."_s);
    return bytes;
}

QString DecodeCompressedUnicode(QByteArrayView bytes)
{
    if (bytes.isEmpty()) return {};
    const QByteArrayView text = bytes.sliced(1);
    switch (bytes[0]) {
    case 8: return QString::fromLatin1(text);
    case 16: {
        QStringDecoder decoder(QStringDecoder::Utf16BE, QStringDecoder::Flag::Stateless);
        return decoder(text.first(text.size() & ~qsizetype(1)));
    }
    default: throw DiscError(u"Диск поврежден: имя на нем записано неизвестным образом."_s);
    }
}

QString DecodeDString(QByteArrayView field)
{
    const auto used = static_cast<quint8>(field.back());
    return DecodeCompressedUnicode(Fields(field).part(0, std::min<qsizetype>(used, field.size() - 1)));
}

UdfLongExtent UdfLongExtent::read(QByteArrayView descriptor, qint64 at)
{
    const Fields fields(descriptor);
    return {ExtentLength(fields.le32(at)), {fields.le32(at + 4), fields.le16(at + 8)}};
}
