// Where captions stand, how far rows are apart, and how headings look.
#include "contrast.h"
#include "generatedform.h"

#include <formtest.h>
#include <layout/floatgrouplayout.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFont>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScopeGuard>
#include <QScrollArea>

#include <cmath>
#include <cstdlib>
#include <cstring>

namespace {

/// Where the title of a heading without a mark is drawn.
QRect titleInk(QGroupBox* head)
{
    head->setCheckable(false);
    const QImage image = head->grab().toImage();
    const QRgb ground = image.pixel(image.width() - 1, 0);
    const int line = image.height() / 2; // of the hairline, which is no ink of the title
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (y != line && image.pixel(x, y) != ground)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

/// The field beside a caption.
QWidget* fieldBeside(const QWidget* caption)
{
    const QLayout* layout = caption->parentWidget()->layout();
    for (int i = 0; i + 1 < layout->count(); ++i) {
        if (layout->itemAt(i)->widget() == caption)
            return layout->itemAt(i + 1)->widget();
    }
    return nullptr;
}

/// The lines that a change makes different in the picture of a window.
template <typename Change>
QRect difference(QWidget* window, const Change& change)
{
    const QImage before = window->grab().toImage();
    change();
    const QImage after = window->grab().toImage();
    QRect different;
    for (int y = 0; y < before.height(); ++y) {
        const auto bytes = size_t(before.bytesPerLine());
        if (std::memcmp(before.constScanLine(y), after.constScanLine(y), bytes) != 0)
            different |= QRect(0, y, before.width(), 1);
    }
    return different;
}

/// The lines of its window on which a control shows a text of capitals.
QRect textInk(QWidget* control)
{
    const QString text = QStringLiteral("HHH");
    auto* edit = qobject_cast<QLineEdit*>(control);
    if (!edit)
        edit = control->findChild<QLineEdit*>();
    if (edit) {
        const QSignalBlocker untold(edit); // nothing is typed
        edit->setText(QString());
        return difference(control->window(), [&] { edit->setText(text); });
    }
    if (auto* choice = qobject_cast<QComboBox*>(control)) {
        const QSignalBlocker untold(choice);
        choice->addItem(text);
        choice->setCurrentIndex(-1);
        return difference(control->window(), [&] { choice->setCurrentIndex(choice->count() - 1); });
    }
    if (auto* button = qobject_cast<QAbstractButton*>(control)) {
        button->setText(QString());
        return difference(control->window(), [&] { button->setText(text); });
    }
    return difference(control->window(), [&] {
        QPalette palette = control->palette();
        palette.setColor(QPalette::WindowText, Qt::red);
        control->setPalette(palette);
    });
}

} // namespace

class tst_FormLines : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void rowsHaveOneRhythm_data();
    void rowsHaveOneRhythm();
    void captionsAreLevel_data() { rowsHaveOneRhythm_data(); }
    void captionsAreLevel();
    void headingsFollowTheTextSize();
    void headingsStandAtTheLeft_data();
    void headingsStandAtTheLeft();
    void lineCanBeSeenInTheDark();
    void wholeLineToggles();
    void ampersandIsNoMnemonic();
    void lineStandsAboveTheBar();

private:
    static QString rows();
};

QString tst_FormLines::rows()
{
    const FormProperty caption{"labelText", "HHH"};
    return rowXml("SpinBox", "number", {caption}) + rowXml("ComboBox", "choice", {caption}) +
           rowXml("LineEdit", "text", {caption}) + rowXml("CheckBox", "check", {caption}) +
           rowXml("FrequencyEdit", "plain", {caption, {"MainFreqEdit", false}}) +
           rowXml("PushButton", "button", {caption, {"text", "HHH"}}) +
           rowXml("LineEdit", "last", {caption}) +
           rowXml("SpinBoxList", "list", {caption, {"itemCount", 2}}) +
           rowXml("Label", "still", {caption, {"text", "HHH"}}) +
           rowXml("FrequencyEdit", "main", {caption, {"MainFreqEdit", true}});
}

void tst_FormLines::rowsHaveOneRhythm_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<int>("textSize");
    for (const QString& style : testedStyles()) {
        for (const int size : {9, 10, 13, 17})
            QTest::addRow("%s at %d", qPrintable(style), size) << style << size;
    }
}

