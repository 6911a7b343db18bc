#include "platform/Drives.h"

QString Drives::letters()
{
    QString letters;
    for (Drive* drive : all()) letters += drive->letter();
    return letters;
}

Drive* Drives::find(QStringView root)
{
    if (root.endsWith(u'\\')) root.chop(1);
    if (root.size() != 2 || root[1] != u':') return nullptr;
    for (Drive* drive : all())
        if (drive->letter() == root[0].toUpper()) return drive;
    return nullptr;
}
