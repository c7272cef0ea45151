#include <QApplication>
#include <QFormLayout>
#include <QScrollArea>
#include <QSpinBox>

// The window of the minimal form by hand, a caption and a control: what the shell's
// start stands on.
int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QScrollArea window;
    auto* const content = new QWidget;
    auto* const rows = new QFormLayout(content);
    auto* const volume = new QSpinBox(content);
    volume->setRange(0, 100);
    volume->setValue(40);
    rows->addRow(QStringLiteral("Volume"), volume);
    window.setWidget(content); // which the area owns
    window.setWidgetResizable(true);
    window.show();
    return QApplication::exec();
}
