#pragma once

#include <QDateEdit>

/// A box for a promised day, which is never before the first one allowed. A digit on the way to a date may make an earlier
/// day for a moment: what is typed is set right when the box is left or Enter is pressed.
class TermBox : public QDateEdit {
public:
    explicit TermBox(QWidget* parent = nullptr);

    /// Sets the date, too.
    void setFirstDay(QDate day);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    /// Tab leaves the box; a point goes on to month or year.
    bool focusNextPrevChild(bool next) override
    {
        // The parent's own goes through the parts of the date. NOLINTNEXTLINE(bugprone-parent-virtual-call)
        return m_inKey ? QDateEdit::focusNextPrevChild(next) : QWidget::focusNextPrevChild(next);
    }

private:
    void bound() { setMinimumDate(m_first); }

    QDate m_first;
    bool m_inKey = false;
    bool m_wentOn = false; ///< the last key filled its part of the date, and the box has gone on to the next one
};
