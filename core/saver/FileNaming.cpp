// SPDX-License-Identifier: MIT
#include "core/saver/FileNaming.h"

#include <QFileInfo>
#include <QHash>
#include <QVector>

#include <algorithm>

namespace kpBaseExport
{

namespace
{

struct SplitName
{
    explicit SplitName(const QString& path)
    {
        const QFileInfo info(path);
        front = info.absolutePath() + QLatin1Char('/') + info.baseName() + QLatin1Char('_');
        back = QLatin1Char('.') + info.completeSuffix();
    }

    QString with(const QString& middle) const { return front + middle + back; }

    QString front;
    QString back;
};

/// The numbers already found taken for one front and back. Names that differ only in how front and number share
/// digits never share this key, and a taken number stays taken, so a search may start where the last one ended.
using NextFree = QHash<QString, int>;

} // namespace

QStringList fileNamesPerObject(const QString& path, const std::vector<std::string>& objectNames)
{
    const SplitName pattern(path);
    QStringList names;
    names.reserve(static_cast<int>(objectNames.size()));
    QHash<QString, QVector<int>> places; // where in names each built name stands
    for (const std::string& objectName : objectNames) {
        const QString name = pattern.with(QString::fromStdString(objectName));
        places[name].append(names.size());
        names.append(name);
    }

    QStringList clashing;
    QHash<QString, bool> taken;
    for (auto place = places.cbegin(); place != places.cend(); ++place) {
        taken.insert(place.key(), true);
        if (place.value().size() > 1)
            clashing.append(place.key());
    }
    // Clashes are resolved in the order of their names, since each takes numbers from those after it.
    std::sort(clashing.begin(), clashing.end());

    NextFree nextFree;
    for (const QString& name : qAsConst(clashing)) {
        const QVector<int>& occurrences = places[name];
        const int count = occurrences.size();
        const SplitName split(name);
        const QString key = split.front + QLatin1Char('\n') + split.back;
        for (int occurrence = 1; occurrence <= count; ++occurrence) {
            int number = occurrence;
            QString candidate = split.with(QString::number(number));
            while (taken.contains(candidate)) {
                // Past the numbers 1 to n, the search goes on from n + 2, or from where an earlier one stopped.
                number = number <= count + 1 ? std::max(count + 2, nextFree.value(key, 0)) : number + 1;
                candidate = split.with(QString::number(number));
            }
            if (number > count + 1)
                nextFree[key] = number;
            taken.insert(candidate, true);
            names[occurrences[occurrence - 1]] = candidate;
        }
    }
    return names;
}

} // namespace kpBaseExport
