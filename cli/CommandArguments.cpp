// SPDX-License-Identifier: MIT
#include "cli/CommandArguments.h"

#include "export/Suggestion.h"

#include <algorithm>

namespace refhost
{

namespace
{

QString helpHint(const Command& command)
{
    const QString name = QString::fromLatin1(command.name);
    return name.isEmpty() ? QStringLiteral("see kpexport --help") : QStringLiteral("see kpexport %1 --help").arg(name);
}

QString unknownOption(const QString& name, const Command& command)
{
    const auto dashed = [](const QString& text) {
        return (text.size() > 1 ? QLatin1String("--") : QLatin1String("-")) + text;
    };
    QStringList names{QStringLiteral("--help")};
    for (const Option& option : command.options)
        names.append(dashed(QString::fromLatin1(option.name)));
    return QStringLiteral("%1: there is no such option (%2)")
        .arg(dashed(name), suggestionFor(dashed(name), names, helpHint(command)));
}

} // namespace

QString pathOf(const QString& argument)
{
    return argument.startsWith(QLatin1Char(':')) ? QStringLiteral("./") + argument : argument;
}

CommandArguments::CommandArguments(const Command& command, const QStringList& arguments)
{
    m_parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QString()});
    for (const Option& option : command.options) {
        if (*option.name)
            m_parser.addOption({QString::fromLatin1(option.name), QString(), QString::fromLatin1(option.value)});
    }
    if (!m_parser.parse(QStringList(QStringLiteral("kpexport")) + arguments)) {
        const QStringList unknown = m_parser.unknownOptionNames();
        m_error = unknown.isEmpty() ? QStringLiteral("%1 (%2)").arg(m_parser.errorText(), helpHint(command))
                                    : unknownOption(unknown.first(), command);
    }
    for (const Option& option : command.options)
        take(option);
}

void CommandArguments::take(const Option& option)
{
    const QString name = QString::fromLatin1(option.name);
    if (name.isEmpty() || !m_parser.isSet(name))
        return;
    QStringList values = m_parser.values(name);
    if (values.isEmpty() && *option.value) // it is the last word
        return;
    if (option.isPath())
        std::transform(values.begin(), values.end(), values.begin(), pathOf);
    if (const auto flag = std::get_if<bool ExportRequest::*>(&option.member)) {
        m_request.*(*flag) = true;
    } else if (const auto text = std::get_if<QString ExportRequest::*>(&option.member)) {
        m_request.*(*text) = values.last();
    } else if (const auto list = std::get_if<QStringList ExportRequest::*>(&option.member)) {
        m_request.*(*list) = values;
    } else if (const auto pairs = std::get_if<SettingPairs ExportRequest::*>(&option.member)) {
        for (const QString& pair : qAsConst(values)) {
            const int equals = pair.indexOf(QLatin1Char('='));
            if (equals < 1 && m_error.isEmpty())
                m_error = QStringLiteral("--set %1: this is not a setting (write KEY=VALUE)").arg(pair);
            (m_request.*(*pairs)).append({pair.left(equals), pair.mid(equals + 1)});
        }
    }
}

} // namespace refhost
