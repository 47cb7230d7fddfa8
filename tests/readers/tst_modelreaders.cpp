// SPDX-License-Identifier: MIT
// Meshes, GOCAD objects and cell grids read into the model: the forms that the formats allow, and files that lie.
#include "readers/LoadError.h"
#include "readers/ModelLoader.h"
#include "tests/support/FileContent.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using namespace kpFormats;

namespace
{

const char smallGrid[] = "SPECGRID\n 1 1 1 1 F /\nCOORD\n 0 0 10 0 0 20 5 0 10 5 0 20\n 0 5 10 0 5 20 5 5 10 5 5 20 /\n"
                         "ZCORN\n 4*10 4*20 /\n";

} // namespace

/// The beginning of a file of VTK's XML.
QByteArray vtkHead(const char* type)
{
    return "<VTKFile type=\"" + QByteArray(type) + "\" byte_order=\"LittleEndian\">\n";
}

/// One with an array of points alone; \a appended are the bytes behind the XML.
QByteArray vtkPoints(const char* count, const char* array, const QByteArray& appended = QByteArray())
{
    return vtkHead("PolyData") + "<PolyData><Piece NumberOfPoints=\"" + count
           + "\">\n<Points><DataArray type=\"Float64\" Name=\"P\" NumberOfComponents=\"3\" " + array
           + "</DataArray></Points></Piece></PolyData>"
           + (appended.isEmpty() ? QByteArray() : "<AppendedData encoding=\"raw\">_" + appended + "</AppendedData>")
           + "</VTKFile>";
}

const QByteArray vtkLegacy = "# vtk DataFile Version 3.0\ntitle\nASCII\nDATASET POLYDATA\n";

class ModelReadersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void off_data();
    void off();
    void obj();
    void gocad();
    void grdecl();
    void grdeclOnTheMap();
    void deck();
    void ply();
    void concaveFaces_data();
    void concaveFaces();
    void hostile_data();
    void hostile();

private:
    Model load(const QString& name, const QByteArray& content, LoadNotes* notes = nullptr);

    QTemporaryDir m_folder;
};

Model ModelReadersTest::load(const QString& name, const QByteArray& content, LoadNotes* notes)
{
    QFile file(m_folder.filePath(name));
    if (file.open(QIODevice::WriteOnly))
        file.write(content);
    file.close();
    Model model;
    const LoadNotes read = loadInto(model, file.fileName());
    if (notes)
        *notes = read;
    return model;
}

void ModelReadersTest::off_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("triangles");
    QTest::addColumn<int>("notes");
    const auto row = [](const char* name, const QByteArray& content, int triangles, int notes) {
        QTest::newRow(name) << content << triangles << notes;
    };
    row("plain", "OFF\n4 1 0\n0 0 0\n1 0 0\n1 1 0\n0 1 0\n4 0 1 2 3\n", 2, 0);
    row("counts beside the keyword, comments, CRLF",
        "OFF 3 1 0\r\n# c\r\n\r\n0 0 0\r\n+1e0 0 0 # c\r\n1 1.5D0 0\r\n3 0 1 2 0.1 0.2 0.3\r\n", 1, 0);
    row("no keyword", "3 1 0\n0 0 0\n1 0 0\n1 1 0\n3 0 1 2", 1, 0);
    row("colours at vertices", "COFF\n3 1 0\n0 0 0 255 0 0 255\n1 0 0 255 0 0 255\n1 1 0 0 0 0 0\n3 2 1 0\n", 1, 0);
    row("an edge among the faces, text at the end", "OFF\n3 2 0\n0 0 0\n1 0 0\n1 1 0\n2 0 1\n3 0 1 2\nmore\n", 1, 2);
    row("points only", "OFF\n1 0 0\n7 8 9\n", 0, 0);
}

void ModelReadersTest::off()
{
    QFETCH(QByteArray, content);
    QFETCH(int, triangles);
    QFETCH(int, notes);
    LoadNotes seen;
    const Model model = load(QStringLiteral("mesh.off"), content, &seen);
    QCOMPARE(model.objects().size(), std::size_t(1));
    QCOMPARE(model.objects().front().type, ObjectType::MeshSurfaces);
    QCOMPARE(static_cast<int>(model.objects().front().triangles.size()), triangles);
    QCOMPARE(seen.size(), notes);
}

