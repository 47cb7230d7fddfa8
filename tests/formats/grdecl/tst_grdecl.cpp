// SPDX-License-Identifier: MIT
// GRDECL grids: whole text, names and lines, inactive and undefined cells, real grids read by another project's
// reader, failures.
#include "formats/grdecl/GrdeclRecord.h"
#include "tests/support/SaverRun.h"
#include "tests/support/TextRows.h"

#include <cmath>

using namespace kpFormats;

class GrdeclTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void wholeText();
    void names_data();
    void names();
    void units_data();
    void units();
    void localOrigin();
    void missingValues();
    void undefinedCorners();
    void realGrids_data();
    void realGrids();
    void severalGrids();
    void failures();
};

void GrdeclTest::wholeText()
{
    CellGrid cells = cellsOf(2, 1, 1);
    cells.active = {1, 0};
    cells.cellAttributes.push_back(columnOf(QStringLiteral("rock type code"), AttributeKind::Integer, {3, QVariant()}));
    cells.cellAttributes.push_back(columnOf(QStringLiteral("coord"), AttributeKind::Real, {1.0, -2.5e-7}));
    cells.cellAttributes.back().unit = QStringLiteral("mD");
    ModelObject box = boxOf(cells);
    box.name = QString::fromUtf8("Ярус ") + QString(200, QLatin1Char('x'));
    SaverRun run("grdecl", {box}, path("g"), "decimals=1");
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.files[0].path, path("g.grdecl"));
    const QByteArray text = run.bytes();
    QCOMPARE(text.mid(text.indexOf('\n') + 1),
             QByteArray(
                 "-- lengths in metres, depths positive down\n"
                 "\n"
                 "MAPUNITS\n 'METRES'\n/\n"
                 "\n"
                 "MAPAXES\n 0.0 1000.0\n 0.0 0.0\n 1000.0 0.0\n/\n"
                 "\n"
                 "GRIDUNIT\n 'METRES' 'MAP'\n/\n"
                 "\n"
                 "SPECGRID\n 2 1 1 1 F\n/\n"
                 "\n"
                 "COORD\n"
                 " 2*0.0 1000.0 2*0.0 1005.0 10.0 0.0 1000.0 10.0 0.0 1005.0 20.0 0.0 1000.0 20.0 0.0 1005.0 0.0 10.0\n"
                 " 1000.0 0.0 10.0 1005.0 2*10.0 1000.0 2*10.0 1005.0 20.0 10.0 1000.0 20.0 10.0 1005.0\n"
                 "/\n"
                 "\n"
                 "ZCORN\n 8*1000.0 8*1005.0\n/\n"
                 "\n"
                 "ACTNUM\n 1 0\n/\n"
                 "\n"
                 "PORO\n 2*0.25\n/\n"
                 "\n"
                 "ROCK_TYP\n 3 0\n/\n"
                 "\n"
                 "-- COORD2 in mD\n"
                 "COORD2\n 1.0 -2.5e-07\n/\n"
                 "\n"));
    for (const QByteArray& line : text.split('\n'))
        QVERIFY(line.size() <= 128);
    QCOMPARE(run.findings(), QStringLiteral("renamed: 2"));
    QCOMPARE(run.readBack[0].positions(), 12 + 16);
}

void GrdeclTest::names_data()
{
    textRows({"names", "keywords"}, {{"kept", "PORO|PERMX", "PORO|PERMX"},
                                     {"twice", "permeability x|permeability y|PERMEABI", "PERMEABI|PERMEAB2|PERMEAB3"},
                                     {"the format's own", "zcorn|SPECGRID|end", "ZCORN2|SPECGRI2|END2"},
                                     {"first character", "2nd|_x||ярус", "P2ND|PX|P|P___"}});
}

void GrdeclTest::names()
{
    QFETCH(QString, names);
    QFETCH(QString, keywords);
    GrdeclNames taken;
    QStringList given;
    for (const QString& name : names.split(QLatin1Char('|')))
        given.append(taken.take(name));
    QCOMPARE(given.join(QLatin1Char('|')), keywords);
}

void GrdeclTest::units_data()
{
    // The depth is 1000 in the model.
    textRows({"modelUnit", "lengthUnit", "gridUnit", "depth"}, {{"m", "model", "'METRES'", "1000.000"},
                                                                {"ft", "model", "'FEET'", "1000.000"},
                                                                {"km", "model", "'METRES'", "1000000.000"},
                                                                {"ftUS", "model", "'FEET'", "1000.002"},
                                                                {"ft", "m", "'METRES'", "304.800"},
                                                                {"m", "km", "", ""}});
}

void GrdeclTest::units()
{
    QFETCH(QString, modelUnit);
    QFETCH(QString, lengthUnit);
    QFETCH(QString, gridUnit);
    QFETCH(QString, depth);
    ModelObject box = boxOf(cellsOf(2, 2, 2));
    box.lengthUnit = modelUnit;
    const SaverRun run("grdecl", {box}, path("g.grdecl"), QStringLiteral("lengthUnit=") + lengthUnit);
    if (gridUnit.isEmpty()) {
        QVERIFY(run.error().contains(QStringLiteral("metres and feet only")));
        return;
    }
    QCOMPARE(run.fault(), QString());
    QVERIFY(run.readBack[0].worst().difference < 0.002);
    QVERIFY(run.bytes().contains("GRIDUNIT\n " + gridUnit.toUtf8() + " 'MAP'"));
    QVERIFY(run.bytes().contains("ZCORN\n 16*" + depth.toUtf8()));
    QCOMPARE(run.countOf(QStringLiteral("length unit changed")),
             modelUnit == QLatin1String("km") || modelUnit == QLatin1String("ftUS"));
}

