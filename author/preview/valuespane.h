#ifndef ZORVA_AUTHOR_VALUESPANE_H
#define ZORVA_AUTHOR_VALUESPANE_H

#include <QTreeWidget>

namespace Orvane {
namespace Author {

class PreviewForm;

/** Every row with what it holds: in the operator's words, as parameter XML has it, and whether it is applied.
 */
class ValuesPane : public QTreeWidget
{
    Q_OBJECT

public:
    enum Column { Row, Caption, Value, State, Text, Path };

    explicit ValuesPane(QWidget* parent = nullptr);

    /** Shows what @p form holds now; null empties the pane. */
    void show(const PreviewForm* form);
};

} // namespace Author
} // namespace Orvane

#endif
