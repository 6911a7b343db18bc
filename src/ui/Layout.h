#pragma once

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QWidget>
#include <array>
#include <utility>
#include <variant>

/// `QLineEdit* txtName = named("txtName");` makes the control under its name.
class Named {
public:
    explicit Named(const char* name) : m_name(name) {}
    template<class W> operator W*() const
    {
        auto* widget = new W;
        widget->setObjectName(QLatin1StringView(m_name));
        return widget;
    }

private:
    const char* m_name;
};
inline Named named(const char* name) { return Named(name); }

/// `std::array<QRadioButton*, 3> optCategory = namedArray("optCategory");`: element i is named optCategory_i.
class NamedArray {
public:
    explicit NamedArray(const char* name) : m_name(name) {}
    template<class W, std::size_t N> operator std::array<W*, N>() const
    {
        std::array<W*, N> widgets;
        for (std::size_t i = 0; i < N; ++i) {
            widgets[i] = new W;
            widgets[i]->setObjectName(QLatin1StringView(m_name) + QLatin1Char('_') + QString::number(i));
        }
        return widgets;
    }

private:
    const char* m_name;
};
inline NamedArray namedArray(const char* name) { return NamedArray(name); }

/// What a row or column is made of: a widget, a layout, or a stretch. Null pointers are passed over.
struct Stretch {
    int factor = 1;
};
inline constexpr Stretch stretch{};
using LayoutItem = std::variant<QWidget*, QLayout*, Stretch>;

namespace layout_detail {
inline LayoutItem item(QWidget* widget) { return widget; }
inline LayoutItem item(QLayout* layout) { return layout; }
inline LayoutItem item(Stretch s) { return s; }
QBoxLayout* box(QBoxLayout::Direction direction, std::initializer_list<LayoutItem> items);
}

template<class... Items> QBoxLayout* row(Items... items)
{
    return layout_detail::box(QBoxLayout::LeftToRight, {layout_detail::item(items)...});
}
template<class... Items> QBoxLayout* column(Items... items)
{
    return layout_detail::box(QBoxLayout::TopToBottom, {layout_detail::item(items)...});
}
/// Rows of equal columns; the last cell of a shorter row spans the rest. Widgets or layouts; null leaves a cell empty.
QGridLayout* grid(std::initializer_list<std::initializer_list<LayoutItem>> rows);
/// A titled frame around a layout.
QWidget* group(const QString& title, QLayout* contents);
/// A caption for `buddy`; its "&" gives the shortcut that focuses the buddy, and its text the buddy's accessible name
/// unless that is a label itself.
QLabel* label(const QString& text, QWidget* buddy);
QLabel* label(const QString& text);
/// The text with places to break in its words of more than `longest` characters, names of files mostly, so that a label
/// may be narrower than they are.
QString Wrappable(const QString& text, int longest = 24);
/// A bare widget around a layout, for tabs and things that hide together.
QWidget* panel(QLayout* contents);
/// Two widgets in one place, one of them shown at a time by its owner.
QWidget* stack(QWidget* one, QWidget* other);
