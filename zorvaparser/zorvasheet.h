#ifndef ZORVASHEET_H
#define ZORVASHEET_H

#include <zorvaparser/zorvaparser_export.h>
#include <zorvaparser/zorvawidget.h>

#include <QExplicitlySharedDataPointer>
#include <QHash>
#include <QList>
#include <QStringList>

class QWidget;
class QXmlStreamReader;
class QXmlStreamWriter;

namespace Orvane {

class ZorvaDelegate;
class ZorvaElement;
class ZorvaFormular;
class ZorvaSheetUi;

/**
 * The one sheet of a formular: its widgets in order, the tree of their XML tags,
 * the gate of modified marks, and the switch of input. Held by value by its formular.
 */
class ZORVAPARSER_EXPORT ZorvaSheet
{
public:
    /** Who switches input: the form is usable while all three agree. */
    enum eEnableScope { ekFormularEnableScope = 0, ekHostEnableScope = 1, ekValuesEnableScope = 2 };

    /** How rows are shared; null stands for none. */
    using WidgetPointer = QExplicitlySharedDataPointer<ZorvaWidget>;

    /** @p formular is not owned and outlives the sheet. */
    explicit ZorvaSheet(ZorvaFormular* formular);
    virtual ~ZorvaSheet();
    /** Copies share the rows. */
    ZorvaSheet(const ZorvaSheet&) = default;
    ZorvaSheet& operator=(const ZorvaSheet&) = default; ///< Likewise.

    /** Entered on the start tag of "Sheet"; widgets are appended, the name is replaced. */
    void ParseZORVA(QXmlStreamReader& reader);
    /** Entered on the start tag of an overlay's "Sheet": changes properties of existing widgets. */
    void ParseChangedZORVA(QXmlStreamReader& reader);
    /** Hands the call to every row, in the order of the description. */
    void CreateValueTree(const QString& path);
    void ResyncValueTree(); ///< Likewise.
    /** Builds the surface and the rows; the rows only once. */
    void CreateGUI(bool createApplyUi);
    /** Only the named widgets (by name or tag), or all but them; the others are deselected. */
    void CreateGUI(bool createApplyUi, const QStringList& names, bool exclude);
    /** The top widget, null before CreateGUI(). It belongs to the host: the sheet never deletes it. */
    QWidget* GetGUI();
    /** The sheet's own delegate; never null. */
    ZorvaDelegate* GetDelegate();
    /** The form, null for a sheet without one; the sheet's name; its path in the value tree. */
    ZorvaFormular* GetFormular() const { return formular; }
    const QString& GetName() const { return name; }     ///< Likewise.
    const QString& GetVTPath() const { return vtPath; } ///< Likewise.

    /** How many rows there are, inserted ones included. */
    int GetWidgetCount() const { return widgets.count(); }
    /** @p index is not checked. */
    WidgetPointer GetWidgetAt(int index) const;
    /** By XML path, or by bare tag: the first such widget in list order; null on a miss. */
    WidgetPointer GetWidget(const QString& path);
    /** The position of a row, by XML path, bare tag or record; -1 if there is none. */
    int IndexOfWidget(const QString& path) const;
    int IndexOfWidget(WidgetPointer widget) const; ///< Likewise.
    /** The first widget of the class @p className, null if there is none. Not owned by the caller. */
    ZorvaWidget* FindWidget(const QString& className) const;
    /** All rows of that class, in order. */
    QList<WidgetPointer> FindWidgetsOfClass(const QString& className);
    /** A row for the host's own @p widget; shown by a later CreateGUI(). Appends if @p index is negative. */
    WidgetPointer InsertWidget(QString widgetName, QString labelText, QWidget* widget, int index);

