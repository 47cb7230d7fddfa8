// SPDX-License-Identifier: MIT
// Shapefile and MapInfo TAB with 200,000 features and 6 attributes: a bare loop on GDAL's C++ API, our exporter with its
// layers at hand, and the saver of the program from the model to the checked file. All in one run, on the same values,
// with the same fields and options.
#include "export/ExportReport.h"
#include "formats/ogr/ShpFormat.h"
#include "formats/ogr/TabFormat.h"
#include "geo/GdalSession.h"
#include "ogr/OGRExporter.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <random>
#include <string>

namespace
{

using namespace kpFormats;
using kpBaseExport::OGRAttributeInfo;
using kpBaseExport::OGRExporter;
using kpBaseExport::OGRExporterOptions;
using kpBaseExport::OGRFeatureDetails;
using kpBaseExport::OGRLayerInfo;

constexpr std::size_t features = 200000;
constexpr const char* bounds = "BOUNDS=498999.000000000,7398999.000000000,601001.000000000,7501001.000000000";

/// The values as a program in C++ would have them.
struct Values
{
    std::vector<double> x, y, z, dip, grade;
    std::vector<int> code;
    std::vector<std::string> unit, site;
};

const Values& values()
{
    static const Values made = [] {
        std::mt19937_64 random(1);
        std::uniform_real_distribution<double> share(0, 1);
        Values all;
        for (std::size_t index = 0; index < features; ++index) {
            all.x.push_back(500000 + 100000 * share(random));
            all.y.push_back(7400000 + 100000 * share(random));
            all.z.push_back(1000 * share(random));
            all.dip.push_back(static_cast<int>(9000 * share(random)) / 100.0);
            all.grade.push_back(static_cast<int>(1e6 * share(random)) / 1e4);
            all.code.push_back(static_cast<int>(99999 * share(random)));
            all.unit.push_back("Formation " + std::to_string(index % 40));
            all.site.push_back("Site " + std::to_string(index));
        }
        return all;
    }();
    return made;
}

struct Field
{
    const char* name;
    OGRFieldType type;
    int width;
    int decimals;
};

// As the saver sizes them; a MapInfo table has numbers of a fixed size.
constexpr Field shpFields[] = {{"name", OFTString, 5, 0},  {"dip", OFTReal, 5, 2},     {"grade", OFTReal, 7, 4},
                               {"code", OFTInteger, 5, 0}, {"unit", OFTString, 12, 0}, {"site", OFTString, 11, 0}};
constexpr Field tabFields[] = {{"name", OFTString, 5, 0},  {"dip", OFTReal, 0, 0},     {"grade", OFTReal, 0, 0},
                               {"code", OFTInteger, 0, 0}, {"unit", OFTString, 12, 0}, {"site", OFTString, 11, 0}};

QString outputPath(bool shp)
{
    static const QTemporaryDir shpFolder;
    static const QTemporaryDir tabFolder;
    return shp ? shpFolder.filePath(QStringLiteral("out.shp")) : tabFolder.filePath(QStringLiteral("out.tab"));
}

/// What all files of the set take: the same for each of the three ways.
double bytesWritten(bool shp)
{
    double bytes = 0;
    for (const char* extension : {"shp", "shx", "dbf", "dat", "map", "id"})
        bytes += static_cast<double>(
            QFileInfo(outputPath(shp).section(QLatin1Char('.'), 0, -2) + QLatin1Char('.') + QLatin1String(extension))
                .size());
    return bytes;
}

CPLStringList layerOptions(bool shp)
{
    CPLStringList options;
    options.AddString(shp ? "ENCODING=UTF-8" : "ENCODING=CP1252");
    if (!shp)
        options.AddString(bounds);
    return options;
}

/// With \a oneMark without the mark that the driver would write after each record of the table.
void bareLoop(benchmark::State& state, bool shp, bool oneMark)
{
    registerGdalDrivers();
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(shp ? "ESRI Shapefile" : "MapInfo File");
    const QByteArray path = outputPath(shp).toUtf8();
    const Values& from = values();
    for (auto step : state) {
        const QuietGdal quiet;
        driver->Delete(path.constData());
        GDALDatasetUniquePtr dataset(driver->Create(path.constData(), 0, 0, 0, GDT_Unknown, nullptr));
        CPLStringList options = layerOptions(shp);
        if (oneMark)
            options.AddString("DBF_EOF_CHAR=NO");
        OGRLayer* layer = dataset->CreateLayer("out", nullptr, shp ? wkbPoint25D : wkbPoint, options.List());
        for (const Field& entry : shp ? shpFields : tabFields) {
            OGRFieldDefn field(entry.name, entry.type);
            field.SetWidth(entry.width);
            field.SetPrecision(entry.decimals);
            layer->CreateField(&field);
        }
        for (std::size_t index = 0; index < features; ++index) {
            const OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(layer->GetLayerDefn()));
            feature->SetField(0, "Cloud");
            feature->SetField(1, from.dip[index]);
            feature->SetField(2, from.grade[index]);
            feature->SetField(3, from.code[index]);
            feature->SetField(4, from.unit[index].c_str());
            feature->SetField(5, from.site[index].c_str());
            const OGRPoint point =
                shp ? OGRPoint(from.x[index], from.y[index], from.z[index]) : OGRPoint(from.x[index], from.y[index]);
            feature->SetGeometry(&point);
            if (layer->CreateFeature(feature.get()) != OGRERR_NONE)
                state.SkipWithError("GDAL refused a feature");
        }
    }
    state.counters["bytes"] = bytesWritten(shp);
}

