// SPDX-License-Identifier: MIT
#include "pages/AsciiSpecification.h"

#include "host/data/FormatFile.h"
#include "spec/QESAttributeTableWidget.h"
#include "spec/QESSpecificationTableWidget.h"
#include "spec/layout/FieldLayout.h"
#include "wizard/PlainText.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>

#include <algorithm>

namespace kpFormats
{

namespace
{

using kpBaseExport::QESAttribute;

constexpr int leastTableLines = 9;
constexpr int startColumn = 1;
constexpr int endColumn = 2;
constexpr int precisionColumn = 2;

void setCell(QTableWidget& table, int row, int column, int number)
{
    table.item(row, column)->setText(QString::number(number));
}

} // namespace

AsciiSpecification::AsciiSpecification(QWidget* parent)
    : QExportSpecification(parent)
{
    addFilter();
    m_separatorCombo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_nullEdit->setMaximumWidth(110);
    // They take what the page has, and a small window is no reason to scroll it.
    for (QTableWidget* table : {static_cast<QTableWidget*>(m_attributeTable), static_cast<QTableWidget*>(m_fieldTable),
                                static_cast<QTableWidget*>(m_columnTable)}) {
        table->setMinimumHeight(table->fontMetrics().height() * leastTableLines);
        table->setSizePolicy(table->sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
    }
    m_toFieldButton->setToolTip(tr("Add the attribute to the fields (Alt+Right)"));
    m_toAttributeButton->setToolTip(tr("Take the field out (Alt+Left)"));
}

void AsciiSpecification::addFilter()
{
    auto* filter = new QLineEdit(this);
    filter->setObjectName(QStringLiteral("attributeFilter"));
    filter->setPlaceholderText(tr("Filter attributes (Ctrl+F)"));
    filter->setAccessibleName(tr("Filter attributes"));
    filter->setClearButtonEnabled(true);
    filter->setMaximumWidth(m_attributeTable->maximumWidth());
    connect(filter, &QLineEdit::textChanged, this, [this](const QString& text) { setAttributeFilter(text); });
    auto* focus = new QAction(filter);
    focus->setShortcut(QKeySequence::Find);
    connect(focus, &QAction::triggered, filter, [filter] { filter->setFocus(Qt::ShortcutFocusReason); });
    addAction(focus);
    auto* left = new QVBoxLayout;
    horizontalLayout->removeWidget(m_attributeTable);
    left->addWidget(filter);
    left->addWidget(m_attributeTable);
    horizontalLayout->insertLayout(0, left);
}

void AsciiSpecification::setObjects(const std::vector<const ModelObject*>& objects)
{
    m_offered = offeredFields(objects);
    m_gridIndices = std::any_of(m_offered.begin(), m_offered.end(), [](const OfferedField& field) {
        return field.attribute.isEmpty() && field.name == QLatin1String("i");
    });
}

void AsciiSpecification::setDecimals(int decimals)
{
    m_decimals = decimals;
    refreshAttributes();
    populateAttributes();
}

void AsciiSpecification::refreshAttributes()
{
    clearAttribute();
    for (const OfferedField& field : m_offered)
        addAttribute(editorField(field, m_decimals));
}

void AsciiSpecification::setAside()
{
    m_lacking.clear();
    for (auto stored = specification().begin(); stored != specification().end(); ++stored) {
        if (!attributes().contains(stored.key()))
            m_lacking.insert(stored.key(), stored.value());
    }
}

void AsciiSpecification::activate()
{
    QExportSpecification::activate();
    setAside();
}

void AsciiSpecification::deactivate()
{
    QExportSpecification::deactivate();
    for (const QESAttribute& field : qAsConst(m_lacking))
        addField(field);
}

void AsciiSpecification::takeAll()
{
    clearFields();
    m_lacking.clear();
    refreshAttributes();
    int order = 0;
    for (const OfferedField& field : m_offered) {
        // The grid's indices can be added; few want them in every file.
        const bool gridIndex = field.attribute.isEmpty() && field.kind == AttributeKind::Integer;
        if (gridIndex)
            continue;
        QESAttribute added = editorField(field, m_decimals);
        added.order() = order++;
        addField(added);
    }
}

void AsciiSpecification::restore(const FormatFile& file)
{
    setMode(file.type() == FormatFile::FieldBased ? FieldBased : ColumnBased);
    for (int index = 0; index < file.size(); ++index) {
        impAttribute record;
        file.field(index).getAttribute(record);
        QESAttribute field(record);
        field.width() = record.width;
        addField(field);
    }
}

std::unique_ptr<FormatFile> AsciiSpecification::snapshot()
{
    return savedFormat(QString());
}

AsciiLayout AsciiSpecification::asciiLayout() const
{
    AsciiLayout layout;
    for (auto shown = fields().begin(); shown != fields().end(); ++shown) {
        QESAttribute field = shown.value();
        field.order() = shown.key();
        layout.fields.insert(field.name(), field);
    }
    layout.lacking = lacking();
    return layout;
}

void AsciiSpecification::widen(int row, int characters)
{
    const QESAttribute field = fields().value(row);
    if (field.end() - field.start() + 1 >= characters)
        return;
    setCell(*m_columnTable, row, endColumn, field.start() + characters - 1);
    int next = field.start() + characters;
    for (int following = row + 1; following < size(); ++following) {
        const QESAttribute& behind = fields()[following];
        kpBaseExport::layout::Span place{behind.start(), behind.end()};
        if (!kpBaseExport::layout::pushedRight(place, next))
            break;
        setCell(*m_columnTable, following, startColumn, place.start);
        setCell(*m_columnTable, following, endColumn, place.end);
    }
}

void AsciiSpecification::place(const QVector<int>& widths)
{
    int position = 1;
    for (int row = 0; row < widths.size(); ++row) {
        const int last = position + widths[row] - 1;
        // No field ends before it starts, not even on the way.
        const bool endFirst = position > fields().value(row).end();
        setCell(*m_columnTable, row, endFirst ? endColumn : startColumn, endFirst ? last : position);
        setCell(*m_columnTable, row, endFirst ? startColumn : endColumn, endFirst ? position : last);
        position += widths[row] + 1;
    }
}

void AsciiSpecification::refineCoordinates(int decimals)
{
    for (int row = 0; row < size(); ++row) {
        const QESAttribute field = fields().value(row);
        const bool coordinate = kpBaseExport::layout::writerName(field.name()) != field.name();
        if (coordinate && field.precision() < decimals)
            setCell(*m_fieldTable, row, precisionColumn, decimals);
    }
}

void AsciiSpecification::attributeMissing(const QESAttribute& attribute)
{
    m_lacking.insert(attribute.name(), attribute);
}

void AsciiSpecification::formatLoaded(const FormatFile& file)
{
    setAside();
    Q_EMIT formatOpened(file.unknown().value(QStringLiteral("settings")).toObject());
}

void AsciiSpecification::formatAboutToBeSaved(FormatFile& file)
{
    for (const QESAttribute& lacking : qAsConst(m_lacking)) {
        FormatFile::Field field;
        field.setAttribute(lacking.record());
        file.addField(field);
        addField(lacking);
    }
    if (settingsToSave)
        file.unknown().insert(QStringLiteral("settings"), settingsToSave());
}

void AsciiSpecification::formatFailed(const QString& path, const QString& cause)
{
    QMessageBox::warning(
        this, tr("Format File"),
        kpBaseExport::plainText(tr("%1 could not be read or written:\n%2").arg(QDir::toNativeSeparators(path), cause)));
}

bool AsciiSpecification::mayReplaceFormat(const QString& path)
{
    return QMessageBox::question(
               this, tr("Save Format File"),
               kpBaseExport::plainText(
                   tr("%1 already exists.\nDo you want to replace it?").arg(QFileInfo(path).fileName())))
           == QMessageBox::Yes;
}

} // namespace kpFormats
