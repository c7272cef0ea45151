#include <layout/captionlabel_p.h>
#include <layout/floatgrouplayout.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPaintEvent>
#include <QPixmap>
#include <QTest>

#include <functional>

using Setup = std::function<void(QLabel&)>;
Q_DECLARE_METATYPE(Setup)

class tst_CaptionLabel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hintsAreThoseOfALabel_data();
    void hintsAreThoseOfALabel();
    void hintsFollowTheirLabel_data() { hintsAreThoseOfALabel_data(); }
    void hintsFollowTheirLabel();
    void looksAreThoseOfALabel();
    void largeTextIsWhole();
    void inkBelowIsPainted_data();
    void inkBelowIsPainted();
    void overflowFollowsItsLabel();
    void overflowIsPaintedAgain_data();
    void overflowIsPaintedAgain();
};

void tst_CaptionLabel::hintsAreThoseOfALabel_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Setup>("setup");

    const Setup asIs = [](QLabel&) {};
    const QString plain = QStringLiteral("Bandwidth [kHz]");
    QTest::newRow("plain") << plain << asIs;
    QTest::newRow("empty") << QString() << asIs;
    QTest::newRow("blank") << QStringLiteral(" ") << asIs;
    QTest::newRow("one letter") << QStringLiteral("f") << asIs;
    QTest::newRow("slanting end") << QStringLiteral("AfVf") << Setup([](QLabel& label) {
        QFont font = label.font();
        font.setItalic(true);
        font.setPointSize(19);
        label.setFont(font);
    });
    QTest::newRow("two lines") << QStringLiteral("first\nsecond line") << asIs;
    QTest::newRow("tabulator") << QStringLiteral("a\tb") << asIs;
    QTest::newRow("tabulator, mirrored")
        << QStringLiteral("a\tb") << Setup([](QLabel& label) { label.setLayoutDirection(Qt::RightToLeft); });
    QTest::newRow("ampersand") << QStringLiteral("Signal && &Noise") << asIs;
    QTest::newRow("not Latin") << QStringLiteral("Частота 周波数 \u05d0\u05d1\u05d2") << asIs;
    QTest::newRow("right to left") << QStringLiteral("\u05d0\u05d1\u05d2 \u05d3\u05d4") << asIs;
    QTest::newRow("very long") << QString(4000, QLatin1Char('w')) << asIs;
    QTest::newRow("long words") << QStringLiteral("word ").repeated(800) << asIs;
    QTest::newRow("rich") << QStringLiteral("<b>bold</b> text") << asIs;
    QTest::newRow("rich as plain") << QStringLiteral("<b>bold</b>")
                                   << Setup([](QLabel& label) { label.setTextFormat(Qt::PlainText); });
    QTest::newRow("plain as rich") << plain
                                   << Setup([](QLabel& label) { label.setTextFormat(Qt::RichText); });
    QTest::newRow("wrapped")
        << QStringLiteral("a text of some words that may be wrapped anywhere").repeated(3)
        << Setup([](QLabel& label) { label.setWordWrap(true); });
    QTest::newRow("centred") << plain << Setup([](QLabel& label) { label.setAlignment(Qt::AlignCenter); });
    QTest::newRow("right") << plain << Setup([](QLabel& label) {
        label.setAlignment(Qt::AlignRight | Qt::AlignBottom);
    });
    QTest::newRow("mirrored") << plain
                              << Setup([](QLabel& label) { label.setLayoutDirection(Qt::RightToLeft); });
    QTest::newRow("margin") << plain << Setup([](QLabel& label) { label.setMargin(7); });
    QTest::newRow("indent") << plain << Setup([](QLabel& label) { label.setIndent(9); });
    QTest::newRow("no indent") << plain << Setup([](QLabel& label) { label.setIndent(0); });
    QTest::newRow("frame") << plain << Setup([](QLabel& label) {
        label.setFrameStyle(QFrame::Box | QFrame::Plain);
        label.setLineWidth(3);
    });
    QTest::newRow("contents margins")
        << plain << Setup([](QLabel& label) { label.setContentsMargins(1, 2, 3, 4); });
    QTest::newRow("smallest size") << plain << Setup([](QLabel& label) { label.setMinimumSize(400, 3); });
    QTest::newRow("selectable") << plain << Setup([](QLabel& label) {
        label.setTextInteractionFlags(Qt::TextSelectableByMouse);
    });
    QTest::newRow("buddy") << QStringLiteral("&Bandwidth")
                           << Setup([](QLabel& label) { label.setBuddy(new QLineEdit(&label)); });
    QTest::newRow("picture") << plain << Setup([](QLabel& label) { label.setPixmap(QPixmap(33, 21)); });
    QTest::newRow("style sheet") << plain << Setup([](QLabel& label) {
        label.setStyleSheet(QStringLiteral("font-size: 23px; padding: 4px"));
    });
    QTest::newRow("style sheet with a border") << plain << Setup([](QLabel& label) {
        label.setStyleSheet(QStringLiteral("QLabel { border: 2px solid red; margin: 3px }"));
    });
}

