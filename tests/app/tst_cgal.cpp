// SPDX-License-Identifier: MIT
// What the GOCAD and OFF savers write, read by CGAL.
#include "tests/app/SaverRun.h"

// CGAL's headers are not written for our warnings.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wall"
#pragma GCC diagnostic ignored "-Wextra"
#include <CGAL/IO/GOCAD.h>
#include <CGAL/IO/OFF.h>
#include <CGAL/Simple_cartesian.h>
#pragma GCC diagnostic pop

using namespace refhost;

namespace
{

/// Two triangles for a cell of a grid, one where a corner has no height.
std::size_t expectedFaces(const ModelObject& surface)
{
    if (!surface.grid)
        return surface.triangles.size();
    std::size_t faces = 0;
    const auto columns = static_cast<std::size_t>(surface.grid->columns);
    for (std::size_t node = 0; node + columns + 1 < surface.z->size(); ++node) {
        if (node % columns == columns - 1)
            continue;
        int known = 0;
        for (const std::size_t corner : {node, node + 1, node + columns, node + columns + 1})
            known += std::isfinite((*surface.z)[corner]) ? 1 : 0;
        faces += known == 4 ? 2U : (known == 3 ? 1U : 0U);
    }
    return faces;
}

} // namespace

class CgalTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void surfaces_data();
    void surfaces();
};

void CgalTest::surfaces_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("source");
    for (const char* key : {"gocad", "off"}) {
        for (const char* source : {"terrain_mesh.off", "dtm_rp.tif"})
            QTest::addRow("%s %s", key, source) << QString::fromLatin1(key) << sample(source);
    }
}

void CgalTest::surfaces()
{
    QFETCH(QString, key);
    QFETCH(QString, source);
    const QTemporaryDir folder;
    const SaverRun run(key, loaded(source), folder.filePath(QStringLiteral("m")));
    QVERIFY(run.written);

    std::vector<CGAL::Simple_cartesian<double>::Point_3> points;
    std::vector<std::vector<std::size_t>> faces;
    const std::string path = run.files[0].path.toStdString();
    QVERIFY(key == QLatin1String("off") ? CGAL::IO::read_OFF(path, points, faces) : CGAL::IO::read_GOCAD(path, points, faces));
    const ModelObject& surface = run.objects.front();
    std::size_t next = 0;
    for (std::size_t vertex = 0; vertex < surface.x->size(); ++vertex) {
        if (!std::isfinite((*surface.z)[vertex]))
            continue;
        QVERIFY(next < points.size());
        QVERIFY(std::abs(points[next].x() - (*surface.x)[vertex]) < 1e-4 && std::abs(points[next].y() - (*surface.y)[vertex]) < 1e-4
                && std::abs(points[next].z() - (*surface.z)[vertex]) < 1e-4);
        ++next;
    }
    QCOMPARE(points.size(), next);
    QCOMPARE(faces.size(), expectedFaces(surface));
    for (const auto& face : faces) {
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
