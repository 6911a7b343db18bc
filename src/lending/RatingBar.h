#pragma once

#include <QProgressBar>

/// A rating on the way from good, on the left, to bad: the way is pale from green to red, in full colour as far as the
/// rating goes, and a knob stands there. Disabled, there is no rating.
class RatingBar : public QProgressBar {
public:
    explicit RatingBar(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};
