#include "platform/disc/NarrowText.h"

#include <QStringDecoder>

static constexpr char16_t upperHalf866[] = u"АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯ"
                                           u"абвгдежзийклмноп"
                                           u"░▒▓│┤╡╢╖╕╣║╗╝╜╛┐└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀"
                                           u"рстуфхцчшщъыьэюяЁёЄєЇїЎў°∙·√№¤■\u00a0";
static_assert(std::size(upperHalf866) == 128 + 1);

QString DecodeNarrow(QByteArrayView bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8(bytes);
    if (!utf8.hasError()) return text;

    QString result;
    result.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<quint8>(c);
        result += byte < 0x80 ? QChar(char16_t(byte)) : QChar(upperHalf866[byte - 0x80]);
    }
    return result;
}
