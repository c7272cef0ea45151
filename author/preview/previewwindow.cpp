#include "previewwindow.h"

#include "authoreditor.h"
#include "devicepane.h"
#include "keyboardfocus.h"
#include "parameterspane.h"
#include "placelist.h"
#include "valuespane.h"

#include <author/compatibility/overlaytrial.h>
#include <author/document/enginereading.h>
#include <author/document/scriptlines.h>
#include <author/files/wholefile.h>
#include <author/picture/surroundings.h>
#include <zorvaparser/zorvadelegate.h>

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QDockWidget>
#include <QDynamicPropertyChangeEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenuBar>
#include <QPixmapCache>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QStatusBar>
#include <QStyle>
#include <QVBoxLayout>
#include <QXmlStreamReader>

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

constexpr int restAfterSave = 30;   // milliseconds; a save that is under way longer is read again at its end
constexpr int timeForAPerson = 200; // milliseconds
constexpr int gathering = 50;       // milliseconds
constexpr int messageTime = 10000;  // milliseconds
constexpr int mostScriptLines = 1000; // a script may print for ever
constexpr QSize firstSize(1280, 860);
const QString waiting = QStringLiteral("A new state waits until the open menu or dialog is closed");

/** A menu or a dialog of the form has to end before the form goes. */
bool isBusyWithAPerson()
{
    return QApplication::activeModalWidget() || QApplication::activePopupWidget();
}

QAction* addTo(QMenu* menu, const QString& text, const QKeySequence& key)
{
    QAction* const action = menu->addAction(text);
    action->setShortcut(key);
    return action;
}

/** Why the text is not well-formed, and where; line 0 if it is. */
struct Mistake
{
    QString text;
    Place place{0, 0};
};

Mistake firstMistake(const SourceText& source)
{
    QXmlStreamReader reader(source.engineBytes());
    while (!reader.atEnd())
        reader.readNext();
    if (!reader.hasError())
        return Mistake();
    return {reader.errorString(), source.place(source.fromEngine(reader.characterOffset()))};
}

QStyle::StandardPixmap iconOf(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return QStyle::SP_MessageBoxCritical;
    case Severity::Warning:
        return QStyle::SP_MessageBoxWarning;
    case Severity::Note:
        break;
    }
    return QStyle::SP_MessageBoxInformation;
}

} // namespace

PreviewWindow::PreviewWindow(const PreviewOptions& options, QWidget* parent)
    : QMainWindow(parent)
    , m_options(options)
    , m_editor(openInEditor)
    , m_device(this)
    , m_banner(new Banner(this))
    , m_lookBar(new LookBar(options.look, languagesBeside(options.file), this))
    , m_stage(new QScrollArea(this))
{
    setWindowTitle(QStringLiteral("%1[*] - preview").arg(QFileInfo(options.file).fileName()));
    setDockOptions(AnimatedDocks | AllowTabbedDocks | AllowNestedDocks);
    if (options.isLookGiven)
        applyProgramLook();

    auto* const holder = new QWidget(m_stage);
    new QHBoxLayout(holder); // which owns it
    m_stage->setObjectName(QStringLiteral("stage"));
    m_stage->setAccessibleName(QStringLiteral("The form"));
    m_stage->setFrameShape(QFrame::NoFrame);
    m_stage->setFocusPolicy(Qt::NoFocus);
    m_stage->setWidgetResizable(true);
    m_stage->setWidget(holder);
    auto* const middle = new QWidget(this);
    auto* const lines = new QVBoxLayout(middle);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    lines->addWidget(m_banner);
    lines->addWidget(m_stage, 1);
    setCentralWidget(middle);
    addToolBar(m_lookBar);
    makePanes();
    makeMenus();
    statusBar()->setSizeGripEnabled(false);

    m_whenFree.setSingleShot(true);
    m_whenFree.setInterval(timeForAPerson);
    connect(&m_whenFree, &QTimer::timeout, this, &PreviewWindow::reload);
    m_showSoon.setSingleShot(true);
    m_showSoon.setInterval(gathering);
    connect(&m_showSoon, &QTimer::timeout, this, &PreviewWindow::showValues);
    connect(m_lookBar, &LookBar::formLookChanged, this, &PreviewWindow::applyFormLook);
    connect(m_lookBar, &LookBar::programLookChanged, this, &PreviewWindow::applyProgramLook);
    m_diagnoser =
        std::make_unique<Diagnoser>(options.scriptProgram, options.scriptArguments,
                                    [this](const QString&, int number, const Diagnoser::Result& result) {
                                        if (number == m_lastCheck)
                                            showProblems(*result);
                                    });
    resize(firstSize);
    resizeDocks({m_panes.first()}, {firstSize.height() / 4}, Qt::Vertical);
    resizeDocks({m_panes.last()}, {firstSize.width() * 3 / 8}, Qt::Horizontal);
    setOverlay(options.overlay);
}

