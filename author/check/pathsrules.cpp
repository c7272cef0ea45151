#include "families.h"
#include "subject.h"
#include "writtenrow.h"

#include <QRegularExpression>

namespace Orvane {
namespace Author {

namespace {

#define LINE(name, path)                                                                                     \
    "<Widget name=\"" name "\" class=\"HiddenParameter\">\n"                                                 \
    "  <Property name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"                               \
    "  <Property name=\"parameterXmlTag\"><String>" path "</String></Property>\n</Widget>"

const QVector<Rule> rules{
    {"shared-path", Severity::Warning, "two rows on one path",
     "Both write the same element, and what is read goes to the first alone; in the value tree the second "
     "finds its place "
     "taken. Give each row a path of its own.",
     LINE("a", "Tuner/Gain") "\n" LINE("b", "Tuner/Gain"),
     LINE("a", "Tuner/Gain") "\n" LINE("b", "Tuner/Level")},
    {"leaf-is-group", Severity::Warning, "an element that is a value and a group at once",
     "A row writes a text into the element in which other rows stand. A reader finds the one or the others, "
     "not both. "
     "Rename one of the paths.",
     LINE("a", "Tuner") "\n" LINE("b", "Tuner/Gain"), LINE("a", "Tuner/Level") "\n" LINE("b", "Tuner/Gain")},
    {"empty-path-part", Severity::Warning, "a path with an empty part",
     "Empty parts are dropped in parameter XML but not in the value tree, so the row has two different "
     "places, and with a "
     "slash at the end a tag without a name. Remove the slash.",
     LINE("a", "Tuner//Gain"), LINE("a", "Tuner/Gain")},
    {"path-name", Severity::Warning, "a path that is no name in XML",
     "The row writes an element that no reader takes, the library itself included: the parameters behind it "
     "cannot be read "
     "back. Names begin with a letter or `_` and have no blanks.",
     LINE("a", "Tuner/2nd gain"), LINE("a", "Tuner/Gain2")},
    {"lost-path", Severity::Warning, "a path that a block of custom properties takes away",
     "The tables of excluded ranges take their path from the custom property `customXmlTag`. A block "
     "`CustomProperties` without it, be it misspelt, gives them the name that they have by themselves, "
     "`ExclusionRanges` or `ExclusionFrequencyList`, whatever `parameterXmlTag` says before it; the device "
     "then "
     "finds its ranges in another place. Put the path into `customXmlTag`.",
     R"(<Widget name="excluded" class="SpecialObject_FHP">
  <Property name="parameterXmlTag"><String>Scan/Excluded</String></Property>
  <CustomProperties>
    <Property name="CustomXmlTag"><String>Scan/Excluded</String></Property>
  </CustomProperties>
</Widget>)",
     R"(<Widget name="excluded" class="SpecialObject_FHP">
  <CustomProperties>
    <Property name="customXmlTag"><String>Scan/Excluded</String></Property>
  </CustomProperties>
</Widget>)"},
    {"root-attribute", Severity::Warning, "an attribute of the root with half of what it needs",
     "An attribute `Attribute_NAME` of the parameters' root needs two entries: the custom property says that "
     "there is one, "
     "and the plain property of the same full name says what it holds.",
     R"(<CustomProperties><Property name="Attribute_zone"><String>7</String></Property></CustomProperties>)",
     R"(<Properties><Property name="Attribute_zone"><String>7</String></Property></Properties>
<CustomProperties><Property name="Attribute_zone"><String></String></Property></CustomProperties>)"},
};

class PathsCheck
{
public:
    explicit PathsCheck(Subject& subject)
        : m_subject(subject)
        , m_form(subject.written())
    {
    }

    void run()
    {
        for (const WrittenRow& row : m_form.rows()) {
            checkBlock(row);
            if (isExported(row))
                takePath(row);
        }
        for (auto leaf = m_leaves.cbegin(); leaf != m_leaves.cend(); ++leaf) {
            if (m_groups.contains(leaf.key()))
                report("leaf-is-group", *leaf,
                       QStringLiteral("`%1` is the group of another row, too; rename one of them")
                           .arg(leaf.key()));
        }
        for (const WrittenRow& sheet : m_form.sheets())
            checkAttributes(sheet);
    }

private:
    static bool isExported(const WrittenRow& row)
    {
        return row.isExported() || row.className() == QLatin1String("SpecialObject_FHP") ||
               row.className() == QLatin1String("SpecialObject_DSC");
    }

