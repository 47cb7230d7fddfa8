// SPDX-License-Identifier: MIT
// What the vector formats cannot hold as it is: names, values, sizes, character sets, shapes, colours.
#include "formats/ogr/FieldNames.h"
#include "formats/ogr/OgrTable.h"
#include "tests/formats/ogr/OgrTestTools.h"
#include "tests/support/TextRows.h"

using namespace kpFormats;

namespace
{

ModelObject cloudOf(const QString& name, const std::vector<double>& x, std::vector<AttributeColumn> attributes = {})
{
    ModelObject object = objectOf(name, ObjectType::VertexClouds, x, x, x);
    object.vertexAttributes = std::move(attributes);
    return object;
}

AttributeColumn textsOf(const char* name, const QStringList& texts)
{
    return columnOf(QString::fromLatin1(name), AttributeKind::Text, QVariant(texts).toList().toVector());
}

} // namespace

class OgrLimitsTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void names_data();
    void names();
    void plans_data();
    void plans();
    void limits_data();
    void limits();
    void wideTable_data();
    void wideTable();
    void tableEndsOnce();
    void dipAndType_data();
    void dipAndType();
    void moments_data();
    void moments();
    void styles();
    void tabGrid();
    void tabCharacterSets_data();
    void tabCharacterSets();
    void surfaces();
    void degenerate();
    void geoPackageWithoutSystem();
    void geoPackageNames();
    void gmlTexts();
    void dumpText();
};

void OgrLimitsTest::names_data()
{
    textRows({"wanted", "made", "script"}, {{"short", "short", ""},
                                            {"porosity_mean|porosity_m", "porosity_1|porosity_m", ""},
                                            {"a b-c|A b c", "a_b_c|A_b_c_1", ""},
                                            {"Grad|grad|GRAD", "Grad|grad_1|GRAD_2", ""},
                                            {"grad|grad_1|grad", "grad|grad_1|grad_2", ""},
                                            {"地層の名前", "地層の", ""},
                                            {"пористость|пористость2", "порис|пори_1", ""},
                                            {"", "field", ""},
                                            {"fid", "fid_1", ""},
                                            {"Größe|Grösse", "Grosse|Grosse_1", "ascii"},
                                            {"Глубина|Щебень", "Glubina|Shcheben", "ascii"},
                                            {"Βάθος", "Bathos", "ascii"},
                                            {"深度", "__", "ascii"},
                                            {"1st|a b|Глуб|µ|深", "_1st|a_b|Глуб|_|深", "xml"}});
}

void OgrLimitsTest::names()
{
    QFETCH(QString, wanted);
    QFETCH(QString, made);
    QFETCH(QString, script);
    FieldNameRules rules;
    rules.mostBytes = 10;
    rules.plain = true;
    rules.ascii = script == QLatin1String("ascii");
    rules.xml = script == QLatin1String("xml");
    rules.reserved = QStringList{QStringLiteral("FID")};
    QCOMPARE(fieldNames(wanted.split(QLatin1Char('|')), rules).join(QLatin1Char('|')), made);
}

void OgrLimitsTest::plans_data()
{
    textRows(
        {"format", "settings", "output", "names"},
        {{"a file per type", "shp", "single", "m.shp", "m_points.shp m_points3d.shp m_polylines3d.shp m_polygons.shp"},
         {"no heights, fewer types", "tab", "single", "m", "m_points.tab m_polylines.tab m_polygons.tab"},
         {"layers in one file", "gpkg", "single", "m.x", "m.x.gpkg"},
         {"another extension", "geojson", "single", "m.JSON",
          "m_points.json m_points3d.json m_polylines3d.json m_polygons.json"},
         {"capitals", "shp", "object", "m.SHP", "m_P.shp m_Q.shp m_L.shp m_p_2.shp"},
         {"sets", "shp", "set", "m", "m_A_points.shp m_A_points3d.shp m_B_polylines3d.shp m_B_polygons.shp"},
         {"sets in folders", "gpkg", "set", "", "A.gpkg B.gpkg"},
         {"a folder is not a file", "shp", "single", "", "."}});
}

