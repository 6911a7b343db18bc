#include "recognition/DiscImages.h"

#include "frame/Settings.h"

#include <QFileInfo>

namespace {
constexpr QStringView section = u"Drives";
constexpr QStringView imageKey = u"Image";
}

void InsertImage(Program& program, const QString& path)
{
    VirtualDrive& drive = program.drives.virtualDrive();
    drive.insert(path);
    const Profile settings = program.settings();
    settings.write(section, imageKey, EncodePath(path));
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
    return u"Образы дисков (*.iso;*.udf;*.cue;*.toc;*.nrg;*.bin;*.img)|*.iso;*.udf;*.cue;*.toc;*.nrg;*.bin;*.img|"
           u"Все файлы (*.*)|*.*"_s;
}

bool LooksLikeImage(const QString& path)
{
    static const QStringList suffixes{u"iso"_s, u"udf"_s, u"cue"_s, u"toc"_s, u"nrg"_s, u"bin"_s, u"img"_s};
    return suffixes.contains(QFileInfo(path).suffix().toLower());
}
