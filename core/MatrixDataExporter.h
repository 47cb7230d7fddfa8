// SPDX-License-Identifier: MIT
#pragma once

#include "core/BlockStream.h"
#include "core/kpBaseExportCoreExport.h"

#include <QString>

#include <fstream>
#include <memory>
#include <string>

namespace kpBase
{
class AbstractProgress;
}

namespace kpBaseExport
{

class GeoObject;

/// Base of every file writer: owns the output stream and the export record and fixes the order
/// open, header, body, close. Text is written as UTF-8, numbers in the classic locale.
///
/// A saver fills geoObject(), sets the public settings and calls write(fileName); for several objects in one
/// file it calls fileOpen(), then writeHeader() and writeGeo() for each object, then fileClose().
class KPBASEEXPORTCORE_EXPORT MatrixDataExporter
{
public:
    /// One output field of a table of vertices.
    struct FieldInfo
    {
        QString name;      ///< "x", "y", "z" for the coordinates, else the name of a vertex attribute
        int precision = 0; ///< decimals of floating-point values
        int start = 0;     ///< first column of a fixed-column field, counted from 1
        int end = 0;       ///< last column, inclusive
    };

    explicit MatrixDataExporter(const QString& file = QString(), kpBase::AbstractProgress* reporter = nullptr);
    MatrixDataExporter(const MatrixDataExporter&) = delete;
    MatrixDataExporter& operator=(const MatrixDataExporter&) = delete;

    /// Closes the file without an epilogue and deletes the record with its matrices.
    virtual ~MatrixDataExporter();
    virtual void writeHeader(const GeoObject* object);
    virtual void writeGeo(const GeoObject* object);
    /// Opens fileName for writing, replacing an existing file. False when that fails or the name is empty, and while
    /// a file is open: close it first.
    virtual bool fileOpen();
    virtual void fileClose();

    /// The record for the saver to fill. Owned by the writer.
    GeoObject* geoObject() const;

    /// Opens \a file, writes header and body of the record, closes. An empty name writes to the file that is open.
    /// \throws std::logic_error "No data allocated", "No write access on File", and what the format throws.
    void write(const QString& file);
    /// Writes header and body of the record to the file that the caller has opened; it stays open.
    /// \throws std::logic_error "No data allocated", "No File Name defined", "File is not open".
    void write();

    /// True when a write since the last fileOpen() failed, the flush on closing included (a full disk, a quota), or
    /// found no file open.
    bool writeFailed() const;
    /// What the system said when opening, writing or closing failed last, an errno; 0 when it said nothing.
    int systemError() const;

    QString nullValue = QStringLiteral("99999"); ///< text in place of a missing number, when writeNullValue is set
    bool writeNullValue = false;                 ///< substitute nullValue for missing numbers
    bool insertLineBreaks = false;               ///< object name before, empty line after each object's rows
    QString fileName;                            ///< path of the output file

    /// Open the file under its true name. Off, the name is converted to Latin-1 and characters that have no place
    /// there are replaced.
    bool useTruePath = false;
    /// Make fileClose() throw std::runtime_error when a write failed or found no file open. Off, failures pass in
    /// silence; see writeFailed().
    bool throwOnWriteFailure = false;
    /// Let the writers of text tell the progress how far they are and stop when the user cancels. Off, only the OGR
    /// writer asks it.
    bool reportRows = false;

protected:
    /// Text for the user: file name, \a text and, unless it is -1, the line.
    QString ErrorMessage(const QString& text, int line) const;

    std::ofstream stream;
    /// Leads to the file while one is open, behind what was written to the stream before. A writer that appends to its
    /// text leaves nothing there when an operation ends.
    BlockStream blockStream;
    kpBase::AbstractProgress* progress; ///< not owned, may be null

private:
    std::unique_ptr<GeoObject> m_record;
    int m_systemError = 0;
    bool m_writeFailed = false;
};

} // namespace kpBaseExport
