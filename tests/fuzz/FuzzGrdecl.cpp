// SPDX-License-Identifier: MIT
#include "app/readers/GrdeclReader.h"
#include "tests/fuzz/FuzzFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return checkReader("input.grdecl", data, size, [](refhost::Model& model, const QString& path) {
        refhost::readGrdecl(model, path, refhost::LoadOptions());
    });
}
