// SPDX-License-Identifier: MIT
#include "pages/OpenTecSheet.h"

#include "wizard/QExportWizard.h"
#include "wizard/QObjectListModel.h"

#include <QSet>

namespace kpFormats
{

namespace
{

const QString sectionsKey = QStringLiteral("sections");
const QString traceLineKey = QStringLiteral("traceLine");

QStringList chosenNames(const kpBaseExport::QExportSheetOpenTecLink& page)
{
    QStringList names;
    for (const std::string& name : page.selectedSectionNames())
        names.append(QString::fromStdString(name));
    return names;
}

} // namespace

OpenTecSheet::OpenTecSheet(FormatSetup& setup, const Model& model)
    : BoundSheet(setup, model,
                 {{"tableViewSections", "sections", ControlBinding::ByPage},
                  {"comboBoxXYSection", "traceLine", ControlBinding::ByPage}})
{
}

void OpenTecSheet::initialize(const QString& text)
{
    BoundSheet::initialize(text);
    const auto follow = [this] {
        if (m_wizard)
            m_wizard->update_navigation();
    };
    connect(sectionList(), &kpBaseExport::QObjectListModel::objectChecked, this, follow);
    connect(sectionList(), &kpBaseExport::QObjectListModel::modelReset, this, follow);
}

bool OpenTecSheet::isComplete() const
{
    return !selectedSectionNames().empty();
}

void OpenTecSheet::updateSectionList()
{
    // What the user has unchecked stays so.
    kpBaseExport::QObjectListModel& list = *sectionList();
    const QStringList checked = chosenNames(*this);
    QSet<QString> unchecked;
    for (int row = 0; row < list.rowCount(); ++row) {
        const QString name = list.data(list.index(row, 0)).toString();
        if (!checked.contains(name))
            unchecked.insert(name);
    }
    const QString trace = traceLine();
    list.clear();
    QStringList names;
    for (const ModelObject* object : m_binding.objects()) {
        if (object->type != ObjectType::CrossSections)
            continue;
        list.addName(object->name, object->id, typeName(object->type), !unchecked.contains(object->name));
        names.append(object->name);
    }
    list.resetModel();
    setTraceLines(QStringList{tr("each section itself")} + names);
    if (names.contains(trace))
        setTraceLine(trace);
}

void OpenTecSheet::deactivate()
{
    BoundSheet::deactivate();
    const QStringList checked = chosenNames(*this);
    // All of them need no list.
    const bool allChecked = checked.size() == sectionList()->rowCount();
    SettingsValue& settings = m_binding.settings();
    if (settings.find(sectionsKey))
        settings.set(sectionsKey, allChecked ? QString() : checked.join(QLatin1Char(',')));
    if (settings.find(traceLineKey))
        settings.set(traceLineKey, sectionList()->isNameInList(traceLine()) ? traceLine() : QString());
}

} // namespace kpFormats
