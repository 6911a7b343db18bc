#pragma once

#include "catalogue/frmCatalogue.h"

#include <QPlainTextEdit>

/// The catalogue of computer discs: a long description besides.
class frmCataloguePCCD : public frmCatalogue {
public:
    explicit frmCataloguePCCD(Program& program);

    QPlainTextEdit* txtDescription2 = named("txtDescription2");
};
