// SPDX-License-Identifier: MIT
#include "window/HostContext.h"

#include "core/saver/QExportAbstractOptionSheet.h"
#include "core/saver/QExportAbstractSheetFactory.h"
#include "pages/HostSaver.h"
#include "pages/OptionSheets.h"
#include "window/ObjectSelectionSheet.h"

#include <functional>
#include <utility>

namespace refhost
{

namespace
{

/// Makes sheets by calling a function.
class SheetFactory : public kpBaseExport::QExportAbstractSheetFactory
{
public:
    using Make = std::function<kpBaseExport::QExportAbstractSheet*()>;

    SheetFactory(const std::string& key, Make make)
        : QExportAbstractSheetFactory(key, false)
        , m_make(std::move(make))
    {
    }

    boost::shared_ptr<kpBaseExport::QExportAbstractSheet> create_product() override
    {
        return boost::shared_ptr<kpBaseExport::QExportAbstractSheet>(m_make());
    }
    kpBaseExport::QExportAbstractSheet* create_product_unmanaged() override { return m_make(); }

private:
    Make m_make;
};

} // namespace

HostContext::HostContext(std::vector<std::unique_ptr<ExportFormat>> formats)
    : m_formats(std::move(formats))
{
    for (const auto& format : m_formats) {
        ExportFormat* const registered = format.get();
        m_savers.push_back(std::make_unique<HostSaverFactory>(*registered, model));
        m_sheets.push_back(std::make_unique<SheetFactory>(
            registered->info().key.toStdString(), [this, registered] { return makeOptionSheet(*registered, model); }));
    }
    m_sheets.push_back(std::make_unique<SheetFactory>("QExportSheetObjectSelectionImpl",
                                                      [this] { return new ObjectSelectionSheet(*this); }));
}

HostContext::~HostContext() = default;

ExportFormat* HostContext::format(const std::string& key) const
{
    for (const auto& format : m_formats) {
        if (format->info().key.toStdString() == key)
            return format.get();
    }
    return nullptr;
}

} // namespace refhost
