#include "customrow.h"
#include "guardedtest.h"
#include "rangemaps.h"

#include <formfixture.h>
#include <recordingobserver.h>
#include <zorvaparser/widgets/zorvadscobject.h>

#include <QSignalSpy>

using Orvane::ZorvaDSCObject;

namespace {

const QString mapPath = QStringLiteral("/test/ExclusionFrequencyList");

/// A form with one object under its default tag, and the three labels of the scan report.
struct ObjectForm
{
    explicit ObjectForm(const QList<const char*>& labels = {"lbScanHF", "lbScanVUHF", "lbScanSHF"})
        : form(customRowXml("SpecialObject_DSC", "dsc", {}) + labelRows(labels), FormFixture::WithGui)
        , row(form.delegate<ZorvaDSCObject>("dsc"))
        , map(rangeMapAt(mapPath))
    {
    }

    static QString labelRows(const QList<const char*>& labels)
    {
        QString rows;
        for (const char* const label : labels)
            rows += rowXml("Label", label, {{"text", "before"}});
        return rows;
    }
    QString label(const char* name) const { return form.row(name)->property("text").toString(); }
    QStringList labels() const { return {label("lbScanHF"), label("lbScanVUHF"), label("lbScanSHF")}; }
    QString text() const { return rangesText(map); }
    bool read(const QString& ranges) const
    {
        return form.read("dsc",
                         QStringLiteral("<ExclusionFrequencyList>%1</ExclusionFrequencyList>").arg(ranges));
    }

    FormFixture form;
    ZorvaDSCObject* row;
    values::ValueCommentedRangeMap* map;
};

} // namespace

class tst_ZorvaDSCObject : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void tag_data();
    void tag();
    void parameterXmlIsForcedOn();
    void mapIsAlwaysNew();
    void secondCreationOfValuesStartsAnew();
    void mapMayDie();
    void clicksAreRelayed_data();
    void clicksAreRelayed();
    void hasNoRow();
    void writes();
    void reads_data();
    void reads();
    void unknownElementEndsTheList();
    void writingRenumbers();
    void readingTellsTheOthers();
    void changesMarkTheRow();
    void scanRanges_data();
    void scanRanges();
    void missingLabelsAreIgnored();
    void labelsShowTheReport();
};

void tst_ZorvaDSCObject::tag_data()
{
    QTest::addColumn<QString>("widgets");
    QTest::addColumn<QString>("path");
    QTest::newRow("no block") << widgetXml("SpecialObject_DSC", "dsc") << "/test/dsc";
    QTest::newRow("empty block") << customRowXml("SpecialObject_DSC", "dsc", {})
                                 << "/test/ExclusionFrequencyList";
    QTest::newRow("told") << customRowXml("SpecialObject_DSC", "dsc", {{"customXmlTag", "Foo"}})
                          << "/test/Foo";
}

void tst_ZorvaDSCObject::tag()
{
    QFETCH(QString, widgets);
    QFETCH(QString, path);
    FormFixture form(widgets, FormFixture::WithValues);
    QVERIFY(rangeMapAt(path));
    QCOMPARE(form.writtenBy("dsc"), QStringLiteral("<%1/>").arg(path.mid(6)));
    QVERIFY(!form.row("dsc")->GetVTValue());
}

void tst_ZorvaDSCObject::parameterXmlIsForcedOn()
{
    FormFixture form(customRowXml("SpecialObject_DSC", "dsc", {}, {{"generateParameterXml", false}}),
                     FormFixture::WithValues);
    QCOMPARE(form.row("dsc")->property("generateParameterXml").toBool(), false);
    form.row("dsc")->setModified(true);
    QVERIFY(form.row("dsc")->isModified());
}

void tst_ZorvaDSCObject::mapIsAlwaysNew()
{
    auto* const left = new values::ValueCommentedRangeMap(QStringLiteral("ExclusionFrequencyList"));
    values::Tree::Instance()->AddValue(QStringLiteral("/test"), left);
    setRange(left, 0, 1, 2);
    {
        FormFixture form(customRowXml("SpecialObject_DSC", "dsc", {}), FormFixture::WithValues);
        QCOMPARE(form.writtenBy("dsc"), QStringLiteral("<ExclusionFrequencyList/>"));
    }
    QCOMPARE(rangeMapAt(mapPath), left);
    QCOMPARE(rangesText(left), QStringLiteral("0:1-2"));
    values::Tree::Instance()->RemoveValue(mapPath);
}

