#include "ui/Form.h"

#include "ui/WindowBelow.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QWindow>

namespace {
/// An opener out of sight for the time of a child. It gets back what a window loses by hiding: its place and its focus.
class HiddenOpener {
public:
    explicit HiddenOpener(QWidget* opener)
    {
        if (!opener || !opener->isVisible() || opener->isMaximized() || opener->isFullScreen()) return;
        m_opener = opener;
        m_focus = opener->focusWidget();
        m_place = opener->geometry();
        opener->hide();
    }

    void comeBack()
    {
        // One that has been asked to go meanwhile only gives way to its own opener.
        auto* form = qobject_cast<Form*>(m_opener);
        if (!m_opener || (form && form->unloading())) return;
        m_opener->setGeometry(m_place); // without it a dialog is centred anew
        m_opener->show();
        m_opener->activateWindow();
        if (m_focus && m_focus->isEnabled()) m_focus->setFocus();
    }

private:
    QPointer<QWidget> m_opener, m_focus;
    QRect m_place;
};

template<class Change> void forTag(const QWidget& form, QStringView tag, Change change)
{
    for (QWidget* control : form.findChildren<QWidget*>())
        if (control->property("Tag").toString() == tag) change(*control);
}
}

Form::Form(const QString& screenName, const QString& title)
{
    setObjectName(screenName);
    setWindowTitle(title);
    setWindowModality(Qt::ApplicationModal);
    // While its opener is hidden a closing form may be the only window; that is not the end of the program.
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void Form::setMaximizable()
{
    setWindowFlag(Qt::WindowMinimizeButtonHint);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
}

void Form::Load()
{
    if (m_loaded) return;
    m_loaded = true;
    Form_Load();
}

void Form::ShowModal(Dialogs& dialogs, QWidget* opener)
{
    Q_ASSERT(!m_loop && !m_activated);
    m_opener = opener ? opener->window() : nullptr;
    Load();
    if (m_unloading)
        Form_Unload();
    else
        dialogs.RunModal(*this);
}

int Form::exec()
{
    QEventLoop loop;
    m_loop = &loop;
    comeUp();
    HiddenOpener opener(m_opener);
    // An exit asked for while a box or a child runs a loop inside of this one takes effect when that has ended and the
    // routine that opened it has returned.
    if (!m_unloading) loop.exec(QEventLoop::DialogExec);
    m_loop = nullptr;
    if (m_abandoned) return 0;
    Form_Unload();
    opener.comeBack();
    hide();
    return 0;
}

void Form::comeUp()
{
    for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
    if (const QWidget* below = m_opener ? m_opener.data() : WindowBelow()) {
        placeOver(*below);
        stayInFrontOf(*below);
    }
    show();
    activateWindow();
    // A window that no one sees, on another desktop or minimised, is never painted and is active all the same.
    QTimer::singleShot(500, this, &Form::activate);
}

void Form::placeOver(const QWidget& below)
{
    ensurePolished();
    if (!testAttribute(Qt::WA_Resized)) adjustSize();
    QRect place = rect();
    place.moveCenter(below.frameGeometry().center());
    const QRect screen = below.screen()->availableGeometry();
    place.moveRight(qMin(place.right(), screen.right()));
    place.moveBottom(qMin(place.bottom(), screen.bottom()));
    place.moveLeft(qMax(place.left(), screen.left()));
    place.moveTop(qMax(place.top(), screen.top()));
    move(place.topLeft());
}

// Of an opener that will be hidden: in front of the window that it stood in front of itself.
void Form::stayInFrontOf(const QWidget& below)
{
    QWindow* window = below.windowHandle();
    const bool hides = &below == m_opener && !below.isMaximized() && !below.isFullScreen();
    if (window && hides) window = window->transientParent();
    winId();
    windowHandle()->setTransientParent(window);
}

void Form::Unload()
{
    if (m_unloading) return;
    m_unloading = true;
    if (m_loop) m_loop->exit();
}

void Form::Abandon()
{
    m_abandoned = true;
    Unload();
    hide();
}

void Form::activate()
{
    if (m_activated || m_unloading || !m_loop) return;
    m_activated = true;
    Form_Activate();
}

bool Form::event(QEvent* event)
{
    const bool result = QDialog::event(event);
    if (event->type() == QEvent::Paint && !m_painted && m_loop) {
        m_painted = true;
        QMetaObject::invokeMethod(this, &Form::activate, Qt::QueuedConnection);
    }
    return result;
}

void Form::closeEvent(QCloseEvent* event)
{
    event->ignore(); // the loop hides the window when its time has come
    Form::reject();  // whatever Esc means to the screen
}

void Form::reject()
{
    if (!m_unloading && Form_QueryUnload()) Unload();
}

void Form::done(int) { Unload(); }

void Form::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    if (enter && button)
        button->click();
    else
        QDialog::keyPressEvent(event);
}

void Form::setTag(std::initializer_list<QWidget*> controls, const QString& tag)
{
    for (QWidget* control : controls) control->setProperty("Tag", tag);
}

void Form::setEnabledByTag(QStringView tag, bool enabled)
{
    forTag(*this, tag, [enabled](QWidget& control) { control.setEnabled(enabled); });
}

void Form::setVisibleByTag(QStringView tag, bool visible)
{
    forTag(*this, tag, [visible](QWidget& control) { control.setVisible(visible); });
}
