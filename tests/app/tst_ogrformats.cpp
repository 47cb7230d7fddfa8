// SPDX-License-Identifier: MIT
// The vector formats: real data sets written by the savers and read back through a fresh OGR open.
#include "tests/app/OgrTestTools.h"

#include "app/savers/ogr/FieldNames.h"

#include <QColor>
#include <ogr_spatialref.h>

using namespace refhost;

namespace
{

/// The names of the attributes of some objects, in the order first met.
QStringList attributesOf(const std::vector<const ModelObject*>& objects, bool points)
{
    QStringList names;
    const auto add = [&names](const QString& name) {
        if (!names.contains(name))
            names.append(name);
    };
    for (const ModelObject* object : objects) {
        if (points) {
            for (const AttributeColumn& column : object->vertexAttributes)
                add(column.name);
        }
        for (const ObjectAttribute& attribute : object->objectAttributes)
            add(attribute.name);
    }
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
    const QString read = QString::fromUtf8(feature.GetFieldAsString(field));
    const QString both = QStringLiteral("%1 read as %2").arg(value.isNull() ? QStringLiteral("null") : value.toString(), there ? read : QStringLiteral("null"));
    if (value.isNull() || (value.type() == QVariant::String && value.toString().isEmpty()))
        return nulls ? (there && !read.isEmpty() ? both : QString()) : (read.isEmpty() || read == QLatin1String("0") ? QString() : both);
    // A number too wide for a table; the report counts it.
    if (!there && shp && value.toDouble() >= 1e31)
        return {};
    if (!there)
        return both;
    if (value.type() == QVariant::String) {
        const QString text = value.toString();
        const bool cut = text.toUtf8().size() > 254 && text.startsWith(read) && read.toUtf8().size() > 250;
        return text == read || cut ? QString() : both;
    }
    const double wanted = value.toDouble();
    // A table of a Shapefile has 15 decimals at most; the report counts what that rounds.
    return std::abs(feature.GetFieldAsDouble(field) - wanted) <= std::max(1e-14 * std::abs(wanted), shp ? 5e-16 : 0.0) ? QString() : both;
}

/// The step of the grid of whole numbers on which a MapInfo table lays positions.
double gridStep(const std::vector<const ModelObject*>& objects)
{
    double range = 0;
    for (const auto member : {&ModelObject::x, &ModelObject::y}) {
        double least = 1e99;
        double most = -1e99;
        for (const ModelObject* object : objects) {
            least = std::min(least, *std::min_element((object->*member)->begin(), (object->*member)->end()));
            most = std::max(most, *std::max_element((object->*member)->begin(), (object->*member)->end()));
        }
        range = std::max(range, most - least);
    }
    return range / 2e9;
}

class FileCheck
{
public:
    FileCheck(const QString& format, const PlannedFile& file, bool heights)
        : m_format(format)
        , m_file(file)
        , m_heights(heights)
    {
    }

    /// The first thing that differs from the model, or an empty text.
    QString compare(OGRLayer& layer, const std::vector<const ModelObject*>& objects, bool points)
    {
        m_names = attributesOf(objects, points);
        // The object's name first; a MapInfo table has the heights of points after it.
        m_offset = 1;
        if (m_format == QLatin1String("tab") && points && std::any_of(objects.begin(), objects.end(), [](const ModelObject* object) { return object->hasZ; }))
            m_offset = 2;
        layer.ResetReading();
        for (const ModelObject* object : objects) {
            for (int vertex = 0; vertex < (points ? object->vertexCount() : 1); ++vertex) {
                if (points && std::isnan((*object->z)[static_cast<std::size_t>(vertex)]))
                    continue;
                if (!points && object->vertexCount() < 2)
                    continue;
                const OGRFeatureUniquePtr feature(layer.GetNextFeature());
                if (!feature)
                    return QStringLiteral("%1: too few features").arg(object->name);
                const QString wrong = compareOne(*object, points ? vertex : -1, *feature);
                if (!wrong.isEmpty())
                    return QStringLiteral("%1, feature %2: %3").arg(object->name).arg(vertex).arg(wrong);
                ++compared;
            }
        }
        return OGRFeatureUniquePtr(layer.GetNextFeature()) ? QStringLiteral("too many features") : QString();
    }

    double worst = 0;
    int compared = 0;

private:
    QString compareOne(const ModelObject& object, int vertex, const OGRFeature& feature)
    {
        for (int index = 0; index < m_names.size(); ++index) {
            const QString wrong = difference(valueOf(object, m_names[index], vertex), feature, index + m_offset, m_format != QLatin1String("tab"), m_format == QLatin1String("shp"));
            if (!wrong.isEmpty())
                return m_names[index] + QStringLiteral(": ") + wrong;
        }
        std::vector<Positions> runs;
        addRuns(*feature.GetGeometryRef(), runs);
        std::vector<Part> parts = object.parts;
        if (vertex >= 0)
            parts = {{vertex, 1, false, false}};
        if (runs.size() != parts.size())
            return QStringLiteral("%1 parts instead of %2").arg(runs.size()).arg(parts.size());
        for (std::size_t part = 0; part < parts.size(); ++part) {
            if (static_cast<int>(runs[part].size()) != parts[part].count)
                return QStringLiteral("%1 vertices instead of %2").arg(runs[part].size()).arg(parts[part].count);
            worst = std::max(worst, std::min(distance(object, parts[part], runs[part], false), distance(object, parts[part], runs[part], true)));
        }
        return {};
    }

