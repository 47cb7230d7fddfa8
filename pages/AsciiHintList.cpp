// SPDX-License-Identifier: MIT
#include "pages/AsciiHintList.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace kpFormats
{

namespace
{

constexpr int mostLines = 3;

} // namespace

AsciiHintList::AsciiHintList(Cure cure, QWidget* parent)
    : QWidget(parent)
    , m_cure(std::move(cure))
    , m_lines(new QVBoxLayout(this))
{
    setObjectName(QStringLiteral("hints"));
    m_lines->setContentsMargins(0, 0, 0, 0);
    m_lines->setSpacing(2);
    hide();
}

void AsciiHintList::showHints(const std::vector<AsciiHint>& hints)
{
    while (QLayoutItem* item = m_lines->takeAt(0)) {
        item->widget()->hide();
        item->widget()->deleteLater();
        delete item;
    }
    std::vector<AsciiHint> narrow;
    int shown = 0;
    for (const AsciiHint& hint : hints) {
        if (hint.cure == AsciiHint::Widen)
            narrow.push_back(hint);
        else if (shown++ < mostLines)
            add(hint.text, hint.cureText, {hint});
    }
    if (narrow.size() == 1)
        add(narrow.front().text, narrow.front().cureText, narrow);
    else if (!narrow.empty())
        add(tr("%1 (%2 columns are too narrow)").arg(narrow.front().text).arg(narrow.size()),
            tr("Widen all %1").arg(narrow.size()), narrow);
    setVisible(m_lines->count() > 0);
}

void AsciiHintList::add(const QString& text, const QString& cureText, const std::vector<AsciiHint>& cured)
{
    auto* row = new QWidget(this);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    auto* icon = new QLabel(row);
    icon->setPixmap(QPixmap(QStringLiteral(":/kpBaseQt/Resources/error.png")));
    auto* label = new QLabel(row);
    label->setTextFormat(Qt::PlainText);
    label->setText(QString(text).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    label->setWordWrap(true);
    label->setObjectName(QStringLiteral("hintText"));
    line->addWidget(icon);
    line->addWidget(label, 1);
    if (!cureText.isEmpty()) {
        auto* button = new QPushButton(cureText, row);
        button->setObjectName(QStringLiteral("hintCure"));
        button->setAccessibleDescription(text);
        // A copy: the button is gone once the cure is done.
        connect(button, &QPushButton::clicked, this, [cure = m_cure, cured] {
            for (const AsciiHint& hint : cured)
                cure(hint);
        });
        line->addWidget(button);
    }
    m_lines->addWidget(row);
}

} // namespace kpFormats
