// SPDX-License-Identifier: MIT
#include "sheets/QExportSheetTab.h"

#include "ui_QExportSheetTab.h"

#include <QCoreApplication>

namespace kpBaseExport
{

QExportSheetTab::QExportSheetTab()
    : QWidget(nullptr)
    , QExportAbstractOptionSheet(nullptr)
    , m_ui(std::make_unique<Ui::QExportSheetTab>())
{
}

QExportSheetTab::~QExportSheetTab() = default;

void QExportSheetTab::initialize(const QString&)
{
    m_ui->setupUi(this);
    setWindowTitle(QCoreApplication::translate("QExportSheetTab", "File Export: MapInfo TAB Options"));
    m_pageWidget = this;
    m_complete = true;
}

void QExportSheetTab::startup() {}
void QExportSheetTab::activate() {}

bool QExportSheetTab::isComplete() const
{
    return m_complete;
}

bool QExportSheetTab::writesAttributes() const
{
    return m_ui->m_exportAttsCheck->isChecked();
}

} // namespace kpBaseExport
