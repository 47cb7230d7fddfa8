// SPDX-License-Identifier: MIT
#pragma once
#include "export/BlockWriter.h"
#include "export/Format.h"
#include "export/NumberColumns.h"
#include "model/ProgressTicker.h"
#include "writers/FixedNumber.h"

using namespace kpFormats;

struct PointSettings
{
    int decimals = 2;
};

/// One file of points, prepared: which of their attributes are numbers is known before anything is written.
class PointFile : public PreparedFile
{
public:
    PointFile(const PlannedFile& planned, const ExportSelection& selected, int decimals, Findings& findings)
        : PreparedFile(planned, selected)
        , m_decimals(decimals)
    {
        for (const ModelObject* object : file().objects)
            m_columns.push_back(numberColumns(*object, selection(), findings));
    }

    qint64 write(const QString& path, Findings&, kpBase::AbstractProgress* progress) override
    {
        ProgressTicker ticker(progress, weightOf(file().objects));
        BlockWriter out(path, file().path);
        qint64 rows = 0;
        const auto append = [&](double number) {
            kpBaseExport::appendFixed(out.text(), number, m_decimals);
            out.text() += ',';
        };
        for (std::size_t index = 0; index < m_columns.size(); ++index) {
            const ModelObject& object = *file().objects[index];
            for (int row = 0; row < object.vertexCount() && ticker.next(); ++row, ++rows) {
                for (const Numbers& axis : {object.x, object.y, object.z})
                    append((*axis)[static_cast<std::size_t>(row)]);
                for (const NumberColumn& column : m_columns[index])
                    append(column.at(row));
                out.text().back() = '\n';
                out.check();
            }
        }
        out.close();
        return rows;
    }

private:
    int m_decimals;
    std::vector<std::vector<NumberColumn>> m_columns; ///< of each object
};

/// Points as comma-separated text: a format of this host's own, its page, plan and report included.
class PointFormat : public Format
{
public:
    FormatInfo info() const override
    {
        return {"points", "Points as text", "Points", "txt", "*.txt", {ObjectType::VertexClouds}};
    }
    SettingsTable settings() const override
    {
        SettingsTable table;
        table.addInteger("decimals", &PointSettings::decimals, 0, 10, "Decimals", "decimals of every number");
        return table;
    }
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue&) const override
    {
        return {{withExtension(selection.path, "txt"), selection.objects}};
    }
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override
    {
        return std::make_unique<PointFile>(file, selection, settings.as<PointSettings>().decimals, findings);
    }
};
