#include <QApplication>
#include <QScriptEngine>

#ifdef ZORVA_BENCH_WITH_LIBRARY
#include <zorvaparser/zorvaformular.h>
#endif

// One process from nothing to the first empty form, with the library or with what
// it stands on.
int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
#ifdef ZORVA_BENCH_WITH_LIBRARY
    const Orvane::ZorvaFormular formular;
#else
    const QScriptEngine engine;
#endif
    return 0;
}