void ModelReadersTest::obj()
{
    LoadNotes notes;
    const Model model = load(QStringLiteral("m.obj"),
                             "v 9 9 9\no first\nv 0 0 0\nv 1 0 0 1.0\nv 1 1 0\nvn 0 0 1\nf 2/1/1 3//1 4\n"
                             "o nothing\no second one\nv 0 1 5\nf -1 -2 -3 2\nl 1 2\n",
                             &notes);
    QCOMPARE(model.objects().size(), std::size_t(2));
    QCOMPARE(model.objects()[0].name, QStringLiteral("first"));
    QCOMPARE(model.objects()[0].vertexCount(), 3); // the unused one is left out
    QCOMPARE(model.objects()[1].name, QStringLiteral("second one"));
    QCOMPARE(model.objects()[1].triangles.size(), std::size_t(2));
    QCOMPARE(model.objects()[1].z->front(), 5.0);
    QCOMPARE(notes.size(), 1);
}

void ModelReadersTest::gocad()
{
    // Depths become elevations; an ATOM shares a place; lines without SEG go from vertex to vertex; a volume is noted.
    LoadNotes notes;
    const Model model =
        load(QStringLiteral("m.gp"),
             "GOCAD TSurf 1\nHEADER {\nname:depth surf\n*solid*color:1 0.5 0 1\n}\n"
             "GOCAD_ORIGINAL_COORDINATE_SYSTEM\nNAME Default\nAXIS_UNIT \"ft\" \"ft\" \"ft\"\nZPOSITIVE Depth\n"
             "END_ORIGINAL_COORDINATE_SYSTEM\nPROPERTIES \"Cu ppm\" vec\nESIZES 1 2\nNO_DATA_VALUES -99999 "
             "-99999\nUNITS none m\n"
             "PROPERTY_CLASS_HEADER vec {\npclip:99\n}\nTFACE\n"
             "PVRTX 1 0 0 100 1.5 0 1\nPVRTX 5 1 0 100 -99999 2 3\nPVRTX 9 0 1 110 2.5 4 5\nATOM 10 1\n"
             "TRGL 1 5 9\nTRGL 5 10 9\nBSTONE 1\nBORDER 11 1 5\nEND\n"
             "# between\nGOCAD PLine 1.0\nHEADER {name: implicit }\nILINE\nVRTX 1 0 0 0 CNXYZ\nVRTX 2 1 0 "
             "0\nILINE\nVRTX 1 5 5 5\nVRTX 2 6 5 5\nVRTX 3 7 5 5\nEND\n"
             "GOCAD Voxet 1\nHEADER {name:vox}\nEND\n",
             &notes);
    QCOMPARE(model.objects().size(), std::size_t(2));
    const ModelObject& surface = model.objects()[0];
    QCOMPARE(surface.name, QStringLiteral("depth surf"));
    QCOMPARE(surface.color.name(), QStringLiteral("#ff8000"));
    QCOMPARE(surface.lengthUnit, QStringLiteral("ft"));
    QCOMPARE(surface.vertexCount(), 4);
    QCOMPARE(surface.z->at(2), -110.0);
    QCOMPARE(surface.triangles[1], (std::array<int, 3>{1, 3, 2}));
    QCOMPARE(surface.vertexAttributes[0].name, QStringLiteral("Cu ppm"));
    QCOMPARE(int((*surface.vertexAttributes[0].missing)[1]), 1);
    QCOMPARE(surface.vertexAttributes[1].name, QStringLiteral("vec_1"));
    QCOMPARE(surface.vertexAttributes[1].numbers->at(3), 0.0);
    QCOMPARE(surface.vertexAttributes[2].name, QStringLiteral("vec_2"));
    QCOMPARE(surface.vertexAttributes[2].unit, QStringLiteral("m"));
    QCOMPARE(*surface.vertexAttributes[2].numbers, (std::vector<double>{1, 3, 5, 1}));
    QCOMPARE(model.objects()[1].parts.size(), std::size_t(2));
    QCOMPARE(model.objects()[1].parts[1].count, 3);
    QCOMPARE(notes.size(), 2);
    QVERIFY(notes[0].contains(QStringLiteral("2 marks of borders")));
    QVERIFY(notes[1].contains(QStringLiteral("1 objects of other types were left out: Voxet")));
}