PreviewWindow::~PreviewWindow()
{
    m_diagnoser.reset();
    m_device.leave();
    if (m_form)
        m_form->log().disconnect(this);
    m_form.reset();
}

QDockWidget* PreviewWindow::addPane(const QString& title, QWidget* content, Qt::DockWidgetArea area)
{
    auto* const pane = new QDockWidget(title, this);
    pane->setObjectName(QStringLiteral("pane%1").arg(m_panes.size() + 1));
    pane->setAccessibleName(title);
    pane->setWidget(content);
    addDockWidget(area, pane);
    for (QDockWidget* const other : qAsConst(m_panes)) {
        if (dockWidgetArea(other) == area) {
            tabifyDockWidget(other, pane);
            other->raise();
            break;
        }
    }
    connect(pane, &QDockWidget::visibilityChanged, this, [this](bool isVisible) {
        if (isVisible)
            m_showSoon.start();
    });
    m_panes.append(pane);
    return pane;
}

void PreviewWindow::makePanes()
{
    m_problems = new PlaceList(QStringLiteral("Problems of the description"),
                               {QStringLiteral("Line"), QStringLiteral("Problem"),
                                QStringLiteral("What it costs"), QStringLiteral("Rule")},
                               this);
    m_problems->header()->setStretchLastSection(false);
    m_problems->header()->setSectionResizeMode(1, QHeaderView::Stretch);
    m_problems->header()->setSectionResizeMode(2, QHeaderView::Stretch);
    m_problems->header()->setSectionResizeMode(3, QHeaderView::ResizeToContents);
    m_problems->setEmptyText(QStringLiteral("The description is being checked"));
    m_problems->setObjectName(QStringLiteral("problems"));
    m_script = new PlaceList(QStringLiteral("Output and exceptions of the script"),
                             {QStringLiteral("Line"), QStringLiteral("Script output")}, this);
    m_script->setObjectName(QStringLiteral("scriptOutput"));
    m_script->setEmptyText(QStringLiteral("The script has printed and thrown nothing"));
    m_aside = new PlaceList(QStringLiteral("Entries that the new form does not take"),
                            {QStringLiteral("Row"), QStringLiteral("Entered"), QStringLiteral("Why")}, this);
    m_aside->setObjectName(QStringLiteral("keptAside"));
    m_aside->setEmptyText(QStringLiteral("The form has all that was entered"));
    m_overlayList = new PlaceList(QStringLiteral("What the overlay changes"),
                                  {QStringLiteral("Row"), QStringLiteral("Property"),
                                   QStringLiteral("Before"), QStringLiteral("After")},
                                  this);
    m_overlayList->setObjectName(QStringLiteral("overlayChanges"));
    m_values = new ValuesPane(this);
    m_parameters = new ParametersPane(this);
    addPane(QStringLiteral("Problems"), m_problems, Qt::BottomDockWidgetArea);
    addPane(QStringLiteral("Script"), m_script, Qt::BottomDockWidgetArea);
    addPane(QStringLiteral("Kept aside"), m_aside, Qt::BottomDockWidgetArea);
    addPane(QStringLiteral("Values"), m_values, Qt::RightDockWidgetArea);
    addPane(QStringLiteral("Parameters"), m_parameters, Qt::RightDockWidgetArea);
    auto* const devicePane = new DevicePane(m_device, this);
    addPane(QStringLiteral("Device"), devicePane, Qt::RightDockWidgetArea);
    addPane(QStringLiteral("Overlay"), m_overlayList, Qt::RightDockWidgetArea);
    connect(m_problems, &PlaceList::placeChosen, this, &PreviewWindow::edit);
    connect(m_script, &PlaceList::placeChosen, this, &PreviewWindow::edit);
    connect(m_overlayList, &PlaceList::placeChosen, this,
            [this](int line, int column) { editFile(m_options.overlay, line, column); });
    connect(m_parameters, &ParametersPane::selectionChanged, this, &PreviewWindow::showValues);
    connect(devicePane, &DevicePane::switched, this, &PreviewWindow::rebuild);
}

