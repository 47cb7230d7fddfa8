// SPDX-License-Identifier: MIT
#include "pages/PlanSheet.h"

#include "export/ExportPlan.h"
#include "export/SizeTrial.h"
#include "wizard/PlainText.h"

#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace kpFormats
{

namespace
{

constexpr int mostNamesInToolTip = 30;
constexpr int cellPadding = 12;
const QString verifyKey = QStringLiteral("verifyExports");

QString objectsText(const QStringList& names)
{
    constexpr int mostNames = 4;
    if (names.size() <= mostNames)
        return names.join(QStringLiteral(", "));
    return PlanSheet::tr("%1 and %2 more")
        .arg(names.mid(0, mostNames - 1).join(QStringLiteral(", ")))
        .arg(names.size() - mostNames + 1);
}

QString stateText(const ExportPlan::Output& output, const FileOutcome& outcome)
{
    if (!outcome.written())
        return PlanSheet::tr("cannot be written");
    QString text = output.replaces ? PlanSheet::tr("replaces a file") : PlanSheet::tr("new");
    if (!output.renamedFrom.isEmpty())
        text += PlanSheet::tr(", renamed");
    if (!outcome.failedObjects.empty())
        text += PlanSheet::tr(", without %n of its objects", nullptr, static_cast<int>(outcome.failedObjects.size()));
    return text;
}

/// What the run will refuse and what it will not carry, each named once; empty when that is nothing.
QString foreseenHtml(const ExportReport& foreseen)
{
    constexpr int mostLines = 6;
    QStringList lines;
    for (const FileOutcome& file : foreseen.files()) {
        if (!file.written())
            lines.append(PlanSheet::tr("%1 cannot be written: %2").arg(QFileInfo(file.path).fileName(), file.error));
        for (const FailedObject& object : file.failedObjects) {
            if (file.written())
                lines.append(PlanSheet::tr("%1 will be left out: %2").arg(object.name, object.reason));
        }
    }
    lines += foreseen.findings.lines();
    if (lines.empty())
        return {};
    QString html = QStringLiteral("<p>%1</p><ul>").arg(PlanSheet::tr("The report will say:"));
    for (const QString& line : lines.mid(0, mostLines))
        html += QStringLiteral("<li>") + line.toHtmlEscaped() + QStringLiteral("</li>");
    if (lines.size() > mostLines)
        html += QStringLiteral("<li>")
                + PlanSheet::tr("and %1 more; the report will tell").arg(lines.size() - mostLines)
                + QStringLiteral("</li>");
    return html + QStringLiteral("</ul>");
}

QString toolTipOf(const ExportPlan::Output& output, const FileOutcome& outcome)
{
    QStringList lines{QDir::toNativeSeparators(output.path)};
    if (!outcome.written())
        lines.append(outcome.error);
    if (!output.renamedFrom.isEmpty())
        lines.append(
            PlanSheet::tr("named after \"%1\", which cannot stand in a file name or is taken").arg(output.renamedFrom));
    if (!output.sidecars.isEmpty())
        lines.append(PlanSheet::tr("with it go: %1").arg(output.sidecars.join(QStringLiteral(", "))));
    return lines.join(QLatin1Char('\n'));
}

} // namespace

PlanSheet::PlanSheet(kpBase::AbstractSheetHandler* wizard)
    : AbstractSheet(wizard)
    , m_summary(new QLabel(this))
    , m_files(new QTreeWidget(this))
    , m_replacing(new QWidget(this))
    , m_replace(new QCheckBox(m_replacing))
    , m_keepBoth(new QPushButton(tr("&Keep Both"), m_replacing))
    , m_verify(new QCheckBox(tr("&Read the files again and compare them with the model"), this))
{
    m_pageWidget = this;
    setWindowTitle(tr("File Export: Files to Write"));
    m_summary->setObjectName(QStringLiteral("planSummary"));
    m_summary->setWordWrap(true);
    m_files->setObjectName(QStringLiteral("planFiles"));
    m_files->setHeaderLabels({tr("File"), tr("State"), tr("Vertices"), tr("Size, about"), tr("Objects")});
    m_files->headerItem()->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
    m_files->headerItem()->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
    m_files->setAccessibleName(tr("Files to write"));
    m_files->setRootIsDecorated(false);
    m_files->setUniformRowHeights(true);
    m_files->setAlternatingRowColors(true);
    m_verify->setObjectName(QStringLiteral("m_verifyCheck"));
    m_verify->setToolTip(tr("Takes longer. A file that differs from the model is not put into place."));
    m_verify->setChecked(QSettings().value(verifyKey, false).toBool());
    connect(m_verify, &QCheckBox::toggled, this, [](bool on) { QSettings().setValue(verifyKey, on); });
    m_replace->setObjectName(QStringLiteral("replaceExisting"));
    m_keepBoth->setObjectName(QStringLiteral("keepBoth"));
    m_keepBoth->setAutoDefault(false);
    m_keepBoth->setToolTip(tr("Gives the new files other names"));
    connect(m_replace, &QCheckBox::toggled, this, &PlanSheet::completeChanged);
    connect(m_keepBoth, &QPushButton::clicked, this, &PlanSheet::keepBothRequested);
    auto* replacing = new QHBoxLayout(m_replacing);
    replacing->setContentsMargins(0, 0, 0, 0);
    replacing->addWidget(m_replace);
    replacing->addWidget(m_keepBoth);
    replacing->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_summary);
    layout->addWidget(m_files, 1);
    layout->addWidget(m_replacing);
    layout->addWidget(m_verify);
}

