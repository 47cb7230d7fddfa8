// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/QExportAbstractSheetFactory.h"
#include "pages/kpFormatsUiExport.h"

#include <functional>

namespace kpFormats
{

/// Makes the pages of one kind by calling a function. Registers itself; outlives every wizard.
class KPFORMATSUI_EXPORT SheetFactory : public kpBaseExport::QExportAbstractSheetFactory
{
public:
    using Make = std::function<kpBaseExport::QExportAbstractSheet*()>;

    SheetFactory(const std::string& key, Make make);

    boost::shared_ptr<kpBaseExport::QExportAbstractSheet> create_product() override;
    kpBaseExport::QExportAbstractSheet* create_product_unmanaged() override;

private:
    Make m_make;
};

} // namespace kpFormats
