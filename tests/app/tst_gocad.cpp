// SPDX-License-Identifier: MIT
// GOCAD files: whole texts of small models, real data there and back, what is left out, failures.
#include "app/savers/gocad/GocadFormat.h"
#include "tests/app/FormatTest.h"

#include <QtTest>

#include <cmath>

using namespace formattest;

class GocadTest : public QObject
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
    void cancelled();
};

void GocadTest::points()
{
    ModelObject cloud = object(QStringLiteral("Beds {1}"), {1.0, 2.5, 3.0}, {10.0, 20.0, 30.0}, {-5.0, 0.25, NAN});
    cloud.vertexAttributes.push_back(realColumn(QStringLiteral("Cu ppm"), {0.1, 0.0, 3.0}, {0, 1, 0}));
    cloud.vertexAttributes.back().unit = QStringLiteral("g/t");
    AttributeColumn dip;
    dip.name = QStringLiteral("dip");
    dip.kind = AttributeKind::Integer;
    dip.values = {30, -99999, QVariant()};
    cloud.vertexAttributes.push_back(dip);
    cloud.vertexAttributes.push_back(dip);
    cloud.vertexAttributes.back().name = QStringLiteral("DIP");
    AttributeColumn text;
    text.name = QStringLiteral("note");
    text.kind = AttributeKind::Text;
    text.values = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    cloud.vertexAttributes.push_back(text);
    GocadFormat format;
    format.settings().set(QStringLiteral("zPositive"), QStringLiteral("depth"));
    format.settings().set(QStringLiteral("decimals"), QStringLiteral("2"));
    format.settings().set(QStringLiteral("lengthUnit"), QStringLiteral("ft"));
    QTemporaryDir folder;
    Run run(format, {&cloud}, folder.filePath(QStringLiteral("p")));
    QVERIFY(run.go());
    QCOMPARE(run.files[0].path, folder.filePath(QStringLiteral("p.vs")));
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
    QCOMPARE(run.report.files()[0].rows, 2);
    QCOMPARE(run.kinds().join(QLatin1Char('|')),
             QStringLiteral("attribute that is no number left out|renamed|vertex without a position left out|value equal to the null value"));
    const Verification seen = run.verify();
    QVERIFY2(seen.fault.isEmpty(), qPrintable(seen.fault));
    QVERIFY(seen.worstError > 0.0 && seen.worstError < 0.005);
}

void GocadTest::lines()
{
    // A ring, then a line with a vertex that has no height.
    ModelObject line = object(QStringLiteral("outline"), {0, 1, 1, 0, 5, 6, 7, 8, 9}, {0, 0, 1, 0, 5, 5, 5, 5, 5}, {1, 2, 3, 1, 0, 0, NAN, 0, 0});
    line.type = ObjectType::Polygons;
    line.parts = {{0, 4, true, false}, {4, 5, false, false}};
    line.objectAttributes.push_back({QStringLiteral("rank"), AttributeKind::Integer, QString(), 7});
    GocadFormat format;
    format.settings().set(QStringLiteral("header"), QStringLiteral("false"));
    format.settings().set(QStringLiteral("decimals"), QStringLiteral("0"));
    QTemporaryDir folder;
    Run run(format, {&line}, folder.filePath(QStringLiteral("l")));
    QVERIFY(run.go());
    QCOMPARE(run.files[0].path, folder.filePath(QStringLiteral("l.pl")));
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
    QVERIFY(run.kinds().contains(QStringLiteral("name and colour not written")));
    QCOMPARE(run.verify().fault, QString());
    // Read as lines, the ring closes again and the gap stays.
    Model model;
    loadInto(model, run.files[0].path);
    const std::vector<Part>& parts = model.objects().front().parts;
    QCOMPARE(parts.size(), std::size_t(3));
    QVERIFY(parts[0].closed && parts[0].count == 4 && !parts[1].closed && parts[2].count == 2);
}

