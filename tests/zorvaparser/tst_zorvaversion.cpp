#include <zorvaparser/zorvaversion.h>

#include <QtTest>

static_assert(ZORVAPARSER_VERSION >= ZORVAPARSER_VERSION_CHECK(1, 0, 0), "the first release");
static_assert(ZORVAPARSER_VERSION_CHECK(1, 2, 3) > ZORVAPARSER_VERSION_CHECK(1, 1, 255),
              "minor before patch");
static_assert(ZORVAPARSER_VERSION_CHECK(2, 0, 0) > ZORVAPARSER_VERSION_CHECK(1, 255, 255),
              "major before minor");

class tst_ZorvaVersion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numberAndTextAgree();
    void runningIsCompiled();
};

void tst_ZorvaVersion::numberAndTextAgree()
{
    const QString text = QStringLiteral("%1.%2.%3")
                             .arg(ZORVAPARSER_VERSION_MAJOR)
                             .arg(ZORVAPARSER_VERSION_MINOR)
                             .arg(ZORVAPARSER_VERSION_PATCH);
    QCOMPARE(QStringLiteral(ZORVAPARSER_VERSION_STR), text);
}

void tst_ZorvaVersion::runningIsCompiled()
{
    QCOMPARE(Orvane::ZorvaVersion(), ZORVAPARSER_VERSION_STR);
    QCOMPARE(Orvane::ZorvaVersionNumber(), ZORVAPARSER_VERSION);
}

QTEST_GUILESS_MAIN(tst_ZorvaVersion)
#include "tst_zorvaversion.moc"
