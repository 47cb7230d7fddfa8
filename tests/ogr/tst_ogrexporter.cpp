// SPDX-License-Identifier: MIT
// Layers written by OGRExporter, read back through a fresh OGR open.
#include "host/data/AbstractProgress.h"
#include "ogr/OGRExporter.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <memory>

using namespace kpBaseExport;

namespace
{

/// Remembers the percentages and cancels when it is told a certain one.
class Recorder : public kpBase::AbstractProgress
{
public:
    explicit Recorder(int cancelAt = 1000)
        : m_cancelAt(cancelAt)
    {
    }

    void progressStarted(bool knownEnd) override { started += knownEnd ? 1 : 0; }
    void progressChanged(int percent) override { percents.append(percent); }
    bool isCancelled() const override
    {
        ++asked;
        return !percents.isEmpty() && percents.last() >= m_cancelAt;
    }
    void progressFinished() override {}

    QVector<int> percents;
    int started = 0;
    mutable int asked = 0; ///< how often it was looked at for a cancel

private:
    int m_cancelAt;
};

/// Points made one at a time, every third of them none; notes the percentage that had been told when each was asked for.
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
        told.append(m_recorder.percents.isEmpty() ? 0 : m_recorder.percents.last());
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

GDALDatasetUniquePtr open(const QString& path)
{
    return GDALDatasetUniquePtr(
        GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
}

/// Every feature's geometry as WKT.
QStringList geometries(const QString& path)
{
    QStringList texts;
    const GDALDatasetUniquePtr source = open(path);
    if (!source)
        return {QStringLiteral("could not open ") + path};
    for (auto& read : *source->GetLayer(0)) {
        const OGRGeometry* geometry = read->GetGeometryRef();
        texts.append(geometry ? QString::fromStdString(geometry->exportToWkt()) : QStringLiteral("none"));
    }
    return texts;
}

} // namespace

class OgrExporterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void layerFileNames_data();
    void layerFileNames();
    void geometryOfEachType_data();
    void geometryOfEachType();
    void severalLayers();
    void attributesDipAndStyle();
    void attributesOff();
    void progressSteps_data();
    void progressSteps();
    void progressBetweenFeatures();
    void sourceInsteadOfList();
    void layersInOneFile();
    void emptyPart();
    void deviceIsNotRemoved();
    void cancelKeepsWhatIsWritten();
    void failures();
    void refusalsAreListed();
    void spatialReference();

private:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    QTemporaryDir m_folder;
};

void OgrExporterTest::initTestCase()
{
    GDALAllRegister();
}

void OgrExporterTest::layerFileNames_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<unsigned>("type");
    QTest::addColumn<QString>("name");
    const auto row = [](const char* from, OGRwkbGeometryType type, const char* to) {
        QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(QLatin1String(from)).arg(static_cast<unsigned>(type))))
            << QString::fromUtf8(from) << static_cast<unsigned>(type) << QString::fromUtf8(to);
    };
    row("/o/model.shp", wkbLineString25D, "/o/model_polylines3d.shp");
    row("/o/model.shp", wkbMultiPolygon, "/o/model_polygons.shp");
    row("/o/a.b.shp", wkbPoint, "/o/a.b_points.shp");
    row("/o/model", wkbMultiPoint25D, "/o/model_points3d.");
    row("/o/model.tab", wkbUnknown, "/o/model.tab");
    row("/o/model.tab", wkbPolygon25D, "/o/model_polygons3d.tab");
}

void OgrExporterTest::layerFileNames()
{
    QFETCH(QString, path);
    QFETCH(unsigned, type);
    QFETCH(QString, name);
    QCOMPARE(OGRExporter::layerFileName(path, static_cast<OGRwkbGeometryType>(type)), name);
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
    row("polygon with a hole", wkbPolygon25D, true,
        "POLYGON ((0 0 1,4 0 1,4 4 1,0 0 1),(1 1 1,2 1 1,2 2 1,1 1 1))");
    row("multi polygon is without geometry", wkbMultiPolygon25D, false, "none");
    row("multi polygon with rings", wkbMultiPolygon25D, true,
        "MULTIPOLYGON (((0 0 1,4 0 1,4 4 1,0 0 1),(1 1 1,2 1 1,2 2 1,1 1 1)))");
}

