// SPDX-License-Identifier: MIT
// VTK XML files: whole heads, everything that VTK itself reads in them, real data, damages, refusals.
#include "tests/support/ForeignReader.h"
#include "tests/support/SaverRun.h"

#include <QtEndian>

#include <cstring>

using namespace kpFormats;

namespace
{

const char* const dumpScript = "vtk/dump_vtk.py";

/// A number as it stands in the file.
QByteArray real(double number)
{
    quint64 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    bits = qToLittleEndian(bits);
    return QByteArray(reinterpret_cast<const char*>(&bits), sizeof bits);
}

QByteArray whole(qint64 number)
{
    number = qToLittleEndian(number);
    return QByteArray(reinterpret_cast<const char*>(&number), sizeof number);
}

/// Points with every kind of attribute, a line with a gap, a ring with a hole, a well of a collar alone, a mesh.
std::vector<ModelObject> figures()
{
    ModelObject cloud = objectOf(ObjectType::VertexClouds, QString::fromUtf8("Ж <1>"),
                                 {{1.5, 2.5, 3.5}, {4.5, 5.5, none}, {7.5, 8.5, 9.5}}, "");
    AttributeColumn grade = columnOf(QStringLiteral("grade"), AttributeKind::Real, {0.6, 1.0, QVariant()});
    grade.unit = QStringLiteral("g/t");
    cloud.vertexAttributes = {
        grade, columnOf(QStringLiteral("a&b"), AttributeKind::Text, {QString::fromUtf8("é"), QString(), QVariant()}),
        columnOf(QStringLiteral("n"), AttributeKind::Integer, {1, 2, QVariant()}),
        columnOf(QStringLiteral("Grade"), AttributeKind::Boolean, {true, false, true})};
    ModelObject lines =
        objectOf(QStringLiteral("L"), ObjectType::Polygons, {0, 10, 10, 0, 0, 1, 2, 2, 20, 21, 22, 23, 24},
                 {0, 0, 10, 10, 0, 1, 1, 2, 0, 0, 0, 0, 0}, {1, 1, 1, 1, 1, 1, 1, 1, 5, 5, none, 5, 5},
                 {{0, 5, true, false}, {5, 3, true, true}, {8, 5, false, false}});
    lines.objectAttributes = {{QStringLiteral("age"), AttributeKind::Integer, QStringLiteral("Ma"), 65},
                              {QStringLiteral("object"), AttributeKind::Text, QString(), QStringLiteral("thrust")}};
    ModelObject well = objectOf(ObjectType::Wells, QStringLiteral("W"), {{30, 31, 32}}, "");
    ModelObject mesh =
        objectOf(QStringLiteral("M"), ObjectType::MeshSurfaces, {0, 1, 1, 0}, {0, 0, 1, none}, {1, 2, 3, 4});
    mesh.triangles = {{0, 1, 2}, {0, 2, 3}};
    ModelObject grid = gridOf(3, 2);
    grid.z = numbersOf({1, 2, 3, none, 5, 6});
    return {cloud, lines, well, mesh, grid};
}

ModelObject volume()
{
    CellGrid cells = cellsOf(2, 1, 1);
    cells.active = {1, 0};
    cells.cellAttributes = {
        columnOf(QStringLiteral("PORO"), AttributeKind::Real, {0.25, QVariant()}),
        columnOf(QStringLiteral("facies"), AttributeKind::Text, {QStringLiteral("sand"), QStringLiteral("clay")})};
    return boxOf(cells);
}

/// Compares what VTK reads in the file with lines.
void compareWithVtk(const SaverRun& run, const char* lines)
{
    const QString said = foreignReader(dumpScript, {run.files[0].path});
    if (said == QLatin1String("absent"))
        QSKIP("VTK is not there");
    QCOMPARE(said.split(QLatin1Char('\n')), QString::fromUtf8(lines).split(QLatin1Char('\n')));
}

} // namespace

class VtkTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { emptyFolder(); }
    void head();
    void polyData();
    void volumes();
    void leftHandedVolume();
    void image();
    void realData_data();
    void realData();
    void grouped();
    void readAgain_data();
    void readAgain();
    void readAgainAsObjects();
    void encodings();
    void damages_data();
    void damages();
    void refused();
};

