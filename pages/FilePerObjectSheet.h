// SPDX-License-Identifier: MIT
#pragma once

#include "pages/BoundSheet.h"
#include "wizard/QExportWizard.h"

namespace kpFormats
{

/// The page of a format whose files hold one object each: several objects ask for a directory.
template <typename Sheet>
class FilePerObjectSheet : public BoundSheet<Sheet>
{
public:
    using BoundSheet<Sheet>::BoundSheet;

    void deactivate() override
    {
        BoundSheet<Sheet>::deactivate();
        if (this->m_wizard)
            this->m_wizard->setDirectoryMode(this->m_binding.objects().size() > 1);
    }
};

} // namespace kpFormats
