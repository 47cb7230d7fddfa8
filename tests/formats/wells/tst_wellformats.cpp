// SPDX-License-Identifier: MIT
// Wells as LAS and as deviation tables: whole texts, surveys there and back, a LAS reader of a few lines that shares
// nothing with the program, what is refused.
#include "readers/WellPath.h"
#include "tests/support/SaverRun.h"
#include "tests/support/TextRows.h"

using namespace kpFormats;

namespace
{

AttributeColumn depthsOf(const QVector<QVariant>& depths, const char* unit = "m")
{
    AttributeColumn column = columnOf(QStringLiteral("MD"), AttributeKind::Real, depths);
    column.unit = QLatin1String(unit);
    return column;
}

ModelObject well()
{
    ModelObject object = objectOf(ObjectType::Wells, QStringLiteral("Дол 7: B"),
                                  {{100, 200, 50}, {100, 200, 40}, {103, 200, 31}, {110, 200, none}}, "EPSG:28350");
    AttributeColumn gamma =
        columnOf(QStringLiteral("GR cal.1"), AttributeKind::Real, {45.5, QVariant(), 0.00125, -999.25});
    gamma.unit = QStringLiteral("g API");
    object.vertexAttributes = {
        depthsOf({0, 10, 20, 30}), gamma, columnOf(QStringLiteral("X"), AttributeKind::Integer, {1, 2, 3, QVariant()}),
        columnOf(QStringLiteral("rock"), AttributeKind::Text, QVector<QVariant>(4, QStringLiteral("a")))};
    object.objectAttributes = {{QStringLiteral("operator"), AttributeKind::Text, QString(), QStringLiteral("A: B\nC")}};
    return object;
}

/// LAS 2.0 as its standard says: sections, "MNEM.UNIT VALUE : DESCRIPTION" with the last colon, rows of numbers.
struct PlainLas
{
    QMap<QString, QString> head; ///< "W.STRT" is value, "W.STRT.unit" its unit
    QStringList curves;
    QVector<QVector<double>> rows;
    bool good = true;

    explicit PlainLas(const QByteArray& bytes)
    {
        QChar section;
        for (const QString& line : QString::fromUtf8(bytes).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
            if (line[0] == QLatin1Char('~')) {
                section = line[1];
            } else if (section == QLatin1Char('A')) {
                rows.append(QVector<double>());
                for (const QString& word : line.simplified().split(QLatin1Char(' '))) {
                    bool number = false;
                    rows.back().append(word.toDouble(&number));
                    good = good && number;
                }
            } else {
                const int dot = line.indexOf(QLatin1Char('.'));
                const QString name = line.left(dot).trimmed();
                const QString rest = line.mid(dot + 1, line.lastIndexOf(QLatin1Char(':')) - dot - 1);
                const QString unit = rest.section(QLatin1Char(' '), 0, 0);
                head.insert(QString(section) + QLatin1Char('.') + name, rest.mid(unit.size()).trimmed());
                head.insert(QString(section) + QLatin1Char('.') + name + QStringLiteral(".unit"), unit);
                good = good && dot > 0 && line.contains(QLatin1Char(':')) && !name.contains(QLatin1Char(' '));
                if (section == QLatin1Char('C'))
                    curves.append(name);
            }
        }
    }
};

} // namespace

class WellFormatsTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { emptyFolder(); }
    void lasText();
    void lasIndependently();
    void lasRefused_data();
    void lasRefused();
    void lasOfRealWells();
    void lasOfRmsWells();
    void deviationText();
    void surveyComesBack_data();
    void surveyComesBack();
    void deviationOfOtherPaths();
    void deviationRefused();
};

