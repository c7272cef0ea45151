#include "formrows.h"

#include <hostkit/parametertext.h>

#include <guibase/suffixeddouble.h>
#include <valueframework/valuenumeric.h>
#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaenum.h>

#include <QCoreApplication>
#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace hostkit {

using Orvane::ZorvaDelegate;
using Orvane::ZorvaFormular;
using Orvane::ZorvaSheet;
using Orvane::ZorvaWidget;

namespace {

QString translated(const QString& context, const QString& text)
{
    return QCoreApplication::translate(context.toLatin1().constData(), text.toUtf8().constData());
}

QString leafOf(const QString& parameter)
{
    return parameter.mid(parameter.lastIndexOf(QLatin1Char('/')) + 1);
}

QString withoutIndex(const QString& parameter)
{
    const int bracket = parameter.endsWith(QLatin1Char(']')) ? parameter.lastIndexOf(QLatin1Char('[')) : -1;
    return bracket < 0 ? parameter : parameter.left(bracket);
}

QString groupPathOf(const QString& path)
{
    return path.left(qMax(0, path.lastIndexOf(QLatin1Char('/'))));
}

/** A sheet also finds rows by their bare tag, wherever they stand; a parameter belongs to one place. */
bool isOwnPath(ZorvaDelegate& row, const QString& path)
{
    const QString& own = row.GetXmlPath();
    return own == path || (groupPathOf(own) == groupPathOf(path) && row.ContainsXmlTag(leafOf(path)));
}

/** What the row writes for the parameter's leaf. */
QString writtenText(const ZorvaDelegate& row, const QString& parameter)
{
    QString xml;
    QXmlStreamWriter writer(&xml);
    writer.writeStartElement(QStringLiteral("row"));
    row.GetXml(writer);
    writer.writeEndElement();
    const QString leaf = leafOf(parameter);
    const QList<Parameter> written = parametersOf(xml);
    for (const Parameter& entry : written) {
        if (leafOf(entry.path) == leaf)
            return entry.text;
    }
    return QString();
}

bool isOneOf(const QString& kind, std::initializer_list<const char*> kinds)
{
    return std::any_of(kinds.begin(), kinds.end(),
                       [&kind](const char* name) { return kind == QLatin1String(name); });
}

QString choiceWords(ZorvaFormular& form, const QString& enumName, const QString& text)
{
    const auto choices = form.GetEnum(enumName);
    const int index = choices->firstIndexOfValue(text);
    return index < 0 ? text : translated(enumName, choices->GetValueAt(index).GetDisplayName());
}

QString numberWords(const ZorvaDelegate& row, const QString& text)
{
    bool ok = false;
    const double number = text.toDouble(&ok);
    if (!ok)
        return text;
    const double scale = row.GetDouble("unitScale", 1.0);
    const double shown = row.displayTransformation(number) / (scale == 0.0 ? 1.0 : scale);
    const QString suffix = row.GetString("suffix", row.GetString("unit", QString())).trimmed();
    const QString plain = QString::number(shown, 'f', qBound(0, row.GetInt("decimals", 0), 12));
    return suffix.isEmpty() ? plain : plain + QLatin1Char(' ') + suffix;
}

/** Calculating with a fraction costs digits at its end; a whole number, hertz say, keeps all of them. */
bool sameNumber(double left, double right)
{
    const bool areWhole = std::floor(left) == left && std::floor(right) == right;
    if (left == right || areWhole)
        return left == right;
    const double size = qMax(1.0, qMax(std::abs(left), std::abs(right)));
    return std::isfinite(size) && std::abs(left - right) <= 1e-12 * size;
}

QString frequencyWords(const QString& text)
{
    bool ok = false;
    const double hertz = text.toDouble(&ok);
    return ok ? SuffixedDouble(QStringLiteral("Hz"), 1000, false).GetString(hertz) : text;
}

} // namespace

bool holdsParameter(ZorvaWidget& row)
{
    return row.GetDelegate() && !row.IsHeadline() && !isOneOf(row.GetClass(), {"Separator", "FixedSpacer"});
}

