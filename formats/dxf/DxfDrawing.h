// SPDX-License-Identifier: MIT
#pragma once

#include "export/DrawingWalk.h"
#include "export/ExportSelection.h"
#include "formats/dxf/DxfExportSettings.h"
#include "formats/dxf/DxfSink.h"
#include "formats/dxf/DxfText.h"
#include "geo/OutputRules.h"

namespace kpFormats
{

/// Takes the model's objects to the entities of a drawing. What a drawing cannot hold is noted in \a findings.
class DxfDrawing
{
public:
    /// Everything given outlives the drawing.
    DxfDrawing(DxfSink& sink, const DxfExportSettings& settings, const QSet<const ModelObject*>& undrawable,
               ProgressTicker& ticker, Findings& findings);
    DxfDrawing(const DxfDrawing&) = delete;
    DxfDrawing& operator=(const DxfDrawing&) = delete;

    /// \returns the number of entities
    qint64 draw(const std::vector<const ModelObject*>& objects);

private:
    /// The vertical plane of a drawing seen from the side.
    struct Plane
    {
        double x = 0.0; ///< where the drawing's x is 0
        double y = 0.0;
        double alongX = 1.0; ///< direction of the drawing's x on the map
        double alongY = 0.0;
    };

    bool isFlat() const { return m_settings.dimension != DxfExportSettings::Dimension::ThreeD; }
    bool fromSide() const { return m_settings.dimension == DxfExportSettings::Dimension::Section; }
    PositionReader readerOf(const PositionSource& source, const ModelObject& object);
    void project(PositionBlock& block) const;
    DxfSink::Corner corner(const PositionBlock& block, std::size_t index) const;
    DxfSink::Corner corner(const DrawingWalk::Place& place) const;
    void drawPoint(const DxfSink::Corner& place);

    void findPlane(const std::vector<const ModelObject*>& objects);
    void findTextHeight(const std::vector<const ModelObject*>& objects);
    void takePen(const ModelObject& object);
    void takeColour(const QColor& colour);
    void drawObject(const ModelObject& object);
    void drawLines(const ModelObject& object, bool area);
    void drawPoints(const ModelObject& object, bool points, bool names);
    void drawWell(const ModelObject& object);
    void drawSurface(const ModelObject& object);
    void drawFaces(const ModelObject& object);
    void drawBoundaries(const ModelObject& object);
    bool drawBoundary(const ModelObject& object, const std::vector<int>& line, double weight);
    void drawSection(const ModelObject& object);
    void drawUnfolded(const ModelObject& object, const SectionSegment& segment);
    /// One line; false when fewer than two of its positions have a place. A single one becomes a point if \a orPoint.
    bool drawLine(PositionReader& reader, int first, int end, bool closed, bool orPoint = false);
    void drawName(const ModelObject& object, const DxfSink::Corner& place);

    DxfSink& m_sink;
    const DxfExportSettings& m_settings;
    const QSet<const ModelObject*>& m_undrawable;
    ProgressTicker& m_ticker;
    Findings& m_findings;
    OutputRules m_rules;
    DrawingWalk m_walk;
    DxfLayerNames m_layers;
    QSet<QString> m_renamed;
    DxfSink::Pen m_pen;
    Plane m_plane;
    double m_textHeight = 1.0;
    qint64 m_entities = 0;
};

} // namespace kpFormats
