#pragma once

#include "dao/DBEngine.h"
#include "ui/Dialogs.h"

#include <QMessageBox>
#include <functional>
#include <memory>

/// What a type of message box looks like.
struct BoxLook {
    QMessageBox::Icon icon;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton byDefault; ///< Enter
    QMessageBox::StandardButton escape;    ///< Esc and the close button
};
BoxLook LookOfBox(int type);
/// A message as it is shown: "\r" and "\r\n" are line breaks, a tab is a few blanks, words without end are broken.
QString ReadableMessage(QString text);
/// "label|*.a;*.b|label|*.c" in the form of the file chooser: one "label (*.a *.b)" per pair. "*.*" is every file, with
/// a dot in its name or without.
QStringList NameFilters(const QString& filter);

/// Boxes, choosers, forms and menus in earnest.
class QtDialogs : public Dialogs {
public:
    struct Hooks {
        /// Where the last chooser ended, for the next one that is not told a folder; either may be empty.
        std::function<QString()> lastFolder;
        std::function<void(const QString&)> keepLastFolder;
    };
    QtDialogs(DBEngine& engine, Hooks hooks) : m_engine(engine), m_hooks(std::move(hooks)) {}

    Answer MsgBox(const QString& text, int type = Box::Exclamation) override;
    QString InputBox(const QString& prompt, const QString& title, const QString& text = {}) override;
    QString OpenFile(const QString& title, const QString& filter, const QString& folder = {}) override;
    QString SaveFile(const QString& title, const QString& filter, const QString& name = {}) override;
    QString PickFolder(const QString& title, const QString& folder = {}) override;
    void RunModal(Form& form) override;
    void Popup(QMenu& menu, const QPoint& at) override;
    bool modalIsOpen() const override { return m_depth > 0; }

private:
    class Modal;
    class Chooser;
    class FileRows;
    QString folderFor(const QString& told) const;

    DBEngine& m_engine;
    Hooks m_hooks;
    int m_depth = 0;
};
