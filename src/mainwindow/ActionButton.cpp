#include "mainwindow/ActionButton.h"

#include "platform/Literals.h"

#include <QAction>

ImageButton* MakeActionButton(QAction* action, const QString& icon, const QString& text)
{
    auto* button = new ImageButton;
    button->setObjectName(u"cmd_"_s + action->objectName());
    button->setup(icon, text, action->toolTip());
    button->setEnabled(action->isEnabled());
    QObject::connect(button, &QPushButton::clicked, action, &QAction::trigger);
    QObject::connect(action, &QAction::changed, button, [=] { button->setEnabled(action->isEnabled()); });
    return button;
}
