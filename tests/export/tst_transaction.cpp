// SPDX-License-Identifier: MIT
// Files that are moved into place together: what killed runs leave, what strangers prepare, what is in the way.
#include "export/CommitJournal.h"
#include "export/ExportError.h"
#include "export/OutputTransaction.h"
#include "tests/support/FileContent.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace kpFormats;

namespace
{

QStringList entries(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

/// Why a commit or a target is refused; empty when it is not.
template <typename Work>
QString errorOf(const Work& work)
{
    try {
        work();
    } catch (const ExportError& error) {
        return error.reason();
    }
    return {};
}

/// A staging folder as a killed run leaves it, made by hand.
class LeftFolder
{
public:
    explicit LeftFolder(const QString& directory,
                        const QString& name = QStringLiteral(".kpexport-0123456789abcdef0123456789abcdef"))
        : m_directory(directory)
        , m_name(name)
    {
        QDir(directory).mkdir(name);
        ::chmod(QFile::encodeName(path()).constData(), 0700);
        m_folder = Folder(path());
    }
    QString path(const QString& inside = {}) const
    {
        return m_directory + QLatin1Char('/') + m_name + QLatin1Char('/') + inside;
    }
    /// Writes a file that waits in it, and what is to become of it.
    void put(const char* name, const QByteArray& content)
    {
        QDir(path()).mkdir(QStringLiteral("1"));
        writeFile(path(QStringLiteral("1/") + QLatin1String(name)), content);
        m_moves.push_back(
            {"1", name, Folder(path(QStringLiteral("1"))).identity(name), Folder(m_directory).identity(name)});
    }
    void drop(const char* name) { m_moves.push_back({{}, name, {}, Folder(m_directory).identity(name)}); }
    /// As the run does it with a file before and while it moves it.
    void keep(const char* name) const
    {
        QDir(path()).mkdir(QStringLiteral("earlier"));
        QCOMPARE(Folder(m_directory).link(name, Folder(path(QStringLiteral("earlier"))), name), 0);
    }
    void move(const char* name) const
    {
        QCOMPARE(Folder(path(QStringLiteral("1"))).move(name, Folder(m_directory), name), 0);
    }
    void begin() const { QCOMPARE(journal().begin(), 0); }
    void decide() const { QCOMPARE(journal().decide(m_moves), 0); }
    void turnBack() const { QCOMPARE(journal().change(CommitJournal::State::Forward, CommitJournal::State::Back), 0); }

private:
    CommitJournal journal() const { return CommitJournal(m_folder, m_name.toLatin1()); }

    QString m_directory;
    QString m_name;
    Folder m_folder;
    std::vector<JournalMove> m_moves;
};

/// A run in the directory, which deals with what others have left.
void exportThere(const QTemporaryDir& folder)
{
    OutputTransaction next;
    writeFile(next.stage(folder.filePath(QStringLiteral("other"))), "other");
    next.commit();
}

} // namespace

class TransactionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void replacedTogether();
    void sidecars();
    void abandonedFolders();
    void killedWhileMoving();
    void killedWhileTakingBack();
    void strangersFolders_data();
    void strangersFolders();
    void removedMeanwhile();
    void droppedAndAbandoned();
    void inTheWay();
    void comesMeanwhile();
    void accessIsKept();
    void lockedByAnother();
    void links();
    void badTargets_data();
    void badTargets();
};

void TransactionTest::replacedTogether()
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

void TransactionTest::sidecars()
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

void TransactionTest::removedMeanwhile()
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

void TransactionTest::droppedAndAbandoned()
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

void TransactionTest::links()
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

