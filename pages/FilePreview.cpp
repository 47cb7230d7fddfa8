// SPDX-License-Identifier: MIT
#include "pages/FilePreview.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <QTextOption>
#include <QVBoxLayout>

namespace kpFormats
{

namespace
{

constexpr int leastLines = 5;
constexpr int mostCharacters = 4000; // of a line
constexpr int mostOfName = 60;

} // namespace

FilePreview::FilePreview(QWidget* parent)
    : QWidget(parent)
    , m_title(new QLabel(this))
    , m_text(new QPlainTextEdit(this))
{
    m_title->setObjectName(QStringLiteral("previewTitle"));
    m_title->setTextFormat(Qt::PlainText);
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* marks = new QCheckBox(tr("&Show tabs, blanks and line ends"), this);
    marks->setObjectName(QStringLiteral("showMarks"));
    connect(marks, &QCheckBox::toggled, this, &FilePreview::showMarks);
    m_text->setObjectName(QStringLiteral("preview"));
    m_text->setAccessibleName(tr("First lines of the file"));
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setMinimumHeight(m_text->fontMetrics().height() * leastLines);
    m_text->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);

    auto* head = new QHBoxLayout;
    head->addWidget(m_title, 1);
    head->addWidget(marks);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addLayout(head);
    whole->addWidget(m_text, 1);
}

void FilePreview::showBytes(const QByteArray& bytes, const QString& source)
{
    QStringList lines = QString::fromUtf8(bytes).split(QLatin1Char('\n'));
    for (QString& line : lines) {
        if (line.size() > mostCharacters)
            line = line.left(mostCharacters) + QStringLiteral("...");
    }
    // The same text again would lose the place to which the user has scrolled.
    const QString text = lines.join(QLatin1Char('\n'));
    if (text != m_text->toPlainText())
        m_text->setPlainText(text);
    m_title->setText(source.isEmpty() ? tr("Preview")
                                      : tr("Preview: first lines of %1").arg(source.simplified().left(mostOfName)));
}

void FilePreview::showMarks(bool on)
{
    QTextOption option = m_text->document()->defaultTextOption();
    option.setFlags(on ? QTextOption::ShowTabsAndSpaces | QTextOption::ShowLineAndParagraphSeparators
                       : QTextOption::Flags());
    m_text->document()->setDefaultTextOption(option);
}

} // namespace kpFormats
