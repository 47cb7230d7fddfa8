// SPDX-License-Identifier: MIT
#pragma once

#include "host/ui/AbstractSheet.h"
#include "pages/kpFormatsUiExport.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QTreeWidget;

namespace kpFormats
{

struct ExportPlan;

/// The page before writing: each file with its objects, whether it is new or replaces one, its size and the room on
/// the disk; and whether the files are to be read again.
class KPFORMATSUI_EXPORT PlanSheet : public QWidget, public kpBase::AbstractSheet
{
    Q_OBJECT

public:
    explicit PlanSheet(kpBase::AbstractSheetHandler* wizard);

    void showPlan(const ExportPlan& plan);
    /// Remembered between runs of the program.
    bool wantsVerification() const;

private:
    QLabel* m_summary;
    QTreeWidget* m_files;
    QCheckBox* m_verify;
};

} // namespace kpFormats
