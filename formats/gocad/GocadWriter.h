// SPDX-License-Identifier: MIT
#pragma once

#include "export/BlockWriter.h"
#include "export/Findings.h"
#include "formats/gocad/GocadWell.h"
#include "model/ProgressTicker.h"

namespace kpFormats
{

/// The kinds of GOCAD object that a model object becomes.
enum class GocadKind { VSet, PLine, TSurf, Well };

/// Of an object that is not written as a well.
GocadKind gocadKindOf(const ModelObject& object, const GocadExportSettings& settings);
/// The name in one line without the characters that end a header.
QString gocadObjectName(const QString& name);
/// The name as one word of a list: blanks and quotes become "_".
QString gocadWord(const QString& name);
/// The unit as one word, "none" where there is none.
QString gocadUnit(const QString& unit);

/// Notes what the form of the file and the settings leave out of any object.
void noteGocadForm(const ModelObject& object, const GocadExportSettings& settings, Findings& findings);

/// Writes model objects one after the other into a GOCAD ASCII file.
class GocadWriter
{
public:
    GocadWriter(BlockWriter& out, const GocadExportSettings& settings, Findings& findings);

    /// \returns the number of vertices written. Stops early when the user cancels. \throws ExportError
    qint64 write(const GocadEntry& entry, kpBase::AbstractProgress* progress);

private:
    void writeHead(GocadKind kind);
    void writeHeader(GocadKind kind);
    void writeCoordinateSystem();
    void writePropertyLists();
    void writePoints();
    void writeLines();
    void writeLine(const Part& part);
    void writeSurface();
    void writeWell(const GocadWell& well);
    void writePath(const GocadWell& well);
    void writeCurve(const GocadWell& well, const NumberColumn& column, const std::string& name);
    std::vector<std::string> propertyNames();
    void appendValue(double value);
    void appendVertex(qint64 id, int vertex);
    void noteLosses();

    BlockWriter& m_out;
    const GocadExportSettings& m_settings;
    Findings& m_findings;

    const ModelObject* m_object = nullptr;
    std::vector<NumberColumn> m_columns;
    std::string m_nullText;
    double m_factor = 1.0;
    double m_zFactor = 1.0;
    qint64 m_written = 0;
    qint64 m_withoutPosition = 0;
    qint64 m_equalToNull = 0;
    kpBase::AbstractProgress* m_whole = nullptr;
    ProgressTicker m_progress{nullptr, 1};
};

} // namespace kpFormats
