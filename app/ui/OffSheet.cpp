// SPDX-License-Identifier: MIT
#include "app/ui/OffSheet.h"

#include "wizard/QExportWizard.h"

namespace refhost
{

OffSheet::OffSheet(ExportFormat& format, const Model& model)
    : BoundSheet(format, model,
                 {{"m_units", "lengthUnit", ControlBinding::LengthUnit},
                  {"m_units", "zPositive", ControlBinding::Direction},
                  {"m_filePrefix", "filePrefix", ControlBinding::Text}})
{
}

void OffSheet::deactivate()
{
    BoundSheet::deactivate();
    if (m_wizard)
        m_wizard->setDirectoryMode(m_binding.objects().size() > 1);
}

} // namespace refhost
