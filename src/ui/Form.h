#pragma once

#include "ui/Dialogs.h"
#include "ui/Layout.h"

#include <QDialog>

/// A screen. The order of one opening: constructor, Form_Load (by `Load()`, at the latest by `ShowModal()`), the opener
/// fills controls, Form_Activate once when the window shows and never on the return from a child or a box, Form_Unload
/// once, after the routine that asked for it with `Unload()` has returned to the event loop.
///
/// The window's objectName is the screen's name. Esc unloads. Its size is remembered by nobody; its minimum is what its
/// layout needs.
class Form : public QDialog {
    Q_OBJECT
public:
    Form(const QString& screenName, const QString& title);
    ~Form() override;

    /// Runs Form_Load once; more calls do nothing.
    void Load();
    /// Shows the form and returns when it has unloaded. The `opener`, if given, is hidden meanwhile unless it is
    /// maximised; it comes back with its place, size and focus.
    void ShowModal(Dialogs& dialogs, QWidget* opener = nullptr);
    /// Asks the form to go. Safe from any of its own routines; a second call does nothing.
    void Unload();
    bool unloading() const { return m_unloading; }

    /// Controls are grouped by their dynamic property "Tag".
    static void setTag(std::initializer_list<QWidget*> controls, const QString& tag);
    void setEnabledByTag(QStringView tag, bool enabled);
    void setVisibleByTag(QStringView tag, bool visible);

    void done(int result) override;
    void reject() override;

protected:
    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Unload() {}
    /// The user closes the window by Esc or its frame; false keeps it open. The default lets it go.
    virtual bool Form_QueryUnload() { return true; }

    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    bool m_loaded = false;
    bool m_activated = false;
    bool m_unloading = false;
    bool m_suspended = false;
};
