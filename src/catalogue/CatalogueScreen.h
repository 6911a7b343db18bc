#pragma once

#include "frame/Screen.h"
#include "store/CatalogueKind.h"

/// A screen that each catalogue has one of, told apart by `kind`.
class CatalogueScreen : public Screen {
public:
    CatalogueScreen(Program& program, const CatalogueKind& kind, const QString& screenName, const QString& title)
        : Screen(program, screenName, title), kind(kind)
    {}

protected:
    /// Runs a routine guarded under the screen's own name, as in "frmCataloguePCCD, cmdAdd()".
    void Routine(QLatin1StringView name, const std::function<void()>& body)
    {
        const QByteArray place = objectName().toLatin1() + ", " + QByteArray(name.data(), name.size()) + "()";
        Guarded(QLatin1StringView(place), body);
    }

    const CatalogueKind& kind;
};