void TransactionTest::abandonedFolders()
{
    // A run that was killed holds no lock any more; one that is at work does.
    QTemporaryDir folder;
    LeftFolder killed(folder.path());
    killed.begin();
    killed.put("a", "half");
    OutputTransaction running;
    const QString staged = running.stage(folder.filePath(QStringLiteral("a")));
    writeFile(staged, "a");
    QCOMPARE(entries(folder.path()).size(), 1);
    const QByteArray own = QFile::encodeName(folder.filePath(entries(folder.path()).front()));
    struct stat status = {};
    QVERIFY(::stat(own.constData(), &status) == 0 && (status.st_mode & 0777) == 0700);
    OutputTransaction second;
    writeFile(second.stage(folder.filePath(QStringLiteral("a"))), "second");
    QCOMPARE(entries(folder.path()).size(), 2);
    second.commit();
    running.commit();
    QCOMPARE(entries(folder.path()), QStringList{QStringLiteral("a")});
    QCOMPARE(contentOf(folder.filePath(QStringLiteral("a"))), QByteArray("a"));
}

void TransactionTest::killedWhileMoving()
{
    // The .dbf has been replaced, the .shp waits, and so does a .prj that was new. Somebody has replaced the .cpg since,
    // and an index of the earlier file is still there.
    QTemporaryDir folder;
    const auto at = [&folder](const char* name) { return folder.filePath(QString::fromLatin1(name)); };
    for (const char* name : {"m.shp", "m.dbf", "m.cpg", "m.qix"})
        writeFile(at(name), "earlier");
    LeftFolder killed(folder.path());
    killed.begin();
    for (const char* name : {"m.shp", "m.dbf", "m.cpg", "m.prj"})
        killed.put(name, "new");
    killed.drop("m.qix");
    killed.decide();
    killed.keep("m.dbf");
    killed.move("m.dbf");
    QVERIFY(QFile::remove(at("m.cpg")));
    writeFile(at("m.cpg"), "the user's");
    exportThere(folder);
    QCOMPARE(entries(folder.path()).join(QLatin1Char(' ')), QStringLiteral("m.cpg m.dbf m.prj m.shp other"));
    QCOMPARE(contentOf(at("m.shp")) + contentOf(at("m.dbf")) + contentOf(at("m.prj")) + contentOf(at("m.cpg")),
             QByteArray("newnewnewthe user's"));
}

void TransactionTest::killedWhileTakingBack()
{
    // Two have been moved, of which one was new; then a failure, and a kill before anything came back.
    QTemporaryDir folder;
    const auto at = [&folder](const char* name) { return folder.filePath(QString::fromLatin1(name)); };
    for (const char* name : {"m.shp", "m.dbf"})
        writeFile(at(name), "earlier");
    LeftFolder killed(folder.path());
    killed.begin();
    for (const char* name : {"m.shp", "m.dbf", "m.prj"})
        killed.put(name, "new");
    killed.decide();
    killed.keep("m.shp");
    killed.keep("m.dbf");
    killed.move("m.dbf");
    killed.move("m.prj");
    killed.turnBack();
    exportThere(folder);
    QCOMPARE(entries(folder.path()).join(QLatin1Char(' ')), QStringLiteral("m.dbf m.shp other"));
    QCOMPARE(contentOf(at("m.shp")) + contentOf(at("m.dbf")), QByteArray("earlierearlier"));
}

void TransactionTest::strangersFolders_data()
{
    QTest::addColumn<QString>("prepared");
    for (const char* prepared :
         {"presets", "readable", "linked room", "link", "copied", "no journal", "somebody else's"})
        QTest::newRow(prepared) << QString::fromLatin1(prepared);
}

