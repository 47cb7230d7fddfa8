// SPDX-License-Identifier: MIT
#pragma once

#include "export/Findings.h"
#include "geo/PositionReader.h"
#include "model/ProgressTicker.h"
#include "model/kpFormatsExport.h"

#include <array>
#include <functional>

namespace kpFormats
{

/// The walk over parts, vertices and faces of objects that all drawings share. It hands on the positions that have a
/// place in the file, counts the work, notes what is left out, and stops when there is no use in going on.
class KPFORMATS_EXPORT DrawingWalk
{
public:
    using Place = std::array<double, 3>;
    using TakePlace = std::function<void(const Place&)>;

    /// Draws one line. \a end and \a single may be empty.
    struct LinePen
    {
        std::function<void()> begin;
        std::function<void(const PositionBlock&)> take; ///< more of its positions
        std::function<void()> end;
        TakePlace single; ///< in place of a line: its only position
    };
    /// How the parts of an object fared.
    struct PartCounts
    {
        qint64 tooShort = 0; ///< of which nothing could be drawn
        qint64 closed = 0;   ///< rings whose last point was not their first
    };
    /// Draws a part of an object that ends before vertex \a end. \returns false when nothing of it can be drawn
    using DrawPart = std::function<bool(const Part& part, int end)>;

    /// All given outlives the walk. \a noPlace is said of a position that is left out, "%1" being its number; \a good
    /// turns false when nothing more can be written, \a project changes the positions of a block; both may be empty.
    DrawingWalk(ProgressTicker& ticker, Findings& findings, QString noPlace, std::function<bool()> good = {},
                std::function<void(PositionBlock&)> project = {});

    bool stopped() const { return m_ticker.cancelled() || (m_good && !m_good()); }

    /// One line of at least \a least positions. \returns whether one was drawn; else \a pen has been asked for a single
    /// place at most
    bool line(PositionReader& reader, int first, int end, std::size_t least, const LinePen& pen);
    /// Draws the lines of an object, or its rings if \a areas, without the repetition of their first vertex.
    PartCounts parts(const ModelObject& object, bool areas, const DrawPart& draw) const;
    void note(const ModelObject& object, const PartCounts& counts, const FindingKind& tooShort,
              const PositionReader& reader);
    /// The path of a well, whole.
    PositionBlock path(const ModelObject& object, PositionReader& reader);
    /// Each vertex that has a place, with its number from 0.
    void points(const ModelObject& object, const PositionReader& reader,
                const std::function<void(int vertex, const Place&)>& take);
    /// Each of \a count figures of \a corners vertices, which \a append adds to its list unless the figure is empty;
    /// \a take is given their positions, of which the first of the figure is at \a at.
    /// \returns how many figures are empty or have a corner without a place
    qint64 figures(const ModelObject& object, const PositionReader& reader, qint64 count, std::size_t corners,
                   const std::function<bool(qint64 number, std::vector<int>& vertices)>& append,
                   const std::function<void(const PositionBlock&, std::size_t at)>& take);

    void noteLeftOut(const ModelObject& object, const PositionReader& reader);

private:
    void project(PositionBlock& block) const;
    void noteLeftOut(const ModelObject& object, qint64 count, int first);

    ProgressTicker& m_ticker;
    Findings& m_findings;
    QString m_noPlace;
    std::function<bool()> m_good;
    std::function<void(PositionBlock&)> m_project;
};

/// The position at an index of a block.
inline DrawingWalk::Place placeOf(const PositionBlock& block, std::size_t index)
{
    return {block.x[index], block.y[index], block.z[index]};
}

} // namespace kpFormats
