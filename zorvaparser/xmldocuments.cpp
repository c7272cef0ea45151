#include "xmldocuments_p.h"

#include <QStringRef>

namespace Orvane {

namespace {

bool isQuote(QChar character)
{
    return character == QLatin1Char('"') || character == QLatin1Char('\'');
}

} // namespace

XmlDocuments::XmlDocuments(const QString& glued)
    : text(glued)
{
}

QString XmlDocuments::next()
{
    int begin = -1;
    depth = 0;
    while (true) {
        at = text.indexOf(QLatin1Char('<'), at);
        if (at < 0)
            break;
        if (skipWithoutContent())
            continue;
        if (begin < 0)
            begin = at;
        if (startsWith(QLatin1String("<!"))) {
            skipDocumentType();
            continue;
        }
        skipTag();
        if (depth <= 0)
            return text.mid(begin, at - begin);
    }
    at = text.size();
    return begin < 0 ? QString() : text.mid(begin);
}

bool XmlDocuments::startsWith(QLatin1String markup) const
{
    return text.midRef(at, markup.size()) == markup;
}

// A declaration in front of a document is no more to the reader than an instruction.
bool XmlDocuments::skipWithoutContent()
{
    if (startsWith(QLatin1String("<?")))
        skipBehind(QLatin1String("?>"));
    else if (startsWith(QLatin1String("<!--")))
        skipBehind(QLatin1String("-->"));
    else if (startsWith(QLatin1String("<![CDATA[")))
        skipBehind(QLatin1String("]]>"));
    else
        return false;
    return true;
}

void XmlDocuments::skipBehind(QLatin1String end)
{
    const int found = text.indexOf(end, at + 2);
    at = found < 0 ? text.size() : found + end.size();
}

void XmlDocuments::skipDocumentType()
{
    QChar quote;
    int brackets = 0;
    for (++at; at < text.size(); ++at) {
        const QChar character = text.at(at);
        if (!quote.isNull()) {
            if (character == quote)
                quote = QChar();
        } else if (isQuote(character)) {
            quote = character;
        } else if (character == QLatin1Char('[')) {
            ++brackets;
        } else if (character == QLatin1Char(']')) {
            --brackets;
        } else if (character == QLatin1Char('>') && brackets <= 0) {
            ++at;
            return;
        }
    }
}

void XmlDocuments::skipTag()
{
    const bool isEnd = startsWith(QLatin1String("</"));
    QChar quote;
    for (++at; at < text.size(); ++at) {
        const QChar character = text.at(at);
        if (!quote.isNull()) {
            if (character == quote)
                quote = QChar();
        } else if (isQuote(character)) {
            quote = character;
        } else if (character == QLatin1Char('>')) {
            break;
        }
    }
    const bool isWhole = at < text.size();
    const bool isEmpty = isWhole && text.at(at - 1) == QLatin1Char('/');
    if (isEnd)
        --depth;
    else if (!isEmpty)
        ++depth;
    if (isWhole)
        ++at;
}

} // namespace Orvane
