// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "pages/kpFormatsUiExport.h"
#include "wizard/QExportSheetObjectSelection.h"

#include <QSet>

#include <functional>
#include <set>

class QLabel;

namespace kpFormats
{

class ObjectFilter;

/// The first page of the wizard over a model. It begins with what is selected in the program, or else with everything;
/// what the user unchecks stays unchecked when the list is made anew for another format or other types.
class KPFORMATSUI_EXPORT ObjectSelectionSheet : public kpBaseExport::QExportSheetObjectSelection
{
    Q_OBJECT

public:
    /// \a selectedIds tells which objects are selected in the views of the program, which both outlive the page.
    ObjectSelectionSheet(const Model& model, std::function<std::set<int>()> selectedIds);

    using QExportSheetObjectSelection::initialize;
    void initialize(const QString& key) override;
    void startup() override;
    /// Fills the page that a preset has passed over, with the format and the objects of the preset chosen.
    void takeOver(const std::string& key, const std::vector<int>& ids);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void fillObjectList(const std::set<std::string>& checkedTypes) override;
    void updateObjectTypes() override;

protected Q_SLOTS:
    void matchModelSelection() override;

private:
    void addSearch();
    void chooseFormat(const std::string& key);
    /// The format used last when it takes something of these objects, else the first that does.
    void chooseFormatFor(const std::set<int>& ids);
    void check(const std::vector<int>& ids);
    /// Checks or unchecks the rows that the search shows.
    void checkShown(bool on);
    void checkRows(const QVector<int>& rows, bool on);
    /// Remembers what is checked in rows of the list.
    void remember(int firstRow, int lastRow);
    void showSummary();

    const Model& m_objects;
    std::function<std::set<int>()> m_selectedIds;
    QSet<int> m_unchecked; ///< ids of objects, listed now or not
    ObjectFilter* m_filter = nullptr;
    QLabel* m_summary = nullptr;
};

} // namespace kpFormats
