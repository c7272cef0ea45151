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

    /** False, with @p error in words, if there is no such model, daemon or form. Asks a daemon for its model.
     */
    bool prepare(const CommandLine& commandLine, QString* error);
};

/** The description for a model. */
QString formFor(const Model& model);

} // namespace radio

#endif
