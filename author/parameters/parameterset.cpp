#include "parameterset.h"

#include <QSet>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace Orvane {
namespace Author {

namespace {

/** Deeper elements belong to the one at this level: no form has as many groups in each other. */
constexpr int deepest = 100;
/** Each one costs a look at all that follows; more of them are taken for sound. */
constexpr int mostRoots = 100;

const char* const markNames[] = {"index", "row", "column", "key"};

SettingStep stepOf(const SourceElement& element)
{
    SettingStep step{element.name, {}, 0};
    for (const char* const name : markNames) {
        if (const SourceAttribute* const mark = element.attribute(name))
            step.marks.append({mark->name, mark->value});
    }
    return step;
}

QString textOfStep(const SettingStep& step)
{
    QStringList marks;
    for (const auto& mark : step.marks)
        marks.append(mark.first + QLatin1Char('=') + mark.second);
    if (step.ordinal > 0)
        marks.append(QLatin1Char('#') + QString::number(step.ordinal + 1));
    return marks.isEmpty() ? step.name
                           : QStringLiteral("%1[%2]").arg(step.name, marks.join(QLatin1Char(',')));
}

QString keyOf(const QVector<SettingStep>& steps)
{
    QStringList parts;
    for (const SettingStep& step : steps)
        parts.append(textOfStep(step));
    return parts.join(QLatin1Char('/'));
}

bool isFirstOfDocument(const QXmlStreamReader& reader, int depth)
{
    return depth == 0 && reader.error() == QXmlStreamReader::NotWellFormedError;
}

} // namespace

QString Setting::text() const
{
    QStringList texts;
    for (const SettingLeaf& leaf : leaves)
        texts.append(leaf.text);
    const QString text = texts.join(QLatin1Char(' '));
    return text.isNull() ? QStringLiteral("") : text; // null is for what is not there at all
}

/** What an element of the text is to the form. */
struct ParameterSet::Node
{
    enum Kind { Outside, Root, Group, Row, Inside, Unknown, TooDeep };

