// SPDX-License-Identifier: MIT
// The ASCII writer: whole outputs compared with literals, and numbers compared with Qt's own.
#include "core/GeoObject.h"
#include "host/data/DoubleMatrixData.h"
#include "host/data/VariantMatrixData.h"
#include "tests/support/CancelAt.h"
#include "tests/support/FileContent.h"
#include "writers/MatrixDataAsciiExporter.h"

#include <QColor>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>

using kpBase::DoubleMatrixData;
using kpBase::MatrixData;
using kpBase::VariantMatrixData;
using namespace kpBaseExport;

using Writer = MatrixDataAsciiExporter;
using Field = MatrixDataExporter::FieldInfo;

namespace
{

/// A column of doubles, as one block or value by value. NaN stands for a missing value.
MatrixData* column(const char* name, const std::vector<double>& values, bool block)
{
    const QString title = QString::fromUtf8(name);
    auto missing = std::make_shared<std::vector<unsigned char>>();
    QVector<QVariant> list;
    for (const double value : values) {
        missing->push_back(std::isnan(value) ? 1 : 0);
        list.append(std::isnan(value) ? QVariant(QVariant::Double) : QVariant(value));
    }
    if (!block)
        return new VariantMatrixData(title, MatrixData::Double, list);
    // What lies below a missing value is no number of the file, though it looks like one.
    std::vector<double> raw = values;
    std::replace_if(
        raw.begin(), raw.end(), [](double value) { return std::isnan(value); }, 77.0);
    return new DoubleMatrixData(title, std::make_shared<const std::vector<double>>(std::move(raw)), missing);
}

/// Two vertices with attributes of every type.
void fill(GeoObject& record, bool block)
{
    record.name = "Top";
    record.vertexData() = {column("N", {0, 1}, block), column("X", {1000, 1010}, block),
                           column("Y", {2000, 2000}, block), column("Z", {-150, -152.5}, block)};
    const QString text = QString::fromUtf8("Ürün 岩石");
    record.vertexAttributeData() = {
        column("Porosity", {0.125, 0.13}, block),
        column("Gap", {std::nan(""), 7}, block),
        new VariantMatrixData(QStringLiteral("Count"), MatrixData::Int, {QVariant(QVariant::Int), 12}),
        new VariantMatrixData(QStringLiteral("Rock Type"), MatrixData::String, {QString(), text}),
        new VariantMatrixData(QStringLiteral("Colour"), MatrixData::Color, {QColor(255, 0, 16), QVariant()}),
        new VariantMatrixData(QStringLiteral("Flag"), QVariant::Bool, {true, false}),
    };
}

Field field(const char* name, int precision, int start = 0, int end = 0)
{
    return {QString::fromUtf8(name), precision, start, end};
}

/// A writer of the record that fill() makes.
struct FilledWriter : Writer
{
    explicit FilledWriter(std::vector<Field> chosen, bool block = true)
    {
        fields = std::move(chosen);
        fill(*geoObject(), block);
    }
};

struct Case
{
    std::vector<Field> fields;
    QByteArray expected;
    std::function<void(Writer&)> setUp;
};

} // namespace

Q_DECLARE_METATYPE(Case)

class AsciiTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void output_data()
    {
        QTest::addColumn<Case>("row");
        const auto row = [](
                             const char* name, std::vector<Field> fields, const char* expected,
                             std::function<void(Writer&)> setUp = [](Writer&) {}) {
            QTest::newRow(name) << Case{std::move(fields), expected, std::move(setUp)};
        };
        row("with the object's name", {field("x", 2), field("y", 2), field("z", 1), field("Porosity", 3)},
            "X;Y;Z;Porosity\nTop\n1000.00;2000.00;-150.0;0.125\n1010.00;2000.00;-152.5;0.130\n\n",
            [](Writer& writer) { writer.insertLineBreaks = true; });
        row("fixed columns", {field("x", 1, 1, 10), field("y", 1, 11, 20)},
            "         X         Y\n    1000.0    2000.0\n    1010.0    2000.0\n");
        row("fixed columns: start 0, gap, too long, overlap",
            {field("x", 1, 0, 10), field("Porosity", 3, 13, 16), field("y", 0, 16, 21), field("Rock Type", 0, 22, 25)},
            "          X Por*     YRoc*\n     1000.0 0.1*  2000    \n     1010.0 0.1*  2000Ürü*\n");
        row("depth, every type, missing values as they are",
            {field("z", 1), field("Z", 1), field("Gap", 1), field("Count", 1), field("Flag", 1), field("Rock Type", 0),
             field("Colour", 0), field("none", 2)},
            "Z;Z;Gap;Count;Flag;Rock Type;Colour;none\n150.0;;0.0;0;;;#ff0010;\n152.5;;7.0;12;;Ürün 岩石;;\n",
            [](Writer& writer) { writer.zIsElevation = false; });
        const auto quoting = [](Writer::Quoting which) {
            return [which](Writer& writer) {
                writer.quoting = which;
                qDeleteAll(writer.geoObject()->vertexAttributeData());
                writer.geoObject()->vertexAttributeData() = {
                    new VariantMatrixData(QStringLiteral("a;\"b\""), MatrixData::String,
                                          {QStringLiteral("x;y"), QStringLiteral("in\nch \"")})};
            };
        };
        const Field hard = field("a;\"b\"", 0);
        row("quotes: none", {field("x", 0), hard}, "X;a;\"b\"\n1000;x;y\n1010;in\nch \"\n",
            quoting(Writer::Quoting::None));
        row("quotes: needed", {field("x", 0), hard}, "X;\"a;\"\"b\"\"\"\n1000;\"x;y\"\n1010;\"in\nch \"\"\"\n",
            quoting(Writer::Quoting::Needed));
        row("quotes: all", {field("x", 0), hard}, "\"X\";\"a;\"\"b\"\"\"\n1000;\"x;y\"\n1010;\"in\nch \"\"\"\n",
            quoting(Writer::Quoting::All));
        row("missing values as the null value",
            {field("Gap", 1), field("Count", 1), field("Rock Type", 0), field("none", 2)},
            "Gap;Count;Rock Type;none\n99999;99999;;99999\n7.0;12;Ürün 岩石;99999\n",
            [](Writer& writer) { writer.writeNullValue = true; });
        row("fixed columns, null value cut", {field("Gap", 1, 1, 5)}, "  Gap\n-999*\n  7.0\n", [](Writer& writer) {
            writer.writeNullValue = true;
            writer.nullValue = QStringLiteral("-99999.99");
        });
        row("fixed columns: a field that ends before it starts takes none",
            {field("x", 0, 1, 6), field("Porosity", 2, 9, 5), field("y", 0, 7, 11)},
            "     X      Y\n  1000   2000\n  1010   2000\n");
        row("fixed columns: no half characters", {field("Rare", 0, 1, 3)}, "Ra*\n a*\n   \n", [](Writer& writer) {
            const QString gothic = QString::fromUtf8("a\U00010348b");
            qDeleteAll(writer.geoObject()->vertexAttributeData());
            writer.geoObject()->vertexAttributeData() = {
                new VariantMatrixData(QStringLiteral("Rare"), MatrixData::String, {gothic + gothic, QString()})};
        });
        row("no layout of that number", {field("x", 1)}, "\n",
            [](Writer& writer) { writer.mode = static_cast<Writer::Mode>(7); });
        const std::vector<Field> presetFields{field("x", 0), field("y", 0), field("z", 0), field("Rock Type", 0)};
        row("Surfer XYZ", presetFields, "Xdata Ydata Z1data,Rock-Type\n1000,2000,-150,\n1010,2000,-153,Ürün 岩石\n");
        row("GS+ XYZ", presetFields, "m east, m north,, Rock Type\n1000\t2000\t-150\t\n1010\t2000\t-153\tÜrün 岩石\n");
        row("ArcView XYZ", presetFields,
            "X data,Y data,Z1 data;\"Rock Type\"\n1000,2000,-150,\n1010,2000,-153,Ürün 岩石\n");
        row("surfer xyz", presetFields, "X;Y;Z;Rock Type\n1000;2000;-150;\n1010;2000;-153;Ürün 岩石\n");
    }

    /// The name of the row is the name of the preset, which most are not.
    void output()
    {
        QFETCH(Case, row);
        for (const bool block : {false, true}) {
            FilledWriter writer(row.fields, block);
            writer.fileName = path("out.txt");
            writer.separator = 3;
            writer.mode = row.fields[0].end > 0 ? Writer::ColumnBased : Writer::FieldBased;
            row.setUp(writer);
            QVERIFY(writer.fileOpen());
            writer.writeCustomHeader(writer.geoObject(), QString::fromUtf8(QTest::currentDataTag()));
            writer.writeGeo(writer.geoObject());
            writer.fileClose();
            QCOMPARE(contentOf(path("out.txt")), row.expected);
        }
    }

    void rowsOfNumbers()
    {
        // Rows that are composed in one piece and rows that are not follow each other in the order of the object.
        std::vector<double> first;
        std::vector<double> second;
        for (int row = 0; row < 50000; ++row) {
            first.push_back(row % 7 == 3 ? std::nan("") : row * 1.25 - 1000);
            second.push_back(row % 11 == 5 ? 1e300 : -row / 3.0);
        }
        QByteArray texts[2];
        for (const bool block : {true, false}) {
            Writer writer;
            writer.separator = 4;
            writer.customSeparator = QStringLiteral(" :: ");
            writer.writeNullValue = true;
            writer.nullValue = QString(100, QLatin1Char('9')); // longer than any number's room
            writer.insertLineBreaks = true;
            writer.zIsElevation = false;
            writer.fields = {field("x", 2), field("z", 6), field("x", 0)};
            writer.geoObject()->name = "Object";
            writer.geoObject()->vertexData() = {column("X", second, block), column("X", first, block),
                                                column("Y", second, block), column("Z", second, block)};
            writer.write(path("rows.txt"));
            texts[block ? 0 : 1] = contentOf(path("rows.txt"));
        }
        QVERIFY(texts[0] == texts[1]);
        QVERIFY(texts[0].contains("\nObject\n-1000.00 :: 0.000000 :: -1000\n"));
        QVERIFY(texts[0].endsWith("\n\n"));
        QCOMPARE(texts[0].count('\n'), 50003);
    }

    void headerIsWrittenOnce()
    {
        FilledWriter writer({field("x", 0)});
        writer.fileName = path("once.txt");
        QVERIFY(writer.fileOpen());
        writer.write();
        writer.geoObject()->clearData();
        fill(*writer.geoObject(), false);
        writer.write();
        writer.fileClose();
        QCOMPARE(contentOf(path("once.txt")), QByteArray("X\n1000\n1010\n1000\n1010\n"));
    }

    void separators()
    {
        const char* const lines[] = {"X Y\n", "X\tY\n", "X,Y\n", "X;Y\n", "X | Y\n", "XY\n"};
        for (int code = 0; code < 6; ++code) {
            FilledWriter writer({field("x", 0), field("y", 0)});
            writer.separator = code;
            writer.customSeparator = QStringLiteral(" | ");
            writer.write(path("separator.txt"));
            QVERIFY2(contentOf(path("separator.txt")).startsWith(lines[code]), lines[code]);
        }
    }

    void recordsAreChecked()
    {
        Writer writer;
        writer.fields = {field("x", 0)};
        QVERIFY_EXCEPTION_THROWN(writer.write(), std::logic_error); // no file name
        writer.fileName = path("checked.txt");
        QVERIFY_EXCEPTION_THROWN(writer.write(), std::logic_error); // not open
        QVERIFY(writer.fileOpen());
        QVERIFY_EXCEPTION_THROWN(writer.writeGeo(writer.geoObject()), std::logic_error); // no vertices
        // A record with fewer matrices than the fields ask for has no source for them.
        writer.geoObject()->vertexData() = {column("N", {1, 2}, true)};
        writer.write();
        writer.fileClose();
        QCOMPARE(contentOf(path("checked.txt")), QByteArray("x\n\n\n"));
        QVERIFY_EXCEPTION_THROWN(writer.write(m_folder.path()), std::logic_error); // a directory
    }

    void failedWrites()
    {
        if (!QFile::exists(QStringLiteral("/dev/full")))
            QSKIP("no /dev/full here");
        FilledWriter writer({field("x", 3)});
        writer.write(QStringLiteral("/dev/full"));
        QVERIFY(writer.writeFailed());
        writer.throwOnWriteFailure = true;
        QVERIFY_EXCEPTION_THROWN(writer.write(QStringLiteral("/dev/full")), std::runtime_error);
        writer.write(path("good.txt"));
        QVERIFY(!writer.writeFailed());
    }

    void pathNames()
    {
        const QString name = path("Грифон.txt");
        FilledWriter writer({field("x", 0)});
        writer.write(name);
        QVERIFY(!QFile::exists(name));
        QVERIFY(QFile::exists(path("??????.txt")));
        writer.useTruePath = true;
        writer.headerPending = true;
        writer.write(name);
        QCOMPARE(contentOf(name), QByteArray("X\n1000\n1010\n"));
    }

    void cancel()
    {
        CancelAt progress(50);
        Writer writer(path("cancel.txt"), &progress);
        writer.reportRows = true;
        writer.fields = {field("x", 0)};
        const std::vector<double> values(100000, 1.0);
        writer.geoObject()->vertexData() = {column("N", values, true), column("X", values, true)};
        writer.write(path("cancel.txt"));
        QVERIFY(writer.cancelled());
        const int rows = contentOf(path("cancel.txt")).count('\n') - 1;
        QVERIFY2(rows >= 50000 && rows < 60000, qPrintable(QString::number(rows)));
        // A progress that has not been asked for is left alone.
        progress.asked = 0;
        writer.reportRows = false;
        writer.write(path("cancel.txt"));
        QVERIFY(!writer.cancelled());
        QCOMPARE(contentOf(path("cancel.txt")).count('\n'), 100000);
        QCOMPARE(progress.asked, 0);
    }

    void commaLocale()
    {
        struct Restore
        {
            std::locale before = std::locale();
            ~Restore() { std::locale::global(before); }
        } restore;
        // A host's locale of its own making, so that none needs to be installed.
        struct CommaNumbers : std::numpunct<char>
        {
            char do_decimal_point() const override { return ','; }
            char do_thousands_sep() const override { return '.'; }
            std::string do_grouping() const override { return "\3"; }
        };
        std::locale::global(std::locale(std::locale::classic(), new CommaNumbers));
        FilledWriter writer({field("x", 1), field("Count", 0)}, false);
        writer.separator = 3;
        writer.write(path("comma.txt"));
        QCOMPARE(contentOf(path("comma.txt")), QByteArray("X;Count\n1000.0;0\n1010.0;12\n"));
        // A saver of the host's that writes numbers to the stream itself.
        struct Saver : Writer
        {
            using Writer::stream;
        } saver;
        saver.fileName = path("comma.txt");
        QVERIFY(saver.fileOpen());
        saver.stream << 1.5 << ' ' << 1234567.25 << ' ' << 1234567;
        saver.fileClose();
        QCOMPARE(contentOf(path("comma.txt")), QByteArray("1.500000 1234567.250000 1234567"));
    }

private:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(AsciiTest)
#include "tst_ascii.moc"
