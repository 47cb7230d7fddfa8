// SPDX-License-Identifier: MIT
// What a run does with objects that cannot be written and with files that come out wrong.
#include "export/CommonFindings.h"
#include "export/CommonSettings.h"
#include "export/ExportPlan.h"
#include "export/ObjectError.h"
#include "tests/support/SaverRun.h"

#include <QJsonArray>

using namespace kpFormats;

namespace
{

ModelObject points(const char* name, int id)
{
    ModelObject object = objectOf(QString::fromUtf8(name), ObjectType::VertexClouds, {1, 2}, {3, 4}, {5, 6});
    object.id = id;
    return object;
}

/// Writes the objects' names, one a line, and a sidecar with their number; refuses objects named "bad".
class NameFile : public PreparedFile
{
public:
    NameFile(const PlannedFile& planned, const ExportSelection& selected, QString madeUpFault)
        : PreparedFile(planned, selected)
        , m_fault(std::move(madeUpFault))
    {
    }

    QStringList sidecars() const override { return {QStringLiteral("num")}; }
    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress*) override
    {
        QByteArray names;
        for (const ModelObject* object : file().objects) {
            findings.note(finding::renamed, object->name, 1, QString());
            if (object->name == QLatin1String("bad"))
                throw ObjectError(*object, QStringLiteral("it is bad"), QStringLiteral("mend it"));
            names += object->name.toUtf8() + '\n';
        }
        writeFile(path, names);
        writeFile(QFileInfo(path).absolutePath() + QLatin1Char('/') + QFileInfo(path).completeBaseName()
                      + QStringLiteral(".num"),
                  QByteArray::number(static_cast<int>(file().objects.size())));
        return static_cast<qint64>(file().objects.size());
    }
    std::optional<Verification> verify(const QString& path) const override
    {
        Verification found(QStringLiteral("line reader"), {0.0, QStringLiteral("m")});
        const QList<QByteArray> lines = contentOf(path).split('\n');
        found.compareCount(QStringLiteral("file"), QStringLiteral("lines"), static_cast<qint64>(file().objects.size()),
                           lines.size() - 1);
        const bool compared = m_fault != QLatin1String("compares nothing");
        for (const ModelObject* object : compared ? file().objects : std::vector<const ModelObject*>())
            found.compareText(object->name, QString::fromUtf8(lines.value(static_cast<int>(found.texts()))),
                              [] { return QStringLiteral("name"); });
        if (compared && !m_fault.isEmpty())
            found.fail(m_fault);
        return found;
    }

private:
    QString m_fault;
};

struct NameSettings
{
    FileGrouping grouping = FileGrouping::Single;
    QString fault;
};

/// The names of its objects, one in a line, and their number beside it.
class NameFormat : public Format
{
public:
    FormatInfo info() const override
    {
        FormatInfo info;
        info.key = QStringLiteral("names");
        info.displayName = QStringLiteral("Names");
        return info;
    }
    SettingsTable settings() const override
    {
        SettingsTable table;
        addGrouping(table, &NameSettings::grouping);
        table.addText("fault", &NameSettings::fault, QString(), QString());
        return table;
    }
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override
    {
        return planFiles(selection, settings.as<NameSettings>().grouping, QStringLiteral("nam"));
    }
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings&) const override
    {
        return std::make_unique<NameFile>(file, selection, settings.as<NameSettings>().fault);
    }
};

} // namespace

class RunTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void badObjectsAreLeftOut();
    void onlyBadObjects();
    void unsoundObjects_data();
    void unsoundObjects();
    void verification();
    void plan();

private:
    bool run(const std::vector<const ModelObject*>& objects)
    {
        m_selection.objects = objects;
        PreparedExport prepared(m_format, m_selection, m_settings);
        m_report = runExport(prepared, nullptr);
        return !m_report.anyFailed();
    }
    const FileOutcome& outcome() const { return m_report.files().front(); }

    const NameFormat m_format;
    SettingsValue m_settings{m_format.settings()};
    ExportSelection m_selection;
    ExportReport m_report;
    ModelObject m_one = points("one", 1);
    ModelObject m_bad = points("bad", 2);
    ModelObject m_two = points("two/2", 3);
};

void RunTest::init()
{
    emptyFolder();
    m_settings = m_format.defaults();
    m_selection = ExportSelection();
    m_selection.path = path("out.nam");
}

void RunTest::badObjectsAreLeftOut()
{
    ModelObject torn = points("torn", 4);
    torn.z = numbersOf({1});
    QVERIFY(!run({&m_one, &m_bad, &torn, &m_two, &m_bad}));
    QCOMPARE(contentOf(path("out.nam")), QByteArray("one\ntwo/2\n"));
    QCOMPARE(contentOf(path("out.num")), QByteArray("2"));
    QVERIFY(outcome().written() && !outcome().complete() && m_report.anyFailed());
    QCOMPARE(outcome().objects.join(QLatin1Char(' ')), QStringLiteral("one two/2"));
    QCOMPARE(outcome().failedObjects.size(), std::size_t(2));
    QCOMPARE(outcome().failedObjects[0].name, QStringLiteral("torn"));
    QCOMPARE(outcome().failedObjects[1].reason, QStringLiteral("it is bad (mend it)"));
    // What was found on the way to a file that was given up is not told twice.
    QCOMPARE(m_report.findings.all().size(), std::size_t(2));
    QCOMPARE(m_report.findings.all().front().count, qint64(1));
    const QJsonValue file = m_report.toJson(QStringLiteral("names")).value(QStringLiteral("files"))[0];
    QCOMPARE(file[QStringLiteral("failedObjects")].toArray().size(), 2);
}