OGRLayerInfo layerInfo(bool shp)
{
    OGRLayerInfo layer(QStringLiteral("out"), {}, {}, QString());
    for (const Field& entry : shp ? shpFields : tabFields) {
        OGRAttributeInfo info(QString::fromLatin1(entry.name), entry.type, 0);
        info.size(entry.width, entry.decimals);
        layer.append(info);
    }
    const Values& from = values();
    for (std::size_t index = 0; index < features; ++index) {
        OGRFeatureDetails details(shp ? wkbPoint25D : wkbPoint, 1);
        details.append_point(shp ? OGRPoint(from.x[index], from.y[index], from.z[index])
                                 : OGRPoint(from.x[index], from.y[index]));
        details.append_object_attribute(QStringLiteral("Cloud"));
        details.append_object_attribute(from.dip[index]);
        details.append_object_attribute(from.grade[index]);
        details.append_object_attribute(from.code[index]);
        details.append_object_attribute(QString::fromStdString(from.unit[index]));
        details.append_object_attribute(QString::fromStdString(from.site[index]));
        layer.append(details);
    }
    return layer;
}

void exporter(benchmark::State& state, bool shp)
{
    registerGdalDrivers();
    const QVector<OGRLayerInfo> layers{layerInfo(shp)};
    OGRExporterOptions options;
    options.utf8 = true;
    options.fieldSizes = true;
    options.recordRefusals = true;
    options.layerOptions.append(shp ? QStringLiteral("ENCODING=UTF-8") : QStringLiteral("ENCODING=CP1252"));
    if (!shp)
        options.layerOptions.append(QString::fromLatin1(bounds));
    for (auto step : state) {
        OGRExporter writer(outputPath(shp), shp ? QStringLiteral("ESRI Shapefile") : QStringLiteral("MapInfo File"),
                           nullptr);
        writer.options(options);
        writer.writeAttributes(true);
        if (!writer.write(layers))
            state.SkipWithError("the exporter failed");
    }
    state.counters["bytes"] = bytesWritten(shp);
}

AttributeColumn column(const char* name, const std::vector<double>& numbers)
{
    AttributeColumn made;
    made.name = QString::fromLatin1(name);
    made.numbers = std::make_shared<const std::vector<double>>(numbers);
    return made;
}

template <typename List, typename Make>
AttributeColumn column(const char* name, AttributeKind kind, const List& list, Make make)
{
    AttributeColumn made;
    made.name = QString::fromLatin1(name);
    made.kind = kind;
    for (const auto& entry : list)
        made.values.append(make(entry));
    return made;
}

ModelObject cloud()
{
    const Values& from = values();
    const auto text = [](const std::string& entry) { return QVariant(QString::fromStdString(entry)); };
    ModelObject object;
    object.name = QStringLiteral("Cloud");
    object.x = std::make_shared<const std::vector<double>>(from.x);
    object.y = std::make_shared<const std::vector<double>>(from.y);
    object.z = std::make_shared<const std::vector<double>>(from.z);
    object.vertexAttributes = {
        column("dip", from.dip), column("grade", from.grade),
        column("code", AttributeKind::Integer, from.code, [](int entry) { return QVariant(entry); }),
        column("unit", AttributeKind::Text, from.unit, text), column("site", AttributeKind::Text, from.site, text)};
    return object;
}

void saver(benchmark::State& state, bool shp)
{
    const ModelObject object = cloud();
    std::unique_ptr<const Format> format;
    if (shp)
        format = std::make_unique<ShpFormat>();
    else
        format = std::make_unique<TabFormat>();
    SettingsValue settings = format->defaults();
    settings.set(QStringLiteral("color"), QStringLiteral("false"));
    if (!shp)
        settings.set(QStringLiteral("zField"), QStringLiteral("false"));
    ExportSelection selection;
    selection.objects = {&object};
    selection.path = outputPath(shp);
    const PlannedFile file = format->files(selection, settings).front();
    for (auto step : state) {
        Findings findings;
        if (format->prepare(file, selection, settings, findings)->write(file.path, findings, nullptr)
            != static_cast<qint64>(features))
            state.SkipWithError("features are missing");
    }
    state.counters["bytes"] = bytesWritten(shp);
}

BENCHMARK_CAPTURE(bareLoop, shp, true, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bareLoop, shpOneMark, true, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(exporter, shp, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(saver, shp, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bareLoop, tab, false, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(exporter, tab, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(saver, tab, false)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
