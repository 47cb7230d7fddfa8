// SPDX-License-Identifier: MIT
// A written table is read again: what is right passes in every form, one wrong character does not.
#include "tests/support/SaverRun.h"
#include "tests/support/TextRows.h"

using namespace kpFormats;

class AsciiVerificationTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void columnsHoldTheirValues();
    void everyForm_data();
    void everyForm();
    void wrongCharacters_data();
    void wrongCharacters();

private:
    static ModelObject top();
};

ModelObject AsciiVerificationTest::top()
{
    ModelObject object = objectOf(QStringLiteral("Top"), ObjectType::VertexClouds, {6789012.3456, 2.5, 3},
                                  {-1, 0.0005, 1e7}, {10, none, -12.5});
    const QVector<QVariant> rocks{QStringLiteral("a,b;c"), QVariant(QVariant::String), QStringLiteral("shale")};
    object.vertexAttributes = {columnOf(QStringLiteral("grade"), AttributeKind::Real, {0.25, QVariant(), 7}),
                               columnOf(QStringLiteral("rock"), AttributeKind::Text, rocks)};
    return object;
}

/// A column has room for the sign of a depth and for the digit that rounding adds.
void AsciiVerificationTest::columnsHoldTheirValues()
{
    const ModelObject cloud = objectOf(QStringLiteral("C"), ObjectType::VertexClouds, {1, 3}, {2, 4}, {5, 99.96});
    const SaverRun run("ascii", {cloud}, path("t.txt"),
                       "mode=columns;header=false;decimals=1;nullValue=-;zIsElevation=false");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(contentOf(path("t.txt")), QByteArray("1.0 2.0   -5.0\n3.0 4.0 -100.0\n"));
}

void AsciiVerificationTest::everyForm_data()
{
    textRows({"settings"}, {{"mode=columns"},
                            {"separator=tab"},
                            {"separator=comma"},
                            {"quoting=all;lineBreaks=true"},
                            {"quoting=none;separator=semicolon"},
                            {"separator=blank;lineBreaks=true"},
                            {"preset=surfer"},
                            {"header=false;preset=arcview"},
                            {"zIsElevation=false;mode=columns"},
                            {"writeNullValue=false"},
                            {"decimals=0"},
                            {"decimals=9;nullValue=-1"}});
}

void AsciiVerificationTest::everyForm()
{
    QFETCH(QString, settings);
    const SaverRun run("ascii", {top()}, path("t.csv"), settings);
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.rows(), qint64(3));
    QCOMPARE(run.readBack.front().positions(), qint64(3));
    const int decimals = run.values.get(QStringLiteral("decimals")).toInt();
    QVERIFY(run.readBack.front().worst().difference <= 0.5 * std::pow(10.0, -decimals) + 1e-9);
}

void AsciiVerificationTest::wrongCharacters_data()
{
    textRows(
        {"right", "wrong", "fault"},
        {{"6789012.346", "6789012.347", "Top, row 1, x: 6789012.347 was read instead of 6789012.3456"},
         {"-12.500", "12.500", "Top, row 3, z: 12.5 was read instead of -12.5"},
         {"7.000", "7,000", "Top, row 3, grade: \"7,000\" was read instead of 7"},
         {"2.500\t0.001\t\t", "2.500\t0.001\t0.000\t", "Top, row 2, z: \"0.000\" was read instead of a missing value"},
         {"\t99999\t", "\t0.000\t", "Top, row 2, grade: \"0.000\" was read instead of a missing value"},
         {"3.000\t10000000.000\t-12.500\t7.000\tshale\n", "", "Top: it ends at row 2 of 3"},
         {"a,b;c", "a,b,c", "Top, row 1, rock: \"a,b,c\" was read instead of \"a,b;c\""},
         {"\t\t99999\t\n", "\t\t99999\tsand\n", "Top, row 2, rock: \"sand\" was read instead of a missing value"},
         {"grade", "ore", "file, header"},
         {"shale\n", "shale\n1\t2\t3\t4\tx\n", "there are more lines than vertices"}});
}

void AsciiVerificationTest::wrongCharacters()
{
    QFETCH(QString, right);
    QFETCH(QString, wrong);
    QFETCH(QString, fault);
    const SaverRun run("ascii", {top()}, path("t.csv"), "separator=tab");
    QCOMPARE(run.fault(), QString());
    const QString found = run.damaged(right.toUtf8(), wrong.toUtf8()).fault();
    QVERIFY2(found.contains(fault), qPrintable(found));
}

QTEST_GUILESS_MAIN(AsciiVerificationTest)
#include "tst_asciiverification.moc"
