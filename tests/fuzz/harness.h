#ifndef ZORVA_TESTS_FUZZ_HARNESS_H
#define ZORVA_TESTS_FUZZ_HARNESS_H

#include <zorvaparser/zorvaformular.h>

#include <QByteArray>
#include <QExplicitlySharedDataPointer>
#include <QString>

#include <cstddef>
#include <cstdint>

class QWidget;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

/// What all fuzz targets share: an application without a screen, silence on
/// standard error, and a live form to throw things at.
namespace fuzz {

/// Makes the application object at the first call.
void ensureApplication();
QByteArray bytesOf(const uint8_t* data, size_t size);
QString textOf(const uint8_t* data, size_t size);

/// A form with values below "/fuzz" and with widgets; null pointers if @p description holds none.
/// The script of the description is not run: one that never ends is no finding.
class LiveForm
{
public:
    explicit LiveForm(const QByteArray& description);
    LiveForm(const LiveForm&) = delete;
    LiveForm& operator=(const LiveForm&) = delete;
    ~LiveForm();

    explicit operator bool() const { return static_cast<bool>(m_formular); }
    Orvane::ZorvaFormular* operator->() const { return m_formular.data(); }

private:
    QExplicitlySharedDataPointer<Orvane::ZorvaFormular> m_formular;
};

/// The text of examples/gallery.zorva: every control kind.
const QByteArray& galleryDescription();

/// Stops the run, as a failed assertion does: the input broke a promise.
void require(bool holds, const char* promise);

} // namespace fuzz

#endif