    /** The text that says the path: a property, or the row's name. */
    Range placeOf(const WrittenRow& row) const
    {
        for (const WrittenProperty& property : row.all()) {
            if (property.type >= 0 && property.text == row.path() &&
                (property.name == QLatin1String("parameterXmlTag") ||
                 property.name == QLatin1String("customXmlTag")))
                return m_subject.valueRange(property);
        }
        const SourceAttribute* const name = m_subject.element(row.element()).attribute("name");
        return name ? name->valueRange : m_subject.element(row.element()).nameRange();
    }

    void report(const char* id, Range place, const QString& message) { m_subject.report(id, place, message); }

    void checkBlock(const WrittenRow& row)
    {
        const QString written = row.text("parameterXmlTag");
        if (row.ownTag().isEmpty() || row.customBlock() < 0 || written.isEmpty() ||
            row.path() != row.ownTag() || written == row.ownTag())
            return;
        m_subject.reportAt(
            "lost-path", row.customBlock(),
            QStringLiteral("without `customXmlTag` this block makes `%1` the path of `%2`, and "
                           "not `%3`")
                .arg(row.path(), row.name(), written));
    }

    void takePath(const WrittenRow& row)
    {
        const QString path = row.path();
        const Range place = placeOf(row);
        if (path.isEmpty())
            return;
        const QStringList parts = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
        if (parts.size() != path.count(QLatin1Char('/')) + 1)
            report("empty-path-part", place,
                   QStringLiteral("`%1` has an empty part; remove the slash").arg(path));
        static const QRegularExpression name(QStringLiteral("\\A[\\p{L}_][\\p{L}\\p{M}\\p{N}_.\\-]*\\z"),
                                             QRegularExpression::UseUnicodePropertiesOption);
        for (const QString& part : parts) {
            if (!name.match(part).hasMatch()) {
                report("path-name", place, QStringLiteral("`%1` is no name of an XML element").arg(part));
                break;
            }
        }
        const QString joined = parts.join(QLatin1Char('/'));
        // Rows of one name are told as such.
        if (m_leaves.contains(joined) && m_names.value(joined) != row.name())
            report(
                "shared-path", place,
                QStringLiteral("the row `%1` has the path `%2` already").arg(m_names.value(joined), joined));
        m_leaves.insert(joined, place);
        m_names.insert(joined, row.name());
        for (int i = 1; i < qMin(parts.size(), deepestPath); ++i)
            m_groups.insert(QStringList(parts.mid(0, i)).join(QLatin1Char('/')));
    }

    void checkAttributes(const WrittenRow& sheet)
    {
        for (const WrittenProperty& property : sheet.all()) {
            if (!property.name.startsWith(QLatin1String("Attribute_")))
                continue;
            const bool hasOther = property.isCustom ? sheet.find(property.name) != nullptr
                                                    : sheet.findCustom(property.name) != nullptr;
            if (!hasOther && !m_form.scriptMentions(property.name))
                report("root-attribute", m_subject.element(property.element).attribute("name")->valueRange,
                       property.isCustom
                           ? QStringLiteral("`%1` is announced, but no plain property says what it holds")
                                 .arg(property.name)
                           : QStringLiteral("`%1` is not written: no custom property announces it")
                                 .arg(property.name));
        }
    }

    static constexpr int deepestPath = 100;

    Subject& m_subject;
    const WrittenForm& m_form;
    QMap<QString, Range> m_leaves;
    QHash<QString, QString> m_names;
    QSet<QString> m_groups;
};

void checkPaths(Subject& subject)
{
    PathsCheck(subject).run();
}

} // namespace

const Family pathsFamily = {"paths", "Paths in parameter XML", rules, checkPaths};

} // namespace Author
} // namespace Orvane
