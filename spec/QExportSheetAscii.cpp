// SPDX-License-Identifier: MIT
#include "spec/QExportSheetAscii.h"

#include "spec/QExportSpecification.h"
#include "ui_QExportSpecSheetAscii.h"
#include "wizard/QExportWizard.h"

#include <QCoreApplication>

namespace kpBaseExport
{

QExportSheetAscii::QExportSheetAscii()
    : QWidget(nullptr)
    , QExportAbstractOptionSheet(nullptr)
    , m_ui(std::make_unique<Ui::QExportSpecSheetAscii>())
{
    m_ui->setupUi(this);
}

QExportSheetAscii::~QExportSheetAscii() = default;

void QExportSheetAscii::startup() {}

void QExportSheetAscii::initialize(const QString&)
{
    setWindowTitle(QCoreApplication::translate("QExportSpecSheetAscii", "File Export: ASCII Options"));
    m_pageWidget = this;
    m_hasObjects = false;
}

void QExportSheetAscii::activate()
{
    m_hasObjects = m_wizard && !m_wizard->selectedGeoNames().empty();
    if (!m_editor)
        return;
    m_editor->setAdditionalList(m_additional);
    m_editor->activate();
}

void QExportSheetAscii::deactivate()
{
    if (m_editor)
        m_editor->deactivate();
}

bool QExportSheetAscii::isComplete() const
{
    return m_hasObjects && m_editor && m_editor->size() > 0;
}

bool QExportSheetAscii::isAvailable() const
{
    return true;
}

MatrixDataAsciiExporter::Mode QExportSheetAscii::mode() const
{
    return m_editor && m_editor->mode() == QExportSpecification::ColumnBased ? MatrixDataAsciiExporter::ColumnBased
                                                                             : MatrixDataAsciiExporter::FieldBased;
}

std::vector<MatrixDataExporter::FieldInfo> QExportSheetAscii::fieldInfoList() const
{
    QVector<QESAttribute> fields;
    for (int index = 0; m_editor && index < m_editor->size(); ++index)
        fields.append(m_editor->field(index));
    return layout::fieldInfos(fields, mode() == MatrixDataAsciiExporter::ColumnBased);
}

std::vector<std::string> QExportSheetAscii::selectedAttributeNames()
{
    std::vector<std::string> names;
    for (int index = 0; m_editor && index < m_editor->size(); ++index) {
        const QESAttribute field = m_editor->field(index);
        if (!layout::isNonAttribute(field))
            names.push_back(field.name().toStdString());
    }
    return names;
}

void QExportSheetAscii::setAdditionalList(const QStringList& names)
{
    m_additional = names;
}

void QExportSheetAscii::onSpecChange(const QStringList&)
{
    if (m_wizard)
        m_wizard->update_navigation();
}

} // namespace kpBaseExport
