// SPDX-License-Identifier: MIT
#include "formats/dxf/DxfText.h"
#include "host/data/kpProductInfo.h"
#include "model/SurfaceFaces.h"
#include "tests/support/SaverRun.h"

using namespace kpFormats;

namespace
{

const QByteArray head = "  0\nSECTION\n\t2\nHEADER\n\t999\nfilename created by Modeller 7\n\t0\nENDSEC\n"
                        "\t0\nSECTION\n\t2\nTABLES\n\t0\nENDSEC\n\t0\nSECTION\n\t2\nBLOCKS\n\t0\nENDSEC\n"
                        "\t0\nSECTION\n\t2\nENTITIES\n";
const QByteArray tail = "\t0\nENDSEC\n\t0\nEOF\n";

ModelObject twoLegs()
{
    ModelObject object = objectOf(ObjectType::CrossSections, QStringLiteral("A"), {{0, 0, 0}, {30, 40, 0}}, "");
    object.hasZ = false;
    CrossSection drawing;
    drawing.segments = {
        {QStringLiteral("H"), ObjectType::GridSurfaces, QColor(255, 0, 0), {0, 50}, {0, 30}, {0, 40}, {-5, -6}},
        {QStringLiteral("F"), ObjectType::Polylines, QColor(0, 255, 0), {25}, {15}, {20}, {-7}}};
    object.section = std::make_shared<const CrossSection>(drawing);
    return object;
}

} // namespace

Q_DECLARE_METATYPE(ModelObject)

class DxfTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { kpProductInfo::instance().set_product_name("Modeller 7"); }
    void init() { emptyFolder(); }
    void entities();
    void flatDrawings();
    void layers_data();
    void layers();
    void hardTexts();
    void colours();
    void surfaces_data();
    void surfaces();
    void boundaries();
    void boundariesCancelled_data();
    void boundariesCancelled();
    void unitsAndSystems();
    void leftOut();
    void severalFiles();
    void sampleModel_data();
    void sampleModel();

private:
    QByteArray body(const char* name) const
    {
        const QByteArray text = contentOf(path(name));
        return text.startsWith(head) && text.endsWith(tail)
                   ? text.mid(head.size(), text.size() - head.size() - tail.size())
                   : text;
    }
};

void DxfTest::entities()
{
    ModelObject ring =
        objectOf(ObjectType::Polygons, QStringLiteral("P"), {{0, 0, 1}, {4, 0, 2}, {4, 4, 3}, {0, 0, 1}}, "");
    const SaverRun run("dxf",
                       {objectOf(ObjectType::Polylines, QStringLiteral("L"), {{1234567.8912, -7, 0.5}, {3, 4, 5}}, ""),
                        ring, objectOf(ObjectType::Pins, QString::fromUtf8("Имя"), {{1, 2, 3}}, ""),
                        objectOf(ObjectType::Wells, QStringLiteral("W"), {{1, 2, 3}}, "")},
                       path("a.dxf"), "textHeight=2.5");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.rows(), 6);
    QCOMPARE(run.findings(), QString());
    const QByteArray vertex = "0\nVERTEX\n8\nS\n10\n";
    QCOMPARE(
        body("a.dxf"),
        QByteArray(
            "999\nL\n0\nPOLYLINE\n8\nS\n62\n150\n66\n1\n10\n0.0\n20\n0.0\n30\n0.0\n70\n8\n" + vertex
            + "1234567.8912\n20\n-7.0000\n30\n0.5000\n70\n32\n" + vertex
            + "3.0000\n20\n4.0000\n30\n5.0000\n70\n32\n0\nSEQEND\n8\nS\n"
              "999\nP\n0\nPOLYLINE\n8\nS\n62\n150\n66\n1\n10\n0.0\n20\n0.0\n30\n0.0\n70\n9\n"
            + vertex + "0.0000\n20\n0.0000\n30\n1.0000\n70\n32\n" + vertex + "4.0000\n20\n0.0000\n30\n2.0000\n70\n32\n"
            + vertex
            + "4.0000\n20\n4.0000\n30\n3.0000\n70\n32\n0\nSEQEND\n8\nS\n"
              "999\n\\U+0418\\U+043C\\U+044F\n0\nPOINT\n8\nS\n62\n150\n10\n1.0000\n20\n2.0000\n30\n3.0000\n"
              "0\nTEXT\n8\nS\n62\n150\n10\n1.0000\n20\n2.0000\n30\n3.0000\n40\n2.5000\n1\n\\U+0418\\U+043C\\U+044F\n"
              "999\nW\n0\nPOINT\n8\nS\n62\n150\n10\n1.0000\n20\n2.0000\n30\n3.0000\n"
              "0\nTEXT\n8\nS\n62\n150\n10\n1.0000\n20\n2.0000\n30\n3.0000\n40\n2.5000\n1\nW\n"));
    KP_VALIDATE("dxf.py", QStringLiteral("--expect"), QStringLiteral("POLYLINE=2"), QStringLiteral("--expect"),
                QStringLiteral("TEXT=2"), path("a.dxf"));
}

