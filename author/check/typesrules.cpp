#include "families.h"
#include "subject.h"
#include "writtenrow.h"

#include <QtNumeric>

namespace Orvane {
namespace Author {

namespace {

const QVector<Rule> rules{
    {"bool-text", Severity::Warning, "a truth that is neither `true` nor `false`",
     "A `Bool` is true if its text is exactly `true`. Everything else, `True`, `1` and a blank before or "
     "behind included, "
     "is false.",
     R"(<Widget name="volume" class="Separator">
  <Property name="enabled"><Bool>True</Bool></Property>
</Widget>)",
     R"(<Widget name="volume" class="Separator">
  <Property name="enabled"><Bool>true</Bool></Property>
</Widget>)"},
    {"number-text", Severity::Warning, "a number that cannot be read",
     "A text that is no number, has a decimal comma, or does not fit into the number that the row keeps "
     "counts as not given: the row takes its default. Write digits, a point, and an exponent if need be. A "
     "truth counts as 1 or 0, and infinity is nothing that a device can be set to.",
     R"(<Widget name="volume" class="Separator">
  <Property name="margin"><Int>4,5</Int></Property>
</Widget>)",
     R"(<Widget name="volume" class="Separator">
  <Property name="margin"><Int>4</Int></Property>
</Widget>)"},
    {"type-name", Severity::Note, "a type that the language does not have",
     "The value counts as text, which comes to the same for words and numbers. But a truth in a misspelt "
     "`Bool` is true for every text that is not empty, `0` or `false`. The types are `Bool`, `Int`, `Int64`, "
     "`UInt64`, `Double` and `String`.",
     R"(<Widget name="volume" class="Separator">
  <Property name="margin"><Integer>4</Integer></Property>
</Widget>)",
     R"(<Widget name="volume" class="Separator">
  <Property name="margin"><Int>4</Int></Property>
</Widget>)"},
};

bool fits(const QString& text, const QString& type)
{
    bool ok = false;
    if (type == QLatin1String("Int"))
        text.toInt(&ok);
    else if (type == QLatin1String("Int64"))
        text.toLongLong(&ok);
    else if (type == QLatin1String("UInt64"))
        text.toULongLong(&ok);
    else
        ok = qIsFinite(text.toDouble(&ok)) && ok;
    return ok;
}

bool isNumberType(const QString& type)
{
    return type == QLatin1String("Int") || type == QLatin1String("Int64") ||
           type == QLatin1String("UInt64") || type == QLatin1String("Double");
}

class TypesCheck
{
public:
    explicit TypesCheck(Subject& subject)
        : m_subject(subject)
    {
    }

    void run()
    {
        const WrittenForm& form = m_subject.written();
        for (const QVector<WrittenRow>& rows : {form.sheets(), form.rows()}) {
            for (const WrittenRow& row : rows) {
                for (const WrittenProperty& property : row.all()) {
                    if (property.type >= 0)
                        checkProperty(row, property);
                }
            }
        }
    }

private:
    void checkProperty(const WrittenRow& row, const WrittenProperty& property)
    {
        if (!m_subject.kinds().isValueType(property.typeName)) {
            const QStringList types = namesOf(m_subject.kinds().valueTypes());
            m_subject.report(
                "type-name", m_subject.element(property.type).nameRange(),
                QStringLiteral("there is no type `%1`, and the value counts as text; the types are `%2`")
                    .arg(property.typeName, types.join(QLatin1String("`, `"))),
                -1, nearest(property.typeName, types));
        }
        const Property* const known = property.isCustom ? nullptr : row.kind().findProperty(property.name);
        const QString type = known && !known->inert ? known->type : property.typeName;
        if (property.typeName == QLatin1String("Bool"))
            checkBool(property, type);
        else if (type == QLatin1String("Bool"))
            checkTruth(property);
        else if (isNumberType(type))
            checkNumber(property, type);
        else if (isNumberType(property.typeName) && !fits(property.text, property.typeName))
            m_subject.reportValue("number-text", property,
                                  QStringLiteral("`%1` is no number and counts as text; write it in `String`")
                                      .arg(property.text));
    }

    void checkBool(const WrittenProperty& property, const QString& type)
    {
        if (property.text == QLatin1String("true") || property.text == QLatin1String("false")) {
            if (isNumberType(type))
                m_subject.reportValue(
                    "number-text", property,
                    QStringLiteral("`%1` is a number, and `%2` counts as %3; write it in `%4`")
                        .arg(property.name, property.text,
                             property.isTrue() ? QStringLiteral("1") : QStringLiteral("0"), type));
            return;
        }
        const QString meant = property.text.trimmed().toLower();
        const bool isNear = meant == QLatin1String("true") || meant == QLatin1String("false");
        m_subject.reportValue(
            "bool-text", property,
            QStringLiteral("`%1` is false, because it is not exactly `true`").arg(property.text),
            isNear ? meant : QString());
    }

    void checkTruth(const WrittenProperty& property)
    {
        static const QStringList sensible{QStringLiteral("true"), QStringLiteral("false"),
                                          QStringLiteral("1"), QStringLiteral("0")};
        if (!sensible.contains(property.text))
            m_subject.reportValue(
                "bool-text", property,
                QStringLiteral("`%1` counts as %2 here; write `<Bool>true</Bool>` or `<Bool>false</Bool>`")
                    .arg(property.text,
                         property.isTrue() ? QStringLiteral("true") : QStringLiteral("false")));
    }

    void checkNumber(const WrittenProperty& property, const QString& type)
    {
        if (fits(property.text, type))
            return;
        QString fixed = property.text.trimmed();
        fixed.replace(QLatin1Char(','), QLatin1Char('.'));
        const bool isComma = property.text.contains(QLatin1Char(',')) && fits(fixed, type);
        if (property.number() && !qIsFinite(*property.number())) {
            m_subject.reportValue(
                "number-text", property,
                QStringLiteral("`%1` is no number that a device can be set to").arg(property.text));
            return;
        }
        const QString why =
            isComma ? QStringLiteral("numbers have a point, not a comma")
            : property.number()
                ? QStringLiteral("it is no number of the kind that `%1` needs").arg(property.name)
                : QStringLiteral("it is no number");
        m_subject.reportValue("number-text", property,
                              QStringLiteral("`%1` counts as not given: %2").arg(property.text, why),
                              isComma ? fixed : QString());
    }

    Subject& m_subject;
};

void checkTypes(Subject& subject)
{
    TypesCheck(subject).run();
}

} // namespace

const Family typesFamily = {"types", "Types of values", rules, checkTypes};

} // namespace Author
} // namespace Orvane
