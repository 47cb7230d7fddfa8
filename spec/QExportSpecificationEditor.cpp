// SPDX-License-Identifier: MIT
// The controls of the layout editor: the list of attributes, the arrow buttons, the two tables, the keyboard.
#include "spec/QExportSpecification.h"

#include "host/data/FormatFile.h"
#include "spec/FormTexts.h"
#include "spec/QESAttributeTableWidget.h"
#include "spec/QESSpecificationTableWidget.h"
#include "spec/QESSpinBoxColumnDelegate.h"

#include <QHeaderView>
#include <QShortcut>
#include <QSignalBlocker>

#include <set>

namespace kpBaseExport
{

namespace
{

constexpr int typeRole = Qt::UserRole;
constexpr int nameRole = Qt::UserRole + 1;
constexpr int largestWidth = 20;

int typeOf(const QTableWidgetItem& item)
{
    return item.data(typeRole).toInt();
}

bool isGroupRow(const QTableWidgetItem& item)
{
    return typeOf(item) == QExportSpecification::CompoundParent || typeOf(item) == QExportSpecification::ParentLevel;
}

std::set<int> selectedRows(const QTableWidget& table)
{
    std::set<int> rows;
    for (const QTableWidgetItem* item : table.selectedItems())
        rows.insert(item->row());
    return rows;
}

/// A shortcut that works while the table itself has the focus, not an open cell editor.
template <typename Function>
void onKey(QTableWidget* table, int key, Function function)
{
    auto* shortcut = new QShortcut(QKeySequence(key), table);
    shortcut->setContext(Qt::WidgetShortcut);
    QObject::connect(shortcut, &QShortcut::activated, table, function);
}

} // namespace

QExportSpecification::QExportSpecification(QWidget* parent)
    : QWidget(parent)
{
    setupUi(this);
    buildTables();
    connectControls();
    m_nullCheck->setChecked(false);
    m_nullEdit->setEnabled(false);
    addShortcuts();
}

QExportSpecification::~QExportSpecification()
{
    // Controls that go after this object has turned into a plain widget must not call it: a table with an open cell does.
    for (QObject* control : findChildren<QObject*>())
        control->disconnect(this);
}

bool QExportSpecification::isComplete()
{
    return true;
}

bool QExportSpecification::isAvailable()
{
    return true;
}

void QExportSpecification::buildTables()
{
    m_attributeTable->setSheet(this);
    m_attributeTable->setSource(m_fieldTable);
    m_attributeTable->setSelectionMode(QAbstractItemView::SingleSelection);
    m_attributeTable->setDragDropMode(QAbstractItemView::DragOnly);
    m_attributeTable->setDragDropOverwriteMode(false); // a row that was dragged away goes
    m_attributeTable->viewport()->setAcceptDrops(false);
    m_attributeTable->setDropIndicatorShown(true);
    m_attributeTable->horizontalHeader()->setStretchLastSection(true);

    // Children of the editor, which keeps them for its lifetime.
    auto* precision = new QESSpinBoxDelegate(this, this);
    auto* width = new QESSpinBoxDelegate(this, this);
    width->maximum = largestWidth;
    auto* column = new QESSpinBoxColumnDelegate(this, this);

    m_fieldTable->ignoreColumns(1);
    m_fieldTable->setSheet(this);
    m_fieldTable->setSource(m_attributeTable);
    m_fieldTable->setItemDelegateForColumn(1, width);
    m_fieldTable->setItemDelegateForColumn(2, precision);
    m_fieldTable->setHorizontalHeaderLabels(
        {FormTexts::tr("Field"), FormTexts::tr("Width"), FormTexts::tr("Precision")});
    m_columnTable->setSheet(this);
    m_columnTable->setSource(m_attributeTable);
    m_columnTable->ignoreColumns({1, 2});
    m_columnTable->setItemDelegateForColumn(1, column);
    m_columnTable->setItemDelegateForColumn(2, column);
    m_columnTable->setItemDelegateForColumn(3, precision);
    m_columnTable->setHorizontalHeaderLabels({FormTexts::tr("Field"), FormTexts::tr("Start Column"),
                                              FormTexts::tr("End Column"), FormTexts::tr("Precision")});
    for (QTableWidget* table : {static_cast<QTableWidget*>(m_fieldTable), static_cast<QTableWidget*>(m_columnTable)})
        table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    for (QTableWidget* table : {static_cast<QTableWidget*>(m_attributeTable), static_cast<QTableWidget*>(m_fieldTable),
                                static_cast<QTableWidget*>(m_columnTable)}) {
        table->setTabKeyNavigation(false); // Tab leaves the table
        table->setWordWrap(false);
        table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 8);
    }
    m_attributeTable->verticalHeader()->hide();
}

