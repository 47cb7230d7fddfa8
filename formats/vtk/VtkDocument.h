// SPDX-License-Identifier: MIT
#pragma once

#include "export/BlockWriter.h"
#include "model/ProgressTicker.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace kpFormats
{

/// Where the values of arrays go, in the byte order of the file.
class VtkValues
{
public:
    VtkValues(BlockWriter& out, ProgressTicker& progress)
        : m_out(out)
        , m_progress(progress)
    {
    }

    void real(double value);
    void whole(qint64 value);
    void byte(int value);
    /// \a utf8 has no zero character.
    void text(const QByteArray& utf8);
    /// A value is complete; its bytes count as progress. \returns false once the user has cancelled. \throws ExportError
    bool next()
    {
        m_out.check();
        m_progress.step(m_bytes);
        m_bytes = 0;
        return !cancelled();
    }
    bool cancelled() const { return m_progress.cancelled(); }

private:
    BlockWriter& m_out;
    ProgressTicker& m_progress;
    double m_bytes = 0; ///< since the last that were complete
};

enum class VtkType { Float64, Int64, UInt8, String };

/// A text as it is written: in UTF-8, up to a zero character if there is one.
QByteArray vtkText(const QString& text);

/// An array of a file, described before it is written.
struct VtkArray
{
    QString name;
    VtkType type = VtkType::Float64;
    int components = 1;
    qint64 tuples = 0;
    QString unit;
    qint64 textBytes = 0; ///< of an array of texts, their ends included
    /// Gives out every value and stops when next() says so.
    std::function<void(VtkValues&)> write;

    qint64 bytes() const;
};

/// The arrays of points, of cells, of positions ...
struct VtkSection
{
    const char* tag;
    std::vector<VtkArray> arrays;
};

/// A file of one data set: what stands in its head and in which order the arrays follow.
struct VtkDocument
{
    const char* type = "PolyData";
    std::string dataSet; ///< attributes of the element of the data set
    std::string piece;   ///< attributes of its only piece
    std::vector<VtkArray> fieldData;
    std::vector<VtkSection> sections;
    qint64 rows = 0; ///< for the report

    /// \returns false when the user has cancelled \throws ExportError
    bool write(BlockWriter& out, kpBase::AbstractProgress* progress) const;
};

/// An array of texts that are at hand.
VtkArray vtkTexts(const QString& name, const QStringList& texts);
/// An array of numbers that are at hand.
VtkArray vtkReals(const QString& name, int components, std::vector<double> numbers);
VtkArray vtkWholes(const QString& name, int components, std::vector<qint64> numbers);

} // namespace kpFormats
