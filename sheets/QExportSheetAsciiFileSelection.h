// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/kpUnits.h"
#include "sheets/FileGroupingSheet.h"

#include <memory>

namespace Ui
{
class QExportSheetAsciiFileSelection;
}

namespace kpBaseExport
{

/// The options of an ASCII format whose layout is fixed: the unit, one file or several, and what stands in them
/// beside the values.
class KPBASEEXPORT_EXPORT QExportSheetAsciiFileSelection : public FileGroupingSheet
{
    Q_OBJECT

public:
    QExportSheetAsciiFileSelection();
    ~QExportSheetAsciiFileSelection() override;

    void initialize(const QString& key) override;
    void startup() override;
    void activate() override;
    bool isComplete() const override;

    kpUnits units() const;
    /// The file begins with its header line.
    bool writesHeader() const;
    bool insertsLineBreaks() const;
    /// Objects are written in section coordinates instead of map coordinates.
    bool usesSectionCoordinates() const;

protected:
    using QExportAbstractOptionSheet::initialize;

private:
    std::unique_ptr<Ui::QExportSheetAsciiFileSelection> m_ui;
};

} // namespace kpBaseExport