void VtkTest::head()
{
    const SaverRun run("vtp", {objectOf(ObjectType::Pins, QStringLiteral("P"), {{1, 2, 3}}, "")}, path("p"),
                       "colours=false");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.files[0].path, path("p.vtp"));
    const QByteArray bytes = run.bytes();
    QCOMPARE(
        bytes.left(bytes.indexOf('_', bytes.indexOf("<AppendedData")) + 1),
        QByteArray(
            "<?xml version=\"1.0\"?>\n"
            "<VTKFile type=\"PolyData\" version=\"1.0\" byte_order=\"LittleEndian\" header_type=\"UInt64\">\n"
            "<PolyData>\n"
            "<FieldData>\n"
            "<Array type=\"String\" Name=\"object_name\" NumberOfTuples=\"1\" format=\"appended\" offset=\"0\"/>\n"
            "<Array type=\"String\" Name=\"object_type\" NumberOfTuples=\"1\" format=\"appended\" offset=\"10\"/>\n"
            "<Array type=\"String\" Name=\"object_set\" NumberOfTuples=\"1\" format=\"appended\" offset=\"22\"/>\n"
            "<Array type=\"String\" Name=\"coordinate_system\" NumberOfTuples=\"1\" format=\"appended\" "
            "offset=\"32\"/>\n"
            "<Array type=\"String\" Name=\"length_unit\" NumberOfTuples=\"1\" format=\"appended\" offset=\"41\"/>\n"
            "<Array type=\"String\" Name=\"z_direction\" NumberOfTuples=\"1\" format=\"appended\" offset=\"51\"/>\n"
            "</FieldData>\n"
            "<Piece NumberOfPoints=\"1\" NumberOfVerts=\"1\" NumberOfLines=\"0\" NumberOfStrips=\"0\" "
            "NumberOfPolys=\"0\">\n"
            "<PointData>\n</PointData>\n"
            "<CellData>\n"
            "<DataArray type=\"Int64\" Name=\"object\" format=\"appended\" offset=\"62\"/>\n"
            "<DataArray type=\"UInt8\" Name=\"ring\" format=\"appended\" offset=\"78\"/>\n"
            "</CellData>\n"
            "<Points>\n"
            "<DataArray type=\"Float64\" Name=\"Points\" NumberOfComponents=\"3\" format=\"appended\" offset=\"87\"/>\n"
            "</Points>\n"
            "<Verts>\n"
            "<DataArray type=\"Int64\" Name=\"connectivity\" format=\"appended\" offset=\"119\"/>\n"
            "<DataArray type=\"Int64\" Name=\"offsets\" format=\"appended\" offset=\"135\"/>\n"
            "</Verts>\n"
            "<Lines>\n"
            "<DataArray type=\"Int64\" Name=\"connectivity\" format=\"appended\" offset=\"151\"/>\n"
            "<DataArray type=\"Int64\" Name=\"offsets\" format=\"appended\" offset=\"159\"/>\n"
            "</Lines>\n"
            "<Polys>\n"
            "<DataArray type=\"Int64\" Name=\"connectivity\" format=\"appended\" offset=\"167\"/>\n"
            "<DataArray type=\"Int64\" Name=\"offsets\" format=\"appended\" offset=\"175\"/>\n"
            "</Polys>\n"
            "</Piece>\n"
            "</PolyData>\n"
            "<AppendedData encoding=\"raw\">\n_"));
    QVERIFY(bytes.contains(real(1.0) + real(2.0) + real(3.0)) && bytes.endsWith("\n</AppendedData>\n</VTKFile>\n"));
}

