// SPDX-License-Identifier: MIT
// Geometries and rasters of every kind that GDAL gives: kept, changed and told, or left out and told.
#include "geo/CoordinateSystems.h"
#include "geo/GdalSession.h"
#include "model/Model.h"
#include "readers/LoadError.h"
#include "readers/ModelLoader.h"
#include "tests/support/FileContent.h"
#include "tests/support/ForeignReader.h"

#include <gdal_utils.h>
#include <ogrsf_frmts.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>
#include <stdexcept>

using namespace kpFormats;

class GeometriesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unsoundObject();
    void heights();
    void kinds();
    void sheets();
    void fields();
    void warnings();
    void drawing();
    void gmlLeavesNothing();
    void scaledBands();
    void zmap_data();
    void zmap();
    void gridOfPoints();
    void irap();
    void stl();

private:
    QString path(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }

    QTemporaryDir m_folder;
};

void GeometriesTest::unsoundObject()
{
    ModelObject object;
    object.name = QStringLiteral("bad");
    object.x = object.y = object.z = std::make_shared<const std::vector<double>>(3, 0.0);
    object.triangles.push_back({0, 1, 3});
    Model model;
    QVERIFY_EXCEPTION_THROWN(model.add(object), std::invalid_argument);
    QVERIFY(model.objects().empty());
}

void GeometriesTest::heights()
{
    Model model;
    const LoadNotes notes = loadInto(model, writeFile(path("p.geojson"),
                                                      R"({"type":"FeatureCollection","features":[
{"type":"Feature","properties":{"a":1},"geometry":{"type":"Point","coordinates":[1,2]}},
{"type":"Feature","properties":{"a":2},"geometry":{"type":"Point","coordinates":[1,2,3]}},
{"type":"Feature","properties":{"a":3},"geometry":null}]})"));
    const ModelObject& cloud = model.objects().front();
    QVERIFY(cloud.hasZ && std::isnan(cloud.z->front()) && cloud.z->back() == 3.0);
    QCOMPARE(notes.size(), 2);
    QVERIFY(notes[0].contains(QStringLiteral("1 of layer p had no geometry")));
    QVERIFY(notes[1].contains(QStringLiteral("1 of layer p are points without a height")));
}

void GeometriesTest::kinds()
{
    const char* const shapes[] = {"CIRCULARSTRING(0 0,1 1,2 0)",
                                  "CURVEPOLYGON(CIRCULARSTRING(0 0,2 0,0 0))",
                                  "TIN Z(((0 0 0,1 0 0,0 1 0,0 0 0)),((1 0 0,1 1 1,0 1 0,1 0 0)))",
                                  "POLYHEDRALSURFACE Z(((0 0 0,1 0 0,1 1 0,0 1 0,0 0 0)))",
                                  "GEOMETRYCOLLECTION(POINT(5 5),LINESTRING(0 0,1 1))",
                                  "LINESTRING M(0 0 7,1 1 8)",
                                  "TRIANGLE((0 0,1 0,0 1,0 0))",
                                  "COMPOUNDCURVE((0 0,1 1,2 0))",
                                  "CURVEPOLYGON((0 0,1 0,0 1,0 0))"};
    QByteArray text = "WKT,n\n";
    int number = 0;
    for (const char* shape : shapes)
        text += '"' + QByteArray(shape) + "\"," + QByteArray::number(++number) + '\n';
    Model model;
    const LoadNotes notes = loadInto(model, writeFile(path("k.csv"), text));
    QStringList found;
    for (const ModelObject& object : model.objects())
        found.append(QStringLiteral("%1 %2/%3")
                         .arg(QString::fromStdString(typeKey(object.type)))
                         .arg(object.vertexCount())
                         .arg(object.triangles.size()));
    QCOMPARE(
        found.join(QStringLiteral(", ")),
        QStringLiteral("polyline 46/0, polygon 92/0, mesh_surface 4/2, mesh_surface 4/2, polyline 2/0, polyline 2/0, "
                       "mesh_surface 3/1, polyline 3/0, polygon 4/0, vertex_cloud 1/0"));
    const QString said = notes.join(QLatin1Char('\n'));
    for (const char* part : {"2 of layer k had curves", "1 of layer k had measures", "1 of layer k were collections",
                             "3 of layer k were surfaces"})
        QVERIFY2(said.contains(QLatin1String(part)), qPrintable(said));
}

