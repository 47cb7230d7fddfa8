// SPDX-License-Identifier: MIT
// Layers written by OGRExporter, read back through a fresh OGR open.
#include "ogr/OGRExporter.h"
#include "tests/ogr/ReadBack.h"
#include "tests/support/CancelAt.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace kpBaseExport;

namespace
{

/// Remembers the percentages and cancels when it is told a certain one.
class Recorder : public CancelAt
{
public:
    explicit Recorder(int cancelAt = 1000)
        : CancelAt(cancelAt)
    {
    }
    void progressStarted(bool knownEnd) override { started += knownEnd ? 1 : 0; }
    void progressChanged(int percent) override
    {
        CancelAt::progressChanged(percent);
        percents.append(percent);
    }

    QVector<int> percents;
    int started = 0;
};

/// Points made one at a time, some of them none; notes what had been told when each was asked for.
class Points : public OGRFeatureSource
{
public:
    Points(int count, const Recorder& recorder, int step = 1)
        : m_count(count)
        , m_recorder(recorder)
        , m_step(step)
    {
    }
    int count() const override { return m_count; }
    bool next(int index, OGRFeatureDetails& details) override
    {
        told.append(std::max(m_recorder.reached, 0));
        details.append_point(OGRPoint(index, 7, 8));
        details.append_object_attribute(index);
        return index % m_step == 0;
    }

    QVector<int> told;

private:
    int m_count;
    const Recorder& m_recorder;
    int m_step;
};

OGRFeatureDetails feature(OGRwkbGeometryType type, const QVector<OGRPoint>& points,
                          const QVector<QVariant>& values = {})
{
    OGRFeatureDetails details(type, points.size());
    details.points(points);
    for (const QVariant& value : values)
        details.append_object_attribute(value);
    return details;
}

OGRLayerInfo layerOf(const QVector<OGRFeatureDetails>& features, const QVector<OGRAttributeInfo>& columns = {})
{
    return {QStringLiteral("L"), features, columns, QString()};
}

OGRLayerInfo onePoint()
{
    return layerOf({feature(wkbPoint, {OGRPoint(1, 2)})});
}

OGRLayerInfo oneLine()
{
    return {QStringLiteral("lines"), {feature(wkbLineString, {OGRPoint(1, 2), OGRPoint(3, 4)})}, {}, QString()};
}

OGRExporterOptions recordingOptions()
{
    OGRExporterOptions options;
    options.recordRefusals = true;
    return options;
}

} // namespace

class OgrExporterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { GDALAllRegister(); }
    void layerFileNames();
    void geometryOfEachType_data();
    void geometryOfEachType();
    void emptyPart();
    void severalLayers();
    void layersInOneFile();
    void attributesDipAndStyle();
    void progressSteps_data();
    void progressSteps();
    void sourceInsteadOfList();
    void cancelKeepsWhatIsWritten();
    void failures();
    void refusedColumn();
    void refusalsAreListed();
    void goesOnAfterARefusal();
    void failureOnClosing();
    void spatialReference();

private:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    QTemporaryDir m_folder;
};

void OgrExporterTest::layerFileNames()
{
    const auto named = [](const char* file, OGRwkbGeometryType type) {
        return OGRExporter::layerFileName(QString::fromUtf8(file), type);
    };
    QCOMPARE(named("/o/model.shp", wkbLineString25D), QStringLiteral("/o/model_polylines3d.shp"));
    QCOMPARE(named("/o/model.shp", wkbMultiPolygon), QStringLiteral("/o/model_polygons.shp"));
    QCOMPARE(named("/o/a.b.shp", wkbPoint), QStringLiteral("/o/a.b_points.shp"));
    QCOMPARE(named("/o/model", wkbMultiPoint25D), QStringLiteral("/o/model_points3d."));
    QCOMPARE(named("/o/model.tab", wkbUnknown), QStringLiteral("/o/model.tab"));
    QCOMPARE(named("/o/model.tab", wkbPolygon25D), QStringLiteral("/o/model_polygons3d.tab"));
}