void PlanSheet::showPlan(const ExportPlan& plan, int replaced)
{
    m_writesAny = plan.refused() < static_cast<int>(plan.outputs.size());
    m_replacing->setVisible(replaced > 0);
    m_replace->setChecked(false);
    m_replace->setText(replaced == 1 ? tr("Re&place 1 existing file")
                                     : tr("Re&place %1 existing files").arg(QLocale().toString(replaced)));
    QString summary = plan.summary();
    if (plan.freeBytes >= 0 && plan.bytes() > plan.freeBytes)
        summary = QStringLiteral("<b>%1</b> ").arg(tr("The disk may be too small.")) + summary;
    m_summary->setText(summary + foreseenHtml(plan.foreseen));
    QList<QTreeWidgetItem*> items;
    for (std::size_t index = 0; index < plan.outputs.size(); ++index) {
        const ExportPlan::Output& output = plan.outputs[index];
        const FileOutcome& outcome = plan.foreseen.files()[index];
        auto* item = new QTreeWidgetItem({QFileInfo(output.path).fileName(), stateText(output, outcome),
                                          QString::number(output.vertices), sizeText(output.bytes),
                                          objectsText(output.objects)});
        item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        item->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
        item->setToolTip(0, kpBaseExport::plainText(toolTipOf(output, outcome)));
        item->setToolTip(4, kpBaseExport::plainText(output.objects.mid(0, mostNamesInToolTip).join(QLatin1Char('\n'))));
        if (output.replaces || !outcome.complete())
            item->setForeground(1, QColor(Qt::darkRed));
        items.append(item);
    }
    m_files->clear();
    m_files->addTopLevelItems(items);
    m_files->header()->resizeSection(0, 260);
    for (int column = 1; column < 4; ++column)
        m_files->resizeColumnToContents(column);
    for (int column = 1; column < 4; ++column)
        m_files->header()->resizeSection(column, m_files->columnWidth(column) + cellPadding);
}

bool PlanSheet::isComplete() const
{
    return m_writesAny && (m_replacing->isHidden() || m_replace->isChecked());
}

bool PlanSheet::wantsVerification() const
{
    return m_verify->isChecked();
}

} // namespace kpFormats
