// SPDX-License-Identifier: MIT
#include "window/ReportActions.h"

#include "cli/RequestText.h"
#include "wizard/PlainText.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QJsonDocument>
#include <QMessageBox>
#include <QPushButton>
#include <QSaveFile>
#include <QToolTip>

namespace refhost
{

ReportActions::ReportActions(QWidget* parent)
    : QWidget(parent)
    , m_copy(new QPushButton(tr("Copy as &Command Line"), this))
    , m_retry(new QPushButton(tr("Export &Failed Again"), this))
{
    auto* job = new QPushButton(tr("Save &Job File..."), this);
    m_copy->setObjectName(QStringLiteral("copyCommandLine"));
    job->setObjectName(QStringLiteral("saveJobFile"));
    m_retry->setObjectName(QStringLiteral("retryFailed"));
    job->setToolTip(tr("Saves this export as a job for \"kpexport run\""));
    m_retry->setToolTip(tr("Writes only the files that failed, once their cause is mended"));
    m_retry->hide();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 6, 0, 0);
    for (QPushButton* button : {m_copy, job, m_retry}) {
        button->setAutoDefault(false);
        layout->addWidget(button);
    }
    layout->addStretch();
    connect(m_copy, &QPushButton::clicked, this, &ReportActions::copyCommandLine);
    connect(job, &QPushButton::clicked, this, &ReportActions::saveJobFile);
    connect(m_retry, &QPushButton::clicked, this, &ReportActions::retryRequested);
}

void ReportActions::show(const ExportRequest& request, bool someFailed)
{
    m_request = request;
    m_retry->setVisible(someFailed);
    m_copy->setToolTip(kpBaseExport::plainText(commandLineOf(request).left(1000)));
}

void ReportActions::copyCommandLine()
{
    QApplication::clipboard()->setText(commandLineOf(m_request));
    QToolTip::showText(m_copy->mapToGlobal(m_copy->rect().bottomLeft()), tr("The command is on the clipboard."),
                       m_copy);
}

void ReportActions::saveJobFile()
{
    QString path = QFileDialog::getSaveFileName(this, tr("Save Job File"), QString(), tr("Job Files (*.json)"));
    if (path.isEmpty())
        return;
    if (!path.endsWith(QLatin1String(".json"), Qt::CaseInsensitive))
        path += QLatin1String(".json");
    QSaveFile file(path);
    const QByteArray text = QJsonDocument(jobOf(m_request)).toJson();
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        QMessageBox::warning(this, tr("Save Job File"),
                             kpBaseExport::plainText(tr("%1 could not be written: %2").arg(path, file.errorString())));
}

} // namespace refhost