void OgrExporterTest::geometryOfEachType_data()
{
    QTest::addColumn<unsigned>("type");
    QTest::addColumn<bool>("ringParts");
    QTest::addColumn<QString>("wkt");
    const auto row = [](const char* name, OGRwkbGeometryType type, bool ringParts, const char* wkt) {
        QTest::newRow(name) << static_cast<unsigned>(type) << ringParts << QString::fromUtf8(wkt);
    };
    row("point", wkbPoint25D, false, "POINT (0 0 1)");
    row("line", wkbLineString25D, false, "LINESTRING (0 0 1,4 0 1,4 4 1,0 0 1,1 1 1,2 1 1,2 2 1,1 1 1)");
    row("multi line", wkbMultiLineString25D, false,
        "MULTILINESTRING ((0 0 1,4 0 1,4 4 1,0 0 1),(1 1 1,2 1 1,2 2 1,1 1 1))");
    row("polygon, one ring through all", wkbPolygon25D, false,
        "POLYGON ((0 0 1,4 0 1,4 4 1,0 0 1,1 1 1,2 1 1,2 2 1,1 1 1))");
    row("polygon with a hole", wkbPolygon25D, true, "POLYGON ((0 0 1,4 0 1,4 4 1,0 0 1),(1 1 1,2 1 1,2 2 1,1 1 1))");
    row("multi polygon is without geometry", wkbMultiPolygon25D, false, "none");
    row("multi polygon with rings", wkbMultiPolygon25D, true,
        "MULTIPOLYGON (((0 0 1,4 0 1,4 4 1,0 0 1),(1 1 1,2 1 1,2 2 1,1 1 1)))");
}

void OgrExporterTest::geometryOfEachType()
{
    QFETCH(unsigned, type);
    QFETCH(bool, ringParts);
    QFETCH(QString, wkt);
    OGRFeatureDetails details = feature(static_cast<OGRwkbGeometryType>(type),
                                        {OGRPoint(0, 0, 1), OGRPoint(4, 0, 1), OGRPoint(4, 4, 1), OGRPoint(0, 0, 1),
                                         OGRPoint(1, 1, 1), OGRPoint(2, 1, 1), OGRPoint(2, 2, 1), OGRPoint(1, 1, 1)});
    // The last boundary lies beyond the points.
    details.start_polygon_indices({4, 800});
    details.holes({false, true});
    OGRExporterOptions options;
    options.ringParts = ringParts;
    OGRExporter exporter(path("g.gpkg"), QStringLiteral("GPKG"), nullptr);
    exporter.options(options);
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{layerOf({details})}));
    QCOMPARE(geometryTexts(path("g.gpkg")), QStringList{wkt});
}

void OgrExporterTest::emptyPart()
{
    OGRFeatureDetails details = feature(wkbMultiLineString, QVector<OGRPoint>(6, OGRPoint(1, 2)));
    details.start_polygon_indices({2, 2, 6});
    OGRExporter exporter(path("parts.gpkg"), QStringLiteral("GPKG"), nullptr);
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{layerOf({details})}));
    const QStringList sizes = featureTexts(path("parts.gpkg"), [](const OGRFeature& read) {
        QStringList parts;
        for (const OGRLineString* line : *read.GetGeometryRef()->toMultiLineString())
            parts.append(QString::number(line->getNumPoints()));
        return parts.join(QLatin1Char(' '));
    });
    QCOMPARE(sizes, QStringList{QStringLiteral("2 0 4")});
}

void OgrExporterTest::severalLayers()
{
    Recorder recorder;
    OGRExporter exporter(path("m.shp"), QStringLiteral("ESRI Shapefile"), &recorder);
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{onePoint(), oneLine(), layerOf({})}));
    QCOMPARE(geometryTexts(path("m_points.shp")), QStringList{QStringLiteral("POINT (1 2)")});
    QCOMPARE(geometryTexts(path("m_polylines.shp")), QStringList{QStringLiteral("LINESTRING (1 2,3 4)")});
    QCOMPARE(geometryTexts(path("m.shp")), QStringList());
    QCOMPARE(recorder.started, 3);
}

void OgrExporterTest::layersInOneFile()
{
    OGRExporterOptions options;
    options.oneFile = true;
    options.transaction = true;
    OGRExporter exporter(path("both.gpkg"), QStringLiteral("GPKG"), nullptr);
    exporter.options(options);
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{onePoint(), oneLine()}));
    QVERIFY(!QFileInfo::exists(path("both_points.gpkg")));
    QCOMPARE(geometryTexts(path("both.gpkg")).join(QLatin1Char(' ')),
             QStringLiteral("POINT (1 2) LINESTRING (1 2,3 4)"));
    QVERIFY(openVector(path("both.gpkg"))->GetLayerByName("lines"));
}

