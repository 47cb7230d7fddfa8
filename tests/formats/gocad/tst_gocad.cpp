// SPDX-License-Identifier: MIT
// GOCAD files: whole texts of small models, real data there and back, what is left out, failures.
#include "tests/support/SaverRun.h"
#include "tests/support/TextRows.h"

#include <cmath>

using namespace kpFormats;

class GocadTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void points();
    void lines();
    void surface();
    void gridWithHoles();
    void names();
    void files_data();
    void files();
    void faultThereAndBack();
    void sampleThereAndBack();
    void failures();
};

void GocadTest::points()
{
    ModelObject cloud = objectOf(QStringLiteral("Beds {1}"), ObjectType::VertexClouds, {1.0, 2.5, 3.0},
                                 {10.0, 20.0, 30.0}, {-5.0, 0.25, NAN});
    cloud.vertexAttributes.push_back(columnOf(QStringLiteral("Cu ppm"), AttributeKind::Real, {0.1, QVariant(), 3.0}));
    cloud.vertexAttributes.back().unit = QStringLiteral("g/t");
    for (const char* name : {"dip", "DIP"})
        cloud.vertexAttributes.push_back(
            columnOf(QString::fromLatin1(name), AttributeKind::Integer, {30, -99999, QVariant()}));
    cloud.vertexAttributes.push_back(columnOf(QStringLiteral("note"), AttributeKind::Text,
                                              {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    SaverRun run("gocad", {cloud}, path("p"), "zPositive=depth;decimals=2;lengthUnit=ft");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.files[0].path, path("p.vs"));
    QCOMPARE(run.bytes(), QByteArray("GOCAD VSet 1\n"
                                     "HEADER {\n"
                                     "name:Beds _1_\n"
                                     "*atoms*color:1.000000 0.000000 0.200000 1\n"
                                     "}\n"
                                     "GOCAD_ORIGINAL_COORDINATE_SYSTEM\n"
                                     "NAME Default\n"
                                     "PROJECTION Unknown\n"
                                     "DATUM Unknown\n"
                                     "AXIS_NAME \"X\" \"Y\" \"Z\"\n"
                                     "AXIS_UNIT \"ft\" \"ft\" \"ft\"\n"
                                     "ZPOSITIVE Depth\n"
                                     "END_ORIGINAL_COORDINATE_SYSTEM\n"
                                     "PROPERTIES Cu_ppm dip DIP_2\n"
                                     "NO_DATA_VALUES -99999 -99999 -99999\n"
                                     "PROPERTY_CLASSES Cu_ppm dip DIP_2\n"
                                     "ESIZES 1 1 1\n"
                                     "UNITS g/t none none\n"
                                     "PVRTX 1 3.28 32.81 16.40 0.1 30 30\n"
                                     "PVRTX 2 8.20 65.62 -0.82 -99999 -99999 -99999\n"
                                     "END\n"));
    QCOMPARE(run.rows(), 2);
    QCOMPARE(run.findings(), QStringLiteral("attribute that is not a number left out: 1, renamed: 3, "
                                            "vertex without a position left out: 1, value equal to the null value: 2"));
    QVERIFY(run.readBack[0].worst().difference > 0.0 && run.readBack[0].worst().difference < 0.005);
}

void GocadTest::lines()
{
    // A ring, then a line with a vertex that has no height.
    ModelObject line = objectOf(QStringLiteral("outline"), ObjectType::Polygons, {0, 1, 1, 0, 5, 6, 7, 8, 9},
                                {0, 0, 1, 0, 5, 5, 5, 5, 5}, {1, 2, 3, 1, 0, 0, NAN, 0, 0},
                                {{0, 4, true, false}, {4, 5, false, false}});
    line.objectAttributes.push_back({QStringLiteral("rank"), AttributeKind::Integer, QString(), 7});
    SaverRun run("gocad", {line}, path("l"), "header=false;decimals=0");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.files[0].path, path("l.pl"));
    QVERIFY(run.bytes().startsWith("GOCAD PLine 1\nGOCAD_ORIGINAL_COORDINATE_SYSTEM\n"));
    QVERIFY(run.bytes().contains("ZPOSITIVE Elevation\n"));
    QCOMPARE(run.bytes().mid(run.bytes().indexOf("ILINE")), QByteArray("ILINE\n"
                                                                       "PVRTX 1 0 0 1 7\n"
                                                                       "PVRTX 2 1 0 2 7\n"
                                                                       "PVRTX 3 1 1 3 7\n"
                                                                       "SEG 1 2\n"
                                                                       "SEG 2 3\n"
                                                                       "SEG 3 1\n"
                                                                       "ILINE\n"
                                                                       "PVRTX 4 5 5 0 7\n"
                                                                       "PVRTX 5 6 5 0 7\n"
                                                                       "PVRTX 6 8 5 0 7\n"
                                                                       "PVRTX 7 9 5 0 7\n"
                                                                       "SEG 4 5\n"
                                                                       "SEG 6 7\n"
                                                                       "END\n"));
    QCOMPARE(run.countOf(QStringLiteral("name and colour not written")), 1);
    // Read as lines, the ring closes again and the gap stays.
    const std::vector<Part> parts = loaded(run.files[0].path).front().parts;
    QCOMPARE(parts.size(), std::size_t(3));
    QVERIFY(parts[0].closed && parts[0].count == 4 && !parts[1].closed && parts[2].count == 2);
}

void GocadTest::surface()
{
    ModelObject mesh =
        objectOf(QStringLiteral("m"), ObjectType::MeshSurfaces, {0, 1, 1, NAN}, {0, 0, 1, 0}, {1, 1, 1, 1});
    mesh.triangles = {{0, 1, 2}, {2, 3, 0}};
    SaverRun run("gocad", {mesh}, path("m.txt"), "decimals=1");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.files[0].path, path("m.txt"));
    QCOMPARE(run.bytes().mid(run.bytes().indexOf("TFACE")), QByteArray("TFACE\n"
                                                                       "VRTX 1 0.0 0.0 1.0\n"
                                                                       "VRTX 2 1.0 0.0 1.0\n"
                                                                       "VRTX 3 1.0 1.0 1.0\n"
                                                                       "TRGL 1 2 3\n"
                                                                       "END\n"));
    QCOMPARE(run.findings(),
             QStringLiteral("triangle without a position left out: 1, vertex without a position left out: 1"));
}

