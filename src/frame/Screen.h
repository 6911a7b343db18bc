#pragma once

#include "frame/Fault.h"
#include "ui/Form.h"

#include <QLineEdit>

/// A form of this program.
class Screen : public Form {
public:
    Screen(Program& program, const QString& screenName, const QString& title)
        : Form(screenName, title), program(program)
    {}

    void ShowModal(QWidget* opener = nullptr) { Form::ShowModal(program.dialogs, opener); }

protected:
    void Guarded(QLatin1StringView place, const std::function<void()>& routine) { ::Guarded(program, place, routine); }
    /// Runs a routine guarded under the screen's own name, as in "frmCataloguePCCD, cmdAdd()".
    void Routine(QLatin1StringView name, const std::function<void()>& body);
    Answer MsgBox(const QString& text, int type = Box::Exclamation) { return program.dialogs.MsgBox(text, type); }
    bool Ask(const QString& text, int type = Box::Question) { return program.dialogs.Ask(text, type); }
    /// A message about what a box holds; the box gets the focus and its whole text selected.
    void refuse(QLineEdit* box, const QString& text, int type = Box::Exclamation);

    Program& program;
};
