#ifndef ZORVA_AUTHOR_TESTSCRIPT_H
#define ZORVA_AUTHOR_TESTSCRIPT_H

#include "scenario.h"
#include "testedform.h"

#include <QScriptEngine>
#include <QVector>

namespace Orvane {
namespace Author {

class FormDriver;

/**
 * Sources of tests in an interpreter of their own, apart from that of the form. A source calls
 * test(name, function(form) { ... }) for each test; a test gets a form of its own.
 */
class TestScript
{
public:
    explicit TestScript(const ScenarioSetup& setup);
    TestScript(const TestScript&) = delete;
    TestScript& operator=(const TestScript&) = delete;

    /** Why the sources cannot be used, with the place; empty if they can. */
    const QString& problem() const { return m_problem; }
    /** In the order in which they were declared. */
    const QVector<ScenarioTest>& tests() const { return m_tests; }
    ScenarioResult run(int index);

private:
    void load(const NamedText& source);
    void provide(const char* name, QScriptEngine::FunctionSignature function);
    ScenarioResult call(QScriptValue function, FormDriver& driver);
    ScenarioPlace thrownAt(const QScriptValue& exception) const;

    static TestScript& of(QScriptEngine* engine);
    static QScriptValue declare(QScriptContext* context, QScriptEngine* engine);
    static QScriptValue expect(QScriptContext* context, QScriptEngine* engine);
    static QScriptValue giveUp(QScriptContext* context, QScriptEngine* engine);
    static QScriptValue note(QScriptContext* context, QScriptEngine* engine);

    const TestedForm m_form;
    const bool m_withCoverage;
    QScriptEngine m_engine;
    QString m_problem;
    QVector<ScenarioTest> m_tests;
    QVector<QScriptValue> m_functions;
    QStringList m_notes;
    ScenarioResult m_comparison; // of the last expect() that failed
};

/** The child's side of a run: takes a setup and then numbers of tests from the parent until it ends. */
void serveTests();

} // namespace Author
} // namespace Orvane

#endif
