// SPDX-License-Identifier: MIT
// Everything that can go wrong during an export, for every format, on the real program: earlier files stay as they
// were to the byte, nothing half-written remains, the exit code and the message say what happened. With
// KP_RELIABILITY_TABLE set to a path, what was tried and what came of it is written there as a table.
#include "tests/faults/FaultModel.h"

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
    QDirIterator walk(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
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
    static const QRegularExpression shape(QStringLiteral("^kpexport: error: .+: .+ \\(.+\\)$"), QRegularExpression::MultilineOption);
    return shape.match(error).hasMatch();
}

} // namespace

class FaultsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void fullDevice_data() { formatRows(); }
    void fullDevice();
    void fileSizeLimit_data() { formatRows(); }
    void fileSizeLimit();
    void smallDisk_data() { formatRows(); }
    void smallDisk();
    void noPermission_data() { formatRows(); }
    void noPermission();
    void directoryInTheWay_data() { formatRows(); }
    void directoryInTheWay();
    void missingDirectory_data() { formatRows(); }
    void missingDirectory();
    void signalled_data() { formatRows(); }
    void signalled();
    void hardPaths_data() { formatRows(); }
    void hardPaths();
    void hostileObjectNames_data() { formatRows(); }
    void hostileObjectNames();
    void oddNumbers_data() { formatRows(); }
    void oddNumbers();
    void commaLocale_data() { formatRows(); }
    void commaLocale();
    void twoAtOnce_data() { formatRows(); }
    void twoAtOnce();

private:
    void formatRows();
    QStringList command(const QString& model, const QString& output) const;
    Result run(const QStringList& arguments, const QStringList& wrapper = {}) const;
    /// A folder with an earlier export in it.
    std::unique_ptr<QTemporaryDir> earlierExport(const QString& parent = QString());
    QString output(const QTemporaryDir& folder) const { return folder.filePath(QStringLiteral("out.") + m_extension); }
    void note(const char* fault, const QString& outcome);

    QTemporaryDir m_models;
    QString m_small;  ///< a small model
    QString m_moved;  ///< the same elsewhere, so that its files differ
    QString m_large;
    QString m_format; ///< of the row at work
    QString m_extension;
    QMap<QString, QString> m_extensions;
    QVector<QStringList> m_table;
};

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
    const QJsonArray formats = QJsonDocument::fromJson(run({QStringLiteral("formats"), QStringLiteral("--json")}).out.toUtf8()).array();
    for (const QJsonValue& format : formats)
        m_extensions.insert(format[QLatin1String("key")].toString(), format[QLatin1String("extension")].toString());
    QVERIFY(m_extensions.size() > 1);
}

void FaultsTest::formatRows()
{
    QTest::addColumn<QString>("format");
    for (const QString& key : m_extensions.keys())
        QTest::newRow(qPrintable(key)) << key;
}

QStringList FaultsTest::command(const QString& model, const QString& path) const
{
    return {QStringLiteral("export"), model, QStringLiteral("--format"), m_format, QStringLiteral("--output"), path, QStringLiteral("--overwrite")};
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
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1, QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

std::unique_ptr<QTemporaryDir> FaultsTest::earlierExport(const QString& parent)
{
    m_format = QTest::currentDataTag() ? QString::fromUtf8(QTest::currentDataTag()) : QString();
    m_extension = m_extensions.value(m_format);
    auto folder = parent.isEmpty() ? std::make_unique<QTemporaryDir>() : std::make_unique<QTemporaryDir>(parent + QStringLiteral("/f-XXXXXX"));
    const Result result = run(command(m_small, output(*folder)));
    if (result.code != 0 || snapshot(folder->path()).isEmpty())
        qWarning("%s", qPrintable(result.error));
    return result.code == 0 ? std::move(folder) : nullptr;
}

void FaultsTest::note(const char* fault, const QString& outcome)
{
    for (QStringList& row : m_table) {
        if (row.first() == QLatin1String(fault) && row.last() == outcome) {
            row[1] += QStringLiteral(", ") + m_format;
            return;
        }
    }
    m_table.append({QString::fromLatin1(fault), m_format, outcome});
}

void FaultsTest::cleanupTestCase()
{
    const QString path = qEnvironmentVariable("KP_RELIABILITY_TABLE");
    if (path.isEmpty())
        return;
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("| tried | formats | what happened |\n|---|---|---|\n");
    for (const QStringList& row : qAsConst(m_table))
        file.write("| " + row.join(QStringLiteral(" | ")).toUtf8() + " |\n");
}

void FaultsTest::fullDevice()
{
    const auto folder = earlierExport();
    QVERIFY(folder);
    const Snapshot before = snapshot(folder->path());
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), folder->filePath(QStringLiteral("full.") + m_extension)));
    // One object only: several would go into files beside it in some formats.
    const Result result = run(command(m_moved, folder->filePath(QStringLiteral("full.") + m_extension))
                              << (m_format == QLatin1String("off") ? QStringList{QStringLiteral("--type"), QStringLiteral("mesh_surface")} : QStringList()));
    QVERIFY2(result.code == 1 && isMessage(result.error), qPrintable(QString::number(result.code) + result.error));
    QVERIFY(QFile::remove(folder->filePath(QStringLiteral("full.") + m_extension)));
    QCOMPARE(snapshot(folder->path()), before);
    note("target is `/dev/full`", QStringLiteral("exit code 1 with a message, nothing else changed"));
}

