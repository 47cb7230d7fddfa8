// SPDX-License-Identifier: MIT
#include "formats/opentec/SectionNames.h"

#include <algorithm>

namespace kpFormats
{

const ModelObject* findSection(const ExportSelection& selection, const QString& name)
{
    const auto found =
        std::find_if(selection.objects.begin(), selection.objects.end(),
                     [&name](const ModelObject* object) { return object->section && object->name == name; });
    return found == selection.objects.end() ? nullptr : *found;
}

QStringList sectionNamesIn(const QString& list, const ExportSelection& selection)
{
    const QStringList parts = list.split(QLatin1Char(','));
    QStringList names;
    for (int first = 0; first < parts.size();) {
        int count = parts.size() - first;
        const auto joined = [&] { return parts.mid(first, count).join(QLatin1Char(',')).trimmed(); };
        while (count > 1 && !findSection(selection, joined()))
            --count;
        if (!joined().isEmpty())
            names.append(joined());
        first += count;
    }
    return names;
}

} // namespace kpFormats