void OgrLimitsTest::plans()
{
    QFETCH(QString, format);
    QFETCH(QString, settings);
    QFETCH(QString, output);
    QFETCH(QString, names);
    const auto object = [](const char* name, ObjectType type, bool hasZ, const char* set) {
        ModelObject made =
            objectOf(ObjectType::Polylines, QString::fromLatin1(name), {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}});
        made.type = type;
        made.hasZ = hasZ;
        made.set = QString::fromLatin1(set);
        return made;
    };
    const std::vector<ModelObject> objects{
        object("P", ObjectType::Posts, false, "A"), object("Q", ObjectType::VertexClouds, true, "A"),
        object("L", ObjectType::Wells, true, "B"), object("p", ObjectType::Polygons, false, "B")};
    emptyFolder();
    const SaverRun run(format, objects, output.isEmpty() ? path() : path() + QLatin1Char('/') + output,
                       QStringLiteral("grouping=") + settings);
    QStringList made;
    for (const PlannedFile& file : run.files)
        made.append(QDir(path()).relativeFilePath(file.path));
    QCOMPARE(made.join(QLatin1Char(' ')), names);
}

void OgrLimitsTest::limits_data()
{
    textRows({"format", "values", "findings"},
             {{"shp", "shp",
               "0.00001|-2147483648|null|84|1|3333333.5\n1000000000000000.0|5|a|84|0|3333333.33333333\n"
               "null|null|Zürich 東|84|null|3333333.25\nnull|7|null|84|1|null",
               "number that is not finite written as missing: 1, number wider than its field, written as missing: 1, "
               "empty text, read back as missing: 1, text cut: 4, yes or no written as 1 or 0: 1"},
              {"tab", "tab",
               "1e-05|-2147483648||84|1|3333333.5\n1e+15|5|a|84|0|3333333.33333333\n"
               "0|0|Zürich 東|84|0|3333333.25\n1e+33|7||84|1|0",
               "z dropped: 4, number that is not finite written as missing: 1, missing number written as 0: 4, "
               "missing text written as an empty one: 1, text cut: 4, yes or no written as 1 or 0: 1"},
              {"gpkg", "gpkg",
               "1e-05|-2147483648|null|100|1|3333333.5\n1e+15|5|a|100|0|3333333.33333333\n"
               "null|null|Zürich 東|100|null|3333333.25\n1e+33|7||100|1|null",
               "number that is not finite written as missing: 1"},
              {"geojson", "geojson",
               "1e-05|-2147483648|null|100|1|3333333.5\n1e+15|5|a|100|0|3333333.33333333\n"
               "null|null|Zürich 東|100|null|3333333.25\n1e+33|7||100|1|null",
               "number that is not finite written as missing: 1"},
              {"fgb", "fgb",
               "1e-05|-2147483648|null|100|1|3333333.5\n1e+15|5|a|100|0|3333333.33333333\n"
               "null|null|Zürich 東|100|null|3333333.25\n1e+33|7||100|1|null",
               "number that is not finite written as missing: 1"},
              {"sqlite", "sqlite",
               "1e-05|-2147483648|null|100|1|3333333.5\n1e+15|5|a|100|0|3333333.33333333\n"
               "null|null|Zürich 東|100|null|3333333.25\n1e+33|7||100|1|null",
               "number that is not finite written as missing: 1"},
              {"gml", "gml",
               "1e-05|-2147483648|null|100|1|3333333.5\n1e+15|5|a|100|0|3333333.33333333\n"
               "null|null|Zürich 東|100|null|3333333.25\n1e+33|7|null|100|1|null",
               "number that is not finite written as missing: 1, empty text, read back as missing: 1"}});
}

