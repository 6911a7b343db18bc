#pragma once

#include "recognition/DriveWatch.h"
#include "store/CatalogueKind.h"
#include "store/Summary.h"
#include "ui/Blinker.h"
#include "ui/Card.h"
#include "ui/IconLabel.h"
#include "ui/IconTile.h"
#include "ui/LinkButton.h"

#include <QLabel>

class QAction;

/// One catalogue on the dashboard: how many discs, when it last changed, how many are lent and overdue, and whether the
/// disc in the drive is one of its own. Its controls carry the catalogue's ending: lblCDsPC, imgNewPC.
class CatalogueCard : public Card {
    Q_OBJECT
public:
    CatalogueCard(const CatalogueKind& kind, QAction* open, QAction* add);

    void show(const CatalogueSummary& summary);
    /// The same where loans are none of ours.
    void showWithoutLoans(const CatalogueSummary& summary);
    /// Off with 0. The sign blinks with the interval of `setDueInterval`.
    void showOverdue(int loans);
    void setDueInterval(int milliseconds) { m_dueSign.setInterval(milliseconds); }
    /// `offersLinks`: whether discs can be bound and unbound in this program.
    void showSign(const DriveSign& sign, bool offersLinks = false);

signals:
    /// The logo's menu is wanted at this place on the screen.
    void menuWanted(const QPoint& at);
    /// The link that binds or unbinds the disc.
    void shareClicked();

protected:
    void changeEvent(QEvent* event) override;

private:
    void applyColours();
    QLayout* header();
    QLayout* counts();
    QLayout* sign();

    const CatalogueKind& m_kind;
    IconTile* imgLogo;
    QLabel* lblCDs;
    QLabel* lblDiscs;
    QLabel* lblUpdate;
    QLabel* lblDue;
    QFrame* fraFindDue;
    IconLabel* imgFindDue;
    QLabel* lblFindDue;
    QLabel* m_overdue;
    IconLabel* imgNew;
    QLabel* lblNew;
    IconLabel* imgShare;
    LinkButton* lblShare;
    DriveSign m_sign;
    Blinker m_dueSign;
};

/// "диск", "диска" or "дисков", as it stands behind a number.
QString DiscWord(int discs);
