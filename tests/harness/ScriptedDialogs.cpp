#include "harness/ScriptedDialogs.h"

#include "platform/Literals.h"
#include "ui/Form.h"
#include "ui/NormalPointer.h"

#include <QMenu>

namespace {
QString quoted(QString text)
{
    return u'"' + text.replace(u'\r', u"\\r"_s).replace(u'\n', u"\\n"_s).replace(u'\t', u"\\t"_s) + u'"';
}

QString told(ScriptedDialogs::Kind kind, const QString& title, const QString& text, int type)
{
    using Kind = ScriptedDialogs::Kind;
    switch (kind) {
    case Kind::Box: return u"box %1 of type %2"_s.arg(quoted(text)).arg(type);
    case Kind::Input: return u"input box %1, %2"_s.arg(quoted(title), quoted(text));
    case Kind::OpenFile: return u"file to open, "_s + quoted(title);
    case Kind::SaveFile: return u"file to save, "_s + quoted(title);
    case Kind::Folder: return u"folder, "_s + quoted(title);
    case Kind::Form: return u"form "_s + title;
    case Kind::Popup: return u"menu "_s + title;
    }
    return {};
}

QString told(const ScriptedDialogs::Expectation& expected)
{
    return told(expected.kind, expected.title, expected.text, expected.type);
}
}

void ScriptedDialogs::expect(Expectation expectation, Where where)
{
    if (m_runner) m_runner->where = where;
    m_expected.push_back(std::move(expectation));
}

std::unique_ptr<ModalScope> ScriptedDialogs::enter()
{
    m_runner->stopCallers(); // after the end nothing is shown to anybody
    return m_engine ? std::make_unique<ModalScope>(*m_engine) : nullptr;
}

ScriptedDialogs::Expectation ScriptedDialogs::next(Kind kind, const QString& shown)
{
    if (m_expected.empty()) m_runner->abort(u"Unexpected: "_s + shown);
    Expectation expected = std::move(m_expected.front());
    m_expected.pop_front();
    const bool same = expected.kind == kind && (expected.accepts ? expected.accepts(shown) : told(expected) == shown);
    if (!same) m_runner->abort(u"Shown:    %1\nExpected: %2"_s.arg(shown, told(expected)));
    return expected;
}

Answer ScriptedDialogs::MsgBox(const QString& text, int type)
{
    const auto writes = enter();
    return next(Kind::Box, told(Kind::Box, {}, text, type & ~Box::SafeDefault)).answer;
}

QString ScriptedDialogs::InputBox(const QString& prompt, const QString& title, const QString& text)
{
    const auto writes = enter();
    const Expectation expected = next(Kind::Input, told(Kind::Input, title, prompt, 0));
    if (expected.offered && *expected.offered != text)
        m_runner->abort(u"The input box offers %1, not %2."_s.arg(quoted(text), quoted(*expected.offered)));
    return expected.reply;
}

QString ScriptedDialogs::choose(Kind kind, const QString& title, const QString& filter, const QString& offered)
{
    const auto writes = enter();
    const Expectation expected = next(kind, told(kind, title, {}, 0));
    m_lastFilter = filter;
    if (expected.offered && *expected.offered != offered)
        m_runner->abort(u"The chooser starts from %1, not %2."_s.arg(quoted(offered), quoted(*expected.offered)));
    return expected.reply;
}

QString ScriptedDialogs::OpenFile(const QString& title, const QString& filter, const QString& folder)
{
    return choose(Kind::OpenFile, title, filter, folder);
}

QString ScriptedDialogs::SaveFile(const QString& title, const QString& filter, const QString& name)
{
    return choose(Kind::SaveFile, title, filter, name);
}

QString ScriptedDialogs::PickFolder(const QString& title, const QString& folder)
{
    return choose(Kind::Folder, title, {}, folder);
}

void ScriptedDialogs::RunModal(Form& form)
{
    if (m_runner->inScriptBody()) m_runner->abort(u"A form was opened by the script itself, outside of any step."_s);
    {
        const auto writes = enter();
        // The window under test needs no announcement.
        if (!m_forms.isEmpty() || m_runner->top()) next(Kind::Form, told(Kind::Form, form.objectName(), {}, 0));
        const NormalPointer pointer;
        m_forms.append(&form);
        try {
            form.exec();
        } catch (...) {
            m_forms.removeOne(&form);
            throw;
        }
        m_forms.removeOne(&form);
    }
    m_runner->stopCallers();
}

void ScriptedDialogs::Popup(QMenu& menu, const QPoint&)
{
    const auto writes = enter();
    const Expectation expected = next(Kind::Popup, told(Kind::Popup, menu.objectName(), {}, 0));
    emit menu.aboutToShow();
    if (expected.reply.isEmpty()) return;
    QStringList offered;
    for (QAction* action : menu.actions()) {
        const QString text = action->text().remove(u'&');
        if (!action->isVisible() || action->isSeparator()) continue;
        offered << (action->isEnabled() ? text : text + u" (disabled)"_s);
        if (action->isEnabled() && (text == expected.reply || action->objectName() == expected.reply))
            return action->trigger();
    }
    m_runner->abort(
        u"Menu %1 does not offer %2 but:\n%3"_s.arg(menu.objectName(), expected.reply, offered.join(u'\n')));
}

void ScriptedDialogs::abandonForms()
{
    for (Form* form : QList(m_forms)) form->Abandon();
}

QString ScriptedDialogs::takeMissing()
{
    QStringList missing;
    for (const Expectation& expected : m_expected) missing << told(expected);
    m_expected.clear();
    return missing.join(u'\n');
}
