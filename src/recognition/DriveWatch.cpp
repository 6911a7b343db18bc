#include "recognition/DriveWatch.h"

#include "frame/Fault.h"
#include "frame/Settings.h"
#include "recognition/BoundDisc.h"

#include <QApplication>
#include <QScopedValueRollback>

namespace {

QString numberedLabel(const BoundDisc& disc)
{
    const QString place = disc.discs == 1 ? QString() : u" (CD%1)"_s.arg(disc.disc);
    return u"Диск № %1%2:\r%3"_s.arg(QString::number(disc.number), place, disc.title);
}

}

DriveWatch::DriveWatch(Program& program) : m_program(program) { resetSigns(); }

bool DriveWatch::tick()
{
    if (m_ticking) return false;
    m_glance.reset();
    if (m_program.shared.DriveWatchPaused) return false;
    const QScopedValueRollback ticking(m_ticking, true);
    const bool mayAsk = m_program.routines == 0 && !m_program.dialogs.modalIsOpen() &&
                        !QApplication::activePopupWidget();
    bool blinks = false;
    Guarded(m_program, "frmMain, tmrCheckCD_Timer()"_L1, [&] {
        const QString drive = DefaultDrive(m_program);
        if (!drive.isEmpty()) blinks = look(drive, mayAsk);
    });
    return blinks;
}

bool DriveWatch::look(const QString& drive, bool mayAsk)
{
    m_glance = GlanceAt(m_program, drive);
    DiscInDrive disc = m_glance->disc;
    if (disc.kind == UndecidedKind) {
        m_last.clear();
        resetSigns();
        // What cannot be remembered would be asked about every second: it counts as no disc.
        if (!disc.id.isEmpty()) {
            if (!mayAsk) return false;
            disc.kind = AskCategory(m_program, disc.id);
        }
    }
    const CatalogueKind* kind = CatalogueByKindWord(disc.kind);
    if (!kind) {
        m_last.clear();
        resetSigns();
        m_signs.state = DriveState::NoDisc;
        return false;
    }
    if (kind->presentUnidentified) m_signs.state = DriveState::Disc;
    if (disc.id == m_last) return false;
    m_last = disc.id;
    if (disc.id.isEmpty()) return false;
    m_signs.state = DriveState::Disc;
    found(*kind);
    return true;
}

void DriveWatch::found(const CatalogueKind& kind)
{
    // A disc that came in place of another one takes nothing over from it.
    resetSigns();
    DriveSign& sign = m_signs.catalogues[CatalogueIndex(kind)];
    const Database main = m_program.mainDatabase();
    const std::optional<BoundDisc> bound = FindBoundDisc(main, kind, m_last);
    sign.flagged = true;
    sign.numbered = sign.unbinds = sign.shown = bound.has_value();
    if (bound) sign.label = numberedLabel(*bound);
    // In an empty catalogue there is nothing to bind to.
    sign.linkShown = bound || main.Scalar(u"SELECT COUNT(*) FROM "_s + kind.table).toInt() != 0;
}

void DriveWatch::blink(bool steady)
{
    for (DriveSign& sign : m_signs.catalogues) {
        if (!sign.flagged) continue;
        sign.shown = steady || !sign.shown;
        if (steady) return;
    }
}

void DriveWatch::reset()
{
    m_last.clear();
    resetSigns();
    m_signs.state = DriveState::Unknown;
}

void DriveWatch::resetSigns()
{
    for (DriveSign& sign : m_signs.catalogues) {
        sign = {};
        sign.label = u"Диск (?)\rне привязан не к одному номеру в каталоге"_s;
    }
}
