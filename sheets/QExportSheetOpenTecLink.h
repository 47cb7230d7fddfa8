// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/QExportAbstractOptionSheet.h"

#include <QWidget>

#include <memory>
#include <string>
#include <vector>

namespace Ui
{
class QExportSheetOpenTecLink;
}

namespace kpBaseExport
{

class QObjectListModel;

/// The options of the OpenTecLink format: the cross-sections to write, and the one whose trace line gives the positions
/// on the map. Whoever knows the sections fills both in updateSectionList().
class KPBASEEXPORT_EXPORT QExportSheetOpenTecLink : public QWidget, public QExportAbstractOptionSheet
{
    Q_OBJECT

public:
    QExportSheetOpenTecLink();
    ~QExportSheetOpenTecLink() override;

    void initialize(const QString& key) override;
    void activate() override;
    bool isComplete() const override;

    /// The sections; the checked ones are chosen.
    QObjectListModel* sectionList() const;
    /// Names of the chosen sections in UTF-8.
    std::vector<std::string> selectedSectionNames() const;
    /// Replaces the sections whose trace line can be taken.
    void setTraceLines(const QStringList& names);
    /// The section whose trace line is taken; empty when there is none.
    QString traceLine() const;
    void setTraceLine(const QString& name);

protected:
    using QExportAbstractOptionSheet::initialize;

    /// Fills sectionList() and the trace lines; called each time the page is entered. Does nothing here.
    virtual void updateSectionList();

private:
    std::unique_ptr<Ui::QExportSheetOpenTecLink> m_ui;
    QObjectListModel* m_sections = nullptr; ///< child of the page
};

} // namespace kpBaseExport
