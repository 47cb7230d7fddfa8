// SPDX-License-Identifier: MIT
#include "host/ui/AbstractSheetHandler.h"

#include "host/ui/AbstractSheet.h"

namespace kpBase
{

AbstractSheetHandler::AbstractSheetHandler() = default;
AbstractSheetHandler::~AbstractSheetHandler() = default;

AbstractSheet* AbstractSheetHandler::current_sheet() const
{
    return m_current;
}

void AbstractSheetHandler::activate_next_sheet()
{
    AbstractSheet* sheet = m_current ? m_current->next() : nullptr;
    while (sheet && !sheet->isAvailable())
        sheet = sheet->next();
    if (sheet)
        set_current_sheet(sheet);
}

void AbstractSheetHandler::activate_previous_sheet()
{
    AbstractSheet* sheet = m_current ? m_current->previous() : nullptr;
    while (sheet && !sheet->isAvailable())
        sheet = sheet->previous();
    if (sheet)
        set_current_sheet(sheet);
}

void AbstractSheetHandler::update_navigation() {}
void AbstractSheetHandler::startup() {}
void AbstractSheetHandler::populate_sheets() {}

void AbstractSheetHandler::set_current_sheet(AbstractSheet* sheet)
{
    if (m_current && m_current != sheet)
        m_current->deactivate();
    m_current = sheet;
    if (m_current)
        m_current->activate();
}

} // namespace kpBase
