#include "references.h"

namespace Orvane {
namespace Author {

namespace {

// No name of an entity that anybody uses is longer.
constexpr int longestName = 40;

QString character(const QStringRef& digits)
{
    bool ok = false;
    const uint code =
        digits.startsWith(QLatin1Char('x')) ? digits.mid(1).toUInt(&ok, 16) : digits.toUInt(&ok);
    const bool isBlank = code == 9 || code == 10 || code == 13;
    const bool isChar =
        code >= 0x20 && code <= 0x10ffff && (code & 0xfffff800) != 0xd800 && code != 0xfffe && code != 0xffff;
    return ok && (isBlank || isChar) ? QString::fromUcs4(&code, 1) : QString();
}

QString meaning(const QStringRef& name)
{
    if (name.startsWith(QLatin1Char('#')))
        return character(name.mid(1));
    static const struct
    {
        const char* name;
        char character;
    } known[] = {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    for (const auto& entity : known) {
        if (name == QLatin1String(entity.name))
            return QString(QLatin1Char(entity.character));
    }
    return QString();
}

} // namespace

Reference referenceAt(const QString& text, int offset)
{
    int end = offset + 1;
    const int limit = qMin(text.size(), offset + longestName);
    while (end < limit && (text.at(end).isLetterOrNumber() || text.at(end) == QLatin1Char('#')))
        ++end;
    if (end >= text.size() || text.at(end) != QLatin1Char(';'))
        return {offset + 1, QString()};
    return {end + 1, meaning(text.midRef(offset + 1, end - offset - 1))};
}

QString resolved(const QString& text, bool attribute)
{
    QString result;
    result.reserve(text.size());
    for (int i = 0; i < text.size();) {
        const QChar c = text.at(i);
        if (c == QLatin1Char('&')) {
            const Reference reference = referenceAt(text, i);
            result += reference.isKnown() ? reference.text : text.mid(i, reference.end - i);
            i = reference.end;
            continue;
        }
        const bool blank = c == QLatin1Char('\n') || c == QLatin1Char('\t');
        if (c != QLatin1Char('\r'))
            result += attribute && blank ? QChar(QLatin1Char(' ')) : c;
        ++i;
    }
    return result;
}

} // namespace Author
} // namespace Orvane
