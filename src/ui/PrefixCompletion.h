#pragma once

#include <QLineEdit>
#include <QStringList>
#include <functional>

/// Completes what is typed in a box from a list: the first item that begins with the text, without regard to case, fills
/// the box and the tail that was not typed is selected. What only takes away (Backspace, Delete, a cut, an undo) completes
/// nothing; Backspace with a selection cuts the text down to what lies before it.
class PrefixCompletion : public QObject {
public:
    PrefixCompletion(QLineEdit* box, QObject* parent);

    /// For the box of a list: what is chosen there or set by a routine is not completed, and Backspace takes the last
    /// typed letter together with the tail that was not typed.
    void setTypedOnly() { m_typedOnly = true; }

    /// In the order in which they are looked through.
    void setItems(const QStringList& items);
    /// While it says false nothing completes: for routines that fill the box.
    void setActive(std::function<bool()> active);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void complete(const QString& text);
    void fill(const QString& item);

    QLineEdit* m_box;
    QStringList m_items, m_folded;
    std::function<bool()> m_active;
    bool m_typedOnly = false;
    bool m_suppressed = false;
    int m_tail = -1;                        ///< where the tail begins that was not typed, until the next change
    qsizetype m_length = 0, m_selected = 0; ///< of the text and of its selection before the next change
};
