#include "harness.h"

#include <zorvaparser/zorvaparser.h>

#include <valueframework/tree.h>

#include <QApplication>
#include <QFile>
#include <QWidget>

#include <cstdio>
#include <cstdlib>

#if defined(__SANITIZE_ADDRESS__)
#define ZORVA_LOOKS_FOR_LEAKS
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZORVA_LOOKS_FOR_LEAKS
#endif
#endif
#ifdef ZORVA_LOOKS_FOR_LEAKS
#include <sanitizer/lsan_interface.h>
#endif

namespace fuzz {

namespace {

/// The first font makes the font library read its configuration. That stays for
/// the process, in blocks that look lost, and is no leak of any input.
void readFontConfiguration()
{
#ifdef ZORVA_LOOKS_FOR_LEAKS
    const __lsan::ScopedDisabler notLookedFor;
#endif
    QApplication::font();
}

} // namespace

void ensureApplication()
{
    static int argumentCount = 1;
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    static QApplication* const application = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        auto* const made = new QApplication(argumentCount, arguments);
        readFontConfiguration();
        return made;
    }();
    Q_UNUSED(application)
}

QByteArray bytesOf(const uint8_t* data, size_t size)
{
    return QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size));
}

QString textOf(const uint8_t* data, size_t size)
{
    return QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(size));
}

LiveForm::LiveForm(const QByteArray& description)
{
    ensureApplication();
    Orvane::ZorvaParser parser;
    m_formular = parser.ParseZORVA(description);
    if (!m_formular)
        return;
    m_formular->SetChangedZORVA(QStringLiteral("<KVParamGui><Script/></KVParamGui>"));
    m_formular->CreateValueTree(QStringLiteral("/fuzz"));
    m_formular->CreateGUI(true);
}

LiveForm::~LiveForm()
{
    if (!m_formular)
        return;
    delete m_formular->GetGUI();
    m_formular.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    require(values::Tree::Instance()->IsEmpty(), "a form takes its values with it");
}

const QByteArray& galleryDescription()
{
    static const QByteArray text = [] {
        QFile file(QStringLiteral(ZORVA_EXAMPLES_DIR "/gallery.zorva"));
        require(file.open(QIODevice::ReadOnly), "the gallery can be read");
        return file.readAll();
    }();
    return text;
}

void require(bool holds, const char* promise)
{
    if (holds)
        return;
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
}

} // namespace fuzz
