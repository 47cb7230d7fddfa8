// SPDX-License-Identifier: MIT
#pragma once

#include "export/platform/Descriptor.h"
#include "export/platform/FileIdentity.h"
#include "model/kpFormatsExport.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace kpFormats
{

/// An open directory. Everything is done to names in it, as the file system has them, and follows no link, so that
/// nobody who can write to a directory above can lead it elsewhere. What can fail returns 0 or the error number.
class KPFORMATS_EXPORT Folder
{
public:
    enum class Kind { Nothing, File, Folder, Link, Other };

    Folder() = default;
    /// Opens it by its path, in which links are followed as everywhere. isOpen() tells whether it worked, errno why not.
    explicit Folder(const QString& path);
    /// One in this folder; not open when that is a link or anything else.
    Folder child(const QByteArray& name) const;

    bool isOpen() const { return m_descriptor.isOpen(); }
    /// Whether it is of the user who runs the program, and nobody else may look into it or change it.
    bool isPrivate() const;
    /// Whether the name in \a parent is still this folder.
    bool isChildOf(const Folder& parent, const QByteArray& name) const;
    std::vector<QByteArray> names() const;
    Kind kind(const QByteArray& name) const;
    /// Of a plain file.
    std::optional<FileIdentity> identity(const QByteArray& name) const;
    bool isWritable(const QByteArray& name) const;

    /// Makes a private folder.
    int make(const QByteArray& name) const;
    /// Writes a new file and makes it durable.
    int write(const QByteArray& name, const QByteArray& content) const;
    /// The content of a plain file of the user's own.
    std::optional<QByteArray> read(const QByteArray& name) const;
    /// A second name for a file.
    int link(const QByteArray& name, const Folder& to, const QByteArray& newName) const;
    /// Moves a file, over another one if there is one.
    int move(const QByteArray& name, const Folder& to, const QByteArray& newName) const;
    /// Moves a file; EEXIST when there is one already, even one that has come just now.
    int moveAsNew(const QByteArray& name, const Folder& to, const QByteArray& newName) const;
    int remove(const QByteArray& name) const;
    int removeEmpty(const QByteArray& name) const;
    /// Removes a folder and what is in it.
    int removeAll(const QByteArray& name) const;
    /// Gives a file the owner, permissions, access list and extended attributes of another, as far as that is allowed.
    void copyAccess(const QByteArray& name, const Folder& from, const QByteArray& source) const;

    int synchronise() const;
    int synchronise(const QByteArray& name) const;
    /// Everything on the disk that it is on.
    int synchroniseDisk() const;

    /// Locks it against other processes without waiting; EWOULDBLOCK when one of them has it.
    int lock() const;
    void unlock() const;
    /// The process that holds the lock: "process 12 (name)".
    QString lockHolder() const;

private:
    explicit Folder(Descriptor descriptor)
        : m_descriptor(std::move(descriptor))
    {
    }

    Descriptor m_descriptor;
};

} // namespace kpFormats
