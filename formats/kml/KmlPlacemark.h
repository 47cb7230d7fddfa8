// SPDX-License-Identifier: MIT
#pragma once

#include "export/CommonFindings.h"
#include "formats/kml/KmlDrawing.h"

namespace kpFormats
{

/// A placemark that begins when the first of its geometries turns out to have a place.
class KmlDrawing::Placemark
{
public:
    Placemark(KmlDrawing& drawing, const ModelObject& object, KmlSink::Look look, bool several)
        : m_drawing(drawing)
        , m_object(object)
        , m_look(look)
        , m_several(several)
    {
    }

    void open()
    {
        if (m_open)
            return;
        m_open = true;
        ++m_drawing.m_features;
        m_drawing.m_sink.beginPlacemark(m_object.name, m_drawing.tableOf(m_object, -1), m_look, m_object.color,
                                        m_drawing.modeFor(m_object));
        if (m_several)
            m_drawing.m_sink.beginMulti();
    }

    void close()
    {
        if (!m_open) {
            if (!m_drawing.stopped() && !m_drawing.m_undrawable.contains(&m_object))
                m_drawing.m_findings.note(finding::objectLeftOut, m_object.name, 1,
                                          QStringLiteral("nothing of it can be drawn"));
            return;
        }
        if (m_several)
            m_drawing.m_sink.endMulti();
        m_drawing.m_sink.endPlacemark();
    }

private:
    KmlDrawing& m_drawing;
    const ModelObject& m_object;
    KmlSink::Look m_look;
    bool m_several;
    bool m_open = false;
};

} // namespace kpFormats
