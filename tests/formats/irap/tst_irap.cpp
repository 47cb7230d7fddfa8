// SPDX-License-Identifier: MIT
// Irap grids, points and polygons: whole texts, real files to the byte, every way a grid can lie, what is refused.
#include "tests/support/SaverRun.h"
#include "tests/support/TextRows.h"

using namespace kpFormats;

namespace
{

/// The grid with its nodes where its geometry has them.
ModelObject placed(ModelObject grid, double stepX, double stepY, double rotation)
{
    grid.grid->stepX = stepX;
    grid.grid->stepY = stepY;
    grid.grid->rotation = rotation;
    const double turned = rotation * M_PI / 180.0;
    std::vector<double> x;
    std::vector<double> y;
    for (int node = 0; node < grid.vertexCount(); ++node) {
        const double along = node % grid.grid->columns * stepX;
        const double across = node / grid.grid->columns * stepY;
        x.push_back(grid.grid->originX + along * std::cos(turned) - across * std::sin(turned));
        y.push_back(grid.grid->originY + along * std::sin(turned) + across * std::cos(turned));
    }
    grid.x = numbersOf(std::move(x));
    grid.y = numbersOf(std::move(y));
    return grid;
}

ModelObject polygon()
{
    ModelObject ring =
        objectOf(QStringLiteral("field"), ObjectType::Polygons, {0, 10, 10, 2, 4, 4, 2}, {0, 0, 10, 2, 2, 4, 2},
                 {1, 2, 3, 4, 5, 6, 4}, {{0, 3, true, false}, {3, 4, true, true}});
    ring.vertexAttributes.push_back(columnOf(QStringLiteral("v"), AttributeKind::Real, {1, 2, 3, 4, 5, 6, 7}));
    return ring;
}

} // namespace

class IrapTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { emptyFolder(); }
    void text();
    void grids_data();
    void grids();
    void realFiles_data();
    void realFiles();
    void binaryDamages();
    void gridsRefused();
    void singlePrecision();
    void lines();
    void pointsAndLines();
    void pointsRefused();
};

void IrapTest::text()
{
    // Rows run south in the model: the file begins with its last one.
    ModelObject surface = placed(gridOf(2, 3), 10, -20, 90);
    surface.z = numbersOf({-1.26, 2, 3, none, 5, 6});
    surface.vertexAttributes.push_back(columnOf(QStringLiteral("v"), AttributeKind::Real, {1, 2, 3, 4, 5, 6}));
    SaverRun run("irap", {surface}, path("g"), "decimals=1;nodesPerLine=4");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.files[0].path, path("g.irap"));
    QCOMPARE(run.bytes(), QByteArray("-996 3 10.000000000 20.000000000\n"
                                     "1040.000000000 1050.000000000 2000.000000000 2040.000000000\n"
                                     "2 90.000000000 1040.000000000 2000.000000000\n"
                                     "0 0 0 0 0 0 0\n"
                                     "5.0 6.0 3.0 9999900.0\n"
                                     "-1.3 2.0\n"));
    QCOMPARE(run.findings(), QStringLiteral("a grid file holds one value per node; attributes left out: 1"));
    QVERIFY(run.again("attribute=v;lengthUnit=km;zIsElevation=false"));
    QCOMPARE(run.fault(), QString());
    QVERIFY(run.bytes().endsWith("0 0 0 0 0 0 0\n5.0 6.0 3.0 4.0\n1.0 2.0\n"));
}

void IrapTest::grids_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<double>("stepX");
    QTest::addColumn<double>("stepY");
    QTest::addColumn<double>("rotation");
    QTest::addColumn<QString>("settings");
    for (const char* format : {"irap", "irapbinary"}) {
        const auto row = [&](const char* name, double stepX, double stepY, double rotation, const char* settings = "") {
            QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(QLatin1String(format), QLatin1String(name))))
                << QString::fromLatin1(format) << stepX << stepY << rotation << QString::fromLatin1(settings);
        };
        row("plain", 25, 50, 0);
        row("turned", 25, 50, 33.3333333333);
        row("turned backwards", 25, 50, -10);
        row("from the east", -25, 50, 15);
        row("from the far corner", -25, -50, 200);
        row("depths in feet", 25, 50, 30, "lengthUnit=ft;zIsElevation=false");
    }
}

