// SPDX-License-Identifier: MIT
// OFF meshes and ZMap+ grids: whole texts, read back by the program's reader and by GDAL, real data, failures.
#include "app/savers/off/OffFormat.h"
#include "app/savers/zmap/ZMapFormat.h"
#include "tests/app/FormatTest.h"

#include <QtTest>

#include <gdal_priv.h>

#include <cmath>

using namespace formattest;

class MeshGridsTest : public QObject
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
    void cancelled();
};

void MeshGridsTest::offText()
{
    ModelObject mesh = object(QStringLiteral("m\nx"), {0, 1, 1, 0}, {0, 0, 1, NAN}, {1, 2, 3, 4});
    mesh.type = ObjectType::MeshSurfaces;
    mesh.triangles = {{0, 1, 2}, {0, 2, 3}};
    mesh.vertexAttributes.push_back(realColumn(QStringLiteral("age"), {1, 2, 3, 4}));
    OffFormat format;
    format.settings().set(QStringLiteral("decimals"), QStringLiteral("1"));
    format.settings().set(QStringLiteral("colours"), QStringLiteral("true"));
    format.settings().set(QStringLiteral("zPositive"), QStringLiteral("depth"));
    QTemporaryDir folder;
    Run run(format, {&mesh}, folder.filePath(QStringLiteral("m")));
    QVERIFY(run.go());
    QCOMPARE(run.files[0].path, folder.filePath(QStringLiteral("m.off")));
    QCOMPARE(run.bytes(), QByteArray("OFF\n"
                                     "# m x\n"
                                     "# unit: m\n"
                                     "# z: depth, positive down\n"
                                     "3 1 0\n"
                                     "0.0 0.0 -1.0\n"
                                     "1.0 0.0 -2.0\n"
                                     "1.0 1.0 -3.0\n"
                                     "3 0 1 2 255 0 51\n"));
    QCOMPARE(run.kinds().join(QLatin1Char('|')), QStringLiteral("the format has no attributes; left out|vertex without a position left out"
                                                                "|triangle without a position left out"));
    QCOMPARE(run.verify().fault, QString());
    format.settings().set(QStringLiteral("header"), QStringLiteral("false"));
    QVERIFY(run.go());
    QVERIFY(run.bytes().startsWith("OFF\n3 1 0\n"));
}

void MeshGridsTest::offThereAndBack()
{
    Model model;
    loadInto(model, sample("terrain_mesh.off"));
    loadInto(model, sample("dtm_rp.tif"));
    OffFormat format;
    format.settings().set(QStringLiteral("lengthUnit"), QStringLiteral("ft"));
    format.settings().set(QStringLiteral("filePrefix"), QStringLiteral("t"));
    QTemporaryDir folder;
    Run run(format, pointers(model), folder.path());
    QVERIFY(run.go());
    QCOMPARE(QFileInfo(run.files[0].path).fileName(), QStringLiteral("t_terrain_mesh.off"));
    const Verification mesh = run.verify(0);
    QVERIFY2(mesh.fault.isEmpty(), qPrintable(mesh.fault));
    QCOMPARE(mesh.count, 1200);
    QVERIFY(mesh.worstError > 0.0 && mesh.worstError < 1e-4);
    const Verification terrain = run.verify(1);
    QVERIFY2(terrain.fault.isEmpty(), qPrintable(terrain.fault));
    // The wrong file in its place is noticed.
    QVERIFY(QFile::remove(run.files[0].path) && QFile::copy(run.files[1].path, run.files[0].path));
    QVERIFY(run.verify(0).fault.contains(QStringLiteral("instead of 650 and 1200")));
}

void MeshGridsTest::offFailures()
{
    ModelObject empty = grid(3, 3);
    empty.z = numbers(std::vector<double>(9, NAN));
    const ModelObject good = grid(3, 3);
    OffFormat format;
    QTemporaryDir folder;
    Run run(format, {&empty, &good}, folder.filePath(QStringLiteral("s.off")));
    QVERIFY(!run.go());
    QVERIFY(run.error(0).contains(QStringLiteral("has no triangle")));
    QVERIFY(run.error(1).isEmpty());
    QVERIFY(!QFile::exists(run.files[0].path) && QFile::exists(run.files[1].path));
    Run full(format, {&good}, QStringLiteral("/dev/full"));
    QVERIFY(!full.go());
}

