#include "harness/FormTest.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QTabBar>

using Kind = ScriptedDialogs::Kind;

namespace {
Answer naturalAnswer(int type)
{
    const int buttons = type & 0x0F;
    return buttons == 3 || buttons == 4 ? Answer::Yes : Answer::Ok;
}

QString said(const char* step, const QString& name, const QString& more = {})
{
    return more.isNull() ? u"%1(\"%2\")"_s.arg(QLatin1StringView(step), name)
                         : u"%1(\"%2\", \"%3\")"_s.arg(QLatin1StringView(step), name, more);
}
}

FormTest::~FormTest()
{
    TestTimers::giveBack();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "an hourglass was left behind";
    while (QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
}

void FormTest::expectBox(const QString& text, int type, Where where)
{
    expectBox(text, type, naturalAnswer(type), where);
}

void FormTest::expectBox(const QString& text, int type, Answer answer, Where where)
{
    dialogs.expect({.kind = Kind::Box, .text = text, .type = type, .answer = answer}, where);
}

void FormTest::expectInput(const QString& prompt, const QString& title, const QString& answer, Where where)
{
    dialogs.expect({.kind = Kind::Input, .title = title, .text = prompt, .reply = answer}, where);
}

void FormTest::expectInputOffering(const QString& offered, const QString& prompt, const QString& title,
                                   const QString& answer, Where where)
{
    dialogs.expect({.kind = Kind::Input, .title = title, .text = prompt, .reply = answer, .offered = offered}, where);
}

void FormTest::expectOpenFile(const QString& title, const QString& answer, Where where)
{
    dialogs.expect({.kind = Kind::OpenFile, .title = title, .reply = answer}, where);
}

void FormTest::expectSaveFile(const QString& title, const QString& answer, Where where)
{
    dialogs.expect({.kind = Kind::SaveFile, .title = title, .reply = answer}, where);
}

void FormTest::expectSaveFileOffering(const QString& offered, const QString& title, const QString& answer, Where where)
{
    dialogs.expect({.kind = Kind::SaveFile, .title = title, .reply = answer, .offered = offered}, where);
}

void FormTest::expectPickFolder(const QString& title, const QString& answer, Where where)
{
    dialogs.expect({.kind = Kind::Folder, .title = title, .reply = answer}, where);
}

void FormTest::expectForm(const QString& screenName, Where where)
{
    dialogs.expect({.kind = Kind::Form, .title = screenName}, where);
}

void FormTest::expectPopup(const QString& menuName, const QString& choice, Where where)
{
    dialogs.expect({.kind = Kind::Popup, .title = menuName, .reply = choice}, where);
}

FormTest::Step FormTest::click(const QString& name, Where where)
{
    return runner.step(
        said("click", name), [=, this] { controls.click(name, {}, Qt::LeftButton, false); }, where);
}

FormTest::Step FormTest::click(const QString& name, const QString& item, Where where)
{
    return runner.step(
        said("click", name, item), [=, this] { controls.click(name, item, Qt::LeftButton, false); }, where);
}

FormTest::Step FormTest::doubleClick(const QString& name, Where where)
{
    return runner.step(
        said("doubleClick", name), [=, this] { controls.click(name, {}, Qt::LeftButton, true); }, where);
}

FormTest::Step FormTest::doubleClick(const QString& name, const QString& item, Where where)
{
    return runner.step(
        said("doubleClick", name, item), [=, this] { controls.click(name, item, Qt::LeftButton, true); }, where);
}

FormTest::Step FormTest::rightClick(const QString& name, Where where)
{
    return runner.step(
        said("rightClick", name), [=, this] { controls.contextMenu(name, {}); }, where);
}

FormTest::Step FormTest::rightClick(const QString& name, const QString& item, Where where)
{
    return runner.step(
        said("rightClick", name, item), [=, this] { controls.contextMenu(name, item); }, where);
}

FormTest::Step FormTest::clickHeader(const QString& name, const QString& column, Where where)
{
    return runner.step(
        said("clickHeader", name, column), [=, this] { controls.header(name, column); }, where);
}

FormTest::Step FormTest::type(const QString& name, const QString& text, Where where)
{
    return runner.step(
        said("type", name, text), [=, this] { controls.type(name, text); }, where);
}

FormTest::Step FormTest::key(int key, Qt::KeyboardModifiers modifiers, Where where)
{
    const QString keyName = QKeySequence(key | int(modifiers)).toString(QKeySequence::PortableText);
    return runner.step(
        said("key", keyName), [=, this] { controls.key(key, modifiers); }, where);
}

FormTest::Step FormTest::keys(const QString& text, Where where)
{
    return runner.step(
        said("keys", text), [=, this] { controls.keys(text); }, where);
}

FormTest::Step FormTest::focusOn(const QString& name, Where where)
{
    return runner.step(
        said("focusOn", name), [=, this] { controls.usable(name).setFocus(Qt::TabFocusReason); }, where);
}

FormTest::Step FormTest::select(const QString& name, const QString& item, Where where)
{
    return runner.step(
        said("select", name, item), [=, this] { controls.select(name, item); }, where);
}

FormTest::Step FormTest::check(const QString& name, const QString& item, bool on, Where where)
{
    return runner.step(
        said("check", name, item.isNull() ? QString(on ? u"on"_s : u"off"_s) : item),
        [=, this] { controls.check(name, item, on); }, where);
}

FormTest::Step FormTest::trigger(const QString& action, Where where)
{
    return runner.step(
        said("trigger", action), [=, this] { controls.trigger(action); }, where);
}

FormTest::Step FormTest::advance(int milliseconds, Where where)
{
    return runner.step(
        said("advance", QString::number(milliseconds)), [=] { TestTimers::advance(milliseconds); }, where);
}

FormTest::Step FormTest::until(std::function<bool()> condition, Where where)
{
    return runner.until(std::move(condition), where);
}

FormTest::Step FormTest::closeForm(Where where)
{
    return runner.step(
        u"closeForm()"_s, [this] { runner.window().close(); }, where);
}

FormTest::Step FormTest::picture(const QString& name, Where where)
{
    const auto take = [=, this] {
        const QString folder = qEnvironmentVariable("VINORA_PICTURES");
        if (folder.isEmpty()) return;
        const QString path = QDir(folder).filePath(name + u".png"_s);
        if (!runner.window().grab().save(path)) runner.abort(u"Cannot write "_s + path);
    };
    return runner.step(said("picture", name), take, where);
}

FormTest::Step FormTest::act(std::function<void()> action, Where where)
{
    return runner.step(u"act(…)"_s, std::move(action), where);
}

bool FormTest::commandEnabled(const QString& name)
{
    const QAction* action = runner.window().findChild<QAction*>(name);
    if (!action) runner.abort(u"No command "_s + name);
    return action->isEnabled();
}

QString FormTest::sharedMnemonics()
{
    QStringList captions;
    const QWidget& window = runner.window();
    for (const auto* caption : window.findChildren<QLabel*>())
        if (caption->buddy() && !caption->isHidden()) captions += caption->text();
    for (const auto* button : window.findChildren<QAbstractButton*>())
        if (!button->isHidden()) captions += button->text();
    QString once, shared;
    for (QString caption : captions) {
        const qsizetype sign = caption.remove(u"&&"_s).indexOf(u'&');
        if (sign < 0 || sign + 1 == caption.size()) continue;
        const QChar letter = caption[sign + 1].toUpper();
        (once.contains(letter) ? shared : once) += letter;
    }
    return shared;
}

QString FormTest::unnamedStops()
{
    QStringList unnamed;
    for (const auto* control : runner.window().findChildren<QWidget*>()) {
        const bool inAPopup = control->window() != &runner.window();
        if (inAPopup || control->isHidden() || control->focusProxy() || !(control->focusPolicy() & Qt::TabFocus))
            continue;
        const auto* button = qobject_cast<const QAbstractButton*>(control);
        const bool speaks = (button && !button->text().isEmpty()) || qobject_cast<const QTabBar*>(control);
        if (!speaks && control->accessibleName().isEmpty()) unnamed += control->objectName();
    }
    return unnamed.join(u' ');
}

QString FormTest::focus()
{
    const QWidget* widget = QApplication::focusWidget();
    // The editor inside of a combo or spin box has no name of its own.
    while (widget && (widget->objectName().isEmpty() || widget->objectName().startsWith(u"qt_")))
        widget = widget->parentWidget();
    return widget ? widget->objectName() : QString();
}
