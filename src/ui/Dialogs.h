#pragma once

#include "platform/Literals.h"

#include <QPoint>
#include <QString>

class Form;
class QMenu;
class QWidget;

/// Message box types. Their numbers are the sums of a set of buttons and an icon, as messages have always been told by.
namespace Box {
inline constexpr int Stop = 16;               ///< stop, OK
inline constexpr int QuestionOkCancel = 33;   ///< question, OK and Cancel
inline constexpr int Question = 36;           ///< question, Yes and No
inline constexpr int QuestionWithCancel = 35; ///< question, Yes, No and Cancel
inline constexpr int Exclamation = 48;        ///< exclamation, OK
inline constexpr int StopOkCancel = 49;       ///< stop, OK and Cancel
inline constexpr int Warning = 52;            ///< exclamation, Yes and No
inline constexpr int Information = 64;        ///< information, OK
inline constexpr int InformationOkCancel = 65;
inline constexpr int Bare = 0; ///< OK alone
/// Added to a type: Enter gives the safe answer. For questions about what cannot be undone.
inline constexpr int SafeDefault = 256;
}

enum class Answer { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// Everything modal passes through here: boxes, choosers, forms and pop-up menus. In the program this is Qt; in a test it
/// is a script of expected interactions. An implementation holds a ModalScope while anything is up, so that no group of
/// writes waits for a person.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// Esc and the close button answer Cancel, else No, else Ok. The safe answer is the default button of a warning.
    virtual Answer MsgBox(const QString& text, int type = Box::Exclamation) = 0;
    /// Empty for Cancel and for an empty answer alike.
    virtual QString InputBox(const QString& prompt, const QString& title, const QString& text = {}) = 0;
    /// Native paths, empty for Cancel. `filter` is "label|patterns|label|patterns", patterns apart by ";".
    virtual QString OpenFile(const QString& title, const QString& filter, const QString& folder = {}) = 0;
    virtual QString SaveFile(const QString& title, const QString& filter, const QString& name = {}) = 0;
    virtual QString PickFolder(const QString& title, const QString& folder = {}) = 0;
    /// Shows the form until it unloads; `Form::ShowModal` is what screens call.
    virtual void RunModal(Form& form) = 0;
    virtual void Popup(QMenu& menu, const QPoint& at) = 0;

    bool Ask(const QString& text, int type = Box::Question) { return MsgBox(text, type) == Answer::Yes; }
    /// True while a box, a chooser or a form is up.
    virtual bool modalIsOpen() const = 0;
};
