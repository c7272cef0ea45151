#include <QColor>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QTest>

#include <functional>

class tst_Resources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void imageIsThere_data();
    void imageIsThere();
    void imageShowsWhatItIsFor_data();
    void imageShowsWhatItIsFor();
};

namespace {

/// What is drawn of an image, by place and colour; all from 0 to 1.
struct Drawing
{
    explicit Drawing(const QImage& image)
    {
        int drawn = 0;
        double sums[3] = {0, 0, 0};
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor color = image.pixelColor(x, y);
                if (color.alpha() < 128)
                    continue;
                ++drawn;
                sums[0] += color.redF();
                sums[1] += color.greenF();
                sums[2] += color.blueF();
                left += x < image.width() / 2 ? 1 : 0;
                upper += y < image.height() / 2 ? 1 : 0;
            }
        }
        red = sums[0] / drawn;
        green = sums[1] / drawn;
        blue = sums[2] / drawn;
        left /= drawn;
        upper /= drawn;
    }

    double red = 0, green = 0, blue = 0; // mean
    double left = 0, upper = 0;          // share of what is drawn
};

using Feature = std::function<bool(const Drawing&)>;

} // namespace
Q_DECLARE_METATYPE(Feature)

void tst_Resources::imageIsThere_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"Locked.svg", "Unlocked.svg", "Open.svg", "Edit.svg", "Clear.svg",
                             "Loaded_ON.png", "Loaded_OFF.png", "HeadlineClosed.svg", "HeadlineOpened.svg"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_Resources::imageIsThere()
{
    QFETCH(QString, name);
    const QString path = QStringLiteral(":/ZorvaParser/") + name;
    QCOMPARE(QPixmap(path).size(), QSize(16, 16));

    // Something is drawn, and not all over the place.
    const QImage image = QIcon(path).pixmap(20, 20).toImage();
    int drawn = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            drawn += image.pixelColor(x, y).alpha() > 128 ? 1 : 0;
    }
    const int all = image.width() * image.height();
    QVERIFY2(drawn > all / 10 && drawn < all * 9 / 10, qPrintable(QString::number(drawn)));
}

void tst_Resources::imageShowsWhatItIsFor_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<Feature>("feature");
    const auto row = [](const char* what, const char* name, const Feature& feature) {
        QTest::newRow(what) << QString::fromLatin1(name) << feature;
    };
    row("closed points to the right", "HeadlineClosed.svg",
        [](const Drawing& d) { return d.left > 0.55 && qAbs(d.upper - 0.5) < 0.1; });
    row("opened points down", "HeadlineOpened.svg",
        [](const Drawing& d) { return d.upper > 0.6 && qAbs(d.left - 0.5) < 0.1; });
    row("on is green", "Loaded_ON.png",
        [](const Drawing& d) { return d.green > d.red + 0.1 && d.green > d.blue + 0.1; });
    row("off is grey", "Loaded_OFF.png", [](const Drawing& d) {
        return qMax(d.red, qMax(d.green, d.blue)) - qMin(d.red, qMin(d.green, d.blue)) < 0.1;
    });
    row("locked warns", "Locked.svg", [](const Drawing& d) { return d.red > d.blue + 0.2; });
    row("unlocked does not", "Unlocked.svg", [](const Drawing& d) { return d.blue > d.red; });
    row("clear is red", "Clear.svg",
        [](const Drawing& d) { return d.red > d.green + 0.3 && d.red > d.blue + 0.3; });
    row("open is a yellow folder", "Open.svg",
        [](const Drawing& d) { return d.red > d.blue + 0.2 && d.green > d.blue + 0.1; });
    row("edit is a blue pencil", "Edit.svg", [](const Drawing& d) { return d.blue > d.red; });
}

// Each in its place: two that are swapped are both wrong.
void tst_Resources::imageShowsWhatItIsFor()
{
    QFETCH(QString, name);
    QFETCH(Feature, feature);
    const Drawing drawing(QPixmap(QStringLiteral(":/ZorvaParser/") + name).toImage());
    QVERIFY2(feature(drawing), qPrintable(QStringLiteral("red %1 green %2 blue %3 left %4 upper %5")
                                              .arg(drawing.red)
                                              .arg(drawing.green)
                                              .arg(drawing.blue)
                                              .arg(drawing.left)
                                              .arg(drawing.upper)));
}

QTEST_MAIN(tst_Resources)
#include "tst_resources.moc"
