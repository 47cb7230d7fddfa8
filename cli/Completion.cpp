// SPDX-License-Identifier: MIT
#include "cli/Completion.h"

#include "cli/CommandLine.h"
#include "cli/CommandTable.h"
#include "cli/FormatChoice.h"
#include "cli/Refusal.h"
#include "cli/Terminal.h"
#include "export/Suggestion.h"

#include <algorithm>

namespace refhost
{

namespace
{

using Completions = std::vector<Completion>;

// Each script asks the program itself, and shows the lines that it prints: a word, a tab, a description; or ":files".

constexpr char bashScript[] = R"(_kpexport() {
    local words=() word glued=no line reply=()
    # Bash takes words apart at "=".
    for word in "${COMP_WORDS[@]:1:COMP_CWORD}"; do
        if [[ ${#words[@]} -gt 0 && ( $word == =* || $glued == yes ) ]]; then
            words[-1]+=$word
        else
            words+=("$word")
        fi
        [[ $word == = ]] && glued=yes || glued=no
    done
    local current=${words[-1]}
    local shown=${current##*=}
    while IFS= read -r line; do
        if [[ $line == :files ]]; then
            compopt -o filenames
            mapfile -t -O "${#reply[@]}" reply < <(compgen -f -- "$shown")
        else
            line=${line%%$'\t'*}
            [[ $current == *=* ]] && line=${line#"${current%=*}="}
            [[ $line == *= ]] && compopt -o nospace
            reply+=("$line")
        fi
    done < <("${COMP_WORDS[0]}" complete -- "${words[@]}" 2>/dev/null)
    COMPREPLY=("${reply[@]}")
}
complete -F _kpexport kpexport
)";

constexpr char zshScript[] = R"(#compdef kpexport
_kpexport() {
    local line name
    local -a plain unfinished
    for line in "${(@f)$("${words[1]}" complete -- "${(@)words[2,CURRENT]}" 2>/dev/null)}"; do
        [[ -z $line ]] && continue
        if [[ $line == :files ]]; then
            [[ $words[CURRENT] == --*=* ]] && compset -P 1 '*='
            _files
            continue
        fi
        name=${${line%%$'\t'*}//:/\\:}
        if [[ $name == *= ]]; then
            unfinished+=("$name:${line#*$'\t'}")
        else
            plain+=("$name:${line#*$'\t'}")
        fi
    done
    (( $#plain )) && _describe kpexport plain
    (( $#unfinished )) && _describe kpexport unfinished -S ''
}
if [[ $funcstack[1] == _kpexport ]]; then
    _kpexport "$@"
else
    compdef _kpexport kpexport
fi
)";

constexpr char fishScript[] = R"(function __kpexport_complete
    set -l words (commandline -opc)
    set -l program $words[1]
    set -e words[1]
    set -l current (commandline -ct)
    for line in ($program complete -- $words "$current" 2>/dev/null)
        if test "$line" = ":files"
            __fish_complete_path "$current"
        else
            echo $line
        end
    end
end
complete -c kpexport -f -a '(__kpexport_complete)'
)";

struct Shell
{
    const char* name;
    const char* script;
};
constexpr Shell shells[] = {{"bash", bashScript}, {"zsh", zshScript}, {"fish", fishScript}};

Completions formatKeys()
{
    Completions all;
    for (const auto& format : makeFormats())
        all.push_back({format->info().key, format->info().displayName});
    return all;
}

Completions commandWords()
{
    Completions all;
    for (const QString& name : commandNames())
        all.push_back({name, QString::fromLatin1(findCommand(name)->summary)});
    return all;
}

/// The values of a setting where \a typed has a "=", else the settings, of the format that the words before it name.
Completions settings(const Command& command, const QStringList& before, const QString& typed)
{
    Completions all;
    try {
        const CommandArguments arguments(command, before);
        const ExportRequest& request = arguments.request();
        const QString output = request.output.isEmpty() ? arguments.words().value(1) : request.output;
        const auto format = findFormat(request.format.isEmpty() ? formatOfOutput(output) : request.format);
        const SettingsTable table = format->settings();
        const int equals = typed.indexOf(QLatin1Char('='));
        for (const Setting& setting : table.all()) {
            const QString key = setting.key + QLatin1Char('=');
            if (equals < 0)
                all.push_back({key, setting.description});
            else if (typed.startsWith(key)) {
                for (const SettingChoice& choice : setting.choices)
                    all.push_back({key + choice.key, choice.text});
                if (setting.kind == Setting::Boolean)
                    all.insert(all.end(), {{key + QStringLiteral("true"), {}}, {key + QStringLiteral("false"), {}}});
            }
        }
    } catch (const Refusal&) {
        // No format is known yet, so neither are its settings.
    }
    return all;
}

Completions values(Option::Kind kind, const Command& command, const QStringList& before, const QString& typed)
{
    Completions all;
    switch (kind) {
    case Option::FormatKey:
        return formatKeys();
    case Option::CommandName:
        return commandWords();
    case Option::SettingText:
        return settings(command, before, typed);
    case Option::File:
    case Option::Output:
        return {{}};
    case Option::TypeKey:
        for (const QString& type : allTypeKeys())
            all.push_back({type, {}});
        break;
    case Option::ShellName:
        for (const Shell& shell : shells)
            all.push_back({QString::fromLatin1(shell.name), {}});
        break;
    case Option::Flag:
    case Option::Text:
        break;
    }
    return all;
}

Completions optionNames(const Command& command, const QStringList& before)
{
    Completions all;
    for (const Option& option : command.options) {
        const QString name = QStringLiteral("--") + QLatin1String(option.name);
        if (*option.name && (option.repeats() || !before.contains(name)))
            all.push_back({name, QString::fromLatin1(option.summary)});
    }
    all.push_back({QStringLiteral("--help"), QStringLiteral("prints the options")});
    return all;
}

/// Whether the word is that option, and a value follows.
const Option* valueWanted(const Command& command, const QString& word)
{
    const auto found = std::find_if(command.options.begin(), command.options.end(), [&word](const Option& option) {
        return *option.name && *option.value && word == QStringLiteral("--") + QLatin1String(option.name);
    });
    return found == command.options.end() ? nullptr : &*found;
}

Completions candidates(const QStringList& words)
{
    const QString typed = words.last();
    const bool first = words.size() == 1;
    const bool dashed = typed.startsWith(QLatin1Char('-'));
    if (first && !dashed)
        return commandWords();
    const bool program = words.first().startsWith(QLatin1Char('-'));
    const Command* const command = program ? &commandTable().front() : findCommand(words.first());
    if (!command)
        return {};
    const QStringList before = words.mid(program ? 0 : 1, words.size() - (program ? 1 : 2));
    if (const Option* option = before.isEmpty() ? nullptr : valueWanted(*command, before.last()))
        return values(option->kind, *command, before.mid(0, before.size() - 1), typed);
    if (!dashed)
        return values(command->word, *command, before, typed);
    const int equals = typed.indexOf(QLatin1Char('='));
    const Option* const option = equals < 0 ? nullptr : valueWanted(*command, typed.left(equals));
    if (equals < 0) {
        Completions all = optionNames(*command, before);
        if (program && first)
            all.push_back({QStringLiteral("--version"), QStringLiteral("prints the version")});
        return all;
    }
    Completions all = option ? values(option->kind, *command, before, typed.mid(equals + 1)) : Completions();
    for (Completion& one : all)
        one.word = one.word.isEmpty() ? QString() : typed.left(equals + 1) + one.word;
    return all;
}

} // namespace

Completions completionsOf(const QStringList& words)
{
    Completions all = words.isEmpty() ? Completions() : candidates(words);
    all.erase(std::remove_if(all.begin(), all.end(),
                             [&words](const Completion& one) {
                                 return !one.word.isEmpty() && !one.word.startsWith(words.last());
                             }),
              all.end());
    return all;
}

int completionCommand(const CommandArguments& arguments)
{
    const QString name = arguments.words().value(0);
    QStringList names;
    for (const Shell& shell : shells) {
        names.append(QString::fromLatin1(shell.name));
        if (names.last() == name) {
            printText(QString::fromLatin1(shell.script));
            return AllWritten;
        }
    }
    const QString all = QStringLiteral("give one of ") + names.join(QStringLiteral(", "));
    throw Refusal(WrongUse,
                  name.isEmpty()
                      ? QStringLiteral("completion: no shell is named (%1)").arg(all)
                      : QStringLiteral("%1: this shell is not known (%2)").arg(name, suggestionFor(name, names, all)));
}

int completeCommand(const CommandArguments& arguments)
{
    for (const Completion& one : completionsOf(arguments.words()))
        printFields(one.word.isEmpty() ? QStringList(QStringLiteral(":files"))
                                       : QStringList{one.word, one.description});
    return AllWritten;
}

} // namespace refhost
