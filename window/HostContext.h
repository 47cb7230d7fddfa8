// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "export/ExportFormat.h"
#include "model/Model.h"

#include <functional>
#include <memory>
#include <set>
#include <vector>

namespace kpBaseExport
{
class AbstractSaverFactory;
class QExportAbstractSheetFactory;
} // namespace kpBaseExport

namespace refhost
{

/// What the wizard's pages know of the program: the model, the selection in its views, the formats. Constructing it
/// registers every saver and sheet; it is made once and outlives every wizard.
class HostContext
{
public:
    explicit HostContext(std::vector<std::unique_ptr<ExportFormat>> formats = makeFormats());
    ~HostContext();

    Model model;
    QStringList modelPaths;    ///< the files that the model was loaded from, in order
    std::set<int> selectedIds; ///< objects selected in the program's views

    const std::vector<std::unique_ptr<ExportFormat>>& formats() const { return m_formats; }
    ExportFormat* format(const std::string& key) const;

private:
    std::vector<std::unique_ptr<ExportFormat>> m_formats;
    std::vector<std::unique_ptr<kpBaseExport::AbstractSaverFactory>> m_savers;
    std::vector<std::unique_ptr<kpBaseExport::QExportAbstractSheetFactory>> m_sheets;
};

} // namespace refhost
