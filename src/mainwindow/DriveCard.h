#pragma once

#include "platform/disc/Disc.h"
#include "ui/Card.h"
#include "ui/IconLabel.h"

#include <QBoxLayout>
#include <QLabel>
#include <array>
#include <optional>

class QAction;

/// What the drive card tells of a drive.
struct DriveSight {
    QString root;        ///< "D:\\", empty when the machine has no drive
    QString chosen;      ///< the drive of the settings, which is the one watched; empty when none was ever chosen
    QString description; ///< of the drive
    QString image;       ///< path of the image in a virtual drive
    VolumeProperties volume;
    VolumeSize size;        ///< of that image
    QString kind;           ///< caption of the medium's kind, empty when it is unknown
    bool undecided = false; ///< nobody has ever said whether drives are watched, and they are not

    bool operator==(const DriveSight&) const = default;
};

/// What is in the default drive, and the way to put an image in.
class DriveCard : public Card {
public:
    DriveCard(QAction* insert, QAction* eject);

    void show(const DriveSight& sight);
    /// Of how many columns of the dashboard it stands in one: the buttons go beside the texts, below them, or below one
    /// another as the columns become narrower.
    void arrange(int columns);
    /// The least width of the narrowest card; no text changes it.
    int narrowestWidth() const;

private:
    QWidget* facts();

    std::optional<DriveSight> m_sight;
    IconLabel* m_sign;
    QLabel* lblDriveTitle;
    QLabel* lblDriveMedium;
    QLabel* lblDriveHint;
    std::array<QLabel*, 3> lblDriveFact; ///< file system, identifier, what the drive or image is
    QWidget* m_facts;
    QBoxLayout* m_told;
    QBoxLayout* m_buttons;
    QBoxLayout* m_layout;
};
