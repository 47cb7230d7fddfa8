// SPDX-License-Identifier: MIT
// What the GOCAD and OFF savers write, read by CGAL.
#include "tests/support/SaverRun.h"
#include "tests/support/TextRows.h"

// CGAL's headers are not written for our warnings.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wall"
#pragma GCC diagnostic ignored "-Wextra"
#include <CGAL/IO/GOCAD.h>
#include <CGAL/IO/OFF.h>
#include <CGAL/Simple_cartesian.h>
#pragma GCC diagnostic pop

using namespace kpFormats;

class CgalTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void surfaces_data();
    void surfaces();
};

void CgalTest::surfaces_data()
{
    // Of the grid: two triangles for a cell, one where a corner has no height.
    textRows({"key", "source", "faces"}, {{"gocad", "terrain_mesh.off", "1200"},
                                          {"gocad", "dtm_rp.tif", "79360"},
                                          {"off", "terrain_mesh.off", "1200"},
                                          {"off", "dtm_rp.tif", "79360"}});
}

void CgalTest::surfaces()
{
    QFETCH(QString, key);
    QFETCH(QString, source);
    QFETCH(QString, faces);
    const SaverRun run(key, loaded(sample(qPrintable(source))), path("m"));
    QCOMPARE(run.fault(), QString());

    std::vector<CGAL::Simple_cartesian<double>::Point_3> points;
    std::vector<std::vector<std::size_t>> triangles;
    const std::string file = run.files[0].path.toStdString();
    QVERIFY(key == QLatin1String("off") ? CGAL::IO::read_OFF(file, points, triangles)
                                        : CGAL::IO::read_GOCAD(file, points, triangles));
    const ModelObject& surface = run.objects.front();
    std::size_t next = 0;
    for (std::size_t vertex = 0; vertex < surface.x->size(); ++vertex) {
        if (!std::isfinite((*surface.z)[vertex]))
            continue;
        QVERIFY(next < points.size());
        QVERIFY(std::abs(points[next].x() - (*surface.x)[vertex]) < 1e-4
                && std::abs(points[next].y() - (*surface.y)[vertex]) < 1e-4
                && std::abs(points[next].z() - (*surface.z)[vertex]) < 1e-4);
        ++next;
    }
    QCOMPARE(points.size(), next);
    QCOMPARE(QString::number(triangles.size()), faces);
    for (const auto& face : triangles) {
        QCOMPARE(face.size(), std::size_t(3));
        // Every triangle turns the same way, seen from above.
        const auto& a = points.at(face[0]);
        const auto& b = points.at(face[1]);
        const auto& c = points.at(face[2]);
        QVERIFY((b.x() - a.x()) * (c.y() - a.y()) - (b.y() - a.y()) * (c.x() - a.x()) > 0.0);
    }
}

QTEST_GUILESS_MAIN(CgalTest)
#include "tst_cgal.moc"
