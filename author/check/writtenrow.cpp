#include "writtenrow.h"

#include <QRegularExpression>

namespace Orvane {
namespace Author {

std::optional<double> WrittenProperty::number() const
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    return ok ? std::optional<double>(value) : std::nullopt;
}

bool WrittenProperty::isTrue() const
{
    if (typeName == QLatin1String("Bool"))
        return text == QLatin1String("true");
    const QString lower = text.toLower();
    return !lower.isEmpty() && lower != QLatin1String("0") && lower != QLatin1String("false");
}

WrittenRow::WrittenRow(const Subject& subject, int element)
    : m_element(element)
    , m_name(subject.element(element).value("name"))
    , m_className(subject.element(element).value("class"))
{
    if (subject.element(element).name == QLatin1String("Sheet")) {
        m_kind = &subject.kinds().sheet();
        m_isKnown = true;
        for (const int child : subject.description().children(element)) {
            const QString& block = subject.element(child).name;
            if (block == QLatin1String("Properties") || block == QLatin1String("CustomProperties"))
                readBlock(subject, child, block == QLatin1String("CustomProperties"));
        }
        return;
    }
    m_kind = subject.kinds().findClass(m_className);
    m_isKnown = m_kind != nullptr;
    if (!m_kind)
        m_kind = &subject.kinds().unknownClass();
    readBlock(subject, element, false);
}

void WrittenRow::readBlock(const Subject& subject, int block, bool isCustom)
{
    const Description& description = subject.description();
    for (int i = subject.element(block).firstChild; i >= 0; i = subject.element(i).nextSibling) {
        const SourceElement& child = subject.element(i);
        if (child.name == QLatin1String("CustomProperties") && !isCustom) {
            readBlock(subject, i, true);
            continue;
        }
        if (child.name != QLatin1String("Property"))
            continue;
        WrittenProperty property;
        property.element = i;
        property.name = child.value("name");
        property.type = child.firstChild;
        property.isCustom = isCustom;
        if (property.type >= 0) {
            property.typeName = subject.element(property.type).name;
            property.text = description.textOf(property.type);
        }
        (isCustom ? m_custom : m_plain).insert(property.name, m_all.size());
        if (isCustom && property.name == QLatin1String("toolTip"))
            m_plain.insert(property.name, m_all.size());
        m_all.append(property);
    }
}

const WrittenProperty* WrittenRow::find(const QString& name) const
{
    const auto found = m_plain.constFind(name);
    return found == m_plain.cend() ? nullptr : &m_all.at(*found);
}

const WrittenProperty* WrittenRow::find(const char* name) const
{
    return find(QString::fromLatin1(name));
}

const WrittenProperty* WrittenRow::findCustom(const QString& name) const
{
    const auto found = m_custom.constFind(name);
    return found == m_custom.cend() ? nullptr : &m_all.at(*found);
}

bool WrittenRow::isTrue(const char* name) const
{
    const WrittenProperty* const property = find(name);
    return property && property->isTrue();
}

QString WrittenRow::text(const char* name) const
{
    const WrittenProperty* const property = find(name);
    return property ? property->text : QString();
}

double WrittenRow::number(const char* name, double fallback) const
{
    const WrittenProperty* const property = find(name);
    return property ? property->number().value_or(fallback) : fallback;
}

QString WrittenRow::path() const
{
    if (const WrittenProperty* const custom = findCustom(QStringLiteral("customXmlTag"))) {
        if (m_className == QLatin1String("SpecialObject_FHP") ||
            m_className == QLatin1String("SpecialObject_DSC"))
            return custom->text;
    }
    const QString tag = text("parameterXmlTag");
    return tag.isEmpty() ? m_name : tag;
}

bool WrittenRow::isExported() const
{
    return m_kind->isExported() && isTrue("generateParameterXml");
}

WrittenForm::WrittenForm(const Subject& subject)
{
    for (const int element : subject.elements("Widget"))
        m_rows.append(WrittenRow(subject, element));
    for (const int element : subject.elements("Sheet"))
        m_sheets.append(WrittenRow(subject, element));
    for (const int script : subject.elements("Script"))
        m_code += subject.description().textOf(script) + QLatin1Char('\n');
    static const QRegularExpression word(QStringLiteral("[\\w$]+"));
    for (auto match = word.globalMatch(m_code); match.hasNext();)
        m_words.insert(match.next().captured());
}

bool WrittenForm::scriptSets(const WrittenRow& row, const QString& property) const
{
    if (!scriptMentions(row.name()) || property.isEmpty())
        return false;
    const QString setter = QStringLiteral("set") + property.at(0).toUpper() + property.mid(1);
    return scriptMentions(setter) || m_code.contains(row.name() + QLatin1Char('.') + property);
}

} // namespace Author
} // namespace Orvane
