#pragma once

#include <QAbstractButton>

/// A tile with a large picture on the pale ground of a catalogue's accent; it can be pressed like a button, lights up
/// under the mouse and shows the focus.
class IconTile : public QAbstractButton {
public:
    explicit IconTile(QWidget* parent = nullptr);

    /// `hint` is the tooltip and the accessible name.
    void setup(const QString& iconName, int accent, const QString& hint);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_accent = 0;
};