void FaultsTest::fileSizeLimit()
{
    const auto folder = earlierExport();
    QVERIFY(folder);
    const Snapshot before = snapshot(folder->path());
    const Result result = run(command(m_moved, output(*folder)),
                              {QStringLiteral("sh"), QStringLiteral("-c"), QStringLiteral("ulimit -f 4; exec \"$0\" \"$@\"")});
    QVERIFY2(result.code == 1 && isMessage(result.error), qPrintable(QString::number(result.code) + result.error));
    QCOMPARE(snapshot(folder->path()), before);
    note("file size limit of 2 kB (`RLIMIT_FSIZE`)", QStringLiteral("exit code 1 with a message, earlier files unchanged, nothing left"));
}

void FaultsTest::smallDisk()
{
    // A disk with room for the earlier files and not for the new ones.
    QTemporaryDir mount;
    if (::geteuid() != 0
        || QProcess::execute(QStringLiteral("mount"), {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"), QStringLiteral("size=64m"),
                                                       QStringLiteral("tmpfs"), mount.path()})
               != 0)
        QSKIP("mounting a small disk is not allowed here");
    const auto unmount = qScopeGuard([&mount] { QProcess::execute(QStringLiteral("umount"), {QStringLiteral("-l"), mount.path()}); });
    auto folder = earlierExport(mount.path());
    QVERIFY(folder);
    const Snapshot before = snapshot(folder->path());
    // Fill it but for a few blocks.
    QFile filler(mount.filePath(QStringLiteral("filler")));
    QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    const QByteArray block(4096, 'x');
    while (filler.write(block) == block.size()) {
    }
    QVERIFY(filler.resize(filler.size() - 4096));
    const Result result = run(command(m_moved, output(*folder)));
    QVERIFY2(result.code == 1 && isMessage(result.error), qPrintable(QString::number(result.code) + result.error));
    QCOMPARE(snapshot(folder->path()), before);
    folder.reset();
    note("disk full after 4 kB (tmpfs)", QStringLiteral("exit code 1 with a message, earlier files unchanged, nothing left"));
}

void FaultsTest::noPermission()
{
    const auto folder = earlierExport();
    QVERIFY(folder);
    const Snapshot before = snapshot(folder->path());
    // Root may write anywhere, so the export is then somebody else's.
    QStringList wrapper;
    if (::geteuid() == 0)
        wrapper = QStringList{QStringLiteral("setpriv"), QStringLiteral("--reuid=65534"), QStringLiteral("--regid=65534"), QStringLiteral("--clear-groups")};
    QFile::setPermissions(folder->path(), QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther);
    const auto restore = qScopeGuard([&folder] { QFile::setPermissions(folder->path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner); });
    const Result result = run(command(m_moved, output(*folder)), wrapper);
    if (result.code == 126 || result.code == 127)
        QSKIP("nobody else may run programs here");
    QVERIFY2(result.code == 1 && isMessage(result.error), qPrintable(QString::number(result.code) + result.error));
    QCOMPARE(snapshot(folder->path()), before);
    note("directory without write permission", QStringLiteral("exit code 1 with a message, earlier files unchanged"));
}

void FaultsTest::directoryInTheWay()
{
    const auto folder = earlierExport();
    QVERIFY(folder);
    // In the place of every file that the run would write.
    const Snapshot names = snapshot(folder->path());
    for (const QString& name : names.keys()) {
        QVERIFY(QFile::remove(folder->filePath(name)));
        QVERIFY(QDir(folder->path()).mkpath(name + QStringLiteral("/inside")));
    }
    const Snapshot before = snapshot(folder->path());
    const Result result = run(command(m_moved, output(*folder)));
    if (result.code == 0) {
        // A format of one file per object takes a directory as the place for its files.
        Snapshot now = snapshot(folder->path());
        for (const QString& name : before.keys())
            QCOMPARE(now.take(name), before[name]);
        for (const QString& name : now.keys())
            QVERIFY2(name.startsWith(QStringLiteral("out.%1/").arg(m_extension)), qPrintable(name));
        note("a directory has the file's name", QStringLiteral("the objects' files go into it, its contents unchanged"));
        return;
    }
    QVERIFY2(result.code == 1 && isMessage(result.error), qPrintable(QString::number(result.code) + result.error));
    QCOMPARE(snapshot(folder->path()), before);
    note("a directory has the file's name", QStringLiteral("exit code 1 with a message, the directory and its contents unchanged"));
}

