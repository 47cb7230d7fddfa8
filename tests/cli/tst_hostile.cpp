// SPDX-License-Identifier: MIT
// What the program does with files and names from strangers, and with places that are not what they seem.
#include "cli/RequestText.h"
#include "tests/support/ProgramTest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <csignal>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

/// A port of this machine that tells whether anybody has called.
class Listener
{
public:
    Listener()
        : m_socket(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0))
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        m_listens = ::bind(m_socket, reinterpret_cast<sockaddr*>(&address), size) == 0 && ::listen(m_socket, 8) == 0
                    && ::getsockname(m_socket, reinterpret_cast<sockaddr*>(&address), &size) == 0;
        m_port = ntohs(address.sin_port);
    }
    ~Listener() { ::close(m_socket); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    bool listens() const { return m_listens; }
    QByteArray url() const { return "http://127.0.0.1:" + QByteArray::number(m_port) + "/x"; }
    bool wasCalled()
    {
        const int call = ::accept(m_socket, nullptr, nullptr);
        if (call >= 0)
            ::close(call);
        m_called = m_called || call >= 0;
        return m_called;
    }

private:
    int m_socket;
    bool m_listens = false;
    bool m_called = false;
    int m_port = 0;
};

/// Whether the program says, before it ends, that it waits for another.
bool waits(QProcess& process)
{
    QByteArray said;
    while (!said.contains("waiting for process") && process.waitForReadyRead(60000))
        said += process.readAllStandardError();
    return said.contains("waiting for process");
}

} // namespace

class HostileTest : public ProgramTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void reports_data();
    void reports();
    void sourceBesideTheTarget();
    void network_data();
    void network();
    void outside();
    void hiddenPaths_data();
    void hiddenPaths();
    void pipes();
    void controlCharacters();
    void fullOutput_data();
    void fullOutput();
    void closedPipe();
    void quiet();
    void foreignName();
    void foreignDirectory();
    void streamsKeepTheirNames();
    void oneOfMany();
    void hangUp();
    void copiedCommand();

private:
    QStringList command(const QStringList& more = {}) const
    {
        return QStringList{QStringLiteral("export"), QStringLiteral("p.csv"),    QStringLiteral("--format"),
                           QStringLiteral("ascii"),  QStringLiteral("--output"), QStringLiteral("o.txt")}
               + more;
    }
    QString listing() const
    {
        return QDir(path(""))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name)
            .join(QLatin1Char(' '));
    }
    Result runShell(const QString& script)
    {
        QProcess process;
        process.setWorkingDirectory(path(""));
        process.start(QStringLiteral("sh"), {QStringLiteral("-c"), script, QStringLiteral(KP_PROGRAM)});
        process.waitForFinished(60000);
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()), QString::fromUtf8(process.readAllStandardError())};
    }
};

void HostileTest::init()
{
    emptyFolder();
    write("p.csv", "X,Y,Z\n1,2,3\n2,3,4\n");
}

void HostileTest::reports_data()
{
    QTest::addColumn<QString>("report");
    QTest::addColumn<QString>("refusal");
    const auto row = [](const char* report, const char* refusal) {
        QTest::newRow(report) << QString::fromLatin1(report) << QString::fromLatin1(refusal);
    };
    row("p.csv", "this is a file that the export reads (choose another name)");
    row("named.csv", "this is a file that the export reads (choose another name)");
    row("sub/../o.txt", "this is a file that the export writes (choose another name)");
    row("hard.csv", "this is a file that the export reads (choose another name)");
    row("notes.json", "the file exists already and is not a report (add --overwrite to replace it)");
    row("sub", "this is a directory (choose another name)");
    row("pipe", "this is a device or a pipe (choose another name)");
    row("/dev/null", "this is a device or a pipe (choose another name)");
    row("none/r.json", "the directory %1/none does not exist (create it or choose another)");
    row("new.json", "");
    row("earlier.json", "");
}

