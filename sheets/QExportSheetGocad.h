// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/FileGroupingSheet.h"

#include <memory>
#include <string>
#include <vector>

namespace Ui
{
class QExportSheetGocad;
}

namespace kpBaseExport
{

class QExportAttributeWidget;

/// The options of the GOCAD format: the attributes of vertices, one file or several, and the header.
class KPBASEEXPORT_EXPORT QExportSheetGocad : public FileGroupingSheet
{
    Q_OBJECT

public:
    QExportSheetGocad();
    ~QExportSheetGocad() override;

    void initialize(const QString& key) override;
    void startup() override;
    void activate() override;
    bool isComplete() const override;

    bool writesHeader() const;
    /// Names of the chosen attributes in UTF-8.
    std::vector<std::string> selectedAttributeNames();

protected:
    using QExportAbstractOptionSheet::initialize;

private:
    std::unique_ptr<Ui::QExportSheetGocad> m_ui;
    QExportAttributeWidget* m_attributes = nullptr; ///< child of the page
};

} // namespace kpBaseExport
