// SPDX-License-Identifier: MIT
#pragma once

#include "core/kpBaseExportCoreExport.h"

#include <QString>

struct impAttribute;

namespace kpBaseExport
{

/// One attribute on offer, or one field of a layout.
class KPBASEEXPORTCORE_EXPORT QESAttribute
{
public:
    QESAttribute();
    QESAttribute(const QESAttribute& other);
    /// The record of a format file; its width is not taken.
    explicit QESAttribute(const impAttribute& record);
    ~QESAttribute();
    /// The record for a format file.
    impAttribute record() const;
    QESAttribute& operator=(const QESAttribute& other);
    QESAttribute& operator=(const impAttribute& record);

    /// Name, also the key under which the attribute is kept; "GROUP:MEMBER" for a member of a group.
    QString& name() { return m_name; }
    const QString& name() const { return m_name; }
    /// "int", "double" or "string".
    QString& type() { return m_type; }
    const QString& type() const { return m_type; }
    /// -6 X, -2 Y, -3 Z, -4 i, -5 j; the host's own otherwise.
    int& typeId() { return m_typeId; }
    const int& typeId() const { return m_typeId; }
    /// Place in the layout, 0 = first; negative = not placed yet.
    int& order() { return m_order; }
    const int& order() const { return m_order; }
    /// First and last column; both 0 when the field has no columns yet.
    int& start() { return m_start; }
    const int& start() const { return m_start; }
    int& end() { return m_end; }
    const int& end() const { return m_end; }
    /// Characters, in a layout of separated fields.
    int& width() { return m_width; }
    const int& width() const { return m_width; }
    /// Number of decimals.
    int& precision() { return m_precision; }
    const int& precision() const { return m_precision; }

protected:
    void copy(const QESAttribute& other);
    void copy(const impAttribute& record);

private:
    QString m_name;
    QString m_type = QStringLiteral("int");
    int m_typeId = 0;
    int m_order = 0;
    int m_start = 0;
    int m_end = 0;
    int m_width = 10;
    int m_precision = 4;
};

} // namespace kpBaseExport
