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
    void wells();
    void wellsAsLines_data();
    void wellsAsLines();
    void wellsOfOthers();
    void wellsRefused_data();
    void wellsRefused();
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
    // Degrees are no lengths: they stay, and only heights are converted.
    cloud.crs = wktOf(QStringLiteral("EPSG:4326"));
    const SaverRun degrees("gocad", {cloud}, path("d.vs"), "lengthUnit=km;decimals=4");
    QCOMPARE(degrees.fault(), QString());
    QVERIFY(degrees.bytes().contains("\nAXIS_UNIT \"degrees\" \"degrees\" \"km\"\n")
            && degrees.bytes().contains("VRTX 1 1.0000 2.0000 0.0030\n"));
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

void GocadTest::wells()
{
    // Depths in feet in a file in metres; a vertex without a height, one without a depth, a missing value.
    ModelObject hole =
        objectOf(ObjectType::Wells, QStringLiteral("W 1"),
                 {{500, 600, 80}, {510.5, 600, 30}, {520, 590, none}, {530, 580, -50}, {540, 570, -60}}, "EPSG:28350");
    hole.vertexAttributes = {columnOf(QStringLiteral("md"), AttributeKind::Real, {0, 200, 300, 500, QVariant()}),
                             columnOf(QStringLiteral("GR cal"), AttributeKind::Real, {45.5, QVariant(), 1, 0.1, 7})};
    hole.vertexAttributes[0].unit = QStringLiteral("ft");
    hole.vertexAttributes[1].unit = QStringLiteral("g/API");
    SaverRun run("gocad", {hole}, path("w"), "wellsAs=wells;decimals=2");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.files[0].path, path("w.wl"));
    QCOMPARE(run.bytes(), QByteArray("GOCAD Well 1\n"
                                     "HEADER {\n"
                                     "name:W 1\n"
                                     "}\n"
                                     "GOCAD_ORIGINAL_COORDINATE_SYSTEM\n"
                                     "NAME Default\n"
                                     "PROJECTION \"GDA94 / MGA zone 50 (EPSG:28350)\"\n"
                                     "DATUM Unknown\n"
                                     "AXIS_NAME \"X\" \"Y\" \"Z\"\n"
                                     "AXIS_UNIT \"m\" \"m\" \"m\"\n"
                                     "ZPOSITIVE Elevation\n"
                                     "END_ORIGINAL_COORDINATE_SYSTEM\n"
                                     "PATH_ZM_UNIT m\n"
                                     "WREF 500.00 600.00 80.00\n"
                                     "PATH 0.00 80.00 0.00 0.00\n"
                                     "PATH 60.96 30.00 10.50 0.00\n"
                                     "PATH 152.40 -50.00 30.00 -20.00\n"
                                     "WELL_CURVE\n"
                                     "PROPERTY GR_cal\n"
                                     "PROP_UNIT g/API\n"
                                     "PROP_NO_DATA_VALUE -99999\n"
                                     "REC 0.00 45.5\n"
                                     "REC 60.96 -99999\n"
                                     "REC 152.40 0.1\n"
                                     "END_CURVE\n"
                                     "END\n"));
    QCOMPARE(run.findings(),
             QStringLiteral("row without a depth left out: 1, colour of a well not written: 1, renamed: 1, "
                            "vertex without a position left out: 1"));
    const ModelObject read = loaded(run.files[0].path).front();
    QVERIFY(read.type == ObjectType::Wells && read.x->at(2) == 530 && read.y->at(2) == 580 && read.z->at(2) == -50);
    QCOMPARE(*read.vertexAttributes[0].numbers, (std::vector<double>{0, 60.96, 152.4}));
    QCOMPARE(*read.vertexAttributes[1].missing, (std::vector<unsigned char>{0, 1, 0}));
    for (const auto& [right, wrong] :
         std::vector<std::pair<const char*, const char*>>{{"PATH 60.96", "PATH 61.00"},
                                                          {" 10.50 0.00", " 10.52 0.00"},
                                                          {" -50.00 30.00", " 50.00 30.00"},
                                                          {"WREF 500.00", "WREF 501.00"},
                                                          {"PATH_ZM_UNIT m", "PATH_ZM_UNIT ft"},
                                                          {"REC 60.96 -99999", "REC 60.96 0"},
                                                          {"REC 60.96 -99999", "REC 60.97 -99999"},
                                                          {"REC 152.40 0.1\n", "REC 152.40 0.2\n"},
                                                          {"GR_cal", "GR"},
                                                          {"GOCAD Well", "GOCAD PLine"},
                                                          {"ZPOSITIVE Elevation", "ZPOSITIVE Depth"}}) {
        QVERIFY(run.again());
        QVERIFY2(!run.damaged(right, wrong).fault().isEmpty(), wrong);
    }
    // Depths, positive down, in feet.
    QVERIFY(run.again("zIsElevation=false;lengthUnit=ft"));
    QCOMPARE(run.fault(), QString());
    QVERIFY(run.bytes().contains("PATH 500.00 164.04 98.43 -65.61\n"));
}

void GocadTest::wellsAsLines_data()
{
    textRows({"what", "message"}, {{"two paths", "the well W has 2 paths"},
                                   {"depths", "its measured depth does not increase at vertex 3"},
                                   {"degrees", "none can be computed from a path in degrees"}});
}

