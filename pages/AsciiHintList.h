// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ascii/AsciiHints.h"

#include <QWidget>

#include <functional>

class QVBoxLayout;

namespace kpFormats
{

/// What the values have against the choice, a line each with the button that cures it. Columns that are too narrow are
/// one line.
class AsciiHintList : public QWidget
{
    Q_OBJECT

public:
    using Cure = std::function<void(const AsciiHint&)>;

    /// \a cure does what a hint advises.
    AsciiHintList(Cure cure, QWidget* parent);

    /// In place of those shown; hidden when there are none.
    void showHints(const std::vector<AsciiHint>& hints);

private:
    void add(const QString& text, const QString& cureText, const std::vector<AsciiHint>& cured);

    Cure m_cure;
    QVBoxLayout* m_lines;
};

} // namespace kpFormats