void HostileTest::reports()
{
    QFETCH(QString, report);
    QFETCH(QString, refusal);
    write("notes.json", "{\"mine\": 1}");
    write("earlier.json", R"({"format": "shp", "files": [], "findings": []})");
    QDir(path("")).mkdir(QStringLiteral("sub"));
    QCOMPARE(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    QCOMPARE(::link(QFile::encodeName(path("p.csv")).constData(), QFile::encodeName(path("hard.csv")).constData()), 0);
    write("named.csv", "X,Y,Z\n5,6,7\n");
    write("m.kpmodel", R"({"version":1,"objects":[{"file":"named.csv"}]})");
    const QString before = listing();
    QStringList arguments = command({QStringLiteral("--report"), report});
    arguments.insert(2, QStringLiteral("m.kpmodel"));
    // What the run reads and writes is not replaced even when asked.
    if (refusal.startsWith(QLatin1String("this is a file")))
        arguments.append(QStringLiteral("--overwrite"));
    const Result result = run(arguments);
    if (refusal.isEmpty()) {
        QVERIFY2(result.code == 0, qPrintable(result.error));
        const QJsonObject written = QJsonDocument::fromJson(read(qPrintable(report))).object();
        QCOMPARE(written.value(QStringLiteral("format")).toString(), QStringLiteral("ascii"));
        return;
    }
    QCOMPARE(result.code, 1);
    QCOMPARE(result.error,
             QStringLiteral("kpexport: error: %1: the report cannot go there: %2\n")
                 .arg(report, refusal.contains(QLatin1String("%1")) ? refusal.arg(m_folder->path()) : refusal));
    QCOMPARE(listing(), before);
}

void HostileTest::sourceBesideTheTarget()
{
    // The data of a TAB file lie in a .dat: here that is the table which is exported.
    write("o.dat", "X,Y,Z\n1,2,3\n2,3,4\n");
    const QStringList arguments{QStringLiteral("export"),     QStringLiteral("o.dat"),    QStringLiteral("--format"),
                                QStringLiteral("tab"),        QStringLiteral("--output"), QStringLiteral("o.tab"),
                                QStringLiteral("--overwrite")};
    for (const QStringList& more :
         {QStringList(), QStringList{QStringLiteral("--dry-run"), QStringLiteral("--quiet")}}) {
        const Result result = run(arguments + more);
        QCOMPARE(result.error,
                 QStringLiteral("kpexport: error: o.tab: o.dat goes with it, and is a file that the export "
                                "reads (choose another name)\n"));
        QCOMPARE(result.code, 1);
    }
    QCOMPARE(listing(), QStringLiteral("o.dat p.csv"));
    QVERIFY(read("o.dat").startsWith("X,Y,Z\n"));
}

void HostileTest::network_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("source");
    const QByteArray layer = "<OGRVRTDataSource><OGRVRTLayer name=\"x\"><SrcDataSource>SOURCE</SrcDataSource>"
                             "</OGRVRTLayer></OGRVRTDataSource>";
    QTest::newRow("crs") << QStringLiteral("m.kpmodel")
                         << QByteArray(R"({"version":1,"objects":[{"file":"p.csv","crs":"SOURCE"}]})")
                         << QByteArray("URL");
    QTest::newRow("grid")
        << QStringLiteral("g.vrt")
        << QByteArray("<VRTDataset rasterXSize=\"2\" rasterYSize=\"2\"><VRTRasterBand dataType=\"Byte\" band=\"1\">"
                      "<SimpleSource><SourceFilename>SOURCE</SourceFilename><SourceBand>1</SourceBand>"
                      "</SimpleSource></VRTRasterBand></VRTDataset>")
        << QByteArray("/vsicurl/URL");
    QTest::newRow("layer") << QStringLiteral("l.vrt.xml") << layer << QByteArray("/vsicurl/URL");
    // Where the look at the file itself does not find it, GDAL is kept from it.
    for (const char* source :
         {"/vsicurl/URL.json", "/vsicurl_streaming/URL.json", "/vsiwebhdfs/URL", "NETCDF:\"URL\":v"})
        QTest::newRow(source) << QStringLiteral("inner.vrt.xml") << layer << QByteArray(source);
}

void HostileTest::network()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, source);
    Listener listener;
    QVERIFY(listener.listens());
    source.replace("URL", listener.url());
    write(name, content.replace("SOURCE", source));
    if (name.startsWith(QLatin1String("inner"))) {
        const QByteArray inner = name.toLatin1();
        name = QStringLiteral("outer.vrt.xml");
        write(name, "<OGRVRTDataSource><OGRVRTLayer name=\"x\"><SrcDataSource>" + inner
                        + "</SrcDataSource></OGRVRTLayer></OGRVRTDataSource>");
    }
    const Result result = run({QStringLiteral("inspect"), name});
    QCOMPARE(result.code, 1);
    QVERIFY2(!listener.wasCalled(), qPrintable(result.error));
    // The same file does call when that has been allowed; nobody answers.
    QProcess process;
    process.setWorkingDirectory(path(""));
    process.start(QStringLiteral(KP_PROGRAM), {QStringLiteral("inspect"), name, QStringLiteral("--allow-network")});
    QTRY_VERIFY_WITH_TIMEOUT(listener.wasCalled(), 30000);
    process.kill();
    process.waitForFinished();
}

