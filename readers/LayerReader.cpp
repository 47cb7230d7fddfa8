// SPDX-License-Identifier: MIT
#include "readers/LayerReader.h"

#include "geo/CoordinateSystems.h"
#include "readers/LoadError.h"
#include "readers/PolygonTriangles.h"
#include "readers/TextTable.h"

#include <ogrsf_frmts.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace kpFormats
{

namespace
{

/// The columns of a table without geometries that hold coordinates; nothing when there are none.
std::optional<CoordinateColumns> coordinatesOf(const OGRLayer& layer, const LoadOptions& options)
{
    const OGRFeatureDefn& definition = *const_cast<OGRLayer&>(layer).GetLayerDefn();
    if (definition.GetGeomFieldCount() > 0)
        return std::nullopt;
    QStringList names;
    for (int index = 0; index < definition.GetFieldCount(); ++index)
        names.append(QString::fromUtf8(definition.GetFieldDefn(index)->GetNameRef()));
    const CoordinateColumns columns(names, options);
    return columns.hasPositions() ? std::optional<CoordinateColumns>(columns) : std::nullopt;
}

std::vector<int> placesOf(const std::optional<CoordinateColumns>& columns)
{
    return columns ? std::vector<int>{columns->x, columns->y, columns->z} : std::vector<int>();
}

} // namespace

int LayerReader::Faces::vertexAt(const OGRPoint& point)
{
    const std::array<double, 3> position{point.getX(), point.getY(), point.getZ()};
    const auto found = vertices.emplace(position, mesh.vertexCount());
    if (found.second) {
        mesh.x.push_back(position[0]);
        mesh.y.push_back(position[1]);
        mesh.z.push_back(position[2]);
    }
    return found.first->second;
}

LayerReader::LayerReader(Model& model, OGRLayer& layer, const QString& path, const LoadOptions& options)
    : m_model(model)
    , m_layer(layer)
    , m_path(path)
    , m_options(options)
    , m_name(QString::fromUtf8(layer.GetName()))
    , m_columns(coordinatesOf(layer, options))
    , m_fields(*layer.GetLayerDefn(), placesOf(m_columns))
{
    m_nameField = m_fields.names().indexOf(options.nameField);
    if (!options.nameField.isEmpty() && m_nameField < 0) {
        throw LoadError(
            path, QStringLiteral("layer %1 has no field \"%2\" to name its objects").arg(m_name, options.nameField),
            QStringLiteral("it has: %1").arg(m_fields.names().join(QStringLiteral(", "))));
    }
    if (m_columns && m_columns->z < 0 && !options.z.isEmpty())
        throw LoadError(path, QStringLiteral("layer %1 has no field \"%2\"").arg(m_name, options.z),
                        QStringLiteral("it has: %1").arg(m_fields.names().join(QStringLiteral(", "))));
    m_subClasses = m_fields.names().indexOf(QStringLiteral("SubClasses"));
    m_drawingLayer = m_fields.names().indexOf(QStringLiteral("Layer"));
    m_crs = options.crs.isEmpty() ? wktOf(layer.GetSpatialRef()) : wktOf(options.crs);
}

int LayerReader::read(LoadNotes& notes)
{
    const std::size_t before = m_model.objects().size();
    for (const auto& feature : m_layer) {
        if (!m_columns)
            readFeature(*feature);
        else if (const auto point = pointOf(*feature))
            readGeometry(*feature, *point);
        else
            ++m_withoutNumbers;
    }
    if (m_columns && m_options.crs.isEmpty() && !m_cloud.x.empty()) {
        LoadNotes own;
        m_crs =
            systemOfColumns(m_fields.names()[m_columns->x], m_fields.names()[m_columns->y], m_cloud.x, m_cloud.y, own);
        for (const QString& said : qAsConst(own))
            notes.append(QStringLiteral("%1: %2").arg(m_path, said));
    }
    for (auto& [name, faces] : m_drawn)
        addMesh(name, faces, {});
    if (!m_cloud.x.empty())
        addCloud();
    appendNotes(notes);
    return static_cast<int>(m_model.objects().size() - before);
}

void LayerReader::appendNotes(LoadNotes& notes) const
{
    const auto note = [&](int count, const char* what) {
        if (count > 0)
            notes.append(QStringLiteral("%1: %2 of layer %3 %4")
                             .arg(m_path, QString::number(count), m_name, QString::fromUtf8(what)));
    };
    note(m_withoutGeometry, "had no geometry and were left out");
    note(m_withoutNumbers, "have no numbers for x and y and were left out");
    note(m_emptyPoints, "were points without a position and were left out");
    note(m_unknown, "had a geometry that is not a point, line, area or surface and were left out");
    note(m_flatPoints, "are points without a height among others that have one; they have none in the cloud either");
    note(m_curves, "had curves, which were drawn as lines with a point every 4 degrees");
    note(m_measured, "had measures (M), which were left out");
    note(m_collections, "were collections and were taken apart, each part with the attributes of the whole");
    note(m_surfaces, "were surfaces of faces and became meshes");
    note(m_badFaces, "had faces that cannot be cut into triangles and were left out");
    note(m_faceHoles, "had faces with holes, which are closed in the mesh");
    for (const auto& [name, faces] : m_drawn)
        note(faces.count, qPrintable(QStringLiteral("were faces and became the mesh %1").arg(name)));
    for (const QString& fields : m_fields.notes())
        notes.append(QStringLiteral("%1: layer %2: %3").arg(m_path, m_name, fields));
}

ModelObject LayerReader::makeObject(ObjectType type, const QString& name) const
{
    ModelObject object = newObject(m_path, m_options, type, name, m_name);
    object.crs = m_crs;
    return object;
}

QString LayerReader::featureName(const OGRFeature& feature) const
{
    if (m_nameField >= 0 && feature.IsFieldSetAndNotNull(m_nameField)) {
        const QString name = QString::fromUtf8(feature.GetFieldAsString(m_nameField)).simplified();
        if (!name.isEmpty())
            return name;
    }
    return QStringLiteral("%1 %2").arg(m_options.name.isEmpty() ? m_name : m_options.name).arg(m_number);
}

/// The row as a point; nothing where it has no numbers for x and y.
std::unique_ptr<OGRPoint> LayerReader::pointOf(const OGRFeature& feature) const
{
    const auto numberAt = [&feature](int column) {
        if (column < 0 || !feature.IsFieldSetAndNotNull(column))
            return std::numeric_limits<double>::quiet_NaN();
        const std::string text = feature.GetFieldAsString(column);
        const bool isText = feature.GetFieldDefnRef(column)->GetType() == OFTString;
        return isText ? numberOf(text).value_or(std::numeric_limits<double>::quiet_NaN())
                      : feature.GetFieldAsDouble(column);
    };
    const double x = numberAt(m_columns->x);
    const double y = numberAt(m_columns->y);
    const double z = numberAt(m_columns->z);
    if (!std::isfinite(x) || !std::isfinite(y))
        return nullptr;
    return std::isfinite(z) ? std::make_unique<OGRPoint>(x, y, z) : std::make_unique<OGRPoint>(x, y);
}

void LayerReader::readFeature(const OGRFeature& feature)
{
    const OGRGeometry* geometry = feature.GetGeometryRef();
    if (!geometry || geometry->IsEmpty()) {
        ++m_withoutGeometry;
        return;
    }
    m_measured += geometry->IsMeasured() ? 1 : 0;
    if (geometry->hasCurveGeometry(FALSE)) {
        // Curves of straight pieces stay as they are.
        const std::unique_ptr<OGRGeometry> linear(geometry->getLinearGeometry());
        m_curves += geometry->hasCurveGeometry(TRUE) ? 1 : 0;
        readGeometry(feature, *linear);
        return;
    }
    readGeometry(feature, *geometry);
}

void LayerReader::readGeometry(const OGRFeature& feature, const OGRGeometry& geometry)
{
    const OGRwkbGeometryType type = wkbFlatten(geometry.getGeometryType());
    if (type == wkbGeometryCollection) {
        ++m_collections;
        for (const OGRGeometry* part : *geometry.toGeometryCollection()) {
            if (!part->IsEmpty())
                readGeometry(feature, *part);
        }
        return;
    }
    ++m_number;
    switch (type) {
    case wkbPoint:
        addPoint(feature, *geometry.toPoint());
        break;
    case wkbMultiPoint:
        for (const OGRPoint* point : *geometry.toMultiPoint())
            addPoint(feature, *point);
        break;
    case wkbPolygon:
        if (m_subClasses >= 0 && QByteArray(feature.GetFieldAsString(m_subClasses)).contains("AcDbFace"))
            addFaceOfDrawing(feature, *geometry.toPolygon());
        else
            addLines(feature, geometry);
        break;
    case wkbLineString:
    case wkbMultiLineString:
    case wkbMultiPolygon:
    case wkbMultiCurve:
    case wkbMultiSurface:
        addLines(feature, geometry);
        break;
    case wkbTriangle: {
        Faces faces;
        m_surfaces += addFace(*geometry.toPolygon(), faces) ? 1 : 0;
        addMesh(featureName(feature), faces, m_fields.attributesOf(feature));
        break;
    }
    case wkbTIN:
    case wkbPolyhedralSurface:
        addSurface(feature, *geometry.toPolyhedralSurface());
        break;
    default:
        ++m_unknown;
        break;
    }
}

void LayerReader::addPart(const OGRSimpleCurve& curve, bool closed, bool hole, ModelObject& object)
{
    if (curve.getNumPoints() == 0)
        return;
    object.parts.push_back({static_cast<int>(m_x.size()), curve.getNumPoints(), closed, hole});
    for (int index = 0; index < curve.getNumPoints(); ++index) {
        m_x.push_back(curve.getX(index));
        m_y.push_back(curve.getY(index));
        m_z.push_back(curve.getZ(index));
    }
}

void LayerReader::addParts(const OGRGeometry& geometry, ModelObject& object)
{
    switch (wkbFlatten(geometry.getGeometryType())) {
    case wkbLineString:
        addPart(*geometry.toLineString(), geometry.toLineString()->get_IsClosed() != 0, false, object);
        break;
    case wkbPolygon: {
        bool hole = false;
        for (const OGRLinearRing* ring : *geometry.toPolygon()) {
            addPart(*ring, true, hole, object);
            hole = true;
        }
        break;
    }
    default:
        for (const OGRGeometry* part : *geometry.toGeometryCollection())
            addParts(*part, object);
        break;
    }
}

void LayerReader::addLines(const OGRFeature& feature, const OGRGeometry& geometry)
{
    const OGRwkbGeometryType type = wkbFlatten(geometry.getGeometryType());
    const bool area = type == wkbPolygon || type == wkbMultiPolygon || type == wkbMultiSurface;
    ModelObject object = makeObject(area ? ObjectType::Polygons : ObjectType::Polylines, featureName(feature));
    m_x.clear();
    m_y.clear();
    m_z.clear();
    addParts(geometry, object);
    if (m_x.empty()) {
        ++m_withoutGeometry;
        return;
    }
    const auto isNumber = [](double z) { return std::isfinite(z); };
    object.hasZ = geometry.Is3D() != 0 && std::any_of(m_z.begin(), m_z.end(), isNumber);
    if (!object.hasZ)
        std::fill(m_z.begin(), m_z.end(), 0.0);
    setCoordinates(object, m_x, m_y, m_z);
    object.objectAttributes = m_fields.attributesOf(feature);
    m_model.add(std::move(object));
}

bool LayerReader::addFace(const OGRPolygon& polygon, Faces& faces)
{
    const OGRLinearRing* ring = polygon.getExteriorRing();
    std::vector<int> corners;
    for (int index = 0; ring && index < ring->getNumPoints(); ++index) {
        OGRPoint point;
        ring->getPoint(index, &point);
        // A NaN would be a key that is never found again.
        if (!std::isfinite(point.getX()) || !std::isfinite(point.getY()) || !std::isfinite(point.getZ()))
            return false;
        const int vertex = faces.vertexAt(point);
        // A drawing repeats a corner to make a face of three.
        if (corners.empty() || corners.back() != vertex)
            corners.push_back(vertex);
    }
    while (corners.size() > 1 && corners.back() == corners.front())
        corners.pop_back();
    m_faceHoles += polygon.getNumInteriorRings() > 0 ? 1 : 0;
    const MeshBuilder& mesh = faces.mesh;
    if (corners.size() < 3 || !appendTriangles(corners, mesh.x, mesh.y, mesh.z, faces.mesh.triangles))
        return false;
    ++faces.count;
    return true;
}

void LayerReader::addFaceOfDrawing(const OGRFeature& feature, const OGRPolygon& polygon)
{
    const QString layer = m_drawingLayer >= 0 ? QString::fromUtf8(feature.GetFieldAsString(m_drawingLayer)) : m_name;
    m_badFaces += addFace(polygon, m_drawn[layer]) ? 0 : 1;
}

void LayerReader::addSurface(const OGRFeature& feature, const OGRPolyhedralSurface& surface)
{
    Faces faces;
    bool whole = true;
    for (const OGRPolygon* polygon : surface)
        whole = addFace(*polygon, faces) && whole;
    ++m_surfaces;
    m_badFaces += whole ? 0 : 1;
    addMesh(featureName(feature), faces, m_fields.attributesOf(feature));
}

void LayerReader::addMesh(const QString& name, Faces& faces, std::vector<ObjectAttribute> attributes)
{
    if (faces.mesh.triangles.empty())
        return;
    ModelObject mesh = makeObject(ObjectType::MeshSurfaces, name);
    setCoordinates(mesh, std::move(faces.mesh.x), std::move(faces.mesh.y), std::move(faces.mesh.z));
    mesh.triangles = std::move(faces.mesh.triangles);
    mesh.objectAttributes = std::move(attributes);
    m_model.add(std::move(mesh));
}

void LayerReader::addPoint(const OGRFeature& feature, const OGRPoint& point)
{
    if (point.IsEmpty() || !std::isfinite(point.getX()) || !std::isfinite(point.getY())) {
        ++m_emptyPoints;
        return;
    }
    const bool hasZ = point.Is3D() != 0 && std::isfinite(point.getZ());
    const bool single = m_options.type == ObjectType::Pins || m_options.type == ObjectType::Posts
                        || m_options.type == ObjectType::Labels;
    if (single) {
        ModelObject object = makeObject(ObjectType::Pins, featureName(feature));
        setCoordinates(object, {point.getX()}, {point.getY()}, {hasZ ? point.getZ() : 0.0});
        object.hasZ = hasZ;
        object.objectAttributes = m_fields.attributesOf(feature);
        m_model.add(std::move(object));
        return;
    }
    m_cloud.x.push_back(point.getX());
    m_cloud.y.push_back(point.getY());
    m_cloud.z.push_back(hasZ ? point.getZ() : std::numeric_limits<double>::quiet_NaN());
    m_cloudHasZ = m_cloudHasZ || hasZ;
    m_flatPoints += hasZ ? 0 : 1;
    m_fields.addRow(feature);
}

void LayerReader::addCloud()
{
    ModelObject cloud = makeObject(ObjectType::VertexClouds, m_options.name.isEmpty() ? m_name : m_options.name);
    cloud.hasZ = m_cloudHasZ;
    if (!m_cloudHasZ) {
        std::fill(m_cloud.z.begin(), m_cloud.z.end(), 0.0);
        m_flatPoints = 0;
    }
    setCoordinates(cloud, std::move(m_cloud.x), std::move(m_cloud.y), std::move(m_cloud.z));
    cloud.vertexAttributes = m_fields.takeColumns();
    m_model.add(std::move(cloud));
}

} // namespace kpFormats
