// SPDX-License-Identifier: MIT
// The program as a user runs it: outputs, messages and exit codes.
#include "tests/support/ProgramTest.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <csignal>

namespace
{

/// Whether a process has a handler for the interrupt signal yet, as the kernel tells it.
bool catchesInterrupt(qint64 process)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(process));
    if (!status.open(QIODevice::ReadOnly))
        return false;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("SigCgt:"))
            return (line.mid(7).trimmed().toULongLong(nullptr, 16) & (1ULL << (SIGINT - 1))) != 0;
    }
    return false;
}

} // namespace

class CommandLineTest : public ProgramTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void exportsALine_data();
    void exportsALine();
    void wrongUse_data();
    void wrongUse();
    void outputNames_data();
    void outputNames();
    void overwriting();
    void dryRun_data();
    void dryRun();
    void fileForEachObject();
    void reportAndStrict();
    void reportsOfRefusals_data();
    void reportsOfRefusals();
    void findingsByType();
    void jobFile();
    void severalJobs();
    void databases_data();
    void databases();
    void formatsAsJson();
    void help_data();
    void help();
    void interrupted();
    void sampleModel();
    void mixedSelection();

private:
    QStringList listing() const { return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden); }
};

void CommandLineTest::init()
{
    emptyFolder();
    write("points.csv", "X,Y,Z,name,grade\n6789012.3456,100.5,-1,Грифон,1.25\n2,3,4,\"a, b\",\n");
}

void CommandLineTest::exportsALine_data()
{
    QTest::addColumn<QStringList>("settings");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* name, const QStringList& settings, const char* expected) {
        QTest::newRow(name) << settings << QByteArray(expected);
    };
    const auto set = [](const char* text) { return QStringList{QStringLiteral("--set"), QString::fromLatin1(text)}; };
    row("defaults", {},
        "X,Y,Z,name,grade\n6789012.346,100.500,-1.000,Грифон,1.250\n2.000,3.000,4.000,\"a, b\",99999\n");
    row("tab, depth, no header",
        set("separator=tab") + set("zIsElevation=false") + set("header=false") + set("decimals=1"),
        "6789012.3\t100.5\t1.0\tГрифон\t1.3\n2.0\t3.0\t-4.0\ta, b\t99999\n");
    row("custom separator and null",
        set("separator=custom") + set("customSeparator= | ") + set("nullValue=-1") + set("decimals=0"),
        "X | Y | Z | name | grade\n6789012 | 101 | -1 | Грифон | 1\n2 | 3 | 4 | a, b | -1\n");
    row("columns", set("mode=columns") + set("decimals=1"),
        "        X     Y     Z   name grade\n6789012.3 100.5  -1.0 Грифон   1.3\n      2.0   3.0   4.0   a, b 99999\n");
    row("no attribute", {QStringLiteral("--no-attributes")}, "X,Y,Z\n6789012.346,100.500,-1.000\n2.000,3.000,4.000\n");
    row("one attribute",
        QStringList{QStringLiteral("--attribute"), QStringLiteral("grade")} + set("decimals=2")
            + set("lineBreaks=true"),
        "X,Y,Z,grade\npoints\n6789012.35,100.50,-1.00,1.25\n2.00,3.00,4.00,99999\n\n");
}

void CommandLineTest::exportsALine()
{
    QFETCH(QStringList, settings);
    QFETCH(QByteArray, expected);
    const Result result =
        run(QStringList{QStringLiteral("export"), QStringLiteral("points.csv"), QStringLiteral("--format"),
                        QStringLiteral("ascii"), QStringLiteral("--output"), QString::fromUtf8("地層 ñ.txt")}
            + settings);
    QVERIFY2(result.code == 0, qPrintable(result.error));
    QCOMPARE(QString::fromUtf8(read("地層 ñ.txt")), QString::fromUtf8(expected));
    QVERIFY(result.out.contains(QString::fromUtf8("地層 ñ.txt\t2 rows\t%1 bytes").arg(expected.size())));
}

