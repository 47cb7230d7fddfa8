// SPDX-License-Identifier: MIT
#include "app/readers/OpenTecReader.h"
#include "tests/fuzz/FuzzFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // A file of one cross-section.
    return checkReader("input.otl", data, size, [](refhost::Model&, const QString& path) { refhost::readOpenTec(path); });
}