void DxfTest::flatDrawings()
{
    const std::vector<ModelObject> objects{
        twoLegs(), objectOf(ObjectType::Polylines, QStringLiteral("L"), {{30, 40, 7}, {60, 80, none}, {0, 50, 9}}, "")};
    const SaverRun map("dxf", objects, path("map.dxf"), "dimension=map;layers=none");
    QCOMPARE(map.fault() + map.findings(), QString());
    const QByteArray polyline = "0\nPOLYLINE\n8\n0\n62\n%\n66\n1\n10\n0.0\n20\n0.0\n30\n0.0\n70\n0\n";
    const auto coloured = [](QByteArray text, const char* colour) { return text.replace('%', colour); };
    const auto vertex = [](const char* x, const char* y) {
        return QByteArray("0\nVERTEX\n8\n0\n10\n") + x + ".0000\n20\n" + y + ".0000\n";
    };
    const QByteArray end = "0\nSEQEND\n8\n0\n";
    QCOMPARE(body("map.dxf"), "999\nA\n" + coloured(polyline, "150") + vertex("0", "0") + vertex("30", "40") + end
                                  + "999\nL\n" + coloured(polyline, "150") + vertex("30", "40") + vertex("60", "80")
                                  + vertex("0", "50") + end);
    // Along the section 0, 0 to 30, 40; the point without height has no place.
    const SaverRun side("dxf", objects, path("side.dxf"), "dimension=section;layers=none");
    QCOMPARE(side.fault(), QString());
    QCOMPARE(side.findings(), QStringLiteral("position left out: 1"));
    QCOMPARE(body("side.dxf"), "999\nA\n999\nH\n" + coloured(polyline, "1") + vertex("0", "-5") + vertex("50", "-6")
                                   + end + "999\nF\n0\nPOINT\n8\n0\n62\n3\n10\n25.0000\n20\n-7.0000\n999\nL\n"
                                   + coloured(polyline, "150") + vertex("50", "7") + vertex("40", "9") + end);
    QCOMPARE(SaverRun("dxf", {twoLegs()}, path("space.dxf")).rows(), 3);
    KP_VALIDATE("dxf.py", path("side.dxf"));
}

