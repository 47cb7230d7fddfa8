// SPDX-License-Identifier: MIT
#include "readers/VectorReader.h"

#include "geo/CoordinateSystems.h"
#include "geo/GdalSession.h"
#include "readers/DelimitedTable.h"
#include "readers/LoadError.h"
#include "readers/OpenDataset.h"

#include <ogrsf_frmts.h>

#include <limits>
#include <utility>

namespace kpFormats
{

namespace
{

/// The coordinates of an object while it is read.
struct Coordinates
{
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z;

    void add(double px, double py, double pz)
    {
        x.push_back(px);
        y.push_back(py);
        z.push_back(pz);
    }

    void moveTo(ModelObject& object)
    {
        object.x = std::make_shared<const std::vector<double>>(std::move(x));
        object.y = std::make_shared<const std::vector<double>>(std::move(y));
        object.z = std::make_shared<const std::vector<double>>(std::move(z));
    }
};

AttributeKind kindOf(const OGRFieldDefn& field)
{
    switch (field.GetType()) {
    case OFTInteger:
        return field.GetSubType() == OFSTBoolean ? AttributeKind::Boolean : AttributeKind::Integer;
    case OFTInteger64:
        return AttributeKind::Integer;
    case OFTReal:
        return AttributeKind::Real;
    default:
        return AttributeKind::Text;
    }
}

QVariant valueOf(const OGRFeature& feature, int field, AttributeKind kind)
{
    if (!feature.IsFieldSetAndNotNull(field))
        return {};
    switch (kind) {
    case AttributeKind::Real:
        return feature.GetFieldAsDouble(field);
    case AttributeKind::Integer: {
        const GIntBig number = feature.GetFieldAsInteger64(field);
        if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
            return static_cast<double>(number);
        return static_cast<int>(number);
    }
    case AttributeKind::Boolean:
        return feature.GetFieldAsInteger(field) != 0;
    default:
        return QString::fromUtf8(feature.GetFieldAsString(field));
    }
}

/// Turns a list of variants into a column; whole numbers beyond 32 bits make it one of real numbers.
AttributeColumn columnOf(const QString& name, AttributeKind kind, QVector<QVariant> values)
{
    AttributeColumn column;
    column.name = name;
    column.kind = kind;
    for (const QVariant& value : qAsConst(values)) {
        if (kind == AttributeKind::Integer && value.type() == QVariant::Double)
            column.kind = AttributeKind::Real;
    }
    if (column.kind != AttributeKind::Real) {
        column.values = std::move(values);
        return column;
    }
    std::vector<double> numbers;
    std::vector<unsigned char> missing;
    bool anyMissing = false;
    numbers.reserve(static_cast<std::size_t>(values.size()));
    for (const QVariant& value : qAsConst(values)) {
        numbers.push_back(value.toDouble());
        missing.push_back(value.isNull() ? 1 : 0);
        anyMissing = anyMissing || value.isNull();
    }
    column.numbers = std::make_shared<const std::vector<double>>(std::move(numbers));
    if (anyMissing)
        column.missing = std::make_shared<const std::vector<unsigned char>>(std::move(missing));
    return column;
}

void addPart(const OGRSimpleCurve& curve, bool closed, bool hole, Coordinates& coordinates, ModelObject& object)
{
    if (curve.getNumPoints() == 0)
        return;
    object.parts.push_back({static_cast<int>(coordinates.x.size()), curve.getNumPoints(), closed, hole});
    for (int index = 0; index < curve.getNumPoints(); ++index)
        coordinates.add(curve.getX(index), curve.getY(index), curve.getZ(index));
}

/// Adds the parts of a line or polygon; false for another kind of geometry.
bool addGeometry(const OGRGeometry& geometry, Coordinates& coordinates, ModelObject& object)
{
    switch (wkbFlatten(geometry.getGeometryType())) {
    case wkbLineString: {
        const OGRLineString* line = geometry.toLineString();
        addPart(*line, line->get_IsClosed() != 0, false, coordinates, object);
        return true;
    }
    case wkbPolygon: {
        bool hole = false;
        for (const OGRLinearRing* ring : *geometry.toPolygon()) {
            addPart(*ring, true, hole, coordinates, object);
            hole = true;
        }
        return true;
    }
    case wkbMultiLineString:
    case wkbMultiPolygon:
    case wkbGeometryCollection: {
        bool known = true;
        for (const OGRGeometry* part : *geometry.toGeometryCollection())
            known = addGeometry(*part, coordinates, object) && known;
        return known;
    }
    default:
        return false;
    }
}

class LayerReader
{
public:
    LayerReader(Model& model, OGRLayer& layer, const QString& path, const LoadOptions& options)
        : m_model(model)
        , m_layer(layer)
        , m_path(path)
        , m_options(options)
        , m_name(QString::fromUtf8(layer.GetName()))
    {
        const OGRFeatureDefn* definition = layer.GetLayerDefn();
        for (int field = 0; field < definition->GetFieldCount(); ++field) {
            m_fieldNames.append(QString::fromUtf8(definition->GetFieldDefn(field)->GetNameRef()));
            m_kinds.push_back(kindOf(*definition->GetFieldDefn(field)));
        }
        m_nameField = m_fieldNames.indexOf(options.nameField);
        if (!options.nameField.isEmpty() && m_nameField < 0) {
            throw LoadError(
                path, QStringLiteral("layer %1 has no field \"%2\" to name its objects").arg(m_name, options.nameField),
                QStringLiteral("it has: %1").arg(m_fieldNames.join(QStringLiteral(", "))));
        }
        m_crs = options.crs.isEmpty() ? wktOf(layer.GetSpatialRef()) : wktOf(options.crs);
        m_columns.resize(m_fieldNames.size());
    }

