#include "devicecontrolwidgets/control.h"

#include <QVBoxLayout>
#include <QWidget>

Control::~Control()
{
    dropContextMenu();
}

void Control::dropContextMenu()
{
    if (m_ownsContextMenu)
        delete m_contextMenu.data();
    m_contextMenu.clear();
    m_ownsContextMenu = false;
}

void Control::SetContextMenu(ResortPopupMenu* menu, bool takeOwnership)
{
    if (menu != m_contextMenu)
        dropContextMenu();
    m_contextMenu = menu;
    m_ownsContextMenu = menu && takeOwnership;
}

ResortPopupMenu* Control::GetContextMenu()
{
    return m_contextMenu;
}

void Control::EnableContextMenu(bool enable)
{
    m_contextMenuEnabled = enable;
}

void Control::EnablePropertyPage(bool enable)
{
    m_propertyPageEnabled = enable;
}

bool Control::hasContextMenu() const
{
    return m_contextMenu;
}

bool Control::hasEnabledContextMenu() const
{
    return hasContextMenu() && m_contextMenuEnabled;
}

bool Control::hasPropertyPage() const
{
    return m_propertyPageEnabled;
}

QWidget* Control::GetPropertyPage(QWidget* parent, const char* name)
{
    if (!hasPropertyPage())
        return nullptr;
    QWidget* page = MakePropertyPage(parent);
    page->setObjectName(QString::fromLatin1(name));
    return page;
}

QWidget* Control::CreateContextProperty(QWidget* parent, const char* name)
{
    if (!hasPropertyPage())
        return nullptr;
    QWidget* window = new QWidget(parent, Qt::Dialog);
    window->setAttribute(Qt::WA_DeleteOnClose);
    QVBoxLayout* layout = new QVBoxLayout(window);
    layout->addWidget(GetPropertyPage(window, name));
    return window;
}

QWidget* Control::MakePropertyPage(QWidget* parent)
{
    return new QWidget(parent);
}
