// SPDX-License-Identifier: MIT
// A layout is read by KP_FUZZ_READ or refused with a reason; what was read is written and read again without a loss.
#include "host/data/FormatFile.h"
#include "tests/fuzz/FuzzFile.h"

#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QString error;
    const QString path = fuzzFile("input." KP_FUZZ_EXTENSION, data, size);
    const std::unique_ptr<FormatFile> file(FormatFile::KP_FUZZ_READ);
    if (!file && error.isEmpty())
        qFatal("a layout was refused without a word");
    const std::unique_ptr<FormatFile> again(file ? FormatFile::fromBytes(file->toBytes()) : nullptr);
    if (file && (!again || again->toBytes() != file->toBytes()))
        qFatal("a layout changed on its way through a file");
    return 0;
}
