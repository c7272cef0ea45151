#ifndef ZORVA_AUTHOR_LOOKBAR_H
#define ZORVA_AUTHOR_LOOKBAR_H

#include <QString>
#include <QToolBar>

class QComboBox;
class QSpinBox;

namespace Orvane {
namespace Author {

/** What can be switched while a form is shown. */
struct PreviewLook
{
    int width = 0;    // pixels; 0: as wide as the window leaves
    int textSize = 0; // points; 0: the form's own
    QString language; // empty: the texts of the description
    QString style;    // empty: as the program came up
    bool isDark = false;
    bool isRightToLeft = false;
};

/** The switches of the look of a form. */
class LookBar : public QToolBar
{
    Q_OBJECT

public:
    /** @p languages are offered beside the texts of the description. */
    LookBar(const PreviewLook& look, const QStringList& languages, QWidget* parent = nullptr);

    PreviewLook look() const;
    /** Goes to the first switch, by the keyboard. */
    void takeFocus();

Q_SIGNALS:
    /** The width, the text size or the direction is another: of the form alone. */
    void formLookChanged();
    /** The language, the style or the colours are other ones: of the whole program. */
    void programLookChanged();

private:
    void addSwitch(const QString& label, QWidget* widget, const char* name);

    QSpinBox* m_width; // owned, like all that follows
    QSpinBox* m_textSize;
    QComboBox* m_language;
    QComboBox* m_style;
    QAction* m_dark;
    QAction* m_rightToLeft;
};

/** The languages that a form at @p file has translations for beside it. */
QStringList languagesBeside(const QString& file);

} // namespace Author
} // namespace Orvane

#endif
