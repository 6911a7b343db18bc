#pragma once

#include "dao/DBEngine.h"
#include "harness/Script.h"
#include "ui/Dialogs.h"

#include <QList>
#include <deque>
#include <memory>
#include <optional>

/// Boxes, choosers, forms and menus that a test expects, in order. What comes otherwise than expected ends the test with
/// what was shown; what is expected and does not come fails it at its end.
class ScriptedDialogs : public Dialogs {
public:
    enum class Kind { Box, Input, OpenFile, SaveFile, Folder, Form, Popup };
    struct Expectation {
        Kind kind;
        QString title = {}; ///< of a chooser or input box; the screen name of a form, the objectName of a menu
        QString text = {};  ///< of a box, the prompt of an input box
        int type = 0;
        Answer answer = Answer::Ok;
        QString reply = {};                  ///< what is typed or chosen: a text, a path, a menu's action
        std::optional<QString> offered = {}; ///< the text that an input box or a chooser must offer
        std::function<bool(const QString& text)> accepts = {}; ///< in place of an equal text
    };

    void expect(Expectation expectation, Where where);
    /// Whose groups of writes end before anything shows, as in the program.
    void setEngine(DBEngine* engine) { m_engine = engine; }

    Answer MsgBox(const QString& text, int type = Box::Exclamation) override;
    QString InputBox(const QString& prompt, const QString& title, const QString& text = {}) override;
    QString OpenFile(const QString& title, const QString& filter, const QString& folder = {}) override;
    QString SaveFile(const QString& title, const QString& filter, const QString& name = {}) override;
    QString PickFolder(const QString& title, const QString& folder = {}) override;
    void RunModal(Form& form) override;
    void Popup(QMenu& menu, const QPoint& at) override;
    bool modalIsOpen() const override { return !m_forms.isEmpty(); }

    Form* innermost() const { return m_forms.isEmpty() ? nullptr : m_forms.constLast(); }
    int depth() const { return int(m_forms.size()); }
    /// The last filter that a chooser was given.
    const QString& lastFilter() const { return m_lastFilter; }

    // For the runner.
    void setRunner(ScriptRunner* runner) { m_runner = runner; }
    void abandonForms();
    /// What was expected and did not come, one a line; expects nothing any more.
    QString takeMissing();

private:
    /// Held while something is up.
    std::unique_ptr<ModalScope> enter();
    Expectation next(Kind kind, const QString& shown);
    QString choose(Kind kind, const QString& title, const QString& filter, const QString& offered);

    ScriptRunner* m_runner = nullptr;
    std::deque<Expectation> m_expected;
    DBEngine* m_engine = nullptr;
    QList<Form*> m_forms;
    QString m_lastFilter;
};
