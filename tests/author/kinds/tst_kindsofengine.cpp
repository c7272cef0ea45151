#include "formprobe.h"

#include <author/kinds/kindtable.h>
#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvawidget.h>

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QMetaMethod>
#include <QRegularExpression>
#include <QScriptEngine>
#include <QScriptValueIterator>
#include <QSet>
#include <QSignalSpy>
#include <QTest>

using namespace Orvane;
using namespace Orvane::Author;

namespace {

using Text = QPair<QString, QString>;

Text text(const char* type, const QString& value)
{
    return {QString::fromLatin1(type), value};
}

/// As the meta-object says it, one line a method, private ones left out.
QStringList methodsOf(const QMetaObject& meta)
{
    static const char* const kinds[] = {"method", "signal", "slot"};
    QStringList lines;
    for (int i = QObject::staticMetaObject.methodCount(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        if (method.access() == QMetaMethod::Private)
            continue;
        lines << QStringLiteral("%1 %2 %3(%4)")
                     .arg(QLatin1String(kinds[method.methodType()]), QString::fromLatin1(method.typeName()),
                          QString::fromLatin1(method.methodSignature()),
                          QString::fromLatin1(method.parameterNames().join(',')));
    }
    return lines;
}

QStringList methodsOf(const ControlClass& controlClass)
{
    static const char* const kinds[] = {"signal", "slot", "method"};
    QStringList lines;
    for (const Method& method : controlClass.methods) {
        QStringList names;
        for (const Argument& argument : method.arguments)
            names << argument.name;
        lines << QStringLiteral("%1 %2 %3(%4)")
                     .arg(QLatin1String(kinds[method.kind]), method.returns, method.signature(),
                          names.join(QLatin1Char(',')));
    }
    return lines;
}

/// Two texts of the property's type that mean different things.
QPair<Text, Text> samplesOf(const Property& property)
{
    const QString type = property.type;
    if (property.type == QLatin1String("Bool"))
        return {{type, QStringLiteral("true")}, {type, QStringLiteral("false")}};
    if (property.unit == QLatin1String("pixels"))
        return {{type, QStringLiteral("30")}, {type, QStringLiteral("50")}};
    if (property.isNumber())
        return {{type, QStringLiteral("3")}, {type, QStringLiteral("5")}};
    if (property.refers == QLatin1String("enumeration"))
        return {{type, QStringLiteral("Choices")}, {type, QStringLiteral("Others")}};
    if (property.refers == QLatin1String("entry"))
        return {{type, QStringLiteral("2")}, {type, QStringLiteral("3")}};
    return {{type, QStringLiteral("abc")}, {type, QStringLiteral("xyz")}};
}

/// What a property is set to where another one is looked at.
Text companionOf(const Property& property)
{
    if (property.name == QLatin1String("minimum"))
        return {property.type, QStringLiteral("1")};
    if (property.name == QLatin1String("maximum"))
        return {property.type, QStringLiteral("9000000")};
    if (property.name == QLatin1String("decimals") || property.name == QLatin1String("unitScale"))
        return {property.type, QStringLiteral("1")};
    return samplesOf(property).first;
}

/// The forms among which a property may show what it does.
QList<ProbeProperties> contextsOf(const ControlClass& controlClass, const Property& property)
{
    ProbeProperties bare;
    for (const QString& need : controlClass.needs + property.needs)
        bare.insert(need, companionOf(*controlClass.findProperty(need)));
    ProbeProperties full;
    for (const Property& other : controlClass.properties) {
        if (!other.inert)
            full.insert(other.name, companionOf(other));
    }
    ProbeProperties alone;
    for (const QString& need : property.needs)
        alone.insert(need, companionOf(*controlClass.findProperty(need)));
    for (const char* shared : {"enabled", "visible", "generateParameterXml"})
        alone.insert(QLatin1String(shared), text("Bool", QStringLiteral("true")));
    QList<ProbeProperties> contexts = {alone, bare, full};
    for (ProbeProperties& context : contexts)
        context.remove(property.name);
    return contexts;
}

ProbeProperties with(ProbeProperties properties, const QString& name, const Text& value)
{
    properties.insert(name, value);
    return properties;
}

/// All that can be seen of one row, what a later assignment of its script does included.
class RowSight
{
public:
    explicit RowSight(const QString& className)
        : m_className(className)
    {
    }

    QStringList of(const ProbeProperties& plain, const QString& script = QString(),
                   const ProbeProperties& custom = {})
    {
        const QByteArray description = probeDescription(m_className, plain, custom);
        const QByteArray key = description + script.toUtf8();
        static QHash<QByteArray, QStringList> seen;
        const auto known = seen.constFind(key);
        if (known != seen.cend())
            return *known;
        FormProbe probe(description);
        QStringList lines = probe.observe();
        if (!script.isEmpty()) {
            probe.formular().EvaluateScript(script);
            QCoreApplication::processEvents();
            lines += probe.observe();
        }
        lines += probe.operate();
        seen.insert(key, lines);
        return lines;
    }

private:
    QString m_className;
};

QString assignment(const QString& name, const Text& value)
{
    const bool bare = value.first != QLatin1String("String");
    return QStringLiteral("row[\"%1\"] = %2;")
        .arg(name, bare ? value.second : QLatin1Char('"') + value.second + QLatin1Char('"'));
}

/// True if the property changes something in the form as it comes up.
bool actsAtOnce(RowSight& sight, const ControlClass& controlClass, const Property& property)
{
    const auto samples = samplesOf(property);
    for (const ProbeProperties& context : contextsOf(controlClass, property)) {
        const QStringList without = sight.of(context);
        if (sight.of(with(context, property.name, samples.first)) != without ||
            sight.of(with(context, property.name, samples.second)) != without)
            return true;
    }
    return false;
}

/// True if a script that changes the property later is heard, and only because it was there.
bool actsLater(RowSight& sight, const ControlClass& controlClass, const Property& property)
{
    const auto samples = samplesOf(property);
    const QString script = assignment(property.name, samples.second);
    for (const ProbeProperties& context : contextsOf(controlClass, property)) {
        if (sight.of(with(context, property.name, samples.first), script) != sight.of(context, script))
            return true;
    }
    return false;
}

Property unknownProperty(const QString& name, const QString& type)
{
    Property property;
    property.name = name;
    property.type = type;
    return property;
}

/// The properties all at once: where they do nothing, one look is enough for all of them.
bool actTogether(RowSight& sight, const ControlClass& controlClass, const QStringList& names,
                 const QString& type)
{
    for (const ProbeProperties& context : contextsOf(controlClass, unknownProperty(QString(), type))) {
        ProbeProperties crowd = context;
        QString script;
        for (const QString& name : names) {
            const auto samples = samplesOf(unknownProperty(name, type));
            crowd.insert(name, samples.first);
            script += assignment(name, samples.second);
        }
        if (sight.of(crowd, script) != sight.of(context, script))
            return true;
    }
    return false;
}

QStringList actingAlone(RowSight& sight, const ControlClass& controlClass, const QStringList& names,
                        const QString& type)
{
    QStringList acting;
    for (const QString& name : names) {
        const Property property = unknownProperty(name, type);
        if (actsAtOnce(sight, controlClass, property) || actsLater(sight, controlClass, property))
            acting << name;
    }
    return acting;
}

/// True if the two texts make different forms somewhere.
bool differs(RowSight& sight, const ControlClass& controlClass, const Property& property, const Text& one,
             const Text& other)
{
    for (const ProbeProperties& context : contextsOf(controlClass, property)) {
        if (sight.of(with(context, property.name, one)) != sight.of(with(context, property.name, other)))
            return true;
    }
    return false;
}

/// True if two texts that are no numbers do different things beside being exported as they stand.
bool textsMatter(RowSight& sight, const ControlClass& controlClass, const Property& property)
{
    for (ProbeProperties context : contextsOf(controlClass, property)) {
        context.remove(QStringLiteral("generateParameterXml"));
        if (sight.of(with(context, property.name, text("String", QStringLiteral("abc")))) !=
            sight.of(with(context, property.name, text("String", QStringLiteral("xyz")))))
            return true;
    }
    return false;
}

/// What speaks against the type that the table gives, empty if nothing does.
QString typeComplaint(RowSight& sight, const ControlClass& controlClass, const Property& property)
{
    const auto seen = [&](const char* one, const char* other, const char* type = "String") {
        return differs(sight, controlClass, property, text(type, QString::fromLatin1(one)),
                       text(type, QString::fromLatin1(other)));
    };
    if (property.type == QLatin1String("Bool"))
        return seen("abc", "xyz") || seen("3", "5") ? QStringLiteral("takes more than true and false")
                                                    : QString();
    if (!property.isNumber())
        return QString();
    if (textsMatter(sight, controlClass, property))
        return QStringLiteral("takes texts");
    if (!seen("3", "5"))
        return QStringLiteral("takes no numbers");
    const bool isLimit =
        property.name == QLatin1String("minimum") || property.name == QLatin1String("maximum");
    // Limits are as whole as the number between them, though they are kept as they were written.
    if (property.type == QLatin1String("Int") && !isLimit && seen("2.5", "abc") && seen("2.5", "2") &&
        seen("2.5", "3"))
        return QStringLiteral("takes fractions");
    if (property.type == QLatin1String("Double") && !seen("2.5", "2"))
        return QStringLiteral("takes no fractions");
    if (property.type == QLatin1String("Int64") && !seen("5000000003", "abc"))
        return QStringLiteral("takes no big numbers");
    return QString();
}

/// Names that the engine's own sources ask rows for.
QSet<QString> namesInSources()
{
    static const QRegularExpression call(
        QStringLiteral("(?:[pP]roperty|Get[A-Z]\\w*|PropertyText|CreateValue\\w+|name "
                       "==)\\W*\\(?(?:QStringLiteral|QLatin1String)?\\(?\"(\\w+)\""));
    QSet<QString> names;
    QDirIterator files(QStringLiteral(ZORVA_SOURCE_DIR "/zorvaparser"), {QStringLiteral("*.cpp")},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        auto match = call.globalMatch(QString::fromUtf8(file.readAll()));
        while (match.hasNext())
            names.insert(match.next().captured(1));
    }
    return names;
}

/// Every name that could be a property of some row.
QSet<QString> candidates()
{
    QSet<QString> names = namesInSources();
    for (const ControlClass& controlClass : KindTable::instance().classes()) {
        for (const Property& property : controlClass.properties)
            names.insert(property.name);
        for (const Method& method : controlClass.methods) {
            if (method.name.startsWith(QLatin1String("set")) && method.name.size() > 3)
                names.insert(method.name.at(3).toLower() + method.name.mid(4));
        }
    }
    for (const QString& name : QSet<QString>(names)) {
        if (KindTable::instance().isReservedProperty(name))
            names.remove(name);
    }
    return names;
}

/// A form with every element and attribute of the language.
QString everything()
{
    return QStringLiteral(
        "<KVParamGui version=\"7\"><Enums><Enum name=\"Modes\"><EnumValue><DisplayName>one</DisplayName>"
        "<EnumIdentifier>ONE</EnumIdentifier><Value>1</Value></EnumValue></Enum></Enums>"
        "<Sheet name=\"sheet\"><Properties><Property name=\"parametersXmlRootTag\"><String>Root</String>"
        "</Property></Properties><CustomProperties><Property name=\"Attribute_a\"><String>b</String>"
        "</Property></CustomProperties><Widget name=\"row\" class=\"CheckBox\"><Property name=\"checked\">"
        "<Bool>true</Bool></Property></Widget></Sheet>"
        "<Script language=\"QtScript\">row.setVisible(false);</Script></KVParamGui>");
}

/// What the engine made of a whole description.
QStringList formOf(const QString& description)
{
    FormProbe probe(description.toUtf8());
    if (!probe.isLive())
        return {QStringLiteral("no form")};
    ZorvaFormular& formular = probe.formular();
    QStringList lines = probe.observe();
    lines << formular.GetVersion() << formular.GetScript().GetCode() << formular.GetScript().GetLanguage();
    const auto modes = formular.GetEnum(QStringLiteral("Modes"));
    for (int i = 0; i < modes->GetValueCount(); ++i) {
        const ZorvaEnumValue& entry = modes->GetValueAt(i);
        lines << entry.GetDisplayName() << entry.GetEnumIdentifier() << entry.GetValue();
    }
    for (int i = 0; i < formular.GetSheet().GetWidgetCount(); ++i) {
        const ZorvaDelegate* const row = formular.GetSheet().GetWidgetAt(i)->GetDelegate();
        for (const QByteArray& name : row->dynamicPropertyNames())
            lines << QString::fromLatin1(name) + QLatin1Char('=') +
                         row->property(name.constData()).toString();
    }
    return lines;
}

/// Names that the engine's readers of descriptions compare elements or ask attributes for.
QSet<QString> namesInReaders(const char* pattern)
{
    QSet<QString> names;
    const QRegularExpression literal(QString::fromLatin1(pattern));
    const QDir folder(QStringLiteral(ZORVA_SOURCE_DIR "/zorvaparser"));
    for (const QString& name : folder.entryList({QStringLiteral("*.cpp")})) {
        QFile file(folder.filePath(name));
        // The test shell reads component lists, which are another language.
        if (name == QLatin1String("zorvatest.cpp") || !file.open(QIODevice::ReadOnly))
            continue;
        auto match = literal.globalMatch(QString::fromUtf8(file.readAll()));
        while (match.hasNext())
            names.insert(match.next().captured(1));
    }
    return names;
}

void addClasses()
{
    QTest::addColumn<QString>("className");
    for (const ControlClass& controlClass : KindTable::instance().classes())
        QTest::newRow(qPrintable(controlClass.name)) << controlClass.name;
}

} // namespace

/// The table of the language against the engine: neither may change without the other.
class TestKindsOfEngine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyElementActs();
    void everyAttributeActs();
    void noOtherElementsOrAttributes();
    void everyClassAndNoOther();
    void methods_data() { addClasses(); }
    void methods();
    void methodsOfTheSheet();
    void propertiesThatAct_data() { addClasses(); }
    void propertiesThatAct();
    void propertiesThatDoNot_data() { addClasses(); }
    void propertiesThatDoNot();
    void propertyTypes_data() { addClasses(); }
    void propertyTypes();
    void fallbacks_data() { addClasses(); }
    void fallbacks();
    void controls_data() { addClasses(); }
    void controls();
    void customProperties_data() { addClasses(); }
    void customProperties();
    void parameterXml_data() { addClasses(); }
    void parameterXml();
    void propertiesOfTheSheet();
    void autoApplyPause();
    void scriptGlobals();
    void scriptMembers();
};

