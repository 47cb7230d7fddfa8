// SPDX-License-Identifier: MIT
// OFF meshes and ZMap+ grids: whole texts, read back by the program's reader and by GDAL, real data, failures.
#include "tests/support/SaverRun.h"
#include "tests/support/TextRows.h"

#include <gdal_priv.h>

#include <cmath>

using namespace kpFormats;

class MeshGridsTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void offText();
    void offThereAndBack();
    void offFailures();
    void zmapText();
    void zmapThroughGdal_data();
    void zmapThroughGdal();
    void zmapAttribute();
    void zmapTerrain();
    void zmapRefused_data();
    void zmapRefused();
};

void MeshGridsTest::offText()
{
    ModelObject mesh =
        objectOf(QStringLiteral("m\nx"), ObjectType::MeshSurfaces, {0, 1, 1, 0}, {0, 0, 1, NAN}, {1, 2, 3, 4});
    mesh.triangles = {{0, 1, 2}, {0, 2, 3}};
    mesh.vertexAttributes.push_back(columnOf(QStringLiteral("age"), AttributeKind::Real, {1, 2, 3, 4}));
    SaverRun run("off", {mesh}, path("m"), "decimals=1;colours=true;zPositive=depth");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.files[0].path, path("m.off"));
    QCOMPARE(run.bytes(), QByteArray("OFF\n"
                                     "# m x\n"
                                     "# unit: m\n"
                                     "# z: depth, positive down\n"
                                     "3 1 0\n"
                                     "0.0 0.0 -1.0\n"
                                     "1.0 0.0 -2.0\n"
                                     "1.0 1.0 -3.0\n"
                                     "3 0 1 2 255 0 51\n"));
    QCOMPARE(run.findings(),
             QStringLiteral("the format has no attributes; left out: 1, "
                            "vertex without a position left out: 1, triangle without a position left out: 1"));
    QVERIFY(run.again("header=false"));
    QVERIFY(run.bytes().startsWith("OFF\n3 1 0\n"));
}

void MeshGridsTest::offThereAndBack()
{
    SaverRun run("off", {loaded(sample("terrain_mesh.off")).front(), loaded(sample("dtm_rp.tif")).front()}, path(),
                 "lengthUnit=ft;filePrefix=t");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(QFileInfo(run.files[0].path).fileName(), QStringLiteral("t_terrain_mesh.off"));
    QCOMPARE(run.readBack[0].positions(), 650);
    QVERIFY(run.readBack[0].worst().difference > 0.0 && run.readBack[0].worst().difference < 1e-4);
    // The wrong file in its place is noticed.
    QVERIFY(QFile::remove(run.files[0].path) && QFile::copy(run.files[1].path, run.files[0].path));
    QVERIFY(!run.verify(0).fault().isEmpty());
}

void MeshGridsTest::offFailures()
{
    ModelObject empty = gridOf(3, 3);
    empty.z = numbersOf(std::vector<double>(9, NAN));
    const SaverRun run("off", {empty, gridOf(3, 3)}, path("s.off"));
    QVERIFY(run.error(0).contains(QStringLiteral("has no triangle")));
    QVERIFY(run.error(1).isEmpty());
    QVERIFY(!QFile::exists(run.files[0].path) && QFile::exists(run.files[1].path));
}

void MeshGridsTest::zmapText()
{
    ModelObject surface = gridOf(2, 3);
    surface.name = QStringLiteral("top, reek");
    surface.z = numbersOf({-1.26, 2, 3, NAN, 5, 6});
    surface.vertexAttributes.push_back(columnOf(QStringLiteral("v"), AttributeKind::Real, {1, 2, 3, 4, 5, 6}));
    SaverRun run("zmap", {surface}, path("z"), "decimals=1;nodesPerLine=2;nullValue=-999");
    QVERIFY(run.written);
    QCOMPARE(run.files[0].path, path("z.dat"));
    // The first column of the grid, from the north, then the second.
    QCOMPARE(run.bytes(), QByteArray("! top, reek\n"
                                     "! lengths in m\n"
                                     "! value: elevation, positive up\n"
                                     "! limits: outermost nodes\n"
                                     "@top_ reek HEADER, GRID, 2\n"
                                     "7, -999.0, , 1, 1\n"
                                     "3, 2, 1000.0000000, 1010.0000000, 2000.0000000, 2020.0000000\n"
                                     "0.0, 0.0, 0.0\n"
                                     "@\n"
                                     "    5.0    3.0\n"
                                     "   -1.3\n"
                                     "    6.0 -999.0\n"
                                     "    2.0\n"));
    QCOMPARE(run.findings(), QStringLiteral("a grid file holds one value per node; attributes left out: 1"));
}

void MeshGridsTest::zmapThroughGdal_data()
{
    textRows({"settings", "rows"}, {{"registration=nodes", "northwards"},
                                    {"registration=corners", "northwards"},
                                    {"registration=nodes;lengthUnit=ft;zIsElevation=false", "northwards"},
                                    {"registration=nodes", "southwards"}});
}

