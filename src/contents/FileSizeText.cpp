#include "contents/FileSizeText.h"

#include "frame/Text.h"
#include "platform/disc/Disc.h"

#include <cmath>

static constexpr int MaximumLength = 11;

QString FileSizeText(qint64 bytes)
{
    const double kilobytes = std::nearbyint(double(bytes) * 10 / 1024) / 10;
    if (const QString grouped = FormatNumber(kilobytes, 1, true); grouped.size() <= MaximumLength) return grouped;
    if (const QString plain = FormatNumber(kilobytes, 1, false); plain.size() <= MaximumLength) return plain;
    throw DiscError(u"Каталог диска повреждён: размер файла %1 байт невозможен."_s.arg(bytes));
}

double SizeInKilobytes(QStringView text)
{
    constexpr QChar NarrowNoBreakSpace(0x202F);
    QString number;
    number.reserve(text.size());
    for (const QChar c : text) {
        if (c == u' ' || c == QChar::Nbsp || c == NarrowNoBreakSpace) continue;
        if (c != u',' && c != u'.' && (c < u'0' || c > u'9')) break;
        number += c == u',' ? QChar(u'.') : c;
    }
    return number.toDouble();
}