void DxfTest::layers_data()
{
    QTest::addColumn<QStringList>("sets");
    QTest::addColumn<QStringList>("layers");
    QTest::addColumn<int>("renamed");
    QTest::addColumn<bool>("unicode");
    const auto row = [](const char* name, const QStringList& sets, const QStringList& layers, int renamed,
                        bool unicode = false) { QTest::newRow(name) << sets << layers << renamed << unicode; };
    row("none", {QString()}, {QStringLiteral("0")}, 0);
    row("illegal", {QStringLiteral("a<>/\\\":;?*|=,'`\nb"), QStringLiteral(" c ")},
        {QStringLiteral("a_______________b"), QStringLiteral("c")}, 2);
    row("case does not count",
        {QStringLiteral("Fault"), QStringLiteral("FAULT"), QStringLiteral("fault_2"), QStringLiteral("Fault")},
        {QStringLiteral("Fault"), QStringLiteral("FAULT_2"), QStringLiteral("fault_2_2"), QStringLiteral("Fault")}, 2);
    row("long", {QString(40, QLatin1Char('x')), QString(41, QLatin1Char('x'))},
        {QString(31, QLatin1Char('x')), QString(29, QLatin1Char('x')) + QStringLiteral("_2")}, 2);
    const QStringList scripts{QString::fromUtf8("Разлом Ьщ"), QString::fromUtf8("斷層"), QString::fromUtf8("Größe é"),
                              QString::fromUtf8("𝄞a"), QStringLiteral("???")};
    row("other scripts", scripts,
        {QStringLiteral("Razlom shch"), QStringLiteral("U65B7U5C64"), QStringLiteral("GroUDFe e"), QStringLiteral("_a"),
         QStringLiteral("___")},
        5);
    row("other scripts kept", scripts,
        {QStringLiteral("\\U+0420\\U+0430\\U+0437\\U+043B\\U+043E\\U+043C \\U+042C\\U+0449"),
         QStringLiteral("\\U+65B7\\U+5C64"), QStringLiteral("Gr\\U+00F6\\U+00DFe \\U+00E9"), QStringLiteral("_a"),
         QStringLiteral("___")},
        2, true);
}

void DxfTest::layers()
{
    QFETCH(QStringList, sets);
    QFETCH(QStringList, layers);
    QFETCH(int, renamed);
    QFETCH(bool, unicode);
    std::vector<ModelObject> objects;
    for (const QString& set : qAsConst(sets)) {
        objects.push_back(objectOf(ObjectType::Posts, QStringLiteral("P"), {{1, 2, 3}}, ""));
        objects.back().set = set;
    }
    const SaverRun run("dxf", objects, path("a.dxf"), unicode ? "unicodeLayers=true" : "");
    QCOMPARE(run.fault(), QString());
    QStringList written;
    const QList<QByteArray> lines = body("a.dxf").split('\n');
    for (int line = 0; line + 3 < lines.size(); ++line) {
        if (lines[line] == "POINT" && lines[line + 1] == "8")
            written.append(QString::fromUtf8(lines[line + 2]));
    }
    QCOMPARE(written, layers);
    QCOMPARE(static_cast<int>(run.report.findings.all().size()), renamed);
    for (const Finding& finding : run.report.findings.all())
        QCOMPARE(finding.kind(), QStringLiteral("layer renamed"));
    if (!unicode)
        KP_VALIDATE("dxf.py", path("a.dxf"));
}

