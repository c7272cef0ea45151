// What can only be read looks like it, and can be read.
#include "contrast.h"
#include "generatedform.h"

#include <formtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QStyleOptionButton>

class tst_ReadOnlyLooks : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void choiceIsNoButton_data();
    void choiceIsNoButton();
    void boxIsInactiveButLegible_data();
    void boxIsInactiveButLegible();

private:
    static QString rows(const char* className, const QList<FormProperty>& properties);
};

namespace {

/// The strongest contrast to the first pixel inside a part of a picture.
double strongestContrast(const QImage& image, const QRect& part)
{
    double strongest = 1.0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x)
            strongest = qMax(strongest, contrast(image.pixel(part.topLeft()), image.pixel(x, y)));
    }
    return strongest;
}

QImage picture(QWidget* control)
{
    control->clearFocus();
    return control->grab().toImage();
}

/// The middle of the mark of a check box, frame left out.
QRect insideMark(const QCheckBox* box)
{
    QStyleOptionButton option;
    option.initFrom(box);
    const QRect mark = box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box);
    return mark.adjusted(4, 4, -4, -4);
}

} // namespace

/// One row "open" to be changed, one "shut" to be read.
QString tst_ReadOnlyLooks::rows(const char* className, const QList<FormProperty>& properties)
{
    return rowXml("LineEdit", "first", {}) + rowXml(className, "open", properties) +
           rowXml(className, "shut", properties + QList<FormProperty>{{"readOnly", true}});
}

void tst_ReadOnlyLooks::choiceIsNoButton_data()
{
    QTest::addColumn<QString>("style");
    for (const QString& style : testedStyles())
        QTest::newRow(qPrintable(style)) << style;
}

void tst_ReadOnlyLooks::choiceIsNoButton()
{
    QFETCH(const QString, style);
    QApplication::setStyle(style);
    FormFixture form(rows("ComboBox", {{"enumName", "Modes"}, {"value", "1"}}),
                     enumXml("Modes", {{"HHH", "WIDE", "1"}}));
    form.show();
    auto* shut = form.control<QComboBox>("shut");
    const QImage image = picture(shut);
    const QRgb window = shut->palette().color(QPalette::Window).rgb();
    // Where the arrow is else, and above and below it.
    for (const int share : {1, 2, 3}) {
        const QPoint place(shut->width() - 12, share * shut->height() / 4);
        QCOMPARE(QColor(image.pixel(place)), QColor(window));
    }
    QVERIFY(strongestContrast(image, shut->rect().adjusted(4, 4, -4, -4)) > 4.5);
    QVERIFY(picture(form.control<QComboBox>("open")) != image);
}

void tst_ReadOnlyLooks::boxIsInactiveButLegible_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<bool>("checked");
    for (const QString& style : testedStyles()) {
        if (style == QLatin1String("adwaita"))
            continue; // it draws its boxes in colours of its own
        for (const bool checked : {false, true})
            QTest::addRow("%s, %s", qPrintable(style), checked ? "checked" : "unchecked") << style << checked;
    }
}

void tst_ReadOnlyLooks::boxIsInactiveButLegible()
{
    QFETCH(const QString, style);
    QFETCH(const bool, checked);
    QApplication::setStyle(style);
    FormFixture form(rows("CheckBox", {{"checked", checked}}));
    form.show();
    auto* shut = form.control<QCheckBox>("shut");
    const QRect inside = insideMark(shut);
    const QImage image = picture(shut);
    QVERIFY(picture(form.control<QCheckBox>("open")) != image);
    if (checked)
        QVERIFY(strongestContrast(image, inside) > 4.5);
    else
        QCOMPARE(QColor(image.pixel(inside.center())), shut->palette().color(QPalette::Window));
}

QTEST_MAIN(tst_ReadOnlyLooks)
#include "tst_readonlylooks.moc"
