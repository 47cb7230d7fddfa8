// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtEndian>

#include <string>
#include <vector>

namespace kpFormats
{

/// Appends a number in the byte order of netCDF.
template <typename Number>
void appendBigEndian(std::string& bytes, Number number)
{
    char turned[sizeof(Number)];
    qToBigEndian(number, turned);
    bytes.append(turned, sizeof(Number));
}

/// The head of a netCDF file of the classic format with offsets of 64 bits: dimensions, attributes, variables and where the
/// data of each begin.
class NetcdfHeader
{
public:
    enum Type { Char = 2, Float = 5, Double = 6 };

    struct Attribute
    {
        std::string name;
        std::string text;            ///< of a text
        std::vector<double> numbers; ///< else
        Type type = Char;
    };
    struct Variable
    {
        std::string name;
        std::vector<int> dimensions; ///< numbers of them; none for a single value
        std::vector<Attribute> attributes;
        Type type = Double;
    };
    struct Dimension
    {
        std::string name;
        int size = 0;
    };

    static Attribute textOf(const char* name, const QString& text);
    static Attribute numbersOf(const char* name, std::vector<double> numbers, Type type = Double);

    std::vector<Dimension> dimensions;
    std::vector<Attribute> attributes;
    std::vector<Variable> variables; ///< their data follow the head in this order, each filled up to four bytes

    /// Bytes of the data of a variable, filled up.
    quint64 bytesOf(const Variable& variable) const;
    std::string bytes() const;
};

} // namespace kpFormats
