// SPDX-License-Identifier: MIT
// The vector formats: real data sets written by the savers and read back through a fresh OGR open.
#include "tests/formats/ogr/OgrTestTools.h"

using namespace kpFormats;

namespace
{

/// The names of the attributes of some objects, in the order first met.
QStringList attributesOf(const std::vector<const ModelObject*>& objects, bool points)
{
    QStringList names;
    for (const ModelObject* object : objects) {
        for (std::size_t column = 0; points && column < object->vertexAttributes.size(); ++column)
            names.append(object->vertexAttributes[column].name);
        for (const ObjectAttribute& attribute : object->objectAttributes)
            names.append(attribute.name);
    }
    names.removeDuplicates();
    return names;
}

QVariant valueOf(const ModelObject& object, const QString& name, int vertex)
{
    for (const AttributeColumn& column : object.vertexAttributes) {
        if (vertex < 0 || column.name != name)
            continue;
        if (column.kind != AttributeKind::Real)
            return column.values[vertex];
        const auto row = static_cast<std::size_t>(vertex);
        return column.missing && (*column.missing)[row] ? QVariant() : QVariant((*column.numbers)[row]);
    }
    for (const ObjectAttribute& attribute : object.objectAttributes) {
        if (attribute.name == name)
            return attribute.value;
    }
    return {};
}

/// What differs between a value and a field; empty when they agree as far as the format can.
QString difference(const QVariant& value, const OGRFeature& feature, int field, bool nulls, bool shp)
{
    const bool there = feature.IsFieldSetAndNotNull(field) != 0;
    QString read = QString::fromUtf8(feature.GetFieldAsString(field));
    // The driver takes dates for such and shows them in a form of its own.
    if (feature.GetFieldDefnRef(field)->GetType() == OFTDate)
        read.replace(QLatin1Char('/'), QLatin1Char('-'));
    const QString text = value.toString();
    bool same = there;
    if (value.isNull() || (value.type() == QVariant::String && text.isEmpty())) {
        same = read.isEmpty() || (nulls ? !there : read == QLatin1String("0"));
    } else if (value.type() == QVariant::String) {
        same = there
               && (text == read || (text.toUtf8().size() > 254 && text.startsWith(read) && read.toUtf8().size() > 250));
    } else if (there) {
        // A table of a Shapefile has 15 decimals at most; the report counts what that rounds.
        const double wanted = value.toDouble();
        same =
            std::abs(feature.GetFieldAsDouble(field) - wanted) <= std::max(1e-14 * std::abs(wanted), shp ? 5e-16 : 0.0);
    } else {
        // A number too wide for a table; the report counts it.
        same = shp && value.toDouble() >= 1e31;
    }
    const QString null = QStringLiteral("null");
    return same ? QString() : QStringLiteral("%1 read as %2").arg(value.isNull() ? null : text, there ? read : null);
}

/// The first thing that differs between the attributes of a layer and of the model, or an empty text.
QString compare(OGRLayer& layer, const std::vector<const ModelObject*>& objects, bool points, const QString& format)
{
    const bool tab = format == QLatin1String("tab");
    const bool shp = format == QLatin1String("shp");
    const QStringList names = attributesOf(objects, points);
    // The object's name first; a MapInfo table has the heights of points after it.
    const auto hasZ = [](const ModelObject* object) { return object->hasZ; };
    const int offset = tab && points && std::any_of(objects.begin(), objects.end(), hasZ) ? 2 : 1;
    for (const ModelObject* object : objects) {
        for (int vertex = 0; vertex < (points ? object->vertexCount() : 1); ++vertex) {
            if (points ? std::isnan((*object->z)[static_cast<std::size_t>(vertex)]) : object->vertexCount() < 2)
                continue;
            const OGRFeatureUniquePtr feature(layer.GetNextFeature());
            if (!feature)
                return QStringLiteral("%1: too few features").arg(object->name);
            if ((feature->GetGeometryRef()->Is3D() != 0) != (object->hasZ && !tab))
                return QStringLiteral("%1: heights").arg(object->name);
            for (int index = 0; index < names.size(); ++index) {
                const QVariant value = valueOf(*object, names[index], points ? vertex : -1);
                const QString wrong = difference(value, *feature, index + offset, !tab, shp);
                if (!wrong.isEmpty())
                    return QStringLiteral("%1, %2 of %3: %4").arg(object->name, names[index]).arg(vertex).arg(wrong);
            }
        }
    }
    return OGRFeatureUniquePtr(layer.GetNextFeature()) ? QStringLiteral("too many features") : QString();
}

/// How far apart two coordinate systems put a position.
double shiftBetween(const OGRSpatialReference& read, const QString& crs, double x, double y)
{
    OGRSpatialReference own(read);
    OGRSpatialReference wanted(crs.toUtf8().constData());
    own.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    wanted.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    const std::unique_ptr<OGRCoordinateTransformation> way(OGRCreateCoordinateTransformation(&own, &wanted));
    const double x0 = x;
    const double y0 = y;
    if (!way || !way->Transform(1, &x, &y))
        return none;
    return std::hypot(x - x0, y - y0) * (wanted.IsGeographic() ? 1e5 : 1.0);
}

} // namespace

class OgrRoundTripsTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void roundTrip_data();
    void roundTrip();
    void geoJsonOnTheGlobe();
    void transformed();
    void verificationSeesDamage();
};

void OgrRoundTripsTest::roundTrip_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("data");
    QStringList sets{sample("geology.geojson"), sample("faults_3d.gpkg"), sample("structures.geojson"),
                     sample("map_contacts.csv"), sample("tops.gpkg")};
    for (const char* name :
         {"hamersley/faults.geojson", "plates/PB2002_plates.shp", "plates/PB2002_boundaries.json",
          "plates/PB2002_orogens.json", "cities/naturalearth_cities.shp", "structural/fault_trace.shp",
          "structural/duplex.csv", "structural/intrusion.csv", "structural/map_fault_orientations.csv",
          "reek/faultpoly.gpkg", "reek/poi_attr.csv", "babbitt/traces.gpkg", "babbitt/collars.gpkg"})
        sets.append(QStringLiteral(KP_SOURCE_DIR "/../shared/data/") + QString::fromLatin1(name));
    for (const char* format : {"shp", "tab", "gpkg", "geojson", "fgb", "gml", "sqlite"}) {
        for (const QString& data : qAsConst(sets))
            QTest::addRow("%s %s", format, qPrintable(QFileInfo(data).fileName()))
                << QString::fromLatin1(format) << data;
    }
}

