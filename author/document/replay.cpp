#include "replay.h"

#include <QScopedValueRollback>

namespace Orvane {
namespace Author {

namespace {

// The engine's own bounds.
constexpr int deepestBlock = 500;
constexpr int mostProperties = 1000;

} // namespace

Replay::Replay(const Description& description)
    : m_description(description)
    , m_reader(description.source().engineBytes())
{
}

QXmlStreamReader::TokenType Replay::next()
{
    const QXmlStreamReader::TokenType token = m_reader.readNext();
    if (token == QXmlStreamReader::StartElement) {
        ++m_depth;
        const int offset = m_description.source().fromEngine(m_reader.characterOffset());
        m_current = m_description.elementEndingAt(offset);
    } else if (token == QXmlStreamReader::EndElement) {
        --m_depth;
    }
    return token;
}

bool Replay::nextStartElement()
{
    while (next() != QXmlStreamReader::Invalid) {
        if (m_reader.isEndElement())
            return false;
        if (m_reader.isStartElement())
            return true;
    }
    return false;
}

QString Replay::elementText()
{
    QString text;
    for (;;) {
        switch (next()) {
        case QXmlStreamReader::Characters:
        case QXmlStreamReader::EntityReference:
            text += m_reader.text();
            break;
        case QXmlStreamReader::ProcessingInstruction:
        case QXmlStreamReader::Comment:
            break;
        case QXmlStreamReader::EndElement:
            return text;
        default:
            if (!m_reader.hasError())
                m_reader.raiseError(QStringLiteral("an element within a text"));
            return text;
        }
    }
}

void Replay::skipElement(bool aligned)
{
    const int skipped = m_current;
    const bool byCut = !aligned && m_cut >= 0;
    notice(skipped, byCut ? Cause::Cut : Cause::Skipped, byCut ? m_cut : skipped);
    const int level = m_depth - 1;
    while (m_depth > level && next() != QXmlStreamReader::Invalid) {
        if (m_reader.isStartElement())
            notice(m_current, byCut ? Cause::Cut : Cause::Skipped, byCut ? m_cut : skipped);
    }
}

template <typename Handler>
void Replay::walkChildren(Handler handleChild)
{
    const int level = m_depth;
    while (!m_reader.atEnd()) {
        const QXmlStreamReader::TokenType token = next();
        if (token == QXmlStreamReader::EndElement)
            return;
        if (token == QXmlStreamReader::StartElement)
            handleChild(m_depth == level + 1);
    }
}

QString Replay::attribute(const char* name) const
{
    return m_reader.attributes().value(QLatin1String(name)).toString();
}

bool Replay::isAt(const char* name) const
{
    return m_reader.name() == QLatin1String(name);
}

void Replay::notice(int element, Cause cause, int by)
{
    if (element < 0)
        return;
    m_notes[element].cause = cause;
    m_notes[element].by = by;
}

void Replay::run()
{
    readRoots();
}

void Replay::runOverlay(const QSet<QString>& rows)
{
    m_isOverlay = true;
    m_overlaid = rows;
    readRoots();
}

void Replay::readRoots()
{
    while (!m_reader.atEnd() && nextStartElement()) {
        if (!isAt("KVParamGui"))
            continue;
        // Of several roots the last one makes the form; an overlay takes them all.
        const QVector<int> roots = m_form.roots + QVector<int>{m_current};
        if (!m_isOverlay)
            m_form = ReadForm();
        m_form.roots = roots;
        m_form.exists = true;
        m_form.element = m_current;
        m_cut = -1;
        readForm();
    }
    if (m_reader.hasError())
        m_errorAt = m_description.source().fromEngine(m_reader.characterOffset());
}

void Replay::readForm()
{
    m_form.version = attribute("version");
    walkChildren([this](bool aligned) {
        if (isAt("Enums"))
            readEnums();
        else if (isAt("Sheet"))
            m_isOverlay ? readOverlaySheet() : readSheet();
        else if (isAt("Script"))
            readScript();
        else
            skipElement(aligned);
    });
}

void Replay::readEnums()
{
    walkChildren([this](bool aligned) {
        if (isAt("Enum"))
            readEnum();
        else
            skipElement(aligned);
    });
}

void Replay::readEnum()
{
    ReadEnumeration enumeration;
    enumeration.element = m_current;
    enumeration.name = attribute("name");
    walkChildren([&](bool aligned) {
        if (isAt("EnumValue"))
            enumeration.entries.append(readEntry());
        else
            skipElement(aligned);
    });
    const auto replaced = m_form.enumerations.constFind(enumeration.name);
    if (replaced != m_form.enumerations.cend()) {
        notice(replaced->element, Cause::Replaced, enumeration.element);
        for (const ReadEntry& entry : replaced->entries)
            notice(entry.element, Cause::Replaced, enumeration.element);
    }
    m_form.enumerations.insert(enumeration.name, enumeration);
}

ReadEntry Replay::readEntry()
{
    ReadEntry entry;
    entry.element = m_current;
    walkChildren([&](bool aligned) {
        if (isAt("DisplayName"))
            entry.displayName = elementText();
        else if (isAt("EnumIdentifier"))
            entry.identifier = elementText();
        else if (isAt("Value"))
            entry.value = elementText();
        else
            skipElement(aligned);
    });
    return entry;
}

void Replay::readScript()
{
    const int element = m_current;
    if (m_form.script >= 0)
        notice(m_form.script, Cause::Replaced, element);
    m_form.script = element;
    m_form.code = withoutEscapes(elementText());
}

void Replay::readSheet()
{
    m_form.sheets.append(m_current);
    m_form.sheetName = attribute("name");
    walkChildren([this](bool aligned) {
        if (isAt("Widget"))
            readRow();
        else if (isAt("Properties"))
            readProperties(m_form.sheetProperties, m_form.sheetCustom, false);
        else if (isAt("CustomProperties"))
            readProperties(m_form.sheetProperties, m_form.sheetCustom, true);
        else
            skipElement(aligned);
    });
}

// A row that the form does not have is not skipped: its end tag is taken for that of the sheet.
void Replay::readOverlaySheet()
{
    m_form.sheets.append(m_current);
    walkChildren([this](bool aligned) {
        if (!isAt("Widget")) {
            skipElement(aligned);
        } else if (m_overlaid.contains(attribute("name"))) {
            readRow();
        } else {
            notice(m_current, Cause::Skipped, m_current);
            if (m_cut < 0)
                m_cut = m_current;
        }
    });
}

void Replay::readRow()
{
    ReadRow row;
    row.element = m_current;
    row.name = attribute("name");
    row.className = attribute("class");
    if (row.name.isEmpty())
        row.name = row.className + QLatin1Char('_') + QString::number(m_form.rows.size());
    row.customBlock = readProperties(row.properties, row.custom, false);
    m_form.rows.append(row);
}

int Replay::readProperties(Properties& plain, Properties& custom, bool isCustom)
{
    const QScopedValueRollback<int> nested(m_blockDepth, m_blockDepth + 1);
    const int level = m_depth;
    int stray = -1;
    int customBlock = -1;
    while (!m_reader.atEnd()) {
        const QXmlStreamReader::TokenType token = next();
        if (token == QXmlStreamReader::EndElement) {
            if (m_depth >= level && m_cut < 0)
                m_cut = stray;
            return customBlock;
        }
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (isAt("Property")) {
            const int property = m_current;
            if (readProperty(plain, custom, isCustom))
                continue;
            if (!m_reader.hasError() && m_cut < 0)
                m_cut = stray < 0 ? property : stray;
            return customBlock;
        }
        if (isAt("CustomProperties")) {
            customBlock = m_current;
            if (m_blockDepth < deepestBlock)
                readProperties(plain, custom, true);
            else
                skipElement(true);
            continue;
        }
        if (stray < 0)
            stray = m_current;
        notice(m_current, Cause::Skipped, stray);
    }
    return customBlock;
}

bool Replay::readProperty(Properties& plain, Properties& custom, bool isCustom)
{
    const int element = m_current;
    const QString name = attribute("name");
    // Qt names its properties in bytes.
    const QString key = QString::fromLatin1(name.toLatin1());
    notice(element, Cause::Skipped, element);
    if (!nextStartElement())
        return false;
    const bool isBool = isAt("Bool");
    const QString text = elementText();
    const QVariant value = isBool ? QVariant(text == QLatin1String("true")) : QVariant(text);
    if (isCustom)
        set(custom, name, value, element);
    if (!isCustom || name == QLatin1String("toolTip"))
        setPlain(plain, key, value, element);
    rest(element);
    return true;
}

void Replay::rest(int element)
{
    const int level = m_depth - 1;
    while (m_depth > level && next() != QXmlStreamReader::Invalid) {
        if (m_reader.isStartElement())
            notice(m_current, Cause::Skipped, element);
    }
}

void Replay::setPlain(Properties& properties, const QString& key, const QVariant& value, int element)
{
    const QString renaming = QStringLiteral("objectName");
    const int count = properties.size() - (properties.contains(renaming) ? 1 : 0);
    if (count < mostProperties || key == renaming || properties.contains(key))
        set(properties, key, value, element);
}

void Replay::set(Properties& properties, const QString& name, const QVariant& value, int element)
{
    const auto replaced = properties.constFind(name);
    if (replaced != properties.cend())
        notice(replaced->element, Cause::Replaced, element);
    properties.insert(name, {element, value});
    m_set.insert(element);
}

} // namespace Author
} // namespace Orvane
