// SPDX-License-Identifier: MIT
// Saving and loading of a layout.
#include "spec/QExportSpecification.h"

#include "host/data/FormatFile.h"
#include "spec/FormTexts.h"
#include "spec/QESSpecificationTableWidget.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QSettings>

namespace kpBaseExport
{

namespace
{

// Type codes of the fields that are not attributes.
constexpr int firstNonAttribute = -5;
constexpr int lastNonAttribute = -1;

bool endsWith(const QString& path, const char* suffix)
{
    return path.endsWith(QLatin1String(suffix), Qt::CaseSensitive);
}

std::unique_ptr<FormatFile> readFormat(const QString& path, QString& error)
{
    if (endsWith(path, ".fmt"))
        return std::unique_ptr<FormatFile>(FormatFile::readLandmark(path, &error));
    std::unique_ptr<FormatFile> file(FormatFile::read(path, &error));
    if (!file && !endsWith(path, ".klf"))
        file.reset(FormatFile::readLandmark(path));
    return file;
}

} // namespace

void QExportSpecification::formatLoaded(const FormatFile&) {}

void QExportSpecification::formatAboutToBeSaved(FormatFile&) {}

void QExportSpecification::formatFailed(const QString&, const QString&) {}

bool QExportSpecification::mayReplaceFormat(const QString&)
{
    return true;
}

QString QExportSpecification::getFormatFile(bool open)
{
    QSettings settings;
    settings.beginGroup(QStringLiteral("QExportSpecification"));
    const QString key = QStringLiteral("directory");
    const QString directory = settings.value(key).toString();
    const QString path = open ? QFileDialog::getOpenFileName(
                             this, FormTexts::tr("Load Format File"), directory,
                             FormTexts::tr("Format File (*.klf *.fmt);;KLX Format (*.klf);;Landmark Format (*.fmt);;"
                                           "All Files (*.*)"))
                              : QFileDialog::getSaveFileName(this, FormTexts::tr("Save Format File"), directory,
                                                             FormTexts::tr("KLX Format (*.klf)"));
    if (!path.isEmpty())
        settings.setValue(key, path.left(path.size() - QFileInfo(path).fileName().size()));
    return path;
}

void QExportSpecification::onLoadFormatClicked()
{
    const QString path = getFormatFile(true);
    if (path.isEmpty())
        return;
    QString error;
    const std::unique_ptr<FormatFile> file = readFormat(path, error);
    if (file)
        loadFormat(*file);
    else
        formatFailed(path, error);
}

void QExportSpecification::loadFormat(const FormatFile& file)
{
    clearFields();
    setMode(file.type() == FormatFile::FieldBased ? FieldBased : ColumnBased);
    for (int index = 0; index < file.size(); ++index) {
        impAttribute record;
        file.field(index).getAttribute(record);
        const QESAttribute loaded(record);
        const bool attribute = loaded.typeId() < firstNonAttribute || loaded.typeId() > lastNonAttribute;
        if (attribute && !m_attributes.contains(loaded.name()))
            attributeMissing(loaded);
        addField(loaded);
    }
    populateFields();
    refreshAttributes();
    populateAttributes();
    m_loaded = std::make_unique<FormatFile>(file);
    formatLoaded(file);
}

void QExportSpecification::onSaveFormatClicked()
{
    QString path = getFormatFile(false);
    if (path.isEmpty())
        return;
    if (!endsWith(path, ".klf")) {
        path += QStringLiteral(".klf");
        // The dialog has asked about the name that was typed.
        if (QFileInfo::exists(path) && !mayReplaceFormat(path))
            return;
    }
    QString error;
    if (!savedFormat(path)->write(path, &error))
        formatFailed(path, error);
}

std::unique_ptr<FormatFile> QExportSpecification::savedFormat(const QString& path)
{
    populateMap();
    auto file = std::make_unique<FormatFile>();
    file->type() = mode() == FieldBased ? FormatFile::FieldBased : FormatFile::ColumnBased;
    file->name() = path;
    for (const QESAttribute& stored : qAsConst(m_specification)) {
        FormatFile::Field field;
        field.setAttribute(stored.record());
        file->addField(field);
    }
    if (m_loaded)
        file->adoptUnknown(*m_loaded);
    formatAboutToBeSaved(*file);
    return file;
}

} // namespace kpBaseExport