    /** Selects (or deselects) the widgets whose XML paths are listed and the reverse for all others. */
    void SelectWidgets(const QStringList& list, bool select);
    /** Shows or hides the headline named @p headlineName and the rows up to the next headline. */
    void ShowGroup(const QString& headlineName, bool visible);
    /** Opens or collapses the group of @p headline. */
    void setGroupVisible(ZorvaWidget* headline, bool visible);
    /** The names of the collapsed headlines, in order. */
    QStringList GetCollapsed();
    /** Collapses the headlines in @p list and opens all others. */
    void SetCollapsed(const QStringList& list);
    /** Text size in points; 0 or less does nothing. */
    void SetFontSize(int size);

    /** One of the gates of input; rows react while all are open. */
    void EnableInput(bool enable, eEnableScope scope);
    bool IsInputEnabled(eEnableScope scope) const; ///< Likewise.
    /** While inactive, modified marks do not reach the sheet. */
    bool isActive() const { return active; }
    /** While false, marks reach neither bar nor pause. */
    void setActive(bool flag);
    /** The sheet's own mark. */
    bool isModified();
    /** True if the sheet is marked and a selected row stands behind it. */
    bool isWidgetModified() const;
    /** Marks the sheet and starts the pause if @p autoApply, or takes the mark away. */
    void setModified(bool autoApply);
    void resetModified(); ///< Likewise.
    /** Announces pending changes, if there are any. */
    void applyNow();
    /** Stops the pause; what is pending stays so. */
    void killAutoApplyTimer();
    /** Whether a change applies itself after the pause. */
    bool isAutoApplyEnabled();
    void setAutoApplyEnabled(bool enable); ///< Likewise.

    /** Writes the root element; with values also the groups and leaves. */
    void GetXml(QXmlStreamWriter& writer, bool withValues, bool modifiedOnly) const;
    /** Entered on the root's start tag. Changes made meanwhile do not mark the sheet. */
    void ReadXml(QXmlStreamReader& reader);

    /** The language has changed: every row asks for its texts anew. */
    void Retranslate();

    /** A delegate's tag changed: the index from tags to widgets is made anew when next asked. */
    void TagsChanged();
    /** Rows were added or have other names: both indexes are made anew when next asked. */
    void RowsChanged();
    /** The widget that the rows lie in; null before the controls are made and after they are gone. */
    QWidget* Content() const;
    /** For the formular's connections. */
    ZorvaSheetUi* GetSheetUi() const { return sheetUi; }

private:
    friend class FormHold;
    friend class ZorvaFormular;

    /**
     * The rows in order, as they stand when the walk begins, until @p visit gives false
     * or the form is gone: each may run somebody else's code.
     */
    template <typename Visit>
    void VisitRows(const Visit& visit) const;
    /** The same for all rows. */
    template <typename Act>
    void ForEachRow(const Act& act) const;
    /** Frees the places of all rows in the value tree. */
    void LetValuesGo();
    /** Makes final what is half typed; false if the form is gone with it. */
    bool FinishTyping() const;
    /** True if @p gate is to be switched to @p enable, with nothing half typed any more. */
    bool MaySwitch(const bool& gate, bool enable) const;
    void SetEnableInput(bool enable, bool restricted);
    void CreateRows(const QStringList* names, bool exclude);
    void InstallWidget(const WidgetPointer& widget, int index);
    WidgetPointer Lookup(const QString& path) const;
    void EnsureTagIndex() const;
    void EnsureListIndex() const;

    QString name;
    QString vtPath;
    QList<WidgetPointer> widgets;
    ZorvaElement* rootElement; // owned
    ZorvaFormular* formular;   // not owned
    ZorvaSheetUi* sheetUi;     // owned
    bool enableFormular;
    bool enableHost;
    bool enableValues;
    bool active;

    // Positions in the list, the first of equals; made when asked, dropped when
    // the list or, for the first one, a tag changes.
    mutable bool tagIndexValid = false;
    mutable QHash<QString, int> indexByTag;
    mutable bool listIndexValid = false;
    mutable QHash<QString, int> indexByName;
    mutable QHash<const ZorvaWidget*, int> indexByWidget;
    int inputTurn = 0; // counts the walks that switch input
};

} // namespace Orvane

#endif
