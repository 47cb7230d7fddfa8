// SPDX-License-Identifier: MIT
// What is made from the option table: the documentation, the manual page, the completion of shells, job files.
// With KP_WRITE_DOCUMENTS=1 the tables of the documentation are written instead of compared.
#include "cli/CommandTable.h"
#include "tests/support/ProgramTest.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

using refhost::Command;
using refhost::Option;

class OptionTableTest : public ProgramTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void namesAreUnique();
    void documentation_data();
    void documentation();
    void completions_data();
    void completions();
    void bash_data();
    void bash();
    void manual();
};

namespace
{

QString text(const char* content)
{
    return QString::fromUtf8(content);
}

QString sentences(const char* summary, const char* details, bool repeats = false)
{
    QString all = text(summary);
    if (*details)
        all += QStringLiteral(". ") + text(details);
    all.replace(QLatin1Char('|'), QLatin1String("\\|"));
    return repeats ? all + QStringLiteral(". May be repeated") : all;
}

QString codeList(const std::vector<Option>& options)
{
    QStringList all;
    for (const Option& option : options)
        all.append(QStringLiteral("`%1`").arg(option.usage()));
    return all.join(QStringLiteral(", "));
}

QString commandRows()
{
    QString rows = QStringLiteral("| command | | options |\n|---|---|---|\n");
    for (const Command& command : refhost::commandTable()) {
        const bool exports = command.options.size() > 4;
        if (*command.summary)
            rows += QStringLiteral("| `%1` | %2 | %3 |\n")
                        .arg(refhost::usageOf(command), sentences(command.summary, command.details),
                             exports ? QStringLiteral("[below](#options-of-an-export)") : codeList(command.options));
    }
    return rows;
}

QString optionRows()
{
    QString rows = QStringLiteral("| option | |\n|---|---|\n");
    for (const Option& option : refhost::exportOptions()) {
        if (*option.name)
            rows += QStringLiteral("| `%1` | %2 |\n")
                        .arg(option.usage(), sentences(option.summary, option.details, option.repeats()));
    }
    return rows;
}

QString jobRows()
{
    const auto kind = [](const Option& option) {
        if (option.kind == Option::SettingText)
            return "object: setting and value";
        return option.kind == Option::Flag ? "true or false" : option.repeats() ? "text or list of texts" : "text";
    };
    QString rows = QStringLiteral("| key | value | option |\n|---|---|---|\n");
    for (const Option& option : refhost::exportOptions()) {
        if (*option.jobKey)
            rows += QStringLiteral("| `%1` | %2 | %3 |\n")
                        .arg(text(option.jobKey), text(kind(option)),
                             *option.name ? QStringLiteral("`--%1`").arg(text(option.name)) : text(option.summary));
    }
    return rows;
}

QString exitRows()
{
    QString rows = QStringLiteral("| | |\n|---|---|\n");
    for (const refhost::ExitMeaning& meaning : refhost::exitMeanings())
        rows += QStringLiteral("| %1 | %2 |\n").arg(meaning.code).arg(text(meaning.text));
    return rows;
}

} // namespace

void OptionTableTest::init()
{
    emptyFolder();
}

void OptionTableTest::namesAreUnique()
{
    QStringList names;
    QStringList keys;
    for (const Option& option : refhost::exportOptions()) {
        QVERIFY2(*option.summary && !names.contains(text(option.name)) && !keys.contains(text(option.jobKey)),
                 option.name);
        names.append(text(option.name));
        if (*option.jobKey)
            keys.append(text(option.jobKey));
    }
    // Those of the schema are the same.
    keys.append(QStringLiteral("schema"));
    keys.sort();
    const QJsonObject schema =
        QJsonDocument::fromJson(contentOf(QStringLiteral(KP_SOURCE_DIR "/docs/schemas/kpexport-job-1.schema.json")))
            .object();
    QCOMPARE(schema[QStringLiteral("properties")].toObject().keys(), keys);
}

void OptionTableTest::documentation_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("made");
    QTest::newRow("commands") << QStringLiteral("commands") << commandRows();
    QTest::newRow("options") << QStringLiteral("options") << optionRows();
    QTest::newRow("job keys") << QStringLiteral("job keys") << jobRows();
    QTest::newRow("exit codes") << QStringLiteral("exit codes") << exitRows();
}

void OptionTableTest::documentation()
{
    QFETCH(QString, name);
    QFETCH(QString, made);
    const QString file = QStringLiteral(KP_SOURCE_DIR "/docs/command-line.md");
    QString page = QString::fromUtf8(contentOf(file));
    const QString begin = QStringLiteral("<!-- %1: made by tst_optiontable -->\n\n").arg(name);
    const int from = page.indexOf(begin) + begin.size();
    const int to = page.indexOf(QLatin1String("\n<!-- end -->"), from);
    QVERIFY2(from >= begin.size() && to > 0, qPrintable(begin));
    if (qEnvironmentVariableIsSet("KP_WRITE_DOCUMENTS"))
        writeFile(file, page.replace(from, to - from, made).toUtf8());
    else
        QCOMPARE(page.mid(from, to - from), made);
}