void tst_CaptionLabel::hintsAreThoseOfALabel()
{
    QFETCH(QString, text);
    QFETCH(Setup, setup);
    QLabel label(text);
    CaptionLabel caption(text);
    setup(label);
    setup(caption);
    QCOMPARE(caption.sizeHint(), label.sizeHint());
    QCOMPARE(caption.minimumSizeHint(), label.minimumSizeHint());
    QCOMPARE(caption.sizeHint(), label.sizeHint());
}

void tst_CaptionLabel::hintsFollowTheirLabel()
{
    QFETCH(QString, text);
    QFETCH(Setup, setup);
    QWidget parent; // goes last
    QLabel label(QStringLiteral("before"));
    CaptionLabel caption(QStringLiteral("before"));
    QCOMPARE(caption.sizeHint(), label.sizeHint());
    for (QLabel* const each : {&label, static_cast<QLabel*>(&caption)}) {
        each->setText(text);
        setup(*each);
    }
    QCOMPARE(caption.sizeHint(), label.sizeHint());
    QCOMPARE(caption.minimumSizeHint(), label.minimumSizeHint());
    // The font may also come from above.
    label.setParent(&parent);
    caption.setParent(&parent);
    QFont large = parent.font();
    large.setPointSize(large.pointSize() + 7);
    parent.setFont(large);
    QCOMPARE(caption.sizeHint(), label.sizeHint());
    for (QLabel* const each : {&label, static_cast<QLabel*>(&caption)})
        each->setText(QStringLiteral("after"));
    QCOMPARE(caption.minimumSizeHint(), label.minimumSizeHint());
}

void tst_CaptionLabel::looksAreThoseOfALabel()
{
    const QString text = QStringLiteral("Level && &more");
    QLabel label(text);
    CaptionLabel caption(text);
    label.resize(120, 30);
    caption.resize(120, 30);
    QCOMPARE(caption.grab().toImage(), label.grab().toImage());
    QCOMPARE(QString::fromLatin1(caption.metaObject()->className()), QStringLiteral("QLabel"));
}

namespace {

/// A row at a text size at which the caption needs more than its label is high.
class LargeRow : public QWidget
{
public:
    explicit LargeRow(int fieldHeight = 60)
    {
        QFont large = font();
        large.setPixelSize(40);
        setFont(large);
        auto* layout = new FloatGroupLayout(this);
        label = layout->addLabel(QStringLiteral("jjjj"), "label");
        field = new QWidget(this);
        field->setFixedSize(100, fieldHeight);
        layout->addWidget(field);
        resize(400, 100);
    }

    /// Whether anything is drawn in the place of the caption, below its label.
    bool inkBelow(const QRect& labelPlace)
    {
        const QImage image = grab().toImage();
        for (int y = labelPlace.bottom() + 1; y < image.height(); ++y) {
            for (int x = labelPlace.left(); x <= labelPlace.right(); ++x) {
                if (image.pixel(x, y) != image.pixel(image.width() - 1, y))
                    return true;
            }
        }
        return false;
    }

    QLabel* label;
    QWidget* field;
};

} // namespace

void tst_CaptionLabel::largeTextIsWhole()
{
    LargeRow row;
    row.show();
    QTRY_COMPARE(row.label->height(), 24);
    const QImage shown = row.grab().toImage();
    // A label as high as the row centres its text all by itself.
    QLabel whole(row.label->text());
    whole.setFont(row.font());
    whole.resize(row.label->width(), row.field->height());
    const QImage wanted = whole.grab().toImage();
    QCOMPARE(shown.copy(QRect(row.label->pos(), whole.size())), wanted);
}

