// SPDX-License-Identifier: MIT
// OBJ, PLY and STL: whole files, offsets, what VTK and meshio read in them, real data, damages, refusals.
#include "tests/support/ForeignReader.h"
#include "tests/support/SaverRun.h"
#include "tests/support/TextRows.h"

#include <QtEndian>

#include <cstring>

using namespace kpFormats;

namespace
{

/// A number as it stands in a file.
template <typename Number, typename Bits>
QByteArray bytesOf(Number number)
{
    Bits bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    bits = qToLittleEndian(bits);
    return QByteArray(reinterpret_cast<const char*>(&bits), sizeof bits);
}

QByteArray reals(const std::vector<double>& numbers)
{
    QByteArray bytes;
    for (const double number : numbers)
        bytes += bytesOf<double, quint64>(number);
    return bytes;
}

QByteArray singles(const std::vector<double>& numbers)
{
    QByteArray bytes;
    for (const double number : numbers)
        bytes += bytesOf<float, quint32>(static_cast<float>(number));
    return bytes;
}

QByteArray face(int a, int b, int c)
{
    return QByteArray(1, 3) + bytesOf<int, quint32>(a) + bytesOf<int, quint32>(b) + bytesOf<int, quint32>(c);
}

/// On the map, with a vertex that has no height.
ModelObject mesh(double x, double y)
{
    ModelObject object = objectOf(QStringLiteral("m\nx"), ObjectType::MeshSurfaces, {x, x + 1, x + 1, x},
                                  {y, y, y + 1, y + 1}, {1, 2, 3, none});
    object.triangles = {{0, 1, 2}, {0, 2, 3}};
    AttributeColumn age = columnOf(QStringLiteral("my age"), AttributeKind::Real, {1.5, QVariant(), 3, 4});
    age.unit = QStringLiteral("Ma");
    object.vertexAttributes.push_back(age);
    return object;
}

} // namespace

class SurfacesTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { emptyFolder(); }
    void objText();
    void objOffset();
    void plyBytes();
    void plyPoints();
    void stlBytes();
    void stlMerged();
    void degreesStay();
    void realData_data();
    void realData();
    void plyOfOthers();
    void damages_data();
    void damages();
};

void SurfacesTest::objText()
{
    ModelObject second = mesh(5, 5);
    second.name.clear();
    const SaverRun run("obj", {mesh(0, 0), second}, path("m"), "decimals=1;zIsElevation=false");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.bytes(), QByteArray("# unit: m\n"
                                     "# z: depth, positive down\n"
                                     "o m x\n"
                                     "v 0.0 0.0 -1.0\n"
                                     "v 1.0 0.0 -2.0\n"
                                     "v 1.0 1.0 -3.0\n"
                                     "f 1 2 3\n"
                                     "o unnamed\n"
                                     "v 5.0 5.0 -1.0\n"
                                     "v 6.0 5.0 -2.0\n"
                                     "v 6.0 6.0 -3.0\n"
                                     "f 4 5 6\n"));
    QCOMPARE(run.findings(),
             QStringLiteral("the format has no attributes; left out: 1, renamed: 1, "
                            "the format has no attributes; left out: 1, renamed: 1, "
                            "vertex without a position left out: 1, triangle without a position left out: 1, "
                            "vertex without a position left out: 1, triangle without a position left out: 1"));
}

