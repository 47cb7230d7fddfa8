// SPDX-License-Identifier: MIT
// Wells from collars, surveys and logs: which way dips count, what is missing, values along the hole.
#include "readers/LoadError.h"
#include "readers/ModelLoader.h"
#include "tests/support/FileContent.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using namespace kpFormats;

class WellsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dips_data();
    void dips();
    void collarWithoutHeight();
    void lengthUnits();
    void intervals();
    void overlaps();
    void las();
    void rmsWell();
    void rmsRefused_data();
    void rmsRefused();

private:
    QString file(const char* name, const QByteArray& text) const
    {
        return writeFile(m_folder.filePath(QString::fromLatin1(name)), text);
    }

    QTemporaryDir m_folder;
};

void WellsTest::dips_data()
{
    QTest::addColumn<QByteArray>("survey");
    QTest::addColumn<QString>("dip");
    QTest::addColumn<QString>("expected"); // z at the end of 100 along the hole from 1000, or the message
    const auto row = [](const char* title, const char* survey, const char* dip, const char* expected) {
        QTest::newRow(title) << QByteArray(survey) << QString::fromLatin1(dip) << QString::fromLatin1(expected);
    };
    row("positive", "BHID,AT,AZ,DIP\nA,0,90,30\nA,100,90,30\n", "", "86.6 950");
    row("negative", "BHID,AT,AZ,DIP\nA,0,90,-30\nA,100,90,-30\n", "", "86.6 950");
    row("negative, told to be up", "BHID,AT,AZ,DIP\nA,0,90,-30\nA,100,90,-30\n", "up", "86.6 950");
    row("negative, told to be down", "BHID,AT,AZ,DIP\nA,0,90,-30\nA,100,90,-30\n", "down", "86.6 1050");
    row("both", "BHID,AT,AZ,DIP\nA,0,90,30\nA,100,90,-30\n", "",
        "1 dips are positive (line 2) and 1 negative (line 3), so that it cannot be told which of them go down");
    row("both, told", "BHID,AT,AZ,DIP\nA,0,90,30\nA,100,90,30\nB,0,0,-1\n", "down", "86.6 950");
    row("inclination", "BHID,MD,INC,AZI\nA,0,60,90\nA,100,60,90\n", "", "86.6 950");
    row("inclination of one hole", "MD;INCL;AZI\n0;60;90\n100;60;90\n", "", "86.6 950");
    row("neither", "BHID,MD,AZI\nA,0,60\n", "", "there is no column with the dip or inclination");
}

void WellsTest::dips()
{
    QFETCH(QByteArray, survey);
    QFETCH(QString, dip);
    QFETCH(QString, expected);
    LoadOptions options;
    options.survey = file("survey.csv", survey);
    options.dip = dip;
    Model model;
    QString found;
    try {
        loadInto(model, file("collar.csv", "BHID,X,Y,Z\nA,0,0,1000\n"), options);
        const ModelObject& well = model.objects().front();
        found = QStringLiteral("%1 %2").arg(well.x->back(), 0, 'f', 1).arg(well.z->back());
    } catch (const LoadError& error) {
        found = QString::fromUtf8(error.what());
    }
    QVERIFY2(found.contains(expected), qPrintable(found));
}

void WellsTest::collarWithoutHeight()
{
    LoadOptions options;
    options.survey = file("survey.csv", "BHID,AT,AZ,DIP\nA,0,0,0\nA,100,0,0\nB,0,0,0\nB,50,0,x\nB,100000000,0,0\n");
    Model model;
    const LoadNotes notes = loadInto(model, file("collar.csv", "BHID,X,Y,Z\nA,0,0,\nB,1,,5\nC,7,8,9\n"), options);
    QCOMPARE(model.objects().size(), std::size_t(2));
    QVERIFY(!model.objects()[0].hasZ && model.objects()[1].hasZ);
    QCOMPARE(model.objects()[0].y->back(), 100.0);
    const QString said = notes.join(QLatin1Char('\n'));
    for (const char* part :
         {"1 stations lack a number and were left out; the first is line 5", "1 stations deeper than",
          "1 holes have no survey", "1 rows have no numbers for x and y", "1 collars have no number for z"})
        QVERIFY2(said.contains(QLatin1String(part)), qPrintable(said));
}

