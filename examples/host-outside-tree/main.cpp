// SPDX-License-Identifier: MIT
#include "HorizonSaver.h"
#include "HorizonSheet.h"
#include "PointFormat.h"

#include "core/saver/AbstractSaverFactory.h"
#include "export/ExportRun.h"
#include "geo/CoordinateSystems.h"
#include "host/data/AbstractProgress.h"
#include "pages/FormatWizard.h"
#include "pages/SheetFactory.h"
#include "pages/WizardFormats.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QSpinBox>
#include <QTextEdit>

#include <cstdio>

using namespace kpFormats;

namespace
{

Numbers numbers(std::vector<double> values)
{
    return std::make_shared<const std::vector<double>>(std::move(values));
}

/// The host's numbers are shared with the kit, not copied.
void addHorizon(Model& model, const QString& name, const Numbers& x, const Numbers& y, const Numbers& z,
                const Numbers& amplitude)
{
    ModelObject horizon;
    horizon.name = name;
    horizon.x = x;
    horizon.y = y;
    horizon.z = z;
    horizon.crs = wktOf("EPSG:28350");
    AttributeColumn column;
    column.name = "amplitude";
    column.numbers = amplitude;
    horizon.vertexAttributes.push_back(column);
    model.add(horizon);
}

/// The formats of the kit and the one of this host.
Formats allFormats()
{
    Formats formats = makeFormats();
    formats.push_back(std::make_unique<PointFormat>());
    return formats;
}

class HorizonSaverFactory : public kpBaseExport::AbstractSaverFactory
{
public:
    explicit HorizonSaverFactory(const Model& model)
        : AbstractSaverFactory("horizons", false)
        , m_model(model)
    {
    }
    boost::shared_ptr<kpBaseExport::AbstractSaver> create_product() override
    {
        return boost::shared_ptr<kpBaseExport::AbstractSaver>(create_product_unmanaged());
    }
    kpBaseExport::AbstractSaver* create_product_unmanaged() override { return new HorizonSaver(m_model); }

private:
    const Model& m_model;
};

/// The user who cancels while a file is being written.
class CancelSoon : public kpBase::AbstractProgress
{
public:
    void progressStarted(bool) override {}
    void progressChanged(int) override {}
    bool isCancelled() const override { return ++m_asked > 1; }
    void progressFinished() override {}

private:
    mutable int m_asked = 0;
};

/// Exports with the host's own two formats into \a folder without a user: each wizard is led by its pages' controls,
/// as a test does it.
bool exportWithoutUser(const Model& model, const QDir& folder)
{
    struct Run
    {
        const char* key;
        const char* file;
        void (*choose)(QWidget&);
    };
    const Run runs[] = {{"points", "points", [](QWidget& page) { page.findChild<QSpinBox*>("decimals")->setValue(3); }},
                        {"horizons", "horizons.hor", [](QWidget& page) {
                             page.findChild<QComboBox*>("m_lengthUnit")->setCurrentText("Feet (ft)");
                             page.findChild<QAbstractButton*>("m_depth")->click();
                         }}};
    for (const Run& run : runs) {
        FormatWizard wizard(model);
        wizard.startup();
        auto* formats = wizard.findChild<QComboBox*>("fileFormatComboBox");
        formats->setCurrentIndex(formats->findData(QString(run.key)));
        wizard.activate_next_sheet();
        run.choose(*wizard.current_sheet()->pageWidget());
        wizard.slotSaveClicked(folder.filePath(run.file), true);
        const QString report = wizard.findChild<QTextEdit*>("reportView")->toPlainText();
        if (!report.contains("Data has been exported successfully!")) {
            std::fprintf(stderr, "%s\n", qPrintable(report));
            return false;
        }
    }
    return true;
}

struct Tally
{
    int tried = 0;
    int written = 0;
};

/// Exports with every format that takes points, without the wizard.
Tally exportEverything(const Model& model, const QDir& folder, kpBase::AbstractProgress* progress)
{
    Tally formats;
    for (const auto& format : allFormats()) {
        const FormatInfo info = format->info();
        if (std::find(info.types.begin(), info.types.end(), ObjectType::VertexClouds) == info.types.end())
            continue;
        ++formats.tried;
        ExportSelection selection;
        for (const ModelObject& object : model.objects())
            selection.objects.push_back(&object);
        selection.path = folder.filePath(info.key + '.' + info.defaultExtension);
        PreparedExport prepared(*format, selection, format->defaults());
        const ExportReport report = runExport(prepared, progress);
        for (const FileOutcome& file : report.files()) {
            if (!file.written())
                std::fprintf(stderr, "%s: %s\n", qPrintable(file.path), qPrintable(file.error));
        }
        formats.written += report.cancelled || report.anyFailed() ? 0 : 1;
    }
    return formats;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName("outsidehost");
    Model model;
    addHorizon(model, "Top", numbers({500100.25, 500200.5}), numbers({7500000, 7500000}), numbers({-1200.5, -1210}),
               numbers({0.125, 0.25}));
    addHorizon(model, "Основа", numbers({500100}), numbers({7500010}), numbers({-1500}), numbers({-0.5}));

    // Savers and pages, made before the first wizard.
    const WizardFormats formats(model, allFormats());
    const HorizonSaverFactory horizons(model);
    const SheetFactory horizonPage("horizons", [] { return new HorizonSheet; });

    const QByteArray command = argc == 3 ? argv[1] : "";
    const QDir folder(argc == 3 ? QString::fromLocal8Bit(argv[2]) : QString());
    if (command == "--export")
        return exportWithoutUser(model, folder) ? 0 : 1;
    if (command == "--everything") {
        const Tally tally = exportEverything(model, folder, nullptr);
        return tally.written == tally.tried ? 0 : 1;
    }
    if (command == "--cancelled") {
        CancelSoon progress;
        return exportEverything(model, folder, &progress).written == 0 ? 0 : 1;
    }
    FormatWizard wizard(model);
    wizard.startup();
    wizard.exec();
    return 0;
}
