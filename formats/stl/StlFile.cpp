// SPDX-License-Identifier: MIT
#include "formats/stl/StlFile.h"

#include "export/BlockWriter.h"
#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "export/NumberColumns.h"
#include "export/WrittenSurface.h"
#include "formats/stl/StlFindings.h"
#include "formats/stl/StlVerification.h"

#include <QtEndian>

#include <cmath>
#include <cstring>

namespace kpFormats
{

namespace
{

using Place = WrittenSurface::Place;
using Triangle = std::array<Place, 3>;

constexpr std::size_t titleSize = 80;

void append(std::string& text, double number)
{
    const auto single = static_cast<float>(number);
    quint32 bits = 0;
    std::memcpy(&bits, &single, sizeof bits);
    bits = qToLittleEndian(bits);
    text.append(reinterpret_cast<const char*>(&bits), sizeof bits);
}

/// Of length 1, to the side from which the corners run counter-clockwise; 0 for a triangle of no area.
Place normalOf(const Triangle& corners)
{
    Place a{};
    Place b{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        a[axis] = corners[1][axis] - corners[0][axis];
        b[axis] = corners[2][axis] - corners[0][axis];
    }
    Place normal{a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
    const double length = std::hypot(normal[0], normal[1], normal[2]);
    for (double& number : normal)
        number = length > 0.0 ? number / length : 0.0;
    return normal;
}

bool sameInSinglePrecision(const Place& one, const Place& other)
{
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (static_cast<float>(one[axis]) != static_cast<float>(other[axis]))
            return false;
    }
    return true;
}

bool differs(const Place& one, const Place& other)
{
    return one != other;
}

} // namespace

std::string stlTitle(const ModelObject& object, const StlExportSettings& settings, const MapOffset& offset)
{
    // A title that begins with "solid" would make it a text.
    std::string title = "binary STL, unit " + writtenUnit(object.lengthUnit, settings.lengthUnit).toStdString()
                        + (settings.zIsElevation ? ", z up" : ", z down");
    if (!offset.isZero())
        title += ", " + offset.text();
    title.resize(titleSize, ' ');
    return title;
}

StlFile::StlFile(PlannedFile planned, const ExportSelection& selected, StlExportSettings settings, Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_settings(std::move(settings))
    , m_offset(file().objects, m_settings.lengthUnit, m_settings.zIsElevation, m_settings.origin)
{
    const ModelObject& object = *file().objects.front();
    requireTriangles(object, file().path);
    noteAttributesLeftOut(object, findings);
    m_offset.note(object, findings);
    if (m_offset.isRoundingLarge())
        findings.note(stlFinding::singlePrecision, object, 1,
                      QStringLiteral("by up to %1 %2")
                          .arg(m_offset.mostRounding(), 0, 'g', 2)
                          .arg(writtenUnit(object.lengthUnit, m_settings.lengthUnit)));
    if (m_offset.largest() > static_cast<double>(std::numeric_limits<float>::max()))
        throw ExportError(file().path, QStringLiteral("a coordinate of %1 is beyond single precision").arg(object.name),
                          QStringLiteral("correct it at its source"));
}

qint64 StlFile::write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress)
{
    const ModelObject& object = *file().objects.front();
    const WrittenSurface surface(object, m_settings.lengthUnit, m_settings.zIsElevation, m_offset);
    surface.noteLosses(findings);
    ProgressTicker ticker(progress, static_cast<double>(surface.mesh().triangleCount()));
    BlockWriter out(path, file().path);
    out.text() += stlTitle(object, m_settings, m_offset);
    const quint32 count = qToLittleEndian(static_cast<quint32>(surface.mesh().triangleCount()));
    out.text().append(reinterpret_cast<const char*>(&count), sizeof count);
    qint64 collapsed = 0;
    surface.eachTriangle([&](const Triangle& corners) {
        std::string& text = out.text();
        for (const double number : normalOf(corners))
            append(text, number);
        bool merged = false;
        for (std::size_t corner = 0; corner < 3; ++corner) {
            for (const double number : corners[corner])
                append(text, number);
            const Place& next = corners[(corner + 1) % 3];
            merged = merged || (differs(corners[corner], next) && sameInSinglePrecision(corners[corner], next));
        }
        text.append(2, '\0');
        collapsed += merged ? 1 : 0;
        out.check();
        return ticker.next();
    });
    findings.note(stlFinding::triangleCollapsed, object, collapsed,
                  QStringLiteral("corners closer than the last bit of single precision"));
    if (ticker.cancelled())
        return 0;
    out.close();
    m_offset.writeSidecar(path, file().path, object, m_settings.lengthUnit, m_settings.zIsElevation);
    return surface.mesh().triangleCount();
}

std::optional<Verification> StlFile::verify(const QString& path) const
{
    return verifyStl(*file().objects.front(), path, m_settings, m_offset);
}

} // namespace kpFormats
