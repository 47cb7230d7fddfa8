// SPDX-License-Identifier: MIT
#include "core/saver/QExportAbstractSheetFactory.h"

#include "core/saver/ProductRegistry.h"
#include "core/saver/QExportAbstractSheet.h"

namespace kpBaseExport
{

namespace
{

constexpr char registryName[] = "QExportAbstractSheetFactory";

/// Made on first use and never destroyed: factories register and are looked up during static initialisation too.
ProductRegistry<QExportAbstractSheetFactory>& products_of_class()
{
    static auto* products = new ProductRegistry<QExportAbstractSheetFactory>;
    return *products;
}

} // namespace

QExportAbstractSheetFactory::QExportAbstractSheetFactory(const std::string& name, bool isDefault)
{
    products_of_class().add(name, this, isDefault, registryName);
}

QExportAbstractSheetFactory::QExportAbstractSheetFactory(const QExportAbstractSheetFactory& other) = default;
QExportAbstractSheetFactory& QExportAbstractSheetFactory::operator=(const QExportAbstractSheetFactory& other) = default;
QExportAbstractSheetFactory::~QExportAbstractSheetFactory() = default;

std::map<std::string, QExportAbstractSheetFactory*>& QExportAbstractSheetFactory::registry()
{
    return products_of_class().factories;
}

std::vector<std::string>& QExportAbstractSheetFactory::registry_str()
{
    return products_of_class().names;
}

std::string& QExportAbstractSheetFactory::default_product()
{
    return products_of_class().defaultName;
}

std::vector<std::string> QExportAbstractSheetFactory::products()
{
    return registry_str();
}

std::vector<std::string>::const_iterator QExportAbstractSheetFactory::products_begin()
{
    return registry_str().cbegin();
}

std::vector<std::string>::const_iterator QExportAbstractSheetFactory::products_end()
{
    return registry_str().cend();
}

boost::shared_ptr<QExportAbstractSheet> QExportAbstractSheetFactory::create(const std::string& key)
{
    return products_of_class().find(key, registryName).create_product();
}

boost::shared_ptr<QExportAbstractSheet> QExportAbstractSheetFactory::create()
{
    return products_of_class().findDefault().create_product();
}

QExportAbstractSheet* QExportAbstractSheetFactory::create_unmanaged(const std::string& key)
{
    return products_of_class().find(key, registryName).create_product_unmanaged();
}

QExportAbstractSheet* QExportAbstractSheetFactory::create_unmanaged()
{
    return products_of_class().findDefault().create_product_unmanaged();
}

} // namespace kpBaseExport
