#pragma once

#include "platform/Drives.h"
#include "ui/Card.h"
#include "ui/IconLabel.h"

#include <QLabel>

class QAction;

/// What is in the default drive, and the way to put an image in.
class DriveCard : public Card {
public:
    DriveCard(QAction* insert, QAction* eject);

    /// Null when the machine has no drive. `kind` is the caption of the medium's kind, empty when it is unknown.
    void show(Drive* drive, const QString& kind);

private:
    IconLabel* m_sign;
    QLabel* lblDriveTitle;
    QLabel* lblDriveMedium;
};
