#ifndef ZORVA_AUTHOR_SURROUNDINGS_H
#define ZORVA_AUTHOR_SURROUNDINGS_H

#include <QString>
#include <QStringList>

class QTemporaryDir;

namespace Orvane {
namespace Author {

/**
 * Lets pictures depend on nothing that the desktop has set: no screen, no scale, no
 * theme, no style of its own. Call it before there is an application.
 */
void forgetDesktop();

/**
 * From now on there are no fonts but those that the program brings along, drawn in one
 * way. Make it before there is an application, and keep it as long as that lives.
 */
class BundledFonts
{
public:
    BundledFonts();
    ~BundledFonts();
    BundledFonts(const BundledFonts&) = delete;
    BundledFonts& operator=(const BundledFonts&) = delete;

    /** Why they cannot be had; empty if they can. */
    const QString& problem() const { return m_problem; }

private:
    bool put(const QString& name, const QByteArray& bytes);

    QTemporaryDir* m_folder; // owned
    QString m_problem;
};

/** What a form looks like beside its own description. */
struct Look
{
    QString style = QStringLiteral("fusion");
    int fontSize = 9; // points
    bool dark = false;
    QString language;               // as in "de" or "de_CH"; empty: the texts of the description
    QString form;                   // path of the description: FORM_LANGUAGE.qm is its translation
    QStringList translationFolders; // the last one is looked into first; the form's own one comes last
};

/** Gives the application that look. Gives why that cannot be; empty if it can. */
QString putOn(const Look& look);

} // namespace Author
} // namespace Orvane

#endif
