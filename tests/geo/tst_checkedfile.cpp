// SPDX-License-Identifier: MIT
// Files that drivers reach by pages in memory, against bytes in memory that are given the same calls.
#include "geo/CheckedWrites.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cpl_vsi.h>

#include <algorithm>
#include <cstdio>
#include <random>

using namespace kpFormats;

class CheckedFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void asInMemory_data();
    void asInMemory();
    void seenByOthers();
};

void CheckedFileTest::asInMemory_data()
{
    QTest::addColumn<QByteArray>("mode");
    QTest::addColumn<int>("extent");
    QTest::addColumn<int>("largest");
    QTest::addColumn<int>("steps");
    QTest::newRow("a few bytes here and there") << QByteArray("wb+") << 40000 << 50 << 60000;
    QTest::newRow("across pages") << QByteArray("wb+") << 400000 << 9000 << 8000;
    QTest::newRow("past the pages") << QByteArray("wb+") << 1000000 << 200000 << 600;
    QTest::newRow("more than is kept") << QByteArray("wb+") << 60000000 << 9000 << 9000;
    QTest::newRow("a file that is there") << QByteArray("rb+") << 60000 << 3000 << 8000;
    QTest::newRow("behind the end") << QByteArray("ab+") << 60000 << 300 << 4000;
    QTest::newRow("written only") << QByteArray("wb") << 60000 << 300 << 8000;
}

void CheckedFileTest::asInMemory()
{
    QFETCH(QByteArray, mode);
    QFETCH(int, extent);
    QFETCH(int, largest);
    QFETCH(int, steps);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file"));
    const CheckedWrites checked(path);
    QByteArray bytes(20000, 'x');
    QFile before(path);
    QVERIFY(before.open(QIODevice::WriteOnly) && before.write(bytes) == bytes.size());
    before.close();
    VSILFILE* const file = VSIFOpenL(CheckedWrites::pathFor(path).toUtf8().constData(), mode.constData());
    QVERIFY(file);
    if (mode.startsWith('w'))
        bytes.clear();
    int position = mode.startsWith('a') ? bytes.size() : 0;
    std::mt19937 random(7);
    const auto upTo = [&random](int most) { return static_cast<int>(random() % static_cast<unsigned>(most)); };
    for (int step = 0; step < steps; ++step) {
        const int kind = upTo(100);
        const int size = 1 + upTo(largest);
        const int place = upTo(extent);
        bool same = true;
        if (kind < 50) {
            position = kind < 40 ? place : bytes.size();
            same =
                VSIFSeekL(file, kind < 40 ? static_cast<vsi_l_offset>(place) : 0, kind < 40 ? SEEK_SET : SEEK_END) == 0;
        }
        if (kind >= 98) {
            same = VSIFFlushL(file) == 0;
        } else if (kind >= 97) {
            same = VSIFTruncateL(file, static_cast<vsi_l_offset>(place)) == 0;
            const int earlier = bytes.size();
            bytes.resize(place);
            if (place > earlier)
                std::fill(bytes.begin() + earlier, bytes.end(), '\0');
        } else if (kind % 2 == 0 || !mode.contains('+')) {
            const QByteArray sent(size, static_cast<char>(step));
            if (mode.startsWith('a'))
                position = bytes.size();
            if (position > bytes.size())
                bytes += QByteArray(position - bytes.size(), '\0');
            bytes.replace(position, size, sent);
            position += size;
            same =
                VSIFWriteL(sent.constData(), 1, static_cast<std::size_t>(size), file) == static_cast<std::size_t>(size);
        } else {
            QByteArray got(size, '\0');
            got.truncate(static_cast<int>(VSIFReadL(got.data(), 1, static_cast<std::size_t>(size), file)));
            same = got == bytes.mid(position, size) && (VSIFEofL(file) != 0) == (got.size() < size);
            position += got.size();
        }
        QVERIFY2(same && VSIFTellL(file) == static_cast<vsi_l_offset>(position),
                 qPrintable(QStringLiteral("step %1, kind %2, at %3").arg(step).arg(kind).arg(position)));
    }
    QCOMPARE(VSIFCloseL(file), 0);
    QFile written(path);
    QVERIFY(written.open(QIODevice::ReadOnly));
    QVERIFY(written.readAll() == bytes);
    QVERIFY(!checked.failure());
}

void CheckedFileTest::seenByOthers()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file"));
    const QByteArray name = CheckedWrites::pathFor(path).toUtf8();
    VSILFILE* const file = VSIFOpenL(name.constData(), "wb+");
    QVERIFY(file && VSIFWriteL("abc", 1, 3, file) == 3);
    VSIStatBufL status = {};
    QVERIFY(VSIStatL(name.constData(), &status) == 0);
    QCOMPARE(static_cast<int>(status.st_size), 3);
    QVERIFY(VSIFWriteL("def", 1, 3, file) == 3);
    VSILFILE* const other = VSIFOpenL(name.constData(), "rb");
    char read[10] = {};
    QVERIFY(other);
    QCOMPARE(static_cast<int>(VSIFReadL(read, 1, sizeof read, other)), 6);
    QCOMPARE(QByteArray(read), QByteArray("abcdef"));
    QCOMPARE(VSIFCloseL(other), 0);
    QCOMPARE(VSIFCloseL(file), 0);
}

QTEST_GUILESS_MAIN(CheckedFileTest)
#include "tst_checkedfile.moc"
