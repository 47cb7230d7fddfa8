// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/DoubleMatrixData.h"

#include <QString>
#include <QVariant>
#include <QVector>

#include <memory>

namespace kpFormats
{

enum class AttributeKind { Real, Integer, Text, Boolean, Color };

/// What the texts of a column stand for. Dates and times are ISO 8601: "2024-02-29", "13:45:00",
/// "2024-02-29T13:45:00Z".
enum class TextMeaning { Plain, Date, Time, DateTime };

/// One value per vertex (or per grid node or cell). Real numbers lie in one shared block; other kinds are variants.
struct AttributeColumn
{
    QString name;
    AttributeKind kind = AttributeKind::Real;
    QString unit;                              ///< abbreviation, empty for none
    kpBase::DoubleMatrixData::Values numbers;  ///< kind Real: one number per vertex
    kpBase::DoubleMatrixData::Missing missing; ///< kind Real: 1 = missing; null when none is
    QVector<QVariant> values;                  ///< other kinds: one value per vertex, null variant = missing
    TextMeaning meaning = TextMeaning::Plain;  ///< kind Text
};

/// One value of the whole object.
struct ObjectAttribute
{
    QString name;
    AttributeKind kind = AttributeKind::Text;
    QString unit;
    QVariant value;                           ///< null = missing
    TextMeaning meaning = TextMeaning::Plain; ///< kind Text
};

} // namespace kpFormats