void GeometriesTest::sheets()
{
    // Written by another library, and the same as OpenDocument by GDAL: rows are points by their columns.
    const QString excel = path("t.xlsx");
    if (foreignReader("../readers/write_sheets.py", {excel}) == QLatin1String("absent"))
        QSKIP("python3-openpyxl is not here");
    registerGdalDrivers();
    const QString open = path("t.ods");
    const char* const arguments[] = {"-f", "ODS", nullptr};
    GDALVectorTranslateOptions* const options = GDALVectorTranslateOptionsNew(const_cast<char**>(arguments), nullptr);
    const GDALDatasetUniquePtr source(GDALDataset::Open(excel.toUtf8().constData(), GDAL_OF_VECTOR));
    GDALDatasetH from = GDALDataset::ToHandle(source.get());
    GDALClose(GDALVectorTranslate(open.toUtf8().constData(), nullptr, 1, &from, options, nullptr));
    GDALVectorTranslateOptionsFree(options);
    for (const QString& file : {excel, open}) {
        Model model;
        const QString said = loadInto(model, file).join(QLatin1Char('\n'));
        QCOMPARE(model.objects().size(), std::size_t(2));
        const ModelObject& holes = model.objects()[0];
        QCOMPARE(holes.name, QStringLiteral("Holes"));
        QCOMPARE(*holes.x, (std::vector<double>{500000.25, 500010.25}));
        QVERIFY(holes.z->at(0) == 12.5 && std::isnan(holes.z->at(1)) && holes.crs.isEmpty());
        QStringList values;
        for (const AttributeColumn& column : holes.vertexAttributes)
            values.append(column.name);
        QCOMPARE(values.join(QLatin1Char(' ')), QStringLiteral("hole Au when"));
        QCOMPARE(holes.vertexAttributes[0].values, (QVector<QVariant>{QStringLiteral("007"), QString::fromUtf8("Ж")}));
        QCOMPARE(*holes.vertexAttributes[1].missing, (std::vector<unsigned char>{0, 1}));
        QCOMPARE(holes.vertexAttributes[2].values[0].toString(), QStringLiteral("2024-02-29"));
        QCOMPARE(model.objects()[1].crs, wktOf(QStringLiteral("EPSG:4326")));
        QVERIFY2(said.contains(QStringLiteral("1 of layer Holes have no numbers for x and y and were left out"))
                     && said.contains(QStringLiteral("are taken as degrees of EPSG:4326")),
                 qPrintable(said));
    }
    LoadOptions named;
    named.layer = QStringLiteral("Holes");
    named.x = QStringLiteral("Northing");
    named.y = QStringLiteral("Easting");
    Model model;
    loadInto(model, excel, named);
    QCOMPARE(model.objects().front().y->at(0), 500000.25);
    named.z = QStringLiteral("depth");
    QVERIFY_EXCEPTION_THROWN(loadInto(model, excel, named), LoadError);
}

void GeometriesTest::fields()
{
    Model model;
    const LoadNotes notes =
        loadInto(model, writeFile(path("f.geojson"),
                                  R"({"type":"FeatureCollection","features":[{"type":"Feature","properties":
{"id":9007199254740993,"day":"2024/02/29","at":"2024-02-29T13:45:10Z","list":[1,2]},
"geometry":{"type":"Point","coordinates":[1,2]}}]})"));
    QStringList found;
    for (const AttributeColumn& column : model.objects().front().vertexAttributes)
        found.append(QStringLiteral("%1 %2 %3")
                         .arg(column.name, column.values.front().toString())
                         .arg(static_cast<int>(column.meaning)));
    QCOMPARE(found.join(QStringLiteral(", ")),
             QStringLiteral("id 9007199254740993 0, day 2024-02-29 1, at 2024-02-29T13:45:10Z 3, list [ 1, 2 ] 0"));
    QCOMPARE(notes.size(), 1);
}