void HostileTest::outside()
{
    QDir(path("")).mkdir(QStringLiteral("sub"));
    QVERIFY(QFile::link(path("p.csv"), path("sub/link.csv")));
    for (const QByteArray& file : {QByteArray("../p.csv"), path("p.csv").toUtf8(), QByteArray("link.csv")}) {
        write("sub/m.kpmodel", R"({"version":1,"objects":[{"file":")" + file + "\"}]}");
        const QStringList arguments{QStringLiteral("inspect"), QStringLiteral("sub/m.kpmodel")};
        QCOMPARE(run(arguments).error,
                 QStringLiteral("kpexport: error: sub/m.kpmodel: object 1: %1 lies outside the model's folder "
                                "(move it there, or add --allow-outside)\n")
                     .arg(QString::fromUtf8(file)));
        QCOMPARE(run(arguments + QStringList{QStringLiteral("--allow-outside")}).code, 0);
    }
    write("m.kpmodel", R"({"version":1,"objects":[{"file":"sub/../p.csv"}]})");
    QCOMPARE(run({QStringLiteral("inspect"), QStringLiteral("m.kpmodel")}).code, 0);
    // Nor do the files that it names lead out.
    write("g.asc", "ncols 2\nnrows 2\nxllcorner 0\nyllcorner 0\ncellsize 1\n1 2\n3 4\n");
    const QByteArray grid =
        "<VRTDataset rasterXSize=\"2\" rasterYSize=\"2\"><VRTRasterBand dataType=\"Float32\" band=\"1\">"
        "<SimpleSource><SourceFilename>FILE</SourceFilename><SourceBand>1</SourceBand>"
        "</SimpleSource></VRTRasterBand></VRTDataset>";
    write("sub/inner.vrt", QByteArray(grid).replace("FILE", path("g.asc").toUtf8()));
    write("sub/outer.vrt", QByteArray(grid).replace("FILE", path("sub/inner.vrt").toUtf8()));
    write("l.geojson", R"({"type":"Point","coordinates":[1,2]})");
    write("sub/layer.vrt.xml", "<OGRVRTDataSource><OGRVRTLayer name=\"l\"><SrcDataSource>" + path("l.geojson").toUtf8()
                                   + "</SrcDataSource></OGRVRTLayer></OGRVRTDataSource>");
    write("secret.inc", "SPECGRID\n1 1 1 1 /\n");
    write("sub/deck.grdecl", "INCLUDE\n'../secret.inc' /\n");
    const QByteArray remark(2000, 'r');
    write("sub/remark.vrt", "<!--" + remark + "-->" + QByteArray(grid).replace("FILE", path("g.asc").toUtf8()));
    write("g.bil", QByteArray(16, '\1'));
    write("sub/label.vrt", "<VRTDataset rasterXSize=\"2\" rasterYSize=\"2\"><VRTRasterBand dataType=\"Float32\" "
                           "band=\"1\" subClass=\"VRTRawRasterBand\"><SourceFilename relativeToVRT=\"1\">../g.bil"
                           "</SourceFilename><ImageOffset>0</ImageOffset></VRTRasterBand></VRTDataset>");
    for (const char* file : {"inner.vrt", "outer.vrt", "layer.vrt.xml", "deck.grdecl", "remark.vrt", "label.vrt"}) {
        write("sub/m.kpmodel", R"({"version":1,"objects":[{"file":")" + QByteArray(file) + "\"}]}");
        const QString error = run({QStringLiteral("inspect"), QStringLiteral("sub/m.kpmodel")}).error;
        QVERIFY2(error.contains(QLatin1String("outside the model's folder (move it there, or add --allow-outside)")),
                 qPrintable(QLatin1String(file) + error));
        const QStringList named{QStringLiteral("inspect"), QStringLiteral("sub/") + QLatin1String(file)};
        QVERIFY(!run(named).error.contains(QLatin1String("outside")));
    }
}

