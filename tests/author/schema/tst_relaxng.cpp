#include <author/kinds/kindtable.h>
#include <author/schema/relaxng.h>
#include <author/templates/templates.h>

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

using namespace Orvane::Author;

namespace {

const QStringList validators = {QStringLiteral("xmllint"), QStringLiteral("jing")};

/// What damage does to one element or attribute of a document; false if it does not fit there.
using Damage = std::function<bool(QDomElement&)>;

bool renameElement(QDomElement& element)
{
    element.setTagName(element.tagName() + QLatin1Char('x'));
    return true;
}

bool lowerElement(QDomElement& element)
{
    const QString lower = element.tagName().toLower();
    const bool changes = lower != element.tagName();
    element.setTagName(lower);
    return changes;
}

bool renameAttribute(QDomElement& element)
{
    const QDomNamedNodeMap attributes = element.attributes();
    if (attributes.isEmpty())
        return false;
    const QDomAttr first = attributes.item(0).toAttr();
    element.setAttribute(first.name() + QLatin1Char('x'), first.value());
    element.removeAttribute(first.name());
    return true;
}

bool addAttribute(QDomElement& element)
{
    element.setAttribute(QStringLiteral("colour"), QStringLiteral("red"));
    return true;
}

bool dropAttribute(QDomElement& element)
{
    const Element* const known = KindTable::instance().findElement(element.tagName());
    for (const Attribute& attribute : known ? known->attributes : QList<Attribute>()) {
        if (attribute.needed && element.hasAttribute(attribute.name)) {
            element.removeAttribute(attribute.name);
            return true;
        }
    }
    return false;
}

bool emptyAttribute(QDomElement& element)
{
    const Element* const known = KindTable::instance().findElement(element.tagName());
    for (const Attribute& attribute : known ? known->attributes : QList<Attribute>()) {
        if (attribute.needed && element.hasAttribute(attribute.name)) {
            element.setAttribute(attribute.name, QString());
            return true;
        }
    }
    return false;
}

bool strayChild(QDomElement& element)
{
    element.appendChild(element.ownerDocument().createElement(QStringLiteral("Stray")));
    return true;
}

bool strayText(QDomElement& element)
{
    if (element.firstChildElement().isNull())
        return false;
    element.insertBefore(element.ownerDocument().createTextNode(QStringLiteral("text")), QDomNode());
    return true;
}

/// Those that can stand only once, or where another one cannot stand beside them.
bool doubleSingle(QDomElement& element)
{
    static const QStringList single = {QStringLiteral("Sheet"), QStringLiteral("Script"),
                                       QStringLiteral("DisplayName"), QStringLiteral("EnumIdentifier"),
                                       QStringLiteral("Value")};
    const bool isType = element.parentNode().nodeName() == QLatin1String("Property");
    if (!isType && !single.contains(element.tagName()))
        return false;
    element.parentNode().insertAfter(element.cloneNode(), element);
    return true;
}

bool dropPart(QDomElement& element)
{
    static const QStringList parts = {QStringLiteral("DisplayName"), QStringLiteral("EnumIdentifier"),
                                      QStringLiteral("Value")};
    const bool isType = element.parentNode().nodeName() == QLatin1String("Property");
    if (!isType && !parts.contains(element.tagName()))
        return false;
    element.parentNode().removeChild(element);
    return true;
}

bool moveUp(QDomElement& element)
{
    QDomNode parent = element.parentNode();
    QDomNode above = parent.parentNode();
    if (!above.isElement() || element.tagName() == QLatin1String("CustomProperties"))
        return false;
    above.insertAfter(element, parent);
    return true;
}

bool wrap(QDomElement& element)
{
    if (!element.parentNode().isElement())
        return false;
    QDomElement wrapper = element.ownerDocument().createElement(QStringLiteral("Properties"));
    element.parentNode().replaceChild(wrapper, element);
    wrapper.appendChild(element);
    return true;
}

bool isProperty(const QDomElement& element)
{
    return element.tagName() == QLatin1String("Property") &&
           element.parentNode().nodeName() != QLatin1String("CustomProperties");
}

bool unknownProperty(QDomElement& element)
{
    if (!isProperty(element))
        return false;
    element.setAttribute(QStringLiteral("name"),
                         element.attribute(QStringLiteral("name")).toUpper() + QStringLiteral("_"));
    return !element.attribute(QStringLiteral("name")).startsWith(QLatin1String("ATTRIBUTE_"));
}

bool unknownClass(QDomElement& element)
{
    if (!element.hasAttribute(QStringLiteral("class")))
        return false;
    element.setAttribute(QStringLiteral("class"), element.attribute(QStringLiteral("class")).toLower());
    return true;
}

bool wrongText(QDomElement& element)
{
    if (!KindTable::instance().isValueType(element.tagName()) || element.tagName() == QLatin1String("String"))
        return false;
    element.firstChild().setNodeValue(QStringLiteral("True, 1,5"));
    return element.firstChild().isText();
}

/// Every element below a node, in order of the text.
void collect(const QDomNode& node, QList<QDomElement>& elements)
{
    for (QDomElement child = node.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        elements << child;
        collect(child, elements);
    }
}

QList<QDomElement> elementsOf(const QDomDocument& document)
{
    QList<QDomElement> elements;
    collect(document, elements);
    return elements;
}

struct Corpus
{
    QStringList paths;
    QStringList what;
};

/// The damage at every nth element of the form where it fits, one file for each.
void write(Corpus& corpus, const QDir& folder, const QByteArray& form, const char* name, const Damage& damage,
           int step)
{
    QDomDocument whole;
    whole.setContent(form);
    const int count = elementsOf(whole).size();
    for (int i = 0; i < count; i += step) {
        QDomDocument document = whole.cloneNode().toDocument();
        QDomElement element = elementsOf(document).at(i);
        const QString tag = element.tagName();
        if (!damage(element))
            continue;
        const QString path =
            folder.filePath(QStringLiteral("%1-%2.zorva").arg(QLatin1String(name)).arg(corpus.paths.size()));
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(document.toByteArray(-1));
        corpus.paths << path;
        corpus.what << QStringLiteral("%1 at %2, element %3").arg(QLatin1String(name), tag).arg(i);
    }
}

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Every kind of damage that a grammar can see, at every place of a small form and at many of a big one.
Corpus damagedForms(const QDir& folder)
{
    const std::pair<const char*, Damage> damages[] = {
        {"renamed-element", renameElement},
        {"lower-case", lowerElement},
        {"renamed-attribute", renameAttribute},
        {"added-attribute", addAttribute},
        {"dropped-attribute", dropAttribute},
        {"emptied-attribute", emptyAttribute},
        {"stray-child", strayChild},
        {"stray-text", strayText},
        {"doubled", doubleSingle},
        {"dropped-part", dropPart},
        {"moved-up", moveUp},
        {"wrapped", wrap},
        {"unknown-property", unknownProperty},
        {"unknown-class", unknownClass},
        {"wrong-text", wrongText},
    };
    Corpus corpus;
    for (const auto& damage : damages) {
        const int before = corpus.paths.size();
        write(corpus, folder, formTemplate(QStringLiteral("receiver")), damage.first, damage.second, 2);
        write(corpus, folder, contents(QStringLiteral(ZORVA_EXAMPLES_DIR "/gallery.zorva")), damage.first,
              damage.second, 97);
        if (corpus.paths.size() == before)
            corpus.what << QStringLiteral("%1 fits nowhere").arg(QLatin1String(damage.first));
    }
    return corpus;
}

} // namespace

