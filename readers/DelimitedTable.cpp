// SPDX-License-Identifier: MIT
#include "readers/DelimitedTable.h"

#include "geo/GdalSession.h"
#include "readers/OpenDataset.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <cpl_string.h>
#include <ogrsf_frmts.h>

#include <algorithm>

namespace kpFormats
{

namespace
{

// A table wider than this is no table of attributes; OGR would take minutes over it.
constexpr int mostColumns = 10000;
constexpr qint64 longestHeader = 4 * 1024 * 1024;

/// The first line of a table. Refuses what is none before OGR takes it for one.
QByteArray headerOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray header = file.readLine(longestHeader);
    if (header.contains('\0'))
        throw LoadError(path, QStringLiteral("this is a binary file, not delimited text"),
                        QStringLiteral("give the file its proper extension"));
    const int columns = std::max({header.count(','), header.count(';'), header.count('\t')}) + 1;
    if (columns > mostColumns || header.size() >= longestHeader - 1)
        throw LoadError(path, QStringLiteral("line 1 has %1 columns; the limit is %2").arg(columns).arg(mostColumns),
                        QStringLiteral("remove the columns that are not needed"));
    return header;
}

QStringList fieldsOf(const QByteArray& header)
{
    QStringList fields;
    for (const QString& field : QString::fromUtf8(header).split(QRegularExpression(QStringLiteral("[,;\\t|]"))))
        fields.append(field.trimmed().remove(QLatin1Char('"')).remove(QChar(QChar::ByteOrderMark)));
    return fields;
}

/// The column of an axis: the first of \a names, separated by commas, that is there; empty when none is. OGR is told of
/// one only, since it fails over two.
QString columnOf(const QStringList& fields, const QString& chosen, const QString& usual)
{
    for (const QString& name : (chosen.isEmpty() ? usual : chosen).split(QLatin1Char(','))) {
        if (fields.contains(name, Qt::CaseInsensitive))
            return name;
    }
    return chosen;
}

} // namespace

bool isDelimited(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    return suffix == QLatin1String("csv") || suffix == QLatin1String("tsv") || suffix == QLatin1String("txt");
}

GDALDatasetUniquePtr openTable(const QString& path, const LoadOptions& options)
{
    const QStringList fields = fieldsOf(headerOf(path));
    const QString x = columnOf(fields, options.x, QStringLiteral("x,easting,east,xcollar,lon,long,longitude"));
    const QString y = columnOf(fields, options.y, QStringLiteral("y,northing,north,ycollar,lat,latitude"));
    const QString z = columnOf(fields, options.z, QStringLiteral("z,elevation,elev,zcollar,altitude"));
    CPLStringList open;
    open.SetNameValue("X_POSSIBLE_NAMES", x.toUtf8().constData());
    open.SetNameValue("Y_POSSIBLE_NAMES", y.toUtf8().constData());
    open.SetNameValue("Z_POSSIBLE_NAMES", z.toUtf8().constData());
    // OGR takes a line for no header where a column is named by a number.
    if (fields.contains(x, Qt::CaseInsensitive) && fields.contains(y, Qt::CaseInsensitive) && !x.isEmpty()
        && !y.isEmpty())
        open.SetNameValue("HEADERS", "YES");
    open.AddString("KEEP_GEOM_COLUMNS=NO");
    open.AddString("AUTODETECT_TYPE=YES");
    open.AddString("AUTODETECT_SIZE_LIMIT=0");
    open.AddString("EMPTY_STRING_AS_NULL=YES");
    return openDataset(path, GDAL_OF_VECTOR, open.List());
}

LoadError noPoints(const QString& path, OGRLayer& layer)
{
    constexpr int mostShown = 20;
    QStringList columns;
    const OGRFeatureDefn* definition = layer.GetLayerDefn();
    for (int field = 0; field < definition->GetFieldCount() && field < mostShown; ++field)
        columns.append(QString::fromUtf8(definition->GetFieldDefn(field)->GetNameRef()));
    if (definition->GetGeomFieldCount() > 0)
        return LoadError(path, QStringLiteral("no row of it has numbers for x and y"),
                         QStringLiteral("check it at its source"));
    return LoadError(
        path,
        QStringLiteral("none of its columns is known to hold coordinates; it has: %1")
            .arg(columns.join(QStringLiteral(", "))),
        QStringLiteral("name them x, y and z in the file, or say which they are with \"x\", \"y\" and \"z\" "
                       "in its entry of a model file"));
}

} // namespace kpFormats
