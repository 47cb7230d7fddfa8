// SPDX-License-Identifier: MIT
#pragma once

#include "app/jobs/ExportRun.h"
#include "app/readers/ModelLoader.h"
#include "host/data/AbstractProgress.h"
#include "tests/app/FileContent.h"

#include <QFileInfo>
#include <QTemporaryDir>

/// What the tests of the formats share: small models, one run, what it left.
namespace formattest
{

using namespace refhost;

inline Numbers numbers(std::vector<double> values)
{
    return std::make_shared<const std::vector<double>>(std::move(values));
}

inline ModelObject object(const QString& name, std::vector<double> x, std::vector<double> y, std::vector<double> z)
{
    ModelObject made;
    made.name = name;
    made.color = QColor(255, 0, 51);
    made.x = numbers(std::move(x));
    made.y = numbers(std::move(y));
    made.z = numbers(std::move(z));
    return made;
}

inline AttributeColumn realColumn(const QString& name, std::vector<double> values, std::vector<unsigned char> missing = {})
{
    AttributeColumn column;
    column.name = name;
    column.numbers = numbers(std::move(values));
    if (!missing.empty())
        column.missing = std::make_shared<const std::vector<unsigned char>>(std::move(missing));
    return column;
}

/// A grid surface of height 100 * row + column.
inline ModelObject grid(int columns, int rows, double step = 10.0)
{
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            x.push_back(1000.0 + column * step);
            y.push_back(2000.0 + row * step);
            z.push_back(100.0 * row + column);
        }
    }
    ModelObject made = object(QStringLiteral("grid"), x, y, z);
    made.type = ObjectType::GridSurfaces;
    GridGeometry geometry;
    geometry.columns = columns;
    geometry.rows = rows;
    geometry.originX = 1000.0;
    geometry.originY = 2000.0;
    geometry.stepX = step;
    geometry.stepY = step;
    made.grid = geometry;
    return made;
}

/// A box of cells of 10 x 10 x 5, its top at a depth of 1000, with a porosity of 0.25.
inline ModelObject cellBox(int columns, int rows, int layers)
{
    CellGrid cells;
    cells.columns = columns;
    cells.rows = rows;
    cells.layers = layers;
    for (int j = 0; j <= rows; ++j) {
        for (int i = 0; i <= columns; ++i) {
            for (const double depth : {1000.0, 1000.0 + 5.0 * layers})
                cells.coord.insert(cells.coord.end(), {i * 10.0, j * 10.0, depth});
        }
    }
    for (int k = 0; k < 2 * layers; ++k)
        cells.zcorn.insert(cells.zcorn.end(), static_cast<std::size_t>(4 * columns * rows), 1000.0 + 5.0 * ((k + 1) / 2));
    cells.cellAttributes.push_back(realColumn(QStringLiteral("PORO"), std::vector<double>(static_cast<std::size_t>(columns * rows * layers), 0.25)));
    ModelObject made = object(QStringLiteral("box"), {0.0}, {0.0}, {-1000.0});
    made.type = ObjectType::GeoCellularVolumes;
    made.cells = std::make_shared<const CellGrid>(std::move(cells));
    return made;
}

/// Cancels at the call of isCancelled() of that number; keeps the largest percent.
class CancelAt : public kpBase::AbstractProgress
{
public:
    explicit CancelAt(int call)
        : m_call(call)
    {
    }

    void progressStarted(bool) override {}
    void progressChanged(int percent) override
    {
        backwards = backwards || percent < largest;
        largest = std::max(largest, percent);
    }
    bool isCancelled() const override { return ++m_calls >= m_call; }
    void progressFinished() override {}

    int calls() const { return m_calls; }

    int largest = 0;
    bool backwards = false;

private:
    int m_call;
    mutable int m_calls = 0;
};

/// One run of a format over objects.
class Run
{
public:
    Run(ExportFormat& format, std::vector<const ModelObject*> objects, const QString& path)
        : m_format(format)
    {
        selection.objects = std::move(objects);
        selection.path = path;
    }

    bool go(kpBase::AbstractProgress* progress = nullptr)
    {
        files = m_format.plan(selection);
        return runExport(m_format, selection, files, progress, report);
    }

    Verification verify(std::size_t file = 0) { return m_format.verify(files.at(file), files.at(file).path, selection); }
    QByteArray bytes(std::size_t file = 0) const { return contentOf(files.at(file).path); }
    /// What went wrong with a file or an object of it.
    QString error(std::size_t file = 0) const
    {
        const FileOutcome& outcome = report.files().at(file);
        QString text = outcome.error;
        for (const FailedObject& failed : outcome.failedObjects)
            text += QStringLiteral("; %1: %2").arg(failed.name, failed.reason);
        return text;
    }
    QStringList kinds() const
    {
        QStringList found;
        for (const Finding& finding : report.findings())
            found.append(finding.kind);
        return found;
    }

    ExportSelection selection;
    std::vector<PlannedFile> files;
    ExportReport report;

private:
    ExportFormat& m_format;
};

inline std::vector<const ModelObject*> pointers(const Model& model)
{
    std::vector<const ModelObject*> all;
    for (const ModelObject& one : model.objects())
        all.push_back(&one);
    return all;
}

/// A file of the data that may be absent; empty when it is.
inline QString sharedData(const char* name)
{
    const QString path = QStringLiteral(KP_SOURCE_DIR "/../shared/data/") + QString::fromLatin1(name);
    return QFileInfo::exists(path) ? path : QString();
}

inline QString sample(const char* name)
{
    return QStringLiteral(KP_SOURCE_DIR "/examples/sample/") + QString::fromLatin1(name);
}

} // namespace formattest
