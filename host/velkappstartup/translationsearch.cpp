#include "translationsearch_p.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTranslator>

#include <algorithm>

namespace {

QStringList withLowerCase(const QStringList& languages)
{
    QStringList names;
    for (const QString& language : languages) {
        names << language;
        if (language.toLower() != language)
            names << language.toLower();
    }
    return names;
}

/** For "de-Latn-DE": that, "de_Latn" and "de", each with and without the suffix. */
QStringList endingsFor(QString language)
{
    QStringList endings;
    language.replace(QLatin1Char('-'), QLatin1Char('_'));
    for (int length = language.size(); length > 0;
         length = language.lastIndexOf(QLatin1Char('_'), length - 1)) {
        language.truncate(length);
        endings << QStringLiteral("_%1.qm").arg(language) << QLatin1Char('_') + language;
    }
    return endings;
}

QStringList endingsFor(const QLocale& locale)
{
    QStringList endings;
    for (const QString& language : withLowerCase(locale.uiLanguages()))
        endings << endingsFor(language);
    return endings << QStringLiteral(".qm") << QStringLiteral("_") << QString();
}

bool isReadableFile(const QString& path)
{
    const QFileInfo file(path);
    return file.isReadable() && file.isFile();
}

} // namespace

TranslationSearch::TranslationSearch(const QStringList& folders, const QLocale& locale)
    : m_locale(locale)
    , m_folders(folders)
{
}

std::shared_ptr<QTranslator> TranslationSearch::Load(const QString& context)
{
    prepare();
    for (const QString& folder : qAsConst(m_folders)) {
        const QString place = QDir(folder).filePath(context);
        for (const QString& ending : qAsConst(m_endings)) {
            const QString path = place + ending;
            if (!isReadableFile(path))
                continue;
            auto translator = std::make_shared<QTranslator>();
            // An ending of no letters: this file and no other.
            if (translator->load(path, QString(), QString(), QLatin1String("")))
                return translator;
            break;
        }
    }
    return nullptr;
}

void TranslationSearch::prepare()
{
    if (!m_endings.isEmpty())
        return;
    m_folders << QCoreApplication::applicationDirPath() + QStringLiteral("/translations");
    const auto isMissing = [](const QString& folder) { return !QFileInfo(folder).isDir(); };
    m_folders.erase(std::remove_if(m_folders.begin(), m_folders.end(), isMissing), m_folders.end());
    m_endings = endingsFor(m_locale);
}
