// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>

namespace kpFormats
{

// What files from strangers may not ask for. The limits hold in the whole process from the call on; a program that
// embeds the library and sets none has what GDAL's own configuration says.

/// Keeps GDAL and PROJ from reaching the network, whatever a file, an indirection in it or the name of a coordinate
/// system asks for. To be called before either is used.
KPFORMATS_EXPORT void forbidNetwork();
KPFORMATS_EXPORT bool isNetworkForbidden();
/// The same for drivers that have been registered.
void limitDrivers();

/// Keeps model files from naming files outside their own folder.
KPFORMATS_EXPORT void forbidOutside();
/// Whether a model file may not name that file.
KPFORMATS_EXPORT bool isForbiddenOutside(const QString& modelFile, const QString& file);

/// While it lives the files of a model are read: what they name in turn must lie in the model's folder too.
class KPFORMATS_EXPORT ModelBounds
{
public:
    explicit ModelBounds(const QString& modelFile);
    ~ModelBounds();
    ModelBounds(const ModelBounds&) = delete;
    ModelBounds& operator=(const ModelBounds&) = delete;

private:
    QString m_before;
};

/// Whether a model is read whose files may not name others as they like.
KPFORMATS_EXPORT bool hasBounds();
/// Whether they may not name that one.
KPFORMATS_EXPORT bool isOutOfBounds(const QString& file);

} // namespace kpFormats
