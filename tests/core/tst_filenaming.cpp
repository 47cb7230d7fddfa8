// SPDX-License-Identifier: MIT
#include "core/saver/FileNaming.h"

#include <QtTest>

#include <random>

using kpBaseExport::fileNamesPerObject;

namespace
{

/// The rule in its plain form: every candidate is tried in turn.
QStringList plainNames(const QString& path, const std::vector<std::string>& objects)
{
    const auto compose = [](const QString& of, const QString& middle) {
        const QFileInfo info(of);
        return info.absolutePath() + QLatin1Char('/') + info.baseName() + QLatin1Char('_') + middle + QLatin1Char('.')
               + info.completeSuffix();
    };
    QStringList names;
    for (const std::string& object : objects)
        names.append(compose(path, QString::fromStdString(object)));
    QStringList taken = names;
    taken.removeDuplicates();
    taken.sort();
    const QStringList built = taken;
    for (const QString& alike : built) {
        const int n = names.count(alike);
        int j = 0;
        for (QString& name : names) {
            if (n < 2 || name != alike)
                continue;
            int number = ++j;
            name = compose(alike, QString::number(number));
            while (taken.contains(name)) {
                number = number <= n + 1 ? n + 2 : number + 1;
                name = compose(alike, QString::number(number));
            }
            taken.append(name);
        }
    }
    return names;
}

} // namespace

class FileNamingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void examples()
    {
        const auto names = [](const char* path, const char* objects) {
            std::vector<std::string> list;
            for (const QString& object : QString::fromUtf8(objects).split(QLatin1Char(' ')))
                list.push_back(object.toStdString());
            return fileNamesPerObject(QString::fromUtf8(path), list).join(QLatin1Char(' ')).toUtf8();
        };
        QCOMPARE(names("/o/model.dat", "A B A"), QByteArray("/o/model_A_1.dat /o/model_B.dat /o/model_A_2.dat"));
        QCOMPARE(names("/o/model.dat", "A A_1 A A"),
                 QByteArray("/o/model_A_5.dat /o/model_A_1.dat /o/model_A_2.dat /o/model_A_3.dat"));
        QCOMPARE(names("/o/model.dat", "A.old A.old"), QByteArray("/o/model_A_1.old.dat /o/model_A_2.old.dat"));
        QCOMPARE(names("/o/model", "Ö 東"), QByteArray("/o/model_Ö. /o/model_東."));
    }

    void asThePlainRule()
    {
        std::mt19937 random(7);
        const std::vector<std::string> pool{"A", "A_1", "A_2", "A_5", "A_1_1", "B", "A_3", "b", "A.x", "A_1.x"};
        for (int round = 0; round < 500; ++round) {
            std::vector<std::string> objects;
            for (auto count = random() % 14; count > 0; --count)
                objects.push_back(pool[random() % pool.size()]);
            const QString path = QStringLiteral("/o/m.d");
            QCOMPARE(fileNamesPerObject(path, objects), plainNames(path, objects));
        }
    }
};

QTEST_GUILESS_MAIN(FileNamingTest)
#include "tst_filenaming.moc"
