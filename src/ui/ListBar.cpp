#include "ui/ListBar.h"

#include "ui/ListBarRows.h"
#include "ui/Theme.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

struct ListBar::Group {
    QString key;
    ListBarCaption* caption;
    QWidget* body;
    QList<ListBarItem*> items;
    QLabel* hint = nullptr;

    bool folded() const { return !caption->isChecked(); }
};

namespace {

QVBoxLayout* closeColumn(QWidget* owner)
{
    auto* column = new QVBoxLayout(owner);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    return column;
}

// A row may be the one whose click is being handled.
void discard(QWidget* row)
{
    row->hide();
    row->setParent(nullptr);
    row->deleteLater();
}

}

ListBar::ListBar(QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    auto* rows = new QWidget;
    m_column = closeColumn(rows);
    m_column->setContentsMargins(0, fontMetrics().height() / 2, 0, 0);
    m_column->addStretch();
    setWidget(rows);
    rows->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
}

ListBar::~ListBar() = default;

QSize ListBar::sizeHint() const
{
    return QSize(widget()->sizeHint().width() + style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this),
                 widget()->sizeHint().height());
}

QSize ListBar::minimumSizeHint() const { return QSize(sizeHint().width(), fontMetrics().height() * 8); }

void ListBar::addGroup(const QString& key, const QString& caption)
{
    if (hasGroup(key)) return;
    QWidget* before = lastRow();
    m_groups.push_back(std::make_unique<Group>(Group{key, new ListBarCaption(caption), new QWidget, {}, nullptr}));
    Group& group = *m_groups.back();
    closeColumn(group.body)->setContentsMargins(0, 0, 0, fontMetrics().height() / 2);
    m_column->insertWidget(m_column->count() - 1, group.caption);
    m_column->insertWidget(m_column->count() - 1, group.body);
    setTabOrder(before, group.caption);
    group.caption->installEventFilter(this);
    connect(group.caption, &QAbstractButton::toggled, group.body, &QWidget::setVisible);
    updateGeometry();
}

/// The last row that stands; without one, what comes before the bar.
QWidget* ListBar::lastRow()
{
    if (!m_groups.empty()) {
        const Group& group = *m_groups.back();
        return group.items.isEmpty() ? static_cast<QWidget*>(group.caption) : group.items.last();
    }
    QWidget* before = previousInFocusChain();
    while (before != this && before->focusPolicy() == Qt::NoFocus) before = before->previousInFocusChain();
    return before;
}

void ListBar::removeGroup(const QString& key)
{
    Group* group = find(key);
    if (!group) return;
    discard(group->caption);
    discard(group->body);
    std::erase_if(m_groups, [&](const auto& each) { return each.get() == group; });
    updateGeometry();
}

bool ListBar::hasGroup(const QString& key) const { return find(key); }
int ListBar::groupCount() const { return static_cast<int>(m_groups.size()); }

void ListBar::addItem(const QString& groupKey, const QString& key, const QString& text, const QIcon& icon)
{
    Group* group = find(groupKey);
    if (!group) return;
    auto* item = new ListBarItem(key, text, icon);
    QWidget* before = group->items.isEmpty() ? static_cast<QWidget*>(group->caption) : group->items.last();
    group->items.append(item);
    if (group->hint) group->hint->hide();
    group->body->layout()->addWidget(item);
    setTabOrder(before, item);
    item->installEventFilter(this);
    connect(item, &QAbstractButton::clicked, this, [this, groupKey, text] { emit itemClicked(groupKey, text); });
    mendTabStop(*group);
    updateGeometry();
}

void ListBar::clearGroup(Group& group)
{
    for (ListBarItem* item : std::exchange(group.items, {})) discard(item);
    if (group.hint) group.hint->show();
    updateGeometry();
}

void ListBar::setItems(const QString& groupKey, const QString& key, const QStringList& texts, const QIcon& icon)
{
    Group* group = find(groupKey);
    if (!group) return;
    const auto held = std::ranges::find(group->items, window()->focusWidget());
    const auto place = held - group->items.begin();
    const bool keyboard = held != group->items.end(), byKeyboard = keyboard && (*held)->byKeyboard();
    clearGroup(*group);
    for (const QString& text : texts) addItem(groupKey, key, text, icon);
    if (!keyboard) return;
    QWidget* now = group->caption;
    if (!group->items.isEmpty()) now = group->items[qMin(place, group->items.size() - 1)];
    now->show(); // a layout shows what is new only later, and what is hidden gets no focus
    now->setFocus(byKeyboard ? Qt::OtherFocusReason : Qt::MouseFocusReason);
}

void ListBar::setHint(const QString& key, const QString& text)
{
    Group* group = find(key);
    if (!group) return;
    delete group->hint;
    group->hint = ListBarHint(text);
    group->hint->setVisible(group->items.isEmpty());
    static_cast<QVBoxLayout*>(group->body->layout())->insertWidget(0, group->hint);
}

QStringList ListBar::items(const QString& key) const
{
    QStringList texts;
    if (const Group* group = find(key))
        for (const ListBarItem* item : group->items) texts.append(item->caption());
    return texts;
}

void ListBar::setItemEnabled(const QString& key, const QString& text, bool enabled)
{
    Group* group = find(key);
    if (!group) return;
    for (ListBarItem* item : std::as_const(group->items))
        if (item->caption() == text) item->setEnabled(enabled);
    mendTabStop(*group);
}