void HostileTest::hiddenPaths_data()
{
    QTest::addColumn<QByteArray>("source");
    for (const char* source : {"NETCDF:\"FOLDER/g.nc\":Band1", "GTIFF_DIR:1:FOLDER/g.tif",
                               "/vsisubfile/0_99999,FOLDER/g.tif", "vrt://FOLDER/g.tif",
                               "<VRTDataset rasterXSize=\"2\" rasterYSize=\"2\"><VRTRasterBand dataType=\"Float32\" "
                               "band=\"1\"><SimpleSource><SourceFilename>FOLDER/g.tif</SourceFilename></SimpleSource>"
                               "</VRTRasterBand></VRTDataset>"})
        QTest::newRow(QByteArray(source).left(20).constData()) << QByteArray(source);
}

void HostileTest::hiddenPaths()
{
    QFETCH(QByteArray, source);
    write("g.asc", "ncols 2\nnrows 2\nxllcorner 0\nyllcorner 0\ncellsize 1\n1 2\n3 4\n");
    for (const char* format : {"netCDF:g.nc", "GTiff:g.tif"}) {
        const QStringList words = QString::fromLatin1(format).split(QLatin1Char(':'));
        QCOMPARE(
            QProcess::execute(QStringLiteral("gdal_translate"), {QStringLiteral("-q"), QStringLiteral("-of"), words[0],
                                                                 path("g.asc"), path(words[1].toLatin1())}),
            0);
    }
    QDir(path("")).mkdir(QStringLiteral("sub"));
    source.replace("FOLDER", QDir(path("")).absolutePath().toUtf8());
    const QString text = QString::fromUtf8(source).toHtmlEscaped();
    write("sub/g.vrt", "<VRTDataset rasterXSize=\"2\" rasterYSize=\"2\"><VRTRasterBand dataType=\"Float32\" band=\"1\">"
                       "<SimpleSource><SourceFilename>"
                           + text.toUtf8()
                           + "</SourceFilename><SourceBand>1</SourceBand>"
                             "</SimpleSource></VRTRasterBand></VRTDataset>");
    write("sub/m.kpmodel", R"({"version":1,"objects":[{"file":"g.vrt"}]})");
    const Result result = run({QStringLiteral("inspect"), QStringLiteral("sub/m.kpmodel")});
    QVERIFY2(result.error.contains(QLatin1String("which is no file in the model's folder (name a file there, or add "
                                                 "--allow-outside)")),
             qPrintable(result.error));
    QCOMPARE(result.code, 1);
}

void HostileTest::pipes()
{
    // An archive can hold them, and they would keep a reader waiting for ever.
    for (const char* name : {"pipe.csv", "pipe.ts", "pipe.tif"})
        QCOMPARE(::mkfifo(QFile::encodeName(path(name)).constData(), 0600), 0);
    write("m.kpmodel", R"({"version":1,"objects":[{"file":"pipe.ts"}]})");
    write("logs.kpmodel", R"({"version":1,"objects":[{"file":"p.csv","logs":"pipe.csv"}]})");
    const auto error = [this](const char* name) {
        return run({QStringLiteral("inspect"), QString::fromLatin1(name)}).error;
    };
    const QString because =
        QStringLiteral(": this is a device or a pipe, which may never end (save what it gives as a file)\n");
    QCOMPARE(error("pipe.tif"), QStringLiteral("kpexport: error: pipe.tif") + because);
    QCOMPARE(error("/dev/zero"), QStringLiteral("kpexport: error: /dev/zero") + because);
    QCOMPARE(error("m.kpmodel"), QStringLiteral("kpexport: error: m.kpmodel: object 1: pipe.ts is a device or a pipe "
                                                "(name a file)\n"));
    QCOMPARE(error("logs.kpmodel"), QStringLiteral("kpexport: error: logs.kpmodel: object 1: pipe.csv is a device or a "
                                                   "pipe (name a file)\n"));
    // A job that never ends.
    QCOMPARE(
        run({QStringLiteral("run"), QStringLiteral("/dev/zero")}).error,
        QStringLiteral("kpexport: error: /dev/zero: the file is larger than a job file can be (check the path)\n"));
}