void GocadTest::surface()
{
    ModelObject mesh = object(QStringLiteral("m"), {0, 1, 1, NAN}, {0, 0, 1, 0}, {1, 1, 1, 1});
    mesh.type = ObjectType::MeshSurfaces;
    mesh.triangles = {{0, 1, 2}, {2, 3, 0}};
    GocadFormat format;
    format.settings().set(QStringLiteral("decimals"), QStringLiteral("1"));
    QTemporaryDir folder;
    Run run(format, {&mesh}, folder.filePath(QStringLiteral("m.txt")));
    QVERIFY(run.go());
    QCOMPARE(run.files[0].path, folder.filePath(QStringLiteral("m.txt")));
    QCOMPARE(run.bytes().mid(run.bytes().indexOf("TFACE")), QByteArray("TFACE\n"
                                                                       "VRTX 1 0.0 0.0 1.0\n"
                                                                       "VRTX 2 1.0 0.0 1.0\n"
                                                                       "VRTX 3 1.0 1.0 1.0\n"
                                                                       "TRGL 1 2 3\n"
                                                                       "END\n"));
    QCOMPARE(run.kinds().join(QLatin1Char('|')), QStringLiteral("triangle without a position left out|vertex without a position left out"));
    QCOMPARE(run.verify().fault, QString());
}

void GocadTest::gridWithHoles()
{
    // Two cells: one whole, one with a node without height.
    ModelObject surface = grid(3, 2);
    surface.z = numbers({0, 1, 2, 100, 101, NAN});
    GocadFormat format;
    format.settings().set(QStringLiteral("decimals"), QStringLiteral("0"));
    QTemporaryDir folder;
    Run run(format, {&surface}, folder.filePath(QStringLiteral("g")));
    QVERIFY(run.go());
    const QByteArray text = run.bytes();
    QCOMPARE(text.mid(text.indexOf("TRGL")), QByteArray("TRGL 1 2 5\nTRGL 1 5 4\nTRGL 2 3 5\nEND\n"));
    QCOMPARE(run.verify().fault, QString());
    format.settings().set(QStringLiteral("gridsAs"), QStringLiteral("points"));
    QVERIFY(run.go());
    QCOMPARE(run.files[0].path, folder.filePath(QStringLiteral("g.vs")));
    QCOMPARE(run.bytes().count("VRTX "), 5);
    QCOMPARE(run.verify().count, 5);
}

void GocadTest::names()
{
    // The projection is named where it is known; a quote in a name would end it.
    ModelObject cloud = object(QString::fromUtf8("Ярус \"A\"\nB"), {1}, {2}, {3});
    Model model;
    LoadOptions options;
    options.crs = QStringLiteral("EPSG:28350");
    loadInto(model, sample("terrain_mesh.off"), options);
    cloud.crs = model.objects().front().crs;
    GocadFormat format;
    QTemporaryDir folder;
    Run run(format, {&cloud}, folder.filePath(QStringLiteral("n.vs")));
    QVERIFY(run.go());
    QVERIFY(run.bytes().contains(QByteArray("\nname:Ярус _A_ B\n")));
    QVERIFY(run.bytes().contains("\nPROJECTION \"GDA94 / MGA zone 50 (EPSG:28350)\"\n"));
    QCOMPARE(run.verify().fault, QString());
}

void GocadTest::files_data()
{
    QTest::addColumn<QString>("grouping");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("expected");
    QTest::newRow("single, mixed") << "single" << "a" << "a.gp";
    QTest::newRow("single, named") << "single" << "a.ts" << "a.ts";
    QTest::newRow("object") << "object" << "a" << "a_cloud.vs a_line.pl a_grid.ts";
    QTest::newRow("object, in a directory") << "object" << "" << "pre_cloud.vs pre_line.pl pre_grid.ts";
    QTest::newRow("set") << "set" << "a.x" << "a_S.x a_T.x";
}

void GocadTest::files()
{
    QFETCH(QString, grouping);
    QFETCH(QString, path);
    QFETCH(QString, expected);
    ModelObject cloud = object(QStringLiteral("cloud"), {1}, {2}, {3});
    cloud.set = QStringLiteral("S");
    ModelObject line = object(QStringLiteral("line"), {1, 2}, {2, 2}, {3, 3});
    line.parts = {{0, 2, false, false}};
    line.set = QStringLiteral("S");
    ModelObject surface = grid(2, 2);
    surface.set = QStringLiteral("T");
    GocadFormat format;
    format.settings().set(QStringLiteral("grouping"), grouping);
    format.settings().set(QStringLiteral("filePrefix"), QStringLiteral("pre"));
    QTemporaryDir folder;
    Run run(format, {&cloud, &line, &surface}, folder.filePath(path));
    QVERIFY(run.go());
    QStringList names;
    for (std::size_t file = 0; file < run.files.size(); ++file) {
        names.append(QFileInfo(run.files[file].path).fileName());
        QCOMPARE(run.verify(file).fault, QString());
    }
    QCOMPARE(names.join(QLatin1Char(' ')), expected);
}