void CommandLineTest::wrongUse_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* command, int code, const char* message) {
        QTest::newRow(command) << QString::fromUtf8(command) << code << QString::fromUtf8(message);
    };
    row("nonsense", 2, "nonsense: there is no such command");
    row("export", 2, "no file to export is named");
    row("export points.csv --format qqq --output a", 2, "qqq: there is no such format (formats: ascii");
    row("export points.csv --format ascii", 2, "no output is given");
    row("export points.csv --format ascii --output a --set nothing=1", 2,
        "nothing: there is no such setting (settings of this format: mode");
    row("export points.csv --format ascii --output a --set decimals=18", 2, "give a whole number from -1 to 17");
    for (const char* text : {"", "5", "1.5", "--"})
        row(qPrintable(QStringLiteral("export points.csv --format ascii --output a --set separator=custom --set "
                                      "customSeparator=%1")
                           .arg(QLatin1String(text))),
            2, "customSeparator: ");
    row("export points.csv --format ascii --output a --set separator", 2, "write KEY=VALUE");
    row("export points.csv --format ascii --output a --type thing", 2, "thing: there is no such type");
    row("export points.csv --format ascii --output a --object nobody", 3, "no object matches");
    row("export missing.csv --format ascii --output a", 1, "missing.csv: there is no such file (check the path)");
    row("export points.csv --format ascii --output no/such/a.txt", 1, "does not exist (create it or choose another)");
    row("export points.csv --format ascii --output gone/", 1, "gone/: there is no such directory (create it");
    row("export points.csv --output a.tif", 2,
        "a.tif: no format is given, and .tif is the extension of several (add --format with one of them: geotiff "
        "(GeoTIFF) or "
        "cog (");
    row("export points.csv --output a.xyzzy", 2, "no format is given, and .xyzzy is the extension of none");
    row("export points.csv --output folder", 2, "no format is given (add --format KEY, or an extension");
    row("export points.csv --format off --output keep.gpkg --overwrite", 2,
        "keep.gpkg: .gpkg is the extension of gpkg (GeoPackage), and off would be written (choose another name or "
        "format, or "
        "add --force)");
    row("convert points.csv", 2, "convert: a file to read and one to write are wanted (kpexport convert IN OUT)");
    row("convert points.csv points.csv", 1, "points.csv: the file exists already (add --overwrite");
    row("points.csv", 2, "points.csv: this is a file, no command (kpexport --model FILE opens it");
    row("exprot points.csv", 2, "exprot: there is no such command (did you mean export?)");
    row("export points.csv --formt ascii", 2, "--formt: there is no such option (did you mean --format?)");
    row("inspect points.csv --xyz", 2, "--xyz: there is no such option (see kpexport inspect --help)");
    row("export points.csv --output", 2, "Missing value after '--output'");
    row("export points.csv --format gpgk --output a", 2, "gpgk: there is no such format (did you mean gpkg?)");
    row("export points.csv --format tif --output a", 2, "tif: there is no such format (did you mean geotiff or cog?)");
    row("export points.csv --format ascii --output a --set Decimls=1", 2, "(did you mean decimals?)");
    row("export points.csv --format ascii --output a --set separator=coma", 2, "(did you mean comma?)");
    row("export points.csv --format ascii --output a --type wells", 2,
        "wells: there is no such type (did you mean well?)");
    row("formats asci", 2, "asci: there is no such format (did you mean ascii?)");
    row("help fromats", 2, "fromats: there is no such command (did you mean formats?)");
    row("inspect", 2, "no file is named");
    row("run points.csv", 2, "points.csv: line 1:");
    row("inspect empty.csv", 1, "empty.csv: the file is empty");
    row("inspect flat.csv", 1, "none of its columns is known to hold coordinates; it has: a, b (name them");
    row("inspect broken.gpkg", 1, "broken.gpkg: the file could not be opened");
    row("inspect binary.csv", 1, "binary.csv: this is a binary file");
    row("inspect wide.csv", 1, "line 1 has 20001 columns");
    row("inspect bad.kpmodel", 1, "bad.kpmodel: line 2:");
    row("inspect unknown.kpmodel", 1, "object 1: \"colour\" is not known (keys: file, type");
}

void CommandLineTest::wrongUse()
{
    QFETCH(QString, command);
    QFETCH(int, code);
    QFETCH(QString, message);
    QDir(m_folder->path()).mkdir(QStringLiteral("folder"));
    write("keep.gpkg", "mine");
    write("empty.csv", "");
    write("flat.csv", "a,b\n1,2\n");
    write("broken.gpkg", "SQLite format 3");
    write("bad.kpmodel", "{ \"version\": 1,\n oops }");
    write("unknown.kpmodel", "{ \"version\": 1, \"objects\": [ { \"file\": \"points.csv\", \"colour\": \"red\" } ] }");
    write("wide.csv", QByteArray(20000, ',').append("\n"));
    write("binary.csv", QByteArray(1000, '\0'));
    const auto kept = [this] { return qMakePair(listing(), read("keep.gpkg") + read("points.csv")); };
    const auto before = kept();
    const Result result = run(command.split(QLatin1Char(' ')));
    QCOMPARE(result.code, code);
    QVERIFY2(result.error.startsWith(QStringLiteral("kpexport: error: ")) && result.error.contains(message),
             qPrintable(result.error));
    QCOMPARE(kept(), before);
}

