#include "session.h"

#include "formwriter.h"
#include "hamlibdevice.h"
#include "rigctlddevice.h"

#include <hostkit/formrows.h>
#include <zorvaparser/zorvaparser.h>

#include <QFile>
#include <QXmlStreamReader>

namespace radio {

namespace {

constexpr int patience = 2000; // milliseconds for one answer of a daemon

bool fail(QString* error, const QString& why)
{
    *error = why;
    return false;
}

/** Two sessions of one program are two radios: the values of each have a place of their own. */
QString nextPath()
{
    static int count = 0;
    return QStringLiteral("/Radio%1").arg(++count);
}

/** ": line 3, column 7: " and what is wrong there with the XML of a file that is open; empty if nothing is.
 */
QString earlyEnd(QFile& file)
{
    QXmlStreamReader reader(&file);
    while (!reader.atEnd())
        reader.readNext();
    return reader.hasError() ? QStringLiteral(": line %1, column %2: %3")
                                   .arg(reader.lineNumber())
                                   .arg(reader.columnNumber())
                                   .arg(reader.errorString())
                             : QString();
}

std::shared_ptr<RigDevice> localDevice(const CommandLine& commandLine, const QList<Parameter>& parameters)
{
    HamlibSettings settings;
    settings.model = commandLine.model;
    settings.device = commandLine.device;
    settings.config = commandLine.settings;
    return std::make_shared<HamlibDevice>(settings, parameters);
}

} // namespace

QString formFor(const Model& model)
{
    return formFor(model.title(), parametersOf(*model.capabilities));
}

bool Session::prepare(const CommandLine& commandLine, QString* error)
{
    Endpoint endpoint;
    const bool remote = !commandLine.rigctld.isEmpty();
    if (remote && !Endpoint::parse(commandLine.rigctld, &endpoint))
        return fail(error, QStringLiteral("no host and port: %1").arg(commandLine.rigctld));
    rig_model_t number = commandLine.model;
    if (number == 0)
        number = RigctldDevice::modelAt(endpoint, patience, error);
    if (number == 0)
        return fail(error, QStringLiteral("%1: %2").arg(commandLine.rigctld, *error));
    if (!findModel(number, &model))
        return fail(error, QStringLiteral("Hamlib has no model %1").arg(number));

    const QList<Parameter> parameters = parametersOf(*model.capabilities);
    if (remote)
        device = std::make_shared<RigctldDevice>(endpoint, parameters, patience);
    else
        device = localDevice(commandLine, parameters);

    return makeForm(commandLine.form, error);
}

bool Session::makeForm(const QString& fileName, QString* error)
{
    Orvane::ZorvaParser parser;
    if (fileName.isEmpty()) {
        form = parser.ParseZORVA(formFor(model));
    } else {
        QFile file(fileName);
        if (!file.open(QIODevice::ReadOnly))
            return fail(error, QStringLiteral("%1: %2").arg(fileName, file.errorString()));
        const QString ending = earlyEnd(file);
        form = parser.ParseZORVAFile(fileName);
        if (!form || hostkit::rowPaths(*form).isEmpty())
            return fail(error, QStringLiteral("%1 is no form%2").arg(fileName, ending));
        if (!ending.isEmpty())
            damage = QStringLiteral("%1 is shown as far as it goes%2").arg(fileName, ending);
    }
    form->CreateValueTree(nextPath());
    form->CreateGUI(true);
    return true;
}

} // namespace radio
