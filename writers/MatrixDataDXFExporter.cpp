// SPDX-License-Identifier: MIT
#include "writers/MatrixDataDXFExporter.h"

#include "host/data/kpProductInfo.h"
#include "writers/DxfFrame.h"
#include "writers/VertexCheck.h"

namespace kpBaseExport
{

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
    blockStream.text() += DxfFrame::beforeProduct + kpProductInfo::instance().product_name() + DxfFrame::afterProduct;
    blockStream.flush();
    return true;
}

void MatrixDataDXFExporter::fileClose()
{
    if (stream.is_open())
        blockStream.text() += DxfFrame::epilogue;
    MatrixDataExporter::fileClose();
}

} // namespace kpBaseExport