void GocadTest::faultThereAndBack()
{
    const QString fault = sharedData("drogon/F5.ts");
    if (fault.isEmpty())
        QSKIP("the data is not here");
    // Written as it came, the file's numbers come out again, to the character.
    Model model;
    loadInto(model, fault);
    GocadFormat format;
    format.settings().set(QStringLiteral("zPositive"), QStringLiteral("depth"));
    format.settings().set(QStringLiteral("decimals"), QStringLiteral("6"));
    QTemporaryDir folder;
    Run run(format, pointers(model), folder.filePath(QStringLiteral("f5")));
    QVERIFY(run.go());
    QFile original(fault);
    QVERIFY(original.open(QIODevice::ReadOnly));
    const auto numbersOf = [](QByteArray text) {
        text.replace(" CNXYZ", "");
        text.replace(" \n", "\n");
        return text.mid(text.indexOf("TFACE")).trimmed();
    };
    QCOMPARE(numbersOf(run.bytes()), numbersOf(original.readAll()));
    QCOMPARE(run.verify().count, 44);
}

void GocadTest::sampleThereAndBack()
{
    Model model;
    loadInto(model, sample("sample.kpmodel"));
    std::vector<const ModelObject*> taken;
    for (const ModelObject& one : model.objects()) {
        if (one.type != ObjectType::GeoCellularVolumes)
            taken.push_back(&one);
    }
    GocadFormat format;
    QTemporaryDir folder;
    Run run(format, taken, folder.filePath(QStringLiteral("all")));
    QVERIFY(run.go());
    const Verification seen = run.verify();
    QVERIFY2(seen.fault.isEmpty(), qPrintable(seen.fault));
    QCOMPARE(seen.count, run.report.files()[0].rows);
    QVERIFY(seen.worstError < 1e-4);
    // A single wrong digit is noticed.
    QFile file(run.files[0].path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    const QByteArray text = file.readAll();
    const int at = text.lastIndexOf("VRTX 7 ");
    QVERIFY(at > 0);
    file.seek(at + 7);
    file.write("9");
    file.close();
    QVERIFY(run.verify().worstError > 1.0);
}

void GocadTest::failures()
{
    ModelObject cloud = object(QStringLiteral("c"), std::vector<double>(5, 1.0), std::vector<double>(5, 1.0), std::vector<double>(5, 1.0));
    ModelObject nowhere = object(QStringLiteral("nowhere"), {NAN}, {1}, {1});
    GocadFormat format;
    Run full(format, {&cloud}, QStringLiteral("/dev/full"));
    QVERIFY(!full.go());
    QVERIFY2(full.error().contains(QStringLiteral("could not be written completely")), qPrintable(full.error()));
    QTemporaryDir folder;
    Run empty(format, {&nowhere}, folder.filePath(QStringLiteral("e.vs")));
    QVERIFY(!empty.go());
    QVERIFY(empty.error().contains(QStringLiteral("none of its objects has a position")));
    QVERIFY(!QFile::exists(empty.files[0].path));
    Run both(format, {&nowhere, &cloud}, folder.filePath(QStringLiteral("b.vs")));
    both.selection.attributes = QStringList{QStringLiteral("nothing")};
    QVERIFY(both.go());
    QCOMPARE(both.kinds().join(QLatin1Char('|')), QStringLiteral("missing attribute|object without a position left out"));
    QCOMPARE(both.verify().fault, QString());
}

void GocadTest::cancelled()
{
    const ModelObject surface = grid(1000, 300);
    GocadFormat format;
    QTemporaryDir folder;
    CancelAt counter(1 << 30);
    Run whole(format, {&surface}, folder.filePath(QStringLiteral("g.ts")));
    QVERIFY(whole.go(&counter));
    QVERIFY(counter.calls() > 200);
    QCOMPARE(counter.largest, 100);
    QVERIFY(!counter.backwards);
    // In the vertices and in the triangles.
    for (const int share : {4, 2}) {
        CancelAt cancel(counter.calls() / share);
        Run run(format, {&surface}, folder.filePath(QStringLiteral("other.ts")));
        QVERIFY(!run.go(&cancel));
        QVERIFY(run.report.cancelled);
        QVERIFY(!QFile::exists(run.files[0].path));
        QVERIFY(cancel.largest < 100);
    }
}

QTEST_GUILESS_MAIN(GocadTest)
#include "tst_gocad.moc"
