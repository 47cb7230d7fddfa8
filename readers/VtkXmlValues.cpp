// SPDX-License-Identifier: MIT
#include "readers/VtkXmlValues.h"

#include <QtEndian>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <stdexcept>

namespace kpFormats
{

namespace
{

// What a QByteArray can hold, less its own head.
constexpr qint64 mostBytes = std::numeric_limits<int>::max() - 64;

[[noreturn]] void refuse(const QString& cause)
{
    throw std::runtime_error(cause.toStdString());
}

template <typename Number>
Number numberAt(const char* bytes, bool bigEndian)
{
    using Bits = std::conditional_t<
        sizeof(Number) == 1, quint8,
        std::conditional_t<sizeof(Number) == 2, quint16, std::conditional_t<sizeof(Number) == 4, quint32, quint64>>>;
    const Bits bits = bigEndian ? qFromBigEndian<Bits>(bytes) : qFromLittleEndian<Bits>(bytes);
    Number number;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

template <typename Number, typename Target>
void takeNumbers(std::vector<Target>& values, const QByteArray& bytes, bool bigEndian)
{
    constexpr int size = sizeof(Number);
    if (bytes.size() % size != 0)
        refuse(QStringLiteral("it has %1 bytes, which are no whole number of values").arg(bytes.size()));
    values.reserve(static_cast<std::size_t>(bytes.size() / size));
    for (int at = 0; at < bytes.size(); at += size)
        values.push_back(static_cast<Target>(numberAt<Number>(bytes.constData() + at, bigEndian)));
}

/// Texts, each behind the zero of the one before it.
void takeTexts(VtkDataArray& array, const QByteArray& bytes)
{
    array.kind = VtkDataArray::Kind::Text;
    int begin = 0;
    while (begin < bytes.size()) {
        int end = bytes.indexOf('\0', begin);
        if (end < 0)
            refuse(QStringLiteral("its last text does not end"));
        array.texts.append(QString::fromUtf8(bytes.constData() + begin, end - begin));
        begin = end + 1;
    }
}

bool isReal(const QString& type)
{
    return type == QLatin1String("Float64") || type == QLatin1String("Float32");
}

bool isBlank(char character)
{
    return character == ' ' || character == '\n' || character == '\t' || character == '\r';
}

template <typename Number>
std::vector<Number> numbersOf(const QByteArray& text)
{
    std::vector<Number> numbers;
    const char* at = text.constData();
    const char* const end = at + text.size();
    while (true) {
        while (at != end && isBlank(*at))
            ++at;
        if (at == end)
            return numbers;
        Number number{};
        const auto read = std::from_chars(*at == '+' ? at + 1 : at, end, number);
        if (read.ec != std::errc() || (read.ptr != end && !isBlank(*read.ptr)))
            refuse(QStringLiteral("\"%1\" is not a number")
                       .arg(QString::fromUtf8(at, static_cast<int>(std::min<qint64>(end - at, 20)))));
        numbers.push_back(number);
        at = read.ptr;
    }
}

qint64 headerNumber(VtkByteSource& source, const VtkEncoding& encoding)
{
    const QByteArray bytes = source.take(encoding.longHeaders ? 8 : 4);
    const quint64 number = encoding.longHeaders ? numberAt<quint64>(bytes.constData(), encoding.bigEndian)
                                                : numberAt<quint32>(bytes.constData(), encoding.bigEndian);
    if (number > static_cast<quint64>(mostBytes))
        refuse(QStringLiteral("its size of %1 bytes is more than one array may have").arg(number));
    return static_cast<qint64>(number);
}

QByteArray inflated(const QByteArray& block, qint64 size)
{
    // zlib makes no more of a byte: what is announced beyond that is not worth its memory.
    constexpr qint64 mostOfOne = 1032;
    if (size > mostOfOne * (block.size() + 1))
        refuse(QStringLiteral("a compressed block of it is damaged"));
    QByteArray framed(4, '\0');
    qToBigEndian(static_cast<quint32>(size), framed.data());
    const QByteArray bytes = qUncompress(framed + block);
    if (bytes.size() != size)
        refuse(QStringLiteral("a compressed block of it is damaged"));
    return bytes;
}

} // namespace

void takeValues(VtkDataArray& array, const QString& type, const QByteArray& bytes, bool bigEndian)
{
    array.kind = isReal(type) ? VtkDataArray::Kind::Real : VtkDataArray::Kind::Whole;
    if (type == QLatin1String("Float64"))
        takeNumbers<double>(array.reals, bytes, bigEndian);
    else if (type == QLatin1String("Float32"))
        takeNumbers<float>(array.reals, bytes, bigEndian);
    else if (type == QLatin1String("Int64") || type == QLatin1String("UInt64"))
        takeNumbers<qint64>(array.wholes, bytes, bigEndian);
    else if (type == QLatin1String("Int32"))
        takeNumbers<qint32>(array.wholes, bytes, bigEndian);
    else if (type == QLatin1String("UInt32"))
        takeNumbers<quint32>(array.wholes, bytes, bigEndian);
    else if (type == QLatin1String("Int16"))
        takeNumbers<qint16>(array.wholes, bytes, bigEndian);
    else if (type == QLatin1String("UInt16"))
        takeNumbers<quint16>(array.wholes, bytes, bigEndian);
    else if (type == QLatin1String("Int8"))
        takeNumbers<qint8>(array.wholes, bytes, bigEndian);
    else if (type == QLatin1String("UInt8"))
        takeNumbers<quint8>(array.wholes, bytes, bigEndian);
    else if (type == QLatin1String("String"))
        takeTexts(array, bytes);
    else
        refuse(QStringLiteral("\"%1\" is not a type that is known").arg(type.left(40)));
    if (type == QLatin1String("UInt64")
        && std::any_of(array.wholes.begin(), array.wholes.end(), [](std::int64_t number) { return number < 0; }))
        refuse(QStringLiteral("it has numbers of 64 bits"));
}

void takeText(VtkDataArray& array, const QString& type, const QByteArray& text)
{
    if (isReal(type)) {
        array.kind = VtkDataArray::Kind::Real;
        array.reals = numbersOf<double>(text);
    } else if (type == QLatin1String("String")) {
        // As the numbers of the bytes.
        QByteArray bytes;
        for (const qint64 number : numbersOf<qint64>(text))
            bytes += static_cast<char>(number);
        takeTexts(array, bytes);
    } else if (type.startsWith(QLatin1String("Int")) || type.startsWith(QLatin1String("UInt"))) {
        array.kind = VtkDataArray::Kind::Whole;
        array.wholes = numbersOf<std::int64_t>(text);
    } else {
        refuse(QStringLiteral("\"%1\" is not a type that is known").arg(type.left(40)));
    }
}

QByteArray arrayBytes(VtkByteSource& source, const VtkEncoding& encoding)
{
    if (!encoding.zlib) {
        // One size, in one group with the bytes themselves.
        const qint64 size = headerNumber(source, encoding);
        return source.take(size);
    }
    const qint64 blocks = headerNumber(source, encoding);
    const qint64 blockSize = headerNumber(source, encoding);
    const qint64 lastSize = headerNumber(source, encoding);
    if (blocks > source.left() || (blocks > 0 && blockSize > mostBytes / blocks) || lastSize > blockSize)
        refuse(QStringLiteral("its blocks are more than one array may have"));
    std::vector<qint64> sizes;
    for (qint64 block = 0; block < blocks; ++block)
        sizes.push_back(headerNumber(source, encoding));
    source.beginGroup();
    QByteArray bytes;
    for (qint64 block = 0; block < blocks; ++block) {
        const bool cut = block + 1 == blocks && lastSize > 0;
        bytes += inflated(source.take(sizes[static_cast<std::size_t>(block)]), cut ? lastSize : blockSize);
    }
    return bytes;
}

VtkRawBytes::VtkRawBytes(QFile& file, qint64 position)
    : m_file(file)
{
    if (position > file.size() || !file.seek(position))
        refuse(QStringLiteral("it begins behind the end of the file"));
}

QByteArray VtkRawBytes::take(qint64 count)
{
    if (count > left())
        refuse(QStringLiteral("the file ends within it"));
    const QByteArray bytes = m_file.read(count);
    if (bytes.size() != count)
        refuse(QStringLiteral("reading failed: %1").arg(m_file.errorString()));
    return bytes;
}

qint64 VtkRawBytes::left() const
{
    return m_file.size() - m_file.pos();
}

VtkBase64::VtkBase64(const QByteArray& text, qint64 position)
    : m_text(text)
    , m_next(static_cast<int>(std::min<qint64>(position, text.size())))
{
}

QByteArray VtkBase64::take(qint64 count)
{
    if (count > left())
        refuse(QStringLiteral("the file ends within it"));
    // Groups of four characters; blanks do not count.
    const qint64 wanted = (count - m_ready.size() + 2) / 3 * 4;
    QByteArray characters;
    characters.reserve(static_cast<int>(std::max<qint64>(wanted, 0)));
    while (characters.size() < wanted && m_next < m_text.size()) {
        const char character = m_text[m_next++];
        if (!isBlank(character))
            characters += character;
    }
    const auto decoded = QByteArray::fromBase64Encoding(characters, QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        refuse(QStringLiteral("it has a character that is not base64"));
    m_ready += *decoded;
    if (m_ready.size() < count)
        refuse(QStringLiteral("the file ends within it"));
    const QByteArray bytes = m_ready.left(static_cast<int>(count));
    m_ready.remove(0, static_cast<int>(count));
    return bytes;
}

void VtkBase64::beginGroup()
{
    // What fills up the last group of four is no byte.
    m_ready.clear();
}

} // namespace kpFormats