    Kind kind = Outside;
    int row = -1;
    int group = 0; // the form's
    int depth = 0; // below the root
    SettingStep step;
    QHash<QString, int> alike; // children so far, by name and marks
    bool hasChildren = false;
};

ParameterSet::ParameterSet(const FormRows& rows, const SourceText& source)
    : m_description(source)
{
    findEnd();
    read(rows);
}

const Setting* ParameterSet::find(const QString& key) const
{
    const auto found = m_index.constFind(key);
    return found == m_index.cend() ? nullptr : &m_settings.at(*found);
}

ParameterSet::Node ParameterSet::place(const FormRows& rows, const QVector<Node>& nodes, int index) const
{
    const SourceElement& element = m_description.element(index);
    Node node;
    const Node::Kind above = element.parent < 0 ? Node::Outside : nodes.at(element.parent).kind;
    if (above == Node::Outside) {
        node.kind = element.name == rows.rootTag() ? Node::Root : Node::Outside;
        return node;
    }
    const Node& parent = nodes.at(element.parent);
    node.depth = parent.depth + 1;
    node.row = parent.row;
    node.step = stepOf(element);
    if (above == Node::TooDeep || node.depth > deepest) {
        node.kind = Node::TooDeep;
    } else if (above == Node::Row || above == Node::Inside) {
        node.kind = Node::Inside;
    } else if (above == Node::Unknown) {
        node.kind = Node::Unknown;
    } else {
        const FormRows::Place found = rows.find(parent.group, element.name);
        node.kind = !found.isKnown ? Node::Unknown : found.row >= 0 ? Node::Row : Node::Group;
        node.row = found.row;
        node.group = found.group;
        node.step.marks.clear();
    }
    return node;
}

void ParameterSet::read(const FormRows& rows)
{
    const QVector<SourceElement>& elements = m_description.elements();
    QVector<Node> nodes;
    nodes.reserve(elements.size());
    for (int i = 0; i < elements.size(); ++i) {
        if (m_end.at >= 0 && elements.at(i).tag.begin >= m_end.at)
            break;
        if (i == 0)
            m_firstTag = elements.at(i).tag;
        Node node = place(rows, nodes, i);
        m_hasRoot = m_hasRoot || node.kind == Node::Root;
        if (elements.at(i).parent >= 0) {
            Node& parent = nodes[elements.at(i).parent];
            parent.hasChildren = true;
            // Groups and rows that come twice are the same ones; of other elements each counts.
            if (node.kind == Node::Inside || node.kind == Node::Unknown) {
                const QString name = textOfStep(node.step);
                const int before = parent.alike.value(name, 0);
                parent.alike.insert(name, before + 1);
                // An item that is marked is found by its mark.
                node.step.ordinal = node.step.marks.isEmpty() ? before : 0;
            }
        }
        nodes.append(node);
    }
    for (int i = 0; i < nodes.size(); ++i)
        addLeaf(rows, nodes, i);
}

void ParameterSet::addLeaf(const FormRows& rows, const QVector<Node>& nodes, int index)
{
    const Node& node = nodes.at(index);
    const bool isSetting = node.kind == Node::Row || node.kind == Node::Inside || node.kind == Node::Unknown;
    const bool isList = node.row >= 0 && rows.kind(node.row).parameter.form >= ParameterElement::List;
    if (!isSetting || (node.hasChildren && isList))
        return;
    const SourceElement& element = m_description.element(index);
    SettingLeaf leaf;
    leaf.text = m_description.textOf(index);
    leaf.range = leaf.text.trimmed().isEmpty() ? element.tag : m_description.contentRange(index);
    if (const SourceAttribute* const unit = element.attribute("unit"))
        leaf.unit = unit->value;
    int rowElement = index;
    for (int i = index; i >= 0 && nodes.at(i).depth > 0; i = m_description.element(i).parent) {
        leaf.steps.prepend(nodes.at(i).step);
        if (nodes.at(i).kind == Node::Row)
            rowElement = i;
    }
    Setting setting{keyOf(leaf.steps), node.row, {leaf}, element.tag};
    if (node.hasChildren) {
        if (node.kind == Node::Row)
            m_nested.append(setting);
        return;
    }
    if (node.row < 0 || rows.kind(node.row).parameter.form != ParameterElement::Ranges) {
        // What is inside a value is no setting of its own.
        if (node.kind != Node::Inside || isList)
            add(setting);
        return;
    }
    const int depth = nodes.at(rowElement).depth;
    setting.key = keyOf(leaf.steps.mid(0, depth));
    setting.range = m_description.element(rowElement).tag;
    const auto found = m_index.constFind(setting.key);
    if (found != m_index.cend() && m_settings.at(*found).range.begin == setting.range.begin)
        m_settings[*found].leaves.append(leaf);
    else
        add(setting);
}

void ParameterSet::add(Setting setting)
{
    const auto found = m_index.constFind(setting.key);
    if (found == m_index.cend()) {
        m_index.insert(setting.key, m_settings.size());
        m_settings.append(setting);
        return;
    }
    m_replaced.append(m_settings.at(*found));
    m_settings[*found] = setting;
}

// Texts with several roots in a row are read to the end, as the engine does.
void ParameterSet::findEnd()
{
    const QString& text = source().text();
    int begin = 0;
    for (int roots = 0; begin < text.size() && roots < mostRoots; ++roots) {
        QXmlStreamReader reader(text.mid(begin));
        int depth = 0;
        int rootEnd = 0;
        while (!reader.atEnd()) {
            reader.readNext();
            depth += reader.isStartElement() ? 1 : reader.isEndElement() ? -1 : 0;
            if (reader.isEndElement() && depth == 0)
                rootEnd = static_cast<int>(reader.characterOffset());
        }
        if (!reader.hasError())
            return;
        if (rootEnd == 0 || !isFirstOfDocument(reader, depth)) {
            const QString rest = text.mid(begin).trimmed();
            if (rest.isEmpty() && begin > 0)
                return;
            m_end = {begin + qMin(static_cast<int>(reader.characterOffset()), text.size() - begin),
                     reader.errorString()};
            return;
        }
        begin += rootEnd;
    }
}

QString parameterXml(const QString& emptyRoot, const QVector<Setting>& settings)
{
    // The items of a row belong together, wherever they stand in the list.
    QVector<const SettingLeaf*> leaves;
    QHash<int, QVector<const Setting*>> ofRow;
    for (const Setting& setting : settings) {
        if (setting.row >= 0)
            ofRow[setting.row].append(&setting);
    }
    for (const Setting& setting : settings) {
        const QVector<const Setting*> together =
            setting.row < 0 ? QVector<const Setting*>{&setting} : ofRow.take(setting.row);
        for (const Setting* const one : together) {
            for (const SettingLeaf& leaf : one->leaves)
                leaves.append(&leaf);
        }
    }
    QString xml;
    QXmlStreamWriter writer(&xml);
    writer.setAutoFormatting(true);
    QXmlStreamReader root(emptyRoot);
    root.readNextStartElement();
    writer.writeStartElement(root.name().toString());
    writer.writeAttributes(root.attributes());
    QVector<SettingStep> open;
    const auto write = [&writer](const SettingStep& step, const QString& unit) {
        writer.writeStartElement(step.name);
        if (!unit.isNull())
            writer.writeAttribute(QStringLiteral("unit"), unit);
        for (const auto& mark : step.marks)
            writer.writeAttribute(mark.first, mark.second);
    };
    for (const SettingLeaf* const leaf : leaves) {
        const QVector<SettingStep> groups = leaf->steps.mid(0, leaf->steps.size() - 1);
        int common = 0;
        while (common < qMin(open.size(), groups.size()) && open.at(common) == groups.at(common))
            ++common;
        for (int i = open.size(); i > common; --i)
            writer.writeEndElement();
        for (int i = common; i < groups.size(); ++i)
            write(groups.at(i), QString());
        open = groups;
        write(leaf->steps.last(), leaf->unit);
        writer.writeCharacters(leaf->text);
        writer.writeEndElement();
    }
    writer.writeEndDocument();
    return xml.trimmed() + QLatin1Char('\n');
}

bool holdsNumbers(const ControlClass& kind)
{
    static const QSet<QString> delegates{QStringLiteral("ZorvaSpinBox"),
                                         QStringLiteral("ZorvaDoubleSpinBox"),
                                         QStringLiteral("ZorvaInt64SpinBox"),
                                         QStringLiteral("ZorvaFrequencyEdit"),
                                         QStringLiteral("ZorvaFrequencyRangeEdit"),
                                         QStringLiteral("ZorvaDoubleSpinBoxList"),
                                         QStringLiteral("ZorvaSpinBoxList"),
                                         QStringLiteral("ZorvaChannelSpacingTable"),
                                         QStringLiteral("ZorvaFHPObject"),
                                         QStringLiteral("ZorvaDSCObject")};
    return delegates.contains(kind.delegate);
}

bool holdsWholeNumbers(const ControlClass& kind)
{
    static const QSet<QString> delegates{QStringLiteral("ZorvaSpinBox"), QStringLiteral("ZorvaInt64SpinBox"),
                                         QStringLiteral("ZorvaSpinBoxList"),
                                         QStringLiteral("ZorvaFrequencyEdit"),
                                         QStringLiteral("ZorvaFrequencyRangeEdit")};
    return delegates.contains(kind.delegate);
}

bool meansTheSame(const ControlClass& kind, const QString& left, const QString& right)
{
    if (left == right || !holdsNumbers(kind))
        return left == right;
    bool isLeft = false;
    bool isRight = false;
    const qlonglong wholeLeft = left.toLongLong(&isLeft);
    const qlonglong wholeRight = right.toLongLong(&isRight);
    if (isLeft && isRight)
        return wholeLeft == wholeRight;
    const double numberLeft = left.toDouble(&isLeft);
    const double numberRight = right.toDouble(&isRight);
    return isLeft && isRight && numberLeft == numberRight;
}

bool meansTheSame(const ControlClass& kind, const Setting& left, const Setting& right)
{
    if (left.leaves.size() != right.leaves.size())
        return false;
    for (int i = 0; i < left.leaves.size(); ++i) {
        const SettingLeaf& one = left.leaves.at(i);
        const SettingLeaf& other = right.leaves.at(i);
        if (one.steps.last().name != other.steps.last().name || !meansTheSame(kind, one.text, other.text))
            return false;
    }
    return true;
}

} // namespace Author
} // namespace Orvane
