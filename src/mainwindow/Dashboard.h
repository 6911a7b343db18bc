#pragma once

#include "mainwindow/CatalogueCard.h"
#include "mainwindow/Commands.h"
#include "mainwindow/DriveCard.h"

#include <QGridLayout>
#include <QScrollArea>
#include <QToolButton>

/// The centre of the main window: a card per catalogue, as many beside each other as fit, and the drive's card below.
class Dashboard : public QScrollArea {
    Q_OBJECT
public:
    explicit Dashboard(const Commands& commands);

    const std::array<CatalogueCard*, 3>& cards() const { return m_cards; }
    DriveCard& drive() { return *m_drive; }
    void showTotal(int discs, int loans);
    /// Of the catalogues of an external database.
    void showExternalTotal(int discs);
    void showPanelLink(bool panelShown);

signals:
    void panelToggled();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    QLayout* header();
    int columnsThatFit() const;
    void arrange(int columns);

    std::array<CatalogueCard*, 3> m_cards;
    DriveCard* m_drive;
    QGridLayout* m_grid;
    QLayout* m_all;
    QLabel* lblTotal;
    QToolButton* imgShowHideoListbar;
    QLabel* lblShowHideoListbar;
    int m_columns = 0;
};