void OgrExporterTest::attributesDipAndStyle()
{
    const QString text = QString::fromUtf8("Zürich 東");
    const auto row = [&text](const QVariant& dip, const QString& type) {
        return feature(wkbPoint, {OGRPoint(1, 2)},
                       {dip, type, QVariant(), text, QStringLiteral("#FF0000"), QStringLiteral("one value too many")});
    };
    const OGRLayerInfo layer =
        layerOf({row(90.0, QStringLiteral("Fault")), row(0.0, QStringLiteral("Bed")),
                 row(89.999, QStringLiteral("Fault")), row(0.0, QString()), row(QVariant(), QStringLiteral("Fault"))},
                {{QStringLiteral("DIP"), OFTReal, 0},
                 {QStringLiteral("Type"), OFTString, 1},
                 {QStringLiteral("n"), OFTInteger, 2},
                 {QStringLiteral("list"), OFTStringList, 3},
                 {QStringLiteral("colorval"), OFTString, 4}});
    OGRExporter without(path("off.gpkg"), QStringLiteral("GPKG"), nullptr);
    QVERIFY(without.write(QVector<OGRLayerInfo>{layer}));
    QCOMPARE(fieldNamesIn(path("off.gpkg")), QString());
    OGRExporterOptions options;
    options.utf8 = true;
    OGRExporter exporter(path("a.tab"), QStringLiteral("MapInfo File"), nullptr);
    exporter.options(options);
    exporter.writeAttributes(true);
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{layer}));
    QCOMPARE(fieldTexts(path("a.tab"), "Type").join(QLatin1Char('|')),
             QStringLiteral("Vertical Fault|Horizontal Bed|Fault||Fault"));
    QCOMPARE(fieldTexts(path("a.tab"), "list").count(text), 5);
    const QStringList styles =
        featureTexts(path("a.tab"), [](OGRFeature& read) { return QString::fromUtf8(read.GetStyleString()); });
    QCOMPARE(styles.filter(QStringLiteral("#ff0000"), Qt::CaseInsensitive).size(), 5);
}

void OgrExporterTest::progressSteps_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QVector<int>>("percents");
    QTest::addColumn<int>("from");
    QTest::addColumn<QVector<int>>("told");
    QVector<int> all;
    for (int percent = 1; percent <= 100; ++percent)
        all.append(percent);
    QTest::newRow("none") << 0 << QVector<int>() << 0 << QVector<int>();
    QTest::newRow("one") << 1 << QVector<int>{100} << 0 << QVector<int>{100};
    QTest::newRow("three") << 3 << QVector<int>{33, 66, 100} << 0 << QVector<int>{33, 33, 66};
    // One of 150 is less than a percent.
    QTest::newRow("150") << 150 << all << 0 << QVector<int>{0, 0, 1, 2, 2};
    // 58 / 200 * 100 lies just below 29: 57, 58 and 59 of 200 are told 28, 28 and 29.
    QTest::newRow("200") << 200 << all << 57 << QVector<int>{28, 28, 29, 30};
}

void OgrExporterTest::progressSteps()
{
    QFETCH(int, count);
    QFETCH(QVector<int>, percents);
    QFETCH(int, from);
    QFETCH(QVector<int>, told);
    Recorder recorder;
    const auto points = std::make_shared<Points>(count, recorder);
    OGRLayerInfo layer = layerOf({});
    layer.source(points, wkbPoint25D);
    OGRExporter exporter(path("p.shp"), QStringLiteral("ESRI Shapefile"), &recorder);
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{layer}));
    QCOMPARE(recorder.percents, percents);
    QCOMPARE(recorder.asked, percents.size());
    QCOMPARE(points->told.mid(from, told.size()), told);
}

