#pragma once

#include <QAbstractButton>

/// A tile with a large picture on the pale ground of a catalogue's accent that opens a menu. It lights up under the mouse
/// and shows the focus.
class IconTile : public QAbstractButton {
    Q_OBJECT
public:
    explicit IconTile(QWidget* parent = nullptr);

    /// `hint` is the tooltip and the accessible name.
    void setup(const QString& iconName, int accent, const QString& hint);

    QSize sizeHint() const override;

signals:
    /// Where on the screen: at the mouse that pressed it, or below the tile when a key did.
    void menuWanted(const QPoint& at);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int m_accent = 0;
};