    int read(LoadNotes& notes)
    {
        const std::size_t before = m_model.objects().size();
        for (const auto& feature : m_layer)
            readFeature(*feature);
        if (!m_cloud.x.empty())
            addCloud();
        if (m_withoutGeometry > 0)
            notes.append(QStringLiteral("%1: %2 of layer %3 had no geometry and were left out")
                             .arg(m_path, QString::number(m_withoutGeometry), m_name));
        if (m_unknown > 0)
            notes.append(QStringLiteral("%1: %2 of layer %3 had a geometry that is no point, line or polygon")
                             .arg(m_path, QString::number(m_unknown), m_name));
        return static_cast<int>(m_model.objects().size() - before);
    }

private:
    bool singlePoints() const
    {
        return m_options.type == ObjectType::Pins || m_options.type == ObjectType::Posts
               || m_options.type == ObjectType::Labels;
    }

    ModelObject newObject(ObjectType type, const QString& name) const
    {
        ModelObject object;
        object.type = m_options.type.value_or(type);
        object.name = name;
        object.set = m_options.set.isEmpty() ? m_name : m_options.set;
        object.crs = m_crs;
        object.lengthUnit = m_options.lengthUnit;
        object.source = m_path;
        object.color = m_options.color.isEmpty() ? paletteColor(static_cast<int>(m_model.objects().size()))
                                                 : QColor(m_options.color);
        return object;
    }

    QString featureName(const OGRFeature& feature, int number) const
    {
        if (m_nameField >= 0 && feature.IsFieldSetAndNotNull(m_nameField)) {
            const QString name = QString::fromUtf8(feature.GetFieldAsString(m_nameField)).simplified();
            if (!name.isEmpty())
                return name;
        }
        return QStringLiteral("%1 %2").arg(m_options.name.isEmpty() ? m_name : m_options.name).arg(number);
    }

    void addObjectAttributes(const OGRFeature& feature, ModelObject& object) const
    {
        for (int field = 0; field < m_fieldNames.size(); ++field) {
            const AttributeKind kind = m_kinds[static_cast<std::size_t>(field)];
            object.objectAttributes.push_back({m_fieldNames[field], kind, QString(), valueOf(feature, field, kind)});
        }
    }

