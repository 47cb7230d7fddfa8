// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

namespace kpBaseExport
{
class AbstractSaverFactory;
class QExportAbstractSheetFactory;
} // namespace kpBaseExport

struct Model;

/// Registers the savers and pages of this host. It is made before the first wizard and outlives the last one.
class Registration
{
public:
    explicit Registration(const Model& model);
    ~Registration();

private:
    std::vector<std::unique_ptr<kpBaseExport::AbstractSaverFactory>> m_savers;
    std::vector<std::unique_ptr<kpBaseExport::QExportAbstractSheetFactory>> m_sheets;
};