void OgrLimitsTest::limits()
{
    QFETCH(QString, format);
    QFETCH(QString, values);
    QFETCH(QString, findings);
    const QString text(100, QChar(0x5730));
    AttributeColumn sparse =
        textsOf("text", {QString(), QStringLiteral("a"), QString::fromUtf8("Zürich 東"), QStringLiteral("")});
    sparse.values[0] = QVariant();
    const ModelObject object =
        cloudOf(QStringLiteral("o"), {1, 2, 3, 4},
                {columnOf(QStringLiteral("wide"), AttributeKind::Real, {1e-5, 1e15, none, 1e33}),
                 columnOf(QStringLiteral("whole"), AttributeKind::Integer, {-2147483647 - 1, 5, QVariant(), 7}), sparse,
                 textsOf("long", {text, text, text, text}),
                 columnOf(QStringLiteral("yes"), AttributeKind::Boolean, {true, false, QVariant(), true}),
                 columnOf(QStringLiteral("real"), AttributeKind::Real,
                          {3333333.5, 3333333.333333333, 3333333.25, QVariant()})});
    const QMap<QString, QString> own{{QStringLiteral("tab"), QStringLiteral(";zField=false")},
                                     {QStringLiteral("geojson"), QStringLiteral(";rfc7946=false")}};
    const SaverRun run(format, {object}, path(QStringLiteral("limits.") + format),
                       QStringLiteral("objectName=false;crs=EPSG:28350") + own.value(format));
    const QStringList read = featureTexts(run.files.front().path, [&format](const OGRFeature& feature) {
        static const QRegularExpression zeros(QStringLiteral("(\\.\\d+?)0+$"));
        QStringList row;
        for (int field = 0; field < 6; ++field) {
            QString value = QString::fromUtf8(feature.GetFieldAsString(field));
            if (field == 3)
                value = QString::number(value.size());
            // A table gives its decimals, zeros too.
            if (format == QLatin1String("shp"))
                value.replace(zeros, QStringLiteral("\\1"));
            row.append(feature.IsFieldSetAndNotNull(field) ? value : QStringLiteral("null"));
        }
        return row.join(QLatin1Char('|'));
    });
    QCOMPARE(read.join(QLatin1Char('\n')), values);
    QCOMPARE(run.findings(), findings);
}

void OgrLimitsTest::wideTable_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("most");
    QTest::addColumn<int>("own"); // the name, the colour, of a table the height
    QTest::newRow("shp") << QStringLiteral("shp") << 255 << 2;
    QTest::newRow("tab") << QStringLiteral("tab") << 250 << 3;
}

void OgrLimitsTest::wideTable()
{
    QFETCH(QString, format);
    QFETCH(int, most);
    QFETCH(int, own);
    std::vector<AttributeColumn> attributes;
    for (int index = 0; index < 300; ++index)
        attributes.push_back(
            columnOf(QString::fromUtf8("пористость_%1").arg(index), AttributeKind::Real, {index + 0.5, QVariant()}));
    const SaverRun run(format, {cloudOf(QStringLiteral("o"), {1, 2}, attributes)},
                       path(QStringLiteral("wide.") + format));
    QVERIFY2(run.written, qPrintable(run.error()));
    QCOMPARE(run.countOf(QStringLiteral("attribute left out")), qint64(300 + own - most));
    const GDALDatasetUniquePtr source = openVector(run.files.front().path);
    const OGRFeatureUniquePtr first(source->GetLayer(0)->GetNextFeature());
    QCOMPARE(first->GetFieldCount(), most);
    QCOMPARE(first->GetFieldIndex("colorval"), most - 1);
    // Names that are alike where they are cut; never inside a character.
    const QStringList names = fieldNamesIn(run.files.front().path).toCaseFolded().split(QLatin1Char(' '));
    QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), most);
    QVERIFY(names.filter(QChar(QChar::ReplacementCharacter)).isEmpty());
    for (int index = 0; index < most - own; ++index)
        QCOMPARE(first->GetFieldAsDouble(index + own - 1), index + 0.5);
}

void OgrLimitsTest::tableEndsOnce()
{
    // More than a block of the file, and a table of one record.
    for (const int count : {1, 3000}) {
        ModelObject object = cloudOf(QStringLiteral("o"), std::vector<double>(static_cast<std::size_t>(count), 1.0));
        object.color = QColor(1, 2, 3);
        QVERIFY(SaverRun("shp", {object}, path("ends.shp")).written);
        // Fields name, of 1 byte, and colorval, of 7, behind the byte that marks deleted records.
        const QByteArray table = contentOf(path("ends.dbf"));
        const int head = 32 + 2 * 32 + 1;
        QCOMPARE(table.size(), head + count * 9 + 1);
        QCOMPARE(table.right(10), QByteArray(" o#010203\x1a"));
    }
}

void OgrLimitsTest::dipAndType_data()
{
    ogrFormatRows();
}

