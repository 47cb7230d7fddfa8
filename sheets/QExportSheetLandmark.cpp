// SPDX-License-Identifier: MIT
#include "sheets/QExportSheetLandmark.h"

#include "ui_QExportSheetLandmark.h"

#include <QCoreApplication>

namespace kpBaseExport
{

QExportSheetLandmark::QExportSheetLandmark()
    : QWidget(nullptr)
    , QExportAbstractOptionSheet(nullptr)
    , m_ui(std::make_unique<Ui::QExportSheetLandmark>())
{
}

QExportSheetLandmark::~QExportSheetLandmark() = default;

void QExportSheetLandmark::initialize(const QString&)
{
    m_ui->setupUi(this);
    setWindowTitle(QCoreApplication::translate("QExportSheetLandmark", "File Export: QExportSheetLandmark Options"));
    m_pageWidget = this;
    m_ui->m_horizonNameCheck->setChecked(true);
}

bool QExportSheetLandmark::isComplete() const
{
    return true;
}

kpUnits QExportSheetLandmark::units() const
{
    return m_ui->m_units->getUnits();
}

bool QExportSheetLandmark::usesHorizonNames() const
{
    return m_ui->m_horizonNameCheck->isChecked();
}

} // namespace kpBaseExport
