#include "velkappstartup/velkapplication.h"

#include <QCoreApplication>

namespace {

QStringList toList(int argc, const char* const* argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

} // namespace

VelkApplication* VelkApplication::m_pThis = VelkApplication::standIn();

VelkApplication* VelkApplication::standIn()
{
    static VelkApplication* const instance = new VelkApplication; // never destroyed
    return instance;
}

VelkApplication& VelkApplication::Instance()
{
    return m_pThis ? *m_pThis : *standIn();
}

VelkApplication::VelkApplication(int argc, const char* const* argv)
    : VelkApplication(toList(argc, argv))
{
}

VelkApplication::VelkApplication(QStringList arguments)
    : m_arguments(std::move(arguments))
    , m_previous(&Instance())
{
    m_pThis = this;
}

VelkApplication::~VelkApplication()
{
    if (m_pThis == this) {
        m_pThis = m_previous;
        return;
    }
    for (VelkApplication* other = m_pThis; other; other = other->m_previous) {
        if (other->m_previous == this)
            other->m_previous = m_previous;
    }
}

QStringList VelkApplication::Arguments() const
{
    const bool isStandIn = !m_previous;
    return isStandIn && QCoreApplication::instance() ? QCoreApplication::arguments() : m_arguments;
}
