#include "enginetest.h"

#include <QLineEdit>

#include <vkbase/errorhandler.h>
#include <vkbase/qtrace.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QTimer>
#include <QToolBar>

using Orvane::ZorvaDelegate;
using Orvane::ZorvaFormular;

namespace {

QString edit(const char* name)
{
    return rowXml("LineEdit", name, {{"text", "initial"}});
}

/// Presses "Continue" in each script debugger that comes up while one lives.
class DebuggerDriver : public QObject
{
public:
    DebuggerDriver()
    {
        connect(&m_timer, &QTimer::timeout, this, &DebuggerDriver::look);
        m_timer.start(5);
    }
    int continued = 0;
    int mostWindows = 0;

private:
    static QAction* continueAction(const QToolBar* bar)
    {
        for (QAction* const action : bar->actions()) {
            if (action->text() == QLatin1String("Continue") && action->isEnabled())
                return action;
        }
        return nullptr;
    }

    void look()
    {
        int windows = 0;
        QAction* go = nullptr;
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (!window->isVisible() || !qobject_cast<QMainWindow*>(window))
                continue;
            ++windows;
            for (const QToolBar* const bar : window->findChildren<QToolBar*>())
                go = go ? go : continueAction(bar);
        }
        mostWindows = qMax(mostWindows, windows);
        // The debugger greys its action only some turns after the click.
        const bool isNewStop = go && !m_clicked;
        m_clicked = go;
        if (!isNewStop)
            return;
        ++continued;
        go->trigger();
    }

    QTimer m_timer;
    bool m_clicked = false;
};

QMainWindow* debuggerWindow()
{
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (auto* const frame = qobject_cast<QMainWindow*>(window))
            return frame;
    }
    return nullptr;
}

} // namespace

class tst_formscript : public EngineTest
{
    Q_OBJECT

private Q_SLOTS:
    void anEmptyScriptEndsAPendingException()
    {
        FormFixture form(rowXml("LineEdit", "a"), FormFixture::WithValues);
        form.evaluate(QStringLiteral("throw 'pending'"));
        const QScriptEngine* const engine = form.formular()->GetScriptValues().first().engine();
        QVERIFY(engine->hasUncaughtException());
        form.createValues();
        QVERIFY(!engine->hasUncaughtException());
    }
    void valuesNestedTooDeepAreRefused_data()
    {
        QTest::addColumn<QString>("code");
        const QString deep = QStringLiteral("var v = []; for (var i = 0; i < 200000; ++i) v = [v]; ");
        QTest::newRow("array") << deep + QStringLiteral("a.setCustomProperty('x', v)");
        QTest::newRow("object") << QStringLiteral(
            "var v = {}; for (var i = 0; i < 200000; ++i) v = {v: v}; a.setCustomProperty('x', v)");
        QTest::newRow("function with an array")
            << deep + QStringLiteral("var f = function() {}; f.v = v; a.setCustomProperty('x', f)");
        QTest::newRow("in turn") << QStringLiteral(
            "var v = {}; for (var i = 0; i < 200000; ++i) v = [{v: v}]; a.setCustomProperty('x', v)");
        QTest::newRow("shared parts") << QStringLiteral(
            "var v = [1]; for (var i = 0; i < 60; ++i) v = [v, v]; a.setCustomProperty('x', v)");
        QTest::newRow("holes") << QStringLiteral(
            "var v = []; v.length = 4000000000; a.setCustomProperty('x', v)");
        QTest::newRow("into itself") << QStringLiteral("var v = []; v[0] = v; a.setCustomProperty('x', v)");
        QTest::newRow("sheet") << deep + QStringLiteral("sheet.setCustomProperty('x', v)");
        QTest::newRow("table") << deep + QStringLiteral("t.setItemValue(0, 0, v)");
    }

    void valuesNestedTooDeepAreRefused()
    {
        QFETCH(QString, code);
        const QString rows = edit("a") + rowXml("TableWidget", "t", {{"rowCount", 1}, {"columnCount", 1}});
        const QString kept = QStringLiteral("try { %1 } catch (e) { var error = e.name; }").arg(code);
        FormFixture evaluating(rows, FormFixture::WithValues);
        evaluating.evaluate(kept);
        QCOMPARE(scriptText(evaluating.formular(), "error"), QStringLiteral("RangeError"));
        QVERIFY(!evaluating.row("a")->customProperty(QStringLiteral("x")).isValid());
        evaluating.deleteForm();
        FormFixture initial(rows, QString(), kept, FormFixture::WithValues);
        QCOMPARE(scriptText(initial.formular(), "error"), QStringLiteral("RangeError"));
    }

