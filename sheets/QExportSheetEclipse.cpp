// SPDX-License-Identifier: MIT
#include "sheets/QExportSheetEclipse.h"

#include "sheets/LiteralTextStyle.h"
#include "ui_QExportSheetEclipse.h"

#include <QCoreApplication>

namespace kpBaseExport
{

QExportSheetEclipse::QExportSheetEclipse()
    : m_ui(std::make_unique<Ui::QExportSheetEclipse>())
{
}

QExportSheetEclipse::~QExportSheetEclipse() = default;

void QExportSheetEclipse::initialize(const QString& key)
{
    m_pageWidget = this;
    m_ui->setupUi(this);
    m_multipleGrids = m_ui->m_multipleGridWarning->text();
    m_ui->m_multipleGridWarning->hide();
    m_ui->m_GRIDFormatCheckBox->setChecked(false);
    m_ui->m_EGRIDFormatCheckBox->setChecked(false);
    m_ui->m_FGRIDFormatCheckBox->setChecked(false);
    m_ui->m_FEGRIDFormatCheckBox->hide();
    m_ui->m_GRDECLFormatCheckBox->setChecked(true);
    // A narrow window breaks its lines where it must.
    m_ui->label->setWordWrap(true);
    // The "&" of its text is one, no key.
    m_ui->m_GRDECLFormatCheckBox->setShortcut(QKeySequence());
    auto* style = new LiteralTextStyle;
    style->setParent(m_ui->m_GRDECLFormatCheckBox);
    m_ui->m_GRDECLFormatCheckBox->setStyle(style);
    // A layout reserves one line for a text that wraps; these have room for all of theirs.
    QWidget* formats = m_ui->groupBox_2;
    formats->setMinimumHeight(formats->heightForWidth(formats->minimumSizeHint().width()));
    m_ui->m_units->enableElevationDepth(false);
    addAttributePanel(key);
    setWindowTitle(QCoreApplication::translate("QExportSheetEclipse", "File Export: Eclipse Grid Options"));
    description(QCoreApplication::translate("QExportSheetEclipse", "<b>Note:</b>"));
    for (QCheckBox* box : {m_ui->m_GRIDFormatCheckBox, m_ui->m_EGRIDFormatCheckBox, m_ui->m_FGRIDFormatCheckBox})
        connect(box, &QCheckBox::clicked, this, &QExportSheetEclipse::updateNav);
}

void QExportSheetEclipse::deactivate()
{
    if (m_ui->m_GRIDFormatCheckBox->isChecked())
        geometryFormat = "GRID";
    if (m_ui->m_EGRIDFormatCheckBox->isChecked())
        geometryFormat = "EGRID";
    if (m_ui->m_FGRIDFormatCheckBox->isChecked())
        geometryFormat = "FGRID";
    if (m_ui->m_GRDECLFormatCheckBox->isChecked())
        geometryFormat = "GRDECL";
    units = m_ui->m_units->getUnits();
    units.setZDirection(kpUnits::ElevationOrDepth);
}

bool QExportSheetEclipse::isComplete() const
{
    return gridAccepted
           && (m_ui->m_GRIDFormatCheckBox->isChecked() || m_ui->m_FGRIDFormatCheckBox->isChecked()
               || m_ui->m_EGRIDFormatCheckBox->isChecked() || m_ui->m_GRDECLFormatCheckBox->isChecked());
}

void QExportSheetEclipse::showMultipleGridWarning(bool show)
{
    m_ui->m_multipleGridWarning->setText(m_multipleGrids);
    m_ui->m_multipleGridWarning->setVisible(show);
}

void QExportSheetEclipse::showNoGridWarning(bool show)
{
    m_ui->m_multipleGridWarning->setText(
        QCoreApplication::translate("QExportSheetEclipse", "<font color=red>WARNING: no grid has been chosen</font>"));
    m_ui->m_multipleGridWarning->setVisible(show);
}

void QExportSheetEclipse::updateNav()
{
    followCompleteness();
}

} // namespace kpBaseExport
