// SPDX-License-Identifier: MIT
#include "core/saver/QExportAbstractOptionSheet.h"

#include "core/saver/QExportAbstractSheetFactory.h"

#include <memory>

namespace kpBaseExport
{

namespace
{

/// Null when no such sheet is registered or it cannot be made: a format need not have options.
std::unique_ptr<QExportAbstractSheet> registeredSheet(const std::string& key)
{
    try {
        return std::unique_ptr<QExportAbstractSheet>(QExportAbstractSheetFactory::create_unmanaged(key));
    } catch (...) {
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
    std::unique_ptr<QExportAbstractSheet> sheet = registeredSheet(key);
    auto* option = dynamic_cast<QExportAbstractOptionSheet*>(sheet.get());
    if (!option)
        return nullptr;
    sheet->initialize(wizard, text);
    sheet->m_key = key;
    sheet.release();
    return option;
}

boost::shared_ptr<QExportAbstractOptionSheet>
QExportAbstractOptionSheet::create(const std::string& key, QExportWizard* wizard, const QString& text)
{
    return boost::shared_ptr<QExportAbstractOptionSheet>(create_unmanaged(key, wizard, text));
}

} // namespace kpBaseExport
