// SPDX-License-Identifier: MIT
// DXF, KML and OpenTecLink: whole files compared with literals.
#include "core/GeoObject.h"
#include "host/data/DoubleMatrixData.h"
#include "host/data/VariantMatrixData.h"
#include "host/data/kpProductInfo.h"
#include "tests/support/CancelAt.h"
#include "tests/support/FileContent.h"
#include "writers/MatrixDataDXFExporter.h"
#include "writers/MatrixDataKMLExporter.h"
#include "writers/MatrixDataOpenTecLinkExporter.h"

#include <QtTest>

#include <memory>

using kpBase::DoubleMatrixData;
using namespace kpBaseExport;

namespace
{

DoubleMatrixData::Values numbers(std::vector<double> values)
{
    return std::make_shared<const std::vector<double>>(std::move(values));
}

/// A matrix of that many rows.
kpBase::MatrixData* rowsOf(int rows)
{
    return new DoubleMatrixData(QStringLiteral("A"), numbers(std::vector<double>(static_cast<std::size_t>(rows))));
}

/// A segment of a section through variants, x, y and z one after the other.
kpBase::MatrixData* segment(const char* name, const QVector<QVariant>& values)
{
    return new kpBase::VariantMatrixData(QString::fromLatin1(name), kpBase::MatrixData::Double, values, 3);
}

/// Why a writer does not take a record with these numbers of rows.
template <typename Writer>
QByteArray refusal(const std::vector<int>& vertexRows, int attributeRows)
{
    Writer writer;
    for (const int rows : vertexRows)
        writer.geoObject()->vertexData().push_back(rowsOf(rows));
    writer.geoObject()->vertexAttributeData().push_back(rowsOf(attributeRows));
    try {
        writer.writeGeo(writer.geoObject());
    } catch (const std::logic_error& error) {
        return error.what();
    }
    return "written";
}

} // namespace

class FramesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_path = m_folder.filePath(QStringLiteral("out"));
        QCoreApplication::setApplicationVersion(QStringLiteral("1.2"));
    }

    void dxfFrame()
    {
        kpProductInfo::instance().set_product_name("Modeller 7");
        MatrixDataDXFExporter writer(m_path);
        QVERIFY(writer.fileOpen());
        writer.geoObject()->vertexData().push_back(rowsOf(2));
        writer.geoObject()->vertexAttributeData().push_back(rowsOf(3));
        QVERIFY_EXCEPTION_THROWN(writer.writeGeo(writer.geoObject()), std::logic_error);
        writer.fileClose();
        QCOMPARE(contentOf(m_path),
                 QByteArray("  0\nSECTION\n\t2\nHEADER\n\t999\nfilename created by Modeller 7\n\t0\nENDSEC\n"
                            "\t0\nSECTION\n\t2\nTABLES\n\t0\nENDSEC\n\t0\nSECTION\n\t2\nBLOCKS\n\t0\nENDSEC\n"
                            "\t0\nSECTION\n\t2\nENTITIES\n\t0\nENDSEC\n\t0\nEOF\n"));
    }

    void recordIsChecked()
    {
        const QByteArray none = "No Vertex Data to be exported";
        const QByteArray differ = "Vertex data cannot be exported, wrong number of rows";
        QCOMPARE(refusal<MatrixDataDXFExporter>({}, 0), none);
        QCOMPARE(refusal<MatrixDataKMLExporter>({}, 0), none);
        QCOMPARE(refusal<MatrixDataDXFExporter>({1}, 2), differ);
        QCOMPARE(refusal<MatrixDataKMLExporter>({1}, 2), differ);
        QCOMPARE(refusal<MatrixDataDXFExporter>({2}, 2), QByteArray("written"));
        QCOMPARE(refusal<MatrixDataKMLExporter>({2}, 2), QByteArray("written"));
    }

    void kmlDocument()
    {
        MatrixDataKMLExporter writer(m_path);
        QVERIFY(writer.fileOpen());
        writer.writeName(QString::fromUtf8("Карта"));
        writer.beginFolder(QStringLiteral("Faults"));
        writer.writePolyLine({{55.95, -3.19}, {55.96, -3.18}}, QStringLiteral("F1"), QColor(1, 2, 3));
        writer.writePolygon({}, QStringLiteral("]]>"), QColor());
        writer.writeSectionTrace({{1.0, 2.0}}, QStringLiteral("S"));
        writer.endFolder();
        writer.writeBoundingArea({10.0, 20.0}, {11.0, 22.0});
        writer.writeWell({1.5, -2.25}, QStringLiteral("W"));
        writer.writeHorizontalImage(4, 3, 2, 1, -0.5, QStringLiteral("a&b.png"), QStringLiteral("I"));
        writer.writePointImage({0, 0}, QStringLiteral("P"), QStringLiteral("p.png"), QSize(640, 480));
        writer.fileClose();

        const QByteArray head =
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<kml xmlns=\"http://earth.google.com/kml/2.1\">\n"
            "<Document><atom:author><![CDATA[1.2]]></atom:author><Style id=\"transBluePoly\"><LineStyle>"
            "<width>1.5</width></LineStyle><PolyStyle><color>7dff0000</color></PolyStyle></Style>\n"
            "<Style id=\"sectionTrace\"><LineStyle><width>5</width><color>aa0000ff</color></LineStyle></Style>\n"
            "<Style id=\"well\"><IconStyle><color>ffffff00</color><scale>1.0</scale><Icon><href>";
        const QByteArray text = contentOf(m_path);
        QVERIFY2(text.startsWith(head), text.constData());
        const int iconEnd = text.indexOf("/mapfiles/kml/pal4/icon25.png</href></Icon></IconStyle></Style>\n");
        QVERIFY(iconEnd > head.size());
        const QByteArray body =
            "<name><![CDATA[Карта]]></name>\n<Folder>\n<name><![CDATA[Faults]]></name>\n"
            "<Style id=\"LSI1\"><LineStyle><width>2</width><color>aa030201</color></LineStyle></Style>\n"
            "<Placemark><name><![CDATA[F1]]></name><styleUrl>#LSI1</styleUrl>\n"
            "<LineString><altitudeMode>clampToGround</altitudeMode><coordinates>\n"
            "-3.190000,55.950000\n-3.180000,55.960000\n</coordinates></LineString></Placemark>\n"
            "<Style id=\"PSI2\"><PolyStyle><color>afffffff</color><fill>1</fill></PolyStyle></Style>\n"
            "<Placemark><name><![CDATA[]]>]]></name><styleUrl>#PSI2</styleUrl>\n"
            "<Polygon><altitudeMode>clampToGround</altitudeMode><outerBoundaryIs><LinearRing><coordinates>\n"
            "</coordinates></LinearRing></outerBoundaryIs></Polygon></Placemark>\n"
            "<Placemark><name><![CDATA[S]]></name><styleUrl>#sectionTrace</styleUrl>\n"
            "<LineString><altitudeMode>clampToGround</altitudeMode><coordinates>\n2.000000,1.000000\n"
            "</coordinates></LineString></Placemark>\n</Folder>\n"
            "<Placemark><name>bb</name><styleUrl>#transBluePoly</styleUrl>\n"
            "<Polygon><altitudeMode>clampToGround</altitudeMode><outerBoundaryIs><LinearRing><coordinates>\n"
            "20.000000,10.000000\n22.000000,10.000000\n22.000000,11.000000\n20.000000,11.000000\n"
            "20.000000,10.000000\n</coordinates></LinearRing></outerBoundaryIs></Polygon></Placemark>\n"
            "<Placemark><name><![CDATA[W]]></name>\n<Point><coordinates>\n-2.250000,1.500000\n"
            "</coordinates></Point></Placemark>\n"
            "<GroundOverlay><name><![CDATA[I]]></name>\n<Icon><href>a&b.png</href></Icon>\n<LatLonBox>\n"
            "<north>4.000000</north>\n<south>3.000000</south>\n<east>2.000000</east>\n<west>1.000000</west>\n"
            "<rotation>-0.500000</rotation>\n</LatLonBox></GroundOverlay>\n"
            "<Placemark><name><![CDATA[P]]></name>\n"
            "<description><![CDATA[<img src=\"p.png\" width=640 height=480 />]]></description>\n"
            "<Point><coordinates>\n0.000000,0.000000\n</coordinates></Point></Placemark>\n"
            "</Document>\n</kml>\n";
        QCOMPARE(text.mid(text.indexOf('\n', iconEnd) + 1), body);
    }

    void openTecLink()
    {
        MatrixDataOpenTecLinkExporter writer;
        using Columns = std::vector<DoubleMatrixData::Column>;
        const Columns trace{{numbers({1000, 1500}), nullptr}, {numbers({2000, 2000}), nullptr}};
        writer.sectionPositions = new DoubleMatrixData(QStringLiteral("Trace"), trace);
        // What lies below a missing value is no number.
        const auto missing = std::make_shared<const std::vector<unsigned char>>(std::vector<unsigned char>{0, 1});
        const Columns points{{numbers({0, 500}), nullptr}, {numbers({0, 77}), missing}, {numbers({-150, 0}), nullptr}};
        auto* horizon = new DoubleMatrixData(QStringLiteral("H1"), points);
        horizon->setColor(QStringLiteral("#ff0000"));
        horizon->setGeoType(QStringLiteral("Horizon"));
        // The same through variants, and a segment without points.
        writer.geoObject()->sectionData() = {horizon, segment("V", {1.0, 2.0, 0.125}), segment("E", {})};
        writer.write(m_path);
        QCOMPARE(contentOf(m_path),
                 QByteArray("version 1.0\n\nunit_z_depth meter\nunit_xy_section_position meter\n\nxy_section_position\n"
                            "xy 1000.00 2000.00 \nxy 1500.00 2000.00 \nxy_section_position-end\n\n"
                            "open_tec_link_section SectionDummy\n\nsection_age 0.00\n\n"
                            "segment\nname H1\ncolor_rgb #ff0000\ntype Horizon\npoints\n"
                            "xyz 0.00 0.00 150.00\nxyz 500.00 0.00 -0.00\npoints-end\nsegment-end\n\n"
                            "segment\nname V\ncolor_rgb \ntype \npoints\nxyz 1.00 2.00 -0.12\npoints-end\n"
                            "segment-end\n\nsegment\nname E\ncolor_rgb \ntype \npoints\npoints-end\nsegment-end\n\n"
                            "open_tec_link_section-end\n\n"));
    }

    void kmlObeysTheStream()
    {
        struct Saver : MatrixDataKMLExporter
        {
            using MatrixDataKMLExporter::stream;
        } writer;
        writer.fileName = m_path;
        QVERIFY(writer.fileOpen());
        writer.stream.precision(9);
        writer.writeWell({1.5, -2.25}, QStringLiteral("W"));
        writer.stream.precision(1);
        writer.writeHorizontalImage(4, 3, 2, 1, -0.5, QString(), QString());
        writer.fileClose();
        const QByteArray text = contentOf(m_path);
        QVERIFY2(text.contains("\n-2.250000000,1.500000000\n"), text.constData());
        QVERIFY2(text.contains("<rotation>-0.5</rotation>"), text.constData());
    }

    void openTecLinkCancel()
    {
        // A cancelled file is whole, and each record begins at 0 again.
        CancelAt progress(50);
        MatrixDataOpenTecLinkExporter writer(m_path, &progress);
        writer.geoObject()->sectionData() = {segment("L", QVector<QVariant>(3 * 20000, 1.0)), nullptr,
                                             segment("E", {1.0, 2.0, 3.0})};
        writer.write(m_path);
        QVERIFY(!writer.cancelled() && progress.asked == 0);
        writer.reportRows = true;
        writer.write(m_path);
        QVERIFY(writer.cancelled());
        QCOMPARE(progress.reached, 61);
        const QByteArray text = contentOf(m_path);
        QVERIFY(text.endsWith("xyz 1.00 1.00 -1.00\npoints-end\nsegment-end\n\nopen_tec_link_section-end\n\n"));
        QCOMPARE(text.count("\nsegment\n"), 1);
        progress.reached = -1;
        writer.write(m_path);
        QCOMPARE(progress.reached, 61);
        // The trace belongs to the writer and can be changed through it.
        writer.sectionPositions = rowsOf(1);
        kpBase::MatrixData* const trace = writer.sectionPositions;
        trace->valueType = kpBase::MatrixData::Int;
    }

    void openTecLinkPrecision()
    {
        MatrixDataOpenTecLinkExporter writer;
        writer.precision = 0;
        writer.sectionAge = 65.6;
        writer.sectionName = QString::fromUtf8("断面");
        writer.sectionPositions = new DoubleMatrixData(QStringLiteral("Trace"), numbers({}));
        writer.geoObject()->sectionData().push_back(segment("H", {1.4, 2.6, 1e20}));
        writer.write(m_path);
        QCOMPARE(contentOf(m_path),
                 QByteArray("version 1.0\n\nunit_z_depth meter\nunit_xy_section_position meter\n\n"
                            "open_tec_link_section 断面\n\nsection_age 66\n\n"
                            "segment\nname H\ncolor_rgb \ntype \npoints\nxyz 1 3 -100000000000000000000\n"
                            "points-end\nsegment-end\n\nopen_tec_link_section-end\n\n"));
    }

private:
    QTemporaryDir m_folder;
    QString m_path;
};

QTEST_GUILESS_MAIN(FramesTest)
#include "tst_frames.moc"
