// SPDX-License-Identifier: MIT
// Tables of text as people have them: what parts their columns, what their columns hold, what is missing in them.
#include "geo/CoordinateSystems.h"
#include "readers/LoadError.h"
#include "readers/ModelLoader.h"
#include "tests/support/FileContent.h"

#include <QTemporaryDir>
#include <QTextCodec>
#include <QtTest>

#include <cmath>

using namespace kpFormats;

namespace
{

/// A value as "text:007", "-" for a missing one.
QString shown(const AttributeColumn& column, int row)
{
    static const char* const kinds[] = {"real:", "int:", "text:", "bool:", "color:"};
    const QString kind = QLatin1String(kinds[static_cast<int>(column.kind)]);
    if (column.kind != AttributeKind::Real)
        return column.values[row].isNull() ? QStringLiteral("-") : kind + column.values[row].toString();
    const auto index = static_cast<std::size_t>(row);
    return column.missing && (*column.missing)[index] ? QStringLiteral("-")
                                                      : kind + QString::number((*column.numbers)[index], 'g', 17);
}

} // namespace

class TablesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shapes_data();
    void shapes();
    void types_data();
    void types();
    void missingHeights();
    void degrees();
    void encodings_data();
    void encodings();
    void modelFileKeys();

private:
    QString path(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }

    QTemporaryDir m_folder;
};

void TablesTest::shapes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("expected"); // x y z of the last point, columns
    QTest::addColumn<int>("notes");
    const auto row = [](const char* title, const char* name, const QByteArray& text, const char* expected, int notes) {
        QTest::newRow(title) << QString::fromLatin1(name) << text << QString::fromLatin1(expected) << notes;
    };
    row("semicolons, decimal commas", "t.csv", "x;y;z;Au\n1,5;2,5;3,5;0,25\n4,5;5,5;6,5;0,75\n", "4.5 5.5 6.5 Au", 0);
    row("tabs", "t.txt", "X\tY\tnote\n1\t2\ta b\n3\t4\tc, d\n", "3 4 0 note", 0);
    row("blanks in columns", "t.dat", "   X      Y     Z\n  1.0    2.0   3.0\n 10.0   20.0  30.0  \n", "10 20 30", 0);
    row("no header", "t.txt", "461.5 593.25 10\n462.5 594.25 20\n", "462.5 594.25 20", 1);
    row("no header, a name first", "t.txt", "A-1,1,2,3\nA-2,4,5,6\n", "4 5 6 column 1", 1);
    row("remarks, names in the last one", "t.xyz", "# made by hand\n# X Y Z Cu\n1 2 3 4\n8 6 7 5\n", "8 6 7 Cu", 0);
    row("quotes", "t.csv", "x,y,\"a \"\"b\"\", c\"\n1,2,\"one\ntwo, \"\"three\"\"\"\n", "1 2 0 a \"b\", c", 0);
    row("a name twice", "t.csv", "x,y,Au,Au\n1,2,3,4\n", "1 2 0 Au Au_2", 1);
    row("rows of other lengths", "t.csv", "x,y,a\n1,2\n3,4,5,6\n", "3 4 0 a", 1);
    row("separator at the end", "t.csv", "x,y,a,\n1,2,5,\n", "1 2 0 a column 4", 0);
    row("no numbers in a row", "t.csv", "x,y\n1,2\nn/a,3\n", "1 2 0", 1);
    row("carriage returns alone", "t.csv", "x,y,Au\r1,2,3\r4,5,6\n", "4 5 0 Au", 0);
    row("points called otherwise", "t.points", "1.5 2.5 3.5\n4.5 5.5 6.5\n7.5 8.25 9.5\n", "7.5 8.25 9.5", 1);
}

void TablesTest::shapes()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, text);
    QFETCH(QString, expected);
    QFETCH(int, notes);
    Model model;
    const LoadNotes seen = loadInto(model, writeFile(m_folder.filePath(name), text));
    QCOMPARE(model.objects().size(), std::size_t(1));
    const ModelObject& cloud = model.objects().front();
    QStringList parts{QString::number(cloud.x->back()), QString::number(cloud.y->back()),
                      QString::number(cloud.z->back())};
    for (const AttributeColumn& column : cloud.vertexAttributes)
        parts.append(column.name);
    QCOMPARE(parts.join(QLatin1Char(' ')), expected);
    QVERIFY2(seen.size() == notes, qPrintable(seen.join(QLatin1Char('\n'))));
}