void VtkTest::polyData()
{
    const SaverRun run("vtp", figures(), path("f.vtp"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.findings(),
             QStringLiteral("vertex without a position left out: 1, vertex without a position left out: 1, "
                            "vertex without a position left out: 1, triangle without a position left out: 1, "
                            "vertex without a position left out: 1, missing text written as an empty one: 2, "
                            "renamed: 2"));
    compareWithVtk(run, R"(point 1.5 2.5 3.5
point 7.5 8.5 9.5
point 0 0 1
point 10 0 1
point 10 10 1
point 0 10 1
point 0 0 1
point 1 1 1
point 2 1 1
point 2 2 1
point 20 0 5
point 21 0 5
point 23 0 5
point 24 0 5
point 30 31 32
point 0 0 1
point 1 0 2
point 1 1 3
point 1000 2000 1
point 1010 2000 2
point 1020 2000 3
point 1010 2010 5
point 1020 2010 6
vertex 0
vertex 1
vertex 14
polyline 2 3 4 5 6
polyline 7 8 9 7
line 10 11
line 12 13
triangle 15 16 17
triangle 18 19 21
quad 19 20 22 21
at points grade [g/t]: 0.59999999999999998 nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan
at points a&b: 'é' '' '' '' '' '' '' '' '' '' '' '' '' '' '' '' '' '' '' '' '' '' ''
at points n: 1 nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan
at points Grade_2: 1 1 nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan nan
at cells object: 0 0 2 1 1 1 1 3 4 4
at cells ring: 0 0 0 1 2 0 0 0 0 0
at cells colour: 0 127 255 0 127 255 0 127 255 255 0 51 255 0 51 255 0 51 255 0 51 255 0 51 0 127 255 0 127 255
at cells age [Ma]: nan nan nan 65 65 65 65 nan nan nan
at cells object_2: '' '' '' 'thrust' 'thrust' 'thrust' 'thrust' '' '' ''
of all object_name: 'Ж <1>' 'L' 'W' 'M' 'grid'
of all object_type: 'vertex_cloud' 'polygon' 'well' 'mesh_surface' 'grid_surface'
of all object_set: 'S' '' 'S' '' 'S'
of all coordinate_system: '' '' '' '' ''
of all length_unit: 'm' 'm' 'm' 'm' 'm'
of all z_direction: 'up'
)");
}

void VtkTest::volumes()
{
    SaverRun run("vtu", {volume()}, path("v.vtu"), "lengthUnit=ft;zIsElevation=false");
    QCOMPARE(run.fault(), QString());
    QVERIFY(run.again("lengthUnit=m"));
    compareWithVtk(run, R"(point 0 0 1000
point 10 0 1000
point 10 10 1000
point 0 10 1000
point 0 0 1005
point 10 0 1005
point 10 10 1005
point 0 10 1005
point 10 0 1000
point 20 0 1000
point 20 10 1000
point 10 10 1000
point 10 0 1005
point 20 0 1005
point 20 10 1005
point 10 10 1005
hexahedron 0 1 2 3 4 5 6 7
hexahedron 8 9 10 11 12 13 14 15
at cells column: 1 2
at cells row: 1 1
at cells layer: 1 1
at cells active: 1 0
at cells colour: 255 0 51 255 0 51
at cells PORO: 0.25 nan
at cells facies: 'sand' 'clay'
of all object_name: 'box'
of all object_type: 'geocellular_volume'
of all object_set: ''
of all coordinate_system: ''
of all length_unit: 'm'
of all z_direction: 'down'
of all grid_size: 2 1 1
of all grid_pillars: 0 0 1000 0 0 1005 10 0 1000 10 0 1005 20 0 1000 20 0 1005 0 10 1000 0 10 1005 10 10 1000 10 10 1005 20 10 1000 20 10 1005
)");
    QVERIFY(run.again("zIsElevation=true;inactiveCells=false;texts=false;colours=false"));
    QCOMPARE(run.findings(),
             QStringLiteral(
                 "inactive cells left out: 1, name, system and unit not written: 1, attribute of texts left out: 1"));
    compareWithVtk(run, R"(point 0 0 -1005
point 10 0 -1005
point 10 10 -1005
point 0 10 -1005
point 0 0 -1000
point 10 0 -1000
point 10 10 -1000
point 0 10 -1000
hexahedron 0 1 2 3 4 5 6 7
at cells column: 1
at cells row: 1
at cells layer: 1
at cells active: 1
at cells PORO: 0.25
of all grid_size: 2 1 1
of all grid_pillars: 0 0 -1000 0 0 -1005 10 0 -1000 10 0 -1005 20 0 -1000 20 0 -1005 0 10 -1000 0 10 -1005 10 10 -1000 10 10 -1005 20 10 -1000 20 10 -1005
)");
}

void VtkTest::leftHandedVolume()
{
    // Rows that go south.
    CellGrid cells = cellsOf(1, 1, 1);
    for (std::size_t index = 1; index < cells.coord.size(); index += 3)
        cells.coord[index] = -cells.coord[index];
    const SaverRun run("vtu", {boxOf(cells)}, path("v.vtu"));
    QCOMPARE(run.fault(), QString());
    const QString said = foreignReader(dumpScript, {run.files[0].path});
    QVERIFY(said == QLatin1String("absent")
            || (said.contains(QLatin1String("hexahedron 0")) && !said.contains(QLatin1String("inside"))));
}

void VtkTest::image()
{
    // Turned by 90 degrees, with rows that go back.
    ModelObject grid = objectOf(ObjectType::GridSurfaces, QStringLiteral("G"),
                                {{100, 200, 1}, {100, 210, 2}, {105, 200, none}, {105, 210, 4}}, "");
    grid.grid = GridGeometry{2, 2, 100, 200, 10, -5, 90};
    grid.vertexAttributes = {columnOf(QStringLiteral("v"), AttributeKind::Integer, {1, 2, 3, 4})};
    const SaverRun run("vti", {grid}, path("g"), "lengthUnit=km;zIsElevation=false");
    QCOMPARE(run.fault(), QString());
    QVERIFY(run.readBack[0].worst().difference < 1e-15);
    compareWithVtk(run, R"(point 0.10000000000000001 0.20000000000000001 0
point 0.10000000000000001 0.21000000000000002 0
point 0.10500000000000001 0.20000000000000001 0
point 0.10500000000000001 0.21000000000000002 0
at points depth [km]: -0.001 -0.002 nan -0.0040000000000000001
at points v: 1 2 3 4
of all object_name: 'G'
of all object_type: 'grid_surface'
of all object_set: 'S'
of all coordinate_system: ''
of all length_unit: 'km'
of all z_direction: 'down'
)");
}

void VtkTest::realData_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("file");
    QTest::newRow("polygons") << "vtp" << sample("geology.geojson");
    QTest::newRow("lines") << "vtp" << sample("faults_3d.gpkg");
    QTest::newRow("terrain") << "vtp" << sample("dtm_rp.tif");
    QTest::newRow("terrain as an image") << "vti" << sample("dtm_rp.tif");
    QTest::newRow("cells") << "vtu" << sample("blocks.grdecl");
    QTest::newRow("faulted cells") << "vtu" << shared("data/eclipse/b.grdecl");
}

