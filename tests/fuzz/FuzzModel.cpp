// SPDX-License-Identifier: MIT
#include "app/readers/ModelFile.h"
#include "tests/fuzz/FuzzFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return checkReader("input.kpmodel", data, size, [](refhost::Model& model, const QString& path) {
        refhost::readModelFile(model, path);
    });
}
