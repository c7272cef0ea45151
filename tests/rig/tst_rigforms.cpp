#include "formtest.h"

#include <hostkit/formrows.h>
#include <hostkit/parametertext.h>
#include <hostkit/settingsstore.h>
#include <rig/formwriter.h>
#include <rig/hamlibdevice.h>
#include <rig/models.h>
#include <rig/session.h>
#include <rig/words.h>

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

QStringList extraWords(const confparams* list, const int* own, const char* folder)
{
    QStringList paths;
    for (; list && list->token != RIG_CONF_END; ++list) {
        const int* token = own;
        while (token && *token > 0 && *token != list->token)
            ++token;
        const bool isOwn = !own || *token > 0;
        const bool isShown = list->type == RIG_CONF_NUMERIC || list->type == RIG_CONF_CHECKBUTTON ||
                             list->type == RIG_CONF_COMBO;
        if (isOwn && isShown)
            paths.append(QLatin1String(folder) + QString::fromLatin1(list->name));
    }
    return paths;
}

/// Paths of what the capabilities have and `paths` lacks.
QStringList missingPaths(const rig_caps& caps, const QSet<QString>& paths)
{
    QStringList wanted;
    for (int bit = 0; bit < 63; ++bit) {
        const setting_t flag = CONSTANT_64BIT_FLAG(bit);
        const QString level = QString::fromLatin1(rig_strlevel(flag));
        const QString function = QString::fromLatin1(rig_strfunc(flag));
        const QString setting = QString::fromLatin1(rig_strparm(flag));
        // A meter that can be set and not read shows nothing.
        const bool isMeter = level.isEmpty() || radio::levelWords(level)->group == radio::meterGroup;
        if ((caps.has_get_level & flag || (caps.has_set_level & flag && !isMeter)) && !level.isEmpty())
            wanted.append(QStringLiteral("Level/") + level);
        if ((caps.has_get_func | caps.has_set_func) & flag && !function.isEmpty())
            wanted.append(QStringLiteral("Function/") + function);
        if ((caps.has_get_parm | caps.has_set_parm) & flag && !setting.isEmpty())
            wanted.append(QStringLiteral("Setting/") + setting);
    }
    const bool isDummy = caps.rig_model == RIG_MODEL_DUMMY || caps.rig_model == RIG_MODEL_DUMMY_NOVFO;
    if ((caps.get_ext_level || caps.set_ext_level) && !isDummy)
        wanted += extraWords(caps.extlevels, caps.ext_tokens, "Level/");
    if (caps.get_ext_func || caps.set_ext_func)
        wanted += extraWords(caps.extfuncs, caps.ext_tokens, "Function/");
    if (caps.get_ext_parm || caps.set_ext_parm)
        wanted += extraWords(caps.extparms, caps.ext_tokens, "Setting/");
    wanted.replaceInStrings(QStringLiteral("/5"), QStringLiteral("/_5"));
    const auto isThere = [&paths](const QString& path) { return paths.contains(path); };
    wanted.erase(std::remove_if(wanted.begin(), wanted.end(), isThere), wanted.end());
    return wanted;
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

    // What Hamlib has a name for, radio people have one for, too.
    void noWordIsUnknown()
    {
        for (int bit = 0; bit < 63; ++bit) {
            const setting_t flag = CONSTANT_64BIT_FLAG(bit);
            const QString level = QString::fromLatin1(rig_strlevel(flag));
            const QString function = QString::fromLatin1(rig_strfunc(flag));
            const QString setting = QString::fromLatin1(rig_strparm(flag));
            QVERIFY2(level.isEmpty() || radio::levelWords(level), qPrintable(level));
            QVERIFY2(function.isEmpty() || radio::functionWords(function), qPrintable(function));
            QVERIFY2(setting.isEmpty() || radio::settingWords(setting), qPrintable(setting));
        }
    }

    // A level, function or setting that Hamlib tells of and no row stands for would go unnoticed.
    void everyCapabilityHasItsRow()
    {
        const QList<radio::Model> all = radio::models();
        for (const radio::Model& model : all) {
            const rig_caps& caps = *model.capabilities;
            QSet<QString> paths;
            const QList<radio::Parameter> parameters = radio::parametersOf(caps);
            for (const radio::Parameter& parameter : parameters)
                paths.insert(parameter.path);
            const QString wanted = missingPaths(caps, paths).join(QLatin1Char(' '));
            QVERIFY2(wanted.isEmpty(), qPrintable(model.title() + QStringLiteral(": ") + wanted));
        }
    }

    void extrasOfAModel_data()
    {
        QTest::addColumn<uint>("model");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("kind");
        QTest::newRow("check box among the levels") << 2029u << "Level/essb"
                                                    << "ESSB"
                                                    << "CheckBox";
        QTest::newRow("choice") << 1035u << "Level/APF_WIDTH"
                                << "APF width"
                                << "ComboBox";
        QTest::newRow("dummy's levels, over which it falls") << 1u << "Level/MGL" << QString() << QString();
        QTest::newRow("function") << 1u << "Function/MGEF"
                                  << "Magic ext func"
                                  << "CheckBox";
        QTest::newRow("setting") << 1u << "Setting/MGP"
                                 << "Magic parm"
                                 << "DoubleSpinBox";
        QTest::newRow("button: holds nothing") << 2029u << "Level/ritclr" << QString() << QString();
        QTest::newRow("whole number") << 1035u << "Level/CONTOUR_LEVEL"
                                      << "Contour level"
                                      << "SpinBox";
        QTest::newRow("report of a transmitter") << 2029u << "Level/txst"
                                                 << "TX status"
                                                 << "Label";
        QTest::newRow("word that begins with a digit") << 3052u << "Setting/_5khzwin"
                                                       << "Toggle 5kHz Search Window"
                                                       << "CheckBox";
        QTest::newRow("split") << 1u << "Tuning/Split"
                               << "Split"
                               << "ComboBox";
        QTest::newRow("transmit frequency") << 1u << "Tuning/TransmitFrequency"
                                            << "Transmit frequency"
                                            << "FrequencyEdit";
        QTest::newRow("transmit mode") << 1u << "Mode/TransmitMode"
                                       << "Transmit mode"
                                       << "ComboBox";
        QTest::newRow("no split without a transmitter") << 3039u << "Tuning/Split" << QString() << QString();
    }
    void extrasOfAModel()
    {
        QFETCH(uint, model);
        QFETCH(QString, path);
        QFETCH(QString, caption);
        radio::Model found;
        QVERIFY(radio::findModel(model, &found));
        Orvane::ZorvaParser parser;
        const hostkit::FormLink::Form form(parser.ParseZORVA(radio::formFor(found)));
        const auto row = hostkit::rowOf(*form, path);
        QCOMPARE(row ? hostkit::captionOf(*row) : QString(), caption);
        QTEST(row ? row->GetClass() : QString(), "kind");
    }

    void unitsOfExtras()
    {
        radio::Model model;
        QVERIFY(radio::findModel(1035, &model));
        QHash<QString, QString> units;
        const QList<radio::Parameter> parameters = radio::parametersOf(*model.capabilities);
        for (const radio::Parameter& parameter : parameters)
            units.insert(parameter.path, parameter.unit);
        QCOMPARE(units.value(QStringLiteral("Level/CONTOUR_FREQ")), QStringLiteral("Hz"));
        QCOMPARE(units.value(QStringLiteral("Level/CONTOUR_LEVEL")), QStringLiteral("dB"));
        QCOMPARE(units.value(QStringLiteral("Level/CONTOUR_WIDTH")), QString());
    }

    // Hamlib's own way, without a daemon.
    void extrasAndSplitOfALocalRadio_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("text");
        QTest::newRow("level") << "Level/MGL"
                               << "0.125";
        QTest::newRow("level that is off or on") << "Level/MGF"
                                                 << "1";
        QTest::newRow("level that is a choice") << "Level/MGC"
                                                << "2";
        QTest::newRow("function") << "Function/MGEF"
                                  << "1";
        QTest::newRow("setting") << "Setting/MGP"
                                 << "0.750";
        QTest::newRow("split") << "Tuning/Split"
                               << "VFOB";
        QTest::newRow("split off") << "Tuning/Split"
                                   << "Off";
        QTest::newRow("transmit frequency") << "Tuning/TransmitFrequency"
                                            << "7100000";
        QTest::newRow("transmit mode") << "Mode/TransmitMode"
                                       << "LSB";
    }
    void extrasAndSplitOfALocalRadio()
    {
        QFETCH(QString, path);
        QFETCH(QString, text);
        radio::Model model;
        QVERIFY(radio::findModel(RIG_MODEL_DUMMY, &model));
        rig_caps capabilities = *model.capabilities;
        capabilities.rig_model = RIG_MODEL_NONE; // no dummy, so that its levels count
        ModelOnDummy device(*m_dummy, radio::parametersOf(capabilities));
        if (path.contains(QLatin1String("Transmit")))
            QCOMPARE(device.write(QStringLiteral("Tuning/Split"), QStringLiteral("VFOB")).outcome,
                     Answer::Done);
        const Answer written = device.write(path, text);
        QVERIFY2(written.outcome == Answer::Done, qPrintable(written.text));
        QCOMPARE(device.read(path).text, text);
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