    double distance(const ModelObject& object, const Part& part, const Positions& run, bool reversed) const
    {
        double most = 0;
        for (std::size_t index = 0; index < run.size(); ++index) {
            const auto vertex = static_cast<std::size_t>(part.first) + (reversed ? run.size() - 1 - index : index);
            const double dz = m_heights && object.hasZ ? run[index][2] - (*object.z)[vertex] : 0.0;
            most = std::max(most, std::hypot(run[index][0] - (*object.x)[vertex], run[index][1] - (*object.y)[vertex], dz));
        }
        return most;
    }

    QString m_format;
    const PlannedFile& m_file;
    bool m_heights;
    QStringList m_names;
    int m_offset = 1;
};

} // namespace

class OgrFormatsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names_data();
    void names();
    void manyLikeNames();
    void plans_data();
    void plans();
    void roundTrip_data();
    void roundTrip();
    void geoJsonOnTheGlobe();
    void transformed();
    void limits_data();
    void limits();
    void wideTable();
    void tableEndsOnce();
    void dipAndType();
    void styles();
    void tabGrid();
    void tabCharacterSets_data();
    void tabCharacterSets();
    void surfaces();
    void degenerate();
    void geoPackageWithoutSystem();
    void verificationSeesDamage();

private:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

void OgrFormatsTest::names_data()
{
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<QString>("made");
    QTest::addColumn<bool>("ascii");
    const auto row = [](const char* wanted, const char* made, bool ascii = false) {
        QTest::newRow(wanted) << QString::fromUtf8(wanted) << QString::fromUtf8(made) << ascii;
    };
    row("short", "short");
    row("porosity_mean|porosity_m", "porosity_1|porosity_m");
    row("a b-c|A b c", "a_b_c|A_b_c_1");
    row("Grad|grad|GRAD", "Grad|grad_1|GRAD_2");
    row("grad|grad_1|grad", "grad|grad_1|grad_2");
    row("地層の名前", "地層の");
    row("пористость|пористость2", "порис|пори_1");
    row("", "field");
    row("fid", "fid_1");
    row("Größe|Grösse", "Gro_e|Grosse", true);
    row("Глубина", "_______", true);
}

void OgrFormatsTest::names()
{
    QFETCH(QString, wanted);
    QFETCH(QString, made);
    QFETCH(bool, ascii);
    FieldNameRules rules;
    rules.mostBytes = 10;
    rules.plain = true;
    rules.ascii = ascii;
    rules.reserved = QStringList{QStringLiteral("FID")};
    QCOMPARE(fieldNames(wanted.split(QLatin1Char('|')), rules).join(QLatin1Char('|')), made);
}

void OgrFormatsTest::manyLikeNames()
{
    FieldNameRules rules;
    rules.mostBytes = 10;
    QStringList wanted;
    for (int index = 0; index < 255; ++index)
        wanted.append(QString::fromUtf8("пористость_%1").arg(index));
    const QStringList made = fieldNames(wanted, rules);
    QSet<QString> different;
    for (const QString& name : made) {
        QVERIFY2(name.toUtf8().size() <= 10 && !name.contains(QChar::ReplacementCharacter), qPrintable(name));
        different.insert(name.toCaseFolded());
    }
    QCOMPARE(different.size(), 255);
}

void OgrFormatsTest::plans_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("settings");
    QTest::addColumn<QString>("output");
    QTest::addColumn<QString>("names");
    const auto row = [](const char* name, const char* format, const char* settings, const char* output, const char* names) {
        QTest::newRow(name) << QString::fromUtf8(format) << QString::fromUtf8(settings) << QString::fromUtf8(output) << QString::fromUtf8(names);
    };
    row("a file per type", "shp", "grouping=single", "m.shp", "m_points.shp m_points3d.shp m_polylines3d.shp m_polygons.shp");
    row("no heights, fewer types", "tab", "grouping=single", "m", "m_points.tab m_polylines.tab m_polygons.tab");
    row("layers in one file", "gpkg", "grouping=single", "m.x", "m.x.gpkg");
    row("another extension", "geojson", "grouping=single", "m.JSON", "m_points.json m_points3d.json m_polylines3d.json m_polygons.json");
    row("capitals", "shp", "grouping=object", "m.SHP", "m_P.shp m_Q.shp m_L.shp m_P_2.shp");
    row("sets", "shp", "grouping=set", "m", "m_A_points.shp m_A_points3d.shp m_B_polylines3d.shp m_B_polygons.shp");
    row("sets in folders", "gpkg", "grouping=set", "", "A.gpkg B.gpkg");
    row("a folder is no file", "shp", "grouping=single", "", "");
}

