#ifndef ZORVA_TRANSLATIONCENTER_H
#define ZORVA_TRANSLATIONCENTER_H

#include <velkappstartup/velkappstartup_export.h>

#include <QHash>
#include <QString>

#include <memory>

class QTranslator;

/// Which translation contexts are in use in this process. A context counts its
/// registrations; while it has one, <context>_<locale>.qm from the folder
/// "translations" beside the application is installed, where there is one.
/// Made on first use and never destroyed, so that code of any library may
/// register while it is loaded; files are read once the application exists.
class VELKAPPSTARTUP_EXPORT TranslationCenter
{
public:
    static TranslationCenter& Instance();
    TranslationCenter(const TranslationCenter&) = delete;
    TranslationCenter& operator=(const TranslationCenter&) = delete;

    /// An empty context is ignored.
    void Register(const QString& context);
    /// One for each Register; an unknown context is ignored.
    void Unregister(const QString& context);
    /// 0 for an unknown context.
    int GetRegistrationCount(const QString& context) const;

    /// Loads what was registered before there was an application. Called when
    /// one starts.
    void InstallAll();

private:
    struct Entry
    {
        int count = 0;
        std::shared_ptr<QTranslator> translator; // null: no file, or not tried yet
    };

    TranslationCenter() = default;
    ~TranslationCenter() = default;
    static void install(const QString& context, Entry* entry);

    QHash<QString, Entry> m_entries;
};

#endif
