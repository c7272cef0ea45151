#include "window.h"

#include <hostkit/formrows.h>
#include <hostkit/settingsstore.h>

#include <QCloseEvent>
#include <QFileDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>

namespace radio {

using hostkit::Difference;
using hostkit::LinkState;
using hostkit::ReviewDialog;
using hostkit::RowState;

namespace {

constexpr int messageTime = 10000;
constexpr QMargins air(8, 6, 0, 4); // pixels round the form, whose scroll bar stands at the edge

} // namespace

Window::Window(const QString& title, const hostkit::FormLink::Form& form, std::shared_ptr<RigDevice> device,
               QWidget* parent)
    : QMainWindow(parent)
    , m_form(form)
    , m_device(std::move(device))
    , m_link(form, m_device)
    , m_linkText(new QLabel(this))
{
    setWindowTitle(title);
    setCentralWidget(m_form->GetGUI());
    m_form->GetGUI()->setContentsMargins(air);
    m_linkText->setObjectName(QStringLiteral("linkState"));
    m_linkText->setTextFormat(Qt::PlainText); // the device has its say in it
    statusBar()->addPermanentWidget(m_linkText);
    makeMenu();
    poll();
    connect(&m_link.link(), &hostkit::DeviceLink::stateChanged, this, &Window::showLink);
    connect(&m_link.states(), &hostkit::RowStates::changed, this, &Window::showRow);
    connect(&m_link, &hostkit::FormLink::unconfirmed, this, &Window::askAgain);
    connect(&m_link, &hostkit::FormLink::readAll, this, [this] {
        m_hasRead = true;
        reviewSettings();
    });
    resize(980, 700);
}

Window::~Window()
{
    m_link.disconnect(this);
    m_link.link().disconnect(this);
    m_link.states().disconnect(this);
}

void Window::makeMenu()
{
    QMenu* const menu = menuBar()->addMenu(tr("&Settings"));
    menu->addAction(tr("&Save..."), this, &Window::saveAs, QKeySequence::Save);
    menu->addAction(tr("&Restore..."), this, &Window::openSettings, QKeySequence::Open);
    menu->addSeparator();
    menu->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence::Quit);
}

void Window::poll()
{
    QStringList live;
    QStringList others;
    const QStringList paths = hostkit::rowPaths(*m_form);
    for (const QString& path : paths) {
        if (!m_device->knows(path))
            continue;
        // The knob and the mode are what an operator watches while somebody else is tuning.
        const bool watched = path == QLatin1String("Tuning/Frequency") || path == QLatin1String("Mode/Mode");
        (watched || m_device->isLive(path) ? live : others).append(path);
    }
    m_link.link().setPolled(live, others, roundTime);
}

void Window::start()
{
    m_link.link().start();
}

bool Window::stop()
{
    return m_link.link().stop();
}

void Window::closeEvent(QCloseEvent* event)
{
    // What is still being asked has no answer any more.
    if (m_review)
        m_review->reject();
    event->accept();
}

void Window::showLink(LinkState state, const QString& reason)
{
    switch (state) {
    case LinkState::Closed:
        m_linkText->setText(tr("Not connected"));
        break;
    case LinkState::Opening:
        m_linkText->setText(tr("Connecting..."));
        break;
    case LinkState::Up:
        m_linkText->setText(tr("Connected"));
        break;
    case LinkState::Slow:
        m_linkText->setText(tr("The radio does not answer at present"));
        break;
    case LinkState::Down:
        m_linkText->setText(tr("No radio (%1); trying again").arg(reason));
        break;
    }
}

void Window::showRow(const QString& parameter, RowState state, const QString& why)
{
    if (state != RowState::Refused && state != RowState::Differing)
        return;
    const auto row = hostkit::rowOf(*m_form, parameter);
    const QString caption = row ? hostkit::captionOf(*row) : parameter;
    statusBar()->showMessage(QStringLiteral("%1: %2: %3").arg(caption, hostkit::RowStates::word(state), why),
                             messageTime);
}

void Window::saveAs()
{
    const QString file =
        QFileDialog::getSaveFileName(this, tr("Save settings"), QString(), tr("Settings (*.xml)"));
    if (file.isEmpty())
        return;
    QString error;
    if (!hostkit::saveText(file, m_link.settings() + QLatin1Char('\n'), &error))
        QMessageBox::warning(this, windowTitle(), tr("Could not save the settings: %1").arg(error));
}

void Window::openSettings()
{
    const QString file =
        QFileDialog::getOpenFileName(this, tr("Restore settings"), QString(), tr("Settings (*.xml)"));
    if (!file.isEmpty())
        restore(file);
}

void Window::restore(const QString& fileName)
{
    m_toRestore = fileName;
    if (m_hasRead)
        reviewSettings();
}

void Window::reviewSettings()
{
    if (m_toRestore.isEmpty())
        return;
    const QString file = m_toRestore;
    m_toRestore.clear();
    QString xml;
    QString error;
    if (!hostkit::loadText(file, &xml, &error)) {
        statusBar()->showMessage(tr("Could not read %1: %2").arg(file, error), messageTime);
        return;
    }
    const QList<Difference> differences = m_link.differences(hostkit::parametersOf(xml));
    if (differences.isEmpty()) {
        statusBar()->showMessage(tr("The radio is set as in %1").arg(file), messageTime);
        return;
    }
    ReviewDialog* const dialog = openReview(tr("The file differs from the radio. Send these?"), differences);
    connect(dialog, &QDialog::accepted, this, [this, dialog] { m_link.send(dialog->chosen()); });
}

void Window::askAgain(const QList<Difference>& differences)
{
    ReviewDialog* const dialog =
        openReview(tr("The link was lost before this was confirmed. Send it again?"), differences);
    connect(dialog, &QDialog::finished, this, [this, dialog](int result) {
        m_link.settleUnconfirmed(result == QDialog::Accepted ? dialog->chosen() : QList<Difference>());
    });
}

ReviewDialog* Window::openReview(const QString& question, const QList<Difference>& differences)
{
    // A question that the present one makes old is taken back, not answered.
    if (m_review) {
        m_review->disconnect(this);
        m_review->close();
    }
    m_review = new ReviewDialog(question, differences, this);
    m_review->setAttribute(Qt::WA_DeleteOnClose);
    m_review->open();
    return m_review;
}

} // namespace radio
