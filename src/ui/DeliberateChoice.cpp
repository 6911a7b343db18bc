#include "ui/DeliberateChoice.h"

#include <QComboBox>
#include <QKeyEvent>

namespace {
class Filter : public QObject {
public:
    explicit Filter(QComboBox* list) : QObject(list), m_list(list) { list->installEventFilter(this); }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Wheel) {
            event->ignore(); // to what it scrolls around the list
            return true;
        }
        if (event->type() != QEvent::KeyPress) return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Up && key != Qt::Key_Down && key != Qt::Key_PageUp && key != Qt::Key_PageDown) return false;
        m_list->showPopup();
        return true;
    }

private:
    QComboBox* m_list;
};
}

void ChooseDeliberately(QComboBox* list) { new Filter(list); }
