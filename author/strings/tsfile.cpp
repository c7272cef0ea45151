#include "tsfile.h"

#include <QHash>
#include <QLocale>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <utility>

namespace Orvane {
namespace Author {

namespace {

using Key = std::pair<QString, std::pair<QString, QString>>;

Key keyOf(const TsMessage& message)
{
    return {message.context, {message.source, message.comment}};
}

TsMessage::State stateOf(const QStringRef& type)
{
    if (type == QLatin1String("unfinished"))
        return TsMessage::Unfinished;
    if (type == QLatin1String("vanished"))
        return TsMessage::Vanished;
    return type == QLatin1String("obsolete") ? TsMessage::Obsolete : TsMessage::Finished;
}

QString typeOf(TsMessage::State state)
{
    switch (state) {
    case TsMessage::Unfinished:
        return QStringLiteral("unfinished");
    case TsMessage::Vanished:
        return QStringLiteral("vanished");
    case TsMessage::Obsolete:
        return QStringLiteral("obsolete");
    case TsMessage::Finished:
        break;
    }
    return QString();
}

QString textOf(QXmlStreamReader& reader)
{
    return reader.readElementText(QXmlStreamReader::IncludeChildElements);
}

TsMessage readMessage(QXmlStreamReader& reader, const QString& context)
{
    TsMessage message;
    message.context = context;
    while (reader.readNextStartElement()) {
        const QString name = reader.name().toString();
        const QXmlStreamAttributes attributes = reader.attributes();
        if (name == QLatin1String("location")) {
            message.places.append({attributes.value(QLatin1String("filename")).toString(),
                                   attributes.value(QLatin1String("line")).toInt()});
            reader.skipCurrentElement();
        } else if (name == QLatin1String("source")) {
            message.source = textOf(reader);
        } else if (name == QLatin1String("comment")) {
            message.comment = textOf(reader);
        } else if (name == QLatin1String("translation")) {
            message.state = stateOf(attributes.value(QLatin1String("type")));
            message.translation = textOf(reader);
        } else {
            message.remarks.append({name, textOf(reader)});
        }
    }
    return message;
}

void readContext(QXmlStreamReader& reader, TsFile& file)
{
    QString name;
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("name"))
            name = textOf(reader);
        else if (reader.name() == QLatin1String("message"))
            file.messages.append(readMessage(reader, name));
        else
            reader.skipCurrentElement();
    }
}

/** Writes one message; the layout is that of lupdate, so that its next run changes nothing. */
class TsWriter
{
public:
    explicit TsWriter(QByteArray& bytes)
        : m_xml(&bytes)
    {
        m_xml.setAutoFormatting(true);
        m_xml.setAutoFormattingIndent(4);
    }

    void write(const TsFile& file)
    {
        m_xml.writeStartDocument();
        m_xml.writeDTD(QStringLiteral("<!DOCTYPE TS>"));
        m_xml.writeStartElement(QStringLiteral("TS"));
        m_xml.writeAttribute(QStringLiteral("version"), QStringLiteral("2.1"));
        writeAttribute("language", file.language);
        writeAttribute("sourcelanguage", file.sourceLanguage);
        for (const QVector<const TsMessage*>& context : byContext(file))
            writeContext(context);
        m_xml.writeEndDocument();
    }

private:
    static QVector<QVector<const TsMessage*>> byContext(const TsFile& file)
    {
        QHash<QString, int> indexOf;
        QVector<QVector<const TsMessage*>> contexts;
        for (const TsMessage& message : file.messages) {
            auto index = indexOf.find(message.context);
            if (index == indexOf.end()) {
                index = indexOf.insert(message.context, contexts.size());
                contexts.append(QVector<const TsMessage*>());
            }
            contexts[*index].append(&message);
        }
        return contexts;
    }

    void writeAttribute(const char* name, const QString& value)
    {
        if (!value.isEmpty())
            m_xml.writeAttribute(QLatin1String(name), value);
    }

    void writeContext(const QVector<const TsMessage*>& messages)
    {
        m_xml.writeStartElement(QStringLiteral("context"));
        m_xml.writeTextElement(QStringLiteral("name"), messages.first()->context);
        for (const TsMessage* const message : messages)
            writeMessage(*message);
        m_xml.writeEndElement();
    }

