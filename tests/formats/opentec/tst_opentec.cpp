// SPDX-License-Identifier: MIT
#include "model/SectionCutter.h"
#include "readers/LoadError.h"
#include "readers/OpenTecReader.h"
#include "tests/support/SaverRun.h"
#include "tests/support/TextRows.h"

#include <cmath>

using namespace kpFormats;

namespace
{

ModelObject section(const QString& name, std::vector<SectionSegment> segments,
                    const std::vector<std::array<double, 3>>& trace = {{1000, 2000, 0}, {1500, 2000, 0}})
{
    ModelObject object = objectOf(ObjectType::CrossSections, name, trace, "");
    object.hasZ = false;
    auto drawing = std::make_shared<CrossSection>();
    drawing->segments = std::move(segments);
    object.section = drawing;
    return object;
}

SectionSegment segment(const QString& name, std::vector<double> distance, std::vector<double> z)
{
    const std::vector<double> x(distance.size(), 0.0);
    return {name, ObjectType::GridSurfaces, QColor(255, 0, 0), std::move(distance), x, x, std::move(z)};
}

const QByteArray head = "version 1.0\n\nunit_z_depth meter\nunit_xy_section_position meter\n\nxy_section_position\n";

} // namespace

class OpenTecTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { emptyFolder(); }
    void wholeFile();
    void settings();
    void hardNames();
    void severalSections();
    void wrongNames();
    void readerRefuses_data();
    void readerRefuses();
    void cutGrid();
    void cutTurnedGrid();
    void cutMesh();
    void cutLines();
    void sectionsOfModelFile();
    void wrongSections_data();
    void wrongSections();
};

void OpenTecTest::wholeFile()
{
    const SaverRun run("opentec",
                       {section(QStringLiteral("A"),
                                {segment(QStringLiteral("H1"), {0, 500}, {-150, 0}),
                                 segment(QStringLiteral("F"), {250}, {12.125}), segment(QStringLiteral("E"), {}, {})})},
                       path("a"));
    QCOMPARE(run.fault() + run.findings(), QString());
    QCOMPARE(run.files.front().path, path("a.otl"));
    QCOMPARE(run.rows(), 3);
    QCOMPARE(run.bytes(),
             head
                 + "xy 1000.00 2000.00 \nxy 1500.00 2000.00 \nxy_section_position-end\n\nopen_tec_link_section "
                   "A\n\nsection_age 0.00\n\n"
                   "segment\nname H1\ncolor_rgb #ff0000\ntype Grid Surfaces\npoints\nxyz 0.00 0.00 150.00\nxyz 500.00 "
                   "0.00 -0.00\npoints-end\nsegment-end\n\n"
                   "segment\nname F\ncolor_rgb #ff0000\ntype Grid Surfaces\npoints\nxyz 250.00 0.00 "
                   "-12.12\npoints-end\nsegment-end\n\n"
                   "segment\nname E\ncolor_rgb #ff0000\ntype Grid Surfaces\npoints\npoints-end\nsegment-end\n\n"
                   "open_tec_link_section-end\n\n");
}

void OpenTecTest::settings()
{
    ModelObject feet = section(QStringLiteral("A"), {segment(QStringLiteral("H"), {0, none, 100}, {-10, -20, -30})});
    feet.lengthUnit = QStringLiteral("ft");
    const SaverRun metres("opentec", {feet}, path("m.otl"), "decimals=4;age=65.5");
    QCOMPARE(metres.fault(), QString());
    QCOMPARE(metres.findings(), QStringLiteral("position left out: 1"));
    const QByteArray text = metres.bytes();
    QVERIFY(text.contains("xy 304.8000 609.6000 \n") && text.contains("section_age 65.5000\n"));
    QVERIFY(text.contains("points\nxyz 0.0000 0.0000 3.0480\nxyz 30.4800 0.0000 9.1440\npoints-end"));
    const SaverRun own("opentec", {feet}, path("f.otl"), "lengthUnit=model;decimals=0");
    QCOMPARE(own.fault(), QString());
    QCOMPARE(own.findings(), QStringLiteral("unit not stated: 1, position left out: 1"));
    QVERIFY(own.bytes().contains("xy 1000 2000 \n"));
    const SaverRun bare("opentec", {section(QStringLiteral("A"), {})}, path("b.otl"));
    QCOMPARE(bare.fault(), QString());
    QCOMPARE(bare.findings(), QStringLiteral("section without lines: 1"));
    QCOMPARE(bare.bytes(), head + "xy 1000.00 2000.00 \nxy 1500.00 2000.00 \nxy_section_position-end\n\n");
}