    void readFeature(const OGRFeature& feature)
    {
        const OGRGeometry* geometry = feature.GetGeometryRef();
        if (!geometry || geometry->IsEmpty()) {
            ++m_withoutGeometry;
            return;
        }
        ++m_number;
        const OGRwkbGeometryType type = wkbFlatten(geometry->getGeometryType());
        if (type == wkbPoint) {
            addPoint(feature, *geometry->toPoint());
        } else if (type == wkbMultiPoint) {
            for (const OGRPoint* point : *geometry->toMultiPoint())
                addPoint(feature, *point);
        } else {
            const bool area = type == wkbPolygon || type == wkbMultiPolygon;
            ModelObject object =
                newObject(area ? ObjectType::Polygons : ObjectType::Polylines, featureName(feature, m_number));
            Coordinates coordinates;
            if (!addGeometry(*geometry, coordinates, object) || coordinates.x.empty()) {
                ++m_unknown;
                return;
            }
            coordinates.moveTo(object);
            object.hasZ = geometry->Is3D() != 0;
            addObjectAttributes(feature, object);
            m_model.add(std::move(object));
        }
    }

    void addPoint(const OGRFeature& feature, const OGRPoint& point)
    {
        if (point.IsEmpty())
            return;
        if (singlePoints()) {
            ModelObject object = newObject(ObjectType::Pins, featureName(feature, m_number));
            Coordinates coordinates;
            coordinates.add(point.getX(), point.getY(), point.getZ());
            coordinates.moveTo(object);
            object.hasZ = point.Is3D() != 0;
            addObjectAttributes(feature, object);
            m_model.add(std::move(object));
            return;
        }
        m_cloud.add(point.getX(), point.getY(), point.getZ());
        m_cloudHasZ = m_cloudHasZ || point.Is3D();
        for (int field = 0; field < m_fieldNames.size(); ++field)
            m_columns[field].append(valueOf(feature, field, m_kinds[static_cast<std::size_t>(field)]));
    }

    void addCloud()
    {
        ModelObject cloud = newObject(ObjectType::VertexClouds, m_options.name.isEmpty() ? m_name : m_options.name);
        m_cloud.moveTo(cloud);
        cloud.hasZ = m_cloudHasZ;
        for (int field = 0; field < m_fieldNames.size(); ++field) {
            cloud.vertexAttributes.push_back(
                columnOf(m_fieldNames[field], m_kinds[static_cast<std::size_t>(field)], std::move(m_columns[field])));
        }
        m_model.add(std::move(cloud));
    }

    Model& m_model;
    OGRLayer& m_layer;
    QString m_path;
    const LoadOptions& m_options;
    QString m_name;
    QStringList m_fieldNames;
    std::vector<AttributeKind> m_kinds;
    int m_nameField = -1;
    QString m_crs;
    Coordinates m_cloud;
    bool m_cloudHasZ = false;
    QVector<QVector<QVariant>> m_columns;
    int m_number = 0;
    int m_withoutGeometry = 0;
    int m_unknown = 0;
};

} // namespace

QColor paletteColor(int index)
{
    // Steps of the golden angle keep neighbours apart however many there are.
    return QColor::fromHsv(static_cast<int>((index * 137LL + 210) % 360), 170, 200);
}

LoadNotes readVectors(Model& model, const QString& path, const LoadOptions& options)
{
    const QuietGdal quiet;
    const bool table = isDelimited(path);
    const GDALDatasetUniquePtr dataset = table ? openTable(path, options) : openDataset(path, GDAL_OF_VECTOR);
    LoadNotes notes;
    QStringList layers;
    int objects = 0;
    bool found = options.layer.isEmpty();
    for (OGRLayer* layer : dataset->GetLayers()) {
        const QString name = QString::fromUtf8(layer->GetName());
        layers.append(name);
        if (!options.layer.isEmpty() && name != options.layer)
            continue;
        found = true;
        CPLErrorReset();
        objects += LayerReader(model, *layer, path, options).read(notes);
        if (CPLGetLastErrorType() >= CE_Failure) {
            throw LoadError(path, QStringLiteral("reading layer %1 failed: %2").arg(name, QuietGdal::lastMessage()),
                            QStringLiteral("the file may be damaged; copy it again from its source"));
        }
    }
    if (!found)
        throw LoadError(path, QStringLiteral("there is no layer \"%1\"").arg(options.layer),
                        QStringLiteral("it has: %1").arg(layers.join(QStringLiteral(", "))));
    if (objects == 0) {
        if (table && dataset->GetLayerCount() > 0)
            throw noPoints(path, *dataset->GetLayer(0));
        throw LoadError(path, QStringLiteral("no object was found in it"),
                        QStringLiteral("the layer is empty; check it at its source"));
    }
    return notes;
}

} // namespace kpFormats
