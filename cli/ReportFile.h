// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "cli/ExportRequest.h"

#include <QJsonObject>
#include <QStringList>

namespace refhost
{

/// The file that --report names. It is written like an output: as a whole or not at all, and over nothing that is not
/// a report unless replacing has been agreed to.
class ReportFile
{
public:
    explicit ReportFile(const ExportRequest& request);

    /// Why it may not be written, as "FILE: what is wrong (what to do)"; empty when it may. \a inputs and \a outputs
    /// are the files of the run.
    QString refusal(const QStringList& inputs, const QStringList& outputs) const;
    /// The same before anything of the run is known: nothing but an earlier report is replaced, whatever was agreed to.
    QString refusalWithoutRun() const;
    /// Prints an error and returns false when it could not be written. Does nothing when no report was asked for.
    bool write(const QJsonObject& report) const;

private:
    QString faultOf(const QStringList& inputs, const QStringList& outputs, bool mayReplace) const;

    const ExportRequest& m_request;
    bool m_existed;
};

} // namespace refhost
