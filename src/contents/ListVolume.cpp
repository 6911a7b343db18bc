#include "contents/ListVolume.h"

#include "contents/FileSizeText.h"
#include "frame/Text.h"

#include <cmath>

QString VolumeText(double kilobytes)
{
    kilobytes = std::round(kilobytes * 10) / 10; // sizes have one decimal place; what adding them left behind goes
    const int digits = QString::number(std::nearbyint(kilobytes), 'f', 0).size();
    const QString sum = FormatNumber(kilobytes, kilobytes == std::floor(kilobytes) ? 0 : 1, false);
    const QString megabytes = digits <= 3 ? u"1"_s : digits <= 6 ? sum.left(digits - 3) : sum;
    return u"~%1 Мб"_s.arg(megabytes);
}

QString ListVolume(const Database& files, const QString& id)
{
    // An expression is grouped by its letters, which is quicker than the order of fields, and gives all rows in one go.
    const Recordset sizes = files.OpenRecordset(
        u"SELECT Размер & '', COUNT(*) FROM [%1] GROUP BY Размер & ''"_s.arg(id));
    if (sizes.RecordCount() == 0) return u"~0 Мб"_s;
    double kilobytes = 0;
    for (int i = 0; i < sizes.RecordCount(); ++i) {
        const QList<Value> size = sizes.row(i);
        kilobytes += SizeInKilobytes(size[0].text()) * size[1].toInt();
    }
    return VolumeText(kilobytes);
}
