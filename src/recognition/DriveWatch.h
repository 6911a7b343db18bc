#pragma once

#include "recognition/DiscIdentity.h"
#include "store/CatalogueKind.h"

/// What the main window shows of the disc in the drive beside one catalogue: a picture and a label that blink together,
/// and a link that binds or unbinds.
struct DriveSign {
    bool shown = false;    ///< picture and label
    bool flagged = false;  ///< they blink (BlinkAD, BlinkPC, BlinkDVD)
    bool numbered = false; ///< the picture of a disc with a number, else of one without
    QString label;
    bool linkShown = false;
    bool unbinds = false; ///< the link is "Удалить привязку", in red; else "Привязать", in blue

    QString link() const { return unbinds ? u"Удалить привязку"_s : u"Привязать"_s; }
    bool operator==(const DriveSign&) const = default;
};

enum class DriveState { Unknown, NoDisc, Disc };

/// In the order of AllCatalogues().
struct DriveSigns {
    std::array<DriveSign, 3> catalogues;
    DriveState state = DriveState::Unknown;

    bool operator==(const DriveSigns&) const = default;
};

/// Looks at the drive of the settings whenever its owner's timer ticks, and says what to show. Each disc is handled once:
/// while it stays in the drive a tick costs one question to the drive and no database.
class DriveWatch {
public:
    explicit DriveWatch(Program& program);

    const DriveSigns& signs() const { return m_signs; }
    /// What the last tick saw in the drive of the settings; nothing when it did not look.
    const std::optional<DriveGlance>& glance() const { return m_glance; }

    /// One tick (`tmrCheckCD`). True when a disc was handled that blinks from now on, so `tmrNewCD` is to run. A disc
    /// whose category only the user can tell is asked about when nothing modal is open and no guarded routine is under
    /// way (so call this from outside of one); until then it does not count as seen. Ticks do not nest. Faults go to the
    /// fault routine.
    bool tick();
    /// One tick of `tmrNewCD`: flagged signs come and go, or stay if `steady`, then only those of the first one flagged.
    void blink(bool steady);
    /// The disc in the drive is looked up afresh at the next tick; until then nothing is shown (`CheckCD`).
    void reset();

private:
    bool look(const QString& drive, bool mayAsk);
    void found(const CatalogueKind& kind);
    void resetSigns();

    Program& m_program;
    DriveSigns m_signs;
    std::optional<DriveGlance> m_glance;
    QString m_last; ///< LastDriveDiscID: identifier of the disc already dealt with
    bool m_ticking = false;
};
