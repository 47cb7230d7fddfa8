// SPDX-License-Identifier: MIT
#include "PointSaver.h"

#include "PointSheet.h"

#include "host/data/DoubleMatrixData.h"
#include "wizard/QExportWizard.h"
#include "writers/MatrixDataAsciiExporter.h"

#include <algorithm>

using kpBase::DoubleMatrixData;
using kpBaseExport::MatrixDataAsciiExporter;

PointSaver::PointSaver(const Model& model)
    : AbstractSaver("points")
    , m_model(model)
{
    m_formatDisplay = QStringLiteral("Points as text");
    m_currentFileFormatName = QStringLiteral("Points");
    m_currentDefaultFileFormatExt = QStringLiteral("txt");
    m_currentAllFileFormatExt = QStringLiteral("*.txt");
    m_supportedTypes = {horizonType};
}

void PointSaver::set_selection(const QString&, const std::vector<int>& ids, const std::vector<std::string>&,
                               const std::vector<std::string>& attributes)
{
    m_ids = ids;
    m_attributes = attributes;
}

bool PointSaver::save(const std::vector<QString>& acceptedFiles, kpBase::AbstractProgress* progress)
{
    // The user declined to replace the one file.
    if (acceptedFiles.empty())
        return true;
    const auto* page = m_sheets.isEmpty() ? nullptr : dynamic_cast<const PointSheet*>(m_sheets.first());

    MatrixDataAsciiExporter writer(acceptedFiles.front(), progress);
    writer.useTruePath = true;
    writer.separator = 2;
    const int decimals = page ? page->decimals() : 2;
    for (const char* name : {"x", "y", "z"})
        writer.fields.push_back({QString::fromLatin1(name), decimals});
    for (const std::string& name : m_attributes)
        writer.fields.push_back({QString::fromStdString(name), decimals});
    if (!writer.fileOpen())
        return false;
    for (const int id : m_ids) {
        const Horizon& horizon = *m_model.find(id);
        kpBaseExport::GeoObject& record = *writer.geoObject();
        record.clearData();
        record.name = horizon.name.toStdString();
        // The record owns the matrices, and they share the model's numbers.
        record.vertexData() = {
            new DoubleMatrixData(QStringLiteral("x"), horizon.x), new DoubleMatrixData(QStringLiteral("x"), horizon.x),
            new DoubleMatrixData(QStringLiteral("y"), horizon.y), new DoubleMatrixData(QStringLiteral("z"), horizon.z)};
        record.vertexAttributeData() = {new DoubleMatrixData(horizon.valueName, horizon.value)};
        writer.writeHeader(&record);
        writer.writeGeo(&record);
        if (writer.cancelled())
            return false;
    }
    writer.fileClose();
    if (!writer.writeFailed())
        return true;
    if (auto* wizard = dynamic_cast<kpBaseExport::QExportWizard*>(get_wizard()))
        wizard->setErrorMessage(acceptedFiles.front().toHtmlEscaped(),
                                QStringLiteral("the file is not complete; is the disk full?"));
    return false;
}