void OgrExporterTest::geometryOfEachType()
{
    QFETCH(unsigned, type);
    QFETCH(bool, ringParts);
    QFETCH(QString, wkt);
    const auto wkb = static_cast<OGRwkbGeometryType>(type);
    OGRFeatureDetails details = feature(wkb, {OGRPoint(0, 0, 1), OGRPoint(4, 0, 1), OGRPoint(4, 4, 1),
                                              OGRPoint(0, 0, 1), OGRPoint(1, 1, 1), OGRPoint(2, 1, 1),
                                              OGRPoint(2, 2, 1), OGRPoint(1, 1, 1)});
    // The last boundary lies beyond the points.
    details.start_polygon_indices({4, 800});
    details.holes({false, true});
    OGRLayerInfo layer(QStringLiteral("L"), {details}, {}, QString());
    OGRExporterOptions options;
    options.ringParts = ringParts;
    Recorder recorder;
    OGRExporter exporter(path("g.gpkg"), QStringLiteral("GPKG"), &recorder);
    exporter.options(options);
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{layer}));
    QCOMPARE(geometries(path("g.gpkg")), QStringList{wkt});
}

void OgrExporterTest::severalLayers()
{
    Recorder recorder;
    OGRExporter exporter(path("m.shp"), QStringLiteral("ESRI Shapefile"), &recorder);
    OGRLayerInfo points(QStringLiteral("p"), {feature(wkbPoint, {OGRPoint(1, 2)})}, {}, QString());
    OGRLayerInfo lines(QStringLiteral("l"), {feature(wkbLineString, {OGRPoint(1, 2), OGRPoint(3, 4)})}, {}, QString());
    OGRLayerInfo empty(QStringLiteral("e"), {}, {}, QString());
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{points, lines, empty}));
    QCOMPARE(geometries(path("m_points.shp")), QStringList{QStringLiteral("POINT (1 2)")});
    QCOMPARE(geometries(path("m_polylines.shp")), QStringList{QStringLiteral("LINESTRING (1 2,3 4)")});
    QCOMPARE(geometries(path("m.shp")), QStringList());
    QCOMPARE(recorder.started, 3);
}

void OgrExporterTest::attributesDipAndStyle()
{
    const QVector<OGRAttributeInfo> columns = {
        {QStringLiteral("DIP"), OFTReal, 0},          {QStringLiteral("Type"), OFTString, 1},
        {QStringLiteral("n"), OFTInteger, 2},         {QStringLiteral("list"), OFTStringList, 3},
        {QStringLiteral("colorval"), OFTString, 4},
    };
    const auto row = [](const QVariant& dip, const QString& type) {
        return feature(wkbPoint, {OGRPoint(1, 2)},
                       {dip, type, QVariant(), QString::fromUtf8("Zürich 東"), QStringLiteral("#FF0000"),
                        QStringLiteral("one value too many")});
    };
    const OGRLayerInfo layer(QStringLiteral("L"),
                             {row(90.0, QStringLiteral("Fault")), row(0.0, QStringLiteral("Bed")),
                              row(89.999, QStringLiteral("Fault")), row(0.0, QString()),
                              row(QVariant(), QStringLiteral("Fault"))},
                             columns, QString());
    OGRExporterOptions options;
    options.utf8 = true;
    OGRExporter exporter(path("a.tab"), QStringLiteral("MapInfo File"), nullptr);
    exporter.options(options);
    exporter.writeAttributes(true);
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{layer}));

    QStringList types;
    const GDALDatasetUniquePtr source = open(path("a.tab"));
    QVERIFY(source);
    for (auto& read : *source->GetLayer(0)) {
        types.append(QString::fromUtf8(read->GetFieldAsString("Type")));
        QCOMPARE(QString::fromUtf8(read->GetFieldAsString("list")), QString::fromUtf8("Zürich 東"));
        const char* style = read->GetStyleString();
        QVERIFY(style && QString::fromUtf8(style).contains(QStringLiteral("#ff0000"), Qt::CaseInsensitive));
    }
    QCOMPARE(types, (QStringList{QStringLiteral("Vertical Fault"), QStringLiteral("Horizontal Bed"),
                                 QStringLiteral("Fault"), QString(), QStringLiteral("Fault")}));
}