void WellFormatsTest::lasText()
{
    SaverRun run("las", {well()}, path("w"), "decimals=2");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.files[0].path, path("w.las"));
    QCOMPARE(QString::fromUtf8(run.bytes()),
             QStringLiteral("~Version\n"
                            "VERS.            2.0                      : CWLS log ASCII standard, version 2.0\n"
                            "WRAP.            NO                       : one line per depth\n"
                            "~Well\n"
                            "STRT.M           0.00                     : first depth\n"
                            "STOP.M           30.00                    : last depth\n"
                            "STEP.M           10.00                    : step\n"
                            "NULL.            -9999.25                 : no value\n"
                            "COMP.                                     : company\n"
                            "WELL.            Дол 7: B                 : well\n"
                            "FLD.                                      : field\n"
                            "LOC.                                      : location\n"
                            "CTRY.                                     : country\n"
                            "SRVC.                                     : service company\n"
                            "DATE.                                     : date of the log\n"
                            "UWI.                                      : unique well identifier\n"
                            "~Curve\n"
                            "DEPT.M                                    : measured depth\n"
                            "X.M                                       : easting\n"
                            "Y.M                                       : northing\n"
                            "Z.M                                       : elevation, positive up\n"
                            "GR_cal_1.g_API                            : GR cal.1\n"
                            "X_2.                                      : X\n"
                            "~Parameter\n"
                            "X.M              100                      : easting of the first row\n"
                            "Y.M              200                      : northing of the first row\n"
                            "HZCS.            GDA94 / MGA zone 50 (EPSG:28350) : horizontal coordinate system\n"
                            "EREF.M           50                       : elevation of depth 0\n"
                            "operator.        A: B C                   : operator\n"
                            "~ASCII\n"
                            "         0.00       100.00       200.00        50.00        45.50         1.00\n"
                            "        10.00       100.00       200.00        40.00     -9999.25         2.00\n"
                            "        20.00       103.00       200.00        31.00         0.00         3.00\n"
                            "        30.00       110.00       200.00     -9999.25      -999.25     -9999.25\n"));
    QCOMPARE(run.findings(),
             QStringLiteral("attribute that is not a number left out: 1, number rounded to 0: 1, renamed: 2, "
                            "null value changed: 1, text beyond ASCII: 1"));
    // Loaded, it is the well that it was.
    const ModelObject read = loaded(run.files[0].path).front();
    QCOMPARE(read.name, QStringLiteral("Дол 7: B"));
    QVERIFY(read.type == ObjectType::Wells && std::isnan(read.z->back()) && read.x->at(2) == 103.0);
    QCOMPARE(read.vertexAttributes[0].name, QStringLiteral("MD"));
    QCOMPARE((*read.vertexAttributes[1].numbers)[3], -999.25);
    QCOMPARE(int((*read.vertexAttributes[2].missing)[3]), 1);
    // By vertical depth, without coordinates, in feet.
    QVERIFY(run.again("index=tvd;coordinates=false;lengthUnit=ft;decimals=-1"));
    QCOMPARE(run.fault(), QString());
    QVERIFY(run.bytes().contains("STEP.FT          0.0000 "));
    QCOMPARE(run.bytes().right(54), QByteArray("\n      62.3360      65.6168      0.00125       3.0000\n"));
    QCOMPARE(run.countOf(QStringLiteral("row without a depth left out")), 1);
}

void WellFormatsTest::lasIndependently()
{
    const SaverRun run("las", {well()}, path("w.las"));
    const PlainLas las(run.bytes());
    QVERIFY(las.good);
    for (const char* line : {"V.VERS", "V.WRAP", "W.STRT", "W.STOP", "W.STEP", "W.NULL", "W.COMP", "W.WELL", "W.FLD",
                             "W.LOC", "W.CTRY", "W.SRVC", "W.DATE", "W.UWI"})
        QVERIFY2(las.head.contains(QLatin1String(line)), line);
    QCOMPARE(las.head[QStringLiteral("W.WELL")], QStringLiteral("Дол 7: B"));
    QCOMPARE(las.head[QStringLiteral("P.operator")], QStringLiteral("A: B C"));
    QCOMPARE(las.head[QStringLiteral("W.STRT.unit")], QStringLiteral("M"));
    QCOMPARE(las.curves.join(QLatin1Char(' ')), QStringLiteral("DEPT X Y Z GR_cal_1 X_2"));
    const double null = las.head[QStringLiteral("W.NULL")].toDouble();
    QCOMPARE(las.rows, (QVector<QVector<double>>{{0, 100, 200, 50, 45.5, 1},
                                                 {10, 100, 200, 40, null, 2},
                                                 {20, 103, 200, 31, 0.0013, 3},
                                                 {30, 110, 200, null, -999.25, null}}));
}

void WellFormatsTest::lasRefused_data()
{
    textRows({"what", "settings", "message"},
             {{"repeated depth", "", "the measured depth of the well W does not increase at 10"},
              {"upwards", "index=tvd", "the true vertical depth of the well W does not increase at 9"},
              {"two paths", "", "the well W has 2 paths"},
              {"no depth", "", "and none can be computed from a path in degrees"},
              {"flat", "", "and none can be computed from a path with places or heights missing"},
              {"unit", "lengthUnit=km", "LAS knows metres and feet only"}});
}

void WellFormatsTest::lasRefused()
{
    QFETCH(QString, what);
    QFETCH(QString, settings);
    QFETCH(QString, message);
    const bool degrees = what == QLatin1String("no depth");
    ModelObject object = objectOf(ObjectType::Wells, QStringLiteral("W"), {{1, 2, 0}, {1, 2, -10}, {2, 2, -9}},
                                  degrees ? "EPSG:4326" : "");
    if (!degrees && what != QLatin1String("flat"))
        object.vertexAttributes = {depthsOf({0, 10, what.startsWith(QLatin1String("rep")) ? 10 : 12})};
    if (what == QLatin1String("two paths"))
        object.parts = {{0, 1, false, false}, {1, 2, false, false}};
    object.hasZ = what != QLatin1String("flat");
    const SaverRun run("las", {object}, path("w.las"), settings);
    QVERIFY2(run.error().contains(message), qPrintable(run.error()));
    QCOMPARE(listing(), QString());
}

