// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportReport.h"
#include "export/Format.h"
#include "model/kpFormatsExport.h"

#include <memory>
#include <vector>

namespace kpFormats
{

/// An export of which everything is known that a look at the objects tells: its files, what each will lose, what is
/// refused. The plan shows it, the run writes it; neither looks again.
class KPFORMATS_EXPORT PreparedExport
{
public:
    /// One file of it.
    struct Output
    {
        PlannedFile planned;                     ///< as wished, with every object
        std::unique_ptr<PreparedFile> file;      ///< null when the file is refused
        std::vector<FailedObject> failedObjects; ///< left out of it
        QString error; ///< why the whole file is refused: cause and cure; empty when it is not
        Findings findings;
        bool wanted = true; ///< the run leaves out those that are not
    };

    /// Prepares every file. The format outlives this, as do the objects.
    PreparedExport(const Format& format, ExportSelection selection, SettingsValue settings);
    PreparedExport(const PreparedExport&) = delete;
    PreparedExport& operator=(const PreparedExport&) = delete;

    const Format& format() const { return m_format; }
    const ExportSelection& selection() const { return m_selection; }
    const SettingsValue& settings() const { return m_settings; }
    std::vector<Output>& outputs() { return m_outputs; }
    const std::vector<Output>& outputs() const { return m_outputs; }

    /// Prepares a file anew without an object that turned out to be impossible to write.
    void leaveOut(Output& output, const ModelObject& object, const QString& reason) const;

    /// The files that would go, sidecars included, and that exist now.
    QStringList earlierFiles() const;

    /// What was lost before there were files, such as on loading.
    Findings findings;
    /// Read each file again before it replaces an earlier one.
    bool verify;

private:
    void prepare(Output& output, std::vector<const ModelObject*> objects) const;

    const Format& m_format;
    const ExportSelection m_selection;
    const SettingsValue m_settings;
    std::vector<Output> m_outputs;
};

/// For formats that write positions. \throws ExportError when the objects of a file have none
KPFORMATS_EXPORT void requirePositions(const PlannedFile& file);

} // namespace kpFormats