void VtkTest::realData()
{
    QFETCH(QString, format);
    QFETCH(QString, file);
    if (file.isEmpty())
        QSKIP("the data are not there");
    const SaverRun run(format, loaded(file), path("out"), "texts=false");
    QCOMPARE(run.fault(), QString());
    const QString said = foreignReader(dumpScript, {run.files[0].path});
    if (said == QLatin1String("absent"))
        QSKIP("VTK is not there");
    QCOMPARE(said.count(QLatin1String("point ")), static_cast<int>(run.readBack[0].positions()));
    QVERIFY(!said.contains(QLatin1String("inside out")));
    if (format != QLatin1String("vtu"))
        return;
    const QString other = foreignReader("vtk/dump_meshio.py", {run.files[0].path});
    QVERIFY(other == QLatin1String("absent")
            || other.section(QLatin1String("hexahedron"), 0, 0) == said.section(QLatin1String("hexahedron"), 0, 0));
    QVERIFY(other == QLatin1String("absent")
            || other.count(QLatin1String("hexahedron ")) == said.count(QLatin1String("hexahedron ")));
}

void VtkTest::grouped()
{
    const SaverRun run("vtp", figures(), path(), "grouping=set;filePrefix=r");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(listing(), QStringLiteral("r_S.vtp r_unnamed.vtp"));
}

void VtkTest::readAgain_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("settings");
    QTest::newRow("lines") << "vtp" << sample("faults_3d.gpkg") << "";
    QTest::newRow("points") << "vtp" << sample("map_contacts.csv") << "zIsElevation=false";
    QTest::newRow("mesh") << "vtp" << sample("terrain_mesh.off") << "";
    QTest::newRow("cells") << "vtu" << sample("blocks.grdecl") << "";
    QTest::newRow("cells with depths") << "vtu" << shared("data/eclipse/b.grdecl") << "zIsElevation=false";
    QTest::newRow("terrain") << "vti" << sample("dtm_rp.tif") << "";
}

