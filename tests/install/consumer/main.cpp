// A host in small: shows a form, changes a value as a device would, and fetches
// the parameters. Ends with 0 if all of that works.
#include <hostkit/formrows.h>
#include <valueframework/valuebase.h>
#include <velkappstartup/velkapplication.h>
#include <zorvaparser/zorvaformular.h>
#include <zorvaparser/zorvaparser.h>

#include <QApplication>
#include <QExplicitlySharedDataPointer>
#include <QWidget>

#include <cstdio>

namespace {

const char* const description = R"(<KVParamGui version="1.0">
  <Sheet name="Sheet">
    <Widget name="Attenuation" class="CheckBox">
      <Property name="labelText"><String>Attenuation</String></Property>
      <Property name="generateParameterXml"><Bool>true</Bool></Property>
    </Widget>
  </Sheet>
</KVParamGui>)";

int fail(const char* what)
{
    std::fprintf(stderr, "consumer: %s\n", what);
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const VelkApplication host(argc, argv);

    Orvane::ZorvaParser parser;
    const QExplicitlySharedDataPointer<Orvane::ZorvaFormular> form(
        parser.ParseZORVA(QByteArray(description)));
    if (!form)
        return fail("the form is not parsed");
    form->CreateValueTree(QStringLiteral("/Consumer"));
    form->CreateGUI(true);
    form->Show();
    if (!form->GetGUI() || !form->GetGUI()->isVisible())
        return fail("the form is not shown");
    if (!form->SetVTValue(QStringLiteral("Attenuation"), QStringLiteral("true"), nullptr, false))
        return fail("the value cannot be set");
    if (hostkit::shownText(*form, QStringLiteral("Attenuation")) != QLatin1String("true"))
        return fail("the row is not found");
    const QString parameters = form->GetXmlString(false);
    std::printf("%s", qPrintable(parameters));
    delete form->GetGUI();
    return parameters.contains(QStringLiteral("<Attenuation>true</Attenuation>")) ? 0
                                                                                  : fail("the value is lost");
}
