#pragma once

#include "catalogue/frmAddInCatalogue.h"

#include <QPlainTextEdit>

/// The editor of computer discs: a long description besides.
class frmAddInCataloguePC : public frmAddInCatalogue {
public:
    explicit frmAddInCataloguePC(Program& program);

    QPlainTextEdit* txtDescription2 = named("txtDescription2");

protected:
    void showExtras(const QHash<QString, Value>& extra) override;
    QHash<QString, Value> extras() const override;
};
