// SPDX-License-Identifier: MIT
// What a run does with objects that cannot be written and with files that come out wrong.
#include "app/jobs/ExportPlan.h"
#include "app/jobs/ExportRun.h"
#include "app/jobs/ObjectError.h"
#include "tests/app/FileContent.h"
#include "tests/app/TestObjects.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QTemporaryDir>
#include <QtTest>

using namespace refhost;

namespace
{

ModelObject points(const char* name, int id)
{
    ModelObject object = objectOf(QString::fromUtf8(name), ObjectType::VertexClouds, {1, 2}, {3, 4}, {5, 6});
    object.id = id;
    return object;
}

/// Writes the objects' names, one a line, and a sidecar with their number; refuses objects named "bad".
class NameFormat : public ExportFormat
{
public:
    FormatInfo info() const override { return {QStringLiteral("names"), QStringLiteral("Names"), {}, QStringLiteral("nam"), {}, {}}; }
    SettingsMap settings() override { return {}; }
    QStringList sidecars() const override { return {QStringLiteral("num")}; }
    std::vector<PlannedFile> plan(const ExportSelection& selection) const override
    {
        return planFiles(selection, grouping, QStringLiteral("nam"));
    }
    qint64 write(const PlannedFile& file, const QString& path, const ExportSelection&, ExportReport&, kpBase::AbstractProgress*) override
    {
        QByteArray names;
        for (const ModelObject* object : file.objects) {
            if (object->name == QLatin1String("bad"))
                throw ObjectError(*object, QStringLiteral("it is bad"), QStringLiteral("mend it"));
            names += object->name.toUtf8() + '\n';
        }
        writeFile(path, names);
        writeFile(QFileInfo(path).absolutePath() + QLatin1Char('/') + QFileInfo(path).completeBaseName() + QStringLiteral(".num"),
                  QByteArray::number(static_cast<int>(file.objects.size())));
        return static_cast<qint64>(file.objects.size());
    }
    Verification verify(const PlannedFile& file, const QString& path, const ExportSelection&) override
    {
        Verification found{QStringLiteral("line count"), contentOf(path).count('\n'), 0.0, fault};
        if (found.count != static_cast<qint64>(file.objects.size()))
            found.fault = QStringLiteral("another number of lines");
        return found;
    }

    FileGrouping grouping = FileGrouping::Single;
    QString fault;
};

} // namespace

class RunTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void badObjectsAreLeftOut();
    void onlyBadObjects();
    void unsoundObjects_data();
    void unsoundObjects();
    void verification();
    void plan();

private:
    ExportSelection selection(const std::vector<const ModelObject*>& objects) const
    {
        ExportSelection chosen;
        chosen.objects = objects;
        chosen.path = path();
        return chosen;
    }
    QString path() const { return m_folder.filePath(QStringLiteral("out.nam")); }
    QString sidecar() const { return m_folder.filePath(QStringLiteral("out.num")); }

    QTemporaryDir m_folder;
    ModelObject m_one = points("one", 1);
    ModelObject m_bad = points("bad", 2);
    ModelObject m_two = points("two/2", 3);
};

void RunTest::badObjectsAreLeftOut()
{
    ModelObject torn = points("torn", 4);
    torn.z = numbersOf({1});
    NameFormat format;
    ExportReport report;
    const ExportSelection chosen = selection({&m_one, &m_bad, &torn, &m_two, &m_bad});
    QVERIFY(!runExport(format, chosen, format.plan(chosen), nullptr, report));
    QCOMPARE(contentOf(path()), QByteArray("one\ntwo/2\n"));
    QCOMPARE(contentOf(sidecar()), QByteArray("2"));
    const FileOutcome& outcome = report.files().front();
    QVERIFY(outcome.written() && !outcome.complete() && report.anyFailed());
    QCOMPARE(outcome.objects.join(QLatin1Char(' ')), QStringLiteral("one two/2"));
    QCOMPARE(outcome.failedObjects.size(), std::size_t(2));
    QCOMPARE(outcome.failedObjects[0].name, QStringLiteral("torn"));
    QCOMPARE(outcome.failedObjects[1].reason, QStringLiteral("it is bad (mend it)"));
    const QJsonArray failed = report.toJson(QStringLiteral("names")).value(QStringLiteral("files")).toArray().first().toObject()
                                  .value(QStringLiteral("failedObjects")).toArray();
    QCOMPARE(failed.size(), 2);
}