void DxfTest::hardTexts()
{
    const QString name = QString::fromUtf8("Разлом 斷層 ]]> & \"q\"\r\n0\nEOF");
    const SaverRun run("dxf",
                       {objectOf(ObjectType::Labels, name, {{1, 2, 3}}, ""),
                        objectOf(ObjectType::Labels, QString(300, QLatin1Char('t')), {{1, 2, 3}}, ""),
                        objectOf(ObjectType::Labels, QString::fromUtf8("\\U+0041 𝄞"), {{1, 2, 3}}, "")},
                       path("a.dxf"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.findings(), QStringLiteral("text changed: 1, text changed: 1, text changed: 1"));
    QVERIFY(body("a.dxf").contains(
        "1\n\\U+0420\\U+0430\\U+0437\\U+043B\\U+043E\\U+043C \\U+65B7\\U+5C64 ]]> & \"q\"  0 EOF\n"));
    QVERIFY(body("a.dxf").contains("1\n" + QByteArray(255, 't') + '\n'));
    QVERIFY(body("a.dxf").contains("1\n/U+0041 ?\n"));
    KP_VALIDATE("dxf.py", QStringLiteral("--expect"), QStringLiteral("TEXT=3"), path("a.dxf"));
}

void DxfTest::colours()
{
    QCOMPARE(nearestColourIndex(QColor(255, 0, 0)), 1);
    QCOMPARE(nearestColourIndex(QColor(0, 0, 0)), 7);
    QCOMPARE(nearestColourIndex(QColor(255, 255, 255)), 7);
    QCOMPARE(nearestColourIndex(QColor(130, 126, 128)), 8);
    QCOMPARE(nearestColourIndex(QColor()), 7);
    // Rows of the table that CAD programs share: hue 30 degrees and its shades.
    QCOMPARE(indexedColour(30), QColor(255, 127, 0));
    QCOMPARE(indexedColour(31), QColor(255, 191, 127));
    QCOMPARE(indexedColour(174), QColor(0, 0, 127));
    ModelObject object = objectOf(ObjectType::Posts, QStringLiteral("P"), {{1, 2, 3}}, "");
    object.color = QColor(200, 10, 10);
    const SaverRun run("dxf", {object, object}, path("a.dxf"));
    QCOMPARE(run.findings(), QStringLiteral("colour changed: 2"));
    // One that nobody chose is no loss.
    object.colorIsOwn = false;
    QCOMPARE(SaverRun("dxf", {object}, path("b.dxf")).findings(), QString());
    for (int index = 10; index < 250; ++index) {
        const QColor colour = indexedColour(index);
        QCOMPARE(indexedColour(nearestColourIndex(colour)), colour);
    }
}

void DxfTest::surfaces_data()
{
    QTest::addColumn<QString>("settings");
    QTest::addColumn<QString>("expected");
    const auto flag = [](int on) { return on ? QStringLiteral("true") : QStringLiteral("false"); };
    for (int choice = 0; choice < 8; ++choice) {
        const QString settings = QStringLiteral("faces=%1;meshPoints=%2;boundaries=%3")
                                     .arg(flag(choice & 1), flag(choice & 2), flag(choice & 4));
        // A grid of 2 x 3 nodes, one without value, and a mesh of two triangles.
        QTest::newRow(qPrintable(settings)) << settings
                                            << QStringLiteral("%1 faces %2 points %3 lines")
                                                   .arg(choice & 1 ? 4 : 0)
                                                   .arg(choice & 2 ? 9 : 0)
                                                   .arg(choice & 4 ? 2 : 0);
    }
}

void DxfTest::surfaces()
{
    QFETCH(QString, settings);
    QFETCH(QString, expected);
    ModelObject mesh =
        objectOf(ObjectType::MeshSurfaces, QStringLiteral("M"), {{0, 0, 1}, {1, 0, 2}, {1, 1, 3}, {0, 1, 4}}, "");
    mesh.triangles = {{0, 1, 2}, {0, 2, 3}};
    const SaverRun run("dxf", {gridOf(QStringLiteral("G"), 2, {1, 2, 3, 4, 5, none}), mesh}, path("a.dxf"), settings);
    if (!settings.contains(QLatin1String("true"))) {
        QCOMPARE(
            run.error(),
            QStringLiteral(
                "nothing of G can be drawn: faces, meshPoints and boundaries are all off (check its type in the model "
                "file and the settings, or choose another object)"));
        return;
    }
    QCOMPARE(run.fault(), QString());
    const QByteArray text = body("a.dxf");
    QCOMPARE(QStringLiteral("%1 faces %2 points %3 lines")
                 .arg(text.count("\n3DFACE\n"))
                 .arg(text.count("\nPOINT\n"))
                 .arg(text.count("\nPOLYLINE\n")),
             expected);
    if (!settings.contains(QLatin1String("false")))
        KP_VALIDATE("dxf.py", path("a.dxf"));
}

void DxfTest::boundaries()
{
    // An outer boundary with one cut corner, and a hole of four cells.
    ProgressTicker ticker(nullptr, 1);
    std::vector<double> heights(36, 1.0);
    heights[0] = none;
    heights[14] = none;
    const std::vector<std::vector<int>> lines = boundaryLines(gridOf(QStringLiteral("G"), 6, heights), ticker);
    QCOMPARE(static_cast<int>(lines.size()), 2);
    std::size_t sizes = 0;
    for (const std::vector<int>& line : lines) {
        QCOMPARE(line.front(), line.back());
        sizes += line.size();
        for (std::size_t at = 1; at < line.size(); ++at) {
            const int columns = std::abs(line[at] % 6 - line[at - 1] % 6);
            const int rows = std::abs(line[at] / 6 - line[at - 1] / 6);
            QVERIFY(columns <= 1 && rows <= 1 && columns + rows > 0);
        }
    }
    // 19 nodes around, four around the node without value; the first of each twice.
    QCOMPARE(sizes, std::size_t(19 + 4 + 2));
    QVERIFY(boundaryLines(gridOf(QStringLiteral("G"), 2, {1, 2, none, none}), ticker).empty());
    // A closed mesh has none.
    ModelObject solid =
        objectOf(ObjectType::MeshSurfaces, QStringLiteral("M"), {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}});
    solid.triangles = {{0, 1, 2}, {0, 1, 3}, {1, 2, 3}, {0, 2, 3}};
    QVERIFY(boundaryLines(solid, ticker).empty());
}

