// SPDX-License-Identifier: MIT
// Grid surfaces through GDAL's raster drivers: whole files, what they refuse and lose, and readers that are not GDAL.
#include "tests/support/SaverRun.h"
#include "tests/support/TextRows.h"

#include <QDataStream>
#include <QtEndian>

#include <gdal_priv.h>

using namespace kpFormats;

namespace
{

/// Three columns and two rows, with a hole in the north-west; a colour as attribute of its nodes.
ModelObject surface()
{
    ModelObject grid = gridOf(QStringLiteral("Top"), 3, {11.5, 12.1, 13.5, none, 15.5, 16.5}, 501000, 7502000, 10);
    grid.vertexAttributes = {
        columnOf(QStringLiteral("thickness"), AttributeKind::Real, {0.5, QVariant(), 2.5, 3.5, 4.5, 1e300}),
        columnOf(QStringLiteral("rock"), AttributeKind::Text, QVector<QVariant>(6, QStringLiteral("shale")))};
    grid.crs = wktOf(QStringLiteral("EPSG:28350"));
    return grid;
}

ModelObject rotated(double degrees, double stepX = 10)
{
    ModelObject grid = surface();
    grid.grid->rotation = degrees;
    grid.grid->stepX = stepX;
    std::vector<double> x;
    std::vector<double> y;
    const double angle = degrees * M_PI / 180.0;
    for (int node = 0; node < 6; ++node) {
        const double across = node % 3 * stepX;
        const double up = node / 3 * 10.0;
        x.push_back(501000 + across * std::cos(angle) - up * std::sin(angle));
        y.push_back(7502000 + across * std::sin(angle) + up * std::cos(angle));
    }
    grid.x = numbersOf(x);
    grid.y = numbersOf(y);
    return grid;
}

/// Numbers of a file as the processor has them, least byte first.
class Bytes
{
public:
    template <typename Number>
    Bytes& operator<<(Number number)
    {
        m_bytes.append(reinterpret_cast<const char*>(&number), sizeof(number));
        return *this;
    }
    Bytes& operator<<(const char* text)
    {
        m_bytes.append(text);
        return *this;
    }
    const QByteArray& all() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

template <typename Number>
QByteArray bytesOf(Number number)
{
    return (Bytes() << number).all();
}

/// As netCDF has a number.
QByteArray turned(double number)
{
    return bytesOf(qToBigEndian(number));
}

template <std::size_t size>
QByteArray bytesFrom(const char (&text)[size])
{
    return QByteArray(text, static_cast<int>(size) - 1);
}

constexpr float blank = 1.70141e38f;

/// What a program prints; empty when it, or what it needs, is not here.
QString printedBy(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() == 2)
        return {};
    return QString::fromUtf8(process.readAllStandardOutput() + process.readAllStandardError());
}

} // namespace

class RasterTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { emptyFolder(); }
    void surferBinary();
    void texts();
    void tags_data();
    void tags();
    void cloudOptimized();
    void netcdf();
    void rotation();
    void refused_data();
    void refused();
    void losses_data();
    void losses();
    void realData_data();
    void realData();
    void damages_data();
    void damages();
    void devicesAndSidecars();
    void cancelled_data();
    void cancelled();
};

void RasterTest::surferBinary()
{
    // The public description's headers, number by number.
    const SaverRun six("surfer6", {surface()}, path("a.grd"));
    QCOMPARE(six.fault(), QString());
    Bytes wanted;
    wanted << "DSBB" << qint16(3) << qint16(2) << 501000.0 << 501020.0 << 7502000.0 << 7502010.0;
    wanted << 11.5 << 16.5 << 11.5f << 12.1f << 13.5f << blank << 15.5f << 16.5f;
    QCOMPARE(six.bytes().toHex(), wanted.all().toHex());
    QCOMPARE(
        six.findings(),
        QStringLiteral("number rounded to single precision: 1, a grid file holds one value per node; attributes left "
                       "out: 2, coordinate system not carried: 1"));

    const SaverRun seven("surfer7", {surface()}, path("b.grd"));
    QCOMPARE(seven.fault(), QString());
    Bytes head;
    head << "DSRB" << qint32(4) << qint32(1) << "GRID" << qint32(72) << qint32(2) << qint32(3) << 501000.0 << 7502000.0
         << 10.0 << 10.0 << 11.5 << 16.5 << 0.0 << double(blank) << "DATA" << qint32(48);
    head << 11.5 << 12.1 << 13.5 << double(blank) << 15.5 << 16.5;
    QCOMPARE(seven.bytes().toHex(), head.all().toHex());
}