void OgrExporterTest::attributesOff()
{
    OGRExporter exporter(path("off.gpkg"), QStringLiteral("GPKG"), nullptr);
    const OGRLayerInfo layer(QStringLiteral("L"), {feature(wkbPoint, {OGRPoint(1, 2)}, {1.5})},
                             {OGRAttributeInfo(QStringLiteral("colorval"), OFTReal, 0)}, QString());
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{layer}));
    const GDALDatasetUniquePtr source = open(path("off.gpkg"));
    QVERIFY(source);
    QCOMPARE(source->GetLayer(0)->GetLayerDefn()->GetFieldCount(), 0);
}

void OgrExporterTest::progressSteps_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QVector<int>>("first");
    QTest::addColumn<int>("reports");
    QTest::newRow("none") << 0 << QVector<int>() << 0;
    QTest::newRow("one") << 1 << QVector<int>{100} << 1;
    QTest::newRow("three") << 3 << QVector<int>{33, 66, 100} << 3;
    // One of 150 is less than a percent.
    QTest::newRow("150") << 150 << QVector<int>{1, 2, 3, 4} << 100;
    // 58 / 200 * 100 lies just below 29.
    QTest::newRow("200") << 200 << QVector<int>{1, 2} << 100;
}

void OgrExporterTest::progressSteps()
{
    QFETCH(int, count);
    QFETCH(QVector<int>, first);
    QFETCH(int, reports);
    Recorder recorder;
    OGRExporter exporter(path("p.shp"), QStringLiteral("ESRI Shapefile"), &recorder);
    OGRLayerInfo layer(QStringLiteral("L"), {}, {}, QString());
    for (int index = 0; index < count; ++index)
        layer.append(feature(wkbPoint, {OGRPoint(index, 0)}));
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{layer}));
    QCOMPARE(recorder.percents.mid(0, first.size()), first);
    QCOMPARE(recorder.percents.size(), reports);
}

void OgrExporterTest::progressBetweenFeatures()
{
    const auto told = [this](int count, Recorder& recorder) {
        auto points = std::make_shared<Points>(count, recorder);
        OGRLayerInfo layer(QStringLiteral("L"), {}, {}, QString());
        layer.source(points, wkbPoint25D);
        OGRExporter exporter(path("steps.shp"), QStringLiteral("ESRI Shapefile"), &recorder);
        return exporter.write(QVector<OGRLayerInfo>{layer}) ? points->told : QVector<int>();
    };
    Recorder first;
    QCOMPARE(told(150, first).mid(0, 5), (QVector<int>{0, 0, 1, 2, 2}));
    QVector<int> all;
    for (int percent = 1; percent <= 100; ++percent)
        all.append(percent);
    QCOMPARE(first.percents, all);
    QCOMPARE(first.asked, 100);
    // 57, 58 and 59 of 200: the 58th is at 28 still.
    Recorder second;
    QCOMPARE(told(200, second).mid(57, 4), (QVector<int>{28, 28, 29, 30}));
    QCOMPARE(second.percents, all);
    Recorder third;
    QCOMPARE(told(1, third), QVector<int>{100});
}

void OgrExporterTest::sourceInsteadOfList()
{
    Recorder recorder;
    OGRLayerInfo layer(QStringLiteral("L"), {}, {OGRAttributeInfo(QStringLiteral("n"), OFTInteger, 0)}, QString());
    QCOMPARE(layer.ogr_type(), wkbUnknown);
    layer.source(std::make_shared<Points>(7, recorder, 3), wkbPoint25D);
    QCOMPARE(layer.ogr_type(), wkbPoint25D);
    OGRExporter exporter(path("source.gpkg"), QStringLiteral("GPKG"), &recorder);
    exporter.writeAttributes(true);
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{layer}));
    QCOMPARE(geometries(path("source.gpkg")).join(QLatin1Char('|')), QStringLiteral("POINT (0 7 8)|POINT (3 7 8)|POINT (6 7 8)"));
}

