// SPDX-License-Identifier: MIT
#include "sheets/QExportSheetGeosec.h"

#include "ui_QExportSheetGeosec.h"

#include <QCoreApplication>

namespace kpBaseExport
{

QExportSheetGeosec::QExportSheetGeosec()
    : QWidget(nullptr)
    , QExportAbstractOptionSheet(nullptr)
    , m_ui(std::make_unique<Ui::QExportSheetGeosec>())
{
    setHelpKey(QStringLiteral("KELVO_EXPORT_GEOSEC_FORMAT"));
}

QExportSheetGeosec::~QExportSheetGeosec() = default;

void QExportSheetGeosec::initialize(const QString&)
{
    m_ui->setupUi(this);
    setWindowTitle(QCoreApplication::translate("QExportSheetGeosec", "File Export: Geosec Options"));
    m_pageWidget = this;
    m_ui->m_horizonNameCheck->setChecked(true);
}

bool QExportSheetGeosec::isComplete() const
{
    return true;
}

kpUnits QExportSheetGeosec::units() const
{
    return m_ui->m_units->getUnits();
}

bool QExportSheetGeosec::usesHorizonNames() const
{
    return m_ui->m_horizonNameCheck->isChecked();
}

} // namespace kpBaseExport
