// SPDX-License-Identifier: MIT
// The ASCII page on a million rows and on 5,000 attributes: from a change to the preview that shows it.
#include "pages/AsciiSheet.h"
#include "pages/AsciiSpecification.h"
#include "spec/QESAttributeTableWidget.h"
#include "spec/QESSpecificationTableWidget.h"
#include "window/ExportWizard.h"
#include "window/HostContext.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSettings>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>

namespace
{

using Clock = std::chrono::steady_clock;

constexpr int manyRows = 1000000;
constexpr int manyAttributes = 5000;

refhost::HostContext& context()
{
    static refhost::HostContext made;
    if (made.model.objects().empty()) {
        std::vector<double> numbers(manyRows);
        for (int row = 0; row < manyRows; ++row)
            numbers[static_cast<std::size_t>(row)] = 500000.0 + row * 0.37;
        kpFormats::ModelObject rows;
        rows.name = QStringLiteral("rows");
        rows.x = rows.y = rows.z = std::make_shared<const std::vector<double>>(numbers);
        for (const char* name : {"a", "b", "c"}) {
            kpFormats::AttributeColumn column;
            column.name = QString::fromLatin1(name);
            column.numbers = rows.x;
            rows.vertexAttributes.push_back(column);
        }
        kpFormats::AttributeColumn text;
        text.name = QStringLiteral("unit");
        text.kind = kpFormats::AttributeKind::Text;
        text.values.fill(QStringLiteral("Sandstone"), manyRows);
        rows.vertexAttributes.push_back(text);
        made.model.add(std::move(rows));
        kpFormats::ModelObject wide;
        wide.name = QStringLiteral("wide");
        wide.x = wide.y = wide.z = std::make_shared<const std::vector<double>>(100, 1.0);
        for (int index = 0; index < manyAttributes; ++index)
            wide.objectAttributes.push_back(
                {QStringLiteral("attribute %1").arg(index), kpFormats::AttributeKind::Integer, {}, index});
        made.model.add(std::move(wide));
    }
    return made;
}

struct Page
{
    explicit Page(int id)
        : wizard(context(), nullptr)
    {
        QSettings().clear();
        wizard.setFormatAndSelectedGeo("ascii", {id});
        wizard.startup();
        wizard.show();
        editor = wizard.findChild<kpFormats::AsciiSpecification*>();
        preview = wizard.findChild<QPlainTextEdit*>(QStringLiteral("preview"));
    }
    refhost::ExportWizard wizard;
    kpFormats::AsciiSpecification* editor;
    QPlainTextEdit* preview;
};

/// Time from a change of decimals to the preview that shows it. \a atOnce: while the data are still being looked at.
void changeToPreview(benchmark::State& state)
{
    Page page(1);
    const bool busy = state.range(0) != 0;
    const auto settle = Clock::now() + std::chrono::milliseconds(busy ? 0 : 3000);
    while (Clock::now() < settle)
        QApplication::processEvents();
    double worst = 0;
    int decimals = 0;
    for (auto step : state) {
        const auto begin = Clock::now();
        const QString before = page.preview->toPlainText();
        decimals = (decimals + 1) % 8;
        page.editor->m_fieldTable->item(0, 2)->setText(QString::number(decimals));
        while (page.preview->toPlainText() == before)
            QApplication::processEvents();
        worst = std::max(worst, std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
    }
    state.counters["worst_ms"] = worst;
}
BENCHMARK(changeToPreview)->Arg(0)->Arg(1)->ArgName("busy")->Iterations(25)->Unit(benchmark::kMillisecond);

/// Time until everything is known of a million rows.
void lookAtTheData(benchmark::State& state)
{
    const kpFormats::ModelObject* object = context().model.find(1);
    const auto offered = kpFormats::offeredFields({object});
    for (auto step : state) {
        kpFormats::AsciiProfile profile;
        profile.start({object}, offered,
                      {QStringLiteral(","), QStringLiteral(";"), QStringLiteral(" "), QStringLiteral("\t")});
        while (!profile.advance(8)) {
        }
    }
}
BENCHMARK(lookAtTheData)->Unit(benchmark::kMillisecond);

void show5000Attributes(benchmark::State& state)
{
    Page page(2);
    page.editor->clearFields();
    for (auto step : state) {
        page.editor->activate();
        QApplication::processEvents();
    }
    if (page.editor->m_attributeTable->rowCount() < manyAttributes)
        state.SkipWithError("the list is short");
}
BENCHMARK(show5000Attributes)->Unit(benchmark::kMillisecond);

void filter5000Attributes(benchmark::State& state)
{
    Page page(2);
    page.editor->clearFields();
    page.editor->activate();
    auto* filter = page.wizard.findChild<QLineEdit*>(QStringLiteral("attributeFilter"));
    bool narrow = false;
    for (auto step : state) {
        filter->setText(narrow ? QString() : QStringLiteral("49"));
        narrow = !narrow;
        QApplication::processEvents();
    }
}
BENCHMARK(filter5000Attributes)->Unit(benchmark::kMillisecond);

void layOut5000Attributes(benchmark::State& state)
{
    for (auto step : state) {
        Page page(2);
        QApplication::processEvents();
        benchmark::DoNotOptimize(page.editor->size());
    }
}
BENCHMARK(layOut5000Attributes)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    QCoreApplication::setOrganizationName(QStringLiteral("kp-bench"));
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
