// SPDX-License-Identifier: MIT
#include "sheets/QExportSheetAsciiFileSelection.h"

#include "ui_QExportSheetAsciiFileSelection.h"

#include <QCoreApplication>

namespace kpBaseExport
{

QExportSheetAsciiFileSelection::QExportSheetAsciiFileSelection()
    : m_ui(std::make_unique<Ui::QExportSheetAsciiFileSelection>())
{
}

QExportSheetAsciiFileSelection::~QExportSheetAsciiFileSelection() = default;

void QExportSheetAsciiFileSelection::initialize(const QString&)
{
    m_ui->setupUi(this);
    setWindowTitle(QCoreApplication::translate("QExportSheetAsciiFileSelection", "File Export: Ascii Options"));
    buildFileGrouping("QExportSheetAsciiFileSelection", m_ui->fileGroup, m_ui->m_fileNameGroup, nullptr,
                      {m_ui->m_writeHeaderCheck, m_ui->m_insertLinebreaksCheck, m_ui->m_exportSectionCoordinatesCheck});
    m_pageWidget = this;
}

void QExportSheetAsciiFileSelection::activate()
{
    m_ui->m_units->gdf_setZDirection(kpUnits::ElevationOrDepth);
    m_ui->m_units->enableElevationDepth(true);
}

bool QExportSheetAsciiFileSelection::isComplete() const
{
    return true;
}

void QExportSheetAsciiFileSelection::startup() {}

kpUnits QExportSheetAsciiFileSelection::units() const
{
    return m_ui->m_units->getUnits();
}

bool QExportSheetAsciiFileSelection::writesHeader() const
{
    return m_ui->m_writeHeaderCheck->isChecked();
}

bool QExportSheetAsciiFileSelection::insertsLineBreaks() const
{
    return m_ui->m_insertLinebreaksCheck->isChecked();
}

bool QExportSheetAsciiFileSelection::usesSectionCoordinates() const
{
    return m_ui->m_exportSectionCoordinatesCheck->isChecked();
}

} // namespace kpBaseExport
