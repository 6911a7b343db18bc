#pragma once

#include "ui/ElidedLabel.h"
#include "ui/IconLabel.h"

#include <QLabel>
#include <QStatusBar>

/// The status bar: 1 the mode, 2 its picture, 3 whether a disc is in the drive, 4 date and time.
class StatusPanels : public QStatusBar {
public:
    StatusPanels();

    void setMode(const QString& text) { m_mode->setText(text); }
    /// Empty for none.
    void setModePicture(const QString& icon, const QString& hint);
    void setDiscPicture(const QString& icon, const QString& hint);
    void setClock(const QString& text) { m_clock->setText(text); }

private:
    ElidedLabel* m_mode;
    IconLabel* m_modePicture;
    IconLabel* m_discPicture;
    QLabel* m_clock;
};