    void ordinaryValuesReachTheRow()
    {
        FormFixture form(edit("a"), FormFixture::WithValues);
        const auto value = [&] { return form.row("a")->customProperty(QStringLiteral("x")); };
        form.evaluate(QStringLiteral("a.setCustomProperty('x', [1, [2, {b: 'c'}]])"));
        QCOMPARE(value().toList().value(1).toList().value(1).toMap().value(QStringLiteral("b")),
                 QVariant(QStringLiteral("c")));
        form.evaluate(QStringLiteral("a.setCustomProperty('x', 5)"));
        QCOMPARE(value(), QVariant(5));
        form.evaluate(QStringLiteral("a.setCustomProperty('x', 'text')"));
        QCOMPARE(value(), QVariant(QStringLiteral("text")));
        form.evaluate(QStringLiteral("a.setCustomProperty('x', a)"));
        QCOMPARE(value().value<QObject*>(), form.row("a"));
        form.evaluate(QStringLiteral("a.setCustomProperty('x', function() {})"));
        QVERIFY(value().isValid());
        form.evaluate(
            QStringLiteral("var heard; a.customPropertyChanged.connect(function(n, v) { heard = n + v; });"
                           "a.setCustomProperty('x', 7)"));
        QCOMPARE(scriptText(form.formular(), "heard"), QStringLiteral("x7"));
        QCOMPARE(evaluated(form.formular(), QStringLiteral("a.customProperty('x')")), QStringLiteral("7"));
    }

    void globalsAreTheSheetItsRowsAndTheEnumerations()
    {
        FormFixture form(edit("a") + widgetXml("Gadget", ""), enumXml("E", {{"one", "ONE", "1"}}), QString(),
                         FormFixture::Parsed);
        const QMap<QString, QScriptValue> globals = form.formular()->GetScriptValues();
        QCOMPARE(globals.value(QStringLiteral("sheet")).toQObject(), form.sheet().GetDelegate());
        QCOMPARE(globals.value(QStringLiteral("a")).toQObject(), form.row("a"));
        QCOMPARE(globals.value(QStringLiteral("Gadget_1")).toQObject(),
                 form.sheet().GetWidgetAt(1)->GetDelegate());
        QCOMPARE(globals.value(QStringLiteral("E")).property(QStringLiteral("ONE")).toString(),
                 QStringLiteral("1"));
        // The language's own are among them.
        QVERIFY(globals.contains(QStringLiteral("Math")));
    }

    void objectsThatWentAreKnownAsGone_data()
    {
        QTest::addColumn<bool>("evaluatedBefore");
        QTest::newRow("after the first look") << true;
        QTest::newRow("before it") << false;
    }

    // Whether the engine had wrapped them when they went makes no difference to a script.
    void objectsThatWentAreKnownAsGone()
    {
        QFETCH(const bool, evaluatedBefore);
        QLabel label;
        FormFixture form(edit("a"), FormFixture::Parsed);
        if (evaluatedBefore)
            form.evaluate(QStringLiteral("1"));
        form.sheet().GetWidgetAt(0)->SetExtWidget(QStringLiteral("b"), QString(), &label);
        auto thing = std::make_unique<QObject>();
        form.formular()->SetScriptValue(QStringLiteral("thing"), thing.get());
        form.formular()->SetScriptValue(QStringLiteral("nothing"), static_cast<QObject*>(nullptr));
        thing.reset();
        QCOMPARE(evaluated(form.formular(), QStringLiteral("typeof thing + (thing === null)")),
                 QStringLiteral("objectfalse"));
        QCOMPARE(evaluated(form.formular(), QStringLiteral("'' + (nothing === null)")),
                 QStringLiteral("true"));
        for (const char* name : {"thing", "a"}) {
            form.evaluate(
                QStringLiteral("var said; try { said = %1.objectName; } catch (error) { said = 'gone'; }")
                    .arg(QString::fromLatin1(name)));
            QCOMPARE(scriptText(form.formular(), "said"), QStringLiteral("gone"));
        }
    }

