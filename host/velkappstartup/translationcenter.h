#ifndef ZORVA_TRANSLATIONCENTER_H
#define ZORVA_TRANSLATIONCENTER_H

#include <velkappstartup/velkappstartup_export.h>

#include <QHash>
#include <QLocale>
#include <QString>
#include <QStringList>

#include <memory>

class CompoundTranslator;
class QTranslator;
class TranslationSearch;

/// Which translation contexts are in use in this process. A context counts its
/// registrations; while it has one, `<context>_<locale>.qm` is installed from the
/// first folder that has one: those that the host added, the last one first, then
/// "translations" beside the application. Made on first use and never destroyed,
/// so that code of any library may register while it is loaded; files are read
/// once the application exists. Widgets are told of a change of texts by Qt's
/// event QEvent::LanguageChange.
class VELKAPPSTARTUP_EXPORT TranslationCenter
{
public:
    /// The process's one.
    static TranslationCenter& Instance();
    TranslationCenter(const TranslationCenter&) = delete;
    TranslationCenter& operator=(const TranslationCenter&) = delete;

    /// An empty context is ignored. Texts asked for from now on are translated;
    /// widgets that stand already are told in the next turn of the event loop, once
    /// for all registrations until then.
    void Register(const QString& context);
    /// As one by one, but sooner done: where to look is asked once for all.
    void Register(const QStringList& contexts);
    /// One for each Register; an unknown context is ignored. Widgets as there.
    void Unregister(const QString& context);
    /// 0 for an unknown context.
    int GetRegistrationCount(const QString& context) const;

    /// Loads what was registered before there was an application. Called when
    /// one starts.
    void InstallAll();

    /// Looks into `folder` from now on, before all others, and loads every context
    /// anew; widgets are told at once. One that is there moves to the front, an
    /// empty name is ignored.
    void AddFolder(const QString& folder);
    /// False if it was not added.
    bool RemoveFolder(const QString& folder);
    /// The added folders in the order in which they are looked into.
    const QStringList& GetFolders() const { return m_folders; }

    /// Changes the language: loads every context anew, and tells widgets at once.
    void SetLocale(const QLocale& locale);
    /// Qt's default locale until one was set.
    QLocale GetLocale() const;

private:
    struct Entry
    {
        int count = 0;
        std::shared_ptr<QTranslator> translator; // null: no file, or not tried yet
    };

    TranslationCenter();
    ~TranslationCenter();
    bool install(const QString& context, TranslationSearch* search, Entry* entry);
    void installCompound();
    void reload();
    void announceLater();

    QHash<QString, Entry> m_entries;
    QStringList m_folders;
    std::unique_ptr<QLocale> m_locale;         // null: Qt's default
    std::unique_ptr<CompoundTranslator> m_all; // null until the first file is there
    bool m_announcementPosted = false;
};

#endif
