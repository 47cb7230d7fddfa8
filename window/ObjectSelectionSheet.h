// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "wizard/QExportSheetObjectSelection.h"

namespace refhost
{

class HostContext;

/// The first page of the wizard over the program's model.
class ObjectSelectionSheet : public kpBaseExport::QExportSheetObjectSelection
{
    Q_OBJECT

public:
    explicit ObjectSelectionSheet(HostContext& context);

    using QExportSheetObjectSelection::initialize;
    void initialize(const QString& key) override;

protected:
    void fillObjectList(const std::set<std::string>& checkedTypes) override;
    void updateObjectTypes() override;

protected Q_SLOTS:
    void matchModelSelection() override;

private:
    HostContext& m_context;
};

} // namespace refhost