/// What GDAL warns of comes with the other things that loading lost, once; what it says of options does not.
void GeometriesTest::warnings()
{
    registerGdalDrivers();
    const QByteArray file = path("w.gpkg").toUtf8();
    {
        GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("GPKG");
        const GDALDatasetUniquePtr data(driver->Create(file.constData(), 0, 0, 0, GDT_Unknown, nullptr));
        OGRLayer* layer = data->CreateLayer("w", nullptr, wkbPoint);
        OGRFieldDefn day("day", OFTDate);
        QCOMPARE(layer->CreateField(&day), OGRERR_NONE);
        for (int x = 0; x < 30; ++x) {
            OGRFeature feature(layer->GetLayerDefn());
            const OGRPoint place(x, 0.0, 0.0);
            feature.SetGeometry(&place);
            feature.SetField("day", "2024/02/29");
            QCOMPARE(layer->CreateFeature(&feature), OGRERR_NONE);
        }
        data->ExecuteSQL("UPDATE w SET day = 'some day' WHERE fid > 3", nullptr, nullptr);
    }
    Model model;
    QCOMPARE(loadInto(model, QString::fromUtf8(file)).filter(QStringLiteral("GDAL")),
             QStringList(QStringLiteral("GDAL warned: Invalid content for record 4 in column day: some day")));
    QCOMPARE(model.objects().front().vertexAttributes.front().values.count(QVariant()), 27);
}

void GeometriesTest::drawing()
{
    const QByteArray face = "0\n3DFACE\n100\nAcDbEntity\n8\nTop\n100\nAcDbFace\n";
    Model model;
    const LoadNotes notes = loadInto(
        model,
        writeFile(path("d.dxf"),
                  "0\nSECTION\n2\nENTITIES\n" + face
                      + "10\n0\n20\n0\n30\n1\n11\n1\n21\n0\n31\n1\n12\n1\n22\n1\n32\n1\n13\n0\n23\n1\n33\n1\n" + face
                      + "10\n1\n20\n0\n30\n1\n11\n2\n21\n0\n31\n1\n12\n1\n22\n1\n32\n1\n13\n1\n23\n1\n33\n1\n"
                        "0\nENDSEC\n0\nEOF\n"));
    QCOMPARE(model.objects().size(), std::size_t(1));
    QCOMPARE(model.objects().front().name, QStringLiteral("Top"));
    QCOMPARE(model.objects().front().vertexCount(), 5);
    QCOMPARE(model.objects().front().triangles.size(), std::size_t(3));
    QVERIFY(notes.value(0).contains(QStringLiteral("2 of layer entities were faces")));
}