void RasterTest::texts()
{
    const SaverRun surfer("surfer6ascii", {surface()}, path("a.grd"));
    QCOMPARE(surfer.fault(), QString());
    QCOMPARE(surfer.bytes().simplified(),
             QByteArray("DSAA 3 2 501000 501020 7502000 7502010 11.5 16.5 11.5 12.1 13.5 1.70141E+38 15.5 16.5"));

    SaverRun arc("arcgrid", {surface()}, path("a.asc"));
    QCOMPARE(arc.fault(), QString());
    QCOMPARE(arc.bytes(), QByteArray("ncols        3\nnrows        2\nxllcorner    500995.000000000000\n"
                                     "yllcorner    7501995.000000000000\ncellsize     10.000000000000\n"
                                     "NODATA_value  -99999.0000\n -99999.0000 15.5000 16.5000\n"
                                     " 11.5000 12.1000 13.5000\n"));
    QVERIFY(contentOf(path("a.prj")).startsWith("PROJCS[\"GDA_1994_MGA_Zone_50\""));
    // In feet, as depths, rows from the north, and an attribute, which is no length.
    ModelObject southward = surface();
    southward.grid->originY = 7502010;
    southward.grid->stepY = -10;
    southward.y = numbersOf({7502010, 7502010, 7502010, 7502000, 7502000, 7502000});
    const SaverRun feet("arcgrid", {southward}, path("f.asc"),
                        "lengthUnit=ft;zIsElevation=false;decimals=1;nullValue=9999");
    QCOMPARE(feet.fault(), QString());
    QVERIFY(feet.bytes().endsWith("NODATA_value  9999.0\n -37.7 -39.7 -44.3\n 9999.0 -50.9 -54.1\n"));
    const SaverRun thickness("arcgrid", {southward}, path("t.asc"),
                             "attribute=thickness;zIsElevation=false;decimals=1;lengthUnit=ft;nullValue=3.5");
    QCOMPARE(thickness.fault().left(40), QString());
    QCOMPARE(thickness.countOf(QStringLiteral("value equal to the null value")), 1);
}

void RasterTest::tags_data()
{
    // Tie point and scale say where the first node is; nodes are points, which is key 2.
#define PLACED " point 2 system 28350\nModelTiepointTag 0 0 0 501000 7502010 0\nModelPixelScaleTag 10 10 0\n"
    textRows({"format", "settings", "wanted"},
             {{"double", "geotiff", "",
               "type float64 null -99999" PLACED "-99999 3.5 15.5 4.5 16.5 -99999\n11.5 0.5 12.1 -99999 13.5 2.5\n"},
              {"single", "geotiff", "precision=single;compression=none;nullValue=-0.1",
               "type float32 null -0.100000001490116119" PLACED
               "-0.100000001 3.5 15.5 4.5 16.5 -0.100000001\n11.5 0.5 12.1000004 -0.100000001 13.5 2.5\n"},
              {"cloud", "cog", "",
               "type float64 null -99999" PLACED "-99999 3.5 15.5 4.5 16.5 -99999\n11.5 0.5 12.1 -99999 13.5 2.5\n"}});
#undef PLACED
}

