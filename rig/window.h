#ifndef ZORVA_RIG_WINDOW_H
#define ZORVA_RIG_WINDOW_H

#include "rigdevice.h"

#include <hostkit/formlink.h>

#include <QLabel>
#include <QMainWindow>
#include <QPointer>
#include <QString>

#include <memory>

namespace radio {

/** A radio's form in a window, with the state of the link and the settings' menu. */
class Window : public QMainWindow
{
    Q_OBJECT

public:
    /** Milliseconds of a round: each live row, the frequency and the mode are read once in it. */
    static constexpr int roundTime = 200;

    /** @p form has its widgets; from here they live in this window. */
    Window(const QString& title, const hostkit::FormLink::Form& form, std::shared_ptr<RigDevice> device,
           QWidget* parent = nullptr);
    ~Window() override;

    /** Goes on the way to the radio. */
    void start();
    /** False if a call to the radio hangs and had to be left to itself. */
    bool stop();
    /** Reviews the settings in a file once the radio has been read. */
    void restore(const QString& fileName);
    /** What ties form and radio. */
    hostkit::FormLink& link() { return m_link; }

    /** The review that is on screen; null if none is. */
    hostkit::ReviewDialog* review() const { return m_review; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeMenu();
    void poll();
    void showLink(hostkit::LinkState state, const QString& reason);
    void showRow(const QString& parameter, hostkit::RowState state, const QString& why);
    void saveAs();
    void openSettings();
    void reviewSettings();
    void askAgain(const QList<hostkit::Difference>& differences);
    hostkit::ReviewDialog* openReview(const QString& question, const QList<hostkit::Difference>& differences);

    hostkit::FormLink::Form m_form;
    std::shared_ptr<RigDevice> m_device;
    hostkit::FormLink m_link;
    QLabel* m_linkText; // owned by the status bar
    QPointer<hostkit::ReviewDialog> m_review;
    QString m_toRestore; // waits for the radio to be read
    bool m_hasRead = false;
};

} // namespace radio

#endif
