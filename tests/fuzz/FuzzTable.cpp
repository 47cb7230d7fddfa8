// SPDX-License-Identifier: MIT
#include "host/data/FormatFile.h"
#include "tests/fuzz/FuzzFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QString error;
    const std::unique_ptr<FormatFile> file(FormatFile::readLandmark(fuzzFile("input.fmt", data, size), &error));
    checkLayout(file, error);
    return 0;
}
