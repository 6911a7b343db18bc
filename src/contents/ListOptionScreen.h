#pragma once

#include "frame/Screen.h"
#include "recognition/DiscIdentity.h"
#include "store/DiscTables.h"

#include <QComboBox>

/// The dialog before a list is made: which drive, and what is in it. DialogDone tells that a list was made; its name is
/// then CurrentDiscID and stands in DiscIDSlots.
class ListOptionScreen : public Screen {
public:
    QComboBox* cmbDrive = named("cmbDrive");
    QLabel* lblInserCD = named("lblInserCD"); ///< what is in the drive

protected:
    /// `number` is the catalogue number that the title shows.
    ListOptionScreen(Program& program, const QString& screenName, DiscOfRow disc, int number);

    QLayout* driveRow();
    /// Fills the list of drives and looks into the default one, or else the first. Without any it says so.
    void loadDrives();
    /// What is in the drive is known anew, by its kind word.
    virtual void kindShown(const QString&) {}
    void cmbDrive_Click();

    /// False, with a message, on a machine without drives.
    bool hasDrive();
    /// CurrentDiscID becomes the identifier of what was read; false, with a message, for a disc without one.
    bool takeIdentifier(const DiscInDrive& inDrive);
    /// The list CurrentDiscID belongs to the row now: what tells the opener.
    void listMade();

    bool event(QEvent* event) override;

    const DiscOfRow disc;

private:
    void showKind(const QString& kindWord);
};
