// SPDX-License-Identifier: MIT
#include "core/saver/QExportAbstractSheet.h"

#include "core/saver/SheetHandler.h"

namespace kpBaseExport
{

QExportAbstractSheet::QExportAbstractSheet(QExportWizard* wizard)
    : AbstractSheet(sheetHandler(wizard))
    , m_wizard(wizard)
{
}

QExportAbstractSheet::QExportAbstractSheet(const QExportAbstractSheet&) = default;
QExportAbstractSheet& QExportAbstractSheet::operator=(const QExportAbstractSheet&) = default;
QExportAbstractSheet::~QExportAbstractSheet() = default;

const std::string& QExportAbstractSheet::key() const
{
    return m_key;
}

void QExportAbstractSheet::initialize(const QString&) {}

void QExportAbstractSheet::initialize(QExportWizard* wizard, const QString& text)
{
    m_sheetHandler = sheetHandler(wizard);
    m_wizard = wizard;
    initialize(text);
}

} // namespace kpBaseExport
