// SPDX-License-Identifier: MIT
// How many decimals a text format writes where none are chosen, and what it says of those that are too few.
#include "tests/support/SaverRun.h"
#include "tests/support/TextRows.h"

using namespace kpFormats;

namespace
{

/// Objects whose numbers ask for decimals: by name.
ModelObject sampleOf(const QString& name)
{
    if (name == QLatin1String("whole"))
        return objectOf(ObjectType::VertexClouds, name, {{500000, 7500000, 1.5}, {500100, 7500100, 2}}, "EPSG:28350");
    if (name == QLatin1String("degrees"))
        return objectOf(ObjectType::VertexClouds, name, {{117.123456789, -22.1, 650.25}, {117.2, -22.3, 651}});
    if (name == QLatin1String("close"))
        return objectOf(ObjectType::VertexClouds, name,
                        {{500000, 7500000, 1}, {500000.00004, 7500000, 1}, {500001, 7500000, 1}, {500001, 7500000, 1}},
                        "EPSG:28350");
    if (name == QLatin1String("no height"))
        return objectOf(ObjectType::VertexClouds, name, {{1, 2, none}, {3, 4, 5}}, "");
    if (name == QLatin1String("tiny surface"))
        return gridOf(name, 2, {1e-6, 2.5e-6, 3e-6, 4e-6}, 1000, 2000, 10);
    ModelObject assay = objectOf(ObjectType::VertexClouds, name, {{1, 2, 3}, {4, 5, 6}}, "");
    assay.vertexAttributes = {columnOf(QStringLiteral("Au"), AttributeKind::Real, {0.0004, 12.5})};
    return assay;
}

} // namespace

class DecimalsTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { emptyFolder(); }
    void written_data();
    void written();
};

void DecimalsTest::written_data()
{
    // settings, what must stand in the file, findings of rounding and of heights
    textRows(
        {"format", "sample", "settings", "holds", "findings"},
        {{"ordinary", "ascii", "whole", "", "500100.000,7500100.000,2.000", ""},
         {"degrees", "ascii", "degrees", "", "117.12345679,-22.10000000,650.250", ""},
         {
             "neighbours",
             "ascii",
             "close",
             "",
             "500000.00000,7500000.00000,1.000\n500000.00004,",
             "",
         },
         {"small values", "ascii", "assay", "", "3.000,0.0004\n", ""},
         {"in columns", "ascii", "assay", "mode=columns", "0.0004\n", ""},
         {"chosen", "ascii", "close", "decimals=0", "500000,7500000,1\n500000,7500000,1\n",
          "neighbouring positions written alike: 1"},
         {"chosen", "ascii", "assay", "decimals=2", "3.00,0.00\n", "number rounded to 0: 1"},
         {"blank height", "ascii", "no height", "", "1.000,2.000,\n", "vertex without z: 1"},
         {"blank height in columns", "ascii", "no height", "mode=columns", "1.000 2.000      \n",
          "vertex without z: 1"},
         {"between blanks", "ascii", "no height", "separator=blank", "1.000 2.000 99999\n", "vertex without z: 1"},
         {"null height", "ascii", "no height", "missingZ=null;nullValue=-1", "1.000,2.000,-1\n", "vertex without z: 1"},
         {"degrees", "gocad", "degrees", "", "117.12345679 -22.10000000 650.25000000", ""},
         {"neighbours", "gocad", "close", "", "500000.00004 ", ""},
         {"chosen", "gocad", "close", "decimals=2", "500000.00 7500000.00 1.00",
          "neighbouring positions written alike: 1"},
         {"tiny", "off", "tiny surface", "", "1010.00000000 2000.00000000 0.00000250", ""},
         {"tiny", "zmap", "tiny surface", "", " 0.0000025\n", ""},
         {"chosen", "zmap", "tiny surface", "decimals=5", "0.00000", "number rounded to 0: 4"}});
}

void DecimalsTest::written()
{
    QFETCH(QString, format);
    QFETCH(QString, sample);
    QFETCH(QString, settings);
    QFETCH(QString, holds);
    QFETCH(QString, findings);
    const SaverRun run(format, {sampleOf(sample)}, path("out.txt"), settings);
    QCOMPARE(run.fault(), QString());
    QVERIFY2(run.bytes().contains(holds.toUtf8()), run.bytes().constData());
    QCOMPARE(run.findings(), findings);
}

QTEST_GUILESS_MAIN(DecimalsTest)
#include "tst_decimals.moc"
