#include <author/picture/movements.h>

#include <QTest>

using namespace Orvane::Author;

namespace {

/// Two sections in two columns with three rows each, 20 pixels high: a b c, d e f.
FormGeometry sample()
{
    FormGeometry geometry;
    geometry.size = QSize(400, 60);
    geometry.fontSize = 9;
    geometry.columns = 2;
    for (int i = 0; i < 2; ++i) {
        PlacedSection section;
        section.name = QStringLiteral("section%1").arg(i + 1);
        section.column = i + 1;
        geometry.sections.append(section);
    }
    for (int i = 0; i < 6; ++i) {
        PlacedRow row;
        row.name = QString(QLatin1Char(char('a' + i)));
        row.section = i / 3;
        row.caption = {row.name.toUpper(), QRect(200 * (i / 3), 20 * (i % 3), 50, 16), 0, 0};
        row.control = {QString(), QRect(200 * (i / 3) + 60, 20 * (i % 3), 100, 16), 0, 0};
        geometry.rows.append(row);
    }
    return geometry;
}

void shift(PlacedRow& row, int x, int y)
{
    row.caption.place.translate(x, y);
    row.control.place.translate(x, y);
}

void hide(PlacedRow& row)
{
    row.caption.place = row.control.place = QRect();
}

using Change = void (*)(FormGeometry&);

} // namespace

Q_DECLARE_METATYPE(Change)

/// What moved between two pictures is told in words.
class TestMovements : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingMoved();
    void words_data();
    void words();
    void picturesArePaired();
    void onePictureIsItselfAtAnyWidth();
};

void TestMovements::nothingMoved()
{
    QCOMPARE(movements(sample(), sample()), QStringList());
}

void TestMovements::words_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("expected");
    const auto add = [](const char* name, Change change, const char* expected) {
        QTest::newRow(name) << change << QString::fromLatin1(expected);
    };
    add(
        "another column",
        [](FormGeometry& now) {
            now.rows[2].section = 1;
            shift(now.rows[2], 200, 0);
        },
        "c: column 1 to 2; c: section \"section1\" to \"section2\"");
    add(
        "lower", [](FormGeometry& now) { shift(now.rows[2], 0, 7); }, "c: 7 pixels lower");
    add(
        "higher and to the left", [](FormGeometry& now) { shift(now.rows[4], -3, -7); },
        "e: 7 pixels higher, 3 pixels to the left");
    add(
        "neighbours in one line",
        [](FormGeometry& now) {
            shift(now.rows[1], 0, 28);
            shift(now.rows[2], 0, 28);
        },
        "b to c (2 rows): 28 pixels lower");
    add(
        "a row that came",
        [](FormGeometry& now) {
            PlacedRow row = now.rows.at(1);
            row.name = QStringLiteral("new");
            now.rows.insert(2, row);
            shift(now.rows[3], 0, 20);
        },
        "new: new; c: 20 pixels lower");
    add(
        "a row that went", [](FormGeometry& now) { now.rows.removeAt(5); }, "f: gone");
    add(
        "hidden", [](FormGeometry& now) { hide(now.rows[0]); }, "a: hidden now");
    add(
        "hidden between neighbours",
        [](FormGeometry& now) {
            shift(now.rows[0], 0, 5);
            hide(now.rows[1]);
            shift(now.rows[2], 0, 5);
        },
        "b: hidden now; a to c (2 rows): 5 pixels lower");
    add(
        "a wider control", [](FormGeometry& now) { now.rows[3].control.place.setWidth(120); },
        "d: control 100 x 16 to 120 x 16 pixels");
    add(
        "a caption that came", [](FormGeometry& now) { now.rows[3].caption.place = QRect(); },
        "d: 60 pixels to the right; d: caption hidden now");
    add(
        "another text", [](FormGeometry& now) { now.rows[3].caption.text = QStringLiteral("Word"); },
        "d: caption \"D\" to \"Word\"");
    add(
        "a taller picture", [](FormGeometry& now) { now.size.setHeight(90); },
        "picture: 400 x 60 to 400 x 90 pixels");
    add(
        "fewer columns", [](FormGeometry& now) { now.columns = 1; }, "columns: 2 to 1");
}

void TestMovements::words()
{
    QFETCH(Change, change);
    QFETCH(QString, expected);
    FormGeometry now = sample();
    change(now);
    QCOMPARE(movements(sample(), now).join(QLatin1String("; ")), expected);
}

void TestMovements::picturesArePaired()
{
    FormGeometry narrow = sample();
    narrow.size.setWidth(200);
    FormGeometry large = sample();
    large.fontSize = 12;
    FormGeometry moved = sample();
    shift(moved.rows[0], 0, 1);
    QCOMPARE(movements({sample(), narrow}, {narrow, sample()}), QStringList());
    QCOMPARE(movements({sample(), narrow}, {moved, large}),
             QStringList({QStringLiteral("400 pixels wide, 9 points: a: 1 pixel lower"),
                          QStringLiteral("400 pixels wide, 12 points: not in the baseline"),
                          QStringLiteral("200 pixels wide, 9 points: in the baseline alone")}));
}

void TestMovements::onePictureIsItselfAtAnyWidth()
{
    FormGeometry wider = sample();
    wider.size.setWidth(420);
    QCOMPARE(movements(QVector<FormGeometry>{sample()}, {wider}),
             QStringList(QStringLiteral("picture: 400 x 60 to 420 x 60 pixels")));
}

QTEST_APPLESS_MAIN(TestMovements)
#include "tst_movements.moc"