void GeometriesTest::gmlLeavesNothing()
{
    QVERIFY(QDir(m_folder.path()).mkdir(QStringLiteral("gml")));
    Model model;
    loadInto(
        model,
        writeFile(
            path("gml/a.gml"),
            R"(<?xml version="1.0"?><ogr:FeatureCollection xmlns:ogr="http://ogr.maptools.org/" xmlns:gml="http://www.opengis.net/gml">
<gml:featureMember><ogr:p fid="p.0"><ogr:geometryProperty><gml:Point><gml:coordinates>1,2</gml:coordinates></gml:Point></ogr:geometryProperty><ogr:a>x</ogr:a></ogr:p></gml:featureMember></ogr:FeatureCollection>)"));
    QCOMPARE(model.objects().size(), std::size_t(1));
    QCOMPARE(QDir(path("gml")).entryList(QDir::Files), QStringList{QStringLiteral("a.gml")});
}

void GeometriesTest::scaledBands()
{
    registerGdalDrivers();
    const QByteArray name = path("s.tif").toUtf8();
    {
        GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("GTiff");
        const GDALDatasetUniquePtr dataset(driver->Create(name.constData(), 2, 1, 2, GDT_Float64, nullptr));
        double heights[] = {10, 1.5e30};
        double classes[] = {7, -1};
        GDALRasterBand* first = dataset->GetRasterBand(1);
        QCOMPARE(first->RasterIO(GF_Write, 0, 0, 2, 1, heights, 2, 1, GDT_Float64, 0, 0), CE_None);
        QCOMPARE(dataset->GetRasterBand(2)->RasterIO(GF_Write, 0, 0, 2, 1, classes, 2, 1, GDT_Float64, 0, 0), CE_None);
        dataset->GetRasterBand(2)->SetDescription("class");
        dataset->GetRasterBand(2)->SetNoDataValue(-1);
        first->SetScale(0.5);
        first->SetOffset(100);
        first->SetUnitType("ft");
    }
    Model model;
    const LoadNotes notes = loadInto(model, path("s.tif"));
    const ModelObject& grid = model.objects().front();
    QCOMPARE(grid.z->front(), 105.0);
    QVERIFY(std::isnan(grid.z->back()));
    QCOMPARE(grid.lengthUnit, QStringLiteral("ft"));
    QCOMPARE(grid.vertexAttributes.size(), std::size_t(1));
    QCOMPARE(grid.vertexAttributes[0].name, QStringLiteral("class"));
    QCOMPARE(*grid.vertexAttributes[0].missing, (std::vector<unsigned char>{0, 1}));
    const QString said = notes.join(QLatin1Char('\n'));
    for (const char* part : {"band 1 was scaled by 0.5 and moved by 100", "1 values of 1e30 and beyond", "band 1 of 2"})
        QVERIFY2(said.contains(QLatin1String(part)), qPrintable(said));
    LoadOptions options;
    options.band = 2;
    loadInto(model, path("s.tif"), options);
    QCOMPARE(model.objects().back().z->front(), 7.0);
    options.band = 3;
    QVERIFY_EXCEPTION_THROWN(loadInto(model, path("s.tif"), options), LoadError);
}

void GeometriesTest::zmap_data()
{
    QTest::addColumn<QByteArray>("nodes");
    QTest::addColumn<QString>("expected"); // from the south-west, row by row, or the message
    const auto row = [](const char* title, const QByteArray& nodes, const char* expected) {
        QTest::newRow(title) << nodes << QString::fromLatin1(expected);
    };
    row("plain", "@\n   1.5   2.5   3.5\n   4.5   5.5   6.5\n", "3.5 6.5 2.5 5.5 1.5 4.5");
    row("a line of remarks", "@\n+ Grid data starts after this line\n1.5 -999.0000 3.5\n4.5 5.5 6.5\n",
        "3.5 6.5 nan 5.5 1.5 4.5");
    row("full fields", "@\n-999.0-999.0-999.0\n-111.5-222.5-333.5\n", "nan -333.5 nan -222.5 nan -111.5");
    row("cut short", "@\n1 2 3\n4 5\n", "it has 5 of 6 nodes");
    row("a word", "@\n1 2 x\n", "line 6: \"1 2 x\" is not a number");
    row("no end of the head", "", "the head of the grid is not complete");
}

void GeometriesTest::zmap()
{
    QFETCH(QByteArray, nodes);
    QFETCH(QString, expected);
    Model model;
    QString found;
    try {
        loadInto(model, writeFile(path("g.dat"), "! made by hand\n@grid HEADER  , GRID , 3\n6, -999.0, , 1, 1\n"
                                                 "3, 2, 100.0, 110.0, 200.0, 240.0\n"
                                                     + nodes));
        const ModelObject& grid = model.objects().front();
        QStringList values;
        for (const double z : *grid.z)
            values.append(QString::number(z));
        found = values.join(QLatin1Char(' '));
        QCOMPARE(grid.x->back(), 110.0);
        QCOMPARE(grid.y->back(), 240.0);
    } catch (const LoadError& error) {
        found = QString::fromUtf8(error.what());
    }
    QVERIFY2(found.contains(expected), qPrintable(found));
}

void GeometriesTest::gridOfPoints()
{
    // Points on a regular grid in text are a grid; the same in another order are points.
    Model model;
    loadInto(model, writeFile(path("g.xyz"), "0 0 1\n1 0 2\n0 1 3\n1 1 4\n"));
    QVERIFY(model.objects().front().grid);
    QCOMPARE(*model.objects().front().z, (std::vector<double>{1, 2, 3, 4}));
    loadInto(model, writeFile(path("p.xyz"), "0 0 1\n7 3 2\n2 9 3\n"));
    QVERIFY(!model.objects().back().grid);
    QCOMPARE(model.objects().back().vertexCount(), 3);
}

void GeometriesTest::irap()
{
    // Turned by a quarter: columns run north, rows west.
    Model model;
    loadInto(model, writeFile(path("g.irap"), "-996 2 10 5\n100 120 200 205\n3 90 100 200\n0 0 0 0 0 0 0\n"
                                              "1 2 9999900.0\n4 5 6\n"));
    const ModelObject& grid = model.objects().front();
    QCOMPARE(grid.grid->columns, 3);
    QVERIFY(std::isnan(grid.z->at(2)) && grid.z->at(5) == 6.0);
    QVERIFY(std::abs(grid.x->at(1) - 100) < 1e-9 && std::abs(grid.y->at(1) - 210) < 1e-9);
    QVERIFY(std::abs(grid.x->at(3) - 95) < 1e-9 && std::abs(grid.y->at(3) - 200) < 1e-9);
    QVERIFY_EXCEPTION_THROWN(
        loadInto(model, writeFile(path("bad.irap"), "-996 2 10 5\n1 2 3 4\n3 0 1 3\n0 0 0 0 0 0 0\n1\n")), LoadError);
    const QString sample = QStringLiteral(KP_SOURCE_DIR "/../shared/data/inputs/ib_test_horizon2.gri");
    if (QFile::exists(sample)) {
        loadInto(model, sample);
        QCOMPARE(model.objects().back().grid->columns, 126);
        QCOMPARE(model.objects().back().vertexCount(), 12600);
        QCOMPARE(model.objects().back().z->front(), 1741.1072998046875);
        QCOMPARE(model.objects().back().grid->rotation, -10.0);
    }
    Model lines;
    loadInto(lines,
             writeFile(path("l.pol"), "0 0 1\n1 0 1\n1 1 1\n0 0 1\n999.0 999.0 999.0\n5 5 2\n6 6 2\n999 999 999\n"));
    QCOMPARE(lines.objects().size(), std::size_t(2));
    QCOMPARE(lines.objects()[0].type, ObjectType::Polygons);
    QCOMPARE(lines.objects()[1].type, ObjectType::Polylines);
    QVERIFY_EXCEPTION_THROWN(loadInto(lines, writeFile(path("bad.pol"), "0 0\n")), LoadError);
}

void GeometriesTest::stl()
{
    const QByteArray facets = "solid s\n facet normal 0 0 1\n outer loop\n vertex 0 0 0\n vertex 1 0 0\n vertex 1 1 2\n"
                              " endloop\n endfacet\n facet normal 0 0 1\n outer loop\n vertex 0 0 0\n vertex 1 1 2\n"
                              " vertex 0 1 0\n endloop\n endfacet\nendsolid\n";
    Model model;
    loadInto(model, writeFile(path("s.stl"), facets));
    QCOMPARE(model.objects().front().vertexCount(), 4);
    QCOMPARE(model.objects().front().triangles[1], (std::array<int, 3>{0, 2, 3}));
    QVERIFY_EXCEPTION_THROWN(loadInto(model, writeFile(path("c.stl"), facets.left(80))), LoadError);
    // Binary: one facet, and one that falls together.
    QByteArray binary(84, '\0');
    binary[80] = 2;
    const float corners[2][9] = {{0, 0, 0, 1, 0, 0, 0, 1, 7}, {3, 3, 3, 3, 3, 3, 4, 4, 4}};
    for (const auto& corner : corners)
        binary += QByteArray(12, '\0') + QByteArray(reinterpret_cast<const char*>(corner), sizeof corner)
                  + QByteArray(2, '\0');
    const LoadNotes notes = loadInto(model, writeFile(path("b.stl"), binary));
    QCOMPARE(model.objects().back().triangles.size(), std::size_t(1));
    QCOMPARE(model.objects().back().z->at(2), 7.0);
    QVERIFY(notes.value(0).contains(QStringLiteral("1 facets without an area were left out")));
}

QTEST_GUILESS_MAIN(GeometriesTest)
#include "tst_geometries.moc"
