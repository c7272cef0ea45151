#include "velkappstartup/translationcenter.h"

#include "compoundtranslator_p.h"
#include "translationsearch_p.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QTranslator>

#include <utility>

namespace {

void installTranslations()
{
    TranslationCenter::Instance().InstallAll();
}
Q_COREAPP_STARTUP_FUNCTION(installTranslations)

void announce()
{
    if (!QCoreApplication::instance())
        return;
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(QCoreApplication::instance(), &change);
}

} // namespace

TranslationCenter::TranslationCenter() = default;

TranslationCenter::~TranslationCenter() = default;

TranslationCenter& TranslationCenter::Instance()
{
    static TranslationCenter* const instance = new TranslationCenter; // never destroyed
    return *instance;
}

void TranslationCenter::Register(const QString& context)
{
    Register(QStringList(context));
}

void TranslationCenter::Register(const QStringList& contexts)
{
    TranslationSearch search(m_folders, GetLocale());
    for (const QString& context : contexts) {
        if (context.isEmpty())
            continue;
        Entry& entry = m_entries[context];
        if (++entry.count == 1 && install(context, &search, &entry))
            announceLater();
    }
}

void TranslationCenter::Unregister(const QString& context)
{
    const auto found = m_entries.find(context);
    if (found == m_entries.end() || --found->count > 0)
        return;
    const std::shared_ptr<QTranslator> translator = found->translator;
    m_entries.erase(found);
    if (!translator)
        return;
    if (m_all)
        m_all->Remove(translator);
    announceLater();
}

int TranslationCenter::GetRegistrationCount(const QString& context) const
{
    return m_entries.value(context).count;
}

void TranslationCenter::InstallAll()
{
    m_announcementPosted = false;
    // The application knows only what was installed in it.
    m_all.reset();
    reload();
}

void TranslationCenter::reload()
{
    TranslationSearch search(m_folders, GetLocale());
    for (auto entry = m_entries.begin(); entry != m_entries.end(); ++entry)
        install(entry.key(), &search, &entry.value());
}

void TranslationCenter::AddFolder(const QString& folder)
{
    if (folder.isEmpty())
        return;
    m_folders.removeAll(folder);
    m_folders.prepend(folder);
    reload();
    announce();
}

bool TranslationCenter::RemoveFolder(const QString& folder)
{
    if (m_folders.removeAll(folder) == 0)
        return false;
    reload();
    announce();
    return true;
}

void TranslationCenter::SetLocale(const QLocale& locale)
{
    m_locale = std::make_unique<QLocale>(locale);
    reload();
    announce();
}

QLocale TranslationCenter::GetLocale() const
{
    return m_locale ? *m_locale : QLocale();
}

// True if there are other texts now.
bool TranslationCenter::install(const QString& context, TranslationSearch* search, Entry* entry)
{
    if (!QCoreApplication::instance())
        return false;
    const std::shared_ptr<QTranslator> before = std::exchange(entry->translator, search->Load(context));
    if (m_all)
        m_all->Remove(before);
    if (!entry->translator)
        return before != nullptr;
    installCompound();
    m_all->Add(entry->translator);
    return true;
}

void TranslationCenter::installCompound()
{
    if (m_all)
        return;
    m_all = std::make_unique<CompoundTranslator>();
    // Empty still, so that Qt tells nobody.
    QCoreApplication::installTranslator(m_all.get());
}

// Telling every widget is dear; many forms that are made in a row are one change.
void TranslationCenter::announceLater()
{
    if (m_announcementPosted || !QCoreApplication::instance())
        return;
    m_announcementPosted = true;
    QTimer::singleShot(0, QCoreApplication::instance(), [this] {
        m_announcementPosted = false;
        announce();
    });
}
