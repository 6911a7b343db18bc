#pragma once

#include "ui/Dialogs.h"
#include "ui/Layout.h"

#include <QDialog>
#include <QPointer>

class QEventLoop;

/// A screen. The order of one opening: constructor, Form_Load (by `Load()`, at the latest by `ShowModal()`), the opener
/// fills controls, Form_Activate once when the window has been painted and never on the return from a child or a box,
/// Form_Unload once, after the routine that asked for it with `Unload()` has returned to the form's own event loop: what
/// the routine still has open, a box or a child, closes before. A form is opened once in its life.
///
/// The window's objectName is the screen's name. Esc unloads. Enter clicks the focused button, else the default button if
/// one was made so by `setDefault(true)`; no button becomes the default by itself. Its size is remembered by nobody; its
/// minimum is what its layout needs.
class Form : public QDialog {
    Q_OBJECT
public:
    Form(const QString& screenName, const QString& title);

    /// Runs Form_Load once; more calls do nothing.
    void Load();
    /// Shows the form and returns when it has unloaded. The `opener`, if given, is hidden meanwhile unless it is
    /// maximised; it comes back with its place, size and focus. The form comes up over its opener, else over the window
    /// that is active, and stays in front of it. A form that asked to go while it loaded is never shown.
    void ShowModal(Dialogs& dialogs, QWidget* opener = nullptr);
    /// Asks the form to go. Safe from any of its own routines; a second call does nothing.
    void Unload();
    bool unloading() const { return m_unloading; }
    /// Whether Form_Activate has been reached: the window can be worked with.
    bool activated() const { return m_activated; }

    /// Controls are grouped by their dynamic property "Tag".
    static void setTag(std::initializer_list<QWidget*> controls, const QString& tag);
    void setEnabledByTag(QStringView tag, bool enabled);
    void setVisibleByTag(QStringView tag, bool visible);

    /// The modal loop itself: for implementations of `Dialogs::RunModal`.
    int exec() override;
    /// Ends that loop without Form_Unload: for an end of the process that has to return to its caller, as in a test.
    void Abandon();
    void done(int result) override;
    /// Esc. A screen that it stops first overrides this; closing the window is closing it.
    void reject() override;

protected:
    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Unload() {}
    /// The user closes the window by Esc or its frame; false keeps it open. The default lets it go.
    virtual bool Form_QueryUnload() { return true; }

    /// Gives the frame buttons to minimise and maximise: for browsers, in the constructor.
    void setMaximizable();

    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void activate();
    void comeUp();
    void placeOver(const QWidget& below);
    void stayInFrontOf(const QWidget& below);

    QPointer<QWidget> m_opener;
    QEventLoop* m_loop = nullptr;
    bool m_loaded = false;
    bool m_painted = false;
    bool m_activated = false;
    bool m_unloading = false;
    bool m_abandoned = false;
};
