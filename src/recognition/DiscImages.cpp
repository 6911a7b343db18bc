#include "recognition/DiscImages.h"

#include "frame/Settings.h"

#include <QFileInfo>

namespace {
constexpr QStringView section = u"Drives";
constexpr QStringView imageKey = u"Image";

/// Sheets, which name the files of an image, and images.
const QStringList sheetSuffixes{u"cue"_s, u"toc"_s};
const QStringList imageSuffixes{u"iso"_s, u"udf"_s, u"nrg"_s, u"bin"_s, u"img"_s};
}

void InsertImage(Program& program, const QString& path)
{
    VirtualDrive& drive = program.drives.virtualDrive();
    drive.insert(path);
    const Profile settings = program.settings();
    settings.write(section, imageKey, EncodePath(drive.imagePath()));
    settings.write(u"Option", u"Drive", drive.root());
    if (!settings.has(u"Option", u"CheckCD")) settings.write(u"Option", u"CheckCD", u"1"_s);
}

void EjectImage(Program& program)
{
    program.drives.virtualDrive().eject();
    program.settings().removeKey(section, imageKey);
}

void RestoreImage(Program& program)
{
    const QString path = DecodePath(program.settings().read(section, imageKey, 4096));
    if (!path.isEmpty()) program.drives.virtualDrive().restore(path);
}

QString ImageFilter()
{
    const QString patterns = u"*."_s + (sheetSuffixes + imageSuffixes).join(u";*.");
    return u"Образы дисков (%1)|%1|Все файлы (*.*)|*.*"_s.arg(patterns);
}

QString ImageAmong(const QStringList& paths)
{
    for (const QStringList& suffixes : {sheetSuffixes, imageSuffixes})
        for (const QString& path : paths)
            if (suffixes.contains(QFileInfo(path).suffix().toLower())) return path;
    return {};
}
