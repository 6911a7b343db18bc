#include "harness/Controls.h"

#include "harness/Printed.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDateTimeEdit>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QStyleOptionButton>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTextEdit>
#include <QTreeView>

namespace {
QString textOfKey(int key, Qt::KeyboardModifiers modifiers)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return u"\r"_s;
    case Qt::Key_Tab: return u"\t"_s;
    case Qt::Key_Backspace: return u"\b"_s;
    case Qt::Key_Escape: return u"\x1b"_s;
    case Qt::Key_Delete: return u"\x7f"_s;
    default: break;
    }
    const bool character = key >= 0x20 && key < 0xFFFF && !(modifiers & (Qt::ControlModifier | Qt::AltModifier));
    if (!character) return {};
    return modifiers & Qt::ShiftModifier ? QString(QChar(key)) : QString(QChar(key)).toLower();
}

void press(QWidget& target, int key, const QString& text, Qt::KeyboardModifiers modifiers)
{
    QTest::sendKeyEvent(QTest::Click, &target, Qt::Key(key), text, modifiers, 0);
}

/// Where a click on the widget as a whole has its effect.
QPoint spotOf(QWidget& widget)
{
    if (!qobject_cast<QCheckBox*>(&widget) && !qobject_cast<QRadioButton*>(&widget)) return widget.rect().center();
    QStyleOptionButton option;
    option.initFrom(&widget);
    const bool box = qobject_cast<QCheckBox*>(&widget);
    return widget.style()
        ->subElementRect(box ? QStyle::SE_CheckBoxIndicator : QStyle::SE_RadioButtonIndicator, &option, &widget)
        .center();
}

void clickAt(QWidget& widget, QPoint spot, Qt::MouseButton button, bool twice)
{
    QTest::mouseClick(&widget, button, {}, spot, 0);
    if (twice) QTest::mouseDClick(&widget, button, {}, spot, 0);
}

void selectAll(QWidget& box)
{
    if (auto* line = qobject_cast<QLineEdit*>(&box)) line->selectAll();
    if (auto* plain = qobject_cast<QPlainTextEdit*>(&box)) plain->selectAll();
    if (auto* rich = qobject_cast<QTextEdit*>(&box)) rich->selectAll();
}

bool readOnly(QWidget& box) { return box.property("readOnly").toBool(); }

/// The widget inside of a combo or spin box that takes the keys.
QWidget& editorOf(QWidget& box)
{
    if (auto* combo = qobject_cast<QComboBox*>(&box); combo && combo->lineEdit()) return *combo->lineEdit();
    if (auto* spin = qobject_cast<QAbstractSpinBox*>(&box)) return *spin->findChild<QLineEdit*>();
    return box;
}

QTabBar* tabsOf(QWidget& widget)
{
    if (auto* tabs = qobject_cast<QTabWidget*>(&widget)) return tabs->tabBar();
    return qobject_cast<QTabBar*>(&widget);
}

QString plainText(QString text) { return text.remove(u'&'); }
}

QWidget& Controls::find(const QString& name)
{
    QWidget& window = m_runner.window();
    const QList<QWidget*> found = window.findChildren<QWidget*>(name);
    for (QWidget* widget : found)
        if (widget->isVisible()) return *widget;
    if (!found.isEmpty()) return *found.constFirst();
    QStringList names;
    for (QWidget* widget : window.findChildren<QWidget*>())
        if (!widget->objectName().isEmpty() && !widget->objectName().startsWith(u"qt_")) names << widget->objectName();
    m_runner.abort(u"No control %1 among: %2"_s.arg(name, names.join(u' ')));
}

QWidget& Controls::usable(const QString& name)
{
    QWidget& widget = find(name);
    if (!widget.isVisible()) m_runner.abort(name + u" is hidden."_s);
    if (!widget.isEnabled()) m_runner.abort(name + u" is disabled."_s);
    return widget;
}

QModelIndex Controls::findItem(QAbstractItemView& view, const QString& item)
{
    const QModelIndex index = FindPrinted(view, item);
    if (!index.isValid()) m_runner.abort(u"%1 has no %2 but:\n%3"_s.arg(view.objectName(), item, Printed(view)));
    return index;
}

