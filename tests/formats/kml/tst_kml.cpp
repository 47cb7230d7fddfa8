// SPDX-License-Identifier: MIT
#include "geo/GdalSession.h"
#include "tests/support/SaverRun.h"

#include <ogrsf_frmts.h>

using namespace kpFormats;

namespace
{

const QString hardName = QString::fromUtf8("Разломы 斷層 \"a\" 'b' <c> & ]]> \\ %41");

/// A polygon with a hole, its outer ring not closed.
ModelObject polygonWithHole()
{
    ModelObject polygon = objectOf(ObjectType::Polygons, QStringLiteral("P"),
                                   {{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {1, 1, 0}, {2, 1, 0}, {2, 2, 0}, {1, 1, 0}});
    polygon.parts = {{0, 3, true, false}, {3, 4, true, true}};
    polygon.hasZ = false;
    return polygon;
}

ModelObject section()
{
    ModelObject object = objectOf(ObjectType::CrossSections, QStringLiteral("A"), {{10, 1, 0}, {11, 1, 0}});
    object.hasZ = false;
    CrossSection drawing;
    drawing.segments = {
        {QStringLiteral("H"), ObjectType::GridSurfaces, QColor(255, 0, 0), {0, 50}, {10, 10.5}, {1, 1}, {-5, -6}},
        {QStringLiteral("F"), ObjectType::Polylines, QColor(0, 255, 0), {20}, {10.25}, {1}, {-7}}};
    object.section = std::make_shared<const CrossSection>(drawing);
    return object;
}

ModelObject longLine(int count)
{
    std::vector<std::array<double, 3>> rows;
    for (int index = 0; index < count; ++index)
        rows.push_back({100.0 + index * 1e-5, -20.0 + (index % 1000) * 1e-4, index * 0.125});
    return objectOf(ObjectType::Polylines, QStringLiteral("long"), rows);
}

} // namespace

Q_DECLARE_METATYPE(ModelObject)

class KmlTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { emptyFolder(); }
    void wholeDocument();
    void attributes();
    void hardNames();
    void systems_data();
    void systems();
    void heights();
    void leftOut();
    void nothingToDraw_data();
    void nothingToDraw();
    void surfaces();
    void pictureGoesWithItsFile();
    void archive();
    void longLineAndBounds();
    void sampleModel();
};