void OgrFormatsTest::plans()
{
    QFETCH(QString, format);
    QFETCH(QString, settings);
    QFETCH(QString, output);
    QFETCH(QString, names);
    Model model;
    const auto add = [&model](const char* name, ObjectType type, bool hasZ, const char* set) {
        ModelObject object = objectOf(QString::fromLatin1(name), type, {0, 1, 1}, {0, 0, 1}, {0, 0, 0}, {{0, 3, false, false}});
        object.hasZ = hasZ;
        object.set = QString::fromLatin1(set);
        model.add(object);
    };
    add("P", ObjectType::Posts, false, "A");
    add("Q", ObjectType::VertexClouds, true, "A");
    add("L", ObjectType::Wells, true, "B");
    add("p", ObjectType::Polygons, false, "B");
    const QTemporaryDir folder;
    const QString target = output.isEmpty() ? folder.path() : folder.filePath(output);
    QStringList made;
    const SaverRun run(format, model.objects(), target, settings);
    for (const PlannedFile& file : run.files)
        made.append(QDir(folder.path()).relativeFilePath(file.path));
    QCOMPARE(made.join(QLatin1Char(' ')), names.isEmpty() ? QStringLiteral(".") : names.replace(QStringLiteral("m_P_2"), QStringLiteral("m_p_2")));
}

void OgrFormatsTest::roundTrip_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("data");
    QStringList sets{sample("geology.geojson"), sample("faults_3d.gpkg"),
                     sample("structures.geojson"), sample("map_contacts.csv"), sample("tops.gpkg")};
    for (const char* name : {"hamersley/faults.geojson", "plates/PB2002_plates.shp", "plates/PB2002_boundaries.json",
                             "plates/PB2002_orogens.json", "cities/naturalearth_cities.shp", "structural/fault_trace.shp",
                             "structural/duplex.csv", "structural/intrusion.csv", "structural/map_fault_orientations.csv", "reek/faultpoly.gpkg", "reek/poi_attr.csv",
                             "babbitt/traces.gpkg", "babbitt/collars.gpkg"})
        sets.append(QStringLiteral(KP_SOURCE_DIR "/../shared/data/") + QString::fromLatin1(name));
    for (const char* format : {"shp", "tab", "gpkg", "geojson"}) {
        for (const QString& data : qAsConst(sets))
            QTest::newRow(qPrintable(QString::fromLatin1(format) + QLatin1Char(' ') + QFileInfo(data).fileName())) << QString::fromLatin1(format) << data;
    }
}

void OgrFormatsTest::roundTrip()
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
    const QTemporaryDir folder;
    // GeoJSON in the model's own system, so that positions can be compared; the globe has a test of its own.
    SaverRun run(format, loaded(data, options), folder.filePath(QString::fromUtf8("Разлом 地層")), format == QLatin1String("geojson") ? "rfc7946=false;decimals=12" : "");
    QVERIFY2(run.written, qPrintable(run.error()));
    for (const PlannedFile& file : run.files) {
        const GDALDatasetUniquePtr source = openVector(file.path);
        QVERIFY(source);
        QCOMPARE(source->GetLayerCount(), 1);
        OGRLayer& layer = *source->GetLayer(0);
        const ObjectType type = file.objects.front()->type;
        FileCheck check(format, file, format != QLatin1String("tab"));
        const QString wrong = check.compare(layer, file.objects, type != ObjectType::Polygons && type != ObjectType::Polylines);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
        QVERIFY(check.compared > 0);
        const double tolerance = format == QLatin1String("tab") ? std::max(1e-4, 2 * gridStep(file.objects)) : format == QLatin1String("geojson") ? 1e-8 : 0.0;
        QVERIFY2(check.worst <= tolerance, qPrintable(QString::number(check.worst)));

        const QString crs = file.objects.front()->crs;
        const OGRSpatialReference* read = layer.GetSpatialRef();
        if (crs.isEmpty()) {
            // GeoJSON has no way to say so: readers take it for WGS 84.
            QVERIFY(format == QLatin1String("geojson") || !read || read->IsLocal());
        } else {
            QVERIFY(read);
            OGRSpatialReference wanted(crs.toUtf8().constData());
            wanted.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
            // Where names differ (MapInfo has its own), a position must land at the same place.
            const char* const loose[] = {"CRITERION=EQUIVALENT", "IGNORE_DATA_AXIS_TO_SRS_AXIS_MAPPING=YES", nullptr};
            if (!read->IsSame(&wanted, loose)) {
                OGRSpatialReference own(*read);
                own.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
                const std::unique_ptr<OGRCoordinateTransformation> way(OGRCreateCoordinateTransformation(&own, &wanted));
                QVERIFY(way);
                double x = (*file.objects.front()->x)[0];
                double y = (*file.objects.front()->y)[0];
                const double x0 = x;
                const double y0 = y;
                QVERIFY(way->Transform(1, &x, &y));
                QVERIFY(std::hypot(x - x0, y - y0) < (wanted.IsGeographic() ? 1e-8 : 1e-3));
            }
        }
        const Verification verified = run.format->verify(file, file.path, run.selection);
        QCOMPARE(verified.fault, QString());
        QCOMPARE(verified.count, static_cast<qint64>(check.compared));
        QVERIFY(std::abs(verified.worstError - check.worst) < 1e-12);
        if (!sanitized && format == QLatin1String("shp"))
            KP_VALIDATE("shp.py", QStringLiteral("--count"), QString::number(check.compared), file.path);
        // The script asks for the system in a form that cannot hold the one that GDAL gives GeoJSON with heights.
        if (!sanitized && (format != QLatin1String("geojson") || !crs.isEmpty()))
            KP_VALIDATE("ogr_dump.sh", QStringLiteral("--count"), QString::number(check.compared), file.path);
    }
}

