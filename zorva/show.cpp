#include "subcommand.h"
#include "terminal.h"
#include "watchdog.h"

#include <author/files/wholefile.h>
#include <author/picture/formstage.h>
#include <author/picture/geometryjson.h>
#include <author/picture/layoutlints.h>
#include <author/picture/movements.h>
#include <author/picture/surroundings.h>

#include <QBuffer>
#include <QCommandLineParser>
#include <QFileInfo>

#include <cstdio>
#include <memory>

using namespace Orvane::Author;

namespace {

constexpr int longestTime = 60; // seconds of processor time
const char* const tooLong = "zorva: show: the form's script does not come to an end\n";

std::unique_ptr<BundledFonts> bundledFonts; // outlives the application

void prepare(const QStringList& arguments)
{
    forgetDesktop();
    for (int i = 0; i < arguments.size(); ++i) {
        const bool isBundled = arguments.at(i) == QLatin1String("--fonts=bundled") ||
                               (arguments.at(i) == QLatin1String("--fonts") &&
                                arguments.value(i + 1) == QLatin1String("bundled"));
        if (isBundled && !bundledFonts)
            bundledFonts = std::make_unique<BundledFonts>();
    }
}

struct Request
{
    QString form;
    QString output;
    QString geometry;
    QString baseline;
    QString parameters;
    QStringList collapsed;
    QVector<int> widths;    // empty: as wide as the form opens
    QVector<int> fontSizes; // never empty
    Look look;

    /** Whether a document goes where findings would go. */
    bool takesStandardOutput() const
    {
        return output == QLatin1String("-") || geometry == QLatin1String("-");
    }
};

bool readNumbers(const QStringList& texts, int least, int most, QVector<int>& numbers)
{
    for (const QString& text : texts.join(QLatin1Char(',')).split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        bool ok = false;
        const int number = text.toInt(&ok);
        if (!ok || number < least || number > most)
            return false;
        if (!numbers.contains(number))
            numbers.append(number);
    }
    return true;
}

QCommandLineOption valued(const char* name)
{
    return QCommandLineOption(QString::fromLatin1(name), QString(), QStringLiteral("VALUE"));
}

QStringList lists(const QStringList& values)
{
    return values.join(QLatin1Char(',')).split(QLatin1Char(','), Qt::SkipEmptyParts);
}

/** What is wrong with the words; empty if all is well. */
QString read(const QStringList& words, Request& request)
{
    QCommandLineParser parser;
    for (const char* const name : {"o", "width", "font", "language", "translations", "style", "collapse",
                                   "parameters", "fonts", "geometry", "baseline"})
        parser.addOption(valued(name));
    parser.addOption(QCommandLineOption(QStringLiteral("dark")));
    if (!parser.parse(QStringList(QStringLiteral("zorva")) + words))
        return parser.errorText();
    const auto value = [&](const char* name) { return parser.value(QString::fromLatin1(name)); };
    const auto values = [&](const char* name) { return parser.values(QString::fromLatin1(name)); };
    const QStringList forms = parser.positionalArguments();
    if (forms.size() != 1)
        return forms.isEmpty() ? QStringLiteral("no form given") : QStringLiteral("one form at a time");
    request.form = request.look.form = forms.first();
    request.output = value("o");
    request.geometry = value("geometry");
    request.baseline = value("baseline");
    request.parameters = value("parameters");
    request.collapsed = lists(values("collapse"));
    request.look.language = value("language");
    request.look.translationFolders = values("translations");
    request.look.dark = parser.isSet(QStringLiteral("dark"));
    if (parser.isSet(QStringLiteral("style")))
        request.look.style = value("style");
    if (parser.isSet(QStringLiteral("fonts")) && value("fonts") != QLatin1String("bundled"))
        return QStringLiteral("--fonts can be \"bundled\" and nothing else");
    if (!readNumbers(values("width"), 1, FormStage::widest, request.widths))
        return QStringLiteral("--width takes whole numbers of pixels from 1 to %1").arg(FormStage::widest);
    if (!readNumbers(values("font"), FormStage::smallestText, FormStage::largestText, request.fontSizes))
        return QStringLiteral("--font takes whole numbers of points from %1 to %2")
            .arg(FormStage::smallestText)
            .arg(FormStage::largestText);
    if (request.fontSizes.isEmpty())
        request.fontSizes.append(request.look.fontSize);
    if (request.output.isEmpty() && request.geometry.isEmpty() && request.baseline.isEmpty())
        return QStringLiteral("nothing to make: give -o, --geometry or --baseline");
    const bool several = request.widths.size() > 1 || request.fontSizes.size() > 1;
    if (several && request.output == QLatin1String("-"))
        return QStringLiteral("several pictures need -o with a name");
    if (request.output == QLatin1String("-") && request.geometry == QLatin1String("-"))
        return QStringLiteral("one thing at a time can go to the standard output");
    return QString();
}

QString write(const QString& path, const QByteArray& bytes)
{
    if (path != QLatin1String("-"))
        return writeWhole(path, bytes);
    return printBytes(bytes) == Clean ? QString() : QStringLiteral("it is closed");
}

/** The translations of a form are in files of its name. */
QString contextOf(const QString& form)
{
    return form == QLatin1String("-") ? QString() : QFileInfo(form).completeBaseName();
}

/** Makes the pictures one after the other on one stage. */
class Show
{
public:
    explicit Show(Request request)
        : m_request(std::move(request))
    {
    }

