// SPDX-License-Identifier: MIT
#include "app/readers/OffReader.h"
#include "tests/fuzz/FuzzFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return checkReader("input.off", data, size, [](refhost::Model& model, const QString& path) {
        refhost::readOff(model, path, refhost::LoadOptions());
    });
}
