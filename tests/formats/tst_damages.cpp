// SPDX-License-Identifier: MIT
// Every damage to a written file is found by reading it again.
#include "tests/support/SaverRun.h"
#include "tests/support/TextRows.h"

using namespace kpFormats;

namespace
{

ModelObject cloud()
{
    ModelObject object = objectOf(ObjectType::VertexClouds, QStringLiteral("S"),
                                  {{117.125, -22.125, 10.5}, {117.25, -22.25, 20.5}, {117.5, -22.5, 30.5}});
    object.vertexAttributes = {columnOf(QStringLiteral("grade"), AttributeKind::Real, {0.6, QVariant(), 8.3}),
                               columnOf(QStringLiteral("rock"), AttributeKind::Text,
                                        {QStringLiteral("shale"), QStringLiteral("chert"), QStringLiteral("gneiss")})};
    return object;
}

ModelObject line()
{
    ModelObject object = objectOf(ObjectType::Polylines, QStringLiteral("L"),
                                  {{117.625, -22.625, 40.5}, {117.75, -22.75, 50.5}, {117.875, -22.875, 60.5}});
    object.objectAttributes = {{QStringLiteral("age"), AttributeKind::Integer, QString(), 65},
                               {QStringLiteral("kind"), AttributeKind::Text, QString(), QStringLiteral("thrust")}};
    return object;
}

ModelObject hole()
{
    ModelObject object =
        objectOf(ObjectType::Wells, QStringLiteral("W"), {{10, 20, 5}, {11, 21, -6.5}, {12, 22, none}}, "");
    object.vertexAttributes = {columnOf(QStringLiteral("MD"), AttributeKind::Real, {0, 12.25, 31}),
                               columnOf(QStringLiteral("GR"), AttributeKind::Real, {45.5, QVariant(), 47.75})};
    object.objectAttributes.push_back(
        {QStringLiteral("operator"), AttributeKind::Text, QString(), QStringLiteral("ABC")});
    return object;
}

ModelObject section()
{
    ModelObject object = objectOf(ObjectType::CrossSections, QStringLiteral("A"), {{0, 0, 0}, {10, 0, 0}}, "");
    SectionSegment horizon;
    horizon.name = QStringLiteral("H");
    horizon.type = ObjectType::GridSurfaces;
    horizon.color = QColor(1, 2, 3);
    horizon.distance = {0, 5};
    horizon.x = {0, 5};
    horizon.y = {0, 0};
    horizon.z = {-3, -7};
    CrossSection drawn;
    drawn.segments = {horizon};
    object.section = std::make_shared<const CrossSection>(drawn);
    return object;
}

std::vector<ModelObject> samplesOf(const QString& format)
{
    if (format == QLatin1String("zmap") || format == QLatin1String("off") || format == QLatin1String("irap"))
        return {gridOf(QStringLiteral("G"), 3, {11.5, 12.5, none, 14.5, 15.5, 16.5}, 1000, 2000, 10)};
    if (format == QLatin1String("las"))
        return {hole()};
    if (format == QLatin1String("grdecl"))
        return {boxOf(cellsOf(2, 1, 2))};
    if (format == QLatin1String("opentec"))
        return {section()};
    return {cloud(), line()};
}

} // namespace

class DamagesTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { emptyFolder(); }
    void texts_data();
    void texts();
};