void OpenTecTest::hardNames()
{
    const QString hard = QString::fromUtf8("Разлом 斷層 ]]> & \"q\"");
    const SaverRun run("opentec",
                       {section(hard + QStringLiteral("\r\npoints-end"),
                                {segment(hard, {0, 1}, {0, 1}), segment(QStringLiteral("a\nsegment-end"), {0}, {0})})},
                       path("a.otl"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.findings(), QStringLiteral("renamed: 1, renamed: 1"));
    const OpenTecSection read = readOpenTec(path("a.otl"));
    QCOMPARE(read.name, hard + QStringLiteral("  points-end"));
    QCOMPARE(read.segments[0].name, hard);
    QCOMPARE(read.segments[1].name, QStringLiteral("a segment-end"));
}

void OpenTecTest::severalSections()
{
    const std::vector<SectionSegment> line{segment(QStringLiteral("H"), {0, 1}, {0, 1})};
    const std::vector<ModelObject> sections{section(QStringLiteral("A"), line),
                                            section(QStringLiteral("B"), line, {{7, 8, 0}, {9, 8, 0}}),
                                            section(QStringLiteral("C"), line)};
    QCOMPARE(SaverRun("opentec", sections, path("o.otl"), "sections=A, B;traceLine=B").fault(), QString());
    QCOMPARE(listing(), QStringLiteral("o_A.otl o_B.otl"));
    for (const char* name : {"o_A.otl", "o_B.otl"})
        QVERIFY(contentOf(path(name)).startsWith(head + "xy 7.00 8.00 \nxy 9.00 8.00 \n"));
    QCOMPARE(SaverRun("opentec", sections, path("c.otl"), "sections=C").fault(), QString());
    QVERIFY(contentOf(path("c.otl")).contains("open_tec_link_section C\n"));
    const std::vector<ModelObject> commas{section(QStringLiteral("A, B"), {}), section(QStringLiteral("B"), {}),
                                          section(QStringLiteral("C"), {})};
    QCOMPARE(SaverRun("opentec", commas, path("n.otl"), "sections=C,A, B").files.size(), std::size_t(2));
}

void OpenTecTest::wrongNames()
{
    for (const char* settings : {"sections=X", "traceLine=X"})
        QCOMPARE(SaverRun("opentec", {section(QStringLiteral("A"), {})}, path("a.otl"), settings).error(),
                 QStringLiteral("there is no section \"X\" among those chosen (there are: A)"));
    QVERIFY(listing().isEmpty());
}

void OpenTecTest::readerRefuses_data()
{
    textRows({"from", "to", "message"},
             {{"points-end\n", "", "line 22: \"points-end\" is due here"},
              {"xyz 0.00 0.00 150.00", "xyz 0.00 150.00", "line 20: there are 2 numbers where 3 are due"},
              {"150.00", "nan", "line 20: \"nan\" is not a number"},
              {"open_tec_link_section-end\n", "", "line 25: \"open_tec_link_section-end\" is due here"},
              {"section_age 0.00\n", "", "line 14: \"section_age\" is due here"}});
}

void OpenTecTest::readerRefuses()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, message);
    const ModelObject object = section(QStringLiteral("A"), {segment(QStringLiteral("H"), {0, 5}, {-150, 0})});
    const SaverRun run("opentec", {object}, path("a.otl"));
    QCOMPARE(run.fault(), QString());
    const QString found = run.damaged(from.toUtf8(), to.toUtf8()).fault();
    QVERIFY2(found.contains(message), qPrintable(found));
}

