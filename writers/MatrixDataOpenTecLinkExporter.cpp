// SPDX-License-Identifier: MIT
#include "writers/MatrixDataOpenTecLinkExporter.h"

#include "core/GeoObject.h"
#include "host/data/AbstractProgress.h"
#include "host/data/MatrixData.h"
#include "writers/StreamNumber.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace kpBaseExport
{

namespace
{

/// Reads a column of a matrix from memory where the matrix offers that, else value by value.
class ColumnReader
{
public:
    ColumnReader(const kpBase::MatrixData& matrix, int column)
        : m_matrix(matrix)
        , m_column(column)
        , m_block(matrix.valueType == kpBase::MatrixData::Double ? matrix.doubleColumn(column) : kpBase::DoubleColumn())
    {
    }

    double operator[](int row) const
    {
        if (!m_block.values)
            return m_matrix.value(row, m_column).toDouble();
        // A missing value reads as 0, like a null variant.
        return m_block.missing && m_block.missing[row] ? 0.0 : m_block.values[row];
    }

private:
    const kpBase::MatrixData& m_matrix;
    int m_column;
    kpBase::DoubleColumn m_block;
};

} // namespace

MatrixDataOpenTecLinkExporter::MatrixDataOpenTecLinkExporter(const QString& file, kpBase::AbstractProgress* reporter)
    : MatrixDataExporter(file, reporter)
{
}

MatrixDataOpenTecLinkExporter::~MatrixDataOpenTecLinkExporter()
{
    delete sectionPositions;
}

/// Drops what is not on the stream yet when a matrix throws, so that it does not turn up in the next file.
template <typename Write>
void MatrixDataOpenTecLinkExporter::writeWhole(Write write)
{
    stream.precision(precision);
    try {
        write();
    } catch (...) {
        blockStream.text().clear();
        throw;
    }
    blockStream.flush();
}

void MatrixDataOpenTecLinkExporter::writeHeader(const GeoObject*)
{
    writeWhole([this] {
        blockStream.text() += "version 1.0\n\nunit_z_depth meter\nunit_xy_section_position meter\n\n";
        if (!sectionPositions || sectionPositions->rowCount() < 1)
            return;
        blockStream.text() += "xy_section_position\n";
        const ColumnReader x(*sectionPositions, 0);
        const ColumnReader y(*sectionPositions, 1);
        for (int row = 0; row < sectionPositions->rowCount(); ++row) {
            appendRow("xy ", {x[row], y[row]});
            blockStream.text() += " \n";
            blockStream.check();
        }
        blockStream.text() += "xy_section_position-end\n\n";
    });
}

void MatrixDataOpenTecLinkExporter::writeGeo(const GeoObject* object)
{
    m_cancelled = false;
    if (object->sectionData().empty())
        return;
    m_rowsDone = 0;
    m_lastPercent = 0;
    m_rows = 0;
    writeWhole([this, object] { appendSection(*object); });
}

void MatrixDataOpenTecLinkExporter::appendSection(const GeoObject& object)
{
    std::vector<const kpBase::MatrixData*> segments;
    std::copy_if(object.sectionData().begin(), object.sectionData().end(), std::back_inserter(segments),
                 [](const kpBase::MatrixData* segment) { return segment != nullptr; });
    for (const kpBase::MatrixData* segment : segments)
        m_rows += segment->rowCount();
    blockStream.text() += "open_tec_link_section " + sectionName.toStdString() + "\n\nsection_age ";
    appendStreamFixed(blockStream.text(), sectionAge, precision);
    blockStream.text() += "\n\n";
    for (const kpBase::MatrixData* segment : segments) {
        blockStream.text() += "segment\nname " + segment->name().toStdString();
        blockStream.text() += "\ncolor_rgb " + segment->colorHexaString().toStdString();
        blockStream.text() += "\ntype " + segment->geoType().toStdString();
        blockStream.text() += "\npoints\n";
        const bool goOn = appendPoints(*segment);
        blockStream.text() += "points-end\nsegment-end\n\n";
        if (!goOn)
            break;
    }
    blockStream.text() += "open_tec_link_section-end\n\n";
}

/// False when the user has cancelled.
bool MatrixDataOpenTecLinkExporter::appendPoints(const kpBase::MatrixData& segment)
{
    constexpr int rowsBetween = 4096;
    const ColumnReader x(segment, 0);
    const ColumnReader y(segment, 1);
    const ColumnReader z(segment, 2);
    const int rows = segment.rowCount();
    for (int first = 0; first < rows; first += rowsBetween) {
        const int end = rows - first > rowsBetween ? first + rowsBetween : rows;
        for (int row = first; row < end; ++row) {
            appendRow("xyz ", {x[row], y[row], -z[row]});
            blockStream.text() += '\n';
        }
        blockStream.check();
        if (!report(end - first))
            return false;
    }
    return true;
}

bool MatrixDataOpenTecLinkExporter::report(qint64 rows)
{
    m_rowsDone += rows;
    if (!reportRows || !progress)
        return true;
    const int percent = static_cast<int>(m_rowsDone * 100 / m_rows);
    if (percent != m_lastPercent)
        progress->progressChanged(percent);
    m_lastPercent = percent;
    m_cancelled = progress->isCancelled();
    return !m_cancelled;
}

void MatrixDataOpenTecLinkExporter::appendRow(const char* keyword, std::initializer_list<double> numbers)
{
    blockStream.text() += keyword;
    bool first = true;
    for (const double number : numbers) {
        if (!first)
            blockStream.text() += ' ';
        first = false;
        appendStreamFixed(blockStream.text(), number, precision);
    }
}

} // namespace kpBaseExport
