#ifndef ZORVAWIDGET_H
#define ZORVAWIDGET_H

#include <zorvaparser/zorvaparser_export.h>

#include <QSharedData>
#include <QString>
#include <QStringList>

class FloatGroupLayout;
class QWidget;
class QXmlStreamReader;
class QXmlStreamWriter;

namespace Orvane {

class ZorvaDelegate;
class ZorvaElement;
class ZorvaFormular;
class ZorvaSheet;

/** The form engine's record of one row: its name, its class and the delegate that does the work. */
class ZORVAPARSER_EXPORT ZorvaWidget : public QSharedData
{
public:
    /** @p sheet is not owned; it takes leave when it dies before the record. */
    explicit ZorvaWidget(ZorvaSheet* sheet);
    virtual ~ZorvaWidget();
    ZorvaWidget(const ZorvaWidget&) = delete;
    ZorvaWidget& operator=(const ZorvaWidget&) = delete;

    /** Entered on the start tag of "Widget"; @p index numbers a nameless widget. */
    void ParseZORVA(QXmlStreamReader& reader, int index);
    /** Hands the call to the delegate. */
    void CreateValueTree(const QString& vtPath);
    void CreateGUI(FloatGroupLayout* layout); ///< Likewise.
    void ResyncValueTree();                   ///< Likewise.
    /** Writes the row unless deselected, and clears its mark. */
    void GetXml(QXmlStreamWriter& writer, bool modifiedOnly) const;
    /** Reads the row and clears its mark. */
    void ReadXml(QXmlStreamReader& reader);
    /** Makes this the record of a host's own @p widget, which stays the host's until it is laid out. */
    void SetExtWidget(QString name, QString labelText, QWidget* widget);

    /** The delegate's mark. */
    bool isModified();
    void resetModified(); ///< Likewise.
    /** A deselected row takes no part in parameter XML. */
    bool IsSelected() const { return selected; }
    /** A row that is not selected takes no part in parameter XML. */
    void SetSelected(bool select);

    /** Name and class, as in the description; a missing name is made up. */
    const QString& GetName() const { return name; }
    const QString& GetClass() const { return className; } ///< Likewise.
    /** True for the rows that head a group. */
    bool IsHeadline() const { return headline; }
    /** See ZorvaDelegate::GetXmlTagName(). */
    const QString& GetXmlTagName() const;
    /** Every class name that has a control kind of its own, sorted; any other gives a bare caption. */
    static QStringList GetKnownClasses();
    /** Null before ParseZORVA() or SetExtWidget(). */
    ZorvaDelegate* GetDelegate() const { return delegate; }
    /** Null once the form is gone and only a host holds the record. */
    ZorvaSheet* GetSheet() const { return sheet; }
    /** The sheet dies. */
    void LeaveSheet() { sheet = nullptr; }
    /** The form; null once the sheet is gone. */
    ZorvaFormular* GetFormular() const;

private:
    friend class ZorvaDelegate;
    friend class ZorvaElement;

    void createDelegate();
    /** The row is written by @p leaf from now on. */
    void TakeElement(ZorvaElement* leaf);
    void LeaveElement();
    /** Called when the row gets its mark. */
    void NoteModified();
    void SetClass(const QString& newClass);

    QString name;
    QString className;
    ZorvaSheet* sheet;       // not owned
    ZorvaDelegate* delegate; // owned
    bool selected;
    bool headline;                   // className is "Headline": group walks ask it for every row
    ZorvaElement* element = nullptr; // not owned: the leaf that writes the row; null if none does
};

} // namespace Orvane

#endif