void CommandLineTest::outputNames_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("begins");
    const auto row = [](const char* command, const char* file, const char* begins) {
        QTest::newRow(command) << QString::fromUtf8(command) << QString::fromUtf8(file) << QByteArray(begins);
    };
    row("export m.kpmodel --output a.geojson", "a.geojson", "{\n\"type\": \"FeatureCollection\"");
    row("export points.csv --output A.DXF", "A.DXF", "  0\nSECTION\n");
    row("convert points.csv a.vs", "a.vs", "GOCAD VSet");
    row("convert points.csv a.txt --format ascii --attribute grade --set header=false", "a.txt",
        "6789012.346,100.500,");
    row("export points.csv --format gocad --output a.gpkg --force", "a.gpkg", "GOCAD VSet");
    row("export points.csv --format ascii --output a.unknown", "a.unknown", "X,Y,Z");
    row("export points.csv --format ascii --output folder/", "folder/points.csv", "X,Y,Z");
    row("export points.csv --format gocad --output folder", "folder/points.vs", "GOCAD VSet");
    row("export two.points.csv --format gpkg --output folder", "folder/two.points.gpkg", "SQLite format 3");
    row("export two.points.csv --format ascii --output ./folder/", "folder/two.points.csv", "X,Y,Z");
    row("export m.kpmodel --format ascii --output folder --set grouping=object", "folder/Грифон.csv", "X,Y,Z");
    row("run job.json", "folder/points.csv", "X,Y,Z");
}

void CommandLineTest::outputNames()
{
    QFETCH(QString, command);
    QFETCH(QString, file);
    QFETCH(QByteArray, begins);
    QDir(m_folder->path()).mkdir(QStringLiteral("folder"));
    write("two.points.csv", read("points.csv"));
    write("m.kpmodel",
          "{\"version\":1,\"objects\":[{\"file\":\"points.csv\",\"name\":\"Грифон\",\"crs\":\"EPSG:28350\"}]}");
    write("job.json", "{\"models\":\"points.csv\",\"format\":\"ascii\",\"output\":\"folder/\"}");
    const Result result = run(command.split(QLatin1Char(' ')));
    QVERIFY2(result.code == 0, qPrintable(result.error));
    QVERIFY2(result.out.section(QLatin1Char('\t'), 0, 0).endsWith(file), qPrintable(result.out));
    QVERIFY2(contentOf(m_folder->filePath(file)).startsWith(begins), contentOf(m_folder->filePath(file)).left(80));
}

void CommandLineTest::overwriting()
{
    write("out.csv", "earlier");
    const QStringList command{QStringLiteral("export"), QStringLiteral("points.csv"), QStringLiteral("--format"),
                              QStringLiteral("ascii"),  QStringLiteral("--output"),   QStringLiteral("out")};
    const Result refused = run(command);
    QCOMPARE(refused.code, 1);
    QVERIFY2(refused.error.contains(QStringLiteral("out.csv: the file exists already (add --overwrite")),
             qPrintable(refused.error));
    QCOMPARE(read("out.csv"), QByteArray("earlier"));
    QCOMPARE(run(command + QStringList{QStringLiteral("--keep-both")}).code, 0);
    QCOMPARE(read("out.csv"), QByteArray("earlier"));
    QCOMPARE(run(command + QStringList{QStringLiteral("--overwrite")}).code, 0);
    QVERIFY(read("out.csv").startsWith("X,Y,Z,name"));
    QCOMPARE(read("out_2.csv"), read("out.csv"));
    QCOMPARE(listing(),
             (QStringList{QStringLiteral("out.csv"), QStringLiteral("out_2.csv"), QStringLiteral("points.csv")}));
    const QStringList all = command + QStringList{QStringLiteral("--overwrite"), QStringLiteral("--keep-both")};
    QCOMPARE(run(all).code, 2);
}

