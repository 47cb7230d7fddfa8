// SPDX-License-Identifier: MIT
#include "formats/irap/IrapGridFile.h"

#include "export/CommonFindings.h"
#include "formats/irap/IrapFindings.h"
#include "formats/irap/IrapVerification.h"
#include "writers/FixedNumber.h"

#include <QtEndian>

#include <cmath>
#include <cstring>
#include <utility>

namespace kpFormats
{

namespace
{

using kpBaseExport::appendFixed;

constexpr qint32 mark = -996;

/// A record of the binary form: its size, the numbers of 4 bytes, its size again, the high byte first.
class Record
{
public:
    void add(qint32 number) { append(static_cast<quint32>(number)); }
    void add(double number)
    {
        const auto single = static_cast<float>(number);
        quint32 bits = 0;
        std::memcpy(&bits, &single, sizeof bits);
        append(bits);
    }
    void appendTo(std::string& text)
    {
        std::string numbers;
        numbers.swap(m_bytes);
        append(static_cast<quint32>(numbers.size()));
        text += m_bytes + numbers + m_bytes;
        m_bytes.clear();
    }

private:
    void append(quint32 bits)
    {
        char bytes[sizeof bits];
        qToBigEndian(bits, bytes);
        m_bytes.append(bytes, sizeof bytes);
    }

    std::string m_bytes;
};

/// Values that single precision makes 0.
void noteTiny(const ModelObject& object, const GridValues& values, Findings& findings)
{
    qint64 count = 0;
    double first = 0.0;
    values.each([&](double value) {
        if (value != 0.0 && static_cast<float>(value) == 0.0F && count++ == 0)
            first = value;
    });
    findings.note(finding::numberWrittenAs0, object, count,
                  QStringLiteral("%1 with single precision").arg(first, 0, 'g', 6));
}

} // namespace

IrapGridFile::IrapGridFile(PlannedFile planned, const ExportSelection& selected, IrapForm form,
                           IrapGridExportSettings settings, Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_form(form)
    , m_settings(std::move(settings))
    , m_grid(*file().objects.front(), m_settings, file().path)
{
    const ModelObject& object = *file().objects.front();
    m_grid.values().noteLosses(findings);
    if (m_form == IrapForm::Text) {
        m_settings.decimals = m_grid.values().decimals(m_settings.decimals);
        m_grid.values().noteZeros(m_settings.decimals, findings);
        return;
    }
    noteTiny(object, m_grid.values(), findings);
    constexpr double unseen = 1e-5; // of a cell
    const GridGeometry& geometry = m_grid.geometry();
    const double moved = m_grid.movedBySinglePrecision();
    if (moved > unseen * std::min(geometry.stepX, geometry.stepY))
        findings.note(irapFinding::movedBySinglePrecision, object, 1,
                      QStringLiteral("by up to %1 %2; the text form, irap, keeps the place")
                          .arg(moved, 0, 'g', 3)
                          .arg(m_grid.factors().flatUnit));
}

qint64 IrapGridFile::write(const QString& path, Findings&, kpBase::AbstractProgress* progress)
{
    const ModelObject& object = *file().objects.front();
    ProgressTicker loop(progress, object.vertexCount());
    BlockWriter out(path, file().path);
    if (m_form == IrapForm::Text ? writeText(out, loop) : writeBinary(out, loop))
        out.close();
    return object.vertexCount();
}

bool IrapGridFile::writeText(BlockWriter& out, ProgressTicker& progress) const
{
    const GridGeometry& grid = m_grid.geometry();
    std::string& text = out.text();
    const auto addNumber = [&text](double number) {
        text += ' ';
        appendFixed(text, number, irapHeaderDecimals);
    };
    const auto addLine = [&](int first, std::initializer_list<double> numbers) {
        appendInteger(text, first);
        for (const double number : numbers)
            addNumber(number);
        text += '\n';
    };
    text += "-996 ";
    addLine(grid.rows, {grid.stepX, grid.stepY});
    appendFixed(text, grid.originX, irapHeaderDecimals);
    addNumber(grid.originX + (grid.columns - 1) * grid.stepX);
    addNumber(grid.originY);
    addNumber(grid.originY + (grid.rows - 1) * grid.stepY);
    text += '\n';
    addLine(grid.columns, {grid.rotation, grid.originX, grid.originY});
    text += "0 0 0 0 0 0 0\n";
    std::string nullText;
    appendFixed(nullText, irapNull, m_settings.decimals);
    int inLine = 0;
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            const double value = m_grid.values().at(m_grid.node(column, row));
            if (std::isfinite(value))
                appendFixed(text, value, m_settings.decimals);
            else
                text += nullText;
            const bool last = row + 1 == grid.rows && column + 1 == grid.columns;
            inLine = (inLine + 1) % m_settings.nodesPerLine;
            text += inLine == 0 || last ? '\n' : ' ';
            if (!progress.next())
                return false;
        }
        out.check();
    }
    return true;
}

bool IrapGridFile::writeBinary(BlockWriter& out, ProgressTicker& progress) const
{
    const GridGeometry& grid = m_grid.geometry();
    Record record;
    record.add(mark);
    record.add(qint32(grid.rows));
    for (const double number : {grid.originX, grid.originX + (grid.columns - 1) * grid.stepX, grid.originY,
                                grid.originY + (grid.rows - 1) * grid.stepY, grid.stepX, grid.stepY})
        record.add(number);
    record.appendTo(out.text());
    record.add(qint32(grid.columns));
    for (const double number : {grid.rotation, grid.originX, grid.originY})
        record.add(number);
    record.appendTo(out.text());
    for (int unused = 0; unused < 7; ++unused)
        record.add(qint32(0));
    record.appendTo(out.text());
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            const double value = m_grid.values().at(m_grid.node(column, row));
            record.add(std::isfinite(value) ? value : irapBinaryNull);
            if (!progress.next())
                return false;
        }
        record.appendTo(out.text());
        out.check();
    }
    return true;
}

std::optional<Verification> IrapGridFile::verify(const QString& path) const
{
    return verifyIrapGrid(*file().objects.front(), path, m_form, m_settings);
}

} // namespace kpFormats
