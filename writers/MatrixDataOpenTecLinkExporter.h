// SPDX-License-Identifier: MIT
#pragma once

#include "core/MatrixDataExporter.h"

#include <string>

namespace kpBase
{
class MatrixData;
}

namespace kpBaseExport
{

/// Writes one geological cross-section in the OpenTecLink text format: the trace of the section in map view and one
/// segment per line drawn on it, from the record's section list. Lengths are metres, depth is positive downwards.
class KPBASEEXPORT_EXPORT MatrixDataOpenTecLinkExporter : public MatrixDataExporter
{
public:
    explicit MatrixDataOpenTecLinkExporter(const QString& file = QString());
    ~MatrixDataOpenTecLinkExporter() override;

    /// Version, units and, when there is one, the trace of the section.
    void writeHeader(const GeoObject* object) override;
    /// The section with its segments; nothing when the record has none.
    void writeGeo(const GeoObject* object) override;

    int precision = 2;                                           ///< decimals of every number
    QString sectionName = QStringLiteral("SectionDummy");        ///< name of the section
    double sectionAge = 0.0;                                     ///< age of the section
    const kpBase::MatrixData* sectionPositions = nullptr;        ///< trace: a row per point, columns x, y; deleted by the writer

private:
    void appendRow(const char* keyword, std::initializer_list<double> numbers);
    void flushBlock(std::size_t limit);

    std::string m_block;
};

} // namespace kpBaseExport