    void hostsGlobalsComeInTheOrderOfTheirNaming()
    {
        FormFixture form(edit("a"), FormFixture::Parsed);
        QObject thing;
        form.formular()->SetScriptValue(QStringLiteral("a"), QStringLiteral("text"));
        QCOMPARE(scriptText(form.formular(), "a"), QStringLiteral("text"));
        form.formular()->SetScriptValue(QStringLiteral("a"), &thing);
        form.formular()->SetScriptValue(QStringLiteral("a"), 7.0);
        QCOMPARE(scriptText(form.formular(), "a"), QStringLiteral("7"));
        form.formular()->SetScriptValue(QStringLiteral("a"), &thing);
        QCOMPARE(form.formular()->GetScriptValues().value(QStringLiteral("a")).toQObject(), &thing);
    }

    void laterGlobalOfANameReplacesTheEarlier_data()
    {
        QTest::addColumn<QString>("description");
        QTest::addColumn<bool>("isObject"); // a delegate, not an enumeration
        QTest::addColumn<QString>("owner");
        const QString enums = QStringLiteral("<Enums>%1</Enums>").arg(enumXml("same", {{"one", "ONE", "1"}}));
        const QString sheet =
            QStringLiteral("<Sheet name=\"s\">%1</Sheet>").arg(widgetXml("LineEdit", "same"));
        QTest::newRow("row behind enumeration") << rootXml(enums + sheet) << true << "same";
        QTest::newRow("enumeration behind row") << rootXml(sheet + enums) << false << "";
        QTest::newRow("row behind the sheet's own name")
            << rootXml(QStringLiteral("<Sheet name=\"same\">%1</Sheet>").arg(widgetXml("LineEdit", "same")))
            << true << "same";
        QTest::newRow("second sheet behind a row")
            << rootXml(sheet + QStringLiteral("<Sheet name=\"same\"/>")) << true << "";
    }

    void laterGlobalOfANameReplacesTheEarlier()
    {
        QFETCH(QString, description);
        QFETCH(bool, isObject);
        QFETCH(QString, owner);
        const FormPointer form = parsed(description);
        const QScriptValue global = form->GetScriptValues().value(QStringLiteral("same"));
        QCOMPARE(global.isQObject(), isObject);
        if (isObject)
            QCOMPARE(global.toQObject()->objectName(), owner);
        // Both remain whole as parts of the form.
        QVERIFY(delegateNamed(form->GetSheet(), "same"));
        if (description.contains(QLatin1String("Enum")))
            QCOMPARE(form->GetEnum(QStringLiteral("same"))->GetValueCount(), 1);
    }

    void laterRowOfANameReplacesTheEarlier()
    {
        FormFixture form(widgetXml("LineEdit", "same") + widgetXml("Label", "same"), FormFixture::Parsed);
        QCOMPARE(form.formular()->GetScriptValues().value(QStringLiteral("same")).toQObject(),
                 form.sheet().GetWidgetAt(1)->GetDelegate());
    }

    void scriptRunsBetweenValuesAndControls()
    {
        FormFixture form(edit("a"), QString(),
                         QStringLiteral("var seen = a.text + '/' + runs; runs = runs + 1;"
                                        "a.setText('preset');"),
                         FormFixture::Parsed);
        form.formular()->SetScriptValue(QStringLiteral("runs"), 0.0);
        QVERIFY(!form.formular()->GetScriptValues().contains(QStringLiteral("seen")));
        form.createValues();
        // The value took the script's text, so it was there.
        QCOMPARE(form.row("a")->GetVTValue()->GetStringValue(), QStringLiteral("preset"));
        QVERIFY(!form.formular()->GetGUI());
        QCOMPARE(scriptText(form.formular(), "seen"), QStringLiteral("initial/0"));
        form.createGui();
        QCOMPARE(scriptText(form.formular(), "runs"), QStringLiteral("1"));
        QCOMPARE(form.control<QLineEdit>("a")->text(), QStringLiteral("preset"));
    }

    void scriptSeesTheValuesOfAllRows()
    {
        // Also of a row behind, and in the tree already.
        FormFixture form(edit("a") + edit("b"), QString(), QStringLiteral("b.setText('from script')"),
                         FormFixture::WithValues);
        QCOMPARE(form.value<values::ValueString>("b")->GetStringValue(), QStringLiteral("from script"));
    }