void IrapTest::grids()
{
    QFETCH(QString, format);
    QFETCH(double, stepX);
    QFETCH(double, stepY);
    QFETCH(double, rotation);
    QFETCH(QString, settings);
    ModelObject surface = placed(gridOf(7, 4), stepX, stepY, rotation);
    std::vector<double> heights = *surface.z;
    heights[9] = none;
    surface.z = numbersOf(std::move(heights));
    SaverRun run(format, {surface}, path("g"), settings);
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.readBack[0].positions(), 28);
    QCOMPARE(run.readBack[0].nulls(), 1);
    // What the loader makes of it lies in the same places, whatever the order.
    const double factor = settings.isEmpty() ? 1.0 : 1.0 / 0.3048;
    const ModelObject read = loaded(run.files[0].path).front();
    QCOMPARE(read.vertexCount(), 28);
    for (std::size_t node = 0; node < 28; ++node) {
        int found = 0;
        for (std::size_t other = 0; other < 28; ++other) {
            const bool there = std::abs((*read.x)[other] - (*surface.x)[node] * factor) < 1e-3
                               && std::abs((*read.y)[other] - (*surface.y)[node] * factor) < 1e-3;
            const double z = settings.isEmpty() ? (*surface.z)[node] : -(*surface.z)[node] * factor;
            found += there && (std::isnan(z) ? std::isnan((*read.z)[other]) : std::abs((*read.z)[other] - z) < 1e-3);
        }
        QCOMPARE(found, 1);
    }
}

void IrapTest::realFiles_data()
{
    textRows({"file", "format", "settings"}, {{"ib_test_horizon2.gri", "irapbinary", ""},
                                              {"emerald_1000.poi", "irappoints", "decimals=6"},
                                              {"mypoly.pol", "irappoints", "decimals=6"}});
}

void IrapTest::realFiles()
{
    QFETCH(QString, file);
    QFETCH(QString, format);
    QFETCH(QString, settings);
    const QString real = shared(qPrintable(QStringLiteral("data/inputs/") + file));
    if (real.isEmpty())
        QSKIP("the file is not here");
    SaverRun run(format, loaded(real), path("out.") + file.section(QLatin1Char('.'), 1), settings);
    QCOMPARE(run.fault(), QString());
    QVERIFY2(run.bytes() == contentOf(real), "it is not what was read");
}

void IrapTest::binaryDamages()
{
    // Every number that says something, one after the other: size, origin, steps, rotation, values; then a cut.
    SaverRun run("irapbinary", {placed(gridOf(3, 2), 10, 20, 30)}, path("g.gri"));
    QCOMPARE(run.fault(), QString());
    const QByteArray good = run.bytes();
    QCOMPARE(good.size(), 40 + 24 + 36 + 2 * 20);
    for (const int at : {8, 28, 32, 44, 48, 52, 56, 108, 112, 128}) {
        QByteArray bad = good;
        bad[at + 1] = static_cast<char>(bad[at + 1] ^ 0x10);
        writeFile(run.files[0].path, bad);
        QVERIFY2(!run.verify().fault().isEmpty(), qPrintable(QString::number(at)));
    }
    writeFile(run.files[0].path, good.left(good.size() - 8));
    QVERIFY(run.verify().fault().contains(QStringLiteral("damaged")));
}

void IrapTest::gridsRefused()
{
    ModelObject high = gridOf(2, 2);
    high.z = numbersOf({0, 1, 9999899.5, 3});
    const ModelObject flat = placed(gridOf(2, 2), 0, 10, 0);
    for (const char* format : {"irap", "irapbinary"}) {
        const SaverRun run(format, {high, flat, gridOf(2, 2)}, path());
        QVERIFY(run.error(0).contains(QStringLiteral("from 9999900 on a value says that there is none")));
        QVERIFY(run.error(1).contains(QStringLiteral("has no distance between its nodes")));
        QVERIFY(run.error(2).isEmpty() && QFile::exists(run.files[2].path) && !QFile::exists(run.files[0].path));
    }
    SaverRun run("irap", {gridOf(2, 2)}, path("a.irap"), "attribute=ore");
    QVERIFY(run.error().contains(QStringLiteral("has no numeric attribute \"ore\"")));
}

