#ifndef ZORVA_TESTS_PROBEDELEGATE_H
#define ZORVA_TESTS_PROBEDELEGATE_H

#include <valueframework/valuenumeric.h>
#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaformular.h>
#include <zorvaparser/zorvawidget.h>

#include <QPointer>
#include <QXmlStreamReader>

#include <utility>

/// A row that writes down each run of the property funnel, forwards to a control
/// of the test's choice and opens the protected side.
class ProbeDelegate : public Orvane::ZorvaDelegate
{
public:
    struct Change
    {
        QString name;
        QVariant value;
    };

    explicit ProbeDelegate(Orvane::ZorvaWidget* row)
        : ZorvaDelegate(row)
    {
    }

    using ZorvaDelegate::AddXmlTag;
    using ZorvaDelegate::ConfigureValueNumeric;
    using ZorvaDelegate::CreateValueBoolean;
    using ZorvaDelegate::CreateValueNumericFloat;
    using ZorvaDelegate::CreateValueNumericInt;
    using ZorvaDelegate::CreateValueSelection;
    using ZorvaDelegate::CreateValueString;
    using ZorvaDelegate::DefineProperty;
    using ZorvaDelegate::formatString;
    using ZorvaDelegate::GetListValue;
    using ZorvaDelegate::PropagateProperties;
    using ZorvaDelegate::PropagateProperty;
    using ZorvaDelegate::ResizeList;
    using ZorvaDelegate::SetDoubleTooltip;
    using ZorvaDelegate::SetInt64Tooltip;
    using ZorvaDelegate::SetIntTooltip;
    using ZorvaDelegate::SetListValue;
    using ZorvaDelegate::Translate;
    using ZorvaDelegate::UndefineProperty;
    using ZorvaDelegate::WriteUnitAttribute;

    /// Reads `children` as the content of the row's element.
    void parse(const QString& children)
    {
        QXmlStreamReader reader(QStringLiteral("<Widget>%1</Widget>").arg(children));
        reader.readNextStartElement();
        ParseProperties(reader, false);
    }

    QStringList defined() const { return definedProperties; }
    int storedApplyMode() const { return applyMode; }
    QMap<QString, QVariant> customs() const { return customProperties; }
    QLabel* caption() const { return label; }

    /// The changes seen since the last call.
    QList<Change> takeChanges() { return std::exchange(changes, {}); }
    /// Their names alone.
    QStringList takeChangedNames()
    {
        QStringList names;
        for (const Change& change : takeChanges())
            names << change.name;
        return names;
    }

    /// What defined properties are forwarded to; may be null.
    QPointer<QObject> control;
    /// Configured on each change of a limit, as the numeric kinds do; may be null.
    values::IValueNumeric* numeric = nullptr;

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override
    {
        ZorvaDelegate::PropertyChanged(name, value);
        changes << Change{name, value};
        if (numeric && (name == QLatin1String("minimum") || name == QLatin1String("maximum") ||
                        name == QLatin1String("singleStep")))
            ConfigureValueNumeric(numeric);
        PropagateProperty(name, control);
    }

private:
    QList<Change> changes;
};

/// One such row on the sheet of a formular of its own.
struct ProbeRow
{
    explicit ProbeRow(const QString& name = QStringLiteral("row"))
        : record(&formular.GetSheet())
        , delegate(&record)
    {
        record.SetExtWidget(name, QString(), nullptr);
        delegate.setObjectName(name);
    }

    Orvane::ZorvaFormular formular;
    Orvane::ZorvaWidget record;
    ProbeDelegate delegate;
};

#endif
