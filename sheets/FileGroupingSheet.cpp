// SPDX-License-Identifier: MIT
#include "sheets/FileGroupingSheet.h"

#include "wizard/QExportWizard.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

namespace kpBaseExport
{

namespace
{

/// The texts below in the context of each form, for lupdate, which cannot see them there.
[[maybe_unused]] constexpr const char* markedTexts[] = {
    QT_TRANSLATE_NOOP("QExportSheetGocad", "Create"),
    QT_TRANSLATE_NOOP("QExportSheetGocad", "Single file"),
    QT_TRANSLATE_NOOP("QExportSheetGocad", "Multiple files"),
    QT_TRANSLATE_NOOP("QExportSheetGocad", "Create Separate Files based on"),
    QT_TRANSLATE_NOOP("QExportSheetGocad", "Set Type"),
    QT_TRANSLATE_NOOP("QExportSheetGocad", "Per Object"),
    QT_TRANSLATE_NOOP("QExportSheetGocad", "Prefix of the file names"),
    QT_TRANSLATE_NOOP("QExportSheetDxf", "Create"),
    QT_TRANSLATE_NOOP("QExportSheetDxf", "Single file"),
    QT_TRANSLATE_NOOP("QExportSheetDxf", "Multiple files"),
    QT_TRANSLATE_NOOP("QExportSheetDxf", "Create Separate Files based on"),
    QT_TRANSLATE_NOOP("QExportSheetDxf", "Set Type"),
    QT_TRANSLATE_NOOP("QExportSheetDxf", "Per Object"),
    QT_TRANSLATE_NOOP("QExportSheetDxf", "Prefix of the file names"),
    QT_TRANSLATE_NOOP("QExportSheetAsciiFileSelection", "Create"),
    QT_TRANSLATE_NOOP("QExportSheetAsciiFileSelection", "Single file"),
    QT_TRANSLATE_NOOP("QExportSheetAsciiFileSelection", "Multiple files"),
    QT_TRANSLATE_NOOP("QExportSheetAsciiFileSelection", "Create Separate Files based on"),
    QT_TRANSLATE_NOOP("QExportSheetAsciiFileSelection", "Set Type"),
    QT_TRANSLATE_NOOP("QExportSheetAsciiFileSelection", "Per Object"),
    QT_TRANSLATE_NOOP("QExportSheetAsciiFileSelection", "Prefix of the file names"),
    QT_TRANSLATE_NOOP("QExportSheet3DStress", "Create"),
    QT_TRANSLATE_NOOP("QExportSheet3DStress", "Single file"),
    QT_TRANSLATE_NOOP("QExportSheet3DStress", "Multiple files"),
    QT_TRANSLATE_NOOP("QExportSheet3DStress", "Create Separate Files based on"),
    QT_TRANSLATE_NOOP("QExportSheet3DStress", "Set Type"),
    QT_TRANSLATE_NOOP("QExportSheet3DStress", "Per Object"),
    QT_TRANSLATE_NOOP("QExportSheet3DStress", "Prefix of the file names"),
};

template <typename Control>
Control* named(Control* control, const char* name)
{
    control->setObjectName(QString::fromLatin1(name));
    return control;
}

void chainTabs(const QList<QWidget*>& controls)
{
    for (int index = 1; index < controls.size(); ++index)
        QWidget::setTabOrder(controls[index - 1], controls[index]);
}

} // namespace

FileGroupingSheet::FileGroupingSheet()
    : QWidget(nullptr)
    , QExportAbstractOptionSheet(nullptr)
{
}

FileGroupingSheet::~FileGroupingSheet() = default;

void FileGroupingSheet::buildFileGrouping(const char* context, QGroupBox* fileGroup, QGroupBox* fileNameGroup,
                                          QWidget* before, const QList<QWidget*>& after)
{
    const auto text = [context](const char* source) { return QCoreApplication::translate(context, source); };
    auto* fileLabel = named(new QLabel(text("Create"), fileGroup), "fileLabel");
    auto* single = named(new QRadioButton(text("Single file"), fileGroup), "m_singleRadio");
    m_multipleRadio = named(new QRadioButton(text("Multiple files"), fileGroup), "m_multipleRadio");
    m_filePrefix = named(new QLineEdit(fileGroup), "m_filePrefix");
    m_filePrefix->setAccessibleName(text("Prefix of the file names"));
    single->setChecked(true);
    auto* files = new QGridLayout(fileGroup);
    files->addWidget(fileLabel, 0, 0);
    files->addWidget(single, 1, 1);
    files->addWidget(m_multipleRadio, 2, 1);
    files->addWidget(m_filePrefix, 2, 2);

    m_fileNameGroup = fileNameGroup;
    auto* nameLabel = named(new QLabel(text("Create Separate Files based on"), fileNameGroup), "fileNameLabel");
    auto* useSets = named(new QRadioButton(text("Set Type"), fileNameGroup), "m_useSetsAsFilenames");
    m_fileSetComboBox = named(new QComboBox(fileNameGroup), "m_fileSetComboBox");
    m_useObjectAsFilenames = named(new QRadioButton(text("Per Object"), fileNameGroup), "m_useObjectAsFilenames");
    m_fileSetComboBox->setAccessibleName(text("Set Type"));
    useSets->setChecked(true);
    auto* names = new QGridLayout(fileNameGroup);
    names->addWidget(nameLabel, 0, 0, 1, 2);
    names->addWidget(useSets, 1, 1);
    names->addWidget(m_fileSetComboBox, 1, 2);
    names->addWidget(m_useObjectAsFilenames, 2, 1);
    names->setColumnStretch(2, 1);

    connect(m_multipleRadio, &QRadioButton::toggled, this, &FileGroupingSheet::onCheckMultipleFiles);
    connect(useSets, &QRadioButton::toggled, this, &FileGroupingSheet::onCheckFileSetType);
    m_fileNameGroup->setEnabled(m_multipleRadio->isChecked());

    // The chain is a ring, and Qt leaves alone what already follows in it: so the later controls come behind the
    // earlier ones first, and then the new ones between them.
    const QList<QWidget*> first = before ? QList<QWidget*>{before} : QList<QWidget*>();
    chainTabs(first + after);
    chainTabs(
        first
        + QList<QWidget*>{single, m_multipleRadio, m_filePrefix, useSets, m_fileSetComboBox, m_useObjectAsFilenames}
        + after);
}

void FileGroupingSheet::deactivate()
{
    if (auto* wizard = dynamic_cast<QExportWizard*>(getSheetHandler()))
        wizard->setDirectoryMode(m_multipleRadio->isChecked());
    QExportAbstractOptionSheet::deactivate();
}

void FileGroupingSheet::setSets(const QSet<QString>& sets)
{
    setSets(QStringList(sets.begin(), sets.end()));
}

void FileGroupingSheet::setSets(const QStringList& sets)
{
    m_fileSetComboBox->clear();
    m_fileSetComboBox->addItems(sets);
}

FileGroupingChoice FileGroupingSheet::fileGrouping() const
{
    FileGroupingChoice choice;
    choice.multipleFiles = m_multipleRadio->isChecked();
    choice.prefix = m_filePrefix->text();
    choice.perObject = m_useObjectAsFilenames->isChecked();
    choice.setType = m_fileSetComboBox->currentText();
    return choice;
}

void FileGroupingSheet::onCheckMultipleFiles(bool flag)
{
    m_fileNameGroup->setEnabled(flag);
}

void FileGroupingSheet::onCheckFileSetType(bool flag)
{
    m_fileSetComboBox->setEnabled(flag);
}

} // namespace kpBaseExport
