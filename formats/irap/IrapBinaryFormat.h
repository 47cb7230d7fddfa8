// SPDX-License-Identifier: MIT
#pragma once

#include "formats/irap/IrapGridFormat.h"

namespace kpFormats
{

/// The binary form of Irap classic grids.
class KPFORMATS_EXPORT IrapBinaryFormat : public IrapGridFormat
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::IrapBinaryFormat)

public:
    IrapBinaryFormat()
        : IrapGridFormat(IrapForm::Binary)
    {
    }

    FormatInfo info() const override;
    SettingsTable settings() const override;
};

} // namespace kpFormats