void tst_CaptionLabel::inkBelowIsPainted_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Setup>("setup");
    const Setup asIs = [](QLabel&) {};
    QTest::newRow("nothing under the line") << QStringLiteral("nnnn") << asIs;
    QTest::newRow("descenders") << QStringLiteral("nnng") << asIs;
    QTest::newRow("underlined") << QStringLiteral("nnnn") << Setup([](QLabel& label) {
        QFont font = label.font();
        font.setUnderline(true);
        label.setFont(font);
    });
    QTest::newRow("two lines") << QStringLiteral("nnnn\ngggg") << asIs;
    QTest::newRow("other letters") << QStringLiteral("nn \u0e0d\u0e39 \u05e7") << asIs;
    QTest::newRow("off") << QStringLiteral("nnng") << Setup([](QLabel& label) { label.setEnabled(false); });
}

// Whatever is in the last rows only, which most captions leave empty.
void tst_CaptionLabel::inkBelowIsPainted()
{
    QFETCH(const QString, text);
    QFETCH(const Setup, setup);
    for (int fieldHeight = 24; fieldHeight <= 60; fieldHeight += 3) {
        QWidget row;
        auto* layout = new FloatGroupLayout(&row);
        QLabel* label = layout->addLabel(text, "label");
        setup(*label);
        auto* field = new QWidget(&row);
        field->setFixedSize(100, fieldHeight);
        layout->addWidget(field);
        row.resize(400, 100);
        row.show();
        QTRY_COMPARE(label->height(), 24);
        QLabel whole(text);
        setup(whole);
        whole.setFixedSize(label->width(), qMax(fieldHeight, whole.sizeHint().height()));
        const QRect place(label->pos(), whole.size());
        QCOMPARE(row.grab().toImage().copy(place), whole.grab().toImage());
    }
}

void tst_CaptionLabel::overflowFollowsItsLabel()
{
    LargeRow row;
    row.show();
    QTRY_COMPARE(row.label->height(), 24);
    const QRect place = row.label->geometry();
    QVERIFY(row.inkBelow(place));
    row.label->hide();
    QVERIFY(!row.inkBelow(place));
    row.label->show();
    QTRY_VERIFY(row.inkBelow(place));
    row.label->setText(QStringLiteral("<b>j</b>")); // which a label centres in what it has
    QTRY_VERIFY(!row.inkBelow(place));
    row.label->setText(QStringLiteral("jjjj"));
    QTRY_VERIFY(row.inkBelow(place));
    row.label->move(200, 0);
    QVERIFY(!row.inkBelow(place));
    delete row.label;
    QVERIFY(!row.inkBelow(place.translated(200, 0)));
}

namespace {

/// What a widget painted anew.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget* widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent*>(event)->region();
        return false;
    }

    QRegion painted;
};

} // namespace

void tst_CaptionLabel::overflowIsPaintedAgain_data()
{
    QTest::addColumn<Setup>("change");
    QTest::newRow("hidden") << Setup([](QLabel& label) { label.hide(); });
    QTest::newRow("moved") << Setup([](QLabel& label) { label.move(200, 0); });
    QTest::newRow("switched off") << Setup([](QLabel& label) { label.setEnabled(false); });
    QTest::newRow("another text") << Setup([](QLabel& label) { label.setText(QStringLiteral("gggg")); });
    QTest::newRow("another colour") << Setup([](QLabel& label) {
        QPalette red = label.palette();
        red.setColor(QPalette::WindowText, Qt::red);
        label.setPalette(red);
    });
}

// In the place that it had; a label itself asks for no more than its own.
void tst_CaptionLabel::overflowIsPaintedAgain()
{
    QFETCH(const Setup, change);
    LargeRow row;
    row.show();
    QTRY_COMPARE(row.label->height(), 24);
    QCoreApplication::processEvents();
    const QRect below = QRect(row.label->x(), row.label->geometry().bottom() + 1, row.label->width(), 4);
    PaintWatch watch(&row);
    change(*row.label);
    QTRY_VERIFY(watch.painted.intersected(below) == QRegion(below));
}

QTEST_MAIN(tst_CaptionLabel)
#include "tst_captionlabel.moc"
