// SPDX-License-Identifier: MIT
#include "pages/GrdeclSheet.h"

#include <algorithm>

namespace kpFormats
{

GrdeclSheet::GrdeclSheet(FormatSetup& setup, const Model& model)
    : BoundSheet(setup, model,
                 {{"m_units", "lengthUnit", ControlBinding::LengthUnit},
                  // One grid is one file: nothing to name.
                  {"groupBox", "filePrefix", ControlBinding::ByPage}})
{
}

void GrdeclSheet::initialize(const QString& text)
{
    BoundSheet::initialize(text);
    for (const char* name : {"m_EGRIDFormatCheckBox", "m_GRIDFormatCheckBox", "m_FGRIDFormatCheckBox"}) {
        auto* box = findChild<QWidget*>(QString::fromLatin1(name));
        box->setEnabled(false);
        box->setToolTip(tr("This program writes the GRDECL variant only."));
    }
}

void GrdeclSheet::activate()
{
    BoundSheet::activate();
    const auto grids = std::count_if(m_binding.objects().begin(), m_binding.objects().end(),
                                     [](const ModelObject* object) { return object->cells != nullptr; });
    gridAccepted = grids == 1;
    if (grids == 0)
        showNoGridWarning(true);
    else
        showMultipleGridWarning(!gridAccepted);
}

} // namespace kpFormats