void tst_FormLines::rowsHaveOneRhythm()
{
    QFETCH(const QString, style);
    QFETCH(const int, textSize);
    QApplication::setStyle(style);
    QFont font = QApplication::font();
    const auto restore = qScopeGuard([font] { QApplication::setFont(font); });
    font.setPointSize(textSize);
    QApplication::setFont(font);
    FormFixture form(rows());
    form.window()->resize(700, 500);
    form.window()->show();
    QCoreApplication::processEvents();
    const char* const names[] = {"number", "choice", "text", "check", "plain", "button", "last"};
    const int rhythm = form.control<QWidget>("choice")->y() - form.control<QWidget>("number")->y();
    for (int i = 1; i < 7; ++i) {
        const int step = form.control<QWidget>(names[i])->y() - form.control<QWidget>(names[i - 1])->y();
        QVERIFY2(step == rhythm, qPrintable(QStringLiteral("%1 px ahead of %2, not %3")
                                                .arg(step)
                                                .arg(QLatin1String(names[i]))
                                                .arg(rhythm)));
    }
}

// In the picture of the whole form, since a caption may need more than its label is high: its text stands on
// the line of the control's own text, level with a control that has none, and is cut nowhere.
void tst_FormLines::captionsAreLevel()
{
    QFETCH(const QString, style);
    QFETCH(const int, textSize);
    QApplication::setStyle(style);
    QFont font = QApplication::font();
    const auto restore = qScopeGuard([font] { QApplication::setFont(font); });
    font.setPointSize(textSize);
    QApplication::setFont(font);
    FormFixture form(rows());
    form.window()->resize(900, 900);
    form.window()->show();
    QCoreApplication::processEvents();
    form.window()->focusWidget()->clearFocus(); // and with it the cursor
    for (const char* name : {"number", "choice", "text", "plain", "list", "button", "still", "main"}) {
        auto* label = form.control<QLabel>(qPrintable(QStringLiteral("label") + QLatin1String(name)));
        const QRect caption = textInk(label);
        const QRect own = textInk(fieldBeside(label));
        const int height = form.window()->fontMetrics().capHeight();
        const QString places = QStringLiteral("%1: caption at %2 to %3, text at %4 to %5")
                                   .arg(QLatin1String(name))
                                   .arg(caption.top())
                                   .arg(caption.bottom())
                                   .arg(own.top())
                                   .arg(own.bottom());
        QVERIFY2(caption.isValid() && own.isValid(), name);
        QVERIFY2(std::abs(caption.bottom() - own.bottom()) <= 1, qPrintable(places));
        QVERIFY2(caption.height() >= height - 1 && caption.height() <= height + 2, qPrintable(places));
    }
    const QWidget* check = form.control<QWidget>("check");
    const QRect caption = textInk(form.control<QLabel>("labelcheck"));
    const QPoint middle = check->mapTo(form.window(), check->rect().center());
    QVERIFY(std::abs(caption.center().y() - middle.y()) <= 1);
}

// The title grows with the text of the rows, and is a shade stronger than a caption of the same words.
void tst_FormLines::headingsFollowTheTextSize()
{
    FormFixture form(rowXml("Headline", "head", {{"text", "HHHH"}}) +
                     rowXml("LineEdit", "row", {{"labelText", "HHHH"}}));
    form.show();
    auto* head = form.control<QGroupBox>("head");
    const int height = head->height();
    const int capitals = titleInk(head).height();
    form.sheet().SetFontSize(20);
    QTRY_VERIFY(head->height() > height);
    QVERIFY(titleInk(head).height() > capitals);
    const auto* caption = form.control<QLabel>("labelrow");
    QVERIFY(titleInk(head).width() > caption->fontMetrics().tightBoundingRect(caption->text()).width());
}

void tst_FormLines::headingsStandAtTheLeft_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<bool>("mirrored");
    for (const QString& style : testedStyles()) {
        for (const bool mirrored : {false, true})
            QTest::addRow("%s, %d", qPrintable(style), mirrored) << style << mirrored;
    }
}

