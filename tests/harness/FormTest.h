#pragma once

#include "harness/Controls.h"
#include "harness/Print.h"
#include "harness/Script.h"
#include "harness/ScriptedDialogs.h"
#include "ui/Form.h"
#include "ui/Timer.h"

#include <concepts>
#include <gtest/gtest.h>

/// The language of scripts, over forms of any kind; ScreenTest adds a program around it. README.md tells it all.
class FormTest : public testing::Test {
protected:
    using Step = ScriptRunner::Step;

    FormTest() { TestTimers::takeOver(); }
    ~FormTest() override;

    /// Runs a script over what `open` opens.
    template<class Body> void play(const std::function<void()>& open, const Body& body) { runner.play(open, body()); }
    /// Nothing is done to what comes: boxes at most.
    void play(const std::function<void()>& open) { runner.play(open, Script()); }

    // What may come, before the step that brings it.
    void expectBox(const QString& text, int type = Box::Exclamation, Where where = Where::current());
    void expectBox(const QString& text, int type, Answer answer, Where where = Where::current());
    /// The empty answer is Cancel as well.
    void expectInput(const QString& prompt, const QString& title, const QString& answer,
                     Where where = Where::current());
    void expectInputOffering(const QString& offered, const QString& prompt, const QString& title, const QString& answer,
                             Where where = Where::current());
    void expectOpenFile(const QString& title, const QString& answer, Where where = Where::current());
    void expectSaveFile(const QString& title, const QString& answer, Where where = Where::current());
    void expectSaveFileOffering(const QString& offered, const QString& title, const QString& answer,
                                Where where = Where::current());
    void expectPickFolder(const QString& title, const QString& answer, Where where = Where::current());
    void expectForm(const QString& screenName, Where where = Where::current());
    /// `choice` is an action by its text or its name; empty closes the menu.
    void expectPopup(const QString& menuName, const QString& choice, Where where = Where::current());

    // Steps.
    Step click(const QString& name, Where where = Where::current());
    Step click(const QString& name, const QString& item, Where where = Where::current());
    Step doubleClick(const QString& name, Where where = Where::current());
    Step doubleClick(const QString& name, const QString& item, Where where = Where::current());
    Step rightClick(const QString& name, Where where = Where::current());
    Step rightClick(const QString& name, const QString& item, Where where = Where::current());
    Step clickHeader(const QString& name, const QString& column, Where where = Where::current());
    Step type(const QString& name, const QString& text, Where where = Where::current());
    Step key(int key, Qt::KeyboardModifiers modifiers = {}, Where where = Where::current());
    Step keys(const QString& text, Where where = Where::current());
    Step focusOn(const QString& name, Where where = Where::current());
    Step select(const QString& name, const QString& item, Where where = Where::current());
    template<std::same_as<bool> On = bool> // so that no text passes for it
    Step check(const QString& name, On on = true, Where where = Where::current())
    {
        return check(name, QString(), on, where);
    }
    Step check(const QString& name, const QString& item, bool on = true, Where where = Where::current());
    Step trigger(const QString& action, Where where = Where::current());
    Step advance(int milliseconds, Where where = Where::current());
    Step until(std::function<bool()> condition, Where where = Where::current());
    Step closeForm(Where where = Where::current());
    Step picture(const QString& name, Where where = Where::current());
    Step act(std::function<void()> action, Where where = Where::current());

    // What stands in the innermost window.
    QString shown(const QString& name) { return controls.shown(name); }
    QString items(const QString& name) { return controls.items(name); }
    QString current(const QString& name) { return controls.current(name); }
    bool enabled(const QString& name) { return controls.find(name).isEnabled(); }
    bool visible(const QString& name) { return controls.find(name).isVisible(); }
    bool checked(const QString& name) { return controls.checked(name, {}); }
    bool checked(const QString& name, const QString& item) { return controls.checked(name, item); }
    bool commandEnabled(const QString& action);
    QString hint(const QString& name) { return controls.find(name).toolTip(); }
    /// Name of the control that has the keyboard.
    QString focus();
    /// Letters that more than one caption or button of the window answers to with Alt; on tabs out of sight, too.
    QString sharedMnemonics();
    /// Names of the controls that Tab can reach and that have neither an accessible name nor a text of their own; on tabs
    /// out of sight, too.
    QString unnamedStops();
    QString title() { return runner.window().windowTitle(); }
    QString windowName() { return runner.window().objectName(); }
    template<class Widget> Widget& control(const QString& name)
    {
        auto* widget = qobject_cast<Widget*>(&controls.find(name));
        if (!widget) runner.abort(name + u" is a control of another kind."_s);
        return *widget;
    }

    ScriptedDialogs dialogs;
    ScriptRunner runner{dialogs};
    Controls controls{runner};
};