void CommandLineTest::dryRun_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const char* arguments, int code, const char* error) {
        QTest::newRow(name) << QString::fromUtf8(arguments).split(QLatin1Char(' ')) << code << QString::fromUtf8(error);
    };
    row("all well", "points.csv --format ascii --output o.csv --strict", 0, "");
    row("no coordinate system", "points.csv --format kml --output o.kml", 1,
        "the object points has no coordinate system (name it in the setting crs");
    row("no system for GeoJSON", "points.csv --format geojson --output o.geojson", 1,
        "the objects have no coordinate system, and GeoJSON");
    row("type of no use", "forced.kpmodel --object image --format kml --output o.kml", 1,
        "nothing of image can be drawn: it has no rows and columns");
    row("image as drawing", "forced.kpmodel --object mesh --format dxf --output o.dxf", 1,
        "nothing of mesh can be drawn: it has no faces");
    row("mesh without triangles", "forced.kpmodel --object mesh --format off --output o.off", 1,
        "the surface mesh has no triangle");
    row("grid without nodes", "forced.kpmodel --object grid --format zmap --output o.dat", 1, "the grid grid is empty");
    row("no way to the system", "points.csv --format dxf --set crs=EPSG:nowhere --output o.dxf", 1,
        "is not a known coordinate system");
    row("a file that exists", "points.csv --format ascii --output points.csv", 1,
        "the file exists already (add --overwrite");
    row("no directory", "points.csv --format shp --output gone/o.shp", 1, "gone does not exist (create it");
    row("device", "points.csv --format gpkg --output /dev/null", 1, "a device cannot hold a GeoPackage");
    row("attribute that is not there", "points.csv --format gocad --output o.vs --attribute age --strict", 5, "");
    row("no place for attributes",
        "forced.kpmodel --object line --format dxf --output o.dxf --strict --set meshPoints=true", 1,
        "it has no lines");
    row("on MapInfo's grid", "points.csv --format tab --output o.tab --strict", 0, "");
}

void CommandLineTest::dryRun()
{
    // What the plan says is what the run does, to the word and the exit code.
    QFETCH(QStringList, arguments);
    QFETCH(int, code);
    QFETCH(QString, error);
    write("points.csv", "x,y,z,n\n500000,7500000,1,2\n500010,7500010,2,3\n500020,7500000,3,4\n");
    write("forced.kpmodel", "{\"version\":1,\"objects\":["
                            "{\"file\":\"points.csv\",\"name\":\"image\",\"type\":\"image\",\"crs\":\"EPSG:28350\"},"
                            "{\"file\":\"points.csv\",\"name\":\"mesh\",\"type\":\"mesh_surface\"},"
                            "{\"file\":\"points.csv\",\"name\":\"line\",\"type\":\"polyline\"},"
                            "{\"file\":\"points.csv\",\"name\":\"grid\",\"type\":\"grid_surface\"}]}");
    const auto errorsOf = [](const Result& result) {
        return result.error.split(QLatin1Char('\n')).filter(QStringLiteral(": error: "));
    };
    const QStringList before = QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    const Result plan = run(QStringList{QStringLiteral("export"), QStringLiteral("--dry-run"),
                                        QStringLiteral("--report"), QStringLiteral("plan.json")}
                            + arguments);
    QVERIFY(m_folder->path().size() > 0 && QFile::exists(path("plan.json")));
    const QJsonObject report = QJsonDocument::fromJson(read("plan.json")).object();
    QVERIFY(QFile::remove(path("plan.json")));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), before);
    QVERIFY2(plan.code == code && plan.error.contains(error), qPrintable(plan.error));
    const bool refused = report.value(QStringLiteral("files"))
                             .toArray()
                             .first()
                             .toObject()
                             .value(QStringLiteral("error"))
                             .toString()
                             .contains(error);
    QVERIFY(refused || error.isEmpty() || error.startsWith(QLatin1String("the file exists")));
    QCOMPARE(report.value(QStringLiteral("findings")).toArray().isEmpty(), code != 5);
    const Result real = run(QStringList{QStringLiteral("export")} + arguments);
    QCOMPARE(real.code, code);
    QCOMPARE(errorsOf(real), errorsOf(plan));
}

void CommandLineTest::fileForEachObject()
{
    write("names.geojson", "{\"type\":\"FeatureCollection\",\"features\":["
                           "{\"type\":\"Feature\",\"properties\":{\"n\":\"../A/"
                           "B\"},\"geometry\":{\"type\":\"LineString\",\"coordinates\":[[0,1],[2,3]]}},"
                           "{\"type\":\"Feature\",\"properties\":{\"n\":\".._a_b\"},\"geometry\":{\"type\":"
                           "\"LineString\",\"coordinates\":[[0,1],[2,3]]}},"
                           "{\"type\":\"Feature\",\"properties\":{\"n\":\"CON\"},\"geometry\":{\"type\":\"LineString\","
                           "\"coordinates\":[[0,1],[2,3]]}}]}");
    write("names.kpmodel", "{\"version\":1,\"objects\":[{\"file\":\"names.geojson\",\"nameField\":\"n\"}]}");
    const Result result = run({QStringLiteral("export"), QStringLiteral("names.kpmodel"), QStringLiteral("--format"),
                               QStringLiteral("ascii"), QStringLiteral("--output"), QStringLiteral("o.txt"),
                               QStringLiteral("--set"), QStringLiteral("grouping=object")});
    QVERIFY2(result.code == 0, qPrintable(result.error));
    QCOMPARE(QDir(m_folder->path()).entryList({QStringLiteral("o_*")}, QDir::Files | QDir::Hidden),
             (QStringList{QStringLiteral("o__.._A_B.txt"), QStringLiteral("o__.._a_b_2.txt"),
                          QStringLiteral("o__CON.txt")}));
}

