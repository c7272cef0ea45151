#include "formtest.h"

#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaparser.h>
#include <zorvaparser/zorvawidget.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QScriptEngine>
#include <QXmlStreamReader>
#include <QtTest>

// The descriptions and scripts that the pages show.
class tst_PageBlocks : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void xml_data();
    void xml();
    void script_data();
    void script();
    void json_data();
    void json();
};

namespace {

void addBlocks(const char* folder, const char* pattern)
{
    QTest::addColumn<QString>("file");
    const QDir blocks(QStringLiteral(ZORVA_PAGE_BLOCKS "/") + QLatin1String(folder));
    const QStringList files = blocks.entryList({QLatin1String(pattern)}, QDir::Files, QDir::Name);
    QVERIFY(!files.isEmpty());
    for (const QString& file : files)
        QTest::newRow(qPrintable(file)) << blocks.filePath(file);
}

QString contentOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// What is well-formed below a root of its own, as several rows in one block are.
QString whyNotWellFormed(const QString& text)
{
    QXmlStreamReader reader(text);
    while (!reader.atEnd())
        reader.readNext();
    return reader.hasError() ? reader.errorString() : QString();
}

QString rootOf(const QString& block)
{
    QXmlStreamReader reader(block);
    return reader.readNextStartElement() ? reader.name().toString() : QString();
}

/// A whole description from a block that shows a part of one; empty if it shows something else.
QString descriptionFrom(const QString& block)
{
    const QString root = rootOf(block);
    if (root == QLatin1String("KVParamGui"))
        return block;
    QString parts = block;
    if (root == QLatin1String("Widget"))
        parts = QStringLiteral("<Sheet name=\"page\">%1</Sheet>").arg(block);
    else if (root == QLatin1String("Enum"))
        parts = QStringLiteral("<Enums>%1</Enums>").arg(block);
    else if (root != QLatin1String("Sheet") && root != QLatin1String("Enums") &&
             root != QLatin1String("Script"))
        return QString();
    return QStringLiteral("<KVParamGui>%1</KVParamGui>").arg(parts);
}

/// Rows of a class that there is not; those of an overlay name none.
int rowsOfUnknownClass(Orvane::ZorvaFormular& form)
{
    int unknown = 0;
    Orvane::ZorvaSheet& sheet = form.GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i)
        unknown +=
            sheet.GetWidgetAt(i)->GetDelegate()->metaObject() == &Orvane::ZorvaDelegate::staticMetaObject;
    return unknown;
}

} // namespace

void tst_PageBlocks::xml_data()
{
    addBlocks("xml", "*.xml");
}

/// Each block is well-formed, and one of a description makes a form with as many rows, whose script runs.
void tst_PageBlocks::xml()
{
    QFETCH(QString, file);
    const QString block = contentOf(file);
    const QString description = descriptionFrom(block);
    QCOMPARE(whyNotWellFormed(description.isEmpty() ? block : description), QString());
    if (description.isEmpty())
        return;

    Orvane::ZorvaParser parser;
    const QExplicitlySharedDataPointer<Orvane::ZorvaFormular> form(parser.ParseZORVA(description));
    QVERIFY(form);
    const bool damaged =
        description.contains(QStringLiteral("<Sheet name=\"damaged\">")); // loses its second row
    QCOMPARE(form->GetSheet().GetWidgetCount(), damaged ? 1 : description.count(QStringLiteral("<Widget ")));
    const int withoutClass =
        description.count(QStringLiteral("<Widget ")) - description.count(QStringLiteral(" class=\""));
    QCOMPARE(rowsOfUnknownClass(*form), withoutClass);
    form->CreateValueTree(QStringLiteral("/page"));
    form->CreateGUI(true);
    form->Show();
    delete form->GetGUI();
}

void tst_PageBlocks::script_data()
{
    addBlocks("js", "*.js");
}

void tst_PageBlocks::script()
{
    QFETCH(QString, file);
    const QScriptSyntaxCheckResult result = QScriptEngine::checkSyntax(contentOf(file));
    QCOMPARE(result.errorMessage(), QString());
    QCOMPARE(result.state(), QScriptSyntaxCheckResult::Valid);
}

void tst_PageBlocks::json_data()
{
    addBlocks("json", "*.json");
}

void tst_PageBlocks::json()
{
    QFETCH(QString, file);
    QJsonParseError error;
    QJsonDocument::fromJson(contentOf(file).toUtf8(), &error);
    QVERIFY2(error.error == QJsonParseError::NoError, qPrintable(error.errorString()));
}

QTEST_MAIN(tst_PageBlocks)
#include "tst_pageblocks.moc"
