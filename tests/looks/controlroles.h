#ifndef ZORVA_TESTS_CONTROLROLES_H
#define ZORVA_TESTS_CONTROLROLES_H

#include <QAccessible>
#include <QString>

/// What an assistive tool calls a control of that role; empty for all that an
/// operator cannot use.
QString controlRole(QAccessible::Role role);

#endif