void tst_ZorvaDSCObject::secondCreationOfValuesStartsAnew()
{
    ObjectForm f;
    setRange(f.map, 0, 1, 2);
    f.form.createValues();
    QCOMPARE(rangesText(rangeMapAt(mapPath)), QString());
}

void tst_ZorvaDSCObject::mapMayDie()
{
    ObjectForm f;
    values::Tree::Instance()->RemoveValue(mapPath);
    QCOMPARE(f.form.writtenBy("dsc"), QString());
    QVERIFY(!f.read(QStringLiteral("<ExclusionFrequency/>")));
    f.row->emitEditExclusionRangesBtnClicked();
}

void tst_ZorvaDSCObject::clicksAreRelayed_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QByteArray>("signalName");
    QTest::addColumn<QVariantList>("arguments");
    QTest::newRow("ranges") << "emitEditExclusionRangesBtnClicked()"
                            << QByteArray(SIGNAL(si_editExclusionRangesBtnClicked())) << QVariantList();
    QTest::newRow("script") << "emitEditScriptBtnClicked()" << QByteArray(SIGNAL(si_editScriptBtnClicked()))
                            << QVariantList();
    QTest::newRow("criteria") << "emitLoadProdCriteriaBtnClicked()"
                              << QByteArray(SIGNAL(si_loadProdCriteriaBtnClicked())) << QVariantList();
    QTest::newRow("detector data") << "emitLoadSpectralDetectorDataClicked()"
                                   << QByteArray(SIGNAL(si_loadSpectralDetectorDataClicked()))
                                   << QVariantList();
    QTest::newRow("detector on") << "emitSpectralDetectorProcStatusToggled(true)"
                                 << QByteArray(SIGNAL(si_spectralDetectorProcStatusToggled(bool)))
                                 << QVariantList{true};
    QTest::newRow("detector off") << "emitSpectralDetectorProcStatusToggled(false)"
                                  << QByteArray(SIGNAL(si_spectralDetectorProcStatusToggled(bool)))
                                  << QVariantList{false};
}

void tst_ZorvaDSCObject::clicksAreRelayed()
{
    QFETCH(QString, call);
    QFETCH(QByteArray, signalName);
    // Without a surface the first signal has no listener that would open a dialog.
    FormFixture form(widgetXml("SpecialObject_DSC", "dsc"), FormFixture::WithValues);
    QSignalSpy spy(form.row("dsc"), signalName.constData());
    form.evaluate(QStringLiteral("dsc.") + call);
    QCOMPARE(spy.count(), 1);
    QTEST(QVariantList(spy.at(0)), "arguments");
}

void tst_ZorvaDSCObject::hasNoRow()
{
    FormFixture form(rowXml("SpecialObject_DSC", "dsc", {{"labelText", "Ranges"}}));
    QVERIFY(!form.control<QLabel>("labeldsc"));
}

void tst_ZorvaDSCObject::writes()
{
    ObjectForm f;
    setRange(f.map, 7, 1000.4, 26500000000.0);
    QCOMPARE(f.form.writtenBy("dsc"),
             QStringLiteral("<ExclusionFrequencyList><ExclusionFrequency index=\"0\">"
                            "<Start unit=\"Hz\">1000</Start><Stop unit=\"Hz\">26500000000</Stop>"
                            "</ExclusionFrequency></ExclusionFrequencyList>"));
}

