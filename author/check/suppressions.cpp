#include "suppressions.h"

#include "families.h"
#include "subject.h"

#include <QRegularExpression>

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

const QVector<Rule> rules{
    {"unused-allow", Severity::Warning, "a comment that allows what is not there",
     "A comment `zorva: allow` that matches no finding hides the next real one. Remove it, or move it to the "
     "line or "
     "before the element that it is about.",
     R"(<!-- zorva: allow nameless made by a tool -->
<Widget name="volume" class="Label"/>)",
     R"(<!-- zorva: allow nameless made by a tool -->
<Widget class="Label"/>)"},
    {"bad-allow", Severity::Warning, "a comment that allows in vain",
     "The comment must be `zorva: allow ID reason`: the id of a rule, as it stands in brackets behind a "
     "finding, and "
     "some words on why it is all right here.",
     R"(<!-- zorva: allow nameless -->
<Widget name="volume" class="Label"/>)",
     R"(<!-- zorva: allow nameless made by a tool -->
<Widget class="Label"/>)"},
};

struct Permission
{
    QString id;
    Range comment;
    int firstLine = 0;
    int lastLine = 0;
    Range element; // empty if it is about its lines alone
    bool used = false;

    bool covers(const Finding& finding, int line) const
    {
        return finding.id == id &&
               ((line >= firstLine && line <= lastLine) || element.contains(finding.range.begin));
    }
};

class Suppressions
{
public:
    explicit Suppressions(Subject& subject)
        : m_subject(subject)
    {
    }

    void run()
    {
        for (const Comment& comment : m_subject.description().comments())
            read(comment);
        if (!m_permissions.isEmpty())
            apply();
        for (const Permission& permission : qAsConst(m_permissions)) {
            if (!permission.used)
                m_subject.report(
                    "unused-allow", permission.comment,
                    QStringLiteral("there is no finding `%1` here to be allowed; remove the comment")
                        .arg(permission.id));
        }
    }

private:
    void read(const Comment& comment)
    {
        static const QRegularExpression pattern(
            QStringLiteral("\\A\\s*zorva:\\s*allow\\b[ \\t]*([^\\s]*)\\s*(.*?)\\s*\\z"),
            QRegularExpression::DotMatchesEverythingOption);
        const QString text = m_subject.source().text();
        const QRegularExpressionMatch match =
            pattern.match(text.mid(comment.inside.begin, comment.inside.end - comment.inside.begin));
        if (!match.hasMatch())
            return;
        const QString id = match.captured(1);
        if (!findRule(id)) {
            m_subject.report("bad-allow", comment.range, QStringLiteral("there is no rule `%1`").arg(id), -1,
                             nearest(id, ruleIds()));
        } else if (match.captured(2).isEmpty()) {
            m_subject.report("bad-allow", comment.range,
                             QStringLiteral("say behind `%1` why it is all right here").arg(id));
        } else {
            m_permissions.append(permission(id, comment));
        }
    }

    Permission permission(const QString& id, const Comment& comment) const
    {
        Permission made;
        made.id = id;
        made.comment = comment.range;
        made.firstLine = m_subject.source().lineAt(comment.range.begin);
        made.lastLine = m_subject.source().lineAt(comment.range.end);
        const int lineStart = m_subject.source().lineStart(made.firstLine);
        const QString before = m_subject.source().text().mid(lineStart, comment.range.begin - lineStart);
        if (before.trimmed().isEmpty())
            made.element = elementBehind(comment.range.end);
        return made;
    }

    Range elementBehind(int offset) const
    {
        const QVector<SourceElement>& elements = m_subject.description().elements();
        const auto next = std::lower_bound(
            elements.cbegin(), elements.cend(), offset,
            [](const SourceElement& element, int wanted) { return element.tag.begin < wanted; });
        return next == elements.cend() ? Range() : Range{next->tag.begin, next->end};
    }

    void apply()
    {
        QVector<Finding>& findings = m_subject.findings();
        const auto isAllowed = [this](const Finding& finding) {
            const int line = m_subject.source().lineAt(finding.range.begin);
            bool allowed = false;
            for (Permission& permission : m_permissions) {
                if (permission.covers(finding, line))
                    allowed = permission.used = true;
            }
            return allowed;
        };
        findings.erase(std::remove_if(findings.begin(), findings.end(), isAllowed), findings.end());
    }

    Subject& m_subject;
    QVector<Permission> m_permissions;
};

} // namespace

void applySuppressions(Subject& subject)
{
    Suppressions(subject).run();
}

// The comments are looked at when all other families are done.
const Family suppressionFamily = {"suppression", "Comments that allow", rules, nullptr};

} // namespace Author
} // namespace Orvane
