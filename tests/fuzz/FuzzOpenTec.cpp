// SPDX-License-Identifier: MIT
#include "app/readers/LoadError.h"
#include "app/readers/OpenTecReader.h"
#include "tests/fuzz/FuzzFile.h"

/// A file of one cross-section is read or refused.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString path = fuzzFile("input.otl", data, size);
    try {
        refhost::readOpenTec(path);
    } catch (const refhost::LoadError&) {
    }
    return 0;
}
