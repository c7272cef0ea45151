#include "manualpage.h"

#include <author/files/wholefile.h>

static void initialiseStyle()
{
    Q_INIT_RESOURCE(manual);
}

namespace Orvane {
namespace Author {

namespace {

QString escaped(const QString& text)
{
    QString words;
    // Control characters have no place in a page.
    for (const QChar character : text) {
        if (character.isPrint() || character.isSpace() || character.isSurrogate())
            words += character;
    }
    return words.toHtmlEscaped();
}

QString element(const char* name, const QString& content, const QString& attributes = QString())
{
    return QStringLiteral("<%1%2>%3</%1>").arg(QLatin1String(name), attributes, content);
}

QString attribute(const char* name, const QString& value)
{
    return QStringLiteral(" %1=\"%2\"").arg(QLatin1String(name), escaped(value));
}

QString wordsOf(const ManualFact& fact)
{
    QStringList items;
    for (int i = 0; i < fact.words.size(); ++i) {
        const QString word = escaped(fact.words.at(i));
        if (fact.kind == ManualFact::Path)
            items << element("code", word);
        else if (fact.kind == ManualFact::Choices)
            items << element("li", i == fact.chosen ? element("b", word) : word);
        else
            items << word;
    }
    return fact.kind == ManualFact::Choices ? element("ul", items.join(QString()))
                                            : items.join(QLatin1String(", "));
}

QString tableOf(const ManualRow& row)
{
    QString lines;
    for (const ManualFact& fact : row.facts)
        lines += element("tr", element("th", escaped(fact.name), attribute("scope", QStringLiteral("row"))) +
                                   element("td", wordsOf(fact))) +
                 QLatin1Char('\n');
    return lines.isEmpty() ? QString() : element("table", QLatin1Char('\n') + lines);
}

QString titleOf(const Manual& manual, const ManualGroup& group)
{
    return group.title.isEmpty() ? manual.title : group.title;
}

/** The pieces of the page, one for each group. */
class Page
{
public:
    Page(const Manual& manual, const QVector<ManualPicture>& pictures)
        : m_manual(manual)
        , m_pictures(pictures)
    {
        for (int i = 0; i < manual.groups.size(); ++i)
            m_anchors << manualAnchor(manual.groups.at(i).name, i + 1);
    }

    QString contents() const
    {
        QString items;
        for (int i = 0; i < m_anchors.size(); ++i)
            items += element("li", element("a", escaped(titleOf(m_manual, m_manual.groups.at(i))),
                                           attribute("href", QLatin1Char('#') + m_anchors.at(i)))) +
                     QLatin1Char('\n');
        return items.isEmpty() ? QString()
                               : element("nav", element("ol", QLatin1Char('\n') + items)) + QLatin1Char('\n');
    }

    QString groups() const
    {
        QString text;
        for (int i = 0; i < m_manual.groups.size(); ++i)
            text += group(i);
        return text;
    }

private:
    QString group(int index) const
    {
        const ManualGroup& group = m_manual.groups.at(index);
        QString text = element("h2", escaped(titleOf(m_manual, group))) + QLatin1Char('\n') + picture(index);
        for (int i = 0; i < group.rows.size(); ++i)
            text += row(group.rows.at(i), QStringLiteral("%1-%2").arg(index + 1).arg(i + 1));
        return element("section", QLatin1Char('\n') + text, attribute("id", m_anchors.at(index))) +
               QLatin1Char('\n');
    }

    QString picture(int index) const
    {
        const ManualPicture picture = m_pictures.value(index);
        if (picture.file.isEmpty())
            return QString();
        const QString image = QStringLiteral("<img%1%2%3%4/>")
                                  .arg(attribute("src", picture.file),
                                       attribute("alt", titleOf(m_manual, m_manual.groups.at(index))),
                                       attribute("width", QString::number(picture.size.width())),
                                       attribute("height", QString::number(picture.size.height())));
        return element("figure", image) + QLatin1Char('\n');
    }

    static QString row(const ManualRow& row, const QString& number)
    {
        QString text = element("h3", escaped(row.caption)) + QLatin1Char('\n');
        if (!row.help.isEmpty())
            text += element("p", escaped(row.help)) + QLatin1Char('\n');
        return element("article", QLatin1Char('\n') + text + tableOf(row),
                       attribute("id", QStringLiteral("row-") + number)) +
               QLatin1Char('\n');
    }

    const Manual& m_manual;
    const QVector<ManualPicture>& m_pictures;
    QStringList m_anchors; // of the groups
};

} // namespace

QByteArray manualPage(const Manual& manual, const QString& language, const QVector<ManualPicture>& pictures)
{
    const Page page(manual, pictures);
    const QString code = QString(language.isEmpty() ? QStringLiteral("en") : language)
                             .replace(QLatin1Char('_'), QLatin1Char('-'));
    const QString title = escaped(manual.title);
    const QString head = QStringLiteral("\n<meta charset=\"utf-8\"/>\n"
                                        "<meta name=\"viewport\" content=\"width=device-width\"/>\n"
                                        "<meta name=\"color-scheme\" content=\"light dark\"/>\n%1\n"
                                        "<link rel=\"stylesheet\" href=\"style.css\"/>\n")
                             .arg(element("title", title));
    const QString body = QLatin1Char('\n') + element("h1", title) + QLatin1Char('\n') + page.contents() +
                         element("main", QLatin1Char('\n') + page.groups()) + QLatin1Char('\n');
    const QString html = QStringLiteral("<!DOCTYPE html>\n") +
                         element("html",
                                 QLatin1Char('\n') + element("head", head) + QLatin1Char('\n') +
                                     element("body", body) + QLatin1Char('\n'),
                                 attribute("lang", code)) +
                         QLatin1Char('\n');
    return html.toUtf8();
}

QByteArray manualStyle()
{
    initialiseStyle();
    return readWhole(QStringLiteral(":/author/manual/style.css")).bytes;
}

QString manualAnchor(const QString& name, int number)
{
    QString anchor;
    for (const QChar character : name) {
        const bool isPlain = character.unicode() < 128 && (character.isLetterOrNumber());
        if (isPlain)
            anchor += character.toLower();
    }
    return anchor.isEmpty() ? QStringLiteral("group-%1").arg(number)
                            : QStringLiteral("group-%1-%2").arg(number).arg(anchor.left(40));
}

} // namespace Author
} // namespace Orvane
