#include "valuespane.h"

#include "previewform.h"

#include <author/parameters/settingwords.h>
#include <zorvaparser/zorvadelegate.h>

#include <QHash>

namespace Orvane {
namespace Author {

namespace {

constexpr int columns = ValuesPane::State + 1;

/** Only what is new is set, so that the view has little to do. */
void setTexts(QTreeWidgetItem& item, const QStringList& texts)
{
    for (int column = 0; column < texts.size(); ++column) {
        if (item.text(column) != texts.at(column))
            item.setText(column, texts.at(column));
    }
}

QString valueText(const ZorvaDelegate& delegate)
{
    const values::ValueBase* const value = delegate.GetVTValue();
    return value ? value->GetStringValue() : QString();
}

/** Of a headline its title. */
QString captionOf(ZorvaDelegate& delegate)
{
    const QString caption = delegate.GetTranslated("labelText");
    return caption.isEmpty() ? delegate.GetTranslated("text") : caption;
}

} // namespace

ValuesPane::ValuesPane(QWidget* parent)
    : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("valuesPane"));
    setAccessibleName(QStringLiteral("Values of all rows"));
    setColumnCount(columns);
    setHeaderLabels({QStringLiteral("Row"), QStringLiteral("Caption"), QStringLiteral("Value"),
                     QStringLiteral("State"), QStringLiteral("As sent"), QStringLiteral("Path")});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
}

void ValuesPane::show(const PreviewForm* form)
{
    if (!form) {
        clear();
        return;
    }
    const ParameterSet settings = form->settings();
    const SettingWords words(form->form(), form->rows());
    QHash<int, QStringList> shown;
    QHash<int, QStringList> sent;
    for (const Setting& setting : settings.settings()) {
        shown[setting.row] << words.of(setting).value;
        sent[setting.row] << setting.text();
    }
    const QVector<ZorvaDelegate*> delegates = form->delegates();
    const bool isFirst = topLevelItemCount() == 0;
    setUpdatesEnabled(false);
    while (topLevelItemCount() > delegates.size())
        delete takeTopLevelItem(topLevelItemCount() - 1);
    const QString separator = QStringLiteral(", ");
    for (int i = 0; i < delegates.size(); ++i) {
        ZorvaDelegate& delegate = *delegates.at(i);
        QTreeWidgetItem* const item = i < topLevelItemCount() ? topLevelItem(i) : new QTreeWidgetItem(this);
        const QString value = shown.contains(i) ? shown.value(i).join(separator) : valueText(delegate);
        setTexts(*item,
                 {delegate.objectName(), captionOf(delegate), value,
                  delegate.isModified() ? QStringLiteral("not applied") : QString(),
                  sent.value(i).join(separator), sent.contains(i) ? delegate.GetXmlPath() : QString()});
    }
    // Later widths are the user's.
    for (const int column : {Row, Caption, Value}) {
        if (isFirst)
            resizeColumnToContents(column);
    }
    setUpdatesEnabled(true);
}

} // namespace Author
} // namespace Orvane
