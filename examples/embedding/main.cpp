// A host of several forms: it defines them by name, shows one at a time, keeps
// its configuration, talks parameter XML with a device, and changes a form that
// is on screen by an overlay.
//
//   zorva-embedding [--settings <file>] [--selftest]

#include <hostkit/formrows.h>
#include <hostkit/parametertext.h>
#include <hostkit/rowstates.h>
#include <hostkit/settingsstore.h>
#include <valueframework/valuenumeric.h>
#include <zorvaparser/zorvaformular.h>
#include <zorvaparser/zorvaformularmanager.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QListWidget>
#include <QMainWindow>
#include <QMap>
#include <QMenuBar>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTextStream>
#include <QVBoxLayout>

namespace {

QString readResource(const QString& name)
{
    QFile file(QStringLiteral(":/embedding/%1.zorva").arg(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString settingsPath(const QString& asked)
{
    if (!asked.isEmpty())
        return asked;
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation));
    folder.mkpath(QStringLiteral("."));
    return folder.filePath(QStringLiteral("settings.xml"));
}

/**
 * What stands for the device. It takes parameters as it gets them, but its volume
 * has steps of 5; it answers with what it really set.
 */
class Device
{
public:
    /** The parameters of @p form as they came out. */
    QList<hostkit::Parameter> apply(const QString& form, const QList<hostkit::Parameter>& wanted)
    {
        QList<hostkit::Parameter> answer;
        for (const hostkit::Parameter& parameter : wanted) {
            const bool isVolume = parameter.path == QLatin1String("volume");
            const QString set = isVolume ? rounded(parameter.text) : parameter.text;
            parameters.insert(form + QLatin1Char('/') + parameter.path, set);
            answer.append({parameter.path, set});
        }
        return answer;
    }

    QString parameter(const QString& path) const { return parameters.value(path); }

private:
    static QString rounded(const QString& volume) { return QString::number((volume.toInt() + 2) / 5 * 5); }

    QMap<QString, QString> parameters;
};

class Window : public QMainWindow
{
    Q_OBJECT

public:
    explicit Window(const QString& settings)
        : configuration(settingsPath(settings))
    {
        auto* const central = new QWidget(this);
        auto* const columns = new QHBoxLayout(central);
        names = new QListWidget(central);
        names->setMaximumWidth(160);
        columns->addWidget(names);
        place = new QWidget(central);
        new QVBoxLayout(place);
        columns->addWidget(place, 1);
        setCentralWidget(central);

        forms.SetVTPath(QStringLiteral("/Embedding"));
        for (const char* name : {"Receiver", "Recorder", "Alarm"})
            forms.DefineFormular(QLatin1String(name), readResource(QString::fromLatin1(name).toLower()));
        names->addItems(forms.GetNames());

        QMenu* const menu = menuBar()->addMenu(tr("&Device"));
        widen = menu->addAction(tr("&Wide tuning range"), this, &Window::applyOverlay);
        louder = menu->addAction(tr("&Louder"), this, &Window::turnUp);

        connect(names, &QListWidget::currentTextChanged, this, &Window::showForm);
        connect(&forms, &Orvane::ZorvaFormularManager::si_parametersModified, this, &Window::sendParameters);
        names->setCurrentRow(0);
        resize(720, 420);
    }

private Q_SLOTS:
    void showForm(const QString& name)
    {
        const auto form = forms.GetFormular(name);
        if (!form)
            return;
        // The first call has built the form's widget; from here it lives in this window.
        if (form->GetGUI() && form->GetGUI()->parentWidget() != place) {
            place->layout()->addWidget(form->GetGUI());
            states.insert(name, new hostkit::RowStates(*form, this));
        }
        // Each form under a key of its own, so that one does not overwrite another's groups.
        forms.SetConfigObject(&configuration, name);
        forms.ShowFormular(name);
        widen->setEnabled(name == QLatin1String("Receiver"));
        louder->setEnabled(name == QLatin1String("Receiver"));
    }

    void sendParameters()
    {
        const QString xml = forms.GetXmlString(true);
        // Nothing that the device should know of.
        if (xml.isNull())
            return;
        QTextStream(stdout) << xml << '\n';
        const QList<hostkit::Parameter> wanted = hostkit::parametersOf(xml);
        showAnswer(wanted, device.apply(forms.GetCurrentName(), wanted));
        statusBar()->showMessage(tr("Applied: %1").arg(forms.GetCurrentName()), 3000);
    }

    void applyOverlay()
    {
        if (const auto form = forms.GetCurrentFormular())
            form->SetChangedZORVA(readResource(QStringLiteral("wideband")));
    }

    /** As when somebody turns the knob at the device: the host writes one value of the form. */
    void turnUp()
    {
        values::NumericInt volume(QStringLiteral("volume"));
        forms.GetVTValues({&volume}, nullptr, true);
        volume.SetValue(volume.GetValue() + volume.GetStep(), nullptr);
        forms.SetVTValue(&volume, nullptr);
    }

public:
    /** The state of the current form's rows; made when the form is first shown. */
    hostkit::RowStates* rowStates() { return states.value(forms.GetCurrentName()); }
    Orvane::ZorvaFormularManager& manager() { return forms; }
    Device& target() { return device; }
    QListWidget* list() { return names; }
    QAction* wideAction() { return widen; }
    QAction* louderAction() { return louder; }

private:
    /** Puts what the device really set into the rows, and says at each how it came out. */
    void showAnswer(const QList<hostkit::Parameter>& wanted, const QList<hostkit::Parameter>& answer)
    {
        const auto form = forms.GetCurrentFormular();
        // What comes back counts as read, not as a change of the user.
        form->SetXmlString(hostkit::parameterXml(form->GetEmptyXmlElement(), answer));
        for (int i = 0; i < answer.size(); ++i) {
            const bool equal = hostkit::saysTheSame(wanted.at(i).text, answer.at(i).text);
            rowStates()->set(answer.at(i).path,
                             equal ? hostkit::RowState::Confirmed : hostkit::RowState::Differing,
                             equal ? QString() : tr("asked for %1").arg(wanted.at(i).text));
        }
    }

    hostkit::ConfigurationStore configuration;
    Device device;
    Orvane::ZorvaFormularManager forms;
    QMap<QString, hostkit::RowStates*> states; // owned by this window
    // Owned by this window.
    QListWidget* names;
    QWidget* place;
    QAction* widen;
    QAction* louder;
};

/** Uses the host as a person would, and says on standard error what did not come out. */
class SelfTest
{
public:
    explicit SelfTest(const QString& settings)
        : settingsFile(settings)
    {
    }

    /** The exit code: 0 if all is well. */
    int run()
    {
        {
            Window window(settingsFile);
            window.show();
            showEachForm(window);
            applyAndCorrect(window);
            pushBack(window);
            overlay(window);
            collapse(window);
        }
        Window window(settingsFile);
        select(window, "Receiver");
        check(window.manager().GetCurrentFormular()->GetSheet().GetCollapsed() ==
                  QStringList{QStringLiteral("audio")},
              "the collapsed group is remembered");
        select(window, "Alarm");
        check(window.manager().GetCurrentFormular()->GetSheet().GetCollapsed().isEmpty(),
              "each form has a configuration of its own");
        return failed ? 1 : 0;
    }

private:
    void check(bool ok, const char* what)
    {
        if (ok)
            return;
        failed = true;
        QTextStream(stderr) << "not so: " << what << '\n';
    }

    static void select(Window& window, const char* name)
    {
        const auto items = window.list()->findItems(QLatin1String(name), Qt::MatchExactly);
        window.list()->setCurrentItem(items.value(0));
    }

    static QString valueOf(Window& window, const char* tag)
    {
        const auto form = window.manager().GetCurrentFormular();
        const values::ValueBase* const value = form ? form->GetVTValue(QLatin1String(tag)) : nullptr;
        return value ? value->GetStringValue() : QString();
    }

    /** Writes a row and applies at once. */
    static void write(Window& window, const char* tag, const char* text)
    {
        window.manager().GetCurrentFormular()->SetVTValue(QLatin1String(tag), QLatin1String(text), nullptr,
                                                          true);
    }

    void showEachForm(Window& window)
    {
        for (const char* name : {"Recorder", "Alarm", "Receiver"}) {
            select(window, name);
            check(window.manager().GetCurrentName() == QLatin1String(name), "the chosen form is current");
            const auto form = window.manager().GetCurrentFormular();
            check(form && form->GetGUI()->isVisible(), "the chosen form is on screen");
        }
    }

    void applyAndCorrect(Window& window)
    {
        write(window, "volume", "63");
        check(window.target().parameter(QStringLiteral("Receiver/volume")) == QLatin1String("65"),
              "the device has the applied parameter");
        check(valueOf(window, "volume") == QLatin1String("65"), "the form shows what the device set");
        check(!window.manager().isWidgetModified(), "what came back is no change");
        check(window.rowStates()->state(QStringLiteral("volume")) == hostkit::RowState::Differing,
              "the row says that the device took another value");
        select(window, "Recorder");
        write(window, "duration", "90");
        check(window.target().parameter(QStringLiteral("Recorder/duration")) == QLatin1String("90"),
              "the signal follows the current form");
        select(window, "Receiver");
    }

    void pushBack(Window& window)
    {
        window.louderAction()->trigger();
        check(valueOf(window, "volume") == QLatin1String("70"), "a value of the host reaches the form");
        check(window.target().parameter(QStringLiteral("Receiver/volume")) == QLatin1String("70"),
              "and from there the device");
    }

    void overlay(Window& window)
    {
        write(window, "frequency", "500000000");
        check(valueOf(window, "frequency") == QLatin1String("108000000"), "the range holds");
        window.wideAction()->trigger();
        write(window, "frequency", "500000000");
        check(valueOf(window, "frequency") == QLatin1String("500000000"), "the overlay widens the range");
        write(window, "demodulation", "CW");
        check(window.target().parameter(QStringLiteral("Receiver/demodulation")) == QLatin1String("CW"),
              "the overlay brings new choices");
    }

    static void collapse(Window& window)
    {
        const auto form = window.manager().GetCurrentFormular();
        form->GetSheet().SetCollapsed({QStringLiteral("audio")});
        form->ApplyConfiguration();
    }

    QString settingsFile;
    bool failed = false;
};

int selfTest()
{
    const QTemporaryDir folder;
    return folder.isValid() ? SelfTest(folder.filePath(QStringLiteral("settings.xml"))).run() : 1;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QCoreApplication::translate("main", "Three forms in one window."));
    parser.addHelpOption();
    const QCommandLineOption settings(
        QStringLiteral("settings"), QCoreApplication::translate("main", "Keep the configuration in <file>."),
        QStringLiteral("file"));
    const QCommandLineOption selftest(QStringLiteral("selftest"),
                                      QCoreApplication::translate("main", "Try everything out and exit."));
    parser.addOptions({settings, selftest});
    parser.process(application);
    if (parser.isSet(selftest))
        return selfTest();
    Window window(parser.value(settings));
    window.show();
    return QApplication::exec();
}

#include "main.moc"
