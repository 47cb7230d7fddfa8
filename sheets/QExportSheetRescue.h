// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/GridSheet.h"

#include <memory>

namespace Ui
{
class QExportSheetRescue;
}

namespace kpBaseExport
{

/// The page of the RESCUE format: shows which grid is exported.
class KPBASEEXPORT_EXPORT QExportSheetRescue : public GridSheet
{
    Q_OBJECT

public:
    QExportSheetRescue();
    ~QExportSheetRescue() override;

    void initialize(const QString& key) override;
    void deactivate() override;
    bool isComplete() const override;

    /// What stands behind "Exporting grid:".
    void showGridName(const QString& name);
    /// Tells the user that only one grid can be exported at a time.
    void showMultipleGridWarning(bool show);

protected:
    using QExportAbstractOptionSheet::initialize;

protected Q_SLOTS:
    void updateNav();

private:
    std::unique_ptr<Ui::QExportSheetRescue> m_ui;
};

} // namespace kpBaseExport
