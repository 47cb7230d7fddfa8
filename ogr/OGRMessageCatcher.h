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
    /// Whether there was a message since the last take(), and whether it was an error, not only a warning.
    bool any() const { return !m_message.isEmpty(); }
    bool failed() const { return m_failed; }

    void note(const char* message, bool failure);

private:
    bool m_active;
    bool m_failed = false;
    QString m_message;
};

} // namespace kpBaseExport
