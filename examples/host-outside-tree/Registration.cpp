// SPDX-License-Identifier: MIT
#include "Registration.h"

#include "HorizonSaver.h"
#include "HorizonSheet.h"
#include "ObjectSheet.h"
#include "PointSaver.h"
#include "PointSheet.h"

#include "core/saver/AbstractSaverFactory.h"
#include "core/saver/QExportAbstractSheetFactory.h"

#include <functional>

namespace
{

/// A registry's factory that makes its product by calling a function.
template <typename Base, typename Product>
class FunctionFactory : public Base
{
public:
    FunctionFactory(const std::string& key, std::function<Product*()> make)
        : Base(key, false)
        , m_make(std::move(make))
    {
    }
    boost::shared_ptr<Product> create_product() override { return boost::shared_ptr<Product>(m_make()); }
    Product* create_product_unmanaged() override { return m_make(); }

private:
    std::function<Product*()> m_make;
};

using SaverFactory = FunctionFactory<kpBaseExport::AbstractSaverFactory, kpBaseExport::AbstractSaver>;
using SheetFactory = FunctionFactory<kpBaseExport::QExportAbstractSheetFactory, kpBaseExport::QExportAbstractSheet>;

} // namespace

Registration::Registration(const Model& model)
{
    // A format's saver and its option page stand under the same key.
    m_savers.push_back(std::make_unique<SaverFactory>("points", [&model] { return new PointSaver(model); }));
    m_sheets.push_back(std::make_unique<SheetFactory>("points", [] { return new PointSheet; }));
    m_savers.push_back(std::make_unique<SaverFactory>("horizons", [&model] { return new HorizonSaver(model); }));
    m_sheets.push_back(std::make_unique<SheetFactory>("horizons", [] { return new HorizonSheet; }));
    // The wizard asks for its first page under this key.
    m_sheets.push_back(
        std::make_unique<SheetFactory>("QExportSheetObjectSelectionImpl", [&model] { return new ObjectSheet(model); }));
}

Registration::~Registration() = default;
