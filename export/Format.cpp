// SPDX-License-Identifier: MIT
#include "export/Format.h"

namespace kpFormats
{

void Format::loadLayout(const QString&, SettingsValue&) const
{
    throw SettingsError(QStringLiteral("%1: this format takes no layout (leave it out)").arg(info().key));
}

QByteArray Format::layoutBytes(const SettingsValue&) const
{
    return {};
}

void Format::overrule(SettingsValue& settings, const QString& key, const QString& value) const
{
    settings.set(key, value);
}

} // namespace kpFormats
