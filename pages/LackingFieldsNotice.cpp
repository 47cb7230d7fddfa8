// SPDX-License-Identifier: MIT
#include "pages/LackingFieldsNotice.h"

#include "wizard/PlainText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace kpFormats
{

namespace
{

constexpr int mostNames = 12;
constexpr int mostOfName = 40;

} // namespace

LackingFieldsNotice::LackingFieldsNotice(QWidget* parent)
    : QWidget(parent)
    , m_label(new QLabel(this))
{
    m_label->setObjectName(QStringLiteral("lackingFields"));
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(true);
    auto* dismiss = new QPushButton(tr("Dismiss"), this);
    dismiss->setObjectName(QStringLiteral("dismissLacking"));
    connect(dismiss, &QPushButton::clicked, this, &QWidget::hide);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_label, 1);
    row->addWidget(dismiss);
    hide();
}

void LackingFieldsNotice::tell(const QStringList& lacking)
{
    if (lacking == m_told)
        return;
    m_told = lacking;
    setVisible(!lacking.isEmpty());
    QStringList names = lacking.mid(0, mostNames);
    for (QString& name : names)
        name = name.simplified().left(mostOfName);
    if (lacking.size() > mostNames)
        names.append(tr("and %1 more").arg(lacking.size() - mostNames));
    m_label->setText(tr("The chosen objects lack these fields of the layout, which are left out: %1")
                         .arg(names.join(QStringLiteral(", "))));
    m_label->setToolTip(kpBaseExport::plainText(m_label->text()));
}

} // namespace kpFormats
