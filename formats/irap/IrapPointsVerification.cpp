// SPDX-License-Identifier: MIT
#include "formats/irap/IrapPointsVerification.h"

#include "export/LengthFactors.h"
#include "readers/TextScanner.h"

#include <cmath>

namespace kpFormats
{

namespace
{

constexpr Verification::Place endOfLine{999.0, 999.0, 999.0};

/// Walks the file along the objects.
class RowCheck
{
public:
    RowCheck(const QString& path, const IrapPointsExportSettings& settings, Verification& result)
        : m_scanner(path)
        , m_settings(settings)
        , m_result(result)
    {
    }

    void compare(const ModelObject& object)
    {
        m_object = &object;
        m_factors.emplace(object, m_settings.lengthUnit, m_settings.zIsElevation);
        for (int vertex = 0; object.parts.empty() && vertex < object.vertexCount(); ++vertex) {
            if (isKnown(vertex))
                expect(vertex);
        }
        if (object.parts.empty())
            expectEnd(object.vertexCount() - 1);
        for (const Part& part : object.parts)
            compareLine(part);
    }

    void compareEnd()
    {
        Verification::Place row;
        if (next(row))
            m_result.fail(QStringLiteral("there is more in it than line %1").arg(m_scanner.lineNumber() - 1));
    }

private:
    bool isKnown(int vertex) const
    {
        const auto index = static_cast<std::size_t>(vertex);
        return std::isfinite((*m_object->x)[index]) && std::isfinite((*m_object->y)[index])
               && std::isfinite((*m_object->z)[index]);
    }
    Verification::Place placeOf(int vertex) const
    {
        const auto index = static_cast<std::size_t>(vertex);
        return {(*m_object->x)[index] * m_factors->flat, (*m_object->y)[index] * m_factors->flat,
                (*m_object->z)[index] * m_factors->height};
    }

    void compareLine(const Part& part)
    {
        const int end = part.first + part.count;
        for (int first = part.first; first < end; ++first) {
            int after = first;
            while (after < end && isKnown(after))
                ++after;
            // A single vertex is no line.
            if (after - first < 2) {
                first = after;
                continue;
            }
            for (int vertex = first; vertex < after; ++vertex)
                expect(vertex);
            const bool ring = part.closed && after - first == part.count && part.count > 2;
            if (ring && placeOf(first) != placeOf(end - 1))
                expect(first);
            expectEnd(after - 1);
            first = after;
        }
    }

    void expect(int vertex)
    {
        const auto where = [this, vertex] {
            return QStringLiteral("%1, vertex %2").arg(m_object->name).arg(vertex + 1);
        };
        Verification::Place row;
        if (!next(row))
            return m_result.fail(where() + QStringLiteral(" is missing"));
        m_result.comparePosition(placeOf(vertex), row, where);
    }
    void expectEnd(int vertex)
    {
        Verification::Place row;
        if (!next(row) || row != endOfLine)
            m_result.fail(QStringLiteral("%1: it does not end behind vertex %2").arg(m_object->name).arg(vertex + 1));
        m_result.alsoCompared(QStringLiteral("ends"));
    }

    bool next(Verification::Place& row)
    {
        if (!m_result.good() || !m_scanner.nextLine())
            return false;
        std::string_view word;
        for (double& number : row) {
            if (!m_scanner.nextWord(word))
                m_scanner.fail(QStringLiteral("a row needs three numbers"), QStringLiteral("correct the line"));
            number = m_scanner.number(word);
        }
        if (m_scanner.nextWord(word))
            m_scanner.fail(QStringLiteral("a row has more than three numbers"), QStringLiteral("correct the line"));
        return true;
    }

    TextScanner m_scanner;
    const IrapPointsExportSettings& m_settings;
    Verification& m_result;
    const ModelObject* m_object = nullptr;
    std::optional<LengthFactors> m_factors;
};

} // namespace

Verification verifyIrapPoints(const std::vector<const ModelObject*>& objects, const QString& path,
                              const IrapPointsExportSettings& settings)
{
    const LengthFactors first(*objects.front(), settings.lengthUnit, settings.zIsElevation);
    Verification result(QStringLiteral("the program's row reader"),
                        Allowance::ofDecimals(settings.decimals, first.flatUnit),
                        Allowance::ofDecimals(settings.decimals, first.heightUnit));
    try {
        RowCheck check(path, settings, result);
        for (const ModelObject* object : objects)
            check.compare(*object);
        check.compareEnd();
    } catch (const std::exception& error) {
        result.fail(QString::fromUtf8(error.what()));
    }
    return result;
}

} // namespace kpFormats
