#include "commandline.h"

namespace radio {

namespace {

/** Walks over the arguments, which may be "--name value" or "--name=value". */
class Arguments
{
public:
    explicit Arguments(const QStringList& all)
        : m_rest(all.mid(1))
    {
    }

    bool isEmpty() const { return m_rest.isEmpty(); }
    /** The next argument; of "--name=value" the name, the value then being the next. */
    QString take()
    {
        const QString next = m_rest.takeFirst();
        const int equals = next.startsWith(QLatin1String("--")) ? next.indexOf(QLatin1Char('=')) : -1;
        if (equals < 0)
            return next;
        m_rest.prepend(next.mid(equals + 1));
        return next.left(equals);
    }
    bool takeValue(QString* value)
    {
        if (m_rest.isEmpty())
            return false;
        *value = m_rest.takeFirst();
        return true;
    }
    bool hasPlainNext() const { return !m_rest.isEmpty() && !m_rest.first().startsWith(QLatin1Char('-')); }

private:
    QStringList m_rest;
};

bool fail(QString* error, const QString& why)
{
    *error = why;
    return false;
}

bool takeSetting(const QString& text, CommandLine* result)
{
    const int equals = text.indexOf(QLatin1Char('='));
    if (equals < 1)
        return false;
    result->settings.append({text.left(equals), text.mid(equals + 1)});
    return true;
}

/** Options that need a value. */
bool takeOption(const QString& name, const QString& value, CommandLine* result, QString* error)
{
    bool ok = true;
    if (name == QLatin1String("-o") || name == QLatin1String("--output"))
        result->output = value;
    else if (name == QLatin1String("--model") || name == QLatin1String("-m"))
        result->model = value.toUInt(&ok);
    else if (name == QLatin1String("--device") || name == QLatin1String("-r"))
        result->device = value;
    else if (name == QLatin1String("--set"))
        ok = takeSetting(value, result);
    else if (name == QLatin1String("--rigctld"))
        result->rigctld = value;
    else if (name == QLatin1String("--restore"))
        result->restore = value;
    else if (name == QLatin1String("--save")) {
        result->task = CommandLine::Save;
        result->output = value;
    } else {
        return fail(error, QStringLiteral("unknown option: %1").arg(name));
    }
    return ok || fail(error, QStringLiteral("%1 makes no sense for %2").arg(value, name));
}

bool checkTogether(const CommandLine& result, QString* error)
{
    if (result.task == CommandLine::WriteForm && (result.output.isEmpty() || result.model == 0))
        return fail(error, QStringLiteral("--form needs -o FILE and --model N"));
    const bool operates = result.task == CommandLine::Operate || result.task == CommandLine::Save;
    if (operates && result.model == 0 && result.rigctld.isEmpty())
        return fail(error, QStringLiteral("which radio? Give --model N or --rigctld HOST:PORT"));
    if (!result.rigctld.isEmpty() && !result.device.isEmpty())
        return fail(error, QStringLiteral("--device and --rigctld exclude each other"));
    return true;
}

} // namespace

bool CommandLine::parse(const QStringList& all, CommandLine* result, QString* error)
{
    Arguments arguments(all);
    while (!arguments.isEmpty()) {
        const QString name = arguments.take();
        if (name == QLatin1String("--help") || name == QLatin1String("-h")) {
            result->task = Help;
            return true;
        }
        if (name == QLatin1String("--version")) {
            result->task = Version;
            return true;
        }
        if (name == QLatin1String("--list")) {
            result->task = List;
            if (arguments.hasPlainNext())
                arguments.takeValue(&result->pattern);
        } else if (name == QLatin1String("--form")) {
            result->task = WriteForm;
        } else if (!name.startsWith(QLatin1Char('-'))) {
            if (!result->form.isEmpty())
                return fail(error, QStringLiteral("more than one form: %1").arg(name));
            result->form = name;
        } else {
            QString value;
            if (!arguments.takeValue(&value))
                return fail(error, QStringLiteral("%1 needs a value").arg(name));
            if (!takeOption(name, value, result, error))
                return false;
        }
    }
    return checkTogether(*result, error);
}

QString CommandLine::help()
{
    return QStringLiteral(
        "Usage: zorva-rig --list [PATTERN]\n"
        "       zorva-rig --form -o FILE.zorva --model N\n"
        "       zorva-rig --model N [--device PATH] [--set NAME=VALUE]... [FORM.zorva]\n"
        "       zorva-rig --rigctld HOST:PORT [--model N] [FORM.zorva]\n"
        "       zorva-rig --model N --save|--restore FILE\n"
        "\n"
        "Operates a radio through Hamlib, on a form.\n"
        "\n"
        "  --list [PATTERN]     list the models whose number, maker or name has PATTERN in it\n"
        "  --form               write a form description for a model\n"
        "  -o, --output FILE    where to; - is standard output\n"
        "  -m, --model N        the radio's number in the list; 1 is Hamlib's dummy\n"
        "  -r, --device PATH    the serial port, /dev/ttyUSB0 say, or the radio's host\n"
        "  --set NAME=VALUE     a setting of Hamlib, such as serial_speed=19200\n"
        "  --rigctld HOST:PORT  a radio behind Hamlib's daemon\n"
        "  --save FILE          store the radio's settings, without a window\n"
        "  --restore FILE       review stored settings, and send those that are chosen\n"
        "  -h, --help           this text\n"
        "  --version            the version\n");
}

} // namespace radio
