// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QHash>
#include <QSet>
#include <QString>

#include <string>

namespace kpFormats
{

/// \a text as a value of a release 12 file: one line, what is not ASCII as \U+XXXX, at most 255 characters.
/// \a changed is set when characters were lost.
std::string dxfText(const QString& text, bool& changed);

/// The layers of one file: names that every reader takes, at most 31 characters, different from each other also where
/// case does not count.
class DxfLayerNames
{
public:
    /// \a unicode: keep letters that are not ASCII, as \U+XXXX in the file. CAD programs show them; others take the
    /// backslash for an illegal character. Else accents are left out, Cyrillic letters are spelled with Latin ones and
    /// others become "U" and their number.
    explicit DxfLayerNames(bool unicode = false)
        : m_unicode(unicode)
    {
    }

    /// The layer for the group of objects with that name; "0", which every drawing has, for an empty name.
    std::string layer(const QString& name);
    /// The layer's name as a reader shows it.
    QString shown(const QString& name) const { return m_shown.value(name); }

private:
    QString legal(const QString& name) const;

    bool m_unicode;
    QHash<QString, QString> m_shown;
    QSet<QString> m_taken;
};

/// The index of the colour nearest to \a colour of the 255 that a drawing has; black and white are both 7, which is
/// shown as the one that differs from the background.
int nearestColourIndex(const QColor& colour);
/// The colour of an index.
QColor indexedColour(int index);

} // namespace kpFormats