void OgrExporterTest::sourceInsteadOfList()
{
    Recorder recorder;
    OGRLayerInfo layer = layerOf({}, {OGRAttributeInfo(QStringLiteral("n"), OFTInteger, 0)});
    QCOMPARE(layer.ogr_type(), wkbUnknown);
    layer.source(std::make_shared<Points>(7, recorder, 3), wkbPoint25D);
    QCOMPARE(layer.ogr_type(), wkbPoint25D);
    OGRExporter exporter(path("source.gpkg"), QStringLiteral("GPKG"), &recorder);
    exporter.writeAttributes(true);
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{layer}));
    QCOMPARE(geometryTexts(path("source.gpkg")).join(QLatin1Char('|')),
             QStringLiteral("POINT (0 7 8)|POINT (3 7 8)|POINT (6 7 8)"));
    QCOMPARE(fieldTexts(path("source.gpkg"), "n").join(QLatin1Char(' ')), QStringLiteral("0 3 6"));
}

void OgrExporterTest::cancelKeepsWhatIsWritten()
{
    // Feature 58 of 200 is still at 28 percent; 29 is reached with feature 59.
    Recorder recorder(29);
    OGRExporter exporter(path("c.shp"), QStringLiteral("ESRI Shapefile"), &recorder);
    const OGRLayerInfo layer = layerOf(QVector<OGRFeatureDetails>(200, feature(wkbPoint, {OGRPoint(1, 0)})));
    QVERIFY(!exporter.write(QVector<OGRLayerInfo>{layer, layer}));
    QCOMPARE(geometryTexts(path("c_points.shp")).size(), 59);
    QCOMPARE(recorder.started, 1);
}

void OgrExporterTest::failures()
{
    const auto refusalsOf = [](const QString& file, const char* driver, const OGRLayerInfo& layer) {
        OGRExporter exporter(file, QString::fromLatin1(driver), nullptr);
        exporter.options(recordingOptions());
        return exporter.write(QVector<OGRLayerInfo>{layer}) ? std::vector<OGRRefusal>() : exporter.refusals();
    };
    QCOMPARE(refusalsOf(path("x.shp"), "No Such Driver", onePoint()).size(), std::size_t(1));
    const std::vector<OGRRefusal> noPlace = refusalsOf(path("missing/folder/x.gpkg"), "GPKG", onePoint());
    QVERIFY(!noPlace.empty() && !noPlace.front().message.isEmpty());
    // A shapefile holds no geometry collections.
    const std::vector<OGRRefusal> wrongType =
        refusalsOf(path("r.shp"), "ESRI Shapefile", layerOf({feature(wkbGeometryCollection, {})}));
    QVERIFY(!wrongType.empty());
    QCOMPARE(wrongType.front().kind, OGRRefusal::Layer);
    // A device is not removed to make room for the file.
    refusalsOf(QStringLiteral("/dev/full"), "GeoJSON", onePoint());
    QVERIFY(QFileInfo::exists(QStringLiteral("/dev/full")) && !QFileInfo(QStringLiteral("/dev/full")).isFile());
}

void OgrExporterTest::refusedColumn()
{
    // A shapefile cuts names to ten bytes and finds other names for a hundred of these. Their values stay theirs.
    QVector<OGRAttributeInfo> columns;
    OGRFeatureDetails details = feature(wkbPoint, {OGRPoint(1, 2)});
    for (int index = 0; index < 150; ++index) {
        columns.append({QStringLiteral("attribute_%1").arg(index), OFTInteger, index});
        details.append_object_attribute(1000 + index);
    }
    OGRExporter exporter(path("many.shp"), QStringLiteral("ESRI Shapefile"), nullptr);
    exporter.options(recordingOptions());
    exporter.writeAttributes(true);
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{layerOf({details}, columns)}));
    QStringList expected;
    QSet<QString> refused;
    for (const OGRRefusal& refusal : exporter.refusals()) {
        if (refusal.kind == OGRRefusal::Field && !refusal.taken)
            refused.insert(refusal.subject);
    }
    for (const OGRAttributeInfo& column : columns) {
        if (!refused.contains(column.name()))
            expected.append(QString::number(1000 + column.index()));
    }
    QVERIFY(!refused.isEmpty() && expected.size() >= 90);
    QStringList written;
    featureTexts(path("many.shp"), [&written](const OGRFeature& read) {
        for (int field = 0; field < read.GetFieldCount(); ++field)
            written.append(QString::fromUtf8(read.GetFieldAsString(field)));
        return QString();
    });
    QCOMPARE(written, expected);
}

