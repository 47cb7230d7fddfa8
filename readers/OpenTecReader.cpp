// SPDX-License-Identifier: MIT
#include "readers/OpenTecReader.h"

#include "readers/LoadError.h"

#include <QFile>

#include <cmath>

namespace kpFormats
{

namespace
{

/// The lines of a file, split at the first blank into keyword and value; empty lines are passed over.
class KeywordLines
{
public:
    explicit KeywordLines(const QString& path)
        : m_path(path)
        , m_file(path)
    {
        if (!m_file.open(QIODevice::ReadOnly))
            throw LoadError(path, QStringLiteral("the file cannot be read"),
                            QStringLiteral("check the path and its permissions"));
    }

    bool next()
    {
        while (!m_file.atEnd()) {
            ++m_number;
            QByteArray line = m_file.readLine();
            if (line.endsWith('\n'))
                line.chop(1);
            if (line.isEmpty())
                continue;
            const int blank = line.indexOf(' ');
            m_keyword = blank < 0 ? line : line.left(blank);
            m_value = blank < 0 ? QByteArray() : line.mid(blank + 1);
            return true;
        }
        return false;
    }

    const QByteArray& keyword() const { return m_keyword; }
    QString text() const { return QString::fromUtf8(m_value); }

    template <std::size_t count>
    std::array<double, count> numbers() const
    {
        const QList<QByteArray> words = m_value.trimmed().split(' ');
        if (words.size() != static_cast<int>(count))
            fail(QStringLiteral("there are %1 numbers where %2 are due").arg(words.size()).arg(count));
        std::array<double, count> values{};
        for (std::size_t index = 0; index < count; ++index) {
            bool isNumber = false;
            values[index] = words[static_cast<int>(index)].toDouble(&isNumber);
            if (!isNumber || !std::isfinite(values[index]))
                fail(QStringLiteral("\"%1\" is not a number").arg(QString::fromUtf8(words[static_cast<int>(index)])));
        }
        return values;
    }

    /// The next line, which has to be \a keyword.
    void expect(const char* keyword)
    {
        if (!next() || m_keyword != keyword)
            fail(QStringLiteral("\"%1\" is due here").arg(QLatin1String(keyword)));
    }

    [[noreturn]] void fail(const QString& cause) const
    {
        throw LoadError(m_path, QStringLiteral("line %1: %2").arg(m_number).arg(cause),
                        QStringLiteral("export it again"));
    }

private:
    QString m_path;
    QFile m_file;
    int m_number = 0;
    QByteArray m_keyword;
    QByteArray m_value;
};

OpenTecSection::Segment readSegment(KeywordLines& lines)
{
    OpenTecSection::Segment segment;
    lines.expect("name");
    segment.name = lines.text();
    lines.expect("color_rgb");
    segment.color = lines.text();
    lines.expect("type");
    segment.type = lines.text();
    lines.expect("points");
    while (lines.next() && lines.keyword() == "xyz")
        segment.points.push_back(lines.numbers<3>());
    if (lines.keyword() != "points-end")
        lines.fail(QStringLiteral("\"points-end\" is due here"));
    lines.expect("segment-end");
    return segment;
}

} // namespace

OpenTecSection readOpenTec(const QString& path)
{
    KeywordLines lines(path);
    OpenTecSection section;
    lines.expect("version");
    lines.expect("unit_z_depth");
    lines.expect("unit_xy_section_position");
    if (!lines.next())
        return section;
    if (lines.keyword() == "xy_section_position") {
        while (lines.next() && lines.keyword() == "xy")
            section.trace.push_back(lines.numbers<2>());
        if (lines.keyword() != "xy_section_position-end")
            lines.fail(QStringLiteral("\"xy_section_position-end\" is due here"));
        if (!lines.next())
            return section;
    }
    if (lines.keyword() != "open_tec_link_section")
        lines.fail(QStringLiteral("\"open_tec_link_section\" is due here"));
    section.name = lines.text();
    lines.expect("section_age");
    section.age = lines.numbers<1>()[0];
    while (lines.next() && lines.keyword() == "segment")
        section.segments.push_back(readSegment(lines));
    if (lines.keyword() != "open_tec_link_section-end")
        lines.fail(QStringLiteral("\"open_tec_link_section-end\" is due here"));
    if (lines.next())
        lines.fail(QStringLiteral("there is more than one section"));
    return section;
}

} // namespace kpFormats
