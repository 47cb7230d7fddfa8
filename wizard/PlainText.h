// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTextDocument>

namespace kpBaseExport
{

/// \a text for a label, tool tip or message box, which take what looks like HTML for HTML: names of objects, files and
/// attributes show to the letter, and none can bring in markup or a picture.
inline QString plainText(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

} // namespace kpBaseExport
