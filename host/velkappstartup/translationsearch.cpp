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
    const QString beside = QCoreApplication::applicationDirPath() + QStringLiteral("/translations");
    for (const QString& folder : m_folders + QStringList(beside)) {
        // Most programs have no such folder, and need not ask for languages then.
        if (!QFileInfo(folder).isDir())
            continue;
        if (auto translator = loadFrom(QDir(folder).filePath(context)))
            return translator;
    }
    return nullptr;
}

std::shared_ptr<QTranslator> TranslationSearch::loadFrom(const QString& place)
{
    if (m_endings.isEmpty())
        m_endings = endingsFor(m_locale);
    const auto found = std::find_if(m_endings.cbegin(), m_endings.cend(),
                                    [&](const QString& ending) { return isReadableFile(place + ending); });
    if (found == m_endings.cend())
        return nullptr;
    auto translator = std::make_shared<QTranslator>();
    // An ending of no letters: this file and no other.
    const bool loaded = translator->load(place + *found, QString(), QString(), QLatin1String(""));
    return loaded ? translator : nullptr;
}
