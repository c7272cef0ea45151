#include "formprobe.h"

#include <valueframework/valuenumeric.h>
#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaparser.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCoreApplication>
#include <QHash>
#include <QMetaProperty>
#include <QTest>
#include <QVector>
#include <QWidget>

using namespace Orvane;

namespace {

/// What depends on the moment and not on the form.
bool isMomentary(const char* name)
{
    static const QList<QByteArray> names = {"focus",        "isActiveWindow",  "underMouse", "cursorPosition",
                                            "selectedText", "hasSelectedText", "down"};
    return names.contains(name);
}

bool isReadable(int type)
{
    return type == QMetaType::QRect || type == QMetaType::Bool || type == QMetaType::Int ||
           type == QMetaType::Double || type == QMetaType::QString;
}

/// Whether readable() may have a text for it. Reading costs most where there is none: fonts, palettes,
/// cursors.
bool mayBeReadable(const QMetaProperty& property)
{
    const int type = property.userType();
    return isReadable(type) || type == QMetaType::QVariant || type >= QMetaType::User ||
           property.isEnumType();
}

/// What is looked at of each control of a class.
QVector<QMetaProperty> propertiesToRead(const QMetaObject& meta)
{
    static QHash<const QMetaObject*, QVector<QMetaProperty>> known;
    const auto found = known.constFind(&meta);
    if (found != known.constEnd())
        return *found;
    QVector<QMetaProperty> properties;
    for (int i = 0; i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        if (!isMomentary(property.name()) && mayBeReadable(property))
            properties << property;
    }
    known.insert(&meta, properties);
    return properties;
}

/// Null for what has no text of its own.
QString readable(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::QRect: {
        const QRect r = value.toRect();
        return QStringLiteral("%1,%2,%3,%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
    }
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::Double:
    case QMetaType::QString:
        return value.toString() + QLatin1Char(';');
    default:
        return QString();
    }
}

/// The contents of a table with its headers; nothing for other controls.
QStringList cellsOf(const QWidget& widget)
{
    const auto* const view = qobject_cast<const QAbstractItemView*>(&widget);
    const QAbstractItemModel* const model = view ? view->model() : nullptr;
    QStringList lines;
    for (int column = 0; model && column < model->columnCount(); ++column) {
        lines << QStringLiteral("header ") + model->headerData(column, Qt::Horizontal).toString();
        for (int row = 0; row < qMin(model->rowCount(), 100); ++row)
            lines << model->index(row, column).data().toString();
    }
    return lines;
}

QString lookOf(const QWidget& widget)
{
    QStringList parts = {QString::fromLatin1(widget.metaObject()->className()), widget.objectName()};
    const QVector<QMetaProperty> properties = propertiesToRead(*widget.metaObject());
    for (const QMetaProperty& property : properties) {
        const QString text = readable(property.read(&widget));
        if (!text.isNull())
            parts << QLatin1String(property.name()) + QLatin1Char('=') + text;
    }
    parts << (widget.isVisible() ? QStringLiteral("shown") : QStringLiteral("hidden"));
    return parts.join(QLatin1Char('|'));
}

QString element(const QString& name, const QPair<QString, QString>& value)
{
    return QStringLiteral("<Property name=\"%1\"><%2>%3</%2></Property>\n")
        .arg(name.toHtmlEscaped(), value.first, value.second.toHtmlEscaped());
}

QString elements(const ProbeProperties& properties)
{
    QString text;
    for (auto it = properties.cbegin(); it != properties.cend(); ++it)
        text += element(it.key(), it.value());
    return text;
}

QString customBlock(const ProbeProperties& custom)
{
    return custom.isEmpty()
               ? QString()
               : QStringLiteral("<CustomProperties>%1</CustomProperties>\n").arg(elements(custom));
}

QString enumeration(const char* name, const char* prefix)
{
    QString entries;
    for (int i = 1; i <= 3; ++i)
        entries +=
            QStringLiteral("<EnumValue><DisplayName>%1 %2</DisplayName><EnumIdentifier>%1_%2</EnumIdentifier>"
                           "<Value>%2</Value></EnumValue>")
                .arg(QLatin1String(prefix))
                .arg(i);
    return QStringLiteral("<Enum name=\"%1\">%2</Enum>").arg(QLatin1String(name), entries);
}

QByteArray document(const QString& sheet)
{
    return QStringLiteral(
               "<KVParamGui version=\"1\"><Enums>%1%2</Enums><Sheet name=\"sheet\">%3</Sheet></KVParamGui>")
        .arg(enumeration("Choices", "choice"), enumeration("Others", "other"), sheet)
        .toUtf8();
}

QString neighbour(const char* name)
{
    const QPair<QString, QString> yes(QStringLiteral("Bool"), QStringLiteral("true"));
    return QStringLiteral("<Widget name=\"%1\" class=\"CheckBox\">%2</Widget>\n")
        .arg(QLatin1String(name),
             elements({{QStringLiteral("labelText"), {QStringLiteral("String"), QStringLiteral("Neighbour")}},
                       {QStringLiteral("enabled"), yes},
                       {QStringLiteral("visible"), yes},
                       {QStringLiteral("generateParameterXml"), yes}}));
}

} // namespace

