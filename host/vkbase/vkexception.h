#ifndef ZORVA_VKBASE_VKEXCEPTION_H
#define ZORVA_VKBASE_VKEXCEPTION_H

#include <vkbase/vkbase_export.h>

#include <QByteArray>
#include <QString>

#include <exception>

/// The host's exception: a message and the place where it arose.
class VKBASE_EXPORT VKException : public std::exception
{
public:
    /// `file` is a source file's base name, `line` a line in it; `code` is free.
    VKException(const QString& message, const QString& file, const QString& className, const QString& method,
                unsigned line, unsigned code);
    VKException(const VKException&) = default;
    VKException& operator=(const VKException&) = default;
    ~VKException() override;

    /// The message in UTF-8.
    const char* what() const noexcept override;

    const QString& GetMessage() const { return m_message; }
    const QString& GetFile() const { return m_file; }
    const QString& GetClassName() const { return m_className; }
    const QString& GetMethod() const { return m_method; }
    unsigned GetLine() const { return m_line; }
    unsigned GetCode() const { return m_code; }

private:
    QString m_message;
    QByteArray m_what; // the message in UTF-8, kept because what() hands out a pointer
    QString m_file;
    QString m_className;
    QString m_method;
    unsigned m_line;
    unsigned m_code;
};

#endif
