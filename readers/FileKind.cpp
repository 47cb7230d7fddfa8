// SPDX-License-Identifier: MIT
#include "readers/FileKind.h"

#include "readers/DeviationReader.h"
#include "readers/IrapReader.h"
#include "readers/LasWellReader.h"
#include "readers/OpenTecSectionReader.h"
#include "readers/RmsWellReader.h"
#include "readers/ZMapReader.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>

namespace kpFormats
{

namespace
{

/// The first bytes, without blanks and remarks before them.
QByteArray beginningOf(const QString& path)
{
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        return {};
    constexpr qint64 enough = 8192;
    QByteArray begin = file.read(enough);
    while (!begin.isEmpty()) {
        int first = 0;
        while (first < begin.size() && QByteArray(" \t\r\n").contains(begin[first]))
            ++first;
        begin.remove(0, first);
        if (!begin.startsWith('#') && !begin.startsWith("--"))
            break;
        const int end = begin.indexOf('\n');
        begin = end < 0 ? QByteArray() : begin.mid(end + 1);
    }
    return begin;
}

/// Whether a grid in GXF stands behind the remarks, whatever the file is called.
bool isGxfGrid(const QString& path)
{
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        return false;
    constexpr qint64 enough = 65536;
    const QByteArray begin = file.read(enough);
    return begin.contains("\n#GRID") && begin.contains("#POINTS") && begin.contains("#ROWS");
}

} // namespace

FileKind fileKindOf(const QString& path)
{
    static const QHash<QString, FileKind> endings{
        {QStringLiteral("tif"), FileKind::Grid},      {QStringLiteral("tiff"), FileKind::Grid},
        {QStringLiteral("off"), FileKind::Off},       {QStringLiteral("obj"), FileKind::Obj},
        {QStringLiteral("grdecl"), FileKind::Grdecl}, {QStringLiteral("data"), FileKind::Grdecl},
        {QStringLiteral("ts"), FileKind::Gocad},      {QStringLiteral("pl"), FileKind::Gocad},
        {QStringLiteral("vs"), FileKind::Gocad},      {QStringLiteral("gp"), FileKind::Gocad},
        {QStringLiteral("wl"), FileKind::Gocad},      {QStringLiteral("gocad"), FileKind::Gocad},
        {QStringLiteral("stl"), FileKind::Stl},       {QStringLiteral("pol"), FileKind::IrapPolygons},
        {QStringLiteral("csv"), FileKind::Table},     {QStringLiteral("tsv"), FileKind::Table},
        {QStringLiteral("txt"), FileKind::Table},     {QStringLiteral("dat"), FileKind::Table},
        {QStringLiteral("prn"), FileKind::Table},     {QStringLiteral("poi"), FileKind::IrapPoints},
        {QStringLiteral("ply"), FileKind::Ply},       {QStringLiteral("vtp"), FileKind::Vtk},
        {QStringLiteral("vtu"), FileKind::Vtk},       {QStringLiteral("vti"), FileKind::Vtk},
        {QStringLiteral("vts"), FileKind::Vtk},       {QStringLiteral("vtk"), FileKind::Vtk}};
    if (isZMapGrid(path))
        return FileKind::ZMap;
    if (isIrapGrid(path))
        return FileKind::IrapGrid;
    if (isDeviationTable(path))
        return FileKind::Deviation;
    if (isRmsWell(path))
        return FileKind::RmsWell;
    if (isOpenTecSection(path))
        return FileKind::OpenTec;
    if (isLasLog(path))
        return FileKind::Las;
    const QByteArray begin = beginningOf(path);
    if (isGxfGrid(path))
        return FileKind::Gxf;
    if (begin.startsWith("GOCAD "))
        return FileKind::Gocad;
    if (begin.startsWith("SPECGRID") || begin.startsWith("RUNSPEC") || begin.startsWith("GRID\n"))
        return FileKind::Grdecl;
    return endings.value(QFileInfo(path).suffix().toLower(), FileKind::Other);
}

} // namespace kpFormats
