// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "model/AttributeColumn.h"

#include <QString>

namespace refhost
{

/// What an attribute holds, in figures.
struct AttributeFigures
{
    QString name;
    QString kind; ///< "number", "whole number", "text", "yes or no", "colour", "date", "time", "date and time"
    QString unit;
    qint64 values = 0;
    qint64 missing = 0;
    /// Numbers: "1.5 to 20, mean 7.25"; others: how many different values there are, and the first of them.
    QString summary;
};

AttributeFigures figuresOf(const AttributeColumn& column);
AttributeFigures figuresOf(const ObjectAttribute& attribute);
/// The value of a vertex as shown; empty when it is missing.
QString shownValue(const AttributeColumn& column, int vertex);
/// In the user's own notation, as short as it is exact.
QString shownNumber(double number);

} // namespace refhost
