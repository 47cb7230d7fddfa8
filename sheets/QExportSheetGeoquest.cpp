// SPDX-License-Identifier: MIT
#include "sheets/QExportSheetGeoquest.h"

#include "ui_QExportSheetGeoquest.h"

#include <QCoreApplication>

namespace kpBaseExport
{

QExportSheetGeoquest::QExportSheetGeoquest()
    : QWidget(nullptr)
    , QExportAbstractOptionSheet(nullptr)
    , m_ui(std::make_unique<Ui::QExportSheetGeoquest>())
{
}

QExportSheetGeoquest::~QExportSheetGeoquest() = default;

void QExportSheetGeoquest::initialize(const QString&)
{
    m_ui->setupUi(this);
    setWindowTitle(QCoreApplication::translate("QExportSheetGeoquest", "File Export: Geoquest Options"));
    m_pageWidget = this;
    m_ui->m_horizonNameCheck->setChecked(true);
}

bool QExportSheetGeoquest::isComplete() const
{
    return true;
}

kpUnits QExportSheetGeoquest::units() const
{
    return m_ui->m_units->getUnits();
}

bool QExportSheetGeoquest::usesHorizonNames() const
{
    return m_ui->m_horizonNameCheck->isChecked();
}

} // namespace kpBaseExport
