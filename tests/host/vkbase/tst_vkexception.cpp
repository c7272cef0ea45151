#include <vkbase/vkexception.h>

#include <QTest>

class TestVKException : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsWhatItWasGiven();
    void isAStandardExceptionInUtf8();
    void copiesKeepTheirOwnText();
};

static VKException makeException()
{
    return VKException(QStringLiteral("B\u00e4d luck"), QStringLiteral("file"), QStringLiteral("Class"),
                       QStringLiteral("method"), 17, 0xFFFFFFFFu);
}

void TestVKException::keepsWhatItWasGiven()
{
    const VKException exception = makeException();
    QCOMPARE(exception.GetMessage(), QStringLiteral("B\u00e4d luck"));
    QCOMPARE(exception.GetFile(), QStringLiteral("file"));
    QCOMPARE(exception.GetClassName(), QStringLiteral("Class"));
    QCOMPARE(exception.GetMethod(), QStringLiteral("method"));
    QCOMPARE(exception.GetLine(), 17u);
    QCOMPARE(exception.GetCode(), 0xFFFFFFFFu);
}

void TestVKException::isAStandardExceptionInUtf8()
{
    try {
        throw makeException();
    } catch (const std::exception& exception) {
        QCOMPARE(QString::fromUtf8(exception.what()), QStringLiteral("B\u00e4d luck"));
        return;
    }
    QFAIL("not caught");
}

void TestVKException::copiesKeepTheirOwnText()
{
    VKException copy(QString(), QString(), QString(), QString(), 0, 0);
    {
        const VKException original = makeException();
        copy = original;
    }
    QCOMPARE(QString::fromUtf8(copy.what()), QStringLiteral("B\u00e4d luck"));
}

QTEST_APPLESS_MAIN(TestVKException)
#include "tst_vkexception.moc"
