// SPDX-License-Identifier: MIT
#include "host/ui/QImportUnitSelector.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>

QImportUnitSelector::QImportUnitSelector(QWidget* parent)
    : QWidget(parent)
    , m_lengthUnit(new QComboBox(this))
    , m_elevation(new QRadioButton(tr("Elevation"), this))
    , m_depth(new QRadioButton(tr("Depth"), this))
{
    m_lengthUnit->setObjectName(QStringLiteral("m_lengthUnit"));
    m_elevation->setObjectName(QStringLiteral("m_elevation"));
    m_depth->setObjectName(QStringLiteral("m_depth"));
    using Unit = kpUnits::LengthUnit;
    m_lengthUnit->addItem(tr("Metres (m)"), static_cast<int>(Unit::Metre));
    m_lengthUnit->addItem(tr("Feet (ft)"), static_cast<int>(Unit::Foot));
    m_lengthUnit->addItem(tr("US survey feet (ftUS)"), static_cast<int>(Unit::UsSurveyFoot));
    m_lengthUnit->addItem(tr("Kilometres (km)"), static_cast<int>(Unit::Kilometre));
    m_elevation->setChecked(true);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(tr("Length unit"), this);
    label->setBuddy(m_lengthUnit);
    layout->addWidget(label);
    layout->addWidget(m_lengthUnit);
    layout->addWidget(m_elevation);
    layout->addWidget(m_depth);
    layout->addStretch();
    connect(m_lengthUnit, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &QImportUnitSelector::unitsChanged);
    connect(m_depth, &QRadioButton::toggled, this, &QImportUnitSelector::unitsChanged);
}

void QImportUnitSelector::gdf_setZDirection(int code)
{
    if (code == kpUnits::Depth)
        m_depth->setChecked(true);
    else if (code != kpUnits::ElevationOrDepth)
        m_elevation->setChecked(true);
}

void QImportUnitSelector::enableElevationDepth(bool enable)
{
    m_elevation->setEnabled(enable);
    m_depth->setEnabled(enable);
}

kpUnits QImportUnitSelector::getUnits() const
{
    kpUnits units;
    units.setLengthUnit(static_cast<kpUnits::LengthUnit>(m_lengthUnit->currentData().toInt()));
    units.setZDirection(m_depth->isChecked() ? kpUnits::Depth : kpUnits::Elevation);
    return units;
}

void QImportUnitSelector::setUnits(const kpUnits& units)
{
    m_lengthUnit->setCurrentIndex(m_lengthUnit->findData(static_cast<int>(units.lengthUnit())));
    gdf_setZDirection(units.zDirection());
}