void OgrFormatsTest::geoJsonOnTheGlobe()
{
    Model model;
    loadInto(model, sample("faults_3d.gpkg"));
    loadInto(model, sample("geology.geojson"));
    SaverRun run("geojson", model.objects(), path(QStringLiteral("globe")));
    QVERIFY2(run.written, qPrintable(run.error()));
    for (const PlannedFile& file : run.files) {
        QVERIFY(!contentOf(file.path).contains("\"crs\""));
        // PROJ takes it back: what is lost are decimals, of heights those below a millimetre.
        const Verification verified = run.format->verify(file, file.path, run.selection);
        QCOMPARE(verified.fault, QString());
        QVERIFY2(verified.worstError > 0 && verified.worstError < 6e-4, qPrintable(QString::number(verified.worstError)));
        const GDALDatasetUniquePtr source = openVector(file.path);
        OGREnvelope extent;
        QCOMPARE(source->GetLayer(0)->GetExtent(&extent), OGRERR_NONE);
        QVERIFY(extent.MinX > 116 && extent.MaxX < 119 && extent.MinY > -24 && extent.MaxY < -21);
    }
    // An outer ring runs counter-clockwise.
    const GDALDatasetUniquePtr polygons = openVector(run.files.back().path);
    const OGRFeatureUniquePtr first(polygons->GetLayer(0)->GetNextFeature());
    const OGRGeometry* geometry = first->GetGeometryRef();
    const OGRPolygon* polygon = wkbFlatten(geometry->getGeometryType()) == wkbPolygon ? geometry->toPolygon() : geometry->toMultiPolygon()->getGeometryRef(0);
    QVERIFY(!polygon->getExteriorRing()->isClockwise());

    // Feet become metres, as the standard asks for; a position beyond the globe has no place.
    ModelObject object = objectOf(QStringLiteral("F"), ObjectType::VertexClouds, {10, 200}, {20, 0}, {100, 0});
    object.lengthUnit = QStringLiteral("ft");
    const SaverRun feet("geojson", {object}, path(QStringLiteral("feet")), "crs=EPSG:4326");
    QVERIFY2(feet.written, qPrintable(feet.error()));
    QCOMPARE(feet.countOf(QStringLiteral("vertex without a position left out")), 1);
    const GDALDatasetUniquePtr read = openVector(path(QStringLiteral("feet.geojson")));
    const OGRFeatureUniquePtr point(read->GetLayer(0)->GetNextFeature());
    QVERIFY(std::abs(point->GetGeometryRef()->toPoint()->getZ() - 30.48) < 1e-9);
}

void OgrFormatsTest::transformed()
{
    Model model;
    ModelObject mga = objectOf(QStringLiteral("mga"), ObjectType::VertexClouds, {500000, 600000}, {7500000, 7400000}, {1, 2});
    mga.crs = wktOf(QStringLiteral("EPSG:28350"));
    ModelObject degrees = objectOf(QStringLiteral("degrees"), ObjectType::VertexClouds, {117}, {-22.5}, {3});
    degrees.crs = wktOf(QStringLiteral("EPSG:4283"));
    model.add(mga);
    model.add(degrees);
    model.add(objectOf(QStringLiteral("none"), ObjectType::VertexClouds, {500100}, {7500100}, {4}));
    const SaverRun run("gpkg", model.objects(), path(QStringLiteral("t.gpkg")));
    QVERIFY2(run.written, qPrintable(run.error()));
    QCOMPARE(run.countOf(QStringLiteral("transformed")), 1);
    QCOMPARE(run.countOf(QStringLiteral("coordinate system assumed")), 1);
    std::vector<Positions> runs;
    {
        const GDALDatasetUniquePtr source = openVector(path(QStringLiteral("t.gpkg")));
        for (auto& feature : *source->GetLayer(0))
            addRuns(*feature->GetGeometryRef(), runs);
    }
    QCOMPARE(runs.size(), std::size_t(4));
    // 117 degrees east is the central meridian of zone 50.
    QVERIFY(std::abs(runs[2][0][0] - 500000.0) < 1e-6);
    QVERIFY(std::abs(runs[2][0][1] - 7511734.0) < 200.0);
    QCOMPARE(runs[2][0][2], 3.0);
    QCOMPARE(runs[3][0][0], 500100.0);

    // What the user asks for is no finding.
    SaverRun quietRun("shp", model.objects(), path(QStringLiteral("t.shp")), "crs=EPSG:4283");
    QVERIFY2(quietRun.written, qPrintable(quietRun.error()));
    QCOMPARE(quietRun.countOf(QStringLiteral("transformed")), 0);
    const GDALDatasetUniquePtr shp = openVector(path(QStringLiteral("t.shp")));
    const OGRFeatureUniquePtr first(shp->GetLayer(0)->GetNextFeature());
    QVERIFY(std::abs(first->GetGeometryRef()->toPoint()->getX() - 117.0) < 1e-9);
}

