// SPDX-License-Identifier: MIT
// What the vector formats do when something goes wrong: full disks, devices, systems that are not known, cancelling.
#include "tests/app/OgrTestTools.h"

#include "app/readers/CoordinateSystems.h"
#include "app/readers/ModelLoader.h"

#include <QTemporaryDir>
#include <QtTest>

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

Model points(int count)
{
    std::vector<double> x;
    std::vector<double> y;
    QVector<QVariant> texts;
    for (int index = 0; index < count; ++index) {
        x.push_back(500000 + index * 1.25);
        y.push_back(7500000 - index * 0.75);
        texts.append(QStringLiteral("sample %1").arg(index));
    }
    Model model;
    ModelObject object = objectOf(QStringLiteral("P"), ObjectType::VertexClouds, x, y, x);
    object.crs = wktOf(QStringLiteral("EPSG:28350"));
    object.vertexAttributes = {columnOf(QStringLiteral("t"), AttributeKind::Text, texts)};
    model.add(object);
    return model;
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
    const Model model = points(10);
    const auto saver = formatOf(format);
    for (const QString& device : {QStringLiteral("/dev/full"), QStringLiteral("/dev/null")}) {
        const ExportSelection selection = selectionOf(model, device);
        ExportReport report;
        QVERIFY(!runExport(*saver, selection, saver->plan(selection), nullptr, report));
        QVERIFY2(errorsOf(report).contains(QStringLiteral("a device cannot hold a")), qPrintable(errorsOf(report)));
        QVERIFY(QFileInfo::exists(device) && !QFileInfo(device).isFile());
    }
    const QTemporaryDir folder;
    for (const QString& place : {folder.path(), folder.filePath(QStringLiteral("missing/x"))}) {
        const ExportSelection selection = selectionOf(model, place);
        ExportReport report;
        QVERIFY(!runExport(*saver, selection, saver->plan(selection), nullptr, report));
        QVERIFY2(errorsOf(report).contains(QStringLiteral("directory")), qPrintable(errorsOf(report)));
    }
    QVERIFY(contentsOf(folder.path()).isEmpty());
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
    const Model model = points(3);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("x.") + format);
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), folder.filePath(QStringLiteral("x.") + extension)));
    const auto saver = formatOf(format, {QStringLiteral("symbology=true")});
    const ExportSelection selection = selectionOf(model, path);
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
    const Model model = points(200);
    const QTemporaryDir folder;
    const auto saver = formatOf(format, {QStringLiteral("symbology=true")});
    const ExportSelection selection = selectionOf(model, folder.filePath(QStringLiteral("x")));
    const auto files = saver->plan(selection);
    ExportReport first;
    QVERIFY2(runExport(*saver, selection, files, nullptr, first), qPrintable(errorsOf(first)));
    const QMap<QString, QByteArray> before = contentsOf(folder.path());
    qint64 largest = 0;
    for (const QByteArray& content : before)
        largest = std::max<qint64>(largest, content.size());
    int failures = 0;
    for (qint64 size = 1; size < largest; size = sanitized ? 3 * size + 97 : size * 5 / 4 + 37) {
        ExportReport report;
        bool written = false;
        {
            const FileSizeLimit limit(size);
            written = runExport(*saver, selection, files, nullptr, report);
        }
        QVERIFY2(!written, qPrintable(QString::number(size)));
        QVERIFY(!errorsOf(report).isEmpty());
        ++failures;
        QVERIFY2(contentsOf(folder.path()) == before, qPrintable(QString::number(size)));
    }
    QVERIFY(failures > (sanitized ? 4 : 15));
    ExportReport last;
    QVERIFY2(runExport(*saver, selection, files, nullptr, last), qPrintable(errorsOf(last)));
}

void OgrFailuresTest::cancelledAtEveryPercent()
{
    QFETCH(QString, format);
    const Model model = points(150);
    const QTemporaryDir folder;
    const auto saver = formatOf(format);
    const ExportSelection selection = selectionOf(model, folder.filePath(QStringLiteral("x")));
    const auto files = saver->plan(selection);
    ExportReport first;
    QVERIFY2(runExport(*saver, selection, files, nullptr, first), qPrintable(errorsOf(first)));
    const QMap<QString, QByteArray> before = contentsOf(folder.path());
    for (int percent = 0; percent <= 99; percent += sanitized ? 11 : 1) {
        CancelAt progress(percent);
        ExportReport report;
        QVERIFY(!runExport(*saver, selection, files, &progress, report));
        QVERIFY2(report.cancelled, qPrintable(QString::number(percent) + errorsOf(report)));
        QVERIFY2(errorsOf(report).isEmpty(), qPrintable(errorsOf(report)));
        QVERIFY2(contentsOf(folder.path()) == before, qPrintable(QString::number(percent)));
    }
}