void GrdeclTest::localOrigin()
{
    SaverRun run("grdecl", loaded(sample("blocks.grdecl")), path("g.grdecl"), "origin=local;decimals=0");
    QCOMPARE(run.fault(), QString());
    QVERIFY(run.bytes().contains("MAPAXES\n 526211 7487835\n 526211 7486835\n 527211 7486835\n/"));
    QVERIFY(run.bytes().contains("GRIDUNIT\n 'METRES'\n/"));
    // Half a metre at most, though both the origin and the positions are rounded.
    QVERIFY2(run.readBack[0].worst().difference <= 0.5,
             qPrintable(QString::number(run.readBack[0].worst().difference)));
}

void GrdeclTest::missingValues()
{
    CellGrid cells = cellsOf(3, 1, 1);
    cells.active = {1, 1, 0};
    cells.cellAttributes = {columnOf(QStringLiteral("NTG"), AttributeKind::Real, {0.5, QVariant(), QVariant()}),
                            columnOf(QStringLiteral("FACIES"), AttributeKind::Text,
                                     {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")})};
    SaverRun run("grdecl", {boxOf(cells)}, path("g.grdecl"), "nullValue=-1");
    QCOMPARE(run.fault(), QString());
    QVERIFY(run.bytes().contains("NTG\n 0.5 2*-1.0\n/"));
    // The inactive cell's is not a loss.
    QCOMPARE(
        run.findings(),
        QStringLiteral("attribute that is not a number left out: 1, missing value of an active cell written as -1: 1"));
    run.selection.attributes = QStringList{QStringLiteral("SWAT")};
    QVERIFY(run.again());
    QVERIFY(!run.bytes().contains("NTG"));
    QCOMPARE(run.countOf(QStringLiteral("missing attribute")), 1);
}

void GrdeclTest::undefinedCorners()
{
    CellGrid cells = cellsOf(2, 1, 2);
    cells.zcorn.back() = NAN; // of the last cell
    cells.active = {1, 1, 1, 0};
    SaverRun run("grdecl", {boxOf(cells)}, path("g.grdecl"));
    QCOMPARE(run.findings(), QStringLiteral("corner of an inactive cell without a depth written as 0: 1"));
    cells.active = {1, 1, 0, 1};
    SaverRun active("grdecl", {boxOf(cells)}, path("g.grdecl"));
    QVERIFY2(
        active.error().contains(QStringLiteral("cell 4 of the grid box is active and has a corner without a depth")),
        qPrintable(active.error()));
}

void GrdeclTest::realGrids_data()
{
    textRows({"source", "cells", "properties"},
             {{"examples/sample/blocks.grdecl", "192", "PORO PERMX"},
              {"../shared/data/eclipse/simpleb8.grdecl", "24", "PORO PERMX PERMY PERMZ"},
              {"../shared/data/eclipse/emerald.grdecl", "48", ""},
              {"../shared/data/eclipse/b.grdecl", "2400", ""},
              {"../shared/data/eclipse/SPE9.GRDECL", "9000", ""}});
}

void GrdeclTest::realGrids()
{
    QFETCH(QString, source);
    QFETCH(QString, cells);
    QFETCH(QString, properties);
    source.prepend(QStringLiteral(KP_SOURCE_DIR "/"));
    if (!QFileInfo::exists(source))
        QSKIP("the data is not here");
    const SaverRun run("grdecl", loaded(source), path("g.grdecl"));
    QCOMPARE(run.fault(), QString());
    QVERIFY(run.readBack[0].positions() > 8 * cells.toLongLong());
    QVERIFY(run.readBack[0].worst().difference < 1e-3);

    // Debian's own interpreter, for which the package is made.
    QProcess other;
    other.start(
        QStringLiteral("/usr/bin/python3"),
        QStringList{QStringLiteral(KP_SOURCE_DIR "/tests/formats/grdecl/compare_grdecl.py"), run.files[0].path, source}
            + properties.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    if (!other.waitForStarted())
        QSKIP("python3 is not here");
    QVERIFY(other.waitForFinished(120000));
    if (other.exitCode() == 2)
        QSKIP("python3-opm-common is not installed");
    QVERIFY2(other.exitCode() == 0, other.readAllStandardError().constData());
    QVERIFY(other.readAllStandardOutput().contains("cells " + cells.toUtf8() + ", active "));
}

void GrdeclTest::severalGrids()
{
    const ModelObject hollow = objectOf(QStringLiteral("hollow"), ObjectType::GeoCellularVolumes, {0}, {0}, {0});
    const SaverRun run("grdecl", {boxOf(cellsOf(1, 1, 1)), boxOf(cellsOf(2, 1, 1)), hollow}, path("g.grdecl"));
    QVERIFY(!run.written);
    QCOMPARE(run.files.size(), std::size_t(3));
    QCOMPARE(QFileInfo(run.files[1].path).fileName(), QStringLiteral("g_box_2.grdecl"));
    QCOMPARE(run.verify(1).values(), 2);
    QVERIFY(run.error(2).contains(QStringLiteral("has no cells")));
}

void GrdeclTest::failures()
{
    CellGrid cells = cellsOf(2, 2, 2);
    cells.zcorn.pop_back();
    const SaverRun run("grdecl", {boxOf(cells)}, path("g.grdecl"));
    QVERIFY2(run.error().contains(QStringLiteral("are not as many as its size asks for")), qPrintable(run.error()));
    cells.columns = 0;
    const SaverRun empty("grdecl", {boxOf(cells)}, path("g.grdecl"));
    QVERIFY2(empty.error().contains(QStringLiteral("the grid has no cells")), qPrintable(empty.error()));
}

QTEST_GUILESS_MAIN(GrdeclTest)
#include "tst_grdecl.moc"
