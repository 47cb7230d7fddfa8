// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;
class QPlainTextEdit;

namespace kpFormats
{

/// The beginning of a text file as it will be, for the eye: no line is endless, and tabs, blanks and line ends can be
/// made visible.
class FilePreview : public QWidget
{
    Q_OBJECT

public:
    explicit FilePreview(QWidget* parent);

    /// \a bytes are UTF-8; \a source is the name of what they are written from, or empty.
    void showBytes(const QByteArray& bytes, const QString& source);

private:
    void showMarks(bool on);

    QLabel* m_title;
    QPlainTextEdit* m_text;
};

} // namespace kpFormats
