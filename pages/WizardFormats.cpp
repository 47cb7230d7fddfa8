// SPDX-License-Identifier: MIT
#include "pages/WizardFormats.h"

#include "core/saver/QExportAbstractOptionSheet.h"
#include "pages/FormatSaver.h"
#include "pages/ObjectSelectionSheet.h"
#include "pages/OptionSheets.h"
#include "pages/SheetFactory.h"

namespace kpFormats
{

WizardFormats::WizardFormats(const Model& model, Formats formats, const std::function<std::set<int>()>& selectedIds)
{
    for (auto& format : formats) {
        m_setups.push_back(std::make_unique<FormatSetup>(std::move(format)));
        FormatSetup& setup = *m_setups.back();
        m_savers.push_back(std::make_unique<FormatSaverFactory>(setup, model));
        m_sheets.push_back(std::make_unique<SheetFactory>(setup.format->info().key.toStdString(),
                                                          [&setup, &model] { return makeOptionSheet(setup, model); }));
    }
    m_sheets.push_back(std::make_unique<SheetFactory>("QExportSheetObjectSelectionImpl", [&model, selectedIds] {
        return new ObjectSelectionSheet(model, selectedIds);
    }));
}

WizardFormats::~WizardFormats() = default;

FormatSetup* WizardFormats::find(const std::string& key) const
{
    for (const auto& setup : m_setups) {
        if (setup->format->info().key.toStdString() == key)
            return setup.get();
    }
    return nullptr;
}

} // namespace kpFormats
