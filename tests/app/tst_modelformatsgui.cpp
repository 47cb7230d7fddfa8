// SPDX-License-Identifier: MIT
// The model formats through the export wizard: option page, attributes of vertices and cells, save run, report.
#include "app/readers/ModelLoader.h"
#include "app/ui/ExportWizard.h"
#include "app/ui/HostContext.h"
#include "tests/TestSettings.h"

#include <QApplication>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QtTest>

using namespace refhost;

class ModelFormatsGuiTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void exported_data();
    void exported();

private:
    QTemporaryDir m_folder;
    std::unique_ptr<HostContext> m_context;
};

void ModelFormatsGuiTest::initTestCase()
{
    useTestSettings(m_folder.path());
    m_context = std::make_unique<HostContext>();
    for (const char* name : {"dtm_rp.tif", "terrain_mesh.off", "blocks.grdecl", "map_contacts.csv"})
        loadInto(m_context->model, QStringLiteral(KP_SOURCE_DIR "/examples/sample/") + QString::fromLatin1(name));
    QCOMPARE(m_context->model.objects().size(), std::size_t(4));
}

void ModelFormatsGuiTest::exported_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("extension");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("gocad") << "gocad" << "2" << "ts" << QByteArray("ZPOSITIVE Elevation");
    QTest::newRow("gocad, points") << "gocad" << "4" << "vs" << QByteArray("GOCAD VSet 1");
    QTest::newRow("off") << "off" << "2" << "off" << QByteArray("650 1200 0");
    QTest::newRow("zmap") << "zmap" << "1" << "dat" << QByteArray("\n204, 197, ");
    QTest::newRow("grdecl, with the attributes of its cells") << "grdecl" << "3" << "grdecl" << QByteArray("\nROCKTYPE\n");
}

void ModelFormatsGuiTest::exported()
{
    QFETCH(QString, key);
    QFETCH(QString, id);
    QFETCH(QString, extension);
    QFETCH(QByteArray, content);
    const QString path = m_folder.filePath(QStringLiteral("out_%1.%2").arg(id, extension));
    ExportWizard wizard(*m_context, nullptr);
    wizard.setFormatAndSelectedGeo(key.toStdString(), {id.toInt()});
    wizard.startup();
    wizard.show();
    wizard.slotSaveClicked(path, true);
    const QString report = wizard.findChild<QTextEdit*>(QStringLiteral("reportView"))->toPlainText();
    QVERIFY2(report.contains(QStringLiteral("Data has been exported successfully!")), qPrintable(report));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains(content));
}

QTEST_MAIN(ModelFormatsGuiTest)
#include "tst_modelformatsgui.moc"
