// SPDX-License-Identifier: MIT
#pragma once

#include "core/MatrixDataExporter.h"

namespace kpBase
{
class MatrixData;
}

namespace kpBaseExport
{

/// Writes one geological cross-section in the OpenTecLink text format: the trace of the section in map view and one
/// segment per line drawn on it, from the record's section list. Lengths are metres, depth is positive downwards.
///
/// With reportRows and a progress object the writer reports whole percentages of the record's points and stops when the
/// user cancels; the segment and the section are closed then, too.
class KPBASEEXPORTCORE_EXPORT MatrixDataOpenTecLinkExporter : public MatrixDataExporter
{
public:
    explicit MatrixDataOpenTecLinkExporter(const QString& file = QString(),
                                           kpBase::AbstractProgress* reporter = nullptr);
    ~MatrixDataOpenTecLinkExporter() override;

    /// Version, units and, when there is one, the trace of the section.
    void writeHeader(const GeoObject* object) override;
    /// The section with its segments; nothing when the record has none.
    void writeGeo(const GeoObject* object) override;

    /// True when writeGeo() has stopped because the user cancelled.
    bool cancelled() const { return m_cancelled; }

    int precision = 2;                                    ///< decimals of every number
    QString sectionName = QStringLiteral("SectionDummy"); ///< name of the section
    double sectionAge = 0.0;                              ///< age of the section
    kpBase::MatrixData* sectionPositions = nullptr;       ///< trace: a row per point, columns x, y; the writer's

private:
    void appendRow(const char* keyword, std::initializer_list<double> numbers);
    bool appendPoints(const kpBase::MatrixData& segment);
    bool report(qint64 rows);
    void appendSection(const GeoObject& object);
    template <typename Write>
    void writeWhole(Write write);

    qint64 m_rows = 0; ///< of the record
    qint64 m_rowsDone = 0;
    int m_lastPercent = 0;
    bool m_cancelled = false;
};

} // namespace kpBaseExport