void DxfTest::boundariesCancelled_data()
{
    QTest::addColumn<ModelObject>("surface");
    const int columns = sanitized ? 300 : 700;
    const ModelObject grid = gridOf(columns, columns);
    ModelObject mesh = grid;
    mesh.type = ObjectType::MeshSurfaces;
    mesh.grid.reset();
    // Triangles that share no edge: their boundary is all there is.
    ModelObject loose = mesh;
    for (int row = 0; row + 1 < columns; ++row) {
        for (int column = 0; column + 1 < columns; ++column) {
            const int node = row * columns + column;
            mesh.triangles.push_back({node, node + 1, node + columns});
            mesh.triangles.push_back({node + 1, node + columns + 1, node + columns});
            loose.triangles.push_back({node, node + 1, node + columns});
        }
    }
    QTest::newRow("grid") << grid;
    QTest::newRow("mesh") << mesh;
    QTest::newRow("loose triangles") << loose;
}

void DxfTest::boundariesCancelled()
{
    // Finding the edges is most of the work; it tells how far it is and can be left.
    QFETCH(ModelObject, surface);
    const double weight = 100000;
    CancelAt whole(1000);
    ProgressTicker ticker(&whole, weight);
    QVERIFY(!boundaryLines(surface, ticker, weight).empty());
    QVERIFY(!whole.backwards && whole.asked > 20);
    for (const int percent : {10, 40}) {
        CancelAt progress(percent);
        ProgressTicker stopped(&progress, weight);
        QVERIFY(boundaryLines(surface, stopped, weight).empty());
        QVERIFY2(progress.reached >= percent && progress.reached < percent + 10,
                 qPrintable(QString::number(progress.reached)));
        QVERIFY(progress.asked < whole.asked);
    }
}

void DxfTest::unitsAndSystems()
{
    ModelObject feet = objectOf(ObjectType::Posts, QStringLiteral("F"), {{1000, 2000, 10}}, "");
    feet.lengthUnit = QStringLiteral("ft");
    const SaverRun metres("dxf", {feet}, path("a.dxf"), "lengthUnit=m");
    QCOMPARE(metres.fault() + metres.findings(), QString());
    QVERIFY(body("a.dxf").contains("10\n304.8000\n20\n609.6000\n30\n3.0480\n"));
    // From degrees to a projected system: the place that cs2cs gives for 117.382433, -22.630436.
    const ModelObject degrees =
        objectOf(ObjectType::Posts, QStringLiteral("D"), {{117.382433, -22.630436, 10}}, "EPSG:4283");
    const SaverRun projected("dxf", {degrees}, path("b.dxf"), "crs=EPSG:28350;lengthUnit=km");
    QCOMPARE(projected.fault() + projected.findings(), QString());
    const QList<QByteArray> lines = body("b.dxf").split('\n');
    const int x = lines.indexOf("10");
    QVERIFY(std::abs(lines[x + 1].toDouble() - 539.298538) < 1e-3);
    QVERIFY(std::abs(lines[x + 3].toDouble() - 7497.339446) < 1e-3);
    QCOMPARE(lines[x + 5], QByteArray("0.0100000"));
    // Left in degrees they keep their decimals and their size.
    const SaverRun own("dxf", {degrees, feet}, path("c.dxf"), "lengthUnit=ft");
    QVERIFY(body("c.dxf").contains("10\n117.382433000\n20\n-22.630436000\n30\n32.8083990\n"));
    QCOMPARE(own.findings(), QStringLiteral("coordinate systems differ: 2"));
    const SaverRun unknown("dxf", {degrees}, path("d.dxf"), "crs=nowhere");
    QVERIFY(unknown.error().startsWith(QStringLiteral("\"nowhere\" is not a known coordinate system (set crs to one")));
}

