#ifndef ZORVA_SHELL_XMLFILE_H
#define ZORVA_SHELL_XMLFILE_H

#include <QByteArray>
#include <QString>

/** What an XML file holds, and where it goes wrong. Both lines are for the person. */
struct XmlFile
{
    QString text;          // decoded as the file says; as far as that goes
    QString wrongEncoding; // "line 2, column 7: ..."; empty if every byte has a meaning
    QString wrongXml;      // the same, empty if the text is well-formed
};

/** Reads the file at @p path; one that cannot be read is like an empty one. */
XmlFile readXmlFile(const QString& path);
/** The same for the bytes of a file. */
XmlFile readXml(const QByteArray& bytes);

#endif
