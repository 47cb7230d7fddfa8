// SPDX-License-Identifier: MIT
// What the vector formats do when something goes wrong: full disks, devices, systems that are not known, cancelling.
#include "tests/formats/ogr/OgrTestTools.h"
#include "tests/support/TextRows.h"

#include <csignal>
#include <sys/resource.h>

using namespace kpFormats;

namespace
{

/// Lets no file grow beyond a size while it lives.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(qint64 bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = static_cast<rlim_t>(bytes);
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { ::setrlimit(RLIMIT_FSIZE, &m_before); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit m_before = {};
};

ModelObject points(int count)
{
    std::vector<std::array<double, 3>> rows;
    QVector<QVariant> texts;
    for (int index = 0; index < count; ++index) {
        rows.push_back({500000 + index * 1.25, 7500000 - index * 0.75, index * 1.25});
        texts.append(QStringLiteral("sample %1").arg(index));
    }
    ModelObject object = objectOf(ObjectType::VertexClouds, QStringLiteral("P"), rows, "EPSG:28350");
    object.vertexAttributes = {columnOf(QStringLiteral("t"), AttributeKind::Text, texts)};
    return object;
}

} // namespace

class OgrFailuresTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { emptyFolder(); }
    void devices_data() { ogrFormatRows(true); }
    void devices();
    void fullSidecars_data();
    void fullSidecars();
    void fullDiskAtEverySize_data() { ogrFormatRows(true); }
    void fullDiskAtEverySize();
    void cancelledAtEveryPercent_data() { ogrFormatRows(true); }
    void cancelledAtEveryPercent();
    void staleSidecars();
    void unknownSystems();
    void missingAttributes_data();
    void missingAttributes();
};

void OgrFailuresTest::devices()
{
    QFETCH(QString, format);
    for (const QString& device : {QStringLiteral("/dev/full"), QStringLiteral("/dev/null")}) {
        const SaverRun run(format, {points(10)}, device);
        QVERIFY(!run.written);
        QVERIFY2(run.error().contains(QStringLiteral("a device cannot hold a")), qPrintable(run.error()));
        QVERIFY(QFileInfo::exists(device) && !QFileInfo(device).isFile());
    }
}

void OgrFailuresTest::fullSidecars_data()
{
    textRows({"format", "extension"}, {{"shp", "shp"},
                                       {"shp", "shx"},
                                       {"shp", "dbf"},
                                       {"shp", "prj"},
                                       {"shp", "cpg"},
                                       {"shp", "qml"},
                                       {"tab", "tab"},
                                       {"tab", "dat"},
                                       {"tab", "map"},
                                       {"tab", "id"},
                                       {"geojson", "geojson"},
                                       {"geojson", "qml"},
                                       {"gpkg", "gpkg"},
                                       {"fgb", "fgb"},
                                       {"gml", "gml"},
                                       {"gml", "xsd"},
                                       {"sqlite", "sqlite"}});
}

void OgrFailuresTest::fullSidecars()
{
    // One file of the set lies on a full disk: few features, so that all is written in the flush on closing.
    QFETCH(QString, format);
    QFETCH(QString, extension);
    const ModelObject model = points(3);
    const QString target = path(QStringLiteral("x.") + format);
    const QString link = path(QStringLiteral("x.") + extension);
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), link));
    const auto saver = formatOf(format);
    SettingsValue settings = saver->defaults();
    settings.set(QStringLiteral("symbology"), QStringLiteral("true"));
    ExportSelection selection;
    selection.objects = {&model};
    selection.path = target;
    Findings report;
    QString error;
    try {
        saver->prepare(saver->files(selection, settings).front(), selection, settings, report)
            ->write(target, report, nullptr);
    } catch (const std::exception& caught) {
        error = QString::fromUtf8(caught.what());
    }
    QVERIFY(QFileInfo::exists(QStringLiteral("/dev/full")));
    // A driver that puts a file of its own in the link's place has no full disk to notice.
    QVERIFY(QFileInfo(link).isSymLink());
    QVERIFY(!error.isEmpty());
}

