// SPDX-License-Identifier: MIT
#include "app/readers/GocadReader.h"
#include "tests/fuzz/FuzzFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return checkReader("input.ts", data, size, [](refhost::Model& model, const QString& path) {
        refhost::readGocad(model, path, refhost::LoadOptions());
    });
}
