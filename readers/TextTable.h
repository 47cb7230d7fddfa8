// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kpFormats
{

/// A table of text, parted by commas, semicolons, tabs, bars or blanks, with or without a header, as it stands in the
/// file. What parts it is told from its first lines; "#", "!" and "//" begin a line of remarks.
class KPFORMATS_EXPORT TextTable
{
public:
    /// \a encoding as for toUtf8(). \throws LoadError when the file cannot be read or is not a table
    TextTable(const QString& path, const QString& encoding);

    const QString& path() const { return m_path; }
    const QStringList& columns() const { return m_columns; }
    bool hasHeader() const { return m_hasHeader; }
    int rowCount() const { return static_cast<int>(m_lines.size()); }
    /// Without blanks around it; empty where the row is too short.
    std::string_view cell(int row, int column) const
    {
        const Cell& cell = m_cells[static_cast<std::size_t>(row) * m_width + static_cast<std::size_t>(column)];
        return std::string_view(m_text).substr(cell.first, cell.size);
    }
    /// The line of the file on which the row begins.
    int line(int row) const { return m_lines[static_cast<std::size_t>(row)]; }
    /// The cell as a number, with the table's decimal sign; none when it is not one. NaN and infinities are numbers.
    std::optional<double> number(int row, int column) const;
    /// The first column that goes by one of the names, in any case of letters; -1 when none does.
    int columnNamed(const QStringList& names) const;
    /// What the table turned out to be, where that was not certain.
    const QStringList& notes() const { return m_notes; }

private:
    struct Cell
    {
        std::size_t first = 0;
        std::size_t size = 0;
    };
    struct Row
    {
        std::vector<Cell> cells;
        int line = 0;
    };

    void findSeparator();
    bool nextRow(Row& row);
    Cell nextCell(std::size_t& position, bool& ended);
    void readRows();
    void takeHeader(Row& first, const Row& second);
    void nameColumns(const Row& first);
    void findDecimalSign();
    QString textOf(const Cell& cell) const;
    bool isNumber(const Cell& cell) const;

    QString m_path;
    std::string m_text; ///< UTF-8
    std::size_t m_position = 0;
    int m_line = 0;
    char m_separator = ',';
    bool m_decimalComma = false;
    bool m_hasHeader = true;
    std::size_t m_width = 0;
    QStringList m_columns;
    std::vector<Cell> m_cells;
    std::vector<int> m_lines;
    std::string m_remark; ///< the last line of remarks before the first row
    QStringList m_notes;
};

/// A text of the file as a number, without regard to the locale.
KPFORMATS_EXPORT std::optional<double> numberOf(std::string_view text, bool decimalComma = false);

} // namespace kpFormats
