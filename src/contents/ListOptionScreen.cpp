#include "contents/ListOptionScreen.h"

#include "frame/Settings.h"
#include "recognition/Refusals.h"

#include <QEvent>

ListOptionScreen::ListOptionScreen(Program& program, const QString& screenName, DiscOfRow disc, int number)
    : Screen(program, screenName, u"Параметры сканирования диска № %1 (CD%2)"_s.arg(number).arg(disc.disc)), disc(disc)
{
    // Also when the same drive is chosen again.
    connect(cmbDrive, &QComboBox::activated, this, &ListOptionScreen::cmbDrive_Click);
}

QLayout* ListOptionScreen::driveRow()
{
    QLabel* caption = label(u"&Устройство:"_s, cmbDrive);
    return row(caption, cmbDrive, lblInserCD, stretch);
}

void ListOptionScreen::loadDrives()
{
    program.shared.DialogDone = false;
    for (const QChar letter : GetCDDrives(program)) cmbDrive->addItem(letter + u":\\"_s);
    cmbDrive->setEnabled(hasDrive());
    if (!cmbDrive->isEnabled()) return;
    cmbDrive->setCurrentIndex(qMax(0, cmbDrive->findText(DefaultDrive(program).left(3), Qt::MatchFixedString)));
    cmbDrive_Click();
}

void ListOptionScreen::cmbDrive_Click()
{
    Routine("cmbDrive_Click"_L1, [&] { showKind(GetDiskIDcheck(program, cmbDrive->currentText())); });
}

void ListOptionScreen::showKind(const QString& kindWord)
{
    const CatalogueKind* kind = CatalogueByKindWord(kindWord);
    lblInserCD->setText(kind ? kind->mediumCaption : u"(нет)"_s);
    kindShown(kindWord);
}

/// The user comes back, perhaps from the drive. Nobody is asked here: a question would take the window's place again.
bool ListOptionScreen::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate && activated() && cmbDrive->count() > 0) {
        const QString kind = GlanceAt(program, cmbDrive->currentText()).disc.kind;
        if (kind != UndecidedKind) showKind(kind);
    }
    return Screen::event(event);
}

bool ListOptionScreen::hasDrive()
{
    if (cmbDrive->count() == 0) MsgBox(Refusal::NoDrive);
    return cmbDrive->count() > 0;
}

bool ListOptionScreen::takeIdentifier(const DiscInDrive& inDrive)
{
    program.shared.CurrentDiscID = inDrive.id;
    if (inDrive.id.isEmpty()) MsgBox(Refusal::NoIdentifier);
    return !inDrive.id.isEmpty();
}

void ListOptionScreen::listMade()
{
    program.shared.DiscIDSlots.at(std::size_t(disc.disc - 1)) = program.shared.CurrentDiscID;
    program.shared.DialogDone = true;
}
