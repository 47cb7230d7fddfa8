// SPDX-License-Identifier: MIT
#include "host/ui/QRestrictedImportUnitSelector.h"

#include <QComboBox>

QRestrictedImportUnitSelector::QRestrictedImportUnitSelector(QWidget* parent)
    : QImportUnitSelector(parent)
{
    auto* units = findChild<QComboBox*>(QStringLiteral("m_lengthUnit"));
    for (const kpUnits::LengthUnit unit : {kpUnits::LengthUnit::UsSurveyFoot, kpUnits::LengthUnit::Kilometre})
        units->removeItem(units->findData(static_cast<int>(unit)));
}
