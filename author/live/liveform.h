#ifndef ZORVA_AUTHOR_LIVEFORM_H
#define ZORVA_AUTHOR_LIVEFORM_H

#include <zorvaparser/zorvaformular.h>

#include <QByteArray>
#include <QExplicitlySharedDataPointer>

namespace Orvane {
namespace Author {

/**
 * One description brought to life by the engine, without a screen. Each has a place of its
 * own in the value tree, so that several stand side by side. Window and form go with it.
 */
class LiveForm
{
public:
    /** How far the form is brought: read; with values and after its script; with an apply bar and controls.
     */
    enum Stage { Read, Running, Built };

    /**
     * @p description as the engine reads it (see SourceText::engineBytes()); @p name is the context
     * of the form's translations, registered as long as it lives.
     */
    explicit LiveForm(const QByteArray& description, Stage stage = Running, const QString& name = QString());
    LiveForm(const LiveForm&) = delete;
    LiveForm& operator=(const LiveForm&) = delete;
    ~LiveForm();

    /** False if the description makes no form at all: then nothing else may be asked. */
    bool exists() const { return m_form; }
    ZorvaFormular& form() const { return *m_form; }
    ZorvaFormular* operator->() const { return m_form.data(); }
    /** Brings a form that was only read to a later stage; nothing for a stage that it has reached. */
    void bring(Stage stage);
    /** The form's script engine; null if its script sees no object at all. Owned by the form. */
    QScriptEngine* engine() const;

private:
    QExplicitlySharedDataPointer<ZorvaFormular> m_form;
    Stage m_stage = Read;
};

} // namespace Author
} // namespace Orvane

#endif
