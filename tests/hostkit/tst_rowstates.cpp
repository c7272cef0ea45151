#include "formtest.h"

#include <hostkit/rowstates.h>

#include <QImage>
#include <QTextDocument>

#include <cmath>

using hostkit::RowState;
using hostkit::RowStates;

/// What the marks beside the captions tell of their rows.
class TestRowStates : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void wordsOfTheDeviceAreNoMarkup();
    void marksStandOut_data();
    void marksStandOut();
};

namespace {

/// The relative luminance of a colour, from 0 to 1.
double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// The ratio of light between two colours, at least 1.
double contrast(const QColor& left, const QColor& right)
{
    const double a = luminance(left) + 0.05;
    const double b = luminance(right) + 0.05;
    return qMax(a, b) / qMin(a, b);
}

} // namespace

void TestRowStates::wordsOfTheDeviceAreNoMarkup()
{
    const QString said = QStringLiteral("<b>no</b><img src='/none'>");
    FormFixture form(rowXml("LineEdit", "name", {{"labelText", "Name"}}));
    RowStates states(*form.formular());
    states.set(QStringLiteral("name"), RowState::Refused, said);
    int told = 0;
    for (const QWidget* const widget : form.window()->findChildren<QWidget*>()) {
        if (!widget->toolTip().contains(RowStates::word(RowState::Refused)))
            continue;
        QTextDocument shown;
        shown.setHtml(widget->toolTip());
        QVERIFY2(shown.toPlainText().contains(said), qPrintable(widget->toolTip()));
        ++told;
    }
    QVERIFY(told > 0);
}

void TestRowStates::marksStandOut_data()
{
    QTest::addColumn<QColor>("background");
    QTest::addColumn<int>("state");
    for (const RowState state : {RowState::Requested, RowState::Confirmed, RowState::Differing,
                                 RowState::Refused, RowState::Stale}) {
        const QString word = RowStates::word(state);
        QTest::addRow("%s, light", qPrintable(word)) << QColor(0xef, 0xef, 0xef) << int(state);
        QTest::addRow("%s, dark", qPrintable(word)) << QColor(0x31, 0x36, 0x3b) << int(state);
    }
}

void TestRowStates::marksStandOut()
{
    QFETCH(QColor, background);
    QFETCH(int, state);
    FormFixture form(rowXml("LineEdit", "name", {{"labelText", "Name"}}));
    RowStates states(*form.formular());
    states.set(QStringLiteral("name"), static_cast<RowState>(state));
    auto* const mark = form.window()->findChild<QWidget*>(QStringLiteral("rowMark"));
    QVERIFY(mark);
    mark->setPalette(QPalette(background));
    QImage picture(mark->size(), QImage::Format_RGB32);
    picture.fill(background);
    mark->render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
    double most = 1.0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            most = qMax(most, contrast(picture.pixelColor(x, y), background));
    }
    QVERIFY2(most >= 3.0, qPrintable(QString::number(most)));
}

QTEST_MAIN(TestRowStates)
#include "tst_rowstates.moc"