void GocadTest::wellsAsLines()
{
    QFETCH(QString, what);
    QFETCH(QString, message);
    const bool degrees = what == QLatin1String("degrees");
    ModelObject hole = objectOf(ObjectType::Wells, QStringLiteral("W"), {{1, 2, 0}, {1, 2, -10}, {2, 2, -9}},
                                degrees ? "EPSG:4326" : "");
    if (what == QLatin1String("two paths"))
        hole.parts = {{0, 1, false, false}, {1, 2, false, false}};
    if (!degrees)
        hole.vertexAttributes = {columnOf(QStringLiteral("MD"), AttributeKind::Real, {0, 10, 10})};
    const SaverRun run("gocad", {hole}, path("w.wl"), "wellsAs=wells");
    QCOMPARE(run.fault(), QString());
    QVERIFY(run.bytes().startsWith("GOCAD PLine 1\n"));
    QCOMPARE(run.countOf(QStringLiteral("well written as a line")), 1);
    QVERIFY2(run.report.findings.lines().join(QString()).contains(message),
             qPrintable(run.report.findings.lines().join(QString())));
}

void GocadTest::wellsOfOthers()
{
    // Wells as other programs write them: in a group, with markers, with curves kept elsewhere or at depths of their own.
    const QString file =
        writeFile(path("group.gp"), "GOCAD HomogeneousGroup 1\nHEADER {\nname: g\n}\nTYPE Well\nBEGIN_MEMBERS\n"
                                    "GOCAD Well 1 \nHEADER {\nname: one\n*markers*M*visible: off\n}\n"
                                    "AXIS_UNIT m m m\nZPOSITIVE Depth\nHEADER { \nStatus: unknown\n} \n"
                                    "WREF 100 200 0\nKB 94\nPATH 0 -94 0 0\nPATH 110 -4 1.5 -2\nPATH 210 96 1.5 -2\n"
                                    "MRKR top 1 50\nNO_FEATURE\nZONE z 50 60 -1\n"
                                    "WELL_CURVE\nPROPERTY far\nNPTS 23\nSEEK 0\nEND_CURVE\n"
                                    "WELL_CURVE\nPROPERTY \"by itself\"\nREC 5 1\nEND_CURVE\n"
                                    "WELL_CURVE\nPROPERTY \"GR cal\"\nREC 110 7\nEND_CURVE\nEND\n"
                                    "GOCAD Well 1\nHEADER {name: two}\nWREF 1 2 3\nKB 2\n"
                                    "STATION 10 0 0\nSTATION 20 90 90\nEND\n"
                                    "GOCAD Well 1\nHEADER {name: three}\nWREF 1 2 3\nTVSS_PATH 10 0 0 1\nEND\n"
                                    "END_MEMBERS\nEND\nGOCAD VSet 1\nVRTX 1 7 8 9\nEND\n");
    Model model;
    const QString said = loadInto(model, file).join(QLatin1Char('\n'));
    QCOMPARE(model.objects().size(), std::size_t(3));
    const ModelObject& one = model.objects()[0];
    QCOMPARE(*one.x, (std::vector<double>{100, 101.5, 101.5}));
    QCOMPARE(*one.z, (std::vector<double>{94, 4, -96}));
    QCOMPARE(one.vertexAttributes.size(), std::size_t(2));
    QCOMPARE(one.vertexAttributes[1].name, QStringLiteral("GR cal"));
    QCOMPARE(*one.vertexAttributes[1].missing, (std::vector<unsigned char>{1, 0, 1}));
    // Straight down from 5, then a quarter of a circle of 10 towards the east.
    const ModelObject& two = model.objects()[1];
    const double radius = 20.0 / M_PI;
    QVERIFY(std::abs(two.x->at(2) - 1 - radius) < 1e-9 && std::abs(two.z->at(2) + 5 + radius) < 1e-9);
    QCOMPARE(two.z->at(0), 5.0);
    for (const char* part : {": 2 markers and zones of wells were left out", ": 2 curves of wells", "the first is far",
                             ": 1 wells were left out", "the first is three"})
        QVERIFY2(said.contains(QLatin1String(part)), qPrintable(said));
}

void GocadTest::wellsRefused_data()
{
    textRows({"lines", "message"}, {{"PATH 0 0 0 0\n", "line 3: PATH stands before WREF"},
                                    {"WREF 1 2 3\nPATH 0 0 0\n", "line 4: the way north is missing"},
                                    {"WREF 1 2 3\nSTATION 5 0 0\nSTATION 5 0 0\n", "line 5: the depth of a STATION"},
                                    {"STATION 5 0 0\n", "has stations but no WREF"},
                                    {"WREF 1 2 3\nPATH 0 0 0 0\nWELL_CURVE\nPROPERTY GR\n", "GR has no END_CURVE"},
                                    {"WREF 1 2 3\nTVSS_PATH 0 0 0 0\n", "none of its wells has a PATH"}});
}

void GocadTest::wellsRefused()
{
    QFETCH(QString, lines);
    QFETCH(QString, message);
    const QString file = writeFile(path("w.wl"), "GOCAD Well 1\nHEADER {name:x}\n" + lines.toUtf8() + "END\n");
    Model model;
    try {
        loadInto(model, file);
        QFAIL("it was read");
    } catch (const std::exception& error) {
        QVERIFY2(QString::fromUtf8(error.what()).contains(message), error.what());
    }
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
