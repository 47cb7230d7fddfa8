// SPDX-License-Identifier: MIT
#include "sheets/QExportSheetGeoCell.h"

#include "ui_QExportSheetGeoCell.h"
#include "wizard/PlainText.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QSettings>

namespace kpBaseExport
{

QExportSheetGeoCell::QExportSheetGeoCell()
    : m_ui(std::make_unique<Ui::QExportSheetGeoCell>())
{
}

QExportSheetGeoCell::~QExportSheetGeoCell() = default;

void QExportSheetGeoCell::initialize(const QString& key)
{
    m_pageWidget = this;
    m_ui->setupUi(this);
    m_ui->m_multipleGridWarning->hide();
    m_ui->m_noInputGridError->hide();
    m_ui->m_wrongInputGridError->hide();
    addAttributePanel(key);
    setWindowTitle(QCoreApplication::translate("QExportSheetGeoCell", "File Export: GeoCellular Grid Options"));
    description(QCoreApplication::translate("QExportSheetGeoCell", "<b>Note:</b>"));
    connect(m_ui->m_browseButton, &QPushButton::clicked, this, &QExportSheetGeoCell::browse);
    connect(m_ui->m_gridPath, &QLineEdit::editingFinished, this, &QExportSheetGeoCell::checkInputPath);
}

bool QExportSheetGeoCell::isComplete() const
{
    return inputGridFound && gridAccepted;
}

void QExportSheetGeoCell::browse()
{
    const QString key = QStringLiteral("grid_file");
    QSettings settings;
    settings.beginGroup(QStringLiteral("QExportSheetGeoCell"));
    const QString path = QFileDialog::getOpenFileName(
        this, QCoreApplication::translate("QExportSheetGeoCell", "Locate original grid file"),
        settings.value(key).toString(), gridFilter);
    if (path.isEmpty())
        return;
    m_ui->m_gridPath->setText(path);
    checkInputPath();
    settings.setValue(key, path);
    settings.endGroup();
}

void QExportSheetGeoCell::checkInputPath()
{
    QFile file(m_ui->m_gridPath->text());
    inputGridFound = !file.fileName().isEmpty() && file.open(QIODevice::ReadOnly);
    m_ui->m_noInputGridError->setVisible(!inputGridFound);
    followCompleteness();
}

void QExportSheetGeoCell::showGridName(const QString& name)
{
    m_ui->m_gridName->setText(
        plainText(QCoreApplication::translate("QExportSheetGeoCell", "Exporting grid:") + QLatin1Char(' ') + name));
}

void QExportSheetGeoCell::showMultipleGridWarning(bool show)
{
    m_ui->m_multipleGridWarning->setVisible(show);
}

void QExportSheetGeoCell::showWrongInputGridError(bool show)
{
    m_ui->m_wrongInputGridError->setVisible(show);
}

QString QExportSheetGeoCell::inputGridPath() const
{
    return m_ui->m_gridPath->text();
}

} // namespace kpBaseExport