FormProbe::FormProbe(const QByteArray& description)
    : m_formular(ZorvaParser().ParseZORVA(description))
{
    if (!m_formular)
        return;
    m_formular->CreateValueTree(QStringLiteral("/probe"));
    m_formular->CreateGUI(true);
    m_formular->GetGUI()->resize(160, 700);
    m_formular->Show();
    QCoreApplication::processEvents();
}

FormProbe::~FormProbe()
{
    if (m_formular)
        delete m_formular->GetGUI();
}

QStringList FormProbe::observeRows() const
{
    QStringList lines;
    ZorvaSheet& sheet = m_formular->GetSheet();
    lines << QStringLiteral("sheet ") + sheet.GetName();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i)
        lines << QStringLiteral("row ") + sheet.GetWidgetAt(i)->GetName() + QLatin1Char(' ') +
                     sheet.GetWidgetAt(i)->GetClass();
    return lines;
}

QStringList FormProbe::observeValues() const
{
    QStringList lines;
    ZorvaSheet& sheet = m_formular->GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        values::ValueBase* const value = sheet.GetWidgetAt(i)->GetDelegate()->GetVTValue();
        if (!value)
            continue;
        lines << QStringLiteral("value %1 %2").arg(value->GetPathName(), value->GetStringValue());
        if (const auto* const number = dynamic_cast<values::IValueNumeric*>(value))
            lines << QStringLiteral("limits %1 %2 %3")
                         .arg(number->GetMin())
                         .arg(number->GetMax())
                         .arg(number->GetStep());
    }
    return lines;
}

QStringList FormProbe::observeControls() const
{
    QStringList lines;
    const QWidget* const window = m_formular->GetGUI();
    lines << lookOf(*window);
    for (const QWidget* widget : window->findChildren<QWidget*>())
        lines += cellsOf(*widget) << lookOf(*widget);
    return lines;
}

QStringList FormProbe::observe() const
{
    return observeRows() + observeValues() + observeControls()
           << m_formular->GetXmlString(false) << m_formular->GetEmptyXmlElement();
}

QStringList FormProbe::operate()
{
    // A map has no entries before somebody makes one.
    m_formular->EvaluateScript(QStringLiteral("if (row.keys) row.setValue(\"key\", \"text\");"));
    QStringList lines;
    const QList<QWidget*> widgets = m_formular->GetGUI()->findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible() || !widget->isEnabled())
            continue;
        if (auto* const view = qobject_cast<QAbstractItemView*>(widget)) {
            view->setCurrentIndex(view->model()->index(0, 0));
            if (view->currentIndex().isValid())
                view->edit(view->currentIndex());
            lines += observeControls();
        }
        widget->setFocus();
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Down, Qt::Key_PageUp}) {
            QTest::keyClick(widget, key);
            lines << lookOf(*widget);
        }
        QTest::keyClicks(widget, QStringLiteral("777777"));
        QTest::keyClick(widget, Qt::Key_Return);
        lines << lookOf(*widget);
    }
    return lines << m_formular->GetXmlString(true) << m_formular->GetXmlString(false);
}

QByteArray probeDescription(const QString& className, const ProbeProperties& plain,
                            const ProbeProperties& custom)
{
    return document(neighbour("before") +
                    QStringLiteral("<Widget name=\"row\" class=\"%1\">\n%2%3</Widget>\n")
                        .arg(className, elements(plain), customBlock(custom)) +
                    neighbour("behind"));
}

QByteArray probeSheet(const ProbeProperties& plain, const ProbeProperties& custom)
{
    const QString block =
        plain.isEmpty() ? QString() : QStringLiteral("<Properties>%1</Properties>\n").arg(elements(plain));
    return document(block + customBlock(custom) + neighbour("row") + neighbour("behind"));
}
