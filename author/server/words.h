#ifndef ZORVA_AUTHOR_WORDS_H
#define ZORVA_AUTHOR_WORDS_H

#include <author/check/writtenrow.h>
#include <author/kinds/kindtable.h>

namespace Orvane {
namespace Author {

/** What the table of the language says, in Markdown, for help and for completion. */
QString propertyHelp(const Property& property);
QString methodHelp(const Method& method);
QString classHelp(const ControlClass& controlClass);
QString elementHelp(const Element& element);
QString attributeHelp(const Attribute& attribute);
QString valueTypeHelp(const ValueType& type);
/** The entries of an enumeration, one a line: what the user reads, the identifier, the value. */
QString enumerationHelp(const Description& description, int enumeration);
/** Class and caption of a row, in a few words. */
QString rowDetail(const WrittenRow& row);
/** "signal", "slot" or "invokable". */
QString methodKindName(Method::Kind kind);

/** The text of a child element of an enumeration's entry; empty if it has none. */
QString entryPart(const Description& description, int entry, const char* part);
/** The last enumeration of that name, which is the one that counts; -1 if there is none. */
int findEnumeration(const Description& description, const QString& name);

} // namespace Author
} // namespace Orvane

#endif
