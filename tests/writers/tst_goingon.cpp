// SPDX-License-Identifier: MIT
// One host that goes on after refused objects, throwing matrices and full disks: the next file is right, and what a
// broken-off one holds is known. Under the address sanitizer this also proves that nothing freed is read.
#include "core/GeoObject.h"
#include "host/data/DoubleMatrixData.h"
#include "host/data/VariantMatrixData.h"
#include "ogr/OGRExporter.h"
#include "tests/ogr/ReadBack.h"
#include "tests/support/CancelAt.h"
#include "tests/support/FileContent.h"
#include "writers/MatrixDataAsciiExporter.h"
#include "writers/MatrixDataDXFExporter.h"
#include "writers/MatrixDataKMLExporter.h"
#include "writers/MatrixDataOpenTecLinkExporter.h"

#include <QtTest>

#include <functional>
#include <memory>
#include <stdexcept>

using kpBase::DoubleMatrixData;
using kpBase::MatrixData;
using kpBase::VariantMatrixData;
using namespace kpBaseExport;

namespace
{

const QString fullDisk = QStringLiteral("/dev/full");

/// A matrix of the host's own that throws at a row.
class ThrowingMatrix : public VariantMatrixData
{
public:
    ThrowingMatrix(int rows, int throwingRow, int columns = 1)
        : VariantMatrixData(QStringLiteral("T"), Double, QVector<QVariant>(rows * columns, 1.0), columns)
        , m_throwingRow(throwingRow)
    {
    }
    QVariant value(int row, int column) const override
    {
        if (row == m_throwingRow)
            throw std::runtime_error("the model is gone");
        return VariantMatrixData::value(row, column);
    }

private:
    int m_throwingRow;
};

MatrixData* column(double first, int rows)
{
    std::vector<double> values;
    for (int row = 0; row < rows; ++row)
        values.push_back(first + row);
    return new DoubleMatrixData(QStringLiteral("C"), std::make_shared<const std::vector<double>>(values));
}

MatrixData* points(double first, int rows)
{
    QVector<QVariant> values;
    for (int row = 0; row < rows; ++row)
        values << first + row << 0.0 << -1.0;
    return new VariantMatrixData(QStringLiteral("H"), MatrixData::Double, values, 3);
}

/// A good object: vertices for most writers, a section for OpenTecLink.
void fill(GeoObject& record, double first, int rows)
{
    record.clearData();
    record.name = "O";
    record.vertexData() = {column(0, rows), column(first, rows), column(first, rows), column(first, rows)};
    record.sectionData() = {points(first, rows)};
}

/// One that the writers with vertices refuse.
void fillWrong(GeoObject& record)
{
    fill(record, 90, 2);
    record.vertexAttributeData().push_back(column(0, 3));
}

/// One whose numbers throw after some rows.
void fillThrowing(GeoObject& record, int rows, int throwingRow)
{
    fill(record, 70, rows);
    record.vertexAttributeData().push_back(new ThrowingMatrix(rows, throwingRow));
    record.sectionData().push_back(new ThrowingMatrix(rows, throwingRow, 3));
}

template <typename Writer>
std::unique_ptr<MatrixDataExporter> make()
{
    return std::make_unique<Writer>();
}

std::unique_ptr<MatrixDataExporter> makeAscii()
{
    auto writer = std::make_unique<MatrixDataAsciiExporter>();
    writer->fields = {{QStringLiteral("x"), 0, 0, 0}, {QStringLiteral("T"), 0, 0, 0}};
    writer->headerPending = false;
    return writer;
}

/// What a write throws; empty when it goes well.
QByteArray thrown(const std::function<void()>& write)
{
    try {
        write();
    } catch (const std::exception& error) {
        return error.what();
    }
    return {};
}

/// A derived writer that uses the stream as savers do.
class StreamWriter : public MatrixDataDXFExporter
{
public:
    using MatrixDataDXFExporter::stream;
};

class BrokenSource : public OGRFeatureSource
{
public:
    int count() const override { return 3; }
    bool next(int index, OGRFeatureDetails& details) override
    {
        if (index == 2)
            throw std::runtime_error("the model is gone");
        details.append_point(OGRPoint(index, 0));
        return true;
    }
};

} // namespace

