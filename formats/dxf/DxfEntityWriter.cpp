// SPDX-License-Identifier: MIT
#include "formats/dxf/DxfEntityWriter.h"

#include "writers/StreamNumber.h"

namespace kpFormats
{

namespace
{

// Heights are lengths also where x and y are degrees.
constexpr int mostHeightDecimals = 7;

} // namespace

DxfEntityWriter::DxfEntityWriter(const QString& file)
    : MatrixDataDXFExporter(file)
{
    setPen({"0", 7, 4, false});
}

void DxfEntityWriter::setPen(const Pen& pen)
{
    m_pen = pen;
    m_penGroups = "8\n" + pen.layer + "\n62\n" + std::to_string(pen.colour) + '\n';
    m_vertexStart = "0\nVERTEX\n8\n" + pen.layer + "\n10\n";
}

void DxfEntityWriter::comment(const std::string& text)
{
    blockStream.text() += "999\n" + text + '\n';
}

void DxfEntityWriter::appendGroup(const char* code, double value, int decimals)
{
    blockStream.text() += code;
    kpBaseExport::appendStreamFixed(blockStream.text(), value, decimals);
    blockStream.text() += '\n';
}

void DxfEntityWriter::appendPlace(const Corner& place)
{
    appendGroup("10\n", place[0], m_pen.decimals);
    appendGroup("20\n", place[1], m_pen.decimals);
    if (!m_pen.flat)
        appendGroup("30\n", place[2], std::min(m_pen.decimals, mostHeightDecimals));
}

void DxfEntityWriter::point(const Corner& place)
{
    blockStream.text() += "0\nPOINT\n";
    blockStream.text() += m_penGroups;
    appendPlace(place);
    blockStream.check();
}

void DxfEntityWriter::text(const Corner& place, double height, const std::string& text)
{
    blockStream.text() += "0\nTEXT\n";
    blockStream.text() += m_penGroups;
    appendPlace(place);
    appendGroup("40\n", height, m_pen.decimals);
    blockStream.text() += "1\n" + text + '\n';
    blockStream.check();
}

void DxfEntityWriter::beginLine(bool closed)
{
    blockStream.text() += "0\nPOLYLINE\n";
    blockStream.text() += m_penGroups;
    // Vertices follow; the point is a dummy that only carries the elevation.
    blockStream.text() += "66\n1\n10\n0.0\n20\n0.0\n30\n0.0\n70\n";
    blockStream.text() += std::to_string((m_pen.flat ? 0 : 8) + (closed ? 1 : 0));
    blockStream.text() += '\n';
}

void DxfEntityWriter::positions(const PositionBlock& places)
{
    const int heightDecimals = std::min(m_pen.decimals, mostHeightDecimals);
    for (std::size_t index = 0; index < places.size(); ++index) {
        blockStream.text() += m_vertexStart;
        kpBaseExport::appendStreamFixed(blockStream.text(), places.x[index], m_pen.decimals);
        blockStream.text() += "\n20\n";
        kpBaseExport::appendStreamFixed(blockStream.text(), places.y[index], m_pen.decimals);
        if (m_pen.flat) {
            blockStream.text() += '\n';
        } else {
            blockStream.text() += "\n30\n";
            kpBaseExport::appendStreamFixed(blockStream.text(), places.z[index], heightDecimals);
            blockStream.text() += "\n70\n32\n";
        }
    }
    blockStream.check();
}

void DxfEntityWriter::endLine()
{
    blockStream.text() += "0\nSEQEND\n8\n" + m_pen.layer + '\n';
    blockStream.check();
}

void DxfEntityWriter::face(const std::array<Corner, 4>& corners)
{
    static constexpr const char* codes[4][3] = {
        {"10\n", "20\n", "30\n"}, {"11\n", "21\n", "31\n"}, {"12\n", "22\n", "32\n"}, {"13\n", "23\n", "33\n"}};
    const int heightDecimals = std::min(m_pen.decimals, mostHeightDecimals);
    blockStream.text() += "0\n3DFACE\n";
    blockStream.text() += m_penGroups;
    for (std::size_t corner = 0; corner < 4; ++corner) {
        appendGroup(codes[corner][0], corners[corner][0], m_pen.decimals);
        appendGroup(codes[corner][1], corners[corner][1], m_pen.decimals);
        appendGroup(codes[corner][2], m_pen.flat ? 0.0 : corners[corner][2], heightDecimals);
    }
    blockStream.check();
}

} // namespace kpFormats
