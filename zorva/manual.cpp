#include "subcommand.h"
#include "terminal.h"
#include "watchdog.h"

#include <author/files/wholefile.h>
#include <author/manual/grouppictures.h>
#include <author/manual/manualpage.h>
#include <author/parameters/settingsform.h>
#include <author/picture/formstage.h>
#include <author/picture/pictureseries.h>
#include <author/picture/surroundings.h>

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

#include <memory>

using namespace Orvane::Author;

namespace {

constexpr int longestTime = 60; // seconds of processor time
const char* const tooLong = "zorva: manual: the form's script does not come to an end\n";

std::unique_ptr<BundledFonts> bundledFonts; // outlives the application

void prepare(const QStringList&)
{
    forgetDesktop();
    bundledFonts = std::make_unique<BundledFonts>();
}

int complain(const QString& message)
{
    return fail(QStringLiteral("manual: ") + message);
}

struct Request
{
    QString folder;
    QString title; // empty: from the form
    Look look;
};

QString read(const QStringList& words, Request& request)
{
    QCommandLineParser parser;
    const QCommandLineOption folder(QStringLiteral("o"), QString(), QStringLiteral("DIR"));
    const QCommandLineOption title(QStringLiteral("title"), QString(), QStringLiteral("TITLE"));
    const QCommandLineOption language(QStringLiteral("language"), QString(), QStringLiteral("L"));
    const QCommandLineOption translations(QStringLiteral("translations"), QString(), QStringLiteral("DIR"));
    parser.addOptions({folder, title, language, translations});
    if (!parser.parse(QStringList(QStringLiteral("zorva")) + words))
        return parser.errorText();
    const QStringList forms = parser.positionalArguments();
    if (forms.size() != 1)
        return forms.isEmpty() ? QStringLiteral("no form given") : QStringLiteral("one form at a time");
    request.look.form = forms.first();
    request.look.language = parser.value(language);
    request.look.translationFolders = parser.values(translations);
    request.folder = parser.value(folder);
    request.title = parser.value(title);
    return request.folder.isEmpty() ? QStringLiteral("no folder given: -o DIR") : QString();
}

/** The manual of one form, file by file. */
class Binding
{
public:
    explicit Binding(Request request)
        : m_request(std::move(request))
    {
    }

    int run()
    {
        const QString wrong =
            bundledFonts->problem().isEmpty() ? putOn(m_request.look) : bundledFonts->problem();
        if (!wrong.isEmpty())
            return complain(wrong);
        const FileContent content = readWhole(m_request.look.form);
        if (!content.isRead())
            return complain(QStringLiteral("cannot read %1: %2").arg(content.name, content.problem));
        const bool isFile = m_request.look.form != QLatin1String("-");
        const QString name = isFile ? QFileInfo(m_request.look.form).completeBaseName() : QString();
        const SettingsForm settings(SourceText(content.bytes).engineBytes(), name);
        FormStage stage(content.bytes, FormStage::WithoutBar, name);
        if (!stage.exists() || !settings.exists())
            return complain(QStringLiteral("%1 holds no form").arg(content.name));
        const QString sheet = settings.form().GetSheet().GetName();
        const QString title = name.isEmpty() ? sheet : name;
        return write(manualOf(settings, m_request.title.isEmpty() ? title : m_request.title), stage);
    }

private:
    int write(const Manual& manual, FormStage& stage)
    {
        if (!QDir().mkpath(m_request.folder))
            return complain(QStringLiteral("cannot make the folder %1").arg(m_request.folder));
        const QHash<QString, QImage> images = groupPictures(stage);
        QVector<ManualPicture> pictures;
        int worst = Clean;
        for (int i = 0; i < manual.groups.size(); ++i) {
            const QString& name = manual.groups.at(i).name;
            const QImage image = images.value(name);
            ManualPicture picture;
            if (!image.isNull()) {
                picture = {manualAnchor(name, i + 1) + QStringLiteral(".png"), image.size() / pictureScale};
                worst = qMax(worst, put(picture.file, pngOf(image)));
            }
            pictures.append(picture);
        }
        worst = qMax(worst, put(QStringLiteral("style.css"), manualStyle()));
        return worst == Clean
                   ? put(QStringLiteral("index.html"), manualPage(manual, m_request.look.language, pictures))
                   : worst;
    }

    int put(const QString& name, const QByteArray& bytes) const
    {
        const QString path = QDir(m_request.folder).filePath(name);
        const QString problem = writeWhole(path, bytes);
        return problem.isEmpty() ? Clean : complain(QStringLiteral("cannot write %1: %2").arg(path, problem));
    }

    const Request m_request;
};

int run(const QStringList& words)
{
    Request request;
    const QString wrong = read(words, request);
    if (!wrong.isEmpty())
        return fail(QStringLiteral("manual: %1; see \"zorva manual --help\"").arg(wrong));
    boundProcessorTime(longestTime, tooLong);
    return Binding(request).run();
}

} // namespace

const Subcommand manualCommand = {
    "manual",
    "writes the operator's reference of a form",
    "Usage: zorva manual FORM -o DIR [OPTION...]\n"
    "Writes the operator's reference of a form into a folder: index.html, its style sheet,\n"
    "and a picture of each group. Of each row it tells the help, the range in the\n"
    "operator's unit, step, choices, default and the place in parameter XML. Needs no\n"
    "network, prints well, and is the same bytes in each run. FORM may be - for the\n"
    "standard input.\n"
    "\n"
    "  -o DIR              the folder; it is made if it is not there\n"
    "  --title TITLE       instead of the name of the form\n"
    "  --language L        in that language, as in de or de_CH: FORM_L.qm beside the form;\n"
    "                      the words of the manual itself come in German and French\n"
    "  --translations DIR  look for it there; may be repeated\n",
    Subcommand::Forms,
    run,
    prepare,
};
