// SPDX-License-Identifier: MIT
#include "formats/ogr/OgrVerification.h"

#include "geo/GdalSession.h"

#include <ogrsf_frmts.h>

#include <algorithm>
#include <cmath>
#include <functional>

namespace kpFormats
{

namespace
{

// Positions are taken back in blocks: PROJ is quick only with many at a time.
constexpr std::size_t blockSize = 65536;

/// A line or ring, or a point, that should be in the file: vertices of an object.
using Run = std::vector<std::size_t>;
using Curves = std::vector<const OGRSimpleCurve*>;

void addCurves(const OGRGeometry& geometry, Curves& curves)
{
    switch (wkbFlatten(geometry.getGeometryType())) {
    case wkbLineString:
        curves.push_back(geometry.toLineString());
        break;
    case wkbPolygon:
        for (const OGRLinearRing* ring : *geometry.toPolygon())
            curves.push_back(ring);
        break;
    case wkbMultiLineString:
    case wkbMultiPolygon:
        for (const OGRGeometry* part : *geometry.toGeometryCollection())
            addCurves(*part, curves);
        break;
    default:
        break;
    }
}

/// Calls \a look with the runs of each feature that an object should have made, until it returns false.
void forEachFeature(const OgrLayer& layer, const ModelObject& object,
                    const std::function<bool(const std::vector<Run>&)>& look)
{
    const auto placed = [&object](std::size_t vertex) {
        return std::isfinite((*object.x)[vertex]) && std::isfinite((*object.y)[vertex]);
    };
    const auto node = [&](std::size_t vertex) {
        return placed(vertex) && (!object.grid || !std::isnan((*object.z)[vertex]));
    };
    std::vector<Run> runs(1);
    bool more = true;
    if (layer.shape == OgrShape::Points) {
        for (std::size_t vertex = 0; more && vertex < object.x->size(); ++vertex) {
            runs.front().assign(1, vertex);
            more = !node(vertex) || look(runs);
        }
    } else if (asCells(layer, object) && object.grid) {
        const auto columns = static_cast<std::size_t>(object.grid->columns);
        for (std::size_t corner = 0; more && corner + columns + 1 < object.x->size(); ++corner) {
            Run& cell = runs.front();
            cell = {corner, corner + 1, corner + columns + 1, corner + columns};
            const bool there = corner % columns + 1 < columns && std::all_of(cell.begin(), cell.end(), node);
            more = !there || look(runs);
        }
    } else if (asCells(layer, object)) {
        for (std::size_t index = 0; more && index < object.triangles.size(); ++index) {
            runs.front().assign(object.triangles[index].begin(), object.triangles[index].end());
            more = look(runs);
        }
    } else {
        runs.clear();
        for (const Part& part : partsOf(object)) {
            Run run;
            for (int index = 0; index < part.count; ++index) {
                if (placed(static_cast<std::size_t>(part.first + index)))
                    run.push_back(static_cast<std::size_t>(part.first + index));
            }
            if (run.size() >= (layer.shape == OgrShape::Lines ? 2u : 3u))
                runs.push_back(run);
        }
        if (!runs.empty())
            look(runs);
    }
}

class LayerCheck
{
public:
    LayerCheck(OGRLayer& layer, OgrSystems& systems, Verification& result)
        : m_layer(layer)
        , m_systems(systems)
        , m_result(result)
    {
    }

    void compare(const OgrLayer& source)
    {
        m_layer.ResetReading();
        for (const ModelObject* object : source.objects) {
            m_object = object;
            forEachFeature(source, *object, [this](const std::vector<Run>& runs) {
                const OGRFeatureUniquePtr feature(m_layer.GetNextFeature());
                if (!feature) {
                    fault(QStringLiteral("features of %1 are missing").arg(m_object->name));
                    return false;
                }
                ++m_result.count;
                look(*feature, runs);
                return true;
            });
            flush();
        }
        if (OGRFeatureUniquePtr(m_layer.GetNextFeature()))
            fault(QStringLiteral("layer %1 has features too many").arg(QString::fromUtf8(m_layer.GetName())));
    }

private:
    struct Piece
    {
        std::size_t first;
        Run vertices;
    };

    void fault(const QString& text)
    {
        if (m_result.fault.isEmpty())
            m_result.fault = text;
    }

