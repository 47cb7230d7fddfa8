// SPDX-License-Identifier: MIT
// Tables of cell centres: whole texts, damages, what is refused, real grids.
#include "tests/support/SaverRun.h"

using namespace kpFormats;

class CellCentersTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { emptyFolder(); }
    void texts();
    void damages();
    void leanedPillars();
    void realGrid();
    void refused();
};

namespace
{

/// Two cells side by side and two below; one is inactive, one has no porosity.
ModelObject awkward()
{
    CellGrid cells = cellsOf(2, 1, 2);
    cells.active = {1, 1, 0, 1};
    cells.cellAttributes = {
        columnOf(QStringLiteral("PORO"), AttributeKind::Real, {0.25, QVariant(), 1e-9, 0.1}),
        columnOf(QStringLiteral("X"), AttributeKind::Integer, {1, 2, QVariant(), -4}),
        columnOf(QStringLiteral("Дол, \"a\" "), AttributeKind::Real, {1, 2.5, 3, 4}),
        columnOf(QStringLiteral("rock"), AttributeKind::Text, QVector<QVariant>(4, QStringLiteral("a")))};
    cells.cellAttributes[0].unit = QStringLiteral("v/v");
    ModelObject box = boxOf(cells);
    box.crs = wktOf(QStringLiteral("EPSG:28350"));
    return box;
}

} // namespace

void CellCentersTest::texts()
{
    SaverRun run("cellcenters", {awkward()}, path("box"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.files[0].path, path("box.csv"));
    QCOMPARE(QString::fromUtf8(run.bytes()), QStringLiteral("i,j,k,active,x,y,z,PORO,X_2,\"Дол, \"\"a\"\"\"\n"
                                                            "1,1,1,1,5.0000,5.0000,-1002.5000,0.25,1,1\n"
                                                            "2,1,1,1,15.0000,5.0000,-1002.5000,,2,2.5\n"
                                                            "1,1,2,0,5.0000,5.0000,-1007.5000,1e-09,,3\n"
                                                            "2,1,2,1,15.0000,5.0000,-1007.5000,0.1,-4,4\n"));
    QCOMPARE(run.findings(), QStringLiteral("attribute that is not a number left out: 1, renamed: 2, "
                                            "coordinate system not carried: 1"));
    QVERIFY(run.again("remarks=true;zIsElevation=false;inactiveCells=false;lengthUnit=ft;decimals=1"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(QString::fromUtf8(run.bytes()), QStringLiteral("# cell centres of box\n"
                                                            "# x and y in ft, depth in ft, positive down\n"
                                                            "# coordinate system: GDA94 / MGA zone 50 (EPSG:28350)\n"
                                                            "# PORO in v/v\n"
                                                            "i,j,k,x,y,depth,PORO,X_2,\"Дол, \"\"a\"\"\"\n"
                                                            "1,1,1,16.4,16.4,3289.0,0.25,1,1\n"
                                                            "2,1,1,49.2,16.4,3289.0,,2,2.5\n"
                                                            "2,1,2,49.2,16.4,3305.4,0.1,-4,4\n"));
    QCOMPARE(run.countOf(QStringLiteral("inactive cells left out")), 1);
    QCOMPARE(run.countOf(QStringLiteral("coordinate system not carried")), 0);
}

void CellCentersTest::damages()
{
    SaverRun run("cellcenters", {awkward()}, path("box.csv"));
    for (const auto& [right, wrong] :
         std::vector<std::pair<const char*, const char*>>{{"2,1,1,1,15.0000", "2,1,1,1,15.0002"},
                                                          {"5.0000,-1002.5000,0.25", "5.0000,1002.5000,0.25"},
                                                          {"2,1,2,1,15", "2,2,2,1,15"},
                                                          {"1,1,2,0,", "1,1,2,1,"},
                                                          {"1e-09", "2e-09"},
                                                          {",,2,2.5", ",0,2,2.5"},
                                                          {"1e-09,,3", "1e-09,3,"},
                                                          {"PORO", "PORV"},
                                                          {"1,1,2,0,5.0000,5.0000,-1007.5000,1e-09,,3\n", ""}}) {
        QVERIFY(run.again());
        QVERIFY2(!run.damaged(right, wrong).fault().isEmpty(), right);
    }
}

void CellCentersTest::leanedPillars()
{
    // A pillar that leans to the east by as much as it goes down: so does the centre.
    CellGrid cells = cellsOf(1, 1, 1);
    for (std::size_t pillar = 0; pillar < 4; ++pillar)
        cells.coord[6 * pillar + 3] += 5.0;
    cells.zcorn[0] = none;
    SaverRun run("cellcenters", {boxOf(cells)}, path("box.csv"));
    QVERIFY2(run.error().contains(QStringLiteral("has no cell to write")), qPrintable(run.error()));
    cells.zcorn[0] = 1001.0;
    const SaverRun leaned("cellcenters", {boxOf(cells)}, path("box.csv"));
    QCOMPARE(leaned.fault(), QString());
    QVERIFY(leaned.bytes().endsWith("1,1,1,1,7.6250,5.0000,-1002.6250,0.25\n"));
}

void CellCentersTest::realGrid()
{
    const std::vector<ModelObject> grids = loaded(sample("blocks.grdecl"));
    const SaverRun run("cellcenters", {grids.front()}, path("blocks.csv"));
    QCOMPARE(run.fault(), QString());
    QCOMPARE(run.rows(), qint64(grids.front().cells->zcorn.size() / 8));
    // Loaded again it is a cloud of as many points.
    QCOMPARE(qint64(loaded(run.files[0].path).front().vertexCount()), run.rows());
}

void CellCentersTest::refused()
{
    ModelObject empty = boxOf(cellsOf(1, 1, 1));
    empty.cells.reset();
    const SaverRun run("cellcenters", {empty}, path("box.csv"));
    QVERIFY2(run.error().contains(QStringLiteral("has no cells")), qPrintable(run.error()));
    QCOMPARE(listing(), QString());
}

QTEST_GUILESS_MAIN(CellCentersTest)
#include "tst_cellcenters.moc"
