// SPDX-License-Identifier: MIT
#include "sheets/QExportSheet3DStress.h"

#include "ui_QExportSheet3DStress.h"

#include <QCoreApplication>

namespace kpBaseExport
{

QExportSheet3DStress::QExportSheet3DStress()
    : m_ui(std::make_unique<Ui::QExportSheet3DStress>())
{
    setHelpKey(QStringLiteral("KELVO_EXPORT_3DSTRESS_FORMAT"));
}

QExportSheet3DStress::~QExportSheet3DStress() = default;

void QExportSheet3DStress::initialize(const QString&)
{
    m_ui->setupUi(this);
    setWindowTitle(QCoreApplication::translate("QExportSheet3DStress", "File Export: 3DStress Options"));
    buildFileGrouping("QExportSheet3DStress", m_ui->fileGroup, m_ui->m_fileNameGroup, nullptr, {});
    m_pageWidget = this;
}

kpUnits QExportSheet3DStress::units() const
{
    return m_ui->m_units->getUnits();
}

} // namespace kpBaseExport