void PreviewWindow::makeMenus()
{
    QMenu* const file = menuBar()->addMenu(QStringLiteral("&File"));
    connect(addTo(file, QStringLiteral("&Read again"), QKeySequence(Qt::Key_F5)), &QAction::triggered, this,
            &PreviewWindow::reload);
    connect(addTo(file, QStringLiteral("&Edit the description"), QKeySequence(QStringLiteral("Ctrl+E"))),
            &QAction::triggered, this, [this] { edit(1, 1); });
    connect(addTo(file, QStringLiteral("Save a &picture..."), QKeySequence(QStringLiteral("Ctrl+S"))),
            &QAction::triggered, this, &PreviewWindow::savePicture);
    file->addSeparator();
    connect(addTo(file, QStringLiteral("Try an &overlay..."), QKeySequence(QStringLiteral("Ctrl+O"))),
            &QAction::triggered, this, &PreviewWindow::chooseOverlay);
    m_useOverlay =
        addTo(file, QStringLiteral("Overlay in &use"), QKeySequence(QStringLiteral("Ctrl+Shift+O")));
    m_useOverlay->setObjectName(QStringLiteral("useOverlay"));
    m_useOverlay->setCheckable(true);
    m_useOverlay->setEnabled(false);
    connect(m_useOverlay, &QAction::toggled, this, &PreviewWindow::reload);
    file->addSeparator();
    connect(addTo(file, QStringLiteral("For&get what is kept aside"), QKeySequence()), &QAction::triggered,
            this, [this] {
                m_carryover.forget();
                showAside({});
            });
    file->addSeparator();
    connect(addTo(file, QStringLiteral("&Quit"), QKeySequence::Quit), &QAction::triggered, this,
            &QWidget::close);

    makePaneKeys(menuBar()->addMenu(QStringLiteral("&Go")));
    QMenu* const panes = menuBar()->addMenu(QStringLiteral("&Panes"));
    for (QDockWidget* const pane : qAsConst(m_panes))
        panes->addAction(pane->toggleViewAction());

    m_goThere = new QAction(QStringLiteral("&Go to the place"), this);
    m_goThere->setObjectName(QStringLiteral("goThere"));
    m_goThere->setVisible(false);
    connect(m_goThere, &QAction::triggered, this, [this] { edit(m_heldBack.line, m_heldBack.column); });
    m_showAnyway = new QAction(QStringLiteral("&Show what can be read"), this);
    m_showAnyway->setObjectName(QStringLiteral("showAnyway"));
    m_showAnyway->setVisible(false);
    connect(m_showAnyway, &QAction::triggered, this, &PreviewWindow::showForced);
    m_banner->addButton(m_goThere);
    m_banner->addButton(m_showAnyway);
}