void DamagesTest::texts_data()
{
    // what is damaged, format, text that stands once in the file, what stands there then
    const char* const second =
        "{ \"type\": \"Feature\", \"properties\": { \"name\": \"S\", \"grade\": null, \"rock\": \"chert\", "
        "\"colorval\": \"#007fff\" }, \"geometry\": { \"type\": \"Point\", \"coordinates\": [ 117.25, "
        "-22.25, 20.5 ] } },\n";
    const QByteArray twice = QByteArray(second) + second;
    textRows(
        {"format", "right", "wrong"},
        {{"kml position", "kml", "117.250000000", "117.250000009"},
         {"kml order of axes", "kml", "117.500000000,-22.500000000", "-22.500000000,117.500000000"},
         {"kml height", "kml", "20.500\n", "25.500\n"},
         {"kml value", "kml", "8.3&", "8.4&"},
         {"kml text", "kml", "gneiss", "Gneiss"},
         {"kml null", "kml", "rock&lt;/td&gt;&lt;td&gt;chert",
          "grade&lt;/td&gt;&lt;td&gt;0&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;rock&lt;/td&gt;&lt;td&gt;chert"},
         {"kml name", "kml", "<name>S 2</name>", "<name>S 3</name>"},
         {"kml colour", "kml", "<Style><LineStyle><color>ffff7f00</color><width>2</width></LineStyle></Style>\n<Line",
          "<Style><LineStyle><color>ffff7f01</color><width>2</width></LineStyle></Style>\n<Line"},
         {"kml missing vertex", "kml", "117.750000000,-22.750000000,50.500\n", ""},
         {"kml doubled vertex", "kml", "117.750000000,-22.750000000,50.500\n",
          "117.750000000,-22.750000000,50.500\n117.750000000,-22.750000000,50.500\n"},
         {"kml another kind", "kml", "<name>L</name>", "<name>M</name>"},
         {"dxf position", "dxf", "117.250000000", "117.250000009"},
         {"dxf height", "dxf", "50.5000000", "50.6000000"},
         {"dxf missing vertex", "dxf",
          "0\nVERTEX\n8\nS\n10\n117.750000000\n20\n-22.750000000\n30\n50.5000000\n70\n32\n", ""},
         {"dxf missing point", "dxf", "0\nPOINT\n8\nS\n62\n150\n10\n117.250000000\n20\n-22.250000000\n30\n20.5000000\n",
          ""},
         {"dxf closed", "dxf", "70\n8\n", "70\n9\n"},
         {"dxf layer", "dxf", "0\nPOLYLINE\n8\nS\n", "0\nPOLYLINE\n8\nT\n"},
         {"dxf colour", "dxf", "0\nPOLYLINE\n8\nS\n62\n150\n", "0\nPOLYLINE\n8\nS\n62\n151\n"},
         {"gocad position", "gocad", "117.25000000", "117.25000009"},
         {"gocad height", "gocad", "20.50000000", "25.50000000"},
         {"gocad value", "gocad", "8.3\n", "8.4\n"},
         {"gocad null", "gocad", "20.50000000 -99999", "20.50000000 0"},
         {"gocad name", "gocad", "name:L", "name:M"},
         {"gocad property", "gocad", "PROPERTIES grade", "PROPERTIES ore"},
         {"gocad segment", "gocad", "SEG 2 3\n", ""},
         {"gocad missing point", "gocad", "PVRTX 2 117.25000000 -22.25000000 20.50000000 -99999\n", ""},
         {"gocad depths", "gocad",
          "GOCAD PLine 1\nHEADER {\nname:L\n*line*color:0.000000 0.498039 1.000000 1\n}\n"
          "GOCAD_ORIGINAL_COORDINATE_SYSTEM\nNAME Default\nPROJECTION \"WGS 84 (EPSG:4326)\"\nDATUM Unknown\n"
          "AXIS_NAME \"X\" \"Y\" \"Z\"\nAXIS_UNIT \"degrees\" \"degrees\" \"m\"\nZPOSITIVE Elevation",
          "GOCAD PLine 1\nHEADER {\nname:L\n*line*color:0.000000 0.498039 1.000000 1\n}\n"
          "GOCAD_ORIGINAL_COORDINATE_SYSTEM\nNAME Default\nPROJECTION \"WGS 84 (EPSG:4326)\"\nDATUM Unknown\n"
          "AXIS_NAME \"X\" \"Y\" \"Z\"\nAXIS_UNIT \"degrees\" \"degrees\" \"m\"\nZPOSITIVE Depth"},
         {"grdecl position", "grdecl", "\n 1010.000 20.000 10.000", "\n 1010.000 20.002 10.000"},
         {"grdecl depth", "grdecl", "16*1005.000", "15*1005.000 1006.000"},
         {"grdecl value", "grdecl", "4*0.25", "3*0.25 0.26"},
         {"grdecl missing value", "grdecl", "4*0.25", "3*0.25"},
         {"grdecl activity", "grdecl", "4*1\n", "3*1 0\n"},
         {"grdecl size", "grdecl", " 2 1 2 1 F", " 2 2 1 1 F"},
         {"grdecl unit", "grdecl", "GRIDUNIT\n 'METRES'", "GRIDUNIT\n 'FEET'"},
         {"grdecl axis", "grdecl", "MAPAXES\n 0.000 1000.000\n", "MAPAXES\n 1.000 1000.000\n"},
         {"grdecl keyword", "grdecl", "PORO", "PORV"},
         {"irap value", "irap", " 15.5000", " 15.5002"},
         {"irap null", "irap", "9999900.0000", "0.0000"},
         {"irap place", "irap", "\n1000.000000000", "\n1000.000001000"},
         {"irap step", "irap", "-996 2 10.000000000", "-996 2 10.000010000"},
         {"irap rotation", "irap", "3 0.000000000", "3 0.001000000"},
         {"irap end", "irap", " 1020.000000000", " 1021.000000000"},
         {"irap size", "irap", "-996 2 ", "-996 3 "},
         {"irap order", "irap", "12.5000 9999900.0000", "9999900.0000 12.5000"},
         {"irap points position", "irappoints", "117.75000000", "117.75000009"},
         {"irap points height", "irappoints", "50.50000000", "50.50000009"},
         {"irap points end", "irappoints", "999.00000000 999.00000000 999.00000000\n", ""},
         {"irap points order", "irappoints", "117.75000000 -22.75000000", "-22.75000000 117.75000000"},
         {"irap points missing", "irappoints", "117.75000000 -22.75000000 50.50000000\n", ""},
         {"las depth", "las", " 12.2500", " 12.2502"},
         {"las position", "las", " 21.0000", " 21.0002"},
         {"las height", "las", " -6.5000", "  6.5000"},
         {"las value", "las", " 47.7500", " 47.7502"},
         {"las null", "las", " -6.5000      -999.25", " -6.5000            0"},
         {"las null of all", "las", "NULL.            -999.25 ", "NULL.            -999    "},
         {"las curve", "las", "\nGR.", "\nSP."},
         {"las well", "las", "W                        : well", "V                        : well"},
         {"las unit", "las", "\nDEPT.M ", "\nDEPT.FT"},
         {"las start", "las", "STRT.M           0.0000", "STRT.M           1.0000"},
         {"las stop", "las", "STOP.M           31.0000", "STOP.M           31.0002"},
         {"las place", "las", "X.M              10 ", "X.M              11 "},
         {"las reference", "las", "EREF.M           5 ", "EREF.M           6 "},
         {"las attribute", "las", "operator.        ABC", "operator.        ABD"},
         {"off position", "off", "1010.00000000 2000.00000000 12.5", "1010.00010000 2000.00000000 12.5"},
         {"off height", "off", "12.50000000", "12.50010000"},
         {"off corner", "off", "3 0 3 2", "3 0 3 4"},
         {"off missing triangle", "off", "3 0 3 2\n", ""},
         {"off doubled triangle", "off", "3 0 3 2\n", "3 0 3 2\n3 0 3 2\n"},
         {"zmap value", "zmap", "15.5000", "15.5002"},
         {"zmap null", "zmap", "16.5000 -99999.0000", "16.5000      0.0000"},
         {"zmap place", "zmap", "1020.0000000", "1020.0001000"},
         {"zmap order", "zmap", "     14.5000     11.5000", "     11.5000     14.5000"},
         {"zmap size", "zmap", "2, 3, 1000", "3, 2, 1000"},
         {"geojson position", "geojson", "117.25,", "117.25000009,"},
         {"geojson height", "geojson", "20.5 ]", "20.52 ]"},
         {"geojson value", "geojson", "8.3", "8.300001"},
         {"geojson text", "geojson", "gneiss", "Gneiss"},
         {"geojson null", "geojson", "null", "0"},
         {"geojson type", "geojson", "8.3", "\"8.3\""},
         {"geojson missing feature", "geojson", second, ""},
         {"geojson doubled feature", "geojson", second, twice.constData()},
         {"geojson system", "geojson", "\"features\"",
          "\"crs\": { \"type\": \"name\", \"properties\": { \"name\": \"urn:ogc:def:crs:EPSG::28350\" } "
          "},\n\"features\""},
         {"gml position", "gml", "<gml:pos>-22.25 117.25 20.5<", "<gml:pos>-22.25 117.2500001 20.5<"},
         {"gml height", "gml", "<gml:pos>-22.25 117.25 20.5<", "<gml:pos>-22.25 117.25 20.6<"},
         {"gml value", "gml", "8.3<", "8.30001<"},
         {"gml text", "gml", "gneiss", "Gneiss"},
         {"gml null", "gml", "<ogr:rock>chert", "<ogr:grade>0</ogr:grade><ogr:rock>chert"},
         {"pgdump position", "pgdump", "0000000000505D40", "0000010000505D40"},
         {"pgdump value", "pgdump", "\t8.3\t", "\t8.30001\t"},
         {"pgdump text", "pgdump", "gneiss", "Gneiss"},
         {"pgdump null", "pgdump", "\t\\N\tchert", "\t0\tchert"},
         {"pgdump kind", "pgdump", "\"grade\" FLOAT8", "\"grade\" VARCHAR"},
         {"pgdump row", "pgdump", "\tchert\t", "\tchert"},
         {"pgdump end", "pgdump", "gneiss\t#007fff\n\\.\n", "gneiss\t#007fff\n"},
         {"fgb text", "fgb", "gneiss", "Gneiss"},
         {"fgb field", "fgb", "grade", "Grade"},
         {"opentec position", "opentec", "5.00 0.00 7.00", "5.00 0.00 7.02"},
         {"opentec age", "opentec", "section_age 0.00", "section_age 1.00"}});
}

void DamagesTest::texts()
{
    QFETCH(QString, format);
    QFETCH(QString, right);
    QFETCH(QString, wrong);
    const SaverRun run(format, samplesOf(format), path("out"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.bytes().count(right.toUtf8()), 1);
    QVERIFY2(!run.damaged(right.toUtf8(), wrong.toUtf8()).fault().isEmpty(), "this was not noticed");
}

QTEST_GUILESS_MAIN(DamagesTest)
#include "tst_damages.moc"