void OpenTecTest::cutGrid()
{
    // On a plane every sample is exact; a node without value splits the line in two.
    std::vector<double> heights;
    for (int node = 0; node < 100; ++node)
        heights.push_back(100 + 2 * (node % 10) + 3 * (node / 10));
    heights[55] = none;
    const SectionCutter cutter({-2, 9, 9}, {5.0, 5.0, 20});
    const std::vector<SectionSegment> segments = cutter.cut(gridOf(QStringLiteral("G"), 10, heights));
    QCOMPARE(static_cast<int>(segments.size()), 2);
    for (const SectionSegment& one : segments) {
        for (std::size_t at = 0; at < one.z.size(); ++at)
            QVERIFY(std::abs(one.z[at] - (100 + 2 * one.x[at] + 3 * one.y[at])) < 1e-9);
    }
    QCOMPARE(segments[0].x.front(), 0.0);
    QCOMPARE(segments[0].distance.front(), 2.0);
    QCOMPARE(segments[0].x.back(), 4.0);
    // Round the corner of the trace, to the northern edge.
    QCOMPARE(segments[1].x.front(), 6.0);
    QCOMPARE(segments[1].y.back(), 9.0);
    QCOMPARE(segments[1].distance.back(), 15.0);
}

void OpenTecTest::cutTurnedGrid()
{
    // Turned by 90 degrees: columns run north, rows run west.
    ModelObject grid = gridOf(QStringLiteral("G"), 3, {0, 1, 2, 10, 11, 12});
    grid.grid->rotation = 90;
    const std::vector<SectionSegment> segments = SectionCutter({-0.5, -0.5}, {-1, 5}).cut(grid);
    QCOMPARE(static_cast<int>(segments.size()), 1);
    for (std::size_t at = 0; at < segments[0].z.size(); ++at)
        QVERIFY(std::abs(segments[0].z[at] - (5 + segments[0].y[at])) < 1e-9);
    QCOMPARE(segments[0].y.back(), 2.0);
}

void OpenTecTest::cutMesh()
{
    // A strip of a plane, cut lengthwise through a bend of the trace inside a triangle, and a second patch apart.
    ModelObject mesh = objectOf(QStringLiteral("M"), ObjectType::MeshSurfaces, {0, 10, 10, 0, 20, 20, 30, 40, 30},
                                {0, 0, 10, 10, 0, 10, 0, 0, 10}, {0, 10, 30, 20, 20, 40, 1, 1, 1});
    mesh.triangles = {{0, 1, 2}, {0, 2, 3}, {1, 4, 5}, {1, 5, 2}, {6, 7, 8}};
    const std::vector<SectionSegment> segments = SectionCutter({-5, 8, 50}, {4, 5, 5}).cut(mesh);
    QCOMPARE(static_cast<int>(segments.size()), 2);
    const SectionSegment& strip = segments[0].x.front() < 15 ? segments[0] : segments[1];
    const SectionSegment& patch = segments[0].x.front() < 15 ? segments[1] : segments[0];
    QVERIFY(std::abs(strip.x.front()) < 1e-9 && std::abs(strip.x.back() - 20) < 1e-9);
    bool bend = false;
    for (std::size_t at = 0; at < strip.z.size(); ++at) {
        QVERIFY(std::abs(strip.z[at] - (strip.x[at] + 2 * strip.y[at])) < 1e-9);
        QVERIFY(at == 0 || strip.distance[at] >= strip.distance[at - 1]);
        bend = bend || (std::abs(strip.x[at] - 8) < 1e-9 && std::abs(strip.y[at] - 5) < 1e-9);
    }
    QVERIFY(bend);
    QVERIFY(std::abs(patch.x.front() - 30) < 1e-9 && std::abs(patch.x.back() - 35) < 1e-9);
    // Without heights there is nothing to draw.
    mesh.hasZ = false;
    QVERIFY(SectionCutter({-5, 50}, {4, 5}).cut(mesh).empty());
}

