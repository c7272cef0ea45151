#ifndef ZORVA_LOADINTERFACE_P_H
#define ZORVA_LOADINTERFACE_P_H

#include <QStringList>

#include <functional>

class IDllInstance;

namespace Orvane {

/** What @p create returns; null, reported to the error handler, if it throws. */
IDllInstance* createReported(const std::function<IDllInstance*()>& create);

/** The translation contexts in use while the library is loaded, in order of registration. */
QStringList moduleTranslationContexts();

} // namespace Orvane

#endif