void RasterTest::tags()
{
    QFETCH(QString, format);
    QFETCH(QString, settings);
    QFETCH(QString, wanted);
    ModelObject grid = surface();
    grid.vertexAttributes[0] =
        columnOf(QStringLiteral("thickness"), AttributeKind::Real, {0.5, QVariant(), 2.5, 3.5, 4.5, QVariant()});
    const SaverRun run(format, {grid}, path("a.tif"), settings);
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.countOf(QStringLiteral("attribute that is not a number left out")), 1);
    const QString read =
        printedBy(QStringLiteral("/usr/bin/python3"),
                  {QStringLiteral(KP_SOURCE_DIR "/tests/formats/raster/read_tiff.py"), run.files[0].path});
    if (read.isEmpty())
        QSKIP("python3-tifffile is not installed");
    QCOMPARE(read, wanted);
}

void RasterTest::cloudOptimized()
{
    // Large enough for overviews.
    const SaverRun run("cog", {gridOf(700, 600)}, path("a.tif"));
    QCOMPARE(run.fault(), QString());
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(run.files[0].path.toUtf8().constData(), GDAL_OF_RASTER));
    QVERIFY(dataset && dataset->GetRasterBand(1)->GetOverviewCount() > 0);
    QCOMPARE(listing(), QStringLiteral("a.tif"));
    const QString said =
        printedBy(QStringLiteral("/usr/bin/python3"),
                  {QStringLiteral("-m"), QStringLiteral("osgeo_utils.samples.validate_cloud_optimized_geotiff"),
                   run.files[0].path});
    if (said.isEmpty() || said.contains(QStringLiteral("ModuleNotFound")))
        QSKIP("python3-gdal is not installed");
    QVERIFY2(said.contains(QStringLiteral("is a valid cloud optimized GeoTIFF")), qPrintable(said));
}

void RasterTest::netcdf()
{
    ModelObject grid = surface();
    grid.vertexAttributes.resize(1);
    grid.vertexAttributes[0].name = QString::fromUtf8("Größe 1");
    grid.vertexAttributes[0].unit = QStringLiteral("%");
    grid.vertexAttributes[0].numbers = numbersOf({0.5, 1.5, 2.5, 3.5, 4.5, 1e300});
    grid.crs.clear();
    grid.lengthUnit = QStringLiteral("ftUS");
    const SaverRun run("netcdf", {grid}, path("a.nc"), "precision=double;zIsElevation=false");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.findings(), QStringLiteral("renamed: 1"));
    const QString dumped = printedBy(QStringLiteral("ncdump"), {run.files[0].path});
    if (!dumped.isEmpty())
        QCOMPARE(
            dumped.simplified(),
            QString::fromUtf8(
                "netcdf a { dimensions: y = 2 ; x = 3 ; variables: double y(y) ; y:units = \"US_survey_foot\" ; "
                "y:axis = \"Y\" ; double x(x) ; x:units = \"US_survey_foot\" ; x:axis = \"X\" ; double depth(y, "
                "x) ; depth:long_name = \"depth\" ; depth:units = \"US_survey_foot\" ; depth:positive = \"down\" "
                "; depth:_FillValue = -99999. ; double Gro_e_1(y, x) ; Gro_e_1:long_name = \"Größe 1\" ; "
                "Gro_e_1:units = \"%\" ; Gro_e_1:_FillValue = -99999. ; // global attributes: :Conventions = "
                "\"CF-1.8\" ; :title = \"Top\" ; data: y = 7502000, 7502010 ; x = 501000, 501010, 501020 ; depth = "
                "-11.5, -12.1, -13.5, _, -15.5, -16.5 ; Gro_e_1 = 0.5, _, 2.5, 3.5, 4.5, 1e+300 ; }"));
    // Systems in the words of CF, or as WKT alone.
    for (const char* system : {"EPSG:28350", "EPSG:4326", "EPSG:2154", "EPSG:2263"}) {
        ModelObject placed = qstrcmp(system, "EPSG:4326") == 0
                                 ? gridOf(QStringLiteral("G"), 2, {1, 2, 3, 4}, 10, 20, 0.5)
                                 : gridOf(QStringLiteral("G"), 2, {1, 2, 3, 4}, 700000, 6600000, 10);
        placed.crs = wktOf(QString::fromLatin1(system));
        const SaverRun one("netcdf", {placed}, path("s.nc"));
        QCOMPARE(one.fault(), QString());
        QVERIFY(one.readBack[0].comparedText().contains(QStringLiteral("coordinate system")));
    }
}

