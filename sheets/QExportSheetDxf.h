// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/kpUnits.h"
#include "sheets/FileGroupingSheet.h"

#include <memory>

namespace Ui
{
class QExportSheetDxf;
}

namespace kpBaseExport
{

/// The options of the DXF format: the unit, three dimensions or two, one file or several, layers, and how meshes are
/// written.
class KPBASEEXPORT_EXPORT QExportSheetDxf : public FileGroupingSheet
{
    Q_OBJECT

public:
    /// Space, the map seen from above, or the plane of a section.
    enum class Dimension { Space, Map, Section };
    /// Which objects share a layer: those of a set, those of a type, or all of them.
    enum class Layers { Sets, ObjectTypes, None };

    QExportSheetDxf();
    ~QExportSheetDxf() override;

    void initialize(const QString& key) override;
    void startup() override;
    void activate() override;
    bool isComplete() const override;

    using FileGroupingSheet::setSets;
    void setSets(const QStringList& sets) override;

    kpUnits units() const;
    Dimension dimension() const;
    Layers layers() const;
    /// The kind of set that makes the layers.
    QString layerSetType() const;
    /// What is written of a mesh: any combination, also nothing.
    bool writesFaces() const;
    bool writesPoints() const;
    bool writesBoundaries() const;

protected:
    using QExportAbstractOptionSheet::initialize;

protected Q_SLOTS:
    void onCheckLayerSetType(bool flag);
    /// Drawings in two dimensions show the outlines of meshes, not their points.
    void onCheck2D(bool flag);

private:
    std::unique_ptr<Ui::QExportSheetDxf> m_ui;
};

} // namespace kpBaseExport