void CommandLineTest::reportAndStrict()
{
    const Result result =
        run({QStringLiteral("export"), QStringLiteral("points.csv"), QStringLiteral("--format"),
             QStringLiteral("ascii"), QStringLiteral("--output"), QStringLiteral("o"), QStringLiteral("--attribute"),
             QStringLiteral("none"), QStringLiteral("--attribute"), QStringLiteral("name"), QStringLiteral("--strict"),
             QStringLiteral("--set"), QStringLiteral("quoting=none"), QStringLiteral("--quiet"),
             QStringLiteral("--report"), QStringLiteral("r.json")});
    QCOMPARE(result.code, 5);
    QCOMPARE(result.out, QString());
    const QJsonObject report = QJsonDocument::fromJson(read("r.json")).object();
    const QJsonObject file = report.value(QStringLiteral("files")).toArray().first().toObject();
    QCOMPARE(file.value(QStringLiteral("outcome")).toString(), QStringLiteral("written"));
    QCOMPARE(file.value(QStringLiteral("rows")).toInt(), 2);
    // What it is of can be told apart and repeated.
    QCOMPARE(report.value(QStringLiteral("schema")).toString(), QStringLiteral("kpexport-report-1"));
    QVERIFY(!report.value(QStringLiteral("version")).toString().isEmpty());
    QVERIFY(report.value(QStringLiteral("inputs")).toArray().first().toString().endsWith(QLatin1String("points.csv")));
    const QJsonObject object = report.value(QStringLiteral("objects")).toArray().first().toObject();
    QCOMPARE(object.value(QStringLiteral("unit")).toString(), QStringLiteral("m"));
    QCOMPARE(file.value(QStringLiteral("ids")).toArray(), (QJsonArray{object.value(QStringLiteral("id"))}));
    QCOMPARE(report.value(QStringLiteral("settings")).toObject().value(QStringLiteral("quoting")).toString(),
             QStringLiteral("none"));
    QStringList kinds;
    for (const QJsonValue& finding : report.value(QStringLiteral("findings")).toArray())
        kinds.append(finding.toObject().value(QStringLiteral("kind")).toString());
    QCOMPARE(kinds, (QStringList{QStringLiteral("missing attribute"), QStringLiteral("text holds the separator")}));
}

void CommandLineTest::reportsOfRefusals_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* arguments, int code, const char* error) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments) << code << QString::fromLatin1(error);
    };
    row("points.csv --format nix --output o.x", 2, "nix: there is no such format");
    row("points.csv --output o.x", 2, "no format is given");
    row("points.csv --format ascii --output o.x --set decimals=many", 2, "decimals");
    row("points.csv --format ascii --output o.x --nonsense", 2, "nonsense");
    row("gone.csv --format ascii --output o.x", 1, "gone.csv: there is no such file");
    row("points.csv --format ascii --output o.x --object gone", 3, "no object matches");
    row("points.csv --format ascii --output points.csv", 1, "points.csv");
}

void CommandLineTest::reportsOfRefusals()
{
    QFETCH(QString, arguments);
    QFETCH(int, code);
    QFETCH(QString, error);
    // Not what an earlier run left there.
    write("r.json", R"({"format": "shp", "files": [{"outcome": "written"}], "findings": []})");
    const QStringList words = QStringLiteral("export %1 --report r.json").arg(arguments).split(QLatin1Char(' '));
    const Result result = run(words);
    QCOMPARE(result.code, code);
    const QJsonObject report = QJsonDocument::fromJson(read("r.json")).object();
    QCOMPARE(report.value(QStringLiteral("exitCode")).toInt(), code);
    const QString told = report.value(QStringLiteral("error")).toString();
    QVERIFY2(told.contains(error), qPrintable(told));
    QVERIFY(result.error.contains(told));
    QVERIFY(report.value(QStringLiteral("files")).toArray().isEmpty());
    // A run that never knew its files replaces nothing else.
    if (code == 1)
        return;
    write("r.json", "{\"mine\": 1}");
    QCOMPARE(run(words + QStringList{QStringLiteral("--overwrite")}).code, code);
    QCOMPARE(read("r.json"), QByteArray("{\"mine\": 1}"));
}

