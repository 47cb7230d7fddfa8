// SPDX-License-Identifier: MIT
#include "sheets/QExportSheetShp.h"

#include "ui_QExportSheetShp.h"

#include <QCoreApplication>

namespace kpBaseExport
{

QExportSheetShp::QExportSheetShp()
    : QWidget(nullptr)
    , QExportAbstractOptionSheet(nullptr)
    , m_ui(std::make_unique<Ui::QExportSheetShp>())
{
}

QExportSheetShp::~QExportSheetShp() = default;

void QExportSheetShp::initialize(const QString&)
{
    m_ui->setupUi(this);
    setWindowTitle(QCoreApplication::translate("QExportSheetShp", "File Export: SHP Options"));
    m_pageWidget = this;
    m_complete = true;
}

void QExportSheetShp::startup() {}
void QExportSheetShp::activate() {}

bool QExportSheetShp::isComplete() const
{
    return m_complete;
}

bool QExportSheetShp::writesAttributes() const
{
    return m_ui->m_exportAttsCheck->isChecked();
}

bool QExportSheetShp::writesSymbology() const
{
    return m_ui->m_exportArcMapLyr->isChecked();
}

} // namespace kpBaseExport
