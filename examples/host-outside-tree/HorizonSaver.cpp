// SPDX-License-Identifier: MIT
#include "HorizonSaver.h"

#include "HorizonSheet.h"

#include "host/data/AbstractProgress.h"
#include "wizard/QExportWizard.h"

#include <QSaveFile>

HorizonSaver::HorizonSaver(const kpFormats::Model& model)
    : AbstractSaver("horizons")
    , m_model(model)
{
    m_formatDisplay = QStringLiteral("Horizons (example)");
    m_currentFileFormatName = QStringLiteral("Horizon");
    m_currentDefaultFileFormatExt = QStringLiteral("hor");
    m_currentAllFileFormatExt = QStringLiteral("*.hor");
    m_supportedTypes = {kpFormats::typeKey(kpFormats::ObjectType::VertexClouds)};
    m_supportsAttributes = false;
}

void HorizonSaver::set_selection(const QString&, const std::vector<int>& ids, const std::vector<std::string>& names,
                                 const std::vector<std::string>&)
{
    m_ids = ids;
    m_names = names;
}

bool HorizonSaver::new_save(const std::string& path, kpBase::AbstractProgress* progress)
{
    const auto* page = dynamic_cast<const HorizonSheet*>(m_sheets.first());
    const kpUnits units = page->units();
    const double scale = 1.0 / units.metresPerUnit();
    QStringList files;
    generateFileNamesPerGeo(fileNameWithExtension(QString::fromStdString(path)), m_names, files);
    m_savedFilenames.clear();
    for (int index = 0; index < files.size(); ++index) {
        const kpFormats::ModelObject& horizon = *m_model.find(m_ids[static_cast<std::size_t>(index)]);
        const QString name = page->usesHorizonNames() ? horizon.name : QString::number(index + 1);
        QByteArray text = "horizon " + name.toUtf8() + "\nunit " + units.abbreviation()
                          + (units.zIsElevation() ? " elevation\n" : " depth\n");
        for (int point = 0; point < horizon.vertexCount(); ++point) {
            const auto row = static_cast<std::size_t>(point);
            const double z = units.zIsElevation() ? (*horizon.z)[row] : -(*horizon.z)[row];
            for (const double number : {(*horizon.x)[row], (*horizon.y)[row]})
                text += QByteArray::number(number * scale, 'f', 2) + ' ';
            text += QByteArray::number(z * scale, 'f', 2) + '\n';
        }
        // The earlier file stays as it is until the new one is complete.
        QSaveFile file(files[index]);
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit()) {
            if (auto* wizard = dynamic_cast<kpBaseExport::QExportWizard*>(get_wizard()))
                wizard->setErrorMessage(files[index].toHtmlEscaped(), file.errorString().toHtmlEscaped());
            return false;
        }
        m_savedFilenames.push_back(files[index].toStdString());
        progress->progressChanged((index + 1) * 100 / files.size());
        if (progress->isCancelled())
            return false;
    }
    return true;
}
