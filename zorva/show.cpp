#include "subcommand.h"
#include "terminal.h"
#include "watchdog.h"

#include <author/files/wholefile.h>
#include <author/picture/formstage.h>
#include <author/picture/geometryjson.h>
#include <author/picture/movements.h>
#include <author/picture/pictureseries.h>
#include <author/picture/surroundings.h>

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
    PictureWish wish;
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

/** What is wrong with the places that the results go to; empty if nothing is. */
QString checkOutputs(const Request& request)
{
    if (request.output.isEmpty() && request.geometry.isEmpty() && request.baseline.isEmpty())
        return QStringLiteral("nothing to make: give -o, --geometry or --baseline");
    if (request.wish.isSeries() && request.output == QLatin1String("-"))
        return QStringLiteral("several pictures need -o with a name");
    if (request.output == QLatin1String("-") && request.geometry == QLatin1String("-"))
        return QStringLiteral("one thing at a time can go to the standard output");
    return QString();
}

/** What is wrong with the words; empty if all is well. */
QString readWords(const QStringList& words, Request& request)
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
    request.wish.collapsed = lists(values("collapse"));
    request.look.language = value("language");
    request.look.translationFolders = values("translations");
    request.look.dark = parser.isSet(QStringLiteral("dark"));
    if (parser.isSet(QStringLiteral("style")))
        request.look.style = value("style");
    if (parser.isSet(QStringLiteral("fonts")) && value("fonts") != QLatin1String("bundled"))
        return QStringLiteral("--fonts can be \"bundled\" and nothing else");
    if (!readNumbers(values("width"), 1, FormStage::widest, request.wish.widths))
        return QStringLiteral("--width takes whole numbers of pixels from 1 to %1").arg(FormStage::widest);
    if (!readNumbers(values("font"), FormStage::smallestText, FormStage::largestText, request.wish.fontSizes))
        return QStringLiteral("--font takes whole numbers of points from %1 to %2")
            .arg(FormStage::smallestText)
            .arg(FormStage::largestText);
    if (request.wish.fontSizes.isEmpty())
        request.wish.fontSizes.append(request.look.fontSize);
    return checkOutputs(request);
}

int complain(const QString& message)
{
    return fail(QStringLiteral("show: ") + message);
}

int write(const QString& path, const QByteArray& bytes)
{
    if (path == QLatin1String("-"))
        return printBytes(bytes);
    const QString problem = writeWhole(path, bytes);
    return problem.isEmpty() ? Clean : complain(QStringLiteral("cannot write %1: %2").arg(path, problem));
}

/** Gives the content of the file at @p path, if there is to be one; says so if it cannot be read. */
int read(const QString& path, QByteArray& bytes)
{
    const FileContent content = path.isEmpty() ? FileContent() : readWhole(path);
    bytes = content.bytes;
    return content.isRead()
               ? Clean
               : complain(QStringLiteral("cannot read %1: %2").arg(content.name, content.problem));
}

int readInputs(Request& request, QVector<FormGeometry>& baseline)
{
    QByteArray parameters;
    QByteArray json;
    for (const auto& [path, bytes] :
         {std::make_pair(request.form, &request.wish.description),
          std::make_pair(request.parameters, &parameters), std::make_pair(request.baseline, &json)}) {
        const int code = read(path, *bytes);
        if (code != Clean)
            return code;
    }
    if (request.form != QLatin1String("-"))
        request.wish.name = QFileInfo(request.form).completeBaseName();
    request.wish.parameters = QString::fromUtf8(parameters);
    const ReadGeometry old = request.baseline.isEmpty() ? ReadGeometry() : readGeometryJson(json);
    baseline = old.pictures;
    return old.problem.isEmpty()
               ? Clean
               : complain(QStringLiteral("cannot read %1: %2").arg(request.baseline, old.problem));
}

QString pathOf(const Request& request, const FormGeometry& picture)
{
    if (!request.wish.isSeries() || request.output.isEmpty())
        return request.output;
    const QFileInfo file(request.output);
    const QString name = QStringLiteral("%1-%2-%3pt.png")
                             .arg(file.completeBaseName())
                             .arg(picture.size.width())
                             .arg(picture.fontSize);
    return request.output.contains(QLatin1Char('/')) ? file.path() + QLatin1Char('/') + name : name;
}

int writeResults(const Request& request, PictureSeries& series)
{
    for (int i = 0; i < series.images.size(); ++i) {
        const QString path = pathOf(request, series.geometries.at(i));
        if (path != QLatin1String("-"))
            series.geometries[i].file = QFileInfo(path).fileName();
        const int code = path.isEmpty() ? int(Clean) : write(path, pngOf(series.images.at(i)));
        if (code != Clean)
            return code;
    }
    return request.geometry.isEmpty()
               ? int(Clean)
               : write(request.geometry, geometryJson(request.form, series.geometries));
}

int sayFindings(const Request& request, const PictureSeries& series, const QVector<FormGeometry>& baseline)
{
    QStringList lines;
    for (const FormGeometry& picture : series.geometries) {
        for (const LayoutFinding& finding : picture.findings)
            lines << QStringLiteral("%1: %2: %3 [%4]")
                         .arg(picture.title(), finding.row, finding.message, finding.id);
    }
    if (!request.baseline.isEmpty())
        lines << movements(baseline, series.geometries);
    for (const QString& words : qAsConst(lines)) {
        const QString line = QStringLiteral("%1: %2\n").arg(request.form, words);
        if (request.takesStandardOutput())
            std::fputs(line.toLocal8Bit().constData(), stderr);
        else
            print(line);
    }
    return lines.isEmpty() ? Clean : Findings;
}

int show(Request& request)
{
    const QString unlike =
        bundledFonts && !bundledFonts->problem().isEmpty() ? bundledFonts->problem() : putOn(request.look);
    if (!unlike.isEmpty())
        return complain(unlike);
    QVector<FormGeometry> baseline;
    int code = readInputs(request, baseline);
    if (code != Clean)
        return code;
    PictureSeries series = takePictures(request.wish);
    if (!series.problem.isEmpty())
        return complain(QStringLiteral("%1: %2").arg(request.form, series.problem));
    code = writeResults(request, series);
    return code == Clean ? sayFindings(request, series, baseline) : code;
}

int run(const QStringList& words)
{
    Request request;
    const QString wrong = readWords(words, request);
    if (!wrong.isEmpty())
        return fail(QStringLiteral("show: %1; see \"zorva show --help\"").arg(wrong));
    boundProcessorTime(longestTime, tooLong);
    return show(request);
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
