#include <layout/markup.h>

#include <QLabel>
#include <QRegularExpression>
#include <QTextDocument>
#include <QVector>

#include <algorithm>
#include <initializer_list>
#include <optional>

namespace {

// A caption needs none of this. What Qt does with a rich text takes longer with
// each tag, twice as long with each table in a table, and as much memory as the
// sizes in it say.
constexpr int longestText = 10000; // characters
constexpr int mostTags = 250;
constexpr int deepestNesting = 50;
constexpr int deepestTable = 3;
constexpr double largestSize = 1000.0;  // pixels, points, percent
constexpr double largestSizes = 5000.0; // all of them together
constexpr double widestSpan = 10.0;     // cells

/// The one grammar of a tag that is let through; Qt's own takes far more.
const QRegularExpression& tagPattern()
{
    static const QRegularExpression pattern(
        QStringLiteral("<(?<end>/?)(?<name>[A-Za-z][A-Za-z0-9]*+)"
                       "(?<attributes>(?:\\s++[A-Za-z][A-Za-z0-9:_-]*+"
                       "(?:\\s*+=\\s*+(?:\"[^\"]*+\"|'[^']*+'|[^\\s\"'<>=]++))?+)*+)\\s*+/?>"));
    return pattern;
}

const QRegularExpression& attributePattern()
{
    static const QRegularExpression pattern(
        QStringLiteral("(?<name>[A-Za-z][A-Za-z0-9:_-]*+)"
                       "(?:\\s*+=\\s*+(?<value>\"[^\"]*+\"|'[^']*+'|[^\\s\"'<>=]++))?+"));
    return pattern;
}

QString unquoted(const QString& value)
{
    const bool isQuoted = value.startsWith(QLatin1Char('"')) || value.startsWith(QLatin1Char('\''));
    return isQuoted ? value.mid(1, value.size() - 2) : value;
}

bool isOneOf(const QString& name, std::initializer_list<const char*> names)
{
    return std::any_of(names.begin(), names.end(),
                       [&](const char* known) { return name == QLatin1String(known); });
}

/// The numbers in \a text, digits of colours aside.
QVector<double> numbersIn(const QString& text)
{
    static const QRegularExpression number(
        QStringLiteral("(?:#[0-9A-Fa-f]++)(*SKIP)(*FAIL)|[0-9]++(?:\\.[0-9]*+)?+(?:[eE][+-]?[0-9]++)?+"));
    QVector<double> numbers;
    auto found = number.globalMatch(text);
    while (found.hasNext())
        numbers.append(found.next().captured().toDouble());
    return numbers;
}

/// Whether a style sheet stays with what it says itself. Letters may be hidden
/// behind escapes and entities.
bool isOwnStyle(const QString& css)
{
    return !css.contains(QLatin1String("url"), Qt::CaseInsensitive) && !css.contains(QLatin1Char('@')) &&
           !css.contains(QLatin1Char('\\')) && !css.contains(QLatin1Char('&'));
}

/// Reads a rich text once and writes it anew without what would be loaded.
class Cleaner
{
public:
    explicit Cleaner(const QString& text)
        : m_text(text)
    {
    }

    /// False for a text that is beyond the bounds.
    bool run();
    bool isChanged() const { return m_changed; }
    const QString& result() const { return m_result; }

private:
    void takeMarkup();
    void skipTo(QLatin1String end);
    void takeTag(const QRegularExpressionMatch& tag);
    void takeStyle(const QString& tag);
    void count(const QString& name, bool isEnd);
    QString attributes(const QString& given);
    void checkSize(const QString& name, const QString& value);