void OpenTecTest::cutLines()
{
    // Crosses the trace twice, the second time through the point where its legs meet, which counts once.
    const ModelObject line =
        objectOf(ObjectType::Polylines, QStringLiteral("F"),
                 {{2, -1, 10}, {2, 1, 20}, {5, 1, 20}, {5, -1, 40}, {50, -50, none}, {6, 6, 1}}, "");
    const std::vector<SectionSegment> segments = SectionCutter({0, 5, 5, 10}, {0, 0, 0, 0}).cut(line);
    QCOMPARE(static_cast<int>(segments.size()), 2);
    QCOMPARE(segments[0].distance, std::vector<double>{2});
    QCOMPARE(segments[0].z, std::vector<double>{15});
    QCOMPARE(segments[1].distance, std::vector<double>{5});
    QCOMPARE(segments[1].z, std::vector<double>{30});
}

void OpenTecTest::sectionsOfModelFile()
{
    std::vector<ModelObject> sections;
    for (const ModelObject& object : loaded(sample("sample.kpmodel"))) {
        if (object.type == ObjectType::CrossSections)
            sections.push_back(object);
    }
    QCOMPARE(static_cast<int>(sections.size()), 2);
    const SectionSegment* terrain = nullptr;
    int faults = 0;
    for (const SectionSegment& one : sections[0].section->segments) {
        QVERIFY(std::all_of(one.z.begin(), one.z.end(), [](double z) { return std::isfinite(z); }));
        faults += one.type == ObjectType::Polylines ? 1 : 0;
        if (one.type == ObjectType::GridSurfaces)
            terrain = &one;
    }
    QVERIFY(terrain && faults > 3);
    // Along 64 km of trace, at heights of the terrain (297 to 1175 m).
    QVERIFY(terrain->distance.back() > 64000 && terrain->distance.back() < 65300);
    QVERIFY(*std::min_element(terrain->z.begin(), terrain->z.end()) >= 297
            && *std::max_element(terrain->z.begin(), terrain->z.end()) <= 1175);
    // The faults lie on the terrain from which their heights come.
    for (const SectionSegment& one : sections[0].section->segments) {
        if (one.type != ObjectType::Polylines)
            continue;
        const auto after = std::lower_bound(terrain->distance.begin(), terrain->distance.end(), one.distance[0])
                           - terrain->distance.begin();
        QVERIFY(std::abs(terrain->z[static_cast<std::size_t>(after)] - one.z[0]) < 120);
    }
    const SaverRun run("opentec", sections, path());
    QCOMPARE(run.fault() + run.findings(), QString());
    QCOMPARE(listing(), QStringLiteral("Section A.otl Section B.otl"));
    QVERIFY(run.readBack.front().worst().difference <= 0.005);
}

void OpenTecTest::wrongSections_data()
{
    textRows(
        {"entry", "message"},
        {{R"("trace": [[0, 0], [1, 1]])", R"(there is no "name" (name the section))"},
         {R"("name": "A")", "the trace has no length"},
         {R"("name": "A", "trace": [[1, 2], [1, 2]])", "the trace has no length"},
         {R"("name": "A", "trace": [[1, 2], [1]])", "point 2 of the trace is not a pair of numbers"},
         {R"("name": "A", "trace": [[0, 0], [1, 1]], "objects": ["X"])", R"(there is no object "X")"},
         {R"("name": "A", "trace": [[0, 0], [1, 1]], "crs": "X")", R"("X" is not a known coordinate system)"},
         {R"("name": "A", "trace": [[0, 0], [1, 1]], "colour": "X")", R"("colour" is not known (keys: name, trace)"},
         {R"("name": 7, "trace": [[0, 0], [1, 1]])", R"("name" is not text)"},
         {R"("name": "A", "trace": [[0, 0], [1, 1]], "color": "X")", R"("X" is not a colour)"}});
}

void OpenTecTest::wrongSections()
{
    QFETCH(QString, entry);
    QFETCH(QString, message);
    write("points.csv", "x,y,z\n1,2,3\n");
    const QString file = write("a.kpmodel", R"({"version": 1, "objects": [{"file": "points.csv"}], "sections": [{)"
                                                + entry.toUtf8() + "}]}");
    try {
        loaded(file);
        QFAIL("accepted");
    } catch (const LoadError& error) {
        QVERIFY2(QString::fromUtf8(error.what()).contains(QStringLiteral("section 1: ") + message), error.what());
    }
}

QTEST_GUILESS_MAIN(OpenTecTest)
#include "tst_opentec.moc"