void tst_FormLines::headingsStandAtTheLeft()
{
    QFETCH(const QString, style);
    QFETCH(const bool, mirrored);
    QApplication::setStyle(style);
    FormFixture form(rowXml("Headline", "head", {{"text", "Heading"}}) +
                     rowXml("LineEdit", "row", {{"labelText", "Row"}}));
    form.window()->setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
    form.show();
    const QImage image = form.control<QGroupBox>("head")->grab().toImage();
    const int middle = image.height() / 2;
    // The hairline alone reaches the far end; above it the ground is bare there.
    const int far = mirrored ? 2 : image.width() - 3;
    const int near = mirrored ? image.width() - 1 : 0;
    const QRgb ground = image.pixel(far, 2);
    QVERIFY(image.pixel(far, middle) != ground);
    bool titled = false;
    for (int x = 0; x < image.width() / 2; ++x) {
        const int place = qAbs(near - x);
        for (int y = 0; y < middle - 1; ++y)
            titled |= image.pixel(place, y) != ground;
        const int mirror = image.width() - 1 - place;
        for (int y = 0; y < middle - 1; ++y)
            QVERIFY2(image.pixel(mirror, y) == ground, "something stands in the free half");
    }
    QVERIFY(titled);
}

void tst_FormLines::lineCanBeSeenInTheDark()
{
    for (const bool dark : {false, true}) {
        QPalette palette = QApplication::palette();
        if (dark) {
            palette.setColor(QPalette::Window, QColor(35, 38, 41));
            palette.setColor(QPalette::WindowText, QColor(239, 240, 241));
        }
        FormFixture form(rowXml("Headline", "head", {{"text", "Heading"}}) +
                         rowXml("LineEdit", "row", {{"labelText", "Row"}}));
        form.window()->setPalette(palette);
        form.show();
        const QImage image = form.control<QGroupBox>("head")->grab().toImage();
        const QRgb line = image.pixel(image.width() - 3, image.height() / 2);
        QVERIFY(contrast(line, palette.color(QPalette::Window).rgb()) >= 1.6);
    }
}

void tst_FormLines::wholeLineToggles()
{
    FormFixture form(rowXml("Headline", "head", {{"text", "Heading"}}) +
                     rowXml("LineEdit", "row", {{"labelText", "Row"}}));
    form.show();
    auto* head = form.control<QGroupBox>("head");
    QSignalSpy clicked(head, &QGroupBox::clicked);
    QTest::mouseClick(head, Qt::LeftButton, Qt::NoModifier, QPoint(head->width() - 5, head->height() / 2));
    QCOMPARE(clicked.count(), 1);
    QVERIFY(!head->isChecked());
    QVERIFY(!form.control<QWidget>("row")->isVisible());
    QTest::mouseClick(head, Qt::LeftButton, Qt::NoModifier, QPoint(3, head->height() / 2));
    QVERIFY(head->isChecked());
    QTest::mouseClick(head, Qt::RightButton);
    QVERIFY(head->isChecked());
    QTest::keyClick(head, Qt::Key_Space);
    QVERIFY(!head->isChecked());
}

void tst_FormLines::ampersandIsNoMnemonic()
{
    FormFixture form(rowXml("Headline", "head", {{"text", "Q &A"}}) +
                     rowXml("LineEdit", "row", {{"labelText", "Row"}}));
    form.show();
    auto* head = form.control<QGroupBox>("head");
    QTest::keyClick(form.window(), Qt::Key_A, Qt::AltModifier);
    QVERIFY(head->isChecked());
    QCOMPARE(head->title(), QStringLiteral("Q &A"));
}

void tst_FormLines::lineStandsAboveTheBar()
{
    FormFixture form(rowXml("LineEdit", "row", {{"labelText", "Row"}}));
    form.show();
    const auto* line = form.control<QWidget>("applyLine");
    auto* bar = form.control<QWidget>("applyButtonBox");
    const auto* area = form.window()->findChild<QScrollArea*>();
    QVERIFY(line && line->isVisible());
    QCOMPARE(line->width(), form.window()->width());
    QVERIFY(line->y() > area->geometry().bottom() && line->geometry().bottom() < bar->y());
    form.window()->resize(700, 600);
    QTRY_VERIFY(line->y() > area->geometry().bottom() && line->geometry().bottom() < bar->y());
    QCOMPARE(line->width(), 700);
}

QTEST_MAIN(tst_FormLines)
#include "tst_formlines.moc"