    void scriptRunsAgainWithEachCreationOfValues()
    {
        FormFixture form(edit("a"), QString(),
                         QStringLiteral("runs = typeof runs == 'undefined' ? 1 : runs + 1"));
        QCOMPARE(scriptText(form.formular(), "runs"), QStringLiteral("1"));
        form.createValues();
        QCOMPARE(scriptText(form.formular(), "runs"), QStringLiteral("2"));
        QTest::keyClicks(form.control<QLineEdit>("a"), QStringLiteral("x"));
        QVERIFY(form.row("a")->isModified());
    }

    void startingScriptMarksNothing()
    {
        FormFixture form(edit("a"), QString(), QStringLiteral("a.setText('x'); a.setModified(true);"));
        QVERIFY(!form.sheet().isModified());
        QVERIFY(form.sheet().isActive());
        // Later on the same code marks the form as anything does.
        form.evaluate(QStringLiteral("a.setModified(true)"));
        QVERIFY(form.sheet().isModified());
    }

    void failingScriptIsTracedAndTheFormGoesOn_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("message");
        QTest::newRow("thrown") << "throw 'oops'; before = 1;"
                                << "oops";
        QTest::newRow("syntax") << "before = (;"
                                << "SyntaxError";
        QTest::newRow("unknown name") << "nowhere.setText('x')"
                                      << "ReferenceError";
        QTest::newRow("endless recursion") << "function f() { f(); } f();"
                                           << "RangeError";
    }

    void failingScriptIsTracedAndTheFormGoesOn()
    {
        QFETCH(QString, code);
        QFETCH(QString, message);
        messages().expect(QStringLiteral("** ZorvaFormular Script Exception ") + message);
        QStringList lines;
        SetTraceSink([&lines](const QString& text, const QString& file, unsigned short line) {
            lines << QStringLiteral("%1|%2|%3").arg(text, file).arg(line > 0);
        });
        FormFixture form(edit("a"), QString(), code);
        SetTraceSink(TraceSink());
        QCOMPARE(lines.count(), 1);
        QVERIFY2(lines.first().startsWith(QLatin1String("** ZorvaFormular Script Exception ") + message),
                 qPrintable(lines.first()));
        QVERIFY(lines.first().endsWith(QLatin1String("\n|zorvaformular|1")));
        QVERIFY(form.sheet().isActive());
        QVERIFY(form.row("a")->GetVTValue());
        QVERIFY(!form.formular()->GetScriptValues().contains(QStringLiteral("before")));
        QTest::keyClicks(form.control<QLineEdit>("a"), QStringLiteral("x"));
        QVERIFY(form.sheet().isModified());
    }

    void failingScriptIsSilentWithoutTheTraceBit()
    {
        const int mask = ErrorHandler::Instance().GetTraceMask();
        ErrorHandler::Instance().SetTraceMask(mask & ~ErrorHandler::TraceErrors);
        {
            FormFixture form(edit("a"), QString(), QStringLiteral("throw 'oops'"), FormFixture::WithValues);
            QVERIFY(form.sheet().isActive());
        }
        ErrorHandler::Instance().SetTraceMask(mask);
    }

    void scriptErrorsAreTraced_data()
    {
        QTest::addColumn<bool>("inHandler");
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("traced");
        QTest::newRow("handler, error") << true << "throw new Error('bad')"
                                        << "FM 1, line 2: Error: bad";
        QTest::newRow("handler, text") << true << "throw 'bad'"
                                       << "FM 1, line 2: bad";
        QTest::newRow("handler, mistake") << true << "nobody.x"
                                          << "FM 1, line 2: ReferenceError";
        QTest::newRow("evaluated, error") << false << "\n\nthrow new Error('bad')"
                                          << "FM 1, line 3: Error: bad";
        QTest::newRow("evaluated, syntax") << false << "var"
                                           << "FM 1, line 1: SyntaxError";
        QTest::newRow("nothing wrong") << false << "1 + 1" << QString();
    }

    void scriptErrorsAreTraced()
    {
        QFETCH(bool, inHandler);
        QFETCH(QString, code);
        QFETCH(QString, traced);
        const QString script = QStringLiteral("a.customPropertyChanged.connect(function() {\n%1;\n});")
                                   .arg(inHandler ? code : QString());
        FormFixture form(edit("a"), QString(), script);
        form.formular()->SetName(QStringLiteral("FM 1"));
        int count = 0;
        const auto goWrong = [&] {
            if (inHandler)
                form.row("a")->setCustomProperty(QStringLiteral("p"), ++count);
            else
                form.formular()->EvaluateScript(code);
        };
        goWrong(); // silent without the bit
        const int mask = ErrorHandler::Instance().GetTraceMask();
        ErrorHandler::Instance().SetTraceMask(ErrorHandler::TraceScripts);
        if (!traced.isEmpty())
            messages().expect(QStringLiteral("Script error in form ") + traced);
        goWrong();
        ErrorHandler::Instance().SetTraceMask(mask);
        goWrong();
        QCOMPARE(messages().complaints(), QString());
    }

    void partBeforeTheExceptionStands()
    {
        messages().expect(QStringLiteral("Script Exception oops"));
        FormFixture form(edit("a"), QString(),
                         QStringLiteral("a.setText('x'); throw 'oops'; a.setText('y');"));
        QCOMPARE(form.row("a")->property("text").toString(), QStringLiteral("x"));
    }

    void formWithoutScriptTracesNothing()
    {
        FormFixture form(edit("a"));
        form.evaluate(QStringLiteral("throw 'pending'"));
        form.createValues();
    }

    void laterCodeIsSilentInAllCases()
    {
        FormFixture form(edit("a"));
        form.evaluate(QStringLiteral("throw 'oops'"));
        form.evaluate(QStringLiteral("broken ("));
        form.evaluate(QString());
        form.evaluate(QStringLiteral("after = 1"));
        QCOMPARE(scriptText(form.formular(), "after"), QStringLiteral("1"));
    }

    void languageIsNeverLookedAt()
    {
        const FormPointer form =
            parsed(rootXml(QStringLiteral("<Script language=\"other\">ran = 1;</Script>")));
        form->CreateValueTree(QStringLiteral("/test"));
        QCOMPARE(scriptText(form.data(), "ran"), QStringLiteral("1"));
    }

    void lineEndsReachTheEngine()
    {
        // A comment up to the line end needs one.
        const FormPointer form =
            parsed(rootXml(QStringLiteral("<Script>// note{{CR}}{{LF}}a = 1; // more {{cr}} a = 2;"
                                          "{{CR}}b = 3;</Script>")));
        form->CreateValueTree(QStringLiteral("/test"));
        QCOMPARE(scriptText(form.data(), "a"), QStringLiteral("1"));
        QCOMPARE(scriptText(form.data(), "b"), QStringLiteral("3"));
    }

    void exceptionLineCountsFromOne()
    {
        messages().expect(QStringLiteral("Script Exception"));
        FormFixture form(edit("a"), QString(), QStringLiteral("{{LF}}throw new Error('oops')"),
                         FormFixture::WithValues);
        form.evaluate(QStringLiteral("try { nowhere.x } catch (e) { line = e.lineNumber }"));
        QCOMPARE(scriptText(form.formular(), "line"), QStringLiteral("1"));
    }

    void hostSetsGlobals()
    {
        FormFixture form(edit("a"), FormFixture::Parsed);
        ZorvaFormular* const formular = form.formular();
        formular->SetScriptValue(QStringLiteral("text"), QStringLiteral("12"));
        formular->SetScriptValue(QStringLiteral("number"), 12.5);
        formular->SetScriptValue(QStringLiteral("flag"), true);
        QCOMPARE(evaluated(formular, QStringLiteral("typeof text + typeof number + typeof flag")),
                 QStringLiteral("stringnumberboolean"));
        QCOMPARE(evaluated(formular, QStringLiteral("number * 2")), QStringLiteral("25"));
        formular->SetScriptValue(QStringLiteral("number"), QStringLiteral("now text"));
        QCOMPARE(scriptText(formular, "number"), QStringLiteral("now text"));
    }

    void hostObjectStaysTheHosts()
    {
        QPointer<QObject> object = new QObject;
        object->setObjectName(QStringLiteral("mine"));
        {
            FormFixture form(edit("a"), FormFixture::Parsed);
            form.formular()->SetScriptValue(QStringLiteral("host"), object.data());
            QCOMPARE(evaluated(form.formular(), QStringLiteral("host.objectName")), QStringLiteral("mine"));
            form.formular()->SetScriptValue(QStringLiteral("host"), static_cast<QObject*>(nullptr));
            QCOMPARE(evaluated(form.formular(), QStringLiteral("host")), QStringLiteral("null"));
        }
        QVERIFY(object);
        delete object;
    }

    void topLevelVariablesAreReadBack()
    {
        FormFixture form(edit("a"), QString(), QStringLiteral("var level = 3; var nothing; function f() {}"),
                         FormFixture::WithValues);
        const QMap<QString, QScriptValue> globals = form.formular()->GetScriptValues();
        QCOMPARE(globals.value(QStringLiteral("level")).toNumber(), 3.0);
        QVERIFY(globals.contains(QStringLiteral("nothing")));
        QVERIFY(globals.value(QStringLiteral("nothing")).isUndefined());
        QVERIFY(globals.value(QStringLiteral("f")).isFunction());
    }

    void handlersRunAsLongAsTheFormLives()
    {
        FormFixture form(edit("a") + edit("b"), QString(),
                         QStringLiteral("a.textEdited.connect(function(t) { b.setText('copy ' + t); });"));
        QLineEdit* const control = form.control<QLineEdit>("a");
        control->clear();
        QTest::keyClicks(control, QStringLiteral("x"));
        QCOMPARE(form.control<QLineEdit>("b")->text(), QStringLiteral("copy x"));
    }

    void dynamicPropertiesAreReachable()
    {
        FormFixture form(rowXml("LineEdit", "a", {{"special", "7"}}), FormFixture::WithValues);
        QCOMPARE(evaluated(form.formular(), QStringLiteral("a.special")), QStringLiteral("7"));
        form.evaluate(QStringLiteral("a.special = 'written'"));
        QCOMPARE(form.row("a")->property("special").toString(), QStringLiteral("written"));
    }

    void scriptCannotDeleteADelegate()
    {
        QPointer<ZorvaDelegate> row;
        {
            FormFixture form(edit("a"), FormFixture::WithValues);
            row = form.row("a");
            form.evaluate(QStringLiteral("a = null; gc();"));
            QVERIFY(row);
        }
        QVERIFY(!row);
    }

    void enginesAreNotShared()
    {
        FormFixture one(edit("a"), FormFixture::Parsed);
        FormFixture two(edit("a"), FormFixture::Parsed);
        one.evaluate(QStringLiteral("mine = 1"));
        QVERIFY(!two.formular()->GetScriptValues().contains(QStringLiteral("mine")));
    }

    void applyModeIsAcceptedFromScripts()
    {
        FormFixture form(edit("a"), QString(), QStringLiteral("a.setApplyMode(1); ok = 1;"));
        QCOMPARE(scriptText(form.formular(), "ok"), QStringLiteral("1"));
    }

    void debuggerStopsTheNextEvaluation()
    {
        messages().allow(QRegularExpression(QStringLiteral(".*")));
        {
            FormFixture form(edit("a"), QString(), QStringLiteral("ran = 1;"), FormFixture::Parsed);
            DebuggerDriver driver;
            form.formular()->DebugScript();
            form.formular()->DebugScript();
            form.createValues();
            QCOMPARE(scriptText(form.formular(), "ran"), QStringLiteral("1"));
            QCOMPARE(driver.continued, 1);
            QCOMPARE(driver.mostWindows, 1);
        }
        qApp->processEvents();
    }

    void unusedDebuggerGoesWithTheForm()
    {
        FormFixture form(edit("a"), FormFixture::Parsed);
        form.formular()->DebugScript();
        form.formular()->DebugScript();
    }

    void debuggerHasRoomForTheSource()
    {
        FormFixture form(edit("a"), FormFixture::Parsed);
        form.formular()->DebugScript();
        QMainWindow* const window = debuggerWindow();
        QVERIFY(window);
        window->show();
        QVERIFY(window->centralWidget()->width() >= 400);
        QVERIFY(window->centralWidget()->minimumWidth() >= 400); // also beside wide docks
    }

    void debuggerComesBackAsItWasLeft()
    {
        const QVariant before = qApp->property("debugger-geometry");
        const auto restore = qScopeGuard([&before] { qApp->setProperty("debugger-geometry", before); });
        qApp->setProperty("debugger-geometry", QVariant());
        const QSize size(780, 560);
        for (const bool again : {false, true}) {
            FormFixture form(edit("a"), FormFixture::Parsed);
            form.formular()->DebugScript();
            QMainWindow* const window = debuggerWindow();
            window->show();
            QCOMPARE(window->size() == size, again);
            window->resize(size);
        }
        QVERIFY(qApp->property("debugger-geometry").isValid());
    }
};

QTEST_MAIN(tst_formscript)
#include "tst_formscript.moc"