QStringList ListBar::foldedGroups() const
{
    QStringList keys;
    for (const auto& group : m_groups)
        if (group->folded()) keys.append(group->key);
    return keys;
}

void ListBar::setFoldedGroups(const QStringList& keys)
{
    for (const auto& group : m_groups) fold(*group, keys.contains(group->key));
}

bool ListBar::eventFilter(QObject* watched, QEvent* event)
{
    Group* group = groupOf(watched);
    auto* row = qobject_cast<QWidget*>(watched);
    if (!group || !row) return QScrollArea::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress) {
        const auto* pressed = static_cast<QKeyEvent*>(event);
        if (pressed->keyCombination() != (Qt::SHIFT | Qt::Key_F10)) return handleKey(row, pressed->key());
        // As the menu key, for which the system makes this event.
        const QPoint middle = row->rect().center();
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, middle, row->mapToGlobal(middle));
        contextMenuEvent(&asked);
        return true;
    }
    if (event->type() == QEvent::FocusIn) {
        ensureWidgetVisible(row, 0, row->height());
        if (row != group->caption) giveTabStop(*group, row);
    }
    return QScrollArea::eventFilter(watched, event);
}

bool ListBar::handleKey(QWidget* row, int key)
{
    Group& group = *groupOf(row);
    switch (key) {
    case Qt::Key_Up: walk(row, -1); return true;
    case Qt::Key_Down: walk(row, 1); return true;
    case Qt::Key_Home: walk(nullptr, 1); return true;
    case Qt::Key_End: walk(nullptr, -1); return true;
    case Qt::Key_Right: fold(group, false); return true;
    case Qt::Key_Left:
        fold(group, true);
        group.caption->setFocus(Qt::OtherFocusReason);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter: static_cast<QAbstractButton*>(row)->click(); return true;
    default: return false;
    }
}

// From a caption the walk goes into its group; from nothing it starts at an end.
void ListBar::walk(QWidget* from, int direction)
{
    QList<QWidget*> rows;
    for (const auto& group : m_groups) {
        rows.append(group->caption);
        if (!group->folded()) rows.append(QList<QWidget*>(group->items.cbegin(), group->items.cend()));
    }
    const auto size = rows.size();
    auto at = from ? rows.indexOf(from) : direction > 0 ? -1 : size;
    for (at += direction; at >= 0 && at < size; at += direction) {
        QWidget* row = rows.at(at);
        if (row->isEnabled() && dynamic_cast<ListBarItem*>(row)) return row->setFocus(Qt::OtherFocusReason);
    }
}

void ListBar::fold(Group& group, bool folded) { group.caption->setChecked(!folded); }

void ListBar::giveTabStop(Group& group, QWidget* item)
{
    for (ListBarItem* each : std::as_const(group.items))
        each->setFocusPolicy(each == item ? Qt::StrongFocus : Qt::ClickFocus);
}

// Where the keyboard was last, unless nothing can be chosen there.
void ListBar::mendTabStop(Group& group)
{
    const auto able = [&](const QWidget* item) { return item->isEnabledTo(group.body); };
    const bool stands = std::ranges::any_of(
        group.items, [&](const QWidget* item) { return able(item) && item->focusPolicy() == Qt::StrongFocus; });
    const auto first = std::ranges::find_if(group.items, able);
    if (!stands) giveTabStop(group, first == group.items.end() ? nullptr : *first);
}

void ListBar::contextMenuEvent(QContextMenuEvent* event)
{
    QWidget* row = event->reason() == QContextMenuEvent::Keyboard ? focusWidget() : childAt(event->pos());
    QPoint at = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard && groupOf(row)) at = row->mapToGlobal(row->rect().center());
    const Group* group = groupOf(row);
    if (!group) {
        const QPoint inside = widget()->mapFromGlobal(at);
        const auto over = std::find_if(m_groups.cbegin(), m_groups.cend(), [&](const auto& each) {
            return each->body->isVisible() && each->body->geometry().contains(inside);
        });
        if (over != m_groups.cend()) group = over->get();
    }
    const auto* item = dynamic_cast<ListBarItem*>(row);
    emit contextMenu(group ? group->key : QString(), item ? item->caption() : QString(), at);
    event->accept();
}

// A hairline parts the bar from what stands beside it.
void ListBar::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.setPen(Theme::hairline(palette()));
    const int edge = layoutDirection() == Qt::RightToLeft ? 0 : viewport()->width() - 1;
    painter.drawLine(edge, 0, edge, viewport()->height());
}

ListBar::Group* ListBar::find(const QString& key) const
{
    const auto found = std::find_if(m_groups.cbegin(), m_groups.cend(),
                                    [&](const auto& each) { return each->key == key; });
    return found == m_groups.cend() ? nullptr : found->get();
}

ListBar::Group* ListBar::groupOf(const QObject* row) const
{
    const auto found = std::find_if(m_groups.cbegin(), m_groups.cend(), [&](const auto& each) {
        return each->caption == row ||
               std::any_of(each->items.cbegin(), each->items.cend(), [&](auto* item) { return item == row; });
    });
    return !row || found == m_groups.cend() ? nullptr : found->get();
}
