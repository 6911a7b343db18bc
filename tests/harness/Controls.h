#pragma once

#include "harness/Script.h"

#include <QModelIndex>
#include <Qt>

class QAbstractItemView;

/// The hands and eyes of a script: what a person does to a control and what he reads from it. Controls are those of the
/// innermost window. What cannot be done (no such control, hidden, disabled, no such item) ends the test.
class Controls {
public:
    explicit Controls(ScriptRunner& runner) : m_runner(runner) {}

    QWidget& find(const QString& name);
    /// Must be visible and enabled.
    QWidget& usable(const QString& name);

    void click(const QString& name, const QString& item, Qt::MouseButton button, bool twice);
    void contextMenu(const QString& name, const QString& item);
    void type(const QString& name, const QString& text);
    void key(int key, Qt::KeyboardModifiers modifiers);
    void keys(const QString& text);
    void select(const QString& name, const QString& item);
    void check(const QString& name, const QString& item, bool on);
    void trigger(const QString& action);
    void header(const QString& name, const QString& column);

    QString shown(const QString& name);
    QString items(const QString& name);
    QString current(const QString& name);
    bool checked(const QString& name, const QString& item);

private:
    QWidget& keyboardTarget();
    QModelIndex findItem(QAbstractItemView& view, const QString& item);
    QModelIndex showItem(QAbstractItemView& view, const QString& item);
    QPoint middleOf(QAbstractItemView& view, const QModelIndex& index);

    ScriptRunner& m_runner;
};
