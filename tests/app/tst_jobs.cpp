// SPDX-License-Identifier: MIT
#include "app/jobs/ExportError.h"
#include "app/jobs/OutputTransaction.h"
#include "app/jobs/SafeNames.h"
#include "tests/app/FileContent.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

using namespace refhost;

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
    QCOMPARE(::link(QFile::encodeName(at("m.shp")).constData(), QFile::encodeName(at(".kpexport-1-1/earlier/m.shp")).constData()), 0);
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
    QCOMPARE(contentOf(at("m.shp")) + contentOf(at("m.dbf")) + contentOf(at("m.prj")) + contentOf(at("m.cpg")), QByteArray("newnewnewthe user's"));
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
    const auto row = [](const char* name, const char* safe) { QTest::newRow(safe) << QString::fromUtf8(name) << QString::fromUtf8(safe); };
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

QTEST_GUILESS_MAIN(JobsTest)
#include "tst_jobs.moc"