void RasterTest::rotation()
{
    for (const double degrees : {30.0, -75.0, 180.0, 200.5}) {
        const SaverRun run("geotiff", {rotated(degrees, 7.5)}, path("a.tif"));
        QCOMPARE(run.fault(), QString());
        QVERIFY(run.readBack[0].worst().difference < 1e-8);
        QCOMPARE(run.readBack[0].positions(), 6);
    }
}

void RasterTest::refused_data()
{
    textRows({"format", "grid", "message"},
             {{"surfer7", "rotated", "is rotated by 30 degrees, and a Surfer 7 grid cannot be"},
              {"arcgrid", "rotated", "is rotated by 30 degrees"},
              {"netcdf", "rotated", "is rotated by 30 degrees"},
              {"netcdf", "one row", "has a single row or column"},
              {"arcgrid", "oblong", "has cells of 20 x 10, and those of a Arc ASCII grid are square"},
              {"surfer6", "one row", "has a single row or column"},
              {"surfer6ascii", "one row", "has a single row or column"},
              {"surfer6", "long", "and a Surfer 6 binary grid holds 32767 along a side"},
              {"geotiff", "no step", "has no distance between its nodes"},
              {"geotiff", "one row", ""},
              {"arcgrid", "one row", ""},
              {"surfer7", "oblong", ""}});
}

void RasterTest::refused()
{
    QFETCH(QString, format);
    QFETCH(QString, grid);
    QFETCH(QString, message);
    ModelObject object = grid == QLatin1String("rotated")   ? rotated(30)
                         : grid == QLatin1String("oblong")  ? rotated(0, 20)
                         : grid == QLatin1String("one row") ? gridOf(3, 1)
                         : grid == QLatin1String("long")    ? gridOf(33000, 2)
                                                            : gridOf(3, 2);
    if (grid == QLatin1String("no step"))
        object.grid->stepX = 0;
    const SaverRun run(format, {object}, path("a.x"));
    QCOMPARE(run.fault().isEmpty(), message.isEmpty());
    QVERIFY2(run.error().contains(message), qPrintable(run.error()));
    QCOMPARE(listing().isEmpty(), !message.isEmpty());
}

void RasterTest::losses_data()
{
    textRows(
        {"format", "settings", "findings"},
        {{"geotiff", "", "attribute that is not a number left out: 1"},
         {"geotiff", "precision=double;nullValue=13.5",
          "attribute that is not a number left out: 1, value equal to the null value: 1"},
         // Beyond single precision there is no number but infinity.
         {"geotiff", "precision=single",
          "attribute that is not a number left out: 1, number rounded to single precision: 1, number too large for "
          "the format, written as missing: 1"},
         {"arcgrid", "attribute=thickness;decimals=0",
          "number rounded to 0: 1, a grid file holds one value per node; attributes left out: 1"},
         {"surfer7", "attribute=thickness",
          "number too large for the format, written as missing: 1, a grid file holds one value per node; attributes "
          "left out: 1, coordinate system not carried: 1"},
         {"surfer7", "attribute=rock", ""}});
}

