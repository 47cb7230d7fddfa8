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
    void sizes()
    {
        QVERIFY(!accepts({}, {2}));
        QVERIFY(accepts({0}, {}));
        QVERIFY(accepts({2, 2, 2, 2}, {2, 2}));
        QVERIFY(!accepts({2, 3}, {}));
        QVERIFY(!accepts({2}, {2, 3}));
        QCOMPARE(Counted::alive, 0);
    }

private:
    /// Whether a record with these numbers of rows is taken. Afterwards it is cleared, used again and destroyed.
    static bool accepts(const std::vector<int>& vertices, const std::vector<int>& attributes)
    {
        GeoObject record;
        for (const int rows : vertices)
            record.vertexData().push_back(new Counted(rows));
        for (const int rows : attributes)
            record.vertexAttributeData().push_back(new Counted(rows));
        record.sectionData() = {new Counted(17), nullptr};
        record.threeDKelvoFractures() = {nullptr, new Counted(1)};
        record.name = "A";
        const bool good = record.checkVectorSizes();
        record.clearData();
        const bool empty = record.name.empty() && record.sectionData().empty() && record.threeDKelvoFractures().empty();
        if (Counted::alive != 0 || !empty)
            qFatal("something is left after clearData()");
        record.vertexData().push_back(new Counted(1));
        return record.checkVectorSizes() && good;
    }
};

QTEST_GUILESS_MAIN(GeoObjectTest)
#include "tst_geoobject.moc"
