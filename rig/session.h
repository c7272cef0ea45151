#ifndef ZORVA_RIG_SESSION_H
#define ZORVA_RIG_SESSION_H

#include "commandline.h"
#include "models.h"
#include "rigdevice.h"

#include <hostkit/formlink.h>

#include <QString>

#include <memory>

namespace radio {

/** What a command line leads to before anything is shown: the model, its device, and a live form. */
struct Session
{
    Model model;
    std::shared_ptr<RigDevice> device;
    hostkit::FormLink::Form form; ///< with values and widgets; its top widget is the caller's
    QString damage;               ///< where the form's text ends too early, in words; empty if it does not

    /** False, with @p error in words, if there is no such model, daemon or form. Asks a daemon for its model.
     */
    bool prepare(const CommandLine& commandLine, QString* error);

private:
    bool makeForm(const QString& fileName, QString* error);
};

/** The description for a model. */
QString formFor(const Model& model);

} // namespace radio

#endif
