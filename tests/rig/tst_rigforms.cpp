#include "formtest.h"

#include <hostkit/formrows.h>
#include <hostkit/parametertext.h>
#include <hostkit/settingsstore.h>
#include <rig/formwriter.h>
#include <rig/hamlibdevice.h>
#include <rig/models.h>
#include <rig/session.h>

#include <valueframework/valuenumeric.h>
#include <valueframework/valueselection.h>
#include <zorvaparser/zorvaparser.h>

#include <QProcess>
#include <QSet>
#include <QTemporaryDir>

using hostkit::Answer;

namespace {

/// Hamlib's dummy, open, for whoever asks in Hamlib's words.
class OpenDummy : public radio::HamlibDevice
{
public:
    OpenDummy()
        : HamlibDevice(radio::HamlibSettings(), {})
    {
    }
    using HamlibDevice::get;
    using HamlibDevice::set;
};

/// A radio of another model, played by the dummy.
class ModelOnDummy : public radio::RigDevice
{
public:
    ModelOnDummy(OpenDummy& dummy, const QList<radio::Parameter>& parameters)
        : RigDevice(parameters)
        , m_dummy(dummy)
    {
    }
    Answer open() override { return Answer::done(); }
    void close() override {}

protected:
    Answer get(const radio::Parameter& parameter) override { return m_dummy.get(parameter); }
    Answer set(const radio::Parameter& parameter, const QString& text) override
    {
        return m_dummy.set(parameter, text);
    }

private:
    OpenDummy& m_dummy;
};

/// Another value of a row than it has, as a person may choose it; false if it has but one.
bool edit(Orvane::ZorvaDelegate& row)
{
    values::ValueBase* const value = row.GetVTValue();
    if (auto* const number = dynamic_cast<values::IValueNumeric*>(value)) {
        const double now = number->GetValue();
        const double next =
            now + number->GetStep() <= number->GetMax() ? now + number->GetStep() : now - number->GetStep();
        return number->SetValue(next, nullptr) && number->GetValue() != now;
    }
    if (auto* const choice = dynamic_cast<values::ValueSelection*>(value))
        return choice->GetItemCount() > 1 &&
               choice->SelectIndex(choice->GetCurrentIndex() == 0 ? 1 : 0, nullptr);
    auto* const flag = dynamic_cast<values::ValueBool*>(value);
    return flag && flag->SetValue(!flag->GetValue(), nullptr);
}

} // namespace

/// The made form of every model: parsed, shown, edited, applied.
class TestRigForms : public FormTest
{
    Q_OBJECT

    std::unique_ptr<OpenDummy> m_dummy;

    void tryModel(const radio::Model& model);

private Q_SLOTS:
    void initTestCase()
    {
        m_dummy = std::make_unique<OpenDummy>();
        QCOMPARE(m_dummy->open().outcome, Answer::Done);
    }
    void cleanupTestCase() { m_dummy.reset(); }

    void everyModel_data()
    {
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("last");
        for (int first = 0; first < 40000; first += 1000)
            QTest::addRow("models from %d", first) << first << first + 999;
    }
    void everyModel()
    {
        QFETCH(int, first);
        QFETCH(int, last);
        const QList<radio::Model> all = radio::models();
        QVERIFY(all.size() > 250);
        for (const radio::Model& model : all) {
            if (int(model.number) < first || int(model.number) > last)
                continue;
            tryModel(model);
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(QStringLiteral("%1 %2").arg(model.number).arg(model.title())));
        }
    }

#ifdef ZORVA_CHECKER
    void checkerFindsNothing()
    {
        const QTemporaryDir folder;
        const QList<radio::Model> all = radio::models();
        for (const radio::Model& model : all)
            QVERIFY(hostkit::saveText(folder.filePath(QStringLiteral("%1.zorva").arg(model.number)),
                                      radio::formFor(model)));
        QProcess checker;
        checker.setProcessChannelMode(QProcess::MergedChannels);
        checker.start(QStringLiteral(ZORVA_CHECKER), {QStringLiteral("check"), QStringLiteral("--fail-on"),
                                                      QStringLiteral("note"), folder.path()});
        QVERIFY(checker.waitForFinished(600000));
        QVERIFY2(checker.exitCode() == 0, checker.readAll().left(4000).constData());
    }
