#include "zorvatest.h"

#include "parameterfile_p.h"

#include <velkappstartup/velkapplication.h>
#include <vkbase/errorhandler.h>
#include <vkbase/qtrace.h>
#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaparser.h>
#include <zorvaparser/zorvasheet.h>
#include <zorvaparser/zorvawidget.h>

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QTabWidget>
#include <QXmlStreamReader>

#include <cstdio>

namespace Orvane {

namespace {

// What precedes the path belongs to the host's start-up.
constexpr int pathArgument = 4;
constexpr int optionArgument = 5;

/** Says on standard error, and in the trace, what could not be done with the parameters in @p file. */
void reportFailure(const QString& what, const QString& file, const QString& reason)
{
    const QString path = QDir::toNativeSeparators(QFileInfo(file).absoluteFilePath());
    const QString message = QStringLiteral("Cannot %1 the parameters in %2: %3").arg(what, path, reason);
    if (ErrorHandler::Traces(ErrorHandler::TraceErrors))
        _Q_Trace(message, QStringLiteral("zorvatest"), __LINE__);
    std::fprintf(stderr, "%s\n", message.toLocal8Bit().constData());
}

QString rootOf(const QString& xml)
{
    QXmlStreamReader reader(xml);
    return reader.readNextStartElement() ? reader.name().toString() : QString();
}

/** The names of the elements right below the root that the rows of @p form read. */
QSet<QString> elementsOf(ZorvaFormular* form)
{
    QSet<QString> names;
    const ZorvaSheet& sheet = form->GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        const ZorvaDelegate* const row = sheet.GetWidgetAt(i)->GetDelegate();
        names << row->GetXmlPath().section(QLatin1Char('/'), 0, 0, QString::SectionSkipEmpty);
        for (const QString& tag : row->GetAllTags())
            names << tag;
    }
    return names;
}

/** Names in the parameters @p xml that @p form has not: its root, or elements below that. */
QStringList foreignElements(const QString& xml, ZorvaFormular* form)
{
    QStringList names;
    QXmlStreamReader reader(xml);
    if (!reader.readNextStartElement())
        return names;
    if (reader.name() != rootOf(form->GetEmptyXmlElement()))
        return {reader.name().toString()};
    const QSet<QString> own = elementsOf(form);
    while (reader.readNextStartElement()) {
        if (!own.contains(reader.name().toString()))
            names << reader.name().toString();
        reader.skipCurrentElement();
    }
    names.removeDuplicates();
    return names;
}

} // namespace

QSize ZorvaTestMain::sizeHint() const
{
    return {500, 800};
}

void ZorvaTestMain::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    QCoreApplication::quit();
}

ZorvaTest::ZorvaTest(const QString& name)
    : IDllInstance(name)
    , mainWindow(new ZorvaTestMain)
{
    ShellWindows().append(mainWindow);
}

ZorvaTest::~ZorvaTest() = default;

QList<ZorvaTest::ShownForm>& ZorvaTest::ShownForms()
{
    // Never destroyed: the forms' windows may be the last thing to go.
    static auto* const forms = new QList<ShownForm>;
    return *forms;
}

QList<QPointer<ZorvaTestMain>>& ZorvaTest::ShellWindows()
{
    static auto* const windows = new QList<QPointer<ZorvaTestMain>>;
    return *windows;
}

bool ZorvaTest::Start()
{
    const VelkApplication* application = VelkApplication::m_pThis;
    const QStringList arguments = application ? application->Arguments() : QStringList();
    const bool alreadyShowing = !mainWindow || mainWindow->centralWidget();
    if (arguments.size() <= pathArgument || alreadyShowing)
        return true;

    const QString& path = arguments.at(pathArgument);
    formPath = path;
    if (path.endsWith(QLatin1String(".zorva"))) {
        LoadZorva(path, arguments.value(optionArgument));
        ReadStoredParameters();
    } else {
        LoadComponentList(path);
    }
    return true;
}

void ZorvaTest::SetOptions(const FormShellOptions& newOptions)
{
    options = newOptions;
}

