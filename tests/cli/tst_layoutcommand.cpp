// SPDX-License-Identifier: MIT
// Saved layouts on the command line and in job files.
#include "tests/support/ProgramTest.h"

class LayoutCommandTest : public ProgramTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void layouts_data();
    void layouts();
    void wrong_data();
    void wrong();
    void jobAndStrict();
    void objectsThatDiffer();
    void hints();

private:
    Result exportWith(const QString& layout, const QString& more = QString())
    {
        QStringList arguments =
            QStringLiteral("export points.csv --format ascii --output out.txt --layout").split(QLatin1Char(' '));
        arguments.append(layout);
        return run(arguments + (more.isEmpty() ? QStringList() : more.split(QLatin1Char(' '))));
    }
};

namespace
{

QByteArray klf(const char* type, const char* fields, const char* settings = "{}")
{
    return QByteArray("{\"format\":\"kp-layout\",\"version\":1,\"type\":\"") + type + "\",\"settings\":" + settings
           + ",\n\"fields\":[\n" + fields + "\n]}\n";
}

void layoutColumns()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("layout");
    QTest::addColumn<QString>("more");
    QTest::addColumn<QString>("expected");
}

void layoutRow(const char* name, const char* file, const QByteArray& layout, const char* more, const char* expected)
{
    QTest::newRow(name) << QString::fromUtf8(file) << layout << QString::fromUtf8(more) << QString::fromUtf8(expected);
}

} // namespace

void LayoutCommandTest::init()
{
    emptyFolder();
    write("points.csv", "X,Y,Z,name,Ni:grade\n6789012.3456,100.5,-1,Грифон,1.25\n2,3,4,\"a, b\",\n");
}

void LayoutCommandTest::layouts_data()
{
    layoutColumns();
    const auto row = layoutRow;
    const QByteArray fields =
        klf("fields",
            "{\"name\":\"Ni:grade\",\"order\":0,\"precision\":1},\n{\"name\":\"X\",\"order\":1,\"precision\":0},"
            "\n{\"name\":\"name\",\"order\":-1}",
            "{\"separator\":\"semicolon\",\"nullValue\":\"-\"}");
    row("fields", "a.klf", fields, "", "Ni:grade;X;name\n1.3;6789012;Грифон\n-;2;a, b\n");
    row("settings given after the layout win", "a.klf", fields, "--set separator=tab --set header=false",
        "1.3\t6789012\tГрифон\n-\t2\ta, b\n");
    row("decimals given after the layout", "a.klf", fields, "--set decimals=2",
        "Ni:grade;X;name\n1.25;6789012.35;Грифон\n-;2.00;a, b\n");
    row("decimals widen columns", "a.klf",
        klf("columns", "{\"name\":\"X\",\"order\":0,\"start\":1,\"end\":9,\"precision\":1},\n"
                       "{\"name\":\"name\",\"order\":1,\"start\":11,\"end\":16}"),
        "--set decimals=3", "          X  name\n6789012.346Грифон\n      2.000  a, b\n");
    row("another way of laying out", "a.klf", klf("fields", "{\"name\":\"Z\"}"), "--set mode=columns",
        "          Z\n      -1.00\n       4.00\n");
    row("columns with a gap and a cut", "a.klf",
        klf("columns", "{\"name\":\"name\",\"order\":1,\"start\":12,\"end\":15},\n{\"name\":\"X\",\"order\":0,"
                       "\"start\":1,\"end\":9,\"precision\":1}"),
        "", "        X  name\n6789012.3  Гри*\n      2.0  a, b\n");
    row("columns that overlap are moved", "a.klf",
        klf("columns",
            "{\"name\":\"Y\",\"order\":0,\"start\":1,\"end\":6},\n{\"name\":\"Z\",\"order\":1,\"start\":3,\"end\":7}"),
        "", "     Y    Z\n100.50-1.00\n  3.00 4.00\n");
    row("a table", "t.fmt", "# comment\nZ double 2 5 1\n\"Ni:grade\" double 6 12 2\nY double 0 0 0\n",
        "--set writeNullValue=false", "    ZNi:gra*          Y\n -1.0   1.25        101\n  4.0   0.00          3\n");
    row("a table of another name", "t.txt", "Z double 0 0 1\n", "", "Z\n-1.0\n4.0\n");
}

void LayoutCommandTest::layouts()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, layout);
    QFETCH(QString, more);
    QFETCH(QString, expected);
    write(file, layout);
    const Result result = exportWith(file, more);
    QVERIFY2(result.code == 0, qPrintable(result.error));
    QCOMPARE(QString::fromUtf8(read("out.txt")), expected);
}

