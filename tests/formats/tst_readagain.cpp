// SPDX-License-Identifier: MIT
// Every file that is written can be loaded again: an object of each type that a format takes, through the loader of models,
// has the same places within what the format allows. Cross-sections are drawings in DXF and KML, and come back from OpenTecLink.
#include "model/CellCorners.h"
#include "tests/support/SaverRun.h"

using namespace kpFormats;

namespace
{

using Places = std::vector<std::array<double, 3>>;

/// What is written as a picture, which has no places of its own.
bool isPicture(const QString& format, ObjectType type)
{
    return format == QLatin1String("kml") && (type == ObjectType::GridSurfaces || type == ObjectType::Images);
}

/// In degrees for formats that know no other positions, else in metres.
ModelObject sampleOf(ObjectType type, bool degrees)
{
    const double x0 = degrees ? 117.25 : 500000.25;
    const double y0 = degrees ? -22.5 : 7500000.5;
    const double step = degrees ? 0.125 : 10.0;
    const QString name = QStringLiteral("Sample");
    ModelObject object;
    if (type == ObjectType::GeoCellularVolumes) {
        CellGrid cells = cellsOf(2, 2, 2);
        for (std::size_t index = 0; index < cells.coord.size(); index += 3) {
            cells.coord[index] += x0;
            cells.coord[index + 1] += y0;
        }
        object = boxOf(cells);
    } else if (type == ObjectType::GridSurfaces) {
        object = gridOf(name, 3, {11.5, 12.25, 13, 14, 15.75, 16, 17, 18, 19.5}, x0, y0, step);
    } else if (type == ObjectType::MeshSurfaces) {
        object =
            objectOf(type, name, {{x0, y0, 1.5}, {x0 + step, y0, 2}, {x0, y0 + step, 3.25}, {x0 + step, y0 + step, 4}});
        object.triangles = {{0, 1, 2}, {1, 3, 2}};
    } else {
        const bool one = type == ObjectType::Pins || type == ObjectType::Posts || type == ObjectType::Labels;
        Places rows{{x0, y0, 10.5}};
        if (!one)
            rows.insert(rows.end(), {{x0 + step, y0, 9.25}, {x0 + step, y0 + step, -8}});
        if (type == ObjectType::Polygons)
            rows.push_back(rows.front());
        object = objectOf(type, name, rows);
    }
    object.crs = wktOf(degrees ? QStringLiteral("EPSG:4326") : QStringLiteral("EPSG:28350"));
    return object;
}

/// The places of an object: corners or centres of its cells, vertices with a height.
Places placesOf(const ModelObject& object, bool centres)
{
    Places places;
    for (qint64 cell = 0; object.cells && cell < cellCount(*object.cells); ++cell) {
        if (centres)
            places.push_back(cellCentre(*object.cells, cell));
        for (int corner = 0; !centres && corner < 8; ++corner)
            places.push_back(
                cornerPosition(*object.cells, cellIndex(*object.cells, cell), corner % 2, corner / 2 % 2, corner / 4));
    }
    for (std::array<double, 3>& place : places)
        place[2] = -place[2];
    if (object.cells)
        return places;
    // A format of flat positions may have the heights of points in a column.
    Numbers heights = object.z;
    for (const AttributeColumn& column : object.vertexAttributes) {
        if (!object.hasZ && column.name == QLatin1String("z"))
            heights = column.numbers;
    }
    for (std::size_t vertex = 0; vertex < object.x->size(); ++vertex) {
        if (!std::isnan((*heights)[vertex]))
            places.push_back({(*object.x)[vertex], (*object.y)[vertex], (*heights)[vertex]});
    }
    return places;
}

/// The first of some places that is not among others.
QString missing(const Places& wanted, const Places& among, double flat, double height)
{
    for (const auto& place : wanted) {
        const bool there = std::any_of(among.begin(), among.end(), [&](const auto& other) {
            return std::abs(place[0] - other[0]) <= flat && std::abs(place[1] - other[1]) <= flat
                   && std::abs(place[2] - other[2]) <= height;
        });
        if (!there)
            return QStringLiteral("%1 %2 %3").arg(place[0], 0, 'g', 15).arg(place[1], 0, 'g', 15).arg(place[2]);
    }
    return {};
}

} // namespace

class ReadAgainTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { emptyFolder(); }
    void places_data();
    void places();
    void sections();
};

void ReadAgainTest::places_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("type");
    for (const auto& format : makeFormats()) {
        const FormatInfo info = format->info();
        for (const ObjectType type : info.types) {
            if (!isPicture(info.key, type) && type != ObjectType::CrossSections)
                QTest::newRow(qPrintable(info.key + QLatin1Char(' ') + typeName(type)))
                    << info.key << static_cast<int>(type);
        }
    }
}

void ReadAgainTest::places()
{
    QFETCH(QString, format);
    QFETCH(int, type);
    const bool degrees = format == QLatin1String("kml") || format == QLatin1String("geojson");
    const ModelObject object = sampleOf(static_cast<ObjectType>(type), degrees);
    const SaverRun run(format, {object}, path("sample"));
    QCOMPARE(run.fault(), QString());
    Places read;
    for (const ModelObject& one : loaded(run.files.front().path)) {
        const Places places = placesOf(one, false);
        read.insert(read.end(), places.begin(), places.end());
    }
    Places wanted = placesOf(object, format == QLatin1String("cellcenters"));
    if (run.countOf(QStringLiteral("z dropped")) > 0) {
        for (std::array<double, 3>& place : wanted)
            place[2] = 0.0;
    }
    // What stands in the file is within the allowance; reading rounds once more.
    const double flat = run.readBack.front().allowed().most + 1e-9;
    const double height = run.readBack.front().allowedHeight().most + 1e-9;
    QCOMPARE(missing(wanted, read, flat, height), QString());
    QCOMPARE(missing(read, wanted, flat, height), QString());
}

void ReadAgainTest::sections()
{
    // On a trace with a corner: a line over it, a point, a place before the beginning.
    CrossSection drawn;
    drawn.segments.resize(2);
    drawn.segments[0].name = QStringLiteral("H");
    drawn.segments[0].type = ObjectType::GridSurfaces;
    drawn.segments[0].color = QColor(1, 2, 3);
    drawn.segments[0].distance = {-2, 5, 13};
    drawn.segments[0].x = {-2, 5, 10};
    drawn.segments[0].y = {0, 0, 3};
    drawn.segments[0].z = {-3, -7.25, 4};
    drawn.segments[1].name = QStringLiteral("L");
    drawn.segments[1].type = ObjectType::Wells;
    drawn.segments[1].distance = {10};
    drawn.segments[1].x = {10};
    drawn.segments[1].y = {0};
    drawn.segments[1].z = {1};
    ModelObject section =
        objectOf(ObjectType::CrossSections, QStringLiteral("A"), {{0, 0, 0}, {10, 0, 0}, {10, 10, 0}}, "");
    section.section = std::make_shared<const CrossSection>(drawn);
    const SaverRun run("opentec", {section}, path("sample"), "age=65");
    QCOMPARE(run.fault(), QString());
    Model model;
    const LoadNotes notes = loadInto(model, run.files.front().path);
    const ModelObject& read = model.objects().front();
    QVERIFY(read.type == ObjectType::CrossSections && read.name == QLatin1String("A"));
    QVERIFY(*read.x == *section.x && *read.y == *section.y);
    QCOMPARE(read.objectAttributes.front().value.toDouble(), 65.0);
    QCOMPARE(read.section->segments.size(), std::size_t(2));
    for (std::size_t index = 0; index < 2; ++index) {
        const SectionSegment& wanted = drawn.segments[index];
        const SectionSegment& found = read.section->segments[index];
        QVERIFY(found.name == wanted.name && found.type == wanted.type);
        QVERIFY(found.distance == wanted.distance && found.x == wanted.x && found.y == wanted.y && found.z == wanted.z);
    }
    QCOMPARE(read.section->segments[0].color.name(), QStringLiteral("#010203"));
    QCOMPARE(notes.size(), 1);
    QVERIFY(notes.front().contains(QStringLiteral("1 points lie beyond the ends of the trace")));
}

QTEST_MAIN(ReadAgainTest)
#include "tst_readagain.moc"
