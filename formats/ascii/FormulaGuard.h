// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ascii/AsciiExportSettings.h"
#include "model/kpFormatsExport.h"

#include <QString>

namespace kpFormats
{

/// Keeps spreadsheets from taking texts of a table for formulas: what stands where a cell may begin and starts with
/// = + - @, a tabulator or a NUL gets an apostrophe before it. A cell may begin behind any usual separator, since a
/// spreadsheet takes a table apart by those of its own country, and behind quotes and blanks.
class KPFORMATS_EXPORT FormulaGuard
{
public:
    /// Guards nothing unless the settings say so. In fixed columns a cell begins nowhere.
    explicit FormulaGuard(const AsciiExportSettings& settings);

    bool isOn() const { return m_on; }
    QString guarded(const QString& text) const;

private:
    bool m_on;
    QString m_separator;
};

} // namespace kpFormats
