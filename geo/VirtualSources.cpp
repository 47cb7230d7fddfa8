// SPDX-License-Identifier: MIT
#include "geo/VirtualSources.h"

#include "geo/GdalSession.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <iterator>

#include <cpl_minixml.h>

namespace kpFormats
{

namespace
{

bool namesSource(const char* element)
{
    static const char* const names[] = {"SourceFilename", "SourceDataset", "SrcDataSource"};
    return std::any_of(std::begin(names), std::end(names),
                       [element](const char* name) { return EQUAL(element, name); });
}

void collect(const CPLXMLNode* node, const QDir& folder, QStringList& sources)
{
    for (; node; node = node->psNext) {
        if (node->eType == CXT_Element && namesSource(node->pszValue)) {
            const QString source = QString::fromUtf8(CPLGetXMLValue(node, "", "")).trimmed();
            const bool relative = CPLTestBool(CPLGetXMLValue(node, "relativeToVRT", "0"));
            sources += relative && QDir::isRelativePath(source) ? folder.filePath(source) : source;
        }
        collect(node->psChild, folder, sources);
    }
}

} // namespace

QStringList virtualSources(const QString& path)
{
    // GDAL looks for the root anywhere in the first bytes.
    constexpr qint64 beginning = 64 * 1024;
    constexpr qint64 mostText = 16 * 1024 * 1024;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.peek(beginning).contains("VRTData"))
        return {};
    const QuietGdal quiet;
    const CPLXMLTreeCloser tree(CPLParseXMLString(file.read(mostText).constData()));
    QStringList sources;
    collect(tree.get(), QFileInfo(path).absoluteDir(), sources);
    return sources;
}

bool isNetworkSource(const QString& source)
{
    static const QRegularExpression network(
        QStringLiteral("(?<!vrt)://|/vsi(?:curl|s3|gs|az|adls|oss|swift|hdfs|webhdfs)"),
        QRegularExpression::CaseInsensitiveOption);
    return source.contains(network);
}

} // namespace kpFormats
