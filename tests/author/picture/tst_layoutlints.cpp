#include <author/files/wholefile.h>
#include <author/picture/formstage.h>
#include <author/picture/layoutlints.h>

#include <formtext.h>

#include <QTest>

using namespace Orvane::Author;

namespace {

QVector<LayoutFinding> findingsAt(const QByteArray& description, int width)
{
    FormStage stage(description);
    if (!stage.exists())
        return {{QStringLiteral("no form"), QString(), QString()}};
    stage.arrange(width > 0 ? width : stage.openingWidth());
    return layoutFindings(geometryOf(stage));
}

QString idsOf(const QVector<LayoutFinding>& findings)
{
    QStringList ids;
    for (const LayoutFinding& finding : findings)
        ids << finding.id + QLatin1Char(' ') + finding.row;
    return ids.join(QLatin1String(", "));
}

FormProperty caption(const char* text)
{
    return FormProperty("labelText", text);
}

QString headline(const char* name, const QString& text = QStringLiteral("Head"))
{
    return widgetXml("Headline", name, {{"text", text}, {"margin", 8}, {"visible", true}, {"enabled", true}});
}

} // namespace

/// What is wrong with a layout is found, and nothing else.
class TestLayoutLints : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void plantedFaults_data();
    void plantedFaults();
    void blankCaptionsAreNotCut();
    void overlap();
    void nothingOnTheExamples_data();
    void nothingOnTheExamples();
    void aCollapsedGroupIsNoEmptyColumn();
};

void TestLayoutLints::plantedFaults_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("finding");
    QTest::newRow("caption of three lines") << rowXml("CheckBox", "a", {caption("one<br>two<br>three")}) << 0
                                            << QStringLiteral("clipped-caption a");
    QTest::newRow("title wider than the window")
        << headline("head", QString(200, QLatin1Char('m'))) + rowXml("CheckBox", "a") << 300
        << QStringLiteral("clipped-caption head");
    QTest::newRow("button with a novel on it")
        << rowXml("PushButton", "a", {{"text", QString(300, QLatin1Char('m'))}}) << 0
        << QStringLiteral("clipped-text a");
    QTest::newRow("label with a novel in it")
        << rowXml("Label", "a", {{"text", QString(300, QLatin1Char('m'))}}) << 0
        << QStringLiteral("clipped-text a");
    QTest::newRow("row wider than the window")
        << rowXml("PushButton", "a", {{"text", QString(300, QLatin1Char('m'))}}) << 200
        << QStringLiteral("wide-row a");
    QTest::newRow("column of a gap and hidden rows")
        << headline("first") + rowXml("CheckBox", "a") + rowXml("CheckBox", "b") + headline("second") +
               widgetXml("FixedSpacer", "gap", {{"height", 20}, {"visible", true}}) +
               widgetXml("CheckBox", "c", {{"visible", false}}) + headline("third") + rowXml("CheckBox", "d")
        << 1500 << QStringLiteral("empty-column second");
}

void TestLayoutLints::plantedFaults()
{
    QFETCH(QString, rows);
    QFETCH(int, width);
    QFETCH(QString, finding);
    const QString ids = idsOf(findingsAt(formXml(rows).toUtf8(), width));
    QVERIFY2(ids.split(QStringLiteral(", ")).contains(finding), qPrintable(ids));
}

void TestLayoutLints::blankCaptionsAreNotCut()
{
    FormStage stage(formXml(rowXml("CheckBox", "a", {caption(" ")})).toUtf8());
    stage.setTextSize(40);
    stage.arrange(stage.openingWidth());
    QCOMPARE(idsOf(layoutFindings(geometryOf(stage))), QString());
}

// No description makes the layout do that; a control that has a mind of its own may.
void TestLayoutLints::overlap()
{
    const QString rows = rowXml("CheckBox", "a", {caption("A")}) + rowXml("CheckBox", "b", {caption("B")});
    FormStage stage(formXml(rows).toUtf8());
    stage.arrange(stage.openingWidth());
    QCOMPARE(idsOf(layoutFindings(geometryOf(stage))), QString());
    auto* const control = stage.window()->findChild<QWidget*>(QStringLiteral("b"));
    QVERIFY(control);
    control->move(stage.window()->findChild<QWidget*>(QStringLiteral("a"))->pos());
    const QVector<LayoutFinding> findings = layoutFindings(geometryOf(stage));
    QCOMPARE(idsOf(findings), QStringLiteral("overlap b"));
    QCOMPARE(findings.first().message, QStringLiteral("the control of b lies over the control of a"));
}

void TestLayoutLints::nothingOnTheExamples_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("width");
    for (const char* const name : {"receiver", "gallery", "minimal", "embedding/alarm", "embedding/receiver",
                                   "embedding/recorder", "embedding/wideband"}) {
        for (const int width : {0, 980, 1500})
            QTest::addRow("%s %d", name, width)
                << QStringLiteral(ZORVA_EXAMPLES_DIR "/%1.zorva").arg(QLatin1String(name)) << width;
    }
}

void TestLayoutLints::nothingOnTheExamples()
{
    QFETCH(QString, path);
    QFETCH(int, width);
    const FileContent form = readWhole(path);
    QVERIFY2(form.isRead(), qPrintable(form.problem));
    const QVector<LayoutFinding> findings = findingsAt(form.bytes, width);
    for (const LayoutFinding& finding : findings)
        QFAIL(qPrintable(finding.row + QStringLiteral(": ") + finding.message));
}

void TestLayoutLints::aCollapsedGroupIsNoEmptyColumn()
{
    const QString rows = headline("first") + rowXml("CheckBox", "a") + rowXml("CheckBox", "b") +
                         headline("second") + rowXml("CheckBox", "c");
    FormStage stage(formXml(rows).toUtf8());
    QCOMPARE(stage.collapse({QStringLiteral("second"), QStringLiteral("third")}),
             QStringList(QStringLiteral("third")));
    stage.arrange(1500);
    QCOMPARE(idsOf(layoutFindings(geometryOf(stage))), QString());
}

QTEST_MAIN(TestLayoutLints)
#include "tst_layoutlints.moc"
