// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "pages/kpFormatsUiExport.h"
#include "wizard/QExportSheetObjectSelection.h"

#include <functional>
#include <set>

namespace kpFormats
{

/// The first page of the wizard over a model.
class KPFORMATSUI_EXPORT ObjectSelectionSheet : public kpBaseExport::QExportSheetObjectSelection
{
    Q_OBJECT

public:
    /// \a selectedIds tells which objects are selected in the views of the program, which both outlive the page.
    ObjectSelectionSheet(const Model& model, std::function<std::set<int>()> selectedIds);

    using QExportSheetObjectSelection::initialize;
    void initialize(const QString& key) override;
    /// Fills the page that a preset has passed over, with the format and the objects of the preset chosen.
    void takeOver(const std::string& key, const std::vector<int>& ids);

protected:
    void fillObjectList(const std::set<std::string>& checkedTypes) override;
    void updateObjectTypes() override;

protected Q_SLOTS:
    void matchModelSelection() override;

private:
    void check(const std::vector<int>& ids);

    const Model& m_objects;
    std::function<std::set<int>()> m_selectedIds;
};

} // namespace kpFormats
