// In place of qmlform.cpp where there is no Qt Quick to compare with.
#include "qmlform.h"

class QQuickView
{
};

QString QmlForm::lack(const QString&)
{
    return QStringLiteral("built without Qt Quick");
}

QmlForm::QmlForm(const QString&) {}

QmlForm::~QmlForm() = default;

bool QmlForm::show()
{
    return false;
}
