// SPDX-License-Identifier: MIT
#pragma once

#include "readers/VtkDataSet.h"

#include <QFile>

namespace kpFormats
{

/// How the bytes of a VTK XML file are to be understood.
struct VtkEncoding
{
    bool bigEndian = false;
    bool longHeaders = false; ///< sizes before the bytes of an array have 64 bits, not 32
    bool zlib = false;
};

/// Bytes as the values of an array. \a type is "Float64", "Int32", "String" ...
/// \throws std::runtime_error saying what is wrong
void takeValues(VtkDataArray& array, const QString& type, const QByteArray& bytes, bool bigEndian);
/// The same from text.
void takeText(VtkDataArray& array, const QString& type, const QByteArray& text);

/// Where the bytes of an array come from, from its header on.
class VtkByteSource
{
public:
    virtual ~VtkByteSource() = default;
    /// The next bytes. \throws std::runtime_error when there are not so many
    virtual QByteArray take(qint64 count) = 0;
    /// Of a source in base64: what comes next begins a group of its own.
    virtual void beginGroup() {}
    /// No more than so many are left.
    virtual qint64 left() const = 0;
};

/// The bytes of an array: a header with sizes, then the bytes, perhaps in compressed blocks.
QByteArray arrayBytes(VtkByteSource& source, const VtkEncoding& encoding);

/// Raw bytes of a file.
class VtkRawBytes : public VtkByteSource
{
public:
    VtkRawBytes(QFile& file, qint64 position);
    QByteArray take(qint64 count) override;
    qint64 left() const override;

private:
    QFile& m_file;
};

/// Text in base64: the header of an array and its bytes are encoded each for itself.
class VtkBase64 : public VtkByteSource
{
public:
    /// \a text outlives this.
    VtkBase64(const QByteArray& text, qint64 position);
    QByteArray take(qint64 count) override;
    void beginGroup() override;
    qint64 left() const override { return (m_text.size() - m_next) / 4 * 3 + m_ready.size(); }

private:
    const QByteArray& m_text;
    int m_next;
    QByteArray m_ready; ///< decoded and not yet taken
};

} // namespace kpFormats
