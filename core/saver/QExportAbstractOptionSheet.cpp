// SPDX-License-Identifier: MIT
#include "core/saver/QExportAbstractOptionSheet.h"

#include "core/saver/QExportAbstractSheetFactory.h"

#include <stdexcept>

namespace kpBaseExport
{

namespace
{

/// Null when no such sheet is registered: a format need not have options.
QExportAbstractSheet* registeredSheet(const std::string& key)
{
    try {
        return QExportAbstractSheetFactory::create_unmanaged(key);
    } catch (const std::exception&) {
        return nullptr;
    }
}

} // namespace

QExportAbstractOptionSheet::QExportAbstractOptionSheet(QExportWizard* wizard)
    : QExportAbstractSheet(wizard)
{
}

QExportAbstractOptionSheet::QExportAbstractOptionSheet(const QExportAbstractOptionSheet&) = default;
QExportAbstractOptionSheet& QExportAbstractOptionSheet::operator=(const QExportAbstractOptionSheet&) = default;
QExportAbstractOptionSheet::~QExportAbstractOptionSheet() = default;

QExportAbstractOptionSheet* QExportAbstractOptionSheet::create_unmanaged(const std::string& key, QExportWizard* wizard,
                                                                         const QString& text)
{
    QExportAbstractSheet* sheet = registeredSheet(key);
    if (!sheet)
        return nullptr;
    sheet->initialize(wizard, text);
    sheet->m_key = key;
    // What stands under a format key is an option sheet.
    return static_cast<QExportAbstractOptionSheet*>(sheet);
}

boost::shared_ptr<QExportAbstractOptionSheet>
QExportAbstractOptionSheet::create(const std::string& key, QExportWizard* wizard, const QString& text)
{
    return boost::shared_ptr<QExportAbstractOptionSheet>(create_unmanaged(key, wizard, text));
}

} // namespace kpBaseExport
