#include <author/files/wholefile.h>
#include <author/picture/formstage.h>
#include <author/picture/geometryjson.h>

#include <formtext.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTest>

using namespace Orvane::Author;

namespace {

FormGeometry geometryAt(const QByteArray& description, int width = 0)
{
    FormStage stage(description);
    if (!stage.exists())
        return FormGeometry();
    stage.arrange(width > 0 ? width : stage.openingWidth());
    return geometryOf(stage);
}

QByteArray example(const char* name)
{
    return readWhole(QStringLiteral(ZORVA_EXAMPLES_DIR "/") + QLatin1String(name)).bytes;
}

FormProperty caption(const char* text)
{
    return FormProperty("labelText", text);
}

QString twoGroups()
{
    QString text = widgetXml("Headline", "first", {{"text", "First"}, {"visible", true}, {"enabled", true}});
    text += rowXml("CheckBox", "a", {caption("A")}) + rowXml("SpinBox", "b", {caption("B")});
    text += widgetXml("Headline", "second", {{"text", "Second"}, {"visible", true}, {"enabled", true}});
    return text + rowXml("LineEdit", "c", {caption("C")}) + rowXml("ComboBox", "d", {caption("D")});
}

} // namespace

/// Every row is found in the picture, with its caption, control, column and section.
class TestGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyRowOfTheExamples_data();
    void everyRowOfTheExamples();
    void columnsAndSections();
    void rowsOfOneName();
    void rowsWithoutCaption();
    void hiddenRowsHaveNoPlace();
    void thePictureHoldsAllRows();
    void thereIsNoForm();
    void jsonIsReadAgain();
    void jsonThatIsNone();
};

void TestGeometry::everyRowOfTheExamples_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("width");
    for (const char* const name : {"receiver.zorva", "gallery.zorva", "minimal.zorva"}) {
        for (const int width : {0, 300, 1500})
            QTest::addRow("%s %d", name, width) << QString::fromLatin1(name) << width;
    }
}

void TestGeometry::everyRowOfTheExamples()
{
    QFETCH(QString, name);
    QFETCH(int, width);
    FormStage stage(example(name.toLatin1().constData()));
    stage.arrange(width > 0 ? width : stage.openingWidth());
    const FormGeometry geometry = geometryOf(stage);
    Orvane::ZorvaSheet& sheet = stage.form().GetSheet();
    QCOMPARE(geometry.rows.size(), sheet.GetWidgetCount());
    QSet<const QWidget*> seen;
    for (int i = 0; i < geometry.rows.size(); ++i) {
        const PlacedRow& row = geometry.rows.at(i);
        QCOMPARE(row.name, sheet.GetWidgetAt(i)->GetName());
        const auto* const label = stage.window()->findChild<QWidget*>(QStringLiteral("label") + row.name);
        QVERIFY2(row.caption.isSeen() == (label && label->isVisible()), qPrintable(row.name));
        if (!row.isSeen())
            continue;
        QVERIFY2(row.control.isSeen() || label, qPrintable(row.name));
        QVERIFY2(geometry.columnOf(row) > 0, qPrintable(row.name));
        QVERIFY2(geometry.area.united(row.place()).height() == geometry.area.height(), qPrintable(row.name));
    }
}

void TestGeometry::columnsAndSections()
{
    const QByteArray form = formXml(twoGroups()).toUtf8();
    const FormGeometry narrow = geometryAt(form);
    QCOMPARE(narrow.columns, 1);
    QCOMPARE(narrow.columnOf(narrow.rows.at(5)), 1);
    const FormGeometry wide = geometryAt(form, 1500);
    QCOMPARE(wide.columns, 2);
    QCOMPARE(wide.rows.at(5).name, QStringLiteral("d"));
    QCOMPARE(wide.columnOf(wide.rows.at(1)), 1);
    QCOMPARE(wide.columnOf(wide.rows.at(5)), 2);
    QCOMPARE(wide.sections.at(wide.rows.at(5).section).name, QStringLiteral("second"));
    QVERIFY(wide.rows.at(5).caption.place.right() < wide.rows.at(5).control.place.left());
}

void TestGeometry::rowsOfOneName()
{
    const QString rows =
        rowXml("CheckBox", "same", {caption("A")}) + rowXml("LineEdit", "same", {caption("B")});
    const FormGeometry geometry = geometryAt(formXml(rows).toUtf8());
    QCOMPARE(geometry.rows.at(0).caption.text, QStringLiteral("A"));
    QCOMPARE(geometry.rows.at(1).caption.text, QStringLiteral("B"));
    QVERIFY(geometry.rows.at(0).control.isSeen() && geometry.rows.at(1).control.isSeen());
    QVERIFY(geometry.rows.at(0).place().bottom() < geometry.rows.at(1).place().top());
}