void OgrLimitsTest::dipAndType()
{
    QFETCH(QString, format);
    const QString longest(250, QLatin1Char('x'));
    const QStringList types{QStringLiteral("Fault"), QStringLiteral("Bed"), longest, longest};
    SaverRun run(format,
                 {cloudOf(QStringLiteral("o"), {1, 2, 3, 4},
                          {columnOf(QStringLiteral("Dip"), AttributeKind::Integer, {90, 0, 90, QVariant()}),
                           textsOf("TYPE", types)})},
                 path(QStringLiteral("dip.") + format), "dipInType=true;crs=EPSG:4326");
    // Tables hold 254 bytes.
    const bool cut = format == QLatin1String("shp") || format == QLatin1String("tab");
    QString upright = QStringLiteral("Vertical ") + longest;
    upright.truncate(cut ? 254 : 300);
    const QString file = run.files.front().path;
    QCOMPARE(fieldTexts(file, "TYPE"),
             (QStringList{QStringLiteral("Vertical Fault"), QStringLiteral("Horizontal Bed"), upright, longest}));
    QCOMPARE(run.countOf(QStringLiteral("type has Horizontal or Vertical before it")), 3);
    QCOMPARE(run.countOf(QStringLiteral("text cut")), cut ? 1 : 0);
    QCOMPARE(run.fault(), QString());
    QVERIFY(run.again("dipInType=false"));
    QCOMPARE(fieldTexts(file, "TYPE"), types);
    QCOMPARE(run.countOf(QStringLiteral("type has Horizontal or Vertical before it")), 0);
}

void OgrLimitsTest::moments_data()
{
    textRows({"format", "types", "findings"},
             {{"shp", "shp", "Date String String String", ""},
              {"tab", "tab", "Date Time String String", "dates written as texts: 2"},
              {"gpkg", "gpkg", "Date String DateTime String", "dates written as texts: 1"},
              {"geojson", "geojson", "Date Time DateTime DateTime", ""},
              {"fgb", "fgb", "String String DateTime String", "dates written as texts: 1"},
              {"gml", "gml", "Date Time DateTime String", "dates written as texts: 1"},
              {"sqlite", "sqlite", "Date Time DateTime String", "dates written as texts: 1"}});
}

void OgrLimitsTest::moments()
{
    QFETCH(QString, format);
    QFETCH(QString, types);
    QFETCH(QString, findings);
    const auto column = [](const char* name, TextMeaning meaning, const QStringList& texts) {
        AttributeColumn made = textsOf(name, texts);
        made.meaning = meaning;
        made.values.append(QVariant());
        return made;
    };
    const std::vector<AttributeColumn> columns{
        column("day", TextMeaning::Date, {QStringLiteral("2024-02-29"), QStringLiteral("1850-06-01")}),
        column("hour", TextMeaning::Time, {QStringLiteral("13:45:00"), QStringLiteral("23:59:59.999")}),
        column("moment", TextMeaning::DateTime,
               {QStringLiteral("2024-02-29T13:45:00Z"), QStringLiteral("1850-06-01T00:00:00.250Z")}),
        column("zoned", TextMeaning::DateTime,
               {QStringLiteral("2024-02-29T13:45:00+02:00"), QStringLiteral("1850-06-01T00:00:00Z")})};
    const SaverRun run(format, {cloudOf(QStringLiteral("o"), {1, 2, 3}, columns)},
                       path(QStringLiteral("moments.") + format), "crs=EPSG:4326;objectName=false;color=false");
    QCOMPARE(run.fault(), QString());
    QString told = run.findings();
    QCOMPARE(told.remove(QRegularExpression(QStringLiteral("^z dropped: 3, |, missing text.*|^missing text.*"))),
             findings);
    const QString file = run.files.front().path;
    {
        const GDALDatasetUniquePtr dataset = openVector(file);
        QStringList read;
        for (const char* name : {"day", "hour", "moment", "zoned"}) {
            OGRFeatureDefn* definition = dataset->GetLayer(0)->GetLayerDefn();
            const int field = definition->GetFieldIndex(name);
            read.append(QLatin1String(OGRFieldDefn::GetFieldTypeName(definition->GetFieldDefn(field)->GetType())));
        }
        QCOMPARE(read.join(QLatin1Char(' ')), types);
    }
    // Whatever its kind there, each comes back as it was.
    const std::vector<ModelObject> back = loaded(file);
    for (const AttributeColumn& wanted : columns) {
        std::size_t hint = 0;
        QVector<QVariant> values;
        for (const ModelObject& object : back) {
            const AttributeColumn* found = vertexAttributeOf(object, wanted.name, hint);
            QVERIFY2(found, qPrintable(wanted.name));
            values += found->values;
        }
        QCOMPARE(values.mid(0, 2), wanted.values.mid(0, 2));
        QVERIFY(values.last().toString().isEmpty());
    }
}

