// SPDX-License-Identifier: MIT
// What the vector formats do when something goes wrong: full disks, devices, systems that are not known, cancelling.
#include "tests/app/OgrTestTools.h"

#include <csignal>
#include <sys/resource.h>

using namespace refhost;

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
    std::vector<double> x;
    std::vector<double> y;
    QVector<QVariant> texts;
    for (int index = 0; index < count; ++index) {
        x.push_back(500000 + index * 1.25);
        y.push_back(7500000 - index * 0.75);
        texts.append(QStringLiteral("sample %1").arg(index));
    }
    ModelObject object = objectOf(QStringLiteral("P"), ObjectType::VertexClouds, x, y, x);
    object.crs = wktOf(QStringLiteral("EPSG:28350"));
    object.vertexAttributes = {columnOf(QStringLiteral("t"), AttributeKind::Text, texts)};
    return object;
}

void addFormats()
{
    QTest::addColumn<QString>("format");
    for (const char* format : {"shp", "tab", "gpkg", "geojson"})
        QTest::newRow(format) << QString::fromLatin1(format);
}

} // namespace

class OgrFailuresTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void devices_data() { addFormats(); }
    void devices();
    void fullSidecars_data();
    void fullSidecars();
    void fullDiskAtEverySize_data() { addFormats(); }
    void fullDiskAtEverySize();
    void cancelledAtEveryPercent_data() { addFormats(); }
    void cancelledAtEveryPercent();
    void staleSidecars();
    void unknownSystems();
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
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("extension");
    for (const char* name : {"shp/shp", "shp/shx", "shp/dbf", "shp/prj", "shp/cpg", "shp/qml", "tab/tab", "tab/dat", "tab/map", "tab/id", "geojson/geojson", "geojson/qml", "gpkg/gpkg"}) {
        const QStringList parts = QString::fromLatin1(name).split(QLatin1Char('/'));
        QTest::newRow(name) << parts[0] << parts[1];
    }
}

void OgrFailuresTest::fullSidecars()
{
    // One file of the set lies on a full disk: few features, so that all is written in the flush on closing.
    QFETCH(QString, format);
    QFETCH(QString, extension);
    const ModelObject model = points(3);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("x.") + format);
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), folder.filePath(QStringLiteral("x.") + extension)));
    const auto saver = formatOf(format);
    saver->settings().set(QStringLiteral("symbology"), QStringLiteral("true"));
    ExportSelection selection;
    selection.objects = {&model};
    selection.path = path;
    ExportReport report;
    QString error;
    try {
        saver->write(saver->plan(selection).front(), path, selection, report, nullptr);
    } catch (const std::exception& caught) {
        error = QString::fromUtf8(caught.what());
    }
    QVERIFY(QFileInfo::exists(QStringLiteral("/dev/full")));
    // A driver that puts a file of its own in the link's place has no full disk to notice.
    QVERIFY(QFileInfo(folder.filePath(QStringLiteral("x.") + extension)).isSymLink());
    QVERIFY(!error.isEmpty());
}

void OgrFailuresTest::fullDiskAtEverySize()
{
    QFETCH(QString, format);
    const ModelObject model = points(200);
    const QTemporaryDir folder;
    SaverRun run(format, {model}, folder.filePath(QStringLiteral("x")), "symbology=true");
    QVERIFY2(run.written, qPrintable(run.error()));
    const QMap<QString, QByteArray> before = contentsOf(folder.path());
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
        QVERIFY2(contentsOf(folder.path()) == before, qPrintable(QString::number(size)));
    }
    QVERIFY(failures > (sanitized ? 4 : 15));
    QVERIFY2(run.again(), qPrintable(run.error()));
}

void OgrFailuresTest::cancelledAtEveryPercent()
{
    QFETCH(QString, format);
    const ModelObject model = points(150);
    const QTemporaryDir folder;
    SaverRun run(format, {model}, folder.filePath(QStringLiteral("x")));
    QVERIFY2(run.written, qPrintable(run.error()));
    const QMap<QString, QByteArray> before = contentsOf(folder.path());
    for (int percent = 0; percent <= 99; percent += sanitized ? 11 : 1) {
        CancelAt progress(percent);
        QVERIFY(!run.again({}, &progress));
        QVERIFY2(run.report.cancelled && run.error().isEmpty(), qPrintable(QString::number(percent) + run.error()));
        QVERIFY2(contentsOf(folder.path()) == before, qPrintable(QString::number(percent)));
    }
}

