#include "checktest.h"
#include "damage.h"
#include "predictedform.h"

#include <author/document/description.h>
#include <zorvaparser/zorvaformular.h>
#include <zorvaparser/zorvaparser.h>

#include <QTest>

using namespace Orvane::Author;

namespace {

/// What the check says of a description against the form that the engine makes of it.
QString difference(const QByteArray& bytes)
{
    const CheckedFile checked = check(QStringLiteral("form.zorva"), bytes);
    const QExplicitlySharedDataPointer<Orvane::ZorvaFormular> form(
        Orvane::ZorvaParser().ParseZORVA(checked.source.engineBytes()));
    if (checked.form != static_cast<bool>(form))
        return QStringLiteral("whether there is a form");
    const Description description(checked.source);
    int rows = 0;
    for (const SourceElement& element : description.elements())
        rows += element.name == QLatin1String("Widget") ? 1 : 0;
    const int alive = form ? form->GetSheet().GetWidgetCount() : 0;
    if (rows - checked.lost.rows.size() != alive)
        return QStringLiteral("%1 rows written, %2 lost, %3 alive")
            .arg(rows)
            .arg(checked.lost.rows.size())
            .arg(alive);
    return lossesWithoutFinding(checked);
}

/// What the living form has otherwise than one that holds what the tool says is left, and nothing
/// that is damaged; the undamaged form itself where that is the same.
QString differenceOfEffects(const QByteArray& bytes)
{
    const SourceText source(bytes);
    const QStringList predicted = effectOf(predictedDescription(source)).split(QLatin1Char('\n'));
    const QStringList seen = effectOf(source.engineBytes()).split(QLatin1Char('\n'));
    for (int i = 0; i < qMax(predicted.size(), seen.size()); ++i) {
        if (predicted.value(i) != seen.value(i))
            return QStringLiteral("\"%1\" instead of \"%2\"").arg(seen.value(i), predicted.value(i));
    }
    return QString();
}

/// difference() of a description that has lost its end, which is an error in any case.
QString differenceOfPrefix(const QByteArray& bytes)
{
    const QString seen = difference(bytes);
    if (!seen.isEmpty() || check(QString(), bytes).has(Severity::Error))
        return seen;
    return QStringLiteral("no error");
}

} // namespace

class tst_damagedforms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsSaidOfACleanForm_data()
    {
        addTextsToDamage();
        QTest::newRow("minimal") << exampleText("minimal.zorva");
    }

    void nothingIsSaidOfACleanForm()
    {
        QFETCH(QString, text);
        QCOMPARE(placesIn(text), QString());
    }

    void everyPrefixIsTold_data() { addTextsToDamage(); }

    void everyPrefixIsTold()
    {
        QFETCH(QString, text);
        const QString fault = faultOfPrefixes(text.toUtf8().trimmed().chopped(1), 401, 3, differenceOfPrefix);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void everyDamageIsTold_data() { addTextsToDamage(); }

    void everyDamageIsTold()
    {
        QFETCH(QString, text);
        const QString fault = faultOfDamages(text, 200, difference);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void everyDamagedFormLivesAsPredicted_data() { addTextsToDamage(); }

    void everyDamagedFormLivesAsPredicted()
    {
        QFETCH(QString, text);
        const QString fault = faultOfDamages(text, 60, differenceOfEffects);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void everyBlockLivesAsPredicted_data()
    {
        QTest::addColumn<QByteArray>("rest");
        const QByteArray tag = "<Property name=\"parameterXmlTag\"><String>a/b</String></Property>";
        const QByteArray custom = "<Property name=\"customXmlTag\"><String>c/d</String></Property>";
        const QByteArray block = "<CustomProperties>" + custom + "</CustomProperties>";
        QTest::newRow("no block") << tag;
        QTest::newRow("a block") << tag + block;
        QTest::newRow("an empty block") << tag + "<CustomProperties/>";
        QTest::newRow("an empty block before") << "<CustomProperties/>" + tag;
        QTest::newRow("an empty block behind another") << block + tag + "<CustomProperties/>";
        QTest::newRow("a block in a block") << tag + "<CustomProperties>" + block + "</CustomProperties>";
        QTest::newRow("a block that breaks off")
            << tag + "<CustomProperties><Property name=\"customXmlTag\"<";
        QTest::newRow("an empty path") << tag + "<CustomProperties><Property name=\"customXmlTag\"><String/>"
                                                "</Property></CustomProperties>";
    }

    // Some kinds answer a block of custom properties whatever is in it.
    void everyBlockLivesAsPredicted()
    {
        QFETCH(QByteArray, rest);
        for (const char* const kind : {"SpecialObject_FHP", "SpecialObject_DSC", "CheckBox"})
            QCOMPARE(differenceOfEffects("<KVParamGui><Sheet name=\"s\"><Widget name=\"a\" class=\"" +
                                         QByteArray(kind) + "\">" + rest + "</Widget></Sheet></KVParamGui>"),
                     QString());
    }
};

QTEST_MAIN(tst_damagedforms)
#include "tst_damagedforms.moc"