/// The schema against jing and xmllint: what is clean passes, what a grammar can see does not.
class TestRelaxNg : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void acceptsCleanForms_data();
    void acceptsCleanForms();
    void rejectsDamage_data();
    void rejectsDamage();
    void rejectsWhatIsNotWellFormed();
    void cannotSee_data();
    void cannotSee();

private:
    QString output(const QString& validator, const QStringList& paths) const;
    /// Which of the forms the validator rejects.
    QSet<QString> rejected(const QString& validator, const QStringList& paths) const;

    QTemporaryDir m_folder;
    QString m_schema;
};

void TestRelaxNg::initTestCase()
{
    m_schema = m_folder.filePath(QStringLiteral("zorva.rng"));
    QFile file(m_schema);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(relaxNgSchema(KindTable::instance()));
}

QString TestRelaxNg::output(const QString& validator, const QStringList& paths) const
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    const QStringList options =
        validator == QLatin1String("jing")
            ? QStringList(m_schema)
            : QStringList{QStringLiteral("--noout"), QStringLiteral("--relaxng"), m_schema};
    process.start(validator, options + paths);
    if (!process.waitForFinished(300000))
        return QStringLiteral("%1 did not run: %2").arg(validator, process.errorString());
    return QString::fromLocal8Bit(process.readAll());
}

QSet<QString> TestRelaxNg::rejected(const QString& validator, const QStringList& paths) const
{
    QSet<QString> found;
    for (const QString& line : output(validator, paths).split(QLatin1Char('\n'))) {
        if (validator == QLatin1String("jing"))
            found.insert(line.section(QStringLiteral(".zorva:"), 0, 0) + QStringLiteral(".zorva"));
        else if (line.endsWith(QLatin1String(" fails to validate")))
            found.insert(line.section(QStringLiteral(" fails to validate"), 0, 0));
    }
    return found;
}