void TestKindsOfEngine::everyElementActs()
{
    const QStringList whole = formOf(everything());
    for (const Element& element : KindTable::instance().elements()) {
        QString damaged = everything();
        damaged.replace(QRegularExpression(QStringLiteral("(</?)%1\\b").arg(element.name)),
                        QStringLiteral("\\1Other"));
        QVERIFY2(damaged != everything(), qPrintable(element.name));
        QVERIFY2(formOf(damaged) != whole, qPrintable(element.name));
    }
}

void TestKindsOfEngine::everyAttributeActs()
{
    const QStringList whole = formOf(everything());
    for (const Element& element : KindTable::instance().elements()) {
        for (const Attribute& attribute : element.attributes) {
            QString damaged = everything();
            damaged.replace(
                QRegularExpression(QStringLiteral("(<%1\\b[^>]* )%2=").arg(element.name, attribute.name)),
                QStringLiteral("\\1other="));
            QVERIFY2(damaged != everything(), qPrintable(element.name + attribute.name));
            QVERIFY2(formOf(damaged) != whole, qPrintable(element.name + attribute.name));
        }
    }
}

void TestKindsOfEngine::noOtherElementsOrAttributes()
{
    const KindTable& table = KindTable::instance();
    const QSet<QString> elements = namesInReaders("name\\(\\) == QLatin1String\\(\"(\\w+)\"\\)");
    QVERIFY(elements.contains(QStringLiteral("Widget")));
    for (const QString& name : elements)
        QVERIFY2(table.findElement(name) || table.isValueType(name), qPrintable(name));
    QSet<QString> attributes;
    for (const Element& element : table.elements()) {
        for (const Attribute& attribute : element.attributes)
            attributes.insert(attribute.name);
    }
    QCOMPARE(namesInReaders("\\.value\\(QLatin1String\\(\"(\\w+)\"\\)\\)"), attributes);
}

