// SPDX-License-Identifier: MIT
#include "app/model/ObjectCheck.h"
#include "app/readers/LoadError.h"
#include "app/readers/ObjReader.h"
#include "tests/fuzz/FuzzFile.h"

/// A file is read or refused, and what is read is sound.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString path = fuzzFile("input.obj", data, size);
    refhost::Model model;
    try {
        refhost::readObj(model, path, refhost::LoadOptions());
    } catch (const refhost::LoadError&) {
    }
    for (const refhost::ModelObject& object : model.objects()) {
        if (!refhost::faultOf(object).isEmpty())
            qFatal("%s", qPrintable(refhost::faultOf(object)));
    }
    return 0;
}
