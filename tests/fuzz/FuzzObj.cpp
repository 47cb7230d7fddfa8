// SPDX-License-Identifier: MIT
#include "app/readers/ObjReader.h"
#include "tests/fuzz/FuzzFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return checkReader("input.obj", data, size, [](refhost::Model& model, const QString& path) {
        refhost::readObj(model, path, refhost::LoadOptions());
    });
}
