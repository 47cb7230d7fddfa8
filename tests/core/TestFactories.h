// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/AbstractSaver.h"
#include "core/saver/AbstractSaverFactory.h"
#include "core/saver/QExportAbstractSheetFactory.h"

#include <functional>

/// A factory registered while it lives, that makes what a function makes.
template <typename Base, typename Product>
class TestFactory : public Base
{
public:
    TestFactory(const std::string& key, std::function<Product*()> make, bool isDefault = false)
        : Base(key, isDefault)
        , m_make(std::move(make))
    {
    }
    boost::shared_ptr<Product> create_product() override { return boost::shared_ptr<Product>(m_make()); }
    Product* create_product_unmanaged() override { return m_make(); }

private:
    std::function<Product*()> m_make;
};
using TestSheetFactory = TestFactory<kpBaseExport::QExportAbstractSheetFactory, kpBaseExport::QExportAbstractSheet>;
using TestSaverFactory = TestFactory<kpBaseExport::AbstractSaverFactory, kpBaseExport::AbstractSaver>;

/// A saver that writes nothing.
class SilentSaver : public kpBaseExport::AbstractSaver
{
public:
    explicit SilentSaver(const std::string& key)
        : AbstractSaver(key)
    {
        m_formatDisplay = QString::fromStdString(key);
    }
    void set_selection(const QString&, const std::vector<int>&, const std::vector<std::string>&,
                       const std::vector<std::string>&) override
    {
    }
    bool save(const std::vector<QString>&, kpBase::AbstractProgress*) override { return true; }

    using AbstractSaver::m_currentDefaultFileFormatExt;
    using AbstractSaver::m_supportsAttributes;
};

class SilentSaverFactory : public TestSaverFactory
{
public:
    explicit SilentSaverFactory(const std::string& key, bool isDefault = false)
        : TestSaverFactory(
            key, [key] { return new SilentSaver(key); }, isDefault)
    {
    }
};
