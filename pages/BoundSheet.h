// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/AttributeNamesSheet.h"
#include "core/saver/QExportAbstractOptionSheet.h"
#include "pages/SheetBinding.h"

#include <type_traits>
#include <utility>

namespace kpFormats
{

/// A base for pages that choose attributes already.
struct ChoosesAttributesItself
{
};

/// A page of the library made concrete for a format of this program: its form, bound to the format's settings.
template <typename Sheet>
class BoundSheet : public Sheet,
                   public std::conditional_t<std::is_base_of_v<kpBaseExport::AttributeNamesSheet, Sheet>,
                                             ChoosesAttributesItself, kpBaseExport::AttributeNamesSheet>
{
public:
    BoundSheet(FormatSetup& setup, const Model& model, std::vector<ControlBinding> controls)
        : m_binding(setup, model, std::move(controls))
    {
    }

    void initialize(const QString& text) override
    {
        Sheet::initialize(text);
        m_binding.attach(*this, this->m_wizard);
    }
    void activate() override
    {
        m_binding.enter([this] { Sheet::activate(); });
    }
    void deactivate() override
    {
        Sheet::deactivate();
        m_binding.leave();
    }
    bool isComplete() const override { return Sheet::isComplete() && m_binding.isComplete(); }
    QString optionSummary() const override { return m_binding.summary(); }
    // Overrides that of the library's page or that of the interface.
    std::vector<std::string> selectedAttributeNames() override { return m_binding.selectedAttributeNames(); }

protected:
    using kpBaseExport::QExportAbstractOptionSheet::initialize;

    SheetBinding m_binding;
};

} // namespace kpFormats
