#ifndef ZORVA_AUTHOR_SETTINGWORDS_H
#define ZORVA_AUTHOR_SETTINGWORDS_H

#include "parameterset.h"

#include <QString>
#include <QVector>

namespace Orvane {
namespace Author {

/** A setting as the operator reads it. */
struct Words
{
    QString group;   // title of the headline above the row; may be empty
    QString caption; // the row's, with the item or the end of the range that is meant
    QString value;

    /** "Tuning / Frequency". */
    QString name() const { return group.isEmpty() ? caption : group + QLatin1String(" / ") + caption; }
};

/** Puts the settings of one form into the operator's words, in the language of the moment. */
class SettingWords
{
public:
    /** @p form must outlive this; @p rows is its own. */
    SettingWords(ZorvaFormular& form, const FormRows& rows);

    /** Of a setting that the form does not know: path and text. */
    Words of(const Setting& setting) const;
    /** One text of the row at that position: a choice by its name, a number with its unit. */
    QString value(int row, const QString& text) const;

private:
    QString caption(const Setting& setting) const;
    QString ranges(const Setting& setting) const;

    ZorvaFormular& m_form;
    const FormRows& m_rows;
    QVector<QString> m_groups; // by row
};

} // namespace Author
} // namespace Orvane

#endif
