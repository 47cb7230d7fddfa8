// SPDX-License-Identifier: MIT
#include "wizard/QExportAttributeWidget.h"

#include "ui_QExportAttributeWidget.h"
#include "wizard/PlainText.h"
#include "wizard/QExportWizard.h"

#include <QCoreApplication>
#include <QMap>

namespace kpBaseExport
{

namespace
{

/// The panel's own texts, translated among those of its form.
struct FormTexts
{
    Q_DECLARE_TR_FUNCTIONS(QExportAttributeWidget)
};

struct TypeBit
{
    const char* name;
    int bit;
};

constexpr TypeBit typeBits[] = {
    {"boolean", QExportAttributeWidget::c_systemTypeBoolean},
    {"color", QExportAttributeWidget::c_systemTypeColor},
    {"dip", QExportAttributeWidget::c_systemTypeDip},
    {"flag", QExportAttributeWidget::c_systemTypeFlag},
    {"integer", QExportAttributeWidget::c_systemTypeInteger},
    {"pattern", QExportAttributeWidget::c_systemTypePattern},
    {"real", QExportAttributeWidget::c_systemTypeReal},
    {"realvector2", QExportAttributeWidget::c_systemTypeRealVector2},
    {"realvector3", QExportAttributeWidget::c_systemTypeRealVector3},
    {"text", QExportAttributeWidget::c_systemTypeText},
    {"vertexdisplay", QExportAttributeWidget::c_systemTypeVertexDisplay},
};

} // namespace

QExportAttributeWidget::QExportAttributeWidget(QExportWizard* wizard, QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::QExportAttributeWidget>())
    , m_wizard(wizard)
{
}

QExportAttributeWidget::~QExportAttributeWidget() = default;

void QExportAttributeWidget::initialize(const QString&, AttributeLevel level)
{
    m_ui->setupUi(this);
    m_ui->m_i_j_warning_icon->setPixmap(QPixmap(QStringLiteral(":/kpBaseQt/Resources/error.png")));
    connect(m_ui->m_selectAllButton, &QPushButton::clicked, this, &QExportAttributeWidget::onSelectAll);
    connect(m_ui->m_deselectAllButton, &QPushButton::clicked, this, &QExportAttributeWidget::onDeselectAll);
    m_ui->gridLayout_3->setColumnStretch(1, 1); // the text begins beside the icon
    m_ui->warningBox->hide();
    setAttributeLevel(level);
}

void QExportAttributeWidget::startup() {}

void QExportAttributeWidget::activate()
{
    m_ui->warningBox->hide();
    QVector<kpBase::UnitRegistry::AttributeInfo> offered;
    if (m_wizard)
        m_wizard->availableAttributes(offered, m_all, m_visible);
    QStringList unsupported;
    QMap<QString, QString> names; // by lower-cased name
    for (const auto& attribute : qAsConst(offered)) {
        const QString name = QString::fromStdString(attribute.name());
        if (isSelectable(attribute.typeName()))
            names[name.toLower()] = name;
        else
            unsupported.append(QStringLiteral("%1 (%2)").arg(name, QString::fromStdString(attribute.typeName())));
    }
    m_ui->m_attributeList->clear();
    if (names.isEmpty())
        return;
    for (const QString& name : qAsConst(names)) {
        auto* item = new QListWidgetItem(name, m_ui->m_attributeList);
        item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsUserCheckable | Qt::ItemIsEnabled);
        item->setCheckState(Qt::Checked);
    }
    if (!unsupported.isEmpty()) {
        m_ui->m_warningLabel->setText(plainText(
            FormTexts::tr("Unsupported Attributes for this Format: %1").arg(unsupported.join(QStringLiteral(", ")))));
        m_ui->warningBox->show();
    }
}

bool QExportAttributeWidget::isComplete() const
{
    return true;
}

void QExportAttributeWidget::setDataInformation() {}

std::vector<std::string> QExportAttributeWidget::selectedAttributeNames()
{
    std::vector<std::string> names;
    for (int row = 0; row < m_ui->m_attributeList->count(); ++row) {
        const QListWidgetItem* item = m_ui->m_attributeList->item(row);
        if (item->checkState() == Qt::Checked)
            names.push_back(item->text().toStdString());
    }
    return names;
}

void QExportAttributeWidget::setAllFlag(bool all)
{
    m_all = all;
}

void QExportAttributeWidget::setVisibleFlag(bool visible)
{
    m_visible = visible;
}

void QExportAttributeWidget::setSelectableTypes(int types)
{
    m_selectableTypes = types;
}

void QExportAttributeWidget::setUnselectableType(int type)
{
    m_selectableTypes &= ~type;
}

void QExportAttributeWidget::setWizard(QExportWizard* wizard)
{
    m_wizard = wizard;
}

bool QExportAttributeWidget::isSelectable(const std::string& typeName) const
{
    const QString name = QString::fromStdString(typeName).toLower();
    for (const TypeBit& type : typeBits) {
        if (name == QLatin1String(type.name))
            return (m_selectableTypes & type.bit) != 0;
    }
    return false;
}

void QExportAttributeWidget::setAttributeLevel(AttributeLevel level)
{
    QString word;
    if (level == VERTEX_LEVEL)
        word = FormTexts::tr(" Vertex ");
    else if (level == FACE_LEVEL)
        word = FormTexts::tr(" Face ");
    else if (level == OBJECT_LEVEL)
        word = FormTexts::tr(" Object ");
    m_ui->groupBox->setTitle(FormTexts::tr("Export %1 Attributes").arg(word));
}

void QExportAttributeWidget::onSelectAll()
{
    setAllChecked(Qt::Checked);
}

void QExportAttributeWidget::onDeselectAll()
{
    setAllChecked(Qt::Unchecked);
}

void QExportAttributeWidget::setAllChecked(Qt::CheckState state)
{
    for (int row = 0; row < m_ui->m_attributeList->count(); ++row)
        m_ui->m_attributeList->item(row)->setCheckState(state);
}

} // namespace kpBaseExport
