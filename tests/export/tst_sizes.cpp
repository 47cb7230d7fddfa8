// SPDX-License-Identifier: MIT
// What a plan says of the size of its files, against the files.
#include "export/ExportPlan.h"
#include "model/ObjectCheck.h"
#include "model/ObjectSlice.h"
#include "tests/support/SaverRun.h"

using namespace kpFormats;

class SizesTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { emptyFolder(); }
    void sizes_data();
    void sizes();
    void slices();
};

void SizesTest::sizes_data()
{
    QTest::addColumn<QString>("format");
    for (const auto& format : makeFormats())
        QTest::newRow(format->info().key.toLatin1().constData()) << format->info().key;
}

void SizesTest::sizes()
{
    QFETCH(QString, format);
    std::vector<ModelObject> objects = loaded(sample("sample.kpmodel"));
    const std::vector<ObjectType> types = formatOf(format)->info().types;
    objects.erase(std::remove_if(objects.begin(), objects.end(),
                                 [&types](const ModelObject& object) {
                                     return std::find(types.begin(), types.end(), object.type) == types.end();
                                 }),
                  objects.end());
    // Some objects of the sample have no coordinate system, which KML asks for.
    const SaverRun run(format, objects, path("o"), format == QLatin1String("kml") ? "crs=EPSG:28350" : "");
    qint64 written = 0;
    for (const FileOutcome& file : run.report.files())
        written += file.bytes;
    const auto planned = static_cast<double>(planOf(*run.prepared).bytes());
    QVERIFY(written > 0);
    const double ratio = planned / static_cast<double>(written);
    QVERIFY2(ratio > 1 / 1.5 && ratio < 1.5, qPrintable(QStringLiteral("%1 for %2").arg(planned).arg(written)));
}

void SizesTest::slices()
{
    // A piece is sound, and has what goes with its vertices.
    for (const ModelObject& object : loaded(sample("sample.kpmodel"))) {
        const ModelObject slice = sliceOf(object, 10);
        QCOMPARE(faultOf(slice), QString());
        QVERIFY(slice.vertexCount() <= object.vertexCount());
        if (object.grid)
            QVERIFY(slice.grid->rows < object.grid->rows);
        if (object.cells)
            QVERIFY(slice.cells->layers < object.cells->layers || object.cells->layers == 1);
    }
}

QTEST_MAIN(SizesTest)
#include "tst_sizes.moc"