void OgrFormatsTest::limits_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("values");
    QTest::addColumn<QString>("findings");
    const auto row = [](const char* format, const char* values, const char* findings) {
        QTest::newRow(format) << QString::fromUtf8(format) << QString::fromUtf8(values) << QString::fromUtf8(findings);
    };
    row("shp",
        "0.00001|-2147483648|null|84|1|3333333.5\n1000000000000000.0|5|a|84|0|3333333.33333333\nnull|null|Zürich 東|84|null|3333333.25\nnull|7|null|84|1|null\n",
        "attribute of vertices not carried=0 text cut=4 number that is not finite written as missing=1 "
        "number wider than its field, written as missing=1 empty text, read back as missing=1 yes or no written as 1 or 0=1");
    row("tab", "1e-05|-2147483648||84|1|3333333.5\n1e+15|5|a|84|0|3333333.33333333\n0|0|Zürich 東|84|0|3333333.25\n1e+33|7||84|1|0\n",
        "text cut=4 missing number written as 0=4 missing text written as an empty one=1 yes or no written as 1 or 0=1");
    row("gpkg", "1e-05|-2147483648|null|100|1|3333333.5\n1e+15|5|a|100|0|3333333.33333333\nnull|null|Zürich 東|100|null|3333333.25\n1e+33|7||100|1|null\n",
        "text cut=0 number that is not finite written as missing=1");
    row("geojson", "1e-05|-2147483648|null|100|1|3333333.5\n1e+15|5|a|100|0|3333333.33333333\nnull|null|Zürich 東|100|null|3333333.25\n1e+33|7||100|1|null\n",
        "text cut=0 number that is not finite written as missing=1");
}

void OgrFormatsTest::limits()
{
    QFETCH(QString, format);
    QFETCH(QString, values);
    QFETCH(QString, findings);
    ModelObject object = objectOf(QStringLiteral("o"), ObjectType::VertexClouds, {1, 2, 3, 4}, {1, 2, 3, 4}, {1, 2, 3, 4});
    const QVariant text(QString(100, QChar(0x5730)));
    object.vertexAttributes = {
        columnOf(QStringLiteral("wide"), AttributeKind::Real, {1e-5, 1e15, std::nan(""), 1e33}),
        columnOf(QStringLiteral("whole"), AttributeKind::Integer, {-2147483647 - 1, 5, QVariant(), 7}),
        columnOf(QStringLiteral("text"), AttributeKind::Text, {QVariant(), QStringLiteral("a"), QString::fromUtf8("Zürich 東"), QStringLiteral("")}),
        columnOf(QStringLiteral("long"), AttributeKind::Text, {text, text, text, text}),
        columnOf(QStringLiteral("yes"), AttributeKind::Boolean, {true, false, QVariant(), true}),
        columnOf(QStringLiteral("real"), AttributeKind::Real, {3333333.5, 3333333.333333333, 3333333.25, QVariant()}),
    };
    const QString own = format == QLatin1String("tab") ? QStringLiteral(";zField=false") : format == QLatin1String("geojson") ? QStringLiteral(";rfc7946=false") : QString();
    const SaverRun run(format, {object}, path(QStringLiteral("limits.") + format), QStringLiteral("objectName=false;crs=EPSG:28350") + own);
    QVERIFY2(run.written, qPrintable(run.error()));
    QString read;
    const GDALDatasetUniquePtr source = openVector(run.files.front().path);
    for (auto& feature : *source->GetLayer(0)) {
        QStringList row;
        for (int field = 0; field < 6; ++field) {
            QString value = QString::fromUtf8(feature->GetFieldAsString(field));
            if (field == 3)
                value = QString::number(value.size());
            // A table gives its decimals, zeros too.
            if (format == QLatin1String("shp") && value.contains(QLatin1Char('.'))) {
                while (value.endsWith(QLatin1Char('0')) && !value.endsWith(QLatin1String(".0")))
                    value.chop(1);
            }
            row.append(feature->IsFieldSetAndNotNull(field) ? value : QStringLiteral("null"));
        }
        read += row.join(QLatin1Char('|')) + QLatin1Char('\n');
    }
    QCOMPARE(read, values);
    static const QRegularExpression finding(QStringLiteral("([a-z][^=]*)=(\\d+)"));
    auto matches = finding.globalMatch(findings);
    while (matches.hasNext()) {
        const auto match = matches.next();
        QVERIFY2(run.countOf(match.captured(1)) == match.captured(2).toInt(),
                 qPrintable(QStringLiteral("%1: %2").arg(match.captured(1)).arg(run.countOf(match.captured(1)))));
    }
}

