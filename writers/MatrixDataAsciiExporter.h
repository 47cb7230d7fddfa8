// SPDX-License-Identifier: MIT
#pragma once

#include "core/GeoObject.h"
#include "core/MatrixDataExporter.h"
#include "host/data/MatrixData.h"
#include "writers/FixedNumber.h"

#include <string>
#include <vector>

namespace kpBaseExport
{

/// Writes the vertices of objects as lines of text, one field per entry of fields, either in fixed columns
/// (right-aligned; what is too long is cut and ends in "*") or joined by a separator.
///
/// With reportRows and a progress object the writer reports whole percentages of each object and stops when the user
/// cancels. An object whose matrices throw leaves its whole rows in the file, and the writer can go on with the next.
class KPBASEEXPORTCORE_EXPORT MatrixDataAsciiExporter : public MatrixDataExporter
{
public:
    enum Mode : int { ColumnBased = 0, FieldBased = 1 };
    /// Which texts and names of separated fields stand in quotes, doubled inside (RFC 4180).
    enum class Quoting {
        None,
        Needed, ///< those that hold the separator, a quote or a line end
        All
    };

    explicit MatrixDataAsciiExporter(const QString& file = QString(), kpBase::AbstractProgress* reporter = nullptr);

    /// The line of field names; at most once per writer.
    void writeHeader(const GeoObject* object) override;
    /// The header line of a preset: "Surfer XYZ", "GS+ XYZ" or "ArcView XYZ"; any other name gives the standard
    /// header. A preset also sets the separator of the rows that follow.
    void writeCustomHeader(const GeoObject* object, const QString& preset);
    /// The object's rows. A field without source is empty, or the null value.
    /// \throws std::logic_error "No Vertex Data to be exported", "Vertex data cannot be exported, wrong number of rows"
    void writeGeo(const GeoObject* object) override;

    /// True when writeGeo() has stopped because the user cancelled.
    bool cancelled() const;

    std::vector<FieldInfo> fields; ///< the output fields in order
    Mode mode = FieldBased;
    int separator = 0;       ///< 0 blank, 1 tab, 2 comma, 3 semicolon, 4 customSeparator, else nothing
    QString customSeparator; ///< text of separator code 4
    Quoting quoting = Quoting::None;
    bool zIsElevation = true;  ///< false: values of a field "z" are negated
    bool headerPending = true; ///< a header is still to be written

protected:
    /// Finds the source of each field in \a object.
    void buildFieldData(const GeoObject* object);
    /// Formats one value and writes it.
    /// \returns the number of characters written
    int writeValue(const FieldInfo& field, const kpBase::MatrixData* source, int row);

private:
    /// A field's source, and its numbers where it offers them as one block.
    struct Source
    {
        const kpBase::MatrixData* matrix = nullptr;
        kpBase::DoubleColumn block;
        bool negated = false;
    };

    /// A source of plain rows, with what its field makes of the numbers.
    struct PlainColumn
    {
        const double* values;
        const unsigned char* missing;
        FixedWriter write;
        int precision;
        bool negated;
    };

    QString headerName(std::size_t field) const;
    QString quoted(const QString& text) const;
    std::string separatorText() const;
    template <typename Write>
    void writeOf(const GeoObject* object, Write write);
    void appendHeader();
    int appendValue(const FieldInfo& field, const Source& source, int row);
    void appendText(const Source& source, int row, QString& text) const;
    int finish(const FieldInfo& field, const QString& text);
    int finishAscii(const FieldInfo& field, std::size_t start);
    void appendRows(const GeoObject& object);
    void appendRow(int row, const std::string& separatorChars);
    bool preparePlainRows(int rows, const std::string& separatorChars);
    int appendPlainRows(int row, int end, const std::string& separatorChars);
    void joinPlainRows();
    bool reportRow(int row, int rows);
    void flushRows(std::size_t limit);
    Source sourceOf(const FieldInfo& field, const kpBase::MatrixData* matrix) const;

    std::vector<Source> m_fieldData; ///< one per field; points into the object
    std::vector<PlainColumn> m_plainColumns;
    std::string m_plainNull;       ///< what stands for a missing value there
    std::size_t m_whole = 0;       ///< characters of the block's text before the row that is being composed
    std::vector<char> m_plainRows; ///< follow that text; their room is made once
    std::size_t m_plainSize = 0;   ///< characters of m_plainRows in use
    int m_lastPercent = 0;
    bool m_cancelled = false;
};

} // namespace kpBaseExport