void IrapTest::singlePrecision()
{
    ModelObject surface = gridOf(3, 2);
    surface.grid->originY = 7500000.3;
    surface = placed(surface, 10, 10, 0);
    std::vector<double> heights = *surface.z;
    heights[1] = 1e-50;
    surface.z = numbersOf(std::move(heights));
    SaverRun run("irapbinary", {surface}, path("g"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.findings(), QStringLiteral("number rounded to 0: 1, position rounded to single precision: 1"));
    QVERIFY(run.report.findings.all().back().example.startsWith(QStringLiteral("by up to 0.2 m; ")));
}

void IrapTest::lines()
{
    ModelObject line =
        objectOf(ObjectType::Polylines, QStringLiteral("fault"),
                 {{1, 1, 1}, {2, 2, 2}, {3, 3, none}, {4, 4, 4}, {5, 5, none}, {6, 6, 999}, {7, 7, 7}}, "");
    SaverRun run("irappoints", {polygon(), line}, path("p"), "decimals=1;zIsElevation=false;lengthUnit=m");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.files[0].path, path("p.pol"));
    QCOMPARE(run.bytes(), QByteArray("0.0 0.0 -1.0\n10.0 0.0 -2.0\n10.0 10.0 -3.0\n0.0 0.0 -1.0\n999.0 999.0 999.0\n"
                                     "2.0 2.0 -4.0\n4.0 2.0 -5.0\n4.0 4.0 -6.0\n2.0 2.0 -4.0\n999.0 999.0 999.0\n"
                                     "1.0 1.0 -1.0\n2.0 2.0 -2.0\n999.0 999.0 999.0\n"
                                     "6.0 6.0 -999.0\n7.0 7.0 -7.0\n999.0 999.0 999.0\n"));
    QCOMPARE(run.findings(),
             QStringLiteral("the format has no attributes; left out: 1, name not written: 1, name not written: 1, "
                            "ring closed: 1, hole of a polygon written as a polygon: 1, "
                            "vertex without a position left out: 2, line of fewer than two points left out: 1"));
    const std::vector<ModelObject> read = loaded(run.files[0].path);
    QCOMPARE(int(read.size()), 4);
    QVERIFY(read[0].type == ObjectType::Polygons && read[2].type == ObjectType::Polylines);
    // Upwards, the height of 999 is one that some readers take for an end.
    QVERIFY(run.again("zIsElevation=true"));
    QCOMPARE(run.countOf(QStringLiteral("coordinate of 999")), 1);
}

void IrapTest::pointsAndLines()
{
    ModelObject flat = objectOf(ObjectType::VertexClouds, QStringLiteral("flat"), {{1, 2, 0}}, "");
    flat.hasZ = false;
    const ModelObject cloud = objectOf(ObjectType::Pins, QStringLiteral("tops"), {{1, 2, 3}, {4, 5, none}}, "");
    SaverRun run("irappoints", {cloud, polygon(), flat}, path("out.xyz"), "decimals=0");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(listing(), QStringLiteral("out.poi out.pol"));
    QCOMPARE(run.bytes(1), QByteArray("1 2 3\n999 999 999\n"));
    QCOMPARE(run.countOf(QStringLiteral("object without heights left out")), 1);
    QVERIFY(run.again("flatObjects=zero"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.bytes(1), QByteArray("1 2 3\n999 999 999\n1 2 0\n999 999 999\n"));
    QCOMPARE(run.countOf(QStringLiteral("object without heights written at height 0")), 1);
    // One kind keeps the name that was given.
    const SaverRun points("irappoints", {cloud}, path("only.xyz"));
    QCOMPARE(points.files[0].path, path("only.xyz"));
}

void IrapTest::pointsRefused()
{
    const ModelObject end = objectOf(ObjectType::Pins, QStringLiteral("end"), {{1, 2, 3}, {999, 999.00001, 999}}, "");
    const ModelObject good = objectOf(ObjectType::Pins, QStringLiteral("good"), {{1, 2, 3}}, "");
    SaverRun run("irappoints", {end, good}, path("a.poi"), "decimals=3");
    QVERIFY(run.error().contains(QStringLiteral("end: its vertex 2 lies at 999, 999, 999")));
    QCOMPARE(run.bytes(), QByteArray("1.000 2.000 3.000\n999.000 999.000 999.000\n"));
    ModelObject flat = good;
    flat.hasZ = false;
    const SaverRun nothing("irappoints", {flat}, path("b.poi"));
    QVERIFY(nothing.error().contains(QStringLiteral("none of its objects has a vertex with a height")));
    QVERIFY(!QFile::exists(path("b.poi")));
}

QTEST_GUILESS_MAIN(IrapTest)
#include "tst_irap.moc"