void OgrFormatsTest::wideTable()
{
    ModelObject object = objectOf(QStringLiteral("o"), ObjectType::VertexClouds, {1, 2}, {1, 2}, {1, 2});
    for (int index = 0; index < 300; ++index)
        object.vertexAttributes.push_back(columnOf(QStringLiteral("Permeability %1 of the layer").arg(index), AttributeKind::Real, {index + 0.5, QVariant()}));
    for (const char* format : {"shp", "tab"}) {
        SaverRun run(QString::fromLatin1(format), {object}, path(QStringLiteral("wide.") + QString::fromLatin1(format)));
        QVERIFY2(run.written, qPrintable(run.error()));
        const GDALDatasetUniquePtr source = openVector(run.files.front().path);
        const OGRFeatureDefn* definition = source->GetLayer(0)->GetLayerDefn();
        const bool shp = QByteArray(format) == "shp";
        const int own = shp ? 2 : 3;
        QCOMPARE(definition->GetFieldCount(), shp ? 255 : 250);
        QCOMPARE(run.countOf(QStringLiteral("attribute left out")), qint64(300 + own - definition->GetFieldCount()));
        const OGRFeatureUniquePtr first(source->GetLayer(0)->GetNextFeature());
        for (int index = 0; index < definition->GetFieldCount() - own; ++index)
            QCOMPARE(first->GetFieldAsDouble(index + own - 1), index + 0.5);
        QCOMPARE(QString::fromUtf8(definition->GetFieldDefn(definition->GetFieldCount() - 1)->GetNameRef()), QStringLiteral("colorval"));
    }
}

void OgrFormatsTest::tableEndsOnce()
{
    // More than a block of the file, and a table of one record.
    for (const std::size_t count : {std::size_t(1), std::size_t(3000)}) {
        const std::vector<double> ones(count, 1.0);
        ModelObject object = objectOf(QStringLiteral("o"), ObjectType::VertexClouds, ones, ones, ones);
        object.color = QColor(1, 2, 3);
        SaverRun run("shp", {object}, path(QStringLiteral("ends%1.shp").arg(count)));
        QVERIFY2(run.written, qPrintable(run.error()));
        // Fields name, of 1 byte, and colorval, of 7, behind the byte that marks deleted records.
        const QByteArray table = contentOf(path(QStringLiteral("ends%1.dbf").arg(count)));
        const int head = 32 + 2 * 32 + 1;
        QCOMPARE(table.size(), head + static_cast<int>(count) * 9 + 1);
        QCOMPARE(table.right(10), QByteArray(" o#010203\x1a"));
    }
}

void OgrFormatsTest::dipAndType()
{
    ModelObject object = objectOf(QStringLiteral("o"), ObjectType::VertexClouds, {1, 2, 3, 4}, {1, 2, 3, 4}, {0, 0, 0, 0});
    object.vertexAttributes = {columnOf(QStringLiteral("Dip"), AttributeKind::Integer, {90, 0, 45, QVariant()}),
                               columnOf(QStringLiteral("TYPE"), AttributeKind::Text, {QStringLiteral("Fault"), QStringLiteral("Bed"), QStringLiteral("Bed"), QStringLiteral("Bed")})};
    SaverRun run("gpkg", {object}, path(QStringLiteral("dip.gpkg")), "dipInType=true");
    const auto types = [&run] {
        QStringList texts;
        const GDALDatasetUniquePtr source = openVector(run.files.front().path);
        for (auto& feature : *source->GetLayer(0))
            texts.append(QString::fromUtf8(feature->GetFieldAsString("TYPE")));
        return texts.join(QLatin1Char('|'));
    };
    QVERIFY(run.written);
    QCOMPARE(types(), QStringLiteral("Vertical Fault|Horizontal Bed|Bed|Bed"));
    QCOMPARE(run.countOf(QStringLiteral("type has Horizontal or Vertical before it")), 2);
    QVERIFY(run.again("dipInType=false"));
    QCOMPARE(types(), QStringLiteral("Fault|Bed|Bed|Bed"));
    QVERIFY(run.report.findings().empty());
}

void OgrFormatsTest::styles()
{
    ModelObject red = objectOf(QStringLiteral("red & <blue>"), ObjectType::Polylines, {1, 2}, {1, 2}, {0, 0});
    red.color = QColor(255, 0, 0);
    ModelObject blue = objectOf(QStringLiteral("blue"), ObjectType::Polylines, {3, 4}, {1, 2}, {0, 0});
    blue.color = QColor(0, 0, 255);
    const char* const targets[] = {"shp style.shp", "geojson style2.geojson", "gpkg style3.gpkg", "tab style4.tab"};
    for (const char* target : targets) {
        const QStringList parts = QString::fromLatin1(target).split(QLatin1Char(' '));
        QVERIFY(SaverRun(parts[0], {red, blue}, path(parts[1]), "symbology=true;crs=EPSG:4326").written);
    }
    QFile style(path(QStringLiteral("style.qml")));
    QVERIFY(style.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&style);
    QStringList categories;
    QStringList colours;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("category"))
            categories.append(xml.attributes().value(QStringLiteral("value")) + QLatin1Char(':') + xml.attributes().value(QStringLiteral("label")));
        if (xml.isStartElement() && xml.attributes().value(QStringLiteral("name")) == QLatin1String("line_color"))
            colours.append(xml.attributes().value(QStringLiteral("value")).toString());
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QCOMPARE(categories.join(QLatin1Char(' ')), QStringLiteral("#0000ff:blue #ff0000:red & <blue>"));
    QCOMPARE(colours.join(QLatin1Char(' ')), QStringLiteral("0,0,255,255 255,0,0,255"));
    QVERIFY(QFileInfo(path(QStringLiteral("style2.qml"))).size() > 0);

    const GDALDatasetUniquePtr package = openVector(path(QStringLiteral("style3.gpkg")));
    OGRLayer* table = package->GetLayerByName("layer_styles");
    QVERIFY(table);
    const OGRFeatureUniquePtr row(table->GetNextFeature());
    QCOMPARE(QString::fromUtf8(row->GetFieldAsString("f_table_name")), QStringLiteral("style3"));
    style.seek(0);
    QCOMPARE(QByteArray(row->GetFieldAsString("styleQML")), style.readAll());

    const GDALDatasetUniquePtr tab = openVector(path(QStringLiteral("style4.tab")));
    const OGRFeatureUniquePtr line(tab->GetLayer(0)->GetNextFeature());
    QVERIFY2(line->GetStyleString() && QByteArray(line->GetStyleString()).toLower().contains("pen(") && QByteArray(line->GetStyleString()).toLower().contains("c:#ff0000"), line->GetStyleString());
}

