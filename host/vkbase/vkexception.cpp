#include <vkbase/vkexception.h>

VKException::VKException(const QString& message, const QString& file, const QString& className,
                         const QString& method, unsigned line, unsigned code)
    : m_message(message)
    , m_what(message.toUtf8())
    , m_file(file)
    , m_className(className)
    , m_method(method)
    , m_line(line)
    , m_code(code)
{
}

VKException::~VKException() = default;

const char* VKException::what() const noexcept
{
    return m_what.constData();
}