void tst_ZorvaDSCObject::reads_data()
{
    QTest::addColumn<QString>("ranges");
    QTest::addColumn<QString>("stored");
    QTest::newRow("none") << ""
                          << "";
    QTest::newRow("unit is not read")
        << "<ExclusionFrequency><Start unit='kHz'>5</Start><Stop unit='Hz'>6.5</Stop>"
           "</ExclusionFrequency>"
        << "0:5-6.5";
    QTest::newRow("indexes, then none") << "<ExclusionFrequency index='5'/><ExclusionFrequency index='2'/>"
                                           "<ExclusionFrequency/>"
                                        << "2:0-0 3:0-0 5:0-0";
    QTest::newRow("the same index twice")
        << "<ExclusionFrequency index='5'><Start>1</Start></ExclusionFrequency>"
           "<ExclusionFrequency index='5'><Start>2</Start></ExclusionFrequency>"
        << "5:2-0";
    QTest::newRow("index is empty or no number")
        << "<ExclusionFrequency index='5'/><ExclusionFrequency index=''/><ExclusionFrequency index='x'/>"
        << "0:0-0 5:0-0 6:0-0";
    QTest::newRow("more inside a range") << "<ExclusionFrequency><Note/><Stop>1</Stop></ExclusionFrequency>"
                                         << "0:0-1";
    QTest::newRow("largest index") << "<ExclusionFrequency index='4294967295'/><ExclusionFrequency/>"
                                   << "0:0-0 4294967295:0-0";
}

void tst_ZorvaDSCObject::reads()
{
    QFETCH(QString, ranges);
    ObjectForm f;
    setRange(f.map, 9, 1, 2);
    QVERIFY(f.read(ranges));
    QTEST(f.text(), "stored");
    QVERIFY(!f.row->isModified());
}

void tst_ZorvaDSCObject::unknownElementEndsTheList()
{
    ObjectForm f;
    QVERIFY(!f.read(QStringLiteral("<ExclusionFrequency/><Other/><ExclusionFrequency/>")));
    QCOMPARE(f.text(), QStringLiteral("0:0-0"));
}

void tst_ZorvaDSCObject::writingRenumbers()
{
    ObjectForm f;
    f.read(QStringLiteral("<ExclusionFrequency index='5'><Start>50</Start></ExclusionFrequency>"
                          "<ExclusionFrequency index='2'><Start>20</Start></ExclusionFrequency>"));
    const QString written = f.form.writtenBy("dsc");
    QVERIFY(written.contains(QStringLiteral("index=\"0\"><Start unit=\"Hz\">20<")));
    QVERIFY(written.contains(QStringLiteral("index=\"1\"><Start unit=\"Hz\">50<")));
}

void tst_ZorvaDSCObject::readingTellsTheOthers()
{
    ObjectForm f;
    RecordingObserver observer;
    observer.watch(f.map);
    f.read(QStringLiteral("<ExclusionFrequency/>"));
    QCOMPARE(observer.codes(), QList<TChangeCode>({ChangeCode::BulkEnd, ChangeCode::Content}));
}

void tst_ZorvaDSCObject::changesMarkTheRow()
{
    ObjectForm f;
    setRange(f.map, 0, 1, 2);
    QVERIFY(!f.row->isModified());
    f.map->NotifyObservers(ChangeCode::Content, nullptr);
    QVERIFY(f.row->isModified());
}