void OgrRoundTripsTest::roundTrip()
{
    QFETCH(QString, format);
    QFETCH(QString, data);
    if (!QFileInfo::exists(data))
        QSKIP("the data set is not here");
    LoadOptions options;
    if (data.endsWith(QLatin1String("poi_attr.csv"))) {
        options.x = QStringLiteral("X_UTME");
        options.y = QStringLiteral("Y_UTMN");
        options.z = QStringLiteral("Z_TVDSS");
    }
    // GeoJSON in the model's own system, so that positions can be compared; the globe has a test of its own.
    const bool geoJson = format == QLatin1String("geojson");
    const SaverRun run(format, loaded(data, options), path("Разлом 地層"), geoJson ? "rfc7946=false;decimals=12" : "");
    QCOMPARE(run.fault(), QString());
    for (std::size_t index = 0; index < run.files.size(); ++index) {
        const PlannedFile& file = run.files[index];
        const ModelObject& first = *file.objects.front();
        const GDALDatasetUniquePtr source = openVector(file.path);
        QVERIFY(source);
        QCOMPARE(source->GetLayerCount(), 1);
        OGRLayer& layer = *source->GetLayer(0);
        const bool points = first.type != ObjectType::Polygons && first.type != ObjectType::Polylines;
        QCOMPARE(compare(layer, file.objects, points, format), QString());
        // A MapInfo table has whole numbers between the outermost positions: here are traces all over the globe.
        const double tab = data.endsWith(QLatin1String("fault_trace.shp")) ? 1e-2 : 1e-4;
        const double tolerance = format == QLatin1String("tab")              ? tab
                                 : geoJson || format == QLatin1String("gml") ? 1e-8
                                                                             : 0.0;
        const double worst = run.readBack[index].worst().difference;
        QVERIFY2(worst <= tolerance, qPrintable(QString::number(worst)));
        const OGRSpatialReference* read = layer.GetSpatialRef();
        // GeoJSON has no way to say that there is no system: readers take it for WGS 84.
        if (first.crs.isEmpty())
            QVERIFY(geoJson || !read || read->IsLocal());
        else
            QVERIFY(read && shiftBetween(*read, first.crs, (*first.x)[0], (*first.y)[0]) < 1e-3);
        const auto count = static_cast<qint64>(layer.GetFeatureCount());
        QVERIFY(count > 0 && run.readBack[index].positions() >= count);
        const QStringList arguments{QStringLiteral("--count"), QString::number(count), file.path};
        if (!sanitized && format == QLatin1String("shp"))
            KP_VALIDATE("shp.py", arguments);
        // The script asks for the system in a form that cannot hold the one that GDAL gives GeoJSON with heights.
        if (!sanitized && !(geoJson && first.crs.isEmpty()))
            KP_VALIDATE("ogr_dump.sh", arguments);
    }
}

void OgrRoundTripsTest::geoJsonOnTheGlobe()
{
    std::vector<ModelObject> objects = loaded(sample("faults_3d.gpkg"));
    const std::vector<ModelObject> polygons = loaded(sample("geology.geojson"));
    objects.insert(objects.end(), polygons.begin(), polygons.end());
    const SaverRun run("geojson", objects, path("globe"));
    QCOMPARE(run.fault(), QString());
    for (std::size_t index = 0; index < run.files.size(); ++index) {
        QVERIFY(!run.bytes(index).contains("\"crs\""));
        // PROJ takes it back: what is lost are decimals, of heights those below a millimetre.
        const double worst = run.readBack[index].worst().difference;
        QVERIFY2(worst > 0 && worst < 6e-4, qPrintable(QString::number(worst)));
        OGREnvelope extent;
        QCOMPARE(openVector(run.files[index].path)->GetLayer(0)->GetExtent(&extent), OGRERR_NONE);
        QVERIFY(extent.MinX > 116 && extent.MaxX < 119 && extent.MinY > -24 && extent.MaxY < -21);
    }
    // An outer ring runs counter-clockwise.
    OGRLinearRing outer;
    const std::vector<Positions> rings = runsIn(run.files.back().path);
    for (const auto& position : rings.front())
        outer.addPoint(position[0], position[1]);
    QVERIFY(!outer.isClockwise());

    // Feet become metres, as the standard asks for; a position beyond the globe has no place.
    ModelObject object = objectOf(QStringLiteral("F"), ObjectType::VertexClouds, {10, 200}, {20, 0}, {100, 0});
    object.lengthUnit = QStringLiteral("ft");
    const SaverRun feet("geojson", {object}, path("feet"), "crs=EPSG:4326");
    QCOMPARE(feet.countOf(QStringLiteral("vertex without a position left out")), 1);
    QVERIFY(std::abs(runsIn(path("feet.geojson"))[0][0][2] - 30.48) < 1e-9);

    // Zeros before the last digits, which the driver would take for noise.
    const ModelObject zeros =
        objectOf(QStringLiteral("Z"), ObjectType::VertexClouds, {117.00000009727}, {-21.500000001}, {0});
    const SaverRun close("geojson", {zeros}, path("zeros"), "crs=EPSG:4326");
    QVERIFY2(close.bytes().contains("[ 117.000000097, -21.500000001, 0.0 ]"), close.bytes().constData());
    // Decimals are those of degrees; heights keep their millimetres.
    const ModelObject high = objectOf(QStringLiteral("H"), ObjectType::VertexClouds, {117.25}, {-21.5}, {12.345});
    const SaverRun few("geojson", {high}, path("few"), "crs=EPSG:4326;decimals=1");
    QCOMPARE(few.fault(), QString());
    QVERIFY2(few.bytes().contains("-21.5, 12.345 ]"), few.bytes().constData());
}

