#include "zorvatest.h"

#include <velkappstartup/velkapplication.h>
#include <vkbase/errorhandler.h>
#include <vkbase/qtrace.h>
#include <zorvaparser/zorvaparser.h>

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTabWidget>
#include <QXmlStreamReader>

#include <cstdio>

namespace Orvane {

namespace {

// What precedes the path belongs to the host's start-up.
constexpr int pathArgument = 4;
constexpr int optionArgument = 5;

QString parameterFileName()
{
    return QStringLiteral("ZorvaTest_test.xml");
}

/** Replaces the parameter file as a whole or not at all; the reason of a failure, otherwise empty. */
QString storeParameters(const QString& xml)
{
    const QByteArray bytes = xml.toUtf8();
    QSaveFile file(parameterFileName());
    // A write is only buffered and commit() does not look whether the rest got out.
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
    return written && file.commit() ? QString() : file.errorString();
}

void reportStoreFailure(const QString& reason)
{
    const QString message =
        QStringLiteral("Cannot store the parameters in %1: %2")
            .arg(QDir::toNativeSeparators(QFileInfo(parameterFileName()).absoluteFilePath()), reason);
    if (ErrorHandler::Instance().GetTraceMask() & ErrorHandler::TraceErrors)
        _Q_Trace(message, QStringLiteral("zorvatest"), __LINE__);
    std::fprintf(stderr, "%s\n", message.toLocal8Bit().constData());
}

} // namespace

QSize ZorvaTestMain::sizeHint() const
{
    return {500, 800};
}

void ZorvaTestMain::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
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
    if (path.endsWith(QLatin1String(".zorva"))) {
        LoadZorva(path, arguments.value(optionArgument));
        ReadStoredParameters();
    } else {
        LoadComponentList(path);
    }
    return true;
}

void ZorvaTest::LoadZorva(const QString& path, const QString& option)
{
    ZorvaParser parser;
    const ShownForm form(parser.ParseZORVAFile(path));
    if (!form) {
        qDebug().noquote() << QStringLiteral("** LoadZorva: Cannot load %1\n").arg(path);
        return;
    }

    ShownForms().append(form);
    formular = form.data();
    // The debugger has to be there before the script runs.
    if (option == QLatin1String("debug"))
        form->DebugScript();
    form->CreateValueTree(QStringLiteral("/ZorvaTest"));
    form->CreateGUI(true);
    connect(form.data(), &ZorvaFormular::si_parametersModified, this, &ZorvaTest::sl_parametersModified);
    mainWindow->setCentralWidget(form->GetGUI());
    form->Show();
    mainWindow->show();
}

void ZorvaTest::ReadStoredParameters()
{
    if (!formular)
        return;
    QFile file(parameterFileName());
    QByteArray bytes;
    if (file.open(QIODevice::ReadOnly))
        bytes = file.readAll();
    formular->SetXmlString(QString::fromUtf8(bytes));
}

void ZorvaTest::sl_parametersModified()
{
    if (!formular)
        return;
    const QString reason = storeParameters(formular->GetXmlString(false));
    if (!reason.isEmpty())
        reportStoreFailure(reason);
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
