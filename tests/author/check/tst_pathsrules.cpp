#include "rulestest.h"

class tst_pathsrules : public RulesTest
{
    Q_OBJECT

protected:
    void addCases() override
    {
        rows("two rows on one path",
             "<Widget name=\"a\" class=\"HiddenParameter\">\n"
             "<Property name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
             "<Property name=\"parameterXmlTag\"><String>x/y</String></Property>\n"
             "</Widget>\n"
             "<Widget name=\"b\" class=\"HiddenParameter\">\n"
             "<Property name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
             "<Property name=\"parameterXmlTag\"><String>x/y</String></Property>\n"
             "</Widget>",
             "shared-path 9:42");
        rows("the same path, one not exported",
             "<Widget name=\"a\" class=\"HiddenParameter\">\n"
             "<Property name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
             "<Property name=\"parameterXmlTag\"><String>x/y</String></Property>\n"
             "</Widget>\n"
             "<Widget name=\"b\" class=\"HiddenParameter\">\n"
             "<Property name=\"parameterXmlTag\"><String>x/y</String></Property>\n"
             "</Widget>",
             "");
        rows("a leaf that is a group",
             "<Widget name=\"a\" class=\"HiddenParameter\">\n"
             "<Property name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
             "<Property name=\"parameterXmlTag\"><String>x</String></Property>\n"
             "</Widget>\n"
             "<Widget name=\"b\" class=\"HiddenParameter\">\n"
             "<Property name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
             "<Property name=\"parameterXmlTag\"><String>x/y</String></Property>\n"
             "</Widget>",
             "leaf-is-group 5:42");
        rows("a block without the path",
             "<Widget name=\"a\" class=\"SpecialObject_FHP\">\n"
             "<Property name=\"parameterXmlTag\"><String>x/y</String></Property>\n"
             "<CustomProperties/>\n</Widget>",
             "lost-path 5:1");
        rows("a block whose path is misspelt",
             "<Widget name=\"a\" class=\"SpecialObject_DSC\">\n"
             "<Property name=\"parameterXmlTag\"><String>x/y</String></Property>\n<CustomProperties>"
             "<Property name=\"CustomXmlTag\"><String>x/y</String></Property></CustomProperties>\n</Widget>",
             "lost-path 5:1");
        rows("a block with the path",
             "<Widget name=\"a\" class=\"SpecialObject_FHP\">\n"
             "<Property name=\"parameterXmlTag\"><String>x/y</String></Property>\n<CustomProperties>"
             "<Property name=\"customXmlTag\"><String>x/y</String></Property></CustomProperties>\n</Widget>",
             "");
        rows("a block before the path",
             "<Widget name=\"a\" class=\"SpecialObject_FHP\">\n<CustomProperties/>\n"
             "<Property name=\"parameterXmlTag\"><String>x/y</String></Property>\n</Widget>",
             "");
        rows("two blocks that take the same path",
             "<Widget name=\"a\" class=\"SpecialObject_FHP\">\n<CustomProperties/>\n</Widget>\n"
             "<Widget name=\"b\" class=\"SpecialObject_FHP\">\n<CustomProperties/>\n</Widget>",
             "shared-path 6:15");
        rows("an empty part",
             "<Widget name=\"a\" class=\"HiddenParameter\">\n"
             "<Property name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
             "<Property name=\"parameterXmlTag\"><String>x//y</String></Property>\n"
             "</Widget>",
             "empty-path-part 5:42");
        rows("a slash at the end",
             "<Widget name=\"a\" class=\"HiddenParameter\">\n"
             "<Property name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
             "<Property name=\"parameterXmlTag\"><String>x/</String></Property>\n"
             "</Widget>",
             "empty-path-part 5:42");
        rows("no name of XML",
             "<Widget name=\"a\" class=\"HiddenParameter\">\n"
             "<Property name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
             "<Property name=\"parameterXmlTag\"><String>x/1 y</String></Property>\n"
             "</Widget>",
             "path-name 5:42");
        rows("a name that is no path",
             "<Widget name=\"my row\" class=\"HiddenParameter\">\n"
             "<Property name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
             "</Widget>",
             "path-name 3:15");
        rows("an announced attribute",
             "<CustomProperties><Property "
             "name=\"Attribute_a\"><String>1</String></Property></CustomProperties>",
             "root-attribute 3:35");
        rows("an attribute without announcement",
             "<Properties><Property name=\"Attribute_a\"><String>1</String></Property></Properties>",
             "root-attribute 3:29");
        rows("an attribute with both",
             "<Properties><Property "
             "name=\"Attribute_a\"><String>1</String></Property></Properties><CustomProperties><Property "
             "name=\"Attribute_a\"><String></String></Property></CustomProperties>",
             "");
        rows("nothing is lost by it, and rows by another",
             "<Widget name=\"my row\" class=\"HiddenParameter\"><Property "
             "name=\"generateParameterXml\"><Bool>true</Bool></Property></Widget>"
             "\n<Widget name=\"c\" class=\"Separator\">\n<x/>\n</Widget>\n<Widget name=\"d\" "
             "class=\"Separator\"/>\n<Widget name=\"e\" class=\"Separator\"/>",
             "path-name 3:15, stray-element 5:1", "because of this the form loses 2 rows (d, e)");
    }
};

QTEST_MAIN(tst_pathsrules)
#include "tst_pathsrules.moc"
