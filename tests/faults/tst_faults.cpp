// SPDX-License-Identifier: MIT
// Everything that can go wrong during an export, for every format, on the real program: earlier files stay as they
// were to the byte, nothing half-written remains, the exit code and the message say what happened. What was tried and what
// came of it is what the table in docs/reliability.md says.
#include "tests/faults/FaultModel.h"
#include "tests/faults/ReliabilityTable.h"

#include "tests/support/FileContent.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <csignal>
#include <memory>

#include <unistd.h>

namespace
{

using Snapshot = QMap<QString, QByteArray>;

struct Result
{
    int code = 0;
    QString out;
    QString error;
};

/// Name and hash of everything in a folder, hidden files and folders included.
Snapshot snapshot(const QString& folder)
{
    Snapshot entries;
    QDirIterator walk(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        QFile file(walk.next());
        QByteArray hash = "folder";
        if (walk.fileInfo().isFile() && file.open(QIODevice::ReadOnly))
            hash = QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha1);
        entries.insert(QDir(folder).relativeFilePath(walk.filePath()), hash);
    }
    return entries;
}

/// Whether a failure of this program has said what it has to: file, cause and cure in one line.
bool isMessage(const QString& error)
{
    static const QRegularExpression shape(QStringLiteral("^kpexport: error: .+: .+ \\(.+\\)$"),
                                          QRegularExpression::MultilineOption);
    return shape.match(error).hasMatch();
}

} // namespace

class FaultsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void initTestCase();
    void cleanupTestCase();
    void init();
    void fullDevice();
    void fileSizeLimit();
    void smallDisk();
    void noPermission();
    void directoryInTheWay();
    void missingDirectory();
    void signalled();
    void hardPaths();
    void hostileObjectNames();
    void oddNumbers();
    void commaLocale();
    void twoAtOnce();

private:
    QStringList command(const QString& model, const QString& output) const;
    Result run(const QStringList& arguments, const QStringList& wrapper = {}) const;
    /// Fills a new folder with an earlier export.
    void exportEarlier(const QString& pattern);
    QString output(const QTemporaryDir& folder) const { return folder.filePath(QStringLiteral("out.") + m_extension); }
    QString output() const { return output(*m_folder); }
    QString inFolder(const QString& name) const { return m_folder->filePath(name); }
    Snapshot now() const { return snapshot(m_folder->path()); }
    /// Fails unless a run has failed with a message and left the folder as it was; notes what has been tried.
    void expectRefusal(const Result& result, const char* fault, const char* outcome);
    void note(const char* fault, const char* outcome);

    QTemporaryDir m_models;
    QString m_small; ///< a small model
    QString m_moved; ///< the same elsewhere, so that its files differ
    QString m_large;
    QString m_format; ///< of the row at work
    QString m_extension;
    std::unique_ptr<QTemporaryDir> m_folder; ///< with the earlier export
    Snapshot m_before;                       ///< of it
    ReliabilityTable m_table{QStringLiteral("tst_faults")};
};

void FaultsTest::initTestCase_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("extension");
    const QByteArray list = run({QStringLiteral("formats"), QStringLiteral("--json")}).out.toUtf8();
    // QtTest has no way to choose among these rows.
    const QStringList wanted = qEnvironmentVariable("KP_FAULT_FORMATS").split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QJsonValue& format : QJsonDocument::fromJson(list)[QLatin1String("formats")].toArray()) {
        const QString key = format[QLatin1String("key")].toString();
        if (!wanted.isEmpty() && !wanted.contains(key))
            continue;
        QTest::newRow(qPrintable(key)) << key << format[QLatin1String("extension")].toString();
    }
}

void FaultsTest::initTestCase()
{
    // GeoPackages carry the time of their making; the same bytes are wanted of each run.
    qputenv("OGR_CURRENT_DATE", "2026-01-01T00:00:00.000Z");
    const auto model = [this](const char* name, int size, double shift) {
        QDir(m_models.path()).mkdir(QLatin1String(name));
        return writeFaultModel(m_models.filePath(QLatin1String(name)), size, shift);
    };
    m_small = model("small", 24, 0);
    m_moved = model("moved", 24, 1000);
    m_large = model("large", 170, 0);
    QFile::setPermissions(m_models.path(), QFile::Permissions(0x7755));
}

void FaultsTest::init()
{
    exportEarlier(QDir::tempPath() + QStringLiteral("/faults-XXXXXX"));
}

