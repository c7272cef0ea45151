#ifndef ZORVA_TESTS_FORMFIXTURE_H
#define ZORVA_TESTS_FORMFIXTURE_H

#include "formtext.h"

#include <valueframework/tree.h>
#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaformular.h>

#include <QExplicitlySharedDataPointer>
#include <QPointer>
#include <QWidget>

/// A live form made from text: parsed, with values below "/test", with widgets.
/// Nothing is shown until `show()`. Deletes window and form, in this order,
/// unless a test did so before.
class FormFixture
{
public:
    /// How far the form is brought.
    enum Stage { Parsed, WithValues, WithGui };

    explicit FormFixture(const QString& widgets, const QString& enums = QString(),
                         const QString& script = QString(), Stage stage = WithGui,
                         const QList<FormProperty>& sheetProperties = {});
    FormFixture(const QString& widgets, Stage stage);
    FormFixture(const FormFixture&) = delete;
    FormFixture& operator=(const FormFixture&) = delete;
    ~FormFixture();

    void createValues();
    void createGui();
    /// Shows the window, with an ordinary size, and waits until it is exposed.
    void show();
    void deleteWindow();
    /// The window stays, as it may with a host.
    void deleteForm();

    Orvane::ZorvaFormular* formular() const { return m_formular.data(); }
    Orvane::ZorvaSheet& sheet() const { return m_formular->GetSheet(); }
    /// The top widget; null before `createGui()` and after `deleteWindow()`.
    QWidget* window() const { return m_window; }

    /// The delegate of the row `name` (widget name or tag); null if there is none.
    Orvane::ZorvaDelegate* row(const char* name) const;
    /// Null also if it is of another kind.
    template <typename Kind>
    Kind* delegate(const char* name) const
    {
        return qobject_cast<Kind*>(row(name));
    }
    /// The control of that object name; null if there is none.
    template <typename Control>
    Control* control(const char* name) const
    {
        return m_window ? m_window->findChild<Control*>(QString::fromUtf8(name)) : nullptr;
    }
    /// The value at `path` below "/test"; null if there is none or of another type.
    template <typename Value>
    Value* value(const char* path) const
    {
        return dynamic_cast<Value*>(
            values::Tree::Instance()->GetValue(QStringLiteral("/test/") + QString::fromUtf8(path)));
    }

    /// What the delegate of a row writes, without indentation.
    QString writtenBy(const char* name) const;
    /// Lets the delegate of a row read `element`, one XML element; true if the
    /// reader stands on the element's end tag afterwards.
    bool read(const char* name, const QString& element) const;
    /// Runs code in the form's script engine.
    void evaluate(const QString& code) const { m_formular->EvaluateScript(code); }
    /// Takes the marks off the rows and the sheet.
    void resetModified() const;

private:
    QExplicitlySharedDataPointer<Orvane::ZorvaFormular> m_formular;
    QPointer<QWidget> m_window;
};

#endif