    const QString& m_text;
    QString m_result;
    int m_position = 0;
    int m_tags = 0;
    int m_depth = 0;
    int m_tableDepth = 0;
    double m_sizes = 0.0;
    bool m_changed = false;
    bool m_bounded = true;
};

bool Cleaner::run()
{
    m_bounded = m_text.size() <= longestText;
    while (m_bounded && m_position < m_text.size()) {
        const int next = m_text.indexOf(QLatin1Char('<'), m_position);
        const int end = next < 0 ? m_text.size() : next;
        m_result += m_text.midRef(m_position, end - m_position);
        m_position = end;
        if (next >= 0)
            takeMarkup();
    }
    return m_bounded;
}

void Cleaner::takeMarkup()
{
    m_bounded = m_bounded && ++m_tags <= mostTags;
    const QStringRef rest = m_text.midRef(m_position);
    if (rest.startsWith(QLatin1String("<!--"))) {
        skipTo(QLatin1String("-->"));
    } else if (rest.startsWith(QLatin1String("<!")) || rest.startsWith(QLatin1String("<?"))) {
        skipTo(QLatin1String(">"));
    } else {
        const QRegularExpressionMatch tag = tagPattern().match(
            m_text, m_position, QRegularExpression::NormalMatch, QRegularExpression::AnchoredMatchOption);
        if (tag.hasMatch()) {
            takeTag(tag);
            return;
        }
        m_result += QLatin1String("&lt;");
        ++m_position;
    }
    m_changed = true;
}

void Cleaner::skipTo(QLatin1String end)
{
    const int found = m_text.indexOf(end, m_position);
    m_position = found < 0 ? m_text.size() : found + end.size();
}

void Cleaner::takeTag(const QRegularExpressionMatch& tag)
{
    m_position = tag.capturedEnd();
    const QString name = tag.captured(QStringLiteral("name")).toLower();
    const bool isEnd = !tag.capturedRef(QStringLiteral("end")).isEmpty();
    count(name, isEnd);
    if (isOneOf(name, {"img", "link"})) {
        m_changed = true;
        return;
    }
    const QString given = tag.captured(QStringLiteral("attributes"));
    const QString kept = isEnd ? given : attributes(given);
    const QString whole = kept == given ? tag.captured() : QLatin1Char('<') + name + kept + QLatin1Char('>');
    if (name == QLatin1String("style") && !isEnd)
        takeStyle(whole);
    else
        m_result += whole;
}

void Cleaner::takeStyle(const QString& tag)
{
    const int next = m_text.indexOf(QLatin1Char('<'), m_position);
    const QString css = m_text.mid(m_position, next < 0 ? -1 : next - m_position);
    m_position += css.size();
    checkSize(QStringLiteral("style"), css);
    if (isOwnStyle(css))
        m_result += tag + css;
    else
        m_changed = true;
}

// Elements that the next of their kind ends, or that have no content, nest in nothing.
void Cleaner::count(const QString& name, bool isEnd)
{
    if (isOneOf(name, {"br", "hr", "img", "link", "meta", "p", "li", "dt", "dd", "tr", "td", "th"}))
        return;
    const int step = isEnd ? -1 : 1;
    m_depth = qMax(0, m_depth + step);
    if (name == QLatin1String("table"))
        m_tableDepth = qMax(0, m_tableDepth + step);
    m_bounded = m_bounded && m_depth <= deepestNesting && m_tableDepth <= deepestTable;
}

QString Cleaner::attributes(const QString& given)
{
    QString kept;
    bool isWhole = true;
    auto found = attributePattern().globalMatch(given);
    while (found.hasNext()) {
        const QRegularExpressionMatch attribute = found.next();
        const QString name = attribute.captured(QStringLiteral("name")).toLower();
        const QString value = unquoted(attribute.captured(QStringLiteral("value")));
        checkSize(name, value);
        const bool loads =
            isOneOf(name, {"src", "background"}) || (name == QLatin1String("style") && !isOwnStyle(value));
        if (loads)
            isWhole = false;
        else
            kept += QLatin1Char(' ') + attribute.captured();
    }
    if (isWhole)
        return given;
    m_changed = true;
    return kept;
}

void Cleaner::checkSize(const QString& name, const QString& value)
{
    const bool isSpan = isOneOf(name, {"colspan", "rowspan"});
    const bool isSize =
        isSpan || isOneOf(name, {"style", "width", "height", "border", "cellpadding", "cellspacing", "size"});
    if (!isSize)
        return;
    for (const double number : numbersIn(value)) {
        m_sizes += number;
        m_bounded = m_bounded && number <= (isSpan ? widestSpan : largestSize) && m_sizes <= largestSizes;
    }
    // An entity may stand for a digit.
    m_bounded = m_bounded && !value.contains(QLatin1Char('&'));
}

/// A text that Qt finds rich.
struct Cleaned
{
    QString text;
    bool isChanged;
};

/// Nothing for a text that is beyond the bounds.
std::optional<Cleaned> cleaned(const QString& richText)
{
    Cleaner cleaner(richText);
    if (!cleaner.run())
        return std::nullopt;
    return Cleaned{cleaner.result(), cleaner.isChanged()};
}

/// As a rich text that shows \a text letter by letter.
QString letterByLetter(const QString& text)
{
    const QString shown = text.size() > longestText ? text.left(longestText) + QChar(0x2026) : text;
    return Qt::convertFromPlainText(shown);
}

} // namespace

void Markup::show(QLabel* label, const QString& text)
{
    Qt::TextFormat format = Qt::AutoText;
    QString shown = text;
    if (Qt::mightBeRichText(text)) {
        const auto clean = cleaned(text);
        if (!clean) {
            format = Qt::PlainText;
        } else if (clean->isChanged) {
            // What is left may look plain.
            format = Qt::RichText;
            shown = clean->text;
        }
    }
    if (label->textFormat() != format) {
        label->clear(); // the old text is not to be read in the new way
        label->setTextFormat(format);
    }
    label->setText(shown);
}

void Markup::showPlain(QLabel* label, const QString& text)
{
    if (label->textFormat() != Qt::PlainText) {
        label->clear();
        label->setTextFormat(Qt::PlainText);
    }
    label->setText(text);
}

QString Markup::toolTip(const QString& text)
{
    if (!Qt::mightBeRichText(text))
        return text;
    const auto clean = cleaned(text);
    if (!clean)
        return letterByLetter(text);
    return clean->isChanged && !Qt::mightBeRichText(clean->text) && !clean->text.isEmpty()
               ? QStringLiteral("<html>") + clean->text
               : clean->text;
}

QString Markup::plainToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? letterByLetter(text) : text;
}

QString Markup::fragment(const QString& text)
{
    // Inside a rich text every tag counts, also one that alone would look plain.
    if (!text.contains(QLatin1Char('<')))
        return text;
    const auto clean = cleaned(text);
    return clean ? clean->text : letterByLetter(text);
}