void QExportSpecification::connectControls()
{
    connect(m_fieldTable, &QTableWidget::cellChanged, this, &QExportSpecification::columnTableCellChanged);
    connect(m_fieldTable, &QTableWidget::itemSelectionChanged, this, &QExportSpecification::onFieldSelectionChanged);
    connect(m_columnTable, &QTableWidget::cellChanged, this, &QExportSpecification::columnTableCellChanged);
    connect(m_columnTable, &QTableWidget::itemSelectionChanged, this, &QExportSpecification::onColumnSelectionChanged);
    connect(m_fieldRadio, &QRadioButton::toggled, this, &QExportSpecification::onFieldToggle);
    connect(m_columnRadio, &QRadioButton::toggled, this, &QExportSpecification::onColumnToggle);
    connect(m_attributeTable, &QTableWidget::itemSelectionChanged, this,
            &QExportSpecification::onAttributeSelectionChanged);
    connect(m_attributeTable, &QTableWidget::itemDoubleClicked, this, &QExportSpecification::onAttributeDoubleClicked);
    connect(m_toFieldButton, &QToolButton::clicked, this, &QExportSpecification::onToFieldClicked);
    connect(m_toAttributeButton, &QToolButton::clicked, this, &QExportSpecification::onToAttributeClicked);
    connect(m_nullCheck, &QCheckBox::toggled, this, &QExportSpecification::onNullChecked);
    connect(m_loadFormatButton, &QToolButton::clicked, this, &QExportSpecification::onLoadFormatClicked);
    connect(m_saveFormatButton, &QToolButton::clicked, this, &QExportSpecification::onSaveFormatClicked);
}

void QExportSpecification::addShortcuts()
{
    const auto name = [](QAbstractButton* button, const QString& text, const QKeySequence& keys) {
        button->setAccessibleName(text);
        button->setShortcut(keys);
        button->setToolTip(QStringLiteral("%1 (%2)").arg(text, keys.toString(QKeySequence::NativeText)));
    };
    name(m_toFieldButton, FormTexts::tr("Add to the layout"), QKeySequence(Qt::ALT | Qt::Key_Right));
    name(m_toAttributeButton, FormTexts::tr("Take out of the layout"), QKeySequence(Qt::ALT | Qt::Key_Left));
    m_loadFormatButton->setAccessibleName(FormTexts::tr("Load Format File"));
    m_loadFormatButton->setShortcut(QKeySequence::Open);
    m_saveFormatButton->setAccessibleName(FormTexts::tr("Save Format File"));
    m_saveFormatButton->setShortcut(QKeySequence::Save);
    m_attributeTable->setAccessibleName(FormTexts::tr("Attributes on offer"));
    m_fieldTable->setAccessibleName(FormTexts::tr("Fields of the layout"));
    m_columnTable->setAccessibleName(FormTexts::tr("Columns of the layout"));
    m_nullEdit->setAccessibleName(FormTexts::tr("Null value"));
    m_separatorLabel->setBuddy(m_separatorCombo);

    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        onKey(m_attributeTable, key, [this] {
            QTableWidgetItem* item = m_attributeTable->currentItem();
            if (item && isGroupRow(*item))
                onAttributeDoubleClicked(item);
            else if (m_toFieldButton->isEnabled())
                onToFieldClicked();
        });
    }
    // The arrow button lies on the other page.
    onKey(m_columnTable, Qt::ALT | Qt::Key_Left, [this] { onToAttributeClicked(); });
    for (QESSpecificationTableWidget* table : {m_fieldTable, m_columnTable}) {
        onKey(table, Qt::Key_Delete, [this] { onToAttributeClicked(); });
        onKey(table, Qt::ALT | Qt::Key_Up, [this, table] { moveField(table->currentRow(), table->currentRow() - 1); });
        onKey(table, Qt::ALT | Qt::Key_Down,
              [this, table] { moveField(table->currentRow(), table->currentRow() + 1); });
    }
}

QExportSpecification::Mode QExportSpecification::mode() const
{
    return m_fieldRadio->isChecked() ? FieldBased : ColumnBased;
}

