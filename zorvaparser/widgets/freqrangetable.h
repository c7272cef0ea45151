#ifndef ZORVAFREQRANGETABLE_H
#define ZORVAFREQRANGETABLE_H

#include <valueframework/valuecommentedrangemap.h>
#include <vkbase/iobserver.h>

#include <QAction>
#include <QTableWidget>

#include <list>

namespace Orvane {

/**
 * Edits a list of frequency ranges, a row for each with a lower and an upper
 * cell. Shows a map of the value tree and follows it. What the user types is
 * read as a number with one of the letters K, M, G, H in any case (m is mega);
 * without one it counts in units of 1000 Hz. Every list that leaves the table is
 * sorted. No limits apply to the frequencies.
 */
class FreqRangeTable : public QTableWidget, public IObserver
{
    Q_OBJECT

public:
    explicit FreqRangeTable(QWidget* parent);
    ~FreqRangeTable() override;

    /** @p newUnitFactor is hertz per display unit; @p newMaxRows of 0 or less means no limit. */
    void setColumnsAndLimits(const QStringList& headers, double newUnitFactor, int newMinRows,
                             int newMaxRows);
    /**
     * Shows the range map at @p path. False, and the table disabled, if there is
     * none. With @p writeAtOnce every edit goes to the map, otherwise only
     * applyToValue() writes.
     */
    bool attachValue(const QString& path, bool writeAtOnce);
    /** The same for a map that is at hand; null is no map. */
    bool attachMap(values::ValueCommentedRangeMap* map, bool writeAtOnce);
    /** Replaces the map's ranges by those shown. */
    void applyToValue();

    void Update(Observable* observable, TChangeCode code) override;

public Q_SLOTS:
    void SlotSortByStartFrequencies();

private Q_SLOTS:
    void SlotValueChanged(int row, int column);
    void SlotNew();
    void SlotDelete();

private:
    using RangeList = std::list<values::CommentedRange>;

    QAction* CreateAction(const QString& text, const QString& name, const QKeySequence& shortcut,
                          const QString& statusTip);
    double ReadCell(int row, int column) const;
    void WriteCell(int row, int column, double hertz);
    RangeList ReadRanges() const;
    void ShowRanges(const RangeList& ranges);
    void Refresh();
    void Release();
    void UpdateActions();
    void WriteIfWanted();
    void Write(const RangeList& ranges);

    int minRows;
    int maxRows;
    int updateDepth; // while not 0, changes of cells are the table's own
    bool autoWrite;
    double unitFactor;                        // hertz per display unit
    values::ValueCommentedRangeMap* rangeMap; // not owned; null when the map goes away
    QAction* deleteRowAction;                 // owned as child
    QAction* newRowAction;                    // owned as child
};

} // namespace Orvane

#endif
