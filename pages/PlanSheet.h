// SPDX-License-Identifier: MIT
#pragma once

#include "host/ui/AbstractSheet.h"
#include "pages/kpFormatsUiExport.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QPushButton;
class QTreeWidget;

namespace kpFormats
{

struct ExportPlan;

/// The page before writing: each file with its objects, whether it is new or replaces one, its size and the room on
/// the disk; and whether the files are to be read again. Where files would be replaced that the user has not agreed to
/// yet, the page is complete when they are agreed to, or when both are kept.
class KPFORMATSUI_EXPORT PlanSheet : public QWidget, public kpBase::AbstractSheet
{
    Q_OBJECT

public:
    explicit PlanSheet(kpBase::AbstractSheetHandler* wizard);

    /// \a replaced is how many files would be replaced that the user has not agreed to yet.
    void showPlan(const ExportPlan& plan, int replaced);
    /// Something can be written, and nothing would be replaced that the user has not agreed to.
    bool isComplete() const override;
    /// Remembered between runs of the program.
    bool wantsVerification() const;

Q_SIGNALS:
    void completeChanged();
    /// The files are to be named so that nothing is replaced.
    void keepBothRequested();

private:
    bool m_writesAny = false;
    QLabel* m_summary;
    QTreeWidget* m_files;
    QWidget* m_replacing;
    QCheckBox* m_replace;
    QPushButton* m_keepBoth;
    QCheckBox* m_verify;
};

} // namespace kpFormats