void OgrFormatsTest::tabGrid()
{
    // Seven digits and a zone prefix before the decimal point.
    const std::vector<double> x{50412345.6789, 50412399.1234, 50498765.4321};
    const std::vector<double> y{7412345.6789, 7412300.0001, 7399999.9999};
    const ModelObject object = objectOf(QStringLiteral("o"), ObjectType::VertexClouds, x, y, {1.25, 2.5, 3});
    SaverRun run("tab", {object}, path(QStringLiteral("grid.tab")));
    QVERIFY2(run.written, qPrintable(run.error()));
    QCOMPARE(run.countOf(QStringLiteral("coordinates on a grid")), 0); // a step of 0.04 mm takes nothing
    QCOMPARE(run.countOf(QStringLiteral("z dropped")), 0);
    const GDALDatasetUniquePtr source = openVector(run.files.front().path);
    std::size_t index = 0;
    for (auto& feature : *source->GetLayer(0)) {
        const OGRPoint* point = feature->GetGeometryRef()->toPoint();
        QVERIFY(std::hypot(point->getX() - x[index], point->getY() - y[index]) < 1e-4);
        QCOMPARE(feature->GetFieldAsDouble("z"), index == 0 ? 1.25 : index == 1 ? 2.5 : 3.0);
        ++index;
    }
    QCOMPARE(index, std::size_t(3));
}

void OgrFormatsTest::tabCharacterSets_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("charset");
    const auto row = [](const char* text, const char* charset) { QTest::newRow(charset) << QString::fromUtf8(text) << QString::fromUtf8(charset); };
    row("Zürich", "WindowsLatin1");
    row("Łódź", "WindowsLatin2");
    row("Разлом", "WindowsCyrillic");
    row("東京", "WindowsJapanese");
    row("Łódź Разлом 東京", "Neutral");
}

void OgrFormatsTest::tabCharacterSets()
{
    QFETCH(QString, text);
    QFETCH(QString, charset);
    const ModelObject object = objectOf(text, ObjectType::VertexClouds, {1}, {2}, {3});
    SaverRun run("tab", {object}, path(QStringLiteral("set_") + charset));
    QVERIFY2(run.written, qPrintable(run.error()));
    QCOMPARE(run.countOf(QStringLiteral("texts of several scripts")), charset == QLatin1String("Neutral") ? 1 : 0);
    QVERIFY(QString::fromUtf8(run.bytes()).contains(QStringLiteral("Charset \"%1\"").arg(charset)));
    const GDALDatasetUniquePtr source = openVector(run.files.front().path);
    const OGRFeatureUniquePtr feature(source->GetLayer(0)->GetNextFeature());
    QCOMPARE(QString::fromUtf8(feature->GetFieldAsString("name")), text);
}

void OgrFormatsTest::surfaces()
{
    ModelObject mesh = objectOf(QStringLiteral("mesh"), ObjectType::MeshSurfaces, {0, 1, 1, 0}, {0, 0, 1, 1}, {0, 1, 2, 3});
    mesh.triangles = {{0, 1, 2}, {0, 2, 3}};
    ModelObject grid = objectOf(QStringLiteral("grid"), ObjectType::GridSurfaces, {0, 1, 2, 0, 1, 2, 0, 1, 2}, {0, 0, 0, 1, 1, 1, 2, 2, 2}, {1, 1, none, 1, 2, 1, 1, 1, 1});
    grid.grid = GridGeometry{3, 3, 0, 0, 1, 1, 0};
    const auto wkt = [&](const QString& surfaces) {
        const SaverRun run("shp", {mesh, grid}, path(QStringLiteral("surface.shp")), QStringLiteral("surfaces=") + surfaces);
        QStringList texts;
        const GDALDatasetUniquePtr source = openVector(run.files.front().path);
        for (auto& feature : *source->GetLayer(0))
            texts.append(QString::fromStdString(feature->GetGeometryRef()->exportToWkt()));
        if (!run.fault().isEmpty())
            texts.append(run.fault());
        return texts;
    };
    QCOMPARE(wkt(QStringLiteral("points")).size(), 4 + 8);
    const QStringList polygons = wkt(QStringLiteral("polygons"));
    QCOMPARE(polygons.size(), 2 + 3);
    QCOMPARE(polygons.value(1), QStringLiteral("POLYGON ((0 0 0,0 1 3,1 1 2,0 0 0))"));
    QCOMPARE(polygons.value(2), QStringLiteral("POLYGON ((0 0 1,0 1 1,1 1 2,1 0 1,0 0 1))"));
}