void TestGeometry::rowsWithoutCaption()
{
    const QString rows = rowXml("CheckBox", "a") + rowXml("FrequencyEdit", "main", {{"MainFreqEdit", true}}) +
                         rowXml("SpinBox", "number", {{"parameterXmlTag", "Group/Tag"}}) +
                         rowXml("FrequencyRangeEdit", "range") +
                         rowXml("SpinBoxList", "list", {{"itemCount", 2}});
    const FormGeometry geometry = geometryAt(formXml(rows).toUtf8());
    int bottom = -1;
    for (const PlacedRow& row : geometry.rows) {
        QVERIFY2(row.control.isSeen() && !row.caption.isSeen(), qPrintable(row.name));
        QVERIFY2(row.control.place.top() > bottom, qPrintable(row.name));
        bottom = row.control.place.bottom();
    }
    QCOMPARE(geometry.rows.at(3).parts.size(), 2);
}

void TestGeometry::hiddenRowsHaveNoPlace()
{
    const QString rows = widgetXml("CheckBox", "a", {caption("A"), {"visible", false}}) +
                         rowXml("CheckBox", "b", {caption("B")});
    const FormGeometry geometry = geometryAt(formXml(rows).toUtf8());
    QVERIFY(!geometry.rows.at(0).isSeen());
    QCOMPARE(geometry.columnOf(geometry.rows.at(0)), 0);
    QVERIFY(geometry.rows.at(1).isSeen());
}

void TestGeometry::thePictureHoldsAllRows()
{
    QString rows;
    for (int i = 0; i < 400; ++i)
        rows += rowXml("CheckBox", qPrintable(QStringLiteral("row%1").arg(i)), {caption("Caption")});
    FormStage stage(formXml(rows).toUtf8());
    const QSize size = stage.arrange(stage.openingWidth());
    const FormGeometry geometry = geometryOf(stage);
    QVERIFY(geometry.rows.last().control.place.bottom() < size.height());
    QVERIFY(geometry.area.bottom() >= geometry.rows.last().control.place.bottom());
    QCOMPARE(stage.picture().size(), size);
    QCOMPARE(geometry.columns, 1);
}

void TestGeometry::thereIsNoForm()
{
    QVERIFY(!FormStage("<Other/>").exists());
}

void TestGeometry::jsonIsReadAgain()
{
    FormGeometry geometry = geometryAt(formXml(twoGroups()).toUtf8(), 1500);
    geometry.file = QStringLiteral("a \"b\".png");
    geometry.findings.append({QStringLiteral("overlap"), QStringLiteral("a"), QStringLiteral("words")});
    const QByteArray json = geometryJson(QStringLiteral("form.zorva"), {geometry});
    const QJsonObject root = QJsonDocument::fromJson(json).object();
    const QJsonObject picture = root.value(QLatin1String("pictures")).toArray().first().toObject();
    QCOMPARE(picture.value(QLatin1String("file")).toString(), geometry.file);
    const QJsonObject row = picture.value(QLatin1String("rows")).toArray().at(5).toObject();
    for (const char* const name : {"name", "class", "path", "section", "column", "caption", "control"})
        QVERIFY2(row.contains(QLatin1String(name)), name);
    QCOMPARE(row.value(QLatin1String("column")).toInt(), 2);
    const ReadGeometry read = readGeometryJson(json);
    QCOMPARE(read.problem, QString());
    QCOMPARE(read.pictures.size(), 1);
    const FormGeometry& again = read.pictures.first();
    QCOMPARE(again.rows.size(), geometry.rows.size());
    for (int i = 0; i < again.rows.size(); ++i) {
        QCOMPARE(again.columnOf(again.rows.at(i)), geometry.columnOf(geometry.rows.at(i)));
        QCOMPARE(again.rows.at(i).place(), geometry.rows.at(i).place());
    }
}

void TestGeometry::jsonThatIsNone()
{
    QVERIFY(!readGeometryJson("{").problem.isEmpty());
    QVERIFY(!readGeometryJson("{\"version\": 2}").problem.isEmpty());
    QVERIFY(readGeometryJson("{\"version\": 1, \"pictures\": [7, {\"rows\": 3}]}").problem.isEmpty());
}

QTEST_MAIN(TestGeometry)
#include "tst_geometry.moc"