void MeshGridsTest::zmapText()
{
    ModelObject surface = grid(2, 3);
    surface.name = QStringLiteral("top, reek");
    surface.z = numbers({-1.26, 2, 3, NAN, 5, 6});
    surface.vertexAttributes.push_back(realColumn(QStringLiteral("v"), {1, 2, 3, 4, 5, 6}));
    ZMapFormat format;
    format.settings().set(QStringLiteral("decimals"), QStringLiteral("1"));
    format.settings().set(QStringLiteral("nodesPerLine"), QStringLiteral("2"));
    format.settings().set(QStringLiteral("nullValue"), QStringLiteral("-999"));
    QTemporaryDir folder;
    Run run(format, {&surface}, folder.filePath(QStringLiteral("z")));
    QVERIFY(run.go());
    QCOMPARE(run.files[0].path, folder.filePath(QStringLiteral("z.dat")));
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
    QCOMPARE(run.kinds(), QStringList{QStringLiteral("a grid file holds one value per node; attributes left out")});
}

void MeshGridsTest::zmapThroughGdal_data()
{
    QTest::addColumn<QString>("registration");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<bool>("elevation");
    QTest::addColumn<bool>("southwards");
    QTest::newRow("nodes") << "nodes" << "model" << true << false;
    QTest::newRow("corners") << "corners" << "model" << true << false;
    QTest::newRow("feet, depth") << "nodes" << "ft" << false << false;
    QTest::newRow("first row in the north") << "nodes" << "model" << true << true;
}

void MeshGridsTest::zmapThroughGdal()
{
    QFETCH(QString, registration);
    QFETCH(QString, unit);
    QFETCH(bool, elevation);
    QFETCH(bool, southwards);
    ModelObject surface = grid(7, 4, 25.0);
    if (southwards)
        surface.grid->stepY = -25.0;
    ZMapFormat format;
    format.settings().set(QStringLiteral("registration"), registration);
    format.settings().set(QStringLiteral("lengthUnit"), unit);
    format.settings().set(QStringLiteral("zIsElevation"), elevation ? QStringLiteral("true") : QStringLiteral("false"));
    QTemporaryDir folder;
    Run run(format, {&surface}, folder.filePath(QStringLiteral("z.dat")));
    QVERIFY(run.go());
    const Verification seen = run.verify();
    QVERIFY2(seen.fault.isEmpty(), qPrintable(seen.fault));
    QCOMPARE(seen.count, 28);
    QVERIFY2(seen.worstError < 1e-4, qPrintable(QString::number(seen.worstError)));

    // By GDAL's default the limits are the corners: its pixel centres must be the nodes then, too.
    if (registration != QLatin1String("corners"))
        return;
    GDALAllRegister();
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(run.files[0].path.toUtf8().constData(), GDAL_OF_RASTER));
    QVERIFY(dataset);
    double transform[6];
    QCOMPARE(dataset->GetGeoTransform(transform), CE_None);
    QCOMPARE(transform[0] + transform[1] / 2, 1000.0);
    QCOMPARE(transform[3] + transform[5] / 2, 2075.0);
    double value = 0;
    QCOMPARE(dataset->GetRasterBand(1)->RasterIO(GF_Read, 6, 0, 1, 1, &value, 1, 1, GDT_Float64, 0, 0, nullptr), CE_None);
    QCOMPARE(value, 306.0);
}