void TestKindsOfEngine::everyClassAndNoOther()
{
    QStringList names;
    for (const ControlClass& controlClass : KindTable::instance().classes())
        names << controlClass.name;
    names.sort();
    QCOMPARE(names, ZorvaWidget::GetKnownClasses());
}

void TestKindsOfEngine::methods()
{
    QFETCH(QString, className);
    const ControlClass& controlClass = *KindTable::instance().findClass(className);
    const FormProbe probe(probeDescription(className, {}));
    const QMetaObject& meta = *probe.formular().GetSheet().GetWidgetAt(1)->GetDelegate()->metaObject();
    QCOMPARE(QLatin1String(meta.className()), QString(QLatin1String("Orvane::") + controlClass.delegate));
    QCOMPARE(methodsOf(controlClass), methodsOf(meta));
}

void TestKindsOfEngine::methodsOfTheSheet()
{
    const FormProbe probe(probeSheet({}));
    QCOMPARE(methodsOf(KindTable::instance().sheet()),
             methodsOf(*probe.formular().GetSheet().GetDelegate()->metaObject()));
}

void TestKindsOfEngine::propertiesThatAct()
{
    QFETCH(QString, className);
    const ControlClass& controlClass = *KindTable::instance().findClass(className);
    RowSight sight(className);
    QStringList idle;
    for (const Property& property : controlClass.properties) {
        if (property.inert)
            continue;
        if (actsAtOnce(sight, controlClass, property) == property.late ||
            (property.late && !actsLater(sight, controlClass, property)))
            idle << property.name;
    }
    QVERIFY2(idle.isEmpty(), qPrintable(QStringLiteral("said to act at once (or later alone), and do not: ") +
                                        idle.join(QLatin1Char(' '))));
}

