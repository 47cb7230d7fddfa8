// SPDX-License-Identifier: MIT
#include "formats/off/OffVerification.h"

#include "export/WrittenSurface.h"
#include "readers/OffReader.h"

#include <QFile>

namespace kpFormats
{

namespace
{

/// The reader passes colours over: they are what follows the corners of a face.
void compareColours(const ModelObject& object, const QString& path, Verification& result)
{
    QFile file(path);
    const QByteArray wanted = QStringLiteral("%1 %2 %3")
                                  .arg(object.color.red())
                                  .arg(object.color.green())
                                  .arg(object.color.blue())
                                  .toLatin1();
    bool open = file.open(QIODevice::ReadOnly);
    while (open && !file.atEnd()) {
        const QList<QByteArray> words = file.readLine().simplified().split(' ');
        const bool isFace = words.size() > 3 && words.front() == "3";
        if (isFace && words.mid(4).join(' ') != wanted)
            return result.fail(
                QStringLiteral("%1: a face has the colour \"%2\" instead of \"%3\"")
                    .arg(object.name, QString::fromLatin1(words.mid(4).join(' ')), QString::fromLatin1(wanted)));
    }
    result.alsoCompared(QStringLiteral("colours"));
}

} // namespace

Verification verifyOff(const ModelObject& object, const QString& path, const OffExportSettings& settings)
{
    Verification result(QStringLiteral("the program's OFF reader"),
                        Allowance::ofDecimals(settings.decimals, QString()).most,
                        LengthFactors(object, settings.lengthUnit, settings.zIsElevation));
    Model model;
    try {
        const LoadNotes notes = readOff(model, path, LoadOptions());
        if (!notes.isEmpty())
            result.fail(notes.front());
    } catch (const std::exception& error) {
        result.fail(QString::fromUtf8(error.what()));
        return result;
    }
    const ModelObject& read = model.objects().front();
    WrittenSurface(object, settings.lengthUnit, settings.zIsElevation).compare(read, result);
    if (settings.colours && object.color.isValid())
        compareColours(object, path, result);
    return result;
}

} // namespace kpFormats