void GocadTest::gridWithHoles()
{
    // Two cells: one whole, one with a node without height.
    ModelObject surface = gridOf(3, 2);
    surface.z = numbersOf({0, 1, 2, 100, 101, NAN});
    SaverRun run("gocad", {surface}, path("g"), "decimals=0");
    QCOMPARE(run.fault(), QString());
    const QByteArray text = run.bytes();
    QCOMPARE(text.mid(text.indexOf("TRGL")), QByteArray("TRGL 1 2 5\nTRGL 1 5 4\nTRGL 2 3 5\nEND\n"));
    QVERIFY(run.again("gridsAs=points"));
    QCOMPARE(run.files[0].path, path("g.vs"));
    QCOMPARE(run.bytes().count("VRTX "), 5);
    QCOMPARE(run.readBack[0].positions(), 5);
}

void GocadTest::names()
{
    // The projection is named where it is known; a quote in a name would end it.
    ModelObject cloud = objectOf(QString::fromUtf8("Ярус \"A\"\nB"), ObjectType::VertexClouds, {1}, {2}, {3});
    cloud.crs = wktOf(QStringLiteral("EPSG:28350"));
    SaverRun run("gocad", {cloud}, path("n.vs"));
    QCOMPARE(run.fault(), QString());
    QVERIFY(run.bytes().contains(QByteArray("\nname:Ярус _A_ B\n")));
    QVERIFY(run.bytes().contains("\nPROJECTION \"GDA94 / MGA zone 50 (EPSG:28350)\"\n"));
}

