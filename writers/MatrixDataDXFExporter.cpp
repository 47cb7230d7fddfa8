// SPDX-License-Identifier: MIT
#include "writers/MatrixDataDXFExporter.h"

#include "host/data/kpProductInfo.h"
#include "writers/VertexCheck.h"

namespace kpBaseExport
{

namespace
{

// The fixed text around the entities of a DXF file (group codes and values, one a line). The only
// substitution is the product's name, which stands between beforeProduct and afterProduct.

constexpr char beforeProduct[] = "  0\nSECTION\n"
                                 "\t2\nHEADER\n"
                                 "\t999\nfilename created by ";

constexpr char afterProduct[] = "\n"
                                "\t0\nENDSEC\n"
                                "\t0\nSECTION\n\t2\nTABLES\n\t0\nENDSEC\n"
                                "\t0\nSECTION\n\t2\nBLOCKS\n\t0\nENDSEC\n"
                                "\t0\nSECTION\n\t2\nENTITIES\n";

constexpr char epilogue[] = "\t0\nENDSEC\n\t0\nEOF\n";

} // namespace

MatrixDataDXFExporter::MatrixDataDXFExporter(const QString& file)
    : MatrixDataExporter(file)
{
}

void MatrixDataDXFExporter::writeGeo(const GeoObject* object)
{
    requireVertexData(*object);
}

bool MatrixDataDXFExporter::fileOpen()
{
    if (!MatrixDataExporter::fileOpen())
        return false;
    blockStream.text() += beforeProduct + kpProductInfo::instance().product_name() + afterProduct;
    blockStream.flush();
    return true;
}

void MatrixDataDXFExporter::fileClose()
{
    if (stream.is_open())
        blockStream.text() += epilogue;
    MatrixDataExporter::fileClose();
}

} // namespace kpBaseExport
