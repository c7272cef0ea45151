#include "enginetest.h"

#include <zorvaparser/widgets/zorvalineedit.h>
#include <zorvaparser/zorvaparser.h>

#include <QFile>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSet>

using Orvane::ZorvaFormular;

namespace {

QString dataFile(const char* name)
{
    return QStringLiteral(ZORVA_TEST_DATA_DIR "/parameterxml/") + QString::fromLatin1(name);
}

/// The text of a golden file, without the line end of its last line.
QString golden(const char* name)
{
    QFile file(dataFile(name));
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("no file ") + file.fileName();
    QString text = QString::fromUtf8(file.readAll());
    if (text.endsWith(QLatin1Char('\n')))
        text.chop(1);
    return text;
}

/// Names the first line that differs; empty if the texts are equal.
QString difference(const QString& actual, const QString& expected)
{
    if (actual == expected)
        return QString();
    const QStringList left = actual.split(QLatin1Char('\n'));
    const QStringList right = expected.split(QLatin1Char('\n'));
    int line = 0;
    while (line < left.size() && line < right.size() && left.at(line) == right.at(line))
        ++line;
    return QStringLiteral("line %1: \"%2\" instead of \"%3\", whole text:\n%4")
        .arg(line + 1)
        .arg(left.value(line), right.value(line), actual);
}

#define COMPARE_GOLDEN(text, file) QCOMPARE(difference(text, golden(file)), QString())

FormPointer receiver()
{
    FormPointer form(Orvane::ZorvaParser().ParseZORVAFile(dataFile("receiver.zorva")));
    form->CreateValueTree(QStringLiteral("/test"));
    return form;
}

QString edit(const char* name, const char* path = "")
{
    return rowXml("LineEdit", name, {{"parameterXmlTag", path}});
}

QStringList letters(QRandomGenerator& random, int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names.insert(random.bounded(i + 1), QStringLiteral("row%1").arg(i));
    return names;
}

/// Rows that hang up to three groups deep, side by side with groups.
QString rowsBelowRandomGroups(const QStringList& names, QRandomGenerator& random)
{
    QString rows;
    for (const QString& name : names) {
        QString path;
        for (int depth = random.bounded(4); depth > 0; --depth)
            path += QStringLiteral("%1/").arg(QLatin1Char("abc"[random.bounded(3)]));
        rows += edit(qPrintable(name), qPrintable(path + name));
    }
    return rows;
}

/// \a whole without the lines of other rows, and then without groups that hold nothing.
QString withoutOthers(const QString& whole, const QSet<QString>& rows)
{
    static const QRegularExpression row(QStringLiteral("^ *<(row[0-9]+)>"));
    static const QRegularExpression emptyGroup(QStringLiteral("( *)<([abc])>\n\\1</\\2>\n"));
    QString left;
    for (const QString& line : whole.split(QLatin1Char('\n'))) {
        const QRegularExpressionMatch match = row.match(line);
        if (!match.hasMatch() || rows.contains(match.captured(1)))
            left += line + QLatin1Char('\n');
    }
    left.chop(1);
    for (int before = -1; before != left.size();) {
        before = left.size();
        left.remove(emptyGroup);
    }
    return left.replace(QStringLiteral("<Parameters>\n</Parameters>"), QStringLiteral("<Parameters/>"));
}

QString textOf(const FormFixture& form, const char* row)
{
    return form.row(row)->property("text").toString();
}

QString squeezed(QString text)
{
    return text.remove(QLatin1Char('\n')).remove(QLatin1Char(' '));
}

constexpr auto withValues = FormFixture::WithValues;

} // namespace

class tst_parameterxml : public EngineTest
{
    Q_OBJECT

private Q_SLOTS:
    void wholeForm()
    {
        const FormPointer form = receiver();
        COMPARE_GOLDEN(form->GetXmlString(false), "receiver-all.xml");
    }

    void frameAlone()
    {
        const FormPointer form = receiver();
        COMPARE_GOLDEN(form->GetEmptyXmlElement(), "receiver-empty.xml");
    }

    void changesAlone()
    {
        const FormPointer form = receiver();
        form->SetVTValue(QStringLiteral("Gain"), QStringLiteral("-5"), nullptr, false);
        COMPARE_GOLDEN(form->GetXmlString(true), "receiver-gain.xml");
    }

