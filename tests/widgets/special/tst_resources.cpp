#include <QIcon>
#include <QPixmap>
#include <QTest>

class tst_Resources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void imageIsThere_data();
    void imageIsThere();
};

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

QTEST_MAIN(tst_Resources)
#include "tst_resources.moc"
