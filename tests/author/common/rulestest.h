#ifndef ZORVA_TESTS_AUTHOR_RULESTEST_H
#define ZORVA_TESTS_AUTHOR_RULESTEST_H

#include "checktest.h"

#include <QObject>
#include <QTest>

/// What every input of a form has, so that nothing is said about it.
#define SHOWN_AND_SENT                                                                                       \
    "<Property name=\"enabled\"><Bool>true</Bool></Property><Property "                                      \
    "name=\"visible\"><Bool>true</Bool></Property><Property "                                                \
    "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"

/// Base of the test of one family of rules: a table of descriptions and of what the
/// check says about each.
class RulesTest : public QObject
{
    Q_OBJECT

protected:
    /// Adds the cases of the family, with the functions below.
    virtual void addCases() = 0;

    /// A case: `places` as placesIn() gives them, `effects` as effectsIn().
    static void add(const char* what, const QString& description, const char* places,
                    const char* effects = "");
    /// A whole description.
    static void whole(const char* what, const char* text, const char* places, const char* effects = "");
    /// The rows of a description that is in order otherwise.
    static void rows(const char* what, const char* text, const char* places, const char* effects = "");

private Q_SLOTS:
    void rules_data();
    void rules();
};

#endif
