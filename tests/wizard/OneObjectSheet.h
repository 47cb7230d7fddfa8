// SPDX-License-Identifier: MIT
#pragma once

#include "wizard/QExportSheetObjectSelection.h"
#include "wizard/QObjectListModel.h"

/// The page of objects with one object, chosen.
class OneObjectSheet : public kpBaseExport::QExportSheetObjectSelection
{
protected:
    void fillObjectList(const std::set<std::string>&) override
    {
        m_model->addName(QStringLiteral("A"), 1, QStringLiteral("t"), true);
        m_model->resetModel();
    }
    void updateObjectTypes() override {}
    void matchModelSelection() override {}
};
