#include "ui/PrefixCompletion.h"

#include <QKeyEvent>
#include <algorithm>
#include <utility>

PrefixCompletion::PrefixCompletion(QLineEdit* box, QObject* parent)
    : QObject(parent), m_box(box), m_length(box->text().size())
{
    // The box of a list gets its keys by way of the list.
    for (QWidget* keys = box; keys; keys = keys->focusProxy()) keys->installEventFilter(this);
    // The box tells of a change of its text before it tells of that of its selection.
    QObject::connect(box, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!m_typedOnly) return complete(text);
        m_length = m_box->text().size();
    });
    // This one comes before that, and only for what the user does in the box.
    QObject::connect(box, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (m_typedOnly) complete(text);
    });
    QObject::connect(box, &QLineEdit::selectionChanged, this, [this] { m_selected = m_box->selectedText().size(); });
}

void PrefixCompletion::setItems(const QStringList& items)
{
    m_items = items;
    m_folded.clear();
    m_folded.reserve(items.size());
    for (const QString& item : items) m_folded.append(item.toCaseFolded());
}

void PrefixCompletion::setActive(std::function<bool()> active) { m_active = std::move(active); }

bool PrefixCompletion::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_Backspace && key->key() != Qt::Key_Delete) return false;
    if (m_box->isReadOnly()) return false;
    m_suppressed = true;
    if (key->key() != Qt::Key_Backspace || !m_box->hasSelectedText()) return false;
    const int start = m_box->selectionStart();
    const bool letterToo = m_typedOnly && start == m_tail && start > 0;
    m_box->setSelection(letterToo ? start - 1 : start, static_cast<int>(m_box->text().size()));
    m_box->del();
    return true;
}

void PrefixCompletion::complete(const QString& text)
{
    m_tail = -1;
    // Typing over a selection takes away less than the selection was long.
    const qsizetype taken = std::exchange(m_length, text.size()) - text.size();
    const bool onlyTaken = taken > 0 && taken >= m_selected;
    const bool undone = m_box->isRedoAvailable();
    // The flag lives until the end of one change, whatever that change was.
    if (std::exchange(m_suppressed, false) || onlyTaken || undone) return;
    if (text.isEmpty() || (m_active && !m_active())) return;

    const QString folded = text.toCaseFolded();
    const auto found = std::find_if(m_folded.cbegin(), m_folded.cend(),
                                    [&](const QString& item) { return item.startsWith(folded); });
    if (found == m_folded.cend()) return;
    fill(m_items.at(found - m_folded.cbegin()));
}

void PrefixCompletion::fill(const QString& item)
{
    const int caret = m_box->cursorPosition();

    m_suppressed = true; // filling the box is a change too
    m_box->selectAll();
    m_box->insert(item);
    m_suppressed = false;
    const int length = static_cast<int>(m_box->text().size());
    if (caret >= length) return;
    m_box->setSelection(caret, length - caret);
    m_tail = caret;
}
