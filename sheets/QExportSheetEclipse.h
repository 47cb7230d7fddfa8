// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/kpUnits.h"
#include "sheets/GridSheet.h"

#include <memory>
#include <string>

namespace Ui
{
class QExportSheetEclipse;
}

namespace kpBaseExport
{

/// The options of the Eclipse format: the variant of the geometry file, and the unit. Leaving the page stores both.
class KPBASEEXPORT_EXPORT QExportSheetEclipse : public GridSheet
{
    Q_OBJECT

public:
    QExportSheetEclipse();
    ~QExportSheetEclipse() override;

    void initialize(const QString& key) override;
    void deactivate() override;
    bool isComplete() const override;

    /// Tells the user that only one grid can be exported at a time.
    void showMultipleGridWarning(bool show);
    /// Tells the user, in the same place, that no grid has been chosen.
    void showNoGridWarning(bool show);

    /// Keyword of the chosen variant: "GRDECL", "EGRID", "GRID" or "FGRID".
    std::string geometryFormat = "GRDECL";
    kpUnits units;

protected:
    using QExportAbstractOptionSheet::initialize;

protected Q_SLOTS:
    void updateNav();

private:
    std::unique_ptr<Ui::QExportSheetEclipse> m_ui;
    QString m_multipleGrids; ///< text of the warning in the form
};

} // namespace kpBaseExport
