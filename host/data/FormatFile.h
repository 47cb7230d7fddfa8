// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/impAttribute.h"
#include "host/data/kpHostDataExport.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <vector>

/// A layout of fields as a file holds it: ".klf", a JSON text, read and written; ".fmt", a plain table, read.
/// docs/format-files.md describes both. Keys of a .klf that are not known here are kept and written again.
class KPHOST_DATA_EXPORT FormatFile
{
public:
    /// How the fields of the layout lie in a line.
    enum SpecificationType : int { FieldBased = 0, ColumnBased = 1 };

    /// One field.
    class KPHOST_DATA_EXPORT Field
    {
    public:
        void setAttribute(const impAttribute& attribute);
        void getAttribute(impAttribute& attribute) const;
        /// The members of the field in the file that are not known here.
        QJsonObject& unknown() { return m_unknown; }
        const QJsonObject& unknown() const { return m_unknown; }

    private:
        impAttribute m_attribute;
        QJsonObject m_unknown;
    };

    /// Reads a .klf. The file is the caller's.
    /// \param error where not null, takes "line N: cause" when the file cannot be read
    /// \returns null when the file cannot be read
    static FormatFile* read(const QString& path, QString* error = nullptr);
    /// The same for a .fmt.
    static FormatFile* readLandmark(const QString& path, QString* error = nullptr);
    /// Reads what toBytes() gives, or a .klf that lies in memory.
    static FormatFile* fromBytes(const QByteArray& content, QString* error = nullptr);

    SpecificationType& type() { return m_type; }
    SpecificationType type() const { return m_type; }
    /// The path under which the layout was saved.
    QString& name() { return m_name; }
    const QString& name() const { return m_name; }
    int size() const { return static_cast<int>(m_fields.size()); }
    /// \a index is one of 0 .. size() - 1.
    const Field& field(int index) const { return m_fields[static_cast<std::size_t>(index)]; }
    Field& field(int index) { return m_fields[static_cast<std::size_t>(index)]; }
    void addField(Field& field);
    /// The members of the file that are not known here; a place for a program's own settings.
    QJsonObject& unknown() { return m_unknown; }
    const QJsonObject& unknown() const { return m_unknown; }
    /// Takes what \a earlier holds in unknown members, of the file and of the fields of the same names.
    void adoptUnknown(const FormatFile& earlier);

    /// Writes a .klf; an earlier file is replaced only when all of the new one is on the disk.
    /// \param error where not null, takes the cause when the file cannot be written
    bool write(const QString& path, QString* error = nullptr) const;
    QByteArray toBytes() const;

private:
    SpecificationType m_type = FieldBased;
    QString m_name;
    std::vector<Field> m_fields;
    QJsonObject m_unknown;
};
