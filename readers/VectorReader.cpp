// SPDX-License-Identifier: MIT
#include "readers/VectorReader.h"

#include "geo/GdalSession.h"
#include "readers/LayerReader.h"
#include "readers/LoadError.h"
#include "readers/OpenDataset.h"

#include <ogrsf_frmts.h>

namespace kpFormats
{

QColor paletteColor(int index)
{
    // Steps of the golden angle keep neighbours apart however many there are.
    return QColor::fromHsv(static_cast<int>((index * 137LL + 210) % 360), 170, 200);
}

LoadNotes readVectors(Model& model, const QString& path, const LoadOptions& options)
{
    const QuietGdal quiet;
    // For geometries in delimited text, which have numbers beside them.
    static const char* const open[] = {"AUTODETECT_TYPE=YES", "EMPTY_STRING_AS_NULL=YES", nullptr};
    const GDALDatasetUniquePtr dataset = openDataset(path, GDAL_OF_VECTOR, open);
    LoadNotes notes;
    QStringList layers;
    int objects = 0;
    bool found = options.layer.isEmpty();
    for (OGRLayer* layer : dataset->GetLayers()) {
        const QString name = QString::fromUtf8(layer->GetName());
        layers.append(name);
        if (!options.layer.isEmpty() && name != options.layer)
            continue;
        found = true;
        CPLErrorReset();
        objects += LayerReader(model, *layer, path, options).read(notes);
        if (CPLGetLastErrorType() >= CE_Failure) {
            throw LoadError(path, QStringLiteral("reading layer %1 failed: %2").arg(name, QuietGdal::lastMessage()),
                            QStringLiteral("the file may be damaged; copy it again from its source"));
        }
    }
    if (!found)
        throw LoadError(path, QStringLiteral("there is no layer \"%1\"").arg(options.layer),
                        QStringLiteral("it has: %1").arg(layers.join(QStringLiteral(", "))));
    if (objects == 0) {
        QString cause = QStringLiteral("no object was found in it");
        for (const QString& note : qAsConst(notes))
            cause += QStringLiteral("; ") + note.mid(path.size() + 2);
        throw LoadError(path, cause, QStringLiteral("check it at its source"));
    }
    return notes;
}

} // namespace kpFormats