void FaultsTest::exportEarlier(const QString& pattern)
{
    QFETCH_GLOBAL(QString, format);
    QFETCH_GLOBAL(QString, extension);
    m_format = format;
    m_extension = extension;
    m_table.tries(format);
    m_folder = std::make_unique<QTemporaryDir>(pattern);
    const Result result = run(command(m_small, output()));
    QVERIFY2(result.code == 0, qPrintable(result.error));
    m_before = now();
    QVERIFY(!m_before.isEmpty());
}

void FaultsTest::expectRefusal(const Result& result, const char* fault, const char* outcome)
{
    QVERIFY2(result.code == 1 && isMessage(result.error), qPrintable(QString::number(result.code) + result.error));
    QCOMPARE(now(), m_before);
    note(fault, outcome);
}

QStringList FaultsTest::command(const QString& model, const QString& path) const
{
    return {QStringLiteral("export"),   model, QStringLiteral("--format"),   m_format,
            QStringLiteral("--output"), path,  QStringLiteral("--overwrite")};
}

Result FaultsTest::run(const QStringList& arguments, const QStringList& wrapper) const
{
    QStringList words = wrapper;
    words.append(QStringLiteral(KP_PROGRAM));
    words += arguments;
    QProcess process;
    process.start(words.first(), words.mid(1));
    if (!process.waitForFinished(120000))
        return {-2, QString(), QStringLiteral("did not end")};
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()), QString::fromUtf8(process.readAllStandardError())};
}

void FaultsTest::note(const char* fault, const char* outcome)
{
    m_table.note(m_format, QString::fromLatin1(fault), QString::fromLatin1(outcome));
}

void FaultsTest::cleanupTestCase()
{
    const QString differences = m_table.settle();
    QVERIFY2(differences.isEmpty(), qPrintable(differences));
}

void FaultsTest::fullDevice()
{
    const QString device = inFolder(QStringLiteral("full.") + m_extension);
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), device));
    // One object only: several would go into files beside it in some formats.
    QStringList arguments = command(m_moved, device);
    static const QStringList meshes{QStringLiteral("off"), QStringLiteral("ply"), QStringLiteral("stl")};
    if (meshes.contains(m_format))
        arguments << QStringLiteral("--type") << QStringLiteral("mesh_surface");
    const Result result = run(arguments);
    QVERIFY(QFile::remove(device));
    expectRefusal(result, "target is `/dev/full`", "exit code 1 with a message, nothing else changed");
}

void FaultsTest::fileSizeLimit()
{
    const Result result = run(command(m_moved, output()), {QStringLiteral("sh"), QStringLiteral("-c"),
                                                           QStringLiteral("ulimit -f 4; exec \"$0\" \"$@\"")});
    expectRefusal(result, "file size limit of 2 kB (`RLIMIT_FSIZE`)",
                  "exit code 1 with a message, earlier files unchanged, nothing left");
}

void FaultsTest::smallDisk()
{
    // A disk with room for the earlier files and not for the new ones.
    QTemporaryDir mount;
    const QStringList options = QStringLiteral("-t tmpfs -o size=64m tmpfs").split(QLatin1Char(' '));
    if (::geteuid() != 0 || QProcess::execute(QStringLiteral("mount"), options + QStringList{mount.path()}) != 0)
        QSKIP("mounting a small disk is not allowed here");
    const auto unmount = qScopeGuard([this, &mount] {
        m_folder.reset();
        QProcess::execute(QStringLiteral("umount"), {QStringLiteral("-l"), mount.path()});
    });
    exportEarlier(mount.path() + QStringLiteral("/f-XXXXXX"));
    // Fill it but for a few blocks.
    QFile filler(mount.filePath(QStringLiteral("filler")));
    QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    const QByteArray block(4096, 'x');
    while (filler.write(block) == block.size()) {
    }
    QVERIFY(filler.resize(filler.size() - 4096));
    expectRefusal(run(command(m_moved, output())), "disk full after 4 kB (tmpfs)",
                  "exit code 1 with a message, earlier files unchanged, nothing left");
}

void FaultsTest::noPermission()
{
    // Root may write anywhere, so the export is then somebody else's.
    QStringList wrapper;
    if (::geteuid() == 0)
        wrapper = QStringLiteral("setpriv --reuid=65534 --regid=65534 --clear-groups").split(QLatin1Char(' '));
    const QString folder = m_folder->path();
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther);
    const Result result = run(command(m_moved, output()), wrapper);
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    if (result.code == 126 || result.code == 127)
        QSKIP("nobody else may run programs here");
    expectRefusal(result, "directory without write permission", "exit code 1 with a message, earlier files unchanged");
}

