#ifndef ZORVA_TRANSLATIONSEARCH_P_H
#define ZORVA_TRANSLATIONSEARCH_P_H

#include <QLocale>
#include <QStringList>

#include <memory>

class QTranslator;

/// Finds the files of contexts by the names and in the order in which
/// QTranslator::load tries them for a locale. Qt asks the system for the user's
/// languages in each call, which took a fiftieth of a program's start; here they are
/// asked for once for many contexts, and only if there is a folder to look into.
class TranslationSearch
{
public:
    /// Looks into `folders` in this order, then into "translations" beside the
    /// application.
    TranslationSearch(const QStringList& folders, const QLocale& locale);

    /// The first file that is there, null if there is none or it is not sound; in
    /// that case the next folder is tried. Needs an application.
    std::shared_ptr<QTranslator> Load(const QString& context);

private:
    std::shared_ptr<QTranslator> loadFrom(const QString& place);

    const QLocale m_locale;
    const QStringList m_folders;
    QStringList m_endings; // of a file's name behind its context; empty until first needed
};

#endif