void OgrFailuresTest::staleSidecars()
{
    // Indexes and journals of an earlier file go with it; a style of the user's own stays.
    const Model model = points(5);
    const QTemporaryDir folder;
    for (const char* name : {"x.qix", "x.sbn", "x.shp.xml", "x.qml", "x.gpkg-wal", "x.ind", "y.qix"}) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
    }
    for (const char* format : {"shp", "gpkg", "tab"}) {
        const auto saver = formatOf(QString::fromLatin1(format));
        const ExportSelection selection = selectionOf(model, folder.filePath(QStringLiteral("x.") + QString::fromLatin1(format)));
        ExportReport report;
        QVERIFY2(runExport(*saver, selection, saver->plan(selection), nullptr, report), qPrintable(errorsOf(report)));
    }
    QCOMPARE(contentsOf(folder.path()).keys().join(QLatin1Char(' ')),
             QStringLiteral("x.cpg x.dat x.dbf x.gpkg x.id x.map x.prj x.qml x.shp x.shx x.tab y.qix"));
}

void OgrFailuresTest::unknownSystems()
{
    Model model;
    model.add(objectOf(QStringLiteral("o"), ObjectType::VertexClouds, {1}, {2}, {3}));
    ModelObject local = objectOf(QStringLiteral("mine grid"), ObjectType::VertexClouds, {1}, {2}, {3});
    local.crs = QStringLiteral("LOCAL_CS[\"Mine grid\",UNIT[\"metre\",1]]");
    const QTemporaryDir folder;
    const auto errorWith = [&](const Model& objects, const char* format, const QStringList& settings) {
        const auto saver = formatOf(QString::fromLatin1(format), settings);
        const ExportSelection selection = selectionOf(objects, folder.filePath(QStringLiteral("x")));
        ExportReport report;
        runExport(*saver, selection, saver->plan(selection), nullptr, report);
        return errorsOf(report);
    };
    for (const char* format : {"shp", "tab", "gpkg", "geojson"}) {
        const QString error = errorWith(model, format, {QStringLiteral("crs=EPSG:no")});
        QVERIFY2(error.contains(QStringLiteral("\"EPSG:no\" is no coordinate system")) && error.contains(QStringLiteral("give EPSG:n or WKT")), qPrintable(error));
    }
    const QString noSystem = errorWith(model, "geojson", {});
    QVERIFY2(noSystem.contains(QStringLiteral("crs=EPSG:n")), qPrintable(noSystem));
    QCOMPARE(errorWith(model, "geojson", {QStringLiteral("rfc7946=false")}), QString());
    Model mine;
    mine.add(local);
    QCOMPARE(errorWith(mine, "shp", {}), QString());
    const QString noWay = errorWith(mine, "shp", {QStringLiteral("crs=EPSG:28350")});
    QVERIFY2(noWay.contains(QStringLiteral("mine grid")) && noWay.contains(QStringLiteral("no way")), qPrintable(noWay));
}

void OgrFailuresTest::missingAttributes()
{
    const Model model = points(2);
    const QTemporaryDir folder;
    const auto fields = [&](const std::optional<QStringList>& chosen, const QStringList& settings, ExportReport& report) {
        const auto saver = formatOf(QStringLiteral("gpkg"), settings);
        ExportSelection selection = selectionOf(model, folder.filePath(QStringLiteral("x.gpkg")));
        selection.attributes = chosen;
        QStringList names;
        if (!runExport(*saver, selection, saver->plan(selection), nullptr, report))
            return errorsOf(report);
        const GDALDatasetUniquePtr source = openVector(selection.path);
        OGRFeatureDefn* definition = source->GetLayer(0)->GetLayerDefn();
        for (int field = 0; field < definition->GetFieldCount(); ++field)
            names.append(QString::fromUtf8(definition->GetFieldDefn(field)->GetNameRef()));
        return names.join(QLatin1Char(' '));
    };
    ExportReport report;
    QCOMPARE(fields(std::nullopt, {}, report), QStringLiteral("name t colorval"));
    QVERIFY(report.findings().empty());
    QCOMPARE(fields(QStringList{QStringLiteral("nothing")}, {}, report), QStringLiteral("name colorval"));
    QCOMPARE(countOf(report, QStringLiteral("missing attribute")), 1);
    QCOMPARE(fields(QStringList{QStringLiteral("t")}, {QStringLiteral("objectName=false"), QStringLiteral("color=false")}, report), QStringLiteral("t"));
    QCOMPARE(fields(std::nullopt, {QStringLiteral("attributes=false")}, report), QString());
}

QTEST_GUILESS_MAIN(OgrFailuresTest)
#include "tst_ogrfailures.moc"
