// The size that a form has when it opens, alone or inside a host's window.
#include "generatedform.h"

#include <formtest.h>
#include <layout/floatgrouplayout.h>
#include <layout/floatscrollarea.h>

#include <QApplication>
#include <QFont>
#include <QMainWindow>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>
#include <QScrollBar>

class tst_FormOpening : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void opensWithAWholeColumn_data();
    void opensWithAWholeColumn();
    void fewRowsNeedNoBar();
    void asksItsHostForTheSame();
    void sizeOfTheHostStands();
    void bareFormOpensAlike();
    void longTextsAreElided_data();
    void longTextsAreElided();

private:
    static QString manyRows();
};

QString tst_FormOpening::manyRows()
{
    QString rows = rowXml("FrequencyRangeEdit", "range", {{"labelText", "Range"}});
    for (int i = 0; i < 40; ++i) {
        const QByteArray name = "row" + QByteArray::number(i);
        rows += rowXml("LineEdit", name.constData(), {{"labelText", QStringLiteral("Row %1").arg(i)}});
    }
    return rows;
}

namespace {

int columnWidth(const QWidget* content)
{
    const auto* layout = qobject_cast<const FloatGroupLayout*>(content->layout());
    return layout ? layout->columnSize().width() + 1 : 0;
}

} // namespace

void tst_FormOpening::opensWithAWholeColumn_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<int>("textSize");
    for (const QString& style : testedStyles()) {
        for (const int size : {9, 13, 17})
            QTest::addRow("%s at %d", qPrintable(style), size) << style << size;
    }
}

void tst_FormOpening::opensWithAWholeColumn()
{
    QFETCH(const QString, style);
    QFETCH(const int, textSize);
    QApplication::setStyle(style);
    QFont font = QApplication::font();
    const auto restore = qScopeGuard([font] { QApplication::setFont(font); });
    font.setPointSize(textSize);
    QApplication::setFont(font);
    FormFixture form(manyRows());
    form.window()->show();
    QCoreApplication::processEvents();
    const auto* area = form.control<FloatScrollArea>("");
    QVERIFY(area);
    const QSize screen = form.window()->screen()->availableSize();
    QCOMPARE(area->viewport()->width() >= qMin(columnWidth(area->widget()), screen.width() - 40), true);
    QVERIFY(form.window()->height() > 0.9 * screen.height());
    QVERIFY(form.window()->height() <= screen.height());
    QVERIFY(area->verticalScrollBar()->isVisible());
    if (columnWidth(area->widget()) < screen.width() - 40)
        QVERIFY(!area->horizontalScrollBar()->isVisible());
}

void tst_FormOpening::fewRowsNeedNoBar()
{
    FormFixture form(rowXml("LineEdit", "a", {{"labelText", "A"}}) +
                     rowXml("SpinBox", "b", {{"labelText", "B"}}));
    form.window()->show();
    QCoreApplication::processEvents();
    const auto* area = form.control<FloatScrollArea>("");
    QVERIFY(!area->verticalScrollBar()->isVisible());
    QVERIFY(!area->horizontalScrollBar()->isVisible());
}

void tst_FormOpening::asksItsHostForTheSame()
{
    FormFixture form(manyRows());
    QMainWindow host;
    host.setCentralWidget(form.window());
    host.show();
    QCoreApplication::processEvents();
    const auto* area = form.control<FloatScrollArea>("");
    QVERIFY(area->viewport()->width() >= columnWidth(area->widget()));
    QVERIFY(!area->horizontalScrollBar()->isVisible());
    host.takeCentralWidget();
    form.window()->hide();
}

void tst_FormOpening::sizeOfTheHostStands()
{
    FormFixture form(manyRows());
    form.window()->resize(333, 222);
    form.window()->show();
    QCoreApplication::processEvents();
    QCOMPARE(form.window()->size(), QSize(333, 222));
    form.window()->hide();
    form.window()->show();
    QCOMPARE(form.window()->size(), QSize(333, 222));
}

void tst_FormOpening::bareFormOpensAlike()
{
    FormFixture form(manyRows(), FormFixture::WithValues);
    form.formular()->CreateGUI(false);
    const std::unique_ptr<QWidget> window(form.formular()->GetGUI());
    window->show();
    QCoreApplication::processEvents();
    const auto* area = qobject_cast<FloatScrollArea*>(window.get());
    QVERIFY(area);
    QVERIFY(area->viewport()->width() >= columnWidth(area->widget()));
    QVERIFY(window->height() > 0.9 * window->screen()->availableSize().height());
}

void tst_FormOpening::longTextsAreElided_data()
{
    QTest::addColumn<QString>("className");
    for (const char* className : {"Label", "PushButton"})
        QTest::newRow(className) << QString::fromLatin1(className);
}

void tst_FormOpening::longTextsAreElided()
{
    QFETCH(const QString, className);
    const auto pictureOf = [&](const QString& text, QSize* hint) {
        FormFixture form(rowXml(className.toLatin1().constData(), "row", {{"text", text}}));
        form.window()->show();
        auto* control = form.control<QWidget>("row");
        *hint = control->sizeHint();
        return control->grab().toImage();
    };
    QSize shortHint;
    QSize longHint;
    QSize longerHint;
    pictureOf(QStringLiteral("short"), &shortHint);
    const QImage elided = pictureOf(QString(200, QLatin1Char('m')), &longHint);
    // The dots at the end are the same, whatever follows.
    QCOMPARE(pictureOf(QString(300, QLatin1Char('m')), &longerHint), elided);
    QVERIFY(shortHint.width() < longHint.width());
    QCOMPARE(longHint, longerHint);
}

QTEST_MAIN(tst_FormOpening)
#include "tst_formopening.moc"
