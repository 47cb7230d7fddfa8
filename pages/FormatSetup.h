// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"

#include <memory>
#include <utility>

namespace kpFormats
{

/// A format with the settings that its page fills and its saver uses.
struct FormatSetup
{
    explicit FormatSetup(std::shared_ptr<const Format> aFormat)
        : format(std::move(aFormat))
        , settings(format->defaults())
    {
    }

    std::shared_ptr<const Format> format;
    SettingsValue settings;
};

} // namespace kpFormats