void WellsTest::lengthUnits()
{
    // Depths and heights in feet, the map in metres: one unit in the model, and that is said.
    LoadOptions options;
    options.survey = file("survey.csv", "BHID,AT,AZ,DIP\nA,0,90,30\nA,100,90,30\n");
    options.crs = QStringLiteral("EPSG:28350");
    options.lengthUnit = QStringLiteral("ft");
    Model model;
    const LoadNotes notes = loadInto(model, file("collar.csv", "BHID,X,Y,Z\nA,500000,7000000,1000\n"), options);
    const ModelObject& well = model.objects().front();
    QCOMPARE(well.lengthUnit, QStringLiteral("m"));
    QVERIFY(std::abs(well.x->back() - 500000 - 86.60254 * 0.3048) < 1e-5);
    QVERIFY(std::abs(well.z->front() - 304.8) < 1e-9 && std::abs(well.z->back() - 950 * 0.3048) < 1e-9);
    QCOMPARE(well.vertexAttributes.front().unit, QStringLiteral("ft"));
    QVERIFY(notes.join(QString()).contains(
        QStringLiteral("ft is named as length unit, but the coordinate system counts in m")));
    // A system in US feet gives its unit where none is named.
    options.crs = QStringLiteral("EPSG:2263");
    options.lengthUnit.clear();
    Model feet;
    QVERIFY(loadInto(feet, file("collar.csv", "BHID,X,Y,Z\nA,980000,200000,30\n"), options).isEmpty());
    QCOMPARE(feet.objects().front().lengthUnit, QStringLiteral("ftUS"));
    QCOMPARE(feet.objects().front().z->front(), 30.0);
}

void WellsTest::intervals()
{
    LoadOptions options;
    options.survey = file("survey.csv", "BHID,AT,AZ,DIP\nA,0,0,90\nA,15,0,90\n");
    options.logs.append(file(
        "assay.csv", "BHID,FROM,TO,AU,ROCK\nA,0,10,1.5,till\nA,10,20,nan,\nA,25,30,3,ore\nZ,0,1,9,x\nA,9,9,1,y\n"));
    Model model;
    const LoadNotes notes = loadInto(model, file("collar.csv", "BHID,X,Y,Z\nA,0,0,100\n"), options);
    const ModelObject& well = model.objects().front();
    QCOMPARE(*well.vertexAttributes[0].numbers, (std::vector<double>{0, 10, 15, 20, 25, 30}));
    QCOMPARE(*well.z, (std::vector<double>{100, 90, 85, 80, 75, 70}));
    // A value holds from its vertex down; between intervals there is none.
    const AttributeColumn& gold = well.vertexAttributes[1];
    QCOMPARE(*gold.missing, (std::vector<unsigned char>{0, 1, 1, 1, 0, 0}));
    QCOMPARE(gold.numbers->at(0), 1.5);
    QCOMPARE(gold.numbers->at(5), 3.0);
    QCOMPARE(well.vertexAttributes[2].values[4].toString(), QStringLiteral("ore"));
    const QString said = notes.join(QLatin1Char('\n'));
    QVERIFY2(said.contains(QStringLiteral("1 holes of the logs have no collar and were left out; one is Z"))
                 && said.contains(QStringLiteral("1 intervals do not go down")),
             qPrintable(said));
}

void WellsTest::overlaps()
{
    // One within another, one that begins before the other ends, two of the same depths, a gap.
    LoadOptions options;
    options.survey = file("survey.csv", "BHID,AT,AZ,DIP\nA,0,0,90\n");
    options.logs.append(file("assay.csv", "BHID,FROM,TO,AU\nA,0,40,1.5\nA,10,20,2\nA,30,50,3\nA,60,70,4\n"
                                          "A,60,70,5\nB,0,5,6\nA,60,65,7\n"));
    Model model;
    const QString said =
        loadInto(model, file("collar.csv", "BHID,X,Y,Z\nA,0,0,100\n"), options).join(QLatin1Char('\n'));
    const ModelObject& well = model.objects().front();
    QCOMPARE(*well.vertexAttributes[0].numbers, (std::vector<double>{0, 10, 20, 30, 40, 50, 60, 65, 70}));
    QCOMPARE(*well.vertexAttributes[1].numbers, (std::vector<double>{1.5, 2, 1.5, 3, 3, 0, 7, 5, 5}));
    QCOMPARE(*well.vertexAttributes[1].missing, (std::vector<unsigned char>{0, 0, 0, 0, 0, 1, 0, 0, 0}));
    for (const char* part : {"4 intervals overlap one before them; where they do, the one that begins deepest counts; "
                             "the first is in hole A at 10",
                             "1 intervals lie wholly under others and were left out; the first is in hole A at 60",
                             "1 holes of the logs have no collar"})
        QVERIFY2(said.contains(QLatin1String(part)), qPrintable(said));
}

