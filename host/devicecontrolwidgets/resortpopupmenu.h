#ifndef ZORVA_RESORTPOPUPMENU_H
#define ZORVA_RESORTPOPUPMENU_H

#include <devicecontrolwidgets/devicecontrolwidgets_export.h>

#include <QMenu>

/// A pop-up menu whose entries can be put in alphabetical order, each stretch
/// between two separators by itself.
class DEVICECONTROLWIDGETS_EXPORT ResortPopupMenu : public QMenu
{
    Q_OBJECT

public:
    /// An empty menu; @p parent owns it and may be null.
    explicit ResortPopupMenu(QWidget* parent = nullptr);

    /// Equal texts keep their order; separators stay where they are.
    void Resort();
};

#endif
