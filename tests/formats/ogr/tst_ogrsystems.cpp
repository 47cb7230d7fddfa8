// SPDX-License-Identifier: MIT
// A reader finds a vector file where its objects are on the globe, or the report says that it does not.
#include "tests/formats/ogr/OgrTestTools.h"

#include <ogr_spatialref.h>

using namespace kpFormats;

namespace
{

/// Longitude and latitude in WGS 84.
std::array<double, 2> onGlobe(const OGRSpatialReference& system, double x, double y)
{
    OGRSpatialReference own(system);
    OGRSpatialReference world;
    world.importFromEPSG(4326);
    own.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    world.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    const std::unique_ptr<OGRCoordinateTransformation> way(OGRCreateCoordinateTransformation(&own, &world));
    if (!way || !way->Transform(1, &x, &y))
        return {none, none};
    return {x, y};
}

} // namespace

class OgrSystemsTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { emptyFolder(); }
    void tables_data();
    void tables();
    void farApart();
};

void OgrSystemsTest::tables_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<bool>("leftOut");
    const auto row = [](const char* what, int code, double x, double y, bool leftOut = false) {
        QTest::newRow(what) << code << x << y << leftOut;
    };
    row("its own datum", 28350, 500000, 7500000);
    row("a datum of a name", 27700, 400000, 300000);
    row("Bessel", 31467, 3500000, 5500000);
    row("Bessel, degrees", 4314, 9, 50);
    row("Bessel, oblique", 28992, 155000, 463000);
    row("Krassovsky", 3844, 500000, 500000);
    row("GRS 80 shifted", 2100, 500000, 4200000);
    row("far from its origin", 31256, 0, 340000);
    row("a name that readers do not know", 21781, 600000, 200000);
    row("feet, whose name readers get wrong", 2263, 1000000, 200000);
    row("no such projection", 3413, 0, -2000000, true);
}

void OgrSystemsTest::tables()
{
    QFETCH(int, code);
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(bool, leftOut);
    const ModelObject object = objectOf(ObjectType::VertexClouds, QStringLiteral("P"), {{x, y, 1}},
                                        qPrintable(QStringLiteral("EPSG:%1").arg(code)));
    const SaverRun run("tab", {object}, path("p.tab"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.countOf(QStringLiteral("coordinate system not carried")), leftOut ? 1 : 0);
    QCOMPARE(run.countOf(QStringLiteral("coordinate system approximate")), 0);
    const GDALDatasetUniquePtr dataset = openVector(path("p.tab"));
    const OGRSpatialReference* read = dataset->GetLayer(0)->GetSpatialRef();
    if (leftOut) {
        QVERIFY(!read || read->IsLocal());
        return;
    }
    OGRSpatialReference wanted;
    wanted.importFromEPSG(code);
    const auto place = onGlobe(wanted, x, y);
    const auto found = onGlobe(*read, x, y);
    const double centimetre = 1e-7;
    QVERIFY2(std::hypot(place[0] - found[0], place[1] - found[1]) < centimetre,
             qPrintable(QStringLiteral("%1 degrees off").arg(std::hypot(place[0] - found[0], place[1] - found[1]))));
}

void OgrSystemsTest::farApart()
{
    // The turn of a datum has no place in the table: far from the middle it is missed.
    const ModelObject country = objectOf(ObjectType::VertexClouds, QStringLiteral("P"),
                                         {{3450000, 5400000, 1}, {3600000, 5600000, 2}}, "EPSG:31467");
    const SaverRun run("tab", {country}, path("p.tab"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.countOf(QStringLiteral("coordinate system approximate")), 1);
    const QString line = run.report.findings.lines().join(QLatin1Char(' '));
    const double told = line.section(QStringLiteral("up to "), 1).section(QStringLiteral(" m"), 0, 0).toDouble();
    QVERIFY2(told > 0.1 && told < 3, qPrintable(line));
}

QTEST_GUILESS_MAIN(OgrSystemsTest)
#include "tst_ogrsystems.moc"
