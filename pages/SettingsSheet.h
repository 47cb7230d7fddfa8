// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/AttributeNamesSheet.h"
#include "core/saver/QExportAbstractOptionSheet.h"
#include "model/Model.h"
#include "pages/AttributeChoice.h"
#include "pages/FormatSetup.h"
#include "pages/kpFormatsUiExport.h"

#include <QWidget>

namespace kpFormats
{

/// The option page of a format, built from its settings, with the choice of attributes below. What is set here is what
/// --set sets; it is remembered per format and stays when the user goes back and forth.
class KPFORMATSUI_EXPORT SettingsSheet : public QWidget,
                                         public kpBaseExport::QExportAbstractOptionSheet,
                                         public kpBaseExport::AttributeNamesSheet
{
    Q_OBJECT

public:
    /// Both outlive the page.
    SettingsSheet(FormatSetup& setup, const Model& model);

    using QExportAbstractOptionSheet::initialize;
    void initialize(const QString& text) override;
    void activate() override;
    void deactivate() override;
    /// False while a coordinate system is named that there is not.
    bool isComplete() const override;
    QString optionSummary() const override;
    std::vector<std::string> selectedAttributeNames() override;

private:
    FormatSetup& m_setup;
    const Model& m_model;
    AttributeChoice m_attributes;
    std::vector<int> m_shownFor; ///< objects whose attributes are listed
};

} // namespace kpFormats