void OgrFormatsTest::degenerate()
{
    Model model;
    model.add(objectOf(QStringLiteral("collar only"), ObjectType::Wells, {1}, {1}, {1}));
    model.add(objectOf(QStringLiteral("holes of nothing"), ObjectType::Polygons, {0, 1, 0, 0, 4, 4, 1, 1, 2}, {0, 0, 0, 0, 0, 4, 1, 2, 1}, {0, 0, 0, 0, 0, 0, 0, 0, none},
                       {{0, 3, true, false}, {6, 3, true, true}, {3, 3, true, false}, {6, 3, true, true}}));
    model.add(objectOf(QStringLiteral("lost"), ObjectType::Polylines, {0, none, 2, 3}, {0, 1, 2, 3}, {0, 0, none, 0}, {{0, 2, false, false}, {1, 3, false, false}}));
    SaverRun run("gpkg", model.objects(), path(QStringLiteral("degenerate.gpkg")));
    QVERIFY2(run.written, qPrintable(run.error()));
    QStringList texts;
    {
        const GDALDatasetUniquePtr source = openVector(run.files.front().path);
        for (OGRLayer* layer : source->GetLayers()) {
            for (auto& feature : *layer)
                texts.append(QString::fromStdString(feature->GetGeometryRef()->exportToWkt()));
        }
    }
    QCOMPARE(texts.join(QLatin1Char('\n')), QStringLiteral("MULTILINESTRING ((2 2 0,3 3 0))\n"
                                                           "MULTIPOLYGON (((0 0 0,4 0 0,4 4 0,0 0 0),(1 1 0,1 2 0,2 1 0,1 1 0)))"));
    QCOMPARE(run.countOf(QStringLiteral("line of fewer than two points left out")), 2);
    QCOMPARE(run.countOf(QStringLiteral("ring of fewer than three points left out")), 2);
    QCOMPARE(run.countOf(QStringLiteral("vertex without a position left out")), 2);
    QCOMPARE(run.countOf(QStringLiteral("unknown height written as 0")), 2);
}

void OgrFormatsTest::geoPackageWithoutSystem()
{
    const ModelObject object = objectOf(QStringLiteral("o"), ObjectType::VertexClouds, {500000}, {7500000}, {3});
    SaverRun run("gpkg", {object}, path(QStringLiteral("none.gpkg")));
    QVERIFY2(run.written, qPrintable(run.error()));
    QVERIFY(run.report.findings().empty());
    const GDALDatasetUniquePtr source = openVector(run.files.front().path);
    OGRLayer* ids = source->ExecuteSQL("SELECT srs_id FROM gpkg_contents", nullptr, nullptr);
    const OGRFeatureUniquePtr row(ids->GetNextFeature());
    QCOMPARE(row->GetFieldAsInteger(0), -1);
    source->ReleaseResultSet(ids);
    QCOMPARE(loaded(run.files.front().path).front().crs, QString());
}

void OgrFormatsTest::verificationSeesDamage()
{
    SaverRun run("gpkg", loaded(sample("faults_3d.gpkg")), path(QStringLiteral("damage.gpkg")));
    QVERIFY2(run.written, qPrintable(run.error()));
    QCOMPARE(run.verify().worstError, 0.0);
    const auto change = [&](const std::function<void(OGRLayer&)>& edit) {
        const GDALDatasetUniquePtr file(GDALDataset::Open(run.selection.path.toUtf8().constData(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
        edit(*file->GetLayer(0));
    };
    change([](OGRLayer& layer) {
        const OGRFeatureUniquePtr feature(layer.GetFeature(3));
        OGRGeometry* geometry = feature->GetGeometryRef();
        OGRLineString* line = wkbFlatten(geometry->getGeometryType()) == wkbLineString ? geometry->toLineString() : geometry->toMultiLineString()->getGeometryRef(0);
        line->setPoint(1, line->getX(1), line->getY(1), line->getZ(1) + 0.5);
        QCOMPARE(layer.SetFeature(feature.get()), OGRERR_NONE);
    });
    const Verification moved = run.verify();
    QCOMPARE(moved.fault, QString());
    QVERIFY(std::abs(moved.worstError - 0.5) < 1e-9);
    change([](OGRLayer& layer) { QCOMPARE(layer.DeleteFeature(3), OGRERR_NONE); });
    QVERIFY(!run.verify().fault.isEmpty());
    QFile::remove(run.selection.path);
    QVERIFY(!run.verify().fault.isEmpty());
}

QTEST_GUILESS_MAIN(OgrFormatsTest)
#include "tst_ogrformats.moc"
