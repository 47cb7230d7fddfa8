// SPDX-License-Identifier: MIT
// Every damage to a written vector file is found by reading it again; what is rightly missing is not a fault.
#include "tests/formats/ogr/OgrTestTools.h"

using namespace kpFormats;

namespace
{

ModelObject samples()
{
    ModelObject object = objectOf(ObjectType::VertexClouds, QStringLiteral("S"),
                                  {{500000, 7500000, 1}, {500100, 7500200, 2}, {500300, 7500100, 3}}, "EPSG:28350");
    object.vertexAttributes = {columnOf(QStringLiteral("grade"), AttributeKind::Real, {0.25, 1.5, QVariant()}),
                               columnOf(QStringLiteral("rock"), AttributeKind::Text,
                                        {QStringLiteral("shale"), QStringLiteral("chert"), QStringLiteral("gneiss")})};
    return object;
}

void damage(OGRLayer& layer, qint64 second, const QString& what)
{
    const OGRFeatureUniquePtr feature(layer.GetFeature(second));
    if (what == QLatin1String("missing feature")) {
        QCOMPARE(layer.DeleteFeature(second), OGRERR_NONE);
        return;
    }
    if (what == QLatin1String("doubled feature"))
        feature->SetFID(OGRNullFID);
    OGRPoint place = *feature->GetGeometryRef()->toPoint();
    if (what == QLatin1String("position"))
        place.setX(place.getX() + 0.001);
    if (what == QLatin1String("height"))
        place.setZ(place.getZ() + 500);
    feature->SetGeometry(&place);
    if (what == QLatin1String("value"))
        feature->SetField("grade", 3.0);
    if (what == QLatin1String("text"))
        feature->SetField("rock", "Chert");
    if (what == QLatin1String("null"))
        feature->SetFieldNull(feature->GetFieldIndex("grade"));
    if (what == QLatin1String("doubled feature"))
        QCOMPARE(layer.CreateFeature(feature.get()), OGRERR_NONE);
    else
        QCOMPARE(layer.SetFeature(feature.get()), OGRERR_NONE);
    if (what == QLatin1String("name of a field")) {
        OGRFieldDefn field("ore", OFTReal);
        QCOMPARE(layer.AlterFieldDefn(layer.GetLayerDefn()->GetFieldIndex("grade"), &field, ALTER_NAME_FLAG),
                 OGRERR_NONE);
    }
}

} // namespace

class OgrVerificationTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { emptyFolder(); }
    void damages_data();
    void damages();
    void system();
    void rightlyMissing_data();
    void rightlyMissing();
};

void OgrVerificationTest::damages_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("fault");
    const auto row = [](const QString& what, const char* fault) {
        for (const char* format : {"gpkg", "shp", "sqlite", "tab"}) {
            // A table has no heights and no missing numbers, and its driver cannot take a field's name back.
            const bool table = QLatin1String(format) == QLatin1String("tab");
            if (table && (what == QLatin1String("height") || what == QLatin1String("name of a field")))
                continue;
            if (table && what == QLatin1String("position"))
                fault = "S, vertex 2: (500100.001, 7500200) was read instead of (500100, 7500200)";
            if (table && what == QLatin1String("null"))
                fault = "S, feature 2, grade: 0 was read instead of 1.5";
            QTest::newRow(qPrintable(QLatin1String(format) + QLatin1Char(' ') + what))
                << QString::fromLatin1(format) << what << QString::fromLatin1(fault);
        }
    };
    row(QStringLiteral("position"), "S, vertex 2: (500100.001, 7500200, 2) was read instead of (500100, 7500200, 2)");
    row(QStringLiteral("height"), "S, vertex 2: (500100, 7500200, 502) was read instead of (500100, 7500200, 2)");
    row(QStringLiteral("value"), "S, feature 2, grade: 3 was read instead of 1.5");
    row(QStringLiteral("text"), "S, feature 2, rock: \"Chert\" was read instead of \"chert\"");
    row(QStringLiteral("null"), "S, feature 2, grade: nothing was read instead of 1.5");
    row(QStringLiteral("missing feature"), "S, vertex 2: ");
    row(QStringLiteral("doubled feature"), "more features than the model");
    row(QStringLiteral("name of a field"), "names of fields");
}

void OgrVerificationTest::damages()
{
    QFETCH(QString, format);
    QFETCH(QString, what);
    QFETCH(QString, fault);
    const SaverRun run(format, {samples()}, path(QStringLiteral("d.") + format));
    QCOMPARE(run.fault(), QString());
    if (format == QLatin1String("gpkg"))
        QCOMPARE(run.readBack.front().comparedText(),
                 QStringLiteral("3 positions, 2 values, 9 texts, 1 missing value, names of fields, coordinate system, "
                                "kinds of fields"));
    const qint64 second = format == QLatin1String("shp") ? 1 : 2;
    damage(*openVector(run.files.front().path, GDAL_OF_UPDATE)->GetLayer(0), second, what);
    const QString found = run.verify().fault();
    QVERIFY2(found.contains(fault), qPrintable(found));
}

void OgrVerificationTest::system()
{
    const SaverRun run("shp", {samples()}, path("s.shp"));
    QCOMPARE(run.fault(), QString());
    const QByteArray right = contentOf(path("s.prj"));
    writeFile(path("s.prj"), QByteArray(right).replace("117.0", "123.0"));
    QVERIFY2(run.verify().fault().contains(QStringLiteral("coordinate system")), qPrintable(run.verify().fault()));
    QFile::remove(path("s.prj"));
    QVERIFY2(run.verify().fault().contains(QStringLiteral("no coordinate system was read")),
             qPrintable(run.verify().fault()));
}

void OgrVerificationTest::rightlyMissing_data()
{
    ogrFormatRows(true);
}

void OgrVerificationTest::rightlyMissing()
{
    // A mistyped easting among good ones, and one without any place.
    QFETCH(QString, format);
    ModelObject object = samples();
    object.x = numbersOf({500000, 5e7, 1e12});
    const SaverRun far(format, {object}, path("far"), "crs=EPSG:4283");
    QCOMPARE(far.fault(), QString());
    if (format != QLatin1String("geojson"))
        return;
    // What crosses 180 degrees is cut there, and what lies a hair beyond it has no place.
    const ModelObject line = objectOf(ObjectType::Polylines, QStringLiteral("L"),
                                      {{175, 10, 0}, {179, 11, 0}, {-179, 12, 0}, {-175, 13, 0}});
    const ModelObject area =
        objectOf(ObjectType::Polygons, QStringLiteral("A"),
                 {{170, 10, 0}, {180.00000000000014, 11, 0}, {175, 15, 0}, {170, 10, 0}, {170, 12, 0}});
    QCOMPARE(SaverRun(format, {line}, path("line")).fault(), QString());
    QCOMPARE(SaverRun(format, {area}, path("area")).fault(), QString());
}

QTEST_GUILESS_MAIN(OgrVerificationTest)
#include "tst_ogrverification.moc"