void FaultsTest::missingDirectory()
{
    const auto folder = earlierExport();
    QVERIFY(folder);
    const Snapshot before = snapshot(folder->path());
    const Result result = run(command(m_moved, folder->filePath(QStringLiteral("none/out.") + m_extension)));
    QVERIFY2(result.code == 1 && isMessage(result.error), qPrintable(QString::number(result.code) + result.error));
    QCOMPARE(snapshot(folder->path()), before);
    note("directory does not exist", QStringLiteral("exit code 1 with a message, nothing created"));
}

void FaultsTest::signalled()
{
    const auto folder = earlierExport();
    QVERIFY(folder);
    const Snapshot before = snapshot(folder->path());
    QTemporaryDir aside;
    QElapsedTimer time;
    time.start();
    QCOMPARE(run(command(m_large, output(aside))).code, 0);
    const qint64 whole = time.elapsed();
    const Snapshot complete = snapshot(aside.path());
    for (const int signal : {SIGINT, SIGKILL}) {
        for (const int percent : {10, 50, 90}) {
            QProcess process;
            process.start(QStringLiteral(KP_PROGRAM), command(m_large, output(*folder)));
            QVERIFY(process.waitForStarted());
            QThread::msleep(static_cast<unsigned long>(whole * percent / 100));
            ::kill(static_cast<pid_t>(process.processId()), signal);
            QVERIFY(process.waitForFinished(120000));
            Snapshot now = snapshot(folder->path());
            for (const QString& name : now.keys()) {
                // A killed program cannot tidy up: the next run does.
                if (signal == SIGKILL && name.startsWith(QStringLiteral(".kpexport-")))
                    now.remove(name);
            }
            // A run that was quicker than the measured one has replaced the files, all of them.
            QVERIFY2(now == before || now == complete, qPrintable(QStringLiteral("signal %1 at %2 %: %3").arg(signal).arg(percent).arg(now.keys().join(QLatin1Char(' ')))));
            QCOMPARE(run(command(m_small, output(*folder))).code, 0);
            QCOMPARE(snapshot(folder->path()), before);
        }
    }
    note("SIGINT and SIGKILL at 10, 50 and 90 % of the time", QStringLiteral("earlier files unchanged; what a killed run leaves is hidden and removed by the next run"));
}

void FaultsTest::hardPaths()
{
    const auto folder = earlierExport();
    QVERIFY(folder);
    const Snapshot expected = snapshot(folder->path());
    const QString deep = folder->filePath(QString::fromUtf8("Грифон ñ 地層 'q' \"d\""));
    QVERIFY(QDir().mkpath(deep));
    // Formats with several files put their suffixes into the name.
    const int longest = 255 - m_extension.size() - 1 - (expected.size() > 1 ? 24 : 0);
    for (const QString& stem : {QString::fromUtf8("слои №1 é"), QString(longest / 2, QChar(0x0436))}) {
        const QString path = deep + QLatin1Char('/') + stem + QLatin1Char('.') + m_extension;
        const Result result = run(command(m_small, path) << QStringLiteral("--verify"));
        if (result.error.contains(QStringLiteral("shorten it to"))) {
            QVERIFY(result.code == 1 && isMessage(result.error) && snapshot(deep).isEmpty());
            note("path of 255 bytes", QStringLiteral("exit code 1: the format needs a shorter name"));
            continue;
        }
        QVERIFY2(result.code == 0, qPrintable(result.error));
        QCOMPARE(snapshot(deep).size(), expected.size());
        for (const QString& name : snapshot(deep).keys()) {
            QVERIFY2(name.startsWith(stem), qPrintable(name));
            QVERIFY(QFile::remove(deep + QLatin1Char('/') + name));
        }
    }
    note("paths in Cyrillic and Chinese, with quotes, of 255 bytes", QStringLiteral("written under their true names, verified"));
}

