// SPDX-License-Identifier: MIT
#include "host/data/kpUnits.h"

kpUnits::LengthUnit kpUnits::lengthUnit() const
{
    return m_lengthUnit;
}

void kpUnits::setLengthUnit(LengthUnit unit)
{
    m_lengthUnit = unit;
}

int kpUnits::zDirection() const
{
    return m_zDirection;
}

void kpUnits::setZDirection(int code)
{
    m_zDirection = code;
}

bool kpUnits::zIsElevation() const
{
    return m_zDirection != Depth;
}

double kpUnits::metresPerUnit() const
{
    switch (m_lengthUnit) {
    case LengthUnit::Metre:
        return 1.0;
    case LengthUnit::Foot:
        return 0.3048;
    case LengthUnit::UsSurveyFoot:
        return 1200.0 / 3937.0;
    case LengthUnit::Kilometre:
        return 1000.0;
    }
    return 1.0;
}

const char* kpUnits::abbreviation() const
{
    switch (m_lengthUnit) {
    case LengthUnit::Metre:
        return "m";
    case LengthUnit::Foot:
        return "ft";
    case LengthUnit::UsSurveyFoot:
        return "ftUS";
    case LengthUnit::Kilometre:
        return "km";
    }
    return "m";
}
