// SPDX-License-Identifier: MIT
#include "export/SettingsMap.h"

#include <QLocale>

#include <algorithm>

namespace kpFormats
{

Setting& SettingsMap::add(const char* key, const char* description, Setting::Kind kind)
{
    m_settings.emplace_back();
    m_settings.back().key = QString::fromLatin1(key);
    m_settings.back().description = QString::fromLatin1(description);
    m_settings.back().kind = kind;
    return m_settings.back();
}

QStringList SettingsMap::texts(std::initializer_list<const char*> latin)
{
    QStringList list;
    for (const char* text : latin)
        list.append(QString::fromLatin1(text));
    return list;
}

void SettingsMap::addText(const char* key, QString& value, const char* description)
{
    Setting& setting = add(key, description, Setting::Text);
    setting.get = [&value] { return value; };
    setting.set = [&value](const QString& text) { value = text; };
}

void SettingsMap::addBoolean(const char* key, bool& value, const char* description)
{
    Setting& setting = add(key, description, Setting::Boolean);
    setting.get = [&value] { return value ? QStringLiteral("true") : QStringLiteral("false"); };
    setting.set = [&value](const QString& text) { value = text == QLatin1String("true"); };
}

void SettingsMap::addInteger(const char* key, int& value, int least, int most, const char* description)
{
    Setting& setting = add(key, description, Setting::Integer);
    setting.least = least;
    setting.most = most;
    setting.get = [&value] { return QString::number(value); };
    setting.set = [&value](const QString& text) { value = text.toInt(); };
}

void SettingsMap::addReal(const char* key, double& value, double least, double most, const char* description)
{
    Setting& setting = add(key, description, Setting::Real);
    setting.least = least;
    setting.most = most;
    setting.get = [&value] { return QString::number(value, 'g', QLocale::FloatingPointShortest); };
    setting.set = [&value](const QString& text) { value = text.toDouble(); };
}

const Setting* SettingsMap::find(const QString& key) const
{
    const auto found = std::find_if(m_settings.begin(), m_settings.end(),
                                    [&key](const Setting& setting) { return setting.key == key; });
    return found == m_settings.end() ? nullptr : &*found;
}

void SettingsMap::set(const QString& key, const QString& value)
{
    const Setting* const found = find(key);
    if (!found) {
        QStringList keys;
        for (const Setting& setting : m_settings)
            keys.append(setting.key);
        throw SettingsError(QStringLiteral("%1: there is no such setting (settings of this format: %2)")
                                .arg(key, keys.join(QStringLiteral(", "))));
    }
    QString allowed;
    if (found->kind == Setting::Choice && !found->choices.contains(value)) {
        allowed = QStringLiteral("one of ") + found->choices.join(QStringLiteral(", "));
    } else if (found->kind == Setting::Boolean && value != QLatin1String("true") && value != QLatin1String("false")) {
        allowed = QStringLiteral("true or false");
    } else if (found->kind == Setting::Integer) {
        bool isNumber = false;
        const int number = value.toInt(&isNumber);
        if (!isNumber || number < found->least || number > found->most)
            allowed = QStringLiteral("a whole number from %1 to %2").arg(found->least).arg(found->most);
    } else if (found->kind == Setting::Real) {
        bool isNumber = false;
        const double number = value.toDouble(&isNumber);
        if (!isNumber || !(number >= found->least && number <= found->most))
            allowed = QStringLiteral("a number from %1 to %2").arg(found->least).arg(found->most);
    }
    if (!allowed.isEmpty())
        throw SettingsError(
            QStringLiteral("%1: \"%2\" is not a value of this setting (give %3)").arg(key, value, allowed));
    found->set(value);
}

QString labelOf(const QString& key)
{
    if (key == QLatin1String("crs"))
        return QStringLiteral("CRS");
    if (key == QLatin1String("rfc7946"))
        return QStringLiteral("RFC 7946");
    QString label;
    for (const QChar character : key) {
        if (character.isUpper() && !label.isEmpty())
            label += QLatin1Char(' ');
        label += label.isEmpty() ? character.toUpper() : character.toLower();
    }
    return label;
}

} // namespace kpFormats
