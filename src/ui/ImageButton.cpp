#include "ui/ImageButton.h"

#include "platform/Literals.h"
#include "ui/Icons.h"

#include <QKeyEvent>
#include <QShortcut>

ImageButton::ImageButton(QWidget* parent) : QPushButton(parent) { setAutoDefault(false); }

void ImageButton::setup(const QString& iconName, const QString& text, const QString& hint, const QKeySequence& shortcut)
{
    setIcon(iconName.isEmpty() ? QIcon() : ::icon(iconName));
    setText(text);
    setAccessibleName(text.isEmpty() ? hint : QString());

    // A shortcut of its own, because the button's would displace the mnemonic.
    delete m_shortcut;
    m_shortcut = nullptr;
    m_keys.clear();
    if (!shortcut.isEmpty()) {
        m_shortcut = new QShortcut(shortcut, this, [this] { click(); });
        m_shortcut->setAutoRepeat(false);
        if (const QKeyCombination first = shortcut[0]; first.key() == Qt::Key_Enter) // that of the keypad alone
            m_shortcut->setKeys({shortcut, QKeyCombination(first.keyboardModifiers(), Qt::Key_Return)});
        m_keys = shortcut.toString(QKeySequence::NativeText);
    }
    setHint(hint);
}

void ImageButton::setHint(const QString& hint)
{
    m_hint = m_keys.isEmpty() ? hint : hint.isEmpty() ? m_keys : u"%1 (%2)"_s.arg(hint, m_keys);
    showHint();
}

void ImageButton::setWhyDisabled(const QString& why)
{
    m_whyDisabled = why;
    showHint();
}

void ImageButton::showHint()
{
    const bool explained = !isEnabled() && !m_whyDisabled.isEmpty();
    setToolTip(explained ? m_hint + u'\n' + m_whyDisabled : m_hint);
}

void ImageButton::changeEvent(QEvent* event)
{
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) showHint();
}

void ImageButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
    QPushButton::keyPressEvent(event);
}
