#include "damage.h"

#include <author/document/enginereading.h>
#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaformular.h>
#include <zorvaparser/zorvaparser.h>

#include <QTest>

using namespace Orvane::Author;
using FormPointer = QExplicitlySharedDataPointer<Orvane::ZorvaFormular>;

namespace {

/// What is different between a reading and the live form; empty if nothing is.
class Comparison
{
public:
    Comparison(const EngineReading& reading, const Description& description, Orvane::ZorvaFormular* form)
        : m_reading(reading)
        , m_description(description)
        , m_form(form)
    {
        expect(m_reading.hasForm() == (m_form != nullptr), QStringLiteral("a form at all"));
        if (!m_form || !m_reading.hasForm())
            return;
        expect(m_form->GetVersion() == m_reading.form().version, QStringLiteral("version"));
        expect(m_form->GetSheet().GetName() == m_reading.form().sheetName, QStringLiteral("sheet's name"));
        expect(m_form->GetScript().GetCode() == m_reading.form().code, QStringLiteral("script"));
        compareProperties(m_form->GetSheet().GetDelegate(), m_reading.form().sheetProperties,
                          m_reading.form().sheetCustom);
        compareRows();
        compareEnumerations();
    }

    QString difference() const { return m_difference; }

private:
    void expect(bool equal, const QString& what)
    {
        if (!equal && m_difference.isEmpty())
            m_difference = what;
    }

    void compareRows()
    {
        const QVector<ReadRow>& rows = m_reading.form().rows;
        expect(m_form->GetSheet().GetWidgetCount() == rows.size(), QStringLiteral("number of rows"));
        for (int i = 0; i < rows.size() && m_difference.isEmpty(); ++i) {
            const auto row = m_form->GetSheet().GetWidgetAt(i);
            expect(row->GetName() == rows.at(i).name, QStringLiteral("name of row %1").arg(i));
            expect(row->GetClass() == rows.at(i).className, QStringLiteral("class of row %1").arg(i));
            const SourceElement& element = m_description.element(rows.at(i).element);
            expect(element.name == QLatin1String("Widget") && element.value("class") == rows.at(i).className,
                   QStringLiteral("place of row %1").arg(i));
            compareProperties(row->GetDelegate(), rows.at(i).properties, rows.at(i).custom);
        }
    }

    void compareProperties(Orvane::ZorvaDelegate* delegate, const QMap<QString, ReadProperty>& properties,
                           const QMap<QString, ReadProperty>& custom)
    {
        for (auto property = properties.cbegin(); property != properties.cend(); ++property) {
            const QVariant value = delegate->property(property.key().toLatin1().constData());
            expect(value == property->value || isSetByKind(delegate, property.key()),
                   QStringLiteral("property %1").arg(property.key()));
        }
        for (const QByteArray& name : delegate->dynamicPropertyNames()) {
            const QString key = QString::fromLatin1(name);
            expect(properties.contains(key) || isSetByKind(delegate, key),
                   QStringLiteral("property %1 too").arg(key));
        }
        for (auto property = custom.cbegin(); property != custom.cend(); ++property)
            expect(delegate->customProperty(property.key()) == property->value,
                   QStringLiteral("custom property %1").arg(property.key()));
    }

    /// What some kinds set themselves: by the scale of the unit, or from a custom property.
    static bool isSetByKind(const Orvane::ZorvaDelegate* delegate, const QString& name)
    {
        if (delegate->inherits("Orvane::ZorvaFHPObject") || delegate->inherits("Orvane::ZorvaDSCObject"))
            return name == QLatin1String("parameterXmlTag");
        return delegate->inherits("Orvane::ZorvaInt64SpinBox") &&
               (name == QLatin1String("suffix") || name == QLatin1String("decimals"));
    }

    void compareEnumerations()
    {
        const QMap<QString, ReadEnumeration>& enumerations = m_reading.form().enumerations;
        for (const ReadEnumeration& read : enumerations) {
            const auto enumeration = m_form->GetEnum(read.name);
            expect(enumeration != m_form->GetEmptyEnum(), QStringLiteral("enumeration %1").arg(read.name));
            expect(enumeration->GetValueCount() == read.entries.size(),
                   QStringLiteral("entries of %1").arg(read.name));
            for (int i = 0; i < read.entries.size() && m_difference.isEmpty(); ++i) {
                const Orvane::ZorvaEnumValue& entry = enumeration->GetValueAt(i);
                expect(entry.GetDisplayName() == read.entries.at(i).displayName &&
                           entry.GetEnumIdentifier() == read.entries.at(i).identifier &&
                           entry.GetValue() == read.entries.at(i).value,
                       QStringLiteral("entry %1 of %2").arg(i).arg(read.name));
            }
        }
        for (const SourceElement& element : m_description.elements()) {
            if (element.name == QLatin1String("Enum") && !enumerations.contains(element.value("name")))
                expect(m_form->GetEnum(element.value("name")) == m_form->GetEmptyEnum(),
                       QStringLiteral("enumeration %1 too").arg(element.value("name")));
        }
    }

    const EngineReading& m_reading;
    const Description& m_description;
    Orvane::ZorvaFormular* const m_form;
    QString m_difference;
};

QString difference(const QByteArray& bytes)
{
    const Description description{SourceText(bytes)};
    const EngineReading reading(description);
    const FormPointer form(Orvane::ZorvaParser().ParseZORVA(description.source().engineBytes()));
    return Comparison(reading, description, form.data()).difference();
}

} // namespace

class tst_enginereading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPrefixIsReadAsByTheEngine_data() { addTextsToDamage(); }

    void everyPrefixIsReadAsByTheEngine()
    {
        QFETCH(QString, text);
        const QString fault = faultOfPrefixes(text.toUtf8(), 241, 1, difference);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void everyDamageIsReadAsByTheEngine_data() { addTextsToDamage(); }

    void everyDamageIsReadAsByTheEngine()
    {
        QFETCH(QString, text);
        const QString fault = faultOfDamages(text, 300, difference);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }
};

QTEST_MAIN(tst_enginereading)
#include "tst_enginereading.moc"
