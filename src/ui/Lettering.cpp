#include "ui/Lettering.h"

#include "ui/Theme.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>

namespace {

class Dresser : public QObject {
public:
    Dresser(QLabel* label, Lettering role) : QObject(label), m_label(label), m_role(role)
    {
        label->installEventFilter(this);
        dress();
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::ApplicationFontChange || event->type() == QEvent::ApplicationPaletteChange ||
            event->type() == QEvent::StyleChange)
            dress();
        return false;
    }

private:
    void dress()
    {
        const QFont font = QApplication::font(m_label);
        switch (m_role) {
        case Lettering::Title: return m_label->setFont(Theme::title(font));
        case Lettering::Heading: return m_label->setFont(Theme::heading(font));
        case Lettering::Number: return m_label->setFont(Theme::number(font));
        case Lettering::Caption:
            m_label->setFont(Theme::caption(font));
            return colour(Theme::subdued(QApplication::palette()));
        case Lettering::Empty: return colour(Theme::subdued(QApplication::palette()));
        case Lettering::Danger: return colour(Theme::danger(QApplication::palette()));
        }
    }

    // Disabled, it is as grey as any other label.
    void colour(const QColor& colour)
    {
        QPalette palette;
        palette.setColor(QPalette::Active, QPalette::WindowText, colour);
        palette.setColor(QPalette::Inactive, QPalette::WindowText, colour);
        m_label->setPalette(palette);
    }

    QLabel* m_label;
    Lettering m_role;
};

}

QLabel* lettered(QLabel* label, Lettering role)
{
    new Dresser(label, role);
    if (role == Lettering::Empty) {
        label->setAlignment(Qt::AlignCenter);
        label->setWordWrap(true);
    }
    return label;
}
