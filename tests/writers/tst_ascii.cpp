// SPDX-License-Identifier: MIT
// The ASCII writer: whole outputs compared with literals, and numbers compared with Qt's own.
#include "core/GeoObject.h"
#include "host/data/AbstractProgress.h"
#include "host/data/DoubleMatrixData.h"
#include "host/data/VariantMatrixData.h"
#include "writers/FixedNumber.h"
#include "writers/MatrixDataAsciiExporter.h"

#include <QColor>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <random>

using kpBase::DoubleMatrixData;
using kpBase::MatrixData;
using kpBase::VariantMatrixData;
using namespace kpBaseExport;

using Writer = MatrixDataAsciiExporter;
using Field = MatrixDataExporter::FieldInfo;

namespace
{

QVector<QVariant> variants(const std::vector<double>& values)
{
    QVector<QVariant> list;
    for (const double value : values)
        list.append(value);
    return list;
}

/// A column of doubles, as one block or value by value. NaN stands for a missing value.
MatrixData* column(const char* name, const std::vector<double>& values, bool block)
{
    const QString title = QString::fromUtf8(name);
    auto missing = std::make_shared<std::vector<unsigned char>>();
    QVector<QVariant> list = variants(values);
    for (int row = 0; row < list.size(); ++row) {
        missing->push_back(std::isnan(values[static_cast<std::size_t>(row)]) ? 1 : 0);
        if (missing->back())
            list[row] = QVariant(QVariant::Double);
    }
    if (!block)
        return new VariantMatrixData(title, MatrixData::Double, list);
    return new DoubleMatrixData(title, std::make_shared<const std::vector<double>>(values), missing);
}

/// Two vertices with attributes of every type.
void fill(GeoObject& record, bool block)
{
    record.name = "Top";
    record.vertexData() = {column("N", {0, 1}, block), column("X", {1000, 1010}, block),
                           column("Y", {2000, 2000}, block), column("Z", {-150, -152.5}, block)};
    record.vertexAttributeData() = {
        column("Porosity", {0.125, 0.13}, block),
        column("Gap", {std::nan(""), 7}, block),
        new VariantMatrixData(QStringLiteral("Count"), MatrixData::Int, {QVariant(QVariant::Int), 12}),
        new VariantMatrixData(QStringLiteral("Rock Type"), MatrixData::String, {QString(), QString::fromUtf8("Ürün 岩石")}),
        new VariantMatrixData(QStringLiteral("Colour"), MatrixData::Color, {QColor(255, 0, 16), QVariant()}),
        new VariantMatrixData(QStringLiteral("Flag"), QVariant::Bool, {true, false}),
    };
}

Field field(const char* name, int precision, int start = 0, int end = 0)
{
    return {QString::fromUtf8(name), precision, start, end};
}

class CancelAfter : public kpBase::AbstractProgress
{
public:
    void progressStarted(bool) override {}
    void progressChanged(int percent) override { last = percent; }
    bool isCancelled() const override { return last >= 50; }
    void progressFinished() override {}

    int last = 0;
};

} // namespace

Q_DECLARE_METATYPE(std::function<void(Writer&)>)

class AsciiTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void output_data()
    {
        QTest::addColumn<std::function<void(Writer&)>>("setUp");
        QTest::addColumn<QString>("preset");
        QTest::addColumn<QByteArray>("expected");
        const auto row = [](const char* name, const std::function<void(Writer&)>& setUp, const char* preset,
                            const char* expected) {
            QTest::newRow(name) << setUp << QString::fromUtf8(preset) << QByteArray(expected);
        };
        row("separated, with the object's name",
            [](Writer& writer) {
                writer.separator = 2;
                writer.insertLineBreaks = true;
                writer.fields = {field("x", 2), field("y", 2), field("z", 1), field("Porosity", 3)};
            },
            "", "X,Y,Z,Porosity\nTop\n1000.00,2000.00,-150.0,0.125\n1010.00,2000.00,-152.5,0.130\n\n");
        row("fixed columns",
            [](Writer& writer) {
                writer.mode = Writer::ColumnBased;
                writer.fields = {field("x", 1, 1, 10), field("y", 1, 11, 20)};
            },
            "", "         X         Y\n    1000.0    2000.0\n    1010.0    2000.0\n");
        row("fixed columns: start 0, gap, too long, overlap",
            [](Writer& writer) {
                writer.mode = Writer::ColumnBased;
                writer.fields = {field("x", 1, 0, 10), field("Porosity", 3, 13, 16), field("y", 0, 16, 21),
                                 field("Rock Type", 0, 22, 25)};
            },
            "", "          X Por*     YRoc*\n     1000.0 0.1*  2000    \n     1010.0 0.1*  2000Ürü*\n");
        row("depth, every type, missing values as they are",
            [](Writer& writer) {
                writer.separator = 3;
                writer.zIsElevation = false;
                writer.fields = {field("z", 1),      field("Z", 1),         field("Gap", 1),  field("Count", 1),
                                 field("Flag", 1),   field("Rock Type", 0), field("Colour", 0), field("none", 2)};
            },
            "", "Z;Z;Gap;Count;Flag;Rock Type;Colour;none\n150.0;;0.0;0;;;#ff0010;\n152.5;;7.0;12;;Ürün 岩石;;\n");
        row("missing values as the null value",
            [](Writer& writer) {
                writer.separator = 1;
                writer.writeNullValue = true;
                writer.fields = {field("Gap", 1), field("Count", 1), field("Rock Type", 0), field("none", 2)};
            },
            "", "Gap\tCount\tRock Type\tnone\n99999\t99999\t\t99999\n7.0\t12\tÜrün 岩石\t99999\n");
        row("fixed columns, null value cut",
            [](Writer& writer) {
                writer.mode = Writer::ColumnBased;
                writer.writeNullValue = true;
                writer.nullValue = QStringLiteral("-99999.99");
                writer.fields = {field("Gap", 1, 1, 5)};
            },
            "", "  Gap\n-999*\n  7.0\n");
        row("no layout of that number",
            [](Writer& writer) {
                writer.mode = static_cast<Writer::Mode>(7);
                writer.fields = {field("x", 1)};
            },
            "", "\n");
        const auto presetFields = [](Writer& writer) {
            writer.separator = 3;
            writer.fields = {field("x", 0), field("y", 0), field("z", 0), field("Rock Type", 0)};
        };
        row("Surfer", presetFields, "Surfer XYZ",
            "Xdata Ydata Z1data,Rock-Type\n1000,2000,-150,\n1010,2000,-153,Ürün 岩石\n");
        row("GS+", presetFields, "GS+ XYZ",
            "m east, m north,, Rock Type\n1000\t2000\t-150\t\n1010\t2000\t-153\tÜrün 岩石\n");
        row("ArcView", presetFields, "ArcView XYZ",
            "X data,Y data,Z1 data;\"Rock Type\"\n1000,2000,-150,\n1010,2000,-153,Ürün 岩石\n");
        row("another preset name", presetFields, "surfer xyz", "X;Y;Z;Rock Type\n1000;2000;-150;\n1010;2000;-153;Ürün 岩石\n");
    }

    void output()
    {
        QFETCH(std::function<void(Writer&)>, setUp);
        QFETCH(QString, preset);
        QFETCH(QByteArray, expected);
        for (const bool block : {false, true}) {
            Writer writer(path("out.txt"));
            setUp(writer);
            fill(*writer.geoObject(), block);
            QVERIFY(writer.fileOpen());
            writer.writeCustomHeader(writer.geoObject(), preset);
            writer.writeGeo(writer.geoObject());
            writer.fileClose();
            QCOMPARE(read(path("out.txt")), expected);
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
            texts[block ? 0 : 1] = read(path("rows.txt"));
        }
        QCOMPARE(texts[0].left(90), texts[1].left(90));
        QVERIFY(texts[0] == texts[1]);
        QVERIFY(texts[0].startsWith("Object\n-1000.00 :: 0.000000 :: -1000\n") || texts[0].contains("\nObject\n-1000.00 :: 0.000000 :: -1000\n"));
        QVERIFY(texts[0].endsWith("\n\n"));
        QCOMPARE(texts[0].count('\n'), 50003);
    }

    void headerIsWrittenOnce()
    {
        Writer writer;
        writer.fields = {field("x", 0)};
        fill(*writer.geoObject(), true);
        writer.fileName = path("once.txt");
        QVERIFY(writer.fileOpen());
        writer.write();
        writer.geoObject()->clearData();
        fill(*writer.geoObject(), false);
        writer.write();
        writer.fileClose();
        QCOMPARE(read(path("once.txt")), QByteArray("X\n1000\n1010\n1000\n1010\n"));
    }

    void separators_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("blank") << 0 << QByteArray("X Y");
        QTest::newRow("tab") << 1 << QByteArray("X\tY");
        QTest::newRow("comma") << 2 << QByteArray("X,Y");
        QTest::newRow("semicolon") << 3 << QByteArray("X;Y");
        QTest::newRow("custom") << 4 << QByteArray("X | Y");
        QTest::newRow("unknown") << 5 << QByteArray("XY");
    }

    void separators()
    {
        QFETCH(int, code);
        QFETCH(QByteArray, line);
        Writer writer;
        writer.separator = code;
        writer.customSeparator = QStringLiteral(" | ");
        writer.fields = {field("x", 0), field("y", 0)};
        fill(*writer.geoObject(), true);
        writer.write(path("separator.txt"));
        QCOMPARE(read(path("separator.txt")).split('\n').first(), line);
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
        QCOMPARE(read(path("checked.txt")), QByteArray("x\n\n\n"));
        QVERIFY_EXCEPTION_THROWN(writer.write(m_folder.path()), std::logic_error); // a directory
    }

    void failedWrites()
    {
        if (!QFile::exists(QStringLiteral("/dev/full")))
            QSKIP("no /dev/full here");
        Writer writer;
        writer.fields = {field("x", 3)};
        fill(*writer.geoObject(), true);
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
        Writer writer;
        writer.fields = {field("x", 0)};
        fill(*writer.geoObject(), true);
        writer.write(name);
        QVERIFY(!QFile::exists(name));
        QVERIFY(QFile::exists(path("??????.txt")));
        writer.useTruePath = true;
        writer.headerPending = true;
        writer.write(name);
        QCOMPARE(read(name), QByteArray("X\n1000\n1010\n"));
    }

    void cancel()
    {
        CancelAfter progress;
        Writer writer(path("cancel.txt"), &progress);
        writer.fields = {field("x", 0)};
        const std::vector<double> values(100000, 1.0);
        writer.geoObject()->vertexData() = {column("N", values, true), column("X", values, true)};
        writer.write(path("cancel.txt"));
        QVERIFY(writer.cancelled());
        const int rows = read(path("cancel.txt")).count('\n') - 1;
        QVERIFY2(rows >= 50000 && rows < 60000, qPrintable(QString::number(rows)));
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
        Writer writer;
        writer.separator = 3;
        writer.fields = {field("x", 1), field("Count", 0)};
        fill(*writer.geoObject(), false);
        writer.write(path("comma.txt"));
        QCOMPARE(read(path("comma.txt")), QByteArray("X;Count\n1000.0;0\n1010.0;12\n"));
    }

    void numbersAsQt_data()
    {
        QTest::addColumn<double>("value");
        const double cases[] = {0.0, -0.0, 0.5, 1.5, 2.5, -2.5, 0.125, 0.375, 0.0625, -0.001, -0.0049, 0.995, 1e-300, 1e300,
                                1e15 + 0.5, 9007199254740993.0, 1.8446744073709552e19, 1.8446744073709550e19, 1e19, 1e18,
                                5e-324, 2.2250738585072014e-308, std::numeric_limits<double>::max(),
                                std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                                std::numeric_limits<double>::quiet_NaN(), 6789012.3455, 499999.9995, 0.9999999999999999};
        for (const double value : cases)
            QTest::newRow(qPrintable(QString::number(value, 'g', 17))) << value;
    }

    void numbersAsQt()
    {
        QFETCH(double, value);
        for (int precision = -2; precision <= 25; ++precision) {
            std::string text = "before ";
            appendFixed(text, value, precision);
            QCOMPARE(QString::fromStdString(text), QStringLiteral("before ") + QString::number(value, 'f', precision));
        }
    }

    void randomNumbersAsQt()
    {
        std::mt19937_64 random(20260);
        std::uniform_real_distribution<double> coordinate(-1e7, 1e7);
        std::string text;
        const auto differs = [&text](double value, int precision) {
            text.clear();
            appendFixed(text, value, precision);
            return text != QString::number(value, 'f', precision).toLatin1().constData();
        };
        for (int round = 0; round < 80000; ++round) {
            const std::uint64_t bits = random();
            double any = 0.0;
            memcpy(&any, &bits, sizeof any);
            // An exact tie: an odd number of halves of the last decimal's power of two.
            const double tie = static_cast<double>(static_cast<int>(random() % 2000001) - 1000000) / (1 << (random() % 12));
            const double usual = coordinate(random);
            for (const double value : {any, tie, usual, std::round(usual * 1000.0) / 1000.0}) {
                const int precision = static_cast<int>(random() % 19);
                if (differs(value, precision)) {
                    QFAIL(qPrintable(QStringLiteral("%1 with %2 decimals: %3")
                                         .arg(value, 0, 'g', 17)
                                         .arg(precision)
                                         .arg(QString::fromStdString(text))));
                }
            }
        }
    }

private:
    QByteArray read(const QString& path) const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("could not open");
    }

    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(AsciiTest)
#include "tst_ascii.moc"
