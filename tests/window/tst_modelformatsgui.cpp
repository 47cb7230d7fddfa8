// SPDX-License-Identifier: MIT
// The model formats through the export wizard: option page, attributes of vertices and cells, save run, report.
#include "tests/support/SaverRun.h"
#include "tests/support/TestSettings.h"
#include "tests/support/TextRows.h"
#include "window/ExportWizard.h"
#include "window/HostContext.h"

#include <QTextEdit>

using namespace kpFormats;
using namespace refhost;

class ModelFormatsGuiTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void exported_data();
    void exported();

private:
    std::unique_ptr<HostContext> m_context;
};

void ModelFormatsGuiTest::initTestCase()
{
    useTestSettings(path());
    m_context = std::make_unique<HostContext>();
    for (const char* name : {"dtm_rp.tif", "terrain_mesh.off", "blocks.grdecl", "map_contacts.csv"})
        loadInto(m_context->model, sample(name));
}

void ModelFormatsGuiTest::exported_data()
{
    // The last has the attributes of its cells.
    textRows({"key", "id", "extension", "content"}, {{"gocad", "2", "ts", "ZPOSITIVE Elevation"},
                                                     {"gocad", "4", "vs", "GOCAD VSet 1"},
                                                     {"off", "2", "off", "650 1200 0"},
                                                     {"zmap", "1", "dat", "\n204, 197, "},
                                                     {"grdecl", "3", "grdecl", "\nROCKTYPE\n"}});
}

void ModelFormatsGuiTest::exported()
{
    QFETCH(QString, key);
    QFETCH(QString, id);
    QFETCH(QString, extension);
    QFETCH(QString, content);
    const QString file = path(QStringLiteral("out_%1.%2").arg(id, extension));
    ExportWizard wizard(*m_context, nullptr);
    wizard.setFormatAndSelectedGeo(key.toStdString(), {id.toInt()});
    wizard.startup();
    wizard.show();
    wizard.slotSaveClicked(file, true);
    const QString report = wizard.findChild<QTextEdit*>(QStringLiteral("reportView"))->toPlainText();
    QVERIFY2(report.contains(QStringLiteral("Data has been exported successfully!")), qPrintable(report));
    QVERIFY(contentOf(file).contains(content.toUtf8()));
}

QTEST_MAIN(ModelFormatsGuiTest)
#include "tst_modelformatsgui.moc"