void PreviewWindow::makePaneKeys(QMenu* menu)
{
    connect(addTo(menu, QStringLiteral("&Form"), QKeySequence(QStringLiteral("Ctrl+0"))), &QAction::triggered,
            this, [this] {
                if (m_form && m_form->window())
                    focusInside(*m_form->window());
            });
    for (int i = 0; i < m_panes.size(); ++i) {
        QDockWidget* const pane = m_panes.at(i);
        QAction* const action =
            addTo(menu, pane->windowTitle(), QKeySequence(QStringLiteral("Ctrl+%1").arg(i + 1)));
        connect(action, &QAction::triggered, this, [pane] {
            pane->show();
            pane->raise();
            pane->widget()->setFocus(Qt::ShortcutFocusReason);
        });
    }
    connect(addTo(menu, QStringLiteral("&Look"), QKeySequence(QStringLiteral("Ctrl+L"))), &QAction::triggered,
            m_lookBar, &LookBar::takeFocus);
    menu->addSeparator();
    connect(addTo(menu, QStringLiteral("&Next pane"), QKeySequence(Qt::Key_F6)), &QAction::triggered, this,
            [this] { nextPane(1); });
    connect(addTo(menu, QStringLiteral("&Previous pane"), QKeySequence(QStringLiteral("Shift+F6"))),
            &QAction::triggered, this, [this] { nextPane(-1); });
    connect(addTo(menu, QStringLiteral("Next p&roblem"), QKeySequence(Qt::Key_F8)), &QAction::triggered, this,
            [this] {
                const int count = m_problems->topLevelItemCount();
                if (count == 0)
                    return;
                const int now = m_problems->indexOfTopLevelItem(m_problems->currentItem());
                m_problems->setCurrentItem(m_problems->topLevelItem((now + 1) % count));
                m_problems->goToCurrent();
            });
}

// The form is one of them: the one before the first pane.
void PreviewWindow::nextPane(int step)
{
    QVector<QWidget*> stops{m_form ? m_form->window() : nullptr};
    for (const QDockWidget* const pane : qAsConst(m_panes)) {
        const bool isSeen = pane->isVisible() && !pane->visibleRegion().isEmpty();
        if (isSeen)
            stops.append(pane->widget());
    }
    stops.removeAll(nullptr);
    if (stops.isEmpty())
        return;
    int now = 0;
    for (int i = 0; i < stops.size(); ++i) {
        if (hasFocusInside(*stops.at(i)))
            now = i;
    }
    focusInside(*stops.at((now + step + stops.size()) % stops.size()));
}

PreviewWindow::Reading PreviewWindow::read() const
{
    Reading reading;
    const FileContent content = readStored(m_options.file);
    if (!content.isRead()) {
        reading.problem = QStringLiteral("%1 cannot be read: %2").arg(m_options.file, content.problem);
        return reading;
    }
    const SourceText source(content.bytes);
    reading.stored = content.bytes;
    const Mistake mistake = firstMistake(source);
    if (mistake.place.line > 0) {
        reading.line = mistake.place.line;
        reading.column = mistake.place.column;
        reading.problem =
            QStringLiteral("line %1, column %2: %3").arg(reading.line).arg(reading.column).arg(mistake.text);
    }
    return reading;
}

bool PreviewWindow::mustWait() const
{
    return m_isBuilding || (m_form && m_form->isRunning()) || isBusyWithAPerson();
}

void PreviewWindow::reload()
{
    if (mustWait()) {
        m_whenFree.start();
        if (isBusyWithAPerson())
            statusBar()->showMessage(waiting);
        return;
    }
    if (statusBar()->currentMessage() == waiting)
        statusBar()->clearMessage();
    const Reading reading = read();
    m_overlayBytes = readOverlay();
    if (!reading.stored.isNull())
        m_lastCheck = m_diagnoser->submit(m_options.file, reading.stored);
    takeUp(reading, false);
}

void PreviewWindow::takeUp(const Reading& reading, bool force)
{
    m_heldBack = reading;
    // At the beginning there is nothing better than what can be read.
    if (!reading.problem.isEmpty() && m_form && !force) {
        holdBack(reading);
        return;
    }
    std::unique_ptr<PreviewForm> fresh = makeForm(reading.stored);
    if (!fresh->exists()) {
        if (m_heldBack.problem.isEmpty())
            m_heldBack.problem = QStringLiteral("there is no form in it: it has no element KVParamGui");
        holdBack(m_heldBack);
        return;
    }
    m_banner->say(
        reading.problem.isEmpty()
            ? QString()
            : QStringLiteral("Only what stands before the mistake is shown. %1").arg(reading.problem));
    m_goThere->setVisible(reading.line > 0);
    m_showAnyway->setVisible(false);
    build(std::move(fresh), reading.stored);
}