void TablesTest::types_data()
{
    QTest::addColumn<QByteArray>("cells");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* title, const char* cells, const char* expected) {
        QTest::newRow(title) << QByteArray(cells) << QString::fromLatin1(expected);
    };
    row("single letters", "T F Y N", "text:T text:F text:Y text:N");
    row("booleans", "true FALSE true", "bool:true bool:false bool:true");
    row("leading zeros", "007 12 05123456780000", "text:007 text:12 text:05123456780000");
    row("zero", "0 -1 0", "int:0 int:-1 int:0");
    row("nan among numbers", "1.5 nan -inf NA", "real:1.5 - - -");
    row("nan among whole numbers", "1 NaN 3", "int:1 - int:3");
    row("only nan", "nan nan", "text:nan text:nan");
    row("beyond 32 bits", "3000000000 1", "real:3000000000 real:1");
    row("beyond 2^53", "9007199254740993 9007199254740995", "text:9007199254740993 text:9007199254740995");
    row("exponents", "1e3 2.5E-3 1e999", "real:1000 real:0.0025000000000000001 -");
    row("dates", "2024-02-29 2024/03/01", "text:2024-02-29 text:2024-03-01");
    row("no dates", "2024-02-29 2023-02-29", "text:2024-02-29 text:2023-02-29");
    row("dates and times", "2024-02-29T13:45:10.5Z 2024-02-29T13:45",
        "text:2024-02-29T13:45:10.5Z text:2024-02-29T13:45");
    row("a word among numbers", "1.5 <0.01", "text:1.5 text:<0.01");
}

void TablesTest::types()
{
    QFETCH(QByteArray, cells);
    QFETCH(QString, expected);
    QByteArray text = "x,y,v\n";
    for (const QByteArray& cell : cells.split(' '))
        text += "1,2," + cell + '\n';
    text += "1,2,\n";
    Model model;
    loadInto(model, writeFile(path("types.csv"), text));
    const AttributeColumn& column = model.objects().front().vertexAttributes.front();
    QStringList found;
    for (int row = 0; row < model.objects().front().vertexCount(); ++row)
        found.append(shown(column, row));
    QCOMPARE(found.join(QLatin1Char(' ')), expected + QStringLiteral(" -"));
    const bool date = expected.startsWith(QLatin1String("text:2024-02-29 text:2024"));
    QCOMPARE(column.meaning == TextMeaning::Date, date);
    QCOMPARE(column.meaning == TextMeaning::DateTime, expected.contains(QLatin1Char('T'))
                                                          && expected.contains(QLatin1Char(':'))
                                                          && expected.contains(QStringLiteral("13:45")));
}

void TablesTest::missingHeights()
{
    Model model;
    const LoadNotes notes = loadInto(model, writeFile(path("z.csv"), "x,y,z\n1,2,3\n1,2,\n1,2,nan\n1,2,inf\n"));
    const ModelObject& cloud = model.objects().front();
    QVERIFY(cloud.hasZ);
    QCOMPARE(cloud.z->front(), 3.0);
    QVERIFY(std::all_of(cloud.z->begin() + 1, cloud.z->end(), [](double z) { return std::isnan(z); }));
    QVERIFY2(
        notes.value(0).contains(QStringLiteral("3 rows have no number for z and so no height; the first is line 3")),
        qPrintable(notes.join(QLatin1Char('\n'))));
    Model pins;
    LoadOptions options;
    options.type = ObjectType::Pins;
    loadInto(pins, path("z.csv"), options);
    QVERIFY(pins.objects()[0].hasZ && !pins.objects()[1].hasZ);
    Model flat;
    loadInto(flat, writeFile(path("flat.csv"), "x,y,z\n1,2,\n3,4,-\n"));
    QVERIFY(!flat.objects().front().hasZ && flat.objects().front().z->front() == 0.0);
}

