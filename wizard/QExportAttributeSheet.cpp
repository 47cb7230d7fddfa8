// SPDX-License-Identifier: MIT
#include "wizard/QExportAttributeSheet.h"

#include "wizard/QExportAttributeWidget.h"

#include <QCoreApplication>
#include <QVBoxLayout>

namespace kpBaseExport
{

QExportAttributeSheet::QExportAttributeSheet()
    : QWidget(nullptr)
    , QExportAbstractOptionSheet(nullptr)
    , m_panel(new QExportAttributeWidget(m_wizard, this))
{
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_panel);
}

void QExportAttributeSheet::initialize(const QString& key)
{
    m_panel->setWizard(m_wizard);
    setWindowTitle(QCoreApplication::translate("QExportAttributeSheet", "File Export: Attribute Export"));
    m_pageWidget = this;
    m_panel->initialize(key, QExportAttributeWidget::UNSPECIFIED_LEVEL);
}

void QExportAttributeSheet::startup()
{
    m_panel->startup();
}

void QExportAttributeSheet::activate()
{
    m_panel->activate();
}

bool QExportAttributeSheet::isComplete() const
{
    return m_panel->isComplete();
}

void QExportAttributeSheet::setDataInformation()
{
    m_panel->setDataInformation();
}

std::vector<std::string> QExportAttributeSheet::selectedAttributeNames()
{
    return m_panel->selectedAttributeNames();
}

void QExportAttributeSheet::setAllFlag(bool all)
{
    m_panel->setAllFlag(all);
}

void QExportAttributeSheet::setVisibleFlag(bool visible)
{
    m_panel->setVisibleFlag(visible);
}

} // namespace kpBaseExport
