#ifndef ZORVA_AUTHOR_BANNER_H
#define ZORVA_AUTHOR_BANNER_H

#include <QFrame>

class QAction;
class QHBoxLayout;
class QLabel;

namespace Orvane {
namespace Author {

/** A line above the form that says what is wrong with it, with buttons for what can be done. */
class Banner : public QFrame
{
    Q_OBJECT

public:
    explicit Banner(QWidget* parent = nullptr);

    /** A button that does @p action, in the order of the calls; it is there while the action is visible. */
    void addButton(QAction* action);
    /** Shows @p text, plain; an empty one hides the banner. */
    void say(const QString& text);
    /** To be called when the program's colours have changed. */
    void takeColours();
    /** What is shown; empty if nothing is. */
    QString text() const;

private:
    QLabel* m_text; // owned, like the layout
    QHBoxLayout* m_line;
};

} // namespace Author
} // namespace Orvane

#endif