void QExportSpecification::setMode(Mode mode)
{
    (mode != FieldBased ? m_columnRadio : m_fieldRadio)->setChecked(true);
}

QExportSpecification::Separator QExportSpecification::separator() const
{
    const int index = m_separatorCombo->currentIndex();
    return index >= Space && index <= SemiColon ? static_cast<Separator>(index) : Tab;
}

void QExportSpecification::setSeparator(Separator separator)
{
    m_separatorCombo->setCurrentIndex(separator >= Space && separator <= SemiColon ? separator : Tab);
}

bool QExportSpecification::isNull() const
{
    return m_nullCheck->isChecked();
}

QString QExportSpecification::null() const
{
    return isNull() ? m_nullEdit->text() : QString();
}

void QExportSpecification::setAdditionalList(const QStringList& names)
{
    m_additional = names;
}

void QExportSpecification::setAllAttributeFlag(bool all)
{
    m_allAttributes = all;
}

void QExportSpecification::setVisibleAttribueFlag(bool visible)
{
    m_visibleAttributes = visible;
}

void QExportSpecification::setWizard(QExportWizard* wizard)
{
    m_wizard = wizard;
}

QString QExportSpecification::getParentName(const QString& name) const
{
    return layout::parentName(name);
}

QString QExportSpecification::getChildName(const QString& name) const
{
    return layout::childName(name);
}

bool QExportSpecification::isCompoundAttribute(const QString& name) const
{
    return layout::isCompound(name);
}

QESSpecificationTableWidget* QExportSpecification::shownTable() const
{
    return m_stackedWidget->currentIndex() == 1 ? m_columnTable : m_fieldTable;
}

void QExportSpecification::setAttributeFilter(const QString& text)
{
    m_filter = text;
    populateAttributes();
    onAttributeSelectionChanged();
}

bool QExportSpecification::passesFilter(const QString& name) const
{
    return m_filter.isEmpty() || name.contains(m_filter, Qt::CaseInsensitive);
}

void QExportSpecification::addRowToAttribute(int row, const QString& name, AttributeType type)
{
    m_attributeTable->insertRow(row);
    setAttributeRow(row, name, type);
}

void QExportSpecification::setAttributeRow(int row, const QString& name, AttributeType type)
{
    auto* item = new QTableWidgetItem;
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    if (type != CompoundParent && type != ParentLevel)
        flags |= Qt::ItemIsDragEnabled;
    item->setFlags(flags);
    item->setData(typeRole, static_cast<int>(type));
    item->setData(nameRole, name);
    switch (type) {
    case CompoundParent:
        item->setText(getParentName(name) + QStringLiteral("..."));
        break;
    case CompoundChild:
        item->setText(getChildName(name));
        break;
    case ParentLevel:
        item->setText(QStringLiteral(".."));
        break;
    case Attribute:
    case NonAttribute:
        item->setText(name);
        break;
    }
    m_attributeTable->setItem(row, 0, item);
}

void QExportSpecification::populateNonAttribute(const QString& name, QSet<QString>& used)
{
    if (used.contains(name) || !m_attributes.contains(name))
        return;
    if (passesFilter(name))
        addRowToAttribute(m_attributeTable->rowCount(), name, NonAttribute);
    used.insert(name);
}

void QExportSpecification::populateAttributes()
{
    populateAttributes(QString(m_group));
}

void QExportSpecification::populateAttributes(const QString& group)
{
    QSet<QString> used = m_names;
    const QSignalBlocker blocker(m_attributeTable);
    m_attributeTable->setRowCount(0);
    if (group.isEmpty())
        listTopLevel(used);
    else
        listGroup(group, used);
    m_group = group;
}

void QExportSpecification::listTopLevel(QSet<QString>& used)
{
    if (m_gridIndices) {
        populateNonAttribute(QStringLiteral("i"), used);
        populateNonAttribute(QStringLiteral("j"), used);
    }
    for (const char* name : {"X", "Y", "Z"})
        populateNonAttribute(QString::fromLatin1(name), used);
    QVector<QPair<QString, AttributeType>> rows;
    QSet<QString> groups;
    const auto list = [&](const QString& name) {
        if (used.contains(name) || !passesFilter(name))
            return;
        if (!isCompoundAttribute(name)) {
            rows.append({name, Attribute});
        } else if (!groups.contains(getParentName(name))) {
            groups.insert(getParentName(name));
            rows.append({getParentName(name), CompoundParent});
        }
    };
    for (const QString& name : qAsConst(m_additional))
        list(name);
    const QSet<QString> additional(m_additional.begin(), m_additional.end());
    for (auto entry = m_attributes.cbegin(); entry != m_attributes.cend(); ++entry) {
        if (!additional.contains(entry.key()))
            list(entry.key());
    }
    // All rows at once: one by one each insertion would lay out the header again.
    int row = m_attributeTable->rowCount();
    m_attributeTable->setRowCount(row + rows.size());
    for (const auto& entry : qAsConst(rows))
        setAttributeRow(row++, entry.first, entry.second);
}

