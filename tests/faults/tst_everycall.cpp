// SPDX-License-Identifier: MIT
// Lets each call by which an export changes the disk fail, and kills the program at each, for every format: the files
// are those from before or the new ones, never some of both, the exit code says so, and the next run leaves no litter.
// Each call only when KP_FAULT_ALL is set (run.sh); a few from everywhere otherwise.
#include "tests/faults/FaultModel.h"
#include "tests/faults/ReliabilityTable.h"

#include "tests/support/FileContent.h"

#include <QDir>
#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

namespace
{

using Files = QMap<QString, QByteArray>;

/// Everything in a folder; folders end with a slash.
Files filesIn(const QString& folder)
{
    Files files;
    QDirIterator walk(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next();
        const QString name = QDir(folder).relativeFilePath(path);
        if (walk.fileInfo().isDir())
            files.insert(name + QLatin1Char('/'), QByteArray());
        else
            files.insert(name, contentOf(path));
    }
    return files;
}

/// Without hidden folders, which a killed run may leave.
Files shown(Files files)
{
    for (const QString& name : files.keys()) {
        if (name.startsWith(QLatin1Char('.')))
            files.remove(name);
    }
    return files;
}

/// Whether each output has come as a whole: its files, which have its name and extensions of their own, are all those of
/// one export or all those of the other. An output that fails leaves the others of its run alone.
bool isUnmixed(const Files& files, const Files& before, const Files& after)
{
    QMap<QString, QSet<bool>> states;
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
        const QString output = file.key().section(QLatin1Char('.'), 0, 0);
        if (before.value(file.key()) == after.value(file.key()))
            continue;
        if (file.value() != before.value(file.key()) && file.value() != after.value(file.key()))
            return false;
        states[output].insert(file.value() == after.value(file.key()));
    }
    return files.keys() == before.keys()
           && std::all_of(states.begin(), states.end(), [](const QSet<bool>& state) { return state.size() == 1; });
}

bool everyCall()
{
    return qEnvironmentVariableIsSet("KP_FAULT_ALL");
}

struct Outcome
{
    bool killed = false;
    int code = 0;
    QString error;
    QStringList calls; ///< "CALL PATH"
};

} // namespace

class EveryCallTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void failures_data() { formats(); }
    void failures();
    void kills_data() { formats(); }
    void kills();

private:
    void formats();
    /// Exports with the call of that number failing.
    Outcome run(const QString& model, const QString& name, int at = 0, const char* how = "fail");
    /// Empties the folder and puts the files into it.
    void fill(const Files& files);
    /// The numbers of the calls that are tried.
    std::vector<int> chosen(const QStringList& calls) const;
    /// Learns what the row's format writes.
    void prepare();
    Files now() const { return filesIn(m_folder.path()); }

    QTemporaryDir m_models;
    QTemporaryDir m_folder;
    QString m_small;
    QString m_moved; ///< the same elsewhere, so that its files differ
    QString m_format;
    QString m_extension;
    Files m_before; ///< of the small model
    Files m_after;  ///< of the other
    ReliabilityTable m_table{QStringLiteral("tst_everycall")};
    int m_failed = 0; ///< calls that were tried, in all
    int m_killed = 0;
};

void EveryCallTest::initTestCase()
{
    // GeoPackages carry the time of their making; the same bytes are wanted of each run.
    qputenv("OGR_CURRENT_DATE", "2026-01-01T00:00:00.000Z");
    const auto model = [this](const char* name, double shift) {
        QDir(m_models.path()).mkdir(QLatin1String(name));
        return writeFaultModel(m_models.filePath(QLatin1String(name)), 5, shift);
    };
    m_small = model("small", 0);
    m_moved = model("moved", 1000);
}

void EveryCallTest::cleanupTestCase()
{
    qInfo("%d calls failed, %d kills", m_failed, m_killed);
    const QString differences = m_table.settle();
    QVERIFY2(differences.isEmpty(), qPrintable(differences));
}

void EveryCallTest::formats()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("extension");
    QProcess list;
    list.start(QStringLiteral(KP_PROGRAM), {QStringLiteral("formats"), QStringLiteral("--json")});
    QVERIFY(list.waitForFinished());
    for (const QJsonValue& format :
         QJsonDocument::fromJson(list.readAllStandardOutput())[QLatin1String("formats")].toArray()) {
        const QString key = format[QLatin1String("key")].toString();
        QTest::newRow(qPrintable(key)) << key << format[QLatin1String("extension")].toString();
    }
    // Written in another way than the document alone.
    QTest::newRow("kml archive") << QStringLiteral("kml") << QStringLiteral("kmz");
}

Outcome EveryCallTest::run(const QString& model, const QString& name, int at, const char* how)
{
    const QString log = m_models.filePath(QStringLiteral("calls"));
    QFile::remove(log);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(KP_FAILING_CALLS));
    environment.insert(QStringLiteral("KP_FAULT_FOLDER"), m_folder.path());
    environment.insert(QStringLiteral("KP_FAULT_AT"), QString::number(at));
    environment.insert(QStringLiteral("KP_FAULT_HOW"), QString::fromLatin1(how));
    environment.insert(QStringLiteral("KP_FAULT_LOG"), log);
    QStringList arguments{QStringLiteral("export"),     model,
                          QStringLiteral("--format"),   m_format,
                          QStringLiteral("--output"),   m_folder.filePath(name + QLatin1Char('.') + m_extension),
                          QStringLiteral("--overwrite")};
    // Points would be a second output, which succeeds or fails on its own.
    if (m_format == QLatin1String("irappoints"))
        arguments += {QStringLiteral("--type"), QStringLiteral("polyline")};
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(KP_PROGRAM), arguments);
    if (!process.waitForFinished(120000))
        return {false, -1, QStringLiteral("did not end"), {}};
    Outcome outcome{process.exitStatus() == QProcess::CrashExit,
                    process.exitCode(),
                    QString::fromUtf8(process.readAllStandardError()),
                    {}};
    outcome.calls = QString::fromUtf8(contentOf(log)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return outcome;
}

