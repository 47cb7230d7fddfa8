// SPDX-License-Identifier: MIT
#include "sheets/QExportSheetFlexDecomp.h"

#include "ui_QExportSheetFlexDecomp.h"

#include <QCoreApplication>

namespace kpBaseExport
{

QExportSheetFlexDecomp::QExportSheetFlexDecomp()
    : QWidget(nullptr)
    , QExportAbstractOptionSheet(nullptr)
    , m_ui(std::make_unique<Ui::QExportSheetFlexDecomp>())
{
}

QExportSheetFlexDecomp::~QExportSheetFlexDecomp() = default;

void QExportSheetFlexDecomp::initialize(const QString&)
{
    m_ui->setupUi(this);
    setWindowTitle(QCoreApplication::translate("QExportSheetFlexDecomp", "File Export: FlexDecomp Options"));
    m_pageWidget = this;
    setHelpKey(QStringLiteral("KELVO_EXPORT_FLEXDECOMP_FORMAT"));
    m_ui->m_units->enableElevationDepth(false);
    m_ui->m_sampleInterval->setAllowAutoRepeat(true);
    m_ui->m_sampleInterval->setModelRange(0.0, 1000.0);
    m_ui->m_sampleInterval->setSingleStep(10.0);
    m_ui->m_sampleInterval->setModelValue(50.0, false);
}

bool QExportSheetFlexDecomp::isComplete() const
{
    return true;
}

kpUnits QExportSheetFlexDecomp::units() const
{
    return m_ui->m_units->getUnits();
}

bool QExportSheetFlexDecomp::upsamplesHorizons() const
{
    return m_ui->m_bUpSampleObjects->isChecked();
}

double QExportSheetFlexDecomp::sampleInterval() const
{
    return m_ui->m_sampleInterval->value();
}

} // namespace kpBaseExport