void CommandLineTest::findingsByType()
{
    const QByteArray collection = R"({"type":"FeatureCollection","features":[%1]})";
    const QByteArray line = R"({"type":"Feature","properties":{},"geometry":{"type":"LineString",)"
                            R"("coordinates":[[1,1],[2,2],[2,2]]}})";
    const QByteArray area = R"({"type":"Feature","properties":{},"geometry":{"type":"Polygon",)"
                            R"("coordinates":[[[1,1],[2,2],[2,1],[1,1]]]}})";
    write("m.geojson", QByteArray(collection).replace("%1", line + ',' + line + ',' + area));
    const Result result =
        run(QStringLiteral("export m.geojson --format ascii --output o.txt --report r.json").split(QLatin1Char(' ')));
    QCOMPARE(result.code, 0);
    QVERIFY2(result.error.contains(QLatin1String("6 vertices have no height, in 2 Polylines, first m 1")),
             qPrintable(result.error));
    const QJsonObject report = QJsonDocument::fromJson(read("r.json")).object();
    QStringList told;
    for (const QJsonValue& value : report.value(QStringLiteral("findings")).toArray()) {
        const QJsonObject finding = value.toObject();
        told.append(QStringLiteral("%1 %2 %3")
                        .arg(finding[QStringLiteral("id")].toInt())
                        .arg(finding[QStringLiteral("type")].toString())
                        .arg(finding[QStringLiteral("count")].toInt()));
    }
    QCOMPARE(told.join(QStringLiteral(", ")), QStringLiteral("1 polyline 3, 2 polyline 3, 3 polygon 4"));
    const QJsonArray summary = report.value(QStringLiteral("summary")).toArray();
    QCOMPARE(summary.size(), 2);
    QCOMPARE(summary.first().toObject().value(QStringLiteral("ids")).toArray(), (QJsonArray{1, 2}));
    QCOMPARE(summary.first().toObject().value(QStringLiteral("count")).toInt(), 6);
}

void CommandLineTest::jobFile()
{
    QDir(m_folder->path()).mkdir(QStringLiteral("jobs"));
    write("jobs/a.json", "{\"models\":[\"../points.csv\"],\"format\":\"ascii\",\"output\":\"../j.txt\","
                         "\"settings\":{\"decimals\":0,\"header\":false},\"attributes\":[\"grade\"]}");
    QCOMPARE(run({QStringLiteral("run"), QStringLiteral("jobs/a.json")}).code, 0);
    QCOMPARE(read("j.txt"), QByteArray("6789012,101,-1,1\n2,3,4,99999\n"));
    write("jobs/b.json", "{\"model\":\"x\",\"report\":\"b-report.json\"}");
    const Result result = run({QStringLiteral("run"), QStringLiteral("jobs/b.json")});
    QCOMPARE(result.code, 2);
    QVERIFY(result.error.contains(QStringLiteral("\"model\" is not known (did you mean models?)")));
    QVERIFY(read("jobs/b-report.json").contains("is not known"));
}

void CommandLineTest::severalJobs()
{
    write("a.json", "{\"models\":\"points.csv\",\"format\":\"ascii\",\"output\":\"a.txt\"}");
    write("b.json", "{\"models\":\"missing.csv\",\"format\":\"ascii\",\"output\":\"b.txt\"}");
    const Result files = run({QStringLiteral("run"), QStringLiteral("b.json"), QStringLiteral("a.json")});
    QCOMPARE(files.code, 1);
    QVERIFY(files.out.startsWith(QStringLiteral("b.json\texit code 1\tsomething could not be read")));
    QVERIFY(files.out.endsWith(QStringLiteral("a.json\texit code 0\tall written (also with notes)\n")));
    const QByteArray written = read("a.txt");
    QVERIFY(!written.isEmpty());

    QProcess process;
    process.setWorkingDirectory(m_folder->path());
    process.start(QStringLiteral(KP_PROGRAM), {QStringLiteral("run"), QStringLiteral("-")});
    process.write("{\"models\":\"points.csv\",\"output\":\"c.txt\",\"format\":\"ascii\"}\n\nnonsense\n"
                  "{\"models\":\"points.csv\",\"output\":\"d.txt\",\"format\":\"ascii\",\"objects\":\"nobody\"}");
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished(60000));
    QCOMPARE(process.exitCode(), 2);
    QStringList told;
    for (const QString& line : QString::fromUtf8(process.readAllStandardOutput()).split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("line ")))
            told.append(line.section(QLatin1Char('\t'), 0, 1));
    }
    QCOMPARE(told.join(QStringLiteral(", ")),
             QStringLiteral("line 1\texit code 0, line 3\texit code 2, line 4\texit code 3"));
    QCOMPARE(read("c.txt"), written);
}

