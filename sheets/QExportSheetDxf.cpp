// SPDX-License-Identifier: MIT
#include "sheets/QExportSheetDxf.h"

#include "ui_QExportSheetDxf.h"

#include <QCoreApplication>

namespace kpBaseExport
{

QExportSheetDxf::QExportSheetDxf()
    : m_ui(std::make_unique<Ui::QExportSheetDxf>())
{
}

QExportSheetDxf::~QExportSheetDxf() = default;

void QExportSheetDxf::initialize(const QString&)
{
    m_ui->setupUi(this);
    setWindowTitle(QCoreApplication::translate("QExportSheetDxf", "File Export: DXF Options"));
    buildFileGrouping("QExportSheetDxf", m_ui->fileGroup, m_ui->m_fileNameGroup, m_ui->m_export2DSectionCheck,
                      {m_ui->m_useSetsAsLayers, m_ui->m_layerSetComboBox, m_ui->m_useObjectTypesAsLayers,
                       m_ui->m_noLayers, m_ui->m_surface3DFaceCheck, m_ui->m_surfacePointsCheck,
                       m_ui->m_surfaceBoundaryCheck});
    connect(m_ui->m_useSetsAsLayers, &QRadioButton::toggled, this, &QExportSheetDxf::onCheckLayerSetType);
    connect(m_ui->m_export2DMapCheck, &QRadioButton::toggled, this, &QExportSheetDxf::onCheck2D);
    connect(m_ui->m_export2DSectionCheck, &QRadioButton::toggled, this, &QExportSheetDxf::onCheck2D);
    m_pageWidget = this;
}

void QExportSheetDxf::activate()
{
    m_ui->m_units->gdf_setZDirection(kpUnits::ElevationOrDepth);
    m_ui->m_units->enableElevationDepth(false);
}

bool QExportSheetDxf::isComplete() const
{
    return true;
}

void QExportSheetDxf::startup() {}

void QExportSheetDxf::setSets(const QStringList& sets)
{
    FileGroupingSheet::setSets(sets);
    m_ui->m_layerSetComboBox->clear();
    m_ui->m_layerSetComboBox->addItems(sets);
}

kpUnits QExportSheetDxf::units() const
{
    return m_ui->m_units->getUnits();
}

QExportSheetDxf::Dimension QExportSheetDxf::dimension() const
{
    if (m_ui->m_export2DMapCheck->isChecked())
        return Dimension::Map;
    return m_ui->m_export2DSectionCheck->isChecked() ? Dimension::Section : Dimension::Space;
}

QExportSheetDxf::Layers QExportSheetDxf::layers() const
{
    if (m_ui->m_useObjectTypesAsLayers->isChecked())
        return Layers::ObjectTypes;
    return m_ui->m_noLayers->isChecked() ? Layers::None : Layers::Sets;
}

QString QExportSheetDxf::layerSetType() const
{
    return m_ui->m_layerSetComboBox->currentText();
}

bool QExportSheetDxf::writesFaces() const
{
    return m_ui->m_surface3DFaceCheck->isChecked();
}

bool QExportSheetDxf::writesPoints() const
{
    return m_ui->m_surfacePointsCheck->isChecked();
}

bool QExportSheetDxf::writesBoundaries() const
{
    return m_ui->m_surfaceBoundaryCheck->isChecked();
}

void QExportSheetDxf::onCheckLayerSetType(bool flag)
{
    m_ui->m_layerSetComboBox->setEnabled(flag);
}

void QExportSheetDxf::onCheck2D(bool flag)
{
    if (!flag)
        return;
    m_ui->m_surfacePointsCheck->setChecked(false);
    m_ui->m_surfaceBoundaryCheck->setChecked(true);
}

} // namespace kpBaseExport