void GocadTest::files_data()
{
    textRows({"grouping", "name", "expected"}, {{"single", "a", "a.gp"},
                                                {"single", "a.ts", "a.ts"},
                                                {"object", "a", "a_cloud.vs a_line.pl a_grid.ts"},
                                                {"object", "", "pre_cloud.vs pre_line.pl pre_grid.ts"},
                                                {"set", "a.x", "a_S.x a_T.x"}});
}

void GocadTest::files()
{
    QFETCH(QString, grouping);
    QFETCH(QString, name);
    QFETCH(QString, expected);
    const ModelObject cloud = objectOf(ObjectType::VertexClouds, QStringLiteral("cloud"), {{1, 2, 3}}, "");
    const ModelObject line = objectOf(ObjectType::Polylines, QStringLiteral("line"), {{1, 2, 3}, {2, 2, 3}}, "");
    ModelObject surface = gridOf(2, 2);
    surface.set = QStringLiteral("T");
    const SaverRun run("gocad", {cloud, line, surface}, path(name),
                       QStringLiteral("filePrefix=pre;grouping=") + grouping);
    QCOMPARE(run.fault(), QString());
    QStringList names;
    for (const PlannedFile& file : run.files)
        names.append(QFileInfo(file.path).fileName());
    QCOMPARE(names.join(QLatin1Char(' ')), expected);
}

void GocadTest::faultThereAndBack()
{
    const QString fault = shared("data/drogon/F5.ts");
    if (fault.isEmpty())
        QSKIP("the data is not here");
    // Written as it came, the file's numbers come out again, to the character.
    SaverRun run("gocad", loaded(fault), path("f5"), "zPositive=depth;decimals=6");
    QCOMPARE(run.fault(), QString());
    const auto body = [](QByteArray text) {
        text.replace(" CNXYZ", "");
        text.replace(" \n", "\n");
        return text.mid(text.indexOf("TFACE")).trimmed();
    };
    QCOMPARE(body(run.bytes()), body(contentOf(fault)));
    QCOMPARE(run.readBack[0].positions(), 44);
}

void GocadTest::sampleThereAndBack()
{
    std::vector<ModelObject> taken;
    for (const ModelObject& one : loaded(sample("sample.kpmodel"))) {
        if (one.type != ObjectType::GeoCellularVolumes)
            taken.push_back(one);
    }
    SaverRun run("gocad", taken, path("all"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.readBack[0].positions(), run.rows());
    QVERIFY(run.readBack[0].worst().difference < 1e-4);
    // A single wrong digit is noticed.
    const QByteArray text = run.bytes();
    const QByteArray tail = text.mid(text.lastIndexOf("VRTX 7 "));
    QVERIFY(!run.damaged(tail, "VRTX 7 9" + tail.mid(8)).fault().isEmpty());
}

void GocadTest::failures()
{
    const ModelObject cloud = objectOf(QStringLiteral("c"), ObjectType::VertexClouds, {1}, {1}, {1});
    const ModelObject nowhere = objectOf(QStringLiteral("nowhere"), ObjectType::VertexClouds, {NAN}, {1}, {1});
    SaverRun empty("gocad", {nowhere}, path("e.vs"));
    QVERIFY(!empty.written);
    QVERIFY(empty.error().contains(QStringLiteral("none of its objects has a position")));
    QVERIFY(!QFile::exists(empty.files[0].path));
    SaverRun both("gocad", {nowhere, cloud}, path("b.vs"));
    both.selection.attributes = QStringList{QStringLiteral("nothing")};
    QVERIFY(both.again());
    QCOMPARE(both.fault(), QString());
    QCOMPARE(both.findings(), QStringLiteral("missing attribute: 1, object without a position left out: 1"));
}

QTEST_GUILESS_MAIN(GocadTest)
#include "tst_gocad.moc"
