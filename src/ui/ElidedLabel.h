#pragma once

#include <QLabel>

/// One line of text that never widens its window: what does not fit is cut from the middle and told in the tooltip.
class ElidedLabel : public QLabel {
public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    /// Of the whole text, but of 40 average characters at most.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};