void OptionTableTest::completions_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* words, const char* expected) {
        QTest::newRow(words) << text(words) << text(expected);
    };
    row("", "formats inspect export convert run completion man help");
    row("ex", "export");
    row("--", "--model --help --version");
    row("--model ", ":files");
    row("export ", ":files");
    row("export --f", "--format --force");
    row("export --force --f", "--format");
    row("export --object a --ob", "--object");
    row("export --object ", "");
    row("export --format ge", "geojson geotiff");
    row("export --format=ge", "--format=geojson --format=geotiff");
    row("export --type poly", "polygon polyline");
    row("export --layout=", ":files");
    row("export --set ", "");
    row("export p.csv --format ascii --set write", "writeNullValue=");
    row("export p.csv --format ascii --set header=", "header=true header=false");
    row("export p.csv --output a.off --set col", "colours=");
    row("convert p.csv a.csv --set separator=c", "separator=comma separator=custom");
    row("convert p.csv a.tif --set ", "");
    row("convert --ou", "");
    row("formats surfer", "surfer7 surfer6 surfer6ascii");
    row("inspect --allow-n", "--allow-network");
    row("completion ", "bash zsh fish");
    row("help com", "completion");
    row("nonsense --f", "");
}

void OptionTableTest::completions()
{
    QFETCH(QString, words);
    QFETCH(QString, expected);
    const Result result =
        run(QStringList{QStringLiteral("complete"), QStringLiteral("--")} + words.split(QLatin1Char(' ')));
    QCOMPARE(result.code, 0);
    QStringList told;
    for (const QString& line : result.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        told.append(line.section(QLatin1Char('\t'), 0, 0));
    QCOMPARE(told.join(QLatin1Char(' ')), expected);
}

void OptionTableTest::bash_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("expected");
    // As bash takes them apart, in quotes for a shell.
    QTest::newRow("command") << "con"
                             << "convert";
    QTest::newRow("option") << "export 'p q.csv' --dr"
                            << "--dry-run";
    QTest::newRow("value") << "export --format = gpk"
                           << "gpkg";
    QTest::newRow("setting") << "export --format ascii --set sep"
                             << "separator=";
    QTest::newRow("choice") << "export --format ascii --set separator = ''"
                            << "blank|tab|comma|semicolon|custom";
    QTest::newRow("file") << "export p"
                          << "p q.csv";
    QTest::newRow("file of an option") << "export --report = p"
                                       << "p q.csv";
}

void OptionTableTest::bash()
{
    QFETCH(QString, words);
    QFETCH(QString, expected);
    write("p q.csv", "");
    QProcess shell;
    shell.setWorkingDirectory(m_folder->path());
    shell.start(
        QStringLiteral("bash"),
        {QStringLiteral("-c"), QStringLiteral("set -u; source <('%1' completion bash); compopt() { :; }\n"
                                              "COMP_WORDS=('%1' %2); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _kpexport\n"
                                              "IFS='|'; printf '%s' \"${COMPREPLY[*]}\"")
                                   .arg(QStringLiteral(KP_PROGRAM), words)});
    QVERIFY(shell.waitForFinished());
    QCOMPARE(QString::fromUtf8(shell.readAllStandardError()), QString());
    QCOMPARE(QString::fromUtf8(shell.readAllStandardOutput()), expected);
}

void OptionTableTest::manual()
{
    if (QStandardPaths::findExecutable(QStringLiteral("groff")).isEmpty())
        QSKIP("groff is not installed");
    write("kpexport.1", run({QStringLiteral("man")}).out.toUtf8());
    QProcess groff;
    groff.setWorkingDirectory(m_folder->path());
    groff.start(QStringLiteral("groff"), {QStringLiteral("-ww"), QStringLiteral("-man"), QStringLiteral("-Tutf8"),
                                          QStringLiteral("-P-cbou"), QStringLiteral("kpexport.1")});
    QVERIFY(groff.waitForFinished());
    QCOMPARE(QString::fromUtf8(groff.readAllStandardError()), QString());
    const QString page = QString::fromUtf8(groff.readAllStandardOutput());
    for (const Option& option : refhost::exportOptions())
        QVERIFY2(page.contains(option.usage()), option.name);
    for (const QString& part : {QStringLiteral("\n       grdecl Eclipse GRDECL: *.grdecl\n"),
                                QStringLiteral("\n       5      --strict, and")})
        QVERIFY2(page.contains(part), qPrintable(page));
}

QTEST_GUILESS_MAIN(OptionTableTest)
#include "tst_optiontable.moc"
