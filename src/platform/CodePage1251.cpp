#include "platform/CodePage1251.h"

#include <algorithm>

namespace {
/// Characters of the bytes from 0x80 on. 0x98 is not assigned; the control character of its own number keeps it whole.
constexpr char16_t UpperHalf[] = u"ЂЃ‚ѓ„…†‡€‰Љ‹ЊЌЋЏ"
                                 u"ђ‘’“”•–—\x98™љ›њќћџ"
                                 u"\xA0ЎўЈ¤Ґ¦§Ё©Є«¬\xAD®Ї"
                                 u"°±Ііґµ¶·ё№є»јЅѕї"
                                 u"АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯ"
                                 u"абвгдежзийклмнопрстуфхцчшщъыьэюя";
static_assert(std::size(UpperHalf) == 128 + 1);

/// -1 when the page lacks it.
int ByteOf(char32_t character)
{
    if (character < 0x80) return int(character);
    if (character >= U'А' && character <= U'я') return int(0xC0 + (character - U'А'));
    if (character > 0xFFFF) return -1;
    const QStringView page(UpperHalf, 64);
    const qsizetype index = page.indexOf(QChar(char16_t(character)));
    return index < 0 ? -1 : int(0x80 + index);
}
}

QString DecodeCp1251(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto byte = uchar(bytes[i]);
        text[i] = byte < 0x80 ? QChar(char16_t(byte)) : QChar(UpperHalf[byte - 0x80]);
    }
    return text;
}

QByteArray EncodeCp1251(QStringView text, const std::function<QByteArray(char32_t)>& missing)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        char32_t character = text[i].unicode(); // half of a pair that stands alone is told as itself, not lost
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            character = QChar::surrogateToUcs4(text[i], text[i + 1]);
            ++i;
        }
        const int byte = ByteOf(character);
        if (byte >= 0)
            bytes.append(char(byte));
        else
            bytes.append(missing ? missing(character) : QByteArray("?"));
    }
    return bytes;
}

bool FitsCp1251(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return ByteOf(c.unicode()) >= 0; });
}
