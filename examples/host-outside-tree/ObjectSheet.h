// SPDX-License-Identifier: MIT
#pragma once

#include "Model.h"

#include "wizard/QExportSheetObjectSelection.h"

/// The wizard's first page over this host's model.
class ObjectSheet : public kpBaseExport::QExportSheetObjectSelection
{
    Q_OBJECT

public:
    explicit ObjectSheet(const Model& model);

protected:
    void fillObjectList(const std::set<std::string>& checkedTypes) override;
    void updateObjectTypes() override;

protected Q_SLOTS:
    void matchModelSelection() override;

private:
    const Model& m_horizons;
};
