// SPDX-License-Identifier: MIT
#include "sheets/QExportSheetOff.h"

#include "ui_QExportSheetOff.h"

#include <QCoreApplication>

namespace kpBaseExport
{

QExportSheetOff::QExportSheetOff()
    : QWidget(nullptr)
    , QExportAbstractOptionSheet(nullptr)
    , m_ui(std::make_unique<Ui::QExportSheetOff>())
{
}

QExportSheetOff::~QExportSheetOff() = default;

void QExportSheetOff::initialize(const QString&)
{
    m_ui->setupUi(this);
    setWindowTitle(QCoreApplication::translate("QExportSheetOff", "File Export: Geomview Off Options"));
    m_pageWidget = this;
}

bool QExportSheetOff::isComplete() const
{
    return true;
}

kpUnits QExportSheetOff::units() const
{
    return m_ui->m_units->getUnits();
}

QString QExportSheetOff::filePrefix() const
{
    return m_ui->m_filePrefix->text();
}

} // namespace kpBaseExport
