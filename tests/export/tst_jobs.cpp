// SPDX-License-Identifier: MIT
#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "export/ExportPlan.h"
#include "export/OutputTransaction.h"
#include "export/SafeNames.h"
#include "tests/support/SaverRun.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

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
    void replacedTogether();
    void sidecars();
    void abandonedFolders();
    void killedWhileMoving();
    void removedMeanwhile();
    void droppedAndAbandoned();
    void broughtBack();
    void links();
    void names_data();
    void names();
    void uniqueNames();
    void findingTexts();
    void shapefileTooLarge();
    void nothingToWrite_data();
    void nothingToWrite();
};

void JobsTest::replacedTogether()
{
    QTemporaryDir folder;
    const QString a = folder.filePath(QString(QStringLiteral("а")).repeated(120) + QStringLiteral(".txt")); // 244 bytes
    const QString b = folder.filePath(QStringLiteral("b"));
    writeFile(a, "earlier");
    QFile::setPermissions(a, QFile::ReadOwner | QFile::WriteOwner);
    OutputTransaction transaction;
    writeFile(transaction.stage(a), "new a");
    writeFile(transaction.stage(b), "new b");
    QCOMPARE(contentOf(a), QByteArray("earlier"));
    transaction.commit();
    QCOMPARE(contentOf(a), QByteArray("new a"));
    QCOMPARE(contentOf(b), QByteArray("new b"));
    QCOMPARE(QFileInfo(a).permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    QCOMPARE(entries(folder.path()).size(), 2);
}

void JobsTest::sidecars()
{
    // What the new export does not write again would belong to the wrong file; a neighbour's is none of it.
    QTemporaryDir folder;
    for (const char* name : {"m.shp", "m.dbf", "m.qix", "m.shp.xml", "n.qix"})
        writeFile(folder.filePath(QString::fromLatin1(name)), "earlier");
    const QStringList extensions{QStringLiteral("dbf"), QStringLiteral("qix"), QStringLiteral("cpg")};
    const QString target = folder.filePath(QStringLiteral("m.shp"));
    OutputTransaction transaction;
    const QString staged = transaction.stage(target, extensions);
    writeFile(staged, "new");
    writeFile(QFileInfo(staged).absolutePath() + QStringLiteral("/m.dbf"), "new");
    writeFile(QFileInfo(staged).absolutePath() + QStringLiteral("/m.cpg"), "new");
    QCOMPARE(transaction.waiting(target).size(), 3);
    transaction.commit();
    QCOMPARE(entries(folder.path()).join(QLatin1Char(' ')), QStringLiteral("m.cpg m.dbf m.shp m.shp.xml n.qix"));
    QCOMPARE(contentOf(folder.filePath(QStringLiteral("m.dbf"))), QByteArray("new"));
    QCOMPARE(contentOf(folder.filePath(QStringLiteral("n.qix"))), QByteArray("earlier"));
}

void JobsTest::abandonedFolders()
{
    // A run that was killed holds no lock any more; one that is at work does.
    QTemporaryDir folder;
    QDir(folder.path()).mkpath(QStringLiteral(".kpexport-1-1/1"));
    OutputTransaction running;
    writeFile(running.stage(folder.filePath(QStringLiteral("a"))), "a");
    QCOMPARE(entries(folder.path()).size(), 1);
    OutputTransaction second;
    writeFile(second.stage(folder.filePath(QStringLiteral("a"))), "second");
    QCOMPARE(entries(folder.path()).size(), 2);
    second.commit();
    running.commit();
    QCOMPARE(entries(folder.path()), QStringList{QStringLiteral("a")});
    QCOMPARE(contentOf(folder.filePath(QStringLiteral("a"))), QByteArray("a"));
}

void JobsTest::killedWhileMoving()
{
    // As a run leaves it that was killed between two moves: the .dbf has been replaced, the .shp waits, and so does a
    // .prj that was new. Somebody has replaced the .cpg since.
    QTemporaryDir folder;
    const auto at = [&folder](const char* name) { return folder.filePath(QString::fromLatin1(name)); };
    QDir(folder.path()).mkpath(QStringLiteral(".kpexport-1-1/1"));
    QDir(folder.path()).mkpath(QStringLiteral(".kpexport-1-1/earlier"));
    writeFile(at("m.shp"), "earlier");
    QCOMPARE(::link(QFile::encodeName(at("m.shp")).constData(),
                    QFile::encodeName(at(".kpexport-1-1/earlier/m.shp")).constData()),
             0);
    writeFile(at(".kpexport-1-1/1/m.shp"), "new");
    writeFile(at(".kpexport-1-1/earlier/m.dbf"), "earlier");
    writeFile(at("m.dbf"), "new");
    writeFile(at(".kpexport-1-1/1/m.prj"), "new");
    writeFile(at(".kpexport-1-1/earlier/m.cpg"), "earlier");
    writeFile(at(".kpexport-1-1/1/m.cpg"), "new");
    writeFile(at("m.cpg"), "the user's");
    OutputTransaction next;
    writeFile(next.stage(at("other")), "other");
    next.commit();
    QCOMPARE(entries(folder.path()).join(QLatin1Char(' ')), QStringLiteral("m.cpg m.dbf m.prj m.shp other"));
    QCOMPARE(contentOf(at("m.shp")) + contentOf(at("m.dbf")) + contentOf(at("m.prj")) + contentOf(at("m.cpg")),
             QByteArray("newnewnewthe user's"));
}

void JobsTest::removedMeanwhile()
{
    // The target goes while its successor is written: the new file comes all the same.
    QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("a"));
    writeFile(target, "earlier");
    OutputTransaction transaction;
    writeFile(transaction.stage(target), "new");
    QVERIFY(QFile::remove(target));
    transaction.commit();
    QCOMPARE(contentOf(target), QByteArray("new"));

    // The whole directory goes: an error, and nothing is created elsewhere.
    QDir(folder.path()).mkdir(QStringLiteral("gone"));
    OutputTransaction lost;
    writeFile(lost.stage(folder.filePath(QStringLiteral("gone/a"))), "new");
    QVERIFY(QDir(folder.filePath(QStringLiteral("gone"))).removeRecursively());
    QVERIFY_EXCEPTION_THROWN(lost.commit(), ExportError);
    QCOMPARE(entries(folder.path()), QStringList{QStringLiteral("a")});
}

