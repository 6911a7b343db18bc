#include "ui/Layout.h"

#include "platform/Literals.h"

#include <QGroupBox>
#include <algorithm>

// Margins and spacing are the style's: it knows a window from a card from a bare panel.

namespace {

bool isNothing(const LayoutItem& item)
{
    if (auto* widget = std::get_if<QWidget*>(&item)) return !*widget;
    if (auto* layout = std::get_if<QLayout*>(&item)) return !*layout;
    return false;
}

void addCell(QGridLayout* grid, const LayoutItem& item, int row, int column, int span)
{
    if (auto* widget = std::get_if<QWidget*>(&item)) {
        grid->addWidget(*widget, row, column, 1, span);
    } else if (auto* layout = std::get_if<QLayout*>(&item)) {
        grid->addLayout(*layout, row, column, 1, span);
    } else {
        grid->addItem(new QSpacerItem(0, 0, QSizePolicy::Expanding), row, column, 1, span);
    }
}

}

QBoxLayout* layout_detail::box(QBoxLayout::Direction direction, std::initializer_list<LayoutItem> items)
{
    auto* box = new QBoxLayout(direction);
    for (const LayoutItem& item : items) {
        if (isNothing(item)) continue;
        if (auto* widget = std::get_if<QWidget*>(&item)) {
            box->addWidget(*widget);
        } else if (auto* layout = std::get_if<QLayout*>(&item)) {
            box->addLayout(*layout);
        } else {
            box->addStretch(std::get<Stretch>(item).factor);
        }
    }
    return box;
}

QGridLayout* grid(std::initializer_list<std::initializer_list<LayoutItem>> rows)
{
    auto* grid = new QGridLayout;
    int columns = 0;
    for (const auto& cells : rows) columns = std::max(columns, static_cast<int>(cells.size()));
    int row = 0;
    for (const auto& cells : rows) {
        int column = 0;
        for (const LayoutItem& item : cells) {
            const bool last = column + 1 == static_cast<int>(cells.size());
            if (!isNothing(item)) addCell(grid, item, row, column, last ? columns - column : 1);
            ++column;
        }
        ++row;
    }
    if (columns > 0) grid->setColumnStretch(columns - 1, 1);
    return grid;
}

QWidget* group(const QString& title, QLayout* contents)
{
    auto* box = new QGroupBox(title);
    box->setLayout(contents);
    return box;
}

QLabel* label(const QString& text, QWidget* buddy)
{
    QLabel* label = ::label(text);
    label->setBuddy(buddy);
    if (qobject_cast<QLabel*>(buddy)) return label; // what it says is what is to be read of it
    QString name = text;
    name.remove(u'&');
    while (name.endsWith(u':') || name.endsWith(u' ')) name.chop(1);
    // The box of a counter gives the keyboard on to the counter.
    for (QWidget* control = buddy; control; control = control->focusProxy()) control->setAccessibleName(name);
    return label;
}

QLabel* label(const QString& text)
{
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QString Wrappable(const QString& text, int longest)
{
    const auto broken = [longest](const QString& word) {
        QString result;
        int run = 0;
        for (const QChar c : word) {
            result += c;
            ++run;
            if (c.isHighSurrogate() || (run < longest && !u"_-.,/\\+"_s.contains(c))) continue;
            result += QChar(0x200B);
            run = 0;
        }
        return result;
    };
    QStringList words = text.split(u' ');
    for (QString& word : words)
        if (word.size() > longest) word = broken(word);
    return words.join(u' ');
}

QWidget* panel(QLayout* contents)
{
    auto* panel = new QWidget;
    panel->setLayout(contents);
    return panel;
}

QWidget* stack(QWidget* one, QWidget* other)
{
    auto* place = new QGridLayout;
    for (QWidget* widget : {one, other}) {
        QSizePolicy policy = widget->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        widget->setSizePolicy(policy);
        place->addWidget(widget, 0, 0);
    }
    other->hide();
    return panel(place);
}
