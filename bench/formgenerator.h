#ifndef ZORVA_BENCH_FORMGENERATOR_H
#define ZORVA_BENCH_FORMGENERATOR_H

#include <QString>
#include <QStringList>
#include <QVector>

/// What a row of the load is.
enum class RowKind { Headline, Choice, Decimal, Whole, Wide, Flag, Text, Hidden, Label };

/// How the leaves of the parameter XML are put into groups.
enum class Grouping { Twenty, Flat, PerRow };

/// One row in plain words, from which every text and every floor is made.
struct RowPlan
{
    RowKind kind;
    QString name;
    QString label;
    QString path;     ///< slash-separated; empty for rows without a parameter
    QString enumName; ///< of choices only
    QString value;
    QString newValue; ///< differs from `value`

    bool hasParameter() const { return !path.isEmpty(); }
    bool isSpin() const
    {
        return kind == RowKind::Decimal || kind == RowKind::Whole || kind == RowKind::Wide;
    }
};

/// The load of the benches: 30 % choices out of 8 (an enumeration for every ten of
/// them), 25 % numbers, 15 % check boxes, 15 % texts, 5 % each of headlines, hidden
/// rows and labels; 8 to 12 properties a row, tag paths of 2 and 3 levels.
class FormGenerator
{
public:
    explicit FormGenerator(int rows, Grouping grouping = Grouping::Twenty);

    /// Numbers without limits are dear to display; the load gives them.
    void setLimits(bool limits) { m_limits = limits; }
    /// The load has a short script.
    void setScript(bool script) { m_script = script; }
    /// A form of number rows alone.
    void setOnlySpins();

    const QVector<RowPlan>& rows() const { return m_rows; }
    int rowCount() const { return m_rows.size(); }
    bool hasLimits() const { return m_limits; }

    static const int choiceCount = 8;
    static QString choiceName(int index);

    /// The form description.
    QString description() const;
    /// Parameter XML with the values of the description, or with all values new.
    QString parameters(bool changed) const;
    /// An overlay that gives each row a new tool tip and each enumeration new names.
    QString overlay(const QString& mark) const;
    /// The same labels and controls for Qt's run-time form loader.
    QString uiForm() const;
    /// The same labels and controls for Qt Quick Controls.
    QString qmlForm() const;

private:
    void addRow(int index, Grouping grouping);

    QVector<RowPlan> m_rows;
    QStringList m_enums;
    int m_choiceRows = 0;
    bool m_limits = true;
    bool m_script = true;
};

#endif