void ModelReadersTest::grdecl()
{
    // Comments, text behind the slash, defaults, a keyword without data, words that look like keywords.
    LoadNotes notes;
    const QByteArray content = QByteArray("NOECHO\n\n-- a comment / with a slash\nGDORIENT\nINC INC INC DOWN LEFT /\n")
                               + smallGrid
                               + "PORO -- porosity\n 0.2 / the end\nSATNUM\n1* /\nREGION\n7/\nACTNUM\n0 /\nFAULTS\n "
                                 "'F1' 1 1 1 1 1 1 I /\n/\nPORO\n2.5D-1 /\n";
    const Model model = load(QStringLiteral("g.grdecl"), content, &notes);
    const ModelObject& grid = model.objects().front();
    QCOMPARE(grid.type, ObjectType::GeoCellularVolumes);
    QCOMPARE(grid.vertexCount(), 8);
    QCOMPARE(grid.z->front(), -10.0);
    QCOMPARE(grid.z->back(), -20.0);
    QCOMPARE(grid.cells->active, std::vector<int>{0});
    const auto& attributes = grid.cells->cellAttributes;
    QCOMPARE(attributes.size(), std::size_t(3));
    QCOMPARE(attributes[0].numbers->front(), 0.25);
    QCOMPARE(attributes[1].kind, AttributeKind::Integer);
    QVERIFY(attributes[1].values.front().isNull());
    QCOMPARE(attributes[2].values.front().toInt(), 7);
    QCOMPARE(notes.size(), 1);
    QVERIFY2(notes.front().endsWith(QStringLiteral("passed over: FAULTS")), qPrintable(notes.front()));
}

void ModelReadersTest::grdeclOnTheMap()
{
    // A quarter turn about (100, 200), feet on the map, metres in the grid; then positions that are on the map already.
    const QByteArray axes = "MAPUNITS\n'FEET' /\nMAPAXES\n 90 200 100 200 100 210 /\n";
    const Model turned = load(QStringLiteral("t.grdecl"), axes + "GRIDUNIT\n'METRES' /\n" + smallGrid);
    QCOMPARE(turned.objects().front().lengthUnit, QStringLiteral("m"));
    // The second pillar lies 5 along the grid's x, which points north.
    QCOMPARE(turned.objects().front().x->at(1), 30.48);
    QCOMPARE(turned.objects().front().y->at(1), 65.96);
    const Model there = load(QStringLiteral("t.grdecl"), axes + "GRIDUNIT\n'FEET' 'MAP' /\n" + smallGrid);
    QCOMPARE(there.objects().front().x->at(1), 5.0);
    QCOMPARE(there.objects().front().lengthUnit, QStringLiteral("ft"));
}

void ModelReadersTest::deck()
{
    // A deck: a title that looks like keywords, its unit, the grid in another file, z upwards, what is not a grid behind it.
    QDir(m_folder.path()).mkdir(QStringLiteral("inc"));
    writeFile(m_folder.filePath(QStringLiteral("inc/grid.inc")), QByteArray(smallGrid) + "PORO\n0.25 /");
    LoadNotes notes;
    const Model model = load(QStringLiteral("M.DATA"),
                             "RUNSPEC\nTITLE\nCOORD OF A MODEL\nFIELD\nDIMENS\n 1 1 1 /\nGRID\n"
                             "GDORIENT\n INC INC INC UP LEFT /\nINCLUDE\n 'inc/grid.inc' /\nSCHEDULE\nCOORD\n",
                             &notes);
    const ModelObject& grid = model.objects().front();
    QCOMPARE(grid.lengthUnit, QStringLiteral("ft"));
    QCOMPARE(grid.cells->zcorn.front(), -10.0);
    QCOMPARE(grid.cells->cellAttributes.front().numbers->front(), 0.25);
    QVERIFY2(notes.join(QString()).contains(QStringLiteral("its z counts upwards")), qPrintable(notes.join(QString())));
    QVERIFY_EXCEPTION_THROWN(load(QStringLiteral("m.data"), "INCLUDE\n 'nothing.inc' /\n"), LoadError);
    QVERIFY_EXCEPTION_THROWN(load(QStringLiteral("m.data"), "INCLUDE\n 'm.data' /\n"), LoadError);
}