void MeshGridsTest::zmapAttribute()
{
    ModelObject surface = grid(2, 2);
    surface.vertexAttributes.push_back(realColumn(QStringLiteral("thickness"), {1.5, 2.5, 0, -99999.0}, {0, 0, 1, 0}));
    ZMapFormat format;
    format.settings().set(QStringLiteral("attribute"), QStringLiteral("thickness"));
    format.settings().set(QStringLiteral("zIsElevation"), QStringLiteral("false"));
    format.settings().set(QStringLiteral("lengthUnit"), QStringLiteral("km"));
    format.settings().set(QStringLiteral("decimals"), QStringLiteral("1"));
    QTemporaryDir folder;
    Run run(format, {&surface}, folder.filePath(QStringLiteral("z.dat")));
    QVERIFY(run.go());
    // No length: neither converted nor turned round.
    QVERIFY(run.bytes().endsWith("\n@\n -99999.0      1.5\n -99999.0      2.5\n"));
    QCOMPARE(run.kinds(), QStringList{QStringLiteral("value equal to the null value")});
    format.settings().set(QStringLiteral("attribute"), QStringLiteral("other"));
    QVERIFY(!run.go());
    QVERIFY(run.report.files().back().error.contains(QStringLiteral("it has: thickness")));
}

void MeshGridsTest::zmapTerrain()
{
    // The sample's terrain, with holes, comes back through the program's own reader at the same nodes.
    Model model;
    loadInto(model, sample("dtm_rp.tif"));
    ZMapFormat format;
    QTemporaryDir folder;
    Run run(format, pointers(model), folder.filePath(QStringLiteral("terrain")));
    QVERIFY(run.go());
    const Verification seen = run.verify();
    QVERIFY2(seen.fault.isEmpty(), qPrintable(seen.fault));
    QCOMPARE(seen.count, 197 * 204);
    loadInto(model, run.files[0].path);
    const ModelObject& before = model.objects()[0];
    const ModelObject& after = model.objects()[1];
    QCOMPARE(after.vertexCount(), before.vertexCount());
    for (std::size_t node = 0; node < before.x->size(); ++node) {
        QVERIFY(std::abs((*after.x)[node] - (*before.x)[node]) < 1e-4 && std::abs((*after.y)[node] - (*before.y)[node]) < 1e-4);
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
    QTest::newRow("rotated") << 3 << 30.0 << "decimals=1" << "is rotated by 30 degrees";
    QTest::newRow("rotated a little") << 3 << 0.1 << "decimals=1" << "is rotated by 0.1 degrees";
    QTest::newRow("one column") << 1 << 0.0 << "registration=corners" << "has a single row or column";
    QTest::newRow("rounding") << 3 << 1e-9 << "decimals=1" << "";
    QTest::newRow("empty") << 0 << 0.0 << "decimals=1" << "the grid's size is not that of its nodes";
    QTest::newRow("too wide") << 3 << 0.0 << "nullValue=1e30;decimals=12" << "does not fit into a field";
}

void MeshGridsTest::zmapRefused()
{
    QFETCH(int, columns);
    QFETCH(double, rotation);
    QFETCH(QString, set);
    QFETCH(QString, message);
    ModelObject surface = grid(columns, 4);
    surface.grid->rotation = rotation;
    ZMapFormat format;
    for (const QString& pair : set.split(QLatin1Char(';')))
        format.settings().set(pair.section(QLatin1Char('='), 0, 0), pair.section(QLatin1Char('='), 1));
    QTemporaryDir folder;
    Run run(format, {&surface}, folder.filePath(QStringLiteral("z.dat")));
    QCOMPARE(run.go(), message.isEmpty());
    QVERIFY2(run.error().contains(message), qPrintable(run.error()));
    QCOMPARE(QFile::exists(run.files[0].path), message.isEmpty());
    if (message.isEmpty())
        QCOMPARE(run.verify().fault, QString());
}

void MeshGridsTest::cancelled()
{
    const ModelObject surface = grid(1000, 300);
    QTemporaryDir folder;
    OffFormat off;
    ZMapFormat zmap;
    for (ExportFormat* format : {static_cast<ExportFormat*>(&off), static_cast<ExportFormat*>(&zmap)}) {
        CancelAt cancel(30);
        Run run(*format, {&surface}, folder.filePath(QStringLiteral("g.dat")));
        QVERIFY(!run.go(&cancel));
        QVERIFY(run.report.cancelled && !QFile::exists(run.files[0].path));
        QVERIFY(cancel.largest > 0 && cancel.largest < 60);
    }
}

QTEST_GUILESS_MAIN(MeshGridsTest)
#include "tst_meshgrids.moc"
