// SPDX-License-Identifier: MIT
#include "window/ExportWizard.h"

#include "host/ui/WizardProgress.h"
#include "pages/FormatSaver.h"
#include "window/HostContext.h"
#include "window/ReportActions.h"
#include "window/WizardRequest.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QMetaProperty>
#include <QTableView>

namespace refhost
{

ExportWizard::ExportWizard(HostContext& context, QWidget* parent)
    : FormatWizard(context.model, parent)
    , m_context(context)
{
}

void ExportWizard::populate_sheets()
{
    FormatWizard::populate_sheets();
    QWidget* page = reportSheet()->pageWidget();
    m_reportActions = new ReportActions(page);
    m_reportActions->setVisible(false);
    qobject_cast<QGridLayout*>(page->layout())->addWidget(m_reportActions, 1, 0);
    connect(m_reportActions, &ReportActions::retryRequested, this, &ExportWizard::retryFailed);
}

void ExportWizard::startup()
{
    FormatWizard::startup();
    m_firstShown = current_sheet();
    m_idsAtStart = selectedGeoIds();
    m_choicesAtStart = choices();
    m_ranOnce = false;
}

/// What the user can have changed on the page shown, the chosen objects aside: those may be very many.
QVariantList ExportWizard::choices() const
{
    QVariantList values;
    const QWidget* page = current_sheet() ? current_sheet()->pageWidget() : nullptr;
    if (!page)
        return values;
    for (const QWidget* control : page->findChildren<QWidget*>()) {
        const auto* table = qobject_cast<const QTableView*>(control);
        if (table && table->objectName() != QLatin1String("listViewObjects")) {
            const QAbstractItemModel* model = table->model();
            for (int row = 0; model && row < model->rowCount(); ++row) {
                for (int column = 0; column < model->columnCount(); ++column)
                    values << model->index(row, column).data() << model->index(row, column).data(Qt::CheckStateRole);
            }
        } else if (qobject_cast<const QAbstractButton*>(control) || qobject_cast<const QLineEdit*>(control)
                   || qobject_cast<const QComboBox*>(control) || qobject_cast<const QAbstractSpinBox*>(control)) {
            values.append(control->metaObject()->userProperty().read(control));
        }
    }
    return values;
}

void ExportWizard::reject()
{
    const bool changed =
        current_sheet() != m_firstShown || selectedGeoIds() != m_idsAtStart || choices() != m_choicesAtStart;
    if (changed && !m_ranOnce && !get_progress()->isRunning()
        && QMessageBox::question(this, windowTitle(), tr("Nothing has been exported yet.\nClose all the same?"),
                                 QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
               != QMessageBox::Yes)
        return;
    FormatWizard::reject();
}

void ExportWizard::runBegins()
{
    m_reportActions->setVisible(false);
}

void ExportWizard::runReported()
{
    m_ranOnce = true;
    m_reportActions->setVisible(true);
    m_reportActions->show(wizardRequest(m_context, *formatSaver()), formatSaver()->hasFailures());
}

} // namespace refhost
