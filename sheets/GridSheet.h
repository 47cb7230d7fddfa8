// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/AttributeNamesSheet.h"
#include "core/saver/QExportAbstractOptionSheet.h"

#include <QWidget>

namespace kpBaseExport
{

class QExportAttributeWidget;

/// What the pages of formats that write one geocellular grid have in common: the choice of cell attributes, and the
/// wizard goes on only when the saver has accepted the grid.
class KPBASEEXPORT_EXPORT GridSheet : public QWidget, public QExportAbstractOptionSheet, public AttributeNamesSheet
{
    Q_OBJECT

public:
    ~GridSheet() override;

    void activate() override;
    std::vector<std::string> selectedAttributeNames() override;

    /// Set by the saver when it can write the chosen grid; the page never sets it.
    bool gridAccepted = false;

protected:
    GridSheet();
    using QExportAbstractOptionSheet::initialize;

    /// Adds the attribute panel below the form.
    void addAttributePanel(const QString& key);
    /// The wizard's buttons follow isComplete() again.
    void followCompleteness();

private:
    QExportAttributeWidget* m_attributes = nullptr; ///< child of the page
};

} // namespace kpBaseExport
