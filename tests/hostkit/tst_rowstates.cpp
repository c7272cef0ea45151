#include "formtest.h"

#include <hostkit/rowstates.h>

#include <QTextDocument>

using hostkit::RowState;
using hostkit::RowStates;

/// What the marks beside the captions tell of their rows.
class TestRowStates : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void wordsOfTheDeviceAreNoMarkup();
};

void TestRowStates::wordsOfTheDeviceAreNoMarkup()
{
    const QString said = QStringLiteral("<b>no</b><img src='/none'>");
    FormFixture form(rowXml("LineEdit", "name", {{"labelText", "Name"}}));
    RowStates states(*form.formular());
    states.set(QStringLiteral("name"), RowState::Refused, said);
    int told = 0;
    for (const QWidget* const widget : form.window()->findChildren<QWidget*>()) {
        if (!widget->toolTip().contains(RowStates::word(RowState::Refused)))
            continue;
        QTextDocument shown;
        shown.setHtml(widget->toolTip());
        QVERIFY2(shown.toPlainText().contains(said), qPrintable(widget->toolTip()));
        ++told;
    }
    QVERIFY(told > 0);
}

QTEST_MAIN(TestRowStates)
#include "tst_rowstates.moc"
