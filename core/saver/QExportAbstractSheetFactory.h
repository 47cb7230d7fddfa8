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

class QExportAbstractSheet;

/// The registry of wizard sheets by sheet key; a format's option sheet stands under the format key.
/// A concrete factory registers itself when it is constructed and must outlive every lookup.
/// Lookups throw std::runtime_error with a full message when there is nothing to make.
class KPBASEEXPORT_EXPORT QExportAbstractSheetFactory : public kpAbstractFactory
{
public:
    QExportAbstractSheetFactory(const QExportAbstractSheetFactory& other);
    QExportAbstractSheetFactory& operator=(const QExportAbstractSheetFactory& other);

    ~QExportAbstractSheetFactory() override;
    virtual boost::shared_ptr<QExportAbstractSheet> create_product() = 0;
    /// A new sheet that the caller owns.
    virtual QExportAbstractSheet* create_product_unmanaged() = 0;

    /// Names of the products in the order of their registration.
    static std::vector<std::string> products();
    static std::vector<std::string>::const_iterator products_begin();
    static std::vector<std::string>::const_iterator products_end();

    /// A new sheet by key; the default product when the key is not registered.
    static boost::shared_ptr<QExportAbstractSheet> create(const std::string& key);
    /// The default product; without one, the product with the smallest name.
    static boost::shared_ptr<QExportAbstractSheet> create();
    /// As create(), owned by the caller.
    static QExportAbstractSheet* create_unmanaged(const std::string& key);
    static QExportAbstractSheet* create_unmanaged();

protected:
    /// Registers the new factory under \a name.
    /// \throws std::runtime_error when the name is taken
    QExportAbstractSheetFactory(const std::string& name, bool isDefault);

    static std::map<std::string, QExportAbstractSheetFactory*>& registry();
    static std::vector<std::string>& registry_str();
    static std::string& default_product();
};

} // namespace kpBaseExport
