#include "testscript.h"

#include "coverage.h"
#include "formdriver.h"

#include <author/child/frames.h>
#include <author/document/sourcetext.h>

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QScriptContextInfo>

namespace Orvane {
namespace Author {

namespace {

const char* const ownerName = "zorvaTestScript";

QString argumentTexts(QScriptContext* context)
{
    QStringList texts;
    for (int i = 0; i < context->argumentCount(); ++i)
        texts.append(context->argument(i).isString() ? context->argument(i).toString()
                                                     : shownInTest(context->argument(i)));
    return texts.join(QLatin1Char(' '));
}

ScenarioPlace callerOf(QScriptContext* context)
{
    for (QScriptContext* place = context; place; place = place->parentContext()) {
        const QScriptContextInfo info(place);
        if (!info.fileName().isEmpty() && info.lineNumber() > 0)
            return {info.fileName(), info.lineNumber()};
    }
    return ScenarioPlace();
}

} // namespace

TestScript::TestScript(const ScenarioSetup& setup)
    : m_form(setup.form)
    , m_withCoverage(setup.coverage)
{
    m_engine.setProperty(ownerName, QVariant::fromValue(static_cast<void*>(this)));
    provide("test", declare);
    provide("expect", expect);
    provide("fail", giveUp);
    provide("print", note);
    if (!m_form.exists())
        m_problem = QStringLiteral("%1 makes no form").arg(setup.form.name);
    for (const NamedText& source : setup.tests) {
        if (m_problem.isEmpty())
            load(source);
    }
}

void TestScript::provide(const char* name, QScriptEngine::FunctionSignature function)
{
    m_engine.globalObject().setProperty(QLatin1String(name), m_engine.newFunction(function));
}

TestScript& TestScript::of(QScriptEngine* engine)
{
    return *static_cast<TestScript*>(engine->property(ownerName).value<void*>());
}

void TestScript::load(const NamedText& source)
{
    const QString code = SourceText(source.bytes).text();
    const QScriptSyntaxCheckResult syntax = QScriptEngine::checkSyntax(code);
    if (syntax.state() != QScriptSyntaxCheckResult::Valid) {
        m_problem = QStringLiteral("%1:%2:%3: %4")
                        .arg(source.name)
                        .arg(syntax.errorLineNumber())
                        .arg(syntax.errorColumnNumber())
                        .arg(syntax.errorMessage().isEmpty() ? QStringLiteral("the end is missing")
                                                             : syntax.errorMessage());
        return;
    }
    m_engine.evaluate(code, source.name);
    if (!m_engine.hasUncaughtException())
        return;
    const QScriptValue exception = m_engine.uncaughtException();
    m_problem = QStringLiteral("%1: %2").arg(thrownAt(exception).text(), exception.toString());
    m_engine.clearExceptions();
}

ScenarioPlace TestScript::thrownAt(const QScriptValue& exception) const
{
    const QString file = exception.property(QStringLiteral("fileName")).toString();
    const QScriptValue line = exception.property(QStringLiteral("lineNumber"));
    if (line.isNumber() && exception.property(QStringLiteral("fileName")).isString() && !file.isEmpty())
        return {file, line.toInt32()};
    static const QRegularExpression frame(QStringLiteral(" at (.*):(\\d+)$"));
    for (const QString& entry : m_engine.uncaughtExceptionBacktrace()) {
        const QRegularExpressionMatch match = frame.match(entry);
        if (match.hasMatch() && !match.captured(1).isEmpty())
            return {match.captured(1), match.captured(2).toInt()};
    }
    return ScenarioPlace();
}

QScriptValue TestScript::declare(QScriptContext* context, QScriptEngine* engine)
{
    if (!context->argument(0).isString() || !context->argument(1).isFunction())
        return context->throwError(QStringLiteral("test() wants a name and a function"));
    TestScript& script = of(engine);
    script.m_tests.append({context->argument(0).toString(), callerOf(context)});
    script.m_functions.append(context->argument(1));
    return QScriptValue();
}

// Objects and lists are equal if they hold the same.
QScriptValue TestScript::expect(QScriptContext* context, QScriptEngine* engine)
{
    const QScriptValue seen = context->argument(0);
    const QScriptValue expected = context->argument(1);
    if (context->argumentCount() < 2)
        return context->throwError(QStringLiteral("expect() wants what is seen and what is expected"));
    const bool isEqual = seen.strictlyEquals(expected) || (seen.isObject() && expected.isObject() &&
                                                           shownInTest(seen) == shownInTest(expected));
    if (isEqual)
        return QScriptValue();
    ScenarioResult& failure = of(engine).m_comparison;
    failure.compared = true;
    failure.expected = shownInTest(expected);
    failure.seen = shownInTest(seen);
    failure.place = callerOf(context);
    const QString what =
        context->argumentCount() > 2 ? context->argument(2).toString() + QLatin1String(": ") : QString();
    failure.message = QStringLiteral("%1expected %2, seen %3").arg(what, failure.expected, failure.seen);
    return context->throwError(failure.message);
}

QScriptValue TestScript::giveUp(QScriptContext* context, QScriptEngine* engine)
{
    ScenarioResult& failure = of(engine).m_comparison;
    failure.compared = false;
    failure.place = callerOf(context);
    failure.message = argumentTexts(context);
    return context->throwError(failure.message);
}

QScriptValue TestScript::note(QScriptContext* context, QScriptEngine* engine)
{
    of(engine).m_notes.append(argumentTexts(context));
    return QScriptValue();
}

ScenarioResult TestScript::run(int index)
{
    QElapsedTimer timer;
    timer.start();
    m_notes.clear();
    m_comparison = ScenarioResult();
    ScenarioResult result;
    if (index < 0 || index >= m_functions.size())
        return result;
    LiveForm live(m_form.description(), LiveForm::Read);
    std::unique_ptr<CoverageAgent> agent;
    if (m_withCoverage && live.engine())
        agent = std::make_unique<CoverageAgent>(live.engine(), m_form.code());
    {
        FormDriver driver(m_form, live);
        result = call(m_functions.at(index), driver);
    }
    result.notes = m_notes;
    result.milliseconds = static_cast<int>(timer.elapsed());
    if (agent)
        result.lines = agent->lines();
    return result;
}

ScenarioResult TestScript::call(QScriptValue function, FormDriver& driver)
{
    const QScriptValue form =
        m_engine.newQObject(&driver, QScriptEngine::QtOwnership,
                            QScriptEngine::ExcludeSuperClassContents | QScriptEngine::ExcludeDeleteLater);
    function.call(QScriptValue(), QScriptValueList{form});
    ScenarioResult result;
    if (m_engine.hasUncaughtException()) {
        const QScriptValue exception = m_engine.uncaughtException();
        const QString text = exception.toString();
        // Whoever threw last told more than the exception holds, if it is his.
        for (const ScenarioResult& told : {driver.failure(), m_comparison}) {
            if (!told.message.isEmpty() && text.endsWith(told.message))
                result = told;
        }
        if (result.message.isEmpty()) {
            result.message = text;
            result.place = thrownAt(exception);
        }
        m_engine.clearExceptions();
    } else if (!driver.uncaught().isEmpty()) {
        result.message =
            QStringLiteral("the form's script threw: %1").arg(driver.uncaught().join(QLatin1String("; ")));
        result.formPlace = driver.firstUncaught();
    } else {
        result.passed = true;
    }
    m_engine.collectGarbage();
    return result;
}

void serveTests()
{
    // What Qt and the trace have to say of a form is no part of the answer.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    ParentLink parent;
    QByteArray message;
    if (!parent.receive(message))
        return;
    ScenarioSetup setup;
    unpack(message, setup);
    TestScript script(setup);
    parent.send(packed(script.problem(), script.tests()));
    while (parent.receive(message)) {
        int index = -1;
        unpack(message, index);
        parent.send(packed(script.run(index)));
    }
}

} // namespace Author
} // namespace Orvane