    int run()
    {
        const int before = readInputs();
        if (before != Clean)
            return before;
        FormStage stage(m_description, FormStage::WithBar, contextOf(m_request.form));
        if (!stage.exists())
            return complain(QStringLiteral("%1 holds no form").arg(m_form));
        if (!m_request.parameters.isEmpty())
            stage.form().SetXmlString(QString::fromUtf8(m_parameters));
        const QStringList unknown = stage.collapse(m_request.collapsed);
        if (!unknown.isEmpty())
            return complain(QStringLiteral("there is no group \"%1\"").arg(unknown.first()));
        for (const int fontSize : qAsConst(m_request.fontSizes)) {
            stage.setTextSize(fontSize);
            const QVector<int> widths =
                m_request.widths.isEmpty() ? QVector<int>{stage.openingWidth()} : m_request.widths;
            for (const int width : widths) {
                const int made = take(stage, width, fontSize);
                if (made != Clean)
                    return made;
            }
        }
        return finish();
    }

private:
    int readInputs()
    {
        if (bundledFonts && !bundledFonts->problem().isEmpty())
            return complain(QStringLiteral("cannot put the fonts in place: %1").arg(bundledFonts->problem()));
        const QString wrong = putOn(m_request.look);
        if (!wrong.isEmpty())
            return complain(wrong);
        const FileContent form = readWhole(m_request.form);
        m_form = form.name;
        m_description = form.bytes;
        if (!form.isRead())
            return complain(QStringLiteral("cannot read %1: %2").arg(form.name, form.problem));
        const int code = readAside(m_request.parameters, m_parameters);
        return code == Clean ? readBaseline() : code;
    }

    int readAside(const QString& path, QByteArray& bytes)
    {
        if (path.isEmpty())
            return Clean;
        const FileContent content = readWhole(path);
        bytes = content.bytes;
        return content.isRead() ? Clean
                                : complain(QStringLiteral("cannot read %1: %2").arg(path, content.problem));
    }

    int readBaseline()
    {
        QByteArray json;
        const int code = readAside(m_request.baseline, json);
        if (code != Clean || m_request.baseline.isEmpty())
            return code;
        const ReadGeometry baseline = readGeometryJson(json);
        m_baseline = baseline.pictures;
        return baseline.problem.isEmpty()
                   ? Clean
                   : complain(QStringLiteral("cannot read %1: %2").arg(m_request.baseline, baseline.problem));
    }

    int take(FormStage& stage, int width, int fontSize)
    {
        const QSize size = stage.arrange(width);
        if (size.width() > width)
            return complain(QStringLiteral("the form is never narrower than %1 pixels; give more --width")
                                .arg(size.width()));
        if (size.height() >= FormStage::tallest)
            return complain(QStringLiteral("the picture would be higher than %1 pixels; give more --width")
                                .arg(FormStage::tallest));
        FormGeometry geometry = geometryOf(stage);
        geometry.fontSize = fontSize;
        geometry.findings = layoutFindings(geometry);
        const QString path = pathOf(size.width(), fontSize);
        geometry.file = path == QLatin1String("-") ? QString() : QFileInfo(path).fileName();
        m_pictures.append(geometry);
        return path.isEmpty() ? Clean : save(stage, path);
    }

