#pragma once

#include <QAbstractButton>

/// A word of text that does something when it is clicked, or on Enter and Space with the focus. It is underlined under
/// the mouse.
class LinkButton : public QAbstractButton {
public:
    explicit LinkButton(QWidget* parent = nullptr);

    /// An invalid colour stands for that of the palette's links.
    void setColour(const QColor& colour);

    /// Between the edge and the text, on the left and on the right: room for the sign of the focus.
    static int inset(const QFontMetrics& metrics) { return metrics.height() / 4; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QColor m_colour;
};