void RunTest::onlyBadObjects()
{
    NameFormat format;
    ExportReport report;
    const QByteArray before = contentOf(path());
    const ExportSelection chosen = selection({&m_bad});
    QVERIFY(!runExport(format, chosen, format.plan(chosen), nullptr, report));
    QCOMPARE(contentOf(path()), before);
    QVERIFY(report.files().front().error.contains(QStringLiteral("none of its objects could be written")));
    QCOMPARE(QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 2);
}

void RunTest::unsoundObjects_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("message");
    const char* const messages[] = {"no coordinates", "not equally many", "part reaches", "triangle has", "grid's size",
                                    "attribute grade has", "no cells", "pillars or corners", "active flags"};
    for (int kind = 0; kind < 9; ++kind)
        QTest::newRow(messages[kind]) << kind << QString::fromLatin1(messages[kind]);
}

void RunTest::unsoundObjects()
{
    QFETCH(int, kind);
    QFETCH(QString, message);
    ModelObject object = points("object", 1);
    auto cells = std::make_shared<CellGrid>();
    cells->columns = cells->rows = 1;
    cells->layers = kind == 6 ? 0 : 1;
    cells->coord.resize(24);
    cells->zcorn.resize(kind == 7 ? 7 : 8);
    cells->active.resize(kind == 8 ? 2 : 0);
    AttributeColumn grade;
    grade.name = QStringLiteral("grade");
    grade.numbers = numbersOf({1, 2, 3});
    switch (kind) {
    case 0: object.y = nullptr; break;
    case 1: object.y = numbersOf({1}); break;
    case 2: object.parts = {{1, 2, false, false}}; break;
    case 3: object.triangles = {{0, 1, 2}}; break;
    case 4: object.grid = GridGeometry{2, 2}; break;
    case 5: object.vertexAttributes = {grade}; break;
    default: object.cells = cells; break;
    }
    NameFormat format;
    ExportReport report;
    const ExportSelection chosen = selection({&object});
    runExport(format, chosen, format.plan(chosen), nullptr, report);
    QVERIFY2(report.files().front().failedObjects.front().reason.contains(message),
             qPrintable(report.files().front().failedObjects.front().reason));
}

void RunTest::verification()
{
    NameFormat format;
    ExportSelection chosen = selection({&m_one});
    chosen.verify = true;
    ExportReport good;
    QVERIFY(runExport(format, chosen, format.plan(chosen), nullptr, good));
    QCOMPARE(good.files().front().verification.count, qint64(1));
    QCOMPARE(contentOf(path()), QByteArray("one\n"));

    // What does not agree never replaces an earlier file.
    format.fault = QStringLiteral("a line differs");
    chosen.objects = {&m_two};
    ExportReport wrong;
    QVERIFY(!runExport(format, chosen, format.plan(chosen), nullptr, wrong));
    QCOMPARE(contentOf(path()), QByteArray("one\n"));
    QVERIFY(wrong.files().front().error.contains(QStringLiteral("read again by line count it differs: a line differs")));
}

void RunTest::plan()
{
    NameFormat format;
    format.grouping = FileGrouping::Object;
    ExportSelection chosen = selection({&m_one, &m_two, &m_two});
    writeFile(m_folder.filePath(QStringLiteral("out_two_2.nam")), "");
    writeFile(m_folder.filePath(QStringLiteral("out_two_2.num")), "");
    const ExportPlan plan = makePlan(format, chosen, format.plan(chosen));
    QStringList lines;
    for (const ExportPlan::Output& output : plan.outputs) {
        lines.append(QStringLiteral("%1 %2 %3 %4 %5").arg(QFileInfo(output.path).fileName(), output.replaces ? QStringLiteral("overwrite") : QStringLiteral("new"),
                                                          output.renamedFrom, output.sidecars.join(QLatin1Char(' '))).arg(output.rows));
    }
    QCOMPARE(lines.join(QLatin1Char('\n')), QStringLiteral("out_one.nam new   2\n"
                                                           "out_two_2.nam overwrite two/2 out_two_2.num 2\n"
                                                           "out_two_2_2.nam new two/2  2"));
    QVERIFY(plan.summary().startsWith(QStringLiteral("3 files, 1 of which replaces an existing one; about ")));
    QVERIFY(plan.freeBytes > 0);

    // A directory takes the files under the objects' own names.
    chosen.path = m_folder.path();
    const std::vector<PlannedFile> inFolder = planFiles(chosen, FileGrouping::Object, QStringLiteral("nam"), QStringLiteral("run/1"));
    QCOMPARE(inFolder.front().path, m_folder.filePath(QStringLiteral("run_1_one.nam")));
}

QTEST_GUILESS_MAIN(RunTest)
#include "tst_run.moc"
