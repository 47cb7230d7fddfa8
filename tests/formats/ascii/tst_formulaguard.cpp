// SPDX-License-Identifier: MIT
// What a spreadsheet would take for a formula, in texts and names of strangers.
#include "tests/support/SaverRun.h"

using namespace kpFormats;

class FormulaGuardTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void table_data();
    void table();

private:
    static ModelObject hostile();
};

ModelObject FormulaGuardTest::hostile()
{
    const QStringList texts{QStringLiteral("=cmd|' /C calc'!A0"),
                            QStringLiteral("a;-b,+c"),
                            QStringLiteral(" \"=x\""),
                            QStringLiteral("\r\n@SUM(A1)"),
                            QStringLiteral("\t1"),
                            QStringLiteral("plain-text=1"),
                            QString::fromUtf8("＝1")};
    std::vector<double> numbers;
    QVector<QVariant> values;
    for (const QString& text : texts) {
        numbers.push_back(-static_cast<double>(values.size()));
        values.append(text);
    }
    ModelObject object = objectOf(QStringLiteral("=1+1"), ObjectType::VertexClouds, numbers, numbers, numbers);
    object.vertexAttributes = {columnOf(QStringLiteral("@note"), AttributeKind::Text, values)};
    return object;
}

void FormulaGuardTest::table_data()
{
    const QString guarded = QString::fromUtf8("X,Y,Z,'@note\n"
                                              "'=1+1\n"
                                              "0.000,0.000,0.000,'=cmd|' /C calc'!A0\n"
                                              "-1.000,-1.000,-1.000,a;'-b,'+c\n"
                                              "-2.000,-2.000,-2.000, \"'=x\"\n"
                                              "-3.000,-3.000,-3.000, '@SUM(A1)\n"
                                              "-4.000,-4.000,-4.000,'\t1\n"
                                              "-5.000,-5.000,-5.000,plain-text=1\n"
                                              "-6.000,-6.000,-6.000,'＝1\n"
                                              "\n");
    const QString plain = QString::fromUtf8("X,Y,Z,@note\n"
                                            "=1+1\n"
                                            "0.000,0.000,0.000,=cmd|' /C calc'!A0\n"
                                            "-1.000,-1.000,-1.000,a;-b,+c\n"
                                            "-2.000,-2.000,-2.000, \"=x\"\n"
                                            "-3.000,-3.000,-3.000, @SUM(A1)\n"
                                            "-4.000,-4.000,-4.000,\t1\n"
                                            "-5.000,-5.000,-5.000,plain-text=1\n"
                                            "-6.000,-6.000,-6.000,＝1\n"
                                            "\n");
    const QString told = QStringLiteral("=1+1: 6 texts got an apostrophe (guardFormulas) (in @note)");
    QString blanks = guarded;
    blanks.replace(QStringLiteral(".000,"), QStringLiteral(".000 "))
        .replace(QLatin1String("X,Y,Z,"), QLatin1String("X Y Z "));
    QTest::addColumn<QString>("settings");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("finding");
    QString quoted = guarded;
    quoted.replace(QLatin1String("a;'-b,'+c"), QLatin1String("\"a;'-b,'+c\""))
        .replace(QLatin1String(" \"'=x\""), QLatin1String("\" \"\"'=x\"\"\""));
    QTest::newRow("on") << QStringLiteral("quoting=none;guardFormulas=true") << guarded << told;
    QTest::newRow("quoted") << QStringLiteral("guardFormulas=true") << quoted << told;
    QTest::newRow("blanks") << QStringLiteral("quoting=none;separator=blank;guardFormulas=true") << blanks << told;
    QTest::newRow("off") << QStringLiteral("quoting=none") << plain << QString();
}

void FormulaGuardTest::table()
{
    QFETCH(QString, settings);
    QFETCH(QString, file);
    QFETCH(QString, finding);
    const SaverRun run("ascii", {hostile()}, path("t.csv"), settings + QStringLiteral(";lineBreaks=true"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(QString::fromUtf8(contentOf(path("t.csv"))), file);
    QCOMPARE(run.report.findings.lines().filter(QStringLiteral("apostrophe")).join(QLatin1Char('\n')), finding);
}

QTEST_GUILESS_MAIN(FormulaGuardTest)
#include "tst_formulaguard.moc"
