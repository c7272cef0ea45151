#include "device.h"

namespace hostkit {

Device::~Device() = default;

QStringList Device::affectedBy(const QString&) const
{
    return {};
}

void Device::interrupt() {}

} // namespace hostkit
