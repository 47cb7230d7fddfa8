// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace kpFormats
{

/// A kind of thing that is lost or changed on the way to a file, with the words in which users read of it. Kinds are
/// constants: one without its sentences does not compile.
struct FindingKind
{
    /// \a theKey names the kind in JSON reports. \a ofOne is the sentence for a single case, \a ofSeveral has %1 for
    /// their number. A kind that is told with a value, such as "... written as -9", has it appended.
    constexpr FindingKind(const char* theKey, const char* ofOne, const char* ofSeveral)
        : key(theKey)
        , one(ofOne)
        , several(ofSeveral)
    {
        if (*key == '\0' || *one == '\0' || *several == '\0')
            throw std::invalid_argument("a kind of finding has a key and two sentences");
    }

    const char* key;
    const char* one;
    const char* several;
};

} // namespace kpFormats