void VtkTest::readAgain()
{
    QFETCH(QString, format);
    QFETCH(QString, file);
    QFETCH(QString, settings);
    if (file.isEmpty())
        QSKIP("the data are not there");
    const SaverRun run(format, loaded(file), path("one"), settings);
    QCOMPARE(run.fault(), QString());
    // What is read again gives the same file, to the byte.
    const SaverRun again(format, loaded(run.files[0].path), path("two"), settings);
    QCOMPARE(again.fault(), QString());
    QVERIFY(again.bytes() == run.bytes());
}

void VtkTest::readAgainAsObjects()
{
    std::vector<ModelObject> objects = figures();
    for (ModelObject& object : objects)
        object.crs = wktOf(QStringLiteral("EPSG:28350"));
    // Written in feet, the coordinates come back in the metres of the system.
    const SaverRun run("vtp", objects, path("f.vtp"), "lengthUnit=ft;zIsElevation=false");
    QCOMPARE(run.fault(), QString());
    const std::vector<ModelObject> read = loaded(run.files[0].path);
    QCOMPARE(read.size(), objects.size());
    for (std::size_t index = 0; index < read.size(); ++index) {
        QCOMPARE(read[index].name, objects[index].name);
        QCOMPARE(read[index].set, objects[index].set);
        QCOMPARE(read[index].color, objects[index].color);
        QCOMPARE(crsName(read[index].crs), QStringLiteral("GDA94 / MGA zone 50 (EPSG:28350)"));
        QCOMPARE(read[index].lengthUnit, QStringLiteral("m"));
        QVERIFY(std::abs(read[index].x->front() - objects[index].x->front()) < 1e-9);
        QVERIFY(std::abs(read[index].z->front() - objects[index].z->front()) < 1e-9);
    }
    const ModelObject& rings = read[1];
    QCOMPARE(rings.type, ObjectType::Polygons);
    QCOMPARE(rings.parts.size(), std::size_t(4)); // a line with a gap is two
    QVERIFY(rings.parts[0].closed && !rings.parts[0].hole && rings.parts[1].hole && !rings.parts[2].closed);
    QCOMPARE(rings.parts[1].count, 4); // closed by its first vertex
    QCOMPARE(rings.objectAttributes.size(), std::size_t(2));
    QCOMPARE(rings.objectAttributes[0].unit, QStringLiteral("Ma"));
    QCOMPARE(rings.objectAttributes[1].value.toString(), QStringLiteral("thrust"));
    QCOMPARE(read[2].type, ObjectType::Wells);
    QCOMPARE(read[0].vertexAttributes.size(), std::size_t(4));
    QCOMPARE(read[0].vertexAttributes[0].unit, QStringLiteral("g/t"));
    QCOMPARE((*read[0].vertexAttributes[0].missing)[1], static_cast<unsigned char>(1));
}

void VtkTest::encodings()
{
    const QString names = foreignReader("vtk/write_vtk.py", {path()});
    if (names == QLatin1String("absent"))
        QSKIP("VTK is not there");
    std::vector<ModelObject> first;
    for (const QString& name : names.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const std::vector<ModelObject> read = loaded(path(name));
        QCOMPARE(read.size(), std::size_t(3));
        if (first.empty())
            first = read;
        for (std::size_t index = 0; index < read.size(); ++index) {
            QCOMPARE(*read[index].x, *first[index].x);
            QCOMPARE(*read[index].z, *first[index].z);
            QCOMPARE(read[index].parts.size(), first[index].parts.size());
            QCOMPARE(read[index].triangles, first[index].triangles);
            QCOMPARE(read[index].vertexAttributes.size(), first[index].vertexAttributes.size());
            for (const AttributeColumn& wanted : first[index].vertexAttributes) {
                const auto& columns = read[index].vertexAttributes;
                const auto found = std::find_if(columns.begin(), columns.end(), [&](const AttributeColumn& column) {
                    return column.name == wanted.name;
                });
                QVERIFY2(found != columns.end(), qPrintable(name + wanted.name));
                QCOMPARE(found->kind, wanted.kind);
                QCOMPARE(found->values, wanted.values);
                if (wanted.numbers && !wanted.missing)
                    QCOMPARE(*found->numbers, *wanted.numbers);
                QCOMPARE(!found->missing, !wanted.missing);
            }
        }
    }
    QCOMPARE(first[2].triangles, (std::vector<std::array<int, 3>>{{0, 1, 2}, {0, 2, 3}, {1, 4, 2}, {4, 5, 2}}));
    QCOMPARE(first[1].parts.size(), std::size_t(2));
    QCOMPARE(first[1].objectAttributes.size(), std::size_t(1)); // the same for both lines
    QCOMPARE(first[2].vertexAttributes[0].name, QStringLiteral("gra de"));
    QCOMPARE(first[2].vertexAttributes[0].unit, QStringLiteral("g/t"));
    QCOMPARE(first[2].vertexAttributes[1].values[0].toString(), QString::fromUtf8("é a"));
}

