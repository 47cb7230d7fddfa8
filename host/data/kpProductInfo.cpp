// SPDX-License-Identifier: MIT
#include "host/data/kpProductInfo.h"

kpProductInfo::kpProductInfo()
    : m_name("kpexport")
{
}

kpProductInfo& kpProductInfo::instance()
{
    static kpProductInfo info;
    return info;
}

const std::string& kpProductInfo::product_name() const
{
    return m_name;
}

void kpProductInfo::set_product_name(const std::string& name)
{
    m_name = name;
}
