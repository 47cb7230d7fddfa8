// SPDX-License-Identifier: MIT
#pragma once

#include "formats/irap/IrapGridFormat.h"

namespace kpFormats
{

/// The text form of Irap classic grids.
class KPFORMATS_EXPORT IrapFormat : public IrapGridFormat
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::IrapFormat)

public:
    IrapFormat()
        : IrapGridFormat(IrapForm::Text)
    {
    }

    FormatInfo info() const override;
    SettingsTable settings() const override;
};

} // namespace kpFormats