void RasterTest::losses()
{
    QFETCH(QString, format);
    QFETCH(QString, settings);
    QFETCH(QString, findings);
    ModelObject grid = surface();
    if (settings.contains(QStringLiteral("decimals=0")))
        grid.vertexAttributes[0] =
            columnOf(QStringLiteral("thickness"), AttributeKind::Real, {0.25, 1, 2, 3, 4, QVariant()});
    const SaverRun run(format, {grid}, path("a.x"), settings);
    if (findings.isEmpty()) {
        QVERIFY2(run.error().contains(QStringLiteral("has no numeric attribute \"rock\"; it has: thickness"))
                     || run.error().contains(QStringLiteral("it has: thickness")),
                 qPrintable(run.error()));
        return;
    }
    QVERIFY(run.fault().isEmpty() || settings.contains(QStringLiteral("nullValue")));
    QCOMPARE(run.findings(), findings);
}

void RasterTest::realData_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("file");
    for (const char* format : {"geotiff", "cog", "arcgrid", "surfer7", "surfer6", "surfer6ascii", "netcdf"}) {
        QTest::newRow(format) << QString::fromLatin1(format) << sample("dtm_rp.tif");
        if (!shared("data/reek/topreek.tif").isEmpty())
            QTest::addRow("%s reek", format) << QString::fromLatin1(format) << shared("data/reek/topreek.tif");
    }
}

void RasterTest::realData()
{
    // There and back through the program's own reader, at the same nodes.
    QFETCH(QString, format);
    QFETCH(QString, file);
    const std::vector<ModelObject> objects = loaded(file);
    if (objects.front().grid->rotation != 0.0 && format != QLatin1String("geotiff") && format != QLatin1String("cog"))
        QSKIP("rotated");
    const SaverRun run(format, objects, path("out.") + formatOf(format)->info().defaultExtension);
    QCOMPARE(run.fault(), QString());
    const ModelObject& before = run.objects.front();
    const ModelObject after = loaded(run.files[0].path).front();
    QCOMPARE(after.vertexCount(), before.vertexCount());
    for (std::size_t node = 0; node < before.x->size(); ++node) {
        const bool hole = std::isnan((*before.z)[node]);
        const bool same = std::abs((*after.x)[node] - (*before.x)[node]) < 1e-5
                          && std::abs((*after.y)[node] - (*before.y)[node]) < 1e-5;
        // Text of decimals is read in single precision.
        QVERIFY(same && (hole ? std::isnan((*after.z)[node]) : std::abs((*after.z)[node] - (*before.z)[node]) < 3e-4));
    }
}

void RasterTest::damages_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("right");
    QTest::addColumn<QByteArray>("wrong");
    const auto row = [](const char* name, const char* format, const QByteArray& right, const QByteArray& wrong) {
        QTest::newRow(name) << QString::fromLatin1(format) << right << wrong;
    };
    row("geotiff value", "geotiff", bytesOf(15.5), bytesOf(15.500001));
    row("geotiff null", "geotiff", bytesOf(-99999.0), bytesOf(0.0));
    row("geotiff place", "geotiff", bytesOf(501000.0), bytesOf(501000.001));
    row("geotiff step", "geotiff", bytesOf(10.0) + bytesOf(10.0), bytesOf(10.0) + bytesOf(10.001));
    row("geotiff system", "geotiff",
        bytesOf(qint16(3072)) + bytesOf(qint16(0)) + bytesOf(qint16(1)) + bytesOf(qint16(28350)),
        bytesOf(qint16(3072)) + bytesOf(qint16(0)) + bytesOf(qint16(1)) + bytesOf(qint16(28351)));
    row("geotiff area", "geotiff", bytesOf(qint16(1025)) + bytesOf(qint16(0)) + bytesOf(qint16(1)) + bytesOf(qint16(2)),
        bytesOf(qint16(1025)) + bytesOf(qint16(0)) + bytesOf(qint16(1)) + bytesOf(qint16(1)));
    row("geotiff band", "geotiff", ">elevation<", ">elevatiom<");
    row("netcdf value", "netcdf", turned(15.5), turned(15.500001));
    row("netcdf null", "netcdf", turned(-99999.0) + turned(15.5), turned(0.0) + turned(15.5));
    row("netcdf place", "netcdf", turned(501010.0), turned(501010.001));
    row("netcdf unit", "netcdf", bytesFrom("units\0\0\0\0\0\0\2\0\0\0\1m\0\0\0\0\0\0\x8positive"),
        bytesFrom("units\0\0\0\0\0\0\2\0\0\0\1k\0\0\0\0\0\0\x8positive"));
    row("surfer7 value", "surfer7", bytesOf(15.5), bytesOf(15.500001));
    row("surfer7 null", "surfer7", "DATA" + bytesOf(qint32(48)) + bytesOf(11.5),
        "DATA" + bytesOf(qint32(48)) + bytesOf(double(blank)));
    row("surfer7 place", "surfer7", bytesOf(501000.0), bytesOf(501000.001));
    row("surfer7 size", "surfer7", bytesOf(qint32(2)) + bytesOf(qint32(3)), bytesOf(qint32(3)) + bytesOf(qint32(2)));
    row("surfer6 value", "surfer6", bytesOf(15.5f), bytesOf(15.501f));
    row("surfer6 extent", "surfer6", bytesOf(501020.0), bytesOf(501020.001));
    row("surfer6ascii value", "surfer6ascii", "15.5", "15.6");
    row("surfer6ascii null", "surfer6ascii", "1.70141E+38", "0");
    row("surfer6ascii order", "surfer6ascii", "12.1 13.5", "13.5 12.1");
    row("arcgrid value", "arcgrid", "12.1000", "12.1002");
    row("arcgrid null", "arcgrid", " -99999.0000 15.5", " 0.0000 15.5");
    row("arcgrid corner", "arcgrid", "500995.000000000000", "501000.000000000000");
}