void PreviewWindow::holdBack(const Reading& reading)
{
    const QString before =
        m_form ? QStringLiteral("The last good form is shown: ") : QStringLiteral("There is no form yet: ");
    m_banner->say(before + reading.problem);
    m_goThere->setVisible(reading.line > 0);
    m_showAnyway->setVisible(m_form && !reading.stored.isEmpty());
    Q_EMIT heldBack(reading.problem);
}

void PreviewWindow::showForced()
{
    const Reading reading = m_heldBack;
    if (!mustWait())
        takeUp(reading, true);
}

std::unique_ptr<PreviewForm> PreviewWindow::makeForm(const QByteArray& stored) const
{
    return std::make_unique<PreviewForm>(SourceText(stored).engineBytes(),
                                         QFileInfo(m_options.file).completeBaseName());
}

void PreviewWindow::rebuild()
{
    if (mustWait())
        m_whenFree.start();
    else if (m_form)
        build(makeForm(m_stored), m_stored);
}

void PreviewWindow::build(std::unique_ptr<PreviewForm> fresh, const QByteArray& stored)
{
    const QScopedValueRollback<bool> building(m_isBuilding, true);
    const bool wasInForm = !m_form || hasFocusInside(*m_form->window());
    m_stored = stored;
    m_script->clear();
    if (m_form) {
        m_form->form().disconnect(this);
        m_form->log().disconnect(this);
        m_carryover.take(*m_form);
        m_device.leave();
    }
    connect(&fresh->log(), &ScriptLog::printed, this, [this](const QString& text) { sayOfScript(text, 0); });
    connect(&fresh->log(), &ScriptLog::threw, this, &PreviewWindow::sayOfScript);
    fresh->log().setBound(m_options.longestScript);
    fresh->build(m_useOverlay->isChecked() ? SourceText(m_overlayBytes).text() : QString());
    QVector<KeptAside> aside = m_carryover.give(*fresh);
    setUpdatesEnabled(false);
    m_form.swap(fresh);
    place(m_form->window());
    fresh.reset();
    // The pictures of the form that went would stay in there until it is full.
    QPixmapCache::clear();
    setUpdatesEnabled(true);
    aside += m_carryover.giveFocus(*m_form);
    if (wasInForm && !hasFocusInside(*m_form->window()))
        focusInside(*m_form->window());
    showAside(aside);
    listenTo(*m_form);
    m_device.join(*m_form);
    showOverlay();
    m_showSoon.start();
    Q_EMIT reloaded();
}

void PreviewWindow::place(QWidget* window)
{
    auto* const line = static_cast<QHBoxLayout*>(m_stage->widget()->layout());
    while (QLayoutItem* const item = line->takeAt(0)) {
        if (item->widget())
            item->widget()->hide();
        delete item;
    }
    line->addWidget(window);
    applyFormLook();
    m_form->form().Show();
}

void PreviewWindow::listenTo(PreviewForm& form)
{
    for (ZorvaDelegate* const delegate : form.delegates())
        delegate->installEventFilter(this);
    connect(&form.form(), &ZorvaFormular::si_parametersModified, this, &PreviewWindow::takeApplied);
}

bool PreviewWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::DynamicPropertyChange && !m_showSoon.isActive())
        m_showSoon.start();
    return QMainWindow::eventFilter(watched, event);
}

// The host's part: with a device it is the link that fetches, and this only looks.
void PreviewWindow::takeApplied()
{
    m_parameters->setApplied(m_device.link() ? m_form->parameters(true) : m_form->form().GetXmlString(true));
    m_showSoon.start();
}

void PreviewWindow::showAside(const QVector<KeptAside>& aside)
{
    m_aside->clear();
    for (const KeptAside& entry : aside)
        m_aside->add({entry.row, entry.text, entry.why});
    m_aside->resizeColumnToContents(0);
    QDockWidget* const pane = m_panes.at(2);
    pane->setWindowTitle(aside.isEmpty() ? QStringLiteral("Kept aside")
                                         : QStringLiteral("Kept aside (%1)").arg(aside.size()));
    if (aside.isEmpty())
        return;
    pane->show();
    pane->raise();
    statusBar()->showMessage(
        QStringLiteral("%1 entries could not be carried over; they are kept aside").arg(aside.size()),
        messageTime);
}