void OgrExporterTest::layersInOneFile()
{
    OGRExporterOptions options;
    options.oneFile = true;
    options.transaction = true;
    OGRExporter exporter(path("both.gpkg"), QStringLiteral("GPKG"), nullptr);
    exporter.options(options);
    const OGRLayerInfo points(QStringLiteral("p"), {feature(wkbPoint, {OGRPoint(1, 2)})}, {}, QString());
    const OGRLayerInfo lines(QStringLiteral("l"), {feature(wkbLineString, {OGRPoint(1, 2), OGRPoint(3, 4)})}, {}, QString());
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{points, lines}));
    QVERIFY(!QFileInfo::exists(path("both_points.gpkg")));
    const GDALDatasetUniquePtr source = open(path("both.gpkg"));
    QVERIFY(source);
    QCOMPARE(source->GetLayerCount(), 2);
    QVERIFY(source->GetLayerByName("l") && source->GetLayerByName("l")->GetFeatureCount() == 1);
}

void OgrExporterTest::emptyPart()
{
    // Boundaries 2, 2, 6 of six points: the second part is empty.
    OGRFeatureDetails details = feature(wkbMultiLineString, {OGRPoint(0, 0), OGRPoint(1, 0), OGRPoint(2, 0), OGRPoint(3, 0), OGRPoint(4, 0), OGRPoint(5, 0)});
    details.start_polygon_indices({2, 2, 6});
    OGRExporter exporter(path("parts.gpkg"), QStringLiteral("GPKG"), nullptr);
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{OGRLayerInfo(QStringLiteral("L"), {details}, {}, QString())}));
    const GDALDatasetUniquePtr source = open(path("parts.gpkg"));
    const OGRFeatureUniquePtr read(source->GetLayer(0)->GetNextFeature());
    QVector<int> sizes;
    for (const OGRLineString* line : *read->GetGeometryRef()->toMultiLineString())
        sizes.append(line->getNumPoints());
    QCOMPARE(sizes, (QVector<int>{2, 0, 4}));
}

void OgrExporterTest::deviceIsNotRemoved()
{
    const OGRLayerInfo layer(QStringLiteral("L"), {feature(wkbPoint, {OGRPoint(1, 2)})}, {}, QString());
    OGRExporterOptions options;
    options.recordRefusals = true;
    OGRExporter exporter(QStringLiteral("/dev/full"), QStringLiteral("GeoJSON"), nullptr);
    exporter.options(options);
    exporter.write(QVector<OGRLayerInfo>{layer});
    QVERIFY(QFileInfo::exists(QStringLiteral("/dev/full")) && !QFileInfo(QStringLiteral("/dev/full")).isFile());
}

void OgrExporterTest::cancelKeepsWhatIsWritten()
{
    // Feature 58 of 200 is still at 28 percent; 29 is reached with feature 59.
    Recorder recorder(29);
    OGRExporter exporter(path("c.shp"), QStringLiteral("ESRI Shapefile"), &recorder);
    OGRLayerInfo layer(QStringLiteral("L"), {}, {}, QString());
    for (int index = 0; index < 200; ++index)
        layer.append(feature(wkbPoint, {OGRPoint(index, 0)}));
    QVERIFY(!exporter.write(QVector<OGRLayerInfo>{layer, layer}));
    QCOMPARE(geometries(path("c_points.shp")).size(), 59);
    QCOMPARE(recorder.started, 1);
}

