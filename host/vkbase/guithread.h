#ifndef ZORVA_VKBASE_GUITHREAD_H
#define ZORVA_VKBASE_GUITHREAD_H

#include <vkbase/vkbase_export.h>

#include <QtGlobal>

/// Whether the caller runs in the thread of Qt's application; true while there is none.
VKBASE_EXPORT bool isGuiThread();

/// Debug builds stop here when another thread calls; `where` names the caller.
inline void assertGuiThread(const char* where)
{
    Q_ASSERT_X(isGuiThread(), where,
               "values belong to the GUI thread; post the call there with QMetaObject::invokeMethod");
    Q_UNUSED(where)
}

#endif
