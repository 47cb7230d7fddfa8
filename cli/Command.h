// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Option.h"

#include <vector>

namespace refhost
{

class CommandArguments;

/// One command of the program.
struct Command
{
    const char* name;    ///< "export"; empty for the program without a command
    const char* words;   ///< "FILE...", what follows it
    Option::Kind word;   ///< what they are; Flag when there are none
    const char* summary; ///< what it does, half a sentence; empty for what users do not call
    const char* details; ///< sentences behind it, with `code`; may be empty
    std::vector<Option> options;
    int (*run)(const CommandArguments& arguments); ///< \returns the exit code
};

} // namespace refhost
