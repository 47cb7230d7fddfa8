// SPDX-License-Identifier: MIT
#include "sheets/QExportSheetRescue.h"

#include "ui_QExportSheetRescue.h"
#include "wizard/PlainText.h"

#include <QCoreApplication>

namespace kpBaseExport
{

QExportSheetRescue::QExportSheetRescue()
    : m_ui(std::make_unique<Ui::QExportSheetRescue>())
{
}

QExportSheetRescue::~QExportSheetRescue() = default;

void QExportSheetRescue::initialize(const QString& key)
{
    m_pageWidget = this;
    m_ui->setupUi(this);
    m_ui->m_multipleGridWarning->hide();
    addAttributePanel(key);
    setWindowTitle(QCoreApplication::translate("QExportSheetRescue", "File Export: Rescue Options"));
    description(QCoreApplication::translate("QExportSheetRescue", "<b>Note:</b>"));
}

void QExportSheetRescue::deactivate() {}

bool QExportSheetRescue::isComplete() const
{
    return gridAccepted;
}

void QExportSheetRescue::showGridName(const QString& name)
{
    m_ui->m_gridName->setText(
        plainText(QCoreApplication::translate("QExportSheetRescue", "Exporting grid:") + QLatin1Char(' ') + name));
}

void QExportSheetRescue::showMultipleGridWarning(bool show)
{
    m_ui->m_multipleGridWarning->setVisible(show);
}

void QExportSheetRescue::updateNav()
{
    followCompleteness();
}

} // namespace kpBaseExport