void FaultsTest::directoryInTheWay()
{
    // In the place of every file that the run would write.
    for (const QString& name : m_before.keys()) {
        QVERIFY(QFile::remove(inFolder(name)));
        QVERIFY(QDir(m_folder->path()).mkpath(name + QStringLiteral("/inside")));
    }
    m_before = now();
    const Result result = run(command(m_moved, output()));
    if (result.code != 0) {
        expectRefusal(result, "a directory has the file's name",
                      "exit code 1 with a message, the directory and its contents unchanged");
        return;
    }
    // A format of one file per object takes a directory as the place for its files.
    Snapshot after = now();
    for (const QString& name : m_before.keys())
        QCOMPARE(after.take(name), m_before[name]);
    for (const QString& name : after.keys())
        QVERIFY2(name.startsWith(QStringLiteral("out.%1/").arg(m_extension)), qPrintable(name));
    note("a directory has the file's name", "the objects' files go into it, its contents unchanged");
}

void FaultsTest::missingDirectory()
{
    expectRefusal(run(command(m_moved, inFolder(QStringLiteral("none/out.") + m_extension))),
                  "directory does not exist", "exit code 1 with a message, nothing created");
}

void FaultsTest::signalled()
{
    QTemporaryDir aside;
    QElapsedTimer time;
    time.start();
    QCOMPARE(run(command(m_large, output(aside))).code, 0);
    const qint64 whole = time.elapsed();
    const Snapshot complete = snapshot(aside.path());
    for (const int signal : {SIGINT, SIGKILL}) {
        for (const int percent : {10, 50, 90}) {
            QProcess process;
            process.start(QStringLiteral(KP_PROGRAM), command(m_large, output()));
            QVERIFY(process.waitForStarted());
            QThread::msleep(static_cast<unsigned long>(whole * percent / 100));
            ::kill(static_cast<pid_t>(process.processId()), signal);
            QVERIFY(process.waitForFinished(120000));
            Snapshot after = now();
            for (const QString& name : after.keys()) {
                // A killed program cannot tidy up: the next run does.
                if (signal == SIGKILL && name.startsWith(QStringLiteral(".kpexport-")))
                    after.remove(name);
            }
            // A run that was quicker than the measured one has replaced the files, all of them.
            const QString names = after.keys().join(QLatin1Char(' '));
            QVERIFY2(after == m_before || after == complete,
                     qPrintable(QStringLiteral("signal %1 at %2 %: %3").arg(signal).arg(percent).arg(names)));
            QCOMPARE(run(command(m_small, output())).code, 0);
            QCOMPARE(now(), m_before);
        }
    }
    note("SIGINT and SIGKILL at 10, 50 and 90 % of the time",
         "earlier files unchanged; what a killed run leaves is hidden and removed by the next run");
}

void FaultsTest::hardPaths()
{
    const QString deep = inFolder(QString::fromUtf8("Грифон ñ 地層 'q' \"d\""));
    QVERIFY(QDir().mkpath(deep));
    // Formats with several files put their suffixes into the name.
    const int longest = 255 - m_extension.size() - 1 - (m_before.size() > 1 ? 24 : 0);
    for (const QString& stem : {QString::fromUtf8("слои №1 é"), QString(longest / 2, QChar(0x0436))}) {
        const QString path = deep + QLatin1Char('/') + stem + QLatin1Char('.') + m_extension;
        const Result result = run(command(m_small, path) << QStringLiteral("--verify"));
        if (result.error.contains(QStringLiteral("shorten it to"))) {
            QVERIFY(result.code == 1 && isMessage(result.error) && snapshot(deep).isEmpty());
            note("path of 255 bytes", "exit code 1: the format needs a shorter name");
            continue;
        }
        QVERIFY2(result.code == 0, qPrintable(result.error));
        QCOMPARE(snapshot(deep).size(), m_before.size());
        for (const QString& name : snapshot(deep).keys()) {
            QVERIFY2(name.startsWith(stem), qPrintable(name));
            QVERIFY(QFile::remove(deep + QLatin1Char('/') + name));
        }
    }
    note("paths in Cyrillic and Chinese, with quotes, of 255 bytes", "written under their true names, verified");
}