QModelIndex Controls::showItem(QAbstractItemView& view, const QString& item)
{
    const QModelIndex index = findItem(view, item);
    if (auto* tree = qobject_cast<QTreeView*>(&view))
        for (QModelIndex parent = index.parent(); parent.isValid(); parent = parent.parent()) tree->expand(parent);
    view.scrollTo(index);
    return index;
}

QPoint Controls::middleOf(QAbstractItemView& view, const QModelIndex& index)
{
    const QRect seen = view.visualRect(index).intersected(view.viewport()->rect());
    if (seen.isEmpty())
        m_runner.abort(u"%1 does not show its item %2."_s.arg(view.objectName(), index.data().toString()));
    return seen.center();
}

void Controls::click(const QString& name, const QString& item, Qt::MouseButton button, bool twice)
{
    QWidget& widget = usable(name);
    auto* view = qobject_cast<QAbstractItemView*>(&widget);
    if (view) {
        const QModelIndex index = item.isNull() ? view->currentIndex() : showItem(*view, item);
        // Without an item a click falls beside the rows.
        const QPoint spot = index.isValid() ? middleOf(*view, index) : view->viewport()->rect().bottomRight();
        return clickAt(*view->viewport(), spot, button, twice);
    }
    if (QTabBar* tabs = tabsOf(widget)) return select(name, item.isNull() ? tabs->tabText(tabs->currentIndex()) : item);
    if (auto* labelled = qobject_cast<QLabel*>(&widget)) {
        const auto link = QRegularExpression(u"href=[\"']([^\"']*)"_s).match(labelled->text());
        if (link.hasMatch()) {
            emit labelled->linkActivated(link.captured(1));
            return;
        }
    }
    clickAt(widget, spotOf(widget), button, twice);
}

void Controls::contextMenu(const QString& name, const QString& item)
{
    QWidget& widget = usable(name);
    QWidget* target = &widget;
    QPoint spot = widget.rect().center();
    if (auto* view = qobject_cast<QAbstractItemView*>(&widget)) {
        target = view->viewport();
        spot = item.isNull() ? target->rect().bottomRight() : middleOf(*view, showItem(*view, item));
    }
    QTest::mouseClick(target, Qt::RightButton, {}, spot, 0);
    QContextMenuEvent event(QContextMenuEvent::Mouse, spot, target->mapToGlobal(spot));
    QApplication::sendEvent(target, &event);
}

void Controls::type(const QString& name, const QString& text)
{
    QWidget& widget = usable(name);
    if (auto* date = qobject_cast<QDateTimeEdit*>(&widget)) {
        const QDate day = QDate::fromString(text, date->displayFormat());
        if (!day.isValid()) m_runner.abort(u"%1 takes dates as %2."_s.arg(name, date->displayFormat()));
        return date->setDate(day);
    }
    QWidget& box = editorOf(widget);
    if (readOnly(box)) m_runner.abort(name + u" is read-only."_s);
    clickAt(box, box.rect().center(), Qt::LeftButton, false);
    box.setFocus();
    selectAll(box);
    if (text.isEmpty())
        press(box, Qt::Key_Delete, textOfKey(Qt::Key_Delete, {}), {});
    else
        keys(text);
}

QWidget& Controls::keyboardTarget()
{
    QWidget& window = m_runner.window();
    QWidget* focus = QApplication::focusWidget();
    if (focus && focus->window() == &window) return *focus;
    return window.focusWidget() ? *window.focusWidget() : window;
}

void Controls::key(int key, Qt::KeyboardModifiers modifiers)
{
    press(keyboardTarget(), key, textOfKey(key, modifiers), modifiers);
}

void Controls::keys(const QString& text)
{
    for (const QChar character : text) {
        if (character == u'\n')
            key(Qt::Key_Return, {});
        else if (character == u'\t')
            key(Qt::Key_Tab, {});
        else
            press(keyboardTarget(), character.toUpper().unicode(), character,
                  character.isUpper() ? Qt::ShiftModifier : Qt::NoModifier);
    }
}