void OgrExporterTest::refusalsAreListed()
{
    // A feature without points, and a text that does not fit its field.
    OGRAttributeInfo column(QStringLiteral("t"), OFTString, 0);
    column.size(254, 0);
    OGRExporterOptions options = recordingOptions();
    options.fieldSizes = true;
    const OGRLayerInfo layer = layerOf({feature(wkbPoint, {}, {QStringLiteral("abc")}),
                                        feature(wkbPoint, {OGRPoint(1, 2)}, {QString(300, QLatin1Char('x'))})},
                                       {column});
    OGRExporter exporter(path("t.shp"), QStringLiteral("ESRI Shapefile"), nullptr);
    exporter.options(options);
    exporter.writeAttributes(true);
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{layer}));
    QCOMPARE(exporter.refusals().size(), std::size_t(1));
    QCOMPARE(exporter.refusals().front().kind, OGRRefusal::Feature);
    QCOMPARE(exporter.refusals().front().subject, QStringLiteral("2"));
    QVERIFY(exporter.refusals().front().taken);
    QCOMPARE(geometryTexts(path("t.shp")).join(QLatin1Char('|')), QStringLiteral("none|POINT (1 2)"));
}

void OgrExporterTest::goesOnAfterARefusal()
{
    // The second feature repeats the number of the first, which the database does not take.
    const OGRLayerInfo layer =
        layerOf({feature(wkbPoint, {OGRPoint(1, 2)}, {1}), feature(wkbPoint, {OGRPoint(3, 4)}, {1}),
                 feature(wkbPoint, {OGRPoint(5, 6)}, {2})},
                {OGRAttributeInfo(QStringLiteral("fid"), OFTInteger, 0)});
    for (const bool stop : {false, true}) {
        OGRExporterOptions options = recordingOptions();
        options.stopAtRefusal = stop;
        OGRExporter exporter(path("n.gpkg"), QStringLiteral("GPKG"), nullptr);
        exporter.options(options);
        exporter.writeAttributes(true);
        QCOMPARE(exporter.write(QVector<OGRLayerInfo>{layer}), !stop);
        QCOMPARE(exporter.refusals().size(), std::size_t(1));
        QCOMPARE(exporter.refusals().front().subject, QStringLiteral("2"));
        QVERIFY(!exporter.refusals().front().taken);
        QCOMPARE(geometryTexts(path("n.gpkg")).join(QLatin1Char('|')),
                 stop ? QStringLiteral("POINT (1 2)") : QStringLiteral("POINT (1 2)|POINT (5 6)"));
    }
}

void OgrExporterTest::failureOnClosing()
{
    // This driver writes nothing before it is closed.
    OGRExporter exporter(path("missing/k.kml"), QStringLiteral("LIBKML"), nullptr);
    exporter.options(recordingOptions());
    QVERIFY(!exporter.write(QVector<OGRLayerInfo>{onePoint()}));
    QCOMPARE(exporter.refusals().size(), std::size_t(1));
    QCOMPARE(exporter.refusals().front().kind, OGRRefusal::Closing);
    QVERIFY(!exporter.refusals().front().taken);
}

void OgrExporterTest::spatialReference()
{
    OGRSpatialReference mga;
    QCOMPARE(mga.importFromEPSG(28350), OGRERR_NONE);
    OGRExporter exporter(path("s.gpkg"), QStringLiteral("GPKG"), nullptr);
    exporter.options(recordingOptions());
    const auto readWith = [&](const QString& wkt) {
        exporter.coordSystem(wkt);
        exporter.write(QVector<OGRLayerInfo>{onePoint()});
        const GDALDatasetUniquePtr source = openVector(path("s.gpkg"));
        const OGRSpatialReference* read = source->GetLayer(0)->GetSpatialRef();
        return read ? *read : OGRSpatialReference();
    };
    char* wkt = nullptr;
    mga.exportToWkt(&wkt);
    QVERIFY(readWith(QString::fromUtf8(wkt)).IsSame(&mga));
    CPLFree(wkt);
    QVERIFY(exporter.refusals().empty());
    QVERIFY(!readWith(QStringLiteral("PROJCS[\"broken\"")).IsProjected());
    QCOMPARE(exporter.refusals().front().kind, OGRRefusal::SpatialReference);
}

QTEST_GUILESS_MAIN(OgrExporterTest)
#include "tst_ogrexporter.moc"
