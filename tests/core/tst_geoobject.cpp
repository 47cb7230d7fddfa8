// SPDX-License-Identifier: MIT
#include "core/GeoObject.h"
#include "host/data/VariantMatrixData.h"

#include <QtTest>

using kpBase::MatrixData;
using kpBase::VariantMatrixData;
using kpBaseExport::GeoObject;

namespace
{

/// A matrix that counts how many of its kind are alive.
class Counted : public VariantMatrixData
{
public:
    explicit Counted(int rows)
        : VariantMatrixData(QStringLiteral("m"), MatrixData::Double, QVector<QVariant>(rows, 1.0))
    {
        ++alive;
    }
    ~Counted() override { --alive; }

    static int alive;
};

int Counted::alive = 0;

} // namespace

class GeoObjectTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sizes_data()
    {
        QTest::addColumn<QVector<int>>("vertices");
        QTest::addColumn<QVector<int>>("attributes");
        QTest::addColumn<bool>("good");
        QTest::newRow("nothing") << QVector<int>() << QVector<int>{2} << false;
        QTest::newRow("no rows") << QVector<int>{0} << QVector<int>() << true;
        QTest::newRow("alike") << QVector<int>{2, 2, 2, 2} << QVector<int>{2, 2} << true;
        QTest::newRow("vertex matrix differs") << QVector<int>{2, 3} << QVector<int>() << false;
        QTest::newRow("attribute one row more") << QVector<int>{2} << QVector<int>{2, 3} << false;
    }

    void sizes()
    {
        QFETCH(QVector<int>, vertices);
        QFETCH(QVector<int>, attributes);
        QFETCH(bool, good);
        {
            GeoObject record;
            for (const int rows : qAsConst(vertices))
                record.vertexData().push_back(new Counted(rows));
            for (const int rows : qAsConst(attributes))
                record.vertexAttributeData().push_back(new Counted(rows));
            record.sectionData() = {new Counted(17), nullptr};
            record.threeDKelvoFractures() = {nullptr, new Counted(1)};
            record.name = "A";
            QCOMPARE(record.checkVectorSizes(), good);
            record.clearData();
            QCOMPARE(Counted::alive, 0);
            QVERIFY(record.name.empty() && record.sectionData().empty() && record.threeDKelvoFractures().empty());
            record.vertexData().push_back(new Counted(1));
            QVERIFY(record.checkVectorSizes());
        }
        QCOMPARE(Counted::alive, 0);
    }
};

QTEST_GUILESS_MAIN(GeoObjectTest)
#include "tst_geoobject.moc"
