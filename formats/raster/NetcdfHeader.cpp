// SPDX-License-Identifier: MIT
#include "formats/raster/NetcdfHeader.h"

#include <algorithm>
#include <limits>

namespace kpFormats
{

namespace
{

enum Tag { DimensionTag = 10, VariableTag = 11, AttributeTag = 12 };

void appendCount(std::string& bytes, std::size_t count)
{
    appendBigEndian(bytes, static_cast<quint32>(count));
}

void fillUp(std::string& bytes)
{
    bytes.append((4 - bytes.size() % 4) % 4, '\0');
}

void appendText(std::string& bytes, const std::string& text)
{
    appendCount(bytes, text.size());
    bytes += text;
    fillUp(bytes);
}

/// Head of a list; one without entries has no tag.
void startList(std::string& bytes, Tag tag, std::size_t entries)
{
    appendCount(bytes, entries > 0 ? tag : 0);
    appendCount(bytes, entries);
}

void appendAttributes(std::string& bytes, const std::vector<NetcdfHeader::Attribute>& attributes)
{
    startList(bytes, AttributeTag, attributes.size());
    for (const NetcdfHeader::Attribute& attribute : attributes) {
        appendText(bytes, attribute.name);
        appendCount(bytes, attribute.type);
        if (attribute.type == NetcdfHeader::Char) {
            appendText(bytes, attribute.text);
            continue;
        }
        appendCount(bytes, attribute.numbers.size());
        for (const double number : attribute.numbers) {
            if (attribute.type == NetcdfHeader::Float)
                appendBigEndian(bytes, static_cast<float>(number));
            else
                appendBigEndian(bytes, number);
        }
    }
}

} // namespace

NetcdfHeader::Attribute NetcdfHeader::textOf(const char* name, const QString& text)
{
    return {name, text.toStdString(), {}, Char};
}

NetcdfHeader::Attribute NetcdfHeader::numbersOf(const char* name, std::vector<double> numbers, Type type)
{
    return {name, {}, std::move(numbers), type};
}

quint64 NetcdfHeader::bytesOf(const Variable& variable) const
{
    quint64 size = variable.type == Double ? 8 : variable.type == Float ? 4 : 1;
    for (const int dimension : variable.dimensions)
        size *= static_cast<quint64>(dimensions[static_cast<std::size_t>(dimension)].size);
    return (size + 3) / 4 * 4;
}

std::string NetcdfHeader::bytes() const
{
    std::string bytes("CDF\2", 4);
    appendCount(bytes, 0); // records
    startList(bytes, DimensionTag, dimensions.size());
    for (const Dimension& dimension : dimensions) {
        appendText(bytes, dimension.name);
        appendCount(bytes, static_cast<std::size_t>(dimension.size));
    }
    appendAttributes(bytes, attributes);
    startList(bytes, VariableTag, variables.size());
    std::vector<std::size_t> offsets;
    for (const Variable& variable : variables) {
        appendText(bytes, variable.name);
        appendCount(bytes, variable.dimensions.size());
        for (const int dimension : variable.dimensions)
            appendCount(bytes, static_cast<std::size_t>(dimension));
        appendAttributes(bytes, variable.attributes);
        appendCount(bytes, variable.type);
        appendBigEndian(bytes, static_cast<quint32>(std::min<quint64>(bytesOf(variable), 0xffffffff)));
        offsets.push_back(bytes.size());
        appendBigEndian(bytes, quint64(0));
    }
    // Where the data begin is known once the head is.
    quint64 begin = bytes.size();
    for (std::size_t index = 0; index < variables.size(); ++index) {
        qToBigEndian(begin, &bytes[offsets[index]]);
        begin += bytesOf(variables[index]);
    }
    return bytes;
}

} // namespace kpFormats