    void attributeTakesTheOrdinaryProperty()
    {
        const FormPointer form = receiver();
        form->GetSheet().GetDelegate()->setProperty("Attribute_Mode", 26500000000.0);
        COMPARE_GOLDEN(form->GetEmptyXmlElement(), "receiver-mode.xml");
    }

    void textBeginsWithTheRoot_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("all") << 0;
        QTest::newRow("changes") << 1;
        QTest::newRow("frame") << 2;
    }

    void textBeginsWithTheRoot()
    {
        QFETCH(int, kind);
        FormFixture form(edit("a"), withValues);
        form.row("a")->setModified(false);
        const QString text =
            kind == 2 ? form.formular()->GetEmptyXmlElement() : form.formular()->GetXmlString(kind == 1);
        QVERIFY(text.startsWith(QLatin1String("<Parameters")));
        QVERIFY(text.endsWith(QLatin1Char('>')));
    }

    void nothingToSendIsNull()
    {
        FormFixture form(edit("a"), withValues);
        QVERIFY(form.formular()->GetXmlString(true).isNull());
        QVERIFY(!form.formular()->GetXmlString(false).isNull());
        QVERIFY(form.formular()->GetXmlString(true).isNull());
    }

    void markWithoutARowBehindItIsNull()
    {
        FormFixture form(edit("a"), withValues);
        form.sheet().setModified(false);
        QVERIFY(form.formular()->GetXmlString(true).isNull());
        QVERIFY(!form.sheet().isModified());
    }

    void rowMarkWithoutTheSheetsIsNull()
    {
        FormFixture form(edit("a"), withValues);
        form.sheet().setActive(false);
        form.row("a")->setModified(false);
        form.sheet().setActive(true);
        QVERIFY(form.formular()->GetXmlString(true).isNull());
        QVERIFY(form.row("a")->isModified());
    }

    void marksAfterEachCall_data()
    {
        QTest::addColumn<int>("kind"); // 0 all, 1 changes, 2 frame, 3 reading
        QTest::addColumn<bool>("selectedMark");
        QTest::addColumn<bool>("deselectedMark");
        QTest::addColumn<bool>("sheetMark");
        QTest::newRow("all") << 0 << false << true << false;
        QTest::newRow("changes") << 1 << false << true << false;
        QTest::newRow("frame") << 2 << true << true << true;
        QTest::newRow("reading") << 3 << false << true << true;
    }

    void marksAfterEachCall()
    {
        QFETCH(int, kind);
        QFETCH(bool, selectedMark);
        QFETCH(bool, deselectedMark);
        QFETCH(bool, sheetMark);
        FormFixture form(edit("a") + edit("b"), withValues);
        form.row("a")->setModified(false);
        form.row("b")->setModified(false);
        form.sheet().GetWidget(QStringLiteral("b"))->SetSelected(false);
        if (kind == 2)
            form.formular()->GetEmptyXmlElement();
        else if (kind == 3)
            form.formular()->SetXmlString(QStringLiteral("<Parameters><a>x</a></Parameters>"));
        else
            form.formular()->GetXmlString(kind == 1);
        QCOMPARE(form.row("a")->isModified(), selectedMark);
        QCOMPARE(form.row("b")->isModified(), deselectedMark);
        QCOMPARE(form.sheet().isModified(), sheetMark);
    }

    void changesCanBeWidenedToAll()
    {
        FormFixture form(edit("a") + edit("b"), QString(), QString(), withValues,
                         {{"emitOnlyModifiedParameters", false}});
        QVERIFY(form.formular()->GetXmlString(true).isNull());
        form.row("b")->setModified(false);
        QCOMPARE(squeezed(form.formular()->GetXmlString(true)),
                 QStringLiteral("<Parameters><a></a><b></b></Parameters>"));
    }

    void rootTagIsASheetProperty_data()
    {
        QTest::addColumn<QString>("root");
        QTest::addColumn<QString>("expected");
        QTest::newRow("given") << "Settings"
                               << "Settings";
        QTest::newRow("empty") << ""
                               << "Parameters";
    }

    void rootTagIsASheetProperty()
    {
        QFETCH(QString, root);
        QFETCH(QString, expected);
        FormFixture form(edit("a"), QString(), QString(), withValues, {{"parametersXmlRootTag", root}});
        QVERIFY(form.formular()->GetEmptyXmlElement().startsWith(QLatin1Char('<') + expected));
        form.formular()->SetXmlString(QStringLiteral("<%1><a>read</a></%1>").arg(expected));
        QCOMPARE(textOf(form, "a"), QStringLiteral("read"));
    }

    void listedAttributesAreThoseOfTheLastCustomState()
    {
        const FormPointer form = parsed(
            sheetXml(QStringLiteral("<CustomProperties>%1%2</CustomProperties><Properties>%3</Properties>"
                                    "<CustomProperties>%4</CustomProperties>")
                         .arg(propertyXml("Attribute_b", "1"), propertyXml("attribute_c", "1"),
                              propertyXml("Attribute_a", "own"), propertyXml("Attribute_a", "1"))));
        QVERIFY(form->GetEmptyXmlElement().contains(QLatin1String(" a=\"own\" b=\"\"")));
    }

    void groupsOfAWholeDumpAreWrittenEmpty()
    {
        FormFixture form(widgetXml("LineEdit", "quiet", {{"parameterXmlTag", "g/h/quiet"}}) + edit("b"),
                         withValues);
        QCOMPARE(squeezed(form.formular()->GetXmlString(false)),
                 QStringLiteral("<Parameters><g><h/></g><b></b></Parameters>"));
    }

    void groupsWithoutAChangeAreLeftOut()
    {
        FormFixture form(edit("a", "g/a") + edit("b", "h/i/b") + edit("c", "h/j/c"), withValues);
        form.row("b")->setModified(false);
        QCOMPARE(squeezed(form.formular()->GetXmlString(true)),
                 QStringLiteral("<Parameters><h><i><b></b></i></h></Parameters>"));
    }

    void rowBelowTheTagOfAnotherIsNotWritten()
    {
        FormFixture form(edit("a", "g/a") + edit("b", "g/a/b"), withValues);
        form.row("b")->setModified(false);
        QCOMPARE(squeezed(form.formular()->GetXmlString(true)), QStringLiteral("<Parameters/>"));
        QCOMPARE(squeezed(form.formular()->GetXmlString(false)),
                 QStringLiteral("<Parameters><g><a></a></g></Parameters>"));
    }

    // Whatever was marked in whatever order, and whatever lost its mark again.
    void modifiedAreWhatIsLeftOfTheWhole()
    {
        QRandomGenerator random(20);
        const QStringList names = letters(random, 40);
        FormFixture form(rowsBelowRandomGroups(names, random), withValues);
        const QString whole = form.formular()->GetXmlString(false);
        for (int round = 0; round < 200; ++round) {
            QSet<QString> marked;
            for (int step = random.bounded(12); step > 0; --step) {
                const QString name = names.at(random.bounded(names.size()));
                if (random.bounded(4) > 0) {
                    form.row(qPrintable(name))->setModified(false);
                    marked.insert(name);
                } else {
                    form.row(qPrintable(name))->resetModified();
                    marked.remove(name);
                }
            }
            if (round % 10 == 9) {
                QCOMPARE(form.formular()->GetXmlString(false), whole); // takes all marks away
                marked.clear();
            }
            form.sheet().setModified(false);
            const QString expected = marked.isEmpty() ? QString() : withoutOthers(whole, marked);
            QCOMPARE(difference(form.formular()->GetXmlString(true), expected), QString());
        }
    }

    void deselectedChangeLeavesItsGroupEmpty()
    {
        FormFixture form(edit("a", "g/a") + edit("b"), withValues);
        form.row("a")->setModified(false);
        form.row("b")->setModified(false);
        form.formular()->SelectWidgets({QStringLiteral("b")}, true);
        QCOMPARE(squeezed(form.formular()->GetXmlString(true)),
                 QStringLiteral("<Parameters><g/><b></b></Parameters>"));
        QVERIFY(form.row("a")->isModified());
        // It is sent once it is selected and the sheet hears of a change.
        form.formular()->SelectWidgets({}, true);
        form.sheet().setModified(false);
        QCOMPARE(squeezed(form.formular()->GetXmlString(true)),
                 QStringLiteral("<Parameters><g><a></a></g></Parameters>"));
        QVERIFY(!form.row("a")->isModified());
    }

    void textIsAppliedWhereverTheRootStands_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected"); // of "a"; "before" if nothing is applied
        const QString root = QStringLiteral("<Parameters><a>new</a></Parameters>");
        QTest::newRow("alone") << root << "new";
        QTest::newRow("attributes are ignored")
            << "<Parameters type=\"x\" y=\"1\"><a unit=\"m\">new</a></Parameters>"
            << "new";
        QTest::newRow("in a wrapper") << QStringLiteral("<w>%1</w>").arg(root) << "new";
        QTest::newRow("deep in wrappers")
            << QStringLiteral("<w><x/>text<y><z>%1</z></y></w>").arg(root) << "new";
        QTest::newRow("behind others")
            << QStringLiteral("<w><Settings><a>no</a></Settings>%1</w>").arg(root) << "new";
        QTest::newRow("root in the root")
            << QStringLiteral("<Parameters>%1</Parameters>").arg(root) << "before";
        QTest::newRow("other root") << "<Settings><a>new</a></Settings>"
                                    << "before";
        QTest::newRow("other case") << "<parameters><a>new</a></parameters>"
                                    << "before";
        QTest::newRow("tag in other case") << "<Parameters><A>new</A></Parameters>"
                                           << "before";
        QTest::newRow("unknown elements") << "<Parameters><x><a>no</a></x><a>new</a><y/></Parameters>"
                                          << "new";
        QTest::newRow("twice, last wins") << "<Parameters><a>old</a><a>new</a></Parameters>"
                                          << "new";
        QTest::newRow("comments and CDATA")
            << "<?xml version=\"1.0\" encoding=\"UTF-16\"?><!-- c --><Parameters><!-- c --><a><![CDATA[new]]>"
               "<!-- c --></a></Parameters><!-- c -->"
            << "new";
        QTest::newRow("byte order mark") << QString(QChar(0xfeff)) + root << "new";
        QTest::newRow("empty") << ""
                               << "before";
        QTest::newRow("no XML") << "a=new"
                                << "before";
        QTest::newRow("damage behind") << "<Parameters><a>new</a><b"
                                       << "new";
        QTest::newRow("damage before") << "<Parameters>&none;<a>new</a></Parameters>"
                                       << "before";
        QTest::newRow("no escapes but those of XML") << "<Parameters><a>{{CR}}&lt;</a></Parameters>"
                                                     << "{{CR}}<";
    }

    void textIsAppliedWhereverTheRootStands()
    {
        QFETCH(QString, text);
        QFETCH(QString, expected);
        FormFixture form(rowXml("LineEdit", "a", {{"text", "before"}}), withValues);
        form.formular()->SetXmlString(text);
        QCOMPARE(textOf(form, "a"), expected);
        QCOMPARE(form.row("a")->GetVTValue()->GetStringValue(), expected);
        QVERIFY(form.sheet().isActive());
    }

    void rootsInARowAreAllApplied_data()
    {
        QTest::addColumn<QString>("text");
        const QString one = QStringLiteral("<Parameters><a>1</a><b>1</b></Parameters>");
        const QString two = QStringLiteral("<Parameters><b>2</b><c>2</c></Parameters>");
        const QString empty = QStringLiteral("<Parameters/>");
        const QString xml = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
        QTest::newRow("together") << one + two;
        QTest::newRow("line feed between") << one + QStringLiteral("\n") + two + QStringLiteral("\n");
        QTest::newRow("line ends throughout")
            << QStringLiteral("<Parameters>\r\n <a>1</a>\r\n <b>1</b>\r\n</Parameters>\r\n"
                              "<Parameters>\r\n <b>2</b>\r\n <c>2</c>\r\n</Parameters>\r\n");
        QTest::newRow("carriage returns alone") << one + QStringLiteral("\r\r") + two;
        QTest::newRow("comments") << QStringLiteral("<!-- \u00e4 -->") + one +
                                         QStringLiteral("<!-- <Parameters> -->") + two +
                                         QStringLiteral("<!-- c -->");
        QTest::newRow("declaration") << xml + QStringLiteral("\r\n") + one + two;
        QTest::newRow("declaration before each") << xml + one + QStringLiteral("\n") + xml + two;
        QTest::newRow("byte order mark") << QString(QChar(0xfeff)) + one + two;
        QTest::newRow("byte order mark, declaration, comment") << QString(QChar(0xfeff)) + xml +
                                                                      QStringLiteral("<!-- c -->\r\n") + one +
                                                                      QStringLiteral("\r\n") + two;
        QTest::newRow("comment before a declaration") << one + QStringLiteral("<!-- c -->") + xml + two;
        QTest::newRow("instruction before a declaration") << one + QStringLiteral("<?i <x> ?>\n") + xml + two;
        QTest::newRow("several of them")
            << xml + one + QStringLiteral("<!-- <Parameters> --><?i?>\n<!---->") + xml +
                   QStringLiteral("<!-- c --><?i?>") + two + QStringLiteral("<!-- c -->");
        QTest::newRow("document type before each")
            << QStringLiteral("<!DOCTYPE Parameters>") + one +
                   QStringLiteral("<?xml version='1.0'?><!DOCTYPE Parameters [<!ENTITY t \"2]>\">]>") + two;
        QTest::newRow("a row that reads nothing")
            << QStringLiteral("<Parameters><a>1</a><b>1</b><h/></Parameters>") + two;
        QTest::newRow("a row that reads nothing of a text")
            << QStringLiteral("<Parameters><a>1</a><b>1</b><h><x>1</x></h></Parameters>") + xml + two;
        QTest::newRow("a row that reads nothing in each") << QStringLiteral(
            "<Parameters><a>1</a><b>1</b><h/></Parameters><Parameters><b>2</b><h/></Parameters>"
            "<Parameters><c>2</c></Parameters>");
        QTest::newRow("wrapped in turn")
            << QStringLiteral("<w>") + one + QStringLiteral("</w><w>") + two + QStringLiteral("</w>");
        QTest::newRow("another root between")
            << one + QStringLiteral("<x a='>' b=\"'\"><b>3</b></x><y/>") + two;
        QTest::newRow("character data with markup")
            << one + QStringLiteral("<x><![CDATA[</x><Parameters>]]></x>") + two;
        QTest::newRow("text between") << one + QStringLiteral(" ;\n") + two;
        QTest::newRow("empty roots between") << empty + one + empty + empty + two + empty;
        QTest::newRow("characters of several units")
            << QStringLiteral("<Parameters><x>\u20ac\U0001F4FB</x><a>1</a><b>1</b></Parameters>") + two;
        QTest::newRow("entities") << QStringLiteral(
                                         "<Parameters><x>&amp;&#65;</x><a>1</a><b>1</b></Parameters>") +
                                         two;
        QTest::newRow("unknown root between") << one + QStringLiteral("<Other><a>no</a></Other>") + two;
        QTest::newRow("in a wrapper")
            << QStringLiteral("<w>") + one + QStringLiteral("<x/>") + two + QStringLiteral("</w>");
    }

    void rootsInARowAreAllApplied()
    {
        QFETCH(QString, text);
        FormFixture form(edit("a") + edit("b") + edit("c") + rowXml("PushButton", "h"), withValues);
        form.formular()->SetXmlString(text);
        QCOMPARE(textOf(form, "a") + textOf(form, "b") + textOf(form, "c"), QStringLiteral("122"));
    }

    void kindsThatReadNothingLeaveTheNextRoot_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char* kind : {"Headline", "PushButton", "ScriptControl", "SpecialObject_FFT", "Separator",
                                 "FixedSpacer", "FrequencyRangeEdit", "SpecialObject_Generic",
                                 "SpecialObject_Tuner", "SpecialObject_Audio", "Gadget"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }

    void kindsThatReadNothingLeaveTheNextRoot()
    {
        QFETCH(QString, kind);
        FormFixture form(rowXml(qPrintable(kind), "h") + edit("a"), withValues);
        form.formular()->SetXmlString(
            QStringLiteral("<Parameters><h/></Parameters><Parameters><a>1</a></Parameters>"));
        QCOMPARE(textOf(form, "a"), QStringLiteral("1"));
    }

    void damageEndsTheReading_data()
    {
        QTest::addColumn<QString>("text");
        const QString next = QStringLiteral("<Parameters><a>2</a></Parameters>");
        QTest::newRow("in the first") << QStringLiteral("<Parameters><a>1</a>&</Parameters>") + next;
        QTest::newRow("behind a row that reads nothing")
            << QStringLiteral("<Parameters><a>1</a><h/>&</Parameters>") + next;
        QTest::newRow("wrong end") << QStringLiteral("<Parameters><a>1</a></Parameter>") + next;
        QTest::newRow("in the second")
            << QStringLiteral("<Parameters><a>1</a></Parameters><Parameters><b></Parameters>") + next;
        QTest::newRow("end tag between") << QStringLiteral("<Parameters><a>1</a></Parameters></x>") + next;
        QTest::newRow("no end") << QStringLiteral("<Parameters><a>1</a>") + next;
        QTest::newRow("open comment") << QStringLiteral("<Parameters><a>1</a></Parameters><!--") + next;
        QTest::newRow("open tag") << QStringLiteral("<Parameters><a>1</a></Parameters><x a='") + next;
    }

    void damageEndsTheReading()
    {
        QFETCH(QString, text);
        FormFixture form(edit("a") + rowXml("PushButton", "h"), withValues);
        form.formular()->SetXmlString(text);
        QCOMPARE(textOf(form, "a"), QStringLiteral("1"));
    }

    // Were each to cost a walk through those behind it, this would take many minutes.
    void manyDocumentsInARow()
    {
        FormFixture form(edit("a"), withValues);
        const QString one = QStringLiteral("<?xml version=\"1.0\"?><Parameters><a>1</a></Parameters>\n");
        form.formular()->SetXmlString(one.repeated(100000) +
                                      QStringLiteral("<Parameters><a>2</a></Parameters>"));
        QCOMPARE(textOf(form, "a"), QStringLiteral("2"));
    }

    void numbersHaveNoExponent_data()
    {
        QTest::addColumn<double>("number");
        QTest::addColumn<QString>("text");
        QTest::newRow("gigahertz") << 26500000000.0 << "26500000000";
        QTest::newRow("1e16") << 1e16 << "10000000000000000";
        QTest::newRow("1e17") << 1e17 << "100000000000000000";
        QTest::newRow("1e21") << 1e21 << "1000000000000000000000";
        QTest::newRow("negative") << -3e18 << "-3000000000000000000";
        QTest::newRow("minus zero") << -0.0 << "0";
        QTest::newRow("fraction") << 2.5 << "2.5";
    }

    void numbersHaveNoExponent()
    {
        QFETCH(double, number);
        QFETCH(QString, text);
        FormFixture form(edit("a") + rowXml("Label", "l") + rowXml("HiddenParameter", "p"), withValues);
        auto* const sheet = form.sheet().GetDelegate();
        sheet->setProperty("parametersXmlTypeAttribute", number);
        QCOMPARE(form.formular()->GetEmptyXmlElement(),
                 QStringLiteral("<Parameters type=\"%1\"/>").arg(text));
        for (const char* row : {"a", "l"}) {
            form.row(row)->setProperty("text", number);
            QCOMPARE(form.writtenBy(row), QStringLiteral("<%1>%2</%1>").arg(QLatin1String(row), text));
        }
        form.row("p")->setProperty("value", number);
        QCOMPARE(form.writtenBy("p"), QStringLiteral("<p>%1</p>").arg(text));
        form.row("a")->setProperty("unit", number);
        QVERIFY(form.writtenBy("a").contains(QStringLiteral("unit=\"%1\"").arg(text)));
    }

    void secondRootMayBeDamaged()
    {
        FormFixture form(edit("a") + edit("b"), withValues);
        form.formular()->SetXmlString(
            QStringLiteral("<Parameters><a>1</a></Parameters><Parameters><a>2</a><b>&none;</b>"));
        QCOMPARE(textOf(form, "a"), QStringLiteral("2"));
        QVERIFY(form.sheet().isActive());
    }

    void groupsAreReadByTheirPath()
    {
        FormFixture form(edit("a", "g/a") + edit("b", "g/h/b") + edit("c"), withValues);
        form.formular()->SetXmlString(QStringLiteral(
            "<Parameters><a>no</a><g><h><a>no</a><b>2</b></h><x><a>no</a></x><a>1</a></g><h><b>no</b></h>"
            "<c>3</c></Parameters>"));
        QCOMPARE(textOf(form, "a") + textOf(form, "b") + textOf(form, "c"), QStringLiteral("123"));
    }

    void groupMayComeInPieces()
    {
        FormFixture form(edit("a", "g/a") + edit("b", "g/b"), withValues);
        form.formular()->SetXmlString(
            QStringLiteral("<Parameters><g><b>2</b></g><g/><g><a>1</a></g></Parameters>"));
        QCOMPARE(textOf(form, "a") + textOf(form, "b"), QStringLiteral("12"));
    }

    void everyTagOfARowReachesIt()
    {
        FormFixture form(
            rowXml("FrequencyRangeEdit", "range",
                   {{"startFrequencyParameterXmlTag", "Start"}, {"stopFrequencyParameterXmlTag", "Stop"}}) +
                edit("a"),
            withValues);
        form.formular()->SetXmlString(
            QStringLiteral("<Parameters><Stop>2000</Stop><a>x</a><Start>1000</Start></Parameters>"));
        QCOMPARE(form.row("range")->property("startFrequency").toLongLong(), 1000);
        QCOMPARE(form.row("range")->property("stopFrequency").toLongLong(), 2000);
        QCOMPARE(textOf(form, "a"), QStringLiteral("x"));
    }

    void readingMarksAndAnnouncesNothing_data()
    {
        QTest::addColumn<bool>("withBar");
        QTest::newRow("with a bar") << true;
        QTest::newRow("without a bar") << false;
    }

    void readingMarksAndAnnouncesNothing()
    {
        QFETCH(bool, withBar);
        const FormPointer form = receiver();
        form->GetSheet().GetDelegate()->setProperty("autoApplyTimeout", 0);
        form->CreateGUI(withBar);
        const std::unique_ptr<QWidget> window(form->GetGUI());
        QSignalSpy announced(form.data(), &ZorvaFormular::si_parametersModified);
        const QString own = form->GetXmlString(false);
        QString other = own;
        other.replace(QLatin1String(">12<"), QLatin1String(">-7<"));
        other.replace(QLatin1String("A-1"), QLatin1String("B-2"));
        QVERIFY(other != own);
        for (const QString& text : {own, other, own, other, other}) {
            form->SetXmlString(text);
            for (int i = 0; i < form->GetSheet().GetWidgetCount(); ++i)
                QVERIFY(!form->GetSheet().GetWidgetAt(i)->isModified());
            QVERIFY(!form->GetSheet().isModified());
            QVERIFY(form->GetSheet().isActive());
            QVERIFY(form->GetXmlString(true).isNull());
            QCOMPARE(difference(form->GetXmlString(false), text), QString());
        }
        ReferenceTimer(150).pass();
        QCOMPARE(announced.count(), 0);
    }

    void readingLeavesAnInactiveSheetInactive()
    {
        FormFixture form(edit("a"), withValues);
        form.sheet().setActive(false);
        form.formular()->SetXmlString(QStringLiteral("<Parameters><a>1</a></Parameters>"));
        QVERIFY(!form.sheet().isActive());
    }

    void readingLeavesTheSheetsOwnMark()
    {
        FormFixture form(edit("a") + edit("b"), withValues);
        form.row("a")->setModified(false);
        form.formular()->SetXmlString(QStringLiteral("<Parameters><b>1</b></Parameters>"));
        QVERIFY(form.row("a")->isModified());
        QVERIFY(form.sheet().isModified());
        QCOMPARE(squeezed(form.formular()->GetXmlString(true)),
                 QStringLiteral("<Parameters><a></a></Parameters>"));
    }

    void changeOfTheUserIsSentOnce()
    {
        FormFixture form(edit("a"));
        QTest::keyClicks(form.control<QLineEdit>("a"), QStringLiteral("typed"));
        QTest::keyClick(form.control<QLineEdit>("a"), Qt::Key_Return);
        QCOMPARE(squeezed(form.formular()->GetXmlString(true)),
                 QStringLiteral("<Parameters><a>typed</a></Parameters>"));
        QVERIFY(form.formular()->GetXmlString(true).isNull());
    }

    void nestedReadingFromAHandlerKeepsTheSheetInactive()
    {
        // A handler that feeds parameter text back while the form reads some.
        FormFixture form(edit("a") + edit("b"), withValues);
        QSignalSpy announced(form.formular(), &ZorvaFormular::si_parametersModified);
        const auto feedBack = [&form] {
            form.formular()->SetXmlString(QStringLiteral("<Parameters><b>nested</b></Parameters>"));
        };
        connect(form.delegate<Orvane::ZorvaLineEdit>("a"), &Orvane::ZorvaLineEdit::textChanged, this,
                feedBack);
        form.formular()->SetXmlString(QStringLiteral("<Parameters><a>1</a><b>2</b></Parameters>"));
        QCOMPARE(textOf(form, "b"), QStringLiteral("2"));
        QVERIFY(!form.sheet().isModified());
        QVERIFY(form.sheet().isActive());
        QCOMPARE(announced.count(), 0);
    }
};

QTEST_MAIN(tst_parameterxml)
#include "tst_parameterxml.moc"