void Controls::select(const QString& name, const QString& item)
{
    QWidget& widget = usable(name);
    if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
        const int index = combo->findText(item, Qt::MatchFixedString | Qt::MatchCaseSensitive);
        if (index < 0) m_runner.abort(u"%1 has no %2 but:\n%3"_s.arg(name, item, items(name)));
        combo->setFocus();
        combo->setCurrentIndex(index);
        emit combo->activated(index);
        emit combo->textActivated(item);
    } else if (QTabBar* tabs = tabsOf(widget)) {
        for (int i = 0; i < tabs->count(); ++i) {
            if (plainText(tabs->tabText(i)) != item) continue;
            if (!tabs->isTabEnabled(i)) m_runner.abort(u"The tab %1 is disabled."_s.arg(item));
            return clickAt(*tabs, tabs->tabRect(i).center(), Qt::LeftButton, false);
        }
        m_runner.abort(u"%1 has no tab %2 but: %3"_s.arg(name, item, Printed(widget)));
    } else {
        click(name, item, Qt::LeftButton, false);
    }
}

void Controls::check(const QString& name, const QString& item, bool on)
{
    QWidget& widget = usable(name);
    if (checked(name, item) == on) return;
    if (auto* view = qobject_cast<QAbstractItemView*>(&widget)) {
        view->setFocus();
        view->setCurrentIndex(showItem(*view, item));
        press(*view, Qt::Key_Space, u" "_s, {});
    } else {
        clickAt(widget, spotOf(widget), Qt::LeftButton, false);
    }
    if (checked(name, item) != on) m_runner.abort(u"A click on %1 %2 changes nothing."_s.arg(name, item));
}

void Controls::trigger(const QString& name)
{
    QStringList names;
    for (QAction* action : m_runner.window().findChildren<QAction*>()) {
        if (action->objectName().isEmpty()) continue;
        names << action->objectName();
        if (action->objectName() != name) continue;
        if (!action->isEnabled() || !action->isVisible()) m_runner.abort(name + u" is disabled."_s);
        return action->trigger();
    }
    m_runner.abort(u"No command %1 among: %2"_s.arg(name, names.join(u' ')));
}

void Controls::header(const QString& name, const QString& column)
{
    QHeaderView* header = HeaderOf(usable(name));
    if (!header) m_runner.abort(name + u" has no columns."_s);
    QStringList captions;
    for (int i = 0; i < header->count(); ++i) {
        captions << header->model()->headerData(i, Qt::Horizontal).toString();
        if (captions.constLast() != column) continue;
        const QPoint spot(header->sectionViewportPosition(i) + header->sectionSize(i) / 2, header->height() / 2);
        return clickAt(*header->viewport(), spot, Qt::LeftButton, false);
    }
    m_runner.abort(u"%1 has no column %2 but: %3"_s.arg(name, column, captions.join(u" | ")));
}

QString Controls::shown(const QString& name) { return Printed(find(name)); }

QString Controls::items(const QString& name)
{
    auto* combo = qobject_cast<QComboBox*>(&find(name));
    if (!combo) return shown(name);
    QString result;
    for (int i = 0; i < combo->count(); ++i) result += combo->itemText(i) + u'\n';
    return result;
}

QString Controls::current(const QString& name)
{
    QWidget& widget = find(name);
    if (auto* view = qobject_cast<QAbstractItemView*>(&widget)) return PrintedRow(*view, view->currentIndex());
    if (QTabBar* tabs = tabsOf(widget)) return plainText(tabs->tabText(tabs->currentIndex()));
    return Printed(widget);
}

bool Controls::checked(const QString& name, const QString& item)
{
    QWidget& widget = find(name);
    if (auto* button = qobject_cast<QAbstractButton*>(&widget)) return button->isChecked();
    auto* view = qobject_cast<QAbstractItemView*>(&widget);
    if (!view) m_runner.abort(name + u" cannot be checked."_s);
    return findItem(*view, item).data(Qt::CheckStateRole).toInt() == Qt::Checked;
}