void TestRelaxNg::acceptsCleanForms_data()
{
    QTest::addColumn<QString>("validator");
    for (const QString& validator : validators)
        QTest::newRow(qPrintable(validator)) << validator;
}

void TestRelaxNg::acceptsCleanForms()
{
    QFETCH(QString, validator);
    QStringList paths;
    for (const QFileInfo& form :
         QDir(QStringLiteral(ZORVA_EXAMPLES_DIR)).entryInfoList({QStringLiteral("*.zorva")}))
        paths << form.filePath();
    QVERIFY(paths.size() >= 3);
    for (const QString& name : formTemplateNames()) {
        paths << m_folder.filePath(name + QStringLiteral(".zorva"));
        QFile file(paths.last());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(formTemplate(name));
    }
    const QString said = output(validator, paths);
    QVERIFY2(!said.contains(QLatin1String("rror")) && !said.contains(QLatin1String("did not run")),
             qPrintable(said));
}

void TestRelaxNg::rejectsDamage_data()
{
    acceptsCleanForms_data();
}

void TestRelaxNg::rejectsDamage()
{
    QFETCH(QString, validator);
    // All in one run: the one validator takes long to start.
    const QTemporaryDir folder;
    const Corpus corpus = damagedForms(QDir(folder.path()));
    const QSet<QString> found = rejected(validator, corpus.paths);
    QStringList missed;
    for (int i = 0; i < corpus.paths.size(); ++i) {
        if (!found.contains(corpus.paths.at(i)))
            missed << corpus.what.at(i);
    }
    QVERIFY2(missed.isEmpty(), qPrintable(missed.join(QLatin1Char('\n'))));
}

void TestRelaxNg::rejectsWhatIsNotWellFormed()
{
    const QByteArray whole = formTemplate(QStringLiteral("receiver"));
    const QByteArray end = "</KVParamGui>";
    const QTemporaryDir folder;
    QStringList paths;
    for (int size = 0; size < whole.indexOf(end) + end.size() - 1; size += 97) {
        paths << QDir(folder.path()).filePath(QStringLiteral("%1.zorva").arg(size));
        QFile file(paths.last());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(whole.left(size));
    }
    QVERIFY(!output(QStringLiteral("xmllint"), paths).contains(QLatin1String(" validates")));
    // The other one stops at the first of them.
    QVERIFY(output(QStringLiteral("jing"), {paths.last()}).contains(QLatin1String("fatal:")));
}

/// Damage that takes more than a grammar: where an order-free list of elements of one
/// name is concerned, what is said twice, and what one text says about another.
void TestRelaxNg::cannotSee_data()
{
    QTest::addColumn<QByteArray>("was");
    QTest::addColumn<QByteArray>("is");
    const QByteArray visible = "<Property name=\"visible\"><Bool>true</Bool></Property>";
    QTest::newRow("a property twice") << visible << visible + visible;
    QTest::newRow("a property missing") << visible << QByteArray();
    QTest::newRow("two rows of one name")
        << QByteArray("name=\"squelchLevel\"") << QByteArray("name=\"squelch\"");
    QTest::newRow("an enumeration that is nowhere")
        << QByteArray("<String>Demodulations<") << QByteArray("<String>Modulations<");
    QTest::newRow("a start value that is nowhere")
        << QByteArray("<String>FM</String>") << QByteArray("<String>USB</String>");
    QTest::newRow("a start value out of range")
        << QByteArray("<Int>10</Int>") << QByteArray("<Int>1000</Int>");
    QTest::newRow("a number beyond all that can be kept")
        << visible
        << visible +
               "<CustomProperties><Property name=\"a\"><Double>9e9999</Double></Property></CustomProperties>";
    QTest::newRow("two rows on one path") << QByteArray("Audio/SquelchLevel") << QByteArray("Audio/Squelch");
    QTest::newRow("a script with a mistake")
        << QByteArray("followSquelch(squelch.checked);") << QByteArray("followSquelch(;");
}

void TestRelaxNg::cannotSee()
{
    QFETCH(QByteArray, was);
    QFETCH(QByteArray, is);
    QByteArray form = formTemplate(QStringLiteral("receiver"));
    const int place = form.indexOf(was);
    QVERIFY(place >= 0);
    form.replace(place, was.size(), is);
    const QString path = m_folder.filePath(QStringLiteral("unseen.zorva"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(form);
    file.close();
    for (const QString& validator : validators)
        QVERIFY(!rejected(validator, {path}).contains(path));
}

QTEST_APPLESS_MAIN(TestRelaxNg)
#include "tst_relaxng.moc"
