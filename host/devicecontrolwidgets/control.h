#ifndef ZORVA_CONTROL_H
#define ZORVA_CONTROL_H

#include <devicecontrolwidgets/devicecontrolwidgets_export.h>
#include <devicecontrolwidgets/resortpopupmenu.h>

#include <QPointer>

class QWidget;

/// What a device control offers beside its face: a context menu and a page of
/// properties. Both exist only when asked for; both start switched off.
class DEVICECONTROLWIDGETS_EXPORT Control
{
public:
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    /// A window below parent (null for none) with the property page in it; it
    /// deletes itself on closing. Null if there is no page.
    virtual QWidget* CreateContextProperty(QWidget* parent, const char* name);
    /// Allows the context menu or the property page; both are kept for controls that have one.
    virtual void EnableContextMenu(bool enable);
    virtual void EnablePropertyPage(bool enable); ///< Likewise.
    /// Null until a menu was set.
    virtual ResortPopupMenu* GetContextMenu();
    /// A new page, owned by parent or the caller. Null if pages are switched
    /// off.
    virtual QWidget* GetPropertyPage(QWidget* parent, const char* name);
    /// Null takes the menu away. takeOwnership: the control deletes it.
    virtual void SetContextMenu(ResortPopupMenu* menu, bool takeOwnership);
    /// Whether there is one, and whether it may open.
    virtual bool hasContextMenu() const;
    virtual bool hasEnabledContextMenu() const; ///< Likewise.
    virtual bool hasPropertyPage() const;       ///< Likewise.

protected:
    Control() = default;
    /// The page itself; the base gives an empty one.
    virtual QWidget* MakePropertyPage(QWidget* parent);

private:
    void dropContextMenu();

    QPointer<ResortPopupMenu> m_contextMenu;
    bool m_ownsContextMenu = false;
    bool m_contextMenuEnabled = false;
    bool m_propertyPageEnabled = false;
};

#endif
