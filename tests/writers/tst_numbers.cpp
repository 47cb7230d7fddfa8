// SPDX-License-Identifier: MIT
// Numbers in text, compared with Qt's own and with a stream's. Built twice: with the fast digits and without.
#include "writers/FixedNumber.h"
#include "writers/StreamNumber.h"

#include <QtTest>

#include <cmath>
#include <iomanip>
#include <limits>
#include <random>
#include <sstream>

using namespace kpBaseExport;

namespace
{

/// The number behind a text, as the writer puts it and as Qt does.
std::string appended(double value, int precision)
{
    std::string text = "before ";
    appendFixed(text, value, precision);
    return text;
}
std::string byQt(double value, int precision)
{
    return "before " + QString::number(value, 'f', precision).toStdString();
}

} // namespace

class NumbersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbersAsQt()
    {
        const double infinite = std::numeric_limits<double>::infinity();
        for (const double value : {0.0,
                                   -0.0,
                                   0.5,
                                   1.5,
                                   2.5,
                                   -2.5,
                                   0.125,
                                   0.375,
                                   0.0625,
                                   -0.001,
                                   -0.0049,
                                   0.995,
                                   1e-300,
                                   1e300,
                                   1e15 + 0.5,
                                   9007199254740993.0,
                                   1.8446744073709552e19,
                                   1.8446744073709550e19,
                                   1e19,
                                   1e18,
                                   5e-324,
                                   2.2250738585072014e-308,
                                   std::numeric_limits<double>::max(),
                                   infinite,
                                   -infinite,
                                   std::nan(""),
                                   6789012.3455,
                                   499999.9995,
                                   0.9999999999999999}) {
            for (int precision = -2; precision <= 25; ++precision)
                QCOMPARE(appended(value, precision), byQt(value, precision));
        }
        std::mt19937_64 random(20260);
        std::uniform_real_distribution<double> coordinate(-1e7, 1e7);
        for (int round = 0; round < 80000; ++round) {
            const std::uint64_t bits = random();
            double any = 0.0;
            memcpy(&any, &bits, sizeof any);
            // An exact tie: an odd number of halves of the last decimal's power of two.
            const int halves = static_cast<int>(random() % 2000001) - 1000000;
            const double tie = static_cast<double>(halves) / (1 << (random() % 12));
            const double usual = coordinate(random);
            for (const double value : {any, tie, usual, std::round(usual * 1000.0) / 1000.0}) {
                const int precision = static_cast<int>(random() % 19);
                if (appended(value, precision) != byQt(value, precision))
                    QCOMPARE(appended(value, precision), byQt(value, 17) + " with " + std::to_string(precision));
            }
        }
    }

    void numbersAsAStreamWritesThem()
    {
        // Ties, signs of zero, subnormal, very large and no numbers, and many of every size.
        const double infinite = std::numeric_limits<double>::infinity();
        std::vector<double> values{0.5,   1.5,           2.5,    0.125,    0.375,      -0.125,
                                   0.0,   -0.0,          -0.001, 1e-320,   1e15 + 0.5, 18446744073709551615.0,
                                   1e20,  1e300,         -1e300, infinite, -infinite,  0.15,
                                   1.005, 999999.9999995};
        std::mt19937_64 random(1);
        std::uniform_real_distribution<double> mantissa(-1, 1);
        std::uniform_int_distribution<int> exponent(-30, 40);
        for (int count = 0; count < 20000; ++count)
            values.push_back(std::ldexp(mantissa(random), exponent(random)));
        for (const int precision : {0, 2, 6, 9, 17, 18, 20}) {
            std::ostringstream stream;
            stream.imbue(std::locale::classic());
            stream << std::fixed << std::setprecision(precision);
            std::string text;
            for (const double value : values) {
                stream << value << '\n';
                appendStreamFixed(text, value, precision);
                text += '\n';
            }
            QCOMPARE(QByteArray::fromStdString(text), QByteArray::fromStdString(stream.str()));
        }
    }
};

QTEST_GUILESS_MAIN(NumbersTest)
#include "tst_numbers.moc"