void QExportSpecification::listGroup(const QString& group, const QSet<QString>& used)
{
    addRowToAttribute(0, group, ParentLevel);
    QStringList members;
    for (auto entry = m_attributes.cbegin(); entry != m_attributes.cend(); ++entry) {
        const QString& name = entry.key();
        if (!used.contains(name) && isCompoundAttribute(name) && getParentName(name) == group && passesFilter(name))
            members.append(name);
    }
    m_attributeTable->setRowCount(1 + members.size());
    for (int index = 0; index < members.size(); ++index)
        setAttributeRow(1 + index, members[index], CompoundChild);
}

void QExportSpecification::onFieldToggle(bool checked)
{
    if (!checked)
        return;
    m_stackedWidget->setCurrentIndex(0);
    m_separatorCombo->setEnabled(true);
    m_attributeTable->setSource(m_fieldTable);
}

void QExportSpecification::onColumnToggle(bool checked)
{
    if (!checked)
        return;
    m_stackedWidget->setCurrentIndex(1);
    m_separatorCombo->setEnabled(false);
    m_attributeTable->setSource(m_columnTable);
}

void QExportSpecification::onNullChecked(bool checked)
{
    m_nullEdit->setEnabled(checked);
}

void QExportSpecification::onAttributeDoubleClicked(QTableWidgetItem* item)
{
    if (typeOf(*item) == ParentLevel)
        m_group.clear();
    else if (typeOf(*item) == CompoundParent)
        m_group = item->data(nameRole).toString();
    else
        return;
    populateAttributes();
    onAttributeSelectionChanged();
}

void QExportSpecification::onAttributeSelectionChanged()
{
    m_attributeTable->setEnabled(true);
    bool any = false;
    for (const QTableWidgetItem* item : m_attributeTable->selectedItems())
        any = any || !isGroupRow(*item);
    m_toFieldButton->setEnabled(any);
}

void QExportSpecification::onFieldSelectionChanged()
{
    onTableSelectionChanged(m_fieldTable);
}

void QExportSpecification::onColumnSelectionChanged()
{
    onTableSelectionChanged(m_columnTable);
}

void QExportSpecification::onTableSelectionChanged(QTableWidget* table)
{
    bool any = false;
    for (const int row : selectedRows(*table)) {
        const auto shown = m_fields.constFind(row);
        any = any || (shown != m_fields.constEnd() && m_attributes.contains(shown->name()));
    }
    m_toAttributeButton->setEnabled(any);
}

void QExportSpecification::onToFieldClicked()
{
    const QList<QTableWidgetItem*> selected = m_attributeTable->selectedItems();
    int insertion = m_fieldTable->rowCount();
    {
        const QSignalBlocker blocker(m_attributeTable);
        std::set<int, std::greater<>> taken;
        for (const QTableWidgetItem* item : selected) {
            if (isGroupRow(*item) || !taken.insert(item->row()).second)
                continue;
            const auto offered = m_attributes.constFind(item->data(nameRole).toString());
            if (offered != m_attributes.constEnd())
                addAttributeToSpec(insertion++, offered.value());
        }
        for (const int row : taken)
            m_attributeTable->removeRow(row);
    }
    onTableSelectionChanged(shownTable());
    onAttributeSelectionChanged();
}

void QExportSpecification::onToAttributeClicked()
{
    QESSpecificationTableWidget* table = shownTable();
    const std::set<int> rows = selectedRows(*table);
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        const auto offered = m_attributes.constFind(table->item(*row, 0)->text());
        if (offered != m_attributes.constEnd())
            deleteAttributeFromSpec(offered.value());
    }
    populateAttributes();
    onTableSelectionChanged(table);
    onAttributeSelectionChanged();
}

} // namespace kpBaseExport
