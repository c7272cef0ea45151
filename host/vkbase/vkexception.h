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
    /// Copies share nothing that could throw.
    VKException(const VKException&) = default;
    VKException& operator=(const VKException&) = default; ///< Likewise.
    ~VKException() override;

    /// The message in UTF-8.
    const char* what() const noexcept override;

    /// What went wrong and where, as given to the constructor.
    const QString& GetMessage() const { return m_message; }
    const QString& GetFile() const { return m_file; }           ///< Likewise.
    const QString& GetClassName() const { return m_className; } ///< Likewise.
    const QString& GetMethod() const { return m_method; }       ///< Likewise.
    unsigned GetLine() const { return m_line; }                 ///< Likewise.
    unsigned GetCode() const { return m_code; }                 ///< Likewise.

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
