#include "session.h"

#include "formwriter.h"
#include "hamlibdevice.h"
#include "rigctlddevice.h"

#include <zorvaparser/zorvaparser.h>

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

    Orvane::ZorvaParser parser;
    if (commandLine.form.isEmpty())
        form = parser.ParseZORVA(formFor(model));
    else
        form = parser.ParseZORVAFile(commandLine.form);
    if (!form)
        return fail(error, QStringLiteral("%1 is no form").arg(commandLine.form));
    form->CreateValueTree(nextPath());
    form->CreateGUI(true);
    return true;
}

} // namespace radio