void TransactionTest::strangersFolders()
{
    // A folder that looks like one of ours, prepared so that files would move from a private place or go.
    QFETCH(QString, prepared);
    QTemporaryDir folder;
    QTemporaryDir secret;
    writeFile(secret.filePath(QStringLiteral("key")), "private");
    const bool other = prepared == QLatin1String("somebody else's");
    if (other && ::geteuid() != 0)
        QSKIP("only root can make a folder of somebody else");
    const QString name = prepared == QLatin1String("presets")
                             ? QStringLiteral(".kpexport-presets")
                             : QStringLiteral(".kpexport-0123456789abcdef0123456789abcdef");
    LeftFolder trap(folder.path(), name);
    trap.put("key", "bait");
    if (prepared == QLatin1String("copied")) {
        // The journal of another folder.
        LeftFolder first(folder.path(), QStringLiteral(".kpexport-0123456789abcdef0123456789abcde0"));
        first.begin();
        QVERIFY(
            QFile::copy(first.path(QStringLiteral("journal.staging")), trap.path(QStringLiteral("journal.staging"))));
        QVERIFY(QDir(first.path()).removeRecursively());
    } else if (prepared != QLatin1String("no journal")) {
        trap.begin();
        trap.decide();
    }
    if (prepared == QLatin1String("linked room")) {
        QVERIFY(QDir(trap.path(QStringLiteral("1"))).removeRecursively());
        QVERIFY(QFile::link(secret.path(), trap.path(QStringLiteral("1"))));
    } else if (prepared == QLatin1String("link")) {
        const QString moved = secret.filePath(QStringLiteral("folder"));
        QVERIFY(QDir().rename(folder.filePath(name), moved));
        QVERIFY(QFile::link(moved, folder.filePath(name)));
    } else if (prepared == QLatin1String("readable")) {
        ::chmod(QFile::encodeName(trap.path()).constData(), 0755);
    } else if (other) {
        QCOMPARE(::chown(QFile::encodeName(trap.path()).constData(), 65534, 65534), 0);
    }
    exportThere(folder);
    QCOMPARE(contentOf(secret.filePath(QStringLiteral("key"))), QByteArray("private"));
    QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("key"))));
    QCOMPARE(entries(folder.path()), (QStringList{name, QStringLiteral("other")}));
}

void TransactionTest::inTheWay()
{
    QTemporaryDir folder;
    const QString a = folder.filePath(QStringLiteral("a"));
    const QString b = folder.filePath(QStringLiteral("b"));
    const QString c = folder.filePath(QStringLiteral("c"));
    writeFile(a, "earlier");
    OutputTransaction transaction;
    for (const QString& target : {a, c, b})
        writeFile(transaction.stage(target), "new");
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("b")));
    QCOMPARE(errorOf([&] { transaction.commit(); }),
             QStringLiteral("this is a directory (remove it or choose another name)"));
    QCOMPARE(contentOf(a), QByteArray("earlier"));
    QVERIFY(!QFile::exists(c));
}

void TransactionTest::comesMeanwhile()
{
    // Replacing has not been agreed to: a file that comes during the run stays, a sidecar too.
    QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("m.shp"));
    for (const char* name : {"m.shp", "m.dbf", "m.qix"}) {
        OutputTransaction transaction(OutputTransaction::Existing::Refuse);
        const QString staged = transaction.stage(target, {QStringLiteral("dbf"), QStringLiteral("qix")});
        writeFile(staged, "new");
        writeFile(QFileInfo(staged).absolutePath() + QStringLiteral("/m.dbf"), "new");
        writeFile(folder.filePath(QString::fromLatin1(name)), "the user's");
        const QString error = errorOf([&] { transaction.commit(); });
        QVERIFY2(error.contains(QLatin1String("exists already (choose another name")), qPrintable(error));
        QCOMPARE(contentOf(folder.filePath(QString::fromLatin1(name))), QByteArray("the user's"));
        QVERIFY(QFile::remove(folder.filePath(QString::fromLatin1(name))));
    }
    QCOMPARE(entries(folder.path()), QStringList());
}

