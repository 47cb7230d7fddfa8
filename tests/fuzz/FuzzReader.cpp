// SPDX-License-Identifier: MIT
// A file is read or refused, and what is read is sound. KP_FUZZ_HEADER declares the reader, KP_FUZZ_READ calls it.
#include "model/Model.h"
#include "model/ObjectCheck.h"
#include "readers/LoadError.h"
#include "readers/LoadOptions.h"
#include "tests/fuzz/FuzzFile.h"

#include KP_FUZZ_HEADER

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString path = fuzzFile("input." KP_FUZZ_EXTENSION, data, size);
    const kpFormats::LoadOptions options;
    kpFormats::Model model;
    try {
        kpFormats::KP_FUZZ_READ;
    } catch (const kpFormats::LoadError&) {
    }
    for (const kpFormats::ModelObject& object : model.objects()) {
        if (!kpFormats::faultOf(object).isEmpty())
            qFatal("%s", qPrintable(kpFormats::faultOf(object)));
    }
    return 0;
}