void OgrFailuresTest::fullDiskAtEverySize()
{
    QFETCH(QString, format);
    SaverRun run(format, {points(200)}, path("x"), "symbology=true");
    QVERIFY2(run.written, qPrintable(run.error()));
    const QMap<QString, QByteArray> before = contentsOf(path());
    qint64 largest = 0;
    for (const QByteArray& content : before)
        largest = std::max<qint64>(largest, content.size());
    int failures = 0;
    for (qint64 size = 1; size < largest; size = sanitized ? 3 * size + 97 : size * 5 / 4 + 37) {
        {
            const FileSizeLimit limit(size);
            run.again();
        }
        QVERIFY2(!run.written && !run.error().isEmpty(), qPrintable(QString::number(size)));
        ++failures;
        QVERIFY2(contentsOf(path()) == before, qPrintable(QString::number(size)));
    }
    QVERIFY(failures > (sanitized ? 4 : 15));
    QVERIFY2(run.again(), qPrintable(run.error()));
}

void OgrFailuresTest::cancelledAtEveryPercent()
{
    QFETCH(QString, format);
    SaverRun run(format, {points(150)}, path("x"));
    QVERIFY2(run.written, qPrintable(run.error()));
    const QMap<QString, QByteArray> before = contentsOf(path());
    for (int percent = 0; percent <= 99; percent += sanitized ? 11 : 1) {
        CancelAt progress(percent);
        QVERIFY(!run.again({}, &progress));
        QVERIFY2(run.report.cancelled && run.error().isEmpty(), qPrintable(QString::number(percent) + run.error()));
        QVERIFY2(contentsOf(path()) == before, qPrintable(QString::number(percent)));
    }
}

void OgrFailuresTest::staleSidecars()
{
    // Indexes and journals of an earlier file go with it; a style of the user's own stays.
    for (const char* name : {"x.qix", "x.sbn", "x.shp.xml", "x.qml", "x.gpkg-wal", "x.ind", "y.qix"})
        write(name, "old");
    for (const QString& format : {QStringLiteral("shp"), QStringLiteral("gpkg"), QStringLiteral("tab")}) {
        const SaverRun run(format, {points(5)}, path(QStringLiteral("x.") + format));
        QVERIFY2(run.written, qPrintable(run.error()));
    }
    QCOMPARE(listing(), QStringLiteral("x.cpg x.dat x.dbf x.gpkg x.id x.map x.prj x.qml x.shp x.shx x.tab y.qix"));
}

void OgrFailuresTest::unknownSystems()
{
    const ModelObject object = objectOf(QStringLiteral("o"), ObjectType::VertexClouds, {1}, {2}, {3});
    ModelObject local = object;
    local.name = QStringLiteral("mine grid");
    local.crs = QStringLiteral("LOCAL_CS[\"Mine grid\",UNIT[\"metre\",1]]");
    const auto errorWith = [&](const ModelObject& one, const char* format, const char* settings) {
        return SaverRun(format, {one}, path("x"), settings).error();
    };
    for (const char* format : {"shp", "tab", "gpkg", "geojson"}) {
        const QString error = errorWith(object, format, "crs=EPSG:no");
        QVERIFY2(error.contains(QStringLiteral("\"EPSG:no\" is not a known coordinate system (give EPSG:n or WKT")),
                 qPrintable(error));
    }
    const QString noSystem = errorWith(object, "geojson", "");
    QVERIFY2(noSystem.contains(QStringLiteral("crs=EPSG:n")), qPrintable(noSystem));
    QCOMPARE(errorWith(object, "geojson", "rfc7946=false"), QString());
    QCOMPARE(errorWith(local, "shp", ""), QString());
    const QString noWay = errorWith(local, "shp", "crs=EPSG:28350");
    QVERIFY2(noWay.contains(QLatin1String("mine grid")) && noWay.contains(QLatin1String("no way")), qPrintable(noWay));
}

void OgrFailuresTest::missingAttributes_data()
{
    textRows({"attributes", "settings", "fields", "findings"},
             {{"all", "", "", "name t colorval", ""},
              {"missing", "nothing", "", "name colorval", "missing attribute: 1"},
              {"one alone", "t", "objectName=false;color=false", "t", ""},
              {"none", "", "attributes=false", "", ""}});
}

void OgrFailuresTest::missingAttributes()
{
    QFETCH(QString, attributes);
    QFETCH(QString, settings);
    QFETCH(QString, fields);
    QFETCH(QString, findings);
    SaverRun run("gpkg", {points(2)}, path("x.gpkg"));
    if (!attributes.isEmpty())
        run.selection.attributes = QStringList{attributes};
    QVERIFY(run.again(settings));
    QCOMPARE(fieldNamesIn(run.selection.path), fields);
    QCOMPARE(run.findings(), findings);
}

QTEST_GUILESS_MAIN(OgrFailuresTest)
#include "tst_ogrfailures.moc"
