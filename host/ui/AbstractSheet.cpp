// SPDX-License-Identifier: MIT
#include "host/ui/AbstractSheet.h"

#include <QWidget>

namespace kpBase
{

AbstractSheet::AbstractSheet(AbstractSheetHandler* handler)
    : m_sheetHandler(handler)
{
}

AbstractSheet::AbstractSheet(const AbstractSheet&) = default;
AbstractSheet& AbstractSheet::operator=(const AbstractSheet&) = default;
AbstractSheet::~AbstractSheet() = default;

void AbstractSheet::startup() {}
void AbstractSheet::shutdown() {}
void AbstractSheet::resume() {}
void AbstractSheet::suspend() {}
void AbstractSheet::activate() {}
void AbstractSheet::deactivate() {}
void AbstractSheet::restart() {}
void AbstractSheet::update() {}

bool AbstractSheet::isComplete() const
{
    return true;
}

bool AbstractSheet::isAvailable() const
{
    return true;
}

QString AbstractSheet::title()
{
    return m_pageWidget ? m_pageWidget->windowTitle() : QString();
}

void AbstractSheet::description(const QString& text)
{
    m_description = text;
}

QString AbstractSheet::description() const
{
    return m_description;
}

QString AbstractSheet::helpkey() const
{
    return m_helpKey;
}

void AbstractSheet::setHelpKey(const QString& key)
{
    m_helpKey = key;
}

AbstractSheet* AbstractSheet::next() const
{
    return m_next;
}

AbstractSheet* AbstractSheet::previous() const
{
    return m_previous;
}

void AbstractSheet::next(AbstractSheet* sheet)
{
    m_next = sheet;
}

void AbstractSheet::previous(AbstractSheet* sheet)
{
    m_previous = sheet;
}

AbstractSheetHandler* AbstractSheet::getSheetHandler() const
{
    return m_sheetHandler;
}

QWidget* AbstractSheet::pageWidget() const
{
    return m_pageWidget;
}

} // namespace kpBase
