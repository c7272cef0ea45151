#ifndef ZORVA_HOSTKIT_REVIEW_H
#define ZORVA_HOSTKIT_REVIEW_H

#include <hostkit/hostkit_export.h>

#include <QDialog>
#include <QList>
#include <QString>

class QPushButton;
class QTreeWidget;

namespace hostkit {

/** One row for which two sets of settings say different things, in the operator's words. */
struct Difference
{
    QString parameter;    ///< the row's path in parameter XML
    QString text;         ///< what would be sent
    QString group;        ///< title of the row's group; may be empty
    QString caption;      ///< the row's
    QString present;      ///< what the device holds; empty if that is not known
    QString wanted;       ///< what it would become
    bool sendable = true; ///< false: the form has no such row
};

/**
 * Shows differences row by row before anything is sent; the operator ticks those
 * that are wanted. Accepted: chosen() is to be sent; rejected: nothing is.
 */
class HOSTKIT_EXPORT ReviewDialog : public QDialog
{
    Q_OBJECT

public:
    /** @p question stands above the rows. All that can be sent is ticked at first. */
    ReviewDialog(const QString& question, const QList<Difference>& differences, QWidget* parent = nullptr);
    ~ReviewDialog() override;

    /** The differences that are ticked, in their order. */
    QList<Difference> chosen() const;

private:
    static QString presentWords(const Difference& difference);
    void fill();
    void tickAll(bool ticked);
    void showCount();

    const QList<Difference> m_differences;
    QTreeWidget* m_rows; // owned by this dialog, like all widgets
    QPushButton* m_send;
};

} // namespace hostkit

#endif
