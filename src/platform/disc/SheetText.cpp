#include "platform/disc/SheetText.h"

#include "platform/CodePage1251.h"
#include "platform/Literals.h"

#include <QStringDecoder>

QString DecodeDiscText(QByteArrayView bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    return decoder.hasError() ? DecodeCp1251(bytes) : text;
}

std::optional<int> FramesOfMsf(QStringView text)
{
    const QList<QStringView> parts = text.split(u':');
    if (parts.size() != 3) return {};
    int numbers[3];
    for (int i = 0; i < 3; ++i) {
        bool whole = false;
        numbers[i] = parts[i].toInt(&whole);
        if (!whole || numbers[i] < 0 || parts[i].size() > 4) return {};
    }
    if (numbers[1] >= 60 || numbers[2] >= 75) return {};
    return Msf{numbers[0], numbers[1], numbers[2]}.toFrames();
}

DiscError SheetError(int line, const QString& what) { return DiscError(u"Строка %1: %2"_s.arg(line).arg(what)); }
