// SPDX-License-Identifier: MIT
// A hundred thousand objects: the list of the wizard's first page, and the naming of a file for each.
#include "core/saver/FileNaming.h"
#include "window/ExportWizard.h"
#include "window/HostContext.h"
#include "wizard/QObjectListModel.h"

#include <QApplication>
#include <QHeaderView>
#include <QPushButton>
#include <QTableView>

#include <benchmark/benchmark.h>

namespace
{

constexpr int objects = 100000;

refhost::HostContext& context()
{
    static refhost::HostContext made;
    if (made.model.objects().empty()) {
        const auto zero = std::make_shared<const std::vector<double>>(1, 0.0);
        for (int index = 0; index < objects; ++index) {
            kpFormats::ModelObject object;
            object.name = QStringLiteral("Object %1").arg((index * 7919) % objects);
            object.type = index % 2 ? kpFormats::ObjectType::Polylines : kpFormats::ObjectType::Wells;
            object.x = object.y = object.z = zero;
            made.model.add(std::move(object));
        }
    }
    return made;
}

void startUp(benchmark::State& state)
{
    context();
    for (auto step : state) {
        refhost::ExportWizard wizard(context(), nullptr);
        wizard.startup();
        wizard.show();
        QApplication::processEvents();
    }
}

/// Unchecks and checks every type, as "Deselect All" and "Select All" do.
void selectAllTypes(benchmark::State& state)
{
    refhost::ExportWizard wizard(context(), nullptr);
    wizard.startup();
    wizard.show();
    for (auto step : state) {
        Q_EMIT wizard.findChild<QPushButton*>(QStringLiteral("deselectAllButton"))->pressed();
        Q_EMIT wizard.findChild<QPushButton*>(QStringLiteral("selectAllButton"))->pressed();
        QApplication::processEvents();
    }
}

void sortByName(benchmark::State& state)
{
    refhost::ExportWizard wizard(context(), nullptr);
    wizard.startup();
    wizard.show();
    auto* view = wizard.findChild<QTableView*>(QStringLiteral("listViewObjects"));
    Qt::SortOrder order = Qt::DescendingOrder;
    for (auto step : state) {
        view->sortByColumn(0, order);
        order = order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
        QApplication::processEvents();
    }
}

/// Checks each row by its id, as "Match Model Selection" does.
void checkById(benchmark::State& state)
{
    kpBaseExport::QObjectListModel list(nullptr, QStringLiteral("Object"));
    for (int index = 0; index < objects; ++index)
        list.addName(QStringLiteral("Object %1").arg(index), index + 1, QStringLiteral("Wells"), false);
    for (auto step : state) {
        list.resetModel();
        for (int id = objects; id > 0; --id)
            list.setIdInListChecked(id);
    }
}

void nameFiles(benchmark::State& state)
{
    // All share one name, or half of them have taken the numbers that the others would get.
    std::vector<std::string> names;
    for (int index = 0; index < objects; ++index)
        names.push_back(state.range(0) == 0 || index % 2 == 0 ? "A" : "A_" + std::to_string(index / 2 + 1));
    for (auto step : state)
        benchmark::DoNotOptimize(kpBaseExport::fileNamesPerObject(QStringLiteral("/o/m.dat"), names));
}

BENCHMARK(startUp)->Unit(benchmark::kMillisecond);
BENCHMARK(selectAllTypes)->Unit(benchmark::kMillisecond);
BENCHMARK(sortByName)->Unit(benchmark::kMillisecond);
BENCHMARK(checkById)->Unit(benchmark::kMillisecond);
BENCHMARK(nameFiles)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
