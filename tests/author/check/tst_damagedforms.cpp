#include "checktest.h"
#include "damage.h"

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

} // namespace

class tst_damagedforms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsSaidOfACleanForm_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("receiver") << exampleText("receiver.zorva");
        QTest::newRow("gallery") << exampleText("gallery.zorva");
        QTest::newRow("minimal") << exampleText("minimal.zorva");
    }

    void nothingIsSaidOfACleanForm()
    {
        QFETCH(QString, text);
        QCOMPARE(placesIn(text), QString());
    }

    void everyPrefixIsTold_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("receiver") << exampleText("receiver.zorva");
        QTest::newRow("gallery") << exampleText("gallery.zorva");
    }

    void everyPrefixIsTold()
    {
        QFETCH(QString, text);
        const QByteArray bytes = text.toUtf8();
        const int step = qEnvironmentVariableIsSet("ZORVA_DAMAGES") ? 3 : 401;
        for (int size = 0; size < bytes.trimmed().size(); size += step) {
            const QString seen = difference(bytes.left(size));
            QVERIFY2(seen.isEmpty(), qPrintable(QStringLiteral("%1 at %2").arg(seen).arg(size)));
            QVERIFY2(check(QString(), bytes.left(size)).has(Severity::Error),
                     qPrintable(QString::number(size)));
        }
    }

    void everyDamageIsTold_data() { everyPrefixIsTold_data(); }

    void everyDamageIsTold()
    {
        QFETCH(QString, text);
        bool given = false;
        const int count = qEnvironmentVariableIntValue("ZORVA_DAMAGES", &given);
        for (int seed = 0; seed < (given ? count : 200); ++seed) {
            Damage damage(static_cast<quint32>(seed));
            QString damaged = damage.apply(text);
            if (seed % 3 == 0)
                damaged = damage.apply(damaged);
            const QString seen = difference(damaged.toUtf8());
            QVERIFY2(seen.isEmpty(),
                     qPrintable(QStringLiteral("%1, seed %2: %3").arg(seen).arg(seed).arg(damage.what())));
        }
    }
};

QTEST_MAIN(tst_damagedforms)
#include "tst_damagedforms.moc"
