// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/kpBaseExportExport.h"
#include "host/data/kpAbstractFactory.h"

#include <boost/shared_ptr.hpp>

#include <map>
#include <string>
#include <vector>

namespace kpBaseExport
{

class AbstractSaver;

/// The registry of savers, one per export format, by format key.
/// A concrete factory registers itself when it is constructed and must outlive every lookup.
/// Lookups throw std::runtime_error with a full message when there is nothing to make.
class KPBASEEXPORT_EXPORT AbstractSaverFactory : public kpAbstractFactory
{
public:
    AbstractSaverFactory(const AbstractSaverFactory& other);
    AbstractSaverFactory& operator=(const AbstractSaverFactory& other);

    ~AbstractSaverFactory() override;
    virtual boost::shared_ptr<AbstractSaver> create_product() = 0;
    /// A new saver that the caller owns.
    virtual AbstractSaver* create_product_unmanaged() = 0;

    /// Names of the products in the order of their registration.
    static std::vector<std::string> products();
    static std::vector<std::string>::const_iterator products_begin();
    static std::vector<std::string>::const_iterator products_end();

    /// A new saver by key; the default product when the key is not registered.
    static boost::shared_ptr<AbstractSaver> create(const std::string& key);
    /// The default product; without one, the product with the smallest name.
    static boost::shared_ptr<AbstractSaver> create();
    /// As create(), owned by the caller.
    static AbstractSaver* create_unmanaged(const std::string& key);
    static AbstractSaver* create_unmanaged();

protected:
    /// Registers the new factory under \a name.
    /// \throws std::runtime_error when the name is taken
    AbstractSaverFactory(const std::string& name, bool isDefault);

    static std::map<std::string, AbstractSaverFactory*>& registry();
    static std::vector<std::string>& registry_str();
    static std::string& default_product();
};

} // namespace kpBaseExport