void TestKindsOfEngine::propertiesThatDoNot()
{
    QFETCH(QString, className);
    const ControlClass& controlClass = *KindTable::instance().findClass(className);
    RowSight sight(className);
    QStringList names;
    for (const QString& name : candidates()) {
        const Property* const known = controlClass.findProperty(name);
        if (!known || known->inert)
            names << name;
    }
    for (const char* type : {"Bool", "Int", "String"}) {
        if (!actTogether(sight, controlClass, names, QString::fromLatin1(type)))
            continue;
        const QStringList culprits = actingAlone(sight, controlClass, names, QString::fromLatin1(type));
        QFAIL(qPrintable(QStringLiteral("missing or said to be inert, and act: ") +
                         culprits.join(QLatin1Char(' '))));
    }
}

void TestKindsOfEngine::propertyTypes()
{
    QFETCH(QString, className);
    const ControlClass& controlClass = *KindTable::instance().findClass(className);
    RowSight sight(className);
    QStringList wrong;
    for (const Property& property : controlClass.properties) {
        if (property.inert)
            continue;
        const QString complaint = typeComplaint(sight, controlClass, property);
        if (!complaint.isEmpty())
            wrong << property.name + QLatin1Char(' ') + complaint;
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1String(", "))));
}

void TestKindsOfEngine::fallbacks()
{
    QFETCH(QString, className);
    const ControlClass& controlClass = *KindTable::instance().findClass(className);
    RowSight sight(className);
    QStringList wrong;
    for (const Property& property : controlClass.properties) {
        if (property.inert || property.fallback.isEmpty())
            continue;
        for (const ProbeProperties& context : contextsOf(controlClass, property)) {
            if (sight.of(context) !=
                sight.of(with(context, property.name, {property.type, property.fallback})))
                wrong << property.name;
        }
    }
    wrong.removeDuplicates();
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1String(", "))));
}