void TablesTest::degrees()
{
    Model model;
    const LoadNotes notes = loadInto(model, writeFile(path("d.csv"), "lat,lon\n-23.5,117.25\n"));
    QVERIFY(crsName(model.objects().front().crs).contains(QStringLiteral("EPSG:4326")));
    QVERIFY(notes.value(0).contains(QStringLiteral("lon and lat are taken as degrees of EPSG:4326")));
    loadInto(model, writeFile(path("m.csv"), "lat,lon\n7400000,520000\n"));
    QVERIFY(model.objects().back().crs.isEmpty());
    LoadOptions options;
    options.crs = QStringLiteral("EPSG:4283");
    QVERIFY(loadInto(model, path("d.csv"), options).isEmpty());
    QVERIFY(crsName(model.objects().back().crs).contains(QStringLiteral("EPSG:4283")));
}

void TablesTest::encodings_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QString>("word");
    QTest::addColumn<QByteArray>("asked");
    QTest::addColumn<int>("notes");
    const QString cyrillic = QString::fromUtf8("Скважина Грифон песчаник");
    QTest::newRow("UTF-8") << QByteArray("UTF-8") << cyrillic << QByteArray() << 0;
    QTest::newRow("UTF-16") << QByteArray("UTF-16") << cyrillic << QByteArray() << 0;
    QTest::newRow("1251, told") << QByteArray("windows-1251") << cyrillic << QByteArray("windows-1251") << 0;
    QTest::newRow("1251, guessed") << QByteArray("windows-1251") << cyrillic << QByteArray() << 1;
    QTest::newRow("1252, guessed") << QByteArray("windows-1252") << QString::fromUtf8("Señorita Böhme über Kvæfjord")
                                   << QByteArray() << 1;
    QTest::newRow("866, told") << QByteArray("IBM866") << cyrillic << QByteArray("IBM866") << 0;
}

void TablesTest::encodings()
{
    QFETCH(QByteArray, codec);
    QFETCH(QString, word);
    QFETCH(QByteArray, asked);
    QFETCH(int, notes);
    const QString text = QStringLiteral("x,y,%1\n1,2,%1\n").arg(word);
    LoadOptions options;
    options.encoding = QString::fromLatin1(asked);
    Model model;
    const QString file = writeFile(path("e.csv"), QTextCodec::codecForName(codec)->fromUnicode(text));
    QCOMPARE(loadInto(model, file, options).size(), notes);
    const AttributeColumn& column = model.objects().front().vertexAttributes.front();
    QCOMPARE(column.name, word);
    QCOMPARE(column.values.front().toString(), word);
    // Never a character in another's place: what is not of the encoding is refused.
    options.encoding = codec == "UTF-8" ? QStringLiteral("UTF-16") : QStringLiteral("UTF-8");
    QVERIFY_EXCEPTION_THROWN(loadInto(model, file, options), LoadError);
}

void TablesTest::modelFileKeys()
{
    writeFile(path("k.csv"), "E,N,well,ok\n1,2,123,1\n3,4,45,0\n");
    const auto load = [this](const QByteArray& entry) {
        Model model;
        loadInto(model, writeFile(path("k.kpmodel"),
                                  R"({"version":1,"objects":[{"file":"k.csv","x":"E","y":"N",)" + entry + "}]}"));
        QStringList found;
        for (const AttributeColumn& column : model.objects().front().vertexAttributes)
            found.append(shown(column, 1));
        return found.join(QLatin1Char(' '));
    };
    QCOMPARE(load(R"("columnTypes":{"well":"text","OK":"boolean"})"), QStringLiteral("text:45 bool:false"));
    QCOMPARE(load(R"("columnTypes":{"well":"real"})"), QStringLiteral("real:45 int:0"));
    const auto refused = [&load](const QByteArray& entry) {
        try {
            return load(entry);
        } catch (const LoadError& error) {
            return QString::fromUtf8(error.what()).section(QStringLiteral(": "), 1);
        }
    };
    QVERIFY(
        refused(R"("columnTypes":{"well":"number"})").contains(QStringLiteral("gives well a type that is not known")));
    QVERIFY(refused(R"("columnTypes":{"hole":"text"})").contains(QStringLiteral("no column \"hole\" to give a type")));
    QVERIFY(refused(R"("columnTypes":{"ok":"date"})")
                .startsWith(QStringLiteral("line 2: \"1\" in column ok is not a date")));
    QVERIFY(refused(R"("encoding":"klingon")").contains(QStringLiteral("\"klingon\" is not an encoding")));
    QVERIFY(refused(R"("band":0)").contains(QStringLiteral("\"band\" is not the number of a band")));
}

QTEST_GUILESS_MAIN(TablesTest)
#include "tst_tables.moc"
