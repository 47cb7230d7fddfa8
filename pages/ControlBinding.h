// SPDX-License-Identifier: MIT
#pragma once

namespace kpFormats
{

/// A control of a form, by its object name, and the setting that it stands for.
struct ControlBinding
{
    enum Kind {
        Flag,        ///< a check box: true when checked
        InverseFlag, ///< a check box: true when not checked
        Value,       ///< a button that, checked, gives the setting \a value
        NotValue,    ///< a button that is checked while the setting is not \a value; others say what it is
        Text,        ///< a line of text
        LengthUnit,  ///< a unit selector; starts with the unit of the chosen objects
        Direction,   ///< a unit selector's elevation or depth: "elevation" or "depth", or true for elevation
        ByPage       ///< the page fills the setting itself; it belongs to the objects and is not remembered
    };

    const char* control;
    const char* key;
    Kind kind;
    const char* value = "";
    const char* toolTip = nullptr; ///< instead of the setting's description
};

} // namespace kpFormats