void TestKindsOfEngine::controls()
{
    QFETCH(QString, className);
    const ControlClass& controlClass = *KindTable::instance().findClass(className);
    const Property none;
    const FormProbe probe(probeDescription(className, contextsOf(controlClass, none).at(1)));
    const FormProbe empty(probeDescription(QStringLiteral("Unknown"), contextsOf(controlClass, none).at(1)));
    const auto controlsOf = [](const FormProbe& form) {
        return form.formular().GetGUI()->findChildren<QWidget*>().size();
    };
    QCOMPARE(controlsOf(probe) > controlsOf(empty), controlClass.control != ControlClass::NoControl);
    QCOMPARE(controlClass.control == ControlClass::Headline,
             probe.formular().GetSheet().GetWidgetAt(1)->IsHeadline());
}

void TestKindsOfEngine::customProperties()
{
    QFETCH(QString, className);
    const ControlClass& controlClass = *KindTable::instance().findClass(className);
    RowSight sight(className);
    const ProbeProperties shown = {{QStringLiteral("visible"), text("Bool", QStringLiteral("true"))},
                                   {QStringLiteral("enabled"), text("Bool", QStringLiteral("true"))}};
    const QString none;
    for (const Property& property : controlClass.customProperties) {
        if (property.shared) {
            // The one that all rows have does what the plain one of its name does.
            const Text tip = text("String", QStringLiteral("abc"));
            QCOMPARE(sight.of(shown, none, {{property.name, tip}}),
                     sight.of(with(shown, property.name, tip), none, {{QStringLiteral("other"), tip}}));
            continue;
        }
        const auto samples = samplesOf(property);
        const QString set =
            QStringLiteral("row.setCustomProperty(\"%1\", %2);").arg(property.name, QStringLiteral("true"));
        QVERIFY2(sight.of(shown, none, {{property.name, samples.first}}) != sight.of(shown) ||
                     sight.of(shown, set) != sight.of(shown, QStringLiteral("0")),
                 qPrintable(property.name));
    }
}

