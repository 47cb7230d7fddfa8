// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "cli/ExportRequest.h"

#include <QWidget>

class QPushButton;

namespace refhost
{

/// The buttons below the wizard's report: the export as a command line or a job file, and the failed part again.
class ReportActions : public QWidget
{
    Q_OBJECT

public:
    explicit ReportActions(QWidget* parent = nullptr);

    /// The export that the report is about, and whether some of it failed.
    void show(const ExportRequest& request, bool someFailed);

Q_SIGNALS:
    void retryRequested();

private:
    void copyCommandLine();
    void saveJobFile();

    ExportRequest m_request;
    QPushButton* m_copy;
    QPushButton* m_retry;
};

} // namespace refhost
