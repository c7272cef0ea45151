#include <vkbase/velk.h>

#include <QString>

int main()
{
    bool ok = false;
    const double number = Velk::toDoubleEx(QStringLiteral("8,5"), &ok);
    return ok && number > 8 ? 0 : 1;
}