void SurfacesTest::objOffset()
{
    ModelObject object = mesh(500000.25, 7500000.5);
    object.crs = QStringLiteral("LOCAL_CS[\"x\"]");
    SaverRun run("obj", {object}, path("m.obj"), "origin=automatic;decimals=2");
    QCOMPARE(run.fault(), QString());
    QVERIFY(run.bytes().contains("# offset to add: 500001 7500001 0\no m x\nv -0.75 -0.50 1.00\n"));
    QCOMPARE(run.countOf(QStringLiteral("coordinates counted from an offset")), 1);
    QCOMPARE(contentOf(path("m.obj.offset.json")),
             QByteArray("{\n"
                        "    \"coordinateSystem\": \"LOCAL_CS[\\\"x\\\"]\",\n"
                        "    \"file\": \"m.obj\",\n"
                        "    \"lengthUnit\": \"m\",\n"
                        "    \"meaning\": \"add the offset to every coordinate of the file\",\n"
                        "    \"offset\": [\n"
                        "        500001,\n"
                        "        7500001,\n"
                        "        0\n"
                        "    ],\n"
                        "    \"z\": \"elevation\"\n"
                        "}\n"));
    // Read again it is where it was.
    const ModelObject read = loaded(path("m.obj")).front();
    QCOMPARE((*read.x)[0], 500000.25);
    QCOMPARE((*read.y)[0], 7500000.5);
    // Without an offset there is nothing to state.
    QVERIFY(run.again("origin=map"));
    QCOMPARE(listing(), QStringLiteral("m.obj"));
}

void SurfacesTest::plyBytes()
{
    const SaverRun run("ply", {mesh(0.1, 0.2)}, path("m"), "lengthUnit=km");
    QCOMPARE(run.fault(), QString());
    const QByteArray colour("\xff\x00\x33", 3);
    const QByteArray wanted = QByteArray("ply\n"
                                         "format binary_little_endian 1.0\n"
                                         "comment name: m x\n"
                                         "comment unit: km\n"
                                         "comment z: elevation, positive up\n"
                                         "comment unit of my_age: Ma\n"
                                         "element vertex 3\n"
                                         "property double x\n"
                                         "property double y\n"
                                         "property double z\n"
                                         "property uchar red\n"
                                         "property uchar green\n"
                                         "property uchar blue\n"
                                         "property double my_age\n"
                                         "element face 1\n"
                                         "property list uchar int vertex_indices\n"
                                         "end_header\n")
                              + reals({0.1 * 0.001, 0.2 * 0.001, 0.001}) + colour + reals({1.5})
                              + reals({1.1 * 0.001, 0.2 * 0.001, 0.002}) + colour + reals({none})
                              + reals({1.1 * 0.001, 1.2 * 0.001, 0.003}) + colour + reals({3}) + face(0, 1, 2);
    QCOMPARE(run.bytes(), wanted);
    QCOMPARE(
        run.findings(),
        QStringLiteral("renamed: 1, vertex without a position left out: 1, triangle without a position left out: 1"));
}

void SurfacesTest::plyPoints()
{
    ModelObject cloud = objectOf(ObjectType::VertexClouds, QString::fromUtf8("Ж"), {{1, 2, 3}, {4, 5, 6}}, "");
    cloud.vertexAttributes = {
        columnOf(QStringLiteral("X"), AttributeKind::Integer, {7, 8}),
        columnOf(QStringLiteral("rock"), AttributeKind::Text, {QStringLiteral("a"), QStringLiteral("b")})};
    const SaverRun run("ply", {cloud}, path("c"), "origin=local;zIsElevation=false;lengthUnit=km");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.findings(),
             QStringLiteral(
                 "coordinates counted from an offset: 1, attribute that is not a number left out: 1, renamed: 1"));
    const ModelObject read = loaded(path("c.ply")).front();
    QCOMPARE(read.name, cloud.name);
    QCOMPARE(read.type, ObjectType::VertexClouds);
    QCOMPARE(read.color, cloud.color);
    QCOMPARE(read.lengthUnit, QStringLiteral("km"));
    QCOMPARE((*read.x)[1], (*cloud.x)[1] * 0.001);
    QCOMPARE((*read.z)[1], (*cloud.z)[1] * 0.001);
    QCOMPARE(read.vertexAttributes.size(), std::size_t(1));
    QCOMPARE(*read.vertexAttributes[0].numbers, (std::vector<double>{7, 8}));
}