void WellFormatsTest::lasOfRealWells()
{
    LoadOptions options;
    options.survey = sample("survey.csv");
    options.lengthUnit = QStringLiteral("ft");
    options.maxDepth = 20000;
    std::vector<ModelObject> wells = loaded(sample("collar.csv"), options);
    QVERIFY(wells.size() > 300);
    const SaverRun run("las", wells, path());
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.report.findings.toJson().size(), 0);
    // Its curves are those of the hole that it is loaded with.
    const ModelObject read = loaded(run.files[150].path).front();
    QCOMPARE(read.name, wells[150].name);
    QCOMPARE(read.lengthUnit, QStringLiteral("ft"));
    for (std::size_t vertex = 0; vertex < read.x->size(); ++vertex)
        QVERIFY(std::abs((*read.z)[vertex] - (*wells[150].z)[vertex]) <= 5.01e-5);
}

void WellFormatsTest::lasOfRmsWells()
{
    const QString blocked = shared("data/inputs/valysar_bw.w");
    const QString survey = shared("data/reek/OP_6.w");
    if (blocked.isEmpty() || survey.isEmpty())
        QSKIP("the data is not here");
    std::vector<ModelObject> wells = loaded(blocked);
    QCOMPARE(wells.size(), std::size_t(9));
    QCOMPARE(wells[0].name, QStringLiteral("55_33-A-6"));
    QCOMPARE(wells[0].z->front(), -1693.960205);
    QCOMPARE(wells[0].vertexAttributes[4].values[11].toString(), QStringLiteral("Crevasse"));
    QCOMPARE(int((*wells[0].vertexAttributes[5].missing)[14]), 1);
    const ModelObject path = loaded(survey).front();
    QCOMPARE(path.vertexCount(), 1766);
    QCOMPARE(path.objectAttributes.front().value.toDouble(), 0.0);
    QCOMPARE(path.vertexAttributes[0].numbers->back(), 3528.72658498);
    QCOMPARE(path.x->back(), 464433.141);
    // All of it goes through LAS: depths along the blocked wells are computed.
    wells.push_back(path);
    const SaverRun run("las", wells, this->path());
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.countOf(QStringLiteral("measured depth computed")), 9);
    qint64 rows = 0;
    for (const auto& file : run.report.files())
        rows += file.rows;
    QCOMPARE(rows, qint64(193 + 1766));
}

void WellFormatsTest::deviationText()
{
    // A quarter of a circle of radius 100 towards the east, then straight on.
    ModelObject object = objectOf(ObjectType::Wells, QStringLiteral("W 1"),
                                  {{500, 600, 80}, {600, 600, -20}, {650, 600, -20}, {700, 600, none}}, "EPSG:28350");
    object.vertexAttributes = {depthsOf({0, 50 * M_PI, 50 * M_PI + 50, 300})};
    object.objectAttributes = {{QStringLiteral("kb"), AttributeKind::Real, QString(), 82.5}};
    SaverRun run("deviation", {object}, path("w"), "decimals=2");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.bytes(), QByteArray("# deviation survey, minimum curvature\n"
                                     "# well: W 1\n"
                                     "# lengths in m, angles in degrees\n"
                                     "# datum: MD 0 and TVD 0 lie at the elevation 82.5 m\n"
                                     "# azimuth: clockwise from grid north\n"
                                     "# coordinate system: GDA94 / MGA zone 50 (EPSG:28350)\n"
                                     "             MD            INC            AZI            TVD              X      "
                                     "        Y              Z\n"
                                     "           0.00       0.000000       0.000000           2.50         500.00      "
                                     "   600.00          80.00\n"
                                     "         157.08      90.000000      90.000000         102.50         600.00      "
                                     "   600.00         -20.00\n"
                                     "         207.08      90.000000      90.000000         102.50         650.00      "
                                     "   600.00         -20.00\n"));
    QCOMPARE(run.findings(),
             QStringLiteral("row without a depth left out: 1, the format has no attributes; left out: 1"));
    const ModelObject read = loaded(run.files[0].path).front();
    QVERIFY(read.type == ObjectType::Wells && read.name == QLatin1String("W 1") && read.z->back() == -20.0);
    // Damages.
    for (const auto& [right, wrong] : std::vector<std::pair<const char*, const char*>>{
             {"157.08", "157.18"},
             {"         600.00         600.00", "         600.02         600.00"},
             {"90.000000         102.50         600", "91.000000         102.50         600"},
             {"           2.50", "           2.60"},
             {"# lengths in m", "# lengths in ft"},
             {"elevation 82.5 m", "elevation 82 m"},
             {"# well: W 1", "# well: W 2"}}) {
        QVERIFY(run.again());
        QVERIFY2(!run.damaged(right, wrong).fault().isEmpty(), right);
    }
}

