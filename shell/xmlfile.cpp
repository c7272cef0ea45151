#include "xmlfile.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextCodec>
#include <QXmlStreamReader>

namespace {

struct Encoding
{
    QString name;
    bool isDeclared;
    QTextCodec* codec; // null: nobody knows it
};

Encoding encodingOf(const QByteArray& bytes)
{
    static const QRegularExpression declaration(
        QStringLiteral("\\A<\\?xml\\s[^>]*encoding\\s*=\\s*[\"']([A-Za-z0-9._:-]+)[\"']"));
    QTextCodec* const marked = QTextCodec::codecForUtfText(bytes, nullptr);
    if (marked)
        return {QString::fromLatin1(marked->name()), true, marked};
    const QRegularExpressionMatch match = declaration.match(QString::fromLatin1(bytes.left(1000)));
    const QString name = match.hasMatch() ? match.captured(1) : QStringLiteral("UTF-8");
    return {name, match.hasMatch(), QTextCodec::codecForName(name.toLatin1())};
}

/** The place behind @p text: of the character that would come next. */
QString placeBehind(const QString& text)
{
    const int line = text.count(QLatin1Char('\n')) + 1;
    const int column = text.size() - text.lastIndexOf(QLatin1Char('\n'));
    return QStringLiteral("line %1, column %2").arg(line).arg(column);
}

bool isSound(const QTextCodec::ConverterState& state)
{
    return state.invalidChars == 0;
}

/** The text in front of the first byte that has no meaning. */
QString soundPart(const QByteArray& bytes, const QTextCodec* codec)
{
    QTextCodec::ConverterState state;
    QString text;
    for (int i = 0; i < bytes.size(); ++i) {
        const QString next = codec->toUnicode(bytes.constData() + i, 1, &state);
        if (!isSound(state))
            break;
        text += next;
    }
    return text;
}

QString mistakeIn(const QString& text)
{
    QXmlStreamReader reader(text);
    while (!reader.atEnd())
        reader.readNext();
    if (!reader.hasError())
        return QString();
    return QStringLiteral("line %1, column %2: %3")
        .arg(reader.lineNumber())
        .arg(reader.columnNumber())
        .arg(reader.errorString());
}

} // namespace

XmlFile readXml(const QByteArray& bytes)
{
    const Encoding encoding = encodingOf(bytes);
    XmlFile file;
    if (!encoding.codec) {
        file.wrongEncoding = QStringLiteral("line 1, column 1: the encoding %1 that it declares is unknown")
                                 .arg(encoding.name);
        return file;
    }
    QTextCodec::ConverterState state;
    file.text = encoding.codec->toUnicode(bytes.constData(), bytes.size(), &state);
    if (!isSound(state) || state.remainingChars > 0) {
        file.text = soundPart(bytes, encoding.codec);
        file.wrongEncoding = QStringLiteral("%1: wrong encoding, this is not %2%3")
                                 .arg(placeBehind(file.text), encoding.name,
                                      encoding.isDeclared ? QStringLiteral(" as declared") : QString());
    }
    file.wrongXml = mistakeIn(file.text);
    return file;
}

XmlFile readXmlFile(const QString& path)
{
    QFile file(path);
    return readXml(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
}
