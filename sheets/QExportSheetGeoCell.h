// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/GridSheet.h"

#include <memory>

namespace Ui
{
class QExportSheetGeoCell;
}

namespace kpBaseExport
{

/// The options of a grid that is written back in the format it was imported from: asks for the file it came from.
class KPBASEEXPORT_EXPORT QExportSheetGeoCell : public GridSheet
{
    Q_OBJECT

public:
    QExportSheetGeoCell();
    ~QExportSheetGeoCell() override;

    void initialize(const QString& key) override;
    bool isComplete() const override;

    /// What stands behind "Exporting grid:".
    void showGridName(const QString& name);
    /// Tells the user that only one grid can be exported at a time.
    void showMultipleGridWarning(bool show);
    /// Tells the user that the grid came from a file of another format.
    void showWrongInputGridError(bool show);
    /// The file that the grid came from.
    QString inputGridPath() const;

    bool inputGridFound = false; ///< inputGridPath() can be opened for reading
    QString gridFilter;          ///< file-name filter of the browse dialog, set by the saver

protected:
    using QExportAbstractOptionSheet::initialize;

protected Q_SLOTS:
    void browse();
    void checkInputPath();

private:
    std::unique_ptr<Ui::QExportSheetGeoCell> m_ui;
};

} // namespace kpBaseExport