void DxfTest::leftOut()
{
    const double infinite = std::numeric_limits<double>::infinity();
    ModelObject named = objectOf(ObjectType::Posts, QStringLiteral("N"), {{1, 2, 3}}, "");
    named.objectAttributes = {{QStringLiteral("age"), AttributeKind::Integer, QString(), 65}};
    const std::vector<ModelObject> objects{
        objectOf(ObjectType::VertexClouds, QStringLiteral("V"),
                 {{none, 0, 0}, {0, infinite, 0}, {0, 0, none}, {1, 1e300, 1}, {1, 1, -1e16}, {1, 1, 1}}, ""),
        objectOf(ObjectType::Polylines, QStringLiteral("one point"), {{1, 2, 3}}, ""),
        objectOf(ObjectType::Polygons, QStringLiteral("unclosed"), {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}, ""),
        objectOf(ObjectType::Polylines, QStringLiteral("empty"), {}, ""),
        objectOf(ObjectType::Wells, QStringLiteral("empty"), {}, ""),
        named};
    const SaverRun run("dxf", objects, path("a.dxf"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(
        run.findings(),
        QStringLiteral(
            "object left out: 2, attribute not written: 1, position left out: 5, line of fewer than two points left "
            "out: 1, object left out: 1, "
            "ring closed: 1, line of fewer than two points left out: 1"));
    KP_VALIDATE("dxf.py", QStringLiteral("--expect"), QStringLiteral("POLYLINE=1"), path("a.dxf"));
    // A drawing of nothing is none.
    for (const ModelObject& object : {objects[1], objects[3]})
        QVERIFY(SaverRun("dxf", {object}, path("b.dxf")).error().contains(object.name));
    QVERIFY(!QFile::exists(path("b.dxf")));
}

void DxfTest::severalFiles()
{
    std::vector<ModelObject> objects(3, objectOf(ObjectType::Posts, QStringLiteral("P"), {{1, 2, 3}}, ""));
    objects[2].set = QStringLiteral("T");
    QCOMPARE(SaverRun("dxf", objects, path(), "grouping=set;filePrefix=x/y").fault(), QString());
    QCOMPARE(listing(), QStringLiteral("x_y_S.dxf x_y_T.dxf"));
}

void DxfTest::sampleModel_data()
{
    QTest::addColumn<QString>("dimension");
    for (const char* dimension : {"3d", "map", "section"})
        QTest::newRow(dimension) << QString::fromLatin1(dimension);
}

void DxfTest::sampleModel()
{
    QFETCH(QString, dimension);
    const SaverRun run("dxf", loaded(sample("sample.kpmodel")), path("sample.dxf"),
                       QStringLiteral("boundaries=true;layers=type;dimension=") + dimension);
    QCOMPARE(run.fault(), QString());
    QVERIFY(run.readBack.front().positions() >= run.rows());
    QVERIFY(run.readBack.front().worst().difference < 0.0001);
    if (dimension == QLatin1String("3d"))
        // 39681 cells of the terrain, 1200 triangles of the mesh.
        KP_VALIDATE("dxf.py", QStringLiteral("--expect"), QStringLiteral("3DFACE=40881"), path("sample.dxf"));
}

QTEST_GUILESS_MAIN(DxfTest)
#include "tst_dxf.moc"