void FaultsTest::hostileObjectNames()
{
    const auto folder = earlierExport();
    QVERIFY(folder);
    QTemporaryDir inner(folder->filePath(QStringLiteral("inner-XXXXXX")));
    // The small model's files under names of our choice.
    QFile file(m_small);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QJsonArray objects = QJsonDocument::fromJson(file.readAll()).object().value(QStringLiteral("objects")).toArray();
    QJsonArray named;
    const QStringList names = hostileNames();
    for (int index = 0; index < names.size(); ++index) {
        for (QJsonValue value : objects) {
            QJsonObject object = value.toObject();
            if (object.value(QStringLiteral("file")).toString().endsWith(QStringLiteral("json")))
                continue;
            object.insert(QStringLiteral("file"), QFileInfo(m_small).absoluteDir().filePath(object.value(QStringLiteral("file")).toString()));
            object.insert(QStringLiteral("name"), names[index]);
            object.insert(QStringLiteral("set"), names[names.size() - 1 - index]);
            named.append(object);
        }
    }
    QFile model(m_models.filePath(QStringLiteral("hostile.kpmodel")));
    QVERIFY(model.open(QIODevice::WriteOnly));
    model.write(QJsonDocument(QJsonObject{{QStringLiteral("version"), 1}, {QStringLiteral("objects"), named}}).toJson());
    model.close();
    const Snapshot outside = snapshot(m_models.path());
    for (const char* grouping : {"object", "set", "single"}) {
        const Result settings = run(command(model.fileName(), output(inner)) << QStringLiteral("--set") << QStringLiteral("grouping=") + QLatin1String(grouping));
        // A format without this setting says so; it has one way only.
        const Result result = settings.code == 2 ? run(command(model.fileName(), output(inner))) : settings;
        if (result.code == 3)
            QSKIP("the format takes none of these objects");
        QVERIFY2(result.code == 0, qPrintable(QString::number(result.code) + result.error));
        QVERIFY(!snapshot(inner.path()).isEmpty());
        for (const QString& name : snapshot(inner.path()).keys())
            QVERIFY2(!name.contains(QLatin1Char('/')) && name.toUtf8().size() <= 255, qPrintable(name));
    }
    QCOMPARE(snapshot(m_models.path()), outside);
    note("object and set names with `/ \\ : * ?`, `..`, CON, line ends, 300 characters, empty, equal but for case",
         QStringLiteral("files under legal, different names in the chosen directory only"));
}

void FaultsTest::oddNumbers()
{
    const auto folder = earlierExport();
    QVERIFY(folder);
    QFile points(m_models.filePath(QStringLiteral("odd.csv")));
    QVERIFY(points.open(QIODevice::WriteOnly));
    points.write("X,Y,Z,v\n500000,7500000,nan,inf\n500001,7500000,inf,\n500002,7500001,-0.0,1e300\n500003,7500002,1e-300,nan\n500004,7500003,7,-inf\n");
    points.close();
    QFile model(m_models.filePath(QStringLiteral("odd.kpmodel")));
    QVERIFY(model.open(QIODevice::WriteOnly));
    model.write("{\"version\":1,\"objects\":[{\"file\":\"odd.csv\",\"crs\":\"EPSG:28350\"}]}");
    model.close();
    const Result result = run(command(model.fileName(), output(*folder)) << QStringLiteral("--quiet"));
    if (result.code == 3)
        QSKIP("the format takes no points");
    QVERIFY2(result.code == 0 || (result.code == 1 && isMessage(result.error)), qPrintable(QString::number(result.code) + result.error));
    note("NaN, infinities, nulls, 1e300", result.code == 0 ? QStringLiteral("written, losses counted") : QStringLiteral("exit code 1 with a message"));
}

void FaultsTest::commaLocale()
{
    const auto folder = earlierExport();
    QVERIFY(folder);
    const Snapshot before = snapshot(folder->path());
    const Result result = run(command(m_small, output(*folder)), {QStringLiteral("env"), QStringLiteral("LC_ALL=de_DE.UTF-8"), QStringLiteral("LANG=de_DE.UTF-8")});
    QVERIFY2(result.code == 0, qPrintable(result.error));
    QCOMPARE(snapshot(folder->path()), before);
    note("comma-decimal locale of the environment", QStringLiteral("the same bytes"));
}

void FaultsTest::twoAtOnce()
{
    const auto folder = earlierExport();
    QVERIFY(folder);
    const Snapshot small = snapshot(folder->path());
    QCOMPARE(run(command(m_moved, output(*folder))).code, 0);
    const Snapshot moved = snapshot(folder->path());
    QVERIFY(small != moved);
    for (int round = 0; round < 4; ++round) {
        QProcess first;
        QProcess second;
        first.start(QStringLiteral(KP_PROGRAM), command(m_small, output(*folder)));
        second.start(QStringLiteral(KP_PROGRAM), command(m_moved, output(*folder)));
        QVERIFY(first.waitForFinished(120000) && second.waitForFinished(120000));
        QCOMPARE(first.exitCode(), 0);
        QCOMPARE(second.exitCode(), 0);
        const Snapshot now = snapshot(folder->path());
        QVERIFY2(now == small || now == moved, "files of two runs are mixed");
    }
    note("two runs on the same target at once", QStringLiteral("all files are of one run or all of the other"));
}

QTEST_GUILESS_MAIN(FaultsTest)
#include "tst_faults.moc"