void EveryCallTest::fill(const Files& files)
{
    QDir folder(m_folder.path());
    for (const QFileInfo& entry :
         folder.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot)) {
        if (entry.isDir())
            QVERIFY(QDir(entry.filePath()).removeRecursively());
        else
            QVERIFY(QFile::remove(entry.filePath()));
    }
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        writeFile(m_folder.filePath(file.key()), file.value());
}

std::vector<int> EveryCallTest::chosen(const QStringList& calls) const
{
    const int all = calls.size();
    std::vector<int> numbers;
    if (everyCall()) {
        for (int number = 1; number <= all; ++number)
            numbers.push_back(number);
        return numbers;
    }
    numbers = {(all + 1) / 2, all};
    // The last file that is moved into place: the others are in it already. And the first that is closed, since drivers
    // do not look at that.
    const int moved =
        calls.lastIndexOf(QRegularExpression(QStringLiteral("^rename.*") + m_folder.path() + QStringLiteral("/out.*")));
    const int closed = calls.indexOf(QRegularExpression(QStringLiteral("^f?close .*/out.*")));
    for (const int index : {moved, closed}) {
        if (index >= 0)
            numbers.push_back(index + 1);
    }
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

void EveryCallTest::prepare()
{
    QFETCH(QString, format);
    QFETCH(QString, extension);
    m_format = format;
    m_extension = extension;
    m_table.tries(format);
    fill({});
    Outcome outcome = run(m_moved, QStringLiteral("out"));
    QVERIFY2(outcome.code == 0, qPrintable(outcome.error));
    m_after = now();
    fill({});
    outcome = run(m_small, QStringLiteral("out"));
    QVERIFY2(outcome.code == 0, qPrintable(outcome.error));
    m_before = now();
    QVERIFY(m_before != m_after && m_before.keys() == m_after.keys());
}

void EveryCallTest::failures()
{
    prepare();
    const QStringList calls = run(m_moved, QStringLiteral("out")).calls;
    QCOMPARE(now(), m_after);
    QVERIFY2(calls.size() > 12, qPrintable(calls.join(QLatin1Char('\n'))));
    for (const int number : chosen(calls)) {
        fill(m_before);
        const Outcome outcome = run(m_moved, QStringLiteral("out"), number);
        const QString call = outcome.calls.value(number - 1);
        const QByteArray what = QStringLiteral("%1 of %2, %3: exit code %4 %5")
                                    .arg(number)
                                    .arg(calls.size())
                                    .arg(call)
                                    .arg(outcome.code)
                                    .arg(outcome.error)
                                    .toUtf8();
        const bool replaced = shown(now()) == m_after;
        QVERIFY2(isUnmixed(shown(now()), m_before, m_after), what);
        QVERIFY2(replaced == (outcome.code == 0), what);
        QVERIFY2(outcome.code == 0 || (outcome.code == 1 && outcome.error.contains(QLatin1String(" ("))), what);
        // A second name that cannot be had, and tidying up that fails, keep no file from its place; all else does.
        static const QRegularExpression needed(QStringLiteral("^(p?write(v|64)?|f?close|fsync|fdatasync|syncfs) "));
        QVERIFY2(outcome.code != 0 || !needed.match(call).hasMatch(), what);
        QVERIFY2(run(m_small, QStringLiteral("out")).code == 0 && now() == m_before, what);
        ++m_failed;
    }
    m_table.note(m_format, QStringLiteral("a call that changes the disk fails, each in turn"),
                 QStringLiteral("earlier files or new ones, never of both, as the exit code says; nothing left over "
                                "after the next run"));
}

void EveryCallTest::kills()
{
    prepare();
    // Over earlier files, and where there are none; in the sample one or the other.
    std::vector<Files> starts{m_before, Files()};
    if (!everyCall())
        starts.erase(starts.begin() + m_format.size() % 2);
    for (const Files& before : starts) {
        fill(before);
        const QStringList calls = run(m_moved, QStringLiteral("out")).calls;
        int finished = 0;
        for (const int number : chosen(calls)) {
            fill(before);
            const Outcome outcome = run(m_moved, QStringLiteral("out"), number, "kill");
            const QByteArray what = QStringLiteral("%1 of %2, %3")
                                        .arg(number)
                                        .arg(calls.size())
                                        .arg(outcome.calls.value(number - 1))
                                        .toUtf8();
            QVERIFY2(outcome.killed, what);
            // Another export in the same folder settles what was left.
            QVERIFY2(run(m_small, QStringLiteral("next")).code == 0, what);
            Files settled = now();
            for (const QString& name : settled.keys()) {
                if (name.startsWith(QLatin1String("next")))
                    settled.remove(name);
            }
            QVERIFY2(settled == before || settled == m_after, what + settled.keys().join(QLatin1Char(' ')).toUtf8());
            finished += settled == m_after ? 1 : 0;
            ++m_killed;
        }
        // The last call tidies up what has been finished.
        QVERIFY(finished > 0);
    }
    m_table.note(m_format, QStringLiteral("killed at a call that changes the disk, at each in turn"),
                 QStringLiteral("earlier files or new ones, never of both; nothing left over after the next run"));
}

QTEST_GUILESS_MAIN(EveryCallTest)
#include "tst_everycall.moc"
