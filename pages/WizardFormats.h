// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "pages/FormatSetup.h"
#include "pages/kpFormatsUiExport.h"

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace kpBaseExport
{
class AbstractSaverFactory;
class QExportAbstractSheetFactory;
} // namespace kpBaseExport

namespace kpFormats
{

/// Offers formats in every export wizard of a program: registers a saver and an option page for
/// each, and the page on which objects are chosen. A host makes one
/// before its first wizard and keeps it as long as there are wizards.
class KPFORMATSUI_EXPORT WizardFormats
{
public:
    /// \a model holds the objects that can be exported, and outlives this. Formats of the host's own go into the list
    /// beside those of makeFormats(), or in their place.
    /// \a selectedIds tells which objects are selected in the views of the program.
    explicit WizardFormats(
        const Model& model, Formats formats = makeFormats(),
        const std::function<std::set<int>()>& selectedIds = [] { return std::set<int>(); });
    ~WizardFormats();
    WizardFormats(const WizardFormats&) = delete;
    WizardFormats& operator=(const WizardFormats&) = delete;

    const std::vector<std::unique_ptr<FormatSetup>>& setups() const { return m_setups; }
    /// The format with that key and its settings; null when there is none.
    FormatSetup* find(const std::string& key) const;

private:
    std::vector<std::unique_ptr<FormatSetup>> m_setups;
    std::vector<std::unique_ptr<kpBaseExport::AbstractSaverFactory>> m_savers;
    std::vector<std::unique_ptr<kpBaseExport::QExportAbstractSheetFactory>> m_sheets;
};

} // namespace kpFormats
