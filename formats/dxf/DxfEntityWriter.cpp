// SPDX-License-Identifier: MIT
#include "formats/dxf/DxfEntityWriter.h"

#include "writers/StreamNumber.h"

namespace kpFormats
{

namespace
{

constexpr std::size_t blockSize = 128 * 1024;
// Heights are lengths also where x and y are degrees.
constexpr int mostHeightDecimals = 7;

} // namespace

DxfEntityWriter::DxfEntityWriter(const QString& file)
    : MatrixDataDXFExporter(file)
{
    setPen({"0", 7, 4, false});
}

void DxfEntityWriter::fileClose()
{
    flush(0);
    MatrixDataDXFExporter::fileClose();
}

void DxfEntityWriter::setPen(const Pen& pen)
{
    m_pen = pen;
    m_penGroups = "8\n" + pen.layer + "\n62\n" + std::to_string(pen.colour) + '\n';
    m_vertexStart = "0\nVERTEX\n8\n" + pen.layer + "\n10\n";
}

void DxfEntityWriter::comment(const std::string& text)
{
    m_block += "999\n" + text + '\n';
}

void DxfEntityWriter::appendGroup(const char* code, double value, int decimals)
{
    m_block += code;
    kpBaseExport::appendStreamFixed(m_block, value, decimals);
    m_block += '\n';
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
    m_block += "0\nPOINT\n";
    m_block += m_penGroups;
    appendPlace(place);
    flush(blockSize);
}

void DxfEntityWriter::text(const Corner& place, double height, const std::string& text)
{
    m_block += "0\nTEXT\n";
    m_block += m_penGroups;
    appendPlace(place);
    appendGroup("40\n", height, m_pen.decimals);
    m_block += "1\n" + text + '\n';
    flush(blockSize);
}

void DxfEntityWriter::beginLine(bool closed)
{
    m_block += "0\nPOLYLINE\n";
    m_block += m_penGroups;
    // Vertices follow; the point is a dummy that only carries the elevation.
    m_block += "66\n1\n10\n0.0\n20\n0.0\n30\n0.0\n70\n";
    m_block += std::to_string((m_pen.flat ? 0 : 8) + (closed ? 1 : 0));
    m_block += '\n';
}

void DxfEntityWriter::positions(const PositionBlock& block)
{
    const int heightDecimals = std::min(m_pen.decimals, mostHeightDecimals);
    for (std::size_t index = 0; index < block.size(); ++index) {
        m_block += m_vertexStart;
        kpBaseExport::appendStreamFixed(m_block, block.x[index], m_pen.decimals);
        m_block += "\n20\n";
        kpBaseExport::appendStreamFixed(m_block, block.y[index], m_pen.decimals);
        if (m_pen.flat) {
            m_block += '\n';
        } else {
            m_block += "\n30\n";
            kpBaseExport::appendStreamFixed(m_block, block.z[index], heightDecimals);
            m_block += "\n70\n32\n";
        }
    }
    flush(blockSize);
}

void DxfEntityWriter::endLine()
{
    m_block += "0\nSEQEND\n8\n" + m_pen.layer + '\n';
    flush(blockSize);
}

void DxfEntityWriter::face(const std::array<Corner, 4>& corners)
{
    static constexpr const char* codes[4][3] = {
        {"10\n", "20\n", "30\n"}, {"11\n", "21\n", "31\n"}, {"12\n", "22\n", "32\n"}, {"13\n", "23\n", "33\n"}};
    const int heightDecimals = std::min(m_pen.decimals, mostHeightDecimals);
    m_block += "0\n3DFACE\n";
    m_block += m_penGroups;
    for (std::size_t corner = 0; corner < 4; ++corner) {
        appendGroup(codes[corner][0], corners[corner][0], m_pen.decimals);
        appendGroup(codes[corner][1], corners[corner][1], m_pen.decimals);
        appendGroup(codes[corner][2], m_pen.flat ? 0.0 : corners[corner][2], heightDecimals);
    }
    flush(blockSize);
}

void DxfEntityWriter::flush(std::size_t limit)
{
    if (m_block.size() <= limit)
        return;
    stream.write(m_block.data(), static_cast<std::streamsize>(m_block.size()));
    m_block.clear();
}

} // namespace kpFormats