void RasterTest::damages()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, right);
    QFETCH(QByteArray, wrong);
    ModelObject grid = surface();
    grid.vertexAttributes.clear();
    const SaverRun run(format, {grid}, path("a.x"), format == QLatin1String("geotiff") ? "compression=none" : "");
    QCOMPARE(run.fault(), QString());
    QVERIFY2(!run.damaged(right, wrong).fault().isEmpty(), "this was not noticed");
}

void RasterTest::devicesAndSidecars()
{
    const SaverRun run("geotiff", {surface()}, QStringLiteral("/dev/full"));
    QVERIFY2(run.error().contains(QStringLiteral("a device cannot hold a GeoTIFF")), qPrintable(run.error()));
    // What stood beside an earlier file would move or hide the new one.
    write("a.asc.aux.xml", "<PAMDataset/>");
    write("a.prj", "LOCAL_CS[\"old\"]");
    ModelObject grid = surface();
    grid.crs.clear();
    const SaverRun arc("arcgrid", {grid}, path("a.asc"));
    QCOMPARE(arc.fault(), QString());
    QCOMPARE(listing(), QStringLiteral("a.asc"));
}

void RasterTest::cancelled_data()
{
    textRows({"format"}, {{"geotiff"}, {"cog"}, {"arcgrid"}, {"surfer7"}, {"surfer6"}, {"surfer6ascii"}, {"netcdf"}});
}

void RasterTest::cancelled()
{
    QFETCH(QString, format);
    CancelAt all(1000);
    SaverRun run(format, {gridOf(1500, 1000)}, path("a.x"), {}, &all);
    QCOMPARE(run.fault(), QString());
    QVERIFY(all.reached == 100 && !all.backwards);
    const QMap<QString, QByteArray> before = contentsOf(path());
    for (const int percent : {10, 50, 90}) {
        CancelAt progress(percent);
        QVERIFY(!run.again({}, &progress));
        QVERIFY(run.report.cancelled && run.error().isEmpty());
        QVERIFY2(progress.reached >= percent && progress.reached < percent + 25,
                 qPrintable(QString::number(progress.reached)));
        QVERIFY(contentsOf(path()) == before);
    }
}

QTEST_GUILESS_MAIN(RasterTest)
#include "tst_raster.moc"
