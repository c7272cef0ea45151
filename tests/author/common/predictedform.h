#ifndef ZORVA_TESTS_AUTHOR_PREDICTEDFORM_H
#define ZORVA_TESTS_AUTHOR_PREDICTEDFORM_H

#include <author/document/sourcetext.h>

#include <QByteArray>
#include <QString>

/// A sound description of what the tool says is left of a damaged one; empty if no form is.
QByteArray predictedDescription(const Orvane::Author::SourceText& source);
/// What a host sees of a form that came to life: rows with values and properties as the script
/// left them, parameter XML, and the script's failure.
QString effectOf(const QByteArray& description);

#endif
