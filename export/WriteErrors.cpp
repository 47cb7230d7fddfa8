// SPDX-License-Identifier: MIT
#include "export/WriteErrors.h"

#include "core/MatrixDataExporter.h"
#include "export/TargetPath.h"
#include "export/platform/SystemError.h"
#include "geo/CheckedWrites.h"

namespace kpFormats
{

namespace
{

QString because(const QString& what, int error)
{
    return error == 0 ? what : QStringLiteral("%1: %2").arg(what, errorText(error));
}

} // namespace

ExportError cannotOpen(const QString& target, int error)
{
    return {target, because(QStringLiteral("the file could not be opened for writing"), error), writingCure(error)};
}

ExportError cannotWrite(const QString& target, int error)
{
    return {target, because(QStringLiteral("the file could not be written completely"), error), writingCure(error)};
}

void failIncomplete(const QString& target, const QString& why)
{
    throw ExportError(target, QStringLiteral("the file could not be written completely: %1").arg(why),
                      QStringLiteral("check the disk, or choose another name or format"));
}

void requireWritten(const QString& target, const CheckedWrites& checked)
{
    const std::optional<CheckedWrites::Failure> failure = checked.failure();
    if (failure)
        throw ExportError(target,
                          QStringLiteral("the file could not be written completely: %1 of %2: %3")
                              .arg(failure->action, failure->file, errorText(failure->error)),
                          writingCure(failure->error));
}

void refuseDevice(const QString& target, const QString& fileKind)
{
    if (TargetPath(target).isStream())
        throw ExportError(target, QStringLiteral("a device cannot hold a %1").arg(fileKind),
                          QStringLiteral("give the name of a file"));
}

void openWriter(kpBaseExport::MatrixDataExporter& writer, const QString& target)
{
    writer.useTruePath = true;
    if (!writer.fileOpen())
        throw cannotOpen(target, writer.systemError());
}

void closeWriter(kpBaseExport::MatrixDataExporter& writer, const QString& target)
{
    writer.fileClose();
    if (writer.writeFailed())
        throw cannotWrite(target, writer.systemError());
}

} // namespace kpFormats
