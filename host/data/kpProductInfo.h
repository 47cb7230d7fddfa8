// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/kpHostDataExport.h"

#include <string>

/// The running product, as written into the prologue of files that name their author.
class KPHOST_DATA_EXPORT kpProductInfo
{
public:
    static kpProductInfo& instance();

    kpProductInfo(const kpProductInfo&) = delete;
    kpProductInfo& operator=(const kpProductInfo&) = delete;

    /// Name of the product in UTF-8; "kpexport" until the host sets another.
    const std::string& product_name() const;
    void set_product_name(const std::string& name);

private:
    kpProductInfo();

    std::string m_name;
};