QStringList rowPaths(ZorvaFormular& form)
{
    QStringList paths;
    ZorvaSheet& sheet = form.GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        const ZorvaSheet::WidgetPointer row = sheet.GetWidgetAt(i);
        if (holdsParameter(*row))
            paths.append(row->GetDelegate()->GetXmlPath());
    }
    return paths;
}

ZorvaSheet::WidgetPointer rowOf(ZorvaFormular& form, const QString& parameter)
{
    const QString path = withoutIndex(parameter);
    ZorvaSheet::WidgetPointer row = form.GetSheet().GetWidget(path);
    if (row && row->GetDelegate() && isOwnPath(*row->GetDelegate(), path))
        return row;
    const QString parent = groupPathOf(path);
    row = parent.isEmpty() ? ZorvaSheet::WidgetPointer() : form.GetSheet().GetWidget(parent);
    const bool isItem = row && row->GetDelegate() && row->GetDelegate()->GetXmlPath() == parent;
    return isItem ? row : ZorvaSheet::WidgetPointer();
}

QString shownText(ZorvaFormular& form, const QString& parameter)
{
    const ZorvaSheet::WidgetPointer row = rowOf(form, parameter);
    if (!row)
        return QString();
    const ZorvaDelegate& delegate = *row->GetDelegate();
    const QString written = writtenText(delegate, parameter);
    const auto* const number = dynamic_cast<const values::IValueNumeric*>(delegate.GetVTValue());
    // What lies outside of the limits is written, and not shown.
    if (number && !saysTheSame(written, number->AsValueBase()->GetStringValue())) {
        const double value = written.toDouble();
        if (value < number->GetMin() || value > number->GetMax())
            return number->AsValueBase()->GetStringValue();
    }
    return written;
}

bool saysTheSame(const QString& left, const QString& right)
{
    if (left == right)
        return true;
    bool leftOk = false;
    bool rightOk = false;
    const qint64 wholeLeft = left.toLongLong(&leftOk);
    const qint64 wholeRight = right.toLongLong(&rightOk);
    if (leftOk && rightOk)
        return wholeLeft == wholeRight;
    const double a = left.toDouble(&leftOk);
    const double b = right.toDouble(&rightOk);
    return leftOk && rightOk && sameNumber(a, b);
}

QString captionOf(ZorvaWidget& row)
{
    const QString text = row.GetDelegate()->GetString("labelText", QString()).trimmed();
    return text.isEmpty() ? row.GetXmlTagName() : translated(row.GetName(), text);
}

QString groupOf(ZorvaFormular& form, const QString& parameter)
{
    const ZorvaSheet::WidgetPointer row = rowOf(form, parameter);
    ZorvaSheet& sheet = form.GetSheet();
    for (int i = row ? sheet.IndexOfWidget(row) : -1; i >= 0; --i) {
        const ZorvaSheet::WidgetPointer head = sheet.GetWidgetAt(i);
        if (head->IsHeadline())
            return translated(head->GetName(), head->GetDelegate()->GetString("text", QString()));
    }
    return QString();
}

QString wordsOf(ZorvaFormular& form, const QString& parameter, const QString& text)
{
    const ZorvaSheet::WidgetPointer row = rowOf(form, parameter);
    if (!row)
        return text;
    const ZorvaDelegate& delegate = *row->GetDelegate();
    const QString& kind = row->GetClass();
    if (kind == QLatin1String("ComboBox"))
        return choiceWords(form, delegate.GetString("enumName", QString()), text);
    if (kind == QLatin1String("CheckBox")) {
        const bool on = text == delegate.GetString("checkedValue", QStringLiteral("true"));
        return on ? QCoreApplication::translate("hostkit", "on")
                  : QCoreApplication::translate("hostkit", "off");
    }
    if (isOneOf(kind, {"FrequencyEdit", "FrequencyRangeEdit", "SpecialObject_FHP", "SpecialObject_DSC"}))
        return frequencyWords(text);
    const bool isNumberList =
        isOneOf(kind, {"SpinBoxList", "DoubleSpinBoxList", "ShiftList", "ChannelSpacingTable"});
    if (isNumberList || dynamic_cast<const values::IValueNumeric*>(delegate.GetVTValue()))
        return numberWords(delegate, text);
    return text;
}

} // namespace hostkit