void SurfacesTest::stlBytes()
{
    SaverRun run("stl", {mesh(500000.25, 7500000.5)}, path("m"));
    QCOMPARE(run.fault(), QString());
    const double third = 1.0 / std::sqrt(3.0);
    const QByteArray wanted = QByteArray("binary STL, unit m, z up, offset to add: 500001 7500001 0").leftJustified(80)
                              + bytesOf<int, quint32>(1) + singles({-third, -third, third}) + singles({-0.75, -0.5, 1})
                              + singles({0.25, -0.5, 2}) + singles({0.25, 0.5, 3}) + QByteArray(2, '\0');
    QCOMPARE(run.bytes(), wanted);
    QCOMPARE(listing(), QStringLiteral("m.stl m.stl.offset.json"));
    QCOMPARE(run.findings(),
             QStringLiteral("the format has no attributes; left out: 1, coordinates counted from an offset: 1, "
                            "vertex without a position left out: 1, triangle without a position left out: 1"));
    QVERIFY(run.again("origin=map"));
    QCOMPARE(run.countOf(QStringLiteral("coordinates rounded to single precision")), 1);
    QVERIFY(run.readBack[0].allowed().most > 0.4 && run.readBack[0].worst().difference < 0.3);
}

void SurfacesTest::stlMerged()
{
    ModelObject object = mesh(0, 0);
    object.x = numbersOf({8000000, 8000000.0001, 8000001, 0});
    const SaverRun run("stl", {object}, path("m"), "origin=map");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.countOf(QStringLiteral("triangle with corners that single precision merges")), 0);
    object.z = numbersOf({1, 1, 3, 4});
    const SaverRun flat("stl", {object}, path("f"), "origin=map");
    QCOMPARE(flat.fault(), QString());
    QCOMPARE(flat.countOf(QStringLiteral("triangle with corners that single precision merges")), 1);
    object.x = numbersOf({1e39, 0, 0, 0});
    const SaverRun huge("stl", {object}, path("h"));
    QVERIFY2(huge.error().contains(QStringLiteral("beyond single precision")), qPrintable(huge.error()));
}

void SurfacesTest::degreesStay()
{
    ModelObject object = mesh(117.5, -22.5);
    object.crs = wktOf(QStringLiteral("EPSG:4326"));
    for (const char* format : {"off", "obj", "ply", "stl"}) {
        const SaverRun run(format, {object}, path(format), "lengthUnit=km");
        QCOMPARE(run.fault(), QString());
        QCOMPARE(run.readBack[0].allowed().unit, QStringLiteral("degrees"));
        QCOMPARE(run.readBack[0].allowedHeight().unit, QStringLiteral("km"));
        const ModelObject read = loaded(run.files[0].path).front();
        QVERIFY2(std::abs((*read.x)[0] - 117.5) < 1e-5, format);
        QVERIFY2(std::abs((*read.z)[0] - 0.001) < 1e-5, format);
    }
}

void SurfacesTest::realData_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("file");
    for (const char* format : {"obj", "ply", "stl"}) {
        QTest::addRow("%s mesh", format) << QString::fromLatin1(format) << sample("terrain_mesh.off");
        QTest::addRow("%s fault", format) << QString::fromLatin1(format) << shared("data/drogon/F5.ts");
    }
}

void SurfacesTest::realData()
{
    QFETCH(QString, format);
    QFETCH(QString, file);
    if (file.isEmpty())
        QSKIP("the data are not there");
    SaverRun run(format, loaded(file), path("out"), "lengthUnit=ft");
    QCOMPARE(run.fault(), QString());
    QVERIFY(run.again("lengthUnit=m;origin=local"));
    QCOMPARE(run.fault(), QString());
    // Others count triangles and find the first vertex where it is.
    const ModelObject read = loaded(run.files[0].path).front();
    for (const char* script : {"vtk/dump_vtk.py", "vtk/dump_meshio.py"}) {
        const QString said = foreignReader(script, {run.files[0].path});
        if (said == QLatin1String("absent"))
            QSKIP("no other reader is there");
        QCOMPARE(said.count(QLatin1String("triangle ")), static_cast<int>(read.triangles.size()));
        QVERIFY(said.startsWith(QLatin1String("point ")));
    }
}

