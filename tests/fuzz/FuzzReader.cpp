// SPDX-License-Identifier: MIT
// A file is read or refused, and what is read is sound. KP_FUZZ_HEADER declares the reader, KP_FUZZ_READ calls it.
#include "app/model/Model.h"
#include "app/model/ObjectCheck.h"
#include "app/readers/LoadError.h"
#include "app/readers/LoadOptions.h"
#include "tests/fuzz/FuzzFile.h"

#include KP_FUZZ_HEADER

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString path = fuzzFile("input." KP_FUZZ_EXTENSION, data, size);
    const refhost::LoadOptions options;
    refhost::Model model;
    try {
        refhost::KP_FUZZ_READ;
    } catch (const refhost::LoadError&) {
    }
    for (const refhost::ModelObject& object : model.objects()) {
        if (!refhost::faultOf(object).isEmpty())
            qFatal("%s", qPrintable(refhost::faultOf(object)));
    }
    return 0;
}
