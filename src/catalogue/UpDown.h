#pragma once

#include <QAbstractSpinBox>
#include <QLineEdit>
#include <functional>

/// A text box with two arrows that count its text up and down; the Up and Down keys do the same. The box takes any text
/// that it would take alone, and passes Enter on as its returnPressed().
class UpDown : public QAbstractSpinBox {
public:
    /// The text after one step up (1) or down (-1); the same text at an end.
    using Step = std::function<QString(const QString& text, int direction)>;

    explicit UpDown(QWidget* parent = nullptr);

    /// `columns` is the width of the box in digits.
    void setup(QLineEdit* box, int columns, Step step);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void stepBy(int steps) override;
    StepEnabled stepEnabled() const override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    Step m_step;
    int m_columns = 4;
};

/// Counts a whole number up while it is below `high` and down while it is above `low`, written with at least `digits`
/// digits. A text that is no number counts as 0.
UpDown::Step CountBetween(int low, int high, int digits = 1);

/// Counts a playing time, "mm:ss", up and down as two plain counters of two digits: the seconds run to 99, and only then
/// the minutes follow.
QString CountTime(const QString& text, int direction);