void PreviewWindow::applyFormLook()
{
    if (!m_form || !m_form->window())
        return;
    const PreviewLook look = m_lookBar->look();
    QWidget* const window = m_form->window();
    window->setMinimumWidth(look.width);
    window->setMaximumWidth(look.width > 0 ? look.width : QWIDGETSIZE_MAX);
    window->setLayoutDirection(look.isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    ZorvaSheet& sheet = m_form->form().GetSheet();
    const int own = QFontInfo(QApplication::font()).pointSize();
    if (look.textSize != m_options.look.textSize || look.textSize > 0)
        sheet.SetFontSize(look.textSize > 0 ? look.textSize : own);
    m_options.look = look;
}

void PreviewWindow::applyProgramLook()
{
    const PreviewLook wanted = m_lookBar->look();
    Look look;
    look.style = wanted.style;
    look.dark = wanted.isDark;
    look.language = wanted.language;
    look.form = m_options.file;
    look.translationFolders = m_options.translationFolders;
    look.fontSize = QFontInfo(QApplication::font()).pointSize();
    const QString problem = putOn(look);
    m_banner->takeColours();
    if (!problem.isEmpty())
        statusBar()->showMessage(problem, messageTime);
    m_showSoon.start();
}

void PreviewWindow::showProblems(const CheckedFile& checked)
{
    m_problems->clear();
    m_problems->setEmptyText(QStringLiteral("No problems"));
    for (const Finding& finding : checked.findings) {
        const Place place = checked.source.place(finding.range.begin);
        QTreeWidgetItem* const item =
            m_problems->add({QString::number(place.line), finding.message, finding.effect, finding.id},
                            place.line, place.column);
        item->setIcon(0, style()->standardIcon(iconOf(finding.severity)));
        item->setData(0, Qt::AccessibleTextRole,
                      QStringLiteral("%1, line %2").arg(severityName(finding.severity)).arg(place.line));
    }
    m_problems->setColumnHidden(2,
                                std::all_of(checked.findings.cbegin(), checked.findings.cend(),
                                            [](const Finding& finding) { return finding.effect.isEmpty(); }));
    m_problems->resizeColumnToContents(0);
    m_panes.first()->setWindowTitle(checked.findings.isEmpty()
                                        ? QStringLiteral("Problems")
                                        : QStringLiteral("Problems (%1)").arg(checked.findings.size()));
    Q_EMIT problemsShown();
}

void PreviewWindow::sayOfScript(const QString& text, int line)
{
    if (m_script->topLevelItemCount() >= mostScriptLines)
        delete m_script->takeTopLevelItem(0);
    const int place = line > 0 ? fileLine(line) : 0;
    m_script->add({place > 0 ? QString::number(place) : QString(), text}, place);
    m_script->scrollToBottom();
    if (line > 0)
        statusBar()->showMessage(QStringLiteral("Script: %1").arg(text), messageTime);
}

int PreviewWindow::fileLine(int scriptLine) const
{
    const Description description{SourceText(m_stored)};
    const int script = EngineReading(description).form().script;
    if (script < 0)
        return 0;
    return scriptLinesInFile(description, script).value(scriptLine - 1);
}

void PreviewWindow::showValues()
{
    if (!m_form)
        return;
    if (m_values->isVisible())
        m_values->show(m_form.get());
    if (m_parameters->isVisible())
        m_parameters->show(m_form.get());
}

void PreviewWindow::edit(int line, int column)
{
    editFile(m_options.file, line, column);
}

void PreviewWindow::editFile(const QString& file, int line, int column)
{
    const QString problem = m_editor(file, line, column);
    if (!problem.isEmpty())
        statusBar()->showMessage(QStringLiteral("The editor cannot be opened: %1").arg(problem), messageTime);
}

QImage PreviewWindow::picture() const
{
    QWidget* const content = m_form ? m_form->form().GetSheet().Content() : nullptr;
    if (!content)
        return QImage();
    QImage image(content->size() * content->devicePixelRatioF(), QImage::Format_RGB32);
    image.setDevicePixelRatio(content->devicePixelRatioF());
    image.fill(content->palette().color(QPalette::Window));
    content->render(&image);
    return image;
}

void PreviewWindow::savePicture()
{
    const QString start = QFileInfo(m_options.file).completeBaseName() + QStringLiteral(".png");
    const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Save a picture"), start,
                                                      QStringLiteral("Pictures (*.png)"));
    if (path.isEmpty())
        return;
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    const bool isDrawn = picture().save(&buffer, "PNG");
    const QString problem = isDrawn ? writeWhole(path, png) : QStringLiteral("there is no form");
    statusBar()->showMessage(problem.isEmpty() ? QStringLiteral("Saved %1").arg(path)
                                               : QStringLiteral("Cannot save %1: %2").arg(path, problem),
                             messageTime);
}