void TransactionTest::accessIsKept()
{
    QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("a"));
    const QByteArray name = QFile::encodeName(target);
    writeFile(target, "earlier");
    // user::rw-, user:65534:r--, group::---, mask::r--, other::---
    const QByteArray list =
        QByteArray::fromHex("0200000001000600ffffffff02000400feff000004000000ffffffff10000400ffffffff20000000ffffffff");
    if (::setxattr(name.constData(), "user.note", "mine", 4, 0) != 0
        || ::setxattr(name.constData(), "system.posix_acl_access", list.constData(),
                      static_cast<std::size_t>(list.size()), 0)
               != 0)
        QSKIP("the file system has neither attributes nor access lists");
    OutputTransaction transaction;
    writeFile(transaction.stage(target), "new");
    transaction.commit();
    QCOMPARE(contentOf(target), QByteArray("new"));
    QByteArray value(256, '\0');
    const auto attribute = [&](const char* key) {
        const ssize_t size = ::getxattr(name.constData(), key, value.data(), static_cast<std::size_t>(value.size()));
        return value.left(static_cast<int>(std::max<ssize_t>(size, 0)));
    };
    QCOMPARE(attribute("user.note"), QByteArray("mine"));
    QCOMPARE(attribute("system.posix_acl_access").toHex(), list.toHex());
}

void TransactionTest::lockedByAnother()
{
    QTemporaryDir folder;
    const int lock = ::open(QFile::encodeName(folder.path()).constData(), O_RDONLY | O_DIRECTORY);
    QCOMPARE(::flock(lock, LOCK_EX), 0);
    OutputTransaction transaction;
    const QString target = folder.filePath(QStringLiteral("a"));
    writeFile(transaction.stage(target), "new");
    WaitForOthers wait;
    wait.most = std::chrono::milliseconds(50);
    const QString error = errorOf([&] { transaction.commit(wait); });
    const QString holder = QStringLiteral("process %1 (tst_transaction)").arg(QCoreApplication::applicationPid());
    QVERIFY2(error.startsWith(holder + QStringLiteral(" holds its directory locked")), qPrintable(error));
    QStringList told;
    wait.goOn = [&told](const QString& who) {
        told.append(who);
        return told.size() < 3;
    };
    wait.most = std::chrono::minutes(10);
    QVERIFY(!transaction.commit(wait));
    QCOMPARE(told, (QStringList{holder, holder, holder}));
    QVERIFY(!QFile::exists(target));
    ::close(lock);
    QVERIFY(transaction.commit());
    QCOMPARE(contentOf(target), QByteArray("new"));
}

void TransactionTest::badTargets_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("cause");
    const auto row = [](const char* name, const char* cause) {
        QTest::newRow(name) << QString::fromUtf8(name) << QString::fromUtf8(cause);
    };
    row("dangling",
        "this is a symbolic link to %1/nowhere, which does not exist (remove the link or choose another name)");
    row("loop", "this is a symbolic link that leads back to itself (remove the link or choose another name)");
    row("folder", "this is a directory (give the name of a file)");
    row("none/a", "the directory %1/none does not exist (create it or choose another)");
    row("linked.shp", "linked.dbf is a symbolic link (remove it, since the files of one export lie in one directory)");
    row("piped.shp", "piped.dbf is a device or a pipe (remove it or choose another name)");
    row("odd\xef\xbf\xbd", "the name holds bytes that are not UTF-8 (choose another name)");
}

void TransactionTest::badTargets()
{
    QFETCH(QString, name);
    QFETCH(QString, cause);
    QTemporaryDir folder;
    QVERIFY(QFile::link(folder.filePath(QStringLiteral("nowhere")), folder.filePath(QStringLiteral("dangling"))));
    QVERIFY(QFile::link(folder.filePath(QStringLiteral("loop")), folder.filePath(QStringLiteral("loop"))));
    QVERIFY(QFile::link(folder.filePath(QStringLiteral("folder")), folder.filePath(QStringLiteral("linked.dbf"))));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("folder")));
    QCOMPARE(::mkfifo(QFile::encodeName(folder.filePath(QStringLiteral("piped.dbf"))).constData(), 0600), 0);
    const QStringList before = entries(folder.path());
    const QString error = errorOf([&] {
        OutputTransaction transaction;
        transaction.stage(folder.filePath(name), {QStringLiteral("dbf")});
    });
    QCOMPARE(error, cause.contains(QLatin1String("%1")) ? cause.arg(folder.path()) : cause);
    QCOMPARE(entries(folder.path()), before);
}

QTEST_GUILESS_MAIN(TransactionTest)
#include "tst_transaction.moc"
