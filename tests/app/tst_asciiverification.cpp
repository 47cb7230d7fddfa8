// SPDX-License-Identifier: MIT
// A written table is read again: what is right passes in every form, one wrong character does not.
#include "app/jobs/ExportReport.h"
#include "app/savers/ascii/AsciiFormat.h"
#include "tests/app/TestObjects.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using namespace refhost;

class AsciiVerificationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyForm_data();
    void everyForm();
    void wrongCharacters_data();
    void wrongCharacters();

private:
    void write(AsciiFormat& format);
    QString path() const { return m_folder.filePath(QStringLiteral("t.csv")); }

    QTemporaryDir m_folder;
    ModelObject m_object;
    ExportSelection m_selection;
    PlannedFile m_file;
};

void AsciiVerificationTest::initTestCase()
{
    m_object = objectOf(QStringLiteral("Top"), ObjectType::VertexClouds, {6789012.3456, 2.5, 3}, {-1, 0.0005, 1e7}, {10, none, -12.5});
    m_object.vertexAttributes = {columnOf(QStringLiteral("grade"), AttributeKind::Real, {0.25, QVariant(), 7}),
                                 columnOf(QStringLiteral("rock"), AttributeKind::Text, {QStringLiteral("a,b;c"), QVariant(QVariant::String), QStringLiteral("shale")})};
    m_selection.objects = {&m_object};
    m_selection.path = path();
    m_file = {path(), {&m_object}};
}

void AsciiVerificationTest::write(AsciiFormat& format)
{
    ExportReport report;
    QCOMPARE(format.write(m_file, path(), m_selection, report, nullptr), qint64(3));
}

void AsciiVerificationTest::everyForm_data()
{
    QTest::addColumn<QStringList>("settings");
    for (const char* settings : {"mode=columns", "separator=tab", "separator=comma", "separator=blank lineBreaks=true", "preset=surfer",
                                 "header=false preset=arcview", "zIsElevation=false mode=columns", "writeNullValue=false", "decimals=0",
                                 "decimals=9 nullValue=-1"})
        QTest::newRow(settings) << QString::fromLatin1(settings).split(QLatin1Char(' '));
}

void AsciiVerificationTest::everyForm()
{
    QFETCH(QStringList, settings);
    AsciiFormat format;
    for (const QString& setting : settings)
        format.settings().set(setting.section(QLatin1Char('='), 0, 0), setting.section(QLatin1Char('='), 1));
    write(format);
    const Verification found = format.verify(m_file, path(), m_selection);
    QCOMPARE(found.fault, QString());
    QCOMPARE(found.count, qint64(3));
    QVERIFY(found.worstError <= 0.5 * std::pow(10.0, -format.current().decimals) + 1e-9);
}

void AsciiVerificationTest::wrongCharacters_data()
{
    QTest::addColumn<QByteArray>("right");
    QTest::addColumn<QByteArray>("wrong");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char* right, const char* wrong, const char* fault) {
        QTest::newRow(wrong) << QByteArray(right) << QByteArray(wrong) << QString::fromLatin1(fault);
    };
    row("6789012.346", "6789012.347", "row 1 of Top has \"6789012.347\" for x, which is 6789012.3456");
    row("-12.500", "12.500", "row 3 of Top has \"12.500\" for z, which is -12.5");
    row("7.000", "7,000", "row 3 of Top has");
    row("2.500\t0.001\t99999", "2.500\t0.001\t0.000", "row 2 of Top has \"0.000\" for z");
    row("99999\t99999\t", "99999\t0.000\t", "row 2 of Top has \"0.000\" for grade");
    row("3.000\t10000000.000\t-12.500\t7.000\tshale\n", "", "Top ends at row 2 of 3");
    row("shale\n", "shale\n1\t2\t3\t4\tx\n", "there are more lines than vertices");
}

void AsciiVerificationTest::wrongCharacters()
{
    QFETCH(QByteArray, right);
    QFETCH(QByteArray, wrong);
    QFETCH(QString, fault);
    AsciiFormat format;
    format.settings().set(QStringLiteral("separator"), QStringLiteral("tab"));
    write(format);
    QFile file(path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QByteArray text = file.readAll();
    QVERIFY2(text.count(right) == 1, text.constData());
    text.replace(right, wrong);
    QVERIFY(file.resize(0) && file.seek(0));
    file.write(text);
    file.close();
    const Verification found = format.verify(m_file, path(), m_selection);
    QVERIFY2(found.fault.contains(fault), qPrintable(found.fault));
}

QTEST_GUILESS_MAIN(AsciiVerificationTest)
#include "tst_asciiverification.moc"