void TestKindsOfEngine::parameterXml()
{
    QFETCH(QString, className);
    const ControlClass& controlClass = *KindTable::instance().findClass(className);
    ProbeProperties properties = contextsOf(controlClass, Property()).at(2);
    properties.insert(QStringLiteral("generateParameterXml"), text("Bool", QStringLiteral("true")));
    properties.insert(QStringLiteral("unit"), text("String", QStringLiteral("parsec")));
    FormProbe probe(probeDescription(className, properties));
    probe.formular().EvaluateScript(QStringLiteral("if (row.keys) row.setValue(\"key\", \"text\");"));
    const QString xml = probe.formular().GetXmlString(false);
    const QString between =
        xml.section(QStringLiteral("</before>"), 1).section(QStringLiteral("<behind>"), 0, 0);
    QCOMPARE(!between.trimmed().isEmpty(), controlClass.isExported());
    QCOMPARE(between.contains(QStringLiteral("unit=\"parsec\"")), controlClass.parameter.hasUnit);
    const int elements = between.count(QRegularExpression(QStringLiteral("<\\w")));
    switch (controlClass.parameter.form) {
    case ParameterElement::None:
        QCOMPARE(elements, 0);
        break;
    case ParameterElement::Leaf:
    case ParameterElement::Ranges: // of which there are none at first
        QCOMPARE(elements, 1);
        break;
    case ParameterElement::Pair:
        QCOMPARE(elements, 2);
        break;
    case ParameterElement::List:
        QVERIFY(elements > 1);
        QVERIFY(between.contains(QStringLiteral("<abc ")));
        break;
    }
}

