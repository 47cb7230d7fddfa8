// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace kpBaseExport
{

/// What both registries of factories share: products by name, the names in order of registration, the default product.
/// Entries are never taken out and the factories are not owned.
template <typename Factory>
struct ProductRegistry
{
    std::map<std::string, Factory*> factories;
    std::vector<std::string> names;
    std::string defaultName;

    /// \throws std::runtime_error when the name is taken; the earlier registration stays.
    void add(const std::string& name, Factory* factory, bool isDefault, const char* registryName)
    {
        if (!factories.emplace(name, factory).second) {
            throw std::runtime_error("Two products with name '" + name
                                     + "' are attempting to register with abstract factory '" + registryName
                                     + "'. Please contact Quillmere with a bug-report.");
        }
        names.push_back(name);
        if (isDefault)
            defaultName = name;
    }

    /// The factory registered under \a key, else the default one.
    /// \throws std::runtime_error when there is neither
    Factory& find(const std::string& key, const char* registryName) const
    {
        requireFactories();
        auto found = factories.find(key);
        if (found == factories.end() && !defaultName.empty())
            found = factories.find(defaultName);
        if (found == factories.end()) {
            throw std::runtime_error(std::string("Abstract factory '") + registryName
                                     + "' does not have the required product name '" + key
                                     + "' registered. Please contact Quillmere with a bug-report");
        }
        return *found->second;
    }

    /// The default factory, else the one with the smallest name.
    /// \throws std::runtime_error when there is none
    Factory& findDefault() const
    {
        requireFactories();
        if (defaultName.empty())
            return *factories.begin()->second;
        const auto found = factories.find(defaultName);
        if (found == factories.end())
            throwNoFactories();
        return *found->second;
    }

private:
    void requireFactories() const
    {
        if (factories.empty())
            throwNoFactories();
    }

    [[noreturn]] static void throwNoFactories()
    {
        throw std::runtime_error("Abstract factory has no registered concrete factory classes. "
                                 "Please contact Quillmere with a bug-report.");
    }
};

} // namespace kpBaseExport
