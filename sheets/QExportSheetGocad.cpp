// SPDX-License-Identifier: MIT
#include "sheets/QExportSheetGocad.h"

#include "ui_QExportSheetGocad.h"
#include "wizard/QExportAttributeWidget.h"

#include <QCoreApplication>
#include <QVBoxLayout>

namespace kpBaseExport
{

QExportSheetGocad::QExportSheetGocad()
    : m_ui(std::make_unique<Ui::QExportSheetGocad>())
{
}

QExportSheetGocad::~QExportSheetGocad() = default;

void QExportSheetGocad::initialize(const QString& key)
{
    m_ui->setupUi(this);
    setWindowTitle(QCoreApplication::translate("QExportSheetGocad", "File Export: GoCAD Options"));
    m_attributes = new QExportAttributeWidget(m_wizard, this);
    m_attributes->setUnselectableType(QExportAttributeWidget::c_systemTypeText);
    m_attributes->setUnselectableType(QExportAttributeWidget::c_systemTypeColor);
    auto* layout = new QVBoxLayout(m_ui->m_attrFrame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_attributes);
    m_attributes->initialize(key, QExportAttributeWidget::VERTEX_LEVEL);
    auto* lastOfPanel = m_attributes->findChild<QWidget*>(QStringLiteral("m_deselectAllButton"));
    buildFileGrouping("QExportSheetGocad", m_ui->fileGroup, m_ui->m_fileNameGroup, lastOfPanel, {m_ui->m_headerCheck});
    m_pageWidget = this;
}

void QExportSheetGocad::startup()
{
    m_attributes->startup();
}

void QExportSheetGocad::activate()
{
    m_attributes->activate();
}

bool QExportSheetGocad::isComplete() const
{
    return m_attributes->isComplete();
}

bool QExportSheetGocad::writesHeader() const
{
    return !m_ui->m_headerCheck->isChecked();
}

std::vector<std::string> QExportSheetGocad::selectedAttributeNames()
{
    return m_attributes->selectedAttributeNames();
}

} // namespace kpBaseExport