void SurfacesTest::plyOfOthers()
{
    const QString file = shared("data/inputs/spider.ply");
    if (file.isEmpty())
        QSKIP("the data are not there");
    const ModelObject read = loaded(file).front();
    const QString said = foreignReader("vtk/dump_vtk.py", {file});
    if (said == QLatin1String("absent"))
        QSKIP("VTK is not there");
    QStringList lines;
    for (std::size_t vertex = 0; vertex < read.x->size(); ++vertex)
        lines.append(
            QStringLiteral("point %1 %2 %3").arg((*read.x)[vertex]).arg((*read.y)[vertex]).arg((*read.z)[vertex]));
    for (const auto& triangle : read.triangles)
        lines.append(QStringLiteral("triangle %1 %2 %3").arg(triangle[0]).arg(triangle[1]).arg(triangle[2]));
    const QStringList theirs = said.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), theirs.size());
    for (int line = 0; line < lines.size(); ++line) {
        const QStringList ours = lines[line].split(QLatin1Char(' '));
        for (int word = 1; word < 4; ++word)
            QVERIFY(std::abs(ours[word].toDouble() - theirs[line].section(QLatin1Char(' '), word, word).toDouble())
                    < 1e-5);
    }
}

void SurfacesTest::damages_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("right");
    QTest::addColumn<QByteArray>("wrong");
    const auto row = [](const char* name, const char* format, const QByteArray& right, const QByteArray& wrong) {
        QTest::newRow(name) << QString::fromLatin1(format) << right << wrong;
    };
    row("obj position", "obj", "0.2500 0.5000", "0.2502 0.5000");
    row("obj corner", "obj", "f 1 2 3", "f 1 3 2");
    row("obj missing triangle", "obj", "f 1 2 3\n", "");
    row("obj name", "obj", "o m x", "o n x");
    row("obj offset", "obj", "add: 500001", "add: 500002");
    row("ply position", "ply", reals({0.25, 0.5}), reals({0.25000001, 0.5}));
    row("ply corner", "ply", face(0, 1, 2), face(0, 2, 1));
    row("ply property", "ply", reals({1.5}), reals({1.6}));
    row("ply missing value", "ply", reals({none}), reals({0}));
    row("ply name", "ply", "name: m x", "name: n x");
    row("ply length unit", "ply", "comment unit: m", "comment unit: ft");
    row("ply direction", "ply", "z: elevation, positive up", "z: depth, positive down");
    row("ply unit", "ply", "my_age: Ma", "my_age: ka");
    row("ply colour", "ply", QByteArray("\xff\x00\x33", 3) + reals({1.5}),
        QByteArray("\xff\x00\x34", 3) + reals({1.5}));
    row("ply order", "ply", "little", "big");
    row("ply cut", "ply", face(0, 1, 2), face(0, 1, 2).left(12));
    row("stl position", "stl", singles({0.25, 0.5}), singles({0.26, 0.5}));
    row("stl count", "stl", bytesOf<int, quint32>(1) + singles({-1.0 / std::sqrt(3.0)}),
        bytesOf<int, quint32>(2) + singles({-1.0 / std::sqrt(3.0)}));
    row("stl normal", "stl", bytesOf<int, quint32>(1) + singles({-1.0 / std::sqrt(3.0)}),
        bytesOf<int, quint32>(1) + singles({1.0 / std::sqrt(3.0)}));
    row("stl offset", "stl", "add: 500001", "add: 500002");
    row("stl direction", "stl", "z up", "z down");
}

void SurfacesTest::damages()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, right);
    QFETCH(QByteArray, wrong);
    const SaverRun run(format, {mesh(500000.25, 7500000.5)}, path("out"), "origin=automatic");
    QCOMPARE(run.fault(), QString());
    QVERIFY2(!run.damaged(right, wrong).fault().isEmpty(), "this was not noticed");
}

QTEST_GUILESS_MAIN(SurfacesTest)
#include "tst_surfaces.moc"
