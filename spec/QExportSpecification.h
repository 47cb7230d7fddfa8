// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/kpBaseExportExport.h"
#include "spec/layout/FieldLayout.h"
#include "spec/layout/QESAttribute.h"

// The editor is its form: hosts derive from it and reach the controls. Generated into the public include folder.
#include "ui_QExportSpecification.h"

#include <QMap>
#include <QSet>
#include <QStringList>
#include <QWidget>

#include <memory>

class FormatFile;

namespace kpBaseExport
{

class QExportWizard;

/// The editor of an ASCII layout: attributes on offer, the fields chosen from them as separated fields (width,
/// decimals) or as columns (start, end, decimals), null value, separator, saving and loading of the layout.
///
/// Three maps hold it: the attributes on offer; the specification, which lasts and is what a format file carries; and
/// the fields as they stand, row for row, in the two tables. The host derives from it and says what is on offer.
class KPBASEEXPORT_EXPORT QExportSpecification : public QWidget, public ::Ui::QExportSpecification
{
    Q_OBJECT

public:
    enum Mode { FieldBased = 0, ColumnBased = 1 };
    /// The entries of the separator box in their order.
    enum Separator { Tab = 0, Space = 1, Comma = 2, SemiColon = 3 };
    /// What a row of the list of attributes stands for (under Qt::UserRole; the full name is under Qt::UserRole + 1).
    enum AttributeType { Attribute = 0, CompoundParent = 1, CompoundChild = 2, NonAttribute = 3, ParentLevel = 4 };

    explicit QExportSpecification(QWidget* parent = nullptr);
    ~QExportSpecification() override;

    /// The attributes on offer.
    void addAttribute(const QESAttribute& attribute);
    void deleteAttribute(const QString& name);
    void deleteAttribute(const QESAttribute& attribute);
    void clearAttribute();
    /// The specification; shown from the next activate() on.
    void addField(const QESAttribute& attribute);
    void deleteField(const QString& name);
    void deleteField(const QESAttribute& attribute);
    bool hasAttribute(const QString& name) const;
    bool hasAttribute(const QESAttribute& attribute) const;
    void clearFields();
    void clear();

    /// The field in that row as the writer knows it ("x", "y", "z"); a default record when there is none, or when the
    /// specification does not hold it yet (see deactivate()).
    QESAttribute field(int index) const;
    int size() const;

    Mode mode() const;
    void setMode(Mode mode);
    Separator separator() const;
    void setSeparator(Separator separator);
    /// Whether a null value is written, and its text; empty when not.
    bool isNull() const;
    QString null() const;

    /// Names that are listed first among the attributes.
    void setAdditionalList(const QStringList& names);
    void setAllAttributeFlag(bool all);
    void setVisibleAttribueFlag(bool visible);
    void setWizard(QExportWizard* wizard);

    /// The standard field of "X", "Y", "Z", "i" or "j".
    void getNonAttribute(const QString& name, QESAttribute& out) const;
    /// A text field; end and precision stay as they are.
    void getStringNonAttribute(const QString& name, int order, QESAttribute& out) const;

    /// Shows the specification with what is now on offer.
    virtual void activate();
    /// Writes the fields as they stand back into the specification.
    virtual void deactivate();
    virtual bool isComplete();
    virtual bool isAvailable();

Q_SIGNALS:
    /// The fields have changed; the names of all of them in order.
    void onSpecChange(const QStringList& l);

protected:
    virtual void sendSpecChange();
    /// A loaded field that is not on offer.
    virtual void attributeMissing(const QESAttribute& attribute) = 0;
    /// Afterwards the attributes are those now on offer.
    virtual void refreshAttributes() = 0;
    /// For hosts that keep settings of their own in format files; these do nothing.
    virtual void formatLoaded(const FormatFile& file);
    virtual void formatAboutToBeSaved(FormatFile& file);
    /// A format file that could not be read or written, and why; does nothing.
    virtual void formatFailed(const QString& path, const QString& cause);
    /// Whether a layout may replace a file whose name the user has not typed in full; agrees.
    virtual bool mayReplaceFormat(const QString& path);

