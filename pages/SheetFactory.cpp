// SPDX-License-Identifier: MIT
#include "pages/SheetFactory.h"

#include "core/saver/QExportAbstractSheet.h"

#include <utility>

namespace kpFormats
{

SheetFactory::SheetFactory(const std::string& key, Make make)
    : QExportAbstractSheetFactory(key, false)
    , m_make(std::move(make))
{
}

boost::shared_ptr<kpBaseExport::QExportAbstractSheet> SheetFactory::create_product()
{
    return boost::shared_ptr<kpBaseExport::QExportAbstractSheet>(m_make());
}

kpBaseExport::QExportAbstractSheet* SheetFactory::create_product_unmanaged()
{
    return m_make();
}

} // namespace kpFormats