#endif

    void namesAreUniqueAndPlain()
    {
        const QRegularExpression plain(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
        const QList<radio::Model> all = radio::models();
        for (const radio::Model& model : all) {
            QSet<QString> names;
            const QList<radio::Parameter> parameters = radio::parametersOf(*model.capabilities);
            for (const radio::Parameter& parameter : parameters) {
                QVERIFY2(plain.match(parameter.rowName()).hasMatch(), qPrintable(parameter.rowName()));
                QVERIFY2(!names.contains(parameter.rowName()), qPrintable(parameter.rowName()));
                names.insert(parameter.rowName());
            }
        }
    }

    void listFindsByNumberMakerAndName()
    {
        QVERIFY(!radio::models(QStringLiteral("dummy")).isEmpty());
        QCOMPARE(radio::models(QStringLiteral("hamlib dummy")).first().number, 1u);
        QVERIFY(radio::models(QStringLiteral("no such radio")).isEmpty());
        radio::Model model;
        QVERIFY(!radio::findModel(999999, &model));
    }

    void textsOfTheRadioAndTheForm_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("radioText");
        QTest::addColumn<QString>("formText");
        QTest::newRow("share as percent") << "Level/AF"
                                          << "0.450000"
                                          << "45.0";
        QTest::newRow("tenths of a second") << "Level/VOXDELAY"
                                            << "7"
                                            << "0.7";
        QTest::newRow("whole number") << "Level/KEYSPD"
                                      << "25"
                                      << "25";
        QTest::newRow("choice") << "Mode/Mode"
                                << "USB"
                                << "USB";
    }
    void textsOfTheRadioAndTheForm()
    {
        QFETCH(QString, path);
        QFETCH(QString, radioText);
        QFETCH(QString, formText);
        radio::Model model;
        QVERIFY(radio::findModel(RIG_MODEL_DUMMY, &model));
        const QList<radio::Parameter> parameters = radio::parametersOf(*model.capabilities);
        const auto found = std::find_if(parameters.begin(), parameters.end(),
                                        [&](const radio::Parameter& entry) { return entry.path == path; });
        QVERIFY(found != parameters.end());
        QCOMPARE(found->toForm(radioText), formText);
        QCOMPARE(found->toRadio(formText), radioText);
    }
};

void TestRigForms::tryModel(const radio::Model& model)
{
    const QList<radio::Parameter> parameters = radio::parametersOf(*model.capabilities);
    Orvane::ZorvaParser parser;
    const hostkit::FormLink::Form form(parser.ParseZORVA(radio::formFor(model)));
    QVERIFY(form);
    form->CreateValueTree(QStringLiteral("/test"));
    form->CreateGUI(true);
    const std::unique_ptr<QWidget> window(form->GetGUI());
    window->resize(800, 600);
    form->Show();

    // Each parameter has its row, and each row what it needs.
    QCOMPARE(hostkit::rowPaths(*form).size(), parameters.size());
    ModelOnDummy device(*m_dummy, parameters);
    int edited = 0;
    for (const radio::Parameter& parameter : parameters) {
        const auto row = hostkit::rowOf(*form, parameter.path);
        QVERIFY2(row, qPrintable(parameter.path));
        QVERIFY2(!hostkit::captionOf(*row).isEmpty(), qPrintable(parameter.path));
        QVERIFY2(!hostkit::groupOf(*form, parameter.path).isEmpty(), qPrintable(parameter.path));
        if (parameter.look != radio::Look::Reading)
            edited += edit(*row->GetDelegate()) ? 1 : 0;
    }
    const QList<hostkit::Parameter> applied = hostkit::parametersOf(form->GetXmlString(true));
    QCOMPARE(applied.size(), edited);
    QVERIFY(!form->GetSheet().isWidgetModified());

    // What was applied goes to the radio and comes back the same.
    for (const hostkit::Parameter& entry : applied) {
        const bool slow = entry.path.startsWith(QLatin1String("Tone/")) ||
                          entry.path.startsWith(QLatin1String("Tuning/")) ||
                          entry.path.startsWith(QLatin1String("Mode/"));
        if (slow && !entry.path.endsWith(QLatin1String("/Frequency")) && model.number % 10 != 1)
            continue; // the dummy sleeps at these; every tenth model shows that they work
        const Answer written = device.write(entry.path, entry.text);
        if (written.outcome != Answer::Done)
            continue; // a passband of another mode, or a word of Hamlib's that the dummy lacks
        const Answer read = device.read(entry.path);
        // A radio with a main and a sub receiver calls its VFOs by other names.
        if (entry.path.endsWith(QLatin1String("/VFO")))
            continue;
        if (read.outcome == Answer::Done && !read.text.isNull())
            QVERIFY2(hostkit::saysTheSame(read.text, entry.text),
                     qPrintable(QStringLiteral("%1: %2, %3").arg(entry.path, entry.text, read.text)));
    }
}

QTEST_MAIN(TestRigForms)

#include "tst_rigforms.moc"
