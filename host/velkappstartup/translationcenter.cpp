#include "velkappstartup/translationcenter.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

namespace {

void installTranslations()
{
    TranslationCenter::Instance().InstallAll();
}
Q_COREAPP_STARTUP_FUNCTION(installTranslations)

} // namespace

TranslationCenter& TranslationCenter::Instance()
{
    static TranslationCenter* const instance = new TranslationCenter; // never destroyed
    return *instance;
}

void TranslationCenter::Register(const QString& context)
{
    if (context.isEmpty())
        return;
    Entry& entry = m_entries[context];
    if (++entry.count == 1)
        install(context, &entry);
}

void TranslationCenter::Unregister(const QString& context)
{
    const auto found = m_entries.find(context);
    if (found == m_entries.end() || --found->count > 0)
        return;
    m_entries.erase(found); // the translator takes itself out of the application
}

int TranslationCenter::GetRegistrationCount(const QString& context) const
{
    return m_entries.value(context).count;
}

void TranslationCenter::InstallAll()
{
    for (auto entry = m_entries.begin(); entry != m_entries.end(); ++entry)
        install(entry.key(), &entry.value());
}

void TranslationCenter::install(const QString& context, Entry* entry)
{
    if (!QCoreApplication::instance())
        return;
    const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/translations");
    auto translator = std::make_shared<QTranslator>();
    if (!translator->load(QLocale(), context, QStringLiteral("_"), folder, QStringLiteral(".qm")))
        return;
    QCoreApplication::installTranslator(translator.get());
    entry->translator = translator;
}
