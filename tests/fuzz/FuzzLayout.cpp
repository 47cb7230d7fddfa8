// SPDX-License-Identifier: MIT
#include "host/data/FormatFile.h"
#include "tests/fuzz/FuzzFile.h"

#include <memory>

/// A layout file is read or refused with a reason.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString path = fuzzFile("input.klf", data, size);
    QString error;
    const std::unique_ptr<FormatFile> file(FormatFile::read(path, &error));
    if (file) {
        // What was read is written and read again without a loss.
        const std::unique_ptr<FormatFile> again(FormatFile::fromBytes(file->toBytes()));
        if (!again || again->toBytes() != file->toBytes())
            qFatal("a layout changed on its way through a file");
    } else if (error.isEmpty()) {
        qFatal("a layout was refused without a word");
    }
    return 0;
}