void CommandLineTest::databases_data()
{
    QTest::addColumn<QStringList>("arguments");
    const QString database = QStringLiteral("PG:host=h user=kp password=secret");
    const QStringList tail{QStringLiteral("--format"), QStringLiteral("ascii"), QStringLiteral("--report"),
                           QStringLiteral("r.json")};
    QTest::newRow("output") << QStringList{QStringLiteral("export"), QStringLiteral("points.csv"),
                                           QStringLiteral("--output"), database}
                                   + tail;
    QTest::newRow("model") << QStringList{QStringLiteral("export"), database, QStringLiteral("--output"),
                                          QStringLiteral("o.txt")}
                                  + tail;
    QTest::newRow("no format") << QStringList{QStringLiteral("convert"), QStringLiteral("points.csv"),
                                              QStringLiteral("postgresql://kp:secret@h/db"), QStringLiteral("--report"),
                                              QStringLiteral("r.json")};
    QTest::newRow("another mistake") << QStringList{QStringLiteral("export"),      QStringLiteral("points.csv"),
                                                    QStringLiteral("--output"),    database,
                                                    QStringLiteral("--overwrite"), QStringLiteral("--no-overwrite")}
                                            + tail;
    QTest::newRow("job") << QStringList{QStringLiteral("run"), QStringLiteral("job.json")};
}

void CommandLineTest::databases()
{
    QFETCH(QStringList, arguments);
    write("job.json", "{\"models\":\"points.csv\",\"output\":\"PG:password=secret\",\"report\":\"r.json\"}");
    const QStringList before = listing();
    const Result result = run(arguments);
    QCOMPARE(result.code, 2);
    QVERIFY(!(result.out + result.error).contains(QStringLiteral("secret")));
    QVERIFY(!read("r.json").isEmpty() && !read("r.json").contains("secret"));
    QCOMPARE(listing(), QStringList(before) << QStringLiteral("r.json"));
}

void CommandLineTest::formatsAsJson()
{
    const QJsonArray formats =
        QJsonDocument::fromJson(
            run({QStringLiteral("formats"), QStringLiteral("--json")}).out.toUtf8())[QStringLiteral("formats")]
            .toArray();
    QStringList keys;
    for (const QJsonValue& setting : formats.first().toObject().value(QStringLiteral("settings")).toArray())
        keys.append(setting.toObject().value(QStringLiteral("key")).toString());
    QCOMPARE(keys.join(QLatin1Char(' ')),
             QStringLiteral("mode separator customSeparator quoting header preset decimals missingZ writeNullValue "
                            "nullValue lineBreaks guardFormulas zIsElevation grouping"));
    const QJsonObject decimals =
        formats.first()[QStringLiteral("settings")].toArray()[keys.indexOf(QStringLiteral("decimals"))].toObject();
    QCOMPARE(decimals[QStringLiteral("minimum")].toInt(), -1);
    QCOMPARE(decimals[QStringLiteral("maximum")].toInt(), 17);
}

void CommandLineTest::help_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("begins");
    QTest::addColumn<QString>("holds");
    const auto row = [](const char* command, const char* begins, const char* holds) {
        QTest::newRow(command) << QString::fromLatin1(command) << QString::fromLatin1(begins)
                               << QString::fromLatin1(holds);
    };
    const char* const program = "kpexport writes geological objects to files.\n\nUsage:\n";
    for (const char* command : {"--help", "-h", "help"})
        row(command, program, "\n  5                     --strict, and something was lost\n");
    for (const char* command : {"export --help", "export points.csv --nonsense -h", "help export"})
        row(command, "kpexport export FILE... [OPTION]...\n",
            "\n  --object NAME         only objects of that name; may be repeated\n");
    row("formats --help", "kpexport formats [KEY]... [OPTION]...\n", "  --json ");
    row("run -h", "kpexport run JOB.json... [OPTION]...\n", "  --allow-network ");
    row("-v", "kpexport ", ".");
    row("formats ascii", "ascii\tASCII (delimited or fixed columns)\t",
        "\n    decimals = -1\tdecimals of coordinates and real attributes; -1 for what each field needs "
        "(a whole number from -1 to 17)\n");
    row("formats off ascii", "off\tGeomview OFF\t*.off\t", "\nascii\tASCII");
}

void CommandLineTest::help()
{
    QFETCH(QString, command);
    QFETCH(QString, begins);
    QFETCH(QString, holds);
    const Result result = run(command.split(QLatin1Char(' ')));
    QCOMPARE(result.code, 0);
    QCOMPARE(result.error, QString());
    QVERIFY2(result.out.startsWith(begins) && result.out.contains(holds), qPrintable(result.out));
    QVERIFY(result.out.count(QLatin1String("\nkml\t")) == 0);
    if (!result.out.contains(QLatin1Char('\t'))) {
        for (const QString& line : result.out.split(QLatin1Char('\n')))
            QVERIFY2(line.size() < 80, qPrintable(line));
    }
}

