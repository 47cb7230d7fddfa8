// SPDX-License-Identifier: MIT
#include "host/data/kpAbstractFactory.h"

kpAbstractFactory::kpAbstractFactory() = default;
kpAbstractFactory::kpAbstractFactory(const kpAbstractFactory&) = default;
kpAbstractFactory& kpAbstractFactory::operator=(const kpAbstractFactory&) = default;
kpAbstractFactory::~kpAbstractFactory() = default;
