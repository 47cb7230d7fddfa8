// SPDX-License-Identifier: MIT
#include "sheets/GridSheet.h"

#include "host/ui/AbstractSheetHandler.h"
#include "wizard/QExportAttributeWidget.h"

#include <QLayout>

namespace kpBaseExport
{

GridSheet::GridSheet()
    : QWidget(nullptr)
    , QExportAbstractOptionSheet(nullptr)
{
}

GridSheet::~GridSheet() = default;

void GridSheet::addAttributePanel(const QString& key)
{
    m_attributes = new QExportAttributeWidget(m_wizard, this);
    layout()->addWidget(m_attributes);
    m_attributes->setWizard(m_wizard);
    m_attributes->initialize(key, QExportAttributeWidget::UNSPECIFIED_LEVEL);
}

void GridSheet::activate()
{
    m_attributes->activate();
}

std::vector<std::string> GridSheet::selectedAttributeNames()
{
    return m_attributes->selectedAttributeNames();
}

void GridSheet::followCompleteness()
{
    if (kpBase::AbstractSheetHandler* handler = getSheetHandler())
        handler->update_navigation();
}

} // namespace kpBaseExport
