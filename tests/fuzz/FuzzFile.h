// SPDX-License-Identifier: MIT
#pragma once

#include "app/model/Model.h"
#include "app/model/ObjectCheck.h"
#include "app/readers/LoadError.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <memory>

class FormatFile;

/// Puts the fuzzer's bytes into a file that the readers can open, always the same one. \returns its path
QString fuzzFile(const char* name, const std::uint8_t* data, std::size_t size);

/// A layout is read or refused with a reason; what was read is written and read again without a loss.
void checkLayout(const std::unique_ptr<FormatFile>& file, const QString& error);

/// A file is read or refused, and what is read is sound.
template <typename Read>
int checkReader(const char* name, const std::uint8_t* data, std::size_t size, const Read& read)
{
    const QString path = fuzzFile(name, data, size);
    refhost::Model model;
    try {
        read(model, path);
    } catch (const refhost::LoadError&) {
    }
    for (const refhost::ModelObject& object : model.objects()) {
        if (!refhost::faultOf(object).isEmpty())
            qFatal("%s", qPrintable(refhost::faultOf(object)));
    }
    return 0;
}
