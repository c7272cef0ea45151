// Draws a form into a picture, without a display:
//
//   formpicture [--form-style NAME] [--text-size POINTS] [--size WIDTHxHEIGHT] [--dark] [--right-to-left]
//               FORM.zorva PICTURE.png
//   formpicture --generated SEED FORM.zorva
//
// Without a size the window has the one that it opens with. The second form
// writes a generated description, as the tests of looks use them.
#include "generatedform.h"

#include <zorvaparser/zorvaformular.h>
#include <zorvaparser/zorvaparser.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QPixmap>
#include <QTextStream>
#include <QWidget>

#include <memory>

namespace {

int fail(const QString& message)
{
    QTextStream(stderr) << "formpicture: " << message << '\n';
    return 1;
}

int writeGenerated(const QString& seed, const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return fail(QStringLiteral("cannot write %1").arg(fileName));
    file.write(generatedForm(seed.toUInt()).toUtf8());
    return 0;
}

int draw(const QString& form, const QString& picture, const QString& size)
{
    const QExplicitlySharedDataPointer<Orvane::ZorvaFormular> formular(
        Orvane::ZorvaParser().ParseZORVAFile(form));
    if (!formular)
        return fail(QStringLiteral("there is no form in %1").arg(form));
    formular->CreateValueTree(QStringLiteral("/Picture"));
    formular->CreateGUI(true);
    const std::unique_ptr<QWidget> window(formular->GetGUI());
    const QStringList lengths = size.split(QLatin1Char('x'));
    if (lengths.size() == 2)
        window->resize(lengths.first().toInt(), lengths.last().toInt());
    window->show();
    QCoreApplication::processEvents();
    return window->grab().save(picture) ? 0 : fail(QStringLiteral("cannot write %1").arg(picture));
}

QPalette darkPalette()
{
    const QColor text(239, 240, 241);
    QPalette palette(QColor(49, 54, 59), QColor(49, 54, 59)); // buttons, window
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Base, QColor(35, 38, 41));
    palette.setColor(QPalette::AlternateBase, QColor(49, 54, 59));
    palette.setColor(QPalette::Highlight, QColor(61, 174, 233));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(120, 124, 128));
    return palette;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QCommandLineParser line;
    const QCommandLineOption style(QStringLiteral("form-style"), QString(), QStringLiteral("name"),
                                   QStringLiteral("fusion"));
    const QCommandLineOption textSize(QStringLiteral("text-size"), QString(), QStringLiteral("points"),
                                      QStringLiteral("9"));
    const QCommandLineOption size(QStringLiteral("size"), QString(), QStringLiteral("WIDTHxHEIGHT"));
    const QCommandLineOption generated(QStringLiteral("generated"), QString(), QStringLiteral("seed"));
    const QCommandLineOption dark(QStringLiteral("dark"));
    const QCommandLineOption rightToLeft(QStringLiteral("right-to-left"));
    line.addOptions({style, textSize, size, generated, dark, rightToLeft});
    line.process(application);
    const QStringList files = line.positionalArguments();
    if (line.isSet(generated) && files.size() == 1)
        return writeGenerated(line.value(generated), files.first());
    if (files.size() != 2)
        return fail(QStringLiteral("a form and a picture, please"));
    QApplication::setStyle(line.value(style));
    QFont font = QApplication::font();
    font.setPointSize(line.value(textSize).toInt());
    QApplication::setFont(font);
    if (line.isSet(dark))
        QApplication::setPalette(darkPalette());
    if (line.isSet(rightToLeft))
        QApplication::setLayoutDirection(Qt::RightToLeft);
    return draw(files.first(), files.last(), line.value(size));
}
