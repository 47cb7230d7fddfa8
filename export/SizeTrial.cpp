// SPDX-License-Identifier: MIT
#include "export/SizeTrial.h"

#include "export/PreparedFile.h"
#include "model/ObjectSlice.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QLocale>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace kpFormats
{

namespace
{

constexpr std::size_t sampleObjects = 32; // of each type
constexpr int sampleVertices = 2048;

/// Characters of a value and what parts it from the next, from values all over the column.
qint64 widthOf(const AttributeColumn& column)
{
    constexpr int numberWidth = 11;
    constexpr int looked = 50;
    if (column.kind == AttributeKind::Real || column.values.isEmpty())
        return numberWidth;
    qint64 characters = 0;
    const int count = std::min(looked, column.values.size());
    for (int index = 0; index < count; ++index)
        characters += column.values[static_cast<int>(qint64(index) * column.values.size() / count)].toString().size();
    return characters / count + 1;
}

qint64 mostRows(const std::vector<const ModelObject*>& objects)
{
    qint64 most = 0;
    for (const ModelObject* object : objects)
        most = std::max(most, object->rowCount());
    return most;
}

} // namespace

SizeTrial::SizeTrial(const Format& format, const ExportSelection& selection, const SettingsValue& settings)
    : m_format(format)
    , m_selection(selection)
    , m_settings(settings)
    , m_info(format.info())
{
}

qint64 SizeTrial::bytesOf(const PlannedFile& file)
{
    ByType objects;
    for (const ModelObject* object : file.objects)
        objects[object->type].push_back(object);
    std::vector<ObjectType> types;
    for (const auto& entry : objects)
        types.push_back(entry.first);
    auto rates = m_rates.find(types);
    if (rates == m_rates.end())
        rates =
            m_rates.emplace(types, measure(file, file.objects.size() == 1 ? largest(types.front()) : objects)).first;
    double bytes = rates->second.fixed;
    for (const auto& entry : objects)
        bytes += rates->second.slopes[entry.first] * guess(entry.second);
    return std::llround(std::max(0.0, bytes));
}

SizeTrial::ByType SizeTrial::largest(ObjectType type) const
{
    const ModelObject* most = nullptr;
    for (const ModelObject* object : m_selection.objects) {
        if (object->type == type && (!most || object->rowCount() > most->rowCount()))
            most = object;
    }
    return {{type, {most}}};
}

SizeTrial::Rates SizeTrial::measure(const PlannedFile& file, const ByType& objects) const
{
    Rates rates;
    try {
        const Sample all = write(file, objects, {});
        rates.fixed = all.bytes;
        // What a type takes in the company of the others: a table has a column for each attribute of any object.
        for (const auto& entry : all.guesses) {
            const Sample fewer = write(file, objects, entry.first);
            const double less = entry.second - fewer.guesses.at(entry.first);
            const double slope = less > 0 ? std::max(0.0, all.bytes - fewer.bytes) / less : 0.0;
            rates.slopes[entry.first] = slope;
            rates.fixed -= slope * entry.second;
        }
    } catch (const std::exception&) {
        rates.fixed = 0.0;
        for (const auto& entry : objects)
            rates.slopes[entry.first] = 1.0;
    }
    return rates;
}

SizeTrial::Sample SizeTrial::write(const PlannedFile& file, const ByType& objects,
                                   std::optional<ObjectType> reduced) const
{
    constexpr int reduction = 4;
    std::vector<ModelObject> slices;
    slices.reserve(objects.size() * sampleObjects);
    Sample sample;
    std::vector<const ModelObject*> chosen;
    for (const auto& entry : objects) {
        const std::size_t total = entry.second.size();
        std::size_t count = std::min(sampleObjects, total);
        int vertices = std::max(sampleVertices / static_cast<int>(count), 2);
        if (reduced == entry.first && total < reduction)
            vertices = std::min(vertices, static_cast<int>(mostRows(entry.second))) / reduction;
        else if (reduced == entry.first)
            count = std::max<std::size_t>(1, count / reduction);
        std::vector<const ModelObject*> ofType;
        for (std::size_t index = 0; index < count; ++index) {
            slices.push_back(sliceOf(*entry.second[index * total / count], vertices));
            ofType.push_back(&slices.back());
        }
        sample.guesses[entry.first] = guess(ofType);
        chosen.insert(chosen.end(), ofType.begin(), ofType.end());
    }
    const QTemporaryDir folder;
    ExportSelection selection = m_selection;
    selection.objects = chosen;
    Findings findings;
    const QString path = folder.filePath(QFileInfo(file.path).fileName());
    const auto prepared = m_format.prepare({path, chosen, file.renamedFrom}, selection, m_settings, findings);
    prepared->write(path, findings, nullptr);
    for (const QFileInfo& written : QDir(folder.path()).entryInfoList(QDir::Files))
        sample.bytes += static_cast<double>(written.size());
    return sample;
}

double SizeTrial::guess(const std::vector<const ModelObject*>& objects) const
{
    constexpr int bytesPerCoordinate = 13;
    constexpr int bytesPerValue = 11;
    constexpr int bytesPerTriangle = 24;
    constexpr int cornersPerCell = 8;
    // As in a table: every row has every column of the file, be it with a mark for "missing".
    QHash<QString, qint64> columns;
    qint64 vertices = 0;
    qint64 rows = 0;
    qint64 bytes = 0;
    for (const ModelObject* object : objects) {
        for (const AttributeColumn& column : object->vertexAttributes) {
            if (m_info.supportsAttributes && m_selection.wantsAttribute(column.name) && !columns.contains(column.name))
                columns.insert(column.name, widthOf(column));
        }
        for (const ObjectAttribute& attribute : object->objectAttributes) {
            if (m_info.supportsAttributes && m_selection.wantsAttribute(attribute.name)
                && !columns.contains(attribute.name))
                columns.insert(attribute.name, attribute.value.toString().size() + 1);
        }
        vertices += object->vertexCount();
        rows += m_info.valuesOfFeatures && !object->parts.empty() ? static_cast<qint64>(object->parts.size())
                                                                  : object->vertexCount();
        if (object->section) {
            for (const SectionSegment& segment : object->section->segments)
                vertices += static_cast<qint64>(segment.z.size());
        }
        bytes += static_cast<qint64>(object->triangles.size()) * bytesPerTriangle;
        if (object->cells)
            bytes += (object->rowCount() - object->vertexCount())
                     * (cornersPerCell + static_cast<qint64>(object->cells->cellAttributes.size())) * bytesPerValue;
    }
    const qint64 row = std::accumulate(columns.cbegin(), columns.cend(), qint64(0));
    return static_cast<double>(bytes + vertices * 3 * bytesPerCoordinate + rows * row);
}

QString sizeText(qint64 bytes)
{
    return QLocale::c().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

} // namespace kpFormats
