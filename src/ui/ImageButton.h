#pragma once

#include <QPushButton>

class QShortcut;

/// A button with a picture of the icon set and, mostly, a word. Disabled, its picture is grey.
/// Enter presses the button that has the focus; it takes Enter from other controls only when it is the default button.
class ImageButton : public QPushButton {
public:
    explicit ImageButton(QWidget* parent = nullptr);

    /// `icon` may be empty for a word alone, `text` for a picture alone and may hold a mnemonic "&". `hint` is the tooltip
    /// and, without text, the accessible name. `shortcut` is named in the tooltip.
    void setup(const QString& icon, const QString& text, const QString& hint, const QKeySequence& shortcut = {});
    /// Another tooltip, with the shortcut as before.
    void setHint(const QString& hint);
    /// What the tooltip says besides while the button is grey: why, where that is not plain to see.
    void setWhyDisabled(const QString& why);

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void showHint();

    QString m_hint, m_keys, m_whyDisabled;
    QShortcut* m_shortcut = nullptr;
};