    void look(const OGRFeature& feature, const std::vector<Run>& runs)
    {
        const OGRGeometry* geometry = feature.GetGeometryRef();
        if (!geometry) {
            fault(QStringLiteral("a feature of %1 has no geometry").arg(m_object->name));
            return;
        }
        m_flat = geometry->Is3D() == 0;
        if (wkbFlatten(geometry->getGeometryType()) == wkbPoint) {
            const OGRPoint* point = geometry->toPoint();
            m_pieces.push_back({m_x.size(), runs.front()});
            add(point->getX(), point->getY(), point->getZ());
        } else {
            Curves curves;
            addCurves(*geometry, curves);
            if (curves.size() != runs.size()) {
                fault(QStringLiteral("%1 has %2 parts instead of %3")
                          .arg(m_object->name)
                          .arg(curves.size())
                          .arg(runs.size()));
                return;
            }
            for (std::size_t index = 0; index < runs.size(); ++index)
                addRun(*matching(curves, index, runs[index].size()), runs[index]);
        }
        if (m_x.size() > blockSize)
            flush();
    }

    /// The part of that number, or another of the size where drivers sort rings.
    static const OGRSimpleCurve* matching(Curves& curves, std::size_t index, std::size_t size)
    {
        const auto fits = [size](const OGRSimpleCurve* curve) {
            const auto count = static_cast<std::size_t>(curve->getNumPoints());
            return count == size || count == size + 1;
        };
        for (std::size_t other = index; other < curves.size(); ++other) {
            if (fits(curves[other])) {
                std::swap(curves[index], curves[other]);
                break;
            }
        }
        return curves[index];
    }

    void addRun(const OGRSimpleCurve& curve, const Run& run)
    {
        const auto count = static_cast<std::size_t>(curve.getNumPoints());
        if (count != run.size() && count != run.size() + 1) {
            fault(QStringLiteral("a part of %1 has %2 vertices instead of %3")
                      .arg(m_object->name)
                      .arg(count)
                      .arg(run.size()));
            return;
        }
        m_pieces.push_back({m_x.size(), run});
        // A ring that was closed in the file ends with its first vertex.
        if (count > run.size())
            m_pieces.back().vertices.push_back(run.front());
        for (int index = 0; index < curve.getNumPoints(); ++index)
            add(curve.getX(index), curve.getY(index), curve.getZ(index));
    }

    void add(double x, double y, double z)
    {
        m_x.push_back(x);
        m_y.push_back(y);
        m_z.push_back(z / m_systems.heightFactor(*m_object));
    }

    double distance(std::size_t read, std::size_t vertex) const
    {
        const double z = (*m_object->z)[vertex];
        const double dz = m_flat || !std::isfinite(z) ? 0.0 : m_z[read] - z;
        return std::hypot(m_x[read] - (*m_object->x)[vertex], m_y[read] - (*m_object->y)[vertex], dz);
    }

    void flush()
    {
        if (const CoordinateTransform* back = m_x.empty() ? nullptr : m_systems.back(*m_object)) {
            if (back->transform(m_x, m_y, m_z) > 0)
                fault(QStringLiteral("positions of %1 have no way back").arg(m_object->name));
        }
        for (const Piece& piece : m_pieces) {
            double forwards = 0;
            double backwards = 0;
            const std::size_t count = piece.vertices.size();
            for (std::size_t index = 0; index < count; ++index) {
                forwards = std::max(forwards, distance(piece.first + index, piece.vertices[index]));
                backwards = std::max(backwards, distance(piece.first + index, piece.vertices[count - 1 - index]));
            }
            m_result.worstError = std::max(m_result.worstError, std::min(forwards, backwards));
        }
        m_pieces.clear();
        m_x.clear();
        m_y.clear();
        m_z.clear();
    }

    OGRLayer& m_layer;
    OgrSystems& m_systems;
    Verification& m_result;
    const ModelObject* m_object = nullptr;
    bool m_flat = false;
    std::vector<Piece> m_pieces;
    std::vector<double> m_x;
    std::vector<double> m_y;
    std::vector<double> m_z;
};

} // namespace

Verification verifyOgrFile(const QString& path, const QString& driver, const std::vector<OgrLayer>& layers,
                           OgrSystems& systems)
{
    Verification result;
    result.reader = QStringLiteral("GDAL driver %1").arg(driver);
    const QuietGdal quiet;
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
    if (!dataset) {
        result.fault = QStringLiteral("it cannot be opened: %1").arg(QuietGdal::lastMessage());
        return result;
    }
    if (dataset->GetLayerCount() < static_cast<int>(layers.size())) {
        result.fault =
            QStringLiteral("it has %1 layers instead of %2").arg(dataset->GetLayerCount()).arg(layers.size());
        return result;
    }
    for (std::size_t index = 0; index < layers.size(); ++index)
        LayerCheck(*dataset->GetLayer(static_cast<int>(index)), systems, result).compare(layers[index]);
    return result;
}

} // namespace kpFormats
