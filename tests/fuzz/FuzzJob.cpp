// SPDX-License-Identifier: MIT
#include "cli/JobFile.h"
#include "tests/fuzz/FuzzFile.h"

#include <stdexcept>

/// A job file is read or refused.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString path = fuzzFile("input.json", data, size);
    try {
        refhost::readJobFile(path);
    } catch (const std::invalid_argument&) {
    }
    return 0;
}
