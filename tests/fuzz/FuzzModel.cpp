// SPDX-License-Identifier: MIT
#include "app/model/ObjectCheck.h"
#include "app/readers/LoadError.h"
#include "app/readers/ModelFile.h"
#include "tests/fuzz/FuzzFile.h"

/// A model file is read or refused, and what is read is sound.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString path = fuzzFile("input.kpmodel", data, size);
    refhost::Model model;
    try {
        refhost::readModelFile(model, path);
    } catch (const refhost::LoadError&) {
    }
    for (const refhost::ModelObject& object : model.objects()) {
        if (!refhost::faultOf(object).isEmpty())
            qFatal("%s", qPrintable(refhost::faultOf(object)));
    }
    return 0;
}