void MeshGridsTest::zmapThroughGdal()
{
    QFETCH(QString, settings);
    QFETCH(QString, rows);
    ModelObject surface = gridOf(7, 4, 25.0);
    if (rows == QLatin1String("southwards")) {
        surface.grid->stepY = -25.0;
        std::vector<double> southwards = *surface.y;
        for (double& y : southwards)
            y = 2 * surface.grid->originY - y;
        surface.y = numbersOf(std::move(southwards));
    }
    SaverRun run("zmap", {surface}, path("z.dat"), settings);
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.readBack[0].positions(), 28);
    QVERIFY2(run.readBack[0].worst().difference < 1e-4,
             qPrintable(QString::number(run.readBack[0].worst().difference)));

    // By GDAL's default the limits are the corners: its pixel centres must be the nodes then, too.
    if (!settings.endsWith(QLatin1String("corners")))
        return;
    GDALAllRegister();
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(run.files[0].path.toUtf8().constData(), GDAL_OF_RASTER));
    QVERIFY(dataset);
    double transform[6];
    QCOMPARE(dataset->GetGeoTransform(transform), CE_None);
    QCOMPARE(transform[0] + transform[1] / 2, 1000.0);
    QCOMPARE(transform[3] + transform[5] / 2, 2075.0);
    double value = 0;
    QCOMPARE(dataset->GetRasterBand(1)->RasterIO(GF_Read, 6, 0, 1, 1, &value, 1, 1, GDT_Float64, 0, 0, nullptr),
             CE_None);
    QCOMPARE(value, 306.0);
}

void MeshGridsTest::zmapAttribute()
{
    ModelObject surface = gridOf(2, 2);
    surface.vertexAttributes.push_back(
        columnOf(QStringLiteral("thickness"), AttributeKind::Real, {1.5, 2.5, QVariant(), -99999.0}));
    SaverRun run("zmap", {surface}, path("z.dat"), "attribute=thickness;zIsElevation=false;lengthUnit=km;decimals=1");
    // No length: neither converted nor turned round.
    QVERIFY(run.bytes().endsWith("\n@\n -99999.0      1.5\n -99999.0      2.5\n"));
    QCOMPARE(run.findings(), QStringLiteral("value equal to the null value: 1"));
    QVERIFY(!run.again("attribute=other"));
    QVERIFY(run.error().contains(QStringLiteral("it has: thickness")));
    // Degrees are no lengths.
    surface.crs = wktOf(QStringLiteral("EPSG:4326"));
    const SaverRun degrees("zmap", {surface}, path("d.dat"), "lengthUnit=ft");
    QCOMPARE(degrees.fault(), QString());
    QVERIFY(degrees.bytes().contains("\n2, 2, 1000.0000000, 1010.0000000, 2000.0000000, 2010.0000000\n"));
}

void MeshGridsTest::zmapTerrain()
{
    // The sample's terrain, with holes, comes back through the program's own reader at the same nodes.
    SaverRun run("zmap", loaded(sample("dtm_rp.tif")), path("terrain"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.readBack[0].positions(), 197 * 204);
    const ModelObject& before = run.objects.front();
    const ModelObject after = loaded(run.files[0].path).front();
    QCOMPARE(after.vertexCount(), before.vertexCount());
    for (std::size_t node = 0; node < before.x->size(); ++node) {
        QVERIFY(std::abs((*after.x)[node] - (*before.x)[node]) < 1e-4
                && std::abs((*after.y)[node] - (*before.y)[node]) < 1e-4);
        const bool hole = std::isnan((*before.z)[node]);
        QVERIFY(hole ? std::isnan((*after.z)[node]) : std::abs((*after.z)[node] - (*before.z)[node]) < 1e-4);
    }
}

void MeshGridsTest::zmapRefused_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<double>("rotation");
    QTest::addColumn<QString>("set");
    QTest::addColumn<QString>("message");
    QTest::newRow("rotated") << 3 << 30.0 << "decimals=1"
                             << "is rotated by 30 degrees";
    QTest::newRow("rotated a little") << 3 << 0.1 << "decimals=1"
                                      << "is rotated by 0.1 degrees";
    QTest::newRow("one column") << 1 << 0.0 << "registration=corners"
                                << "has a single row or column";
    QTest::newRow("rounding") << 3 << 1e-9 << "decimals=1"
                              << "";
    QTest::newRow("empty") << 0 << 0.0 << "decimals=1"
                           << "the grid's size is not that of its nodes";
    QTest::newRow("too wide") << 3 << 0.0 << "nullValue=1e30;decimals=12"
                              << "does not fit into a field";
}

void MeshGridsTest::zmapRefused()
{
    QFETCH(int, columns);
    QFETCH(double, rotation);
    QFETCH(QString, set);
    QFETCH(QString, message);
    ModelObject surface = gridOf(columns, 4);
    surface.grid->rotation = rotation;
    emptyFolder();
    SaverRun run("zmap", {surface}, path("z.dat"), set);
    QCOMPARE(run.fault().isEmpty(), message.isEmpty());
    QVERIFY2(run.error().contains(message), qPrintable(run.error()));
    QCOMPARE(QFile::exists(run.files[0].path), message.isEmpty());
}

QTEST_GUILESS_MAIN(MeshGridsTest)
#include "tst_meshgrids.moc"