void tst_ZorvaDSCObject::scanRanges_data()
{
    QTest::addColumn<QString>("report");
    QTest::addColumn<QStringList>("labels");
    const auto band = [](const char* name, const char* content) {
        return QStringLiteral("<%1>%2</%1>").arg(QLatin1String(name), QLatin1String(content));
    };
    const auto scan = [](const QString& bands) {
        return QStringLiteral("<R><Scan>%1</Scan></R>").arg(bands);
    };
    const auto hf = [&](const char* content, const char* shown) {
        QTest::addRow("%s shows as %s", content, shown)
            << scan(band("HFScan", content))
            << QStringList({QString::fromLatin1(shown), QStringLiteral("-"), QStringLiteral("-")});
    };
    const QStringList nothing{QStringLiteral("-"), QStringLiteral("-"), QStringLiteral("-")};
    QTest::newRow("empty text") << "" << nothing;
    QTest::newRow("no xml") << "nonsense" << nothing;
    hf("<ScanPossible>0</ScanPossible><ScanStartFrequency>5</ScanStartFrequency>", "-");
    hf("<ScanPossible>-1</ScanPossible><ScanStartFrequency>5</ScanStartFrequency>", "-");
    hf("<ScanStartFrequency>5</ScanStartFrequency>", "-");
    hf("<ScanPossible>1</ScanPossible><ScanStartFrequency>30000000</ScanStartFrequency>", "30 MHz");
    hf("<ScanPossible>1</ScanPossible><ScanStartFrequency>1500</ScanStartFrequency>", "1.5 kHz");
    hf("<ScanPossible>1</ScanPossible><ScanStartFrequency>999.5</ScanStartFrequency>", "999.5 Hz");
    hf("<ScanPossible>1</ScanPossible><ScanStartFrequency>1000000</ScanStartFrequency>", "1000 kHz");
    hf("<ScanPossible>1</ScanPossible><ScanStartFrequency>1000</ScanStartFrequency>", "1000 Hz");
    hf("<ScanStartFrequency>1500000</ScanStartFrequency><ScanStopFrequency>3000000000</ScanStopFrequency>"
       "<ScanPossible>1</ScanPossible>",
       "1.5 MHz...3000 MHz");
    hf("<ScanPossible>1</ScanPossible><ScanStopFrequency>5</ScanStopFrequency>"
       "<ScanStartFrequency>1</ScanStartFrequency>",
       "...5 Hz1 Hz");
    hf("<ScanPossible>1</ScanPossible><Other/><ScanStartFrequency>1</ScanStartFrequency>", "");

    const QString possible =
        QStringLiteral("<ScanPossible>1</ScanPossible><ScanStartFrequency>%1</ScanStartFrequency>");
    const auto numbered = [&](const char* name, int hertz) {
        return QStringLiteral("<%1>%2</%1>").arg(QLatin1String(name), possible.arg(hertz));
    };
    QTest::newRow("all bands, one unknown")
        << scan(numbered("SHFScan", 3) + QStringLiteral("<Any><a/></Any>") + numbered("VUHFScan", 2) +
                numbered("HFScan", 1))
        << QStringList({QStringLiteral("1 Hz"), QStringLiteral("2 Hz"), QStringLiteral("3 Hz")});
    QTest::newRow("the last scan wins")
        << QStringLiteral("<R><Scan>%1</Scan><Other/><Scan>%2</Scan></R>")
               .arg(numbered("HFScan", 1), numbered("HFScan", 2))
        << QStringList({QStringLiteral("2 Hz"), QStringLiteral("-"), QStringLiteral("-")});
    QTest::newRow("damaged behind the first band")
        << QStringLiteral("<R><Scan>%1<VUHF").arg(numbered("HFScan", 1))
        << QStringList({QStringLiteral("1 Hz"), QStringLiteral("-"), QStringLiteral("-")});
    QTest::newRow("scan as the root")
        << QStringLiteral("<Scan>%1</Scan>").arg(numbered("HFScan", 1))
        << QStringList({QStringLiteral("1 Hz"), QStringLiteral("-"), QStringLiteral("-")});
}

void tst_ZorvaDSCObject::scanRanges()
{
    QFETCH(QString, report);
    ObjectForm f;
    f.row->sl_setScanRanges(report);
    QTEST(f.labels(), "labels");
}

void tst_ZorvaDSCObject::missingLabelsAreIgnored()
{
    ObjectForm f({"lbScanVUHF"});
    f.row->sl_setScanRanges(QStringLiteral("<Scan><HFScan><ScanPossible>1</ScanPossible></HFScan></Scan>"));
    QCOMPARE(f.label("lbScanVUHF"), QStringLiteral("-"));
}

void tst_ZorvaDSCObject::labelsShowTheReport()
{
    ObjectForm f;
    f.form.show();
    f.form.evaluate(QStringLiteral("dsc.sl_setScanRanges('<Scan><HFScan><ScanPossible>1</ScanPossible>"
                                   "<ScanStartFrequency>30000000</ScanStartFrequency></HFScan></Scan>')"));
    bool shown = false;
    for (const QLabel* const label : f.form.window()->findChildren<QLabel*>())
        shown = shown || label->text() == QStringLiteral("30 MHz");
    QVERIFY(shown);
}

QTEST_MAIN(tst_ZorvaDSCObject)
#include "tst_zorvadscobject.moc"
