#include "writtenrow.h"

#include "scriptnames.h"

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

WrittenRow::WrittenRow(const Description& description, int element)
    : m_element(element)
    , m_name(description.element(element).value("name"))
    , m_className(description.element(element).value("class"))
{
    const KindTable& kinds = KindTable::instance();
    if (description.element(element).name == QLatin1String("Sheet")) {
        m_kind = &kinds.sheet();
        m_isKnown = true;
        for (const int child : description.children(element)) {
            const QString& block = description.element(child).name;
            if (block == QLatin1String("Properties") || block == QLatin1String("CustomProperties"))
                readBlock(description, child, block == QLatin1String("CustomProperties"));
        }
        return;
    }
    m_kind = kinds.findClass(m_className);
    m_isKnown = m_kind != nullptr;
    if (!m_kind)
        m_kind = &kinds.unknownClass();
    readBlock(description, element, false);
}

void WrittenRow::readBlock(const Description& description, int block, bool isCustom, int depth)
{
    constexpr int deepestBlock = 500; // as far as the engine goes
    for (int i = description.element(block).firstChild; i >= 0; i = description.element(i).nextSibling) {
        const SourceElement& child = description.element(i);
        if (child.name == QLatin1String("CustomProperties") && depth < deepestBlock) {
            if (depth == 0)
                m_customBlock = i;
            readBlock(description, i, true, depth + 1);
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
            property.typeName = description.element(property.type).name;
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

QString WrittenRow::ownTag() const
{
    static const QHash<QString, QString> tags{
        {QStringLiteral("SpecialObject_FHP"), QStringLiteral("ExclusionRanges")},
        {QStringLiteral("SpecialObject_DSC"), QStringLiteral("ExclusionFrequencyList")}};
    return tags.value(m_className);
}

QString WrittenRow::path() const
{
    const WrittenProperty* const plain = find("parameterXmlTag");
    const bool isBehind = plain && plain->element > m_customBlock;
    QString tag = plain ? plain->text : QString();
    if (m_customBlock >= 0 && !isBehind && !ownTag().isEmpty()) {
        const WrittenProperty* const custom = findCustom(QStringLiteral("customXmlTag"));
        tag = custom ? custom->text : ownTag();
    }
    return tag.isEmpty() ? m_name : tag;
}

bool WrittenRow::isExported() const
{
    return m_kind->isExported() && isTrue("generateParameterXml");
}

WrittenForm::WrittenForm(const Description& description)
{
    for (const int element : description.elementsNamed("Widget"))
        m_rows.append(WrittenRow(description, element));
    for (const int element : description.elementsNamed("Sheet"))
        m_sheets.append(WrittenRow(description, element));
    for (const int script : description.elementsNamed("Script"))
        readScript(description.textOf(script));
}

// What a function calls its own is not spoken of; a name in a text may be looked up.
void WrittenForm::readScript(const QString& code)
{
    const ScriptNames names(code);
    for (int i = 0; i < names.tokens().size(); ++i) {
        const ScriptToken& token = names.tokens().at(i);
        if (token.kind == ScriptToken::Text)
            readWords(token.text);
        else if (token.kind == ScriptToken::Word && !names.isLocal(i))
            m_words.insert(token.text);
        const int owner = names.ownerOf(i);
        if (owner >= 0 && !names.isLocal(owner))
            m_members.insert({names.tokens().at(owner).text, token.text});
    }
}

void WrittenForm::readWords(const QString& text)
{
    static const QRegularExpression word(QStringLiteral("[\\w$]+"));
    for (auto match = word.globalMatch(text); match.hasNext();)
        m_words.insert(match.next().captured());
}

bool WrittenForm::scriptSets(const WrittenRow& row, const QString& property) const
{
    if (!scriptMentions(row.name()) || property.isEmpty())
        return false;
    const QString setter = QStringLiteral("set") + property.at(0).toUpper() + property.mid(1);
    return scriptMentions(setter) || m_members.contains({row.name(), property});
}

} // namespace Author
} // namespace Orvane
