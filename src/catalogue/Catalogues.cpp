#include "catalogue/Catalogues.h"

#include "catalogue/frmAddInCatalogueAudio.h"
#include "catalogue/frmAddInCatalogueDVD.h"
#include "catalogue/frmAddInCataloguePC.h"
#include "catalogue/frmCatalogueAudioCD.h"
#include "catalogue/frmCatalogueDVD.h"
#include "catalogue/frmCataloguePCCD.h"

#include <algorithm>

namespace {
/// The forms of one catalogue.
struct Forms {
    const CatalogueKind& (*kind)();
    std::unique_ptr<frmCatalogue> (*browser)(Program&);
    std::unique_ptr<frmAddInCatalogue> (*editor)(Program&);
};

template<class Base, class Form> std::unique_ptr<Base> make(Program& program)
{
    return std::make_unique<Form>(program);
}

constexpr Forms allForms[] = {
    {Audio, make<frmCatalogue, frmCatalogueAudioCD>, make<frmAddInCatalogue, frmAddInCatalogueAudio>},
    {Computer, make<frmCatalogue, frmCataloguePCCD>, make<frmAddInCatalogue, frmAddInCataloguePC>},
    {Dvd, make<frmCatalogue, frmCatalogueDVD>, make<frmAddInCatalogue, frmAddInCatalogueDVD>},
};

const Forms& formsOf(const CatalogueKind& kind)
{
    return *std::ranges::find_if(allForms, [&](const Forms& forms) { return &forms.kind() == &kind; });
}
}

void OpenCatalogue(Program& program, const CatalogueKind& kind, QWidget* opener, qint64 key)
{
    const auto catalogue = formsOf(kind).browser(program);
    catalogue->PositionOn(key);
    catalogue->ShowModal(opener);
}

std::unique_ptr<frmAddInCatalogue> MakeEditor(Program& program, const CatalogueKind& kind)
{
    return formsOf(kind).editor(program);
}