void VtkTest::damages_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("right");
    QTest::addColumn<QByteArray>("wrong");
    const auto row = [](const char* name, const char* format, const QByteArray& right, const QByteArray& wrong) {
        QTest::newRow(name) << QString::fromLatin1(format) << right << wrong;
    };
    row("position", "vtp", real(7.5), real(7.5000000001));
    row("value", "vtp", real(0.6), real(0.7));
    row("missing value", "vtp", real(0.6) + real(none), real(0.6) + real(0));
    row("text", "vtp", QByteArray("\xc3\xa9\0\0", 4), QByteArray("\xc3\xaa\0\0", 4));
    row("name", "vtp", QByteArray("L\0W\0", 4), QByteArray("L\0V\0", 4));
    row("unit", "vtp", ">g/t<", ">ppm<");
    row("direction", "vtp", QByteArray("up\0", 3), QByteArray("dn\0", 3));
    row("line", "vtp", whole(10) + whole(11), whole(10) + whole(12));
    row("face", "vtp", whole(16) + whole(17), whole(17) + whole(16));
    row("ring", "vtp", QByteArray("\1\2\0", 3), QByteArray("\2\1\0", 3));
    row("points fewer than promised", "vtp", "NumberOfPoints=\"", "NumberOfPoints=\"1");
    row("corner", "vtu", real(20) + real(10) + real(-1005) + real(10), real(20) + real(11) + real(-1005) + real(10));
    row("property", "vtu", real(0.25), real(0.26));
    row("activity", "vtu", QByteArray("\1\0", 2) + whole(6), QByteArray("\1\1", 2) + whole(6));
    row("type", "vtu", "\x0c\x0c", "\x0c\x0d");
    row("pillar", "vtu", real(-1000) + real(0) + real(0) + real(-1005), real(-1000) + real(0) + real(1) + real(-1005));
    row("height", "vti", real(305), real(305.5));
    row("origin", "vti", "Origin=\"1000", "Origin=\"1001");
    row("spacing", "vti", "Spacing=\"10", "Spacing=\"11");
    row("height of the image", "vti", " 0\" Spacing=\"10 10 1", " 1\" Spacing=\"10 10 1");
    row("spacing upwards", "vti", "Spacing=\"10 10 1", "Spacing=\"10 10 2");
    row("direction of axes", "vti", "Direction=\"1 0", "Direction=\"-1 0");
}

void VtkTest::damages()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, right);
    QFETCH(QByteArray, wrong);
    std::vector<ModelObject> objects = figures();
    if (format == QLatin1String("vtu"))
        objects = {volume()};
    else if (format == QLatin1String("vti"))
        objects = {gridOf(7, 4)};
    const SaverRun run(format, objects, path("out"));
    QCOMPARE(run.fault(), QString());
    QVERIFY2(!run.damaged(right, wrong).fault().isEmpty(), "this was not noticed");
}

void VtkTest::refused()
{
    const SaverRun nowhere("vtp", {objectOf(ObjectType::Pins, QStringLiteral("P"), {{1, 2, none}}, "")}, path("p"));
    QVERIFY2(nowhere.error().contains(QStringLiteral("none of its objects has a position")),
             qPrintable(nowhere.error()));
    CellGrid cells = cellsOf(1, 1, 1);
    cells.active = {0};
    const SaverRun inactive("vtu", {boxOf(cells)}, path("v"), "inactiveCells=false");
    QVERIFY2(inactive.error().contains(QStringLiteral("has no cell to write")), qPrintable(inactive.error()));
    cells.zcorn[3] = none;
    const SaverRun torn("vtu", {boxOf(cells)}, path("w"));
    QVERIFY2(torn.error().contains(QStringLiteral("has no cell to write")), qPrintable(torn.error()));
    QCOMPARE(torn.findings(), QString());
    QCOMPARE(listing(), QString());
}

QTEST_GUILESS_MAIN(VtkTest)
#include "tst_vtk.moc"
