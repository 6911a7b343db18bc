// The links of the cards that bind the disc in the drive to a number of the catalogue, and that undo it.
#include "mainwindow/frmMain.h"

#include "catalogue/frmSelectCD.h"
#include "frame/Settings.h"
#include "recognition/Binding.h"

void frmMain::lblShare_Click(const CatalogueKind& kind)
{
    const QByteArray place = "frmMain, lblShare" + kind.code.toLatin1() + "_Click()";
    Guarded(QLatin1StringView(place), [&] {
        const QString drive = DefaultDrive(program);
        if (drive.isEmpty() || program.shared.ExternalDBOpen) return;
        if (m_painted.catalogues[CatalogueIndex(kind)].unbinds)
            unbindDisc(kind, drive);
        else
            bindDisc(kind, drive);
    });
}

static QString readIdentifier(Program& program, const QString& drive)
{
    const Hourglass hourglass;
    return GetDiskID(program, drive);
}

void frmMain::bindDisc(const CatalogueKind& kind, const QString& drive)
{
    const auto choice = PickDiscToBind(program, kind);
    if (!choice) return;
    establish(kind, *choice, readIdentifier(program, drive));
    LoadData();
}

/// A disc that was taken out meanwhile leaves an empty identifier, which is bound like others.
void frmMain::establish(const CatalogueKind& kind, const DiscChoice& choice, const QString& id)
{
    const auto place = PlaceOf(program.mainDatabase(), kind, choice);
    if (!place) return;
    const QString number = QString::number(choice.number);
    const QString numbered = u"диск №%1 (CD%2)"_s.arg(number, QString::number(choice.disc));
    if (place->taken) program.dialogs.MsgBox(u"Диск № %1 уже привязан к другому номеру диска!"_s.arg(number));
    if (!CheckDiskShare(kind, id)) return;
    if (!program.dialogs.Ask(u"Установить привязку на %1:\r%2?"_s.arg(numbered, place->title))) return;
    BindDisc(program.mainDatabase(), kind, choice, id);
    program.dialogs.MsgBox(u"Привязка успешно установлена на "_s + numbered, Box::Information);
}

/// Whether the disc may be bound: it is the first disc of no row of the catalogue.
bool frmMain::CheckDiskShare(const CatalogueKind& kind, const QString& id)
{
    bool ok = false;
    Guarded("frmMain, CheckDiskShare()"_L1, [&] {
        const std::optional<int> number = BoundFirst(program.mainDatabase(), kind, id);
        ok = !number;
        if (number) program.dialogs.MsgBox(u"Этот диск уже привязан к №%1!"_s.arg(*number));
    });
    return ok;
}

void frmMain::unbindDisc(const CatalogueKind& kind, const QString& drive)
{
    const QString question = u"Вы уверены, что хотите удалить привязку с этого диска?"_s;
    if (!program.dialogs.Ask(question, Box::Question | Box::SafeDefault)) return;
    UnbindDisc(program.mainDatabase(), kind, readIdentifier(program, drive));
    LoadData();
}
