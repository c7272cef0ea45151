#include "formfixture.h"

#include <zorvaparser/zorvaparser.h>
#include <zorvaparser/zorvawidget.h>

#include <QTest>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

FormFixture::FormFixture(const QString& widgets, const QString& enums, const QString& script, Stage stage,
                         const QList<FormProperty>& sheetProperties)
    : m_formular(Orvane::ZorvaParser().ParseZORVA(formXml(widgets, enums, script, sheetProperties)))
{
    if (stage >= WithValues)
        createValues();
    if (stage >= WithGui)
        createGui();
}

FormFixture::FormFixture(const QString& widgets, Stage stage)
    : FormFixture(widgets, QString(), QString(), stage)
{
}

FormFixture::~FormFixture()
{
    deleteWindow();
    deleteForm();
}

void FormFixture::createValues()
{
    m_formular->CreateValueTree(QStringLiteral("/test"));
}

void FormFixture::createGui()
{
    m_formular->CreateGUI(true);
    m_window = m_formular->GetGUI();
}

void FormFixture::show()
{
    m_window->resize(600, 400);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window));
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
}

void FormFixture::deleteWindow()
{
    delete m_window;
}

void FormFixture::deleteForm()
{
    m_formular.reset();
}

Orvane::ZorvaDelegate* FormFixture::row(const char* name) const
{
    const QString wanted = QString::fromUtf8(name);
    Orvane::ZorvaSheet& ofSheet = sheet();
    for (int i = 0; i < ofSheet.GetWidgetCount(); ++i) {
        const auto widget = ofSheet.GetWidgetAt(i);
        if (widget->GetName() == wanted)
            return widget->GetDelegate();
    }
    const auto widget = ofSheet.GetWidget(wanted);
    return widget ? widget->GetDelegate() : nullptr;
}

QString FormFixture::writtenBy(const char* name) const
{
    QString text;
    QXmlStreamWriter writer(&text);
    row(name)->GetXml(writer);
    // The writer keeps a start tag open until something follows.
    writer.writeCharacters(QString());
    return text;
}

bool FormFixture::read(const char* name, const QString& element) const
{
    QXmlStreamReader reader(element);
    reader.readNextStartElement();
    const QString tag = reader.name().toString();
    row(name)->ReadXml(reader);
    return reader.isEndElement() && reader.name() == tag;
}

void FormFixture::resetModified() const
{
    Orvane::ZorvaSheet& ofSheet = sheet();
    for (int i = 0; i < ofSheet.GetWidgetCount(); ++i)
        ofSheet.GetWidgetAt(i)->resetModified();
    ofSheet.resetModified();
}
