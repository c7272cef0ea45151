// Forms for an assistive client (assistivetree.py), which finds them on the accessibility bus:
//
//   assistedform FORM...
//
// FORM is a file, or seed:N for a generated form. When all are shown, the program says what controls there
// are, a line each: role, name, description. The focus is in the last form. From then on each line of the
// input is typed where the focus is; a line in angle brackets is a key ("<Tab>"). The end of the input ends
// the program.
#include "controlroles.h"
#include "generatedform.h"

#include <zorvaparser/zorvaformular.h>
#include <zorvaparser/zorvaparser.h>

#include <QAccessible>
#include <QApplication>
#include <QFile>
#include <QKeySequence>
#include <QSocketNotifier>
#include <QTest>
#include <QTextStream>
#include <QWidget>

#include <memory>
#include <unistd.h>
#include <vector>

namespace {

struct ShownForm
{
    QExplicitlySharedDataPointer<Orvane::ZorvaFormular> formular;
    std::unique_ptr<QWidget> window;
};

QString textOf(const QString& argument)
{
    const QString seed = QStringLiteral("seed:");
    if (argument.startsWith(seed))
        return generatedForm(argument.mid(seed.size()).toUInt());
    QFile file(argument);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

ShownForm show(const QString& argument, int number)
{
    ShownForm form;
    form.formular = decltype(form.formular)(Orvane::ZorvaParser().ParseZORVA(textOf(argument)));
    if (!form.formular)
        return form;
    form.formular->CreateValueTree(QStringLiteral("/assisted/%1").arg(number));
    form.formular->CreateGUI(true);
    form.window.reset(form.formular->GetGUI());
    form.window->setWindowTitle(argument);
    form.window->show();
    return form;
}

// Without a window manager the first window would keep the keyboard.
bool activate(QWidget* window)
{
    constexpr int patience = 60000; // milliseconds
    if (!QTest::qWaitForWindowExposed(window, patience))
        return false;
    window->activateWindow();
    return QTest::qWaitForWindowActive(window, patience);
}

void tellControls(QAccessibleInterface* iface, QTextStream& out)
{
    if (!iface || !iface->isValid() || iface->state().invisible)
        return;
    const QString role = controlRole(iface->role());
    if (!role.isEmpty()) {
        out << role << '\t' << iface->text(QAccessible::Name) << '\t' << iface->text(QAccessible::Description)
            << '\n';
        return;
    }
    for (int i = 0; i < iface->childCount(); ++i)
        tellControls(iface->child(i), out);
}

void type(const QString& line)
{
    QWidget* widget = QApplication::focusWidget();
    if (!widget)
        return;
    if (line.startsWith(QLatin1Char('<'))) {
        const QKeySequence key(line.mid(1, line.size() - 2));
        QTest::keyClick(widget, Qt::Key(key[0]));
    } else {
        QTest::keyClicks(widget, line);
    }
}

/// Leaves what is no whole line yet.
void typeLines(QByteArray& typed)
{
    for (int end = typed.indexOf('\n'); end >= 0; end = typed.indexOf('\n')) {
        type(QString::fromUtf8(typed.left(end)));
        typed.remove(0, end + 1);
    }
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    std::vector<ShownForm> forms;
    for (const QString& argument : QApplication::arguments().mid(1)) {
        forms.push_back(show(argument, int(forms.size())));
        if (!forms.back().window)
            return 1;
    }
    if (forms.empty() || !activate(forms.back().window.get()))
        return 1;
    QTextStream out(stdout);
    for (const ShownForm& form : forms)
        tellControls(QAccessible::queryAccessibleInterface(form.window.get()), out);
    out << '\n';
    out.flush();
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QByteArray typed;
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&typed] {
        char bytes[200];
        const ssize_t count = read(STDIN_FILENO, bytes, sizeof bytes);
        if (count <= 0)
            QApplication::quit();
        else
            typeLines(typed.append(bytes, int(count)));
    });
    return QApplication::exec();
}
