// SPDX-License-Identifier: MIT
// The spatial index of a GeoPackage, as SQLite's own check and GDAL's filters see it.
#include "tests/formats/ogr/OgrTestTools.h"

#include <cmath>

using namespace kpFormats;

class GpkgIndexTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void entries_data();
    void entries();
    void noIndex();
};

namespace
{

/// Places without order, some of them alike.
std::vector<double> scattered(int count, double base, double step)
{
    std::vector<double> numbers;
    for (int index = 0; index < count; ++index)
        numbers.push_back(base + 5000.0 * std::sin(step * (index - index % 7)) + 0.1);
    return numbers;
}

QString answer(GDALDataset& dataset, const char* sql)
{
    OGRLayer* const result = dataset.ExecuteSQL(sql, nullptr, nullptr);
    if (!result)
        return QString::fromUtf8(CPLGetLastErrorMsg());
    const OGRFeatureUniquePtr row(result->GetNextFeature());
    const QString text = row ? QString::fromUtf8(row->GetFieldAsString(0)) : QString();
    dataset.ReleaseResultSet(result);
    return text;
}

/// The numbers of the features in a box, by the index or by looking at each.
QVector<qint64> within(OGRLayer& layer, const OGREnvelope& box, bool byIndex)
{
    QVector<qint64> numbers;
    layer.SetSpatialFilter(nullptr);
    if (byIndex)
        layer.SetSpatialFilterRect(box.MinX, box.MinY, box.MaxX, box.MaxY);
    for (const auto& feature : layer) {
        OGREnvelope own;
        feature->GetGeometryRef()->getEnvelope(&own);
        if (box.Intersects(own))
            numbers.append(feature->GetFID());
        else if (byIndex)
            numbers.append(-1);
    }
    return numbers;
}

} // namespace

void GpkgIndexTest::entries_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("height");
    // A node has room for 51.
    QTest::newRow("one") << 1 << 0;
    QTest::newRow("a node") << 51 << 0;
    QTest::newRow("a node and one") << 52 << 1;
    QTest::newRow("two levels") << 51 * 51 << 1;
    QTest::newRow("three levels") << 51 * 51 + 1 << 2;
    QTest::newRow("four levels") << 51 * 51 * 51 + 1 << 3;
}

void GpkgIndexTest::entries()
{
    QFETCH(int, count);
    QFETCH(int, height);
    const std::vector<double> x = scattered(count, 500000, 0.7);
    const std::vector<double> y = scattered(count, -7500000, 1.3);
    const SaverRun run("gpkg", {objectOf(QStringLiteral("a\"b"), ObjectType::VertexClouds, x, y, x)}, path("p q.gpkg"),
                       "crs=EPSG:28350");
    QCOMPARE(run.fault(), QString());

    const GDALDatasetUniquePtr dataset(
        GDALDataset::Open(path("p q.gpkg").toUtf8().constData(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
    QVERIFY(dataset);
    OGRLayer& layer = *dataset->GetLayer(0);
    const char* const check = "SELECT rtreecheck('rtree_p q_geom')";
    QCOMPARE(answer(*dataset, check), QStringLiteral("ok"));
    QCOMPARE(answer(*dataset, "SELECT count(*) FROM \"rtree_p q_geom\""), QString::number(count));
    QCOMPARE(answer(*dataset, "SELECT hex(substr(data, 1, 2)) FROM \"rtree_p q_geom_node\" WHERE nodeno = 1"),
             QStringLiteral("000%1").arg(height));
    QCOMPARE(answer(*dataset, "SELECT HasSpatialIndex('p q', 'geom')"), QStringLiteral("1"));
    for (const double size : {0.0, 3.0, 400.0, 9000.0}) {
        OGREnvelope box;
        box.MinX = x.back() - size;
        box.MaxX = x.back() + size;
        box.MinY = y.back() - size / 2;
        box.MaxY = y.back() + size / 2;
        const QVector<qint64> found = within(layer, box, true);
        QVERIFY(!found.isEmpty());
        QVector<qint64> sorted = found;
        std::sort(sorted.begin(), sorted.end());
        QCOMPARE(sorted, within(layer, box, false));
    }

    // Later changes by others find their way into the index.
    OGRFeatureUniquePtr added(OGRFeature::CreateFeature(layer.GetLayerDefn()));
    OGRPoint place(1.0, 2.0, 3.0);
    added->SetGeometry(&place);
    QVERIFY(layer.CreateFeature(added.get()) == OGRERR_NONE && layer.DeleteFeature(1) == OGRERR_NONE);
    QCOMPARE(answer(*dataset, check), QStringLiteral("ok"));
    QCOMPARE(answer(*dataset, "SELECT count(*) FROM \"rtree_p q_geom\""), QString::number(count));
    OGREnvelope there;
    place.getEnvelope(&there);
    QCOMPARE(within(layer, there, true), QVector<qint64>{added->GetFID()});
}

void GpkgIndexTest::noIndex()
{
    const SaverRun run("gpkg", {objectOf(QStringLiteral("a"), ObjectType::VertexClouds, {1}, {2}, {3})}, path("n.gpkg"),
                       "crs=EPSG:28350;spatialIndex=false");
    QCOMPARE(run.fault(), QString());
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(path("n.gpkg").toUtf8().constData(), GDAL_OF_VECTOR));
    QVERIFY(dataset);
    QCOMPARE(answer(*dataset, "SELECT count(*) FROM sqlite_master WHERE name LIKE 'rtree%'"), QStringLiteral("0"));
}

QTEST_GUILESS_MAIN(GpkgIndexTest)
#include "tst_gpkgindex.moc"
