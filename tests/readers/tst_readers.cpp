// SPDX-License-Identifier: MIT
// Real files read into the model, compared with known figures and with GDAL's own reading.
#include "geo/CoordinateSystems.h"
#include "readers/LoadError.h"
#include "readers/ModelLoader.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using namespace kpFormats;

class ReadersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void polygonsWithHoles();
    void pointsWithNulls();
    void grid();
    void tables_data();
    void tables();
    void wellPath();
    void pins();

private:
    Model load(const char* name, const LoadOptions& options = LoadOptions());
};

Model ReadersTest::load(const char* name, const LoadOptions& options)
{
    Model model;
    loadInto(model, QStringLiteral(KP_SOURCE_DIR "/examples/sample/") + QString::fromLatin1(name), options);
    return model;
}

void ReadersTest::polygonsWithHoles()
{
    LoadOptions options;
    options.nameField = QStringLiteral("unitname");
    const Model model = load("geology.geojson", options);
    QCOMPARE(model.objects().size(), std::size_t(61));
    int withHoles = 0;
    for (const ModelObject& object : model.objects()) {
        QCOMPARE(object.type, ObjectType::Polygons);
        QVERIFY(!object.hasZ);
        QCOMPARE(object.objectAttributes.size(), std::size_t(60));
        for (std::size_t part = 1; part < object.parts.size(); ++part)
            withHoles += object.parts[part].hole && !object.parts[part - 1].hole ? 1 : 0;
    }
    QCOMPARE(withHoles, 2);
    QVERIFY(crsName(model.objects().front().crs).contains(QStringLiteral("EPSG:28350")));
    options.nameField = QStringLiteral("nothing");
    QVERIFY_EXCEPTION_THROWN(load("geology.geojson", options), LoadError);
}

void ReadersTest::pointsWithNulls()
{
    const Model model = load("structures.geojson");
    QCOMPARE(model.objects().size(), std::size_t(1));
    const ModelObject& cloud = model.objects().front();
    QCOMPARE(cloud.type, ObjectType::VertexClouds);
    QCOMPARE(cloud.vertexCount(), 118);
    int nulls = 0;
    for (const AttributeColumn& column : cloud.vertexAttributes) {
        if (column.name == QLatin1String("structypei"))
            nulls = static_cast<int>(std::count_if(column.values.begin(), column.values.end(),
                                                   [](const QVariant& value) { return value.isNull(); }));
        if (column.name == QLatin1String("dip"))
            QCOMPARE(column.kind, AttributeKind::Integer);
    }
    QCOMPARE(nulls, 54);
}

void ReadersTest::grid()
{
    const Model model = load("dtm_rp.tif");
    const ModelObject& grid = model.objects().front();
    QVERIFY(grid.grid);
    QCOMPARE(grid.grid->columns, 197);
    QCOMPARE(grid.grid->rows, 204);
    // Row 0 lies in the south.
    QVERIFY(grid.y->front() < grid.y->back());
    QCOMPARE(grid.x->front(), grid.grid->originX);
    int undefined = 0;
    double least = INFINITY;
    double most = -INFINITY;
    for (const double z : *grid.z) {
        undefined += std::isnan(z) ? 1 : 0;
        least = std::fmin(least, z);
        most = std::fmax(most, z);
    }
    QCOMPARE(undefined, 109);
    QVERIFY(std::abs(least - 297.0) < 1.0 && std::abs(most - 1175.0) < 1.0);
}

void ReadersTest::tables_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const QByteArray& text, const char* expected) {
        QTest::newRow(name) << text << QString::fromUtf8(expected);
    };
    row("a column named by a number", "Unnamed: 0,7,X,y,z\n1,2,3,4,5\n", "3 4 5 Unnamed: 0 7");
    row("two names for heights", "x,y,z,altitude\n1,2,3,4\n", "1 2 3 altitude");
    row("the more usual name", "lon;lat;easting;northing\n1;2;3;4\n", "3 4 0 lon lat");
    row("byte order mark", "\xef\xbb\xbfx,y\n1,2\n", "1 2 0");
    row("no known name", "east_m,north_m,Cu\n1,2,3\n",
        "none of its columns is known to hold coordinates; it has: east_m, north_m, Cu (name them x, y and z in the "
        "file, or say "
        "which they are with \"x\", \"y\" and \"z\" in its entry of a model file)");
    row("no numbers", "x,y\n,\n", "no row of it has numbers for x and y (check it at its source)");
}

void ReadersTest::tables()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, expected);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("t.csv"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush());
    Model model;
    QString found;
    try {
        loadInto(model, path);
        const ModelObject& cloud = model.objects().front();
        QStringList parts{QString::number(cloud.x->front()), QString::number(cloud.y->front()),
                          QString::number(cloud.z->front())};
        for (const AttributeColumn& column : cloud.vertexAttributes)
            parts.append(column.name);
        found = parts.join(QLatin1Char(' '));
    } catch (const std::exception& error) {
        found = QString::fromUtf8(error.what()).mid(path.size() + 2);
    }
    QCOMPARE(found, expected);
}

void ReadersTest::wellPath()
{
    // A quarter circle of radius 100: from straight down to horizontal east in one arc of 50 pi.
    QTemporaryDir folder;
    const auto write = [&folder](const char* name, const QByteArray& content) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        if (file.open(QIODevice::WriteOnly))
            file.write(content);
        return file.fileName();
    };
    const double length = 50.0 * M_PI;
    LoadOptions options;
    options.survey = write("survey.csv", "BHID,AT,AZ,DIP\nW1,0,90,90\nW1," + QByteArray::number(length, 'g', 17)
                                             + ",90,0\nW1,900000,90,0\n");
    Model model;
    const LoadNotes notes =
        loadInto(model, write("collar.csv", "BHID,XCOLLAR,YCOLLAR,ZCOLLAR\nW1,10,20,30\nW2,1,2,3\n"), options);
    QCOMPARE(notes.size(), 2);
    const ModelObject& well = model.objects().front();
    QCOMPARE(well.vertexCount(), 2);
    QVERIFY(std::abs(well.x->back() - 110.0) < 1e-9);
    QVERIFY(std::abs(well.y->back() - 20.0) < 1e-9);
    QVERIFY(std::abs(well.z->back() + 70.0) < 1e-9);
    QCOMPARE(model.objects().back().vertexCount(), 1);
    QCOMPARE(load("collar.csv").objects().size(), std::size_t(1));
}

void ReadersTest::pins()
{
    LoadOptions options;
    options.type = ObjectType::Pins;
    options.nameField = QStringLiteral("well");
    options.crs = QStringLiteral("EPSG:32631");
    const Model model = load("tops.gpkg", options);
    QCOMPARE(model.objects().size(), std::size_t(721));
    QVERIFY(model.objects().front().hasZ);
    QVERIFY(crsName(model.objects().front().crs).contains(QStringLiteral("EPSG:32631")));
    options.crs = QStringLiteral("EPSG:1");
    QVERIFY_EXCEPTION_THROWN(load("tops.gpkg", options), LoadError);
}

QTEST_GUILESS_MAIN(ReadersTest)
#include "tst_readers.moc"
