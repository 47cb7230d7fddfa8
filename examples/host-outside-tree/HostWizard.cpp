// SPDX-License-Identifier: MIT
#include "HostWizard.h"

HostWizard::HostWizard(const Model& model)
    : m_model(model)
{
}

void HostWizard::availableAttributes(QVector<kpBase::UnitRegistry::AttributeInfo>& list, bool, bool)
{
    for (const int id : selectedGeoIds()) {
        if (const Horizon* horizon = m_model.find(id))
            list.append({horizon->valueName.toStdString(), "real"});
    }
}