void ModelReadersTest::ply()
{
    const QString seeds = QStringLiteral(KP_SOURCE_DIR "/tests/fuzz/corpus/ply/");
    Model model;
    const LoadNotes notes = loadInto(model, seeds + QStringLiteral("text.ply"));
    QCOMPARE(notes.join(QLatin1Char('|')).replace(seeds, QString()),
             QStringLiteral("text.ply: 1 elements called edge were left out|"
                            "text.ply: 1 faces with fewer than three corners were left out"));
    const ModelObject& mesh = model.objects().front();
    QCOMPARE(mesh.name, QStringLiteral("cube corner"));
    QCOMPARE(mesh.color, QColor(1, 2, 3));
    QCOMPARE(*mesh.z, (std::vector<double>{300, 300, 300, 301}));
    QCOMPARE(mesh.triangles, (std::vector<std::array<int, 3>>{{0, 1, 2}, {0, 2, 3}}));
    QCOMPARE(mesh.vertexAttributes.size(), std::size_t(1));
    QCOMPARE(mesh.vertexAttributes[0].unit, QStringLiteral("g/t"));
    QCOMPARE((*mesh.vertexAttributes[0].missing)[1], static_cast<unsigned char>(1));
    // Either order of bytes says the same.
    for (const char* name : {"little.ply", "big.ply"}) {
        Model binary;
        QVERIFY(loadInto(binary, seeds + QLatin1String(name)).isEmpty());
        const ModelObject& object = binary.objects().front();
        QCOMPARE(*object.z, (std::vector<double>{0, 0, 5}));
        QCOMPARE(object.vertexAttributes[0].values, (QVector<QVariant>{1, -2, 3}));
        QCOMPARE(object.triangles.size(), std::size_t(1));
    }
}

void ModelReadersTest::concaveFaces_data()
{
    QTest::addColumn<QByteArray>("corners");
    QTest::addColumn<double>("area");
    QTest::newRow("a dent") << QByteArray("0 0 0\n10 0 0\n10 9 0\n5 3 0\n0 9 0\n") << 60.0;
    QTest::newRow("a dent, from below") << QByteArray("0 9 0\n5 3 0\n10 9 0\n10 0 0\n0 0 0\n") << 60.0;
    QTest::newRow("upright") << QByteArray("7 0 0\n7 10 0\n7 10 9\n7 5 3\n7 0 9\n") << 60.0;
    QTest::newRow("corners on a line") << QByteArray("0 0 0\n5 0 0\n10 0 0\n10 9 0\n5 3 0\n0 9 0\n") << 60.0;
    QTest::newRow("convex") << QByteArray("0 0 0\n10 0 0\n10 6 0\n0 6 0\n") << 60.0;
}

void ModelReadersTest::concaveFaces()
{
    QFETCH(QByteArray, corners);
    QFETCH(double, area);
    const int count = corners.count('\n');
    QByteArray text = "OFF\n" + QByteArray::number(count) + " 1 0\n" + corners + QByteArray::number(count);
    for (int corner = 0; corner < count; ++corner)
        text += ' ' + QByteArray::number(corner);
    const Model model = load(QStringLiteral("c.off"), text);
    const ModelObject& mesh = model.objects().front();
    QCOMPARE(static_cast<int>(mesh.triangles.size()), count - 2);
    double found = 0;
    for (const auto& triangle : mesh.triangles) {
        const auto at = [&](const Numbers& axis, int corner) {
            return (*axis)[static_cast<std::size_t>(triangle[static_cast<std::size_t>(corner)])];
        };
        const auto side = [&](const Numbers& axis, int corner) { return at(axis, corner) - at(axis, 0); };
        const double nx = side(mesh.y, 1) * side(mesh.z, 2) - side(mesh.z, 1) * side(mesh.y, 2);
        const double ny = side(mesh.z, 1) * side(mesh.x, 2) - side(mesh.x, 1) * side(mesh.z, 2);
        const double nz = side(mesh.x, 1) * side(mesh.y, 2) - side(mesh.y, 1) * side(mesh.x, 2);
        found += std::sqrt(nx * nx + ny * ny + nz * nz) / 2;
    }
    QCOMPARE(found, area);
}

