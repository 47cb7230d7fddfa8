// SPDX-License-Identifier: MIT
#pragma once

namespace kpBaseExport::DxfFrame
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

} // namespace kpBaseExport::DxfFrame