void FaultsTest::hostileObjectNames()
{
    QTemporaryDir inner(inFolder(QStringLiteral("inner-XXXXXX")));
    // The small model's files under names of our choice.
    const QJsonArray objects =
        QJsonDocument::fromJson(contentOf(m_small)).object().value(QStringLiteral("objects")).toArray();
    QJsonArray named;
    const QStringList names = hostileNames();
    for (int index = 0; index < names.size(); ++index) {
        for (QJsonValue value : objects) {
            QJsonObject object = value.toObject();
            const QString file = object.value(QStringLiteral("file")).toString();
            if (file.endsWith(QStringLiteral("json")))
                continue;
            const QDir folder = QFileInfo(m_small).absoluteDir();
            object.insert(QStringLiteral("file"), folder.filePath(file));
            if (object.contains(QStringLiteral("survey")))
                object.insert(QStringLiteral("survey"),
                              folder.filePath(object.value(QStringLiteral("survey")).toString()));
            object.insert(QStringLiteral("name"), names[index]);
            object.insert(QStringLiteral("set"), names[names.size() - 1 - index]);
            named.append(object);
        }
    }
    const QJsonObject content{{QStringLiteral("version"), 1}, {QStringLiteral("objects"), named}};
    const QString model =
        writeFile(m_models.filePath(QStringLiteral("hostile.kpmodel")), QJsonDocument(content).toJson());
    const Snapshot outside = snapshot(m_models.path());
    for (const char* grouping : {"object", "set", "single"}) {
        const QStringList plain = command(model, output(inner)) << QStringLiteral("--allow-outside");
        Result result =
            run(plain + QStringList{QStringLiteral("--set"), QStringLiteral("grouping=") + QLatin1String(grouping)});
        // A format without this setting says so; it has one way only.
        if (result.code == 2)
            result = run(plain);
        if (result.code == 3)
            QSKIP("the format takes none of these objects");
        QVERIFY2(result.code == 0, qPrintable(QString::number(result.code) + result.error));
        QVERIFY(!snapshot(inner.path()).isEmpty());
        for (const QString& name : snapshot(inner.path()).keys())
            QVERIFY2(!name.contains(QLatin1Char('/')) && name.toUtf8().size() <= 255, qPrintable(name));
    }
    QCOMPARE(snapshot(m_models.path()), outside);
    note("object and set names with `/ \\ : * ?`, `..`, CON, line ends, 300 characters, empty, equal but for case",
         "files under legal, different names in the chosen directory only");
}

void FaultsTest::oddNumbers()
{
    writeFile(
        m_models.filePath(QStringLiteral("odd.csv")),
        "X,Y,Z,v\n500000,7500000,nan,inf\n500001,7500000,inf,\n500002,7500001,-0.0,1e300\n500003,7500002,1e-300,nan\n"
        "500004,7500003,7,-inf\n");
    const QString model = writeFile(m_models.filePath(QStringLiteral("odd.kpmodel")),
                                    "{\"version\":1,\"objects\":[{\"file\":\"odd.csv\",\"crs\":\"EPSG:28350\"}]}");
    const Result result = run(command(model, output()) << QStringLiteral("--quiet"));
    if (result.code == 3)
        QSKIP("the format takes no points");
    QVERIFY2(result.code == 0 || (result.code == 1 && isMessage(result.error)),
             qPrintable(QString::number(result.code) + result.error));
    note("NaN, infinities, nulls, 1e300", result.code == 0 ? "written, losses counted" : "exit code 1 with a message");
}

void FaultsTest::commaLocale()
{
    const Result result = run(command(m_small, output()),
                              QStringLiteral("env LC_ALL=de_DE.UTF-8 LANG=de_DE.UTF-8").split(QLatin1Char(' ')));
    QVERIFY2(result.code == 0, qPrintable(result.error));
    QCOMPARE(now(), m_before);
    note("comma-decimal locale of the environment", "the same bytes");
}

void FaultsTest::twoAtOnce()
{
    QCOMPARE(run(command(m_moved, output())).code, 0);
    const Snapshot moved = now();
    QVERIFY(m_before != moved);
    for (int round = 0; round < 4; ++round) {
        QProcess first;
        QProcess second;
        first.start(QStringLiteral(KP_PROGRAM), command(m_small, output()));
        second.start(QStringLiteral(KP_PROGRAM), command(m_moved, output()));
        QVERIFY(first.waitForFinished(120000) && second.waitForFinished(120000));
        QCOMPARE(first.exitCode(), 0);
        QCOMPARE(second.exitCode(), 0);
        const Snapshot after = now();
        QVERIFY2(after == m_before || after == moved, "files of two runs are mixed");
    }
    note("two runs on the same target at once", "all files are of one run or all of the other");
}

QTEST_GUILESS_MAIN(FaultsTest)
#include "tst_faults.moc"
