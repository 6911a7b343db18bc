#include "contents/FileSizeText.h"

#include "frame/Text.h"
#include "platform/disc/Disc.h"
#include "store/Schema.h"

#include <cmath>

QString FileSizeText(qint64 bytes)
{
    const double kilobytes = std::nearbyint(double(bytes) * 10 / 1024) / 10;
    if (const QString grouped = FormatNumber(kilobytes, 1, true); grouped.size() <= FieldLength::FileSize)
        return grouped;
    if (const QString plain = FormatNumber(kilobytes, 1, false); plain.size() <= FieldLength::FileSize) return plain;
    throw DiscError(u"Каталог диска повреждён: размер файла %1 байт невозможен."_s.arg(bytes));
}

double SizeInKilobytes(QStringView text)
{
    constexpr QChar NarrowNoBreakSpace(0x202F);
    QString digits;
    digits.reserve(text.size());
    qsizetype whole = -1; // digits before the decimal sign, once there is one
    for (const QChar c : text) {
        if (c == u',' || c == u'.')
            whole = digits.size();
        else if (c >= u'0' && c <= u'9')
            digits += c;
        else if (c != u' ' && c != QChar::Nbsp && c != NarrowNoBreakSpace)
            break;
    }
    if (whole >= 0) digits.insert(whole, u'.');
    return digits.toDouble();
}
