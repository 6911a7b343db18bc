#pragma once

#include <QLineEdit>

/// A box for a borrower's telephone: who gets there to type need not take "нет" away first, and an empty one says "нет"
/// when it is left.
class PhoneBox : public QLineEdit {
public:
    explicit PhoneBox(QWidget* parent = nullptr);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};
