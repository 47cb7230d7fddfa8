// SPDX-License-Identifier: MIT
#include "export/CommonFindings.h"
#include "export/ExportPlan.h"
#include "export/SafeNames.h"
#include "tests/support/SaverRun.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

using namespace kpFormats;

namespace
{

QStringList entries(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

} // namespace

class JobsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names_data();
    void names();
    void uniqueNames();
    void findingTexts();
    void shapefileTooLarge();
    void nothingToWrite_data();
    void nothingToWrite();
};

void JobsTest::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("safe");
    const auto row = [](const char* name, const char* safe) {
        QTest::newRow(safe) << QString::fromUtf8(name) << QString::fromUtf8(safe);
    };
    row("A/B\\C:D*?\"<>|", "A_B_C_D______");
    row("  line\nend\t ", "line end");
    row("", "unnamed");
    row("..", "unnamed");
    row(".hidden", "_.hidden");
    row("con", "_con");
    row("Lpt1.txt", "_Lpt1.txt");
    row("console", "console");
    row("Ярус 地層 é", "Ярус 地層 é");
    QTest::newRow("cut at a character") << QString(100, QChar(0x5730)) << QString(40, QChar(0x5730));
}

void JobsTest::names()
{
    QFETCH(QString, name);
    QFETCH(QString, safe);
    QCOMPARE(safeFileNamePart(name), safe);
}

void JobsTest::uniqueNames()
{
    UniqueNames names;
    QStringList given;
    for (const char* name : {"A", "a", "A_2", "A", "Ä", "ä"})
        given.append(names.take(QString::fromUtf8(name)));
    QCOMPARE(given.join(QLatin1Char(' ')), QString::fromUtf8("A a_2 A_2_2 A_3 Ä ä_2"));
    QSet<QString> many;
    for (int index = 0; index < 100000; ++index)
        many.insert(names.take(QStringLiteral("same")));
    QCOMPARE(many.size(), 100000);
}

void JobsTest::nothingToWrite_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("crs");
    QTest::addColumn<bool>("empty");
    for (const char* format : {"ascii", "dxf", "gocad", "kml", "shp", "tab", "gpkg", "geojson"}) {
        const QString key = QString::fromLatin1(format);
        const QString crs =
            key == QLatin1String("kml") || key == QLatin1String("geojson") ? QStringLiteral("EPSG:4326") : QString();
        QTest::newRow(qPrintable(key + QStringLiteral(" without vertices"))) << key << crs << true;
        // A table holds a row for each vertex, with or without a place.
        if (key != QLatin1String("ascii"))
            QTest::newRow(qPrintable(key + QStringLiteral(" without places"))) << key << crs << false;
    }
}

void JobsTest::nothingToWrite()
{
    QFETCH(QString, format);
    QFETCH(QString, crs);
    QFETCH(bool, empty);
    const std::vector<double> numbers(empty ? 0 : 3, none);
    ModelObject cloud = objectOf(QStringLiteral("Cloud"), ObjectType::VertexClouds, numbers, numbers, numbers);
    cloud.crs = crs;
    QTemporaryDir folder;
    const SaverRun run(format, {cloud}, folder.filePath(QStringLiteral("o")));
    QVERIFY(!run.written);
    QVERIFY2(run.error().contains(QStringLiteral("Cloud")) && run.error().endsWith(QLatin1Char(')')),
             qPrintable(run.error()));
    QCOMPARE(entries(folder.path()), QStringList());
}

void JobsTest::findingTexts()
{
    using Notes = QVector<QPair<QString, qint64>>;
    const auto line = [](const FindingKind& kind, const Notes& notes, const char* value = "") {
        Findings findings;
        for (const auto& note : notes)
            findings.note(kind, note.first, note.second, QStringLiteral("as said"), QString::fromLatin1(value));
        return findings.lines().join(QLatin1Char('\n'));
    };
    const QString a = QStringLiteral("A");
    const QString b = QStringLiteral("B");
    QCOMPARE(line(finding::renamed, {{a, 1}}), QStringLiteral("A: a name was changed (as said)"));
    QCOMPARE(line(finding::renamed, {{a, 1}, {b, 1}}), QStringLiteral("2 names were changed, first A (as said)"));
    QCOMPARE(line(finding::positionLeftOut, {{a, 3}, {b, 4}}),
             QStringLiteral("7 positions were left out, in 2 objects, first A (as said)"));
    QCOMPARE(line(finding::objectLeftOut, {{a, 3}, {b, 1}}),
             QStringLiteral("4 objects were left out, first A (as said)")); // objects may share a name
    constexpr FindingKind differ("systems differ", "the objects have another system", "the objects have %1 systems");
    QCOMPARE(line(differ, {{QString(), 2}}), QStringLiteral("the objects have 2 systems (as said)"));
    constexpr FindingKind asNull("null written as", "a null was written as", "%1 nulls were written as");
    QCOMPARE(line(asNull, {{a, 2}}, "-9"), QStringLiteral("A: 2 nulls were written as -9 (as said)"));
}

void JobsTest::shapefileTooLarge()
{
    // 4 GB of records: many objects that share their vertices. Nothing is written to find it out.
    std::vector<double> numbers(1000000, 1.0);
    const ModelObject cloud = objectOf(QStringLiteral("C"), ObjectType::VertexClouds, numbers, numbers, numbers);
    const auto format = formatOf(QStringLiteral("shp"));
    const QTemporaryDir folder;
    ExportSelection selection;
    selection.path = folder.filePath(QStringLiteral("o.shp"));
    for (const int objects : {90, 100}) { // of 44 bytes for each vertex
        selection.objects.assign(static_cast<std::size_t>(objects), &cloud);
        const ExportPlan plan = planOf(PreparedExport(*format, selection, format->defaults()));
        QCOMPARE(plan.refused(), objects == 100 ? 1 : 0);
        QCOMPARE(plan.foreseen.files().front().error.contains(QStringLiteral("4 GB, and this one would have 4400 MB")),
                 objects == 100);
        QCOMPARE(plan.summary().contains(QStringLiteral("cannot be written")), objects == 100);
    }
}

QTEST_GUILESS_MAIN(JobsTest)
#include "tst_jobs.moc"
