// SPDX-License-Identifier: MIT
// Full devices and cancelling in the middle, for every saver that writes its files itself.
#include "tests/support/SaverRun.h"

using namespace kpFormats;

namespace
{

/// Small enough to be written on closing, or too large for any buffer.
ModelObject objectFor(const QString& format, bool large)
{
    if (format == QLatin1String("grdecl") || format == QLatin1String("cellcenters") || format == QLatin1String("vtu"))
        return boxOf(large ? cellsOf(50, 50, sanitized ? 8 : 40) : cellsOf(1, 1, 1));
    if (!QByteArray(QTest::currentDataTag()).endsWith("lines"))
        return large ? gridOf(sanitized ? 200 : 1000, 300) : gridOf(3, 3);
    std::vector<std::array<double, 3>> rows;
    for (int index = 0; index < (large ? (sanitized ? 40000 : 200000) : 2); ++index)
        rows.push_back({100.0 + index * 1e-5, -20.0 + (index % 1000) * 1e-4, index * 0.125});
    if (format == QLatin1String("las") || format == QLatin1String("deviation"))
        return objectOf(ObjectType::Wells, QStringLiteral("W"), rows, "");
    if (format != QLatin1String("opentec"))
        return objectOf(ObjectType::Polylines, QStringLiteral("L"), rows);
    ModelObject section = objectOf(ObjectType::CrossSections, QStringLiteral("A"), {{0, 0, 0}, {1, 0, 0}}, "");
    const std::vector<double> numbers(rows.size(), 1.0);
    section.section = std::make_shared<const CrossSection>(CrossSection{
        {{QStringLiteral("H"), ObjectType::GridSurfaces, QColor(255, 0, 0), numbers, numbers, numbers, numbers}}});
    return section;
}

} // namespace

class SaverFailuresTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fullDevice_data() { formatRows(); }
    void fullDevice();
    void cancelled_data() { formatRows(); }
    void cancelled();

private:
    void formatRows();
};

void SaverFailuresTest::formatRows()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("settings");
    const auto row = [](const char* name, const char* settings = "") {
        QTest::newRow(name) << QString::fromLatin1(name).section(QLatin1Char(' '), 0, 0)
                            << QString::fromLatin1(settings);
    };
    for (const char* name : {"cellcenters",
                             "deviation lines",
                             "dxf lines",
                             "dxf",
                             "gocad",
                             "grdecl",
                             "irap",
                             "irapbinary",
                             "irappoints lines",
                             "kml lines",
                             "las lines",
                             "obj",
                             "off",
                             "opentec lines",
                             "ply",
                             "stl",
                             "vti",
                             "vtp lines",
                             "vtp",
                             "vtu",
                             "zmap"})
        row(name);
    row("dxf boundaries", "boundaries=true");
    row("kml zipped lines", "compress=true");
}

void SaverFailuresTest::fullDevice()
{
    QFETCH(QString, format);
    QFETCH(QString, settings);
    for (const bool large : {false, true}) {
        const SaverRun run(format, {objectFor(format, large)}, QStringLiteral("/dev/full"), settings);
        QVERIFY2(run.error().contains(QStringLiteral("could not be written completely")), qPrintable(run.error()));
        QVERIFY2(run.error().contains(QStringLiteral("(make room on the disk or choose another)")),
                 qPrintable(run.error()));
    }
}

void SaverFailuresTest::cancelled()
{
    if (sanitized)
        QSKIP("takes many minutes with sanitizers; the ordinary build tries it");
    QFETCH(QString, format);
    QFETCH(QString, settings);
    const QTemporaryDir folder;
    CancelAt all(1000);
    std::vector<ModelObject> objects{objectFor(format, true)};
    // The picture that goes with a KML file.
    if (format == QLatin1String("kml"))
        objects.push_back(gridOf(QStringLiteral("G"), 2, {1, 2, 3, 4}));
    SaverRun run(format, objects, folder.filePath(QStringLiteral("a.") + format), settings, &all);
    QCOMPARE(run.fault(), QString());
    QVERIFY(all.reached == 100 && !all.backwards);
    QVERIFY2(all.asked > (format.startsWith(QLatin1Char('g')) ? 200 : 40), qPrintable(QString::number(all.asked)));
    QVERIFY(run.readBack.front().positions() > 0 && run.readBack.front().worst().difference < 0.001);
    const QMap<QString, QByteArray> before = contentsOf(folder.path());
    for (const int percent : {10, 25, 50}) {
        CancelAt progress(percent);
        QVERIFY(!run.again({}, &progress));
        QVERIFY(run.report.cancelled && run.error().isEmpty());
        QVERIFY2(progress.reached >= percent && progress.reached < percent + 10,
                 qPrintable(QStringLiteral("%1: %2").arg(percent).arg(progress.reached)));
        QVERIFY(contentsOf(folder.path()) == before);
    }
}

QTEST_GUILESS_MAIN(SaverFailuresTest)
#include "tst_saverfailures.moc"