void OgrExporterTest::failures()
{
    const OGRLayerInfo layer(QStringLiteral("L"), {feature(wkbPoint, {OGRPoint(1, 2)})}, {}, QString());
    OGRExporterOptions options;
    options.recordRefusals = true;

    OGRExporter noDriver(path("x.shp"), QStringLiteral("No Such Driver"), nullptr);
    noDriver.options(options);
    QVERIFY(!noDriver.write(QVector<OGRLayerInfo>{layer}));
    QCOMPARE(noDriver.refusals().size(), std::size_t(1));

    OGRExporter noPlace(path("missing/folder/x.gpkg"), QStringLiteral("GPKG"), nullptr);
    noPlace.options(options);
    QVERIFY(!noPlace.write(QVector<OGRLayerInfo>{layer}));
    QVERIFY(!noPlace.refusals().empty());
    QVERIFY(!noPlace.refusals().front().message.isEmpty());

    // A shapefile holds no geometry collections.
    const OGRLayerInfo wrongType(QStringLiteral("L"), {feature(wkbGeometryCollection, {})}, {}, QString());
    OGRExporter refused(path("r.shp"), QStringLiteral("ESRI Shapefile"), nullptr);
    refused.options(options);
    QVERIFY(!refused.write(QVector<OGRLayerInfo>{wrongType}));
    QCOMPARE(refused.refusals().front().kind, OGRRefusal::Layer);
}

void OgrExporterTest::refusalsAreListed()
{
    // A feature without points, and a text that does not fit its field.
    OGRAttributeInfo column(QStringLiteral("t"), OFTString, 0);
    column.size(254, 0);
    OGRExporterOptions options;
    options.recordRefusals = true;
    options.fieldSizes = true;
    const OGRLayerInfo layer(QStringLiteral("L"),
                             {feature(wkbPoint, {}, {QStringLiteral("abc")}),
                              feature(wkbPoint, {OGRPoint(1, 2)}, {QString(300, QLatin1Char('x'))})},
                             {column}, QString());
    OGRExporter exporter(path("t.shp"), QStringLiteral("ESRI Shapefile"), nullptr);
    exporter.options(options);
    exporter.writeAttributes(true);
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{layer}));
    QCOMPARE(exporter.refusals().size(), std::size_t(1));
    QCOMPARE(exporter.refusals().front().kind, OGRRefusal::Feature);
    QCOMPARE(exporter.refusals().front().subject, QStringLiteral("2"));
    QVERIFY(exporter.refusals().front().taken);
    QCOMPARE(geometries(path("t.shp")), (QStringList{QStringLiteral("none"), QStringLiteral("POINT (1 2)")}));
}

void OgrExporterTest::spatialReference()
{
    OGRSpatialReference mga;
    QCOMPARE(mga.importFromEPSG(28350), OGRERR_NONE);
    const OGRLayerInfo layer(QStringLiteral("L"), {feature(wkbPoint, {OGRPoint(115, -22)})}, {}, QString());
    OGRExporter exporter(path("s.gpkg"), QStringLiteral("GPKG"), nullptr);
    char* wkt = nullptr;
    mga.exportToWkt(&wkt);
    exporter.coordSystem(QString::fromUtf8(wkt));
    CPLFree(wkt);
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{layer}));
    {
        const GDALDatasetUniquePtr source = open(path("s.gpkg"));
        const OGRSpatialReference* read = source->GetLayer(0)->GetSpatialRef();
        QVERIFY(read);
        QVERIFY(read->IsSame(&mga));
    }
    OGRExporterOptions options;
    options.recordRefusals = true;
    exporter.options(options);
    exporter.coordSystem(QStringLiteral("PROJCS[\"broken\""));
    QVERIFY(exporter.write(QVector<OGRLayerInfo>{layer}));
    QCOMPARE(exporter.refusals().front().kind, OGRRefusal::SpatialReference);
    const GDALDatasetUniquePtr source = open(path("s.gpkg"));
    // GeoPackage gives a layer without reference its "undefined" one.
    const OGRSpatialReference* read = source->GetLayer(0)->GetSpatialRef();
    QVERIFY(!read || !read->IsProjected());
}

QTEST_GUILESS_MAIN(OgrExporterTest)
#include "tst_ogrexporter.moc"