void PreviewWindow::chooseOverlay()
{
    const QString file = QFileDialog::getOpenFileName(
        this, QStringLiteral("Try an overlay"), QFileInfo(m_options.file).absolutePath(),
        QStringLiteral("Overlays (*.zorva *.xml);;All files (*)"));
    if (file.isEmpty())
        return;
    setOverlay(file);
    reload();
    m_panes.last()->show();
    m_panes.last()->raise();
}

void PreviewWindow::setOverlay(const QString& file)
{
    m_options.overlay = file;
    QStringList files{m_options.file};
    if (!file.isEmpty())
        files << file;
    m_watch = std::make_unique<FileWatch>(files, nullptr, restAfterSave);
    for (const auto signal : {&FileWatch::changed, &FileWatch::missing, &FileWatch::returned})
        connect(m_watch.get(), signal, this, &PreviewWindow::reload);
    const QSignalBlocker quiet(m_useOverlay);
    m_useOverlay->setEnabled(!file.isEmpty());
    m_useOverlay->setChecked(!file.isEmpty());
}

QByteArray PreviewWindow::readOverlay()
{
    if (m_options.overlay.isEmpty())
        return QByteArray();
    const FileContent content = readStored(m_options.overlay);
    if (!content.isRead())
        statusBar()->showMessage(
            QStringLiteral("%1 cannot be read: %2").arg(m_options.overlay, content.problem), messageTime);
    return content.bytes;
}

void PreviewWindow::showOverlay()
{
    m_overlayList->clear();
    m_overlayList->setEmptyText(m_overlayBytes.isEmpty() ? QStringLiteral("No overlay: Ctrl+O tries one")
                                                         : QStringLiteral("The overlay changes nothing"));
    if (m_overlayBytes.isEmpty())
        return;
    const OverlayTrial trial(m_stored, m_overlayBytes, m_options.longestScript);
    if (trial.wasStopped())
        m_overlayList->add({QStringLiteral("script"), ScriptLog::stoppedText(m_options.longestScript)});
    for (const OverlayEnumeration& entries : trial.enumerations()) {
        m_overlayList->add({entries.name, QStringLiteral("enumeration"),
                            entries.before.join(QLatin1String(", ")),
                            entries.after.join(QLatin1String(", "))},
                           entries.line);
        if (!entries.stale.isEmpty())
            m_overlayList->add({entries.name, QStringLiteral("scripts still see"),
                                entries.stale.join(QLatin1String(", ")), QString()},
                               entries.line);
    }
    for (const OverlayChange& change : trial.changes())
        m_overlayList->add({change.row, change.name, change.before, change.after}, change.line);
    for (const OverlayLoss& loss : trial.losses())
        m_overlayList->add({loss.what, QStringLiteral("dropped: %1").arg(loss.reason), QString(), QString()},
                           loss.line);
    if (trial.scriptLine() > 0)
        m_overlayList->add(
            {QStringLiteral("script"), QStringLiteral("stored, and never run"), QString(), QString()},
            trial.scriptLine());
}

} // namespace Author
} // namespace Orvane
