// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/QExportAbstractSheet.h"

#include <QWidget>

#include <memory>
#include <set>
#include <string>
#include <vector>

class QSortFilterProxyModel;

namespace Ui
{
class QExportSheetObjectSelection;
}

namespace kpBaseExport
{

class AbstractSaver;
class QObjectListModel;

/// The wizard's first page: the format, the object types and the objects to export.
/// The host derives from it and supplies what it knows of its model; it registers the derived class under
/// "QExportSheetObjectSelectionImpl" and stores each leaf's type key under Qt::UserRole in column 0 of the type tree.
class KPBASEEXPORT_EXPORT QExportSheetObjectSelection : public QWidget, public QExportAbstractSheet
{
    Q_OBJECT

public:
    QExportSheetObjectSelection();
    ~QExportSheetObjectSelection() override;

    void startup() override;
    /// True when an object is checked.
    bool isComplete() const override;
    void initialize(const QString& key) override;

    /// Key of the chosen format.
    QString currentFileFormatKey();
    std::vector<int> selectedGeoIds();
    /// Names of the checked objects, in UTF-8.
    std::vector<std::string> selectedGeoNames();

protected:
    using QExportAbstractSheet::initialize;

    /// The saver of the chosen format; null when there is none.
    virtual AbstractSaver* currentSaver();
    /// Fills the list with the objects of these types: addName() for each, then resetModel().
    virtual void fillObjectList(const std::set<std::string>& checkedTypes) = 0;
    /// Enables the type leaves that the chosen format can take and disables the others.
    virtual void updateObjectTypes() = 0;

    void setAllSelectionTree(bool checked);

protected Q_SLOTS:
    void enableObjectTypes(int index);
    void selectAll();
    void deselectAll();
    void slotUpdateListViews();
    void selectAllObjects();
    void deselectAllObjects();
    /// Checks the objects that are selected in the host's views.
    virtual void matchModelSelection() = 0;

protected:
    std::unique_ptr<Ui::QExportSheetObjectSelection> m_ui;
    QObjectListModel* m_model = nullptr; ///< owned, null before initialize()
    QSortFilterProxyModel* m_proxy = nullptr;

private:
    void buildTypeTree();
    void sizeList();

    bool m_sortLater = false; ///< several rebuilds follow each other; only the last is sorted and shown
};

} // namespace kpBaseExport
