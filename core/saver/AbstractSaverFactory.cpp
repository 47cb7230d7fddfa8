// SPDX-License-Identifier: MIT
#include "core/saver/AbstractSaverFactory.h"

#include "core/saver/AbstractSaver.h"
#include "core/saver/ProductRegistry.h"

namespace kpBaseExport
{

namespace
{

constexpr char registryName[] = "AbstractSaverFactory";

/// Made on first use and never destroyed: factories register and are looked up during static initialisation too.
ProductRegistry<AbstractSaverFactory>& products_of_class()
{
    static auto* products = new ProductRegistry<AbstractSaverFactory>;
    return *products;
}

} // namespace

AbstractSaverFactory::AbstractSaverFactory(const std::string& name, bool isDefault)
{
    products_of_class().add(name, this, isDefault, registryName);
}

AbstractSaverFactory::AbstractSaverFactory(const AbstractSaverFactory& other) = default;
AbstractSaverFactory& AbstractSaverFactory::operator=(const AbstractSaverFactory& other) = default;
AbstractSaverFactory::~AbstractSaverFactory() = default;

std::map<std::string, AbstractSaverFactory*>& AbstractSaverFactory::registry()
{
    return products_of_class().factories;
}

std::vector<std::string>& AbstractSaverFactory::registry_str()
{
    return products_of_class().names;
}

std::string& AbstractSaverFactory::default_product()
{
    return products_of_class().defaultName;
}

std::vector<std::string> AbstractSaverFactory::products()
{
    return registry_str();
}

std::vector<std::string>::const_iterator AbstractSaverFactory::products_begin()
{
    return registry_str().cbegin();
}

std::vector<std::string>::const_iterator AbstractSaverFactory::products_end()
{
    return registry_str().cend();
}

boost::shared_ptr<AbstractSaver> AbstractSaverFactory::create(const std::string& key)
{
    return products_of_class().find(key, registryName).create_product();
}

boost::shared_ptr<AbstractSaver> AbstractSaverFactory::create()
{
    return products_of_class().findDefault().create_product();
}

AbstractSaver* AbstractSaverFactory::create_unmanaged(const std::string& key)
{
    return products_of_class().find(key, registryName).create_product_unmanaged();
}

AbstractSaver* AbstractSaverFactory::create_unmanaged()
{
    return products_of_class().findDefault().create_product_unmanaged();
}

} // namespace kpBaseExport