    void addAttributeToSpec(int row, const QESAttribute& attribute);
    void deleteAttributeFromSpec(const QESAttribute& attribute);
    void addRowToAttribute(int row, const QString& name, AttributeType type);
    void addRowToField(int row, const QESAttribute& attribute);
    void addRowToColumn(int row, const QESAttribute& attribute);
    void changeTableCell(QTableWidget* table, int row, int column, const QString& text);
    void changeTableCell(QTableWidget* table, int row, int column, int number);
    QString getParentName(const QString& name) const;
    QString getChildName(const QString& name) const;
    bool isCompoundAttribute(const QString& name) const;
    void populateAttributes(const QString& group);
    void populateAttributes();
    void populateFields();
    void populateMap();
    void populateNonAttribute(const QString& name, QSet<QString>& used);
    void remapAttributesMap();
    /// The path that the user chooses in the open or save dialog; empty when he cancels.
    QString getFormatFile(bool open);
    void onTableSelectionChanged(QTableWidget* table);

    /// Lists only attributes and groups whose name holds \a text, whatever its case; all when it is empty.
    void setAttributeFilter(const QString& text);
    /// Moves a field to another row; widths and columns stay with the rows.
    void moveField(int from, int to);
    /// The table of the layout that is shown.
    QESSpecificationTableWidget* shownTable() const;
    /// Puts the layout of a file in place of the present one.
    void loadFormat(const FormatFile& file);
    /// The layout as a file holds it.
    std::unique_ptr<FormatFile> savedFormat(const QString& path);

    const QMap<QString, QESAttribute>& attributes() const { return m_attributes; }
    const QMap<QString, QESAttribute>& specification() const { return m_specification; }
    const QMap<int, QESAttribute>& fields() const { return m_fields; }

protected Q_SLOTS:
    void columnTableCellChanged(int row, int col);
    void onFieldToggle(bool checked);
    void onColumnToggle(bool checked);
    void onToFieldClicked();
    void onToAttributeClicked();
    void onFieldSelectionChanged();
    void onColumnSelectionChanged();
    void onAttributeSelectionChanged();
    void onNullChecked(bool checked);
    void onLoadFormatClicked();
    void onSaveFormatClicked();
    void onAttributeDoubleClicked(QTableWidgetItem* item);

protected:
    bool m_gridIndices = false; ///< offer "i" and "j"

private:
    friend class QESSpinBoxColumnDelegate;
    friend class ::QESAttributeTableWidget;
    friend class ::QESSpecificationTableWidget;

    void buildTables();
    void connectControls();
    void addShortcuts();
    void listTopLevel(QSet<QString>& used);
    void listGroup(const QString& group, const QSet<QString>& used);
    bool passesFilter(const QString& name) const;
    void setAttributeRow(int row, const QString& name, AttributeType type);
    void insertField(int row, const QESAttribute& attribute);
    bool isField(const QString& name) const;
    /// What the start or end of a field may be; the present value alone when its neighbours leave no room.
    layout::Span columnRange(int row, bool start) const;
    // What the two tables report.
    void insertShownAttributes(int row, const QStringList& names);
    void takeFieldsOut(const QStringList& names, QESSpecificationTableWidget* table);
    void fieldsReordered(QESSpecificationTableWidget* table, int row);

    QMap<int, QESAttribute> m_fields;
    QMap<QString, QESAttribute> m_specification;
    QString m_group; ///< whose members are listed; empty at the top level
    QMap<QString, QESAttribute> m_attributes;

protected:
    QExportWizard* m_wizard = nullptr; ///< not owned
    QStringList m_additional;
    bool m_allAttributes = false;
    bool m_visibleAttributes = true;

private:
    QSet<QString> m_names; ///< names of the fields
    QString m_filter;
    std::unique_ptr<FormatFile> m_loaded; ///< for the keys of a loaded file that are not ours
};

} // namespace kpBaseExport
