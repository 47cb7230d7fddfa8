// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/kpHostDataExport.h"

/// Common base of every registry of factories.
class KPHOST_DATA_EXPORT kpAbstractFactory
{
public:
    kpAbstractFactory();
    kpAbstractFactory(const kpAbstractFactory&);
    kpAbstractFactory& operator=(const kpAbstractFactory&);
    virtual ~kpAbstractFactory();
};
