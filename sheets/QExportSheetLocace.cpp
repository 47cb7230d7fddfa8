// SPDX-License-Identifier: MIT
#include "sheets/QExportSheetLocace.h"

#include "ui_QExportSheetLocace.h"

#include <QCoreApplication>

namespace kpBaseExport
{

QExportSheetLocace::QExportSheetLocace()
    : QWidget(nullptr)
    , QExportAbstractOptionSheet(nullptr)
    , m_ui(std::make_unique<Ui::QExportSheetLocace>())
{
}

QExportSheetLocace::~QExportSheetLocace() = default;

void QExportSheetLocace::initialize(const QString&)
{
    m_ui->setupUi(this);
    setWindowTitle(QCoreApplication::translate("QExportSheetLocace", "File Export: Locace Options"));
    m_pageWidget = this;
    m_ui->m_units->enableElevationDepth(false);
    m_ui->m_writeSegmentHeadersCheck->setChecked(true);
}

bool QExportSheetLocace::isComplete() const
{
    return true;
}

kpUnits QExportSheetLocace::units() const
{
    return m_ui->m_units->getUnits();
}

bool QExportSheetLocace::writesSegmentHeaders() const
{
    return m_ui->m_writeSegmentHeadersCheck->isChecked();
}

} // namespace kpBaseExport
