// SPDX-License-Identifier: MIT
#pragma once

#include "export/Findings.h"
#include "formats/ogr/OgrSystems.h"
#include "formats/ogr/OgrTable.h"
#include "ogr/OGRFeatureDetails.h"
#include "ogr/OGRFeatureSource.h"

namespace kpFormats
{

/// The features of a layer, made from the objects one at a time. Notes in \a findings what has no place in a feature.
class OgrFeatures : public kpBaseExport::OGRFeatureSource
{
public:
    /// Positions are rounded to \a decimals, when these are not negative. All else is used for as long as features are
    /// made.
    OgrFeatures(const OgrLayer& layer, const OgrTable& table, OgrSystems& systems, int decimals, Findings& findings);

    int count() const override;
    bool next(int index, kpBaseExport::OGRFeatureDetails& details) override;
    /// Features made so far.
    qint64 made() const { return m_made; }

private:
    /// Where a column's value of the current object comes from.
    struct Source
    {
        const AttributeColumn* values = nullptr; ///< one per vertex; else the constant
        QVariant constant;
        bool asItIs = false; ///< values need no conversion
        std::size_t vertexHint = 0;
        std::size_t objectHint = 0;
    };

    void startObject();
    void endObject();
    bool fill(kpBaseExport::OGRFeatureDetails& details);
    bool addPoint(kpBaseExport::OGRFeatureDetails& details);
    bool addParts(kpBaseExport::OGRFeatureDetails& details);
    bool addPart(const Part& part, kpBaseExport::OGRFeatureDetails& details);
    bool addCorners(const std::vector<std::size_t>& corners, kpBaseExport::OGRFeatureDetails& details);
    bool addCell(kpBaseExport::OGRFeatureDetails& details);
    bool addVertex(std::size_t vertex, kpBaseExport::OGRFeatureDetails& details);
    void addValues(kpBaseExport::OGRFeatureDetails& details);
    QVariant valueAt(std::size_t index, std::size_t row);
    QVariant typeAt(std::size_t row);

    const OgrLayer& m_layer;
    const OgrTable& m_table;
    OgrVertices m_vertices;
    double m_steps;       ///< of positions in a unit; 0 when they are not rounded
    double m_heightSteps; ///< the same of heights
    Findings& m_findings;
    std::vector<Source> m_sources;
    std::size_t m_object = 0; ///< the current one
    qint64 m_place = -1;      ///< of the feature in it; -1 before the first
    qint64 m_places = 0;      ///< features that the object makes at most
    qint64 m_made = 0;
    bool m_isGrid = false;

    // What was lost of the current object.
    qint64 m_withoutPosition = 0;
    qint64 m_withoutHeight = 0;
    qint64 m_shortParts = 0;
    qint64 m_emptyNodes = 0;
    qint64 m_emptyCells = 0;
    qint64 m_rewritten = 0;
};

} // namespace kpFormats
