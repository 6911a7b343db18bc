#include "catalogue/CatalogueScreen.h"

#include "ui/IconLabel.h"
#include "ui/Theme.h"

void CatalogueScreen::Routine(QLatin1StringView name, const std::function<void()>& body)
{
    const QByteArray place = objectName().toLatin1() + ", " + QByteArray(name.data(), name.size()) + "()";
    Guarded(QLatin1StringView(place), body);
}

QWidget* CatalogueScreen::sign() const
{
    auto* sign = new IconLabel;
    sign->setIcon(kind.icon);
    sign->setAccent(kind.accent);
    sign->setScale(2);
    return sign;
}

QBoxLayout* CatalogueScreen::head(QLabel* caption) const
{
    caption->setFont(Theme::heading(font()));
    return row(sign(), caption, stretch);
}