void OgrRoundTripsTest::transformed()
{
    const std::vector<ModelObject> objects{
        objectOf(ObjectType::VertexClouds, QStringLiteral("mga"), {{500000, 7500000, 1}, {600000, 7400000, 2}},
                 "EPSG:28350"),
        objectOf(ObjectType::VertexClouds, QStringLiteral("degrees"), {{117, -22.5, 3}}, "EPSG:4283"),
        objectOf(QStringLiteral("none"), ObjectType::VertexClouds, {500100}, {7500100}, {4})};
    const SaverRun run("gpkg", objects, path("t.gpkg"));
    QCOMPARE(run.countOf(QStringLiteral("transformed")), 1);
    QCOMPARE(run.countOf(QStringLiteral("coordinate system assumed")), 1);
    const std::vector<Positions> runs = runsIn(path("t.gpkg"));
    QCOMPARE(runs.size(), std::size_t(4));
    // 117 degrees east is the central meridian of zone 50.
    QVERIFY(std::abs(runs[2][0][0] - 500000.0) < 1e-6);
    QVERIFY(std::abs(runs[2][0][1] - 7511734.0) < 200.0);
    QCOMPARE(runs[2][0][2], 3.0);
    QCOMPARE(runs[3][0][0], 500100.0);
    // What the user asks for is not a finding.
    const SaverRun quietRun("shp", objects, path("t.shp"), "crs=EPSG:4283");
    QCOMPARE(quietRun.countOf(QStringLiteral("transformed")), 0);
    QVERIFY(std::abs(runsIn(path("t.shp"))[0][0][0] - 117.0) < 1e-9);
}

void OgrRoundTripsTest::verificationSeesDamage()
{
    SaverRun run("gpkg", loaded(sample("faults_3d.gpkg")), path("damage.gpkg"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.readBack.front().worst().difference, 0.0);
    {
        const GDALDatasetUniquePtr file = openVector(run.selection.path, GDAL_OF_UPDATE);
        OGRLayer& layer = *file->GetLayer(0);
        const OGRFeatureUniquePtr feature(layer.GetFeature(3));
        OGRGeometry* geometry = feature->GetGeometryRef();
        const bool single = wkbFlatten(geometry->getGeometryType()) == wkbLineString;
        OGRLineString* line = single ? geometry->toLineString() : geometry->toMultiLineString()->getGeometryRef(0);
        line->setPoint(1, line->getX(1), line->getY(1), line->getZ(1) + 0.5);
        QCOMPARE(layer.SetFeature(feature.get()), OGRERR_NONE);
    }
    const Verification moved = run.verify();
    QVERIFY2(moved.fault().endsWith(QStringLiteral("0.5 off")), qPrintable(moved.fault()));
    QVERIFY(std::abs(moved.worstHeight().difference - 0.5) < 1e-9);
    QCOMPARE(openVector(run.selection.path, GDAL_OF_UPDATE)->GetLayer(0)->DeleteFeature(3), OGRERR_NONE);
    QVERIFY(!run.verify().fault().isEmpty());
    QFile::remove(run.selection.path);
    QVERIFY(!run.verify().fault().isEmpty());
}

QTEST_GUILESS_MAIN(OgrRoundTripsTest)
#include "tst_ogrroundtrips.moc"
