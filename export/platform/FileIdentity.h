// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QByteArray>

#include <optional>

struct stat;

namespace kpFormats
{

/// Tells a file of a directory from another one that comes to stand under its name, even when that gets the number of a deleted one.
/// Other names of the file and changes of its permissions make no difference.
class KPFORMATS_EXPORT FileIdentity
{
public:
    explicit FileIdentity(const struct stat& status);
    /// What text() gave; none when it is something else.
    static std::optional<FileIdentity> of(const QByteArray& text);

    QByteArray text() const { return m_text; }
    bool operator==(const FileIdentity& other) const { return m_text == other.m_text; }
    bool operator!=(const FileIdentity& other) const { return m_text != other.m_text; }

private:
    FileIdentity() = default;

    QByteArray m_text;
};

} // namespace kpFormats