void ZorvaTest::LoadZorva(const QString& path, const QString& option)
{
    ZorvaParser parser;
    const ShownForm form(parser.ParseZORVAFile(path));
    if (!form) {
        qDebug().noquote() << QStringLiteral("** LoadZorva: Cannot load %1\n").arg(path);
        return;
    }
    // The debugger has to be there before the script runs.
    if (option == QLatin1String("debug"))
        form->DebugScript();
    ShowForm(form);
}

void ZorvaTest::ShowForm(const ShownForm& form)
{
    ShownForms().append(form);
    formular = form.data();
    form->CreateValueTree(QStringLiteral("/ZorvaTest"));
    form->CreateGUI(true);
    for (const QString& overlay : qAsConst(options.overlays))
        form->SetChangedZORVA(overlay);
    connect(form.data(), &ZorvaFormular::si_parametersModified, this, &ZorvaTest::sl_parametersModified);
    mainWindow->setCentralWidget(form->GetGUI());
    form->Show();
    mainWindow->show();
}

bool ZorvaTest::Reload()
{
    ZorvaParser parser;
    const ShownForm form(formular && mainWindow ? parser.ParseZORVAFile(formPath) : nullptr);
    if (!form)
        return false;
    const QString parameters = formular->GetXmlString(false);
    // Its values make room for those of the same paths.
    LetFormGo();
    ShowForm(form);
    form->SetXmlString(parameters);
    return true;
}

void ZorvaTest::LetFormGo()
{
    QWidget* const window = formular->GetGUI();
    ShownForms().removeAll(ShownForm(formular.data()));
    delete window;
}

QString ZorvaTest::ParameterFilePath() const
{
    return options.parameterFile.isEmpty() ? QStringLiteral("ZorvaTest_test.xml") : options.parameterFile;
}

void ZorvaTest::ReadStoredParameters()
{
    if (!formular)
        return;
    QString xml;
    if (options.storedAreRead) {
        ParameterFile file(ParameterFilePath());
        xml = QString::fromUtf8(file.Read());
        if (!file.Reason().isEmpty())
            reportFailure(QStringLiteral("read"), ParameterFilePath(), file.Reason());
        TellForeignParameters(xml);
    }
    formular->SetXmlString(xml);
    for (const QString& parameters : qAsConst(options.parameters))
        formular->SetXmlString(parameters);
}

// All forms of a working directory store in one file.
void ZorvaTest::TellForeignParameters(const QString& xml) const
{
    const QStringList foreign = foreignElements(xml, formular);
    if (foreign.isEmpty())
        return;
    const QString message =
        QStringLiteral("The parameters in %1 are those of another form: this one has no %2\n")
            .arg(QDir::toNativeSeparators(ParameterFilePath()), foreign.join(QStringLiteral(", ")));
    std::fputs(message.toLocal8Bit().constData(), stderr);
}

void ZorvaTest::sl_parametersModified()
{
    if (!formular)
        return;
    ParameterFile file(ParameterFilePath());
    if (!file.Store(formular->GetXmlString(false).toUtf8()))
        reportFailure(QStringLiteral("store"), ParameterFilePath(), file.Reason());
}

void ZorvaTest::LoadComponentList(const QString& path)
{
    QFile file(path);
    QXmlStreamReader reader;
    if (file.open(QIODevice::ReadOnly))
        reader.setDevice(&file);

    auto* tabs = new QTabWidget;
    tabs->setObjectName(QStringLiteral("ZorVaTest_TabWidget"));
    mainWindow->setCentralWidget(tabs);

    int count = 0;
    QString componentName;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        if (reader.name() == QLatin1String("Component"))
            componentName = attributes.value(QLatin1String("name")).toString();
        else if (reader.name() == QLatin1String("ValueString") &&
                 attributes.value(QLatin1String("id")) == QLatin1String("ZORVA"))
            AddTab(tabs, componentName, attributes.value(QLatin1String("value")).toString(), count);
    }
    mainWindow->show();
}

void ZorvaTest::AddTab(QTabWidget* tabs, const QString& title, const QString& description, int& count)
{
    ZorvaParser parser;
    const ShownForm form(parser.ParseZORVA(description));
    if (!form)
        return;
    ShownForms().append(form);
    ++count;
    form->CreateValueTree(QStringLiteral("/ZorvaTest/Form_%1").arg(count));
    form->CreateGUI(false);
    tabs->addTab(form->GetGUI(), title);
    form->Show();
}

} // namespace Orvane
