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

OpenTecSheet::OpenTecSheet(ExportFormat& format, const Model& model)
    : BoundSheet(format, model,
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
    if (const Setting* sections = m_binding.settings().find(sectionsKey))
        sections->set(allChecked ? QString() : checked.join(QLatin1Char(',')));
    if (const Setting* line = m_binding.settings().find(traceLineKey)) {
        const bool isSection = sectionList()->isNameInList(traceLine());
        line->set(isSection ? traceLine() : QString());
    }
}

} // namespace kpFormats
