#pragma once

#include <QPushButton>

/// A button with a picture of the icon set and, mostly, a word. Disabled, its picture is grey.
class ImageButton : public QPushButton {
public:
    explicit ImageButton(QWidget* parent = nullptr);

    /// `text` may be empty for a picture alone and may hold a mnemonic "&". `hint` is the tooltip and, without text, the
    /// accessible name. `shortcut` is named in the tooltip.
    void setup(const QString& icon, const QString& text, const QString& hint, const QKeySequence& shortcut = {});

private:
    QString m_icon;
};