void HostileTest::controlCharacters()
{
    write("m.kpmodel", R"({"version":1,"objects":[{"file":"p.csv","name":"a\u001b[31m\tb\nc\u202ed\u009be"}]})");
    const QString shown = QStringLiteral("a\\x1b[31m\\x09b\\x0ac\\u202ed\\x9be");
    const Result plain = run({QStringLiteral("inspect"), QStringLiteral("m.kpmodel")});
    QCOMPARE(plain.out.section(QLatin1Char('\t'), 1, 1), shown);
    QCOMPARE(plain.out.count(QLatin1Char('\n')), 1);
    const Result json = run({QStringLiteral("inspect"), QStringLiteral("--json"), QStringLiteral("m.kpmodel")});
    QCOMPARE(QJsonDocument::fromJson(json.out.toUtf8())[QLatin1String("objects")]
                 .toArray()
                 .first()[QLatin1String("name")]
                 .toString(),
             QString::fromUtf8("a\x1b[31m\tb\nc\u202e"
                               "d\u009b"
                               "e"));
    QVERIFY(!json.out.contains(QChar(0x9b)) && !json.out.contains(QChar(0x202e)));
    // Errors name the object too.
    const Result error = run({QStringLiteral("export"), QStringLiteral("m.kpmodel"), QStringLiteral("--format"),
                              QStringLiteral("kml"), QStringLiteral("--output"), QStringLiteral("o.kml")});
    QVERIFY2(error.code == 1 && error.error.contains(shown) && !error.error.contains(QChar(0x1b)),
             qPrintable(error.error));
}

void HostileTest::fullOutput_data()
{
    QTest::addColumn<QString>("arguments");
    for (const char* arguments : {"inspect p.csv", "inspect p.csv --json", "formats", "formats --json", "--help",
                                  "--version", "export p.csv --format ascii --output o.txt"})
        QTest::newRow(arguments) << QString::fromLatin1(arguments);
}

void HostileTest::fullOutput()
{
    QFETCH(QString, arguments);
    const Result result = runShell(QStringLiteral("\"$0\" %1 > /dev/full").arg(arguments));
    QCOMPARE(result.code, 1);
}

void HostileTest::closedPipe()
{
    // Nothing that is opened takes the place of a stream that was closed, and gets what is said.
    const Result closed = runShell(QStringLiteral("\"$0\" formats >&-"));
    QCOMPARE(closed.error, QStringLiteral("kpexport: error: standard output: it could not be written: "
                                          "Bad file descriptor (give it another place)\n"));
    const Result result = runShell(QStringLiteral("{ sleep 0.2; \"$0\" formats; echo $? >&2; } | true"));
    QCOMPARE(result.error, QStringLiteral("0\n"));
}

void HostileTest::quiet()
{
    // GDAL has nothing to add.
    const Result result =
        run({QStringLiteral("export"), QStringLiteral("p.csv"), QStringLiteral("--format"), QStringLiteral("shp"),
             QStringLiteral("--output"), QStringLiteral("o.shp"), QStringLiteral("--quiet")});
    QCOMPARE(result.out + result.error, QString());
    QCOMPARE(result.code, 0);
}

void HostileTest::foreignName()
{
    const QString before = listing();
    const Result result =
        runShell(QStringLiteral("\"$0\" export p.csv --format ascii --output \"$(printf 'o\\377.txt')\""));
    QCOMPARE(result.code, 2);
    QCOMPARE(result.error, QStringLiteral("kpexport: error: argument 6 is not UTF-8 (give the file another name)\n"));
    QCOMPARE(listing(), before);
}

void HostileTest::foreignDirectory()
{
    write("m.kpmodel", R"({"version":1,"objects":[{"file":"p.csv"}]})");
    const auto inDirectory = [this](const char* arguments) {
        return runShell(
            QStringLiteral("d=\"$(printf 'b\\377')\"; mkdir -p \"$d\"; cp p.csv m.kpmodel \"$d\"; cd \"$d\"; "
                           "\"$0\" %1; code=$?; ls >&2; cd ..; rm -r \"$d\"; exit $code")
                .arg(QLatin1String(arguments)));
    };
    const Result target = inDirectory("export p.csv --format ascii --output o.csv");
    QCOMPARE(target.code, 1);
    QCOMPARE(target.error, QStringLiteral("kpexport: error: o.csv: the path of the directory holds bytes that are not "
                                          "UTF-8 (give it another name or choose another)\nm.kpmodel\np.csv\n"));
    const Result model = inDirectory("inspect m.kpmodel");
    QVERIFY2(model.code == 1 && model.error.contains(QLatin1String("p.csv: its path holds bytes that are not UTF-8")),
             qPrintable(model.error));
}

void HostileTest::streamsKeepTheirNames()
{
    const Result result =
        runShell(QStringLiteral("\"$0\" export p.csv --format ascii --quiet --output /dev/stdout > r.txt && "
                                "\"$0\" export p.csv --format ascii --quiet --output /dev/null && "
                                "\"$0\" export p.csv --format shp --quiet --output /dev/stdout > s.txt"));
    QCOMPARE(
        result.error,
        QStringLiteral("kpexport: error: /dev/stdout: a device cannot hold a Shapefile (give the name of a file)\n"));
    QVERIFY2(read("r.txt").startsWith("X,Y,Z\n1.000,2.000,3.000\n"), read("r.txt"));
    QCOMPARE(listing(), QStringLiteral("p.csv r.txt s.txt"));
    QCOMPARE(QDir(QStringLiteral("/dev"))
                 .entryList({QStringLiteral("null.*"), QStringLiteral("stdout.*")}, QDir::System | QDir::Files),
             QStringList());
}

void HostileTest::oneOfMany()
{
    // All of them see that the file is not there; one of them makes it.
    constexpr int runs = 6;
    const int lock = ::open(QFile::encodeName(path("")).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    QCOMPARE(::flock(lock, LOCK_EX), 0);
    std::vector<std::unique_ptr<QProcess>> processes;
    for (int number = 0; number < runs; ++number) {
        processes.push_back(std::make_unique<QProcess>());
        processes.back()->setWorkingDirectory(path(""));
        processes.back()->setReadChannel(QProcess::StandardError);
        processes.back()->start(QStringLiteral(KP_PROGRAM), command());
    }
    // Each says for whom it waits once it has written its file.
    for (const auto& process : processes)
        QVERIFY(waits(*process));
    ::close(lock);
    int written = 0;
    for (const auto& process : processes) {
        QVERIFY(process->waitForFinished(60000));
        const QByteArray error = process->readAllStandardError();
        written += process->exitCode() == 0 ? 1 : 0;
        QVERIFY2(process->exitCode() == 0 || error.contains("the file exists already"), error);
    }
    QCOMPARE(written, 1);
    QCOMPARE(listing(), QStringLiteral("o.txt p.csv"));
}

void HostileTest::hangUp()
{
    // As with the other requests to end: nothing is left behind.
    const int lock = ::open(QFile::encodeName(path("")).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    QCOMPARE(::flock(lock, LOCK_EX), 0);
    QProcess process;
    process.setWorkingDirectory(path(""));
    process.setReadChannel(QProcess::StandardError);
    process.start(QStringLiteral(KP_PROGRAM), command());
    QVERIFY(waits(process));
    ::kill(static_cast<pid_t>(process.processId()), SIGHUP);
    QVERIFY(process.waitForFinished(60000));
    ::close(lock);
    QVERIFY(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 4);
    QCOMPARE(listing(), QStringLiteral("p.csv"));
}

void HostileTest::copiedCommand()
{
    // What is pasted into a shell is what was named, to the last character.
    const QStringList names{
        QStringLiteral("o\n"),     QStringLiteral("-o"),           QStringLiteral("it's $(id) `id` \\"),
        QStringLiteral("a b\n\n"), QString::fromUtf8("слой é\t!"), QStringLiteral("~;&|<>*?[]{}#\"")};
    for (const QString& name : names) {
        refhost::ExportRequest request;
        request.models = QStringList{QStringLiteral("p.csv"), name};
        request.format = QStringLiteral("ascii");
        request.output = name;
        request.objects = QStringList{name};
        request.settings.append({QStringLiteral("nullValue"), name});
        const Result result =
            runShell(QStringLiteral("kpexport() { printf '%s\\001' \"$@\"; }; ") + refhost::commandLineOf(request));
        const QString model = name.startsWith(QLatin1Char('-')) ? QStringLiteral("./") + name : name;
        const QStringList wanted{QStringLiteral("export"),
                                 QStringLiteral("p.csv"),
                                 model,
                                 QStringLiteral("--format"),
                                 QStringLiteral("ascii"),
                                 QStringLiteral("--output"),
                                 name,
                                 QStringLiteral("--object"),
                                 name,
                                 QStringLiteral("--set"),
                                 QStringLiteral("nullValue=") + name,
                                 QString()};
        QCOMPARE(result.out.split(QChar(1)), wanted);
    }
}

QTEST_GUILESS_MAIN(HostileTest)
#include "tst_hostile.moc"