void WellsTest::las()
{
    LoadOptions options;
    options.logs.append(file("a.las", "~Version\nVERS. 2.0 : CWLS\nWRAP. NO : one line\n~Well\nNULL. -999.25 : null\n"
                                      "WELL. A : WELL\n~Curve\nDEPT.M : depth\nGR.GAPI 45 : gamma\n~A DEPT GR\n"
                                      "30 3\n20 -999.25\n10 1\n0 0\n"));
    options.survey = file("survey.csv", "BHID,AT,AZ,DIP\nA,0,0,90\nA,5,0,90\nA,15,0,90\n");
    Model model;
    loadInto(model, file("collar.csv", "BHID,X,Y,Z\nA,0,0,100\n"), options);
    const ModelObject& well = model.objects().front();
    QCOMPARE(*well.vertexAttributes[0].numbers, (std::vector<double>{0, 5, 10, 15, 20, 30}));
    const AttributeColumn& gamma = well.vertexAttributes[1];
    QCOMPARE(gamma.name, QStringLiteral("GR"));
    QCOMPARE(gamma.unit, QStringLiteral("GAPI"));
    QCOMPARE(*gamma.missing, (std::vector<unsigned char>{0, 0, 0, 1, 1, 0}));
    QCOMPARE(gamma.numbers->at(1), 0.5);
    const auto refused = [&](const QByteArray& text) {
        options.logs = QStringList{file("b.las", text)};
        try {
            Model ignored;
            loadInto(ignored, m_folder.filePath(QStringLiteral("collar.csv")), options);
            return QStringLiteral("it was read");
        } catch (const LoadError& error) {
            return QString::fromUtf8(error.what());
        }
    };
    QVERIFY(refused("hello\n").contains(QStringLiteral("line 1: a section")));
    QVERIFY(refused("~V\nVERS. 2.0:\n~C\nDEPT.M:\nA.:\n~A\n1 2\n3\n")
                .contains(QStringLiteral("line 8: the line has not a value for each")));
    QVERIFY(refused("~V\nVERS. 3.0:\n").contains(QStringLiteral("line 2: this is LAS 3.0")));
    QVERIFY(refused("~V\nVERS. 2.0:\n~C\nETIM.S:\nA.:\n~A\n1 2\n").contains(QStringLiteral("is not a depth")));
}

void WellsTest::rmsWell()
{
    // A name of two words, the second a number, with and without the height of the rotary table; missing values; codes.
    const auto text = [](const QByteArray& head) {
        return "1.0\nUndefined\n" + head
               + "\n3\nMD 1 lin\nFacies DISC 0 shale 1 sand\nPoro param CONT\n"
                 "500.5 600.25 -25 0 0 0.25\n501 601 75 100.5 1 -999\n502 602 85 110 7 0.5\n"
                 "503 603 95 120 -999 nan\n";
    };
    Model model;
    QVERIFY(loadInto(model, file("a.w", text("W 7 500.5 600.25 25"))).isEmpty());
    const LoadNotes notes = loadInto(model, file("b.txt", text("W 7 500 600")));
    const ModelObject& well = model.objects()[0];
    QVERIFY(well.type == ObjectType::Wells && well.name == QLatin1String("W 7"));
    QCOMPARE(model.objects()[1].name, QStringLiteral("W 7"));
    QCOMPARE(*well.z, (std::vector<double>{25, -75, -85, -95}));
    QCOMPARE(well.objectAttributes.front().value.toDouble(), 25.0);
    QVERIFY(model.objects()[1].objectAttributes.empty());
    QVERIFY2(notes.join(QString()).contains(
                 QStringLiteral("the heads of 1 wells are not where their paths begin and were left "
                                "out; the first is W 7 at 500.000 600.000")),
             qPrintable(notes.join(QString())));
    QStringList names;
    for (const AttributeColumn& column : well.vertexAttributes)
        names.append(column.name);
    QCOMPARE(names.join(QLatin1Char(' ')), QStringLiteral("MD Facies Facies_name Poro"));
    QCOMPARE(well.vertexAttributes[1].values, (QVector<QVariant>{0, 1, 7, QVariant()}));
    QCOMPARE(well.vertexAttributes[2].values,
             (QVector<QVariant>{QStringLiteral("shale"), QStringLiteral("sand"), QVariant(), QVariant()}));
    QCOMPARE(*well.vertexAttributes[3].missing, (std::vector<unsigned char>{0, 1, 0, 1}));
}

void WellsTest::rmsRefused_data()
{
    QTest::addColumn<QByteArray>("rows");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* rows, const char* message) {
        QTest::newRow(message) << QByteArray(rows) << QString::fromLatin1(message);
    };
    row("F DISC 0 a\n1 2 3 0\n1 2 3\n", "line 7: the row has fewer than 4 numbers");
    row("F DISC 0 a\n1 2 3 0\n1 2 3 0 5\n", "line 7: the row has more than 4 numbers");
    row("F DISC 0 a\n1 2 3 0\n1 2 3 0.5\n", "line 7: the discrete log F has the value \"0.5\"");
    row("F DISC 0 a\n1 2 3 0\n1.0\nU\nV 1 2\n0\n", "the file ends after line 10: the well has no row");
    row("F DISC 0 a\n1 2 3 0\n\n1.0\nUndefined\nV 1 2\n", "the file ends after line 10: the head");
    row("F DISC 0 a 1\n1 2 3 0\n", "line 5: the code \"1\" has no name");
    row("F DISC 0 a\n1 2 3 0\n1 x 3 0\n", "line 7: \"x\" is not a number");
}

void WellsTest::rmsRefused()
{
    QFETCH(QByteArray, rows);
    QFETCH(QString, message);
    try {
        Model model;
        loadInto(model, file("c.w", "1.0\nUndefined\nW 1 2\n1\n" + rows));
        QFAIL("it was read");
    } catch (const LoadError& error) {
        QVERIFY2(QString::fromUtf8(error.what()).contains(message), error.what());
    }
}

QTEST_GUILESS_MAIN(WellsTest)
#include "tst_wells.moc"
