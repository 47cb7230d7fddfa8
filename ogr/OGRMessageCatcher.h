// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kpBaseExport
{

/// Keeps GDAL's messages of this thread from the terminal while it lives and hands out the last one.
/// Does nothing when it is built inactive.
class OGRMessageCatcher
{
public:
    explicit OGRMessageCatcher(bool active);
    ~OGRMessageCatcher();

    OGRMessageCatcher(const OGRMessageCatcher&) = delete;
    OGRMessageCatcher& operator=(const OGRMessageCatcher&) = delete;

    /// The last message since the previous call; empty when there was none.
    QString take();

    void note(const char* message);

private:
    bool m_active;
    QString m_message;
};

} // namespace kpBaseExport