void ModelReadersTest::hostile_data()
{
    const QByteArray plyHead =
        "ply\nformat ascii 1.0\nelement vertex 3\nproperty float x\nproperty float y\nproperty float z\n";
    const QByteArray plyFaces = plyHead + "element face 1\nproperty list int int vertex_indices\nend_header\n";
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* title, const char* name, const QByteArray& content, const char* message) {
        QTest::newRow(title) << QString::fromLatin1(name) << content << QString::fromLatin1(message);
    };
    row("off, empty", "a.off", "", "it is empty");
    row("off, count of faces lies", "a.off", "OFF\n3 2000000000 0\n0 0 0\n1 0 0\n1 1 0\n3 0 1 2\n",
        "after line 6: it has 1 of 2000000000 faces");
    row("off, count of vertices lies", "a.off", "OFF\n2000000000 1 0\n0 0 0\n", "it has 1 of 2000000000 vertices");
    row("off, count beyond all", "a.off", "OFF\n99999999999 1 0\n", "line 2: 99999999999 vertices are not possible");
    row("off, negative count", "a.off", "OFF\n-3 1 0\n", "line 2: -3 vertices");
    row("off, no such vertex", "a.off", "OFF\n3 1 0\n0 0 0\n1 0 0\n1 1 0\n3 0 1 3\n",
        "line 6: there is no vertex 3, only 0 to 2");
    row("off, corners lie", "a.off", "OFF\n3 1 0\n0 0 0\n1 0 0\n1 1 0\n900000000000 0 1 2\n",
        "line 6: the face has 3 of its 900000000000 corners");
    row("off, no number", "a.off", "OFF\n3 1 0\n0 0 zero\n", "line 3: \"zero\" is not a number");
    row("off, no finite number", "a.off", "OFF\n3 1 0\n0 0 nan\n", "line 3: \"nan\" is not a number");
    row("off, huge number", "a.off", "OFF\n3 1 0\n0 0 1e999\n", "line 3: \"1e999\" is beyond");
    row("off, four dimensions", "a.off", "4OFF\n1 0 0\n1 1 1 1\n", "other than three dimensions");
    row("off, binary", "a.off", QByteArray("OFF BINARY\n\0\0", 13), "binary OFF");
    row("off, zeros", "a.off", QByteArray(100000, '\0'), "line 1: this is a binary file");
    row("off, no line end", "a.off", QByteArray(20 << 20, 'x'), "line 1: the line does not end");
    row("obj, no such vertex", "a.obj", "v 0 0 0\nf 1 1 2\n", "line 2: there is no vertex 2, only 1 so far");
    row("obj, zero", "a.obj", "v 0 0 0\nf 0 1 1\n", "line 2: there is no vertex 0");
    row("obj, far back", "a.obj", "v 0 0 0\nf -2 1 1\n", "line 2: there is no vertex -2");
    row("obj, two corners", "a.obj", "v 0 0 0\nf 1 1\n", "line 2: a face needs three corners");
    row("obj, nothing", "a.obj", "# x\n", "there is no face");
    row("ply, empty", "a.ply", "", "line 1: the header does not end");
    row("ply, no format", "a.ply", "ply\nend_header\n", "line 2: the header has no format");
    row("ply, another format", "a.ply", "ply\nformat morse 1.0\n", "line 2: \"morse\" is no format");
    row("ply, type", "a.ply", plyHead + "property complex c\n", "line 7: \"complex\" is no type");
    row("ply, count beyond all", "a.ply", "ply\nformat ascii 1.0\nelement vertex 99999999999\n",
        "line 3: 99999999999 rows are more");
    row("ply, rows of nothing", "a.ply", "ply\nformat binary_big_endian 1.0\nelement v 2000000000\nend_header\n",
        "the element v has no properties");
    row("ply, no z", "a.ply", "ply\nformat ascii 1.0\nelement vertex 1\nproperty int x\nend_header\n1\n",
        "no x, y and z");
    row("ply, no vertex", "a.ply", "ply\nformat ascii 1.0\nend_header\n", "there is no vertex");
    row("ply, cut short", "a.ply", plyHead + "end_header\n0 0 0\n", "after line 8: it has fewer rows");
    row("ply, half a row", "a.ply", plyHead + "end_header\n0 0\n", "line 8: the row has fewer values");
    row("ply, coordinate missing", "a.ply", plyHead + "end_header\n0 0 nan\n",
        "vertex 1: a coordinate is not a number");
    row("ply, bytes missing", "a.ply", QByteArray(plyHead).replace("ascii", "binary_little_endian") + "end_header\n12",
        "byte 118: it has fewer rows");
    row("ply, no such vertex", "a.ply", plyFaces + "0 0 0\n0 1 0\n1 1 0\n3 0 1 3\n",
        "face 1: there is no vertex 3, only 0 to 2");
    row("ply, a list that lies", "a.ply", plyFaces + "0 0 0\n0 1 0\n1 1 0\n2000000000 0 1 2\n",
        "line 13: the row has fewer");
    row("vtk, no XML", "a.vtp", "hello", "line 1: it is no XML");
    row("vtk, other XML", "a.vtp", "<kml/>", "line 1: it does not begin with the element VTKFile");
    row("vtk, other data", "a.vtu", vtkHead("Table"), "a data set of type \"Table\" is not read");
    row("vtk, compressor", "a.vtp", "<VTKFile type=\"PolyData\" compressor=\"vtkLZ4DataCompressor\">",
        "it is compressed by vtkLZ4DataCompressor");
    row("vtk, nothing", "a.vtp", vtkHead("PolyData") + "<PolyData/></VTKFile>", "there is no piece");
    row("vtk, points lie", "a.vtp", vtkPoints("2", "format=\"ascii\">0 0 0"), "line 2: it has 1 of 2 points");
    row("vtk, no number", "a.vtp", vtkPoints("1", "format=\"ascii\">0 0 x"),
        "line 3: the array \"P\": \"x\" is not a number");
    row("vtk, behind the end", "a.vtp", vtkPoints("1", "format=\"appended\" offset=\"999999\">", "abc"),
        "line 3: the array \"P\": it begins behind the end");
    row("vtk, size lies", "a.vtp",
        vtkPoints("1", "format=\"appended\" offset=\"0\">", QByteArray("\xff\xff\xff\x7f", 4)),
        "line 3: the array \"P\": its size of 2147483647 bytes is more");
    row("vtk, cut short", "a.vtp", vtkPoints("1", "format=\"appended\" offset=\"0\">", QByteArray("\x78\0\0\0abc", 7)),
        "line 3: the array \"P\": the file ends within it");
    row("vtk, cell outside", "a.vtp",
        vtkPoints("1", "format=\"ascii\">0 0 0")
            .replace("</Piece>", "<Verts><DataArray type=\"Int64\" Name=\"connectivity\">5</DataArray>"
                                 "<DataArray type=\"Int64\" Name=\"offsets\">1</DataArray></Verts></Piece>"),
        "line 2: a cell has a point that is not there");
    row("vtk, extent", "a.vti",
        vtkHead("ImageData") + "<ImageData><Piece Extent=\"0 9999999 0 9999999 0 0\"/></ImageData>",
        "it has more points than an object can have");
    row("vtk legacy, no data", "a.vtk", "# vtk DataFile Version 3.0\n\nASCII\n", "there is no DATASET");
    row("vtk legacy, count lies", "a.vtk", vtkLegacy + "POINTS 2000000000 float\n0 0 0\n", "the file ends too early");
    row("vtk legacy, cells lie", "a.vtk", vtkLegacy + "POINTS 1 float\n0 0 0\nVERTICES 1 2\n9 0\n",
        "cell 1 has other corners");
    row("vtk legacy, word", "a.vtk", vtkLegacy + "HELLO\n", "byte 63: \"HELLO\" is no word");
    row("gocad, other text", "a.ts", "hello\n", "line 1: \"hello\" stands where an object should begin");
    row("gocad, cut short", "a.ts", "GOCAD VSet 1\nHEADER {name:x}\nVRTX 1 2 3 4\n",
        "after line 3: the object x has no END");
    row("gocad, open header", "a.ts", "GOCAD VSet 1\nHEADER {\nname:x\n", "the header does not end");
    row("gocad, no such vertex", "a.ts", "GOCAD TSurf 1\nVRTX 1 0 0 0\nTRGL 1 2 1\nEND\n",
        "line 3: there is no vertex 2 before it");
    row("gocad, atom of itself", "a.ts", "GOCAD TSurf 1\nATOM 1 2\nEND\n", "line 2: there is no vertex 2");
    row("gocad, missing value", "a.ts", "GOCAD VSet 1\nPROPERTIES a b\nPVRTX 1 0 0 0 1\nEND\n",
        "line 3: a property's value is missing");
    row("gocad, size of a property lies", "a.ts",
        "GOCAD VSet 1\nPROPERTIES a\nESIZES 999999999999\nPVRTX 1 0 0 0 1\nEND\n",
        "line 3: a property has 999999999999 numbers");
    row("gocad, triangles of a line", "a.pl",
        "GOCAD PLine 1\nVRTX 1 0 0 0\nVRTX 2 1 0 0\nVRTX 3 0 1 0\nTRGL 1 2 3\nEND\n",
        "line 5: a PLine has no such line");
    row("gocad, a line without runs", "a.pl", "GOCAD PLine 1\nHEADER {name:x}\nVRTX 1 0 0 0\nVRTX 2 1 0 0\nEND\n",
        "line 5: the line x has vertices but neither ILINE nor SEG");
    row("gocad, only a volume", "a.ts", "GOCAD Voxet 1\nEND\n", "there is no vertex set, line, surface or well");
    row("gxf, numbers in quotes", "a.dat", "! x\n#POINTS\n\"2\"\n#ROWS\n\"2\"\n#GRID\n1 2 3 4\n",
        "this is a grid in GXF that GDAL does not read");
    row("grdecl, nothing", "a.grdecl", "NOECHO\n", "there is no corner-point grid");
    row("grdecl, size lies", "a.grdecl", "SPECGRID\n 100000 100000 100000 1 F /\n",
        "line 2: the grid would have 1000000000000000 cells");
    row("grdecl, negative size", "a.grdecl", "SPECGRID\n -1 1 1 1 F /\n", "line 2: a grid cannot have -1 cells");
    row("grdecl, no size", "a.grdecl", "SPECGRID\n 1 1 /\n", "line 2: SPECGRID needs three numbers");
    row("grdecl, radial", "a.grdecl", "SPECGRID\n 1 1 1 1 T /\n", "the grid is radial");
    row("grdecl, no size before", "a.grdecl", "COORD\n 24*0 /\n", "line 1: COORD comes before the grid's size");
    row("grdecl, repeat lies", "a.grdecl", "SPECGRID\n 1 1 1 1 F /\nCOORD\n 24*0 /\nZCORN\n 9000000000000000000*1 /\n",
        "line 6: ZCORN has more than 8 numbers");
    row("grdecl, repeat of nothing", "a.grdecl", "SPECGRID\n 1 1 1 1 F /\nCOORD\n 0*1 /\n",
        "line 4: \"0*1\" repeats a number less than once");
    row("grdecl, too few", "a.grdecl", "SPECGRID\n 1 1 1 1 F /\nCOORD\n 23*0 /\n",
        "line 4: COORD has 23 of 24 numbers");
    row("grdecl, cut short", "a.grdecl", "SPECGRID\n 1 1 1 1 F /\nCOORD\n 1 2 3\n",
        "after line 4: COORD has 3 of 24 numbers");
    row("grdecl, default", "a.grdecl", "SPECGRID\n 1 1 1 1 F /\nCOORD\n 24* /\n", "COORD has defaults");
    row("grdecl, word", "a.grdecl", "SPECGRID\n 1 1 1 1 F /\nCOORD\n 23*0 x /\n", "line 4: \"x\" is not a number");
    row("grdecl, axis of no length", "a.grdecl", "MAPAXES\n 6*1 /\n", "line 2: MAPAXES has an axis of no length");
    row("grdecl, unit", "a.grdecl", "GRIDUNIT\n 'FURLONGS' /\n", "is not a known unit");
    row("grdecl, quotes", "a.grdecl", "MAPUNITS\n 'METRES /\n", "line 2: a text in quotes does not end");
    row("grdecl, second grid", "a.grdecl", QByteArray(smallGrid) + "SPECGRID\n 2 1 1 1 F /\n", "a second grid begins");
}

void ModelReadersTest::hostile()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    try {
        load(name, content);
        QFAIL("it was read");
    } catch (const LoadError& error) {
        const QString said = QString::fromUtf8(error.what());
        QVERIFY2(said.contains(message), qPrintable(said));
        QVERIFY(said.startsWith(m_folder.filePath(name)) && said.endsWith(QLatin1Char(')')));
    }
}

QTEST_GUILESS_MAIN(ModelReadersTest)
#include "tst_modelreaders.moc"