    void writeMessage(const TsMessage& message)
    {
        m_xml.writeStartElement(QStringLiteral("message"));
        for (const QPair<QString, int>& place : message.places) {
            m_xml.writeEmptyElement(QStringLiteral("location"));
            m_xml.writeAttribute(QStringLiteral("filename"), place.first);
            m_xml.writeAttribute(QStringLiteral("line"), QString::number(place.second));
        }
        m_xml.writeTextElement(QStringLiteral("source"), message.source);
        if (!message.comment.isEmpty())
            m_xml.writeTextElement(QStringLiteral("comment"), message.comment);
        for (const QPair<QString, QString>& remark : message.remarks)
            m_xml.writeTextElement(remark.first, remark.second);
        m_xml.writeStartElement(QStringLiteral("translation"));
        writeAttribute("type", typeOf(message.state));
        m_xml.writeCharacters(message.translation);
        m_xml.writeEndElement();
        m_xml.writeEndElement();
    }

    QXmlStreamWriter m_xml;
};

/** The message as it is now wanted, with what there was of it. */
TsMessage renewed(const TsMessage& old, const TsMessage& wanted)
{
    TsMessage message = old;
    message.places = wanted.places;
    if (old.state == TsMessage::Vanished)
        message.state = TsMessage::Finished;
    else if (old.state == TsMessage::Obsolete)
        message.state = TsMessage::Unfinished;
    return message;
}

TsMessage gone(TsMessage message)
{
    message.places.clear();
    if (message.state == TsMessage::Finished)
        message.state = TsMessage::Vanished;
    else if (message.state == TsMessage::Unfinished)
        message.state = TsMessage::Obsolete;
    return message;
}

/** Where each message stands, the first of equals. */
QHash<Key, int> indexOf(const QVector<TsMessage>& messages)
{
    QHash<Key, int> index;
    for (int i = messages.size() - 1; i >= 0; --i)
        index.insert(keyOf(messages.at(i)), i);
    return index;
}

QString quoted(const TsMessage& message)
{
    return QStringLiteral("%1: \"%2\"").arg(message.context, message.source);
}

} // namespace

TsFile readTs(const QByteArray& xml)
{
    TsFile file;
    QXmlStreamReader reader(xml);
    if (reader.readNextStartElement() && reader.name() != QLatin1String("TS"))
        reader.raiseError(QStringLiteral("it is no file of translations"));
    file.language = reader.attributes().value(QLatin1String("language")).toString();
    file.sourceLanguage = reader.attributes().value(QLatin1String("sourcelanguage")).toString();
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("context"))
            readContext(reader, file);
        else
            reader.skipCurrentElement();
    }
    if (reader.hasError())
        file.problem = QStringLiteral("line %1: %2").arg(reader.lineNumber()).arg(reader.errorString());
    return file;
}

QByteArray writeTs(const TsFile& file)
{
    QByteArray bytes;
    TsWriter(bytes).write(file);
    return bytes;
}

TsFile updatedTs(const TsFile& file, const QVector<TsMessage>& wanted)
{
    TsFile result = file;
    result.messages.clear();
    const QHash<Key, int> oldOf = indexOf(file.messages);
    const QHash<Key, int> wantedOf = indexOf(wanted);
    for (const TsMessage& message : wanted) {
        const int old = oldOf.value(keyOf(message), -1);
        result.messages.append(old < 0 ? message : renewed(file.messages.at(old), message));
    }
    for (const TsMessage& message : file.messages) {
        if (!wantedOf.contains(keyOf(message)) && !message.translation.isEmpty())
            result.messages.append(gone(message));
    }
    return result;
}

QString languageOfFile(const QString& fileName)
{
    static const QRegularExpression pattern(QStringLiteral("_([a-z]{2,3}(_[A-Z][A-Za-z]{1,3}){0,2})\\.ts$"));
    const QString language = pattern.match(fileName).captured(1);
    return QLocale(language).language() == QLocale::C ? QString() : language;
}

QStringList openPoints(const TsFile& file, const QVector<TsMessage>& wanted)
{
    QStringList points;
    const QHash<Key, int> oldOf = indexOf(file.messages);
    const QHash<Key, int> wantedOf = indexOf(wanted);
    for (const TsMessage& message : wanted) {
        const int old = oldOf.value(keyOf(message), -1);
        if (old < 0 || file.messages.at(old).isGone())
            points << quoted(message) + QStringLiteral(" is not in the file");
        else if (file.messages.at(old).state == TsMessage::Unfinished)
            points << quoted(message) + QStringLiteral(" is not translated");
    }
    for (const TsMessage& message : file.messages) {
        if (!message.isGone() && !wantedOf.contains(keyOf(message)))
            points << quoted(message) + QStringLiteral(" is in no form any more");
    }
    return points;
}

} // namespace Author
} // namespace Orvane
