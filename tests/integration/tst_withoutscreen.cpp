#include <valueframework/tree.h>
#include <zorvaparser/zorvaformular.h>
#include <zorvaparser/zorvaparser.h>

#include <QExplicitlySharedDataPointer>
#include <QGuiApplication>
#include <QTest>

using Orvane::ZorvaFormular;

/// Forms in a program that has no screen: they are parsed and bound, run their
/// scripts, and exchange parameters; only controls are out of reach.
class tst_WithoutScreen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formLivesWithoutControls_data();
    void formLivesWithoutControls();
};

void tst_WithoutScreen::formLivesWithoutControls_data()
{
    QTest::addColumn<QString>("file");
    for (const char* file : {"gallery.zorva", "receiver.zorva", "minimal.zorva"})
        QTest::newRow(file) << QStringLiteral(ZORVA_EXAMPLES_DIR "/") + QString::fromLatin1(file);
}

void tst_WithoutScreen::formLivesWithoutControls()
{
    QVERIFY(!qobject_cast<QGuiApplication*>(QCoreApplication::instance()));
    QFETCH(QString, file);
    {
        const QExplicitlySharedDataPointer<ZorvaFormular> form(Orvane::ZorvaParser().ParseZORVAFile(file));
        QVERIFY(form);
        form->SetName(QStringLiteral("form"));
        form->CreateValueTree(QStringLiteral("/form"));
        QObject configuration;
        form->SetConfigObject(&configuration, QStringLiteral("key"));
        form->ApplyConfiguration();
        // What a script does about what is read has settled after the first time.
        form->SetXmlString(form->GetXmlString(false));
        const QString text = form->GetXmlString(false);
        QVERIFY(!text.isEmpty());
        form->SetXmlString(text);
        QCOMPARE(form->GetXmlString(false), text);
        form->EnableInput(false);
        form->EnableInput(true);
        form->ShowGroup(QStringLiteral("none"), false);
        form->EvaluateScript(QStringLiteral("1 + 1"));
        form->CreateValueTree(QStringLiteral("/form"));
    }
    QVERIFY(values::Tree::Instance()->IsEmpty());
}

QTEST_GUILESS_MAIN(tst_WithoutScreen)
#include "tst_withoutscreen.moc"