void LayoutCommandTest::wrong_data()
{
    layoutColumns();
    const auto row = [](const char* file, const QByteArray& layout, const char* more, const char* message) {
        layoutRow(message, file, layout, more, message);
    };
    row("a.klf", "{\n\n\"format\": }", "", "a.klf: line 3: ");
    row("a.klf", klf("fields", "{\"name\":\"X\"},\n{\"name\":\"Y\",\"width\":\"w\"}"), "",
        "a.klf: line 4: \"width\" is not a whole number");
    row("a.klf", klf("columns", "{\"name\":\"X\",\"start\":1,\"end\":2000000000}"), "",
        "a.klf: field \"X\": columns 1 to 2000000000");
    row("a.klf", klf("columns", "{\"name\":\"X\",\"precision\":-1}"), "", "a.klf: field \"X\": precision -1");
    row("a.klf", klf("fields", ""), "", "a.klf: the layout has no fields");
    row("a.klf", klf("fields", "{\"name\":\"X\"}", "{\"separator\":\"dash\"}"), "",
        "a.klf: \"settings\": separator: \"dash\"");
    row("a.fmt", "X double 1 2 3\nY double 4", "", "a.fmt: line 2: 3 entries");
    row("missing.klf", "", "", "the file cannot be opened");
    row("a.klf", klf("fields", "{\"name\":\"X\"}"), "--attribute name", "a layout names its attributes itself");
}

void LayoutCommandTest::wrong()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, layout);
    QFETCH(QString, more);
    QFETCH(QString, expected);
    if (!layout.isEmpty())
        write(file, layout);
    const Result result = exportWith(file, more);
    QCOMPARE(result.code, 2);
    QVERIFY2(result.error.startsWith(QLatin1String("kpexport: error: ")) && result.error.contains(expected),
             qPrintable(result.error));
    QVERIFY(!QFile::exists(m_folder->filePath(QStringLiteral("out.txt"))));
}

void LayoutCommandTest::jobAndStrict()
{
    write("a.klf",
          klf("fields", "{\"name\":\"X\",\"order\":0,\"precision\":0},\n{\"name\":\"gone\"},\n{\"name\":\"i\"}"));
    write("job.json", "{\"models\":[\"points.csv\"],\"format\":\"ascii\",\"output\":\"out.txt\",\"layout\":\"a.klf\","
                      "\"strict\":true}");
    const Result result = run({QStringLiteral("run"), QStringLiteral("job.json")});
    QCOMPARE(result.code, 5);
    QCOMPARE(read("out.txt"), QByteArray("X\n6789012\n2\n"));
    QVERIFY2(result.error.contains(QLatin1String("2 fields of the layout were left out")), qPrintable(result.error));
}

void LayoutCommandTest::objectsThatDiffer()
{
    // A file of its own for each object: all have the fields of the layout, also where an object lacks one.
    write(QStringLiteral("two.geojson"), "{\"type\":\"FeatureCollection\",\"crs\":{\"type\":\"name\",\"properties\":{"
                                         "\"name\":\"EPSG:28350\"}},\"features\":["
                                         "{\"type\":\"Feature\",\"properties\":{\"n\":1},\"geometry\":{\"type\":"
                                         "\"LineString\",\"coordinates\":[[0,1,5],[2,3,6]]}}]}");
    write(
        "a.klf",
        klf("fields", "{\"name\":\"name\",\"order\":2},\n{\"name\":\"n\",\"order\":1},\n{\"name\":\"Z\",\"order\":0}"));
    const Result result = exportWith(QStringLiteral("a.klf"), QStringLiteral("two.geojson --set grouping=object"));
    QVERIFY2(result.code == 0, qPrintable(result.error));
    QCOMPARE(QDir(m_folder->path()).entryList({QStringLiteral("out*")}),
             QStringList({QStringLiteral("out_points.txt"), QStringLiteral("out_two 1.txt")}));
    QCOMPARE(read("out_points.txt"), QByteArray("Z,n,name\n-1.00,99999,Грифон\n4.00,99999,\"a, b\"\n"));
    QCOMPARE(read("out_two 1.txt"), QByteArray("Z,n,name\n5.00,1,99999\n6.00,1,99999\n"));
}

void LayoutCommandTest::hints()
{
    write("a.klf", klf("columns",
                       "{\"name\":\"Ni:grade\",\"order\":0,\"start\":1,\"end\":9,\"precision\":2},\n"
                       "{\"name\":\"X\",\"order\":1,\"start\":11,\"end\":15,\"precision\":1}",
                       R"({"preset":"surfer"})"));
    const QString told = exportWith(QStringLiteral("a.klf"), QStringLiteral("--set nullValue=1.25")).error;
    for (const char* hint :
         {"a value of the data reads as the null value (1.25 in Ni:grade; choose another nullValue)",
          "a column is too narrow for its values, which are cut (X: \"6789012.3\" needs 9 columns, it has 5 and is "
          "cut.)",
          "the preset header is not that of the layout (The preset header speaks of X, Y, Z first; the layout begins "
          "otherwise.)"})
        QVERIFY2(told.contains(QLatin1String(hint)), qPrintable(told));
}

QTEST_MAIN(LayoutCommandTest)
#include "tst_layoutcommand.moc"
