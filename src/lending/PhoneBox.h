#pragma once

#include <QLineEdit>

class DataControl;
struct Program;

/// A box for a borrower's telephone: who gets there to type need not take "нет" away first, and an empty one says "нет"
/// when it is left.
class PhoneBox : public QLineEdit {
public:
    explicit PhoneBox(QWidget* parent = nullptr);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

/// Writes what the box holds to the current borrower of the rows, and says so. Without a row it does nothing.
void StorePhone(Program& program, DataControl& rows, PhoneBox& box);