using Make = std::unique_ptr<MatrixDataExporter> (*)();
Q_DECLARE_METATYPE(Make)

class GoingOnTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        GDALAllRegister();
        if (!QFile::exists(fullDisk))
            QSKIP("no /dev/full here");
    }

    void textWriters_data()
    {
        QTest::addColumn<Make>("make");
        QTest::addColumn<bool>("checksVertices");
        QTest::addColumn<bool>("readsValues");
        QTest::newRow("ascii") << Make(makeAscii) << true << true;
        QTest::newRow("dxf") << Make(make<MatrixDataDXFExporter>) << true << false;
        QTest::newRow("kml") << Make(make<MatrixDataKMLExporter>) << true << false;
        QTest::newRow("opentec") << Make(make<MatrixDataOpenTecLinkExporter>) << false << true;
    }

    void textWriters()
    {
        QFETCH(Make, make);
        QFETCH(bool, checksVertices);
        QFETCH(bool, readsValues);
        const QByteArray good = writtenBy(*make(), 1);
        for (const bool optIns : {false, true}) {
            const std::unique_ptr<MatrixDataExporter> writer = make();
            GeoObject& record = *writer->geoObject();
            writer->throwOnWriteFailure = optIns;

            fillWrong(record);
            const QByteArray refusal = thrown([&] { writer->write(path("refused")); });
            QCOMPARE(!refusal.isEmpty(), checksVertices);
            if (checksVertices) {
                // The file is still open, so that no other can be.
                QCOMPARE(thrown([&] { writer->write(path("again")); }), QByteArray("No write access on File"));
                QVERIFY(!QFile::exists(path("again")));
                thrown([&] { writer->fileClose(); });
            }
            QVERIFY(writtenBy(*writer, 1) == good);

            fillThrowing(record, 5, 3);
            QCOMPARE(!thrown([&] { writer->write(path("thrown")); }).isEmpty(), readsValues);
            if (readsValues)
                writer->fileClose();
            QVERIFY(writtenBy(*writer, 1) == good);

            fill(record, 1, 5);
            QCOMPARE(thrown([&] { writer->write(fullDisk); }).isEmpty(), !optIns);
            QVERIFY(writer->writeFailed());
            QVERIFY(writtenBy(*writer, 1) == good);
            QVERIFY(!writer->writeFailed());

            // Written with nothing open: lost, and noticed where that is asked for.
            writer->fileName.clear();
            const bool writesSomething = readsValues;
            const QByteArray lost = thrown([&] { writer->write(QString()); });
            QCOMPARE(lost.contains("No file was open"), optIns && writesSomething);
            QCOMPARE(writer->writeFailed(), writesSomething);
            // A second close has nothing to tell.
            QCOMPARE(thrown([&] { writer->fileClose(); }), QByteArray());
            QVERIFY(writtenBy(*writer, 1) == good);
        }
    }

    void objectsOfOneFile()
    {
        // A refused object between two good ones in one file, the record filled anew each time.
        MatrixDataAsciiExporter writer(path("one.txt"));
        GeoObject& record = *writer.geoObject();
        writer.fields = {{QStringLiteral("x"), 0, 0, 0}};
        QVERIFY(writer.fileOpen());
        fill(record, 90, 2);
        writer.writeHeader(&record);
        fillWrong(record);
        QVERIFY(!thrown([&] { writer.write(); }).isEmpty());
        fill(record, 5, 2);
        writer.write();
        // Fields that come in after the header have their source, too.
        writer.fields.push_back({QStringLiteral("T"), 1, 0, 0});
        fillThrowing(record, 4, 2);
        QVERIFY(!thrown([&] { writer.write(); }).isEmpty());
        fill(record, 7, 1);
        writer.write();
        writer.fileClose();
        QCOMPARE(contentOf(path("one.txt")), QByteArray("C\n5\n6\n70 1.0\n71 1.0\n7 \n"));
    }

    void headerThatThrows()
    {
        struct Nameless : VariantMatrixData
        {
            Nameless()
                : VariantMatrixData(QString(), Double, {1.0})
            {
            }
            QString name() const override { throw std::runtime_error("no name"); }
        };
        MatrixDataAsciiExporter writer(path("header.txt"));
        GeoObject& record = *writer.geoObject();
        writer.fields = {{QStringLiteral("y"), 0, 0, 0}, {QStringLiteral("x"), 0, 0, 0}};
        QVERIFY(writer.fileOpen());
        record.vertexData() = {column(0, 1), new Nameless, column(0, 1)};
        QCOMPARE(thrown([&] { writer.writeHeader(&record); }), QByteArray("no name"));
        fill(record, 3, 1);
        writer.write();
        writer.fileClose();
        QCOMPARE(contentOf(path("header.txt")), QByteArray("C C\n3 3\n"));
    }

    void openFileIsClosedBeforeTheRecordGoes()
    {
        struct Witness : VariantMatrixData
        {
            Witness(QString file, QByteArray& seen)
                : VariantMatrixData(QStringLiteral("W"), Double, {1.0})
                , m_file(std::move(file))
                , m_seen(seen)
            {
            }
            ~Witness() override { m_seen = contentOf(m_file); }
            QString m_file;
            QByteArray& m_seen;
        };
        QByteArray seen;
        {
            StreamWriter writer;
            writer.fileName = path("left.dxf");
            QVERIFY(writer.fileOpen());
            writer.stream << "the last line";
            writer.geoObject()->vertexData() = {new Witness(path("left.dxf"), seen)};
        }
        QVERIFY2(seen.endsWith("the last line"), seen.constData());
    }

    void ogr()
    {
        CancelAt progress(1000);
        OGRExporter exporter(path("points.shp"), QStringLiteral("ESRI Shapefile"), &progress);
        OGRFeatureDetails point(wkbPoint, 1);
        point.points({OGRPoint(1, 2)});
        const QVector<OGRLayerInfo> good{{QStringLiteral("L"), {point}, {}, QString()}};

        OGRLayerInfo broken(QStringLiteral("L"), {}, {}, QString());
        broken.source(std::make_shared<BrokenSource>(), wkbPoint);
        for (const bool oneFile : {false, true}) {
            OGRExporterOptions options;
            options.recordRefusals = true;
            options.oneFile = oneFile;
            exporter.options(options);
            QCOMPARE(thrown([&] { exporter.write(QVector<OGRLayerInfo>{broken}); }), QByteArray("the model is gone"));
            // What was written has been closed and can be read.
            QCOMPARE(geometryTexts(path("points.shp")),
                     (QStringList{QStringLiteral("POINT (0 0)"), QStringLiteral("POINT (1 0)")}));
            QVERIFY(exporter.write(good));
            QCOMPARE(geometryTexts(path("points.shp")), QStringList{QStringLiteral("POINT (1 2)")});
            exporter.fileName = path("missing/points.shp");
            QVERIFY(!exporter.write(good));
            exporter.fileName = path("points.shp");
            QVERIFY(exporter.write(good));
            QVERIFY(exporter.refusals().empty());
        }
        OGRExporter full(fullDisk, QStringLiteral("GeoJSON"), &progress);
        full.write(good);
        full.fileName = path("after.geojson");
        QVERIFY(full.write(good));
        QCOMPARE(geometryTexts(path("after.geojson")), QStringList{QStringLiteral("POINT (1 2)")});
    }

private:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    /// The file of a good object.
    QByteArray writtenBy(MatrixDataExporter& writer, double first)
    {
        QFile::remove(path("good"));
        fill(*writer.geoObject(), first, 3);
        writer.write(path("good"));
        return contentOf(path("good"));
    }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(GoingOnTest)
#include "tst_goingon.moc"
