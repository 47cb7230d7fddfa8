// SPDX-License-Identifier: MIT
#include "cli/JobFile.h"
#include "cli/RequestText.h"
#include "export/TargetPath.h"
#include "tests/fuzz/FuzzFile.h"

#include <QJsonDocument>

#include <algorithm>
#include <stdexcept>

using refhost::ExportRequest;

namespace
{

QByteArray bytesOf(const ExportRequest& request)
{
    return QJsonDocument(jobOf(request)).toJson();
}

/// A name of the file system, whatever stands in the job: nothing inside the program, no address in the network. What says
/// how to reach a database stays as it is, and is refused before anything is opened.
bool isPath(const QString& name)
{
    return name.isEmpty() || name.startsWith(QLatin1Char('/')) || kpFormats::TargetPath::isDatabase(name);
}

} // namespace

/// A job file is read or refused. What is read allows itself nothing, names files only, and says the same when it is saved
/// and read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        const ExportRequest request = refhost::readJobFile(fuzzFile("input.json", data, size));
        if (request.allowNetwork || request.allowOutside)
            qFatal("a job allowed itself more");
        if (!std::all_of(request.models.begin(), request.models.end(), isPath) || !isPath(request.output)
            || !isPath(request.report) || !isPath(request.layout))
            qFatal("a job names something other than a file");
        if (refhost::commandLineOf(request).isEmpty())
            qFatal("a job has no command");
        // Lists of nothing are refused, but a request of the window may have them.
        if (request.models.isEmpty())
            return 0;
        const QByteArray saved = bytesOf(request);
        const auto* const bytes = reinterpret_cast<const std::uint8_t*>(saved.constData());
        if (bytesOf(refhost::readJobFile(fuzzFile("saved.json", bytes, static_cast<std::size_t>(saved.size()))))
            != saved)
            qFatal("a job changed on its way through a file");
    } catch (const std::invalid_argument&) {
    }
    return 0;
}