void RunTest::onlyBadObjects()
{
    write("out.nam", "earlier");
    write("out.num", "7");
    QVERIFY(!run({&m_bad}));
    QVERIFY(outcome().error.contains(QStringLiteral("none of its objects could be written")));
    QCOMPARE(contentOf(path("out.nam")) + contentOf(path("out.num")), QByteArray("earlier7"));
    QCOMPARE(listing(), QStringLiteral("out.nam out.num"));
}

void RunTest::unsoundObjects_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("message");
    const char* const messages[] = {"no coordinates", "not equally many",   "part reaches",
                                    "triangle has",   "grid's size",        "attribute grade has",
                                    "no cells",       "pillars or corners", "active flags"};
    for (int kind = 0; kind < 9; ++kind)
        QTest::newRow(messages[kind]) << kind << QString::fromLatin1(messages[kind]);
}

void RunTest::unsoundObjects()
{
    QFETCH(int, kind);
    QFETCH(QString, message);
    ModelObject object = points("object", 1);
    CellGrid cells = cellsOf(1, 1, 1);
    cells.layers = kind == 6 ? 0 : 1;
    cells.zcorn.resize(kind == 7 ? 7 : 8);
    cells.active.resize(kind == 8 ? 2 : 0);
    switch (kind) {
    case 0:
        object.y = nullptr;
        break;
    case 1:
        object.y = numbersOf({1});
        break;
    case 2:
        object.parts = {{1, 2, false, false}};
        break;
    case 3:
        object.triangles = {{0, 1, 2}};
        break;
    case 4:
        object.grid = GridGeometry{2, 2};
        break;
    case 5:
        object.vertexAttributes = {columnOf(QStringLiteral("grade"), AttributeKind::Real, {1, 2, 3})};
        break;
    default:
        object.cells = std::make_shared<const CellGrid>(cells);
        break;
    }
    run({&object});
    QVERIFY(!outcome().failedObjects.empty());
    QVERIFY2(outcome().failedObjects.front().reason.contains(message),
             qPrintable(outcome().failedObjects.front().reason));
}

void RunTest::verification()
{
    m_selection.verify = true;
    QVERIFY(run({&m_one}));
    QCOMPARE(outcome().verification->comparedText(), QStringLiteral("1 text"));
    QCOMPARE(contentOf(path("out.nam")), QByteArray("one\n"));

    // What does not agree never replaces an earlier file.
    m_settings.as<NameSettings>().fault = QStringLiteral("a line differs");
    QVERIFY(!run({&m_two}));
    QCOMPARE(contentOf(path("out.nam")), QByteArray("one\n"));
    QVERIFY(outcome().error.contains(QStringLiteral("read again by line reader it differs: a line differs")));

    // What has compared nothing has verified nothing.
    m_settings.as<NameSettings>().fault = QStringLiteral("compares nothing");
    QVERIFY(!run({&m_two}));
    QVERIFY(outcome().error.contains(QStringLiteral("nothing in it could be compared")));
}

void RunTest::plan()
{
    m_settings.as<NameSettings>().grouping = FileGrouping::Object;
    m_selection.objects = {&m_one, &m_two, &m_two};
    write("out_two_2.nam", "");
    write("out_two_2.num", "");
    const ExportPlan plan = planOf(PreparedExport(m_format, m_selection, m_settings));
    QStringList lines;
    for (const ExportPlan::Output& output : plan.outputs) {
        lines.append(QStringLiteral("%1 %2 %3 %4 %5")
                         .arg(QFileInfo(output.path).fileName(),
                              output.replaces ? QStringLiteral("overwrite") : QStringLiteral("new"), output.renamedFrom,
                              output.sidecars.join(QLatin1Char(' ')))
                         .arg(output.vertices));
    }
    QCOMPARE(lines.join(QLatin1Char('\n')), QStringLiteral("out_one.nam new   2\n"
                                                           "out_two_2.nam overwrite two/2 out_two_2.num 2\n"
                                                           "out_two_2_2.nam new two/2  2"));
    QVERIFY(plan.summary().startsWith(QStringLiteral("3 files, 1 of which replaces an existing one; about ")));
    QVERIFY(plan.freeBytes > 0);

    // A directory takes the files under the objects' own names.
    m_selection.path = path();
    const QString prefix = QStringLiteral("run/1");
    QCOMPARE(planFiles(m_selection, FileGrouping::Object, QStringLiteral("nam"), prefix).front().path,
             path("run_1_one.nam"));
}

QTEST_GUILESS_MAIN(RunTest)
#include "tst_run.moc"