void OgrLimitsTest::styles()
{
    std::vector<ModelObject> lines{
        objectOf(ObjectType::Polylines, QStringLiteral("red & <blue>"), {{1, 1, 0}, {2, 2, 0}}),
        objectOf(ObjectType::Polylines, QStringLiteral("blue"), {{3, 1, 0}, {4, 2, 0}})};
    lines[0].color = QColor(255, 0, 0);
    lines[1].color = QColor(0, 0, 255);
    for (const QString& format :
         {QStringLiteral("shp"), QStringLiteral("geojson"), QStringLiteral("gpkg"), QStringLiteral("tab")}) {
        const SaverRun run(format, lines, path(QStringLiteral("of_") + format), "symbology=true;crs=EPSG:4326");
        QCOMPARE(run.fault(), QString());
    }
    const QByteArray style = contentOf(path("of_shp.qml"));
    QXmlStreamReader xml(style);
    QStringList found;
    while (!xml.atEnd()) {
        xml.readNext();
        const QXmlStreamAttributes attributes = xml.attributes();
        const QString value = attributes.value(QStringLiteral("value")).toString();
        if (xml.isStartElement() && xml.name() == QLatin1String("category"))
            found.append(value + QLatin1Char(':') + attributes.value(QStringLiteral("label")));
        if (xml.isStartElement() && attributes.value(QStringLiteral("name")) == QLatin1String("line_color"))
            found.append(value);
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QCOMPARE(found.join(QLatin1Char(' ')),
             QStringLiteral("#0000ff:blue (S) #ff0000:red & <blue> (S) 0,0,255,255 255,0,0,255"));
    QVERIFY(QFileInfo(path("of_geojson.qml")).size() > 0);

    const GDALDatasetUniquePtr package = openVector(path("of_gpkg.gpkg"));
    OGRLayer* table = package->GetLayerByName("layer_styles");
    QVERIFY(table);
    const OGRFeatureUniquePtr row(table->GetNextFeature());
    QCOMPARE(QByteArray(row->GetFieldAsString("f_table_name")), QByteArray("of_gpkg"));
    QCOMPARE(QByteArray(row->GetFieldAsString("styleQML")), style);
    const QString pen = featureTexts(path("of_tab.tab"), [](OGRFeature& line) {
                            return QString::fromUtf8(line.GetStyleString());
                        }).value(0);
    QVERIFY2(pen.contains(QLatin1String("pen("), Qt::CaseInsensitive) && pen.contains(QLatin1String("c:#ff0000")),
             qPrintable(pen));
}

void OgrLimitsTest::tabGrid()
{
    // Seven digits and a zone prefix before the decimal point.
    const ModelObject object = objectOf(
        ObjectType::VertexClouds, QStringLiteral("o"),
        {{50412345.6789, 7412345.6789, 1.25}, {50412399.1234, 7412300.0001, 2.5}, {50498765.4321, 7399999.9999, 3}},
        "");
    const SaverRun run("tab", {object}, path("grid.tab"));
    QCOMPARE(run.findings(), QString()); // a step of 0.04 mm takes nothing
    const std::vector<Positions> runs = runsIn(run.files.front().path);
    QCOMPARE(runs.size(), std::size_t(3));
    for (std::size_t index = 0; index < 3; ++index)
        QVERIFY(std::hypot(runs[index][0][0] - (*object.x)[index], runs[index][0][1] - (*object.y)[index]) < 1e-4);
    QCOMPARE(fieldTexts(run.files.front().path, "z").join(QLatin1Char(' ')), QStringLiteral("1.25 2.5 3"));
}

void OgrLimitsTest::tabCharacterSets_data()
{
    textRows({"text", "charset"}, {{"Zürich", "WindowsLatin1"},
                                   {"Łódź", "WindowsLatin2"},
                                   {"Разлом", "WindowsCyrillic"},
                                   {"東京", "WindowsJapanese"},
                                   {"Łódź Разлом 東京", "Neutral"}});
}

void OgrLimitsTest::tabCharacterSets()
{
    QFETCH(QString, text);
    QFETCH(QString, charset);
    const SaverRun run("tab", {cloudOf(text, {1})}, path(QStringLiteral("set_") + charset));
    QVERIFY2(run.written, qPrintable(run.error()));
    QCOMPARE(run.countOf(QStringLiteral("texts of several scripts")), charset == QLatin1String("Neutral") ? 1 : 0);
    QVERIFY(QString::fromUtf8(run.bytes()).contains(QStringLiteral("Charset \"%1\"").arg(charset)));
    QCOMPARE(fieldTexts(run.files.front().path, "name"), QStringList{text});
}

void OgrLimitsTest::surfaces()
{
    ModelObject mesh =
        objectOf(QStringLiteral("mesh"), ObjectType::MeshSurfaces, {0, 1, 1, 0}, {0, 0, 1, 1}, {0, 1, 2, 3});
    mesh.triangles = {{0, 1, 2}, {0, 2, 3}};
    ModelObject grid = gridOf(QStringLiteral("grid"), 3, {1, 1, none, 1, 2, 1, 1, 1, 1});
    grid.crs.clear();
    SaverRun run("shp", {mesh, grid}, path("surface.shp"), "surfaces=points");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(geometryTexts(run.selection.path).size(), 4 + 8);
    QCOMPARE(run.findings(), QStringLiteral("node without a height left out: 1"));
    QVERIFY(run.again("surfaces=polygons"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.findings(), QStringLiteral("cell without a height left out: 1"));
    const QStringList polygons = geometryTexts(run.selection.path);
    QCOMPARE(polygons.size(), 2 + 3);
    QCOMPARE(polygons[1], QStringLiteral("POLYGON ((0 0 0,0 1 3,1 1 2,0 0 0))"));
    QCOMPARE(polygons[2], QStringLiteral("POLYGON ((0 0 1,0 1 1,1 1 2,1 0 1,0 0 1))"));
}

void OgrLimitsTest::degenerate()
{
    const std::vector<ModelObject> objects{
        objectOf(QStringLiteral("collar only"), ObjectType::Wells, {1}, {1}, {1}),
        objectOf(QStringLiteral("holes of nothing"), ObjectType::Polygons, {0, 1, 0, 0, 4, 4, 1, 1, 2},
                 {0, 0, 0, 0, 0, 4, 1, 2, 1}, {0, 0, 0, 0, 0, 0, 0, 0, none},
                 {{0, 3, true, false}, {6, 3, true, true}, {3, 3, true, false}, {6, 3, true, true}}),
        objectOf(QStringLiteral("lost"), ObjectType::Polylines, {0, none, 2, 3}, {0, 1, 2, 3}, {0, 0, none, 0},
                 {{0, 2, false, false}, {1, 3, false, false}})};
    const SaverRun run("gpkg", objects, path("degenerate.gpkg"));
    QVERIFY2(run.written, qPrintable(run.error()));
    QCOMPARE(geometryTexts(run.selection.path).join(QLatin1Char('\n')),
             QStringLiteral("MULTILINESTRING ((2 2 0,3 3 0))\n"
                            "MULTIPOLYGON (((0 0 0,4 0 0,4 4 0,0 0 0),(1 1 0,1 2 0,2 1 0,1 1 0)))"));
    QCOMPARE(run.findings(),
             QStringLiteral("line of fewer than two points left out: 1, vertex without a position left out: 2, "
                            "unknown height written as 0: 1, line of fewer than two points left out: 1, "
                            "unknown height written as 0: 1, ring of fewer than three points left out: 2"));
}

void OgrLimitsTest::geoPackageWithoutSystem()
{
    const SaverRun run("gpkg", {cloudOf(QStringLiteral("o"), {500000})}, path("none.gpkg"));
    QCOMPARE(run.fault() + run.findings(), QString());
    const GDALDatasetUniquePtr source = openVector(run.files.front().path);
    OGRLayer* ids = source->ExecuteSQL("SELECT srs_id FROM gpkg_contents", nullptr, nullptr);
    const OGRFeatureUniquePtr row(ids->GetNextFeature());
    QCOMPARE(row->GetFieldAsInteger(0), -1);
    source->ReleaseResultSet(ids);
    QCOMPARE(loaded(run.files.front().path).front().crs, QString());
}

void OgrLimitsTest::geoPackageNames()
{
    for (const char* name : {"gpkg", "SQLite_x", "rtree_o_geom", "layer_styles"}) {
        const SaverRun run("gpkg", {cloudOf(QStringLiteral("o"), {500000})}, path(name) + QStringLiteral(".gpkg"));
        QCOMPARE(run.fault() + run.findings(), QStringLiteral("renamed: 1"));
        QCOMPARE(QByteArray(openVector(run.files.front().path)->GetLayer(0)->GetName()), QByteArray("data_") + name);
    }
}

void OgrLimitsTest::gmlTexts()
{
    // What XML has no place for is told; blanks at the end, marks and line feeds stay.
    const ModelObject object =
        cloudOf(QStringLiteral("o"), {1, 2, 3, 4},
                {textsOf("t", {QStringLiteral("a\x01") + QStringLiteral("b\r\nc"), QStringLiteral("<&\"'>\t "),
                               QStringLiteral("\x02"), QStringLiteral("plain")})});
    SaverRun run("gml", {object}, path("1 texts.gml"), "objectName=false;color=false");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(fieldTexts(run.files.front().path, "t"),
             (QStringList{QStringLiteral("ab\nc"), QStringLiteral("<&\"'>\t "), QString(), QStringLiteral("plain")}));
    QCOMPARE(run.findings(),
             QStringLiteral("renamed: 1, text without the characters that the format does not have: 2"));
    QVERIFY(!run.damaged("ab\nc", "ac\nb").fault().isEmpty());
    QProcess lint;
    lint.start(QStringLiteral("xmllint"), {QStringLiteral("--noout"), run.files.front().path});
    if (lint.waitForFinished())
        QCOMPARE(lint.readAllStandardError(), QByteArray());
    const SaverRun named("gml", {object}, path("a&b.gml"));
    QVERIFY2(named.error().contains(QStringLiteral("cannot have &")), qPrintable(named.error()));
}

void OgrLimitsTest::dumpText()
{
    // What a server takes for the end of a field or a line has a backslash before it; a carriage return it never takes.
    AttributeColumn day = textsOf("day", {QStringLiteral("2024-02-29"), QString()});
    day.meaning = TextMeaning::Date;
    day.values[1] = QVariant();
    const ModelObject object =
        cloudOf(QStringLiteral("o"), {1, 2},
                {textsOf("te\"xt", {QStringLiteral("a\tb\\\r\n\\."), QStringLiteral("\\N")}), day,
                 columnOf(QStringLiteral("yes"), AttributeKind::Boolean, {true, QVariant()}),
                 columnOf(QStringLiteral("real"), AttributeKind::Real, {1.0 / 3.0, none})});
    const SaverRun run("pgdump", {object}, path("d.sql"), "color=false;spatialIndex=false;crs=EPSG:28350");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.findings(),
             QStringLiteral("text without the characters that the format does not have: 1, number that is "
                            "not finite written as missing: 1"));
    QCOMPARE(
        run.readBack[0].comparedText(),
        QStringLiteral("2 positions, 2 values, 5 texts, 3 missing values, names of fields, coordinate system, kinds of "
                       "fields"));
    const QByteArray text = run.bytes();
    QCOMPARE(
        text.mid(text.indexOf("ALTER TABLE")),
        QByteArray("ALTER TABLE \"public\".\"d\" ADD COLUMN \"name\" VARCHAR;\n"
                   "ALTER TABLE \"public\".\"d\" ADD COLUMN \"te\"\"xt\" VARCHAR;\n"
                   "ALTER TABLE \"public\".\"d\" ADD COLUMN \"day\" date;\n"
                   "ALTER TABLE \"public\".\"d\" ADD COLUMN \"yes\" BOOLEAN;\n"
                   "ALTER TABLE \"public\".\"d\" ADD COLUMN \"real\" FLOAT8;\n"
                   "COPY \"public\".\"d\" (\"geom\", \"name\", \"te\"\"xt\", \"day\", \"yes\", \"real\") FROM STDIN;\n"
                   "01010000A0BE6E0000000000000000F03F000000000000F03F000000000000F03F\to\ta\\\tb\\\\\\\n"
                   "\\\\.\t2024/02/29\t1\t0.333333333333333\n"
                   "01010000A0BE6E0000000000000000004000000000000000400000000000000040\to\t\\\\N\t\\N\t\\N\t\\N\n"
                   "\\.\nEND;\nCOMMIT;\n"));
}

QTEST_GUILESS_MAIN(OgrLimitsTest)
#include "tst_ogrlimits.moc"
