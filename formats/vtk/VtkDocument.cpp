// SPDX-License-Identifier: MIT
#include "formats/vtk/VtkDocument.h"

#include <QtEndian>

#include <cstring>
#include <utility>

namespace kpFormats
{

namespace
{

/// Before each array stands the number of its bytes.
constexpr qint64 headerBytes = 8;

template <typename Bits>
void appendBits(std::string& text, Bits bits)
{
    bits = qToLittleEndian(bits);
    text.append(reinterpret_cast<const char*>(&bits), sizeof bits);
}

const char* typeName(VtkType type)
{
    switch (type) {
    case VtkType::Float64:
        return "Float64";
    case VtkType::Int64:
        return "Int64";
    case VtkType::UInt8:
        return "UInt8";
    case VtkType::String:
        return "String";
    }
    return "Float64";
}

/// A text as the value of an attribute, without the characters that XML knows not.
std::string attributeText(const QString& text)
{
    QString legal = text.simplified();
    for (QChar& character : legal) {
        if (character < QLatin1Char(' ') || character.unicode() >= 0xfffe)
            character = QLatin1Char('_');
    }
    return legal.toHtmlEscaped().toStdString();
}

void appendArray(std::string& text, const VtkArray& array, bool ofField, qint64 offset)
{
    const bool isText = array.type == VtkType::String;
    const std::string tag = isText ? "Array" : "DataArray";
    text += '<' + tag + " type=\"" + typeName(array.type) + "\" Name=\"" + attributeText(array.name) + '"';
    if (array.components > 1)
        text += " NumberOfComponents=\"" + std::to_string(array.components) + '"';
    if (ofField)
        text += " NumberOfTuples=\"" + std::to_string(array.tuples) + '"';
    text += " format=\"appended\" offset=\"" + std::to_string(offset) + '"';
    if (array.unit.isEmpty()) {
        text += "/>\n";
        return;
    }
    text += "><InformationKey name=\"UNITS_LABEL\" location=\"vtkDataArray\">" + attributeText(array.unit)
            + "</InformationKey></" + tag + ">\n";
}

} // namespace

void VtkValues::real(double value)
{
    quint64 bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    appendBits(m_out.text(), bits);
    m_bytes += sizeof bits;
}

void VtkValues::whole(qint64 value)
{
    appendBits(m_out.text(), value);
    m_bytes += sizeof value;
}

void VtkValues::byte(int value)
{
    m_out.text() += static_cast<char>(value);
    ++m_bytes;
}

void VtkValues::text(const QByteArray& utf8)
{
    m_out.text().append(utf8.constData(), static_cast<std::size_t>(utf8.size()) + 1);
    m_bytes += utf8.size() + 1;
}

QByteArray vtkText(const QString& text)
{
    return text.section(QChar(u'\0'), 0, 0).toUtf8();
}

qint64 VtkArray::bytes() const
{
    switch (type) {
    case VtkType::String:
        return textBytes;
    case VtkType::UInt8:
        return tuples * components;
    case VtkType::Float64:
    case VtkType::Int64:
        break;
    }
    return 8 * tuples * components;
}

bool VtkDocument::write(BlockWriter& out, kpBase::AbstractProgress* progress) const
{
    std::vector<const VtkArray*> arrays;
    qint64 offset = 0;
    std::string& text = out.text();
    const auto append = [&](const VtkArray& array, bool ofField) {
        appendArray(text, array, ofField, offset);
        offset += headerBytes + array.bytes();
        arrays.push_back(&array);
        out.check();
    };
    text += "<?xml version=\"1.0\"?>\n<VTKFile type=\"" + std::string(type)
            + "\" version=\"1.0\" byte_order=\"LittleEndian\" header_type=\"UInt64\">\n<" + type + dataSet + ">\n";
    if (!fieldData.empty()) {
        text += "<FieldData>\n";
        for (const VtkArray& array : fieldData)
            append(array, true);
        text += "</FieldData>\n";
    }
    text += "<Piece" + piece + ">\n";
    for (const VtkSection& section : sections) {
        text += '<' + std::string(section.tag) + ">\n";
        for (const VtkArray& array : section.arrays)
            append(array, false);
        text += "</" + std::string(section.tag) + ">\n";
    }
    text += "</Piece>\n</" + std::string(type) + ">\n<AppendedData encoding=\"raw\">\n_";
    ProgressTicker ticker(progress, static_cast<double>(offset));
    VtkValues sink(out, ticker);
    for (const VtkArray* array : arrays) {
        sink.whole(array->bytes());
        array->write(sink);
        if (ticker.cancelled())
            return false;
    }
    text += "\n</AppendedData>\n</VTKFile>\n";
    return true;
}

VtkArray vtkTexts(const QString& name, const QStringList& texts)
{
    VtkArray array;
    array.name = name;
    array.type = VtkType::String;
    array.tuples = texts.size();
    for (const QString& text : texts)
        array.textBytes += vtkText(text).size() + 1;
    array.write = [texts](VtkValues& values) {
        for (const QString& text : texts) {
            values.text(vtkText(text));
            if (!values.next())
                return;
        }
    };
    return array;
}

namespace
{

template <typename Number, typename Put>
VtkArray numbersAtHand(const QString& name, VtkType type, int components, std::vector<Number> numbers, Put put)
{
    VtkArray array;
    array.name = name;
    array.type = type;
    array.components = components;
    array.tuples = static_cast<qint64>(numbers.size()) / components;
    array.write = [numbers = std::move(numbers), put](VtkValues& values) {
        for (const Number number : numbers) {
            (values.*put)(number);
            values.next();
        }
    };
    return array;
}

} // namespace

VtkArray vtkReals(const QString& name, int components, std::vector<double> numbers)
{
    return numbersAtHand(name, VtkType::Float64, components, std::move(numbers), &VtkValues::real);
}

VtkArray vtkWholes(const QString& name, int components, std::vector<qint64> numbers)
{
    return numbersAtHand(name, VtkType::Int64, components, std::move(numbers), &VtkValues::whole);
}

} // namespace kpFormats