void WellFormatsTest::surveyComesBack_data()
{
    textRows({"settings", "unit"}, {{"", "m"}, {"", "ft"}, {"lengthUnit=ft", "m"}});
}

void WellFormatsTest::surveyComesBack()
{
    // Stations, the path that they give, and from its places the same stations again.
    QFETCH(QString, settings);
    QFETCH(QString, unit);
    const std::vector<std::array<double, 3>> survey{{0, 0, 0},       {50, 2, 83},    {150, 2.7, 133}, {250, 1.7, 134},
                                                    {350, 0.5, 266}, {450, 12, 296}, {550, 31, 303},  {620, 48, 20}};
    std::vector<WellStation> stations;
    for (const auto& row : survey)
        stations.push_back({row[0], row[2] * M_PI / 180, (90 - row[1]) * M_PI / 180});
    const WellPath hole(stations);
    std::vector<std::array<double, 3>> places;
    QVector<QVariant> depths;
    for (const auto& row : survey) {
        const auto moved = hole.at(row[0]);
        places.push_back({500000 + moved[0], 7000000 + moved[1], 300 + moved[2]});
        depths.append(row[0]);
    }
    ModelObject object = objectOf(ObjectType::Wells, QStringLiteral("W"), places, "");
    object.lengthUnit = unit;
    object.vertexAttributes = {depthsOf(depths, qPrintable(unit))};
    const SaverRun run("deviation", {object}, path("w.dev"), settings);
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.findings(), QString());
    const ModelObject read = loaded(run.files[0].path).front();
    for (std::size_t row = 1; row < survey.size(); ++row) {
        QVERIFY(std::abs((*read.vertexAttributes[1].numbers)[row] - survey[row][1]) < 1e-3);
        QVERIFY(std::abs((*read.vertexAttributes[2].numbers)[row] - survey[row][2]) < 1e-2);
    }
}

void WellFormatsTest::deviationOfOtherPaths()
{
    // A line with corners is no path of arcs: the distance is told, and the file verified with it.
    ModelObject object = objectOf(ObjectType::Wells, QStringLiteral("W"),
                                  {{0, 0, 0}, {0, 0, -100}, {100, 0, -100}, {100, 100, -100}, {100, 100, -200}}, "");
    const SaverRun run("deviation", {object}, path("w.dev"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.countOf(QStringLiteral("measured depth computed")), 1);
    QVERIFY(run.countOf(QStringLiteral("path that the angles give is another")) <= 1);
    // Computed along a quarter of a circle, in three arcs, its length is that of the circle.
    std::vector<std::array<double, 3>> circle;
    for (int station = 0; station < 4; ++station)
        circle.push_back({100 - 100 * std::cos(station * M_PI / 6), 0, -100 * std::sin(station * M_PI / 6)});
    const SaverRun curved("deviation", {objectOf(ObjectType::Wells, QStringLiteral("C"), circle, "")}, path("c.dev"));
    QCOMPARE(curved.fault(), QString());
    QCOMPARE(curved.findings(), QStringLiteral("measured depth computed: 1"));
    QVERIFY(curved.bytes().contains("\n       157.0796      90.000000      90.000000       100.0000 "));
}

void WellFormatsTest::deviationRefused()
{
    ModelObject degrees = objectOf(ObjectType::Wells, QStringLiteral("W"), {{1, 2, 0}, {1, 2, -10}});
    degrees.vertexAttributes = {depthsOf({0, 10})};
    QVERIFY(SaverRun("deviation", {degrees}, path("w.dev")).error().contains(QStringLiteral("lies in degrees")));
    ModelObject upside = degrees;
    upside.crs.clear();
    upside.vertexAttributes = {depthsOf({10, 0})};
    QVERIFY(SaverRun("deviation", {upside}, path("w.dev"))
                .error()
                .contains(QStringLiteral("does not increase at vertex 2")));
    upside.vertexAttributes = {depthsOf({QVariant(), QVariant()})};
    QVERIFY(SaverRun("deviation", {upside}, path("w.dev")).error().contains(QStringLiteral("has a depth and a place")));
}

QTEST_GUILESS_MAIN(WellFormatsTest)
#include "tst_wellformats.moc"
