// SPDX-License-Identifier: MIT
#include "host/ui/Wizard.h"

#include "host/ui/AbstractSheet.h"
#include "host/ui/WizardProgress.h"

#include <QCloseEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace kpBase
{

namespace
{

QFrame* horizontalLine(QWidget* parent)
{
    auto* line = new QFrame(parent);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

/// The key clicks the button while it can be clicked.
void bindKey(QPushButton& button, const QKeySequence& key)
{
    auto* shortcut = new QShortcut(key, button.window());
    QObject::connect(shortcut, &QShortcut::activated, &button, [&button] {
        if (button.isVisible())
            button.click();
    });
    button.setToolTip(key.toString(QKeySequence::NativeText));
}

} // namespace

Wizard::Wizard(QWidget* parent, Qt::WindowFlags flags)
    : QDialog(parent, flags)
    , m_title(new QLabel(this))
    , m_pages(new QStackedWidget(this))
    , m_back(new QPushButton(tr("Back"), this))
    , m_next(new QPushButton(tr("Next"), this))
    , m_close(new QPushButton(tr("Cancel"), this))
{
    m_title->setObjectName(QStringLiteral("pageTitle"));
    m_pages->setObjectName(QStringLiteral("pages"));
    m_back->setObjectName(QStringLiteral("backButton"));
    m_next->setObjectName(QStringLiteral("nextButton"));
    m_close->setObjectName(QStringLiteral("closeButton"));
    QFont titleFont = m_title->font();
    titleFont.setBold(true);
    m_title->setFont(titleFont);
    m_next->setDefault(true);
    m_back->setAutoDefault(false);
    m_close->setAutoDefault(false);

    auto* bar = new QProgressBar(this);
    bar->setObjectName(QStringLiteral("progressBar"));
    bar->hide();
    auto* remaining = new QLabel(this);
    remaining->setObjectName(QStringLiteral("remainingLabel"));
    remaining->hide();
    m_progress = std::make_unique<WizardProgress>(bar, remaining);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(bar, 1);
    buttons->addWidget(remaining);
    buttons->addStretch();
    buttons->addWidget(m_back);
    buttons->addWidget(m_next);
    buttons->addWidget(m_close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_title);
    layout->addWidget(horizontalLine(this));
    layout->addWidget(m_pages, 1);
    layout->addWidget(horizontalLine(this));
    layout->addLayout(buttons);

    // Keys that do not stand in the texts, as the library sets these.
    bindKey(*m_back, Qt::ALT + Qt::Key_PageUp);
    bindKey(*m_next, Qt::ALT + Qt::Key_PageDown);
    connect(m_next, &QPushButton::clicked, this, [this] { activate_next_sheet(); });
    connect(m_back, &QPushButton::clicked, this, [this] { activate_previous_sheet(); });
    connect(m_close, &QPushButton::clicked, this, &QWidget::close);
    // While a run lets events in, nothing but cancelling may be reached.
    connect(m_progress.get(), &WizardProgress::runningChanged, m_pages, &QWidget::setDisabled);
}

Wizard::~Wizard() = default;

void Wizard::startup()
{
    if (m_populated)
        return;
    m_populated = true;
    populate_sheets();
    if (!m_sheets.empty())
        set_current_sheet(m_sheets.front());
}

void Wizard::show_next_previous(bool show, const QString& nextText)
{
    m_next->setText(nextText);
    m_next->setVisible(show);
    m_back->setVisible(show);
}

void Wizard::set_cancel_button_mode()
{
    m_close->setText(tr("Cancel"));
}

void Wizard::activate_sheet(AbstractSheet* sheet, bool show)
{
    set_current_sheet(sheet);
    if (show && sheet && sheet->pageWidget())
        m_pages->setCurrentWidget(sheet->pageWidget());
}

void Wizard::add_sheet(AbstractSheet* sheet)
{
    insert_sheet(sheet, nullptr);
}

void Wizard::insert_sheet(AbstractSheet* sheet, AbstractSheet* before)
{
    m_sheets.erase(std::remove(m_sheets.begin(), m_sheets.end(), sheet), m_sheets.end());
    m_sheets.insert(std::find(m_sheets.begin(), m_sheets.end(), before), sheet);
    take_page(sheet);
    link_sheets();
}

void Wizard::remove_sheet(AbstractSheet* sheet)
{
    m_sheets.erase(std::remove(m_sheets.begin(), m_sheets.end(), sheet), m_sheets.end());
    sheet->next(nullptr);
    sheet->previous(nullptr);
    link_sheets();
}

WizardProgress* Wizard::get_progress() const
{
    return m_progress.get();
}

void Wizard::activate_next_sheet()
{
    AbstractSheetHandler::activate_next_sheet();
}

void Wizard::activate_previous_sheet()
{
    AbstractSheetHandler::activate_previous_sheet();
}

void Wizard::update_navigation()
{
    const AbstractSheet* sheet = current_sheet();
    m_next->setEnabled(sheet && sheet->next() && sheet->isComplete());
    m_back->setEnabled(sheet && sheet->previous());
}

QPushButton* Wizard::nextButton() const
{
    return m_next;
}

QPushButton* Wizard::backButton() const
{
    return m_back;
}

QPushButton* Wizard::closeButton() const
{
    return m_close;
}

void Wizard::closeEvent(QCloseEvent* event)
{
    if (m_progress->isRunning()) {
        m_progress->cancel();
        event->ignore();
        return;
    }
    QDialog::reject();
    event->accept();
}

void Wizard::reject()
{
    // Escape goes the way of the close button.
    close();
}

void Wizard::set_current_sheet(AbstractSheet* sheet)
{
    if (sheet)
        take_page(sheet);
    AbstractSheetHandler::set_current_sheet(sheet);
    if (sheet && sheet->pageWidget()) {
        m_title->setText(sheet->title());
        m_pages->setCurrentWidget(sheet->pageWidget());
    }
    update_navigation();
}

void Wizard::link_sheets()
{
    AbstractSheet* before = nullptr;
    for (AbstractSheet* sheet : m_sheets) {
        sheet->previous(before);
        sheet->next(nullptr);
        if (before)
            before->next(sheet);
        before = sheet;
    }
    update_navigation();
}

void Wizard::take_page(AbstractSheet* sheet)
{
    // A page that was taken out of the sequence stays in the stack, so it lives as long as the dialog.
    if (QWidget* page = sheet->pageWidget(); page && m_pages->indexOf(page) < 0)
        m_pages->addWidget(page);
}

} // namespace kpBase
