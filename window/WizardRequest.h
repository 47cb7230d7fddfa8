// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "cli/ExportRequest.h"

namespace kpFormats
{
class FormatSaver;
}

namespace refhost
{

class HostContext;

/// The request by which the command line repeats what the wizard's saver has been given: only settings that differ
/// from their defaults, only objects and attributes when not all that the format takes are chosen.
ExportRequest wizardRequest(const HostContext& context, const FormatSaver& saver);

} // namespace refhost
