// SPDX-License-Identifier: MIT
#include "export/WriteErrors.h"

#include "core/MatrixDataExporter.h"
#include "export/platform/SystemError.h"

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
