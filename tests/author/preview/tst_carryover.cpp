#include "formtext.h"
#include "leftovers.h"

#include <author/preview/carryover.h>
#include <zorvaparser/zorvadelegate.h>

#include <QTest>

using namespace Orvane::Author;

/// What an operator did, from one state of a form to the next.
class TestCarryover : public QObject
{
    Q_OBJECT

    static QString enumeration(const QList<FormEnumValue>& entries) { return enumXml("Modes", entries); }
    static std::unique_ptr<PreviewForm> made(const QString& rows, const QString& enums = QString())
    {
        auto form = std::make_unique<PreviewForm>(formXml(rows, enums).toUtf8(), QString());
        form->build(QString());
        return form;
    }
    static QString held(PreviewForm& form, const char* row)
    {
        return form.form().GetVTValue(QString::fromLatin1(row))->GetStringValue();
    }
    static void set(PreviewForm& form, const char* row, const char* text)
    {
        QVERIFY(form.form().SetVTValue(QString::fromLatin1(row), QString::fromLatin1(text), nullptr, false));
    }

private Q_SLOTS:
    void cleanup() { QCOMPARE(leftovers(), QString()); }
    void entriesAndMarks()
    {
        const QString rows = rowXml("SpinBox", "gain", {{"maximum", 50}}) + rowXml("LineEdit", "remark");
        auto form = made(rows);
        set(*form, "gain", "7");
        form->form().GetXmlString(true);
        set(*form, "remark", "late & <new>");
        Carryover carryover;
        carryover.take(*form);
        form = made(rows);
        QVERIFY(carryover.give(*form).isEmpty());
        QCOMPARE(held(*form, "gain"), QStringLiteral("7"));
        QCOMPARE(held(*form, "remark"), QStringLiteral("late & <new>"));
        // What was applied is not to be applied again, the rest is.
        const QString changed = form->parameters(true);
        QVERIFY2(!changed.contains(QLatin1String("gain")), qPrintable(changed));
        QVERIFY2(changed.contains(QLatin1String("remark")), qPrintable(changed));
    }
    void untouchedRowsFollowTheDescription()
    {
        auto form = made(rowXml("SpinBox", "gain", {{"value", 3}, {"maximum", 50}}));
        Carryover carryover;
        carryover.take(*form);
        form = made(rowXml("SpinBox", "gain", {{"value", 5}, {"maximum", 50}}));
        QVERIFY(carryover.give(*form).isEmpty());
        QCOMPARE(held(*form, "gain"), QStringLiteral("5"));
    }
    void whatARowDoesNotTakeIsKeptAside()
    {
        const QList<FormEnumValue> both = {{"Wide", "WIDE", "w"}, {"Narrow", "NARROW", "n"}};
        const QString mode =
            rowXml("ComboBox", "mode", {{"enumName", "Modes"}, {"value", "w"}, {"labelText", "Mode"}});
        const QString gain = rowXml("SpinBox", "gain", {{"maximum", 50}, {"labelText", "Gain"}});
        const QString remark = rowXml("LineEdit", "remark", {{"labelText", "Remark"}});
        auto form = made(mode + gain + remark, enumeration(both));
        set(*form, "mode", "Narrow");
        set(*form, "gain", "40");
        set(*form, "remark", "x");
        Carryover carryover;
        carryover.take(*form);
        form = made(mode + rowXml("SpinBox", "gain", {{"maximum", 10}, {"labelText", "Gain"}}),
                    enumeration({{"Wide", "WIDE", "w"}}));
        const QVector<KeptAside> aside = carryover.give(*form);
        QStringList told;
        for (const KeptAside& entry : aside)
            told << entry.row + QLatin1Char('=') + entry.text + QLatin1String(": ") + entry.why;
        QCOMPARE(told, (QStringList{QStringLiteral("Mode=Narrow: the row does not take it any more"),
                                    QStringLiteral("Gain=40: the row does not take it any more"),
                                    QStringLiteral("Remark=x: the row is gone")}));
        // It comes back with what takes it.
        carryover.take(*form);
        form = made(mode + gain + remark, enumeration(both));
        QVERIFY(carryover.give(*form).isEmpty());
        QCOMPARE(held(*form, "mode"), QStringLiteral("Narrow"));
        QCOMPARE(held(*form, "gain"), QStringLiteral("40"));
        QCOMPARE(held(*form, "remark"), QStringLiteral("x"));
    }
    void rowsOutsideParameterXml()
    {
        const QString row = widgetXml("LineEdit", "note", {{"visible", true}, {"enabled", true}});
        auto form = made(row);
        set(*form, "note", "kept");
        Carryover carryover;
        carryover.take(*form);
        form = made(row);
        QVERIFY(carryover.give(*form).isEmpty());
        QCOMPARE(held(*form, "note"), QStringLiteral("kept"));
    }
    void forgotten()
    {
        auto form = made(rowXml("LineEdit", "remark"));
        set(*form, "remark", "x");
        Carryover carryover;
        carryover.take(*form);
        carryover.forget();
        form = made(rowXml("LineEdit", "remark"));
        QVERIFY(carryover.give(*form).isEmpty());
        QCOMPARE(held(*form, "remark"), QString());
    }
    void lookingAtParametersLeavesTheMarks()
    {
        auto form = made(rowXml("LineEdit", "remark"));
        set(*form, "remark", "x");
        QVERIFY(form->parameters(false).contains(QLatin1String("<remark>x</remark>")));
        QVERIFY(form->parameters(true).contains(QLatin1String("<remark>x</remark>")));
        QVERIFY(form->form().GetXmlString(true).contains(QLatin1String("<remark>x</remark>")));
        QVERIFY(form->parameters(true).isNull());
    }
};

QTEST_MAIN(TestCarryover)
#include "tst_carryover.moc"
