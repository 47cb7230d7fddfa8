// SPDX-License-Identifier: MIT
#include "export/CommitJournal.h"

#include <QList>

#include <algorithm>
#include <array>

namespace kpFormats
{

namespace
{

using State = CommitJournal::State;

struct StateName
{
    State state;
    const char* name;
};

constexpr std::array<StateName, 4> stateNames = {{{State::Kept, "journal.kept"},
                                                  {State::Back, "journal.back"},
                                                  {State::Forward, "journal.commit"},
                                                  {State::Staging, "journal.staging"}}};
constexpr char unfinished[] = "journal.next";
constexpr char lastLine[] = "end";
constexpr char nothing[] = "-";

const char* nameOf(State state)
{
    const auto* const found = std::find_if(stateNames.begin(), stateNames.end(),
                                           [state](const StateName& entry) { return entry.state == state; });
    return found == stateNames.end() ? "" : found->name;
}

QByteArray textOf(const std::optional<FileIdentity>& identity)
{
    return identity ? identity->text() : QByteArray(nothing);
}

/// A move as "ROOM STAGED EARLIER NAME", where a name has no blank and no line end.
QByteArray lineOf(const JournalMove& move)
{
    return (move.room.isEmpty() ? QByteArray(nothing) : move.room) + ' ' + textOf(move.staged) + ' '
           + textOf(move.earlier) + ' ' + move.name.toPercentEncoding() + '\n';
}

/// A name that stays in its folder.
bool isPlain(const QByteArray& name)
{
    return !name.isEmpty() && !name.contains('/') && name != "." && name != "..";
}

} // namespace

CommitJournal::CommitJournal(const Folder& folder, const QByteArray& folderName)
    : m_folder(folder)
    , m_folderName(folderName)
{
}

QByteArray CommitJournal::head() const
{
    return "kpexport staging folder 1 " + m_folderName + '\n';
}

int CommitJournal::begin() const
{
    return m_folder.write(nameOf(State::Staging), head());
}

CommitJournal::State CommitJournal::state() const
{
    for (const StateName& entry : stateNames) {
        const std::optional<QByteArray> content = m_folder.read(entry.name);
        if (content)
            return content->startsWith(head()) ? entry.state : State::None;
    }
    return State::None;
}

std::vector<JournalMove> CommitJournal::moves() const
{
    const QByteArray content = m_folder.read(nameOf(state())).value_or(QByteArray());
    QList<QByteArray> lines = content.split('\n');
    std::vector<JournalMove> moves;
    if (!content.startsWith(head()) || lines.size() < 3 || lines[lines.size() - 2] != lastLine)
        return moves;
    for (const QByteArray& line : lines.mid(1, lines.size() - 3)) {
        const QList<QByteArray> words = line.split(' ');
        if (words.size() != 4)
            return {};
        JournalMove move{words[0] == nothing ? QByteArray() : words[0], QByteArray::fromPercentEncoding(words[3]),
                         FileIdentity::of(words[1]), FileIdentity::of(words[2])};
        if (!isPlain(move.name) || (!move.room.isEmpty() && !isPlain(move.room)))
            return {};
        moves.push_back(move);
    }
    return moves;
}

int CommitJournal::decide(const std::vector<JournalMove>& moves) const
{
    QByteArray content = head();
    for (const JournalMove& move : moves)
        content += lineOf(move);
    const int error = m_folder.write(unfinished, content + lastLine + '\n');
    if (error != 0)
        return error;
    const int moved = m_folder.move(unfinished, m_folder, nameOf(State::Forward));
    return moved != 0 ? moved : m_folder.synchronise();
}

int CommitJournal::change(State from, State to) const
{
    const int error = m_folder.move(nameOf(from), m_folder, nameOf(to));
    return error != 0 ? error : m_folder.synchronise();
}

int CommitJournal::finish() const
{
    // Not made durable: to carry the moves out once more changes nothing.
    return m_folder.move(nameOf(State::Forward), m_folder, nameOf(State::Staging));
}

int CommitJournal::remove() const
{
    int error = 0;
    for (const char* name : {unfinished, nameOf(State::Forward), nameOf(State::Back), nameOf(State::Staging)}) {
        if (m_folder.kind(name) == Folder::Kind::File)
            error = std::max(error, m_folder.remove(name));
    }
    return error;
}

bool CommitJournal::isUnbegun() const
{
    const std::vector<QByteArray> names = m_folder.names();
    if (names.empty())
        return true;
    const std::optional<QByteArray> content = m_folder.read(nameOf(State::Staging));
    return names.size() == 1 && content && head().startsWith(*content);
}

} // namespace kpFormats
