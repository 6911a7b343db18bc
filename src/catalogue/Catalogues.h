#pragma once

#include "frame/Program.h"
#include "store/CatalogueKind.h"

#include <QWidget>

class frmAddInCatalogue;

/// Opens a catalogue until it is closed. `key` other than 0 opens it on that disc.
void OpenCatalogue(Program& program, const CatalogueKind& kind, QWidget* opener = nullptr, qint64 key = 0);

/// The editor of a catalogue.
std::unique_ptr<frmAddInCatalogue> MakeEditor(Program& program, const CatalogueKind& kind);