void OgrFailuresTest::staleSidecars()
{
    // Indexes and journals of an earlier file go with it; a style of the user's own stays.
    const ModelObject model = points(5);
    const QTemporaryDir folder;
    for (const char* name : {"x.qix", "x.sbn", "x.shp.xml", "x.qml", "x.gpkg-wal", "x.ind", "y.qix"}) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
    }
    for (const char* format : {"shp", "gpkg", "tab"}) {
        SaverRun run(QString::fromLatin1(format), {model}, folder.filePath(QStringLiteral("x.") + QString::fromLatin1(format)));
        QVERIFY2(run.written, qPrintable(run.error()));
    }
    QCOMPARE(contentsOf(folder.path()).keys().join(QLatin1Char(' ')),
             QStringLiteral("x.cpg x.dat x.dbf x.gpkg x.id x.map x.prj x.qml x.shp x.shx x.tab y.qix"));
}

void OgrFailuresTest::unknownSystems()
{
    const ModelObject object = objectOf(QStringLiteral("o"), ObjectType::VertexClouds, {1}, {2}, {3});
    ModelObject local = object;
    local.name = QStringLiteral("mine grid");
    local.crs = QStringLiteral("LOCAL_CS[\"Mine grid\",UNIT[\"metre\",1]]");
    const QTemporaryDir folder;
    const auto errorWith = [&](const ModelObject& one, const char* format, const char* settings) {
        return SaverRun(format, {one}, folder.filePath(QStringLiteral("x")), settings).error();
    };
    for (const char* format : {"shp", "tab", "gpkg", "geojson"}) {
        const QString error = errorWith(object, format, "crs=EPSG:no");
        QVERIFY2(error.contains(QStringLiteral("\"EPSG:no\" is no coordinate system")) && error.contains(QStringLiteral("give EPSG:n or WKT")), qPrintable(error));
    }
    const QString noSystem = errorWith(object, "geojson", "");
    QVERIFY2(noSystem.contains(QStringLiteral("crs=EPSG:n")), qPrintable(noSystem));
    QCOMPARE(errorWith(object, "geojson", "rfc7946=false"), QString());
    QCOMPARE(errorWith(local, "shp", ""), QString());
    const QString noWay = errorWith(local, "shp", "crs=EPSG:28350");
    QVERIFY2(noWay.contains(QStringLiteral("mine grid")) && noWay.contains(QStringLiteral("no way")), qPrintable(noWay));
}

void OgrFailuresTest::missingAttributes()
{
    const QTemporaryDir folder;
    SaverRun run("gpkg", {points(2)}, folder.filePath(QStringLiteral("x.gpkg")));
    const auto fields = [&run] {
        QStringList names;
        const GDALDatasetUniquePtr source = openVector(run.selection.path);
        OGRFeatureDefn* definition = source->GetLayer(0)->GetLayerDefn();
        for (int field = 0; field < definition->GetFieldCount(); ++field)
            names.append(QString::fromUtf8(definition->GetFieldDefn(field)->GetNameRef()));
        return names.join(QLatin1Char(' '));
    };
    QVERIFY(run.written);
    QCOMPARE(fields(), QStringLiteral("name t colorval"));
    QVERIFY(run.report.findings().empty());
    run.selection.attributes = QStringList{QStringLiteral("nothing")};
    QVERIFY(run.again());
    QCOMPARE(fields(), QStringLiteral("name colorval"));
    QCOMPARE(run.countOf(QStringLiteral("missing attribute")), 1);
    run.selection.attributes = QStringList{QStringLiteral("t")};
    QVERIFY(run.again("objectName=false;color=false"));
    QCOMPARE(fields(), QStringLiteral("t"));
    run.selection.attributes.reset();
    QVERIFY(run.again("objectName=true;color=true;attributes=false"));
    QCOMPARE(fields(), QString());
}

QTEST_GUILESS_MAIN(OgrFailuresTest)
#include "tst_ogrfailures.moc"
