// SPDX-License-Identifier: MIT
#pragma once

#include "export/DrawingWalk.h"
#include "export/ExportSelection.h"
#include "formats/kml/KmlSink.h"
#include "geo/TransformCache.h"

#include <QImage>
#include <QSet>

#include <functional>

namespace kpFormats
{

/// Takes the model's objects to a KML document: a folder for each type of object, in it a placemark for each line,
/// polygon, well and surface and for each point of a set of points. What has no place there is noted in \a findings.
class KmlDrawing
{
public:
    /// Keeps a picture and tells under which name the document finds it.
    using KeepPicture = std::function<QString(const QImage&)>;

    /// Everything given outlives the drawing. Of \a undrawable objects it is known that they draw nothing. Objects
    /// without a coordinate system are taken to be in that of the settings.
    KmlDrawing(KmlSink& sink, const KmlExportSettings& settings, const QSet<const ModelObject*>& undrawable,
               KeepPicture keepPicture, ProgressTicker& ticker, Findings& findings);

    /// \returns the number of placemarks and overlays
    qint64 draw(const std::vector<const ModelObject*>& objects, const ExportSelection& selection);

private:
    class Placemark;

    QString systemOf(const ModelObject& object) const;
    PositionReader readerOf(const ModelObject& object);
    PositionReader readerOf(const PositionSource& source, const ModelObject& object,
                            KmlExportSettings::AltitudeMode mode);
    KmlExportSettings::AltitudeMode modeFor(const ModelObject& object) const;
    QString tableOf(const ModelObject& object, int vertex);

    void drawBounds(const std::vector<const ModelObject*>& objects);
    void drawObject(const ModelObject& object);
    void drawLines(const ModelObject& object);
    void drawPolygons(const ModelObject& object);
    void drawPoints(const ModelObject& object);
    void drawWell(const ModelObject& object);
    void drawMesh(const ModelObject& object);
    void drawSurface(const ModelObject& object);
    void drawSection(const ModelObject& object);
    void drawSegment(const ModelObject& object, const SectionSegment& segment);
    /// A line of its own; \a open is called before it begins.
    DrawingWalk::LinePen linePen(std::function<void()> open);
    void polygon(const PositionBlock& corners);

    KmlSink& m_sink;
    const KmlExportSettings& m_settings;
    const QSet<const ModelObject*>& m_undrawable;
    KeepPicture m_keepPicture;
    ProgressTicker& m_ticker;
    Findings& m_findings;
    const ExportSelection* m_selection = nullptr;
    QString m_ownSystem;
    TransformCache m_transforms;
    DrawingWalk m_walk;
    qint64 m_features = 0;
};

} // namespace kpFormats