void TestKindsOfEngine::propertiesOfTheSheet()
{
    QStringList wrong;
    const QString attribute = QStringLiteral("Attribute_x");
    const ProbeProperties custom = {{attribute, text("String", QString())}};
    for (const Property& property : KindTable::instance().sheet().properties) {
        if (property.name == QLatin1String("autoApplyTimeout"))
            continue;
        const QString name = QString(property.name).replace(QLatin1String("Attribute_*"), attribute);
        const auto samples = samplesOf(property);
        QSet<QStringList> sights;
        for (const ProbeProperties& plain : {ProbeProperties(), ProbeProperties{{name, samples.first}},
                                             ProbeProperties{{name, samples.second}}}) {
            FormProbe probe(probeSheet(plain, custom));
            probe.formular().EvaluateScript(QStringLiteral("row.setModified(true);"));
            // The changes first: fetching takes the marks away.
            const QString changes = probe.formular().GetXmlString(true);
            sights.insert(probe.observe() << changes);
        }
        if ((sights.size() > 1) == property.inert)
            wrong << name;
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char(' '))));
    QVERIFY(FormProbe(probeSheet({}, custom)).observe() != FormProbe(probeSheet({})).observe());
}

// The pause itself: the form with the short one announces its change, the other one waits on.
void TestKindsOfEngine::autoApplyPause()
{
    const QString name = QStringLiteral("autoApplyTimeout");
    QVERIFY(!KindTable::instance().sheet().findProperty(name)->inert);
    FormProbe patient(probeSheet({{name, text("Int", QStringLiteral("2000000000"))}}));
    FormProbe hasty(probeSheet({{name, text("Int", QStringLiteral("100"))}}));
    QSignalSpy late(&patient.formular(), &ZorvaFormular::si_parametersModified);
    QSignalSpy soon(&hasty.formular(), &ZorvaFormular::si_parametersModified);
    for (FormProbe* probe : {&patient, &hasty})
        probe->formular().EvaluateScript(QStringLiteral("row.setModified(true);"));
    QTRY_COMPARE(soon.count(), 1);
    QCOMPARE(late.count(), 0);
}

void TestKindsOfEngine::scriptMembers()
{
    FormProbe probe(probeSheet({}));
    const QScriptValue row = probe.formular().GetScriptValues().value(QStringLiteral("row"));
    QVERIFY(row.isQObject());
    for (const ScriptFunction& member : KindTable::instance().script().members)
        QVERIFY2(row.property(member.name).isValid(), qPrintable(member.name));
    for (const ScriptFunction& member : KindTable::instance().script().signalMembers)
        QVERIFY2(row.property(QStringLiteral("toggled")).property(member.name).isFunction(),
                 qPrintable(member.name));
}

void TestKindsOfEngine::scriptGlobals()
{
    QScriptEngine engine;
    QStringList names;
    QScriptValueIterator globals(engine.globalObject());
    while (globals.hasNext()) {
        globals.next();
        names << globals.name();
    }
    names.sort();
    QStringList known = KindTable::instance().script().globals();
    known.sort();
    QCOMPARE(known, names);
}

QTEST_MAIN(TestKindsOfEngine)
#include "tst_kindsofengine.moc"