    QString pathOf(int width, int fontSize) const
    {
        const bool several = m_request.widths.size() > 1 || m_request.fontSizes.size() > 1;
        if (!several || m_request.output.isEmpty())
            return m_request.output;
        const QFileInfo file(m_request.output);
        const QString name =
            QStringLiteral("%1-%2-%3pt.png").arg(file.completeBaseName()).arg(width).arg(fontSize);
        return m_request.output.contains(QLatin1Char('/')) ? file.path() + QLatin1Char('/') + name : name;
    }

    int save(const FormStage& stage, const QString& path)
    {
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        if (!stage.picture().save(&buffer, "PNG"))
            return complain(QStringLiteral("cannot make the picture"));
        return writeTo(path, png);
    }

    int writeTo(const QString& path, const QByteArray& bytes)
    {
        const QString problem = write(path, bytes);
        return problem.isEmpty() ? Clean : complain(QStringLiteral("cannot write %1: %2").arg(path, problem));
    }

    int finish()
    {
        if (!m_request.geometry.isEmpty()) {
            const int code = writeTo(m_request.geometry, geometryJson(m_request.form, m_pictures));
            if (code != Clean)
                return code;
        }
        for (const FormGeometry& picture : qAsConst(m_pictures)) {
            for (const LayoutFinding& finding : picture.findings)
                say(QStringLiteral("%1: %2: %3 [%4]")
                        .arg(picture.title(), finding.row, finding.message, finding.id));
        }
        if (!m_request.baseline.isEmpty()) {
            for (const QString& words : movements(m_baseline, m_pictures))
                say(words);
        }
        return m_said ? Findings : Clean;
    }

    void say(const QString& words)
    {
        m_said = true;
        const QString line = QStringLiteral("%1: %2\n").arg(m_form, words);
        if (m_request.takesStandardOutput())
            std::fputs(line.toLocal8Bit().constData(), stderr);
        else
            print(line);
    }

    static int complain(const QString& message) { return fail(QStringLiteral("show: ") + message); }

    const Request m_request;
    QString m_form; // for messages
    QByteArray m_description;
    QByteArray m_parameters;
    QVector<FormGeometry> m_baseline;
    QVector<FormGeometry> m_pictures;
    bool m_said = false;
};

int run(const QStringList& words)
{
    Request request;
    const QString wrong = read(words, request);
    if (!wrong.isEmpty())
        return fail(QStringLiteral("show: %1; see \"zorva show --help\"").arg(wrong));
    boundProcessorTime(longestTime, tooLong);
    return Show(request).run();
}

} // namespace

const Subcommand showCommand = {
    "show",
    "draws a form without a screen, and tells what moved",
    "Usage: zorva show FORM [-o OUT.png] [--geometry OUT.json] [--baseline OLD.json]\n"
    "                  [OPTION...]\n"
    "Draws a form as zorvashell shows it, without a screen, as tall as its rows are. Says\n"
    "what an operator would stumble over: cut captions and texts, controls that lie over\n"
    "each other, rows wider than the area, columns without rows. FORM may be - for the\n"
    "standard input. At least one of the first three options is needed:\n"
    "\n"
    "  -o OUT.png            the picture; \"-\" is the standard output\n"
    "  --geometry OUT.json   where each row stands: caption, control, column, section\n"
    "  --baseline OLD.json   an earlier geometry: says in words what moved since\n"
    "\n"
    "  --width W,...         in pixels; without it, as wide as the form opens\n"
    "  --font PT,...         size of texts in points (9). Several widths or sizes make\n"
    "                        several pictures, OUT-W-PTpt.png\n"
    "  --fonts bundled       draw with the fonts of this program instead of those that are\n"
    "                        installed: the same picture on each machine\n"
    "  --language L          in that language, as in de or de_CH: FORM_L.qm beside the form\n"
    "  --translations DIR    look for it there; may be repeated\n"
    "  --style S             another style than fusion\n"
    "  --dark                light on dark\n"
    "  --collapse GROUP,...  with these headlines closed, by name\n"
    "  --parameters P.xml    with these parameters\n"
    "\n"
    "Ends with 0 if all is well, 1 if something moved or is wrong with the layout, 2 if it\n"
    "could not be done.\n",
    Subcommand::Forms,
    run,
    prepare,
};