void JobsTest::droppedAndAbandoned()
{
    QTemporaryDir folder;
    writeFile(folder.filePath(QStringLiteral("a")), "earlier");
    {
        OutputTransaction transaction;
        writeFile(transaction.stage(folder.filePath(QStringLiteral("a"))), "half");
        writeFile(transaction.stage(folder.filePath(QStringLiteral("b"))), "half");
        transaction.drop(folder.filePath(QStringLiteral("b")));
        QCOMPARE(transaction.waiting(folder.filePath(QStringLiteral("a"))).size(), 1);
    }
    QCOMPARE(entries(folder.path()), QStringList{QStringLiteral("a")});
    QCOMPARE(contentOf(folder.filePath(QStringLiteral("a"))), QByteArray("earlier"));
}

void JobsTest::broughtBack()
{
    // The second rename fails: a directory has come to stand in its place.
    QTemporaryDir folder;
    const QString a = folder.filePath(QStringLiteral("a"));
    const QString b = folder.filePath(QStringLiteral("b"));
    const QString c = folder.filePath(QStringLiteral("c"));
    writeFile(a, "earlier");
    OutputTransaction transaction;
    writeFile(transaction.stage(a), "new");
    writeFile(transaction.stage(c), "new");
    writeFile(transaction.stage(b), "new");
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("b")));
    QVERIFY_EXCEPTION_THROWN(transaction.commit(), ExportError);
    QCOMPARE(contentOf(a), QByteArray("earlier"));
    QVERIFY(!QFile::exists(c));
}

void JobsTest::links()
{
    QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("target"));
    const QString link = folder.filePath(QStringLiteral("link"));
    writeFile(target, "earlier");
    QVERIFY(QFile::link(target, link));
    OutputTransaction transaction;
    writeFile(transaction.stage(link), "new");
    transaction.commit();
    QVERIFY(QFileInfo(link).isSymLink());
    QCOMPARE(contentOf(target), QByteArray("new"));
}

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
