#include <leftovers.h>

#include <valueframework/tree.h>
#include <valueframework/value.h>

#include <QTest>
#include <QWidget>

#include <memory>

class TestLeftovers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsNoText();
    void namesValues();
    void countsValuesWithoutAName();
    void namesTopLevelWidgets();
    void carriesOutDeletionsThatAreDue();
};

void TestLeftovers::nothingIsNoText()
{
    QCOMPARE(leftovers(), QString());
}

void TestLeftovers::namesValues()
{
    values::ValueBool value(QStringLiteral("flag"));
    values::Tree::Instance()->AddValue(QStringLiteral("/a"), &value);
    QCOMPARE(leftovers(), QStringLiteral("value /a/flag"));
}

void TestLeftovers::countsValuesWithoutAName()
{
    values::ValueBool value{QString()};
    values::Tree::Instance()->AddValue(QStringLiteral("/a"), &value);
    QCOMPARE(leftovers(), QStringLiteral("1 values without a name"));
}

void TestLeftovers::namesTopLevelWidgets()
{
    QWidget widget;
    widget.setObjectName(QStringLiteral("lost"));
    QCOMPARE(leftovers(), QStringLiteral("widget QWidget \"lost\""));
}

void TestLeftovers::carriesOutDeletionsThatAreDue()
{
    auto widget = std::make_unique<QWidget>();
    widget.release()->deleteLater();
    QCOMPARE(leftovers(), QString());
}

QTEST_MAIN(TestLeftovers)
#include "tst_leftovers.moc"
