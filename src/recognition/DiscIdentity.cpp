#include "recognition/DiscIdentity.h"

#include "frame/Fault.h"
#include "recognition/frmSelectCategory.h"
#include "store/CatalogueKind.h"

static constexpr QStringView Section = u"CD";
static constexpr QStringView Ignored = u"n/a";

namespace {

/// A disc without an identifier cannot be remembered: it is asked about each time. What the file does not take holds for
/// this run.
void writeSkipCD(Program& program, const QString& id, QStringView category)
{
    if (id.isEmpty()) return;
    if (program.skipcd().write(Section, id, category.toString()))
        program.shared.UnsavedCategories.remove(id);
    else
        program.shared.UnsavedCategories[id] = category.toString();
}

DiscInDrive identify(const Program& program, const VolumeProperties& volume)
{
    const QString id = SerialToID(volume.serial);
    const QString kind = KindOfVolume(volume, ReadSkipCD(program, id));
    return {kind, kind.isEmpty() ? QString() : id, volume.label};
}

}

QString SerialToID(quint32 serial) { return serial == 0 ? QString() : QString::number(serial, 16).toUpper(); }

QString ReadSkipCD(const Program& program, const QString& id)
{
    if (id.isEmpty()) return {};
    const auto unsaved = program.shared.UnsavedCategories.constFind(id);
    if (unsaved != program.shared.UnsavedCategories.cend()) return *unsaved;
    return program.skipcd().read(Section, id, 15).trimmed();
}

QString GetCDDrives(const Program& program) { return program.drives.letters(); }

QString KindOfVolume(const VolumeProperties& volume, const QString& correction)
{
    const quint32 length = volume.maximumComponentLength;
    if (!volume.success || (length == 0 && volume.serial == 0)) return {};
    if (!correction.isEmpty()) {
        const CatalogueKind* told = CatalogueByCode(correction);
        return told ? told->kindWord : QString();
    }
    if (length == 221 && volume.label.startsWith(u"Audio CD")) return Audio().kindWord;
    if (length == 255 && volume.fileSystem.startsWith(u"UDF")) return Dvd().kindWord;
    if (length == 110 || length == 221) return Computer().kindWord;
    return UndecidedKind;
}

DiscInDrive ReadDisc(Program& program, const QString& drive)
{
    DiscInDrive disc;
    Guarded(program, "vinoraModule, GetDiskIDcheck()"_L1, [&] {
        Drive* place = program.drives.find(drive);
        if (!place) return;
        disc = identify(program, place->volume());
        if (disc.kind != UndecidedKind) return;
        disc.kind = AskCategory(program, disc.id);
        if (disc.kind.isEmpty()) disc.id.clear();
    });
    return disc;
}

QString GetDiskIDcheck(Program& program, const QString& drive) { return ReadDisc(program, drive).kind; }

QString GetDiskID(Program& program, const QString& drive) { return ReadDisc(program, drive).id; }

std::shared_ptr<Disc> MediumOf(Drive& drive, const QString& id)
{
    std::shared_ptr<Disc> medium = drive.disc();
    return medium && SerialToID(medium->volume().serial) == id ? medium : nullptr;
}

DriveGlance GlanceAt(const Program& program, const QString& drive)
{
    DriveGlance glance{.drive = program.drives.find(drive), .volume = {}, .disc = {}};
    if (!glance.drive) return glance;
    glance.volume = glance.drive->lastKnown();
    glance.disc = identify(program, glance.volume);
    return glance;
}

QString AskCategory(Program& program, const QString& id, const QString& kindWord)
{
    const CatalogueKind* known = CatalogueByKindWord(kindWord);
    int choice = known ? int(CatalogueIndex(*known)) : 0;
    for (bool refused = true; refused;) {
        frmSelectCategory dialog(program);
        dialog.lblTrabl->setText(
            u"Обнаружен диск, точное определение категории которого не представляется возможным!"_s);
        dialog.lblInfo->setText(u"Укажите верную категорию:"_s);
        dialog.choose(choice);
        dialog.ShowModal();
        choice = dialog.choice();
        refused = !program.shared.DialogDone;
        if (refused && program.dialogs.Ask(u"Вы не указали категорию диска, он не будет привязан не к одной из "
                                           u"категорий. Продолжить?"_s)) {
            writeSkipCD(program, id, Ignored);
            return {};
        }
    }
    program.shared.DialogDone = false;
    const CatalogueKind& kind = *AllCatalogues()[std::size_t(choice)];
    writeSkipCD(program, id, kind.code);
    return kind.kindWord;
}

bool ChangeCategory(Program& program, const QString& drive, const std::function<void()>& stopWatch)
{
    if (!program.dialogs.Ask(
            u"Используйте эту функцию для корректировки принадлежности диска к какой-либо категории при невозможности "
            u"определить ее верно в автоматическом режиме! Продолжить?"_s))
        return false;
    stopWatch();
    const DiscInDrive disc = ReadDisc(program, drive);
    if (disc.id.isEmpty()) {
        program.dialogs.MsgBox(u"В устройстве %1 компакт-диск не обнаружен!"_s.arg(drive));
        return false;
    }
    program.shared.CurrentDiscID = disc.id;
    writeSkipCD(program, disc.id, Ignored);
    AskCategory(program, disc.id, disc.kind);
    return true;
}
