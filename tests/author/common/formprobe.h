#ifndef ZORVA_TESTS_FORMPROBE_H
#define ZORVA_TESTS_FORMPROBE_H

#include <zorvaparser/zorvaformular.h>

#include <QExplicitlySharedDataPointer>
#include <QMap>
#include <QPair>
#include <QStringList>

/// Everything that a host or a user can see of one live form, through public headers
/// alone: two descriptions that make the same form give the same lines.
class FormProbe
{
public:
    /// Parsed, bound below "/probe", built with an apply bar and shown.
    explicit FormProbe(const QByteArray& description);
    FormProbe(const FormProbe&) = delete;
    FormProbe& operator=(const FormProbe&) = delete;
    ~FormProbe();

    /// False if the text made no form at all.
    bool isLive() const { return m_formular; }
    Orvane::ZorvaFormular& formular() const { return *m_formular; }

    /// Rows, values, parameter XML, controls with their geometry, enumerations, script.
    QStringList observe() const;
    /// Types and steps in every control, and observes behind each key.
    QStringList operate();

private:
    QStringList observeRows() const;
    QStringList observeControls() const;
    QStringList observeValues() const;

    QExplicitlySharedDataPointer<Orvane::ZorvaFormular> m_formular;
};

/// Properties by name, each with its type element and text.
using ProbeProperties = QMap<QString, QPair<QString, QString>>;

/// A description of one row between two others, with two enumerations.
QByteArray probeDescription(const QString& className, const ProbeProperties& plain,
                            const ProbeProperties& custom = {});
/// A description of a sheet with one row that takes part in parameter XML.
QByteArray probeSheet(const ProbeProperties& plain, const ProbeProperties& custom = {});

#endif
