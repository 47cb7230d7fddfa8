// SPDX-License-Identifier: MIT
#include "app/savers/KmlDocumentWriter.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using refhost::KmlDocumentWriter;

class KmlDocumentTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wholeDocument()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a.kml"));
        KmlDocumentWriter writer(path);
        writer.altitudeMode = KmlDocumentWriter::AltitudeMode::Absolute;
        QVERIFY(writer.fileOpen());
        writer.beginFolder(QString::fromUtf8("Разломы & ]]> \"a\"\x01"));
        writer.placeLines(QStringLiteral("L<1>"), QString(), QColor(1, 2, 3), {{{115.5, -22.25, 10}, {116, -23, -5.5}}});
        writer.placePolygons(QStringLiteral("P"), QStringLiteral("d"), QColor(255, 0, 0),
                             {{{{0, 0, 0}, {4, 0, 0}, {4, 4, 0}}, {{{1, 1, 0}, {2, 1, 0}, {2, 2, 0}, {1, 1, 0}}}}});
        writer.endFolder();
        writer.fileClose();
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(file.readAll()),
                 QString::fromUtf8(
                     "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<kml xmlns=\"http://earth.google.com/kml/2.1\">\n<Document>\n"
                     "<Folder>\n<name>Разломы &amp; ]]&gt; &quot;a&quot;</name>\n"
                     "<Placemark>\n<name>L&lt;1&gt;</name>\n"
                     "<Style><LineStyle><color>ff030201</color><width>2</width></LineStyle></Style>\n"
                     "<LineString><altitudeMode>absolute</altitudeMode><coordinates>\n115.50000000,-22.25000000,10.000\n"
                     "116.00000000,-23.00000000,-5.500\n</coordinates></LineString>\n</Placemark>\n"
                     "<Placemark>\n<name>P</name>\n<description>d</description>\n"
                     "<Style><LineStyle><color>ff0000ff</color><width>1</width></LineStyle>"
                     "<PolyStyle><color>af0000ff</color></PolyStyle></Style>\n"
                     "<Polygon><altitudeMode>absolute</altitudeMode><outerBoundaryIs><LinearRing><coordinates>\n"
                     "0.00000000,0.00000000,0.000\n4.00000000,0.00000000,0.000\n4.00000000,4.00000000,0.000\n"
                     "0.00000000,0.00000000,0.000\n</coordinates></LinearRing></outerBoundaryIs>"
                     "<innerBoundaryIs><LinearRing><coordinates>\n1.00000000,1.00000000,0.000\n2.00000000,1.00000000,0.000\n"
                     "2.00000000,2.00000000,0.000\n1.00000000,1.00000000,0.000\n</coordinates></LinearRing></innerBoundaryIs>"
                     "</Polygon>\n</Placemark>\n</Folder>\n</Document>\n</kml>\n"));
    }
};

QTEST_GUILESS_MAIN(KmlDocumentTest)
#include "tst_kmldocument.moc"
