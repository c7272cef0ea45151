#ifndef ZORVA_AUTHOR_PARAMETERCHECK_H
#define ZORVA_AUTHOR_PARAMETERCHECK_H

#include "settingsform.h"

#include <author/check/checker.h>

#include <QString>

namespace Orvane {
namespace Author {

/**
 * What is wrong with parameter XML for a form, found by letting the engine read it: what is
 * not read at all, what becomes something else, and what would come out otherwise if the
 * form's answer were read again. @p file is the name to be told.
 */
CheckedFile checkParameters(const SettingsForm& form, const QString& file, const QByteArray& bytes);

} // namespace Author
} // namespace Orvane

#endif