void KmlTest::wholeDocument()
{
    ModelObject well = objectOf(ObjectType::Wells, QStringLiteral("W"), {{5, 6, 100}, {5, 6, 50}});
    well.lengthUnit = QStringLiteral("ft");
    ModelObject lines = objectOf(ObjectType::Polylines, QStringLiteral("L"),
                                 {{115.5, -22.25, 10}, {116, -23, -5.5}, {1, 1, 1}, {2, 2, 2}});
    lines.parts = {{0, 2, false, false}, {2, 2, false, false}};
    const SaverRun run(
        "kml",
        {section(), lines, polygonWithHole(), well, objectOf(ObjectType::Labels, QStringLiteral("T"), {{7, 8, 9}})},
        path("a.kml"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.findings(), QStringLiteral("ring closed: 1"));
    QCOMPARE(run.rows(), 7);
    QCOMPARE(
        QString::fromUtf8(contentOf(path("a.kml"))),
        QStringLiteral(
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<kml xmlns=\"http://earth.google.com/kml/2.1\">\n<Document>\n"
            "<Folder>\n<name>Polygons</name>\n<Placemark>\n<name>P</name>\n"
            "<Style><LineStyle><color>ffff7f00</color><width>1</width></LineStyle>"
            "<PolyStyle><color>afff7f00</color></PolyStyle></Style>\n"
            "<Polygon><tessellate>1</tessellate><altitudeMode>clampToGround</altitudeMode>"
            "<outerBoundaryIs><LinearRing><coordinates>\n"
            "0.000000000,0.000000000\n4.000000000,0.000000000\n4.000000000,4.000000000\n0.000000000,0.000000000\n"
            "</coordinates></LinearRing></outerBoundaryIs><innerBoundaryIs><LinearRing><coordinates>\n"
            "1.000000000,1.000000000\n2.000000000,1.000000000\n2.000000000,2.000000000\n1.000000000,1.000000000\n"
            "</coordinates></LinearRing></innerBoundaryIs></Polygon>\n</Placemark>\n</Folder>\n"
            "<Folder>\n<name>Polylines</name>\n<Placemark>\n<name>L</name>\n"
            "<Style><LineStyle><color>ffff7f00</color><width>2</width></LineStyle></Style>\n<MultiGeometry>\n"
            "<LineString><altitudeMode>absolute</altitudeMode><coordinates>\n"
            "115.500000000,-22.250000000,10.000\n116.000000000,-23.000000000,-5.500\n</coordinates></LineString>\n"
            "<LineString><altitudeMode>absolute</altitudeMode><coordinates>\n"
            "1.000000000,1.000000000,1.000\n2.000000000,2.000000000,2.000\n</coordinates></LineString>\n"
            "</MultiGeometry>\n</Placemark>\n</Folder>\n"
            "<Folder>\n<name>Wells</name>\n<Placemark>\n<name>W</name>\n"
            "<Style><IconStyle><color>ffff7f00</color></IconStyle>"
            "<LineStyle><color>ffff7f00</color><width>2</width></LineStyle></Style>\n<MultiGeometry>\n"
            "<Point><altitudeMode>absolute</altitudeMode><coordinates>\n5.000000000,6.000000000,30.480\n</"
            "coordinates></Point>\n"
            "<LineString><altitudeMode>absolute</altitudeMode><coordinates>\n"
            "5.000000000,6.000000000,30.480\n5.000000000,6.000000000,15.240\n</coordinates></LineString>\n"
            "</MultiGeometry>\n</Placemark>\n</Folder>\n"
            "<Folder>\n<name>Labels</name>\n<Placemark>\n<name>T</name>\n"
            "<Style><IconStyle><scale>0</scale></IconStyle><LabelStyle><color>ffff7f00</color></LabelStyle></Style>\n"
            "<Point><altitudeMode>absolute</altitudeMode><coordinates>\n7.000000000,8.000000000,9.000\n</coordinates></"
            "Point>\n"
            "</Placemark>\n</Folder>\n"
            "<Folder>\n<name>Cross Sections</name>\n<Placemark>\n<name>A</name>\n"
            "<Style><LineStyle><color>aa0000ff</color><width>5</width></LineStyle></Style>\n"
            "<LineString><tessellate>1</tessellate><altitudeMode>clampToGround</altitudeMode><coordinates>\n"
            "10.000000000,1.000000000\n11.000000000,1.000000000\n</coordinates></LineString>\n</Placemark>\n"
            "<Placemark>\n<name>A: "
            "H</name>\n<Style><LineStyle><color>ff0000ff</color><width>2</width></LineStyle></Style>\n"
            "<LineString><altitudeMode>absolute</altitudeMode><coordinates>\n"
            "10.000000000,1.000000000,-5.000\n10.500000000,1.000000000,-6.000\n</coordinates></LineString>\n</"
            "Placemark>\n"
            "<Placemark>\n<name>A: F</name>\n<Style><IconStyle><color>ff00ff00</color></IconStyle>"
            "<LineStyle><color>ff00ff00</color><width>2</width></LineStyle></Style>\n"
            "<Point><altitudeMode>absolute</altitudeMode><coordinates>\n10.250000000,1.000000000,-7.000\n</"
            "coordinates></Point>\n"
            "</Placemark>\n</Folder>\n</Document>\n</kml>\n"));
    KP_VALIDATE("kml.sh", QStringLiteral("--strict"), QStringLiteral("--werror"), path("a.kml"));
}

void KmlTest::attributes()
{
    ModelObject cloud = objectOf(ObjectType::VertexClouds, QStringLiteral("C"), {{1, 2, 3}, {4, 5, 6}});
    AttributeColumn grade = columnOf(QStringLiteral("grade <g>"), AttributeKind::Real, {1.25, QVariant()});
    grade.unit = QStringLiteral("%");
    const AttributeColumn note =
        columnOf(QStringLiteral("note"), AttributeKind::Text, {QStringLiteral("a & b"), QStringLiteral("second")});
    cloud.vertexAttributes = {grade, note};
    ModelObject line = objectOf(ObjectType::Polylines, QStringLiteral("L"), {{1, 2, 3}, {4, 5, 6}});
    line.objectAttributes = {{QStringLiteral("age"), AttributeKind::Integer, QStringLiteral("Ma"), 65}};
    line.vertexAttributes = {note};
    const SaverRun run("kml", {cloud, line}, path("a.kml"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.findings(), QStringLiteral("attribute of vertices not written: 1"));
    const QByteArray text = contentOf(path("a.kml"));
    QVERIFY(text.contains(
        "<name>C 1</name>\n<description>&lt;table&gt;&lt;tr&gt;&lt;td&gt;grade &amp;lt;g&amp;gt; (%)&lt;/td&gt;"
        "&lt;td&gt;1.25&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;note&lt;/td&gt;&lt;td&gt;a &amp;amp; b&lt;/td&gt;"));
    QVERIFY(text.contains("<name>C 2</name>\n<description>&lt;table&gt;&lt;tr&gt;&lt;td&gt;note"));
    QVERIFY(text.contains("age (Ma)&lt;/td&gt;&lt;td&gt;65"));
    KP_VALIDATE("kml.sh", QStringLiteral("--strict"), QStringLiteral("--werror"), path("a.kml"));
    QVERIFY(SaverRun("kml", {cloud, line}, path("b.kml"), "attributes=false").findings().isEmpty());
    QVERIFY(!contentOf(path("b.kml")).contains("description"));
}

void KmlTest::hardNames()
{
    const QString lines = QStringLiteral("line\nend\r\n");
    std::vector<ModelObject> objects{
        objectOf(ObjectType::Pins, hardName, {{1, 2, 3}}), objectOf(ObjectType::Pins, lines, {{1, 2, 3}}),
        objectOf(ObjectType::Pins, QStringLiteral("\x01\x0b") + QChar(0xd800), {{1, 2, 3}}),
        gridOf(hardName, 2, {1, 2, 3, 4})};
    const SaverRun run("kml", objects, path("地層 #1 %20?.kml"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.findings(), QStringLiteral("renamed: 1, surface written as a picture: 1"));
    QVERIFY(QFile::exists(path("地層 #1 %20?.overlay.png")));
    QVERIFY(contentOf(path("地層 #1 %20?.kml")).contains("<href>地層 %231 %2520%3F.overlay.png</href>"));
    KP_VALIDATE("kml.sh", QStringLiteral("--strict"), QStringLiteral("--werror"), path("地層 #1 %20?.kml"));
    // As another reader gives them back.
    registerGdalDrivers();
    const GDALDatasetUniquePtr dataset(
        GDALDataset::Open(path("地層 #1 %20?.kml").toUtf8().constData(), GDAL_OF_VECTOR));
    QVERIFY(dataset);
    const OGRFeatureUniquePtr feature(dataset->GetLayer(0)->GetNextFeature());
    QCOMPARE(QString::fromUtf8(feature->GetFieldAsString("Name")), hardName);
}

void KmlTest::systems_data()
{
    QTest::addColumn<QByteArray>("own");
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("error");
    const QString nothing;
    QTest::newRow("its own, axes swapped by definition") << QByteArray("EPSG:4283") << nothing << nothing;
    QTest::newRow("its own wins") << QByteArray("EPSG:28350") << QStringLiteral("EPSG:32633") << nothing;
    QTest::newRow("given") << QByteArray() << QStringLiteral("EPSG:28350") << nothing;
    QTest::newRow("none")
        << QByteArray() << nothing
        << QStringLiteral("the object O has no coordinate system (name it in the setting crs, such as EPSG:28350, "
                          "or leave out what has none)");
    QTest::newRow("not known")
        << QByteArray("EPSG:28350") << QStringLiteral("EPSG:999999")
        << QStringLiteral("\"EPSG:999999\" is not a known coordinate system (set crs to one like EPSG:28350)");
}

void KmlTest::systems()
{
    QFETCH(QByteArray, own);
    QFETCH(QString, given);
    QFETCH(QString, error);
    // The centre of the sample's terrain, as gdalinfo tells it: 117d22'56.76"E, 22d37'49.57"S.
    const bool degrees = own == "EPSG:4283";
    const std::array<double, 3> place =
        degrees ? std::array<double, 3>{117.382433, -22.630436, 5} : std::array<double, 3>{539298.538, 7497339.446, 5};
    write("a.kml", "earlier");
    const SaverRun run("kml", {objectOf(ObjectType::Pins, QStringLiteral("O"), {place}, own.constData())},
                       path("a.kml"), QStringLiteral("crs=") + given);
    QCOMPARE(run.error(), error);
    const QByteArray text = contentOf(path("a.kml"));
    if (!error.isEmpty()) {
        QCOMPARE(text, QByteArray("earlier"));
        return;
    }
    QCOMPARE(run.fault(), QString());
    const QList<QByteArray> numbers = text.mid(text.indexOf("<coordinates>\n") + 14).split('\n').first().split(',');
    QVERIFY(std::abs(numbers[0].toDouble() - 117.382433) < 5e-6);
    QVERIFY(std::abs(numbers[1].toDouble() + 22.630436) < 5e-6);
    QCOMPARE(numbers[2], QByteArray("5.000"));
}

void KmlTest::heights()
{
    // On the ground heights are not asked for; above it they are.
    const std::vector<ModelObject> objects{
        objectOf(ObjectType::Polylines, QStringLiteral("L"), {{1, 2, none}, {3, 4, 5}, {5, 6, 7}})};
    const SaverRun clamped("kml", objects, path("a.kml"), "altitudeMode=clamp");
    QCOMPARE(clamped.fault() + clamped.findings(), QString());
    QVERIFY(contentOf(path("a.kml")).contains("clampToGround</altitudeMode><coordinates>\n1.000000000,2.000000000\n3"));
    const SaverRun relative("kml", objects, path("b.kml"), "altitudeMode=relative");
    QCOMPARE(relative.fault(), QString());
    QCOMPARE(relative.findings(), QStringLiteral("position left out: 1"));
    QVERIFY(contentOf(path("b.kml"))
                .contains("relativeToGround</altitudeMode><coordinates>\n3.000000000,4.000000000,5.000\n5"));
    const SaverRun traceOnly("kml", {section()}, path("c.kml"), "altitudeMode=clamp");
    QCOMPARE(traceOnly.findings(), QStringLiteral("line on a section left out: 2"));
}

void KmlTest::leftOut()
{
    const double infinite = std::numeric_limits<double>::infinity();
    ModelObject ring = polygonWithHole();
    ring.parts = {{0, 2, true, false}, {3, 4, true, true}};
    const std::vector<ModelObject> objects{
        objectOf(ObjectType::VertexClouds, QStringLiteral("V"),
                 {{none, 0, 0}, {0, 91, 0}, {-181, 0, 0}, {0, infinite, 0}, {180, -90, 0}}),
        objectOf(ObjectType::Polylines, QStringLiteral("one point"), {{1, 2, 3}}),
        objectOf(ObjectType::Polylines, QStringLiteral("all bad"), {{none, 2, 3}, {1, none, 3}, {1, 95, 3}}),
        objectOf(ObjectType::Polylines, QStringLiteral("empty"), {}),
        objectOf(ObjectType::Posts, QStringLiteral("empty"), {}), ring,
        gridOf(QStringLiteral("no values"), 2, {none, none, none, none}),
        // Metres taken for degrees.
        objectOf(ObjectType::Wells, QStringLiteral("W"), {{500000, 7000000, 3}})};
    const SaverRun run("kml", objects, path("a.kml"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.rows(), 1);
    QCOMPARE(
        run.findings(),
        QStringLiteral(
            "object left out: 2, object left out: 1, object left out: 1, "
            "ring of fewer than three points left out: 2, object left out: 1, "
            "line of fewer than two points left out: 1, object left out: 1, line of fewer than two points left out: 1, "
            "position left out: 3, line of fewer than two points left out: 1, "
            "object left out: 1, position left out: 1, position left out: 4"));
    KP_VALIDATE("kml.sh", QStringLiteral("--strict"), QStringLiteral("--werror"), path("a.kml"));
}

void KmlTest::nothingToDraw_data()
{
    QTest::addColumn<ModelObject>("object");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const ModelObject& object, const char* error) {
        QTest::newRow(name) << object << QString::fromUtf8(error);
    };
    const std::vector<std::array<double, 3>> two{{1, 2, 3}, {4, 5, 6}};
    ModelObject thin = gridOf(QStringLiteral("O"), 1, {1, 2, 3});
    row("image without nodes", objectOf(ObjectType::Images, QStringLiteral("O"), two),
        "nothing of O can be drawn: it has no rows and columns of nodes (check its type in the model file, or choose "
        "another object)");
    row("one column", thin,
        "nothing of O can be drawn: it has a single row or column of nodes (check its type in the model file, or "
        "choose another object)");
    row("no triangles", objectOf(ObjectType::MeshSurfaces, QStringLiteral("O"), two),
        "nothing of O can be drawn: it has no triangles (check its type in the model file, or choose another object)");
    // These only the run finds.
    row("off the earth", objectOf(ObjectType::Wells, QStringLiteral("O"), {{500000, 7000000, 3}}),
        "nothing of O has a place in the file (the notes say what was left out; choose another object or format)");
    row("grid off the earth", gridOf(QStringLiteral("O"), 2, {1, 2, 3, 4}, 5000, 5000),
        "nothing of O has a place in the file (the notes say what was left out; choose another object or format)");
}

void KmlTest::nothingToDraw()
{
    QFETCH(ModelObject, object);
    QFETCH(QString, error);
    const SaverRun run("kml", {object}, path("a.kml"));
    QCOMPARE(run.error(), error);
    QCOMPARE(listing(), QString());
    // With one that can be drawn it is left out, and said to be.
    const SaverRun two("kml", {object, objectOf(ObjectType::Pins, QStringLiteral("P"), {{1, 2, 3}})}, path("b.kml"));
    QCOMPARE(two.fault(), QString());
    QCOMPARE(two.countOf(QStringLiteral("object left out")), qint64(1));
}

void KmlTest::surfaces()
{
    // Low in the south, high in the north; a node without value is transparent.
    std::vector<double> heights;
    for (int row = 0; row < 11; ++row) {
        for (int column = 0; column < 11; ++column)
            heights.push_back(column < 3 && row < 3 ? none : row * 10.0);
    }
    ModelObject mesh =
        objectOf(ObjectType::MeshSurfaces, QStringLiteral("M"), {{0, 0, 1}, {1, 0, 2}, {1, 1, 3}, {0, 1, none}});
    mesh.triangles = {{0, 1, 2}, {0, 2, 3}};
    const SaverRun run("kml", {gridOf(QStringLiteral("G"), 11, heights, 20, 40), mesh}, path("a.kml"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.findings(), QStringLiteral("surface written as a picture: 1, triangle left out: 1"));
    QVERIFY(contentOf(path("a.kml"))
                .contains("<north>50.000000000</north><south>40.000000000</south>"
                          "<east>30.000000000</east><west>20.000000000</west>"));
    const QImage picture(path("a.overlay.png"));
    QCOMPARE(picture.size(), QSize(11, 11));
    QCOMPARE(qAlpha(picture.pixel(1, 9)), 0);
    QVERIFY(QColor(picture.pixel(9, 0)).lightness() > QColor(picture.pixel(9, 10)).lightness());
    KP_VALIDATE("kml.sh", QStringLiteral("--strict"), QStringLiteral("--werror"), path("a.kml"));
}

void KmlTest::pictureGoesWithItsFile()
{
    const std::vector<ModelObject> two{gridOf(QStringLiteral("A"), 2, {1, 2, 3, 4}),
                                       gridOf(QStringLiteral("B"), 2, {1, 2, 3, 4})};
    // A picture of the user's own stays whatever happens.
    write("a.png", "");
    QCOMPARE(SaverRun("kml", two, path("a.kml")).fault(), QString());
    QCOMPARE(listing(), QStringLiteral("a.kml a.overlay.png a.overlay2.png a.png"));
    QCOMPARE(SaverRun("kml", {two[0]}, path("a.kml")).fault(), QString());
    QCOMPARE(listing(), QStringLiteral("a.kml a.overlay.png a.png"));
    QCOMPARE(SaverRun("kml", two, path("o.kml"), "grouping=object").fault(), QString());
    QCOMPARE(listing(), QStringLiteral("a.kml a.overlay.png a.png o_A.kml o_A.overlay.png o_B.kml o_B.overlay.png"));
    QCOMPARE(SaverRun("kml", {two[0]}, path("a.kmz")).fault(), QString());
    QVERIFY(listing().contains(QStringLiteral("a.kml a.kmz a.overlay.png a.png")));
    const SaverRun many("kml", std::vector<ModelObject>(33, two[0]), path("m.kml"));
    QCOMPARE(many.error(), QStringLiteral("there are more than 32 surfaces (set compress=true or grouping=object)"));
}

void KmlTest::archive()
{
    const std::vector<ModelObject> objects{gridOf(hardName, 2, {1, 2, 3, 4}),
                                           gridOf(QStringLiteral("B"), 2, {1, 2, 3, 4}), polygonWithHole()};
    for (const char* name : {"by setting.kml", "by name.kmz"}) {
        const bool bySetting = QByteArray(name) == "by setting.kml";
        const SaverRun run("kml", objects, path(name), bySetting ? "compress=true" : "compress=false");
        QCOMPARE(run.fault(), QString());
        QVERIFY(run.readBack.front().comparedText().contains(QStringLiteral("sizes of pictures")));
        QVERIFY(run.files.front().path.endsWith(QLatin1String(".kmz")));
        QVERIFY(contentOf(run.files.front().path).startsWith("PK"));
    }
    QCOMPARE(listing(), QStringLiteral("by name.kmz by setting.kmz"));
}

void KmlTest::longLineAndBounds()
{
    constexpr int count = manyVertices;
    const SaverRun run("kml", {longLine(count)}, path("a.kml"), "boundingArea=true");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.readBack.front().positions(), count + 5);
    QVERIFY(run.readBack.front().worst().difference < 0.001);
    const QByteArray text = contentOf(path("a.kml"));
    QCOMPARE(text.count('\n'), count + 28);
    QVERIFY(text.contains("<name>bb</name>"));
    const QByteArray east = count == 1000000 ? "109.999990000" : "100.499990000";
    QVERIFY(text.contains("<coordinates>\n100.000000000,-20.000000000\n" + east + ",-20.000000000\n" + east
                          + ",-19.900100000\n100.000000000,-19.900100000\n100.000000000,-20.000000000\n"));
}

void KmlTest::sampleModel()
{
    std::vector<ModelObject> objects;
    for (const ModelObject& object : loaded(sample("sample.kpmodel"))) {
        if (!object.crs.isEmpty())
            objects.push_back(object);
    }
    const SaverRun run("kml", objects, path("sample.kml"));
    QCOMPARE(run.fault(), QString());
    // 61 polygons, 35 faults, 118 + 656 points, one surface, two traces and the lines on their sections.
    QVERIFY(run.rows() > 61 + 35 + 118 + 656 + 1 + 2);
    QVERIFY(run.readBack.front().worst().difference < 0.001);
    KP_VALIDATE("kml.sh", QStringLiteral("--strict"), QStringLiteral("--werror"), path("sample.kml"));
    QCOMPARE(SaverRun("kml", objects, path("sample.kmz"), "altitudeMode=clamp").fault(), QString());
}

QTEST_GUILESS_MAIN(KmlTest)
#include "tst_kml.moc"