void CommandLineTest::interrupted()
{
    // Large enough that the signal comes while it is written; the loop ends as soon as a temporary file has grown.
    QFile big(path("big.csv"));
    QVERIFY(big.open(QIODevice::WriteOnly));
    big.write("X,Y,Z\n");
    for (int row = 0; row < 400000; ++row)
        big.write("123456.789,2,3\n");
    big.close();
    write("out.csv", "earlier");
    QProcess process;
    process.setWorkingDirectory(m_folder->path());
    process.start(QStringLiteral(KP_PROGRAM),
                  {QStringLiteral("export"), QStringLiteral("big.csv"), QStringLiteral("--format"),
                   QStringLiteral("ascii"), QStringLiteral("--output"), QStringLiteral("out.csv"),
                   QStringLiteral("--overwrite"), QStringLiteral("--set"), QStringLiteral("decimals=17")});
    QVERIFY(process.waitForStarted());
    // The signal is caught from the loading on; the export then stops at its first look.
    QTRY_VERIFY_WITH_TIMEOUT(catchesInterrupt(process.processId()), 20000);
    ::kill(static_cast<pid_t>(process.processId()), SIGINT);
    QVERIFY(process.waitForFinished(300000));
    const QString error = QString::fromUtf8(process.readAllStandardError());
    QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 4, qPrintable(error));
    QVERIFY(error.contains(QStringLiteral("cancelled; earlier files are as they were")));
    QCOMPARE(read("out.csv"), QByteArray("earlier"));
    QCOMPARE(listing().size(), 3);
}

void CommandLineTest::sampleModel()
{
    const QString sample = QStringLiteral(KP_SOURCE_DIR "/examples/sample/sample.kpmodel");
    const QJsonArray objects =
        QJsonDocument::fromJson(
            run({QStringLiteral("inspect"), sample, QStringLiteral("--json")}).out.toUtf8())[QStringLiteral("objects")]
            .toArray();
    QMap<QString, int> types;
    for (const QJsonValue& object : objects)
        ++types[object.toObject().value(QStringLiteral("type")).toString()];
    QCOMPARE(types.value(QStringLiteral("polygon")), 61);
    QCOMPARE(types.value(QStringLiteral("polyline")), 35);
    QCOMPARE(types.value(QStringLiteral("well")), 399);
    QCOMPARE(types.value(QStringLiteral("vertex_cloud")), 3);
    QCOMPARE(types.value(QStringLiteral("grid_surface")), 1);
    QCOMPARE(types.value(QStringLiteral("mesh_surface")), 1);
    QCOMPARE(types.value(QStringLiteral("geocellular_volume")), 1);
    const Result result = run({QStringLiteral("export"), sample, QStringLiteral("--format"), QStringLiteral("ascii"),
                               QStringLiteral("--output"), QStringLiteral("s.txt"), QStringLiteral("--set"),
                               QStringLiteral("separator=tab"), QStringLiteral("--type"), QStringLiteral("well"),
                               QStringLiteral("--object"), QStringLiteral("B1-1*")});
    QVERIFY2(result.code == 0, qPrintable(result.error));
    const QList<QByteArray> lines = read("s.txt").split('\n');
    QCOMPARE(lines.first(), QByteArray("X\tY\tZ\tMD"));
    QVERIFY(lines.size() > 500);
    for (const QByteArray& line : lines)
        QVERIFY(line.isEmpty() || line.count('\t') == 3);
}

void CommandLineTest::mixedSelection()
{
    // A format gets what it can take; what it cannot is said.
    const QString sample = QStringLiteral(KP_SOURCE_DIR "/examples/sample/sample.kpmodel");
    const auto exported = [&](const char* format, const char* output) {
        return run({QStringLiteral("export"), sample, QStringLiteral("--format"), QString::fromLatin1(format),
                    QStringLiteral("--output"), QString::fromLatin1(output)});
    };
    const Result off = exported("off", "s.off");
    QVERIFY2(off.code == 0, qPrintable(off.error));
    QCOMPARE(off.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts).size(), 2);
    QVERIFY2(off.error.contains(QStringLiteral(
                 "note: 501 objects were left out because the format does not take their types (first ")),
             qPrintable(off.error));
    QVERIFY(read("s_Terrain mesh.off").startsWith("OFF\n"));
    const Result grdecl = exported("grdecl", "s.grdecl");
    QVERIFY2(grdecl.code == 0, qPrintable(grdecl.error));
    QVERIFY(read("s.grdecl").contains("\nROCKTYPE\n"));
    QVERIFY(exported("zmap", "s").code == 0 && read("s.dat").contains("@Terrain HEADER, GRID, 5\n"));
    QVERIFY(exported("gocad", "s").code == 0 && read("s.gp").count("\nEND\n") > 499);
}

QTEST_GUILESS_MAIN(CommandLineTest)
#include "tst_commandline.moc"
