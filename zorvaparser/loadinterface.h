#ifndef ZORVA_LOADINTERFACE_H
#define ZORVA_LOADINTERFACE_H

#include <zorvaparser/zorvaparser_export.h>

#include <QString>

/**
 * What a host's loader knows of a module: an instance with a name, which it
 * starts and stops. Complete in this header, so that a loader needs no symbol
 * of the module but the two functions below.
 */
class ZORVAPARSER_EXPORT IDllInstance
{
public:
    /** @p name is the instance that the host asked for. */
    explicit IDllInstance(const QString& name)
        : instanceName(name)
    {
    }
    IDllInstance(const IDllInstance&) = delete;
    IDllInstance& operator=(const IDllInstance&) = delete;
    virtual ~IDllInstance() = default;

    /** Called once, after VKCreate(); false if the module cannot work. */
    virtual bool Start() { return true; }
    /** The host is about to end. */
    virtual void Stop() {}
    /** Last call before VKDestroy(). */
    virtual void Shutdown() {}

    /** The name that the host asked for. */
    const QString& GetInstanceName() const { return instanceName; }

private:
    QString instanceName;
};

/**
 * Makes the module's instance: the test shell, which shows the form that the
 * application's arguments name. The caller owns it and gives it to VKDestroy().
 * @p name may be null. Null if it cannot be made, for one without a QApplication;
 * the error handler has then been told. GUI thread only.
 */
extern "C" ZORVAPARSER_EXPORT IDllInstance* VKCreate(const wchar_t* name);
/** Deletes @p instance, which may be null. */
extern "C" ZORVAPARSER_EXPORT void VKDestroy(IDllInstance* instance);

#endif
