// SPDX-License-Identifier: MIT
#pragma once

#include "Model.h"

#include "wizard/QExportWizard.h"

/// The export wizard of this host.
class HostWizard : public kpBaseExport::QExportWizard
{
    Q_OBJECT

public:
    explicit HostWizard(const Model& model);

    void availableAttributes(QVector<kpBase::UnitRegistry::AttributeInfo>& list, bool all, bool visible) override;

private:
    const Model& m_model;
};
