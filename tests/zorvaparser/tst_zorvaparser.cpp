#include "enginetest.h"

#include <velkappstartup/translationcenter.h>
#include <zorvaparser/zorvaparser.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QXmlStreamReader>

using Orvane::ZorvaDelegate;
using Orvane::ZorvaFormular;
using Orvane::ZorvaParser;

namespace {

QVariant parsedProperty(const QString& propertyElement, const char* name)
{
    const FormPointer form =
        parsed(sheetXml(QStringLiteral("<Widget name=\"w\">%1</Widget>").arg(propertyElement)));
    return delegateNamed(form->GetSheet(), "w")->property(name);
}

/// A document whose sheet is cut short or not by what stands in it: enumerations
/// before and behind, a script behind.
QString framed(const QString& sheetContent)
{
    return rootXml(QStringLiteral("<Enums><Enum name=\"early\"/></Enums><Sheet name=\"sheet\">%1</Sheet>"
                                  "<Enums><Enum name=\"late\"/></Enums><Script>late = 1;</Script>")
                       .arg(sheetContent));
}

QString names(const FormPointer& form)
{
    return widgetNames(form->GetSheet()).join(QLatin1Char(' '));
}

} // namespace

class tst_zorvaparser : public EngineTest
{
    Q_OBJECT

private Q_SLOTS:
    void rootIsFound_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("version"); // null: no formular
        const QString root = QStringLiteral("<KVParamGui version=\"3.x\"/>");
        QTest::newRow("alone") << root << "3.x";
        QTest::newRow("empty text") << "" << QString();
        QTest::newRow("white space") << " \n " << QString();
        QTest::newRow("no XML") << "name = value" << QString();
        QTest::newRow("declaration only") << "<?xml version=\"1.0\"?>" << QString();
        QTest::newRow("other root") << "<Form/>" << QString();
        QTest::newRow("other case") << "<kvparamgui version=\"1\"/>" << QString();
        QTest::newRow("in a wrapper") << QStringLiteral("<a>%1</a>").arg(root) << "3.x";
        QTest::newRow("in two wrappers") << QStringLiteral("<a> <b>%1</b></a>").arg(root) << "3.x";
        QTest::newRow("behind an empty sibling") << QStringLiteral("<a><b/>%1</a>").arg(root) << QString();
        QTest::newRow("behind text") << QStringLiteral("<a>text%1</a>").arg(root) << "3.x";
        QTest::newRow("declaration, comment, type")
            << QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?><!-- c --><!DOCTYPE x>%1").arg(root)
            << "3.x";
        QTest::newRow("byte order mark") << QString(QChar(0xfeff)) + root << "3.x";
        QTest::newRow("other encoding declared") << QStringLiteral("<?xml version=\"1.0\" "
                                                                   "encoding=\"UTF-16\"?>%1")
                                                        .arg(root)
                                                 << "3.x";
        QTest::newRow("namespace") << "<z:KVParamGui xmlns:z=\"urn:z\" version=\"2\"/>"
                                   << "2";
        QTest::newRow("cut in the start tag") << "<KVParamGui version=\"1\"" << QString();
        QTest::newRow("without version") << "<KVParamGui/>" << QStringLiteral("");
    }

    void rootIsFound()
    {
        QFETCH(QString, text);
        QFETCH(QString, version);
        const FormPointer form = parsed(text);
        QCOMPARE(bool(form), !version.isNull());
        if (form)
            QCOMPARE(form->GetVersion(), version);
    }

    void resultHasNoReference()
    {
        const std::unique_ptr<ZorvaFormular> form(ZorvaParser().ParseZORVA(rootXml(QString())));
        QCOMPARE(form->ref.loadRelaxed(), 0);
        QVERIFY(!form->parent());
    }

    void lastOfTwoRootsInAWrapperIsReturned()
    {
        const QString pair = QStringLiteral("<a><KVParamGui version=\"1\"/><KVParamGui version=\"2\"/></a>");
        QCOMPARE(parsed(pair)->GetVersion(), QStringLiteral("2"));
    }

    void readerMayStandBeforeTheRoot()
    {
        QXmlStreamReader reader(QStringLiteral("<a><KVParamGui version=\"5\"/></a>"));
        reader.readNextStartElement();
        const FormPointer form(ZorvaParser().ParseZORVA(reader));
        QCOMPARE(form->GetVersion(), QStringLiteral("5"));
    }

    void emptyRootIsAWholeForm()
    {
        const FormPointer form = parsed(rootXml(QString()));
        QCOMPARE(form->GetVersion(), QStringLiteral("1"));
        QCOMPARE(form->GetSheet().GetWidgetCount(), 0);
        QVERIFY(!form->GetGUI());
        form->CreateValueTree(QStringLiteral("/test"));
        QCOMPARE(form->GetVTPath(), QStringLiteral("/test"));
        form->CreateGUI(true);
        const std::unique_ptr<QWidget> window(form->GetGUI());
        QVERIFY(window);
        QCOMPARE(window->objectName(), QStringLiteral("sheet"));
    }

    void emptyPartsAreValid()
    {
        const FormPointer form = parsed(rootXml(QStringLiteral("<Enums/><Sheet/><Script/>")));
        QCOMPARE(form->GetSheet().GetWidgetCount(), 0);
        QCOMPARE(form->GetSheet().GetName(), QString());
        QCOMPARE(form->GetScript().GetCode(), QString());
    }

    void bytesFollowTheirOwnDeclaration_data()
    {
        QTest::addColumn<QByteArray>("codec");
        QTest::addColumn<QByteArray>("declared");
        QTest::newRow("UTF-8") << QByteArray("UTF-8") << QByteArray("UTF-8");
        QTest::newRow("Latin-1") << QByteArray("ISO-8859-1") << QByteArray("ISO-8859-1");
        QTest::newRow("UTF-16 with mark") << QByteArray("UTF-16") << QByteArray("UTF-16");
    }

    void bytesFollowTheirOwnDeclaration()
    {
        QFETCH(QByteArray, codec);
        QFETCH(QByteArray, declared);
        const QString text =
            QStringLiteral("<?xml version=\"1.0\" encoding=\"%1\"?><KVParamGui version=\"D\u00e4mpfung\"/>")
                .arg(QString::fromLatin1(declared));
        const QByteArray bytes = QTextCodec::codecForName(codec)->fromUnicode(text);
        const FormPointer form(ZorvaParser().ParseZORVA(bytes));
        QVERIFY(form);
        QCOMPARE(form->GetVersion(), QStringLiteral("D\u00e4mpfung"));
    }

    void fileIsParsed()
    {
        QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("form.any")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<KVParamGui version=\"7\">\r\n</KVParamGui>");
        file.close();
        const FormPointer form(ZorvaParser().ParseZORVAFile(file.fileName()));
        QCOMPARE(form->GetVersion(), QStringLiteral("7"));
    }

    void unusableFileGivesNull()
    {
        QTemporaryDir folder;
        ZorvaParser parser;
        QVERIFY(!parser.ParseZORVAFile(folder.path()));
        QVERIFY(!parser.ParseZORVAFile(folder.filePath(QStringLiteral("missing.zorva"))));
        QVERIFY(!parser.ParseZORVAFile(QString()));
        QFile file(folder.filePath(QStringLiteral("empty.zorva")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        QVERIFY(!parser.ParseZORVAFile(file.fileName()));
    }

    void namelessWidgetIsNamedByClassAndPosition_data()
    {
        QTest::addColumn<QString>("widgets");
        QTest::addColumn<QString>("expected");
        QTest::newRow("fifth") << "<Widget name=\"a\"/><Widget name=\"b\"/><Widget name=\"c\"/>"
                                  "<Widget name=\"d\"/><Widget class=\"ComboBox\"/>"
                               << "a b c d ComboBox_4";
        QTest::newRow("empty name") << "<Widget name=\"\" class=\"Label\"/>"
                                    << "Label_0";
        QTest::newRow("no class either") << "<Widget/><Widget/>"
                                         << "_0 _1";
        QTest::newRow("equal names stay") << "<Widget name=\"a\"/><Widget name=\"a\"/>"
                                          << "a a";
        QTest::newRow("counts on in a second sheet")
            << "<Widget class=\"X\"/></Sheet><Sheet name=\"two\"><Widget class=\"X\"/>"
            << "X_0 X_1";
        QTest::newRow("unknown elements do not count") << "<Gadget/><Widget class=\"X\"/><widget/>"
                                                       << "X_0";
    }

    void namelessWidgetIsNamedByClassAndPosition()
    {
        QFETCH(QString, widgets);
        QFETCH(QString, expected);
        const FormPointer form = parsed(sheetXml(widgets));
        QCOMPARE(names(form), expected);
        for (int i = 0; i < form->GetSheet().GetWidgetCount(); ++i) {
            const auto widget = form->GetSheet().GetWidgetAt(i);
            QCOMPARE(widget->GetDelegate()->objectName(), widget->GetName());
            QCOMPARE(widget->GetXmlTagName(), widget->GetName());
        }
    }

    void secondSheetAddsItsWidgetsAndItsNameWins()
    {
        const FormPointer form =
            parsed(rootXml(QStringLiteral("<Sheet name=\"one\"><Widget name=\"a\"/></Sheet><Enums/><Sheet "
                                          "name=\"two\"><Widget name=\"b\"/></Sheet>")));
        QCOMPARE(names(form), QStringLiteral("a b"));
        QCOMPARE(form->GetSheet().GetName(), QStringLiteral("two"));
    }

    void valueArrivesByItsTypeElement_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QVariant>("expected");
        QTest::newRow("true") << "Bool"
                              << "true" << QVariant(true);
        QTest::newRow("false") << "Bool"
                               << "false" << QVariant(false);
        QTest::newRow("TRUE is false") << "Bool"
                                       << "TRUE" << QVariant(false);
        QTest::newRow("1 is false") << "Bool"
                                    << "1" << QVariant(false);
        QTest::newRow("blank true is false") << "Bool"
                                             << " true" << QVariant(false);
        QTest::newRow("empty is false") << "Bool"
                                        << "" << QVariant(false);
        const auto text = [](const char* row, const char* type, const char* content) {
            QTest::newRow(row) << QString::fromUtf8(type) << QString::fromUtf8(content)
                               << QVariant(QString::fromUtf8(content));
        };
        text("Int is text", "Int", "12");
        text("Int64 is text", "Int64", "12345678901");
        text("UInt64 is text", "UInt64", "7");
        text("Double is text", "Double", "1.50");
        text("Integer is text", "Integer", "5");
        text("String", "String", "a b");
        text("bool in lower case is text", "bool", "true");
        text("any name", "Anything", "x");
        text("Int overflow is text", "Int", "99999999999");
        text("no escapes here", "String", "{{CR}}");
        text("blanks are kept", "String", "  x ");
    }

    void valueArrivesByItsTypeElement()
    {
        QFETCH(QString, type);
        QFETCH(QString, text);
        QFETCH(QVariant, expected);
        const QVariant value = parsedProperty(
            QStringLiteral("<Property name=\"x\"><%1>%2</%1></Property>").arg(type, text), "x");
        QCOMPARE(value.userType(), expected.userType());
        QCOMPARE(value, expected);
    }

    void overflowShowsOnlyWhenANumberIsWanted()
    {
        const FormPointer form = parsed(sheetXml(
            QStringLiteral("<Widget name=\"w\">%1</Widget>").arg(propertyXml("x", "99999999999", "Int"))));
        const ZorvaDelegate* const delegate = delegateNamed(form->GetSheet(), "w");
        QCOMPARE(delegate->GetString(QStringLiteral("x"), QString()), QStringLiteral("99999999999"));
        QCOMPARE(delegate->GetInt(QStringLiteral("x"), -3), QVariant(QStringLiteral("99999999999")).toInt());
        QCOMPARE(delegate->GetInt64(QStringLiteral("x"), -3), Q_INT64_C(99999999999));
    }

    void firstChildOfAPropertyCounts()
    {
        const QString twice = QStringLiteral(
            "<Property name=\"x\"><!-- c --><Int>1</Int><Bool>true</Bool><a><b/></a></Property>");
        QCOMPARE(parsedProperty(twice, "x"), QVariant(QStringLiteral("1")));
        // What stands behind the property arrives as ever.
        QCOMPARE(parsedProperty(twice + propertyXml("y", "2"), "y"), QVariant(QStringLiteral("2")));
    }

    void laterPropertyOfANameReplacesTheEarlier()
    {
        QCOMPARE(parsedProperty(propertyXml("x", "1") + propertyXml("x", "2"), "x"),
                 QVariant(QStringLiteral("2")));
    }

    void propertyNamesAreLatin1()
    {
        const FormPointer form = parsed(sheetXml(QStringLiteral(
            "<Widget name=\"w\"><Property name=\"gr\u00f6\u00dfe\"><Int>1</Int></Property></Widget>")));
        QCOMPARE(delegateNamed(form->GetSheet(), "w")
                     ->property("gr\xf6\xdf"
                                "e"),
                 QVariant(QStringLiteral("1")));
    }

    void propertyWithoutNameIsHarmless()
    {
        QCOMPARE(
            parsedProperty(QStringLiteral("<Property><Int>1</Int></Property>") + propertyXml("y", "2"), "y"),
            QVariant(QStringLiteral("2")));
    }

    void customPropertiesStayApart()
    {
        const FormPointer form = parsed(sheetXml(
            QStringLiteral("<Widget name=\"w\">%1<CustomProperties>%2%3%4</CustomProperties>%5</Widget>")
                .arg(propertyXml("before", "1"), propertyXml("x", "2"), propertyXml("x", "true", "Bool"),
                     propertyXml("toolTip", "help"), propertyXml("behind", "3"))));
        ZorvaDelegate* const delegate = delegateNamed(form->GetSheet(), "w");
        QCOMPARE(delegate->property("before"), QVariant(QStringLiteral("1")));
        QCOMPARE(delegate->property("behind"), QVariant(QStringLiteral("3")));
        QVERIFY(!delegate->property("x").isValid());
        QCOMPARE(delegate->customProperty(QStringLiteral("x")), QVariant(true));
        QCOMPARE(delegate->property("toolTip"), QVariant(QStringLiteral("help")));
        QCOMPARE(delegate->customProperty(QStringLiteral("toolTip")), QVariant(QStringLiteral("help")));
    }

    void customPropertyKeepsEveryLetterOfItsName()
    {
        const QString greek = QString::fromUtf8("\xce\xbb/2");
        const FormPointer form =
            parsed(sheetXml(QStringLiteral("<Widget name=\"w\"><CustomProperties>"
                                           "<Property name=\"%1\"><Double>0.5</Double></Property>"
                                           "</CustomProperties></Widget>")
                                .arg(greek)));
        ZorvaDelegate* const delegate = delegateNamed(form->GetSheet(), "w");
        QCOMPARE(delegate->customProperty(greek), QVariant(QStringLiteral("0.5")));
        QVERIFY(!delegate->customProperty(QStringLiteral("?/2")).isValid());
    }

    void sheetHoldsItsPropertiesInAWrapper()
    {
        const FormPointer form = parsed(
            sheetXml(QStringLiteral("%1<Properties>%2</Properties><CustomProperties>%3</CustomProperties>"
                                    "<Widget name=\"w\"/><Properties>%4</Properties>")
                         .arg(propertyXml("bare", "1"), propertyXml("x", "2"), propertyXml("c", "3"),
                              propertyXml("behind", "4"))));
        ZorvaDelegate* const sheet = form->GetSheet().GetDelegate();
        QVERIFY(!sheet->property("bare").isValid());
        QCOMPARE(sheet->property("x"), QVariant(QStringLiteral("2")));
        QCOMPARE(sheet->customProperty(QStringLiteral("c")), QVariant(QStringLiteral("3")));
        QCOMPARE(sheet->property("behind"), QVariant(QStringLiteral("4")));
        QCOMPARE(names(form), QStringLiteral("w"));
    }

    void commentsAndInstructionsAreIgnoredEverywhere()
    {
        const QString c = QStringLiteral("<!-- <Stray/> --><?pi x?> text ");
        const FormPointer form = parsed(
            QStringLiteral(
                "<KVParamGui>%1<Enums>%1<Enum name=\"E\">%1<EnumValue>%1<Value>1<!-- c --></Value>%1"
                "</EnumValue>%1</Enum>%1</Enums>%1<Sheet name=\"s\">%1<Properties>%1<Property name=\"p\">"
                "%1<Int>1</Int>%1</Property>%1</Properties>%1<Widget name=\"w\">%1<Property name=\"q\">%1"
                "<Int>2</Int>%1</Property>%1<CustomProperties>%1</CustomProperties>%1</Widget>%1"
                "<Widget name=\"v\"/></Sheet>%1<Script>1<!-- c --></Script>%1</KVParamGui>")
                .arg(c));
        QCOMPARE(form->GetEnum(QStringLiteral("E"))->GetValueAt(0).GetValue(), QStringLiteral("1"));
        QCOMPARE(form->GetSheet().GetDelegate()->property("p"), QVariant(QStringLiteral("1")));
        QCOMPARE(delegateNamed(form->GetSheet(), "w")->property("q"), QVariant(QStringLiteral("2")));
        QCOMPARE(names(form), QStringLiteral("w v"));
        QCOMPARE(form->GetScript().GetCode(), QStringLiteral("1"));
    }

    void unknownElementIsSkippedWithItsSubtree_data()
    {
        QTest::addColumn<QString>("description");
        const QString stray = QStringLiteral(
            "<Stray><Widget name=\"no\"/><Enum name=\"no\"/><Stray><Script>no</Script></Stray></Stray>");
        QTest::newRow("root") << rootXml(stray + QStringLiteral("<Sheet><Widget name=\"w\"/></Sheet>") +
                                         stray +
                                         QStringLiteral("<Enums><Enum name=\"E\"><EnumValue/></Enum></Enums>"
                                                        "<Script>s</Script>"));
        QTest::newRow("enums and below") << rootXml(
            QStringLiteral("<Enums>%1<Enum name=\"E\">%1<EnumValue>%1</EnumValue>%1</Enum>%1</Enums>"
                           "<Sheet>%1<Widget name=\"w\"/>%1</Sheet><Script>s</Script>")
                .arg(stray));
    }

    void unknownElementIsSkippedWithItsSubtree()
    {
        QFETCH(QString, description);
        const FormPointer form = parsed(description);
        QCOMPARE(names(form), QStringLiteral("w"));
        QCOMPARE(form->GetEnum(QStringLiteral("E"))->GetValueCount(), 1);
        QVERIFY(form->GetEnum(QStringLiteral("no")) == form->GetEmptyEnum());
        QCOMPARE(form->GetScript().GetCode(), QStringLiteral("s"));
    }

    /// What a walk that ends early leaves standing: all before it, nothing behind.
    void strayElementCutsTheDocumentShort_data()
    {
        QTest::addColumn<QString>("sheetContent");
        QTest::addColumn<QString>("widgets");
        QTest::addColumn<QString>("properties"); // of "b", those that are set
        QTest::addColumn<bool>("isWhole");
        const QString a = QStringLiteral("<Widget name=\"a\"/>");
        const QString c = QStringLiteral("<Widget name=\"c\"/>");
        const auto b = [&](const QString& content) {
            return QStringLiteral("%1<Widget name=\"b\">%2%3%4</Widget>%5")
                .arg(a, propertyXml("x", "1"), content, propertyXml("y", "1"), c);
        };
        QTest::newRow("nothing stray") << b(QString()) << "a b c"
                                       << "x y" << true;
        QTest::newRow("empty stray in a widget") << b(QStringLiteral("<Stray/>")) << "a b"
                                                 << "x" << false;
        QTest::newRow("stray holding a property")
            << b(QStringLiteral("<Stray>%1</Stray>").arg(propertyXml("z", "1"))) << "a b"
            << "x z" << false;
        QTest::newRow("property wrapper in a widget")
            << b(QStringLiteral("<Properties>%1</Properties>").arg(propertyXml("z", "1"))) << "a b"
            << "x z" << false;
        QTest::newRow("stray in a stray")
            << b(QStringLiteral("<Stray><Stray/>%1</Stray>").arg(propertyXml("z", "1"))) << "a b"
            << "x" << false;
        QTest::newRow("widget in a widget")
            << b(QStringLiteral("<Widget name=\"in\">%1</Widget>").arg(propertyXml("z", "1"))) << "a b"
            << "x z" << false;
        QTest::newRow("widget behind a stray joins the sheet")
            << b(QStringLiteral("<Stray/><Widget name=\"in\"/>")) << "a b in"
            << "x" << false;
        QTest::newRow("property without a type element")
            << b(QStringLiteral("<Property name=\"z\"/>")) << "a b"
            << "x" << false;
        QTest::newRow("property with bare text")
            << b(QStringLiteral("<Property name=\"z\">1</Property>")) << "a b"
            << "x" << false;
        QTest::newRow("stray in a custom block")
            << b(QStringLiteral("<CustomProperties><Stray/>%1</CustomProperties>").arg(propertyXml("z", "1")))
            << "a b"
            << "x z" << false;
        QTest::newRow("typeless in a custom block")
            << b(QStringLiteral("<CustomProperties><Property name=\"t\"/>%1</CustomProperties>")
                     .arg(propertyXml("z", "1")))
            << "a b"
            << "x z" << false;
        QTest::newRow("stray in the sheet") << b(QString()) + QStringLiteral("<Stray><a/></Stray>") << "a b c"
                                            << "x y" << true;
        QTest::newRow("bare property in the sheet") << propertyXml("z", "1") + b(QString()) << "a b c"
                                                    << "x y" << true;
        QTest::newRow("stray in the sheet's properties")
            << QStringLiteral("<Widget name=\"b\">%1</Widget><Properties><Stray/></Properties>")
                       .arg(propertyXml("x", "1")) +
                   c
            << "b"
            << "x" << false;
        QTest::newRow("stray in the sheet's custom properties")
            << QStringLiteral("<Widget name=\"b\">%1</Widget><CustomProperties><Stray/></CustomProperties>")
                       .arg(propertyXml("x", "1")) +
                   c
            << "b"
            << "x" << false;
        QTest::newRow("typeless in the sheet's properties")
            << QStringLiteral("<Widget name=\"b\">%1</Widget><Properties><Property name=\"t\"/></Properties>")
                       .arg(propertyXml("x", "1")) +
                   c
            << "b"
            << "x" << false;
    }

    void strayElementCutsTheDocumentShort()
    {
        QFETCH(QString, sheetContent);
        QFETCH(QString, widgets);
        QFETCH(QString, properties);
        QFETCH(bool, isWhole);
        const FormPointer form = parsed(framed(sheetContent));
        QVERIFY(form);
        QCOMPARE(names(form), widgets);
        const ZorvaDelegate* const b = delegateNamed(form->GetSheet(), "b");
        QStringList set;
        for (const char* name : {"x", "y", "z"}) {
            if (b->property(name).isValid())
                set << QString::fromLatin1(name);
        }
        QCOMPARE(set.join(QLatin1Char(' ')), properties);
        QVERIFY(form->GetEnum(QStringLiteral("early")) != form->GetEmptyEnum());
        QCOMPARE(form->GetEnum(QStringLiteral("late")) != form->GetEmptyEnum(), isWhole);
        QCOMPARE(!form->GetScript().GetCode().isEmpty(), isWhole);
    }

    void restOfACutWidgetGoesToTheSheet()
    {
        const FormPointer form = parsed(sheetXml(
            QStringLiteral("<Widget name=\"w\"><Stray/>%1<Properties>%2</Properties><CustomProperties>%3"
                           "</CustomProperties><Widget class=\"X\"/></Widget>")
                .arg(propertyXml("own", "1"), propertyXml("forSheet", "2"), propertyXml("custom", "3"))));
        ZorvaDelegate* const sheet = form->GetSheet().GetDelegate();
        QCOMPARE(names(form), QStringLiteral("w X_1"));
        QVERIFY(!delegateNamed(form->GetSheet(), "w")->property("own").isValid());
        QVERIFY(!sheet->property("own").isValid());
        QCOMPARE(sheet->property("forSheet"), QVariant(QStringLiteral("2")));
        QCOMPARE(sheet->customProperty(QStringLiteral("custom")), QVariant(QStringLiteral("3")));
    }

    void cutWidgetIsStillFinished_data()
    {
        QTest::addColumn<QString>("end");
        QTest::newRow("stray") << "<Stray/></Widget></Sheet></KVParamGui>";
        QTest::newRow("typeless property") << "<Property name=\"y\"/></Widget></Sheet></KVParamGui>";
        QTest::newRow("element in a value") << "<Property name=\"y\"><Int>1<b/></Int></Property></Widget>";
        QTest::newRow("text ends") << "";
        QTest::newRow("text ends in a tag") << "<Prop";
        QTest::newRow("wrong end tag") << "</Sheet>";
        QTest::newRow("unknown entity") << "&none;";
    }

    void cutWidgetIsStillFinished()
    {
        QFETCH(QString, end);
        const FormPointer form =
            parsed(QStringLiteral("<KVParamGui><Sheet><Widget name=\"w\" class=\"LineEdit\">%1%2%3")
                       .arg(propertyXml("parameterXmlTag", "group/tag"),
                            propertyXml("generateParameterXml", "true", "Bool"), end));
        const auto widget = form->GetSheet().GetWidgetAt(0);
        QCOMPARE(widget->GetXmlTagName(), QStringLiteral("tag"));
        QCOMPARE(form->GetSheet().GetWidget(QStringLiteral("group/tag")), widget);
        widget->GetDelegate()->setModified(true);
        QVERIFY(widget->isModified());
    }

    void partBeforeTheDamageStands()
    {
        const FormPointer form =
            parsed(QStringLiteral(
                       "<KVParamGui version=\"4\"><Sheet name=\"s\"><Widget name=\"a\"/><Widget name=\"b\"/>"
                       "<Widget name=\"c\">%1<Property name=\"y\"><Int>")
                       .arg(propertyXml("x", "1")));
        QCOMPARE(names(form), QStringLiteral("a b c"));
        QCOMPARE(form->GetVersion(), QStringLiteral("4"));
        QCOMPARE(delegateNamed(form->GetSheet(), "c")->property("x"), QVariant(QStringLiteral("1")));
        form->CreateValueTree(QStringLiteral("/test"));
        form->CreateGUI(true);
        delete form->GetGUI();
    }

    void damageStopsEveryLevel_data()
    {
        QTest::addColumn<QString>("damage");
        QTest::newRow("bare ampersand") << " & ";
        QTest::newRow("unknown entity") << "&none;";
        QTest::newRow("open tag") << "<";
        QTest::newRow("bad name") << "<1a/>";
        QTest::newRow("attribute twice") << "<a b=\"1\" b=\"2\"/>";
        QTest::newRow("attribute without quotes") << "<a b=1/>";
        QTest::newRow("wrong end tag") << "<a></b>";
        QTest::newRow("undeclared prefix") << "<p:a/>";
        QTest::newRow("control character") << QString(QChar(1));
        QTest::newRow("no character at all") << QString(QChar(0));
        QTest::newRow("open comment") << "<!-- ";
        QTest::newRow("open CDATA") << "<![CDATA[ ";
        QTest::newRow("bad character reference") << "&#0;";
        QTest::newRow("second declaration") << "<?xml version=\"1.0\"?>";
    }

    void damageStopsEveryLevel()
    {
        QFETCH(QString, damage);
        const QString w = QStringLiteral("<Widget name=\"w\"/>");
        const QString late = QStringLiteral("<Widget name=\"late\"/>");
        const QStringList documents{
            sheetXml(w + damage + late),
            sheetXml(w + QStringLiteral("<Properties>") + damage + QStringLiteral("</Properties>") + late),
            sheetXml(QStringLiteral("<Widget name=\"w\">") + damage + QStringLiteral("</Widget>") + late),
            sheetXml(QStringLiteral("<Widget name=\"w\"><Property name=\"x\"><Int>1") + damage +
                     QStringLiteral("</Int></Property></Widget>") + late),
            sheetXml(w + QStringLiteral("<Stray>") + damage + QStringLiteral("</Stray>") + late)};
        for (const QString& document : documents) {
            const FormPointer form = parsed(document);
            QVERIFY(form);
            QCOMPARE(names(form), QStringLiteral("w"));
        }
        QVERIFY(!parsed(damage + rootXml(QString())) || damage.startsWith(QLatin1String("<?xml")));
    }

    void nameRegistersTheTranslation()
    {
        const TranslationCenter& center = TranslationCenter::Instance();
        const auto registered = [&center](const char* context) {
            return center.GetRegistrationCount(QString::fromLatin1(context));
        };
        {
            const FormPointer form = parsed(rootXml(QString()));
            QCOMPARE(form->GetName(), QString());
            form->SetName(QStringLiteral("tst_first"));
            form->SetName(QStringLiteral("tst_second"));
            QCOMPARE(form->GetName(), QStringLiteral("tst_second"));
            QCOMPARE(registered("tst_first"), 1);
            QCOMPARE(registered("tst_second"), 1);
        }
        // The earlier name stays registered, on purpose.
        QCOMPARE(registered("tst_first"), 1);
        QCOMPARE(registered("tst_second"), 0);
        TranslationCenter::Instance().Unregister(QStringLiteral("tst_first"));
    }

    void emptyNameRegistersNothing()
    {
        {
            const FormPointer form = parsed(rootXml(QString()));
            form->SetName(QString());
        }
        QCOMPARE(TranslationCenter::Instance().GetRegistrationCount(QString()), 0);
    }

    void emptyNameLeavesTheEarlierRegistration()
    {
        {
            const FormPointer form = parsed(rootXml(QString()));
            form->SetName(QStringLiteral("tst_third"));
            form->SetName(QString());
        }
        QCOMPARE(TranslationCenter::Instance().GetRegistrationCount(QStringLiteral("tst_third")), 1);
        TranslationCenter::Instance().Unregister(QStringLiteral("tst_third"));
    }

    void configurationIsRestoredWhenItComes()
    {
        FormFixture form(widgetXml("Headline", "gain", {{"text", "Gain"}}) + rowXml("LineEdit", "edit"));
        QVERIFY(form.row("gain")->isGroupVisible());
        QObject configuration;
        configuration.setProperty("key-collapsed", QStringLiteral("gain"));
        form.formular()->SetConfigObject(&configuration, QStringLiteral("key"));
        QVERIFY(!form.row("gain")->isGroupVisible());
        QVERIFY(!form.row("edit")->isGroupVisible());
    }

    void configurationSetBeforeTheControlsIsRestoredWithThem()
    {
        FormFixture form(widgetXml("Headline", "gain", {{"text", "Gain"}}) + rowXml("LineEdit", "edit"),
                         FormFixture::WithValues);
        QObject configuration;
        form.formular()->SetConfigObject(&configuration, QStringLiteral("key"));
        configuration.setProperty("key-collapsed", QStringLiteral("gain"));
        QVERIFY(form.row("gain")->isGroupVisible());
        form.createGui();
        QVERIFY(!form.row("gain")->isGroupVisible());
        QVERIFY(!form.control<QWidget>("edit")->isVisibleTo(form.window()));
    }
};

QTEST_MAIN(tst_zorvaparser)
#include "tst_zorvaparser.moc"
